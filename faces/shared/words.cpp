#include "faces/shared/words.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace zolt20::faces {
namespace {

struct WordDesign {
  std::string_view key;
  StringView text;
  std::optional<ControlName> control;
};

constexpr auto kDesigns = std::to_array<WordDesign>({
#define ZOLT20_WORD(key, text) {#key, text, std::nullopt},
#define ZOLT20_NAME(control, text) {#control, text, ControlName::control},
#include "faces/shared/words.def"
});
static_assert(kDesigns.size() == static_cast<std::size_t>(Word::kCount));

const WordDesign& DesignOf(Word word) {
  return kDesigns[static_cast<std::size_t>(word)];
}

}  // namespace

std::string_view KeyOf(Word word) {
  return DesignOf(word).key;
}

std::optional<Word> NameWordOf(ControlName control) {
  const auto* found =
      std::find_if(kDesigns.begin(), kDesigns.end(),
                   [control](const WordDesign& each) { return each.control == control; });
  if (found == kDesigns.end()) return std::nullopt;
  return static_cast<Word>(found - kDesigns.begin());
}

const Words& Words::English() {
  static const Words kEnglish;
  return kEnglish;
}

StringView Words::operator[](Word word) const {
  const auto found = given_.find(word);
  return found == given_.end() ? DesignOf(word).text : StringView(found->second);
}

String Filled(StringView words, std::initializer_list<std::pair<StringView, StringView>> values) {
  String filled(words);
  for (const auto& [key, value] : values)
    filled = Replace(filled, Concat(u"{", key, u"}"), value);
  return filled;
}

}  // namespace zolt20::faces
