// Text boxes, plain and with syntax colouring.
#pragma once

#include "surface/control.h"

namespace zolt20 {

/// A control with a text that a person can type.
class TextControl : public Control {
 public:
  const String& Text() const { return *state_.text; }
  /// The same text changes nothing. In a TextBox a different text sets the caret to 0 and runs
  /// Change inside the call; a SyntaxTextBox has neither.
  void Text(StringView text);
  void Text(const char16_t* text) { Text(StringView(text)); }
  void Text(String&& text);
  /// The same as Text(first `kept` characters, then `end`), but the time depends on how much is
  /// removed and added, not on what is kept. `kept` is at most the length of the text.
  void ReplaceFrom(std::size_t kept, StringView end);

 protected:
  using Control::Control;

  void RestoreKind(KindState&& state) noexcept override;

  TextState state_;

 private:
  KindState SaveKind() const override { return state_; }
  // The program wrote a different text.
  virtual void TextReplaced() = 0;
};

/// A text box of one or several lines. Line ends of any kind stay as they are given.
class TextBox final : public TextControl {
 public:
  TextBox(Surface& surface, const Design& design);

  /// The caret: the number of characters before it.
  int SelStart() const { return state_.selStart; }
  /// Clamped to 0 and the length of the text.
  void SelStart(int caret);

  /// A plain number, 0xBBGGRR or a system colour.
  unsigned BackColor() const { return state_.backColor; }

 private:
  friend class Surface;

  void TextReplaced() override { Written(true, 0); }
  // Replaces the text as typing does: `caret` is the new SelStart even if the text is the same, and
  // Change runs if the text differs.
  void Enter(String text, int caret);
  void Written(bool differs, int caret);
};

/// A box of several lines that can colour the statement language. It has no Change and no caret; it
/// raises TabChain when it takes the focus.
class SyntaxTextBox final : public TextControl {
 public:
  SyntaxTextBox(Surface& surface, const Design& design) : TextControl(surface, design) {}

  /// A version number of the text: different after each change of it and after each Restore.
  std::size_t Revision() const { return revision_; }

  /// Whether a face colours the text by its syntax. Has no effect on the text.
  bool Highlight() const { return state_.highlight; }
  void Highlight(bool highlight);

 private:
  void RestoreKind(KindState&& state) noexcept override;
  void TextReplaced() override;

  std::size_t revision_ = 0;
};

}  // namespace zolt20
