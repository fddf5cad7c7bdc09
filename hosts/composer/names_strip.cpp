#include "hosts/composer/names_strip.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace zolt20::composer {

NamesStrip::NamesStrip(QWidget* parent) : QWidget(parent), label_(new QLabel) {
  label_->setObjectName(QStringLiteral("changedNamesTold"));
  label_->setTextFormat(Qt::PlainText);
  label_->setWordWrap(true);
  const auto button = [](const QString& text, const char* name) {
    auto* made = new QToolButton;
    made->setText(text);
    made->setObjectName(QLatin1String(name));
    return made;
  };
  QToolButton* show = button(tr("Changed Names..."), "showChangedNames");
  QToolButton* later = button(tr("Later"), "changedNamesLater");
  connect(show, &QToolButton::clicked, this, &NamesStrip::Asked);
  connect(later, &QToolButton::clicked, this, [this] {
    isPutOff_ = true;
    hide();
  });
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(8, 0, 8, 0);
  layout->addWidget(label_, 1);
  layout->addWidget(show, 0, Qt::AlignTop);
  layout->addWidget(later, 0, Qt::AlignTop);
  hide();
}

void NamesStrip::Tell(std::size_t names, std::size_t rules) {
  label_->setText(
      tr("The catalogue is another one. Names gone or of another type: %1, in rules: %2.")
          .arg(names)
          .arg(rules));
  setVisible(names > 0 && !isPutOff_);
}

}  // namespace zolt20::composer
