// The form as windows: one of the platform's own controls for each control of the surface, under
// its name.
//
// What the control tells about its form is noted and shown when the call in progress is over, or
// before the host hears of an event in it. What a person does becomes a gesture. No gesture is
// taken while another call is in progress, so a host may show dialogs from within an event. The
// window may be given up at any time, from within its own messages too: it does nothing any more
// then, and goes when they are through.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "faces/com/form/filter_line.h"
#include "faces/com/form/form_fonts.h"
#include "faces/com/form/form_look.h"
#include "faces/com/form/form_scroll.h"
#include "faces/com/form/spoken_names.h"
#include "faces/com/form/view.h"
#include "faces/com/server/server.h"
#include "faces/shared/person.h"
#include "shell/control.h"

namespace zolt20::com {

class FormWindow final : public std::enable_shared_from_this<FormWindow>,
                         private SurfaceObserver,
                         private ViewOwner {
 public:
  /// Whom the window belongs to.
  class Owner {
   public:
    /// A gesture is about to be made. Between the two the owner and the control stay.
    virtual void GestureBegins() = 0;
    virtual void GestureEnds() noexcept = 0;
    /// A gesture failed, half done.
    virtual void GestureFailed(const wchar_t* description) = 0;
    /// The focus came into the window from elsewhere, or left it.
    virtual void FocusCame() = 0;
    virtual void FocusWent() = 0;
    /// The Tab key went beyond the last control, or with Shift the first. Whether the focus went
    /// elsewhere.
    virtual bool LeavesAtTheEnd(const MSG& message) = 0;

   protected:
    ~Owner() = default;
  };

  struct GiveUp {
    void operator()(FormWindow* window) const { window->Retire(); }
  };
  using Handle = std::unique_ptr<FormWindow, GiveUp>;

  /// A window within `parent`, in pixels of it, not yet visible. The control, its person and the
  /// owner outlive the handle. Throws std::bad_alloc, and std::runtime_error when the platform
  /// refuses.
  static Handle Make(HWND parent, const RECT& place, ZOLT20MapControl& control,
                     faces::Person& person, Owner& owner, const FormLook& look = {});

  /// None when the parent took it along.
  HWND Window() const { return root_; }
  /// In pixels of the parent; nothing is drawn outside `clip`.
  void Place(const RECT& place, const RECT& clip);
  RECT PlaceNow() const;
  void Show(bool visible);
  void Enable(bool enabled);
  /// Other colours; from which side a form is read stays as it was made.
  void UseLook(const FormLook& look);
  /// The control with the focus gets the keyboard, or the first one that can have it.
  void TakeFocus();

  /// Shows all that changed. The host is about to hear of something, or its call is over. What the
  /// platform has no room for is shown the next time.
  void ShowChanges() noexcept;

  /// What tables are called beside their codes, by code.
  void NameTables(std::map<String, String> names);

  /// Whether a key was the form's: Tab moves the focus along the tab order of the surface.
  bool TranslateKey(const MSG& message);
  /// Clicks what has the letter, as long as it can be clicked.
  bool ClickMnemonic(wchar_t letter);

 private:
  static constexpr UINT kGoAway = WM_APP + 1;

  /// A message in progress: the window stays until the last of them is through.
  class Busy {
   public:
    explicit Busy(FormWindow& window);
    ~Busy();
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

   private:
    std::shared_ptr<FormWindow> window_;
  };

  FormWindow(ZOLT20MapControl& control, faces::Person& person, Owner& owner, const FormLook& look);
  ~FormWindow() override;
  void Retire();

  // Notices. What needs no more than to be shown again, the person notes.
  void PropertyChanged(const Control& /*control*/, Property /*property*/) noexcept override {}
  void RowsAboutToChange(const Control& /*list*/, const RowChange& /*change*/) noexcept override {}
  void RowsChanged(const Control& /*list*/, const RowChange& /*change*/) noexcept override {}
  void MarksChanged(const Control& /*list*/, int /*first*/, int /*count*/) noexcept override {}
  void FocusChanged(const Control* /*control*/) noexcept override {}
  void TabOrderChanged(int /*first*/, int /*last*/) noexcept override {}
  void ElementLoaded(const Control& /*element*/) noexcept override {}
  void ElementUnloading(const Control& element) noexcept override;
  void StateReplaced() noexcept override {}

  // What views ask.
  HWND MakeWindow(const Control& control, const WindowKind& kind) override;
  const Surface& Form() const override { return control_.Form(); }
  int Dpi() const override { return fonts_.Dpi(); }
  bool IsGivenUp() const override { return isRetired_; }
  HFONT FontOf(const Control& control) const override { return fonts_.Of(control); }
  const FormLook& Look() const override { return look_; }
  HWND Root() const override { return root_; }
  void GiveNames(HWND window, const std::string& name, const String& spoken) override;
  void TakeNames(HWND window) override;
  void FocusWent(HWND window, HWND other) override;
  void Make(UserGesture gesture) noexcept override;
  void Key(const TextBox& box, char16_t code, TextMark mark) noexcept override;

  // Making windows.
  void Create(HWND parent, const RECT& place);
  void CreateView(const Control& control);
  void CreateFilter(const Control& list);
  void Hear(HWND window, ControlView& view);
  HWND MakeTool(const wchar_t* caption);
  HWND ParentOf(const Control& control) const;
  void MakeFonts();
  void ResolutionChanged();
  void ColoursChanged();

  void TakeLeave();
  void Forget();
  ControlView* ViewOf(HWND window) const;

  // Showing.
  void ShowNow() noexcept;
  void ShowEverything();
  void ShowView(ControlView& view, const faces::Change& change);
  void LayOut();
  void PutOnForm(const faces::FormPlaces& places);
  void Reveal(HWND window);
  void RevealCaret(HWND window);
  void ShowFocus();
  void FocusOn(const Control& control);
  bool HasFocus() const;

  // What comes from the windows.
  static LRESULT CALLBACK RootMessage(HWND window, UINT message, WPARAM wide, LPARAM longer);
  static LRESULT CALLBACK ViewMessage(HWND window, UINT message, WPARAM wide, LPARAM longer,
                                      UINT_PTR id, DWORD_PTR data);
  LRESULT OnRoot(HWND window, UINT message, WPARAM wide, LPARAM longer);
  void GoAway();
  void OnOwn(UINT message);
  void OnOwnFocus();
  void OnPress();
  void OnCommand(HWND from, int code);
  bool OnView(ControlView& view, UINT message, WPARAM wide, LPARAM longer);
  void OnFocus(HWND window, bool came, HWND other);
  HBRUSH OnColour(HDC canvas, HWND window) const;
  void DrawPanel(HWND window);
  bool OnScrollBar(UINT message, WPARAM wide, LPARAM longer);
  bool OnKey(ControlView& view, WPARAM key);
  void TakeBack(bool undo);

  // Gestures.
  void Try(const std::function<faces::End()>& gesture) noexcept;
  bool MoveFocus(bool forward);
  void ShowCues(WORD cues) const;
  void TakeCues(HWND window) const;

  // The filters.
  static LRESULT CALLBACK FilterMessage(HWND window, UINT message, WPARAM wide, LPARAM longer,
                                        UINT_PTR id, DWORD_PTR data);
  bool OnFilterKey(HWND line, WPARAM key);
  void Filter(const Control& list);
  void FocusFilter();
  /// Whether a window tells of marks that a filter hides.
  bool IsOfMarks(HWND window) const;
  /// The list that a line filters; none when the window is no such line.
  const Control* ListOf(HWND line) const;

  ZOLT20MapControl& control_;
  faces::Person& person_;
  Owner& owner_;
  ServerLock lock_;
  std::shared_ptr<FormWindow> self_;  // until it is given up and the platform's window is gone
  SpokenNames spoken_;
  HWND root_ = nullptr;
  std::vector<HWND> pages_;
  HWND undo_ = nullptr;
  HWND redo_ = nullptr;
  std::unordered_map<const Control*, std::unique_ptr<ControlView>> views_;
  std::unordered_map<HWND, ControlView*> viewOfWindow_;
  std::unordered_map<const Control*, FilterLine> filters_;
  bool isRetired_ = false;
  bool goesLater_ = false;  // it is to go, and messages are in progress
  int busy_ = 0;            // messages in progress, one within the other
  FormFonts fonts_;
  FormLook look_;
  FormScroll scroll_;
  bool isFitting_ = false;  // the bars come and go
};

}  // namespace zolt20::com
