#include "surface/text_box.h"

#include <algorithm>
#include <utility>

#include "surface/surface.h"

namespace zolt20 {
namespace {

constexpr unsigned kWhite = 0xFFFFFF;
constexpr unsigned kSystemColor14 = 0x8000000E;

}  // namespace

TextBox::TextBox(Surface& surface, const Design& design) : Control(surface, design) {
  state_.backColor = design.name == ControlName::txtCondition ? kSystemColor14 : kWhite;
}

void TextBox::Text(String&& text) {
  if (text == Text()) return;
  Enter(std::move(text), 0);
}

void TextBox::SelStart(int caret) {
  caret = std::clamp(caret, 0, static_cast<int>(Text().size()));
  if (caret == state_.selStart) return;
  state_.selStart = caret;
  Changed(Property::kSelStart);
}

void TextBox::Enter(String text, int caret) {
  const bool differs = text != Text();
  const bool moved = caret != state_.selStart;
  if (differs) state_.text = Shared(std::move(text));
  state_.selStart = caret;
  if (differs) Changed(Property::kText);
  if (moved) Changed(Property::kSelStart);
  if (differs) surface().OnChange(*this);
}

void TextBox::RestoreKind(KindState&& state) noexcept {
  state_ = std::move(*std::get_if<TextState>(&state));
}

void SyntaxTextBox::Text(String&& text) {
  if (text == Text()) return;
  state_.text = Shared(std::move(text));
  Changed(Property::kText);
}

void SyntaxTextBox::Highlight(bool highlight) {
  if (highlight == state_.highlight) return;
  state_.highlight = highlight;
  Changed(Property::kHighlight);
}

void SyntaxTextBox::RestoreKind(KindState&& state) noexcept {
  state_ = std::move(*std::get_if<SyntaxTextState>(&state));
}

}  // namespace zolt20
