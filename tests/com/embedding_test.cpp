// The control in a container: in-place activation, drawing, and its release while a call is in
// progress.
#include <ole2.h>
// The system's other headers need it.
#include <commctrl.h>
#include <objsafe.h>
#include <psapi.h>
#include <richedit.h>

#include <algorithm>
#include <cstring>
#include <map>

#include "faces/shared/statement_colors.h"
#include "shell/control.h"
#include "tests/com/com_test.h"
#include "tests/com/message_boxes.h"

namespace zolt20::tests {
namespace {

class EmbeddingTest : public testing::Test {
 protected:
  EmbeddingTest() {
    EXPECT_EQ(container_.Create(CLSID_ZOLT20MapControl), S_OK);
    byName_ = com::Query<IDispatch>(container_.Control());
  }
  Named named() const { return {*byName_.Get()}; }
  void Activate() {
    ASSERT_EQ(container_.Activate(), S_OK);
    Pump();
  }
  void Catalogue() const { WriteCatalogue(named()); }
  HWND On(const wchar_t* name) const { return WindowOf(container_.Window(), name); }
  template <typename Interface>
  Pointer<Interface> As() const {
    return com::Query<Interface>(container_.Control());
  }
  static std::wstring TextOf(HWND window) {
    wchar_t text[256] = L"";
    GetWindowTextW(window, text, 256);
    return text;
  }

  Container container_{880, 620};
  Pointer<IDispatch> byName_;
  std::vector<std::wstring> boxes_;  // message boxes that came
  std::function<void()> onBox_;
  MessageBoxes answers_{[this](const std::wstring& title, const std::wstring& text) {
    boxes_.push_back(title + L": " + text);
    if (onBox_) onBox_();
  }};
};

TEST_F(EmbeddingTest, ItIsSafeForScriptsAndForValuesOfAnybody) {
  Pointer<IObjectSafety> safety;
  ASSERT_EQ(container_.Control()->QueryInterface(IID_IObjectSafety,
                                                 reinterpret_cast<void**>(safety.Put())),
            S_OK);
  constexpr DWORD kSafe = INTERFACESAFE_FOR_UNTRUSTED_CALLER | INTERFACESAFE_FOR_UNTRUSTED_DATA;
  for (const IID* id : {&IID_IDispatch, &IID_IPersistStreamInit, &IID_IPersistPropertyBag}) {
    DWORD supported = 0;
    DWORD enabled = 0;
    EXPECT_EQ(safety->GetInterfaceSafetyOptions(*id, &supported, &enabled), S_OK);
    EXPECT_EQ(supported, kSafe);
    EXPECT_EQ(enabled, kSafe);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(*id, kSafe, kSafe), S_OK);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(*id, INTERFACE_USES_SECURITY_MANAGER,
                                                INTERFACE_USES_SECURITY_MANAGER),
              E_FAIL);
    EXPECT_EQ(safety->GetInterfaceSafetyOptions(*id, nullptr, &enabled), E_POINTER);
  }
  DWORD supported = kSafe;
  DWORD enabled = kSafe;
  EXPECT_EQ(safety->GetInterfaceSafetyOptions(IID_IMarshal, &supported, &enabled), E_NOINTERFACE);
  EXPECT_EQ(supported, 0U);
  EXPECT_EQ(enabled, 0U);
  EXPECT_EQ(safety->SetInterfaceSafetyOptions(IID_IMarshal, kSafe, kSafe), E_NOINTERFACE);
}

TEST_F(EmbeddingTest, ItHasNoWindowBeforeItIsActive) {
  HWND window = nullptr;
  EXPECT_EQ(As<IOleInPlaceObject>()->GetWindow(&window), E_FAIL);
  Activate();
  EXPECT_EQ(As<IOleInPlaceObject>()->GetWindow(&window), S_OK);
  EXPECT_TRUE(IsWindowVisible(window));
  EXPECT_EQ(GetParent(window), container_.Window());
}

