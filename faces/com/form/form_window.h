// The form as windows: one of the platform's own controls for each control of the surface, under
// its name.
//
// Notices of the control are noted as dirty bits and shown when the call in progress is over, or
// before the host hears of an event in it. What a person does becomes a gesture. No gesture is
// taken while another call is in progress (re-entrancy), so a host may show dialogs from within an
// event. The window may be retired at any time, from within its own messages too: then it ignores
// everything, and is destroyed when its messages in progress are done.
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
  /// The owner of the window.
  class Owner {
   public:
    /// Before and after a gesture. Between the two the owner keeps itself and the control alive.
    virtual void GestureBegins() = 0;
    virtual void GestureEnds() noexcept = 0;
    /// A gesture failed; what was done before the failure stays done.
    virtual void GestureFailed(const wchar_t* description) = 0;
    /// The focus entered the window from elsewhere, or left it.
    virtual void FocusCame() = 0;
    virtual void FocusWent() = 0;
    /// The Tab key went beyond the last control, or with Shift the first. Returns whether the owner
    /// moved the focus elsewhere.
    virtual bool LeavesAtTheEnd(const MSG& message) = 0;

   protected:
    ~Owner() = default;
  };

  struct GiveUp {
    void operator()(FormWindow* window) const { window->Retire(); }
  };
  using Handle = std::unique_ptr<FormWindow, GiveUp>;

  /// Makes a child window of `parent`, not yet visible, at `place` in pixels of the parent's client
  /// area. The control, its person and the owner must outlive the handle. Throws std::bad_alloc,
  /// and std::runtime_error when the platform refuses.
  static Handle Make(HWND parent, const RECT& place, ZOLT20MapControl& control,
                     faces::Person& person, Owner& owner, const FormLook& look = {});

  /// Null once the window was destroyed along with its parent.
  HWND Window() const { return root_; }
  /// Moves the window, in pixels of the parent; nothing is drawn outside `clip`.
  void Place(const RECT& place, const RECT& clip);
  RECT PlaceNow() const;
  void Show(bool visible);
  void Enable(bool enabled);
  /// Changes the colours; mirroring stays as the window was made.
  void UseLook(const FormLook& look);
  /// Gives the keyboard focus to the control with the focus, or the first one that can have it.
  void TakeFocus();

  /// Shows all that is dirty. Called before the host hears of an event, and when its call is over.
  /// What fails because resources ran out stays dirty and is shown the next time.
  void ShowChanges() noexcept;

  /// Sets display names of tables, keyed by code.
  void NameTables(std::map<String, String> names);

  /// Handles a key, such as Tab along the tab order of the surface. Returns whether it was handled.
  bool TranslateKey(const MSG& message);
  /// Clicks the shown and enabled control with that mnemonic. Returns whether there was one.
  bool ClickMnemonic(wchar_t letter);

 private:
  static constexpr UINT kGoAway = WM_APP + 1;

  /// A guard for a message in progress: the window is not destroyed before the last one is done.
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

  // Notices. Changes that only need to be shown again are noted by person_.
  void ControlChanged(const Control& /*control*/, Property /*property*/) noexcept override {}
  void RowsAboutToChange(const Control& /*list*/, const RowChange& /*change*/) noexcept override {}
  void RowsChanged(const Control& /*list*/, const RowChange& /*change*/) noexcept override {}
  void MarksChanged(const Control& /*list*/, int /*first*/, int /*count*/) noexcept override {}
  void FocusChanged(const Control* /*control*/) noexcept override {}
  void TabOrderChanged(int /*first*/, int /*last*/) noexcept override {}
  void ElementLoaded(const Control& /*element*/) noexcept override {}
  void ElementUnloading(const Control& element) noexcept override;
  void StateReplaced() noexcept override {}

  // ViewOwner, for the views.
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
  void ColorsChanged();

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

  // Window messages.
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
  HBRUSH OnColor(HDC canvas, HWND window) const;
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
  /// Whether a window is the label that tells of marks hidden by a filter.
  bool IsOfMarks(HWND window) const;
  /// The list that a filter line filters; null when the window is no filter line.
  const Control* ListOf(HWND line) const;

  ZOLT20MapControl& control_;
  faces::Person& person_;
  Owner& owner_;
  ServerLock lock_;
  std::shared_ptr<FormWindow> self_;  // keeps it alive until it is retired and its HWND destroyed
  SpokenNames spoken_;
  HWND root_ = nullptr;
  std::vector<HWND> pages_;
  HWND undo_ = nullptr;
  HWND redo_ = nullptr;
  std::unordered_map<const Control*, std::unique_ptr<ControlView>> views_;
  std::unordered_map<HWND, ControlView*> viewOfWindow_;
  std::unordered_map<const Control*, FilterLine> filters_;
  bool isRetired_ = false;
  bool goesLater_ = false;  // to be destroyed when messages in progress are done
  int busy_ = 0;            // depth of nested messages in progress
  FormFonts fonts_;
  FormLook look_;
  FormScroll scroll_;
  bool isFitting_ = false;  // scroll bars are being shown or hidden
};

}  // namespace zolt20::com
