// The control in its container: its site, its size, being active in place, the keyboard.
#include <ole2.h>
#include <olectl.h>

#include <set>
#include <vector>

#include "faces/com/com_text.h"
#include "faces/com/control/com_call.h"
#include "faces/com/control/map_control.h"
#include "faces/shared/form_words.h"

namespace zolt20::com {
namespace {

SIZE PixelsOf(SIZEL extent) {
  constexpr int kHimetricPerInch = 2540;
  const HDC screen = GetDC(nullptr);
  const SIZE pixels{MulDiv(extent.cx, GetDeviceCaps(screen, LOGPIXELSX), kHimetricPerInch),
                    MulDiv(extent.cy, GetDeviceCaps(screen, LOGPIXELSY), kHimetricPerInch)};
  ReleaseDC(nullptr, screen);
  return pixels;
}

}  // namespace

// The site.

STDMETHODIMP MapControl::SetClientSite(IOleClientSite* site) {
  return Enter([&] {
    if (site == nullptr) Deactivate();
    site_ = Pointer(site);
    ReadAmbients();
    return S_OK;
  });
}

STDMETHODIMP MapControl::GetClientSite(IOleClientSite** site) {
  if (site == nullptr) return E_POINTER;
  *site = nullptr;
  return Enter([&] {
    *site = Pointer(site_).Detach();
    return S_OK;
  });
}

STDMETHODIMP MapControl::SetHostNames(LPCOLESTR /*application*/, LPCOLESTR /*document*/) {
  return Tell([] { return S_OK; });
}

STDMETHODIMP MapControl::Close(DWORD save) {
  return Enter([&] {
    if (save != OLECLOSE_NOSAVE && isDirty_ && site_) site_->SaveObject();
    Deactivate();
    DataChanged(ADVF_DATAONSTOP);
    if (advised_) advised_->SendOnClose();
    return S_OK;
  });
}

STDMETHODIMP MapControl::SetMoniker(DWORD /*which*/, IMoniker* /*moniker*/) {
  return E_NOTIMPL;
}
STDMETHODIMP MapControl::GetMoniker(DWORD /*assign*/, DWORD /*which*/, IMoniker** moniker) {
  if (moniker != nullptr) *moniker = nullptr;
  return E_NOTIMPL;
}
STDMETHODIMP MapControl::InitFromData(IDataObject* /*data*/, BOOL /*creation*/,
                                      DWORD /*reserved*/) {
  return E_NOTIMPL;
}
STDMETHODIMP MapControl::GetClipboardData(DWORD /*reserved*/, IDataObject** data) {
  if (data != nullptr) *data = nullptr;
  return E_NOTIMPL;
}

STDMETHODIMP MapControl::Update() {
  return Tell([] { return S_OK; });
}
STDMETHODIMP MapControl::IsUpToDate() {
  return Tell([] { return S_OK; });
}
STDMETHODIMP MapControl::GetUserClassID(CLSID* classId) {
  return GetClassID(classId);
}

STDMETHODIMP MapControl::SetExtent(DWORD aspect, SIZEL* size) {
  if (size == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  return Enter([&] {
    if (size->cx < 0 || size->cy < 0) return E_INVALIDARG;
    if (size->cx == extent_.cx && size->cy == extent_.cy) return S_OK;
    extent_ = *size;
    PictureChanged();
    AskForPlace();
    return S_OK;
  });
}

// Asks the site to give the window the size set by SetExtent; without an answer sets it itself.
void MapControl::AskForPlace() {
  const Pointer<IOleInPlaceSite> site = placeSite_;
  if (!window_ || !site) return;
  RECT place = window_->PlaceNow();
  const SIZE size = PixelsOf(extent_);
  if (place.right - place.left == size.cx && place.bottom - place.top == size.cy) return;
  place.right = place.left + size.cx;
  place.bottom = place.top + size.cy;
  isPlaced_ = false;
  site->OnPosRectChange(&place);
  if (window_ && !isPlaced_) window_->Place(place, place);
}

STDMETHODIMP MapControl::GetExtent(DWORD aspect, SIZEL* size) {
  if (size == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  return Enter([&] {
    *size = extent_;
    return S_OK;
  });
}

STDMETHODIMP MapControl::Advise(IAdviseSink* sink, DWORD* connection) {
  if (connection == nullptr) return E_POINTER;
  return Enter([&] {
    if (!advised_) {
      if (const HRESULT result = CreateOleAdviseHolder(advised_.Put()); FAILED(result))
        return result;
    }
    return advised_->Advise(sink, connection);
  });
}
STDMETHODIMP MapControl::Unadvise(DWORD connection) {
  return Enter([&] { return advised_ ? advised_->Unadvise(connection) : OLE_E_NOCONNECTION; });
}
STDMETHODIMP MapControl::EnumAdvise(IEnumSTATDATA** connections) {
  if (connections == nullptr) return E_POINTER;
  *connections = nullptr;
  return Enter([&] { return advised_ ? advised_->EnumAdvise(connections) : S_OK; });
}

STDMETHODIMP MapControl::GetMiscStatus(DWORD aspect, DWORD* status) {
  if (status == nullptr) return E_POINTER;
  return Tell([&]() -> HRESULT {
    *status = aspect == DVASPECT_CONTENT ? kMiscStatus : 0;
    return S_OK;
  });
}
STDMETHODIMP MapControl::SetColorScheme(LOGPALETTE* /*palette*/) {
  return E_NOTIMPL;
}

// Active in place.

HRESULT MapControl::Activate(bool withUser) {
  if (!site_) return E_UNEXPECTED;
  if (window_ && window_->Window() == nullptr) Deactivate();  // destroyed with its parent
  if (!window_) {
    if (const HRESULT result = MakeWindow(); FAILED(result)) return result;
    ReadAmbients();
    if (window_) window_->Show(true);
    if (site_) site_->ShowObject();
  } else if (!IsWindowVisible(window_->Window())) {
    window_->Show(true);
  }
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
HRESULT MapControl::MakeWindow() {
  const auto site = site_.As<IOleInPlaceSite>();
  if (!site) return E_NOINTERFACE;
  if (site->CanInPlaceActivate() != S_OK) return OLE_E_NOT_INPLACEACTIVE;
  if (const HRESULT result = site->OnInPlaceActivate(); FAILED(result)) return result;
  HWND parent = nullptr;
  RECT position{};
  RECT clip{};
  OLEINPLACEFRAMEINFO info{};
  info.cb = sizeof info;
  HRESULT result = site->GetWindow(&parent);
  if (SUCCEEDED(result))
    result = site->GetWindowContext(frame_.Put(), document_.Put(), &position, &clip, &info);
  if (SUCCEEDED(result)) {
    result = Guarded([&] {
      MakeForm(parent, position);
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
  clip_ = clip;
  window_->Place(position, clip);
  return S_OK;
}

void MapControl::MakeForm(HWND parent, const RECT& place) {
  window_ = FormWindow::Make(parent, place, control_, person_,
                             static_cast<FormWindow::Owner&>(*this), look_);
  window_->NameTables(tableNames_);
}

STDMETHODIMP MapControl::UIDeactivate() {
  return Enter([&] {
    if (!hasUser_) return S_OK;
    hasUser_ = false;
    if (frame_) frame_->SetActiveObject(nullptr, nullptr);
    if (document_) document_->SetActiveObject(nullptr, nullptr);
    if (const Pointer<IOleInPlaceSite> site = placeSite_) site->OnUIDeactivate(FALSE);
    return S_OK;
  });
}

void MapControl::Deactivate() {
  UIDeactivate();
  window_.reset();
  frame_ = {};
  document_ = {};
  if (const Pointer<IOleInPlaceSite> site = std::exchange(placeSite_, {}))
    site->OnInPlaceDeactivate();
}

STDMETHODIMP MapControl::InPlaceDeactivate() {
  return Enter([&] {
    Deactivate();
    return S_OK;
  });
}

STDMETHODIMP MapControl::GetWindow(HWND* window) {
  if (window == nullptr) return E_POINTER;
  *window = nullptr;
  return Enter([&] {
    if (window_) *window = window_->Window();
    return *window == nullptr ? E_FAIL : S_OK;
  });
}

STDMETHODIMP MapControl::ContextSensitiveHelp(BOOL /*enter*/) {
  return E_NOTIMPL;
}

STDMETHODIMP MapControl::SetObjectRects(const RECT* place, const RECT* clip) {
  if (place == nullptr) return E_POINTER;
  return Enter([&] {
    isPlaced_ = true;
    clip_ = clip == nullptr ? *place : *clip;
    if (window_) window_->Place(*place, clip_);
    return S_OK;
  });
}

STDMETHODIMP MapControl::ReactivateAndUndo() {
  return INPLACE_E_NOTUNDOABLE;
}
STDMETHODIMP MapControl::OnFrameWindowActivate(BOOL /*active*/) {
  return Tell([] { return S_OK; });
}
STDMETHODIMP MapControl::OnDocWindowActivate(BOOL /*active*/) {
  return Tell([] { return S_OK; });
}
STDMETHODIMP MapControl::ResizeBorder(const RECT* /*border*/, IOleInPlaceUIWindow* /*window*/,
                                      BOOL /*isFrame*/) {
  return Tell([] { return S_OK; });
}
STDMETHODIMP MapControl::EnableModeless(BOOL /*enable*/) {
  return Tell([] { return S_OK; });
}

// The keyboard.

namespace {

// The accelerator table of the mnemonics (letters for Alt) of all pages.
HACCEL MakeAccelerators(const Surface& form) {
  std::set<WORD> letters;
  for (const Control* control : form.Controls()) {
    if (const char16_t letter = faces::MnemonicOf(*control))
      letters.insert(LOWORD(VkKeyScanW(letter)) & 0xFF);
  }
  std::vector<ACCEL> keys;
  keys.reserve(letters.size());
  for (const WORD letter : letters)
    keys.push_back({FALT | FVIRTKEY, letter, letter});
  return CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size()));
}

}  // namespace

STDMETHODIMP MapControl::TranslateAccelerator(MSG* message) {
  if (message == nullptr) return E_POINTER;
  return EnterForPerson([&]() -> HRESULT {
    if (window_ && window_->TranslateKey(*message)) return S_OK;
    // A key that the control does not handle is offered to the container.
    const auto site = ControlSite();
    if (message->message < WM_KEYFIRST || message->message > WM_KEYLAST || !site) return S_FALSE;
    DWORD modifiers = 0;
    if (GetKeyState(VK_SHIFT) < 0) modifiers |= 1;
    if (GetKeyState(VK_CONTROL) < 0) modifiers |= 2;
    if (GetKeyState(VK_MENU) < 0) modifiers |= 4;
    return site->TranslateAccelerator(message, modifiers) == S_OK ? S_OK : S_FALSE;
  });
}

bool MapControl::LeavesAtTheEnd(const MSG& message) {
  const Keep keep(*this);
  const auto site = ControlSite();
  if (!site) return false;
  MSG copy = message;
  return site->TranslateAccelerator(&copy, GetKeyState(VK_SHIFT) < 0 ? 1 : 0) == S_OK;
}

STDMETHODIMP MapControl::GetControlInfo(CONTROLINFO* info) {
  if (info == nullptr) return E_POINTER;
  return Enter([&] {
    info->cb = sizeof *info;
    // Enter makes lines in the boxes and clicks buttons.
    info->dwFlags = CTRLINFO_EATS_RETURN;
    if (accelerators_ == nullptr) accelerators_ = MakeAccelerators(control_.Form());
    info->hAccel = accelerators_;
    info->cAccel = static_cast<USHORT>(CopyAcceleratorTableW(accelerators_, nullptr, 0));
    return S_OK;
  });
}

STDMETHODIMP MapControl::OnMnemonic(MSG* message) {
  if (message == nullptr) return E_POINTER;
  return EnterForPerson([&] {
    if (window_) window_->ClickMnemonic(static_cast<wchar_t>(message->wParam));
    return S_OK;
  });
}

STDMETHODIMP MapControl::FreezeEvents(BOOL freeze) {
  return Enter([&] {
    if (freeze) {
      ++frozen_;
    } else if (frozen_ > 0) {
      --frozen_;
    }
    return S_OK;
  });
}

Pointer<IOleControlSite> MapControl::ControlSite() const {
  return site_.As<IOleControlSite>();
}

void MapControl::FocusCame() {
  const Keep keep(*this);
  if (const auto site = ControlSite()) site->OnFocus(TRUE);
  if (window_) Activate(true);
}

void MapControl::FocusWent() {
  const Keep keep(*this);
  if (const auto site = ControlSite()) site->OnFocus(FALSE);
}

}  // namespace zolt20::com
