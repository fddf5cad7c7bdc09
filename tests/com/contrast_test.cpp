// Every text has a contrast of at least 4.5 to 1 against its background, on each page and in each
// kind of control, whatever the system's colours. Disabled controls are exempt: the platform draws
// them paler, and every rule on contrast exempts them.
#include <ole2.h>
// The system's other headers need it.
#include <commctrl.h>
#include <richedit.h>
#include <windowsx.h>

#include <algorithm>

#include "faces/shared/statement_colors.h"
#include "tests/com/com_test.h"
#include "tests/com/schemes.h"

namespace zolt20::tests {
namespace {

bool Is(HWND window, const wchar_t* kind) {
  wchar_t name[32] = L"";
  GetClassNameW(window, name, 32);
  return lstrcmpiW(name, kind) == 0;
}

// A length on a screen of the usual resolution, on this one.
int Pixels(int length) {
  const HDC screen = GetDC(nullptr);
  const int resolution = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return MulDiv(length, resolution, USER_DEFAULT_SCREEN_DPI);
}

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
  GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
  return text;
}

// The size of a text in the letters of the window.
SIZE SizeOf(HWND window, const std::wstring& text) {
  const HDC canvas = GetDC(window);
  const HGDIOBJ before =
      SelectObject(canvas, reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)));
  SIZE size{};
  GetTextExtentPoint32W(canvas, text.data(), static_cast<int>(text.size()), &size);
  SelectObject(canvas, before);
  ReleaseDC(window, canvas);
  return size;
}

struct Piece {
  RECT place;  // in its window
  std::wstring what;
};
using Pieces = std::vector<Piece>;

Pieces RowsOf(HWND list) {
  Pieces pieces;
  const auto top = static_cast<int>(SendMessageW(list, LVM_GETTOPINDEX, 0, 0));
  const auto count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
  const auto seen = static_cast<int>(SendMessageW(list, LVM_GETCOUNTPERPAGE, 0, 0));
  for (int row = top; row < std::min(count, top + seen); ++row) {
    for (int column = 0; column < 2; ++column) {
      wchar_t text[256] = L"";
      LVITEMW item{};
      item.iSubItem = column;
      item.pszText = text;
      item.cchTextMax = 256;
      SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&item));
      RECT place{LVIR_LABEL, column, 0, 0};
      SendMessageW(list, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&place));
      const bool isThere = column == 0 || IsRectEmpty(&place) == FALSE;
      if (text[0] != L'\0' && isThere) pieces.push_back({place, text});
    }
  }
  return pieces;
}

Pieces TabsOf(HWND strip) {
  Pieces pieces;
  const auto count = static_cast<int>(SendMessageW(strip, TCM_GETITEMCOUNT, 0, 0));
  for (int tab = 0; tab < count; ++tab) {
    RECT place{};
    SendMessageW(strip, TCM_GETITEMRECT, static_cast<WPARAM>(tab),
                 reinterpret_cast<LPARAM>(&place));
    InflateRect(&place, -5, -4);
    pieces.push_back({place, L"tab " + std::to_wstring(tab)});
  }
  return pieces;
}

