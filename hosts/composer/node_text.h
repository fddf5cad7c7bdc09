// A statement of a rule as text, coloured and checked while it is typed, for one that does not come
// back onto the pages.
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
  /// `names` may be null. `path` tells where the statement is.
  NodeText(const QString& statement, std::unique_ptr<language::Names> names, const QString& path,
           QWidget* parent);
  ~NodeText() override;

  /// With CR LF between its lines.
  QString Text() const;

  /// Asks first when the text is another one.
  void reject() override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Check();
  void Show(std::size_t finding);

  std::unique_ptr<language::Names> names_;
  QPlainTextEdit* box_;
  qt::Highlighter* colours_;
  ProblemList* problems_;
  QTimer* rested_;
  std::vector<language::Finding> findings_;
};

}  // namespace zolt20::composer
