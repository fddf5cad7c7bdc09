// Views: a view has the window of one control, shows the control's changes in it, and interprets
// its messages. There is a class of views for each kind of control.
//
// Input of a person becomes gestures, which the owner makes. A gesture may retire the form and
// destroy the view, so making one is the last thing that a view does about a message.
#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <string>
#include <utility>

#include "faces/com/form/form_look.h"
#include "faces/shared/person.h"

namespace zolt20::com {

/// The window class and styles of a view's window.
struct WindowKind {
  const wchar_t* name;
  DWORD style = 0;
  DWORD extended = 0;
};

/// The form, as its views see it.
class ViewOwner {
 public:
  /// Makes the window of a control. Throws std::runtime_error when the platform refuses.
  virtual HWND MakeWindow(const Control& control, const WindowKind& kind) = 0;
  virtual const Surface& Form() const = 0;
  virtual int Dpi() const = 0;
  virtual HFONT FontOf(const Control& control) const = 0;
  virtual const FormLook& Look() const = 0;

  /// The root window of the form.
  virtual HWND Root() const = 0;
  /// Sets the name (for programs) and the accessible name (for screen readers) of a window that is
  /// no control's, and removes both.
  virtual void GiveNames(HWND window, const std::string& name, const String& spoken) = 0;
  virtual void TakeNames(HWND window) = 0;
  /// The focus moved from such a window to another one, also of another program.
  virtual void FocusWent(HWND window, HWND other) = 0;

  virtual void Make(UserGesture gesture) noexcept = 0;
  virtual void Key(const TextBox& box, char16_t code, TextMark mark) noexcept = 0;

  /// A guard: during its lifetime notices of the windows come from us, not from a person.
  class Showing {
   public:
    explicit Showing(ViewOwner& owner)
        : flag_(owner.isShowing_), before_(std::exchange(flag_, true)) {}
    ~Showing() { flag_ = before_; }
    Showing(const Showing&) = delete;
    Showing& operator=(const Showing&) = delete;

   private:
    bool& flag_;
    bool before_;
  };
  /// Whether the form is retired: no gesture may be made, and the control may be destroyed.
  virtual bool IsGivenUp() const = 0;
  bool IsShowing() const { return isShowing_; }
  /// Whether a window is getting the focus.
  bool IsFocusing() const { return isFocusing_; }

 protected:
  ~ViewOwner() = default;

  bool isShowing_ = false;
  bool isFocusing_ = false;
};

class ControlView {
 public:
  virtual ~ControlView() = default;
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;

  const Control& control() const { return control_; }
  HWND window() const { return window_; }
  /// The window that has the focus when the control has it.
  virtual HWND FocusWindow() const { return window_; }

  /// Shows only what changed. The form itself shows whether the control is enabled and visible.
  virtual void Show(const faces::Change& /*change*/) {}
  /// Moves the window to a place, in pixels of its parent.
  virtual void Place(const RECT& place) { PutAt(place, nullptr); }
  /// Called when the platform's colours or fonts changed.
  virtual void LooksChanged() {}
  /// Draws the contents of a window that the platform does not draw.
  virtual void Draw(HDC /*canvas*/) {}
  /// Sets the colours of the window's canvas and returns a brush; null keeps the platform's own.
  virtual HBRUSH Brush(HDC /*canvas*/) { return nullptr; }

  // Notices that the window sends to its parent.
  virtual void OnCommand(int /*code*/) {}
  virtual LRESULT OnNotify(NMHDR& /*notice*/) { return 0; }
  virtual void OnScroll(int /*code*/, int /*place*/) {}

  // Messages to the window. Each returns whether the message was handled; if not, it goes on to
  // the platform's own window procedure.
  virtual bool OnMessage(UINT /*message*/, WPARAM /*wide*/, LPARAM /*longer*/) { return false; }
  virtual bool OnKey(WPARAM /*key*/) { return false; }
  virtual bool OnCharacter(wchar_t character) { return character == L'\t' || character == L'\r'; }
  /// Called after the platform has handled a message.
  virtual void MessageDone(UINT /*message*/) {}

  /// Of a list: from now on draws only rows that hold the text.
  virtual void Filter(StringView /*text*/) {}
  /// Of a list: sets display names of rows, keyed by text.
  virtual void NameRows(std::map<String, String> /*names*/) {}
  /// Of a list: the text that tells of marks hidden by its filter.
  virtual String HiddenMarks() const { return {}; }

  /// Whether the box itself has something to undo, or to redo.
  virtual bool HasOwn(bool /*undo*/) const { return false; }

 protected:
  ControlView(ViewOwner& owner, const Control& control, const WindowKind& kind)
      : owner_(owner), control_(control), window_(owner.MakeWindow(control, kind)) {}

  /// `behind` is a window or value for SetWindowPos (z order); null keeps the z order.
  void PutAt(const RECT& place, HWND behind);
  LRESULT Send(UINT message, WPARAM wide = 0, LPARAM longer = 0) const {
    return SendMessageW(window_, message, wide, longer);
  }
  /// The same with a pointer to the message's data.
  template <typename Data>
  LRESULT Send(UINT message, WPARAM wide, Data* data) const {
    return Send(message, wide, reinterpret_cast<LPARAM>(data));
  }
  void Make(Gesture gesture, int number = UserGesture::kNone) const noexcept {
    owner_.Make({gesture, &control_, number});
  }
  void Type(String text) const noexcept {
    owner_.Make({Gesture::kType, &control_, UserGesture::kNone, std::move(text)});
  }

  /// Shows the caption. Returns whether it differs from the one before.
  bool ShowCaption(String caption);

  ViewOwner& owner_;
  String shown_;  // the caption or the text that the window shows

 private:
  const Control& control_;
  HWND window_;
};

/// A view that knows the kind of its control.
template <typename ControlKind>
class ViewOf : public ControlView {
 protected:
  ViewOf(ViewOwner& owner, const ControlKind& control, const WindowKind& kind)
      : ControlView(owner, control, kind) {}
  const ControlKind& control() const {
    return static_cast<const ControlKind&>(ControlView::control());
  }
};

/// The view of a control, by its kind.
std::unique_ptr<ControlView> MakeView(ViewOwner& owner, const Control& control);

}  // namespace zolt20::com
