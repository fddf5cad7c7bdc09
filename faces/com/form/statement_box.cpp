#include "faces/com/form/statement_box.h"

#include <richedit.h>
#include <richole.h>

#include <algorithm>
#include <cstdint>
#include <utility>

#include "faces/com/com_text.h"
#include "faces/com/form/plain_boxes.h"
#include "faces/com/form/readable.h"
#include "faces/shared/statement_colors.h"

#ifdef __CRT_UUID_DECL
// The headers of MinGW-w64 leave it out.
__CRT_UUID_DECL(ITextDocument, 0x8cc497c0, 0xa1df, 0x11ce, 0x80, 0x98, 0x00, 0xaa, 0x00, 0x47, 0xbe,
                0x5d)
#endif

namespace zolt20::com {
namespace {

constexpr char16_t kLineEnd = u'\r';  // the line end within a rich edit

String ShownIn(StringView text) {
  return WithoutNuls(faces::Shown(text, kLineEnd));
}

bool IsDark(COLORREF background) {
  return GetRValue(background) + GetGValue(background) + GetBValue(background) < 3 * 128;
}

CHARFORMAT2W FormatOf(faces::WordKind kind) {
  const faces::Look look = faces::LookOf(kind);
  const COLORREF behind = GetSysColor(COLOR_WINDOW);
  const std::uint32_t rgb = IsDark(behind) ? look.onDark : look.onLight;
  CHARFORMAT2W format{};
  format.cbSize = sizeof format;
  format.dwMask = CFM_COLOR | CFM_BOLD | CFM_ITALIC;
  format.crTextColor = Readable(RGB((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF),
                                GetSysColor(COLOR_WINDOWTEXT), behind);
  if (look.weight >= FW_SEMIBOLD) format.dwEffects |= CFE_BOLD;
  if (look.italic) format.dwEffects |= CFE_ITALIC;
  return format;
}

CHARFORMAT2W PlainFormat() {
  CHARFORMAT2W format{};
  format.cbSize = sizeof format;
  format.dwMask = CFM_COLOR | CFM_BOLD | CFM_ITALIC;
  format.dwEffects = CFE_AUTOCOLOR;
  return format;
}

void Paint(HWND window, WPARAM what, CHARFORMAT2W format) {
  SendMessageW(window, EM_SETCHARFORMAT, what, reinterpret_cast<LPARAM>(&format));
}

// A guard: during its lifetime changes of format are not drawn and not recorded for undo. Its
// destructor restores the selection and the scroll position.
class Unseen {
 public:
  Unseen(HWND window, const Pointer<ITextDocument>& document, bool& flag)
      : window_(window), document_(document), flag_(flag) {
    flag_ = true;
    if (document_) document_->Undo(tomSuspend, nullptr);
    SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
    SendMessageW(window_, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&selection_));
    scrolled_ = ScrolledTo();
    line_ = FirstLine();
  }
  ~Unseen() {
    SendMessageW(window_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&selection_));
    ScrollBack();
    SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(window_, nullptr, FALSE);
    if (document_) document_->Undo(tomResume, nullptr);
    flag_ = false;
  }
  Unseen(const Unseen&) = delete;
  Unseen& operator=(const Unseen&) = delete;

 private:
  POINT ScrolledTo() const {
    POINT place{};
    SendMessageW(window_, EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&place));
    return place;
  }
  LRESULT FirstLine() const { return SendMessageW(window_, EM_GETFIRSTVISIBLELINE, 0, 0); }
  // For a text higher than 65,535 pixels the platform returns the scroll position scaled down to
  // that, but takes it in pixels. Such a text is scrolled back by lines.
  void ScrollBack() {
    const POINT now = ScrolledTo();
    const bool isSame = now.x == scrolled_.x && now.y == scrolled_.y && FirstLine() == line_;
    if (isSame) return;
    SCROLLINFO bar{};
    bar.cbSize = sizeof bar;
    bar.fMask = SIF_RANGE;
    constexpr int kMost = 0xFFFF;
    if (!GetScrollInfo(window_, SB_VERT, &bar) || bar.nMax < kMost) {
      SendMessageW(window_, EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&scrolled_));
      return;
    }
    SendMessageW(window_, EM_LINESCROLL, 0, line_ - FirstLine());
    SendMessageW(window_, WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, scrolled_.x), 0);
  }

  HWND window_;
  Pointer<ITextDocument> document_;
  bool& flag_;
  CHARRANGE selection_{};
  POINT scrolled_{};
  LRESULT line_ = 0;  // the first visible line
};

}  // namespace