// The words in sight, each by itself: those that have a colour, and the others.
Pieces WordsOf(HWND box) {
  const std::wstring text = [box] {
    GETTEXTLENGTHEX asked{GTL_NUMCHARS | GTL_PRECISE, 1200};
    std::wstring read(static_cast<std::size_t>(SendMessageW(box, EM_GETTEXTLENGTHEX,
                                                            reinterpret_cast<WPARAM>(&asked), 0)),
                      L'\0');
    GETTEXTEX get{};
    get.cb = static_cast<DWORD>((read.size() + 1) * sizeof(wchar_t));
    get.codepage = 1200;
    SendMessageW(box, EM_GETTEXTEX, reinterpret_cast<WPARAM>(&get),
                 reinterpret_cast<LPARAM>(read.data()));
    return read;
  }();
  const int line = Pixels(12);  // no more than it has
  RECT inside{};
  GetClientRect(box, &inside);
  const auto at = [box](std::size_t character) {
    POINTL point{};
    SendMessageW(box, EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&point),
                 static_cast<LPARAM>(character));
    return point;
  };
  Pieces pieces;
  const auto add = [&](std::size_t first, std::size_t behind) {
    const std::wstring word = text.substr(first, behind - first);
    if (std::none_of(word.begin(), word.end(), [](wchar_t each) { return iswalnum(each) != 0; }))
      return;
    const POINTL from = at(first);
    const POINTL to = at(behind);
    const RECT place{from.x, from.y, to.x, from.y + line};
    if (place.left >= 0 && place.top >= 0 && place.right <= inside.right &&
        place.bottom <= inside.bottom)
      pieces.push_back({place, word});
  };
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find(L'\r', start), text.size());
    const String letters(text.begin() + static_cast<std::ptrdiff_t>(start),
                         text.begin() + static_cast<std::ptrdiff_t>(end));
    std::size_t done = 0;
    for (const faces::ColoredWord& word : faces::ColoredWordsOf(letters)) {
      add(start + done, start + word.first);
      add(start + word.first, start + word.first + word.count);
      done = word.first + word.count;
    }
    add(start + done, end);
    start = end + 1;
  }
  return pieces;
}

// The first line of a box, or what it says while it is empty.
Piece LineOf(HWND box) {
  std::wstring text = TextOf(box);
  text = text.substr(0, text.find(L'\r'));
  const bool isCue = text.empty();
  if (isCue) {
    wchar_t cue[64] = L"";
    SendMessageW(box, EM_GETCUEBANNER, reinterpret_cast<WPARAM>(cue), 64);
    text = cue;
  }
  RECT inside{};
  SendMessageW(box, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&inside));
  const SIZE size = SizeOf(box, text);
  const LONG height = std::min<LONG>(inside.top + size.cy, inside.bottom);
  return {{inside.left, inside.top, std::min<LONG>(inside.left + size.cx, inside.right), height},
          text};
}

// Texts of a window, where they stand in it.
Pieces TextsIn(HWND window) {
  if (Is(window, WC_LISTVIEWW)) return RowsOf(window);
  if (Is(window, WC_TABCONTROLW)) return TabsOf(window);
  if (Is(window, MSFTEDIT_CLASS)) return WordsOf(window);
  if (Is(window, WC_EDITW)) {
    const Piece line = LineOf(window);
    return line.what.empty() ? Pieces{} : Pieces{line};
  }
  const std::wstring text = TextOf(window);
  RECT place{};
  GetClientRect(window, &place);
  const bool isPlain = Is(window, WC_BUTTONW) || Is(window, WC_STATICW);
  const bool isPicked = Is(window, WC_COMBOBOXW) && (GetWindowLongPtrW(window, GWL_STYLE) &
                                                     CBS_DROPDOWNLIST) == CBS_DROPDOWNLIST;
  // A frame has its caption at the top.
  if (!isPlain && !isPicked) place.bottom = SizeOf(window, text).cy + 4;
  if (isPlain || isPicked) InflateRect(&place, -4, -2);
  if (isPicked) place.right -= GetSystemMetrics(SM_CXVSCROLL) + 4;
  const bool isPanel = NameOf(GetParent(window)) == NameOf(window);
  if (text.empty() || isPanel) return {};
  return {{place, text}};
}

