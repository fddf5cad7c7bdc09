// The words that faces add to the control's own, such as the names that screen readers say: by the
// list of words.def, in English or as a host gives them. Knows no platform.
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

/// What a word is called where a host gives others.
std::string_view KeyOf(Word word);
/// The name of a control that has one of its own.
std::optional<Word> NameWordOf(ControlName control);

class Words {
 public:
  /// Those that no host has changed.
  static const Words& English();

  StringView operator[](Word word) const;
  void Set(Word word, String text) { given_[word] = std::move(text); }
  /// All are English again.
  void Clear() { given_.clear(); }

 private:
  std::map<Word, String> given_;
};

/// The words with each value instead of its key in braces.
String Filled(StringView words, std::initializer_list<std::pair<StringView, StringView>> values);

}  // namespace zolt20::faces
