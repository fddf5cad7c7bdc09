// What hosts need that record sessions: a signal for each gesture, the host's value that Undo
// restores, and names beside the codes of tables.
#include <QAbstractItemView>
#include <QImage>
#include <QMouseEvent>
#include <stdexcept>

#include "faces/qt/rows_model.h"
#include "tests/qt/widget_test.h"

namespace zolt20::tests {
namespace {

using qt::RowsModel;

// "VERB CONTROL NUMBER 'TEXT'", without what a gesture does not have.
std::string Line(const ZOLT20Gesture& gesture) {
  std::string line = Std(gesture.verb);
  if (!gesture.control.isEmpty()) line += " " + Std(gesture.control);
  if (gesture.number >= 0) line += " " + std::to_string(gesture.number);
  if (gesture.from >= 0)
    line += " at " + std::to_string(gesture.from) + " to " + std::to_string(gesture.to);
  if (gesture.verb == u"type") line += " '" + Std(gesture.text) + "'";
  return line;
}

class GestureTest : public WidgetTest {
 protected:
  GestureTest() {
    Catalogue();
    QObject::connect(&widget(), &ZOLT20MapWidget::gestureMade, &widget(),
                     [this](const ZOLT20Gesture& gesture) { Told(Line(gesture)); });
  }

