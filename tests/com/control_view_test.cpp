// The interface beside the contract: names of tables, and Undo.
#include "tests/com/com_test.h"

#include <commctrl.h>

#include <thread>

namespace zolt20::tests {
namespace {

using Texts = std::vector<std::wstring>;

// An array of texts, or of VARIANTs with texts in them, in a VARIANT.
class TextArray {
 public:
  explicit TextArray(const Texts& texts, VARTYPE element = VT_BSTR, LONG first = 0) {
    VariantInit(&value_);
    SAFEARRAYBOUND bound{static_cast<ULONG>(texts.size()), first};
    V_VT(&value_) = static_cast<VARTYPE>(VT_ARRAY | element);
    V_ARRAY(&value_) = SafeArrayCreate(element, 1, &bound);
    for (LONG place = 0; place < static_cast<LONG>(texts.size()); ++place) {
      const Bstr text(texts[static_cast<std::size_t>(place)]);
      VARIANT whole;
      V_VT(&whole) = VT_BSTR;
      V_BSTR(&whole) = text.Get();
      LONG at = first + place;
      void* const data = element == VT_BSTR ? static_cast<void*>(text.Get()) : &whole;
      EXPECT_EQ(SafeArrayPutElement(V_ARRAY(&value_), &at, data), S_OK);
    }
  }
  ~TextArray() { VariantClear(&value_); }
  TextArray(const TextArray&) = delete;
  TextArray& operator=(const TextArray&) = delete;
  VARIANT& operator*() { return value_; }

