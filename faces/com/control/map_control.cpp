#include "faces/com/control/map_control.h"

#include <olectl.h>

#include "faces/com/com_text.h"
#include "faces/com/com_value.h"
#include "faces/com/control/com_call.h"
#include "faces/com/control/enumeration.h"
#include "faces/com/control/outside_call.h"
#include "faces/com/form/form_fonts.h"

namespace zolt20::com {
namespace {

SIZEL DesignExtent() {
  constexpr int kPerInch = 2540;
  return {MulDiv(faces::FormPlaces::kWidth, kPerInch, kTwipsPerInch),
          MulDiv(faces::FormPlaces::kHeight, kPerInch, kTwipsPerInch)};
}

struct PointTraits {
  static void Keep(IConnectionPoint* point) { point->AddRef(); }
  static void Drop(IConnectionPoint* point) { point->Release(); }
};

// Failures of IDispatch itself, which Invoke returns unchanged.
bool IsOfDispatch(HRESULT result) {
  return HRESULT_FACILITY(result) == FACILITY_DISPATCH || result == RPC_E_WRONG_THREAD ||
         result == E_INVALIDARG;
}

// Moves the error information of the failed call into the EXCEPINFO that Invoke returns.
void Describe(HRESULT failure, EXCEPINFO& exception) {
  exception = {};
  exception.scode = failure;
  Pointer<IErrorInfo> info;
  if (GetErrorInfo(0, info.Put()) != S_OK) return;
  info->GetSource(&exception.bstrSource);
  info->GetDescription(&exception.bstrDescription);
}

}  // namespace

// Identity and lifetime.

HRESULT MapControl::Create(IUnknown* outer, REFIID id, void** object) {
  auto* const control = new MapControl(outer);
  const HRESULT result = control->own_.QueryInterface(id, object);
  control->own_.Release();
  return result;
}

MapControl::MapControl(IUnknown* outer)
    : outer_(outer == nullptr ? &own_ : outer),
      control_(*this),
      extent_(DesignExtent()),
      events_(*this, DIID___ZOLT20MapControl),
      notices_(*this, IID_IPropertyNotifySink) {
  // The default, for a host that calls neither InitNew nor Load.
  control_.UserControl_InitProperties();
}

MapControl::~MapControl() {
  if (accelerators_ != nullptr) DestroyAcceleratorTable(accelerators_);
}

STDMETHODIMP_(ULONG) MapControl::Own::Release() {
  const long left = --references_;
  if (left != 0) return static_cast<ULONG>(left);
  // Members that are destroyed may AddRef and Release this object: must not delete it twice.
  references_ = 1;
  delete &control_;
  return 0;
}

HRESULT MapControl::FindInterface(REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  const auto found = [&]() -> void* {
    if (id == IID_IUnknown) return static_cast<IUnknown*>(&own_);
    if (id == IID_IDispatch || id == IID__ZOLT20MapControl)
      return static_cast<_ZOLT20MapControl*>(this);
    if (id == IID_IZOLT20MapControlView) return static_cast<IZOLT20MapControlView*>(&view_);
    if (id == IID_IOleObject) return static_cast<IOleObject*>(this);
    if (id == IID_IOleControl) return static_cast<IOleControl*>(this);
    if (id == IID_IOleInPlaceObject || id == IID_IOleWindow)
      return static_cast<IOleInPlaceObject*>(this);
    if (id == IID_IOleInPlaceActiveObject) return static_cast<IOleInPlaceActiveObject*>(this);
    if (id == IID_IViewObject || id == IID_IViewObject2 || id == IID_IViewObjectEx)
      return static_cast<IViewObjectEx*>(this);
    if (id == IID_IPersistStreamInit || id == IID_IPersist)
      return static_cast<IPersistStreamInit*>(this);
    if (id == IID_IPersistPropertyBag) return static_cast<IPersistPropertyBag*>(this);
    if (id == IID_IPersistStorage) return static_cast<IPersistStorage*>(this);
    if (id == IID_IPersistMemory) return static_cast<IPersistMemory*>(this);
    if (id == IID_IDataObject) return static_cast<IDataObject*>(this);
    if (id == IID_IQuickActivate) return static_cast<IQuickActivate*>(this);
    if (id == IID_IPointerInactive) return static_cast<IPointerInactive*>(this);
    if (id == IID_IConnectionPointContainer) return static_cast<IConnectionPointContainer*>(this);
    if (id == IID_IProvideClassInfo || id == IID_IProvideClassInfo2)
      return static_cast<IProvideClassInfo2*>(this);
    if (id == IID_ISupportErrorInfo) return static_cast<ISupportErrorInfo*>(this);
    if (id == IID_IObjectSafety) return static_cast<IObjectSafety*>(this);
    return nullptr;
  }();
  if (found == nullptr) return E_NOINTERFACE;
  static_cast<IUnknown*>(found)->AddRef();
  *object = found;
  return S_OK;
}

void MapControl::CallEnded() noexcept {
  if (person_.IsBusy()) return;
  if (window_) {
    window_->ShowChanges();
  } else {
    person_.TakeChanges();  // dropped: the next window shows everything when made
  }
  if (std::exchange(isPictureOld_, false)) {
    Guarded([this] {
      PictureChanged();
      return S_OK;
    });
  }
}

void MapControl::GestureBegins() {
  own_.AddRef();
  if (outer_ != &own_) outer_->AddRef();
  isPictureOld_ = true;
}

void MapControl::GestureEnds() noexcept {
  CallEnded();
  if (outer_ != &own_) outer_->Release();
  own_.Release();
}

// Automation.

HRESULT MapControl::LoadOwnDescription() {
  return description_ ? S_OK : LoadDescription(IID__ZOLT20MapControl, description_);
}

STDMETHODIMP MapControl::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  return Tell([&]() -> HRESULT {
    *count = 1;
    return S_OK;
  });
}

