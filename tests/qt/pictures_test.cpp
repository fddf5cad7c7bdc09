// The looks of the pages: in a light and a dark palette, at the usual and at twice the font size,
// no text is cut and no control overlaps another. With ZOLT20_PICTURES set to a folder the pages
// are drawn into it, which is where the pictures of docs/ come from.
#include "tests/qt/pages_test.h"

namespace zolt20::tests {
namespace {

class PicturesTest : public PagesTest, public ::testing::WithParamInterface<Look> {
 protected:
  // The same letters on every machine; fonts_test.cpp has others.
  PicturesTest() : PagesTest(GetParam(), "DejaVu Sans") {}
};

TEST_P(PicturesTest, EveryEmptyPageHasRoomForItsTexts) {
  for (int page = 0; page < 7; ++page) {
    map_->setPrpTab(page);
    Picture("empty" + std::to_string(page));
  }
}

TEST_P(PicturesTest, TheSelectListPageIsFilled) {
  Play("where-report", 12);
  map_->setPrpTab(0);
  Picture("page0");
}

TEST_P(PicturesTest, TheWherePageIsFilled) {
  Play("where-report", 1000);
  map_->setPrpTab(1);
  Picture("page1");
}

TEST_P(PicturesTest, TheStatementPagesAreFilled) {
  Play("full-statement", 1000);
  for (int page = 2; page <= 5; ++page) {
    map_->setPrpTab(page);
    Picture("page" + std::to_string(page));
  }
}

TEST_P(PicturesTest, EachKindHasItsPanel) {
  map_->setPrpTab(6);
  for (const char* option : {"optIfThen", "optwhile", "optRepeat", "optFor", "optCase"}) {
    Click(option);
    Picture(std::string("kind-") + option);
  }
}

TEST_P(PicturesTest, TheRowsOfAnOnCaseScroll) {
  Play("mapping-rule", 40);
  Picture("page6");
}

TEST_P(PicturesTest, TwiceTheLettersStillFitTwiceTheWindow) {
  DoubleTheLetters();
  for (int page = 0; page < 7; ++page) {
    map_->setPrpTab(page);
    ExpectNothingCut();
  }
}

INSTANTIATE_TEST_SUITE_P(Palettes, PicturesTest, ::testing::ValuesIn(kLooks),
                         [](const auto& look) { return std::string(look.param.name); });

}  // namespace
}  // namespace zolt20::tests