const wchar_t* StatementBox::ClassName() {
  // Never unloaded: windows of its class may outlive all of ours.
  static const HMODULE library = LoadLibraryW(L"msftedit.dll");
  static_cast<void>(library);
  return MSFTEDIT_CLASS;
}

void StatementBox::Attach(HWND window) {
  window_ = window;
  SendMessageW(window_, EM_SETTEXTMODE, TM_RICHTEXT | TM_MULTILEVELUNDO | TM_MULTICODEPAGE, 0);
  SendMessageW(window_, EM_EXLIMITTEXT, 0, 0x7FFFFFFE);
  SendMessageW(window_, EM_SETEVENTMASK, 0, ENM_CHANGE | ENM_SCROLL);
  SendMessageW(window_, EM_SETTARGETDEVICE, 0, 1);  // lines are not wrapped
  SendMessageW(window_, EM_AUTOURLDETECT, FALSE, 0);
  RevokeDragDrop(window_);  // it would accept formatted texts and pictures
  Pointer<IRichEditOle> objects;
  SendMessageW(window_, EM_GETOLEINTERFACE, 0, reinterpret_cast<LPARAM>(objects.Put()));
  document_ = objects.As<ITextDocument>();
  // The settings made so far are not to be undone by the person.
  SendMessageW(window_, EM_EMPTYUNDOBUFFER, 0, 0);
}

std::size_t StatementBox::Length() const {
  GETTEXTLENGTHEX asked{GTL_NUMCHARS | GTL_PRECISE, 1200};
  const auto count = SendMessageW(window_, EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&asked), 0);
  return static_cast<std::size_t>(std::max<LRESULT>(count, 0));
}

StatementBox::Span StatementBox::Marked() const {
  CHARRANGE marked{};
  SendMessageW(window_, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&marked));
  return {static_cast<std::size_t>(std::max<LONG>(marked.cpMin, 0)),
          static_cast<std::size_t>(std::max<LONG>(marked.cpMax, 0))};
}

String StatementBox::ReadShown() const {
  String text(Length(), u'\0');
  GETTEXTEX get{};
  get.cb = static_cast<DWORD>((text.size() + 1) * sizeof(char16_t));
  get.flags = GT_DEFAULT;
  get.codepage = 1200;
  const auto read = SendMessageW(window_, EM_GETTEXTEX, reinterpret_cast<WPARAM>(&get),
                                 reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(std::max<LRESULT>(read, 0)));
  return text;
}

String StatementBox::Read(Span characters) const {
  String text(characters.behind - characters.first, u'\0');
  TEXTRANGEW range{{static_cast<LONG>(characters.first), static_cast<LONG>(characters.behind)},
                   reinterpret_cast<wchar_t*>(text.data())};
  const auto read = SendMessageW(window_, EM_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range));
  text.resize(static_cast<std::size_t>(std::max<LRESULT>(read, 0)));
  return text;
}

