// Persistence of the control in a property bag and in a stream.
#include <map>

#include "shell/contract.h"
#include "tests/com/com_test.h"

namespace zolt20::tests {
namespace {

// A bag that logs the order of reads and writes.
class Bag final : public IPropertyBag {
 public:
  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    *object = id == IID_IUnknown || id == IID_IPropertyBag ? this : nullptr;
    return *object == nullptr ? E_NOINTERFACE : S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) override {
    read.push_back(name);
    const auto found = values.find(name);
    if (found == values.end()) return E_INVALIDARG;
    return VariantCopy(value, &found->second);
  }
  STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) override {
    written.push_back(name);
    if (failAt == written.size()) return STG_E_MEDIUMFULL;
    VariantCopy(&values[name], value);
    return S_OK;
  }
  void Text(const wchar_t* name, const wchar_t* text) {
    V_VT(&values[name]) = VT_BSTR;
    V_BSTR(&values[name]) = SysAllocString(text);
  }
  std::wstring TextOf(const wchar_t* name) {
    return V_VT(&values[name]) == VT_BSTR ? std::wstring(V_BSTR(&values[name])) : L"?";
  }

  std::vector<std::wstring> read;
  std::vector<std::wstring> written;
  std::map<std::wstring, VARIANT> values;
  std::size_t failAt = 0;
};

std::vector<std::wstring> Keys(std::string_view BagEntry::*key) {
  std::vector<std::wstring> keys;
  for (const BagEntry& entry : BagEntries())
    keys.push_back(std::wstring((entry.*key).begin(), (entry.*key).end()));
  return keys;
}

class PersistenceTest : public ControlTest {
 protected:
  static Pointer<IStream> NewStream() {
    Pointer<IStream> stream;
    CreateStreamOnHGlobal(nullptr, TRUE, stream.Put());
    return stream;
  }
  static void Rewind(IStream& stream) { stream.Seek({}, STREAM_SEEK_SET, nullptr); }
};

TEST_F(PersistenceTest, TheBagIsReadAndWrittenUnderItsKeysInTheirOrder) {
  Bag bag;
  EXPECT_EQ(As<IPersistPropertyBag>()->Load(&bag, nullptr), S_OK);
  EXPECT_EQ(bag.read, Keys(&BagEntry::readKey));
  EXPECT_EQ(As<IPersistPropertyBag>()->Save(&bag, TRUE, TRUE), S_OK);
  EXPECT_EQ(bag.written, Keys(&BagEntry::writeKey));
  for (const BagEntry& entry : BagEntries()) {
    const VARIANT& value = bag.values[std::wstring(entry.writeKey.begin(), entry.writeKey.end())];
    EXPECT_EQ(V_VT(&value), entry.type == ValueType::kInteger ? VT_I2 : VT_BSTR) << entry.writeKey;
  }
  EXPECT_EQ(bag.TextOf(L"prpSelectPart"), L"0");
}

TEST_F(PersistenceTest, AContainerLoadsItsControlFromItsBag) {
  Bag bag;
  bag.Text(L"prpStrSQLPart", L"O");
  Container container(880, 620);
  ASSERT_EQ(container.Create(CLSID_ZOLT20MapControl, &bag), S_OK);
  EXPECT_EQ(bag.read, Keys(&BagEntry::readKey));
  ASSERT_EQ(container.Activate(), S_OK);
  const auto byName = com::Query<IDispatch>(container.Control());
  EXPECT_EQ((Named{*byName.Get()}.Text(L"prpStrSQLPart")), L"O");
  const auto persist = com::Query<IPersistPropertyBag>(container.Control());
  EXPECT_EQ(persist->Save(&bag, TRUE, TRUE), S_OK);
  EXPECT_EQ(bag.written, Keys(&BagEntry::writeKey));
  EXPECT_EQ(bag.TextOf(L"prpStrSQLPart"), L"O");
}

TEST_F(PersistenceTest, WhatWasWrittenIsWhatIsKept) {
  Catalogue();
  named().Put(L"prpSelectWherePart", L"a = 1~b");
  named().Put(L"prpTab", Number(4));
  Bag bag;
  EXPECT_EQ(As<IPersistPropertyBag>()->Save(&bag, TRUE, TRUE), S_OK);
  EXPECT_EQ(bag.TextOf(L"PrpStrTables"), L"CUSTOMER1,ORDERITM0");
  EXPECT_EQ(bag.TextOf(L"prpSelectWherePart"), L"a = 1\r\nb");
  EXPECT_EQ(V_I2(&bag.values[L"prpTab"]), 4);
}

