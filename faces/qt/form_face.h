// The form as Qt widgets: one widget for each control of the surface, under the control's name.
//
// What the control tells about its form is noted and shown when the call in progress is over, or
// before the host hears of an event in it; only rows come and go at once, as item models have to.
// What a person does becomes a gesture. No gesture is taken while another call is in progress, so a
// host may show dialogs from within an event.
#pragma once

#include <QHash>
#include <QPointer>
#include <QVariant>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <unordered_map>
#include <vector>

#include "faces/shared/history.h"
#include "shell/control.h"

class QTabBar;

namespace zolt20::qt {

class FaceStyle;
class FormLayout;
class LineBox;
class RowsModel;
class RowsView;

/// A failure of a gesture, for the host: a RuntimeError, or what the host's own code threw.
struct Failure {
  QString kind;
  int number = 0;
  QString text;
};

using faces::Act;
using faces::Run;
/// The host's value is whatever it likes.
using History = faces::History<QVariant>;

class FormFace final : public QObject, private SurfaceObserver {
  Q_OBJECT

 public:
  /// Builds the widgets within `owner`, which has nothing in it yet. The control outlives the face.
  FormFace(QWidget& owner, ZOLT20MapControl& control);
  ~FormFace() override;

  const Surface& Form() const { return control_.Form(); }
  /// The widget of a control, nullptr for an element that is gone.
  QWidget* WidgetOf(const Control& control) const;

  /// A call of the host's. Shows what it changed; what it raises passes on. Called outside of a
  /// gesture, one that writes forgets the history.
  template <typename Act>
  auto Call(const Act& act, bool writes = true);

  /// What tables are called beside their codes, by code.
  void NameTables(const QHash<QString, QString>& names);

  /// Shows all that changed. The host is about to hear of something.
  void ShowChanges();

  History& history() { return history_; }
  /// A value of the host's that goes with the state: Undo and Redo put it back as well.
  QVariant& hostData() { return hostData_; }
  void Undo();
  void Redo();

  /// Gives Qt's focus to the widget of the control that has the focus, or to the owner.
  void ShowFocus();

  /// Moves the focus along the tab order of the surface. False at its end.
  bool MoveFocus(bool forward);
  /// The first or the last control of the tab order gets the focus.
  bool EnterByTab(bool forward);
  /// The filter of the list with the focus, or else of the first list of the page, gets the focus.
  void FocusFilter();
  /// A filter above a list. Called while the widgets are being laid out.
  void AddFilter(const RowsView& list, QWidget& filter);

 signals:
  /// A gesture is over, with all that it changed; comes before what follows from it.
  void Acted(const zolt20::faces::Act& act);
  void Failed(const zolt20::qt::Failure& failure);
  void HistoryChanged();
  void Undone();
  void Redone();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  friend class FormLayout;

  // Notices.
  void PropertyChanged(const Control& control, Property property) noexcept override;
  void RowsAboutToChange(const Control& list, const RowChange& change) noexcept override;
  void RowsChanged(const Control& list, const RowChange& change) noexcept override;
  void MarksChanged(const Control& list, int first, int count) noexcept override;
  void FocusChanged(const Control* control) noexcept override;
  void TabOrderChanged(int first, int last) noexcept override;
  void ElementLoaded(const Control& element) noexcept override;
  void ElementUnloading(const Control& element) noexcept override;
  void StateReplaced() noexcept override;

  // Making widgets.
  QWidget* MakeWidget(const Control& control);
  QWidget* MakeCombo(const ComboBox& combo);
  QWidget* MakeList(const ListBox& list);
  QWidget* MakeTextBox(const TextBox& box);
  QWidget* MakeLinesBox(const Control& box);
  QWidget* MakeButton(const Control& button);
  QWidget* MakeOption(const OptionButton& option);
  QWidget* MakeScrollBar(const ScrollBar& bar);
  QWidget* MakeTabStrip(const TabStrip& strip);
  RowsModel* ModelOf(const Control& control) const;

  // Showing.
  void Show(const Control& control);
  void ShowKind(const Control& control, QWidget& widget);
  void ShowPlace(const Control& control, QWidget& widget);
  void PlaceCaseRows();
  void FitToLetters();
  int Pixels(int twips) const;
  bool HasFocus() const;

  // Gestures.
  static constexpr int kNone = Act::kNone;
  void Gesture(const Control& source, Run run, const std::function<void()>& act);
  void Do(Act act);
  void PutBack(History::Step step);
  void TypeKey(const TextBox& box, LineBox& line, int position, int count, int code);
  bool HandleKey(const Control& control, QWidget& widget, const QKeyEvent& event);
  bool MoveOption(const Control& option, bool forward);

  QWidget& owner_;
  ZOLT20MapControl& control_;
  std::unique_ptr<FaceStyle> style_;
  std::unordered_map<const Control*, QWidget*> widgets_;
  QHash<QObject*, const Control*> controls_;
  QHash<const Control*, RowsModel*> models_;
  QHash<const Control*, QWidget*> filters_;
  int rowGrowth_ = 0;                 // by which a case row is taller than in the form, in pixels
  int nextGrowth_ = 0;                // and the button below them
  std::set<const Control*> changed_;  // to be shown
  std::set<const Control*> caretChanged_;
  bool focusMoved_ = false;
  bool anythingChanged_ = false;  // but the focus and the tab order, since the gesture began
  int calls_ = 0;                 // of gestures and members, one within the other
  bool isShowing_ = false;        // what the widgets tell comes from us, and not from a person
  std::vector<Act> acts_;         // of the gesture in progress
  History history_;
  QVariant hostData_;
};

template <typename Act>
auto FormFace::Call(const Act& act, bool writes) {
  struct InProgress {
    FormFace& face;
    bool forgets;
    explicit InProgress(FormFace& f, bool w) : face(f), forgets(w && f.calls_ == 0) { ++f.calls_; }
    ~InProgress() {
      --face.calls_;
      face.ShowChanges();
      if (!forgets) return;
      face.history_.Forget();
      emit face.HistoryChanged();
    }
  };
  const InProgress inProgress(*this, writes);
  return act();
}

}  // namespace zolt20::qt
