// The sentences of checks, and how they are filled.
#include "language/words.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/support/host_texts.h"

namespace zolt20::tests {
namespace {

using language::Filled;
using language::Word;
using language::Words;

TEST(LanguageWordsTest, AreEnglishUntilAHostGivesOthers) {
  EXPECT_EQ(Words::English()[Word::emptyEntry], u"An entry of this list is empty.");
  Words words;
  words.Set(Word::emptyEntry, u"leer");
  EXPECT_EQ(words[Word::emptyEntry], u"leer");
  EXPECT_EQ(words[Word::glued], Words::English()[Word::glued]);
}

TEST(LanguageWordsTest, EachHasAKeyOfItsOwnAndASentence) {
  std::set<std::string_view> keys;
  for (const Word word : language::AllWords()) {
    EXPECT_TRUE(keys.insert(language::KeyOf(word)).second) << language::KeyOf(word);
    EXPECT_NE(Words::English()[word], u"") << language::KeyOf(word);
  }
  EXPECT_EQ(keys.size(), static_cast<std::size_t>(Word::kCount));
  EXPECT_EQ(keys.count("notClosed"), 1U);
}

TEST(LanguageWordsTest, AreFilledOnceFromLeftToRight) {
  EXPECT_EQ(Filled(u"{a} and {b}, {a}", {{u"a", u"1"}, {u"b", u"{a}"}}), u"1 and {a}, 1");
  EXPECT_EQ(Filled(u"{c} {", {{u"a", u"1"}}), u"{c} {");
  EXPECT_EQ(Filled(u"", {}), u"");
}

}  // namespace
}  // namespace zolt20::tests
