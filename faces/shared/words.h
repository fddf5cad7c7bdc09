// The texts that faces add to the control's own, such as accessible names: the list of words.def,
// in English or localized by a host. Knows no platform.
#pragma once

#include <initializer_list>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "surface/form.h"
#include "surface/string.h"

namespace zolt20::faces {

enum class Word {
#define ZOLT20_WORD(key, text) key,
#define ZOLT20_NAME(control, text) control,
#include "faces/shared/words.def"
  kCount,
};

/// The key under which a host sets another text for a word.
std::string_view KeyOf(Word word);
/// The word that is a control's accessible name, if words.def has one for it.
std::optional<Word> NameWordOf(ControlName control);

class Words {
 public:
  /// The default words, which no host has changed.
  static const Words& English();

  StringView operator[](Word word) const;
  void Set(Word word, String text) { given_[word] = std::move(text); }
  /// Resets all words to English.
  void Clear() { given_.clear(); }

 private:
  std::map<Word, String> given_;
};

/// The words with each placeholder, such as "{row}" for the key "row", replaced by its value.
/// Placeholders without a value stay.
String Filled(StringView words, std::initializer_list<std::pair<StringView, StringView>> values);

}  // namespace zolt20::faces
