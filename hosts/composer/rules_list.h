// The rules of a file as a list with a filter. The person chooses a rule, or moves one to another
// place, by mouse or keys; the window does what follows.
#pragma once

#include <QWidget>

class QAction;
class QFrame;
class QKeyEvent;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QToolBar;

namespace zolt20::composer {

class RulesList final : public QWidget {
  Q_OBJECT

 public:
  explicit RulesList(QWidget* parent = nullptr);

  /// Shows these rules in this order, and selects the current one; "" selects none.
  void Show(const QStringList& names, const QString& current);
  /// Shows whether the current rule has unsaved changes. Other rules never do.
  void MarkChanged(bool isChanged);
  void AddButton(QAction& action);
  /// Sets the context menu of a rule. A right click selects the rule first.
  void SetMenu(const QList<QAction*>& actions);
  void FocusFilter();

 signals:
  void Chosen(const QString& name);
  /// The person moved the rule to this index.
  void Moved(const QString& name, int place);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Tell();
  void Filter(const QString& text);
  void MoveBy(int places);
  bool Drag(const QEvent& event);
  bool DragOver(const QPoint& at);
  void EndDrag();
  bool HandleKey(const QObject* watched, const QKeyEvent& key);
  void ShowMenu(const QPoint& at);
  QListWidgetItem* ItemOf(const QString& name) const;

  QLineEdit* filter_;
  QListWidget* list_;
  QToolBar* buttons_;
  QList<QAction*> menu_;
  QString current_;

  // The dragged row, and the row before which it would be dropped; -1 for none.
  int dragged_ = -1;
  int before_ = -1;
  QPoint pressedAt_;
  QFrame* dropLine_;
};

}  // namespace zolt20::composer
