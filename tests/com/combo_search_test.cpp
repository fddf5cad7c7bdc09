// The lists of operands: a person opens them with a line to search in.
#include "tests/com/com_test.h"

#include <commctrl.h>

namespace zolt20::tests {
namespace {

using Texts = std::vector<std::wstring>;

class ComboSearchTest : public testing::Test {
 protected:
  ComboSearchTest() {
    EXPECT_EQ(container_.Create(CLSID_ZOLT20MapControl), S_OK);
    byName_ = com::Query<IDispatch>(container_.Control());
    EXPECT_EQ(container_.Activate(), S_OK);
    EXPECT_EQ(named().Put(L"PrpStrTables", L"ORDERITM1,DISTRICT2"), S_OK);
    EXPECT_EQ(named().Put(L"PrpStrFields",
                          L"long*Q*V*R*N*YORDERITM.NO*Q*V*R*N*number,"
                          L"long*Q*V*R*N*YORDERITM.DAY*Q*V*R*N*number,"
                          L"long*Q*V*R*N*YDISTRICT.NO*Q*V*R*N*number"),
              S_OK);
    Pump();
    for (int row = 0; row < 2; ++row) {
      RECT place{LVIR_LABEL, 0, 0, 0};
      SendMessageW(On(L"lsttables"), LVM_GETITEMRECT, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&place));
      Press(On(L"lsttables"), MAKELPARAM(place.left + 2, (place.top + place.bottom) / 2));
    }
    EXPECT_EQ(named().Put(L"prpTab", Number(1)), S_OK);
    Pump();
  }

  Named named() const { return {*byName_.Get()}; }
  HWND On(const std::wstring& name) const { return WindowOf(container_.Window(), name.c_str()); }
  HWND Line(const std::wstring& combo) const { return On(combo + L".search"); }
  HWND Entries(const std::wstring& combo) const { return On(combo + L".entries"); }
  bool IsOpen(const std::wstring& combo) const {
    return Entries(combo) != nullptr && IsWindowVisible(Entries(combo)) != FALSE;
  }
  static void Press(HWND window, LPARAM at) {
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageW(window, WM_LBUTTONUP, 0, at);
    Pump();
  }
  // By the arrow.
  void Open(const std::wstring& combo) const {
    const COMBOBOXINFO info = InfoOf(combo);
    Press(On(combo), MAKELPARAM(info.rcButton.left + 3, info.rcButton.top + 3));
  }
  static void Key(WPARAM key, UINT message = WM_KEYDOWN) {
    SendMessageW(GetFocus(), message, key, 0);
    Pump();
  }
  static void Type(const wchar_t* text) {
    for (; *text != L'\0'; ++text)
      SendMessageW(GetFocus(), WM_CHAR, static_cast<WPARAM>(*text), 0);
    Pump();
  }
  static std::wstring TextOf(HWND window) {
    wchar_t text[256] = L"";
    GetWindowTextW(window, text, 256);
    return text;
  }
  // What the list of the platform has by itself.
  int RowsHeldBy(const std::wstring& combo) const {
    return static_cast<int>(SendMessageW(InfoOf(combo).hwndList, LB_GETCOUNT, 0, 0));
  }
  HWND LineOf(const std::wstring& combo) const { return InfoOf(combo).hwndItem; }
  COMBOBOXINFO InfoOf(const std::wstring& combo) const {
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    GetComboBoxInfo(On(combo), &info);
    return info;
  }
  Texts Left(const std::wstring& combo) const {
    Texts texts;
    const HWND entries = Entries(combo);
    const auto count = static_cast<int>(SendMessageW(entries, LVM_GETITEMCOUNT, 0, 0));
    for (int row = 0; row < count; ++row) {
      wchar_t text[256] = L"";
      LVITEMW item{};
      item.pszText = text;
      item.cchTextMax = 256;
      SendMessageW(entries, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&item));
      texts.emplace_back(text);
    }
    return texts;
  }
  bool CanUndo() const {
    const auto view = com::Query<IZOLT20MapControlView>(container_.Control());
    VARIANT_BOOL can = VARIANT_FALSE;
    EXPECT_EQ(view->get_CanUndo(&can), S_OK);
    return can == VARIANT_TRUE;
  }

  const std::wstring fields_ = L"cboWhereFields";
  const std::wstring values_ = L"cboWhereFields1";
  Container container_{880, 620};
  Pointer<IDispatch> byName_;
};

