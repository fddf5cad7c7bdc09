// Texts that are too long for their place.
#include "faces/shared/cut_text.h"

#include <gtest/gtest.h>

namespace zolt20::tests {
namespace {

/// Every character is 10 wide.
String Cut(const String& text, int room) {
  return faces::CutInTheMiddle(text, room,
                               [](StringView part) { return static_cast<int>(part.size()) * 10; });
}

TEST(CutTextTest, WhatHasRoomStaysWhole) {
  EXPECT_EQ(Cut(u"Archive", 70), u"Archive");
  EXPECT_EQ(Cut(u"", 0), u"");
}

TEST(CutTextTest, BeginningAndEndStay) {
  EXPECT_EQ(Cut(u"Archive_2019", 90), u"Arch\u20262019");
  EXPECT_EQ(Cut(u"Archive_2019", 100), u"Archi\u20262019");
  EXPECT_EQ(Cut(u"Archive_2019", 119), u"Archi\u2026_2019");
}

TEST(CutTextTest, OneCharacterIsLeftAtLeast) {
  EXPECT_EQ(Cut(u"Archive", 0), u"A\u2026");
  EXPECT_EQ(Cut(u"A", 5), u"A\u2026");
}

TEST(CutTextTest, NoHalfOfACharacterIsLeft) {
  const String smiles = u"\U0001F600\U0001F601\U0001F602\U0001F603";
  for (int room = 10; room < 80; room += 10) {
    const String cut = Cut(smiles, room);
    for (std::size_t at = 0; at < cut.size(); ++at) {
      const bool isFirst = cut[at] >= 0xD800 && cut[at] <= 0xDBFF;
      const bool isSecond = cut[at] >= 0xDC00 && cut[at] <= 0xDFFF;
      if (isFirst) {
        ASSERT_LT(at + 1, cut.size());
        ++at;
      } else {
        EXPECT_FALSE(isSecond) << room;
      }
    }
  }
}

}  // namespace
}  // namespace zolt20::tests