TEST_F(EmbeddingTest, TheWindowsShowWhatTheControlHas) {
  Activate();
  Catalogue();
  EXPECT_EQ(SendMessageW(On(L"lsttables"), LVM_GETITEMCOUNT, 0, 0), 2);
  EXPECT_EQ(TextOf(On(L"cmdCancelWhere")), L"Cl&ear");
  named().Put(L"prpTab", Number(6));
  EXPECT_TRUE(IsWindowVisible(On(L"optFor")));
  EXPECT_FALSE(IsWindowVisible(On(L"lsttables")));
  EXPECT_FALSE(IsWindowEnabled(On(L"cmdBuild")));
  named().Put(L"prpStroutput", L"a~b");
  EXPECT_EQ(named().Text(L"prpStroutput"), L"a\r\nb");
  GETTEXTLENGTHEX length{GTL_DEFAULT, 1200};
  EXPECT_EQ(
      SendMessageW(On(L"TxtOutput"), EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&length), 0), 3);
}

TEST_F(EmbeddingTest, WhatIsDoneBeforeItIsActiveIsThereThen) {
  Catalogue();
  named().Put(L"prpSelectPart", L"CUSTOMER.NAME,");
  Activate();
  EXPECT_EQ(SendMessageW(On(L"lstSelectedFields"), LVM_GETITEMCOUNT, 0, 0), 1);
  EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
  EXPECT_EQ(On(L"lstSelectedFields"), nullptr);
  Activate();
  EXPECT_EQ(SendMessageW(On(L"lstSelectedFields"), LVM_GETITEMCOUNT, 0, 0), 1);
}

TEST_F(EmbeddingTest, TheSiteIsToldInOrder) {
  Activate();
  As<IOleInPlaceObject>()->UIDeactivate();
  As<IOleInPlaceObject>()->InPlaceDeactivate();
  std::vector<std::string> told;
  for (const std::string& each : container_.told) {
    if (each.find("focus") == std::string::npos) told.push_back(each);
  }
  EXPECT_EQ(told, (std::vector<std::string>{"in place", "ui", "no ui", "not in place"}));
}

// The boxes of statements.

std::wstring LinesOf(HWND box) {
  GETTEXTLENGTHEX length{GTL_NUMCHARS, 1200};
  std::wstring text(static_cast<std::size_t>(SendMessageW(box, EM_GETTEXTLENGTHEX,
                                                          reinterpret_cast<WPARAM>(&length), 0)),
                    L'\0');
  GETTEXTEX get{};
  get.cb = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  get.codepage = 1200;
  SendMessageW(box, EM_GETTEXTEX, reinterpret_cast<WPARAM>(&get),
               reinterpret_cast<LPARAM>(text.data()));
  return text;
}

COLORREF ColorAt(HWND box, LONG at) {
  CHARRANGE before{};
  SendMessageW(box, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&before));
  CHARRANGE character{at, at + 1};
  SendMessageW(box, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&character));
  CHARFORMAT2W format{};
  format.cbSize = sizeof format;
  SendMessageW(box, EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  SendMessageW(box, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&before));
  return (format.dwEffects & CFE_AUTOCOLOR) != 0 ? CLR_DEFAULT : format.crTextColor;
}

void TypeInto(HWND box, const wchar_t* text) {
  SetFocus(box);
  SendMessageW(box, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text));
  Pump();
}

class StatementBoxTest : public EmbeddingTest {
 protected:
  void SetUp() override {
    named().Put(L"Syntax_Highlight", Truth(true));
    named().Put(L"prpTab", Number(2));
    Activate();
    box_ = On(L"txtSelectDo");
  }
  static COLORREF OfKeyword() {
    const std::uint32_t rgb = faces::LookOf(faces::WordKind::kKeyword).onLight;
    return RGB((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF);
  }

  HWND box_ = nullptr;
};

TEST_F(StatementBoxTest, WordsHaveTheirColorsAsLongAsTheyAreWanted) {
  TypeInto(box_, L"if a\rprint");
  EXPECT_EQ(ColorAt(box_, 0), OfKeyword());
  EXPECT_EQ(ColorAt(box_, 3), CLR_DEFAULT);
  named().Put(L"Syntax_Highlight", Truth(false));
  EXPECT_EQ(ColorAt(box_, 0), CLR_DEFAULT);
}

TEST_F(StatementBoxTest, LinesAreColoredWhenTheyComeIntoSight) {
  std::wstring text;
  for (int i = 0; i < 200; ++i)
    text += L"if a\r";
  TypeInto(box_, text.c_str());
  SendMessageW(box_, WM_VSCROLL, SB_TOP, 0);
  EXPECT_EQ(ColorAt(box_, 0), OfKeyword());
  EXPECT_EQ(ColorAt(box_, 5 * 100), CLR_DEFAULT);
  for (int i = 0; i < 100; ++i)
    SendMessageW(box_, WM_VSCROLL, SB_LINEDOWN, 0);
  const auto first = static_cast<LONG>(SendMessageW(box_, EM_GETFIRSTVISIBLELINE, 0, 0));
  EXPECT_GT(first, 20);
  EXPECT_EQ(ColorAt(box_, 5 * (first + 1)), OfKeyword());
}

TEST_F(StatementBoxTest, WhatIsTypedBetweenStaysWhereItIsTyped) {
  EXPECT_EQ(named().Put(L"prpSelectDoPart", L"one~two"), S_OK);
  EXPECT_EQ(LinesOf(box_), L"one\rtwo");
  CHARRANGE caret{3, 3};
  SendMessageW(box_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&caret));
  TypeInto(box_, L"\rand");
  EXPECT_EQ(LinesOf(box_), L"one\rand\rtwo");
  SendMessageW(box_, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&caret));
  EXPECT_EQ(caret.cpMax, 7);
}

