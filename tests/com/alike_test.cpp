// Boxes behave like the platform's own: random keys and clicks go to each edit of the form and to
// a plain edit of Windows with the same style, size and font. After each of them text, mark and
// undo have to agree. The boxes of statements are rich edits and not tested here.
//
// Exceptions, where the form itself handles a key:
// - A box without an undo of its own leaves Ctrl+Z to the form, and then no box gets it. Ctrl+Y is
//   the form's: an edit has no redo.
// - The row limit hands its keys to the form, which drops some and writes the others into the text.
//   The plain box is set to what the form has then, and begins a new history.
// - The form gives pasted line ends as CR LF and takes them in a line, too: the plain box gets the
//   same text in place of what is marked.
// - The form marks all by Ctrl+A, as edits of newer Windows do by themselves.
// - Up and Down go to the entries of a combo, which are those of the form.
#include "tests/com/com_test.h"
#include "tests/support/box_keys.h"

// Behind those, which have what these need.
#include <commctrl.h>

#include <algorithm>

namespace zolt20::tests {
namespace {

using What = BoxKey::What;

struct BoxPlace {
  const wchar_t* name;
  int page;
  std::vector<const wchar_t*> clicks;

  friend std::ostream& operator<<(std::ostream& out, const BoxPlace& box) {
    for (const wchar_t* letter = box.name; *letter != L'\0'; ++letter)
      out << static_cast<char>(*letter);
    return out;
  }
};

const std::vector<BoxPlace>& Boxes() {
  static const std::vector<BoxPlace> boxes{
      {L"cboWhereFields1", 1, {}},
      {L"txtwhereCondition", 1, {}},
      {L"txtCondition", 1, {L"cboWhereFields", L"cboOper"}},
      {L"txtAsSet", 1, {}},
      {L"txtCond", 6, {L"optIfThen"}},
      {L"txtStmt1", 6, {L"optIfThen"}},
      {L"txtStmt2", 6, {L"optIfThen"}},
      {L"txtWhlCnd", 6, {L"optwhile"}},
      {L"txtWhlStm", 6, {L"optwhile"}},
      {L"txtRepCnd", 6, {L"optRepeat"}},
      {L"txtRepStm", 6, {L"optRepeat"}},
      {L"txtVariable", 6, {L"optFor"}},
      {L"txtinitval", 6, {L"optFor"}},
      {L"txtFinVal", 6, {L"optFor"}},
      {L"txtStep", 6, {L"optFor"}},
      {L"txtForStmt", 6, {L"optFor"}},
      {L"txtcaseexp", 6, {L"optCase"}},
      {L"TxtDef", 6, {L"optCase"}},
      {L"TxtExpr(0)", 6, {L"optCase"}},
      {L"txtStmt(0)", 6, {L"optCase"}},
      {L"TxtExpr(1)", 6, {L"optCase", L"cmdNext"}},
      {L"txtStmt(1)", 6, {L"optCase", L"cmdNext"}},
  };
  return boxes;
}

std::string NarrowName(const wchar_t* name) {
  std::string narrow;
  for (; *name != L'\0'; ++name)
    narrow += static_cast<char>(*name);
  return narrow;
}
std::string CaseName(const BoxPlace& box) {
  std::string name = NarrowName(box.name);
  std::erase(name, ')');
  std::replace(name.begin(), name.end(), '(', '_');
  return name;
}

std::wstring WithCrLf(const std::wstring& text) {
  std::wstring whole;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != L'\r' && text[at] != L'\n') {
      whole += text[at];
      continue;
    }
    if (text[at] == L'\r' && at + 1 < text.size() && text[at + 1] == L'\n') ++at;
    whole += L"\r\n";
  }
  return whole;
}
std::wstring AsWide(const std::u16string& text) {
  return {text.begin(), text.end()};
}

// One of the two boxes, ours or the plain one.
struct Side {
  HWND window = nullptr;

  LRESULT Send(UINT message, WPARAM wide = 0, LPARAM longer = 0) const {
    return SendMessageW(window, message, wide, longer);
  }
  std::wstring Text() const {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1)));
    return text;
  }
  std::pair<DWORD, DWORD> Mark() const {
    DWORD first = 0;
    DWORD behind = 0;
    Send(EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&behind));
    return {first, behind};
  }
  void Select(std::pair<DWORD, DWORD> mark) const {
    Send(EM_SETSEL, mark.first, static_cast<LPARAM>(mark.second));
  }
  bool CanUndo() const { return Send(EM_CANUNDO) != 0; }
  std::string Look() const {
    const std::wstring text = Text();
    const auto [first, behind] = Mark();
    return InQuotes({text.begin(), text.end()}) + " with the mark from " + std::to_string(first) +
           " to " + std::to_string(behind) + (CanUndo() ? ", can undo" : "");
  }
};

