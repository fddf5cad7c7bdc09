// What a box shows of a text, where a place in it lies in the text, and which edit leads from one
// shown text to the next.
#include "faces/shared/shown_text.h"

#include <vector>

#include <gtest/gtest.h>

namespace zolt20::tests {
namespace {

using faces::Edit;

// All texts of up to so many of the characters.
std::vector<String> TextsOf(StringView characters, std::size_t longest) {
  std::vector<String> texts{u""};
  for (std::size_t at = 0; at < texts.size(); ++at) {
    if (texts[at].size() == longest) continue;
    for (const char16_t character : characters)
      texts.push_back(texts[at] + character);
  }
  return texts;
}

String With(const Edit& edit, StringView before, StringView after) {
  return Concat(before.substr(0, edit.position), after.substr(edit.position, edit.added),
                before.substr(edit.position + edit.removed));
}

TEST(ShownTextTest, EachLineEndIsOneCharacter) {
  EXPECT_EQ(faces::Shown(u"", u'|'), u"");
  EXPECT_EQ(faces::Shown(u"a\r\nb\rc\nd", u'|'), u"a|b|c|d");
  EXPECT_EQ(faces::Shown(u"\r\r\n\n\r", u'|'), u"||||");
  EXPECT_EQ(faces::Shown(u"select A\r\nfrom B, C, D, E\r\n", u'\n'),
            u"select A\nfrom B, C, D, E\n");
}

TEST(ShownTextTest, AShownPlaceLiesInTheTextBehindAsManyShownCharacters) {
  for (const String& text : TextsOf(u"a\r\n", 6)) {
    for (std::size_t shown = 0; shown <= text.size() + 1; ++shown) {
      const std::size_t place = faces::PlaceInText(text, 0, shown);
      const String whole = faces::Shown(text, u'\n');
      ASSERT_EQ(faces::Shown(StringView(text).substr(0, place), u'\n'), whole.substr(0, shown));
    }
  }
}

TEST(ShownTextTest, APlaceIsFoundFromAnotherOne) {
  const String text = u"select A\r\nfrom B\r\nwhere C";
  EXPECT_EQ(faces::PlaceInText(text, 0, 9), 10U);
  EXPECT_EQ(faces::PlaceInText(text, 10, 7), 18U);
  EXPECT_EQ(faces::PlaceInText(text, 10, 100), text.size());
  EXPECT_EQ(faces::PlaceInText(text, text.size(), 1), text.size());
}

TEST(ShownTextTest, TheEditBetweenTwoTextsTurnsOneIntoTheOther) {
  const std::vector<String> texts = TextsOf(u"ab", 5);
  for (const String& before : texts) {
    for (const String& after : texts) {
      for (std::size_t caret = 0; caret <= after.size() + 1; ++caret) {
        const Edit edit = faces::EditBetween(before, after, caret);
        ASSERT_LE(edit.position + edit.removed, before.size());
        ASSERT_LE(edit.position + edit.added, after.size());
        ASSERT_EQ(With(edit, before, after), after);
      }
    }
  }
}

TEST(ShownTextTest, AnEditInARunOfOneLetterEndsAtTheCaret) {
  for (std::size_t caret = 1; caret <= 9; ++caret) {
    const Edit edit = faces::EditBetween(String(8, u'a'), String(9, u'a'), caret);
    EXPECT_EQ(edit.position, caret - 1);
    EXPECT_EQ(edit.removed, 0U);
    EXPECT_EQ(edit.added, 1U);
  }
}

TEST(ShownTextTest, AnEditRemovesNoMoreThanIsMissing) {
  const Edit edit = faces::EditBetween(u"abc", u"ac", 2);
  EXPECT_EQ(edit.position, 1U);
  EXPECT_EQ(edit.removed, 1U);
  EXPECT_EQ(edit.added, 0U);
}

}  // namespace
}  // namespace zolt20::tests
