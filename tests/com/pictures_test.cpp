// The looks of the pages: no text is cut and no control overlaps another. The font is the family in
// ZOLT20_LETTERS, set by in_wine.sh. With ZOLT20_PICTURES set to a folder the pages are drawn into
// it, which is where the pictures of docs/ come from.
#include <ole2.h>
// The system's other headers need it.
#include <commctrl.h>

#include <algorithm>

#include "tests/com/com_test.h"
#include "tests/com/screen.h"

namespace zolt20::tests {
namespace {

std::wstring Environment(const wchar_t* name) {
  wchar_t value[MAX_PATH] = L"";
  GetEnvironmentVariableW(name, value, MAX_PATH);
  return value;
}

// The letters of a window, on its canvas.
class Letters {
 public:
  explicit Letters(HWND window)
      : Letters(window, reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0))) {}
  Letters(HWND window, HFONT font)
      : window_(window), canvas_(GetDC(window)), before_(SelectObject(canvas_, font)) {}
  ~Letters() {
    SelectObject(canvas_, before_);
    ReleaseDC(window_, canvas_);
  }
  Letters(const Letters&) = delete;
  Letters& operator=(const Letters&) = delete;

  // Makes room for a text with a "&" before a letter.
  SIZE SizeOf(const wchar_t* text) const {
    RECT place{};
    DrawTextW(canvas_, text, -1, &place, DT_CALCRECT | DT_SINGLELINE);
    return {place.right, place.bottom};
  }
  int LineHeight() const {
    TEXTMETRICW metrics{};
    EXPECT_TRUE(GetTextMetricsW(canvas_, &metrics));
    return metrics.tmHeight;
  }

 private:
  HWND window_;
  HDC canvas_;
  HGDIOBJ before_;
};

SIZE TextSizeOf(HWND window) {
  wchar_t text[256] = L"";
  GetWindowTextW(window, text, 256);
  return Letters(window).SizeOf(text);
}

// Whether the letters of a window are those of a family.
bool IsOfFamily(HWND window, const std::wstring& family) {
  LOGFONTW wanted{};
  GetObjectW(reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof wanted,
             &wanted);
  family.copy(wanted.lfFaceName, LF_FACESIZE - 1);
  wanted.lfFaceName[std::min<std::size_t>(family.size(), LF_FACESIZE - 1)] = 0;
  const HFONT font = CreateFontIndirectW(&wanted);
  constexpr wchar_t kText[] = L"Quick wafting zephyrs vex bold Jim 0123456789";
  bool isSame = false;
  {
    const Letters used(window);
    const Letters named(window, font);
    isSame =
        used.LineHeight() == named.LineHeight() && used.SizeOf(kText).cx == named.SizeOf(kText).cx;
  }
  DeleteObject(font);
  return isSame;
}

// A length on a screen of the usual resolution, on this one.
int Pixels(int length) {
  const HDC screen = GetDC(nullptr);
  const int resolution = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return MulDiv(length, resolution, USER_DEFAULT_SCREEN_DPI);
}

bool IsInstalled(const std::wstring& family) {
  LOGFONTW wanted{};
  wanted.lfCharSet = DEFAULT_CHARSET;
  family.copy(wanted.lfFaceName, LF_FACESIZE - 1);
  bool isThere = false;
  const HDC screen = GetDC(nullptr);
  EnumFontFamiliesExW(
      screen, &wanted,
      [](const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) WINAPI -> int {
        *reinterpret_cast<bool*>(found) = true;
        return 0;
      },
      reinterpret_cast<LPARAM>(&isThere), 0);
  ReleaseDC(nullptr, screen);
  return isThere;
}

class PicturesTest : public testing::Test {
 protected:
  void SetUp() override {
    const std::wstring family = Environment(L"ZOLT20_LETTERS");
    if (!family.empty() && !IsInstalled(family)) GTEST_SKIP() << "the letters are not installed";
  }

