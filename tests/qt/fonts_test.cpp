// Every page in several font families, at the usual size and at twice that: whatever fonts
// a machine has, no text is cut and no control overlaps another.
#include <tuple>

#include "tests/qt/pages_test.h"

namespace zolt20::tests {
namespace {

struct Letters {
  const char* name;    // of the test and its pictures
  const char* family;  // nullptr for what the machine has by itself
};
constexpr Letters kLetters[] = {{"default", nullptr},
                                {"dejavu", "DejaVu Sans"},
                                {"liberation", "Liberation Sans"},
                                {"noto", "Noto Sans"}};

class FontsTest : public PagesTest,
                  public ::testing::WithParamInterface<std::tuple<Letters, Look>> {
 protected:
  FontsTest() : PagesTest(std::get<Look>(GetParam()), Family().family) {}

  /// All pages, empty and filled, and all kinds of conditions.
  void LookAtEverything(const std::string& size) {
    const std::string prefix = std::string("font-") + Family().name + size;
    for (int page = 0; page < 7; ++page) {
      map_->setPrpTab(page);
      Picture(prefix + "-empty" + std::to_string(page));
    }
    for (const char* option : {"optIfThen", "optwhile", "optRepeat", "optFor", "optCase"}) {
      Click(option);
      Picture(prefix + "-" + option);
    }
    // The first four rows fill the frame, the others scroll.
    for (int row = 1; row <= 5; ++row) {
      Click("cmdNext");
      Picture(prefix + "-rows" + std::to_string(row));
    }
    Play("where-report", 1000);
    for (int page = 0; page < 2; ++page) {
      map_->setPrpTab(page);
      Picture(prefix + "-page" + std::to_string(page));
    }
    Play("full-statement", 1000);
    for (int page = 2; page <= 5; ++page) {
      map_->setPrpTab(page);
      Picture(prefix + "-page" + std::to_string(page));
    }
    Play("mapping-rule", 40);
    Picture(prefix + "-page6");
  }

 private:
  static const Letters& Family() { return std::get<Letters>(GetParam()); }
};

TEST_P(FontsTest, EveryPageHasRoomForItsTexts) {
  LookAtEverything("");
}

TEST_P(FontsTest, EveryPageHasRoomForLettersOfTwiceTheSize) {
  DoubleTheLetters();
  LookAtEverything("-twice");
}

// Rows that are there already move along, and those that come later stand with them.
TEST_P(FontsTest, CaseRowsMoveWhenTheLettersGrow) {
  map_->setPrpTab(6);
  Click("optCase");
  for (int row = 1; row <= 2; ++row)
    Click("cmdNext");
  const int before = Find("txtStmt(0)")->height();
  DoubleTheLetters();
  Click("cmdNext");
  ExpectNothingCut();
  ExpectNothingCovered();
  EXPECT_GT(Find("txtStmt(0)")->height(), before);
  for (int row = 1; row <= 3; ++row) {
    const std::string name = "txtStmt(" + std::to_string(row);
    const QWidget* above = Find(("txtStmt(" + std::to_string(row - 1) + ")").c_str());
    EXPECT_GT(Find((name + ")").c_str())->y(), above->geometry().bottom()) << name;
  }
  EXPECT_EQ(map_->form().TxtExpr(1).Top(), 120 + 690);
  EXPECT_EQ(map_->form().TxtExpr(1).Height(), 680);
  EXPECT_EQ(map_->form().fracase.Height(), 2880);
}

INSTANTIATE_TEST_SUITE_P(Families, FontsTest,
                         ::testing::Combine(::testing::ValuesIn(kLetters),
                                            ::testing::ValuesIn(kLooks)),
                         [](const auto& chosen) {
                           return std::string(std::get<Letters>(chosen.param).name) + "_" +
                                  std::get<Look>(chosen.param).name;
                         });

}  // namespace
}  // namespace zolt20::tests
