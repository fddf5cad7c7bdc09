// Text boxes, plain and with syntax colouring.
#pragma once

#include "surface/control.h"

namespace zolt20 {

/// A text box of one or several lines. Line ends of any kind stay as they are given.
class TextBox final : public Control {
 public:
  TextBox(Surface& surface, const Design& design);

  const String& Text() const { return *state_.text; }
  /// The same text changes nothing. A different text sets the caret to 0 and runs Change inside the
  /// call.
  void Text(StringView text);
  void Text(const char16_t* text) { Text(StringView(text)); }
  void Text(String&& text);
  /// The same as Text(first `kept` characters, then `end`), but the time depends on how much is
  /// removed and added, not on what is kept. `kept` is at most the length of the text.
  void ReplaceFrom(std::size_t kept, StringView end);

  /// The caret: the number of characters before it.
  int SelStart() const { return state_.selStart; }
  /// Clamped to 0 and the length of the text.
  void SelStart(int caret);

  /// A plain number, 0xBBGGRR or a system colour.
  unsigned BackColor() const { return state_.backColor; }

 private:
  friend class Surface;

  KindState SaveKind() const override { return state_; }
  void RestoreKind(KindState&& state) noexcept override;
  // Replaces the text as typing does: `caret` is the new SelStart even if the text is the same, and
  // Change runs if the text differs.
  void Enter(String text, int caret);
  void Written(bool differs, int caret);

  TextState state_;
};

/// A box of several lines that can colour the statement language. It has no Change and no caret; it
/// raises TabChain when it takes the focus.
class SyntaxTextBox final : public Control {
 public:
  SyntaxTextBox(Surface& surface, const Design& design) : Control(surface, design) {}

  const String& Text() const { return *state_.text; }
  void Text(StringView text);
  void Text(const char16_t* text) { Text(StringView(text)); }
  void Text(String&& text);
  /// The same as Text(first `kept` characters, then `end`), but the time depends on how much is
  /// removed and added, not on what is kept. `kept` is at most the length of the text.
  void ReplaceFrom(std::size_t kept, StringView end);
  /// A version number of the text: different after each change of it and after each Restore.
  std::size_t Revision() const { return revision_; }

  bool Highlight() const { return state_.highlight; }
  /// Has no effect on the text.
  void Highlight(bool highlight);

 private:
  KindState SaveKind() const override { return state_; }
  void RestoreKind(KindState&& state) noexcept override;

  SyntaxTextState state_;
  std::size_t revision_ = 0;
};

}  // namespace zolt20
