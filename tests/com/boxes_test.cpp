// Boxes and lists as a person uses them, where the list of what any face does leaves it to Windows,
// and Undo.
#include "tests/com/com_test.h"

#include <commctrl.h>
#include <windowsx.h>

namespace zolt20::tests {
namespace {

class BoxesTest : public testing::Test {
 protected:
  BoxesTest() {
    EXPECT_EQ(container_.Create(CLSID_ZOLT20MapControl), S_OK);
    byName_ = com::Query<IDispatch>(container_.Control());
    EXPECT_EQ(container_.Activate(), S_OK);
    EXPECT_EQ(named().Put(L"PrpStrTables", L"ORDERITM0,ORDERLIN0,DISTRICT0"), S_OK);
    EXPECT_EQ(named().Put(L"PrpStrFields",
                          L"long*Q*V*R*N*YORDERITM.NO*Q*V*R*N*number,"
                          L"long*Q*V*R*N*YORDERLIN.NO*Q*V*R*N*number,"
                          L"long*Q*V*R*N*YDISTRICT.NO*Q*V*R*N*number"),
              S_OK);
    Pump();
  }
  ~BoxesTest() override { SetControl(false); }

  Named named() const { return {*byName_.Get()}; }
  HWND On(const wchar_t* name) const { return WindowOf(container_.Window(), name); }
  HWND LineOf(const wchar_t* combo) const {
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    GetComboBoxInfo(On(combo), &info);
    return info.hwndItem;
  }
  /// The button of the face with that caption.
  HWND Tool(const wchar_t* caption) const {
    struct Search {
      std::wstring caption;
      HWND found;
    } search{caption, nullptr};
    EnumChildWindows(
        container_.Window(),
        [](HWND window, LPARAM sought) WINAPI -> BOOL {
          auto& wanted = *reinterpret_cast<Search*>(sought);
          if (TextOf(window) == wanted.caption) wanted.found = window;
          return wanted.found == nullptr;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
  }
  static std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    return text;
  }
  void GoTo(int page) {
    EXPECT_EQ(named().Put(L"prpTab", Number(page)), S_OK);
    Pump();
  }
  static void Type(HWND box, const wchar_t* text) {
    SetFocus(box);
    for (; *text != L'\0'; ++text)
      SendMessageW(box, WM_CHAR, static_cast<WPARAM>(*text), 0);
  }
  static void Press(HWND window, WPARAM key) { SendMessageW(window, WM_KEYDOWN, key, 0); }
  static void PressWithControl(HWND window, WPARAM key) {
    SetControl(true);
    Press(window, key);
    SetControl(false);
  }
  static void SetControl(bool down) {
    BYTE keys[256]{};
    keys[VK_CONTROL] = down ? 0x80 : 0;
    SetKeyboardState(keys);
  }
  static void Paste(HWND box, const wchar_t* text) {
    ASSERT_TRUE(OpenClipboard(box));
    EmptyClipboard();
    const std::size_t bytes = (wcslen(text) + 1) * sizeof(wchar_t);
    const HGLOBAL data = GlobalAlloc(GMEM_MOVEABLE, bytes);
    memcpy(GlobalLock(data), text, bytes);
    GlobalUnlock(data);
    SetClipboardData(CF_UNICODETEXT, data);
    CloseClipboard();
    SetFocus(box);
    SendMessageW(box, WM_PASTE, 0, 0);
  }
  void PickAValue() {
    ClickRow(L"lsttables", 0);
    GoTo(1);
    const HWND combo = On(L"cboWhereFields1");
    SetFocus(LineOf(L"cboWhereFields1"));
    SendMessageW(combo, CB_SETCURSEL, 0, 0);
    SendMessageW(GetParent(combo), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(combo), CBN_SELENDOK),
                 reinterpret_cast<LPARAM>(combo));
    SendMessageW(GetParent(combo), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(combo), CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo));
    Pump();
  }
  LPARAM PlaceOf(HWND list, int row) {
    RECT place{};
    place.left = LVIR_LABEL;
    SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
    return MAKELPARAM(place.left + 2, (place.top + place.bottom) / 2);
  }
  void ClickRow(const wchar_t* list, int row) {
    const HWND window = On(list);
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, PlaceOf(window, row));
    SendMessageW(window, WM_LBUTTONUP, 0, PlaceOf(window, row));
  }
  static bool IsMarked(HWND list, int row) {
    return SendMessageW(list, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0;
  }

  Container container_{880, 620};
  Pointer<IDispatch> byName_;
};

// The value of a condition: a box that lists entries.

TEST_F(BoxesTest, ArrowsBehindATypedTextBeginWithTheFirstEntry) {
  PickAValue();
  const HWND line = LineOf(L"cboWhereFields1");
  const std::wstring entry = TextOf(line);
  Type(line, L"x");
  Press(line, VK_DOWN);
  EXPECT_EQ(TextOf(line), entry);
}

// Texts that are pasted.

TEST_F(BoxesTest, APastedTextComesWholeWithItsLineEndsAsCrLf) {
  GoTo(6);
  ClickOn(container_.Window(), L"optIfThen");
  Pump();
  Paste(On(L"txtCond"), L"a\r\nb\nc\rd");
  EXPECT_EQ(TextOf(On(L"txtCond")), L"a\r\nb\r\nc\r\nd");
  Paste(On(L"txtStmt1"), L"a\nb");
  EXPECT_EQ(TextOf(On(L"txtStmt1")), L"a\r\nb");
}

// Undo.

TEST_F(BoxesTest, ControlZTakesBackAStepAndControlYMakesItAgain) {
  const HWND tables = On(L"lsttables");
  const auto fields = [this] { return SendMessageW(On(L"lstFields"), LVM_GETITEMCOUNT, 0, 0); };
  ClickRow(L"lsttables", 1);
  EXPECT_TRUE(IsMarked(tables, 1));
  const LRESULT listed = fields();
  EXPECT_GT(listed, 0);
  PressWithControl(tables, L'Z');
  EXPECT_FALSE(IsMarked(tables, 1));
  EXPECT_EQ(fields(), 0);
  PressWithControl(tables, L'Y');
  EXPECT_TRUE(IsMarked(tables, 1));
  EXPECT_EQ(fields(), listed);
}

TEST_F(BoxesTest, TheButtonsDoTheSameAndLeaveTheFocus) {
  const HWND undo = Tool(L"Undo");
  const HWND redo = Tool(L"Redo");
  EXPECT_FALSE(IsWindowEnabled(undo));
  ClickRow(L"lsttables", 1);
  EXPECT_TRUE(IsWindowEnabled(undo));
  EXPECT_FALSE(IsWindowEnabled(redo));
  SetFocus(undo);
  SendMessageW(undo, BM_CLICK, 0, 0);
  EXPECT_FALSE(IsMarked(On(L"lsttables"), 1));
  EXPECT_FALSE(IsWindowEnabled(undo));
  EXPECT_TRUE(IsWindowEnabled(redo));
  EXPECT_NE(GetFocus(), undo);
  SendMessageW(redo, BM_CLICK, 0, 0);
  EXPECT_TRUE(IsMarked(On(L"lsttables"), 1));
}

TEST_F(BoxesTest, ABoxesOwnUndoComesFirst) {
  ClickRow(L"lsttables", 1);
  GoTo(0);  // written by the host: what was before is forgotten
  EXPECT_FALSE(IsWindowEnabled(Tool(L"Undo")));
  ClickRow(L"lsttables", 2);
  const HWND result = On(L"TxtOutput");
  Type(result, L"ab");
  EXPECT_NE(SendMessageW(result, EM_CANUNDO, 0, 0), 0);
  PressWithControl(result, L'Z');
  EXPECT_EQ(named().Text(L"prpStroutput"), L"");
  EXPECT_TRUE(IsMarked(On(L"lsttables"), 2));
}

TEST_F(BoxesTest, AWriteOfTheHostForgetsAndAReadDoesNot) {
  ClickRow(L"lsttables", 1);
  named().Text(L"prpStroutput");
  EXPECT_TRUE(IsWindowEnabled(Tool(L"Undo")));
  EXPECT_EQ(named().Call(L"ClearAll", {Number(9)}), S_OK);
  EXPECT_FALSE(IsWindowEnabled(Tool(L"Undo")));
}

}  // namespace
}  // namespace zolt20::tests
