// A box of statements: the platform's rich edit, with the words of statements in their colours.
//
// A line stands for itself, so lines are coloured when they come into sight, and those that an edit
// changed when it was made. What was coloured stays so out of sight.
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

  /// The platform's class of windows; the library that it comes from is loaded with the first call.
  static const wchar_t* ClassName();

  /// Takes a new window of that class. Its parent gets EN_CHANGE.
  void Attach(HWND window);

  /// Shows the text, redrawing no more than what differs. The box's own undo forgets.
  void Show(const String& text);
  void Highlight(bool highlight);
  /// The letters, or the colours of the platform, are others.
  void Recolour();
  /// After EN_CHANGE: the text as it is in the control when the person's edits are in; none when it
  /// is the same.
  std::optional<String> TakeEdit();
  /// Before and after a message by which what stands before the caret then comes in the place of
  /// what is marked now, as with any key of a text. Just that is read of the box.
  void KeyComes();
  void KeyWent() { marked_.reset(); }
  /// After a message that may have brought other lines into sight.
  void Scrolled() { ColourSight(); }
  /// The text from the clipboard, without what it looked like elsewhere.
  void Paste();

 private:
  /// Characters of the shown text, from the first and before the other.
  struct Span {
    std::size_t first = 0;
    std::size_t behind = 0;
  };

  std::size_t Length() const;
  /// What is marked; the caret is behind it.
  Span Marked() const;
  String ReadShown() const;
  String Read(Span characters) const;
  /// What the person made of the shown text, and what stands there now.
  std::pair<faces::Edit, String> TakeShown() const;
  /// The lines that are seen.
  Span InSight() const;
  /// The lines that the characters stand in.
  Span LinesOf(Span characters) const;
  void ColourSight();
  void ColourEdit(const faces::Edit& edit);
  void Colour(Span lines);

  HWND window_ = nullptr;
  String text_;    // the control's
  String shown_;   // the same with one character for each line end
  Span coloured_;  // lines that have their colours; whichever others do is not known
  Pointer<ITextDocument> document_;
  std::optional<Span> marked_;  // while a key is on its way
  bool highlight_ = false;
  bool isColouring_ = false;
};

}  // namespace zolt20::com
