// The form surface: all controls by their names, the focus, the tab order, the gestures, the state
// as a value.
//
// A form that gives the controls their behaviour derives from Surface and overrides the event
// functions; its handlers use the controls by their names. Faces and hosts read a `const Surface&`,
// hear of changes as observers, and pass on what a person does through the User functions, which
// are the only way in for a person.
//
// Invariants: the tab order has no gaps; the control with the focus is shown and enabled; a
// single-selection list has at most one mark, a frame at most one option that is True. Not
// thread-safe: one thread uses a surface.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "surface/control.h"
#include "surface/control_array.h"
#include "surface/gesture.h"
#include "surface/list_box.h"
#include "surface/observer.h"
#include "surface/simple_controls.h"
#include "surface/text_box.h"

namespace zolt20 {

/// Whether the form itself is visible. In one that is not, no control is shown.
enum class FormVisible { kNo, kYes };

/// The whole state of a surface as a value: every control, the loaded elements, the focus, the tab
/// order.
class SurfaceState {
 private:
  friend class Surface;

  struct Loaded {
    ControlName name;
    int index;
  };

  std::vector<Loaded> loaded_;          // in the order of the surface's controls
  std::vector<ControlState> controls_;  // in the same order, those of the form's list first
  std::vector<std::size_t> tabOrder_;   // indexes into controls_
  std::size_t focus_ = 0;               // an index into controls_, or its size for none
};

class Surface {
 public:
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;

  // The controls, by name. One row of surface/form.def each.
#define ZOLT20_ARRAY(kind, name) ControlArray<kind> name{*this, ControlName::name};
#define ZOLT20_CONTROL(kind, name, page, frame, caption, style) \
  kind name{*this, kForm[kRowOf<ControlName::name>]};
#define ZOLT20_ELEMENT(kind, array, index, page, frame, caption, style)
#include "surface/form.def"

  /// All controls: those of the form's list in its order, then the elements that were loaded into
  /// control arrays, in the order of loading.
  std::vector<const Control*> Controls() const {
    return {controls_.begin(), controls_.end()};
  }
  /// The control of that name, such as "TxtExpr(1)"; nullptr when there is none.
  const Control* Find(std::string_view name) const;
  /// The control with the focus, nullptr when none has.
  const Control* Focused() const {
    return focus_;
  }
  /// The controls in tab order.
  std::vector<const Control*> TabOrder() const {
    return {tabOrder_.begin(), tabOrder_.end()};
  }
  bool IsVisible() const {
    return visible_ == FormVisible::kYes;
  }

  /// Notifies the observer of every change from now on. The observer must outlive the surface or be
  /// removed before.
  void AddObserver(SurfaceObserver& observer);
  void RemoveObserver(SurfaceObserver& observer);

  // Gestures of a person. Each User function first moves the focus to the control, which runs
  // GotFocus if the focus was elsewhere, and ends there if GotFocus left the control hidden or
  // disabled. Then it acts. The handlers it fires run inside the call, and their errors are raised
  // from it. The control must belong to this surface.

  /// Whether this kind of control has the gesture. A gesture on a row also needs an existing row.
  static bool Offers(const Control& control, Gesture gesture);

  /// Any gesture: calls the function below for its kind. A missing row, code or page is passed on
  /// as kNone. Raises `overflow` for a code or a page outside 16 bits.
  Outcome User(const UserGesture& gesture);

  Outcome UserFocus(const Control& control);
  /// A button, or an option button.
  Outcome UserClick(const Control& control);
  /// A row of a list box.
  Outcome UserClick(const Control& list, int row);
  /// A row of a list box. With single selection it first does what a click does.
  Outcome UserDoubleClick(const Control& list, int row);
  /// An entry of a combo box.
  Outcome UserPick(const Control& combo, int row);
  /// Replaces the whole text of a text box, a syntax text box or an editable combo.
  Outcome UserType(const Control& box, StringView text);
  /// A key in a text box, by its character code. KeyPress runs first, before the text changes, and
  /// may replace the code. Then a code of 32 or above replaces the marked characters, and 8
  /// (backspace) deletes them. With none marked, the character is inserted at the caret, or 8
  /// deletes the one before it. Any other code leaves the text. SelStart ends behind an inserted
  /// character, else at the deletion or the start of the mark; Change runs if the text differs.
  /// Without `mark` the caret is at SelStart.
  Outcome UserKey(const Control& box, Integer code, std::optional<TextMark> mark = {});
  /// A page of the tab strip. Raises `value` outside 0 to 6, when the strip has the focus already.
  Outcome UserTab(Integer page);
  /// A value of the scroll bar.
  Outcome UserScroll(const Control& bar, int value);

  /// The whole state as it is now.
  SurfaceState Save() const;
  /// Restores a state of a surface of the same form. Fires no event; the observers get
  /// StateReplaced. Must not be called within a gesture or an event.
  void Restore(SurfaceState state);

 protected:
  explicit Surface(FormVisible visible);
  virtual ~Surface();

  // The events, fired at once, inside the write or gesture that causes them.
  virtual void OnClick(Control& /*source*/) {}
  virtual void OnDoubleClick(Control& /*list*/) {}
  virtual void OnChange(Control& /*source*/) {}
  virtual void OnItemCheck(ListBox& /*list*/, int /*row*/) {}
  virtual void OnGotFocus(Control& /*source*/) {}
  virtual void OnTabChain(SyntaxTextBox& /*box*/) {}
  /// The handler may replace the code.
  virtual void OnKeyPress(TextBox& /*box*/, Integer& /*code*/) {}
  virtual void OnTabClick(Integer /*previousTab*/) {}

 private:
  friend class Control;
  friend class CaptionedControl;
  friend class ComboBox;
  friend class ListBox;
  friend class OptionButton;
  friend class RowsControl;
  friend class ScrollBar;
  friend class SyntaxTextBox;
  friend class TabStrip;
  friend class TextBox;
  template <typename Kind>
  friend class ControlArray;

  // Controls of the form's list and loaded elements.
  void Enter(Control& control);
  void EnterLoaded(Control& element, const Control& like);
  void Leave(Control& control);
  AnyControlArray* ArrayOf(ControlName name);

  // Focus and tab order.
  void MoveFocus(Control& control);
  void DropLostFocus();
  void MoveInTabOrder(Control& control, Integer place);
  int PlaceInTabOrder(const Control& control) const;
  void NumberTabOrder() const;

  // Gestures.
  Control& Own(const Control& control) const;
  static Outcome Refusal(const Control& control);
  bool TakesGesture(Control& control);
  void PressKey(TextBox& box, Integer code, const std::optional<TextMark>& mark);

  // Notices.
  template <typename Tell>
  void Notify(const Tell& tell) const {
    for (SurfaceObserver* observer : observers_)
      tell(*observer);
  }
  void RowsAboutToChange(const Control& list, const RowChange& change) const;
  void RowsChanged(const Control& list, const RowChange& change) const;
  void MarksChanged(const Control& list, int first, int count) const;

  FormVisible visible_;
  std::vector<Control*> controls_;
  std::vector<Control*> tabOrder_;
  Control* focus_ = nullptr;
  std::vector<SurfaceObserver*> observers_;
};

}  // namespace zolt20
