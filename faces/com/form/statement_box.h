// A box of statements: the platform's rich edit with syntax highlighting of statements.
//
// Lines are independent of each other, so they are coloured lazily, when they become visible, and
// those that an edit changed right after it. Coloured lines keep their colours when not visible.
#pragma once

#include <tom.h>

#include <optional>
#include <utility>

#include "faces/com/com_pointer.h"
#include "faces/shared/shown_text.h"
#include "surface/string.h"

namespace zolt20::com {

class StatementBox {
 public:
  static constexpr DWORD kStyle = ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL | ES_WANTRETURN |
                                  ES_NOHIDESEL | WS_VSCROLL | WS_HSCROLL;

  /// The platform's window class; its library is loaded by the first call.
  static const wchar_t* ClassName();

  /// Attaches to a new window of that class. Its parent gets EN_CHANGE.
  void Attach(HWND window);

  /// Shows the text, redrawing only what differs. A change clears the box's own undo buffer.
  void Show(const String& text);
  void Highlight(bool highlight);
  /// Called when the font or the platform's colours changed: colours all again.
  void Recolor();
  /// After EN_CHANGE: the control's text with the person's edit applied; nullopt when it is the
  /// same.
  std::optional<String> TakeEdit();
  /// Before and after a message, such as a key, that replaces the selection by what then stands
  /// before the caret. TakeEdit then reads only those characters from the box.
  void KeyComes();
  void KeyWent() { marked_.reset(); }
  /// After a message that may have scrolled: colours lines that became visible.
  void Scrolled() { ColorSight(); }
  /// Pastes the clipboard as plain text, without formats.
  void Paste();

 private:
  /// A range of the shown text: from `first` on and before `behind`.
  struct Span {
    std::size_t first = 0;
    std::size_t behind = 0;
  };

  std::size_t Length() const;
  /// The selection; the caret is at its end.
  Span Marked() const;
  String ReadShown() const;
  String Read(Span characters) const;
  /// The person's edit of the shown text, and the characters it added.
  std::pair<faces::Edit, String> TakeShown() const;
  /// The visible lines.
  Span InSight() const;
  /// The range extended to whole lines.
  Span LinesOf(Span characters) const;
  void ColorSight();
  void ColorEdit(const faces::Edit& edit);
  void Color(Span lines);

  HWND window_ = nullptr;
  String text_;   // the control's
  String shown_;  // text_ as shown, with one character for each line end
  Span colored_;  // lines known to have their colours; others may have them, too
  Pointer<ITextDocument> document_;
  std::optional<Span> marked_;  // the selection before the key in progress
  bool highlight_ = false;
  bool isColoring_ = false;
};

}  // namespace zolt20::com