  void Play(const wchar_t* session, int lines) {
    EXPECT_EQ(player_.PlayTo(Sessions() + L"\\" + session + L".jsonl", lines),
              std::vector<std::string>{});
    byName_ = com::Query<IDispatch>(container_.Control());
    named().Put(L"Syntax_Highlight", Truth(true));
  }
  void Begin() {
    Embed(container_);
    byName_ = com::Query<IDispatch>(container_.Control());
  }
  Named named() const { return {*byName_.Get()}; }
  HWND Around() const { return container_.Window(); }
  void Page(int page) { named().Put(L"prpTab", Number(page)); }

  void NameTables(const std::vector<std::wstring>& codes, const std::vector<std::wstring>& names) {
    const auto arrayOf = [](const std::vector<std::wstring>& texts) {
      VARIANT value;
      V_VT(&value) = VT_ARRAY | VT_BSTR;
      V_ARRAY(&value) = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts.size()));
      LONG place = 0;
      for (const std::wstring& text : texts) {
        SafeArrayPutElement(V_ARRAY(&value), &place, Bstr(text).Get());
        ++place;
      }
      return value;
    };
    VARIANT codeArray = arrayOf(codes);
    VARIANT nameArray = arrayOf(names);
    const auto view = com::Query<IZOLT20MapControlView>(container_.Control());
    EXPECT_EQ(view->SetTableNames(codeArray, nameArray), S_OK);
    VariantClear(&codeArray);
    VariantClear(&nameArray);
  }

  void Press(const wchar_t* button) { ClickOn(container_.Window(), button); }

  std::vector<HWND> InSight() const {
    std::vector<HWND> windows;
    EnumChildWindows(
        container_.Window(),
        [](HWND window, LPARAM data) WINAPI -> BOOL {
          if (IsWindowVisible(window) && GetPropW(window, L"ZOLT20.Name") != nullptr)
            reinterpret_cast<std::vector<HWND>*>(data)->push_back(window);
          return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    return windows;
  }

  // What is in the frame of the case rows is there as a whole; the others lie beyond it.
  void ExpectRoomForEverything() {
    const std::wstring family = Environment(L"ZOLT20_LETTERS");
    RECT whole{};
    GetWindowRect(container_.Window(), &whole);
    std::vector<std::pair<std::string, RECT>> seen;
    for (const HWND window : InSight()) {
      const std::wstring wideName = NameOf(window);
      const std::string name(wideName.begin(), wideName.end());
      RECT place{};
      GetWindowRect(window, &place);
      RECT common{};
      const std::wstring around = NameOf(GetParent(window));
      RECT frame = whole;
      if (around == L"fracase") {
        GetWindowRect(GetParent(window), &frame);
        const bool isRow = name != "VscrCase" && name != "cmdNext";
        if (isRow && !IntersectRect(&common, &place, &frame)) continue;
      }
      EXPECT_TRUE(IntersectRect(&common, &place, &frame) && EqualRect(&common, &place)) << name;
      ExpectRoomForText(window, name);
      if (!family.empty() && HasText(window)) {
        EXPECT_TRUE(IsOfFamily(window, family)) << name;
      }
      const bool takesFocus = (GetWindowLongPtrW(window, GWL_STYLE) & WS_TABSTOP) != 0;
      if (!takesFocus || name == "txtCondition") continue;
      for (const auto& [other, otherPlace] : seen)
        EXPECT_FALSE(IntersectRect(&common, &place, &otherPlace)) << name << " and " << other;
      seen.emplace_back(name, place);
    }
    EXPECT_GT(seen.size(), 6U);
  }

  static bool Is(HWND window, const wchar_t* kind) {
    wchar_t name[32] = L"";
    GetClassNameW(window, name, 32);
    return std::wstring(name) == kind;
  }
  static bool HasText(HWND window) {
    return Is(window, L"Static") || Is(window, L"Button") || Is(window, L"Edit");
  }

  static void ExpectRoomForText(HWND window, const std::string& name) {
    RECT place{};
    GetWindowRect(window, &place);
    RECT inside{};
    GetClientRect(window, &inside);
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
    if (Is(window, L"Static") || Is(window, L"Button")) {
      POINT middle{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
      ScreenToClient(GetParent(window), &middle);
      EXPECT_EQ(ChildWindowFromPointEx(GetParent(window), middle, CWP_SKIPINVISIBLE), window)
          << name << " is covered";
      const bool isOption = Is(window, L"Button") && (style & BS_TYPEMASK) != 0;
      const int mark = isOption ? Pixels(16) : 0;
      const int edges = Is(window, L"Button") && !isOption ? Pixels(4) : 0;
      const SIZE text = TextSizeOf(window);
      EXPECT_LE(text.cx + mark, inside.right) << name;
      EXPECT_LE(text.cy + edges, inside.bottom) << name;
    } else if (Is(window, L"Edit")) {
      const int lines = (style & ES_MULTILINE) != 0 ? 2 : 1;
      EXPECT_LE(lines * Letters(window).LineHeight(), inside.bottom) << name;
    }
  }

  void Picture(const std::wstring& name) {
    Pump();
    UpdateWindow(container_.Window());
    ExpectRoomForEverything();
    const std::wstring folder = Environment(L"ZOLT20_PICTURES");
    if (folder.empty()) return;
    Screen(container_.Window()).Save(folder + L"\\" + name + L".png");
  }

 private:
  Container container_{Pixels(880), Pixels(620)};
  SessionPlayer player_{[this] { return Embed(container_); }};
  Pointer<IDispatch> byName_;
};

TEST_F(PicturesTest, EveryEmptyPageHasRoomForItsTexts) {
  Begin();
  for (int page = 0; page < 7; ++page) {
    Page(page);
    Picture(L"windows-empty" + std::to_wstring(page));
  }
}

TEST_F(PicturesTest, TabsHaveRoomBesideTheirTexts) {
  Begin();
  const HWND tabs = WindowOf(Around(), L"tabVrn");
  wchar_t text[64] = L"";
  for (int tab = 0; tab < 7; ++tab) {
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = 64;
    SendMessageW(tabs, TCM_GETITEMW, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&item));
    RECT place{};
    SendMessageW(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&place));
    EXPECT_GE(place.right - place.left, Letters(tabs).SizeOf(text).cx + Pixels(8)) << tab;
  }
}

