// The control by name and by table, its events, and callers that do what they should not.
#include <thread>

#include "tests/com/com_test.h"

namespace zolt20::tests {
namespace {

constexpr HRESULT RunTimeError(int number) {
  return static_cast<HRESULT>(0x800A0000U + static_cast<unsigned>(number));
}

using AutomationTest = ControlTest;

TEST_F(AutomationTest, ByNameItIsWrittenAndRead) {
  Catalogue();
  EXPECT_EQ(named().Put(L"prpSelectPart", L"CUSTOMER.NAME,"), S_OK);
  EXPECT_EQ(named().Text(L"prpStrSQLPart"), L"0");
  EXPECT_EQ(named().Put(L"prpStroutput", L"a ~b `^`c`^`"), S_OK);
  EXPECT_EQ(Result(), L"a \r\nb \"c\"");
  EXPECT_EQ(named().Put(L"prpintTabcount", Number(2)), S_OK);
  VARIANT value;
  EXPECT_EQ(named().Get(L"prpintTabcount", value), S_OK);
  EXPECT_EQ(V_VT(&value), VT_I2);
  EXPECT_EQ(V_I2(&value), 2);
  EXPECT_EQ(named().Put(L"Syntax_Highlight", Truth(true)), S_OK);
  EXPECT_EQ(named().Get(L"Syntax_Highlight", value), S_OK);
  EXPECT_EQ(V_VT(&value), VT_BOOL);
  EXPECT_EQ(V_BOOL(&value), VARIANT_TRUE);
}

TEST_F(AutomationTest, ByTableItIsWrittenAndRead) {
  const auto control = As<_ZOLT20MapControl>();
  EXPECT_EQ(control->put_prpStroutput(Bstr(L"x~y").Get()), S_OK);
  Bstr result;
  EXPECT_EQ(control->get_prpStroutput(result.Put()), S_OK);
  EXPECT_EQ(result.Text(), L"x\r\ny");
  EXPECT_EQ(control->put_prpintTabcount(-3), S_OK);
  short depth = 0;
  EXPECT_EQ(control->get_prpintTabcount(&depth), S_OK);
  EXPECT_EQ(depth, -3);
  VARIANT nothing = Number(1);
  EXPECT_EQ(control->ClearAll(9, &nothing), S_OK);
  EXPECT_EQ(V_VT(&nothing), VT_EMPTY);
}

TEST_F(AutomationTest, TextsOfEveryKindComeBackExactly) {
  const std::wstring text = std::wstring(L"a\0b", 3) + wchar_t(0xD800) + L"c" + wchar_t(0xDC00) +
                            wchar_t(0xFEFF) + L"\r\x2028";
  const auto control = As<_ZOLT20MapControl>();
  ASSERT_EQ(control->put_prpStroutput(Bstr(text).Get()), S_OK);
  Bstr result;
  ASSERT_EQ(control->get_prpStroutput(result.Put()), S_OK);
  EXPECT_EQ(result.Text(), text);
}

TEST_F(AutomationTest, NoTextIsTheEmptyOne) {
  EXPECT_EQ(As<_ZOLT20MapControl>()->put_PrpStrTables(nullptr), S_OK);
  EXPECT_EQ(Result(), L"");
}

TEST_F(AutomationTest, ARunTimeErrorHasItsNumberAndItsText) {
  std::wstring description;
  EXPECT_EQ(named().Invoke(named().NumberOf(L"prpTab"), DISPATCH_PROPERTYPUT, {Number(7)}, nullptr,
                           &description),
            RunTimeError(380));
  EXPECT_EQ(description, L"invalid property value");

  EXPECT_EQ(As<_ZOLT20MapControl>()->put_prpTab(7), RunTimeError(380));
  Pointer<IErrorInfo> info;
  ASSERT_EQ(GetErrorInfo(0, info.Put()), S_OK);
  Bstr text;
  info->GetDescription(text.Put());
  EXPECT_EQ(text.Text(), L"invalid property value");
  EXPECT_EQ(As<ISupportErrorInfo>()->InterfaceSupportsErrorInfo(IID__ZOLT20MapControl), S_OK);
  EXPECT_EQ(As<ISupportErrorInfo>()->InterfaceSupportsErrorInfo(IID_IOleObject), S_FALSE);
}

TEST_F(AutomationTest, AfterAnErrorItIsUsable) {
  EXPECT_EQ(named().Put(L"prpTab", Number(7)), RunTimeError(380));
  EXPECT_EQ(named().Put(L"prpTab", Number(6)), S_OK);
}

TEST_F(AutomationTest, WritesAreToldByTheirNumbers) {
  Listener listener(*control_.Get());
  named().Put(L"PrpStrTables", L"CUSTOMER1");
  named().Put(L"prpTab", Number(3));
  named().Put(L"prpintTabcount", Number(1));
  named().Put(L"prpTab", Number(9));
  EXPECT_EQ(listener.told, (std::vector<std::string>{"changed 1", "changed 4"}));
}

TEST_F(AutomationTest, FrozenEventsAreNotTold) {
  Listener listener(*control_.Get());
  const auto control = As<IOleControl>();
  EXPECT_EQ(control->FreezeEvents(TRUE), S_OK);
  EXPECT_EQ(control->FreezeEvents(TRUE), S_OK);
  EXPECT_EQ(control->FreezeEvents(FALSE), S_OK);
  named().Put(L"PrpStrTables", L"CUSTOMER1");
  EXPECT_EQ(control->FreezeEvents(FALSE), S_OK);
  named().Put(L"PrpStrTables", L"ORDERITM0");
  EXPECT_EQ(listener.told, std::vector<std::string>{"changed 1"});
}

// Values of other types.

TEST_F(AutomationTest, ValuesAreConvertedAsEverywhereInAutomation) {
  EXPECT_EQ(named().Put(L"prpTab", L"5"), S_OK);
  EXPECT_EQ(named().Put(L"prpStroutput", Number(12)), S_OK);
  EXPECT_EQ(Result(), L"12");
  EXPECT_EQ(named().Put(L"Syntax_Highlight", Number(1)), S_OK);
  VARIANT inner = Number(4);
  VARIANT reference;
  V_VT(&reference) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&reference) = &inner;
  EXPECT_EQ(named().Put(L"prpTab", reference), S_OK);
}

TEST_F(AutomationTest, ValuesThatCannotBeConvertedAreRefused) {
  EXPECT_EQ(named().Put(L"prpTab", L"x"), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(named().Put(L"prpTab", Number(70'000)), DISP_E_OVERFLOW);
  VARIANT null;
  V_VT(&null) = VT_NULL;
  EXPECT_EQ(named().Put(L"prpStroutput", null), DISP_E_TYPEMISMATCH);
  VARIANT missing;
  V_VT(&missing) = VT_ERROR;
  V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
  EXPECT_EQ(named().Call(L"ClearAll", {missing}), DISP_E_PARAMNOTOPTIONAL);
  EXPECT_EQ(Result(), L"");
}

TEST_F(AutomationTest, AWrongNumberOfValuesIsRefused) {
  EXPECT_EQ(named().Call(L"ClearAll"), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(named().Call(L"ClearAll", {Number(1), Number(2)}), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(named().Call(L"BuildGroupBy", {Number(1)}), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(named().Invoke(named().NumberOf(L"prpStroutput"), DISPATCH_PROPERTYGET, {Number(1)}),
            DISP_E_BADPARAMCOUNT);
}

TEST_F(AutomationTest, WhatIsNoMemberIsRefused) {
  VARIANT value;
  EXPECT_EQ(named().Get(L"PrpStrTables", value), DISP_E_MEMBERNOTFOUND);  // it can only be written
  EXPECT_EQ(named().Put(L"prpStrSQLPart", L"D"), DISP_E_MEMBERNOTFOUND);  // it can only be read
  for (const DISPID number : {-1, 0, 22, 1'000'000})
    EXPECT_EQ(named().Invoke(number, DISPATCH_METHOD, {}), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(named().Invoke(17, DISPATCH_PROPERTYGET, {}), DISP_E_MEMBERNOTFOUND);
}

// Hostile calls.

TEST_F(AutomationTest, NullPointersAreRefused) {
  const auto control = As<_ZOLT20MapControl>();
  EXPECT_EQ(control->get_prpStroutput(nullptr), E_POINTER);
  EXPECT_EQ(control->get_prpintTabcount(nullptr), E_POINTER);
  EXPECT_EQ(control->ClearAll(0, nullptr), E_POINTER);
  EXPECT_EQ(control->GetTypeInfoCount(nullptr), E_POINTER);
  EXPECT_EQ(control->GetTypeInfo(0, 0, nullptr), E_POINTER);
  EXPECT_EQ(control->GetIDsOfNames(IID_NULL, nullptr, 1, 0, nullptr), E_POINTER);
  EXPECT_EQ(
      control->Invoke(6, IID_NULL, 0, DISPATCH_PROPERTYGET, nullptr, nullptr, nullptr, nullptr),
      E_INVALIDARG);
  DISPPARAMS none{nullptr, nullptr, 1, 0};
  EXPECT_EQ(control->Invoke(1, IID_NULL, 0, DISPATCH_PROPERTYPUT, &none, nullptr, nullptr, nullptr),
            E_INVALIDARG);
  EXPECT_EQ(control->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(As<IConnectionPointContainer>()->FindConnectionPoint(IID_IPropertyNotifySink, nullptr),
            E_POINTER);
  EXPECT_EQ(As<IConnectionPointContainer>()->EnumConnectionPoints(nullptr), E_POINTER);
  EXPECT_EQ(As<IPersistPropertyBag>()->Load(nullptr, nullptr), E_POINTER);
  EXPECT_EQ(As<IPersistStreamInit>()->Save(nullptr, TRUE), E_POINTER);
  EXPECT_EQ(As<IOleObject>()->SetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
  EXPECT_EQ(As<IOleInPlaceActiveObject>()->TranslateAccelerator(nullptr), E_POINTER);
  EXPECT_EQ(As<IViewObject2>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr,
                                     nullptr, nullptr, nullptr, 0),
            E_INVALIDARG);
  Pointer<IConnectionPoint> point;
  As<IConnectionPointContainer>()->FindConnectionPoint(DIID___ZOLT20MapControl, point.Put());
  DWORD cookie = 0;
  EXPECT_EQ(point->Advise(nullptr, &cookie), E_POINTER);
  EXPECT_EQ(point->Unadvise(77), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(named().Put(L"prpTab", Number(1)), S_OK);
}

TEST_F(AutomationTest, AnotherLanguageThanTheNeutralOneOfNamesIsRefused) {
  DISPID number = 0;
  wchar_t name[] = L"prpTab";
  wchar_t* names = name;
  EXPECT_EQ(byName_->GetIDsOfNames(IID_IUnknown, &names, 1, 0, &number), DISP_E_UNKNOWNINTERFACE);
  DISPPARAMS none{};
  EXPECT_EQ(
      byName_->Invoke(16, IID_IUnknown, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr),
      DISP_E_UNKNOWNINTERFACE);
}

TEST_F(AutomationTest, AnotherThreadIsRefused) {
  const auto control = As<_ZOLT20MapControl>();
  HRESULT put = S_OK;
  HRESULT verb = S_OK;
  std::thread other([&] {
    put = control->put_prpTab(1);
    verb = As<IOleObject>()->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr);
  });
  other.join();
  EXPECT_EQ(put, RPC_E_WRONG_THREAD);
  EXPECT_EQ(verb, RPC_E_WRONG_THREAD);
  EXPECT_EQ(control->put_prpTab(1), S_OK);
}

#ifdef _WIN64
TEST_F(AutomationTest, AListenerThatThrowsIsAFailureOfTheCall) {
  class Thrower final : public IPropertyNotifySink {
   public:
    STDMETHODIMP QueryInterface(REFIID, void** object) override {
      *object = static_cast<IPropertyNotifySink*>(this);
      return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP OnChanged(DISPID) override { throw std::string("no"); }
    STDMETHODIMP OnRequestEdit(DISPID) override { return S_OK; }
  } thrower;
  Pointer<IConnectionPoint> point;
  As<IConnectionPointContainer>()->FindConnectionPoint(IID_IPropertyNotifySink, point.Put());
  DWORD cookie = 0;
  ASSERT_EQ(point->Advise(&thrower, &cookie), S_OK);
  EXPECT_EQ(As<_ZOLT20MapControl>()->put_prpTab(2), E_FAIL);
  ASSERT_EQ(point->Unadvise(cookie), S_OK);
  EXPECT_EQ(As<_ZOLT20MapControl>()->put_prpTab(1), S_OK);
}
#endif

TEST_F(AutomationTest, WhatAnotherCompilersCodeThrowsIsAFailureOfTheCall) {
  Listener listener(*control_.Get());
  // On 32 bits, where handlers are a list, it is as long afterwards as before.
  const auto& handlers = reinterpret_cast<NT_TIB*>(NtCurrentTeb())->ExceptionList;
  const auto* const before = handlers;
  for (const DWORD code : {0xE06D7363UL, 0x0EEDFADEUL, 0xE0434352UL}) {
    listener.onChange = [code](DISPID) { RaiseException(code, 0, 0, nullptr); };
    EXPECT_EQ(As<_ZOLT20MapControl>()->put_prpTab(2), E_FAIL) << code;
    EXPECT_EQ(handlers, before) << code;
  }
  listener.onChange = {};
  EXPECT_EQ(As<_ZOLT20MapControl>()->put_prpTab(1), S_OK);
}

TEST_F(AutomationTest, TheTextOfAnErrorIsNotThatOfTheNext) {
  Listener listener(*control_.Get());
  EXPECT_EQ(As<_ZOLT20MapControl>()->put_prpTab(7), RunTimeError(380));
  listener.onChange = [](DISPID) { ThrowOut(); };
  EXPECT_EQ(As<_ZOLT20MapControl>()->put_prpTab(2), E_FAIL);
  Pointer<IErrorInfo> info;
  EXPECT_EQ(GetErrorInfo(0, info.Put()), S_FALSE);
}

// Listeners.

TEST_F(AutomationTest, BothConnectionPointsAreEnumerated) {
  Pointer<IEnumConnectionPoints> points;
  ASSERT_EQ(As<IConnectionPointContainer>()->EnumConnectionPoints(points.Put()), S_OK);
  Pointer<IConnectionPoint> first;
  Pointer<IConnectionPoint> second;
  Pointer<IConnectionPoint> third;
  EXPECT_EQ(points->Next(1, first.Put(), nullptr), S_OK);
  EXPECT_EQ(points->Next(1, second.Put(), nullptr), S_OK);
  EXPECT_EQ(points->Next(1, third.Put(), nullptr), S_FALSE);
  IID id{};
  EXPECT_EQ(first->GetConnectionInterface(&id), S_OK);
  EXPECT_TRUE(IsEqualGUID(id, DIID___ZOLT20MapControl));
  EXPECT_EQ(second->GetConnectionInterface(&id), S_OK);
  EXPECT_TRUE(IsEqualGUID(id, IID_IPropertyNotifySink));
}

TEST_F(AutomationTest, ListenersAreEnumeratedAndGivenBack) {
  Listener listener(*control_.Get());
  const long before = listener.references;
  Pointer<IConnectionPoint> point;
  As<IConnectionPointContainer>()->FindConnectionPoint(DIID___ZOLT20MapControl, point.Put());
  {
    Pointer<IEnumConnections> connections;
    ASSERT_EQ(point->EnumConnections(connections.Put()), S_OK);
    CONNECTDATA data{};
    ULONG fetched = 0;
    EXPECT_EQ(connections->Next(1, &data, &fetched), S_OK);
    EXPECT_EQ(fetched, 1U);
    data.pUnk->Release();
    Pointer<IEnumConnections> copy;
    EXPECT_EQ(connections->Clone(copy.Put()), S_OK);
    EXPECT_EQ(copy->Next(1, &data, &fetched), S_FALSE);
    EXPECT_EQ(copy->Reset(), S_OK);
    EXPECT_EQ(copy->Skip(1), S_OK);
    EXPECT_EQ(copy->Skip(1), S_FALSE);
  }
  EXPECT_EQ(listener.references, before);
  listener.Leave();
  EXPECT_EQ(listener.references, 1);
}

// Life.

TEST_F(AutomationTest, EveryInterfaceIsOfTheSameObject) {
  const auto same = [this](const auto& other) {
    return com::Query<IUnknown>(other.Get()).Get() == control_.Get();
  };
  EXPECT_TRUE(same(As<IOleObject>()));
  EXPECT_TRUE(same(As<IViewObjectEx>()));
  EXPECT_TRUE(same(As<IOleInPlaceActiveObject>()));
  EXPECT_TRUE(same(As<IPersistPropertyBag>()));
  EXPECT_TRUE(same(As<IConnectionPointContainer>()));
  EXPECT_TRUE(same(As<IPersistStorage>()));
  EXPECT_TRUE(same(As<IPersistMemory>()));
  EXPECT_TRUE(same(As<IDataObject>()));
  EXPECT_TRUE(same(As<IQuickActivate>()));
  EXPECT_TRUE(same(As<IPointerInactive>()));
  EXPECT_FALSE(As<IPersistFile>());
}

TEST_F(AutomationTest, TheServerStaysAsLongAsAnythingOfItIsThere) {
  EXPECT_EQ(CanUnload(), S_FALSE);
  byName_ = {};
  control_ = {};
  EXPECT_EQ(CanUnload(), S_OK);
}

TEST_F(AutomationTest, TheServerStaysAsLongAsAnEnumerationIsThere) {
  Pointer<IConnectionPoint> point;
  As<IConnectionPointContainer>()->FindConnectionPoint(DIID___ZOLT20MapControl, point.Put());
  Pointer<IEnumConnections> connections;
  ASSERT_EQ(point->EnumConnections(connections.Put()), S_OK);
  point = {};
  byName_ = {};
  control_ = {};
  EXPECT_EQ(CanUnload(), S_FALSE);
  ULONG fetched = 0;
  CONNECTDATA data{};
  EXPECT_EQ(connections->Next(1, &data, &fetched), S_FALSE);
  connections = {};
  EXPECT_EQ(CanUnload(), S_OK);
}

TEST_F(AutomationTest, AnotherThreadIsRefusedByItsConnectionPointsToo) {
  Pointer<IConnectionPoint> point;
  As<IConnectionPointContainer>()->FindConnectionPoint(DIID___ZOLT20MapControl, point.Put());
  HRESULT unadvise = S_OK;
  HRESULT extent = S_OK;
  std::thread other([&] {
    unadvise = point->Unadvise(1);
    SIZEL size{};
    extent = As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &size);
  });
  other.join();
  EXPECT_EQ(unadvise, RPC_E_WRONG_THREAD);
  EXPECT_EQ(extent, RPC_E_WRONG_THREAD);
}

TEST_F(AutomationTest, ItCanBeAPartOfAnotherObject) {
  class Outer final : public IUnknown {
   public:
    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
      if (id == IID_IUnknown) {
        *object = this;
        AddRef();
        return S_OK;
      }
      return inner->QueryInterface(id, object);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references); }
    STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--references); }
    IUnknown* inner = nullptr;
    long references = 1;
  } outer;
  IDispatch* wrong = nullptr;
  EXPECT_EQ(CoCreateInstance(CLSID_ZOLT20MapControl, &outer, CLSCTX_INPROC_SERVER, IID_IDispatch,
                             reinterpret_cast<void**>(&wrong)),
            CLASS_E_NOAGGREGATION);
  ASSERT_EQ(CoCreateInstance(CLSID_ZOLT20MapControl, &outer, CLSCTX_INPROC_SERVER, IID_IUnknown,
                             reinterpret_cast<void**>(&outer.inner)),
            S_OK);
  {
    Pointer<IOleObject> object;
    ASSERT_EQ(outer.inner->QueryInterface(IID_IOleObject, reinterpret_cast<void**>(object.Put())),
              S_OK);
    EXPECT_EQ(outer.references, 2);
    EXPECT_EQ(com::Query<IUnknown>(object.Get()).Get(), &outer);
  }
  EXPECT_EQ(outer.references, 1);
  EXPECT_EQ(outer.inner->Release(), 0U);
}

}  // namespace
}  // namespace zolt20::tests