TEST_F(StatementBoxTest, ColoringIsNoStepOfItsOwnForUndo) {
  TypeInto(box_, L"if");
  SendMessageW(box_, EM_UNDO, 0, 0);
  EXPECT_EQ(LinesOf(box_), L"");
}

TEST_F(StatementBoxTest, WhatIsPastedIsItsTextAlone) {
  ASSERT_TRUE(OpenClipboard(container_.Window()));
  EmptyClipboard();
  const auto put = [](UINT format, const void* bytes, std::size_t count) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, count);
    std::memcpy(GlobalLock(memory), bytes, count);
    GlobalUnlock(memory);
    SetClipboardData(format, memory);
  };
  constexpr char kRich[] = "{\\rtf1{\\colortbl;\\red255\\green0\\blue0;}\\cf1\\b\\i abc}";
  put(RegisterClipboardFormatW(L"Rich Text Format"), kRich, sizeof kRich);
  put(CF_UNICODETEXT, L"abc", sizeof L"abc");
  CloseClipboard();
  SetFocus(box_);
  SendMessageW(box_, WM_PASTE, 0, 0);
  Pump();
  EXPECT_EQ(LinesOf(box_), L"abc");
  EXPECT_EQ(ColorAt(box_, 1), CLR_DEFAULT);
}

TEST_F(EmbeddingTest, ARequestIsAnsweredInsideItsEvent) {
  Activate();
  Listener listener(*container_.Control());
  listener.onEvent = [this](DISPID) {
    EXPECT_EQ(named().Text(L"prpStrSQLPart"), L"D");
    EXPECT_EQ(named().Put(L"prpSelectDoPart", L"x"), S_OK);
  };
  named().Put(L"prpTab", Number(2));
  listener.told.clear();
  ClickOn(container_.Window(), L"cmdSubQuery(0)");
  EXPECT_EQ(listener.told, (std::vector<std::string>{"event 3", "changed 12"}));
}

// The reference, a control without windows that gets the same gestures: where Tab has to go.
class Twin final : private ControlHost {
 public:
  explicit Twin(int page) {
    control_.UserControl_InitProperties();
    control_.prpTab(page);
    if (control_.Form().Focused() == nullptr) Step(true);
  }
  std::wstring Focused() const {
    const Control* focused = control_.Form().Focused();
    if (focused == nullptr) return {};
    const std::string name(focused->name());
    return {name.begin(), name.end()};
  }
  // Whether there is a next control.
  bool Step(bool forward) {
    std::vector<const Control*> stops;
    for (const Control* control : control_.Form().TabOrder()) {
      if (control->TakesFocus() && control->Enabled() && control->Shown()) stops.push_back(control);
    }
    if (!forward) std::reverse(stops.begin(), stops.end());
    auto next = std::find(stops.begin(), stops.end(), control_.Form().Focused());
    next = next == stops.end() ? stops.begin() : next + 1;
    if (next == stops.end()) return false;
    control_.UserFocus(**next);
    return true;
  }

 private:
  void eventCancel() override {}
  void eventDone() override {}
  void eventSubQuery() override {}
  void eventCondition() override {}
  void eventFunction() override {}
  void PropertyChanged(std::string_view) override {}
  void ShowMessage(const Message&) override {}

