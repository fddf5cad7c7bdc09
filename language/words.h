// The sentences that checks and explanations of the statement language are made of: by the list of
// words.def, in English or as a host gives them.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "surface/string.h"

namespace zolt20::language {

enum class Word : std::uint8_t {
#define ZOLT20_WORD(key, text) key,
#define ZOLT20_MISTAKE(key, code, severity, text) key,
#include "language/words.def"
  kCount,
};

/// The key of a sentence, by which a host replaces it.
std::string_view KeyOf(Word word);
/// All sentences, in the order of the list.
std::vector<Word> AllWords();

class Words {
 public:
  /// The default sentences.
  static const Words& English();

  StringView operator[](Word word) const;
  void Set(Word word, String text) { given_[word] = std::move(text); }

 private:
  std::map<Word, String> given_;
};

/// Fills in a sentence: replaces each key in braces by its value. A key without a value stays, and
/// keys inside of values are not replaced.
String Filled(StringView sentence, std::initializer_list<std::pair<StringView, StringView>> values);

}  // namespace zolt20::language