TEST_F(PicturesTest, TheSelectListPageIsFilled) {
  Play(L"where-report", 12);
  Page(0);
  Picture(L"windows-page0");
}

TEST_F(PicturesTest, TablesHaveNamesBesideTheirCodes) {
  Play(L"where-report", 12);
  Page(0);
  NameTables({L"CUSTOMER", L"ORDERS__", L"DISTRICT"},
             {L"Customers", L"Orders, with a name that is much too long for the list of tables",
              L"Districts"});
  Picture(L"windows-names");
}

TEST_F(PicturesTest, TheWherePageIsFilled) {
  Play(L"where-report", -1);
  Page(1);
  Picture(L"windows-page1");
}

TEST_F(PicturesTest, TheStatementPagesAreFilled) {
  Play(L"full-statement", -1);
  for (int page = 2; page <= 5; ++page) {
    Page(page);
    Picture(L"windows-page" + std::to_wstring(page));
  }
}

TEST_F(PicturesTest, EachKindHasItsPanel) {
  Begin();
  Page(6);
  for (const wchar_t* option : {L"optIfThen", L"optwhile", L"optRepeat", L"optFor", L"optCase"}) {
    Press(option);
    Picture(std::wstring(L"windows-kind-") + option);
  }
}

TEST_F(PicturesTest, CaseRowsStandBelowEachOtherInTheirFrame) {
  Begin();
  Page(6);
  Press(L"optCase");
  for (int row = 1; row <= 5; ++row) {
    Press(L"cmdNext");
    Picture(L"windows-rows" + std::to_wstring(row));
  }
}

TEST_F(PicturesTest, TheRowsOfAnOnCaseScroll) {
  Play(L"mapping-rule", 40);
  Picture(L"windows-page6");
}

}  // namespace
}  // namespace zolt20::tests