  ZOLT20MapControl control_{*this};
};

void HoldShift(bool hold) {
  BYTE keys[256];
  GetKeyboardState(keys);
  keys[VK_SHIFT] = hold ? 0x80 : 0;
  SetKeyboardState(keys);
}

class TabKeyTest : public EmbeddingTest, public testing::WithParamInterface<int> {};

TEST_P(TabKeyTest, WalksTheOrderOfTheSurfaceAndLeavesAtItsEnds) {
  named().Put(L"prpTab", Number(GetParam()));
  Activate();
  Twin twin(GetParam());
  const auto active = As<IOleInPlaceActiveObject>();
  MSG tab{};
  tab.message = WM_KEYDOWN;
  tab.wParam = VK_TAB;
  for (const bool forward : {true, false}) {
    HoldShift(!forward);
    container_.told.clear();
    int steps = 0;
    for (constexpr int kMoreThanControls = 100; steps < kMoreThanControls; ++steps) {
      ASSERT_EQ(NameOf(GetFocus()), twin.Focused());
      const bool goesOn = twin.Step(forward);
      tab.hwnd = GetFocus();
      ASSERT_EQ(active->TranslateAccelerator(&tab), goesOn ? S_OK : S_FALSE);
      if (!goesOn) break;
    }
    EXPECT_GT(steps, 5);
    EXPECT_EQ(container_.told, std::vector<std::string>{"tab"});
  }
  HoldShift(false);
}

INSTANTIATE_TEST_SUITE_P(Each, TabKeyTest, testing::Range(0, 7));

TEST_F(EmbeddingTest, LettersWithAltClickWhatCanBeClicked) {
  Activate();
  Listener listener(*container_.Control());
  CONTROLINFO info{};
  EXPECT_EQ(As<IOleControl>()->GetControlInfo(&info), S_OK);
  EXPECT_GT(info.cAccel, 10);
  MSG letter{};
  letter.message = WM_SYSCHAR;
  letter.wParam = L'd';
  EXPECT_EQ(As<IOleControl>()->OnMnemonic(&letter), S_OK);
  EXPECT_EQ(listener.told, std::vector<std::string>{"event 2"});
  letter.wParam = L'n';  // "And", on another page
  EXPECT_EQ(As<IOleControl>()->OnMnemonic(&letter), S_OK);
  EXPECT_EQ(listener.told, std::vector<std::string>{"event 2"});
}

TEST_F(EmbeddingTest, WhereTheUserIsDeadNothingCanBeClicked) {
  container_.uiDead = true;
  Activate();
  HWND window = nullptr;
  As<IOleInPlaceObject>()->GetWindow(&window);
  EXPECT_FALSE(IsWindowEnabled(window));
  container_.uiDead = false;
  As<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_UIDEAD);
  EXPECT_TRUE(IsWindowEnabled(window));
}

TEST_F(EmbeddingTest, ItIsDrawnWithoutBeingActive) {
  Catalogue();
  const HDC screen = GetDC(nullptr);
  const HDC canvas = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, 400, 300);
  SelectObject(canvas, bitmap);
  PatBlt(canvas, 0, 0, 400, 300, BLACKNESS);
  const RECTL place{0, 0, 400, 300};
  EXPECT_EQ(As<IViewObject2>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, canvas,
                                     &place, nullptr, nullptr, 0),
            S_OK);
  std::map<COLORREF, int> colors;
  for (int y = 0; y < 300; y += 3) {
    for (int x = 0; x < 400; x += 3)
      ++colors[GetPixel(canvas, x, y)];
  }
  EXPECT_GT(colors.size(), 3U);
  EXPECT_GT(colors[GetSysColor(COLOR_WINDOW)], 1000);
  EXPECT_EQ(As<IViewObject2>()->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, canvas, &place,
                                     nullptr, nullptr, 0),
            DV_E_DVASPECT);
  DeleteDC(canvas);
  DeleteObject(bitmap);
  ReleaseDC(nullptr, screen);
}

