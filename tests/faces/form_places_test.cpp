// Where everything on the form stands with letters of any size: nothing over anything else, and
// every line of text in something that is high enough for it.
#include "faces/shared/form_places.h"

#include <string>
#include <vector>

#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using faces::FormPlaces;

struct Size {
  int line;   // of the letters, in twips
  int times;  // the form as large as usual
};

class FormPlacesTest : public ControlTest, public ::testing::WithParamInterface<Size> {
 protected:
  FormPlacesTest() {
    Tab(6);
    Click("optCase");
    for (int row = 1; row <= 4; ++row)
      Click("cmdNext");
  }
  FormPlaces Places() {
    const auto [line, times] = GetParam();
    return {host().Form(),
            FormPlaces::kWidth * times,
            FormPlaces::kHeight * times,
            {line, line, kScrollBar}};
  }
  /// A form of no size gets the least that everything needs.
  FormPlaces LeastPlaces() {
    return {host().Form(), 0, 0, {GetParam().line, GetParam().line, kScrollBar}};
  }
  static void ExpectNothingCovered(const FormPlaces& places,
                                   const std::vector<const Control*>& parts);
  static constexpr int kScrollBar = 255;
  /// Whatever has a place of its own beside the others: all but what surrounds them.
  std::vector<const Control*> Parts() {
    std::vector<const Control*> parts;
    for (const Control* control : host().Form().Controls()) {
      if (control->kind() != Kind::Frame && control->kind() != Kind::Rectangle)
        parts.push_back(control);
    }
    return parts;
  }
};

void FormPlacesTest::ExpectNothingCovered(const FormPlaces& places,
                                          const std::vector<const Control*>& parts) {
  for (const Control* one : parts) {
    const Geometry place = places.Of(*one);
    for (const Control* other : parts) {
      const int page = one->design().page;
      const bool areTogether =
          one->frame() == other->frame() && (page == other->design().page || page == kEveryPage);
      if (one == other || !areTogether) continue;
      const Geometry beside = places.Of(*other);
      EXPECT_TRUE(place.left + place.width <= beside.left ||
                  beside.left + beside.width <= place.left ||
                  place.top + place.height <= beside.top || beside.top + beside.height <= place.top)
          << one->name() << " and " << other->name();
    }
  }
}

TEST_P(FormPlacesTest, NothingLiesOverAnythingElse) {
  ExpectNothingCovered(Places(), Parts());
}

TEST_P(FormPlacesTest, NothingLiesOverAnythingElseWhereThereIsLeastRoom) {
  const FormPlaces places = LeastPlaces();
  EXPECT_GT(places.Width(), 0);
  EXPECT_GT(places.Height(), 0);
  ExpectNothingCovered(places, Parts());
}

TEST_P(FormPlacesTest, EverythingStandsOnTheForm) {
  for (const FormPlaces& places : {Places(), LeastPlaces()}) {
    for (const Control* control : Parts()) {
      if (control->frame() != nullptr) continue;
      const Geometry place = places.Of(*control);
      EXPECT_GT(place.width * place.height, 0) << control->name();
      EXPECT_GE(place.left, 0) << control->name();
      EXPECT_GE(place.top, 0) << control->name();
      EXPECT_LE(place.left + place.width, places.Width()) << control->name();
      EXPECT_LE(place.top + place.height, places.Height()) << control->name();
    }
  }
}

TEST_P(FormPlacesTest, EveryLineHasItsHeight) {
  const FormPlaces places = Places();
  for (const Control* control : Parts()) {
    if (control->kind() == Kind::ScrollBar) continue;
    const bool isLabel = control->kind() == Kind::Label;
    EXPECT_GE(places.Of(*control).height, GetParam().line + (isLabel ? 0 : 60)) << control->name();
  }
  EXPECT_GE(places.Of(On("txtStmt(0)")).height, 2 * GetParam().line + 60);
}

TEST_P(FormPlacesTest, WhatIsInAFrameStaysWithinIt) {
  const FormPlaces places = Places();
  for (const Control* control : Parts()) {
    if (control->frame() == nullptr) continue;
    const Geometry place = places.Of(*control);
    const Geometry frame = places.Of(*control->frame());
    EXPECT_LE(place.left + place.width, frame.width) << control->name();
    const bool isScrolledAway = place.top + place.height <= 0;
    if (isScrolledAway) continue;
    EXPECT_GE(place.top, 0) << control->name();
    EXPECT_LE(place.top + place.height, frame.height) << control->name();
  }
}

TEST_P(FormPlacesTest, AFormGrowsAsItsLettersNeed) {
  const FormPlaces places(host().Form(), FormPlaces::kWidth, FormPlaces::kHeight,
                          {GetParam().line, GetParam().line, kScrollBar});
  const bool areUsual = GetParam().line <= 225;
  EXPECT_EQ(places.Width() == FormPlaces::kWidth, areUsual) << places.Width();
  EXPECT_GE(places.Height(), FormPlaces::kHeight);
}

TEST_P(FormPlacesTest, AFilterStandsBetweenTheLabelAndItsList) {
  const FormPlaces places = Places();
  const Geometry label = places.Of(On("Label1"));
  const Geometry filter = places.FilterOf(On("lsttables"));
  const Geometry list = places.Of(On("lsttables"));
  EXPECT_LE(label.top + label.height, filter.top);
  EXPECT_LE(filter.top + filter.height, list.top);
  EXPECT_EQ(filter.width, list.width);
  EXPECT_EQ(places.FilterOf(On("cmdDone")), Geometry{});
}

TEST_P(FormPlacesTest, WhatIsLeftOverIsSharedByWeight) {
  const int width = 4 * FormPlaces::kWidth;
  const FormPlaces places(host().Form(), width, FormPlaces::kHeight, {GetParam().line});
  const double tables = places.Of(On("lsttables")).width;
  EXPECT_NEAR(places.Of(On("lstFields")).width, tables * 4 / 3, 30);
  EXPECT_NEAR(places.Of(On("lstGroupby")).width, tables * 4 / 3, 30);
  // What has no weight does not grow.
  EXPECT_EQ(places.Of(On("cmdMoveOne")).width, Places().Of(On("cmdMoveOne")).width);
}

TEST_P(FormPlacesTest, EveryTextHasItsWidth) {
  const auto wide = [](StringView text, bool isSmall) {
    return static_cast<int>(text.size()) * (isSmall ? 150 : 200);
  };
  const int line = GetParam().line;
  const FormPlaces places(host().Form(), 0, 0, {line, line, kScrollBar, wide});
  for (const Control* control : Parts()) {
    if (control->kind() != Kind::Label && control->kind() != Kind::Button) continue;
    if (control->frame() == &host().Form().fracase) continue;
    EXPECT_GE(places.Of(*control).width,
              wide(control->design().caption, faces::IsNote(control->design())))
        << control->name();
  }
}

INSTANTIATE_TEST_SUITE_P(Letters, FormPlacesTest,
                         ::testing::Values(Size{0, 1}, Size{180, 1}, Size{225, 1}, Size{270, 1},
                                           Size{450, 2}),
                         [](const auto& chosen) {
                           return "of" + std::to_string(chosen.param.line) + "twips";
                         });

}  // namespace
}  // namespace zolt20::tests
