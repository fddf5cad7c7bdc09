// The list of what any face does, played on the widget.
#include "tests/qt/hands.h"
#include "tests/support/places.h"

namespace zolt20::tests {
namespace {

const FaceCases& Cases() {
  static const FaceCases kCases(Sources() + "/tests/faces/what_a_face_does.json");
  return kCases;
}

class FaceListTest : public QtHands, public ::testing::WithParamInterface<FaceHands::Json> {
 protected:
  // Two colours of the palette that are the same here otherwise.
  FaceListTest() {
    QPalette palette = before_;
    palette.setColor(QPalette::HighlightedText, QColor(255, 250, 205));
    QApplication::setPalette(palette);
  }
  ~FaceListTest() override { QApplication::setPalette(before_); }

 private:
  const QPalette before_ = QApplication::palette();
};

TEST(FaceListItselfTest, IsWhole) {
  EXPECT_EQ(Cases().Fault(), "");
}

TEST_P(FaceListTest, IsDone) {
  if (HasStep(GetParam(), "spoken")) ListenToWhatIsSpoken();
  for (const Json& request : Cases().catalogue())
    CarryOut(request);
  for (const Json& step : GetParam()["steps"])
    PlayStep(*this, step);
}

INSTANTIATE_TEST_SUITE_P(Qt, FaceListTest, ::testing::ValuesIn(Cases().PlayedBy("qt")),
                         [](const auto& one) { return CaseNameOf(one.param); });

}  // namespace
}  // namespace zolt20::tests
