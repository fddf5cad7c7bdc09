// Constructs nested to depth 8, in every order of two kinds and in random orders, against texts
// that a plain recursive printer writes.
#include "tests/support/nesting_test.h"

namespace zolt20::tests {
namespace {

class NestedKindsTest : public NestingTest {
 protected:
  /// The nesting in a control of its own.
  void Expect(const Nesting& nesting) {
    MakeNew();
    Tab(6);
    AddAndBuild(nesting);
    ASSERT_EQ(Result(), Print(nesting));
  }
};

TEST_F(NestedKindsTest, ThePrinterWritesWhatAPersonWouldExpect) {
  const Nesting nesting = {{Kind::kIf, "a", "", "", "", "x\r\ny", "z", {}, ""},
                           {Kind::kFor, "i", "1", "3", "2", "", "", {}, ""},
                           {Kind::kWhile, "c", "", "", "", "", "", {}, ""},
                           {Kind::kRepeat, "p", "", "", "", "s", "", {}, ""},
                           {Kind::kCase, "e", "", "", "", "", "", {{"1", "t"}}, "d"}};
  EXPECT_EQ(Print(nesting),
            "if a then \r\n\tx\r\n\ty\r\nelse\r\n\tz\r\n"
            "\tfor i = 1 to 3  Step    2\r\n\r\n"
            "\t\twhile  c\r\n"
            "\t\t\trepeat \r\n\t\t\t\ts\r\n"
            "\t\t\t\ton case e\r\n"
            "\t\t\t\t\tcase 1 :\r\n\t\t\t\t\t\tt\r\n\t\t\t\t\t\tbreak\r\n"
            "\t\t\t\t\tdefault: \r\n\t\t\t\t\t\td\r\nendcase\r\n"
            "\t\t\tUntil  ( p )\r\n"
            "\t\tendwhile\r\n"
            "\tendfor\r\n"
            "endif");
}

TEST_F(NestedKindsTest, EveryOrderOfTwoKindsNestsToDepthEight) {
  Maker maker(20);
  for (int outer = 0; outer < kKinds; ++outer) {
    for (int inner = 0; inner < kKinds; ++inner) {
      for (const bool hasStatements : {true, false}) {
        const bool hasDefaults = maker.Maybe();
        for (const std::size_t depth : {std::size_t{2}, kDeepest}) {
          Nesting nesting;
          while (nesting.size() < depth) {
            const auto kind = static_cast<Kind>(nesting.size() % 2 == 0 ? outer : inner);
            nesting.push_back(maker.Make(kind, hasStatements, hasDefaults));
          }
          ASSERT_NO_FATAL_FAILURE(Expect(nesting))
              << outer << " around " << inner << " to depth " << depth;
        }
      }
    }
  }
}

TEST_F(NestedKindsTest, RandomOrdersNestToDepthEight) {
  for (unsigned seed = 1; seed <= 80; ++seed) {
    Maker maker(seed);
    const bool hasDefaults = maker.Maybe();
    Nesting nesting;
    while (nesting.size() < kDeepest)
      nesting.push_back(maker.Make(maker.AnyKind(), maker.Maybe(), hasDefaults));
    ASSERT_NO_FATAL_FAILURE(Expect(nesting)) << "seed " << seed;
  }
}

TEST_F(NestedKindsTest, OneNestingAfterTheOtherFollowsInTheSameResult) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    MakeNew();
    Tab(6);
    Maker maker(seed);
    const bool hasDefaults = maker.Maybe();
    std::string expected;
    for (int count = 0; count < 3; ++count) {
      Nesting nesting;
      for (std::size_t depth = 1 + maker.Below(kDeepest); depth > 0; --depth)
        nesting.push_back(maker.Make(maker.AnyKind(), maker.Maybe(), hasDefaults));
      AddAndBuild(nesting);
      expected += (count > 0 ? "\r\n" : "") + Print(nesting);
    }
    ASSERT_EQ(Result(), expected) << "seed " << seed;
  }
}

}  // namespace
}  // namespace zolt20::tests
