// How the pages look: no text is cut and nothing lies over anything else. With ZOLT20_PICTURES set
// to a folder the pages are drawn into it, which is where the pictures of docs/ come from.
#include <ole2.h>
// The system's other headers need it.
#include <gdiplus.h>

#include <algorithm>

#include "tests/com/com_test.h"

namespace zolt20::tests {
namespace {

std::wstring Environment(const wchar_t* name) {
  wchar_t value[MAX_PATH] = L"";
  GetEnvironmentVariableW(name, value, MAX_PATH);
  return value;
}

// Makes room for a text with a "&" before a letter.
int WidthOf(HWND window) {
  wchar_t text[256] = L"";
  GetWindowTextW(window, text, 256);
  const HDC canvas = GetDC(window);
  const HGDIOBJ before =
      SelectObject(canvas, reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0)));
  RECT place{};
  DrawTextW(canvas, text, -1, &place, DT_CALCRECT | DT_SINGLELINE);
  SelectObject(canvas, before);
  ReleaseDC(window, canvas);
  return place.right;
}

// A length on a screen of the usual resolution, on this one.
int Pixels(int length) {
  const HDC screen = GetDC(nullptr);
  const int resolution = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return MulDiv(length, resolution, USER_DEFAULT_SCREEN_DPI);
}

class PicturesTest : public testing::Test {
 protected:
  PicturesTest() {
    Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&drawing_, &input, nullptr);
  }
  ~PicturesTest() override { Gdiplus::GdiplusShutdown(drawing_); }

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
  void Page(int page) { named().Put(L"prpTab", Number(page)); }

  void Press(const wchar_t* button) { ClickOn(container_.Window(), button); }

  std::vector<HWND> InSight() const {
    std::vector<HWND> windows;
    EnumChildWindows(
        container_.Window(),
        [](HWND window, LPARAM data) -> BOOL {
          if (IsWindowVisible(window) && GetPropW(window, L"ZOLT20.Name") != nullptr)
            reinterpret_cast<std::vector<HWND>*>(data)->push_back(window);
          return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    return windows;
  }

  void ExpectRoomForEverything() {
    RECT whole{};
    GetWindowRect(container_.Window(), &whole);
    std::vector<std::pair<std::wstring, RECT>> seen;
    for (const HWND window : InSight()) {
      const std::wstring name = NameOf(window);
      RECT place{};
      GetWindowRect(window, &place);
      wchar_t kind[32] = L"";
      GetClassNameW(window, kind, 32);
      const std::wstring className = kind;
      const bool isOption =
          className == L"Button" && (GetWindowLongPtrW(window, GWL_STYLE) & BS_TYPEMASK) != 0;
      const int mark = Pixels(16);
      if (className == L"Static" || className == L"Button") {
        POINT middle{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
        ScreenToClient(GetParent(window), &middle);
        EXPECT_EQ(ChildWindowFromPointEx(GetParent(window), middle, CWP_SKIPINVISIBLE), window)
            << std::string(name.begin(), name.end()) << " is covered";
        EXPECT_LE(WidthOf(window) + (isOption ? mark : 0), place.right - place.left)
            << std::string(name.begin(), name.end());
      }
      // Of the boxes of rows some lie below, where the frame scrolls.
      const bool isCaseRow = name.rfind(L"TxtExpr", 0) == 0 || name.rfind(L"txtStmt(", 0) == 0;
      RECT common{};
      if (!isCaseRow) {
        EXPECT_TRUE(IntersectRect(&common, &place, &whole) && EqualRect(&common, &place))
            << std::string(name.begin(), name.end());
      }
      const bool takesFocus = (GetWindowLongPtrW(window, GWL_STYLE) & WS_TABSTOP) != 0;
      if (!takesFocus || isCaseRow || name == L"txtCondition" || name == L"VscrCase") continue;
      for (const auto& [other, otherPlace] : seen) {
        EXPECT_FALSE(IntersectRect(&common, &place, &otherPlace))
            << std::string(name.begin(), name.end()) << " and "
            << std::string(other.begin(), other.end());
      }
      seen.emplace_back(name, place);
    }
    EXPECT_GT(seen.size(), 6U);
  }

  void Picture(const std::wstring& name) {
    Pump();
    UpdateWindow(container_.Window());
    ExpectRoomForEverything();
    const std::wstring folder = Environment(L"ZOLT20_PICTURES");
    if (folder.empty()) return;
    RECT place{};
    GetClientRect(container_.Window(), &place);
    const HDC screen = GetDC(container_.Window());
    const HDC canvas = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, place.right, place.bottom);
    const HGDIOBJ before = SelectObject(canvas, bitmap);
    BitBlt(canvas, 0, 0, place.right, place.bottom, screen, 0, 0, SRCCOPY);
    SelectObject(canvas, before);
    const CLSID png = {
        0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
    Gdiplus::Bitmap picture(bitmap, nullptr);
    EXPECT_EQ(picture.Save((folder + L"\\" + name + L".png").c_str(), &png, nullptr), Gdiplus::Ok);
    DeleteObject(bitmap);
    DeleteDC(canvas);
    ReleaseDC(container_.Window(), screen);
  }

 private:
  ULONG_PTR drawing_ = 0;
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

TEST_F(PicturesTest, TheSelectListPageIsFilled) {
  Play(L"where-report", 12);
  Page(0);
  Picture(L"windows-page0");
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

TEST_F(PicturesTest, TheRowsOfAnOnCaseScroll) {
  Play(L"mapping-rule", 40);
  Picture(L"windows-page6");
}

}  // namespace
}  // namespace zolt20::tests