TEST_F(EmbeddingTest, ItHasTheSizeThatItIsGiven) {
  SIZEL size{10'000, 8'000};
  EXPECT_EQ(As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size), S_OK);
  SIZEL now{};
  EXPECT_EQ(As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &now), S_OK);
  EXPECT_EQ(now.cx, 10'000);
  EXPECT_EQ(now.cy, 8'000);
  Activate();
  const RECT place{10, 20, 700, 500};
  EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(&place, &place), S_OK);
  HWND window = nullptr;
  As<IOleInPlaceObject>()->GetWindow(&window);
  RECT whole{};
  GetWindowRect(window, &whole);
  EXPECT_EQ(whole.right - whole.left, 690);
  EXPECT_EQ(whole.bottom - whole.top, 480);
}

TEST_F(EmbeddingTest, MessagesHaveTheirTitle) {
  Activate();
  ClickOn(container_.Window(), L"cmdMoveOne");
  EXPECT_EQ(
      boxes_,
      std::vector<std::wstring>{
          L"Maintain Mapping Objects: Tables Not Selected --Select A Table To Proceed Further"});
}

// The keyboard in a list.

class ListKeysTest : public EmbeddingTest {
 protected:
  void SetUp() override {
    Activate();
    EXPECT_EQ(named().Put(L"PrpStrTables", L"CUSTOMER1,ORDERITM0,DISTRICT0"), S_OK);
    EXPECT_EQ(named().Put(L"PrpStrFields",
                          L"char*Q*V*R*N*NCUSTOMER.NAME*Q*V*R*N*name,"
                          L"char*Q*V*R*N*NCUSTOMER.CITY*Q*V*R*N*name,"
                          L"long*Q*V*R*N*YORDERITM.NO*Q*V*R*N*number,"
                          L"long*Q*V*R*N*YDISTRICT.NO*Q*V*R*N*number"),
              S_OK);
  }
  static void Press(HWND window, std::initializer_list<WPARAM> keys) {
    for (const WPARAM key : keys)
      SendMessageW(window, WM_KEYDOWN, key, 0);
  }
  static std::vector<int> Marked(HWND list) {
    std::vector<int> rows;
    const auto count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    for (int row = 0; row < count; ++row) {
      if (SendMessageW(list, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0)
        rows.push_back(row);
    }
    return rows;
  }
  static LRESULT Focused(HWND list) {
    return SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED);
  }
};

TEST_F(ListKeysTest, ArrowsGoToRowsAndSpaceMarksThem) {
  const HWND tables = On(L"lsttables");
  SetFocus(tables);
  Press(tables, {VK_HOME});
  EXPECT_EQ(Focused(tables), 0);
  Press(tables, {VK_DOWN});
  EXPECT_EQ(Focused(tables), 1);
  EXPECT_EQ(Marked(tables), std::vector<int>{});
  Press(tables, {VK_SPACE, VK_END, VK_SPACE});
  EXPECT_EQ(Focused(tables), 2);
  EXPECT_EQ(Marked(tables), (std::vector<int>{1, 2}));
  Press(tables, {VK_UP, VK_SPACE, VK_UP, VK_UP});
  EXPECT_EQ(Focused(tables), 0);
  EXPECT_EQ(Marked(tables), std::vector<int>{2});
}

TEST_F(ListKeysTest, LettersGoToTheRowThatBeginsWithThem) {
  const HWND tables = On(L"lsttables");
  SetFocus(tables);
  SendMessageW(tables, WM_CHAR, L'o', 0);
  EXPECT_EQ(Focused(tables), 1);
  SendMessageW(tables, WM_CHAR, L'r', 0);
  EXPECT_EQ(Focused(tables), 1);
}

TEST_F(ListKeysTest, InASingleSelectionTheMarkGoesWithTheArrows) {
  named().Put(L"prpTab", Number(1));
  ClickOn(container_.Window(), L"tabVrn");
  const HWND functions = On(L"lstFunctions");
  named().Put(L"prpTab", Number(0));
  SetFocus(functions);
  Press(functions, {VK_HOME, VK_DOWN, VK_DOWN});
  EXPECT_EQ(Marked(functions), std::vector<int>{2});
}

// In a dialog.

