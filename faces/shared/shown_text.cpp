#include "faces/shared/shown_text.h"

#include <algorithm>

#include "surface/scan.h"

namespace zolt20::faces {
namespace {

bool IsLineBreak(StringView text, std::size_t at) {
  return text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n';
}

// The first line end in [at, end), or end.
const char16_t* LineEndIn(const char16_t* at, const char16_t* end) {
  return scan::FindFirst(
      at, end,
      [](std::uint64_t word) { return scan::AnyIs(word, u'\r') | scan::AnyIs(word, u'\n'); },
      [](char16_t character) { return character == u'\r' || character == u'\n'; });
}
const char16_t* ReturnIn(const char16_t* at, const char16_t* end) {
  return scan::FindFirst(
      at, end, [](std::uint64_t word) { return scan::AnyIs(word, u'\r'); },
      [](char16_t character) { return character == u'\r'; });
}

}  // namespace

String Shown(StringView text, char16_t lineEnd) {
  String shown;
  shown.reserve(text.size());
  const char16_t* const end = text.data() + text.size();
  const char16_t* at = text.data();
  for (const char16_t* found = LineEndIn(at, end); found != end; found = LineEndIn(at, end)) {
    shown.append(at, found);
    shown += lineEnd;
    at = found + (IsLineBreak(text, static_cast<std::size_t>(found - text.data())) ? 2 : 1);
  }
  return shown.append(at, end);
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
  // Only CR LF makes the places differ.
  const char16_t* const start = text.data();
  std::size_t at = std::min(from, text.size());
  while (shownCharacters > 0 && at < text.size()) {
    const std::size_t most = at + std::min(shownCharacters, text.size() - at);
    const auto found = static_cast<std::size_t>(ReturnIn(start + at, start + most) - start);
    shownCharacters -= found - at;
    at = found;
    if (at == most) break;
    at += IsLineBreak(text, at) ? 2 : 1;
    --shownCharacters;
  }
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
  const std::size_t behind = scan::EqualAtEnd(before, after.substr(std::min(caret, after.size())));
  StringView old = before.substr(0, before.size() - behind);
  StringView changed = after.substr(0, after.size() - behind);
  const std::size_t first = scan::EqualAtStart(old, changed);
  // The common end may reach further: a deletion leaves the caret before the text that stays. Trim
  // what is equal at both ends of the difference.
  old.remove_prefix(first);
  changed.remove_prefix(first);
  const std::size_t more = scan::EqualAtEnd(old, changed);
  return {first, old.size() - more, changed.size() - more};
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
