#include "tests/com/com_test.h"

namespace zolt20::tests {

void ThrowOut() {
#ifdef _WIN64
  throw 1;
#else
  constexpr DWORD kOfVisualCpp = 0xE06D7363;
  RaiseException(kOfVisualCpp, EXCEPTION_NONCONTINUABLE, 0, nullptr);
#endif
}

Listener::Listener(IUnknown& control) : control_(&control) {
  if (const auto point = PointOf(DIID___ZOLT20MapControl))
    point->Advise(static_cast<IDispatch*>(this), &events_);
  if (const auto point = PointOf(IID_IPropertyNotifySink))
    point->Advise(static_cast<IPropertyNotifySink*>(this), &notices_);
}

Listener::~Listener() {
  Leave();
}

void Listener::Leave() {
  if (!control_) return;
  if (const auto point = PointOf(DIID___ZOLT20MapControl)) point->Unadvise(events_);
  if (const auto point = PointOf(IID_IPropertyNotifySink)) point->Unadvise(notices_);
  control_ = {};
}

Pointer<IConnectionPoint> Listener::PointOf(REFIID id) const {
  Pointer<IConnectionPoint> point;
  if (const auto points = com::Query<IConnectionPointContainer>(control_.Get()))
    points->FindConnectionPoint(id, point.Put());
  return point;
}

STDMETHODIMP Listener::QueryInterface(REFIID id, void** object) {
  if (id == IID_IUnknown || id == IID_IDispatch || id == DIID___ZOLT20MapControl) {
    *object = static_cast<IDispatch*>(this);
  } else if (id == IID_IPropertyNotifySink) {
    *object = static_cast<IPropertyNotifySink*>(this);
  } else {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

STDMETHODIMP Listener::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

STDMETHODIMP Listener::Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                              UINT*) {
  told.push_back("event " + std::to_string(event));
  if (onEvent) onEvent(event);
  return S_OK;
}

STDMETHODIMP Listener::OnChanged(DISPID property) {
  told.push_back("changed " + std::to_string(property));
  if (onChange) onChange(property);
  return S_OK;
}

DISPID Named::NumberOf(const wchar_t* name) const {
  DISPID number = DISPID_UNKNOWN;
  auto* text = const_cast<wchar_t*>(name);
  control.GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &number);
  return number;
}

HRESULT Named::Invoke(DISPID number, WORD flags, std::vector<VARIANT> arguments, VARIANT* result,
                      std::wstring* description) const {
  DISPID put = DISPID_PROPERTYPUT;
  const bool isPut = flags == DISPATCH_PROPERTYPUT;
  DISPPARAMS parameters{arguments.data(), isPut ? &put : nullptr,
                        static_cast<UINT>(arguments.size()), isPut ? 1U : 0U};
  EXCEPINFO exception{};
  const HRESULT done = control.Invoke(number, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                      result, &exception, nullptr);
  if (done != DISP_E_EXCEPTION) return done;
  if (description != nullptr)
    *description = exception.bstrDescription == nullptr ? L"" : exception.bstrDescription;
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  return exception.scode;
}

HRESULT Named::Put(const wchar_t* name, VARIANT value) const {
  return Invoke(NumberOf(name), DISPATCH_PROPERTYPUT, {value});
}

HRESULT Named::Put(const wchar_t* name, const wchar_t* text) const {
  const Bstr value(text);
  VARIANT variant;
  V_VT(&variant) = VT_BSTR;
  V_BSTR(&variant) = value.Get();
  return Put(name, variant);
}

HRESULT Named::Get(const wchar_t* name, VARIANT& value) const {
  VariantInit(&value);
  return Invoke(NumberOf(name), DISPATCH_PROPERTYGET, {}, &value);
}

std::wstring Named::Text(const wchar_t* name) const {
  VARIANT value;
  if (FAILED(Get(name, value)) || V_VT(&value) != VT_BSTR) return L"?";
  std::wstring text(V_BSTR(&value), SysStringLen(V_BSTR(&value)));
  VariantClear(&value);
  return text;
}

HRESULT Named::Call(const wchar_t* name, std::vector<VARIANT> arguments) const {
  return Invoke(NumberOf(name), DISPATCH_METHOD, std::move(arguments));
}

VARIANT Number(int value) {
  VARIANT variant;
  V_VT(&variant) = VT_I4;
  V_I4(&variant) = value;
  return variant;
}

VARIANT Truth(bool value) {
  VARIANT variant;
  V_VT(&variant) = VT_BOOL;
  V_BOOL(&variant) = value ? VARIANT_TRUE : VARIANT_FALSE;
  return variant;
}

ControlTest::ControlTest()
    : control_(NewControl()), byName_(com::Query<IDispatch>(control_.Get())) {}
ControlTest::~ControlTest() = default;

Pointer<IUnknown> ControlTest::NewControl() {
  Pointer<IUnknown> control;
  EXPECT_EQ(CoCreateInstance(CLSID_ZOLT20MapControl, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                             reinterpret_cast<void**>(control.Put())),
            S_OK);
  return control;
}

void WriteCatalogue(const Named& named) {
  EXPECT_EQ(named.Put(L"PrpStrTables", L"CUSTOMER1,ORDERITM0"), S_OK);
  EXPECT_EQ(
      named.Put(
          L"PrpStrFields",
          L"char*Q*V*R*N*NCUSTOMER.NAME*Q*V*R*N*name,long*Q*V*R*N*YORDERITM.NO*Q*V*R*N*number"),
      S_OK);
}

SessionPlayer::Embedded Embed(Container& container) {
  container.GiveUp();
  EXPECT_EQ(container.Create(CLSID_ZOLT20MapControl), S_OK);
  EXPECT_EQ(container.Activate(), S_OK);
  return {Pointer(container.Control()), container.Window()};
}

std::wstring Sessions() {
  wchar_t folder[MAX_PATH] = L"";
  GetEnvironmentVariableW(L"ZOLT20_SESSIONS", folder, MAX_PATH);
  return folder;
}

HRESULT CanUnload() {
  using Ask = HRESULT(STDMETHODCALLTYPE*)();
  const HMODULE server = GetModuleHandleW(L"ZOLT20MappingCtrl.ocx");
  return reinterpret_cast<Ask>(
      reinterpret_cast<void*>(GetProcAddress(server, "DllCanUnloadNow")))();
}

std::wstring NameOf(HWND window) {
  for (; window != nullptr; window = GetParent(window)) {
    wchar_t name[64] = L"";
    const HANDLE atom = GetPropW(window, L"ZOLT20.Name");
    if (atom == nullptr) continue;
    GlobalGetAtomNameW(static_cast<ATOM>(reinterpret_cast<UINT_PTR>(atom)), name, 64);
    return name;
  }
  return {};
}

HWND WindowOf(HWND container, const wchar_t* name) {
  struct Search {
    std::wstring name;
    HWND found = nullptr;
  } search{name};
  EnumChildWindows(
      container,
      [](HWND window, LPARAM data) WINAPI -> BOOL {
        auto& wanted = *reinterpret_cast<Search*>(data);
        if (GetPropW(window, L"ZOLT20.Name") == nullptr || NameOf(window) != wanted.name)
          return TRUE;
        wanted.found = window;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

void ClickOn(HWND container, const wchar_t* button) {
  SendMessageW(WindowOf(container, button), BM_CLICK, 0, 0);
}

void Pump() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace zolt20::tests
