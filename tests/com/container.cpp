#include "tests/com/container.h"

#include <ole2.h>
#include <olectl.h>

namespace zolt20::tests {

Container::Container(int width, int height) {
  constexpr wchar_t kClass[] = L"ZOLT20.Container";
  WNDCLASSW description{};
  description.lpfnWndProc = DefWindowProcW;
  description.hInstance = GetModuleHandleW(nullptr);
  description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  description.lpszClassName = kClass;
  RegisterClassW(&description);
  RECT frame{0, 0, width, height};
  AdjustWindowRect(&frame, WS_OVERLAPPEDWINDOW, FALSE);
  window_ = CreateWindowW(kClass, L"Container", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20,
                          frame.right - frame.left, frame.bottom - frame.top, nullptr, nullptr,
                          description.hInstance, nullptr);
}

Container::~Container() {
  GiveUp();
  DestroyWindow(window_);
}

HRESULT Container::Create(REFCLSID classId, IPropertyBag* bag) {
  HRESULT result = CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                    reinterpret_cast<void**>(&control_));
  if (FAILED(result)) return result;
  IOleObject* object = nullptr;
  result = control_->QueryInterface(IID_IOleObject, reinterpret_cast<void**>(&object));
  if (FAILED(result)) return result;
  result = object->SetClientSite(this);
  object->Release();
  if (FAILED(result)) return result;
  IPersistPropertyBag* persist = nullptr;
  result = control_->QueryInterface(IID_IPersistPropertyBag, reinterpret_cast<void**>(&persist));
  if (FAILED(result)) return result;
  result = bag == nullptr ? persist->InitNew() : persist->Load(bag, nullptr);
  persist->Release();
  return result;
}

void Container::Take(IUnknown* control) {
  GiveUp();
  control_ = control;
}

HRESULT Container::Activate(LONG verb) {
  IOleObject* object = nullptr;
  const HRESULT found = control_->QueryInterface(IID_IOleObject, reinterpret_cast<void**>(&object));
  if (FAILED(found)) return found;
  RECT place{};
  GetClientRect(window_, &place);
  const HRESULT result = object->DoVerb(verb, nullptr, this, 0, window_, &place);
  object->Release();
  return result;
}

ULONG Container::GiveUp() {
  if (control_ == nullptr) return 0;
  IOleObject* object = nullptr;
  if (SUCCEEDED(control_->QueryInterface(IID_IOleObject, reinterpret_cast<void**>(&object)))) {
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
    object->Release();
  }
  IUnknown* const control = control_;
  control_ = nullptr;
  return control->Release();
}

STDMETHODIMP Container::QueryInterface(REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  if (id == IID_IUnknown || id == IID_IOleClientSite) {
    *object = static_cast<IOleClientSite*>(this);
  } else if (id == IID_IOleInPlaceSite || id == IID_IOleWindow) {
    *object = static_cast<IOleInPlaceSite*>(this);
  } else if (id == IID_IOleInPlaceFrame || id == IID_IOleInPlaceUIWindow) {
    *object = static_cast<IOleInPlaceFrame*>(this);
  } else if (id == IID_IOleControlSite) {
    *object = static_cast<IOleControlSite*>(this);
  } else if (id == IID_IDispatch) {
    *object = static_cast<IDispatch*>(this);
  } else {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

STDMETHODIMP Container::GetMoniker(DWORD /*assign*/, DWORD /*which*/, IMoniker** moniker) {
  *moniker = nullptr;
  return E_NOTIMPL;
}
STDMETHODIMP Container::GetContainer(IOleContainer** container) {
  *container = nullptr;
  return E_NOINTERFACE;
}

STDMETHODIMP Container::GetWindow(HWND* window) {
  *window = window_;
  return S_OK;
}

STDMETHODIMP Container::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                         RECT* place, RECT* clip, OLEINPLACEFRAMEINFO* info) {
  *frame = this;
  AddRef();
  *document = nullptr;
  GetClientRect(window_, place);
  *clip = *place;
  info->fMDIApp = FALSE;
  info->hwndFrame = window_;
  info->haccel = nullptr;
  info->cAccelEntries = 0;
  return S_OK;
}

STDMETHODIMP Container::SetActiveObject(IOleInPlaceActiveObject* active, LPCOLESTR /*name*/) {
  if (active != nullptr) active->AddRef();
  if (active_ != nullptr) active_->Release();
  active_ = active;
  return S_OK;
}

STDMETHODIMP Container::GetExtendedControl(IDispatch** control) {
  *control = nullptr;
  return E_NOTIMPL;
}

STDMETHODIMP Container::TranslateAccelerator(MSG* message, DWORD /*modifiers*/) {
  if (message->message == WM_KEYDOWN && message->wParam == VK_TAB) told.push_back("tab");
  return S_FALSE;
}

STDMETHODIMP Container::OnFocus(BOOL has) {
  Told(has ? "focus" : "no focus");
  if (has && onFocus) onFocus();
  return S_OK;
}

STDMETHODIMP Container::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

STDMETHODIMP Container::Invoke(DISPID property, REFIID /*id*/, LCID /*locale*/, WORD /*flags*/,
                               DISPPARAMS* /*arguments*/, VARIANT* value, EXCEPINFO* /*exception*/,
                               UINT* /*wrong*/) {
  const auto give = [value](bool is) {
    V_VT(value) = VT_BOOL;
    V_BOOL(value) = is ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
  };
  if (property == DISPID_AMBIENT_USERMODE) return give(userMode);
  if (property == DISPID_AMBIENT_UIDEAD) return give(uiDead);
  if (property == DISPID_AMBIENT_RIGHTTOLEFT) return give(rightToLeft);
  if (colors && (property == DISPID_AMBIENT_BACKCOLOR || property == DISPID_AMBIENT_FORECOLOR)) {
    V_VT(value) = VT_I4;
    V_I4(value) =
        static_cast<LONG>(property == DISPID_AMBIENT_BACKCOLOR ? colors->first : colors->second);
    return S_OK;
  }
  return DISP_E_MEMBERNOTFOUND;
}

}  // namespace zolt20::tests
