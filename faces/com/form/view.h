// How a kind of control is shown and worked at: a view has the window of one control, knows how to
// show what changed there, and what its messages mean.
//
// What a person does comes out as gestures, which the owner makes. A gesture may give up the form,
// and with it the view: making one is the last thing that a view does about a message.
#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <string>
#include <utility>

#include "faces/com/form/form_look.h"
#include "faces/shared/person.h"

namespace zolt20::com {

/// What the window of a view is made of.
struct WindowKind {
  const wchar_t* name;
  DWORD style = 0;
  DWORD extended = 0;
};

/// What a view may ask of the form that it is part of.
class ViewOwner {
 public:
  /// The window of a control. Throws std::runtime_error when the platform refuses.
  virtual HWND MakeWindow(const Control& control, const WindowKind& kind) = 0;
  virtual const Surface& Form() const = 0;
  virtual int Dpi() const = 0;
  virtual HFONT FontOf(const Control& control) const = 0;
  virtual const FormLook& Look() const = 0;

  /// The window that the whole form lies in.
  virtual HWND Root() const = 0;
  /// Gives a window that is no control's its names, for programs and for who is read to, and takes
  /// them away again.
  virtual void GiveNames(HWND window, const std::string& name, const String& spoken) = 0;
  virtual void TakeNames(HWND window) = 0;
  /// The focus went from such a window to another one, which may be anybody's.
  virtual void FocusWent(HWND window, HWND other) = 0;

  virtual void Make(UserGesture gesture) noexcept = 0;
  virtual void Key(const TextBox& box, char16_t code, TextMark mark) noexcept = 0;

  /// As long as one of these is there, what the windows tell comes from us, and not from a person.
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
  /// Whether nothing may be made any more; there may be no control.
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

  /// Shows what changed, and no more. Whether it is enabled and visible the form shows.
  virtual void Show(const faces::Change& /*change*/) {}
  /// Puts the window there, in pixels of its parent.
  virtual void Place(const RECT& place) { PutAt(place, nullptr); }
  /// The colours of the platform are others, or its letters.
  virtual void LooksChanged() {}
  /// Draws what lies in the window; of those that the platform does not draw.
  virtual void Draw(HDC /*canvas*/) {}
  /// Gives the canvas of the window its colours; none when it keeps those of the platform.
  virtual HBRUSH Brush(HDC /*canvas*/) { return nullptr; }

  // What the window tells its parent.
  virtual void OnCommand(int /*code*/) {}
  virtual LRESULT OnNotify(NMHDR& /*notice*/) { return 0; }
  virtual void OnScroll(int /*code*/, int /*place*/) {}

  // What comes to the window. Each gives whether the message ends here; elsewhere it goes on to the
  // platform's own control.
  virtual bool OnMessage(UINT /*message*/, WPARAM /*wide*/, LPARAM /*longer*/) { return false; }
  virtual bool OnKey(WPARAM /*key*/) { return false; }
  virtual bool OnCharacter(wchar_t character) { return character == L'\t' || character == L'\r'; }
  /// The message went on, and the platform is done with it.
  virtual void MessageDone(UINT /*message*/) {}

  /// Of a list: only rows that hold the text are drawn from now on.
  virtual void Filter(StringView /*text*/) {}
  /// Of a list: what rows are called beside their texts, by text.
  virtual void NameRows(std::map<String, String> /*names*/) {}
  /// Of a list: what is to be told of marks that its filter hides.
  virtual String HiddenMarks() const { return {}; }

  /// Whether the box itself has something to take back, or to have again.
  virtual bool HasOwn(bool /*undo*/) const { return false; }

 protected:
  ControlView(ViewOwner& owner, const Control& control, const WindowKind& kind)
      : owner_(owner), control_(control), window_(owner.MakeWindow(control, kind)) {}

  /// `behind` is one of the values that SetWindowPos takes; null to stay in front of the same.
  void PutAt(const RECT& place, HWND behind);
  LRESULT Send(UINT message, WPARAM wide = 0, LPARAM longer = 0) const {
    return SendMessageW(window_, message, wide, longer);
  }
  /// The same with what the message is about.
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

  /// Gives whether it is another one.
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
