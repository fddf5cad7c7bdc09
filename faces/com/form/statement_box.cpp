#include "faces/com/form/statement_box.h"

#include <richedit.h>
#include <richole.h>

#include <algorithm>
#include <cstdint>
#include <utility>

#include "faces/com/com_text.h"
#include "faces/com/form/plain_boxes.h"
#include "faces/shared/shown_text.h"
#include "faces/shared/statement_colours.h"

#ifdef __CRT_UUID_DECL
// The headers of MinGW-w64 leave it out.
__CRT_UUID_DECL(ITextDocument, 0x8cc497c0, 0xa1df, 0x11ce, 0x80, 0x98, 0x00, 0xaa, 0x00, 0x47, 0xbe,
                0x5d)
#endif

namespace zolt20::com {
namespace {

constexpr char16_t kLineEnd = u'\r';  // as a rich edit has it

String ShownIn(StringView text) {
  return WithoutNuls(faces::Shown(text, kLineEnd));
}

bool IsDark(COLORREF background) {
  return GetRValue(background) + GetGValue(background) + GetBValue(background) < 3 * 128;
}

CHARFORMAT2W FormatOf(faces::WordKind kind) {
  const faces::Look look = faces::LookOf(kind);
  const std::uint32_t rgb = IsDark(GetSysColor(COLOR_WINDOW)) ? look.onDark : look.onLight;
  CHARFORMAT2W format{};
  format.cbSize = sizeof format;
  format.dwMask = CFM_COLOR | CFM_BOLD | CFM_ITALIC;
  format.crTextColor = RGB((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF);
  if (look.weight >= FW_SEMIBOLD) format.dwEffects |= CFE_BOLD;
  if (look.italic) format.dwEffects |= CFE_ITALIC;
  return format;
}

// As long as it lives, changes of the looks are not drawn and are no step for Undo. Then the
// selection and the place that is seen are as before.
class Unseen {
 public:
  Unseen(HWND window, const Pointer<ITextDocument>& document, bool& flag)
      : window_(window), document_(document), flag_(flag) {
    flag_ = true;
    if (document_) document_->Undo(tomSuspend, nullptr);
    SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
    SendMessageW(window_, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&selection_));
    SendMessageW(window_, EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&scrolled_));
  }
  ~Unseen() {
    SendMessageW(window_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&selection_));
    SendMessageW(window_, EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&scrolled_));
    SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(window_, nullptr, FALSE);
    if (document_) document_->Undo(tomResume, nullptr);
    flag_ = false;
  }
  Unseen(const Unseen&) = delete;
  Unseen& operator=(const Unseen&) = delete;

 private:
  HWND window_;
  Pointer<ITextDocument> document_;
  bool& flag_;
  CHARRANGE selection_{};
  POINT scrolled_{};
};

}  // namespace

const wchar_t* StatementBox::ClassName() {
  // It stays loaded: windows of its class may outlive any of ours.
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
  RevokeDragDrop(window_);  // it would take texts with their looks, and pictures
  Pointer<IRichEditOle> objects;
  SendMessageW(window_, EM_GETOLEINTERFACE, 0, reinterpret_cast<LPARAM>(objects.Put()));
  document_ = objects.As<ITextDocument>();
  // What was made of it so far is no step that a person could take back.
  SendMessageW(window_, EM_EMPTYUNDOBUFFER, 0, 0);
}

String StatementBox::ReadShown() const {
  GETTEXTLENGTHEX length{GTL_NUMCHARS | GTL_PRECISE, 1200};
  const auto count =
      SendMessageW(window_, EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&length), 0);
  String text(static_cast<std::size_t>(std::max<LRESULT>(count, 0)), u'\0');
  GETTEXTEX get{};
  get.cb = static_cast<DWORD>((text.size() + 1) * sizeof(char16_t));
  get.flags = GT_DEFAULT;
  get.codepage = 1200;
  const auto read = SendMessageW(window_, EM_GETTEXTEX, reinterpret_cast<WPARAM>(&get),
                                 reinterpret_cast<LPARAM>(text.data()));
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
  // What is new is in sight.
  if (edit.position > 0) SendMessageW(window_, EM_SCROLLCARET, 0, 0);
  shown_ = std::move(shown);
  ColourSight();
}

void StatementBox::Recolour() {
  if (highlight_) ColourSight();
}

void StatementBox::Highlight(bool highlight) {
  if (highlight == highlight_) return;
  highlight_ = highlight;
  ColourSight();
}

std::optional<String> StatementBox::TakeEdit() {
  if (isColouring_) return std::nullopt;
  String now = ReadShown();
  if (now == shown_) return std::nullopt;
  CHARRANGE selection{};
  SendMessageW(window_, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&selection));
  const auto caret =
      std::min(static_cast<std::size_t>(std::max<LONG>(selection.cpMax, 0)), now.size());
  const faces::Edit edit = faces::EditBetween(shown_, now, caret);
  text_ = faces::AfterEdit(text_, edit.position, edit.removed,
                           StringView(now).substr(edit.position, edit.added), kLineEnd);
  shown_ = std::move(now);
  ColourSight();
  return text_;
}

StatementBox::Sight StatementBox::InSight() const {
  RECT inside{};
  GetClientRect(window_, &inside);
  POINTL corner{inside.right, inside.bottom};
  const auto last = SendMessageW(window_, EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&corner));
  return {SendMessageW(window_, EM_GETFIRSTVISIBLELINE, 0, 0),
          SendMessageW(window_, EM_EXLINEFROMCHAR, 0, last)};
}

void StatementBox::Scrolled() {
  if (highlight_ && InSight() != coloured_) ColourSight();
}

void StatementBox::Paste() {
  SendMessageW(window_, EM_PASTESPECIAL, CF_UNICODETEXT, 0);
}

void StatementBox::ColourSight() {
  coloured_ = InSight();
  const auto startOf = [this](LRESULT line) {
    return SendMessageW(window_, EM_LINEINDEX, static_cast<WPARAM>(line), 0);
  };
  const auto first = startOf(coloured_.firstLine);
  const auto behind = startOf(coloured_.lastLine + 1);
  const auto end = behind < 0 ? static_cast<LRESULT>(shown_.size()) : behind;
  if (first >= 0 && end > first) Colour(static_cast<LONG>(first), static_cast<LONG>(end - first));
}

void StatementBox::Colour(LONG first, LONG count) {
  const Unseen unseen(window_, document_, isColouring_);
  const auto paint = [this](LONG from, LONG behind, CHARFORMAT2W format) {
    CHARRANGE range{from, behind};
    SendMessageW(window_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
    SendMessageW(window_, EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  };
  CHARFORMAT2W plain{};
  plain.cbSize = sizeof plain;
  plain.dwMask = CFM_COLOR | CFM_BOLD | CFM_ITALIC;
  plain.dwEffects = CFE_AUTOCOLOR;
  paint(first, first + count, plain);
  if (highlight_) {
    // The platform may count other characters than we wrote.
    const StringView sight = StringView(shown_).substr(
        std::min(static_cast<std::size_t>(first), shown_.size()), static_cast<std::size_t>(count));
    for (std::size_t start = 0; start < sight.size();) {
      const std::size_t end = std::min(sight.find(kLineEnd, start), sight.size());
      for (const faces::ColouredWord& word :
           faces::ColouredWordsOf(sight.substr(start, end - start))) {
        const LONG from = first + static_cast<LONG>(start + word.first);
        paint(from, from + static_cast<LONG>(word.count), FormatOf(word.kind));
      }
      start = end + 1;
    }
  }
}

}  // namespace zolt20::com
