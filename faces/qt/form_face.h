// The form as Qt widgets: one widget for each control of the surface, under the control's name.
//
// Notices of the control are noted as dirty bits and shown when the call in progress is over, or
// before the host hears of an event in it; only rows are inserted and removed at once, as item
// models require. What a person does becomes a gesture. No gesture is taken while another call is
// in progress (re-entrancy), so a host may show dialogs from within an event.
#pragma once

#include <QHash>
#include <QPointer>
#include <QVariant>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <unordered_map>
#include <utility>

#include "faces/shared/person.h"
#include "shell/control.h"

class QLineEdit;
class QTabBar;

namespace zolt20::qt {

class Announcer;
class FaceStyle;
class FormLayout;
class LineBox;
class RowsModel;
class RowsView;

class FormFace final : public QObject, private SurfaceObserver {
  Q_OBJECT

 public:
  /// Builds the widgets within `owner`, which must be empty. The control must outlive the face.
  FormFace(QWidget& owner, ZOLT20MapControl& control);
  ~FormFace() override;

  const Surface& Form() const { return control_.Form(); }
  /// The widget of a control, nullptr for an element that was unloaded.
  QWidget* WidgetOf(const Control& control) const;

  /// Runs a call of the host and shows what it changed; exceptions propagate. A call that writes,
  /// made outside of a gesture, clears the history.
  template <typename Act>
  auto Call(const Act& act, bool writes = true);

  /// Sets display names of tables, keyed by code.
  void NameTables(const QHash<QString, QString>& names);

  /// Shows all that is dirty. Called before the host hears of an event.
  void ShowChanges();

  /// Makes a gesture of the person, or of a recorded session that is replayed. Not taken while
  /// another call is in progress.
  void Make(UserGesture gesture);
  /// Sets a callback that is asked before a button of the form is pressed; false cancels that.
  void AskBeforePresses(std::function<bool(const Control&)> mayPress) {
    mayPress_ = std::move(mayPress);
  }
  /// The person, for reading only; gestures go through the face.
  const faces::Person& person() const { return person_; }
  void SwitchHistory(bool on);
  /// A value of the host's that is saved with each state: Undo and Redo restore it as well.
  QVariant hostData() const;
  void SetHostData(const QVariant& value);
  /// The same as a step of the history. False within another call.
  bool StepHostData(const QVariant& value);
  void Undo();
  void Redo();

  /// Gives Qt's focus to the widget of the control that has the focus, or to the owner.
  void ShowFocus(bool moved = true);

  /// Moves the focus along the tab order of the surface. False at its end.
  bool MoveFocus(bool forward);
  /// Gives the focus to the first or the last control of the tab order.
  bool EnterByTab(bool forward);
  /// Gives the focus to the filter of the list that has it, or else of the page's first list.
  void FocusFilter();
  /// Takes the text box that filters a list, to focus and enable it with the list.
  void AddFilter(const RowsView& list, QWidget& filter);

 signals:
  /// A gesture is over and its changes are shown. Emitted before Failed.
  void Acted(const zolt20::faces::MadeGesture& made);
  void Failed(const zolt20::faces::Failure& failure);
  void HistoryChanged();
  void Undone();
  void Redone();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  friend class FormLayout;

  // Notices.
  // Changes that only need to be shown again are noted by person_.
  void ControlChanged(const Control& /*control*/, Property /*property*/) noexcept override {}
  void RowsAboutToChange(const Control& list, const RowChange& change) noexcept override;
  void RowsChanged(const Control& list, const RowChange& change) noexcept override;
  void MarksChanged(const Control& list, int first, int count) noexcept override;
  void FocusChanged(const Control* /*control*/) noexcept override {}
  void TabOrderChanged(int /*first*/, int /*last*/) noexcept override {}
  void ElementLoaded(const Control& /*element*/) noexcept override {}
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
  void ShowControls(const std::map<const Control*, faces::Change>& changed);
  void ShowKind(const Control& control, QWidget& widget, const faces::Change& change);
  void ShowPlace(const Control& control, QWidget& widget);
  void PlaceCaseRows();
  void FitToLetters();
  int Pixels(int twips) const;
  bool HasFocus() const;

  // Gestures.
  void TypedIn(const Control& box, const QLineEdit& line, TextMark marked);
  void End(faces::End end);
  bool HandleKey(const Control& control, QWidget& widget, const QKeyEvent& event);
  bool MoveOption(const Control& option, bool forward);

  /// Has screen readers read out what the gesture changed elsewhere on the form.
  void Announce();
  void TellPage();
  void TellOwnUndo(const QWidget& widget, const QKeyEvent& event);

  QWidget& owner_;
  ZOLT20MapControl& control_;
  std::unique_ptr<FaceStyle> style_;
  Announcer* announcer_ = nullptr;
  std::unordered_map<const Control*, QWidget*> widgets_;
  QHash<QObject*, const Control*> controls_;
  QHash<const Control*, RowsModel*> models_;
  QHash<const Control*, QWidget*> filters_;
  int rowGrowth_ = 0;   // how much taller a case row is than in the form, in pixels
  int nextGrowth_ = 0;  // and how much the button below them
  faces::Person person_;
  std::function<bool(const Control&)> mayPress_;
  bool isShowing_ = false;  // signals of widgets come from the face, not from a person
};

template <typename Act>
auto FormFace::Call(const Act& act, bool writes) {
  struct ShowsBehind {
    FormFace& face;
    ~ShowsBehind() { face.ShowChanges(); }
  };
  const ShowsBehind showsBehind{*this};
  return person_.Call(act, writes);
}

}  // namespace zolt20::qt