TEST_F(ComboSearchTest, LettersLeaveTheEntriesThatHoldThem) {
  Open(fields_);
  ASSERT_TRUE(IsOpen(fields_));
  EXPECT_EQ(GetFocus(), Line(fields_));
  const std::size_t all = Left(fields_).size();
  EXPECT_EQ(all, static_cast<std::size_t>(SendMessageW(On(fields_), CB_GETCOUNT, 0, 0)));
  Type(L"day");
  EXPECT_EQ(Left(fields_), Texts{L"ORDERITM.DAY"});
  Type(L"x");
  EXPECT_EQ(Left(fields_), Texts{});
  Key(VK_RETURN);
  EXPECT_TRUE(IsOpen(fields_));
  Type(L"\b\b\b\b");
  EXPECT_EQ(Left(fields_).size(), all);
}

TEST_F(ComboSearchTest, EnterPicksTheEntryOfTheControl) {
  Open(fields_);
  Type(L"district.no");
  ASSERT_EQ(Left(fields_), Texts{L"DISTRICT.NO"});
  Key(VK_RETURN);
  EXPECT_FALSE(IsOpen(fields_));
  EXPECT_EQ(TextOf(On(fields_)), L"DISTRICT.NO");
  EXPECT_EQ(NameOf(GetFocus()), L"cboOper");  // as always after a pick
}

TEST_F(ComboSearchTest, AClickPicksTheEntryBelowIt) {
  Open(fields_);
  Type(L"no");
  ASSERT_EQ(Left(fields_), (Texts{L"ORDERITM.NO", L"DISTRICT.NO"}));
  RECT place{LVIR_LABEL, 0, 0, 0};
  SendMessageW(Entries(fields_), LVM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&place));
  Press(Entries(fields_), MAKELPARAM(place.left + 2, (place.top + place.bottom) / 2));
  EXPECT_FALSE(IsOpen(fields_));
  EXPECT_EQ(TextOf(On(fields_)), L"DISTRICT.NO");
}

TEST_F(ComboSearchTest, ArrowsGoToEntriesAndLettersBackToTheLine) {
  Open(fields_);
  Type(L"no");
  Key(VK_DOWN);
  EXPECT_EQ(GetFocus(), Entries(fields_));
  EXPECT_EQ(SendMessageW(Entries(fields_), LVM_GETITEMSTATE, 1, LVIS_FOCUSED), LVIS_FOCUSED);
  Type(L"\b");
  EXPECT_EQ(GetFocus(), Line(fields_));
  EXPECT_EQ(TextOf(Line(fields_)), L"n");
  Type(L"o");
  Key(VK_DOWN);
  Key(VK_RETURN);
  EXPECT_EQ(TextOf(On(fields_)), L"DISTRICT.NO");
}

TEST_F(ComboSearchTest, EscapePicksNothingAndTheNextSearchIsEmpty) {
  const bool before = CanUndo();
  const std::wstring text = TextOf(On(fields_));
  Open(fields_);
  Type(L"day");
  Key(VK_DOWN);
  Key(VK_ESCAPE);
  EXPECT_FALSE(IsOpen(fields_));
  EXPECT_EQ(GetFocus(), On(fields_));
  EXPECT_EQ(TextOf(On(fields_)), text);
  EXPECT_EQ(CanUndo(), before);
  Open(fields_);
  EXPECT_EQ(TextOf(Line(fields_)), L"");
  EXPECT_GT(Left(fields_).size(), 1U);
}

TEST_F(ComboSearchTest, TheKeyboardOpensItToo) {
  SetFocus(On(fields_));
  Key(VK_F4);
  EXPECT_TRUE(IsOpen(fields_));
  Key(VK_F4);
  EXPECT_FALSE(IsOpen(fields_));
  Key(VK_DOWN, WM_SYSKEYDOWN);
  EXPECT_TRUE(IsOpen(fields_));
  Key(VK_TAB);
  EXPECT_FALSE(IsOpen(fields_));
  EXPECT_EQ(GetFocus(), On(L"cboOper"));
}

TEST_F(ComboSearchTest, ItClosesWhenSomethingElseIsPressed) {
  Open(fields_);
  Open(fields_);
  EXPECT_FALSE(IsOpen(fields_));
  Open(fields_);
  Press(On(L"lstorderbyasc"), MAKELPARAM(3, 3));
  EXPECT_FALSE(IsOpen(fields_));
  Open(fields_);
  Press(GetParent(On(fields_)), MAKELPARAM(1, 1));
  EXPECT_FALSE(IsOpen(fields_));
  Open(fields_);
  EXPECT_EQ(named().Put(L"prpTab", Number(0)), S_OK);
  EXPECT_FALSE(IsOpen(fields_));
}

TEST_F(ComboSearchTest, TheTextOfABoxThatIsTypedInStays) {
  COMBOBOXINFO info{};
  info.cbSize = sizeof info;
  GetComboBoxInfo(On(values_), &info);
  ASSERT_TRUE(IsWindowEnabled(On(values_)));
  SetFocus(info.hwndItem);
  Type(L"typed");
  Open(values_);
  ASSERT_TRUE(IsOpen(values_));
  Type(L"day");
  EXPECT_EQ(TextOf(info.hwndItem), L"typed");
  Key(VK_ESCAPE);
  EXPECT_EQ(TextOf(info.hwndItem), L"typed");
  EXPECT_EQ(GetFocus(), info.hwndItem);
  Type(L"!");
  EXPECT_EQ(TextOf(info.hwndItem), L"typed!");
}

