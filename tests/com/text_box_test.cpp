// The box of statements as a control of its own, in a container as programs have it.
#include "tests/com/com_test.h"

#include <richedit.h>

#include <map>
#include <memory>

#include "ZOLT21TextBox.h"

namespace zolt20::tests {
namespace {

class Hearer final : public IDispatch, public IPropertyNotifySink {
 public:
  std::vector<std::string> told;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    *object = nullptr;
    if (id == IID_IUnknown || id == IID_IDispatch || id == DIID___ZOLT21SyntTextBox)
      *object = static_cast<IDispatch*>(this);
    if (id == IID_IPropertyNotifySink) *object = static_cast<IPropertyNotifySink*>(this);
    return *object == nullptr ? E_NOINTERFACE : S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                      UINT*) override {
    told.push_back("event " + std::to_string(event));
    return S_OK;
  }
  STDMETHODIMP OnChanged(DISPID property) override {
    told.push_back("changed " + std::to_string(property));
    return S_OK;
  }
  STDMETHODIMP OnRequestEdit(DISPID) override { return S_OK; }
};

// Values by key, as a form keeps them.
class Bag final : public IPropertyBag {
 public:
  ~Bag() {
    for (auto& [key, value] : values)
      VariantClear(&value);
  }
  std::map<std::wstring, VARIANT> values;

  STDMETHODIMP QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP Read(LPCOLESTR key, VARIANT* value, IErrorLog*) override {
    const auto found = values.find(key);
    if (found == values.end()) return E_INVALIDARG;
    return VariantCopy(value, &found->second);
  }
  STDMETHODIMP Write(LPCOLESTR key, VARIANT* value) override {
    VARIANT& kept = values[key];
    VariantInit(&kept);
    return VariantCopy(&kept, value);
  }
};

CLSID BoxClass() {
  CLSID id{};
  EXPECT_EQ(CLSIDFromProgID(L"ZOLT21TextBox.ZOLT21SyntTextBox", &id), S_OK);
  return id;
}

class TextBoxTest : public testing::Test {
 protected:
  TextBoxTest() { Make(); }
  ~TextBoxTest() override { container_.GiveUp(); }

