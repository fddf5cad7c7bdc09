#include "hosts/composer/problem_list.h"

#include <QAbstractListModel>
#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QListView>
#include <QVBoxLayout>

#include "faces/qt/qt_text.h"
#include "hosts/composer/statement_kinds.h"

namespace zolt20::composer {

using language::Finding;
using language::Severity;

class ProblemList::Model final : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;

  void Set(std::vector<Finding> findings) {
    beginResetModel();
    findings_ = std::move(findings);
    endResetModel();
  }
  void Draw(const QPalette& palette) {
    error_ = PictureOf(Mark::kError, palette);
    warning_ = PictureOf(Mark::kWarning, palette);
  }

  int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(findings_.size());
  }

  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid()) return {};
    const Finding& finding = findings_[static_cast<std::size_t>(index.row())];
    const bool isError = finding.severity == Severity::kError;
    const QString sentence = qt::ToQt(finding.sentence);
    switch (role) {
      case Qt::DisplayRole:
        return QCoreApplication::translate("composer", "Line %1: %2")
            .arg(finding.line)
            .arg(sentence);
      case Qt::DecorationRole:
        return isError ? error_ : warning_;
      case Qt::ToolTipRole:
        return QStringLiteral("<qt>%1</qt>").arg(sentence.toHtmlEscaped());
      case Qt::AccessibleTextRole:
        return (isError
                    ? QCoreApplication::translate("composer", "Error in line %1, column %2: %3")
                    : QCoreApplication::translate("composer", "Warning in line %1, column %2: %3"))
            .arg(finding.line)
            .arg(finding.column)
            .arg(sentence);
      default:
        return {};
    }
  }

 private:
  std::vector<Finding> findings_;
  QIcon error_;
  QIcon warning_;
};

ProblemList::ProblemList(QWidget* parent)
    : QWidget(parent),
      title_(new QLabel(tr("No problems"))),
      list_(new QListView),
      model_(new Model(this)) {
  title_->setObjectName(QStringLiteral("problemsTitle"));
  title_->setBuddy(list_);
  model_->Draw(palette());
  list_->setObjectName(QStringLiteral("problems"));
  list_->setAccessibleName(tr("Problems"));
  list_->setModel(model_);
  list_->setWordWrap(true);
  list_->setResizeMode(QListView::Adjust);
  list_->setLayoutMode(QListView::Batched);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->setMinimumSize(120, 30);
  list_->hide();
  const auto tell = [this](const QModelIndex& index) {
    emit Chosen(static_cast<std::size_t>(index.row()));
  };
  connect(list_, &QListView::clicked, this, tell);
  connect(list_, &QListView::activated, this, tell);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(title_);
  layout->addWidget(list_, 1);
}

// The current row keeps its number if the new list is long enough.
void ProblemList::Show(const std::vector<Finding>& findings) {
  const int row = list_->currentIndex().row();
  model_->Set(findings);
  title_->setText(findings.empty() ? tr("No problems") : tr("&Problems (%1)").arg(findings.size()));
  list_->setVisible(!findings.empty());
  setSizePolicy(QSizePolicy::Preferred,
                findings.empty() ? QSizePolicy::Fixed : QSizePolicy::Expanding);
  if (row >= 0) list_->setCurrentIndex(model_->index(row, 0));
}

void ProblemList::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) model_->Draw(palette());
  QWidget::changeEvent(event);
}

}  // namespace zolt20::composer