STDMETHODIMP MapControl::GetTypeInfo(UINT index, LCID /*locale*/, ITypeInfo** description) {
  if (description == nullptr) return E_POINTER;
  *description = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  return Enter([&] {
    if (const HRESULT result = LoadOwnDescription(); FAILED(result)) return result;
    *description = Pointer<ITypeInfo>(description_).Detach();
    return S_OK;
  });
}

STDMETHODIMP MapControl::GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID /*locale*/,
                                       DISPID* numbers) {
  if (id != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (names == nullptr || numbers == nullptr) return E_POINTER;
  return Enter([&] {
    if (const HRESULT result = LoadOwnDescription(); FAILED(result)) return result;
    return DispGetIDsOfNames(description_.Get(), names, count, numbers);
  });
}

STDMETHODIMP MapControl::Invoke(DISPID number, REFIID id, LCID locale, WORD flags,
                                DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                UINT* wrongArgument) {
  if (id != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (arguments == nullptr || (arguments->cArgs > 0 && arguments->rgvarg == nullptr) ||
      (arguments->cNamedArgs > 0 && arguments->rgdispidNamedArgs == nullptr)) {
    return E_INVALIDARG;
  }
  if (result != nullptr) VariantInit(result);
  const auto members = Members();
  if (number < 1 || static_cast<std::size_t>(number) > members.size()) return DISP_E_MEMBERNOTFOUND;
  const HRESULT done = EnterMember(
      [&] {
        return Run(members[static_cast<std::size_t>(number - 1)], locale, flags, *arguments, result,
                   wrongArgument);
      },
      (flags & DISPATCH_PROPERTYPUT) != 0 ||
          members[static_cast<std::size_t>(number - 1)].IsMethod());
  if (SUCCEEDED(done) || IsOfDispatch(done) || exception == nullptr) return done;
  Describe(done, *exception);
  return DISP_E_EXCEPTION;
}

HRESULT MapControl::TakeArgument(ValueType type, LCID locale, VARIANT& given, Variant& taken) {
  if (V_VT(&given) == VT_ERROR && V_ERROR(&given) == DISP_E_PARAMNOTFOUND)
    return DISP_E_PARAMNOTOPTIONAL;
  const VARTYPE wanted = type == ValueType::kString    ? VT_BSTR
                         : type == ValueType::kInteger ? VT_I2
                                                       : VT_BOOL;
  Value plain;
  if (const HRESULT copied = VariantCopyInd(&plain, &given); FAILED(copied)) return copied;
  if (const HRESULT changed = VariantChangeTypeEx(&plain, &plain, locale, 0, wanted);
      FAILED(changed))
    return changed;
  switch (type) {
    case ValueType::kString:
      taken = TakenString(plain->bstrVal);
      break;
    case ValueType::kInteger:
      taken = TakenInteger(plain->iVal);
      break;
    default:
      taken = TakenBoolean(plain->boolVal);
      break;
  }
  return S_OK;
}

HRESULT MapControl::Run(const Member& member, LCID locale, WORD flags, const DISPPARAMS& arguments,
                        VARIANT* result, UINT* wrongArgument) {
  const bool isLet = (flags & DISPATCH_PROPERTYPUT) != 0 && member.let != nullptr;
  const bool isGet = !isLet && (flags & DISPATCH_PROPERTYGET) != 0 && member.get != nullptr;
  const bool isCall = !isLet && (flags & DISPATCH_METHOD) != 0 && member.IsMethod();
  if (!isLet && !isGet && !isCall) return DISP_E_MEMBERNOTFOUND;

  const UINT wanted = isGet || member.type == ValueType::kNone ? 0 : 1;
  if (arguments.cArgs != wanted || arguments.cNamedArgs > wanted) return DISP_E_BADPARAMCOUNT;
  // The value of a property put is named DISPID_PROPERTYPUT; a method's argument may be named 0.
  if (arguments.cNamedArgs == 1 &&
      arguments.rgdispidNamedArgs[0] != (isLet ? DISPID_PROPERTYPUT : 0)) {
    return DISP_E_PARAMNOTFOUND;
  }

  Variant taken;
  if (wanted == 1) {
    const HRESULT done = TakeArgument(member.type, locale, arguments.rgvarg[0], taken);
    if (FAILED(done) && wrongArgument != nullptr) *wrongArgument = 0;
    if (FAILED(done)) return done;
  }

  if (isLet) {
    member.let(control_, std::move(taken));
    return S_OK;
  }
  const Variant read = isGet ? member.get(control_) : member.call(control_, std::move(taken));
  if (result == nullptr) return S_OK;
  if (std::holds_alternative<String>(read)) {
    V_BSTR(result) = GivenString(read);
    V_VT(result) = VT_BSTR;
  } else if (std::holds_alternative<Integer>(read)) {
    V_I2(result) = GivenInteger(read);
    V_VT(result) = VT_I2;
  } else if (std::holds_alternative<bool>(read)) {
    V_BOOL(result) = GivenBoolean(read);
    V_VT(result) = VT_BOOL;
  }
  return S_OK;
}

STDMETHODIMP MapControl::InterfaceSupportsErrorInfo(REFIID id) {
  return Tell([&]() -> HRESULT {
    return id == IID__ZOLT20MapControl || id == IID_IDispatch ? S_OK : S_FALSE;
  });
}

STDMETHODIMP MapControl::GetClassInfo(ITypeInfo** description) {
  if (description == nullptr) return E_POINTER;
  *description = nullptr;
  return Enter([&] {
    Pointer<ITypeInfo> loaded;
    const HRESULT result = LoadDescription(CLSID_ZOLT20MapControl, loaded);
    *description = loaded.Detach();
    return result;
  });
}

STDMETHODIMP MapControl::GetGUID(DWORD kind, GUID* guid) {
  if (guid == nullptr) return E_POINTER;
  *guid = GUID_NULL;
  return Tell([&]() -> HRESULT {
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    *guid = DIID___ZOLT20MapControl;
    return S_OK;
  });
}

// Events and notices.

STDMETHODIMP MapControl::EnumConnectionPoints(IEnumConnectionPoints** points) {
  if (points == nullptr) return E_POINTER;
  *points = nullptr;
  return Enter([&] {
    std::vector<IConnectionPoint*> all{&events_, &notices_};
    *points =
        new Enumeration<IEnumConnectionPoints, IConnectionPoint*, PointTraits>(std::move(all));
    return S_OK;
  });
}

STDMETHODIMP MapControl::FindConnectionPoint(REFIID id, IConnectionPoint** point) {
  if (point == nullptr) return E_POINTER;
  *point = nullptr;
  return Tell([&]() -> HRESULT {
    for (ConnectionPoint* each : {&events_, &notices_}) {
      if (id != each->SinkId()) continue;
      *point = each;
      each->AddRef();
      return S_OK;
    }
    return CONNECT_E_NOCONNECTION;
  });
}

// Fires an event. An exception of a sink propagates through the control to the caller; the HRESULT
// that a sink returns is ignored.
void MapControl::Fire(DISPID number) {
  if (window_) window_->ShowChanges();
  if (frozen_ > 0) return;
  for (const Pointer<IDispatch>& sink : events_.Sinks<IDispatch>()) {
    CallOutside([&] {
      DISPPARAMS none{};
      sink->Invoke(number, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr,
                   nullptr);
    });
  }
}

void MapControl::PropertyChanged(std::string_view property) {
  isDirty_ = true;
  if (window_) window_->ShowChanges();
  if (frozen_ > 0) return;
  const DISPID number = FindMember(property)->number;
  for (const Pointer<IPropertyNotifySink>& sink : notices_.Sinks<IPropertyNotifySink>())
    CallOutside([&] { sink->OnChanged(number); });
}

void MapControl::ShowMessage(const Message& message) {
  if (window_) window_->ShowChanges();
  ShowBox(Wide(String(message.text)), Wide(String(message.title)));
}

void MapControl::GestureFailed(const wchar_t* description) {
  ShowBox(description, L"ZOLT20MapControl");
}

void MapControl::ShowBox(const wchar_t* text, const wchar_t* title) {
  // Keeps the frame, so that the modeless state is restored on it even if the control has moved.
  const Pointer<IOleInPlaceFrame> frame = frame_;
  const HWND owner = window_ ? GetAncestor(window_->Window(), GA_ROOT) : nullptr;
  if (frame) frame->EnableModeless(FALSE);
  MessageBoxW(owner, text, title, MB_OK | MB_ICONERROR);
  if (frame) frame->EnableModeless(TRUE);
}

}  // namespace zolt20::com