  void Make(IPropertyBag* bag = nullptr) {
    container_.GiveUp();
    EXPECT_EQ(container_.Create(BoxClass(), bag), S_OK);
    byName_ = com::Query<IDispatch>(container_.Control());
    box_ = com::Query<_ZOLT21SyntTextBox>(container_.Control());
  }
  void Activate() {
    EXPECT_EQ(container_.Activate(OLEIVERB_INPLACEACTIVATE), S_OK);
    Pump();
  }
  Named named() const { return {*byName_.Get()}; }
  long ReadNumber(const wchar_t* name) const {
    VARIANT value;
    EXPECT_EQ(named().Get(name, value), S_OK);
    return V_VT(&value) == VT_I4 ? V_I4(&value) : V_BOOL(&value);
  }
  HWND Window() const { return reinterpret_cast<HWND>(static_cast<LONG_PTR>(ReadNumber(L"hWnd"))); }
  bool IsColored(LONG place) const {
    CHARRANGE range{place, place + 1};
    SendMessageW(Window(), EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
    CHARFORMAT2W format{};
    format.cbSize = sizeof format;
    SendMessageW(Window(), EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
    return (format.dwEffects & CFE_AUTOCOLOR) == 0;
  }

  Container container_{600, 400};
  Pointer<IDispatch> byName_;
  Pointer<_ZOLT21SyntTextBox> box_;
};

TEST_F(TextBoxTest, ATextIsReadBackExactly) {
  const std::wstring text(L"select a\r\n\tfrom b\rx\ny\0z", 23);
  const Bstr given(text);
  EXPECT_EQ(box_->put_Text(given.Get()), S_OK);
  Activate();
  EXPECT_EQ(named().Text(L"Text"), text);
  EXPECT_EQ(named().Put(L"Highlight", Truth(true)), S_OK);
  EXPECT_EQ(named().Text(L"Text"), text);
}

TEST_F(TextBoxTest, HighlightGivesWordsTheirColorsAndTakesThem) {
  EXPECT_EQ(ReadNumber(L"Highlight"), VARIANT_FALSE);
  EXPECT_EQ(named().Put(L"Text", L"select x"), S_OK);
  Activate();
  EXPECT_FALSE(IsColored(0));
  EXPECT_EQ(named().Put(L"Highlight", Truth(true)), S_OK);
  EXPECT_TRUE(IsColored(0));
  EXPECT_FALSE(IsColored(7));
  EXPECT_EQ(named().Put(L"Highlight", Truth(false)), S_OK);
  EXPECT_FALSE(IsColored(0));
}

TEST_F(TextBoxTest, LinesGoOnBelowAtTheRightMargin) {
  std::wstring line;
  for (int word = 0; word < 60; ++word)
    line += L"condition ";
  EXPECT_EQ(named().Put(L"Text", line.c_str()), S_OK);
  Activate();
  EXPECT_EQ(ReadNumber(L"rightmargin"), 0);
  EXPECT_GT(SendMessageW(Window(), EM_GETLINECOUNT, 0, 0), 1);
  EXPECT_EQ(named().Put(L"rightmargin", Number(100'000)), S_OK);
  EXPECT_EQ(ReadNumber(L"rightmargin"), 100'000);
  EXPECT_EQ(SendMessageW(Window(), EM_GETLINECOUNT, 0, 0), 1);
  EXPECT_EQ(named().Put(L"rightmargin", Number(0)), S_OK);
  EXPECT_GT(SendMessageW(Window(), EM_GETLINECOUNT, 0, 0), 1);
  EXPECT_EQ(named().Put(L"rightmargin", Number(-1)), static_cast<HRESULT>(0x800A0000 + 380));
  EXPECT_EQ(ReadNumber(L"rightmargin"), 0);
}

TEST_F(TextBoxTest, TheFocusIsToldEachTimeItComes) {
  Activate();
  Hearer hearer;
  const auto points = com::Query<IConnectionPointContainer>(container_.Control());
  const auto classes = com::Query<IProvideClassInfo2>(container_.Control());
  GUID events{};
  EXPECT_EQ(classes->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
  Pointer<IConnectionPoint> point;
  ASSERT_EQ(points->FindConnectionPoint(events, point.Put()), S_OK);
  DWORD cookie = 0;
  EXPECT_EQ(point->Advise(static_cast<IDispatch*>(&hearer), &cookie), S_OK);
  SetFocus(Window());
  EXPECT_EQ(hearer.told, std::vector<std::string>{"event 1"});
  SetFocus(container_.Window());
  SetFocus(Window());
  EXPECT_EQ(hearer.told.size(), 2U);
  EXPECT_EQ(point->Unadvise(cookie), S_OK);
}

TEST_F(TextBoxTest, WhatIsTypedIsTheTextAndIsTold) {
  Activate();
  Hearer hearer;
  Pointer<IConnectionPoint> point;
  com::Query<IConnectionPointContainer>(container_.Control())
      ->FindConnectionPoint(IID_IPropertyNotifySink, point.Put());
  DWORD cookie = 0;
  EXPECT_EQ(point->Advise(static_cast<IDispatch*>(&hearer), &cookie), S_OK);
  SetFocus(Window());
  SendMessageW(Window(), WM_CHAR, L'a', 0);
  SendMessageW(Window(), WM_KEYDOWN, VK_RETURN, 0);
  SendMessageW(Window(), WM_CHAR, L'\r', 0);
  SendMessageW(Window(), WM_CHAR, L'b', 0);
  EXPECT_EQ(named().Text(L"Text"), L"a\r\nb");
  EXPECT_EQ(hearer.told, (std::vector<std::string>{"changed 1", "changed 1", "changed 1"}));
  EXPECT_EQ(com::Query<IPersistStreamInit>(container_.Control())->IsDirty(), S_OK);
  EXPECT_EQ(point->Unadvise(cookie), S_OK);
}

TEST_F(TextBoxTest, ABoxThatIsNotEnabledTakesNothing) {
  Activate();
  EXPECT_TRUE(IsWindowEnabled(Window()));
  EXPECT_EQ(named().Put(L"Enabled", Truth(false)), S_OK);
  EXPECT_FALSE(IsWindowEnabled(Window()));
  EXPECT_EQ(ReadNumber(L"Enabled"), VARIANT_FALSE);
}

TEST_F(TextBoxTest, ValuesComeBackFromTheBagOfAForm) {
  EXPECT_EQ(named().Put(L"Text", L"select 1\r\n"), S_OK);
  EXPECT_EQ(named().Put(L"Highlight", Truth(true)), S_OK);
  EXPECT_EQ(named().Put(L"rightmargin", Number(100'000)), S_OK);
  EXPECT_EQ(named().Put(L"Enabled", Truth(false)), S_OK);
  Bag bag;
  EXPECT_EQ(com::Query<IPersistPropertyBag>(container_.Control())->Save(&bag, TRUE, TRUE), S_OK);
  EXPECT_EQ(bag.values.size(), 4U);
  EXPECT_EQ(com::Query<IPersistStreamInit>(container_.Control())->IsDirty(), S_FALSE);
  Make(&bag);
  EXPECT_EQ(named().Text(L"Text"), L"select 1\r\n");
  EXPECT_EQ(ReadNumber(L"Highlight"), VARIANT_TRUE);
  EXPECT_EQ(ReadNumber(L"rightmargin"), 100'000);
  EXPECT_EQ(ReadNumber(L"Enabled"), VARIANT_FALSE);
}

TEST_F(TextBoxTest, ValuesComeBackFromAStream) {
  EXPECT_EQ(named().Put(L"Text", L"select 1\r\n"), S_OK);
  EXPECT_EQ(named().Put(L"Highlight", Truth(true)), S_OK);
  Pointer<IStream> stream;
  ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, stream.Put()), S_OK);
  const auto stored = com::Query<IPersistStreamInit>(container_.Control());
  EXPECT_EQ(stored->Save(stream.Get(), TRUE), S_OK);
  ULARGE_INTEGER written{};
  stream->Seek({}, STREAM_SEEK_CUR, &written);
  ULARGE_INTEGER most{};
  EXPECT_EQ(stored->GetSizeMax(&most), S_OK);
  EXPECT_EQ(written.QuadPart, most.QuadPart);
  EXPECT_EQ(named().Put(L"Text", L""), S_OK);
  EXPECT_EQ(named().Put(L"Highlight", Truth(false)), S_OK);
  stream->Seek({}, STREAM_SEEK_SET, nullptr);
  EXPECT_EQ(stored->Load(stream.Get()), S_OK);
  EXPECT_EQ(named().Text(L"Text"), L"select 1\r\n");
  EXPECT_EQ(ReadNumber(L"Highlight"), VARIANT_TRUE);
  // One that ends too soon changes nothing.
  ULARGE_INTEGER half{};
  half.QuadPart = written.QuadPart / 2;
  stream->SetSize(half);
  stream->Seek({}, STREAM_SEEK_SET, nullptr);
  EXPECT_TRUE(FAILED(stored->Load(stream.Get())));
  EXPECT_EQ(named().Text(L"Text"), L"select 1\r\n");
}

TEST_F(TextBoxTest, TabLeavesTheBoxByItsContainer) {
  Activate();
  SetFocus(Window());
  container_.told.clear();
  SendMessageW(Window(), WM_KEYDOWN, VK_TAB, 0);
  SendMessageW(Window(), WM_CHAR, L'\t', 0);
  EXPECT_FALSE(container_.told.empty());
  EXPECT_EQ(named().Text(L"Text"), L"");
}

TEST_F(TextBoxTest, AWindowThatItsParentTakesAlongIsMadeAgain) {
  Activate();
  EXPECT_EQ(named().Put(L"Text", L"a"), S_OK);
  DestroyWindow(GetParent(Window()));
  EXPECT_EQ(ReadNumber(L"hWnd"), 0);
  Activate();
  EXPECT_TRUE(IsWindow(Window()));
  EXPECT_EQ(GetWindowTextLengthW(Window()), 1);
}

}  // namespace
}  // namespace zolt20::tests
