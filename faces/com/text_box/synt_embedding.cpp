// The box in its container: its site, its size, being active in place, the keyboard, its picture.
#include <ole2.h>
#include <olectl.h>

#include <utility>

#include "faces/com/com_text.h"
#include "faces/com/com_value.h"
#include "faces/com/control/outside_call.h"
#include "faces/com/text_box/synt_text_box.h"

namespace zolt20::com {
namespace {

bool IsAmbient(IOleClientSite* site, DISPID property, bool otherwise) {
  const auto container = Query<IDispatch>(site);
  if (!container) return otherwise;
  Value value;
  DISPPARAMS none{};
  const HRESULT result = container->Invoke(property, IID_NULL, LOCALE_USER_DEFAULT,
                                           DISPATCH_PROPERTYGET, &none, &value, nullptr, nullptr);
  return SUCCEEDED(result) && value->vt == VT_BOOL ? value->boolVal != VARIANT_FALSE : otherwise;
}

}  // namespace

// The site.

STDMETHODIMP SyntTextBox::SetClientSite(IOleClientSite* site) {
  return Enter([&] {
    if (site == nullptr) Deactivate();
    site_ = Pointer(site);
    ReadAmbients();
    return S_OK;
  });
}

STDMETHODIMP SyntTextBox::GetClientSite(IOleClientSite** site) {
  return Give(site, [&] { return Pointer(site_).Detach(); });
}

STDMETHODIMP SyntTextBox::Close(DWORD save) {
  return Enter([&] {
    if (save != OLECLOSE_NOSAVE && isDirty_ && site_) site_->SaveObject();
    Deactivate();
    if (advised_) advised_->SendOnClose();
    return S_OK;
  });
}

STDMETHODIMP SyntTextBox::GetMoniker(DWORD /*assign*/, DWORD /*which*/, IMoniker** moniker) {
  if (moniker != nullptr) *moniker = nullptr;
  return E_NOTIMPL;
}
STDMETHODIMP SyntTextBox::GetClipboardData(DWORD /*reserved*/, IDataObject** data) {
  if (data != nullptr) *data = nullptr;
  return E_NOTIMPL;
}

STDMETHODIMP SyntTextBox::DoVerb(LONG verb, MSG* /*message*/, IOleClientSite* site, LONG /*index*/,
                                 HWND /*parent*/, const RECT* /*place*/) {
  return Enter([&]() -> HRESULT {
    if (!site_ && site != nullptr) site_ = Pointer(site);
    switch (verb) {
      case OLEIVERB_INPLACEACTIVATE:
        return Activate(false);
      case OLEIVERB_PRIMARY:
      case OLEIVERB_SHOW:
      case OLEIVERB_UIACTIVATE:
        return Activate(true);
      case OLEIVERB_HIDE:
        UIDeactivate();
        if (window_) ShowWindow(window_->Window(), SW_HIDE);
        return S_OK;
      case OLEIVERB_DISCARDUNDOSTATE:
        return S_OK;
      default:
        if (verb < 0) return E_NOTIMPL;
        const HRESULT result = Activate(true);
        return FAILED(result) ? result : OLEOBJ_S_INVALIDVERB;
    }
  });
}

STDMETHODIMP SyntTextBox::EnumVerbs(IEnumOLEVERB** verbs) {
  if (verbs == nullptr) return E_POINTER;
  return OleRegEnumVerbs(CLSID_ZOLT21SyntTextBox, verbs);
}
STDMETHODIMP SyntTextBox::GetUserType(DWORD form, LPOLESTR* type) {
  if (type == nullptr) return E_POINTER;
  return OleRegGetUserType(CLSID_ZOLT21SyntTextBox, form, type);
}

STDMETHODIMP SyntTextBox::SetExtent(DWORD aspect, SIZEL* size) {
  if (size == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  return Enter([&] {
    if (size->cx < 0 || size->cy < 0) return E_INVALIDARG;
    extent_ = *size;
    PictureChanged();
    return S_OK;
  });
}

STDMETHODIMP SyntTextBox::GetExtent(DWORD aspect, SIZEL* size) {
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  return Give(size, [&] { return extent_; });
}

STDMETHODIMP SyntTextBox::Advise(IAdviseSink* sink, DWORD* connection) {
  if (connection == nullptr) return E_POINTER;
  return Enter([&] {
    if (!advised_) {
      if (const HRESULT result = CreateOleAdviseHolder(advised_.Put()); FAILED(result))
        return result;
    }
    return advised_->Advise(sink, connection);
  });
}
STDMETHODIMP SyntTextBox::Unadvise(DWORD connection) {
  return Enter([&] { return advised_ ? advised_->Unadvise(connection) : OLE_E_NOCONNECTION; });
}
STDMETHODIMP SyntTextBox::EnumAdvise(IEnumSTATDATA** connections) {
  if (connections == nullptr) return E_POINTER;
  *connections = nullptr;
  return Enter([&] { return advised_ ? advised_->EnumAdvise(connections) : S_OK; });
}

STDMETHODIMP SyntTextBox::GetMiscStatus(DWORD aspect, DWORD* status) {
  if (status == nullptr) return E_POINTER;
  *status = aspect == DVASPECT_CONTENT ? kMiscStatus : 0;
  return S_OK;
}

// Active in place.

HRESULT SyntTextBox::Activate(bool withUser) {
  if (!site_) return E_UNEXPECTED;
  if (window_ && window_->Window() == nullptr) Deactivate();  // destroyed with its parent
  if (!window_) {
    if (const HRESULT result = MakeWindow(); FAILED(result)) return result;
    if (site_) site_->ShowObject();
  }
  if (window_) ShowWindow(window_->Window(), SW_SHOW);
  if (withUser && !hasUser_ && window_) {
    hasUser_ = true;
    const Pointer<IOleInPlaceSite> site = placeSite_;
    if (const HRESULT result = site->OnUIActivate(); FAILED(result)) {
      hasUser_ = false;
      return result;
    }
    if (window_) window_->TakeFocus();
    if (frame_) frame_->SetActiveObject(this, nullptr);
    if (document_) document_->SetActiveObject(this, nullptr);
    if (frame_) frame_->SetBorderSpace(nullptr);
  }
  return S_OK;
}

// Makes the window in the place that the site names. On failure tells the site of its deactivation.
HRESULT SyntTextBox::MakeWindow() {
  const auto site = site_.As<IOleInPlaceSite>();
  if (!site) return E_NOINTERFACE;
  if (site->CanInPlaceActivate() != S_OK) return OLE_E_NOT_INPLACEACTIVE;
  if (const HRESULT result = site->OnInPlaceActivate(); FAILED(result)) return result;
  HWND parent = nullptr;
  RECT place{};
  RECT clip{};
  OLEINPLACEFRAMEINFO info{};
  info.cb = sizeof info;
  HRESULT result = site->GetWindow(&parent);
  if (SUCCEEDED(result))
    result = site->GetWindowContext(frame_.Put(), document_.Put(), &place, &clip, &info);
  if (SUCCEEDED(result)) {
    result = Guarded([&] {
      window_ = BoxWindow::Make(parent, place, surface_, static_cast<BoxWindow::Owner&>(*this));
      return S_OK;
    });
  }
  if (FAILED(result)) {
    frame_ = {};
    document_ = {};
    site->OnInPlaceDeactivate();
    return result;
  }
  placeSite_ = site;
  ReadAmbients();
  ShowAll();
  window_->Place(place, clip);
  return S_OK;
}

STDMETHODIMP SyntTextBox::UIDeactivate() {
  return Enter([&] {
    if (!hasUser_) return S_OK;
    hasUser_ = false;
    if (frame_) frame_->SetActiveObject(nullptr, nullptr);
    if (document_) document_->SetActiveObject(nullptr, nullptr);
    if (const Pointer<IOleInPlaceSite> site = placeSite_) site->OnUIDeactivate(FALSE);
    return S_OK;
  });
}

void SyntTextBox::Deactivate() {
  UIDeactivate();
  window_.reset();
  frame_ = {};
  document_ = {};
  if (const Pointer<IOleInPlaceSite> site = std::exchange(placeSite_, {}))
    site->OnInPlaceDeactivate();
}

STDMETHODIMP SyntTextBox::InPlaceDeactivate() {
  return Enter([&] {
    Deactivate();
    return S_OK;
  });
}

STDMETHODIMP SyntTextBox::GetWindow(HWND* window) {
  if (window == nullptr) return E_POINTER;
  *window = nullptr;
  return Enter([&] {
    if (window_) *window = window_->Window();
    return *window == nullptr ? E_FAIL : S_OK;
  });
}

STDMETHODIMP SyntTextBox::SetObjectRects(const RECT* place, const RECT* clip) {
  if (place == nullptr) return E_POINTER;
  return Enter([&] {
    if (window_) window_->Place(*place, clip == nullptr ? *place : *clip);
    return S_OK;
  });
}

// The keyboard.

STDMETHODIMP SyntTextBox::TranslateAccelerator(MSG* message) {
  if (message == nullptr) return E_POINTER;
  return Enter([&]() -> HRESULT {
    const std::shared_ptr<BoxWindow> window = window_;
    if (window && window->TranslateKey(*message)) return S_OK;
    // A key that the box does not handle is offered to the container.
    const auto site = ControlSite();
    if (message->message < WM_KEYFIRST || message->message > WM_KEYLAST || !site) return S_FALSE;
    DWORD modifiers = 0;
    if (GetKeyState(VK_SHIFT) < 0) modifiers |= 1;
    if (GetKeyState(VK_CONTROL) < 0) modifiers |= 2;
    if (GetKeyState(VK_MENU) < 0) modifiers |= 4;
    return site->TranslateAccelerator(message, modifiers) == S_OK ? S_OK : S_FALSE;
  });
}

bool SyntTextBox::Leaves(const MSG& message) noexcept {
  const Keep keep(*this);
  const auto site = ControlSite();
  MSG copy = message;
  return site && site->TranslateAccelerator(&copy, GetKeyState(VK_SHIFT) < 0 ? 1 : 0) == S_OK;
}

STDMETHODIMP SyntTextBox::GetControlInfo(CONTROLINFO* info) {
  if (info == nullptr) return E_POINTER;
  info->cb = sizeof *info;
  info->dwFlags = CTRLINFO_EATS_RETURN;  // it makes lines
  info->hAccel = nullptr;
  info->cAccel = 0;
  return S_OK;
}

STDMETHODIMP SyntTextBox::OnAmbientPropertyChange(DISPID /*property*/) {
  return Enter([&] {
    ReadAmbients();
    return S_OK;
  });
}

STDMETHODIMP SyntTextBox::FreezeEvents(BOOL freeze) {
  return Enter([&] {
    if (freeze) {
      ++frozen_;
    } else if (frozen_ > 0) {
      --frozen_;
    }
    return S_OK;
  });
}

// In design mode, and where the container says that its user interface is dead (UIDEAD), the box is
// disabled.
void SyntTextBox::ReadAmbients() {
  isAtWork_ = IsAmbient(site_.Get(), DISPID_AMBIENT_USERMODE, true) &&
              !IsAmbient(site_.Get(), DISPID_AMBIENT_UIDEAD, false);
  if (window_) window_->Enable(isEnabled_ && isAtWork_);
}

// The picture.

STDMETHODIMP SyntTextBox::Draw(DWORD aspect, LONG /*index*/, void* /*aspectInfo*/,
                               DVTARGETDEVICE* /*device*/, HDC /*information*/, HDC canvas,
                               const RECTL* place, const RECTL* /*windowPlace*/,
                               BOOL(STDMETHODCALLTYPE* /*goesOn*/)(ULONG_PTR),
                               ULONG_PTR /*context*/) {
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  if (canvas == nullptr || place == nullptr) return E_INVALIDARG;
  return Enter([&] {
    RECT inside{place->left, place->top, place->right, place->bottom};
    const String& text = surface_.TxtOutput.Text();
    const int before = SaveDC(canvas);
    FillRect(canvas, &inside, GetSysColorBrush(COLOR_WINDOW));
    DrawEdge(canvas, &inside, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
    SetBkMode(canvas, TRANSPARENT);
    SetTextColor(canvas, GetSysColor(isEnabled_ ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));
    SelectObject(canvas, GetStockObject(DEFAULT_GUI_FONT));
    DrawTextW(canvas, Wide(text), static_cast<int>(text.size()), &inside,
              DT_LEFT | DT_TOP | DT_NOPREFIX | DT_EXPANDTABS);
    RestoreDC(canvas, before);
    return S_OK;
  });
}

STDMETHODIMP SyntTextBox::GetColorSet(DWORD /*aspect*/, LONG /*index*/, void* /*aspectInfo*/,
                                      DVTARGETDEVICE* /*device*/, HDC /*information*/,
                                      LOGPALETTE** colors) {
  if (colors != nullptr) *colors = nullptr;
  return S_FALSE;
}

STDMETHODIMP SyntTextBox::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
  return Enter([&] {
    viewSink_ = Pointer(sink);
    viewAspects_ = aspects;
    viewFlags_ = flags;
    if (sink != nullptr && (flags & ADVF_PRIMEFIRST) != 0) PictureChanged();
    return S_OK;
  });
}

STDMETHODIMP SyntTextBox::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
  return Enter([&] {
    if (aspects != nullptr) *aspects = viewAspects_;
    if (flags != nullptr) *flags = viewFlags_;
    if (sink != nullptr) *sink = Pointer(viewSink_).Detach();
    return S_OK;
  });
}

STDMETHODIMP SyntTextBox::GetExtent(DWORD aspect, LONG /*index*/, DVTARGETDEVICE* /*device*/,
                                    SIZEL* size) {
  return GetExtent(aspect, size);
}

// Notifies the container's advise sink that the picture has changed.
void SyntTextBox::PictureChanged() {
  if (!viewSink_ || (viewAspects_ & DVASPECT_CONTENT) == 0) return;
  const Pointer<IAdviseSink> sink = viewSink_;
  if ((viewFlags_ & ADVF_ONLYONCE) != 0) viewSink_ = {};
  CallOutside([&] { sink->OnViewChange(DVASPECT_CONTENT, -1); });
}

}  // namespace zolt20::com
