// The search line at the top of an operand's open list: which entries it leaves, and picking one.
#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>

#include "tests/qt/widget_test.h"

namespace zolt20::tests {
namespace {

class SearchTest : public WidgetTest {
 protected:
  SearchTest() {
    widget_->setPrpStrTables(QStringLiteral("TABLE__10,TABLE__20"));
    widget_->setPrpStrFields(Qs(List(
        {Field("NTABLE__1.A"), Field("NTABLE__1.B"), Field("NTABLE__2.C"), Field("NTABLE__2.D")})));
    Click("lsttables", 0);
    Click("lsttables", 1);
    Tab(1);
    Log();
    QObject::connect(widget_, &ZOLT20MapWidget::gestureMade, widget_,
                     [this](const ZOLT20Gesture& gesture) {
                       if (gesture.verb != QStringLiteral("focus"))
                         made_.push_back(Std(gesture.verb) + " " + std::to_string(gesture.number));
                     });
  }
  void TearDown() override {
    Log();
    WidgetTest::TearDown();
  }
  /// Goes to the combo and opens its list by the keyboard, where a press has not done so.
  void Open(const char* combo) {
    Focus(combo);
    if (!IsOpen(combo)) Press(Qt::Key_Down, Qt::AltModifier);
    ASSERT_TRUE(IsOpen(combo));
  }
  bool IsOpen(const char* combo) { return Be<QComboBox>(combo).view()->isVisible(); }
  /// The window of the open list.
  static QWidget& OpenList() { return *QApplication::activePopupWidget(); }
  QLineEdit& Line() { return *OpenList().findChild<QLineEdit*>(); }
  /// Keys while a list is open.
  static void PressThere(int key, Qt::KeyboardModifiers held = {}) {
    QTest::keyClick(OpenList().windowHandle(), static_cast<Qt::Key>(key), held);
  }
  static void TypeThere(const char* text) {
    for (const char* letter = text; *letter != '\0'; ++letter)
      QTest::keyClick(OpenList().windowHandle(), *letter);
  }
  /// The entries that can be seen, one below the other.
  Texts Drawn(const char* combo) {
    const QAbstractItemView& view = *Be<QComboBox>(combo).view();
    Texts texts;
    int y = 1;
    for (QModelIndex index = view.indexAt({1, y}); index.isValid(); index = view.indexAt({1, y})) {
      texts.push_back(Std(index.data().toString()));
      y += view.visualRect(index).height();
    }
    return texts;
  }
  Texts TakeMade() { return std::exchange(made_, {}); }

