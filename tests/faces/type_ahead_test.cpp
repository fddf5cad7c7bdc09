// Letters typed in a list look for the row that begins with them.
#include "faces/shared/type_ahead.h"

#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

class TypeAheadTest : public ControlTest {
 protected:
  TypeAheadTest() {
    Catalogue("ABLE____0,ACID____0,BASE____0,able___20,ABOVE___0", "");
    Log();
  }
  /// Where a letter goes, so many milliseconds after the one before; -1 for nowhere.
  int Type(char16_t letter, unsigned after = 100) {
    time_ += after;
    const faces::DrawnRows rows(host().Form().lsttables);
    const auto row = ahead_.Find(rows, current_, letter, time_);
    if (row) current_ = *row;
    return row.value_or(-1);
  }

 private:
  faces::TypeAhead ahead_;
  unsigned time_ = 0U - 500U;  // begins anew on the way
  int current_ = -1;
};

TEST_F(TypeAheadTest, ALetterGoesToTheFirstRowOfIt) {
  EXPECT_EQ(Type(u'b'), 2);
}

TEST_F(TypeAheadTest, TheSameLetterAgainGoesToTheNextRowAndAroundTheEnd) {
  EXPECT_EQ(Type(u'a'), 0);
  EXPECT_EQ(Type(u'A'), 1);
  EXPECT_EQ(Type(u'a'), 3);
  EXPECT_EQ(Type(u'a'), 4);
  EXPECT_EQ(Type(u'a'), 0);
}

TEST_F(TypeAheadTest, OtherLettersStayAsLongAsTheyFit) {
  EXPECT_EQ(Type(u'a'), 0);
  EXPECT_EQ(Type(u'b'), 0);
  EXPECT_EQ(Type(u'o'), 4);
  EXPECT_EQ(Type(u'x'), -1);
}

TEST_F(TypeAheadTest, AfterAWhileALetterBeginsAnew) {
  EXPECT_EQ(Type(u'a'), 0);
  EXPECT_EQ(Type(u'b', faces::TypeAhead::kSoon + 1), 2);
  EXPECT_EQ(Type(u'a', faces::TypeAhead::kSoon), 2);
}

TEST_F(TypeAheadTest, AmongTheRowsThatAreDrawn) {
  faces::DrawnRows drawn(host().Form().lsttables);
  drawn.SetFilter(u"b");  // ABLE, BASE, able, ABOVE
  faces::TypeAhead ahead;
  EXPECT_EQ(ahead.Find(drawn, -1, u'a', 0), 0);
  EXPECT_EQ(ahead.Find(drawn, 0, u'a', 1), 2);
  EXPECT_EQ(ahead.Find(drawn, 2, u'b', 2'000), 1);
  EXPECT_EQ(ahead.Find(drawn, 1, u'c', 4'000), std::nullopt);
}

TEST_F(TypeAheadTest, AnEmptyListHasNoRow) {
  faces::TypeAhead ahead;
  const faces::DrawnRows rows(host().Form().lstFields);
  EXPECT_EQ(ahead.Find(rows, -1, u'a', 0), std::nullopt);
}

TEST_F(TypeAheadTest, ThePlatformSaysWhatLettersAreAlike) {
  Catalogue("жук_____0", "");
  Log();
  // Of Cyrillic the small letters stand 0x20 behind the capitals.
  const faces::DrawnRows rows(host().Form().lsttables, [](StringView text) {
    String folded(text);
    for (char16_t& letter : folded) {
      if (letter >= 0x410 && letter <= 0x42F) letter = static_cast<char16_t>(letter + 0x20);
    }
    return folded;
  });
  faces::TypeAhead ahead;
  EXPECT_EQ(ahead.Find(rows, -1, u'\u0416', 0), 5);
  EXPECT_EQ(ahead.Find(rows, 5, u'\u0423', 1), 5);
  EXPECT_EQ(ahead.Find(rows, 5, u'b', 2'000), std::nullopt);
}

}  // namespace
}  // namespace zolt20::tests
