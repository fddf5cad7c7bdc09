#include "faces/com/text_box/synt_text_box.h"

#include <olectl.h>

#include <limits>
#include <utility>
#include <vector>

#include "faces/com/com_text.h"
#include "faces/com/com_value.h"
#include "faces/com/control/enumeration.h"
#include "faces/com/control/outside_call.h"

namespace zolt20::com {
namespace {

constexpr DISPID kText = 1;
constexpr DISPID kHighlight = 2;
constexpr DISPID kRightMargin = 3;
constexpr DISPID kTabChain = 1;
constexpr DWORD kSafe = INTERFACESAFE_FOR_UNTRUSTED_CALLER | INTERFACESAFE_FOR_UNTRUSTED_DATA;

struct PointTraits {
  static void Keep(IConnectionPoint* point) { point->AddRef(); }
  static void Drop(IConnectionPoint* point) { point->Release(); }
};

VARIANT_BOOL Truth(bool value) {
  return value ? VARIANT_TRUE : VARIANT_FALSE;
}

}  // namespace

// Identity and lifetime.

HRESULT SyntTextBox::Create(IUnknown* outer, REFIID id, void** object) {
  auto* const box = new SyntTextBox(outer);
  const HRESULT result = box->own_.QueryInterface(id, object);
  box->own_.Release();
  return result;
}

SyntTextBox::SyntTextBox(IUnknown* outer)
    : outer_(outer == nullptr ? &own_ : outer),
      events_(*this, DIID___ZOLT21SyntTextBox),
      notices_(*this, IID_IPropertyNotifySink) {}

STDMETHODIMP_(ULONG) SyntTextBox::Own::Release() {
  const long left = --references_;
  if (left != 0) return static_cast<ULONG>(left);
  // Members that are destroyed may AddRef and Release this object: must not delete it twice.
  references_ = 1;
  delete &box_;
  return 0;
}

HRESULT SyntTextBox::FindInterface(REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  const auto found = [&]() -> void* {
    if (id == IID_IUnknown) return static_cast<IUnknown*>(&own_);
    if (id == IID_IDispatch || id == IID__ZOLT21SyntTextBox)
      return static_cast<_ZOLT21SyntTextBox*>(this);
    if (id == IID_IOleObject) return static_cast<IOleObject*>(this);
    if (id == IID_IOleControl) return static_cast<IOleControl*>(this);
    if (id == IID_IOleInPlaceObject || id == IID_IOleWindow)
      return static_cast<IOleInPlaceObject*>(this);
    if (id == IID_IOleInPlaceActiveObject) return static_cast<IOleInPlaceActiveObject*>(this);
    if (id == IID_IViewObject || id == IID_IViewObject2) return static_cast<IViewObject2*>(this);
    if (id == IID_IPersistStreamInit || id == IID_IPersist)
      return static_cast<IPersistStreamInit*>(this);
    if (id == IID_IPersistPropertyBag) return static_cast<IPersistPropertyBag*>(this);
    if (id == IID_IConnectionPointContainer) return static_cast<IConnectionPointContainer*>(this);
    if (id == IID_IProvideClassInfo || id == IID_IProvideClassInfo2)
      return static_cast<IProvideClassInfo2*>(this);
    if (id == IID_IObjectSafety) return static_cast<IObjectSafety*>(this);
    return nullptr;
  }();
  if (found == nullptr) return E_NOINTERFACE;
  static_cast<IUnknown*>(found)->AddRef();
  *object = found;
  return S_OK;
}

// The members.

STDMETHODIMP SyntTextBox::get_Text(BSTR* value) {
  return Give(value, [&] { return ToBstr(surface_.TxtOutput.Text()); });
}

STDMETHODIMP SyntTextBox::put_Text(BSTR value) {
  return Enter([&] {
    surface_.TxtOutput.Text(View(value));
    if (window_) window_->ShowText();
    Changed(kText);
    return S_OK;
  });
}

STDMETHODIMP SyntTextBox::get_Highlight(VARIANT_BOOL* value) {
  return Give(value, [&] { return Truth(surface_.TxtOutput.Highlight()); });
}

STDMETHODIMP SyntTextBox::put_Highlight(VARIANT_BOOL value) {
  return Enter([&] {
    surface_.TxtOutput.Highlight(value != VARIANT_FALSE);
    if (window_) window_->ShowText();
    Changed(kHighlight);
    return S_OK;
  });
}

STDMETHODIMP SyntTextBox::get_rightmargin(LONG* value) {
  return Give(value, [&] { return rightMargin_; });
}

STDMETHODIMP SyntTextBox::put_rightmargin(LONG value) {
  return Enter([&] {
    if (value < 0) throw RuntimeError(ErrorKind::kValue);
    rightMargin_ = value;
    if (window_) window_->RightMargin(rightMargin_);
    Changed(kRightMargin);
    return S_OK;
  });
}

STDMETHODIMP SyntTextBox::get_Enabled(VARIANT_BOOL* value) {
  return Give(value, [&] { return Truth(isEnabled_); });
}

STDMETHODIMP SyntTextBox::put_Enabled(VARIANT_BOOL value) {
  return Enter([&] {
    isEnabled_ = value != VARIANT_FALSE;
    if (window_) window_->Enable(isEnabled_ && isAtWork_);
    Changed(DISPID_ENABLED);
    return S_OK;
  });
}

// Only the low 32 bits of a window handle are significant, also on 64 bits.
STDMETHODIMP SyntTextBox::get_hWnd(LONG* value) {
  return Give(value, [&] {
    return window_ ? static_cast<LONG>(reinterpret_cast<LONG_PTR>(window_->Box())) : 0;
  });
}

void SyntTextBox::ShowAll() {
  if (!window_) return;
  window_->ShowText();
  window_->RightMargin(rightMargin_);
  window_->Enable(isEnabled_ && isAtWork_);
}

// Sets the stored values, or those of a new box, without any notice.
void SyntTextBox::Take(StringView text, bool highlight, long margin, bool enabled) {
  surface_.TxtOutput.Text(text);
  surface_.TxtOutput.Highlight(highlight);
  rightMargin_ = margin;
  isEnabled_ = enabled;
  isDirty_ = false;
  ShowAll();
  PictureChanged();
}

// IDispatch.

HRESULT SyntTextBox::LoadOwnDescription() {
  return description_ ? S_OK : LoadDescription(IID__ZOLT21SyntTextBox, description_);
}

STDMETHODIMP SyntTextBox::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 1;
  return S_OK;
}