class ContrastTest : public testing::TestWithParam<Scheme> {
 protected:
  void Play(const wchar_t* session, int lines) {
    EXPECT_EQ(player_.PlayTo(Sessions() + L"\\" + session + L".jsonl", lines),
              std::vector<std::string>{});
    byName_ = com::Query<IDispatch>(container_.Control());
    EXPECT_EQ(named().Put(L"Syntax_Highlight", Truth(true)), S_OK);
    Pump();
  }
  Named named() const { return {*byName_.Get()}; }
  HWND On(const wchar_t* name) const { return WindowOf(container_.Window(), name); }
  void TurnTo(int page) const {
    named().Put(L"prpTab", Number(page));
    Pump();
  }
  static void Key(WPARAM key) {
    SendMessageW(GetFocus(), WM_KEYDOWN, key, 0);
    Pump();
  }
  static void Type(const wchar_t* text) {
    for (; *text != L'\0'; ++text)
      SendMessageW(GetFocus(), WM_CHAR, static_cast<WPARAM>(*text), 0);
    Pump();
  }
  static void Redraw(HWND window) {
    Pump();
    RedrawWindow(window, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_UPDATENOW | RDW_ALLCHILDREN);
    Pump();
  }
  /// Of one window, on a picture of it or of one around it.
  static int ExpectTextsOf(HWND window, HWND around, const Screen& screen) {
    int texts = 0;
    for (Piece& piece : TextsIn(window)) {
      MapWindowPoints(window, around, reinterpret_cast<POINT*>(&piece.place), 2);
      const std::wstring name = NameOf(window) + L": " + piece.what;
      EXPECT_GE(ContrastAt(screen, piece.place), kReadable)
          << std::string(name.begin(), name.end());
      ++texts;
    }
    return texts;
  }
  int ExpectTextsOf(HWND window) const {
    Redraw(window);
    return ExpectTextsOf(window, window, Screen(window));
  }
  /// All that is in sight. The name is that of a picture.
  void ExpectTextsToBeRead(const std::wstring& picture) const;

  SchemeColors colors_{GetParam()};
  Container container_{Pixels(880), Pixels(680)};

 private:
  SessionPlayer player_{[this] { return Embed(container_); }};
  Pointer<IDispatch> byName_;
};

void ContrastTest::ExpectTextsToBeRead(const std::wstring& picture) const {
  Redraw(container_.Window());
  const Screen screen(container_.Window());
  wchar_t folder[MAX_PATH] = L"";
  if (GetEnvironmentVariableW(L"ZOLT20_PICTURES", folder, MAX_PATH) != 0)
    screen.Save(std::wstring(folder) + L"\\" + GetParam().name + L"-" +
                std::to_wstring(Pixels(96)) + L"-" + picture + L".png");
  std::vector<HWND> windows;
  EnumChildWindows(
      container_.Window(),
      [](HWND window, LPARAM data) WINAPI -> BOOL {
        if (IsWindowVisible(window) && IsWindowEnabled(window))
          reinterpret_cast<std::vector<HWND>*>(data)->push_back(window);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&windows));
  int texts = 0;
  for (const HWND window : windows)
    texts += ExpectTextsOf(window, container_.Window(), screen);
  EXPECT_GT(texts, 10);
}

TEST_P(ContrastTest, OnThePagesOfASelectStatement) {
  Play(L"where-report", 12);
  ExpectTextsToBeRead(L"marked");
  Play(L"full-statement", -1);
  for (int page = 0; page < 7; ++page) {
    TurnTo(page);
    ExpectTextsToBeRead(std::to_wstring(page));
  }
}

TEST_P(ContrastTest, OnTheRowsOfAnOnCase) {
  Play(L"mapping-rule", 40);
  ExpectTextsToBeRead(L"case");
}

TEST_P(ContrastTest, OnThePanelOfEachKindOfStatement) {
  Play(L"mapping-rule", 2);
  TurnTo(6);
  for (const wchar_t* option : {L"optIfThen", L"optwhile", L"optRepeat", L"optFor", L"optCase"}) {
    ClickOn(container_.Window(), option);
    ExpectTextsToBeRead(option);
  }
}