TEST_F(EmbeddingTest, EscapeIsTheDialogsAndTakesNoWindowAway) {
  named().Put(L"prpTab", Number(1));
  Activate();
  const HWND dialog = CreateWindowW(L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10, nullptr,
                                    nullptr, nullptr, nullptr);
  HWND window = nullptr;
  As<IOleInPlaceObject>()->GetWindow(&window);
  SetParent(window, dialog);
  for (const wchar_t* name : {L"TxtOutput", L"txtwhereCondition", L"TxtAsSet", L"cmdDone"}) {
    const HWND focused = On(name) != nullptr ? On(name) : WindowOf(dialog, name);
    if (focused == nullptr) continue;
    SetFocus(focused);
    MSG escape{};
    escape.hwnd = focused;
    escape.message = WM_KEYDOWN;
    escape.wParam = VK_ESCAPE;
    IsDialogMessageW(dialog, &escape);
    SendMessageW(focused, WM_KEYDOWN, VK_ESCAPE, 0);
    Pump();
    EXPECT_TRUE(IsWindow(focused));
    EXPECT_NE(WindowOf(dialog, L"txtwhereCondition"), nullptr);
    const LRESULT keys =
        SendMessageW(focused, WM_GETDLGCODE, VK_ESCAPE, reinterpret_cast<LPARAM>(&escape));
    EXPECT_EQ(keys & DLGC_WANTALLKEYS, 0);
    escape.wParam = VK_TAB;
    const LRESULT others =
        SendMessageW(focused, WM_GETDLGCODE, VK_TAB, reinterpret_cast<LPARAM>(&escape));
    EXPECT_NE(others & DLGC_WANTALLKEYS, 0);
  }
  SetParent(window, container_.Window());
  DestroyWindow(dialog);
}

TEST_F(EmbeddingTest, EditingKeysAreTheControls) {
  named().Put(L"prpTab", Number(2));
  Activate();
  const HWND box = On(L"txtSelectDo");
  SetFocus(box);
  SendMessageW(box, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"ab"));
  MSG key{};
  key.hwnd = box;
  key.message = WM_KEYDOWN;
  key.wParam = VK_LEFT;
  EXPECT_EQ(As<IOleInPlaceActiveObject>()->TranslateAccelerator(&key), S_OK);
  CHARRANGE caret{};
  SendMessageW(box, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&caret));
  EXPECT_EQ(caret.cpMin, 1);
  key.wParam = VK_F5;
  EXPECT_EQ(As<IOleInPlaceActiveObject>()->TranslateAccelerator(&key), S_FALSE);
}

TEST_F(EmbeddingTest, TheContainerWaitsForMessageBoxes) {
  Activate();
  container_.told.clear();
  onBox_ = [this] { EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK); };
  ClickOn(container_.Window(), L"cmdMoveOne");
  onBox_ = {};
  EXPECT_EQ(std::count(container_.told.begin(), container_.told.end(), "waits"), 1);
  EXPECT_EQ(std::count(container_.told.begin(), container_.told.end(), "goes on"), 1);
}

TEST_F(EmbeddingTest, TheLettersAreThereWithoutAWindow) {
  CONTROLINFO info{};
  EXPECT_EQ(As<IOleControl>()->GetControlInfo(&info), S_OK);
  EXPECT_GT(info.cAccel, 10);
  Activate();
  EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
  EXPECT_EQ(CopyAcceleratorTableW(info.hAccel, nullptr, 0), info.cAccel);
}

// What a container draws.

