#include "faces/shared/shown_text.h"

#include <algorithm>

namespace zolt20::faces {
namespace {

bool IsLineBreak(StringView text, std::size_t at) {
  return text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n';
}

}  // namespace

String Shown(StringView text, char16_t lineEnd) {
  String shown;
  shown.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (IsLineBreak(text, at)) ++at;
    const char16_t character = text[at];
    shown += character == u'\n' || character == u'\r' ? lineEnd : character;
  }
  return shown;
}

String WithLineEnds(StringView text) {
  String whole;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != u'\r' && text[at] != u'\n') {
      whole += text[at];
      continue;
    }
    if (IsLineBreak(text, at)) ++at;
    whole += u"\r\n";
  }
  return whole;
}

std::size_t PlaceInText(StringView text, std::size_t from, std::size_t shownCharacters) {
  std::size_t at = from;
  for (; shownCharacters > 0 && at < text.size(); --shownCharacters)
    at += IsLineBreak(text, at) ? 2 : 1;
  return at;
}

String AfterEdit(StringView text, std::size_t position, std::size_t removed, StringView typed,
                 char16_t lineEnd) {
  const std::size_t first = PlaceInText(text, 0, position);
  const std::size_t behind = PlaceInText(text, first, removed);
  String between;
  for (const char16_t character : typed) {
    if (character == lineEnd) {
      between += kLineBreak;
    } else {
      between += character;
    }
  }
  // A removal that joins "\r" and "\n" would merge two line ends into one CR LF: keep them two.
  if (between.empty() && first > 0 && behind < text.size() && text[first - 1] == u'\r' &&
      text[behind] == u'\n') {
    between = u"\n";
  }
  return Concat(text.substr(0, first), between, text.substr(behind));
}

Edit EditBetween(StringView before, StringView after, std::size_t caret) {
  std::size_t oldEnd = before.size();
  std::size_t newEnd = after.size();
  while (oldEnd > 0 && newEnd > caret && before[oldEnd - 1] == after[newEnd - 1]) {
    --oldEnd;
    --newEnd;
  }
  const auto first = static_cast<std::size_t>(
      std::mismatch(before.begin(), before.begin() + static_cast<std::ptrdiff_t>(oldEnd),
                    after.begin(), after.begin() + static_cast<std::ptrdiff_t>(newEnd))
          .first -
      before.begin());
  // The common end may reach further: a deletion leaves the caret before the text that stays. Trim
  // what is equal at both ends of the difference.
  while (oldEnd > first && newEnd > first && before[oldEnd - 1] == after[newEnd - 1]) {
    --oldEnd;
    --newEnd;
  }
  return {first, oldEnd - first, newEnd - first};
}

Edit EditOfMark(StringView before, StringView after, std::size_t from, std::size_t behind,
                std::size_t caret) {
  const bool isOfMark = from <= behind && behind <= before.size() && from <= caret &&
                        caret <= after.size() && before.substr(0, from) == after.substr(0, from) &&
                        before.substr(behind) == after.substr(caret);
  return isOfMark ? Edit{from, behind - from, caret - from} : EditBetween(before, after, caret);
}

const String& TypedText(const Control& box) {
  return box.kind() == Kind::ComboBox ? static_cast<const ComboBox&>(box).Text()
                                      : static_cast<const TextControl&>(box).Text();
}

std::optional<String> TextOf(const Control& control) {
  switch (control.kind()) {
    case Kind::TextBox:
    case Kind::SyntaxTextBox:
      return static_cast<const TextControl&>(control).Text();
    default:
      return std::nullopt;
  }
}

}  // namespace zolt20::faces