TEST_P(ContrastTest, OfOperandsAndTheListsTheyArePickedFrom) {
  Play(L"where-report", 12);
  TurnTo(1);
  SetFocus(On(L"cboWhereFields"));
  Key(VK_F4);
  const HWND line = On(L"cboWhereFields.search");
  ASSERT_TRUE(line != nullptr && IsWindowVisible(line));
  EXPECT_EQ(ExpectTextsOf(line), 1) << "what an empty line says";
  EXPECT_GT(ExpectTextsOf(On(L"cboWhereFields.entries")), 2);
  Type(L"O_");
  EXPECT_EQ(ExpectTextsOf(line), 1);
  Key(VK_DOWN);
  ExpectTextsToBeRead(L"search");
  Key(VK_RETURN);
  // The platform's own list.
  const HWND operators = On(L"cboOper");
  SetFocus(operators);
  SendMessageW(operators, CB_SHOWDROPDOWN, TRUE, 0);
  Key(VK_DOWN);
  COMBOBOXINFO info{};
  info.cbSize = sizeof info;
  ASSERT_TRUE(GetComboBoxInfo(operators, &info));
  Redraw(info.hwndList);
  const Screen list(info.hwndList);
  const auto height = static_cast<LONG>(SendMessageW(info.hwndList, LB_GETITEMHEIGHT, 0, 0));
  ASSERT_GT(list.Height(), 2 * height);
  for (LONG top = 0; top + height <= list.Height(); top += height)
    EXPECT_GE(ContrastAt(list, {1, top, list.Width() - 1, top + height}), kReadable) << top;
  Key(VK_RETURN);
  SetFocus(On(L"cboWhereFields1"));
  Type(L"4711");
  SetFocus(On(L"txtAsSet"));
  ExpectTextsToBeRead(L"operands");
}

TEST_P(ContrastTest, OfWhatIsSelected) {
  Play(L"full-statement", -1);
  TurnTo(2);
  SetFocus(On(L"txtSelectDo"));
  SendMessageW(GetFocus(), EM_SETSEL, 0, -1);
  Pump();
  ExpectTextsToBeRead(L"selected-statements");
  TurnTo(1);
  for (const wchar_t* box : {L"txtCondition", L"txtAsSet", L"lstorderbyasc.filter"}) {
    SetFocus(On(box));
    Type(L"12");
    SendMessageW(On(box), EM_SETSEL, 0, -1);
    Pump();
    EXPECT_EQ(ExpectTextsOf(On(box)), 1);
  }
}

TEST_P(ContrastTest, OfNamesBesideRowsAndOfWhatAFilterHides) {
  Play(L"where-report", 12);
  VARIANT codes;
  VARIANT names;
  for (VARIANT* each : {&codes, &names}) {
    V_VT(each) = VT_ARRAY | VT_BSTR;
    V_ARRAY(each) = SafeArrayCreateVector(VT_BSTR, 0, 2);
  }
  LONG place = 0;
  for (const auto& [code, name] :
       {std::pair(L"CUSTOMER", L"Customers"), std::pair(L"DISTRICT", L"Districts")}) {
    SafeArrayPutElement(V_ARRAY(&codes), &place, Bstr(code).Get());
    SafeArrayPutElement(V_ARRAY(&names), &place, Bstr(name).Get());
    ++place;
  }
  EXPECT_EQ(com::Query<IZOLT20MapControlView>(container_.Control())->SetTableNames(codes, names),
            S_OK);
  VariantClear(&codes);
  VariantClear(&names);
  ExpectTextsToBeRead(L"names");
  SetWindowTextW(On(L"lsttables.filter"), L"D");
  Pump();
  EXPECT_NE(TextOf(On(L"lsttables.marks")), L"");
  ExpectTextsToBeRead(L"hidden");
}

TEST_P(ContrastTest, InTheColorsOfTheContainer) {
  container_.colors = {RGB(30, 20, 80), RGB(250, 240, 200)};
  Play(L"where-report", 12);
  SetWindowTextW(On(L"lsttables.filter"), L"D");
  const HWND marks = On(L"lsttables.marks");
  ExpectTextsToBeRead(L"container");
  EXPECT_EQ(Screen(marks).At(1, 1), RGB(30, 20, 80)) << "what a filter hides is told on the form";
  TurnTo(6);
  ExpectTextsToBeRead(L"container-6");
}