 private:
  VARIANT value_;
};

VARIANT Nothing() {
  VARIANT value;
  VariantInit(&value);
  return value;
}

class ControlViewTest : public testing::Test {
 protected:
  ControlViewTest() {
    EXPECT_EQ(container_.Create(CLSID_ZOLT20MapControl), S_OK);
    byName_ = com::Query<IDispatch>(container_.Control());
    EXPECT_EQ(container_.Control()->QueryInterface(IID_IZOLT20MapControlView,
                                                   reinterpret_cast<void**>(view_.Put())),
              S_OK);
    EXPECT_EQ(named().Put(L"PrpStrTables", L"ORDERITM1,ORDERLIN0,DISTRICT2"), S_OK);
    EXPECT_EQ(named().Put(L"PrpStrFields",
                          L"long*Q*V*R*N*YORDERITM.NO*Q*V*R*N*number,"
                          L"long*Q*V*R*N*YORDERLIN.NO*Q*V*R*N*number,"
                          L"long*Q*V*R*N*YDISTRICT.NO*Q*V*R*N*number"),
              S_OK);
  }
  void Activate() {
    ASSERT_EQ(container_.Activate(), S_OK);
    Pump();
  }
  Named named() const { return {*byName_.Get()}; }
  HWND On(const wchar_t* name) const { return WindowOf(container_.Window(), name); }
  HRESULT Name(const Texts& codes, const Texts& names) {
    TextArray codeArray(codes);
    TextArray nameArray(names);
    return view_->SetTableNames(*codeArray, *nameArray);
  }
  // What a column of the tables shows.
  Texts Column(int column) const {
    const HWND list = On(L"lsttables");
    Texts texts;
    const auto count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    for (int row = 0; row < count; ++row) {
      wchar_t text[256] = L"";
      LVITEMW item{};
      item.iSubItem = column;
      item.pszText = text;
      item.cchTextMax = 256;
      SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&item));
      texts.emplace_back(text);
    }
    return texts;
  }
  int WidthOfColumn(int column) const {
    return static_cast<int>(
        SendMessageW(On(L"lsttables"), LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
  }
  void Filter(const wchar_t* text) const { SetWindowTextW(On(L"lsttables.filter"), text); }
  void ClickRow(int row) const {
    const HWND list = On(L"lsttables");
    RECT place{LVIR_LABEL, 0, 0, 0};
    SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
    const LPARAM at = MAKELPARAM(place.left + 2, (place.top + place.bottom) / 2);
    SendMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageW(list, WM_LBUTTONUP, 0, at);
  }
  int Marked() const {
    return static_cast<int>(SendMessageW(On(L"lsttables"), LVM_GETSELECTEDCOUNT, 0, 0));
  }
  bool Can(HRESULT (STDMETHODCALLTYPE IZOLT20MapControlView::*asked)(VARIANT_BOOL*)) const {
    VARIANT_BOOL can = VARIANT_FALSE;
    EXPECT_EQ((view_.Get()->*asked)(&can), S_OK);
    return can == VARIANT_TRUE;
  }
  bool CanUndo() const { return Can(&IZOLT20MapControlView::get_CanUndo); }
  bool CanRedo() const { return Can(&IZOLT20MapControlView::get_CanRedo); }

  Container container_{880, 620};
  Pointer<IDispatch> byName_;
  Pointer<IZOLT20MapControlView> view_;
};

// Names of tables.

TEST_F(ControlViewTest, NamesStandInAColumnBesideTheCodes) {
  Activate();
  EXPECT_EQ(Name({L"ORDERITM", L"DISTRICT"}, {L"Items of orders", L"Districts"}), S_OK);
  EXPECT_EQ(Column(0), (Texts{L"ORDERITM", L"ORDERLIN", L"DISTRICT"}));
  EXPECT_EQ(Column(1), (Texts{L"Items of orders", L"", L"Districts"}));
  RECT inside{};
  GetClientRect(On(L"lsttables"), &inside);
  EXPECT_EQ(WidthOfColumn(0) + WidthOfColumn(1), inside.right);
  EXPECT_GE(WidthOfColumn(1), inside.right / 2);
}

TEST_F(ControlViewTest, WithoutNamesThereIsNoColumnForThem) {
  Activate();
  RECT inside{};
  GetClientRect(On(L"lsttables"), &inside);
  EXPECT_EQ(WidthOfColumn(0), inside.right);
  EXPECT_EQ(WidthOfColumn(1), 0);
  EXPECT_EQ(Name({L"ORDERITM"}, {L"Items"}), S_OK);
  EXPECT_LT(WidthOfColumn(0), inside.right);
  EXPECT_EQ(view_->SetTableNames(Nothing(), Nothing()), S_OK);
  EXPECT_EQ(WidthOfColumn(0), inside.right);
  EXPECT_EQ(WidthOfColumn(1), 0);
}

TEST_F(ControlViewTest, NamesThatAreGivenBeforeItIsActiveAreThereThen) {
  EXPECT_EQ(Name({L"ORDERLIN"}, {L"Lines"}), S_OK);
  Activate();
  EXPECT_EQ(Column(1), (Texts{L"", L"Lines", L""}));
  EXPECT_EQ(com::Query<IOleInPlaceObject>(container_.Control())->InPlaceDeactivate(), S_OK);
  Activate();
  EXPECT_EQ(Column(1), (Texts{L"", L"Lines", L""}));
  EXPECT_EQ(named().Put(L"PrpStrTables", L"ORDERLIN0"), S_OK);
  EXPECT_EQ(Column(1), (Texts{L"", L"Lines", L"", L"Lines"}));
}

TEST_F(ControlViewTest, TheFilterFindsNames) {
  Activate();
  EXPECT_EQ(Name({L"ORDERITM", L"DISTRICT"}, {L"Things sold", L"Regions"}), S_OK);
  Filter(L"region");
  EXPECT_EQ(Column(0), Texts{L"DISTRICT"});
  ClickRow(0);
  Filter(L"");
  EXPECT_EQ(SendMessageW(On(L"lsttables"), LVM_GETITEMSTATE, 2, LVIS_SELECTED), LVIS_SELECTED);
  Filter(L"sold");
  EXPECT_EQ(Column(0), Texts{L"ORDERITM"});
  EXPECT_EQ(Name({}, {}), S_OK);
  EXPECT_EQ(Column(0), Texts{});
}

TEST_F(ControlViewTest, ArraysComeAsTheLanguageOfTheProgramHasThem) {
  Activate();
  TextArray codes({L"ORDERITM", L"DISTRICT"}, VT_VARIANT, 1);
  TextArray names({L"a", L"b"}, VT_BSTR, -5);
  EXPECT_EQ(view_->SetTableNames(*codes, *names), S_OK);
  EXPECT_EQ(Column(1), (Texts{L"a", L"", L"b"}));

  TextArray others({L"c", L"d"}, VT_VARIANT);
  VARIANT reference;
  V_VT(&reference) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&reference) = &*others;
  EXPECT_EQ(view_->SetTableNames(*codes, reference), S_OK);
  EXPECT_EQ(Column(1), (Texts{L"c", L"", L"d"}));
}

TEST_F(ControlViewTest, WhatIsNoTwoArraysOfTextsIsRefused) {
  Activate();
  EXPECT_EQ(Name({L"ORDERITM"}, {L"Items"}), S_OK);
  EXPECT_EQ(Name({L"ORDERITM", L"DISTRICT"}, {L"one"}), E_INVALIDARG);
  TextArray codes({L"ORDERITM"});
  EXPECT_EQ(view_->SetTableNames(*codes, Nothing()), E_INVALIDARG);
  EXPECT_EQ(view_->SetTableNames(*codes, Number(1)), DISP_E_TYPEMISMATCH);
  SAFEARRAYBOUND bounds[2] = {{1, 0}, {1, 0}};
  VARIANT table;
  V_VT(&table) = VT_ARRAY | VT_BSTR;
  V_ARRAY(&table) = SafeArrayCreate(VT_BSTR, 2, bounds);
  EXPECT_EQ(view_->SetTableNames(*codes, table), DISP_E_TYPEMISMATCH);
  VariantClear(&table);
  EXPECT_EQ(Column(1), (Texts{L"Items", L"", L""}));
}

TEST_F(ControlViewTest, NamesAreNoWriteOfTheContract) {
  Activate();
  Listener listener(*container_.Control());
  ClickRow(0);
  EXPECT_EQ(Name({L"ORDERITM"}, {L"Items"}), S_OK);
  EXPECT_TRUE(CanUndo());
  EXPECT_EQ(listener.told, std::vector<std::string>{});
  listener.Leave();
}

// What the person can take back.

TEST_F(ControlViewTest, AProgramTakesBackWhatThePersonDid) {
  Activate();
  EXPECT_FALSE(CanUndo());
  EXPECT_EQ(view_->Undo(), S_FALSE);
  ClickRow(0);
  ClickRow(1);
  ASSERT_EQ(Marked(), 2);
  EXPECT_TRUE(CanUndo());
  EXPECT_FALSE(CanRedo());
  EXPECT_EQ(view_->Undo(), S_OK);
  EXPECT_EQ(Marked(), 1);
  EXPECT_TRUE(CanRedo());
  EXPECT_EQ(view_->Redo(), S_OK);
  EXPECT_EQ(Marked(), 2);
  EXPECT_EQ(view_->Redo(), S_FALSE);
  EXPECT_EQ(named().Put(L"prpintTabcount", Number(1)), S_OK);
  EXPECT_FALSE(CanUndo());
}

TEST_F(ControlViewTest, WhereUndoIsSwitchedOffNothingIsKept) {
  Activate();
  EXPECT_TRUE(Can(&IZOLT20MapControlView::get_UndoEnabled));
  ClickRow(0);
  EXPECT_EQ(view_->put_UndoEnabled(VARIANT_FALSE), S_OK);
  EXPECT_FALSE(Can(&IZOLT20MapControlView::get_UndoEnabled));
  ClickRow(1);
  EXPECT_FALSE(CanUndo());
  EXPECT_EQ(view_->put_UndoEnabled(VARIANT_TRUE), S_OK);
  ClickRow(2);
  EXPECT_EQ(view_->Undo(), S_OK);
  EXPECT_EQ(Marked(), 2);
}

TEST_F(ControlViewTest, WithinAnEventNothingIsTakenBack) {
  Activate();
  ClickRow(0);
  HRESULT result = E_FAIL;
  Listener listener(*container_.Control());
  listener.onEvent = [&](DISPID) { result = view_->Undo(); };
  ClickOn(container_.Window(), L"cmdDone");
  EXPECT_EQ(result, S_FALSE);
  EXPECT_EQ(Marked(), 1);
  listener.Leave();
}

// The interface as callers find it.

TEST_F(ControlViewTest, ItIsOfTheSameObjectAndNotTheOneByDefault) {
  const auto unknown = com::Query<IUnknown>(view_.Get());
  EXPECT_EQ(unknown.Get(), com::Query<IUnknown>(container_.Control()).Get());
  EXPECT_EQ(named().NumberOf(L"SetTableNames"), DISPID_UNKNOWN);
  EXPECT_EQ(com::Query<IDispatch>(view_.Get()).Get(), byName_.Get());
}

TEST_F(ControlViewTest, ItsMembersAreCalledByName) {
  Activate();
  const Named view{*view_.Get()};
  TextArray codes({L"ORDERITM"}, VT_VARIANT);
  TextArray names({L"Items"}, VT_VARIANT);
  EXPECT_EQ(view.Call(L"SetTableNames", {*names, *codes}), S_OK);  // the last one comes first
  EXPECT_EQ(Column(1), (Texts{L"Items", L"", L""}));
  ClickRow(0);
  VARIANT value = Nothing();
  EXPECT_EQ(view.Get(L"CanUndo", value), S_OK);
  EXPECT_EQ(V_BOOL(&value), VARIANT_TRUE);
  EXPECT_EQ(view.Call(L"Undo"), S_OK);
  EXPECT_EQ(Marked(), 0);
  EXPECT_EQ(view.Put(L"UndoEnabled", Truth(false)), S_OK);
  EXPECT_EQ(view.Get(L"UndoEnabled", value), S_OK);
  EXPECT_EQ(V_BOOL(&value), VARIANT_FALSE);
  EXPECT_EQ(view.NumberOf(L"prpTab"), DISPID_UNKNOWN);
}

TEST_F(ControlViewTest, AnotherThreadIsRefused) {
  HRESULT undone = S_OK;
  HRESULT named = S_OK;
  HRESULT called = S_OK;
  std::thread([&] {
    undone = view_->Undo();
    named = view_->SetTableNames(Nothing(), Nothing());
    DISPPARAMS none{};
    called = view_->Invoke(5, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr);
  }).join();
  EXPECT_EQ(undone, RPC_E_WRONG_THREAD);
  EXPECT_EQ(named, RPC_E_WRONG_THREAD);
  EXPECT_EQ(called, RPC_E_WRONG_THREAD);
}

}  // namespace
}  // namespace zolt20::tests
