// The rules of a file as a list, with a line that filters it. A person chooses a rule, or moves one
// to another place, by the mouse and by keys; what comes of that is the window's.
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

  /// Shows these rules in their order, and marks the current one; "" marks none.
  void Show(const QStringList& names, const QString& current);
  /// Marks the current rule as one with changes that are not stored, or takes that mark away; no
  /// other rule has it then.
  void MarkChanged(bool isChanged);
  void AddButton(QAction& action);
  /// What a right click on a rule offers. The rule is chosen first.
  void SetMenu(const QList<QAction*>& actions);
  void FocusFilter();

 signals:
  void Chosen(const QString& name);
  /// The rule is to come to this place among the others, from 0.
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

  // The row that is being dragged, and the one before which it would come; -1 for none.
  int dragged_ = -1;
  int before_ = -1;
  QPoint pressedAt_;
  QFrame* dropLine_;
};

}  // namespace zolt20::composer