TEST_P(ContrastTest, OfATip) {
  Play(L"where-report", 12);
  const std::wstring cut = L"CUSTOMER." + std::wstring(80, L'X') + L"_END";
  EXPECT_EQ(named().Put(L"prpSelectPart", (cut + L",").c_str()), S_OK);
  const HWND list = On(L"lstSelectedFields");
  const Pieces rows = RowsOf(list);
  const auto row = std::find_if(rows.begin(), rows.end(),
                                [&cut](const Piece& each) { return each.what == cut; });
  ASSERT_NE(row, rows.end());
  const LPARAM at = MAKELPARAM(row->place.left + 20, (row->place.top + row->place.bottom) / 2);
  POINT point{GET_X_LPARAM(at), GET_Y_LPARAM(at)};
  ClientToScreen(list, &point);
  SetCursorPos(point.x, point.y);
  SendMessageW(list, WM_MOUSEMOVE, 0, at);
  SendMessageW(list, WM_MOUSEMOVE, 0, at);
  HWND tip = nullptr;
  const auto find = [](HWND window, LPARAM data) WINAPI -> BOOL {
    if (Is(window, TOOLTIPS_CLASSW) && IsWindowVisible(window))
      *reinterpret_cast<HWND*>(data) = window;
    return TRUE;
  };
  for (int tries = 0; tries < 100 && tip == nullptr; ++tries) {
    Sleep(20);
    Pump();
    EnumThreadWindows(GetCurrentThreadId(), find, reinterpret_cast<LPARAM>(&tip));
  }
  ASSERT_NE(tip, nullptr);
  Redraw(tip);
  const Screen screen(tip);
  EXPECT_GE(ContrastAt(screen, {3, 2, screen.Width() - 3, screen.Height() - 2}), kReadable);
}

TEST_P(ContrastTest, InABoxOfStatementsByItself) {
  Container container{600, 300};
  CLSID id{};
  ASSERT_EQ(CLSIDFromProgID(L"ZOLT21TextBox.ZOLT21SyntTextBox", &id), S_OK);
  ASSERT_EQ(container.Create(id), S_OK);
  const auto byName = com::Query<IDispatch>(container.Control());
  const Named box{*byName.Get()};
  EXPECT_EQ(box.Put(L"Text", L"if :a = \"hill\" and upper(B) <> 12 then\r\nselectdo\r\nplain"),
            S_OK);
  EXPECT_EQ(box.Put(L"Highlight", Truth(true)), S_OK);
  EXPECT_EQ(container.Activate(OLEIVERB_INPLACEACTIVATE), S_OK);
  VARIANT window;
  EXPECT_EQ(box.Get(L"hWnd", window), S_OK);
  const auto inside = reinterpret_cast<HWND>(static_cast<LONG_PTR>(V_I4(&window)));
  EXPECT_GT(ExpectTextsOf(inside), 8);
  SetFocus(inside);
  SendMessageW(inside, EM_SETSEL, 0, -1);
  EXPECT_GT(ExpectTextsOf(inside), 8);
  container.GiveUp();
}

TEST_P(ContrastTest, WhenTheColorsBecomeOthers) {
  Play(L"full-statement", -1);
  const auto& schemes = Schemes();
  const auto own = std::find_if(schemes.begin(), schemes.end(), [](const Scheme& scheme) {
    return scheme.Name() == GetParam().Name();
  });
  const SchemeColors others(own + 1 == schemes.end() ? schemes.front() : *(own + 1));
  SendMessageW(GetWindow(container_.Window(), GW_CHILD), WM_SYSCOLORCHANGE, 0, 0);
  for (const int page : {0, 2}) {
    TurnTo(page);
    ExpectTextsToBeRead(L"changed-" + std::to_wstring(page));
  }
}

TEST_P(ContrastTest, ListsAreOfTheColorOfBoxes) {
  Play(L"where-report", 12);
  Pump();
  const HWND list = On(L"lsttables");
  RECT inside{};
  GetClientRect(list, &inside);
  EXPECT_EQ(Screen(list).At(inside.right - 3, inside.bottom - 3), GetSysColor(COLOR_WINDOW));
}

INSTANTIATE_TEST_SUITE_P(Schemes, ContrastTest, testing::ValuesIn(Schemes()),
                         [](const auto& given) { return given.param.Name(); });

}  // namespace
}  // namespace zolt20::tests
