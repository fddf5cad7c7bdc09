// The context menu of the boxes of statements.
#include "tests/com/com_test.h"

#include <richedit.h>

namespace zolt20::tests {
namespace {

// Reads the menu that opens next, and chooses an item by its letter; without a letter it cancels.
class MenuReader {
 public:
  explicit MenuReader(wchar_t letter = 0) {
    shown().clear();
    MenuReader::letter() = letter;
    timer_ = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, &Look);
  }
  ~MenuReader() { KillTimer(nullptr, timer_); }
  MenuReader(const MenuReader&) = delete;
  MenuReader& operator=(const MenuReader&) = delete;

  /// The captions of the items, a disabled one in brackets.
  static std::vector<std::wstring>& shown() {
    static std::vector<std::wstring> rows;
    return rows;
  }
  static POINT& corner() {
    static POINT place;
    return place;
  }

 private:
  static wchar_t& letter() {
    static wchar_t chosen;
    return chosen;
  }

  static void CALLBACK Look(HWND, UINT, UINT_PTR timer, DWORD) {
    constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU
    const HWND popup = FindWindowW(L"#32768", nullptr);
    if (popup == nullptr) return;
    KillTimer(nullptr, timer);
    auto* const menu = reinterpret_cast<HMENU>(SendMessageW(popup, kGetMenu, 0, 0));
    for (int row = 0; row < GetMenuItemCount(menu); ++row) {
      wchar_t caption[40] = L"";
      GetMenuStringW(menu, static_cast<UINT>(row), caption, 40, MF_BYPOSITION);
      const UINT state = GetMenuState(menu, static_cast<UINT>(row), MF_BYPOSITION);
      if (*caption == L'\0') continue;
      const bool isOff = (state & (MF_GRAYED | MF_DISABLED)) != 0;
      shown().push_back(isOff ? L"(" + std::wstring(caption) + L")" : caption);
    }
    RECT place{};
    GetWindowRect(popup, &place);
    corner() = {place.left, place.top};
    const HWND owner = GetFocus();
    if (letter() == 0) {
      EndMenu();
    } else {
      PostMessageW(owner, WM_CHAR, letter(), 0);
    }
  }

  UINT_PTR timer_ = 0;
};

using Rows = std::vector<std::wstring>;

class TextMenuTest : public testing::Test {
 protected:
  TextMenuTest() {
    EXPECT_EQ(container_.Create(CLSID_ZOLT20MapControl), S_OK);
    byName_ = com::Query<IDispatch>(container_.Control());
    EXPECT_EQ(container_.Activate(), S_OK);
    Pump();
    box_ = WindowOf(container_.Window(), L"TxtOutput");
    SetFocus(box_);
  }
  ~TextMenuTest() override { HoldShift(false); }