class ViewSink final : public IAdviseSink {
 public:
  STDMETHODIMP QueryInterface(REFIID, void** object) override {
    *object = static_cast<IAdviseSink*>(this);
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override {}
  STDMETHODIMP_(void) OnViewChange(DWORD, LONG) override { ++changes; }
  STDMETHODIMP_(void) OnRename(IMoniker*) override {}
  STDMETHODIMP_(void) OnSave() override {}
  STDMETHODIMP_(void) OnClose() override {}

  int changes = 0;
};

TEST_F(EmbeddingTest, AContainerThatDrawsItIsToldWhenItLooksOtherwise) {
  ViewSink sink;
  EXPECT_EQ(As<IViewObject2>()->SetAdvise(DVASPECT_CONTENT, 0, &sink), S_OK);
  named().Put(L"prpTab", Number(2));
  EXPECT_EQ(sink.changes, 1);
  Activate();
  sink.changes = 0;
  ClickOn(container_.Window(), L"cmdClear");
  EXPECT_GT(sink.changes, 0);
  EXPECT_EQ(As<IViewObject2>()->SetAdvise(DVASPECT_CONTENT, 0, nullptr), S_OK);
}

TEST_F(EmbeddingTest, ItIsDrawnInsideItsPlaceInWhateverMeasure) {
  const HDC screen = GetDC(nullptr);
  const HDC canvas = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, 400, 300);
  SelectObject(canvas, bitmap);
  PatBlt(canvas, 0, 0, 400, 300, BLACKNESS);
  // Upwards, two units for each pixel, from the lower left corner of the middle.
  SetMapMode(canvas, MM_ANISOTROPIC);
  SetWindowExtEx(canvas, 800, 600, nullptr);
  SetViewportExtEx(canvas, 400, -300, nullptr);
  SetViewportOrgEx(canvas, 0, 300, nullptr);
  const RECTL place{200, 450, 600, 150};
  EXPECT_EQ(As<IViewObject2>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, canvas,
                                     &place, nullptr, nullptr, 0),
            S_OK);
  SetMapMode(canvas, MM_TEXT);
  SetViewportOrgEx(canvas, 0, 0, nullptr);
  int inside = 0;
  int outside = 0;
  const RECT there{100, 75, 300, 225};
  for (int y = 0; y < 300; y += 3) {
    for (int x = 0; x < 400; x += 3) {
      if (GetPixel(canvas, x, y) == RGB(0, 0, 0)) continue;
      ++(PtInRect(&there, {x, y}) ? inside : outside);
    }
  }
  EXPECT_GT(inside, 2000);
  EXPECT_EQ(outside, 0);
  DeleteDC(canvas);
  DeleteObject(bitmap);
  ReleaseDC(nullptr, screen);
}

// Given up in the middle of things.

TEST_F(EmbeddingTest, AWindowThatIsGivenUpTakesNoMoreKeys) {
  Activate();
  Listener listener(*container_.Control());
  const HWND done = On(L"cmdDone");
  const HWND list = On(L"lsttables");
  SetFocus(done);
  listener.onEvent = [&](DISPID) {
    listener.Leave();
    byName_ = {};
    container_.GiveUp();
  };
  SendMessageW(done, BM_CLICK, 0, 0);
  // Before the messages that wait are taken.
  SendMessageW(done, WM_KEYDOWN, VK_TAB, 0);
  SendMessageW(done, WM_KEYDOWN, VK_RETURN, 0);
  SendMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  SendMessageW(list, WM_CHAR, L'a', 0);
  EXPECT_NE(GetFocus(), done);
  Pump();
  EXPECT_FALSE(IsWindow(done));
  EXPECT_EQ(listener.told, std::vector<std::string>{"event 2"});
}

TEST_F(EmbeddingTest, ALetterThatEndsTheControlIsSurvived) {
  Activate();
  Listener listener(*container_.Control());
  listener.onEvent = [&](DISPID) {
    listener.Leave();
    byName_ = {};
    EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    container_.GiveUp();
  };
  MSG letter{};
  letter.message = WM_SYSCHAR;
  letter.wParam = L'd';
  EXPECT_EQ(As<IOleControl>()->OnMnemonic(&letter), S_OK);
  Pump();
  EXPECT_EQ(listener.told, std::vector<std::string>{"event 2"});
  EXPECT_EQ(GetWindow(container_.Window(), GW_CHILD), nullptr);
}

TEST_F(EmbeddingTest, GivenUpWhenTheFocusComesItIsSurvived) {
  Activate();
  SetFocus(container_.Window());
  byName_ = {};
  container_.onFocus = [this] {
    container_.onFocus = {};
    container_.GiveUp();
  };
  SetFocus(On(L"lsttables"));
  Pump();
  EXPECT_EQ(GetWindow(container_.Window(), GW_CHILD), nullptr);
  EXPECT_EQ(container_.References(), 1);
}

TEST_F(EmbeddingTest, AReleaseInsideAnEventEndsItAfterwards) {
  Activate();
  Listener listener(*container_.Control());
  listener.onEvent = [&](DISPID) {
    listener.Leave();
    byName_ = {};
    EXPECT_NE(container_.GiveUp(), 0U);
  };
  ClickOn(container_.Window(), L"cmdDone");
  Pump();
  EXPECT_EQ(listener.told, std::vector<std::string>{"event 2"});
  EXPECT_EQ(GetWindow(container_.Window(), GW_CHILD), nullptr);
  EXPECT_EQ(container_.References(), 1);
}

