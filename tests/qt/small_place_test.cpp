// A window that is too small for the form, as on a small screen: the form scrolls, and scrolls so
// that the control with the focus is visible. And a window on a large screen.
#include <qpa/qwindowsysteminterface.h>

#include "tests/qt/pages_test.h"

namespace zolt20::tests {
namespace {

class SmallPlaceTest : public PagesTest, public ::testing::WithParamInterface<Look> {
 protected:
  SmallPlaceTest() : PagesTest(GetParam()) {
    map_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(map_.get()));
  }

  /// Gives the focus to each control of the page and looks whether it can be seen.
  int ReachEverything() {
    int reached = 0;
    for (const Control* control : map_->form().TabOrder()) {
      if (!control->TakesFocus() || !control->Shown() || !control->Enabled()) continue;
      // At first the where text lies over it.
      if (control->name() == "txtCondition" && map_->form().FrawhereCondition.Visible()) continue;
      auto* widget = Find(std::string(control->name()).c_str());
      widget->setFocus(Qt::TabFocusReason);
      QApplication::processEvents();
      // Of what is larger than the place its beginning is there.
      const auto* strip = qobject_cast<const QTabBar*>(widget);
      const QPoint inside =
          strip == nullptr ? QPoint() : strip->tabRect(strip->currentIndex()).topLeft();
      const QPoint corner = widget->mapTo(map_.get(), inside);
      const QSize seen = widget->size().boundedTo({60, 16});
      EXPECT_TRUE(map_->rect().contains(QRect(corner, seen)))
          << control->name() << " at " << corner.x() << ", " << corner.y();
      ++reached;
    }
    return reached;
  }
};

TEST_P(SmallPlaceTest, EverythingCanBeReached) {
  map_->resize(400, 300);
  ASSERT_EQ(map_->size(), QSize(400, 300));
  for (int page = 0; page < 7; ++page) {
    map_->setPrpTab(page);
    EXPECT_GT(ReachEverything(), 8) << page;
    DrawnAs("small-page" + std::to_string(page));
  }
  Click("optCase");
  for (int row = 1; row <= 4; ++row) {
    Find("cmdNext")->setFocus();
    Click("cmdNext");
  }
  EXPECT_GT(ReachEverything(), 15);
  DrawnAs("small-rows");
}

TEST_P(SmallPlaceTest, TheWheelScrollsTheForm) {
  map_->resize(400, 300);
  map_->setPrpTab(2);
  QApplication::processEvents();
  const int before = Find("cmdDone")->mapTo(map_.get(), QPoint(0, 0)).y();
  const QPointF over(100, 150);
  QWindowSystemInterface::handleWheelEvent(map_->window()->windowHandle(), over,
                                           map_->mapToGlobal(over), {}, {0, -120});
  QApplication::processEvents();
  EXPECT_LT(Find("cmdDone")->mapTo(map_.get(), QPoint(0, 0)).y(), before);
}

TEST_P(SmallPlaceTest, TheCaretStaysInSight) {
  map_->resize(400, 300);
  map_->setPrpTab(2);
  auto* box = static_cast<QPlainTextEdit*>(Find("txtSelectDo"));
  box->setFocus();
  for (const int letters : {70, 40}) {
    QTest::keyClicks(box, QString(letters, u'm'));
    QTest::keyClick(box, Qt::Key_Return);
    QTest::keyClick(box, letters == 70 ? Qt::Key_Left : Qt::Key_Home);
    QApplication::processEvents();
    const QRect caret = box->cursorRect();
    const QPoint place = box->viewport()->mapTo(map_.get(), caret.center());
    EXPECT_TRUE(map_->rect().contains(place)) << letters << " " << place.x() << ", " << place.y();
  }
}

TEST_P(SmallPlaceTest, WhereThereIsRoomNothingScrolls) {
  for (const QSize size : {QSize(900, 650), QSize(1920, 1080)}) {
    map_->resize(size);
    for (int page = 0; page < 7; ++page) {
      map_->setPrpTab(page);
      Picture("page" + std::to_string(page) + "-of-" + std::to_string(size.width()));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Looks, SmallPlaceTest, ::testing::ValuesIn(kLooks),
                         [](const auto& look) { return std::string(look.param.name); });

}  // namespace
}  // namespace zolt20::tests