  static void Clipboard(const wchar_t* text) {
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    if (text != nullptr) {
      const std::size_t bytes = (wcslen(text) + 1) * sizeof(wchar_t);
      const HGLOBAL data = GlobalAlloc(GMEM_MOVEABLE, bytes);
      memcpy(GlobalLock(data), text, bytes);
      GlobalUnlock(data);
      SetClipboardData(CF_UNICODETEXT, data);
    }
    CloseClipboard();
  }
  static std::wstring OnClipboard() {
    std::wstring text;
    if (OpenClipboard(nullptr) == FALSE) return L"closed";
    if (const HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
      text = static_cast<const wchar_t*>(GlobalLock(data));
      GlobalUnlock(data);
    }
    CloseClipboard();
    return text;
  }
  static void HoldShift(bool down) {
    BYTE keys[256]{};
    keys[VK_SHIFT] = down ? 0x80 : 0;
    SetKeyboardState(keys);
  }
  void Write(const wchar_t* text) {
    EXPECT_EQ((Named{*byName_.Get()}.Put(L"prpStroutput", text)), S_OK);
    Pump();
  }
  std::wstring Result() const { return Named{*byName_.Get()}.Text(L"prpStroutput"); }
  void Mark(LONG first, LONG behind) const {
    CHARRANGE range{first, behind};
    SendMessageW(box_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
  }
  /// What the menu shows at a press of the second button of the mouse.
  Rows Press(wchar_t letter = 0) const {
    const MenuReader reader(letter);
    SendMessageW(box_, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(10, 8));
    SendMessageW(box_, WM_RBUTTONUP, 0, MAKELPARAM(10, 8));
    Pump();
    return MenuReader::shown();
  }

  Container container_{880, 620};
  Pointer<IDispatch> byName_;
  HWND box_ = nullptr;
};

TEST_F(TextMenuTest, AnEmptyBoxHasNothingToDoInItsMenuButToPaste) {
  Clipboard(nullptr);
  EXPECT_EQ(Press(),
            (Rows{L"(&Undo)", L"(Cu&t)", L"(&Copy)", L"(&Paste)", L"(&Delete)", L"(Select &All)"}));
  Clipboard(L"x");
  EXPECT_EQ(Press(),
            (Rows{L"(&Undo)", L"(Cu&t)", L"(&Copy)", L"&Paste", L"(&Delete)", L"(Select &All)"}));
}

TEST_F(TextMenuTest, WhatIsMarkedCanBeCutCopiedAndDeleted) {
  Clipboard(L"x");
  Write(L"select a");
  Mark(0, 0);
  EXPECT_EQ(Press(),
            (Rows{L"(&Undo)", L"(Cu&t)", L"(&Copy)", L"&Paste", L"(&Delete)", L"Select &All"}));
  Mark(0, 6);
  EXPECT_EQ(Press(), (Rows{L"(&Undo)", L"Cu&t", L"&Copy", L"&Paste", L"&Delete", L"Select &All"}));
  Mark(0, 8);
  EXPECT_EQ(Press(),
            (Rows{L"(&Undo)", L"Cu&t", L"&Copy", L"&Paste", L"&Delete", L"(Select &All)"}));
}

TEST_F(TextMenuTest, WhatIsChosenIsDone) {
  Write(L"select a");
  Mark(0, 6);
  Press(L'c');
  EXPECT_EQ(OnClipboard(), L"select");
  EXPECT_EQ(Result(), L"select a");
  Mark(6, 8);
  Press(L't');
  EXPECT_EQ(OnClipboard(), L" a");
  EXPECT_EQ(Result(), L"select");
  Press(L'u');
  EXPECT_EQ(Result(), L"select a");
  Press(L'a');
  CHARRANGE marked{};
  SendMessageW(box_, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&marked));
  EXPECT_EQ(marked.cpMin, 0);
  EXPECT_GE(marked.cpMax, 8);
  Press(L'p');
  EXPECT_EQ(Result(), L" a");
  Mark(0, 1);
  Press(L'd');
  EXPECT_EQ(Result(), L"a");
}

TEST_F(TextMenuTest, TheKeyOfTheKeyboardOpensItAtTheCaret) {
  Clipboard(L"x");
  Write(L"select a");
  Mark(8, 8);
  const Rows rows{L"(&Undo)", L"(Cu&t)", L"(&Copy)", L"&Paste", L"(&Delete)", L"Select &All"};
  POINT caret{};
  GetCaretPos(&caret);
  ClientToScreen(box_, &caret);
  {
    const MenuReader reader;
    SendMessageW(box_, WM_KEYDOWN, VK_APPS, 0);
    SendMessageW(box_, WM_KEYUP, VK_APPS, 0);
    Pump();
    EXPECT_EQ(MenuReader::shown(), rows);
    EXPECT_LE(std::abs(MenuReader::corner().x - caret.x), 8);
  }
  HoldShift(true);
  const MenuReader reader;
  SendMessageW(box_, WM_SYSKEYDOWN, VK_F10, 0);
  HoldShift(false);
  Pump();
  EXPECT_EQ(MenuReader::shown(), rows);
}

TEST_F(TextMenuTest, AFormThatIsGivenUpWhileTheMenuIsOpenDoesNothing) {
  Write(L"select a");
  Mark(0, 6);
  static Container* container = nullptr;
  container = &container_;
  const UINT_PTR timer = SetTimer(nullptr, 0, 60, [](HWND, UINT, UINT_PTR which, DWORD) CALLBACK {
    KillTimer(nullptr, which);
    container->GiveUp();
    PostMessageW(GetFocus(), WM_CHAR, L'd', 0);
    EndMenu();
  });
  SendMessageW(box_, WM_RBUTTONUP, 0, MAKELPARAM(10, 8));
  KillTimer(nullptr, timer);
  Pump();
  EXPECT_FALSE(IsWindow(box_));
  EXPECT_EQ(Result(), L"select a");
}

}  // namespace
}  // namespace zolt20::tests