TEST_F(PersistenceTest, AStoredControlHasItsPageCodeAndForgetsItsLists) {
  Bag bag;
  bag.Text(L"prpStrSQLPart", L"E");
  bag.Text(L"PrpStrTables", L"CUSTOMER1");
  V_VT(&bag.values[L"prpTab"]) = VT_I4;
  V_I4(&bag.values[L"prpTab"]) = 3;
  EXPECT_EQ(As<IPersistPropertyBag>()->Load(&bag, nullptr), S_OK);
  EXPECT_EQ(named().Text(L"prpStrSQLPart"), L"E");
  Bag again;
  EXPECT_EQ(As<IPersistPropertyBag>()->Save(&again, TRUE, TRUE), S_OK);
  EXPECT_EQ(again.TextOf(L"PrpStrTables"), L"0");
  EXPECT_EQ(V_I2(&again.values[L"prpTab"]), 3);
}

TEST_F(PersistenceTest, ABagOfWrongValuesIsAnError) {
  Bag bag;
  V_VT(&bag.values[L"prpTab"]) = VT_I4;
  V_I4(&bag.values[L"prpTab"]) = 70'000;
  EXPECT_EQ(As<IPersistPropertyBag>()->Load(&bag, nullptr), static_cast<HRESULT>(0x800A0006));
  bag.Text(L"prpTab", L"x");
  EXPECT_EQ(As<IPersistPropertyBag>()->Load(&bag, nullptr), DISP_E_TYPEMISMATCH);
  Bag full;
  full.failAt = 3;
  EXPECT_EQ(As<IPersistPropertyBag>()->Save(&full, TRUE, TRUE), STG_E_MEDIUMFULL);
  EXPECT_EQ(full.written.size(), 3U);
}

TEST_F(PersistenceTest, AStreamHoldsTheSame) {
  Catalogue();
  named().Put(L"prpSelectDoPart", L"x~y");
  named().Put(L"prpTab", Number(2));
  const auto stream = NewStream();
  ULARGE_INTEGER size{};
  EXPECT_EQ(As<IPersistStreamInit>()->GetSizeMax(&size), S_OK);
  EXPECT_EQ(As<IPersistStreamInit>()->Save(stream.Get(), TRUE), S_OK);
  STATSTG state{};
  stream->Stat(&state, STATFLAG_NONAME);
  EXPECT_EQ(state.cbSize.QuadPart, size.QuadPart);

  const auto other = NewControl();
  Rewind(*stream.Get());
  EXPECT_EQ(com::Query<IPersistStreamInit>(other.Get())->Load(stream.Get()), S_OK);
  Bag bag;
  EXPECT_EQ(com::Query<IPersistPropertyBag>(other.Get())->Save(&bag, TRUE, TRUE), S_OK);
  EXPECT_EQ(bag.TextOf(L"prpSelectDoPart"), L"x~y");
  EXPECT_EQ(bag.TextOf(L"PrpStrFields"), L"0");
  EXPECT_EQ(V_I2(&bag.values[L"prpTab"]), 2);
}

TEST_F(PersistenceTest, AStreamThatEndsOrIsAnotherOnesIsAnError) {
  const auto stream = NewStream();
  EXPECT_EQ(As<IPersistStreamInit>()->Save(stream.Get(), TRUE), S_OK);
  STATSTG state{};
  stream->Stat(&state, STATFLAG_NONAME);
  for (ULONGLONG size : {0ULL, 3ULL, 9ULL, 40ULL, state.cbSize.QuadPart - 1}) {
    ULARGE_INTEGER cut{};
    cut.QuadPart = size;
    const auto part = NewStream();
    Rewind(*stream.Get());
    stream->CopyTo(part.Get(), cut, nullptr, nullptr);
    Rewind(*part.Get());
    EXPECT_EQ(As<IPersistStreamInit>()->Load(part.Get()), STG_E_READFAULT) << size;
  }
  const auto other = NewStream();
  const std::string words = "something else, and long enough";
  other->Write(words.data(), static_cast<ULONG>(words.size()), nullptr);
  Rewind(*other.Get());
  EXPECT_EQ(As<IPersistStreamInit>()->Load(other.Get()), STG_E_INVALIDHEADER);
  EXPECT_EQ(named().Text(L"prpStrSQLPart"), L"0");
}

TEST_F(PersistenceTest, ItIsDirtyWhenAPropertyWasWrittenThatReports) {
  const auto persist = As<IPersistStreamInit>();
  EXPECT_EQ(persist->InitNew(), S_OK);
  EXPECT_EQ(persist->IsDirty(), S_FALSE);
  named().Put(L"prpintTabcount", Number(1));
  EXPECT_EQ(persist->IsDirty(), S_FALSE);
  named().Put(L"prpTab", Number(1));
  EXPECT_EQ(persist->IsDirty(), S_OK);
  Bag bag;
  As<IPersistPropertyBag>()->Save(&bag, FALSE, TRUE);
  EXPECT_EQ(persist->IsDirty(), S_OK);
  As<IPersistPropertyBag>()->Save(&bag, TRUE, TRUE);
  EXPECT_EQ(persist->IsDirty(), S_FALSE);
  CLSID id{};
  EXPECT_EQ(persist->GetClassID(&id), S_OK);
  EXPECT_TRUE(IsEqualGUID(id, CLSID_ZOLT20MapControl));
}

}  // namespace
}  // namespace zolt20::tests
