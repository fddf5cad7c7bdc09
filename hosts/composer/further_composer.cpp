#include "hosts/composer/further_composer.h"

#include <QLabel>
#include <QMessageBox>
#include <QShortcut>
#include <QVBoxLayout>

#include "hosts/composer/cut_label.h"
#include "hosts/composer/map_keys.h"
#include "hosts/composer/requests.h"
#include "hosts/composer/settings.h"

namespace zolt20::composer {
namespace {

constexpr QPoint kShift{32, 32};
constexpr QSize kNestedSize{900, 650};

}  // namespace

QString PathOf(const QWidget* asking) {
  if (asking == nullptr) return {};
  if (const auto* further = qobject_cast<const FurtherComposer*>(asking->window()))
    return further->Path();
  const auto* heading = asking->window()->findChild<QLabel*>(QStringLiteral("heading"));
  return heading == nullptr ? QString() : ShortName(heading->text());
}

FurtherComposer::FurtherComposer(const catalogue::Catalogue& catalogue, const QString& title,
                                 QWidget* parent)
    : QDialog(parent), map_(new RecordedMap(catalogue, this)) {
  setWindowTitle(title);
}

void FurtherComposer::Begin(const catalogue::Catalogue& catalogue, const QString& path) {
  path_ = path;
  if (const auto* asking = qobject_cast<RecordedMap*>(parentWidget()))
    map_->KeepWithin(*asking, windowTitle());
  AnswerRequests(*map_, catalogue);
  connect(map_, &ZOLT20MapWidget::eventDone, this, &FurtherComposer::TakeText);
  connect(map_, &ZOLT20MapWidget::eventCancel, this, &FurtherComposer::reject);

  for (const bool forward : {false, true}) {
    auto* turn = new QShortcut(Qt::CTRL | (forward ? Qt::Key_PageDown : Qt::Key_PageUp), this);
    connect(turn, &QShortcut::activated, this, [this, forward] { TurnPage(*map_, forward); });
  }

  auto* label = new CutLabel;
  label->setObjectName(QStringLiteral("path"));
  label->setText(path_);
  label->setContentsMargins(8, 6, 8, 0);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(label);
  layout->addWidget(map_, 1);
  map_->setMinimumSize(240, 120);  // it scrolls
  ResizeWithinScreen(*this, kNestedSize);
  if (parentWidget() == nullptr) return;
  PlaceOnScreens(*this, QRect(parentWidget()->window()->geometry().topLeft() + kShift, size()));
}

void FurtherComposer::reject() {
  if (map_->IsChanged() &&
      QMessageBox::question(this, windowTitle(), tr("Leave without what was composed?"),
                            QMessageBox::Discard | QMessageBox::Cancel,
                            QMessageBox::Cancel) != QMessageBox::Discard) {
    return;
  }
  QDialog::reject();
}

}  // namespace zolt20::composer
