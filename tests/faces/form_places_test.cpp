// Where the windows of the form stand with letters of any size: nothing over anything else, and
// every line of text in something that is high enough for it.
#include "faces/com/form_places.h"

#include <string>
#include <vector>

#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using com::FormPlaces;

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
    return {host().Form(), FormPlaces::kWidth * times, FormPlaces::kHeight * times, {line, line}};
  }
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

TEST_P(FormPlacesTest, NothingLiesOverAnythingElse) {
  const FormPlaces places = Places();
  const std::vector<const Control*> parts = Parts();
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

INSTANTIATE_TEST_SUITE_P(Letters, FormPlacesTest,
                         ::testing::Values(Size{0, 1}, Size{180, 1}, Size{225, 1}, Size{270, 1},
                                           Size{450, 2}),
                         [](const auto& chosen) {
                           return "of" + std::to_string(chosen.param.line) + "twips";
                         });

}  // namespace
}  // namespace zolt20::tests
