#include "language/words.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace zolt20::language {
namespace {

struct WordDesign {
  std::string_view key;
  StringView text;
};

constexpr auto kDesigns = std::to_array<WordDesign>({
#define ZOLT20_WORD(key, text) {#key, text},
#define ZOLT20_MISTAKE(key, code, severity, text) {#key, text},
#include "language/words.def"
});
static_assert(kDesigns.size() == static_cast<std::size_t>(Word::kCount));

const WordDesign& DesignOf(Word word) {
  return kDesigns[static_cast<std::size_t>(word)];
}

}  // namespace

std::string_view KeyOf(Word word) {
  return DesignOf(word).key;
}

std::vector<Word> AllWords() {
  std::vector<Word> words;
  for (std::size_t i = 0; i < kDesigns.size(); ++i)
    words.push_back(static_cast<Word>(i));
  return words;
}

const Words& Words::English() {
  static const Words kEnglish;
  return kEnglish;
}

StringView Words::operator[](Word word) const {
  const auto found = given_.find(word);
  return found == given_.end() ? DesignOf(word).text : StringView(found->second);
}

String Filled(StringView sentence,
              std::initializer_list<std::pair<StringView, StringView>> values) {
  String filled;
  std::size_t at = 0;
  while (at < sentence.size()) {
    const std::size_t end = sentence[at] == u'{' ? sentence.find(u'}', at) : StringView::npos;
    const auto* value = values.end();
    if (end != StringView::npos) {
      const StringView key = sentence.substr(at + 1, end - at - 1);
      value = std::find_if(values.begin(), values.end(),
                           [key](const auto& each) { return each.first == key; });
    }
    if (value == values.end()) {
      filled += sentence[at++];
    } else {
      filled += value->second;
      at = end + 1;
    }
  }
  return filled;
}

}  // namespace zolt20::language
