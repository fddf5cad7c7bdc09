#include "faces/com/form/common_controls.h"

#include <commctrl.h>

#include "faces/com/com_text.h"
#include "faces/com/server/server.h"

namespace zolt20::com {
namespace {

// An activation context from the manifest in the server's file; lives as long as the server.
class ActivationContext {
 public:
  ActivationContext() {
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    wanted.lpResourceName = MAKEINTRESOURCEW(2);
    wanted.hModule = ServerInstance();
    context_ = CreateActCtxW(&wanted);
  }
  ~ActivationContext() {
    if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
  }
  ActivationContext(const ActivationContext&) = delete;
  ActivationContext& operator=(const ActivationContext&) = delete;

  ULONG_PTR Activate() const {
    ULONG_PTR cookie = 0;
    if (context_ != INVALID_HANDLE_VALUE) ActivateActCtx(context_, &cookie);
    return cookie;
  }

 private:
  HANDLE context_;
};

}  // namespace

CommonControls::CommonControls() {
  static const ActivationContext context;
  cookie_ = context.Activate();
  INITCOMMONCONTROLSEX classes{sizeof classes,
                               ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_TAB_CLASSES};
  InitCommonControlsEx(&classes);
}

CommonControls::~CommonControls() {
  if (cookie_ != 0) DeactivateActCtx(0, cookie_);
}

void RegisterClasses(WNDPROC procedure) {
  for (const wchar_t* name : {kRootClass, kPanelClass}) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.lpfnWndProc = procedure;
    description.hInstance = ServerInstance();
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.lpszClassName = name;
    RegisterClassExW(&description);
  }
}

void UnregisterClasses() {
  UnregisterClassW(kRootClass, ServerInstance());
  UnregisterClassW(kPanelClass, ServerInstance());
}

int LineHeightOf(HDC canvas, HFONT font) {
  const HGDIOBJ before = SelectObject(canvas, font);
  if (before == nullptr) return 0;
  TEXTMETRICW metrics{};
  const bool isKnown = GetTextMetricsW(canvas, &metrics) != FALSE;
  SelectObject(canvas, before);
  return isKnown ? metrics.tmHeight : 0;
}

int TextWidthOf(HFONT font, StringView text) {
  const HDC screen = GetDC(nullptr);
  const HGDIOBJ before = SelectObject(screen, font);
  SIZE size{};
  GetTextExtentPoint32W(screen, reinterpret_cast<const wchar_t*>(text.data()),
                        static_cast<int>(text.size()), &size);
  SelectObject(screen, before);
  ReleaseDC(nullptr, screen);
  return static_cast<int>(size.cx);
}

void GiveName(HWND window, std::string_view name) {
  const ATOM atom = GlobalAddAtomW(Wide(Widened(name)));
  SetPropW(window, kNameProperty, reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(atom)));
}

void ForgetName(HWND window) {
  if (HANDLE name = RemovePropW(window, kNameProperty)) {
    GlobalDeleteAtom(static_cast<ATOM>(reinterpret_cast<UINT_PTR>(name)));
  }
}

}  // namespace zolt20::com
