// The composer's window on small screens and with long texts: everything stays within reach.
#include <QAbstractButton>
#include <QLabel>
#include <QMenu>
#include <QScrollArea>
#include <QSettings>
#include <QSplitter>
#include <QWheelEvent>

#include "hosts/composer/cut_label.h"
#include "hosts/composer/settings.h"
#include "tests/composer/composer_test.h"

namespace zolt20::tests {
namespace {

using composer::Rule;

constexpr QSize kSmall{640, 400};

// A select statement over tables that no catalogue has.
String OverMissingTables(int count) {
  String tables;
  for (int number = 0; number < count; ++number) {
    tables += (number == 0 ? u"" : u",") + Wide("NO__") + Wide(std::to_string(1000 + number));
  }
  return u"select NO__1000.A\r\nfrom  " + tables + u"\r\nendselect";
}

class WindowFitTest : public ComposerTest {
 protected:
  void Shrink(QSize size = kSmall) {
    window().resize(size);
    QTest::qWait(1);
  }
  QWidget& Part(const char* name) { return *window().findChild<QWidget*>(QString::fromUtf8(name)); }
  /// Turns the wheel over the form until a control of it is in sight.
  void WheelTo(const char* control) {
    QWidget& target = *window().map().findChild<QWidget*>(QString::fromUtf8(control));
    auto* place = window().map().findChild<QScrollArea*>();
    for (int turns = 0; turns < 50 && target.visibleRegion().boundingRect() != target.rect();
         ++turns) {
      const QPointF at(4, 4);
      QWheelEvent wheel(at, place->viewport()->mapToGlobal(at), {}, {0, -120}, {}, {},
                        Qt::NoScrollPhase, false);
      QApplication::sendEvent(place->viewport(), &wheel);
    }
  }
  Texts Shown() {
    Texts names;
    for (int row = 0; row < RuleList().count(); ++row) {
      if (!RuleList().item(row)->isHidden()) names.push_back(Std(RuleList().item(row)->text()));
    }
    return names;
  }
};

TEST_F(WindowFitTest, OnASmallScreenDoneIsWithinReach) {
  OpenRules({{u"A", u"select CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nendselect", u""}});
  Shrink();
  EXPECT_EQ(window().size(), kSmall);
  WheelTo("cmdAddSelect");
  Click("cmdAddSelect");
  WheelTo("cmdDone");
  Click("cmdDone");
  EXPECT_EQ(Heading(), "A");
  EXPECT_FALSE(window().map().IsChanged());
}

TEST_F(WindowFitTest, FortyMissingTablesMakeAStripOfFourLinesThatOpens) {
  Shrink();
  OpenRules({{u"A", OverMissingTables(40), u""}});
  EXPECT_EQ(window().size(), kSmall);
  QTest::qWait(20);
  const QLabel& note = *window().findChild<QLabel*>(QStringLiteral("note"));
  EXPECT_GE(note.text().count(u'\n'), 39);
  const QWidget& strip = *note.parentWidget();
  const int closed = strip.height();
  EXPECT_LE(closed, 4 * note.fontMetrics().lineSpacing());
  PressOn(Part("allNotes"), Part("allNotes").rect().center());
  QTest::qWait(20);
  EXPECT_GT(strip.height(), closed);
  EXPECT_EQ(window().size(), kSmall);
  EXPECT_GE(window().map().height(), 120);
  PressOn(Part("allNotes"), Part("allNotes").rect().center());
  QTest::qWait(20);
  EXPECT_EQ(strip.height(), closed);
}

TEST_F(WindowFitTest, ANoteIsWrappedWhereAListOfNamesHasNoBlanks) {
  Shrink();
  OpenRules({{u"A", OverMissingTables(60), u""}});
  QTest::qWait(20);
  const QLabel& note = *window().findChild<QLabel*>(QStringLiteral("note"));
  ASSERT_TRUE(note.text().contains(QStringLiteral("NO__1003")));
  const QRect room(0, 0, note.width(), 100000);
  EXPECT_LE(note.fontMetrics().boundingRect(room, Qt::TextWordWrap, note.text()).width(),
            note.width());
  EXPECT_GE(note.height(), note.heightForWidth(note.width()));
}

TEST_F(WindowFitTest, AVeryLongNameIsCutInTheMiddleAndATipHasAllOfIt) {
  const String name = String(150, u'a') + String(150, u'b');
  OpenRules({{name, u"select CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nendselect", u""}});
  EXPECT_EQ(Heading(), Narrow(name));
  Shrink();
  EXPECT_EQ(window().size(), kSmall);
  QString tip = RuleList().item(0)->toolTip();
  EXPECT_TRUE(tip.remove(QChar(0x200B)).contains(qt::ToQt(name)));
  EXPECT_EQ(RuleList().textElideMode(), Qt::ElideMiddle);
  EXPECT_LT(Part("heading").width(), 640);
}

TEST_F(WindowFitTest, TheListOfRulesFoldsAwayAndComesBack) {
  const int before = window().map().width();
  QTest::keyClick(&window(), Qt::Key_F9);
  QTest::qWait(20);
  EXPECT_FALSE(RuleList().isVisible());
  EXPECT_GT(window().map().width(), before);
  Menu("View", "List of Rules");
  EXPECT_TRUE(RuleList().isVisible());
}

TEST_F(WindowFitTest, WhereTheWindowIsNarrowTheListFoldsByItselfUntilAsked) {
  Shrink();
  EXPECT_FALSE(RuleList().isVisible());
  Shrink({1100, 700});
  EXPECT_TRUE(RuleList().isVisible());
  Shrink();
  Menu("View", "List of Rules");
  EXPECT_TRUE(RuleList().isVisible());
  Shrink({650, 400});
  EXPECT_TRUE(RuleList().isVisible());
}

TEST_F(WindowFitTest, SizesAndPanesComeBackAtTheNextStart) {
  window().UseSettings();
  window().setGeometry(60, 50, 900, 600);
  auto* split = window().findChild<QSplitter*>();
  split->setSizes({300, 600});
  QTest::qWait(1);
  const QList<int> sizes = split->sizes();
  window().close();
  OpenWindow();
  window().UseSettings();
  QTest::qWait(1);
  EXPECT_EQ(window().geometry(), QRect(60, 50, 900, 600));
  EXPECT_EQ(window().findChild<QSplitter*>()->sizes(), sizes);
}

TEST_F(WindowFitTest, APlaceThatIsOnNoScreenAnyMoreIsLeft) {
  composer::Settings().setValue(QStringLiteral("window/place"), QRect(9000, -5000, 5000, 3000));
  window().UseSettings();
  EXPECT_TRUE(window().screen()->availableGeometry().contains(window().geometry()));
  composer::Settings().clear();

  const QRect screen(0, 0, 800, 600);
  EXPECT_EQ(composer::Fitted({700, 500, 300, 300}, screen), QRect(500, 300, 300, 300));
  EXPECT_EQ(composer::Fitted({-50, -50, 900, 300}, screen), QRect(0, 0, 800, 300));
}

// --- The list of rules

constexpr const char* kText = "select CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nendselect";

class RulesListTest : public WindowFitTest {
 protected:
  void OpenThree() {
    OpenRules({{u"Orders", Wide(kText), u""},
               {u"Items", Wide(kText), u""},
               {u"Open orders", Wide(kText), u""}});
  }
  Texts StoredNames() {
    Texts names;
    for (const Rule& rule : window().rules()->rules())
      names.push_back(Narrow(rule.name));
    return names;
  }
};

TEST_F(RulesListTest, TypingInTheLineAboveShowsTheRulesWithThoseLetters) {
  OpenThree();
  QWidget& filter = Part("rulesFilter");
  PressOn(filter, filter.rect().center());
  QTest::keyClicks(&filter, QStringLiteral("ORD"));
  EXPECT_EQ(Shown(), (Texts{"Orders", "Open orders"}));
  QTest::keyClick(&filter, Qt::Key_Down);
  EXPECT_EQ(QApplication::focusWidget(), &RuleList());
  PressOn(filter, filter.rect().center());
  QTest::keyClick(&filter, Qt::Key_Escape);
  EXPECT_EQ(Shown(), (Texts{"Orders", "Items", "Open orders"}));
}

TEST_F(RulesListTest, AltWithAnArrowMovesARuleAndTheFileKeepsTheOrder) {
  OpenThree();
  ClickRule(0);
  RuleList().setFocus();
  QTest::keyClick(&RuleList(), Qt::Key_Down, Qt::AltModifier);
  QTest::qWait(1);
  EXPECT_EQ(Listed(), (Texts{"Items", "Orders*", "Open orders"}));
  QTest::keyClick(&RuleList(), Qt::Key_Down, Qt::AltModifier);
  QTest::keyClick(&RuleList(), Qt::Key_Down, Qt::AltModifier);
  QTest::qWait(1);
  EXPECT_EQ(Listed(), (Texts{"Items", "Open orders", "Orders*"}));
  QTest::keyClick(&RuleList(), Qt::Key_Up, Qt::AltModifier);
  QTest::qWait(1);
  EXPECT_EQ(Stored(), (Texts{std::string("Items: ") + kText, std::string("Orders: ") + kText,
                             std::string("Open orders: ") + kText}));
}

TEST_F(RulesListTest, ARuleIsDraggedToAnotherPlace) {
  OpenThree();
  QWidget& rows = *RuleList().viewport();
  const auto at = [&](int row, int below) {
    const QRect place = RuleList().visualItemRect(RuleList().item(row));
    return rows.mapTo(&window(), QPoint(place.center().x(), place.center().y() + below));
  };
  const QPoint from = at(0, 0);
  const QPoint to = at(2, RuleList().visualItemRect(RuleList().item(2)).height() / 2 - 1);
  QWindow* place = window().windowHandle();
  QTest::mousePress(place, Qt::LeftButton, {}, from);
  QTest::mouseMove(place, from + QPoint(0, 4));
  QTest::mouseMove(place, to);
  EXPECT_TRUE(Part("dropLine").isVisible());
  QTest::mouseRelease(place, Qt::LeftButton, {}, to);
  QTest::qWait(1);
  EXPECT_FALSE(Part("dropLine").isVisible());
  EXPECT_EQ(Listed(), (Texts{"Items", "Open orders", "Orders*"}));
  EXPECT_EQ(StoredNames(), (Texts{"Items", "Open orders", "Orders"}));
}

TEST_F(RulesListTest, EscapeGivesUpADragAndAFilteredListTakesNone) {
  OpenThree();
  QWidget& rows = *RuleList().viewport();
  const QPoint from = rows.mapTo(&window(), QPoint(30, 5));
  QWindow* place = window().windowHandle();
  const auto drag = [&](bool givesUp) {
    QTest::mousePress(place, Qt::LeftButton, {}, from);
    QTest::mouseMove(place, from + QPoint(0, 50));
    if (givesUp) QTest::keyClick(&RuleList(), Qt::Key_Escape);
    QTest::mouseRelease(place, Qt::LeftButton, {}, from + QPoint(0, 50));
    QTest::qWait(1);
  };
  drag(true);
  EXPECT_EQ(StoredNames(), (Texts{"Orders", "Items", "Open orders"}));
  QWidget& filter = Part("rulesFilter");
  PressOn(filter, filter.rect().center());
  QTest::keyClicks(&filter, QStringLiteral("ord"));
  drag(false);
  EXPECT_EQ(StoredNames(), (Texts{"Orders", "Items", "Open orders"}));
}

TEST_F(RulesListTest, ARightClickOffersWhatCanBeDoneWithTheRule) {
  OpenThree();
  const QPoint at = RuleList().visualItemRect(RuleList().item(1)).center();
  const Texts offered = OfferedAt(*RuleList().viewport(), at);
  EXPECT_EQ(Heading(), "Items");
  EXPECT_NE(std::find(offered.begin(), offered.end(), "Rename..."), offered.end());
}

}  // namespace
}  // namespace zolt20::tests
