// Looking through texts four characters at a time.
#include "surface/scan.h"

#include <gtest/gtest.h>

#include "surface/string.h"

namespace zolt20::tests {
namespace {

// A word of four characters, in the order of the machine.
std::uint64_t WordOf(StringView four) {
  std::uint64_t word = 0;
  std::memcpy(&word, four.data(), sizeof(word));
  return word;
}

TEST(ScanTest, AWordIsAskedForACharacterInAnyOfItsPlaces) {
  for (std::size_t place = 0; place < 4; ++place) {
    String text = u"abcd";
    text[place] = u'~';
    EXPECT_NE(scan::AnyIs(WordOf(text), u'~'), 0U) << place;
    EXPECT_EQ(scan::AnyIs(WordOf(text), u'}'), 0U) << place;
  }
}

TEST(ScanTest, ACharacterIsAllOfItsSixteenBits) {
  EXPECT_EQ(scan::AnyIs(WordOf(u"\u017E\u7E00\u007F\uFF7E"), u'~'), 0U);
  EXPECT_NE(scan::AnyIs(WordOf(u"\u017E\u7E00\u007E\uFF7E"), u'~'), 0U);
}

TEST(ScanTest, AWordIsAskedForCharactersBelowABound) {
  EXPECT_EQ(scan::AnyBelow(WordOf(u"\u000E\u8000\uFFFF\u000F"), 0x0E), 0U);
  EXPECT_NE(scan::AnyBelow(WordOf(u"\u000E\u8000\u000D\u000F"), 0x0E), 0U);
  EXPECT_NE(scan::AnyBelow(WordOf(StringView(u"\0aaa", 4)), 0x0E), 0U);
}

TEST(ScanTest, TheFirstOfAnyLengthIsFound) {
  const auto anyIsOne = [](std::uint64_t word) { return scan::AnyIs(word, u'~'); };
  const auto isOne = [](char16_t character) { return character == u'~'; };
  for (std::size_t length = 0; length < 12; ++length) {
    String text(length, u'a');
    const char16_t* const end = text.data() + length;
    EXPECT_EQ(scan::FindFirst(text.data(), end, anyIsOne, isOne), end);
    for (std::size_t place = 0; place < length; ++place) {
      text.assign(length, u'a');
      text[place] = text[length - 1] = u'~';
      EXPECT_EQ(scan::FindFirst(text.data(), end, anyIsOne, isOne), text.data() + place)
          << place << " of " << length;
    }
  }
}

TEST(ScanTest, WhatTwoTextsHaveInCommonAtTheirEndsIsCounted) {
  for (std::size_t length = 0; length < 12; ++length) {
    const String text(length, u'a');
    EXPECT_EQ(scan::EqualAtStart(text, String(length + 3, u'a')), length);
    EXPECT_EQ(scan::EqualAtEnd(String(length + 3, u'a'), text), length);
    for (std::size_t place = 0; place < length; ++place) {
      String other = text;
      other[place] = u'b';
      EXPECT_EQ(scan::EqualAtStart(text, other), place) << length;
      EXPECT_EQ(scan::EqualAtEnd(text, other), length - place - 1) << length;
    }
  }
}

}  // namespace
}  // namespace zolt20::tests