 private:
  Texts made_;
};

TEST_F(SearchTest, OnlyEntriesThatHoldItsTextInAnyCaseAreLeft) {
  Open("cboWhereFields");
  const Texts all = Drawn("cboWhereFields");
  ASSERT_EQ(all, (Texts{"TABLE__1.A", "TABLE__1.B", "TABLE__2.C", "TABLE__2.D"}));
  TypeThere("e__2");
  EXPECT_EQ(Drawn("cboWhereFields"), (Texts{"TABLE__2.C", "TABLE__2.D"}));
  EXPECT_EQ(Line().text(), QStringLiteral("e__2"));
  for (int letter = 0; letter < 4; ++letter)
    PressThere(Qt::Key_Backspace);
  EXPECT_EQ(Drawn("cboWhereFields"), all);
  EXPECT_EQ(TakeMade(), Texts{});
  PressThere(Qt::Key_Escape);
}

TEST_F(SearchTest, EnterPicksTheRowOfTheControl) {
  Open("cboWhereFields");
  TypeThere("__2");
  PressThere(Qt::Key_Down);
  PressThere(Qt::Key_Return);
  EXPECT_FALSE(IsOpen("cboWhereFields"));
  EXPECT_EQ(TakeMade(), Texts{"pick 3"});
  EXPECT_EQ(form().cboWhereFields.ListIndex(), 3);
  EXPECT_EQ(KeyboardFocus(), "cboWhereFields");
  EXPECT_EQ(Difference(), "");
}

TEST_F(SearchTest, APressPicksTheRowOfTheControl) {
  Open("cboWhereFields");
  TypeThere("2.d");
  QAbstractItemView& view = *Be<QComboBox>("cboWhereFields").view();
  QTest::qWait(QApplication::doubleClickInterval());  // as it belongs to the press that opened it
  const QPoint at = view.viewport()->mapTo(&OpenList(), QPoint(20, 5));
  QTest::mouseMove(OpenList().windowHandle(), at);
  QTest::mouseClick(OpenList().windowHandle(), Qt::LeftButton, {}, at);
  EXPECT_EQ(TakeMade(), Texts{"pick 3"});
  EXPECT_EQ(Difference(), "");
}

TEST_F(SearchTest, EscapePicksNothingAndTheNextSearchIsEmpty) {
  Open("cboWhereFields");
  TypeThere("__2");
  PressThere(Qt::Key_Escape);
  EXPECT_FALSE(IsOpen("cboWhereFields"));
  EXPECT_EQ(TakeMade(), Texts{});
  EXPECT_EQ(form().cboWhereFields.ListIndex(), -1);
  EXPECT_EQ(Difference(), "");
  Open("cboWhereFields");
  EXPECT_EQ(Line().text(), QString());
  EXPECT_EQ(Drawn("cboWhereFields").size(), 4U);
  PressThere(Qt::Key_Escape);
}

TEST_F(SearchTest, KeysMoveAmongWhatIsLeft) {
  Open("cboWhereFields");
  const QAbstractItemView& view = *Be<QComboBox>("cboWhereFields").view();
  PressThere(Qt::Key_End);
  EXPECT_EQ(view.currentIndex().row(), 3);
  PressThere(Qt::Key_Home);
  EXPECT_EQ(view.currentIndex().row(), 0);
  TypeThere("2");
  EXPECT_EQ(view.currentIndex().row(), 2);
  PressThere(Qt::Key_PageDown);
  EXPECT_EQ(view.currentIndex().row(), 3);
  PressThere(Qt::Key_Down);
  EXPECT_EQ(view.currentIndex().row(), 3);
  PressThere(Qt::Key_Up);
  EXPECT_EQ(view.currentIndex().row(), 2);
  PressThere(Qt::Key_Up);
  EXPECT_EQ(view.currentIndex().row(), 2);
  PressThere(Qt::Key_Home);
  TypeThere("_");
  EXPECT_EQ(Line().text(), QStringLiteral("_2"));
  PressThere(Qt::Key_Escape);
}

TEST_F(SearchTest, TheTextOfTheBoxStaysAsItIs) {
  TypeKeys("cboWhereFields1", "ab");
  Press(Qt::Key_Left);
  TakeMade();
  Press(Qt::Key_Down, Qt::AltModifier);
  ASSERT_TRUE(IsOpen("cboWhereFields1"));
  TypeThere("table__1");
  EXPECT_EQ(Drawn("cboWhereFields1").size(), 2U);
  auto& box = Be<QComboBox>("cboWhereFields1");
  EXPECT_EQ(box.currentText(), QStringLiteral("ab"));
  PressThere(Qt::Key_Escape);
  EXPECT_EQ(TakeMade(), Texts{});
  EXPECT_EQ(box.currentText(), QStringLiteral("ab"));
  EXPECT_EQ(box.lineEdit()->cursorPosition(), 1);
  QTest::keyClick(Window(), 'x');
  EXPECT_EQ(form().cboWhereFields1.Text(), u"axb");
  Press(Qt::Key_Down, Qt::AltModifier);
  TypeThere("1.b");
  PressThere(Qt::Key_Return);
  EXPECT_EQ(form().cboWhereFields1.Text(), u"TABLE__1.B");
  EXPECT_EQ(Difference(), "");
}

TEST_F(SearchTest, WithNoEntryLeftTheListSaysSoAndPicksNothing) {
  Open("cboWhereFields");
  const QImage before = OpenList().grab().toImage();
  TypeThere("x");
  EXPECT_EQ(Drawn("cboWhereFields"), Texts{});
  QAccessibleInterface* const line = QAccessible::queryAccessibleInterface(&Line());
  EXPECT_EQ(line->text(QAccessible::Description), QStringLiteral("No entries"));
  PressThere(Qt::Key_Return);
  EXPECT_EQ(TakeMade(), Texts{});
  if (QApplication::activePopupWidget() != nullptr) PressThere(Qt::Key_Escape);
  EXPECT_EQ(form().cboWhereFields.ListIndex(), -1);
}

TEST_F(SearchTest, TheLineHasTheNameOfTheCombo) {
  for (const auto& [combo, name] : {std::pair{"cboWhereFields", "Search Operand1"},
                                    std::pair{"cboWhereFields1", "Search Value"}}) {
    Open(combo);
    EXPECT_EQ(Std(Line().accessibleName()), name);
    EXPECT_EQ(Std(Line().objectName()), std::string(combo) + ".search");
    PressThere(Qt::Key_Escape);
  }
  Open("cboOper");
  EXPECT_EQ(OpenList().findChild<QLineEdit*>(), nullptr);
  PressThere(Qt::Key_Escape);
}

// The list stands beside its box, below it or above it, and is wholly on the screen.
TEST_F(SearchTest, AtTheLowerEndOfTheScreenTheListStandsAboveTheBox) {
  auto& box = Be<QComboBox>("cboWhereFields");
  const QRect screen = box.screen()->availableGeometry();
  const auto placeOf = [&] { return OpenList().geometry(); };
  const auto boxOf = [&] { return QRect(box.mapToGlobal(QPoint()), box.size()); };
  widget_->move(0, 0);
  QTest::qWait(1);
  Open("cboWhereFields");
  EXPECT_GT(placeOf().top(), boxOf().top());
  EXPECT_GE(Be<QComboBox>("cboWhereFields").view()->viewport()->height(), 4 * 15);
  PressThere(Qt::Key_Escape);
  widget_->move(0, screen.bottom() - box.mapTo(widget_, QPoint()).y() - box.height());
  QTest::qWait(1);
  Open("cboWhereFields");
  EXPECT_LT(placeOf().bottom(), boxOf().center().y());
  EXPECT_TRUE(screen.contains(placeOf()));
  TypeThere("2.d");
  EXPECT_EQ(Drawn("cboWhereFields"), Texts{"TABLE__2.D"});
  PressThere(Qt::Key_Return);
  EXPECT_EQ(TakeMade(), Texts{"pick 3"});
}

TEST_F(SearchTest, VeryManyEntriesAreSearched) {
  constexpr int kMany = 100'000;
  QStringList records;
  for (int row = 0; row < kMany; ++row)
    records +=
        QStringLiteral("char*Q*V*R*N*NTABLE__1.F%1*Q*V*R*N*text").arg(row, 6, 10, QChar('0'));
  MakeNew();
  widget_->setPrpStrTables(QStringLiteral("TABLE__10"));
  widget_->setPrpStrFields(records.join(','));
  Click("lsttables", 0);
  Tab(1);
  Log();
  const int count = form().cboWhereFields.ListCount();
  ASSERT_GE(count, kMany);
  Open("cboWhereFields");
  TypeThere("f09999");
  EXPECT_EQ(Drawn("cboWhereFields").size(), 10U);
  PressThere(Qt::Key_End);
  PressThere(Qt::Key_Down);
  PressThere(Qt::Key_Return);
  EXPECT_EQ(form().cboWhereFields.Text(), u"TABLE__1.F099991");
}

}  // namespace
}  // namespace zolt20::tests
