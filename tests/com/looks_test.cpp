// Neighbouring controls look alike, and a text that is cut has a tooltip.
#include <ole2.h>
// The system's other headers need it.
#include <commctrl.h>

#include <optional>

#include "tests/com/com_test.h"
#include "tests/com/screen.h"

namespace zolt20::tests {
namespace {

class LooksTest : public testing::Test {
 protected:
  LooksTest() { EXPECT_EQ(container_.Create(CLSID_ZOLT20MapControl), S_OK); }
  void Activate() {
    ASSERT_EQ(container_.Activate(), S_OK);
    byName_ = com::Query<IDispatch>(container_.Control());
    Pump();
  }
  Named named() const { return {*byName_.Get()}; }
  HWND On(const wchar_t* name) const { return WindowOf(container_.Window(), name); }
  RECT PlaceOf(HWND window) const {
    RECT place{};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, container_.Window(), reinterpret_cast<POINT*>(&place), 2);
    return place;
  }

  Container container_{880, 620};
  Pointer<IDispatch> byName_;
};

// Boxes.

TEST_F(LooksTest, EveryBoxHasTheSameBorder) {
  Activate();
  const Screen screen(container_.Window());
  // From its edges inwards, at the middle of each side.
  const auto border = [&](HWND box) {
    const RECT place = PlaceOf(box);
    const int x = (place.left + place.right) / 2;
    const int y = (place.top + place.bottom) / 2;
    std::vector<COLORREF> colors;
    for (int i = 0; i < 2; ++i) {
      for (const COLORREF each :
           {screen.At(x, place.top + i), screen.At(place.left + i, y),
            screen.At(x, place.bottom - 1 - i), screen.At(place.right - 1 - i, y)})
        colors.push_back(each);
    }
    return colors;
  };
  EXPECT_EQ(border(On(L"TxtOutput")), border(On(L"lstFunctions")));
  EXPECT_EQ(border(On(L"TxtOutput")), border(On(L"lstSelectedFields")));
}

// Tabs.

void ExpectTheFormBesideTheTabs(const Screen& screen, const RECT& strip, COLORREF face) {
  EXPECT_EQ(screen.At(strip.right - 2, strip.top + 2), face) << "on the right";
  for (int x = strip.left; x < strip.right; x += 7)
    ASSERT_EQ(screen.At(x, strip.bottom - 1), face) << "below, at " << x;
}

TEST_F(LooksTest, BesideTheTabsIsTheForm) {
  Activate();
  ExpectTheFormBesideTheTabs(Screen(container_.Window()), PlaceOf(On(L"tabVrn")),
                             GetSysColor(COLOR_BTNFACE));
}

TEST_F(LooksTest, BesideTheTabsIsTheFormInTheColorsOfItsContainerToo) {
  constexpr COLORREF kPaper = RGB(250, 240, 200);
  container_.colors = {kPaper, RGB(60, 20, 0)};
  com::Query<IOleControl>(container_.Control())->OnAmbientPropertyChange(DISPID_UNKNOWN);
  Activate();
  ExpectTheFormBesideTheTabs(Screen(container_.Window()), PlaceOf(On(L"tabVrn")), kPaper);
}

TEST_F(LooksTest, TheTabsStandOnALine) {
  Activate();
  const HWND tabs = On(L"tabVrn");
  RECT last{};
  SendMessageW(tabs, TCM_GETITEMRECT, 6, reinterpret_cast<LPARAM>(&last));
  MapWindowPoints(tabs, container_.Window(), reinterpret_cast<POINT*>(&last), 2);
  const Screen screen(container_.Window());
  for (int x = last.left; x < PlaceOf(tabs).right; x += 5)
    ASSERT_EQ(screen.At(x, last.bottom), GetSysColor(COLOR_BTNSHADOW)) << x;
}

// Tips.

// The text of a list's tooltip; nothing when the list has none.
std::optional<std::wstring> TipOf(HWND list) {
  struct Search {
    HWND list;
    std::optional<std::wstring> text;
  } search{list, {}};
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND window, LPARAM data) WINAPI -> BOOL {
        auto& wanted = *reinterpret_cast<Search*>(data);
        wchar_t text[512] = L"";
        GetClassNameW(window, text, 512);
        TTTOOLINFOW tool{};
        tool.cbSize = TTTOOLINFOW_V1_SIZE;
        tool.hwnd = wanted.list;
        tool.uId = 1;
        tool.lpszText = text;
        if (std::wstring(text) != TOOLTIPS_CLASSW) return TRUE;
        text[0] = L'\0';
        SendMessageW(window, TTM_GETTEXTW, 512, reinterpret_cast<LPARAM>(&tool));
        if (text[0] != L'\0') wanted.text = text;
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.text;
}

void MoveTo(HWND list, int row) {
  RECT place{};
  place.left = LVIR_BOUNDS;
  SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
  SendMessageW(list, WM_MOUSEMOVE, 0, MAKELPARAM(place.left + 20, (place.top + place.bottom) / 2));
}

TEST_F(LooksTest, ARowThatIsCutHasATipWithAllOfIt) {
  Activate();
  const std::wstring cut = L"CUSTOMER." + std::wstring(80, L'X') + L"_END";
  named().Put(L"prpSelectPart", (L"CUSTOMER.NAME," + cut + L",").c_str());
  const HWND list = On(L"lstSelectedFields");
  ASSERT_EQ(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0), 2);
  MoveTo(list, 0);
  EXPECT_EQ(TipOf(list), std::nullopt);
  MoveTo(list, 1);
  EXPECT_EQ(TipOf(list), cut);
  MoveTo(list, 0);
  EXPECT_EQ(TipOf(list), std::nullopt);
  MoveTo(list, 1);
  SendMessageW(list, WM_MOUSEMOVE, 0, MAKELPARAM(20, 100));  // below the rows
  EXPECT_EQ(TipOf(list), std::nullopt);
}

}  // namespace
}  // namespace zolt20::tests