void StatementBox::Show(const String& text) {
  if (text == text_) return;
  text_ = text;
  String shown = ShownIn(text);
  if (shown == shown_) return;
  const faces::Edit edit = faces::EditBetween(shown_, shown, shown.size());
  const String added = shown.substr(edit.position, edit.added);
  CHARRANGE range{static_cast<LONG>(edit.position),
                  static_cast<LONG>(edit.position + edit.removed)};
  SendMessageW(window_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
  SendMessageW(window_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(Wide(added)));
  SendMessageW(window_, EM_EMPTYUNDOBUFFER, 0, 0);
  // Scrolls so that the new text is visible.
  if (edit.position > 0) SendMessageW(window_, EM_SCROLLCARET, 0, 0);
  shown_ = std::move(shown);
  ColorEdit(edit);
}

void StatementBox::Recolor() {
  colored_ = {};
  ColorSight();
}

void StatementBox::Highlight(bool highlight) {
  if (highlight == highlight_) return;
  highlight_ = highlight;
  if (highlight) {
    Recolor();
    return;
  }
  // Clear the colours of all lines, not only of the visible ones. It is not drawn or recorded for
  // undo.
  const Unseen unseen(window_, document_, isColoring_);
  Paint(window_, SCF_ALL, PlainFormat());
}

void StatementBox::KeyComes() {
  marked_ = Marked();
}

std::pair<faces::Edit, String> StatementBox::TakeShown() const {
  const std::size_t caret = Marked().behind;
  if (marked_) {
    const std::size_t first = std::min(marked_->first, caret);
    const std::size_t length = Length();
    const std::size_t kept = length - std::min(caret, length);
    if (first + kept <= shown_.size()) {
      String typed = Read({first, caret});
      if (typed.size() == caret - first)
        return std::pair(faces::Edit{first, shown_.size() - kept - first, typed.size()},
                         std::move(typed));
    }
  }
  const String now = ReadShown();
  const faces::Edit edit = faces::EditBetween(shown_, now, std::min(caret, now.size()));
  return {edit, now.substr(edit.position, edit.added)};
}

std::optional<String> StatementBox::TakeEdit() {
  if (isColoring_) return std::nullopt;
  const auto& [edit, typed] = TakeShown();
  if (StringView(shown_).substr(edit.position, edit.removed) == typed) return std::nullopt;
  text_ = faces::AfterEdit(text_, edit.position, edit.removed, typed, kLineEnd);
  shown_.replace(edit.position, edit.removed, typed);
  ColorEdit(edit);
  return text_;
}

StatementBox::Span StatementBox::InSight() const {
  RECT inside{};
  GetClientRect(window_, &inside);
  POINTL corner{inside.right, inside.bottom};
  const auto last = SendMessageW(window_, EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&corner));
  const auto line = SendMessageW(window_, EM_GETFIRSTVISIBLELINE, 0, 0);
  const auto first = SendMessageW(window_, EM_LINEINDEX, static_cast<WPARAM>(line), 0);
  // Clamped, since the platform may count characters otherwise than shown_.
  const std::size_t end = shown_.size();
  return LinesOf({std::min(static_cast<std::size_t>(std::max<LRESULT>(first, 0)), end),
                  std::min(static_cast<std::size_t>(std::max<LRESULT>(last, 0)), end)});
}

StatementBox::Span StatementBox::LinesOf(Span characters) const {
  const auto [first, behind] = characters;
  const std::size_t before = first == 0 ? String::npos : shown_.rfind(kLineEnd, first - 1);
  return {before == String::npos ? 0 : before + 1,
          std::min(shown_.find(kLineEnd, behind), shown_.size())};
}

void StatementBox::Paste() {
  SendMessageW(window_, EM_PASTESPECIAL, CF_UNICODETEXT, 0);
}

// Colours the visible lines that have no colours yet; coloured_ is the cached range that has them.
void StatementBox::ColorSight() {
  if (!highlight_) return;
  const Span sight = InSight();
  const bool touches = sight.first <= colored_.behind && colored_.first <= sight.behind;
  if (!touches || colored_.first == colored_.behind) {
    Color(sight);
    colored_ = sight;
    return;
  }
  if (sight.first < colored_.first) {
    Color({sight.first, colored_.first});
    colored_.first = sight.first;
  }
  if (sight.behind > colored_.behind) {
    Color({colored_.behind, sight.behind});
    colored_.behind = sight.behind;
  }
}

// Colours the lines of an edit. After an edit that reaches beyond the visible lines, such as a long
// paste, all visible lines are coloured anew.
void StatementBox::ColorEdit(const faces::Edit& edit) {
  if (!highlight_) return;
  const Span lines = LinesOf({edit.position, edit.position + edit.added});
  const Span sight = InSight();
  const std::size_t removedTo = edit.position + edit.removed;
  const bool isWithin = colored_.first <= lines.first && removedTo <= colored_.behind &&
                        sight.first <= lines.first && lines.behind <= sight.behind;
  if (isWithin) {
    Color(lines);
    colored_.behind = std::max(colored_.behind - edit.removed + edit.added, lines.behind);
  } else {
    colored_ = {};
  }
  ColorSight();
}

void StatementBox::Color(Span lines) {
  const Unseen unseen(window_, document_, isColoring_);
  const auto paint = [this](std::size_t first, std::size_t behind, const CHARFORMAT2W& format) {
    CHARRANGE range{static_cast<LONG>(first), static_cast<LONG>(behind)};
    SendMessageW(window_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
    Paint(window_, SCF_SELECTION, format);
  };
  paint(lines.first, lines.behind, PlainFormat());
  const StringView text = StringView(shown_).substr(0, lines.behind);
  for (std::size_t start = lines.first; start < text.size();) {
    const std::size_t end = std::min(text.find(kLineEnd, start), text.size());
    for (const faces::ColoredWord& word : faces::ColoredWordsOf(text.substr(start, end - start))) {
      paint(start + word.first, start + word.first + word.count, FormatOf(word.kind));
    }
    start = end + 1;
  }
}

}  // namespace zolt20::com
