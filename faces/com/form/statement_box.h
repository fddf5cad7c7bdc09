// A box of statements: the platform's rich edit, with the words of statements in their colours.
//
// A line stands for itself, so just the lines in sight are coloured, when they come there or
// change.
#pragma once

#include <tom.h>

#include <optional>

#include "faces/com/com_pointer.h"
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
  /// After a message that may have brought other lines into sight.
  void Scrolled();
  /// The text from the clipboard, without what it looked like elsewhere.
  void Paste();

 private:
  /// The lines that are seen.
  struct Sight {
    LRESULT firstLine = -1;
    LRESULT lastLine = -1;
    bool operator==(const Sight&) const = default;
  };

  String ReadShown() const;
  Sight InSight() const;
  void ColourSight();
  void Colour(LONG first, LONG count);

  HWND window_ = nullptr;
  String text_;   // the control's
  String shown_;  // the same with one character for each line end
  Sight coloured_;
  Pointer<ITextDocument> document_;
  bool highlight_ = false;
  bool isColouring_ = false;
};

}  // namespace zolt20::com
