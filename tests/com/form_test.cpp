// The form in its window: filters above lists, long names, and a window that is too small.
#include "tests/com/com_test.h"

#include <commctrl.h>

namespace zolt20::tests {
namespace {

class FormTest : public testing::Test {
 protected:
  explicit FormTest(int width = 880, int height = 620) : container_(width, height) {
    EXPECT_EQ(container_.Create(CLSID_ZOLT20MapControl), S_OK);
    byName_ = com::Query<IDispatch>(container_.Control());
    EXPECT_EQ(container_.Activate(), S_OK);
    EXPECT_EQ(named().Put(L"PrpStrTables", L"ORDERITM1,ORDERLIN0,DISTRICT2"), S_OK);
    EXPECT_EQ(named().Put(L"PrpStrFields",
                          L"long*Q*V*R*N*YORDERITM.NO*Q*V*R*N*number,"
                          L"long*Q*V*R*N*YORDERLIN.NO*Q*V*R*N*number,"
                          L"long*Q*V*R*N*YDISTRICT.NO*Q*V*R*N*number"),
              S_OK);
    Pump();
  }

  Named named() const { return {*byName_.Get()}; }
  HWND On(const wchar_t* name) const { return WindowOf(container_.Window(), name); }
  void GoTo(int page) {
    EXPECT_EQ(named().Put(L"prpTab", Number(page)), S_OK);
    Pump();
  }
  static std::wstring TextOf(HWND window) {
    wchar_t text[256] = L"";
    GetWindowTextW(window, text, 256);
    return text;
  }
  static void Press(HWND window, WPARAM key) { SendMessageW(window, WM_KEYDOWN, key, 0); }

  // Lists.

