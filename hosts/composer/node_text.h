// A dialog with a statement as text, for a statement that can't be shown on the pages. The text is
// coloured and checked while it is typed.
#pragma once

#include <QDialog>
#include <memory>

#include "language/check.h"

class QPlainTextEdit;
class QTimer;

namespace zolt20::qt {
class Highlighter;
}  // namespace zolt20::qt

namespace zolt20::composer {

class ProblemList;

class NodeText final : public QDialog {
  Q_OBJECT

 public:
  /// `names` may be null. `path` tells where in the rule the statement is.
  NodeText(const QString& statement, std::unique_ptr<language::Names> names, const QString& path,
           QWidget* parent);
  ~NodeText() override;

  /// The text, with CR LF between its lines.
  QString Text() const;

  /// Asks before it closes if the text has changed.
  void reject() override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Check();
  void Show(std::size_t finding);

  std::unique_ptr<language::Names> names_;
  QPlainTextEdit* box_;
  qt::Highlighter* colors_;
  ProblemList* problems_;
  QTimer* rested_;
  std::vector<language::Finding> findings_;
};

}  // namespace zolt20::composer