TEST_F(ComboSearchTest, TheWindowHoldsTheChosenRowAlone) {
  EXPECT_EQ(RowsHeldBy(fields_), 0);
  EXPECT_EQ(RowsHeldBy(values_), 0);
  Open(fields_);
  Type(L"day");
  Key(VK_RETURN);
  EXPECT_EQ(RowsHeldBy(fields_), 1);
  EXPECT_EQ(TextOf(On(fields_)), L"ORDERITM.DAY");
  EXPECT_EQ(RowsHeldBy(values_), 0);
}

TEST_F(ComboSearchTest, ProgramsThatAskGetAllRows) {
  SetFocus(On(fields_));
  Key(VK_DOWN);
  const auto fields = static_cast<int>(SendMessageW(On(fields_), CB_GETCOUNT, 0, 0));
  EXPECT_GT(fields, 2);
  EXPECT_EQ(RowsHeldBy(fields_), fields);
  EXPECT_EQ(SendMessageW(On(fields_), CB_GETCURSEL, 0, 0), 0);
  wchar_t text[256] = L"";
  SendMessageW(On(fields_), CB_GETLBTEXT, 1, reinterpret_cast<LPARAM>(text));
  EXPECT_EQ(text, std::wstring(L"ORDERITM.NO"));
  EXPECT_EQ(TextOf(On(fields_)), L"ORDERITM._index1");
  // What they choose is what a person chose.
  SendMessageW(On(fields_), CB_SHOWDROPDOWN, TRUE, 0);
  SendMessageW(On(fields_), CB_SETCURSEL, 1, 0);
  SendMessageW(On(fields_), WM_KEYDOWN, VK_RETURN, 0);
  Pump();
  EXPECT_EQ(TextOf(On(fields_)), L"ORDERITM.NO");
  EXPECT_TRUE(CanUndo());
}

TEST_F(ComboSearchTest, AProgramThatAsksLeavesWhatIsTypedAndMarked) {
  const HWND line = LineOf(values_);
  SetFocus(line);
  Type(L"typed");
  SendMessageW(line, EM_SETSEL, 1, 3);
  EXPECT_GT(SendMessageW(On(values_), CB_GETCOUNT, 0, 0), 0);
  EXPECT_EQ(TextOf(line), L"typed");
  EXPECT_EQ(SendMessageW(line, EM_GETSEL, 0, 0), MAKELPARAM(1, 3));
}

TEST_F(ComboSearchTest, KeysGoAlongTheRowsOfAClosedList) {
  // A pick hands the focus on, so each key begins anew.
  const auto keyed = [this](WPARAM key, UINT message = WM_KEYDOWN) {
    SetFocus(On(fields_));
    Key(key, message);
    return TextOf(On(fields_));
  };
  EXPECT_EQ(keyed(VK_DOWN), L"ORDERITM._index1");
  EXPECT_EQ(keyed(VK_RIGHT), L"ORDERITM.NO");
  EXPECT_EQ(keyed(VK_UP), L"ORDERITM._index1");
  EXPECT_EQ(keyed(L'd', WM_CHAR), L"DISTRICT._index1");
  EXPECT_EQ(keyed(VK_HOME), L"ORDERITM._index1");
  EXPECT_EQ(keyed(VK_END), L"DISTRICT.NO");
  EXPECT_EQ(keyed(VK_PRIOR), L"ORDERITM._index1");
  EXPECT_EQ(RowsHeldBy(fields_), 1);
}

TEST_F(ComboSearchTest, AKeyAtTheEndOfAClosedListPicksNothing) {
  SetFocus(On(fields_));
  Key(VK_END);
  SetFocus(On(fields_));
  Key(VK_DOWN);
  EXPECT_EQ(GetFocus(), On(fields_));  // which a pick would hand on
}

TEST_F(ComboSearchTest, AnEntryOfABoxIsMarkedWhenItIsPicked) {
  const HWND line = LineOf(values_);
  SetFocus(line);
  Key(VK_DOWN);
  const auto letters = static_cast<int>(TextOf(line).size());
  EXPECT_GT(letters, 0);
  SetFocus(line);
  EXPECT_EQ(SendMessageW(line, EM_GETSEL, 0, 0), MAKELPARAM(0, letters));
}

TEST_F(ComboSearchTest, OperatorsHaveTheListOfThePlatform) {
  Open(L"cboOper");
  EXPECT_EQ(Entries(L"cboOper"), nullptr);
}

}  // namespace
}  // namespace zolt20::tests
