// The verbs that a container can have the control do, such as to show itself or to be activated.
#include <ole2.h>
#include <olectl.h>

#include <cstring>
#include <cwchar>
#include <new>
#include <utility>
#include <vector>

#include "faces/com/control/com_call.h"
#include "faces/com/control/enumeration.h"
#include "faces/com/control/map_control.h"

namespace zolt20::com {
namespace {

// A copy that the receiver owns and frees by CoTaskMemFree.
wchar_t* CopyOf(const wchar_t* text) {
  const std::size_t size = (std::wcslen(text) + 1) * sizeof(wchar_t);
  auto* const copy = static_cast<wchar_t*>(CoTaskMemAlloc(size));
  if (copy == nullptr) throw std::bad_alloc();
  std::memcpy(copy, text, size);
  return copy;
}

struct VerbTraits {
  static void Keep(OLEVERB& verb) {
    if (verb.lpszVerbName != nullptr) verb.lpszVerbName = CopyOf(verb.lpszVerbName);
  }
  static void Drop(OLEVERB& verb) { CoTaskMemFree(verb.lpszVerbName); }
};

// Forwards the mouse press that a container passes on with a verb to the new window at that place.
void PassPress(HWND root, const MSG& press) {
  POINT point = press.pt;
  HWND window = root;
  for (;;) {
    POINT inside = point;
    ScreenToClient(window, &inside);
    const HWND child =
        ChildWindowFromPointEx(window, inside, CWP_SKIPINVISIBLE | CWP_SKIPTRANSPARENT);
    if (child == nullptr || child == window) {
      PostMessageW(window, press.message, press.wParam, MAKELPARAM(inside.x, inside.y));
      return;
    }
    window = child;
  }
}

}  // namespace

STDMETHODIMP MapControl::DoVerb(LONG verb, MSG* message, IOleClientSite* site, LONG /*index*/,
                                HWND /*parent*/, const RECT* /*place*/) {
  return EnterForPerson([&]() -> HRESULT {
    if (!site_ && site != nullptr) site_ = Pointer(site);
    const bool wasActive = window_ != nullptr;
    const auto activate = [&](bool withUser) {
      const HRESULT result = Activate(withUser);
      const bool isPress = message != nullptr && message->message == WM_LBUTTONDOWN;
      if (SUCCEEDED(result) && isPress && !wasActive && window_)
        PassPress(window_->Window(), *message);
      return result;
    };
    switch (verb) {
      case OLEIVERB_INPLACEACTIVATE:
        return activate(false);
      case OLEIVERB_PRIMARY:
      case OLEIVERB_SHOW:
      case OLEIVERB_UIACTIVATE:
        return activate(true);
      case OLEIVERB_HIDE:
        UIDeactivate();
        if (window_) window_->Show(false);
        return S_OK;
      case OLEIVERB_DISCARDUNDOSTATE:
        return S_OK;
      default:
        if (verb < 0) return E_NOTIMPL;
        const HRESULT result = activate(true);
        return FAILED(result) ? result : OLEOBJ_S_INVALIDVERB;
    }
  });
}

// Enumerates the verbs from a list in the code, so that they need no registration.
STDMETHODIMP MapControl::EnumVerbs(IEnumOLEVERB** verbs) {
  if (verbs == nullptr) return E_POINTER;
  *verbs = nullptr;
  return Enter([&] {
    auto* const edit = const_cast<wchar_t*>(L"&Edit");  // each receiver gets a copy
    std::vector<OLEVERB> all{{OLEIVERB_PRIMARY, edit, MF_ENABLED, OLEVERBATTRIB_ONCONTAINERMENU}};
    for (const LONG verb :
         {OLEIVERB_SHOW, OLEIVERB_HIDE, OLEIVERB_UIACTIVATE, OLEIVERB_INPLACEACTIVATE})
      all.push_back({verb, nullptr, MF_ENABLED, OLEVERBATTRIB_NEVERDIRTIES});
    *verbs = new Enumeration<IEnumOLEVERB, OLEVERB, VerbTraits>(std::move(all));
    return S_OK;
  });
}

STDMETHODIMP MapControl::GetUserType(DWORD form, LPOLESTR* type) {
  if (type == nullptr) return E_POINTER;
  *type = nullptr;
  return Enter([&] {
    if (form < USERCLASSTYPE_FULL || form > USERCLASSTYPE_APPNAME) return E_INVALIDARG;
    *type = CopyOf(kUserType);
    return S_OK;
  });
}

}  // namespace zolt20::com