TEST_F(EmbeddingTest, DeactivatedInsideAnEventItLosesItsWindowAfterwards) {
  Activate();
  Listener listener(*container_.Control());
  listener.onEvent = [&](DISPID) { EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK); };
  ClickOn(container_.Window(), L"cmdCancel");
  Pump();
  EXPECT_EQ(GetWindow(container_.Window(), GW_CHILD), nullptr);
  Activate();
  EXPECT_NE(On(L"cmdCancel"), nullptr);
}

TEST_F(EmbeddingTest, AContainerThatDestroysItsWindowFirstIsSurvived) {
  Activate();
  HWND window = nullptr;
  As<IOleInPlaceObject>()->GetWindow(&window);
  DestroyWindow(window);
  Catalogue();
  EXPECT_EQ(named().Put(L"prpTab", Number(3)), S_OK);
  container_.told.clear();
  Activate();
  EXPECT_EQ(As<IOleInPlaceObject>()->GetWindow(&window), S_OK);
  EXPECT_TRUE(IsWindowVisible(window));
  EXPECT_EQ(container_.told[0], "no ui");
  EXPECT_EQ(container_.told[1], "not in place");
  EXPECT_EQ(container_.told[2], "in place");
}

TEST_F(EmbeddingTest, AListenerThatThrowsLeavesItUsable) {
  Activate();
  Listener listener(*container_.Control());
  listener.onEvent = [](DISPID) { ThrowOut(); };
  ClickOn(container_.Window(), L"cmdDone");
  EXPECT_EQ(boxes_, std::vector<std::wstring>{L"ZOLT20MapControl: The program failed that answers "
                                              L"the events of the control."});
  listener.onEvent = {};
  ClickOn(container_.Window(), L"cmdDone");
  EXPECT_EQ(listener.told, (std::vector<std::string>{"event 2", "event 2"}));
}

// A hundred controls, one behind the other.

struct Held {
  SIZE_T memory;
  DWORD handles;
  DWORD windows;
};

Held HeldNow() {
  PROCESS_MEMORY_COUNTERS memory{};
  memory.cb = sizeof memory;
  GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
  DWORD handles = 0;
  GetProcessHandleCount(GetCurrentProcess(), &handles);
  // Memory of its own; Wine leaves PrivateUsage at 0.
  return {memory.PagefileUsage, handles, GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS)};
}

TEST(ManyControlsTest, LeaveNothingBehind) {
  Held afterTen{};
  Held last{};
  for (int i = 1; i <= 100; ++i) {
    Container container(880, 620);
    {
      const auto embedded = Embed(container);
      Listener listener(*embedded.control.Get());
      const auto byName = com::Query<IDispatch>(embedded.control.Get());
      const Named named{*byName.Get()};
      ASSERT_EQ(named.Put(L"PrpStrTables", L"CUSTOMER1"), S_OK);
      ASSERT_EQ(named.Put(L"PrpStrFields", L"char*Q*V*R*N*NCUSTOMER.NAME*Q*V*R*N*name"), S_OK);
      ASSERT_EQ(named.Put(L"prpSelectPart", L"CUSTOMER.NAME,"), S_OK);
      for (int page = 0; page <= 6; ++page)
        ASSERT_EQ(named.Put(L"prpTab", Number(page)), S_OK);
      ClickOn(container.Window(), L"optCase");
      ClickOn(container.Window(), L"cmdNext");
      ClickOn(container.Window(), L"cmdDone");
      ASSERT_EQ(listener.told.back(), "event 2");
    }
    EXPECT_EQ(container.GiveUp(), 0U);
    Pump();
    EXPECT_EQ(container.References(), 1);
    EXPECT_EQ(GetWindow(container.Window(), GW_CHILD), nullptr);
    last = HeldNow();
    if (i == 10) afterTen = last;
  }
  EXPECT_EQ(last.handles, afterTen.handles);
  EXPECT_EQ(last.windows, afterTen.windows);
  constexpr SIZE_T kMegabyte = 1 << 20;
  EXPECT_GT(afterTen.memory, kMegabyte);
  EXPECT_LT(last.memory, afterTen.memory + 2 * kMegabyte)
      << last.memory << " bytes and " << afterTen.memory << " after ten";
  RecordProperty("bytesAfterTen", std::to_string(afterTen.memory));
  RecordProperty("bytesAtTheEnd", std::to_string(last.memory));
  EXPECT_EQ(CanUnload(), S_OK);
}

}  // namespace
}  // namespace zolt20::tests