void SetKeys(bool control, bool shift) {
  BYTE keys[256]{};
  keys[VK_CONTROL] = control ? 0x80 : 0;
  keys[VK_SHIFT] = shift ? 0x80 : 0;
  SetKeyboardState(keys);
}

void SetClipboard(HWND owner, const std::wstring& text) {
  ASSERT_TRUE(OpenClipboard(owner));
  EmptyClipboard();
  const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  const HGLOBAL data = GlobalAlloc(GMEM_MOVEABLE, bytes);
  memcpy(GlobalLock(data), text.c_str(), bytes);
  GlobalUnlock(data);
  SetClipboardData(CF_UNICODETEXT, data);
  CloseClipboard();
}
std::wstring ClipboardText(HWND owner) {
  std::wstring text;
  if (!OpenClipboard(owner)) return text;
  if (const HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
    text = static_cast<const wchar_t*>(GlobalLock(data));
    GlobalUnlock(data);
  }
  CloseClipboard();
  return text;
}

class AlikeTest : public testing::TestWithParam<BoxPlace> {
 protected:
  AlikeTest() {
    EXPECT_EQ(container_.Create(CLSID_ZOLT20MapControl), S_OK);
    byName_ = com::Query<IDispatch>(container_.Control());
    EXPECT_EQ(container_.Activate(), S_OK);
    WriteCatalogue({*byName_.Get()});
    Pump();
    const HWND tables = WindowOf(container_.Window(), L"lsttables");
    RECT row{LVIR_LABEL, 0, 0, 0};
    SendMessageW(tables, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row));
    const LPARAM place = MAKELPARAM(row.left + 2, (row.top + row.bottom) / 2);
    SendMessageW(tables, WM_LBUTTONDOWN, MK_LBUTTON, place);
    SendMessageW(tables, WM_LBUTTONUP, 0, place);
    EXPECT_EQ(Named{*byName_.Get()}.Put(L"prpTab", Number(GetParam().page)), S_OK);
    for (const wchar_t* name : GetParam().clicks)
      name[0] == L'c' && name[1] == L'b' ? PickRow(name) : ClickOn(container_.Window(), name);
    Pump();
    own_ = WindowOf(container_.Window(), GetParam().name);
    ours_.window = IsCombo() ? LineOf(own_) : own_;
    undo_ = Tool(L"Undo");
    redo_ = Tool(L"Redo");
    around_ = CreateWindowExW(0, WC_STATICW, L"", WS_POPUP | WS_VISIBLE, 900, 0, 900, 700, nullptr,
                              nullptr, nullptr, nullptr);
  }
  ~AlikeTest() override {
    SetKeys(false, false);
    DestroyWindow(around_);
  }

  bool IsCombo() const { return std::wstring_view(GetParam().name) == L"cboWhereFields1"; }
  bool IsByKeys() const { return std::wstring_view(GetParam().name) == L"txtAsSet"; }
  bool HasSeveralLines() const {
    return !IsCombo() && (GetWindowLongW(own_, GWL_STYLE) & ES_MULTILINE) != 0;
  }

  static HWND LineOf(HWND combo) {
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    GetComboBoxInfo(combo, &info);
    return info.hwndItem;
  }
  // The first field, and an operator that has a template.
  void PickRow(const wchar_t* name) {
    const HWND combo = WindowOf(container_.Window(), name);
    const WPARAM row = std::wstring_view(name) == L"cboOper" ? 7 : 0;
    SetFocus(combo);
    SendMessageW(combo, CB_SETCURSEL, row, 0);
    for (const int notice : {CBN_SELENDOK, CBN_SELCHANGE}) {
      SendMessageW(GetParent(combo), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(combo), notice),
                   reinterpret_cast<LPARAM>(combo));
    }
    Pump();
  }
  HWND Tool(const wchar_t* caption) const {
    for (HWND tool = nullptr;;) {
      tool = FindWindowExW(GetParent(ParentOfPages()), tool, WC_BUTTONW, caption);
      if (tool != nullptr) return tool;
      return FindWindowExW(ParentOfPages(), nullptr, WC_BUTTONW, caption);
    }
  }
  HWND ParentOfPages() const { return GetParent(WindowOf(container_.Window(), L"tabVrn")); }

  // A text that the control shows, by Undo and Redo of the form.
  void Give(const std::wstring& text) {
    SetFocus(ours_.window);
    ours_.Select({0, static_cast<DWORD>(-1)});
    if (IsByKeys()) {
      SetClipboard(around_, text);
      ours_.Send(text.empty() ? WM_CLEAR : WM_PASTE);
    } else {
      ours_.Send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    }
    Pump();
    if (!IsWindowEnabled(undo_)) return;
    SendMessageW(undo_, BM_CLICK, 0, 0);
    SendMessageW(redo_, BM_CLICK, 0, 0);
    Pump();
  }

  void MakePlain() {
    if (plainOuter_ != nullptr) DestroyWindow(plainOuter_);
    wchar_t kind[32] = L"";
    GetClassNameW(own_, kind, 32);
    RECT place{};
    GetWindowRect(own_, &place);
    const auto style = static_cast<DWORD>(GetWindowLongW(own_, GWL_STYLE)) | WS_VISIBLE;
    const auto extended = static_cast<DWORD>(GetWindowLongW(own_, GWL_EXSTYLE));
    plainOuter_ =
        CreateWindowExW(extended, kind, L"", style & ~static_cast<DWORD>(WS_DISABLED), 0, 0,
                        place.right - place.left, (IsCombo() ? 200 : 0) + place.bottom - place.top,
                        around_, nullptr, nullptr, nullptr);
    SendMessageW(plainOuter_, WM_SETFONT, static_cast<WPARAM>(SendMessageW(own_, WM_GETFONT, 0, 0)),
                 FALSE);
    plain_.window = IsCombo() ? LineOf(plainOuter_) : plainOuter_;
    SetPlain(ours_.Text(), ours_.Mark());
  }
  void SetPlain(const std::wstring& text, std::pair<DWORD, DWORD> mark) const {
    SetWindowTextW(plain_.window, text.c_str());
    plain_.Send(EM_EMPTYUNDOBUFFER);
    plain_.Select(mark);
  }

  std::optional<Divergence> Play(const BoxCourse& course) {
    Give(L"before");
    Give(WithCrLf(AsWide(course.text)));
    SetKeys(false, false);
    ours_.Select({0, 0});
    ours_.Send(EM_SCROLLCARET);
    MakePlain();
    SetFocus(ours_.window);
    SetClipboard(around_, L"first");
    copied_[0] = copied_[1] = L"first";
    if (std::string what = Difference(); !what.empty()) return Divergence{0, what};
    int keys = 0;
    for (const BoxKey& key : course.keys) {
      ++keys;
      if (std::string what = PlayKey(key); !what.empty())
        return Divergence{keys, "after " + Written(key) + " " + what};
    }
    return std::nullopt;
  }

  std::string PlayKey(const BoxKey& key) {
    if (key.what == What::kUndo && !plain_.CanUndo()) return "";
    if (key.what == What::kRedo) return "";
    if (IsCombo() && (key.what == What::kUp || key.what == What::kDown)) return "";
    if (key.what == What::kCopy || key.what == What::kCut) return PlayCopy(key);
    if (key.what == What::kPaste) return PlayPaste(key);
    const bool isKeyOfForm =
        IsByKeys() && !key.control &&
        (key.what == What::kCharacter || key.what == What::kBackspace || key.what == What::kEnter);
    if (isKeyOfForm) return PlayKeyOfForm(key);
    Send(ours_, key);
    if (key.what == What::kSelectAll) {
      plain_.Select({0, static_cast<DWORD>(-1)});
    } else {
      Send(plain_, key);
    }
    if (key.what == What::kClick || key.what == What::kDoubleClick) SetFocus(ours_.window);
    return Difference();
  }
  std::string PlayCopy(const BoxKey& key) {
    int at = 0;
    for (const Side* side : {&ours_, &plain_}) {
      SetClipboard(around_, copied_[at]);
      Send(*side, key);
      copied_[at] = ClipboardText(around_);
      ++at;
    }
    if (copied_[0] != copied_[1]) {
      return "the clipboard has " + InQuotes({copied_[0].begin(), copied_[0].end()}) + ", not " +
             InQuotes({copied_[1].begin(), copied_[1].end()});
    }
    return Difference();
  }
  std::string PlayPaste(const BoxKey& key) {
    if (!key.text.empty()) copied_[0] = copied_[1] = AsWide(key.text);
    SetClipboard(around_, copied_[0]);
    Send(ours_, key);
    const std::wstring written = WithCrLf(copied_[1]);
    if (HasSeveralLines() || written.find(L'\r') == std::wstring::npos) {
      SetClipboard(around_, written);
      Send(plain_, key);
    } else {
      plain_.Send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(written.c_str()));
    }
    return Difference();
  }
  std::string PlayKeyOfForm(const BoxKey& key) {
    const std::wstring before = ours_.Text();
    const bool isDropped =
        key.what == What::kEnter ||
        (key.what == What::kCharacter && (key.character < '0' || key.character > '9'));
    Send(ours_, key);
    if (isDropped) return Difference();
    if (ours_.Text() == before) {
      plain_.Select(ours_.Mark());
      return Difference();
    }
    Send(plain_, key);
    std::string what = LookDifference();
    SetPlain(ours_.Text(), ours_.Mark());
    return what;
  }

  std::string LookDifference() const {
    if (ours_.Text() == plain_.Text() && ours_.Mark() == plain_.Mark()) return "";
    return "the box has " + ours_.Look() + "\n  and the plain box " + plain_.Look();
  }
  std::string Difference() const {
    std::string what = LookDifference();
    if (what.empty() && ours_.CanUndo() != plain_.CanUndo())
      what = "the box has " + ours_.Look() + "\n  and the plain box " + plain_.Look();
    return what;
  }

  // Sending: a key comes down, and where it has a character that comes behind it.

  static std::pair<WPARAM, WPARAM> CodesOf(const BoxKey& key) {
    switch (key.what) {
      case What::kCharacter: {
        const SHORT scan = VkKeyScanW(static_cast<wchar_t>(key.character));
        return {static_cast<WPARAM>(scan == -1 ? 0 : scan & 0xFF),
                static_cast<WPARAM>(static_cast<unsigned char>(key.character))};
      }
      case What::kEnter:
        return {VK_RETURN, L'\r'};
      case What::kLeft:
        return {VK_LEFT, 0};
      case What::kRight:
        return {VK_RIGHT, 0};
      case What::kUp:
        return {VK_UP, 0};
      case What::kDown:
        return {VK_DOWN, 0};
      case What::kHome:
        return {VK_HOME, 0};
      case What::kEnd:
        return {VK_END, 0};
      case What::kBackspace:
        return {VK_BACK, key.control ? 0x7F : L'\b'};
      case What::kDelete:
        return {VK_DELETE, 0};
      case What::kSelectAll:
        return {L'A', 1};
      case What::kCopy:
        return {L'C', 3};
      case What::kCut:
        return {L'X', 24};
      case What::kPaste:
        return {L'V', 22};
      case What::kUndo:
        return {L'Z', 26};
      case What::kRedo:
        return {L'Y', 25};
      default:
        return {0, 0};
    }
  }
  static void Send(const Side& side, const BoxKey& key) {
    const bool isCommand = key.what >= What::kSelectAll && key.what <= What::kRedo;
    SetKeys(key.control || isCommand, key.shift);
    if (key.what == What::kClick || key.what == What::kDoubleClick) {
      Mouse(side, key);
    } else {
      const auto [code, character] = CodesOf(key);
      side.Send(WM_KEYDOWN, code, 1);
      if (character != 0) side.Send(WM_CHAR, character, 1);
      side.Send(WM_KEYUP, code, static_cast<LPARAM>(0xC0000001));
    }
    SetKeys(false, false);
    Pump();
  }
  static void Mouse(const Side& side, const BoxKey& key) {
    RECT inside{};
    GetClientRect(side.window, &inside);
    const LPARAM place = MAKELPARAM(1 + static_cast<int>(key.across * (inside.right - 2)),
                                    1 + static_cast<int>(key.down * (inside.bottom - 2)));
    const WPARAM held = MK_LBUTTON | (key.shift ? MK_SHIFT : 0);
    side.Send(WM_LBUTTONDOWN, held, place);
    side.Send(WM_LBUTTONUP, key.shift ? MK_SHIFT : 0, place);
    if (key.what == What::kClick) return;
    side.Send(WM_LBUTTONDBLCLK, held, place);
    side.Send(WM_LBUTTONUP, 0, place);
  }

  Container container_{880, 620};
  Pointer<IDispatch> byName_;
  HWND own_ = nullptr;
  HWND undo_ = nullptr;
  HWND redo_ = nullptr;
  HWND around_ = nullptr;
  HWND plainOuter_ = nullptr;
  Side ours_;
  Side plain_;
  std::wstring copied_[2];
};

TEST_P(AlikeTest, EachKeyDoesWhatItDoesInAPlainBox) {
  ASSERT_NE(undo_, nullptr);
  ASSERT_NE(redo_, nullptr);
  ASSERT_TRUE(IsWindowVisible(own_));
  constexpr int kUsualKeys = 120;  // a key is slow under Wine
  const BoxManner manner{HasSeveralLines(), IsByKeys(), kUsualKeys};
  long played = 0;
  const std::string report = PlayBox(
      NarrowName(GetParam().name), manner, [this](const BoxCourse& course) { return Play(course); },
      "./test --windows --case '*AlikeTest*/" + CaseName(GetParam()) + "'", played);
  if (!report.empty()) ADD_FAILURE() << report;
  RecordProperty("keys", std::to_string(played));
}

INSTANTIATE_TEST_SUITE_P(Boxes, AlikeTest, testing::ValuesIn(Boxes()),
                         [](const auto& box) { return CaseName(box.param); });

}  // namespace
}  // namespace zolt20::tests