  /// Expects these gestures and nothing else.
  void ExpectTold(const Texts& lines) { EXPECT_EQ(Log(), lines); }
  /// The last line since the log was taken, "" for none.
  std::string Last() {
    const Texts log = Log();
    return log.empty() ? "" : log.back();
  }
};

// Gestures, each with its number and text.

TEST_F(GestureTest, AClickOnARowTellsTheRow) {
  Click("lsttables", 1);
  ExpectTold({"focus lsttables", "click lsttables 1"});
  Click("lsttables", 0);
  ExpectTold({"click lsttables 0"});
}

TEST_F(GestureTest, ARowIsThatOfTheListAndNotOfWhatIsFiltered) {
  Click("lsttables.filter");
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("__2"));
  ExpectTold({});  // a filter is no control of the form
  Click("lsttables", 0);
  ExpectTold({"focus lsttables", "click lsttables 1"});
}

TEST_F(GestureTest, ADoubleClickTellsTheRow) {
  Click("lsttables", 0);
  Log();
  DoubleClick("lstFields", 2);
  EXPECT_EQ(Last(), "dblclick lstFields 2");
}

TEST_F(GestureTest, ASecondPressOnAnotherRowIsAClick) {
  Click("lsttables", 0);
  Click("lstFields", 0);
  Log();
  // The list is scrolled under the mouse, which is what the platform does not know of.
  auto& rows = Be<QAbstractItemView>("lstFields");
  const QPoint at = rows.visualRect(rows.model()->index(2, 0)).center();
  QMouseEvent press(QEvent::MouseButtonDblClick, at, rows.viewport()->mapToGlobal(at),
                    Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(rows.viewport(), &press);
  ExpectTold({"click lstFields 2"});
  QApplication::sendEvent(rows.viewport(), &press);
  ExpectTold({"dblclick lstFields 2"});
  QApplication::sendEvent(rows.viewport(), &press);
  ExpectTold({"click lstFields 2"});
}

TEST_F(GestureTest, KeysInAListTellWhatTheyDo) {
  Click("lsttables", 0);
  Click("lstFields", 0);
  Log();
  Press(Qt::Key_Down);
  ExpectTold({"click lstFields 1"});
  Press(Qt::Key_Return);
  ExpectTold({"dblclick lstFields 1"});
}

TEST_F(GestureTest, AtTheEndOfAListAKeyMarksTheRowAgain) {
  Click("lsttables", 0);
  Click("lstFields", 0);
  Log();
  Press(Qt::Key_Up);
  ExpectTold({"click lstFields 0"});
  Press(Qt::Key_End);
  const Texts last = Log();
  EXPECT_EQ(last.size(), 1U);
  Press(Qt::Key_PageDown);
  ExpectTold(last);
}

TEST_F(GestureTest, InAListOfSeveralMarksKeysMoveAndEnterIsADoubleClick) {
  Click("lsttables", 0);
  Log();
  Press(Qt::Key_Down);
  ExpectTold({});
  Press(Qt::Key_Space);
  ExpectTold({"click lsttables 1"});
  Press(Qt::Key_Return);
  ExpectTold({"dblclick lsttables 1"});
}

TEST_F(GestureTest, AButtonAndAnOptionHaveNoNumber) {
  Click("cmdCancel");
  ExpectTold({"focus cmdCancel", "eventCancel", "click cmdCancel"});
  Tab(6);
  Log();
  Focus("optFor");
  ExpectTold({"focus optFor"});
  Press(Qt::Key_Down);  // to the next option
  EXPECT_EQ(Last(), "click optCase");
}

TEST_F(GestureTest, APickTellsTheEntryAndATypedValueTheText) {
  Click("lsttables", 1);
  Tab(1);
  Log();
  Pick("cboWhereFields", 1);
  EXPECT_EQ(Last(), "pick cboWhereFields 1");
  Pick("cboWhereFields", 1);
  EXPECT_EQ(Last(), "pick cboWhereFields 1");  // once more the same
  TypeKeys("cboWhereFields1", "4");
  EXPECT_EQ(Last(), "type cboWhereFields1 '4'");
}

TEST_F(GestureTest, TypingTellsTheWholeTextAfterEachKey) {
  Tab(2);
  Log();
  TypeKeys("txtSelectDo", "a\nb");
  ExpectTold({"type txtSelectDo 'a'", "type txtSelectDo 'a\r\n'", "type txtSelectDo 'a\r\nb'"});
  Type("TxtOutput", "x\r\ny");
  ExpectTold({"focus TxtOutput", "type TxtOutput 'x\r\ny'"});
}

TEST_F(GestureTest, AKeyThatTheControlMayRefuseIsAKey) {
  Tab(1);
  Log();
  TypeKeys("txtAsSet", "1x");
  Press(Qt::Key_Backspace);
  ExpectTold({"focus txtAsSet", "key txtAsSet 49", "key txtAsSet 120", "key txtAsSet 8"});
}

TEST_F(GestureTest, AKeyTellsWhatIsMarkedWhereThatIsNotTheCaretOfTheControl) {
  Tab(1);
  TypeKeys("txtAsSet", "12");
  Press(Qt::Key_Left);
  Log();
  Key("txtAsSet", '3');
  ExpectTold({"key txtAsSet 51 at 1 to 1"});
  Press(Qt::Key_Home, Qt::ShiftModifier);
  Key("txtAsSet", 'x');
  ExpectTold({"key txtAsSet 120 at 0 to 2"});
}

// The control's caret goes to the end with each text that is typed; the person's stays.
TEST_F(GestureTest, TypingInTheMiddleGoesOnThere) {
  const auto typeBeforeTheLast = [this](std::string_view box) {
    TypeKeys(box, "ad");
    Press(Qt::Key_Left);
    for (const char key : {'b', 'c'})
      QTest::keyClick(Window(), key);
    EXPECT_EQ(Last(), "type " + std::string(box) + " 'abcd'");
  };
  Tab(1);
  typeBeforeTheLast("txtwhereCondition");
  Tab(6);
  Click("optIfThen");
  typeBeforeTheLast("txtCond");
  typeBeforeTheLast("TxtOutput");
}

TEST_F(GestureTest, APageHasNoControl) {
  Tab(3);
  ExpectTold({"focus tabVrn", "tab 3"});
}

TEST_F(GestureTest, TheScrollBarTellsItsValue) {
  Tab(6);
  Click("optCase");
  for (int row = 0; row < 4; ++row)
    Click("cmdNext");
  auto& bar = Be<QScrollBar>("VscrCase");
  ASSERT_GT(bar.value(), 0);
  const int value = bar.value() - 1;
  Log();
  Scroll("VscrCase", value);
  ExpectTold({"focus VscrCase", "scroll VscrCase " + std::to_string(value)});
}

TEST_F(GestureTest, TheFocusByKeysIsAGestureOfItsOwn) {
  Click("lsttables", 0);
  Log();
  Press(Qt::Key_Tab);
  const std::string next = Focused();
  EXPECT_NE(next, "lsttables");
  ExpectTold({"focus " + next});
}

TEST_F(GestureTest, WhatTheHostDoesIsNoGesture) {
  widget().setPrpTab(2);
  widget().setPrpSelectDoPart(QStringLiteral("x"));
  widget().ClearAll(2);
  ExpectTold({"changed prpTab", "changed prpSelectDoPart"});
}

TEST_F(GestureTest, UndoAndRedoAreNoGestures) {
  Click("lsttables", 0);
  Log();
  Click("undo");
  Click("redo");
  ExpectTold({});
}

TEST_F(GestureTest, WhatADisabledControlGetsIsNoGesture) {
  Tab(1);
  Log();
  ASSERT_FALSE(On("cmdAddWhereQuery").isEnabled());
  Click("cmdAddWhereQuery");
  ExpectTold({});
}

// The order.

TEST_F(GestureTest, AGestureComesBehindItsEventAndItsAnswer) {
  Tab(2);
  Log();
  Answer("eventSubQuery", [this] {
    widget().setPrpSelectDoPart(QStringLiteral("x"));
    Told("answered");
  });
  Click("cmdSubQuery(0)");
  ExpectTold({"focus cmdSubQuery(0)", "eventSubQuery", "changed prpSelectDoPart", "answered",
              "click cmdSubQuery(0)"});
}

TEST_F(GestureTest, AGestureComesWhenAllThatItBroughtIsDrawn) {
  std::string rows;
  QObject::connect(&widget(), &ZOLT20MapWidget::gestureMade, &widget(), [&] {
    rows += std::to_string(Be<QAbstractItemView>("lstFields").model()->rowCount()) + " ";
    EXPECT_EQ(Difference(), "");
  });
  Click("lsttables", 0);
  Click("lsttables", 0);
  EXPECT_EQ(rows, "0 3 0 ");  // the focus, the mark with the table itself and its fields
}

TEST_F(GestureTest, AGestureThatFailsIsToldBeforeItsFailure) {
  widget().setPrpintTabcount(32767);
  Tab(6);
  Click("optwhile");
  TypeKeys("txtWhlCnd", "c");
  TypeKeys("txtWhlStm", "s");
  Log();
  Click("cmdAdd");
  ExpectTold({"focus cmdAdd", "click cmdAdd", "failed overflow 6"});
}

TEST_F(GestureTest, AFailureOfTheHostComesBehindTheGestureToo) {
  Answer("eventDone", [] { throw std::logic_error("the host's own"); });
  Click("cmdDone");
  ExpectTold({"focus cmdDone", "eventDone", "click cmdDone", "failed host 0"});
}

TEST_F(GestureTest, AMessageComesBeforeItsGesture) {
  Click("cmdMoveOne");
  ExpectTold({"focus cmdMoveOne",
              "message Maintain Mapping Objects: Tables Not Selected --Select A Table To Proceed "
              "Further",
              "click cmdMoveOne"});
}

TEST_F(GestureTest, TheHistoryHasTheStepWhenTheGestureIsTold) {
  std::vector<bool> could;
  QObject::connect(&widget(), &ZOLT20MapWidget::gestureMade, &widget(),
                   [&] { could.push_back(widget().canUndo()); });
  Click("lsttables", 0);
  EXPECT_EQ(could, (std::vector<bool>{false, true}));
}

// A value of the host's.

class HostDataTest : public WidgetTest {
 protected:
  HostDataTest() { Catalogue(); }

  /// Counts the gestures in the value.
  void Count() {
    QObject::connect(&widget(), &ZOLT20MapWidget::gestureMade, &widget(),
                     [this] { widget().setHostData(Data() + 1); });
  }
  int Data() { return widget().hostData().toInt(); }
};

TEST_F(HostDataTest, ItIsInvalidAtFirstAndWhatTheHostSets) {
  EXPECT_FALSE(widget().hostData().isValid());
  widget().setHostData(QStringLiteral("x"));
  EXPECT_EQ(widget().hostData(), QVariant(QStringLiteral("x")));
  EXPECT_FALSE(widget().canUndo());
}

TEST_F(HostDataTest, UndoAndRedoPutItBack) {
  Click("lstFields");  // the focus first
  widget().setHostData(1);
  Click("lsttables", 0);
  widget().setHostData(2);
  Click("lsttables", 1);
  widget().setHostData(3);
  Click("undo");
  EXPECT_EQ(Data(), 2);
  Click("undo");
  EXPECT_EQ(Data(), 1);
  Click("redo");
  EXPECT_EQ(Data(), 2);
  Click("redo");
  EXPECT_EQ(Data(), 3);
}

TEST_F(HostDataTest, AValueSetWhereSomethingWasUndoneIsNotLost) {
  widget().setHostData(1);
  Click("lsttables", 0);
  widget().setHostData(2);
  Click("undo");
  widget().setHostData(10);
  Click("redo");
  EXPECT_EQ(Data(), 2);
  Click("undo");
  EXPECT_EQ(Data(), 10);
}

TEST_F(HostDataTest, TheStepHasTheValueFromBeforeTheGesture) {
  Click("lsttables.filter");
  Count();
  Click("lsttables", 0);
  EXPECT_EQ(Data(), 2);  // the focus and the row
  Click("lsttables", 1);
  EXPECT_EQ(Data(), 3);
  widget().undo();
  EXPECT_EQ(Data(), 2);
  widget().undo();
  EXPECT_EQ(Data(), 1);
  widget().redo();
  EXPECT_EQ(Data(), 2);
}

// A value that is set within an event is new as well: it goes when the gesture goes.
TEST_F(HostDataTest, AValueSetWithinAnEventGoesWithItsGesture) {
  Tab(2);
  widget().setHostData(1);
  Answer("eventSubQuery", [this] {
    widget().setPrpSelectDoPart(QStringLiteral("x"));
    widget().setHostData(2);
  });
  Click("cmdSubQuery(0)");
  EXPECT_EQ(Data(), 2);
  widget().undo();
  EXPECT_EQ(Data(), 1);
  widget().redo();
  EXPECT_EQ(Data(), 2);
}

TEST_F(HostDataTest, ARunOfTypingIsOneStepWithTheValueFromBeforeIt) {
  Tab(2);
  widget().setHostData(100);
  Count();
  TypeKeys("txtSelectDo", "abc");
  EXPECT_EQ(Data(), 103);
  widget().undo();
  EXPECT_EQ(Data(), 100);
  widget().redo();
  EXPECT_EQ(Data(), 103);
}

TEST_F(HostDataTest, ItStaysWhenTheHistoryIsForgotten) {
  Click("lsttables", 0);
  widget().setHostData(7);
  widget().setPrpTab(1);
  EXPECT_FALSE(widget().canUndo());
  EXPECT_EQ(Data(), 7);
  widget().setUndoEnabled(false);
  EXPECT_EQ(Data(), 7);
}

TEST_F(HostDataTest, ItIsThereWhenUndoneAndRedoneAreTold) {
  Click("lsttables.filter");
  widget().setHostData(1);
  Click("lsttables", 0);
  widget().setHostData(2);
  std::vector<int> told;
  QObject::connect(&widget(), &ZOLT20MapWidget::undone, &widget(), [&] { told.push_back(Data()); });
  QObject::connect(&widget(), &ZOLT20MapWidget::redone, &widget(), [&] { told.push_back(Data()); });
  Click("undo");
  Click("redo");
  EXPECT_EQ(told, (std::vector<int>{1, 2}));
}

// Names of tables.

class TableNamesTest : public WidgetTest {
 protected:
  TableNamesTest() {
    Catalogue();
    before_ = State();
    widget().setTableNames({{QStringLiteral("TABLE__1"), QStringLiteral("Customers")},
                            {QStringLiteral("TABLE__3"), QStringLiteral("Suppliers")}});
  }

  std::string Told(int row, int role) {
    return Std(Be<QAbstractItemView>("lsttables").model()->index(row, 0).data(role).toString());
  }
  /// Types into the filter of the tables. Gives the codes that are drawn then.
  Texts Filtered(const char* text) {
    auto& filter = Be<QLineEdit>("lsttables.filter");
    filter.clear();
    Click("lsttables.filter");
    QTest::keyClicks(&filter, QString::fromLatin1(text));
    Texts codes;
    for (int row = 0; row < Be<QAbstractItemView>("lsttables").model()->rowCount(); ++row)
      codes.push_back(Told(row, Qt::DisplayRole));
    return codes;
  }
  /// How a row looks in a list that is wide enough for its name.
  QImage PictureOf(int row) {
    auto& list = Be<QAbstractItemView>("lsttables");
    const QRect place = list.visualRect(list.model()->index(row, 0));
    return list.viewport()->grab(place).toImage();
  }

  nlohmann::ordered_json before_;
};

TEST_F(TableNamesTest, TheSurfaceHasNoneOfThem) {
  EXPECT_EQ(State(), before_);
  EXPECT_EQ(Difference(), "");
  EXPECT_EQ(Log(), Texts{});
  EXPECT_FALSE(widget().canUndo());
}

TEST_F(TableNamesTest, ARowTellsItsNameBesideItsCode) {
  EXPECT_EQ(Told(0, Qt::DisplayRole), "TABLE__1");
  EXPECT_EQ(Told(0, Qt::ToolTipRole), "TABLE__1: Customers");
  EXPECT_EQ(Told(0, Qt::AccessibleDescriptionRole), "Customers not selected");
  EXPECT_EQ(Told(0, RowsModel::kNameRole), "Customers");
}

TEST_F(TableNamesTest, ARowWithoutANameTellsItsCode) {
  EXPECT_EQ(Told(1, Qt::DisplayRole), "TABLE__2");
  EXPECT_EQ(Told(1, Qt::ToolTipRole), "TABLE__2");
  EXPECT_EQ(Told(1, Qt::AccessibleDescriptionRole), "not selected");
}

TEST_F(TableNamesTest, TheNameIsDrawn) {
  const QImage named = PictureOf(0);
  const QImage plain = PictureOf(1);
  widget().setTableNames({});
  EXPECT_NE(PictureOf(0), named);
  EXPECT_EQ(PictureOf(1), plain);
  widget().setTableNames({{QStringLiteral("TABLE__1"), QStringLiteral("Customers")}});
  EXPECT_EQ(PictureOf(0), named);
}

TEST_F(TableNamesTest, TheFilterFindsCodesAndNamesInAnyLetterCase) {
  EXPECT_EQ(Filtered("CUSTO"), Texts{"TABLE__1"});
  EXPECT_EQ(Filtered("__2"), Texts{"TABLE__2"});
  EXPECT_EQ(Filtered("table"), (Texts{"TABLE__1", "TABLE__2"}));
  EXPECT_EQ(Filtered("suppliers"), Texts{});  // no such table is there yet
}

TEST_F(TableNamesTest, AFilteredRowIsMarkedAsItsOwn) {
  widget().setTableNames({{QStringLiteral("TABLE__2"), QStringLiteral("Orders")}});
  EXPECT_EQ(Filtered("orders"), Texts{"TABLE__2"});
  Click("lsttables", 0);
  EXPECT_FALSE(form().lsttables.Selected(0));
  EXPECT_TRUE(form().lsttables.Selected(1));
}

TEST_F(TableNamesTest, RowsThatComeLaterAreNamedToo) {
  widget().setPrpStrTables(QStringLiteral("TABLE__30,TABLE__40"));
  ASSERT_EQ(form().lsttables.ListCount(), 4);
  EXPECT_EQ(Told(2, Qt::ToolTipRole), "TABLE__3: Suppliers");
  EXPECT_EQ(Told(3, Qt::ToolTipRole), "TABLE__4");
  EXPECT_EQ(Filtered("supp"), Texts{"TABLE__3"});
}

TEST_F(TableNamesTest, RowsThatComeWhileTheFilterIsOnPassByTheirNames) {
  EXPECT_EQ(Filtered("supp"), Texts{});
  widget().setPrpStrTables(QStringLiteral("TABLE__30,TABLE__40"));
  auto& model = *Be<QAbstractItemView>("lsttables").model();
  ASSERT_EQ(model.rowCount(), 1);
  EXPECT_EQ(Told(0, Qt::DisplayRole), "TABLE__3");
}

TEST_F(TableNamesTest, NewNamesTakeThePlaceOfTheOldAndMarksStay) {
  Click("lsttables", 0);
  Click("lsttables", 1);
  const auto marked = State();
  widget().setTableNames({{QStringLiteral("TABLE__2"), QStringLiteral("Orders")}});
  EXPECT_EQ(Told(0, Qt::ToolTipRole), "TABLE__1");
  EXPECT_EQ(Told(1, Qt::ToolTipRole), "TABLE__2: Orders");
  EXPECT_EQ(State(), marked);
  EXPECT_EQ(Difference(), "");
  EXPECT_TRUE(widget().canUndo());
}

TEST_F(TableNamesTest, OtherListsHaveNoNames) {
  Click("lsttables", 0);
  auto& model = *Be<QAbstractItemView>("lstFields").model();
  ASSERT_GT(model.rowCount(), 0);
  for (int row = 0; row < model.rowCount(); ++row) {
    const QModelIndex index = model.index(row, 0);
    EXPECT_EQ(index.data(Qt::ToolTipRole), index.data());
    EXPECT_EQ(index.data(RowsModel::kNameRole).toString(), QString());
  }
}

}  // namespace
}  // namespace zolt20::tests