  void ClickRow(const wchar_t* list, int row, UINT press = WM_LBUTTONDOWN) {
    const HWND window = On(list);
    RECT place{};
    place.left = LVIR_LABEL;
    SendMessageW(window, LVM_GETITEMRECT, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&place));
    const LPARAM at = MAKELPARAM(place.left + 2, (place.top + place.bottom) / 2);
    SendMessageW(window, press, MK_LBUTTON, at);
    SendMessageW(window, WM_LBUTTONUP, 0, at);
  }
  void Filter(const wchar_t* list, const wchar_t* text) {
    const HWND line = On((std::wstring(list) + L".filter").c_str());
    SetFocus(line);
    SendMessageW(line, EM_SETSEL, 0, -1);
    SendMessageW(line, WM_CLEAR, 0, 0);
    for (; *text != L'\0'; ++text)
      SendMessageW(line, WM_CHAR, static_cast<WPARAM>(*text), 0);
  }
  std::vector<std::wstring> RowsOf(const wchar_t* list) const {
    const HWND window = On(list);
    std::vector<std::wstring> rows;
    const auto count = static_cast<int>(SendMessageW(window, LVM_GETITEMCOUNT, 0, 0));
    for (int row = 0; row < count; ++row) {
      wchar_t text[256] = L"";
      LVITEMW item{};
      item.pszText = text;
      item.cchTextMax = 256;
      SendMessageW(window, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&item));
      rows.emplace_back(text);
    }
    return rows;
  }
  static bool IsMarked(HWND list, int row) {
    return SendMessageW(list, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0;
  }

  Container container_;
  Pointer<IDispatch> byName_;
};

using Rows = std::vector<std::wstring>;

// Filters.

TEST_F(FormTest, AFilterLeavesTheRowsThatHoldItsText) {
  ASSERT_EQ(RowsOf(L"lsttables").size(), 3U);
  Filter(L"lsttables", L"order");
  EXPECT_EQ(RowsOf(L"lsttables"), (Rows{L"ORDERITM", L"ORDERLIN"}));
  Filter(L"lsttables",
         L"rder"
         L"l");
  EXPECT_EQ(RowsOf(L"lsttables"), Rows{L"ORDERLIN"});
  ClickRow(L"lsttables", 0);
  EXPECT_TRUE(IsMarked(On(L"lsttables"), 0));
  Filter(L"lsttables", L"");
  EXPECT_EQ(RowsOf(L"lsttables").size(), 3U);
  EXPECT_FALSE(IsMarked(On(L"lsttables"), 0));
  EXPECT_TRUE(IsMarked(On(L"lsttables"), 1));
}

TEST_F(FormTest, MarksThatAFilterHidesAreTold) {
  ClickRow(L"lsttables", 0);
  ClickRow(L"lsttables", 2);
  EXPECT_EQ(TextOf(On(L"lsttables.marks")), L"");
  Filter(L"lsttables", L"DISTRICT");
  EXPECT_EQ(TextOf(On(L"lsttables.marks")), L"2 marked, 1 shown");
  EXPECT_TRUE(IsMarked(On(L"lsttables"), 0));
  ClickRow(L"lsttables", 0);
  EXPECT_EQ(TextOf(On(L"lsttables.marks")), L"1 marked, 0 shown");
  Filter(L"lsttables", L"");
  EXPECT_EQ(TextOf(On(L"lsttables.marks")), L"");
}

TEST_F(FormTest, ASecondPressOnAnotherRowIsAClick) {
  // The list is scrolled under the mouse, which is what the platform does not know of.
  ClickRow(L"lsttables", 0);
  EXPECT_EQ(RowsOf(L"lstFields").size(), 2U);
  ClickRow(L"lsttables", 1, WM_LBUTTONDBLCLK);
  EXPECT_EQ(RowsOf(L"lstFields").size(), 4U);
}

TEST_F(FormTest, OrdersAreFilteredToo) {
  ClickRow(L"lsttables", 0);
  ClickRow(L"lsttables", 2);
  GoTo(1);
  ASSERT_GT(RowsOf(L"lstorderbyasc").size(), 1U);
  Filter(L"lstorderbyasc", L"district");
  const Rows left = RowsOf(L"lstorderbyasc");
  for (const std::wstring& row : left)
    EXPECT_EQ(row.find(L"DISTRICT"), 0U) << std::string(row.begin(), row.end());
  EXPECT_GT(left.size(), 0U);
}

TEST_F(FormTest, TheKeysOfAFilter) {
  const HWND line = On(L"lsttables.filter");
  const HWND list = On(L"lsttables");
  SetFocus(list);
  BYTE keys[256]{};
  keys[VK_CONTROL] = 0x80;
  SetKeyboardState(keys);
  Press(list, L'F');
  keys[VK_CONTROL] = 0;
  SetKeyboardState(keys);
  EXPECT_EQ(GetFocus(), line);
  Filter(L"lsttables", L"district");
  Press(line, VK_TAB);
  EXPECT_EQ(GetFocus(), list);
  EXPECT_EQ(RowsOf(L"lsttables"), Rows{L"DISTRICT"});
  SetFocus(line);
  Press(line, VK_ESCAPE);
  EXPECT_EQ(GetFocus(), list);
  EXPECT_EQ(RowsOf(L"lsttables").size(), 3U);
}

TEST_F(FormTest, LettersInAFilteredListFindRowsThatAreDrawn) {
  Filter(L"lsttables", L"i");  // ORDERITM, ORDERLIN, DISTRICT
  Filter(L"lsttables", L"in");
  ASSERT_EQ(RowsOf(L"lsttables"), Rows{L"ORDERLIN"});
  const HWND list = On(L"lsttables");
  SetFocus(list);
  SendMessageW(list, WM_CHAR, L'd', 0);
  EXPECT_NE(SendMessageW(list, LVM_GETITEMSTATE, 0, LVIS_FOCUSED), LVIS_FOCUSED);
  SendMessageW(list, WM_CHAR, L'\x1B', 0);
  Sleep(1'100);  // what was typed is forgotten
  SendMessageW(list, WM_CHAR, L'o', 0);
  EXPECT_EQ(SendMessageW(list, LVM_GETITEMSTATE, 0, LVIS_FOCUSED), LVIS_FOCUSED);
}

// A place that is too small.

class SmallPlaceTest : public FormTest {
 protected:
  SmallPlaceTest() : FormTest(400, 300) {}

  RECT PlaceIn(HWND window) const {
    RECT place{};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, Root(), reinterpret_cast<POINT*>(&place), 2);
    return place;
  }
  HWND Root() const { return GetParent(On(L"tabVrn")); }
};

TEST_F(SmallPlaceTest, WhatGetsTheFocusComesIntoSight) {
  RECT inside{};
  GetClientRect(Root(), &inside);
  ASSERT_LT(inside.right, 400);  // there is a bar
  const auto active = com::Query<IOleInPlaceActiveObject>(container_.Control());
  for (int page = 0; page < 7; ++page) {
    GoTo(page);
    SetFocus(On(L"tabVrn"));
    MSG tab{};
    tab.message = WM_KEYDOWN;
    tab.wParam = VK_TAB;
    int steps = 0;
    for (; steps < 30; ++steps) {
      tab.hwnd = GetFocus();
      if (active->TranslateAccelerator(&tab) != S_OK) break;
      const RECT place = PlaceIn(GetFocus());
      EXPECT_GE(place.left, 0) << steps << " of page " << page;
      EXPECT_GE(place.top, 0) << steps << " of page " << page;
      EXPECT_LE(std::min<LONG>(place.right, place.left + 60), inside.right) << steps;
      EXPECT_LE(std::min<LONG>(place.bottom, place.top + 16), inside.bottom) << steps;
    }
    EXPECT_GT(steps, 5) << page;
    EXPECT_LT(steps, 30) << page;
  }
}

TEST_F(SmallPlaceTest, BarsAndTheWheelScroll) {
  const LONG before = PlaceIn(On(L"cmdDone")).top;
  SendMessageW(Root(), WM_VSCROLL, SB_PAGEDOWN, 0);
  const LONG later = PlaceIn(On(L"cmdDone")).top;
  EXPECT_LT(later, before);
  SendMessageW(Root(), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
  EXPECT_GT(PlaceIn(On(L"cmdDone")).top, later);
  const LONG left = PlaceIn(On(L"lsttables")).left;
  SendMessageW(Root(), WM_HSCROLL, SB_LINEDOWN, 0);
  EXPECT_LT(PlaceIn(On(L"lsttables")).left, left);
  SendMessageW(Root(), WM_HSCROLL, SB_TOP, 0);
  SendMessageW(Root(), WM_VSCROLL, SB_TOP, 0);
  EXPECT_GE(PlaceIn(On(L"tabVrn")).top, 0);
}

TEST_F(SmallPlaceTest, ALargerPlaceHasNoBars) {
  SendMessageW(Root(), WM_VSCROLL, SB_BOTTOM, 0);
  const RECT place{0, 0, 1200, 900};
  EXPECT_EQ(com::Query<IOleInPlaceObject>(container_.Control())->SetObjectRects(&place, &place),
            S_OK);
  RECT inside{};
  GetClientRect(Root(), &inside);
  EXPECT_EQ(inside.right, 1200);
  EXPECT_EQ(inside.bottom, 900);
  EXPECT_GE(PlaceIn(On(L"tabVrn")).top, 0);
  EXPECT_LE(PlaceIn(On(L"cmdDone")).bottom, 900);
}

}  // namespace
}  // namespace zolt20::tests
