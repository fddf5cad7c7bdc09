// The window of the box: the view of a box of statements as on the form, alone in a parent window
// that handles its notices.
//
// The text and whether it is highlighted are stored in a box of a surface, as on the form. A
// person's edits go there as gestures.
#pragma once

#include <windows.h>

#include <memory>

#include "faces/com/form/form_fonts.h"
#include "faces/com/form/form_look.h"
#include "faces/com/form/view.h"
#include "surface/surface.h"

namespace zolt20::com {

/// The surface of one box: a form of which only the Result box is used.
class OneBox final : public Surface {
 public:
  OneBox() : Surface(FormVisible::kYes) {}
};

class BoxWindow final : private ViewOwner {
 public:
  /// The owner of the window. Each of its functions may destroy the window.
  class Owner {
   public:
    virtual void TextTyped() noexcept = 0;
    virtual void FocusCame() noexcept = 0;
    virtual void FocusWent() noexcept = 0;
    /// The Tab key leaves the box. Returns whether the owner moved the focus elsewhere.
    virtual bool Leaves(const MSG& message) noexcept = 0;

   protected:
    ~Owner() = default;
  };

  /// Makes a window within `parent`, in pixels of it, not yet visible. The surface and the owner
  /// must outlive it. Throws std::bad_alloc, and std::runtime_error when the platform refuses.
  static std::shared_ptr<BoxWindow> Make(HWND parent, const RECT& place, OneBox& surface,
                                         Owner& owner);
  virtual ~BoxWindow();
  BoxWindow(const BoxWindow&) = delete;
  BoxWindow& operator=(const BoxWindow&) = delete;

  /// Null once the window was destroyed along with its parent.
  HWND Window() const { return root_; }
  HWND Box() const { return view_ ? view_->window() : nullptr; }
  void Place(const RECT& place, const RECT& clip) const;
  /// Shows text and highlighting as they are in the surface.
  void ShowText();
  /// Sets the margin at which lines wrap, in twips; 0 for the width of the box.
  void RightMargin(long twips) const;
  void Enable(bool enabled) const;
  void TakeFocus() const;
  /// Handles a key. Returns whether it was handled.
  bool TranslateKey(const MSG& message) const;

 private:
  BoxWindow(OneBox& surface, Owner& owner) : surface_(surface), tell_(owner) {}
  void Create(HWND parent, const RECT& place);

  HWND MakeWindow(const Control& control, const WindowKind& kind) override;
  const Surface& Form() const override { return surface_; }
  int Dpi() const override { return fonts_.Dpi(); }
  HFONT FontOf(const Control& /*control*/) const override { return fonts_.Usual(); }
  const FormLook& Look() const override { return look_; }
  HWND Root() const override { return root_; }
  void GiveNames(HWND /*window*/, const std::string& /*name*/, const String& /*spoken*/) override {}
  void TakeNames(HWND /*window*/) override {}
  void FocusWent(HWND /*window*/, HWND /*other*/) override {}
  void Make(UserGesture gesture) noexcept override;
  void Key(const TextBox& /*box*/, char16_t /*code*/, TextMark /*mark*/) noexcept override {}
  bool IsGivenUp() const override { return root_ == nullptr; }

  static LRESULT CALLBACK RootMessage(HWND window, UINT message, WPARAM wide, LPARAM longer);
  static LRESULT CALLBACK BoxMessage(HWND window, UINT message, WPARAM wide, LPARAM longer,
                                     UINT_PTR id, DWORD_PTR data);
  LRESULT OnRoot(HWND window, UINT message, WPARAM wide, LPARAM longer);
  bool OnBox(UINT message, WPARAM wide, LPARAM longer);
  bool OnTab(HWND window);

  OneBox& surface_;
  Owner& tell_;
  std::weak_ptr<BoxWindow> self_;
  HWND root_ = nullptr;
  FormFonts fonts_;
  FormLook look_;
  std::unique_ptr<ControlView> view_;
};

}  // namespace zolt20::com
