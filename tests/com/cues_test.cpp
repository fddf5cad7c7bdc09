// UI cues: focus rectangles and underlined letters show and hide with those of the dialog around.
#include <map>

#include "tests/com/com_test.h"
// The system's other headers come first.
#include <commctrl.h>

namespace zolt20::tests {
namespace {

constexpr LRESULT kBoth = UISF_HIDEFOCUS | UISF_HIDEACCEL;

// A fake of the system's UI state, which Windows keeps for every window: notes what each window was
// told to hide. The container's window does what a dialog's window does.
class Cues {
 public:
  explicit Cues(HWND dialog) : dialog_(dialog) {
    current_ = this;
    SetWindowSubclass(dialog, &DialogMessage, 1, reinterpret_cast<DWORD_PTR>(this));
    hook_ = SetWindowsHookExW(WH_CALLWNDPROC, &Sent, nullptr, GetCurrentThreadId());
  }
  ~Cues() {
    UnhookWindowsHookEx(hook_);
    RemoveWindowSubclass(dialog_, &DialogMessage, 1);
    current_ = nullptr;
  }
  Cues(const Cues&) = delete;
  Cues& operator=(const Cues&) = delete;

  LRESULT HiddenIn(HWND window) { return hidden_[window]; }

 private:
  void Change(HWND window, WPARAM change) {
    if (LOWORD(change) == UIS_SET) hidden_[window] |= HIWORD(change);
    if (LOWORD(change) == UIS_CLEAR) hidden_[window] &= ~LRESULT{HIWORD(change)};
  }
  static LRESULT CALLBACK Sent(int code, WPARAM wide, LPARAM longer) {
    const auto& message = *reinterpret_cast<const CWPSTRUCT*>(longer);
    if (code == HC_ACTION && message.message == WM_UPDATEUISTATE)
      current_->Change(message.hwnd, message.wParam);
    return CallNextHookEx(nullptr, code, wide, longer);
  }
  static LRESULT CALLBACK DialogMessage(HWND window, UINT message, WPARAM wide, LPARAM longer,
                                        UINT_PTR /*id*/, DWORD_PTR data) {
    auto& cues = *reinterpret_cast<Cues*>(data);
    if (message == WM_QUERYUISTATE) return cues.hidden_[window];
    if (message != WM_CHANGEUISTATE) return DefSubclassProc(window, message, wide, longer);
    cues.Change(window, wide);
    EnumChildWindows(
        window,
        [](HWND child, LPARAM change) WINAPI -> BOOL {
          SendMessageW(child, WM_UPDATEUISTATE, static_cast<WPARAM>(change), 0);
          return TRUE;
        },
        static_cast<LPARAM>(wide));
    return 0;
  }

  static inline Cues* current_ = nullptr;
  HWND dialog_;
  HHOOK hook_ = nullptr;
  std::map<HWND, LRESULT> hidden_;
};

class CuesTest : public testing::Test {
 protected:
  CuesTest() { EXPECT_EQ(container_.Create(CLSID_ZOLT20MapControl), S_OK); }
  void Activate() {
    ASSERT_EQ(container_.Activate(), S_OK);
    Pump();
  }
  void Change(WORD how, LRESULT cues) {
    SendMessageW(container_.Window(), WM_CHANGEUISTATE, MAKEWPARAM(how, cues), 0);
  }
  // The cues that are hidden in a window.
  LRESULT HiddenIn(HWND window) { return cues_.HiddenIn(window); }
  HWND On(const wchar_t* name) const { return WindowOf(container_.Window(), name); }

  Container container_{880, 620};
  Cues cues_{container_.Window()};
};

TEST_F(CuesTest, AreTheDialogsFromTheBeginning) {
  Change(UIS_SET, kBoth);
  Activate();
  for (const wchar_t* name : {L"cmdDone", L"lsttables", L"tabVrn", L"optFor", L"TxtOutput"})
    EXPECT_EQ(HiddenIn(On(name)), kBoth) << NameOf(On(name)).size();
}

TEST_F(CuesTest, AreThoseOfTheDialogInRowsThatComeLater) {
  Activate();
  const auto byName = com::Query<IDispatch>(container_.Control());
  Named{*byName.Get()}.Put(L"prpTab", Number(6));
  Change(UIS_SET, kBoth);
  ClickOn(container_.Window(), L"optCase");
  ClickOn(container_.Window(), L"cmdNext");
  ASSERT_NE(On(L"TxtExpr(1)"), nullptr);
  EXPECT_EQ(HiddenIn(On(L"TxtExpr(1)")), kBoth);
}

TEST_F(CuesTest, AKeyThatMovesTheFocusShowsWhereItIs) {
  Activate();
  Change(UIS_SET, kBoth);
  SendMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 0);
  EXPECT_EQ(HiddenIn(On(L"cmdDone")), UISF_HIDEACCEL);
  EXPECT_EQ(HiddenIn(container_.Window()), UISF_HIDEACCEL) << "the dialog's own buttons too";
  Change(UIS_SET, kBoth);
  SendMessageW(GetFocus(), WM_KEYDOWN, VK_DOWN, 0);
  EXPECT_EQ(HiddenIn(On(L"cmdDone")), UISF_HIDEACCEL);
}

TEST_F(CuesTest, ATabKeyThatItsContainerPassesOnDoesTheSame) {
  Activate();
  Change(UIS_SET, kBoth);
  MSG tab{};
  tab.hwnd = GetFocus();
  tab.message = WM_KEYDOWN;
  tab.wParam = VK_TAB;
  EXPECT_EQ(com::Query<IOleInPlaceActiveObject>(container_.Control())->TranslateAccelerator(&tab),
            S_OK);
  EXPECT_EQ(HiddenIn(On(L"cmdDone")), UISF_HIDEACCEL);
}

TEST_F(CuesTest, AltUnderlinesTheLetters) {
  Activate();
  Change(UIS_SET, kBoth);
  SendMessageW(On(L"TxtOutput"), WM_KEYDOWN, 'A', 0);
  EXPECT_EQ(HiddenIn(On(L"cmdDone")), kBoth) << "not by any key";
  SendMessageW(GetFocus(), WM_SYSKEYDOWN, VK_MENU, 0x20000000);
  EXPECT_EQ(HiddenIn(On(L"cmdDone")), UISF_HIDEFOCUS);
  EXPECT_EQ(HiddenIn(container_.Window()), UISF_HIDEFOCUS);
}

}  // namespace
}  // namespace zolt20::tests
