#include "surface/text_box.h"

#include <algorithm>
#include <cassert>
#include <utility>

#include "surface/surface.h"

namespace zolt20 {
namespace {

constexpr unsigned kWhite = 0xFFFFFF;
constexpr unsigned kSystemColor14 = 0x8000000E;

}  // namespace

void TextControl::Text(StringView text) {
  if (!Equal(text, Text())) Text(String(text));
}

void TextControl::Text(String&& text) {
  if (Equal(text, Text())) return;
  state_.text = Shared(std::move(text));
  TextReplaced();
}

void TextControl::ReplaceFrom(std::size_t kept, StringView end) {
  assert(kept <= Text().size());
  if (Equal(StringView(Text()).substr(kept), end)) return;
  state_.text.Write().replace(kept, String::npos, end);
  TextReplaced();
}

void TextControl::RestoreKind(KindState&& state) noexcept {
  state_ = std::move(*std::get_if<TextState>(&state));
}

TextBox::TextBox(Surface& surface, const Design& design) : TextControl(surface, design) {
  state_.backColor = design.name == ControlName::txtCondition ? kSystemColor14 : kWhite;
}

void TextBox::SelStart(int caret) {
  caret = std::clamp(caret, 0, static_cast<int>(Text().size()));
  if (caret == state_.selStart) return;
  state_.selStart = caret;
  Changed(Property::kSelStart);
}

void TextBox::Enter(String text, int caret) {
  const bool differs = !Equal(text, Text());
  if (differs) state_.text = Shared(std::move(text));
  Written(differs, caret);
}

// After the text was written: sets the caret, sends the notices, and runs Change if it `differs`.
void TextBox::Written(bool differs, int caret) {
  const bool moved = caret != state_.selStart;
  state_.selStart = caret;
  if (differs) Changed(Property::kText);
  if (moved) Changed(Property::kSelStart);
  if (differs) surface().OnChange(*this);
}

void SyntaxTextBox::TextReplaced() {
  ++revision_;
  Changed(Property::kText);
}

void SyntaxTextBox::Highlight(bool highlight) {
  if (highlight == state_.highlight) return;
  state_.highlight = highlight;
  Changed(Property::kHighlight);
}

void SyntaxTextBox::RestoreKind(KindState&& state) noexcept {
  TextControl::RestoreKind(std::move(state));
  ++revision_;
}

}  // namespace zolt20