STDMETHODIMP SyntTextBox::GetTypeInfo(UINT index, LCID /*locale*/, ITypeInfo** description) {
  if (description == nullptr) return E_POINTER;
  *description = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  return Enter([&] {
    if (const HRESULT result = LoadOwnDescription(); FAILED(result)) return result;
    *description = Pointer<ITypeInfo>(description_).Detach();
    return S_OK;
  });
}

STDMETHODIMP SyntTextBox::GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID /*locale*/,
                                        DISPID* numbers) {
  if (id != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (names == nullptr || numbers == nullptr) return E_POINTER;
  return Enter([&] {
    if (const HRESULT result = LoadOwnDescription(); FAILED(result)) return result;
    return DispGetIDsOfNames(description_.Get(), names, count, numbers);
  });
}

STDMETHODIMP SyntTextBox::Invoke(DISPID number, REFIID id, LCID /*locale*/, WORD flags,
                                 DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                 UINT* wrongArgument) {
  if (id != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  return Enter([&] {
    SetErrorInfo(0, nullptr);  // clears the error of an earlier call
    if (const HRESULT loaded = LoadOwnDescription(); FAILED(loaded)) return loaded;
    return DispInvoke(static_cast<_ZOLT21SyntTextBox*>(this), description_.Get(), number, flags,
                      arguments, result, exception, wrongArgument);
  });
}

STDMETHODIMP SyntTextBox::GetClassInfo(ITypeInfo** description) {
  if (description == nullptr) return E_POINTER;
  *description = nullptr;
  return Enter([&] {
    Pointer<ITypeInfo> loaded;
    const HRESULT result = LoadDescription(CLSID_ZOLT21SyntTextBox, loaded);
    *description = loaded.Detach();
    return result;
  });
}

STDMETHODIMP SyntTextBox::GetGUID(DWORD kind, GUID* guid) {
  if (guid == nullptr) return E_POINTER;
  *guid = GUID_NULL;
  if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
  *guid = DIID___ZOLT21SyntTextBox;
  return S_OK;
}

// IObjectSafety: whatever data it is given, the box runs no code and reads no file.

STDMETHODIMP SyntTextBox::GetInterfaceSafetyOptions(REFIID /*id*/, DWORD* supported,
                                                    DWORD* enabled) {
  if (supported == nullptr || enabled == nullptr) return E_POINTER;
  *supported = kSafe;
  *enabled = kSafe;
  return S_OK;
}

STDMETHODIMP SyntTextBox::SetInterfaceSafetyOptions(REFIID /*id*/, DWORD mask, DWORD /*enabled*/) {
  return (mask & ~kSafe) == 0 ? S_OK : E_FAIL;
}

// The event and the notices.

STDMETHODIMP SyntTextBox::EnumConnectionPoints(IEnumConnectionPoints** points) {
  if (points == nullptr) return E_POINTER;
  *points = nullptr;
  return Enter([&] {
    std::vector<IConnectionPoint*> all{&events_, &notices_};
    *points =
        new Enumeration<IEnumConnectionPoints, IConnectionPoint*, PointTraits>(std::move(all));
    return S_OK;
  });
}

STDMETHODIMP SyntTextBox::FindConnectionPoint(REFIID id, IConnectionPoint** point) {
  if (point == nullptr) return E_POINTER;
  *point = nullptr;
  for (ConnectionPoint* each : {&events_, &notices_}) {
    if (id != each->SinkId()) continue;
    *point = each;
    each->AddRef();
    return S_OK;
  }
  return CONNECT_E_NOCONNECTION;
}

void SyntTextBox::Changed(DISPID number) noexcept {
  isDirty_ = true;
  Guarded([&] {
    PictureChanged();
    if (frozen_ > 0) return S_OK;
    for (const Pointer<IPropertyNotifySink>& sink : notices_.Sinks<IPropertyNotifySink>())
      CallOutside([&] { sink->OnChanged(number); });
    return S_OK;
  });
}

void SyntTextBox::TextTyped() noexcept {
  const Keep keep(*this);
  Changed(kText);
}

void SyntTextBox::FocusCame() noexcept {
  const Keep keep(*this);
  Guarded([&] {
    if (const auto site = ControlSite()) CallOutside([&] { site->OnFocus(TRUE); });
    if (window_) Activate(true);
    if (frozen_ > 0) return S_OK;
    for (const Pointer<IDispatch>& sink : events_.Sinks<IDispatch>()) {
      CallOutside([&] {
        DISPPARAMS none{};
        sink->Invoke(kTabChain, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr,
                     nullptr, nullptr);
      });
    }
    return S_OK;
  });
}

void SyntTextBox::FocusWent() noexcept {
  const Keep keep(*this);
  Guarded([&] {
    if (const auto site = ControlSite()) CallOutside([&] { site->OnFocus(FALSE); });
    return S_OK;
  });
}

}  // namespace zolt20::com
