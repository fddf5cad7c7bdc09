// Where the rows of an On...Case stand with letters of any size: each as tall as it has to be, none
// over another, and as many in the frame as the form shows.
#include "faces/shared/case_places.h"

#include <string>
#include <utility>
#include <vector>

#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using Growths = std::pair<int, int>;  // of a row and of the button

class CasePlacesTest : public ControlTest {
 protected:
  struct Place {
    int top;
    int bottom;
    int Height() const { return bottom - top; }
  };

  CasePlacesTest() {
    Tab(6);
    Click("optCase");
  }
  void Next(int times) {
    for (int time = 0; time < times; ++time)
      Click("cmdNext");
  }
  /// In twips.
  Place PlaceOf(std::string_view name, Growths growths = {}) {
    const auto down = [](int twips) { return twips; };
    const faces::CaseSpan span = faces::CaseSpanOf(host().Form(), On(name));
    const int top = span.top.In(down, growths.first, growths.second);
    return {top, top + span.height.In(down, growths.first, growths.second)};
  }
  static std::string Row(int row) { return "TxtExpr(" + std::to_string(row) + ")"; }
};

const std::vector<Growths> kGrowths{{0, 0}, {0, 60}, {45, 0}, {30, 60}, {700, 340}};

TEST_F(CasePlacesTest, WithTheLettersOfTheFormThePlacesAreThoseOfTheForm) {
  Next(5);
  for (const std::string& name : {Row(2), Row(3), Row(5), std::string("txtStmt(4)"),
                                  std::string("VscrCase"), std::string("cmdNext")}) {
    const Control& control = On(name);
    EXPECT_EQ(PlaceOf(name).top, control.Top()) << name;
    EXPECT_EQ(PlaceOf(name).Height(), control.Height()) << name;
  }
  EXPECT_EQ(PlaceOf("fracase").Height(), host().Form().fracase.Height());
}

TEST_F(CasePlacesTest, EachRowStandsBelowTheOneBeforeIt) {
  Next(6);
  for (const Growths& growths : kGrowths) {
    for (int row = 0; row <= 6; ++row) {
      EXPECT_EQ(PlaceOf(Row(row), growths).Height(), 680 + growths.first) << row;
      if (row == 0) continue;
      const int gap = PlaceOf(Row(row), growths).top - PlaceOf(Row(row - 1), growths).bottom;
      // The rows above the frame keep away from it.
      EXPECT_EQ(gap, row == 3 ? 10 + 120 : 10) << row;
    }
  }
}

TEST_F(CasePlacesTest, ARowAndItsStatementsStandBesideEachOther) {
  Next(6);
  for (int row = 0; row <= 6; ++row) {
    const Place value = PlaceOf(Row(row), {45, 60});
    const Place statements = PlaceOf("txtStmt(" + std::to_string(row) + ")", {45, 60});
    EXPECT_EQ(value.top, statements.top) << row;
    EXPECT_EQ(value.bottom, statements.bottom) << row;
  }
}

TEST_F(CasePlacesTest, TheFrameShowsFourWholeRowsHoweverFarItIsScrolled) {
  Next(6);
  for (const int value : {3, 2, 1, 0}) {
    if (value < 3) Scroll("VscrCase", value);
    for (const Growths& growths : kGrowths) {
      const int end = PlaceOf("fracase", growths).bottom;
      int whole = 0;
      int cut = 0;
      for (int row = 0; row <= 6; ++row) {
        const Place place = PlaceOf(Row(row), growths);
        if (place.top >= 0 && place.bottom <= end) {
          ++whole;
        } else if (place.bottom > 0 && place.top < end) {
          ++cut;
        }
      }
      EXPECT_EQ(whole, 4) << value;
      EXPECT_EQ(cut, 0) << value;
    }
  }
}

TEST_F(CasePlacesTest, TheButtonStandsAtTheFootBelowTheScrollBar) {
  for (const Growths& growths : kGrowths) {
    const Place frame = PlaceOf("fracase", growths);
    const Place bar = PlaceOf("VscrCase", growths);
    const Place button = PlaceOf("cmdNext", growths);
    EXPECT_EQ(button.Height(), 350 + growths.second);
    EXPECT_EQ(button.bottom, PlaceOf(Row(0), growths).Height() * 4 + 3 * 10 + 120);
    EXPECT_LT(button.bottom, frame.bottom);
    EXPECT_EQ(bar.top, 120);
    EXPECT_EQ(bar.bottom, button.top - 105);
  }
}

}  // namespace
}  // namespace zolt20::tests
