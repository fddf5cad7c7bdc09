// Undo and Redo of what a person does in the widget, by real mouse and key events.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <random>

#include "faces/qt/map_widget.h"
#include "faces/qt/qt_text.h"
#include "hosts/automation/dump.h"
#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using Json = nlohmann::ordered_json;
using qt::ToQt;

// A widget that answers messages by itself.
class QuietWidget final : public ZOLT20MapWidget {
 protected:
  void showMessage(const QString& /*text*/, const QString& /*title*/) override { ++messages; }

 public:
  int messages = 0;
};

// Two tables with two fields each.
class UndoTest : public ::testing::Test {
 protected:
  UndoTest() {
    widget.resize(1000, 760);
    widget.setPrpStrTables(QStringLiteral("CUSTOMER1,ORDERITM0"));
    widget.setPrpStrFields(ToQt(Wide(List({Field("NCUSTOMER.C_ID"), Field("NCUSTOMER.C_NAME"),
                                           Field("NORDERITM.O_ID"), Field("NORDERITM.O_QTY")}))));
    widget.show();
    widget.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&widget));
  }

  template <typename Kind = QWidget>
  Kind& On(const char* name) {
    auto* found = widget.findChild<Kind*>(QString::fromLatin1(name));
    if (found == nullptr) throw std::invalid_argument(std::string("no widget ") + name);
    return *found;
  }

  // A person.
  void Click(const char* name) {
    QWidget& target = On(name);
    EXPECT_TRUE(target.isVisible()) << name;
    QTest::mouseClick(&target, Qt::LeftButton, {}, QPoint(9, target.height() / 2));
  }
  void ClickRow(const char* list, int row) {
    auto& view = On<QAbstractItemView>(list);
    const QModelIndex index = view.model()->index(row, 0);
    view.scrollTo(index);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {},
                      view.visualRect(index).topLeft() + QPoint(4, 4));
  }
  void Tab(int page) {
    auto& bar = On<QTabBar>("tabVrn");
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(page).center());
  }
  /// Puts the caret into a box at the end of its text.
  void Enter(const char* box) {
    QWidget* target = &On(box);
    if (auto* lines = qobject_cast<QPlainTextEdit*>(target)) target = lines->viewport();
    QTest::mouseClick(target, Qt::LeftButton, {}, QPoint(12, 8));
    QTest::keyClick(&On(box), Qt::Key_End, Qt::ControlModifier);
  }
  void Type(const char* box, const char* text) {
    Enter(box);
    QTest::keyClicks(&On(box), QString::fromLatin1(text));
  }
  static void Press(QKeySequence::StandardKey keys) {
    QTest::keySequence(QApplication::focusWidget(), QKeySequence(keys));
  }
  void Undo() { Click("undo"); }
  void Redo() { Click("redo"); }

  // Reads.
  const Surface& form() { return widget.form(); }
  Json Dump() { return automation::Dump(form()); }
  std::string Result() { return Narrow(form().TxtOutput.Text()); }
  /// Undo, Redo as the members, the tool buttons say, which is the same.
  std::pair<bool, bool> Can() {
    EXPECT_EQ(On("undo").isEnabled(), widget.canUndo());
    EXPECT_EQ(On("redo").isEnabled(), widget.canRedo());
    return {widget.canUndo(), widget.canRedo()};
  }
  /// The control that has the focus in the window and on the surface, which is the same.
  std::string Focused() {
    const Control* control = form().Focused();
    const std::string name = control == nullptr ? "" : std::string(control->name());
    const QWidget* focus = QApplication::focusWidget();
    EXPECT_EQ(focus == nullptr || focus == &widget ? "" : focus->objectName().toStdString(), name);
    return name;
  }
  /// What the boxes and lists show against what the surface has.
  void ExpectDrawn() {
    for (const Control* control : form().Controls()) {
      const std::string name(control->name());
      QWidget& drawn = On(name.c_str());
      EXPECT_EQ(drawn.isVisibleTo(drawn.parentWidget()) && drawn.isVisible(), control->Shown())
          << name;
      if (const auto* box = dynamic_cast<const TextControl*>(control))
        ExpectText(drawn, box->Text());
      if (const auto* list = dynamic_cast<const ListBox*>(control)) {
        EXPECT_EQ(static_cast<QAbstractItemView&>(drawn).model()->rowCount(), list->ListCount())
            << name;
      }
    }
  }
  static void ExpectText(const QWidget& drawn, const String& text) {
    if (const auto* line = qobject_cast<const QLineEdit*>(&drawn)) {
      EXPECT_EQ(Narrow(qt::View(line->text())), Narrow(text));
    } else {
      EXPECT_EQ(Narrow(qt::View(static_cast<const QPlainTextEdit&>(drawn).toPlainText())),
                Narrow(Replace(text, u"\r\n", u"\n")))
          << drawn.objectName().toStdString();
    }
  }

  QuietWidget widget;
};

using Flags = std::pair<bool, bool>;

TEST_F(UndoTest, ANewWidgetHasNothingToUndo) {
  EXPECT_EQ(Can(), Flags(false, false));
  const Json before = Dump();
  widget.undo();
  widget.redo();
  EXPECT_EQ(Dump(), before);
}

TEST_F(UndoTest, AMarkIsTakenBackWithAllItBrought) {
  Click("lstFields");  // the focus first
  const Json before = Dump();
  ClickRow("lsttables", 0);
  const Json after = Dump();
  EXPECT_EQ(form().lstFields.ListCount(), 3);
  EXPECT_EQ(Can(), Flags(true, false));
  Undo();
  EXPECT_EQ(form().lstFields.ListCount(), 0);
  EXPECT_EQ(Dump()["controls"], before["controls"]);
  EXPECT_EQ(Can(), Flags(false, true));
  Redo();
  EXPECT_EQ(Dump(), after);
  EXPECT_EQ(Can(), Flags(true, false));
  ExpectDrawn();
}

TEST_F(UndoTest, AddToResultAndClearAreTakenBack) {
  ClickRow("lsttables", 0);
  Click("cmdMoveAll");
  Click("cmdAddSelect");
  const std::string statement = Result();
  ASSERT_TRUE(statement.starts_with("select"));
  Click("cmdClear");
  ASSERT_EQ(Result(), "");
  const Json cleared = Dump();
  Undo();
  EXPECT_EQ(Result(), statement);
  ExpectDrawn();
  Undo();
  EXPECT_EQ(Result(), "");
  EXPECT_GT(form().lstSelectedFields.ListCount(), 0);
  Redo();
  EXPECT_EQ(Result(), statement);
  Redo();
  EXPECT_EQ(Dump(), cleared);
  ExpectDrawn();
}

TEST_F(UndoTest, AfterAnUndoTheSameStatementIsBuiltAgain) {
  ClickRow("lsttables", 0);
  Click("cmdMoveAll");
  Click("cmdAddSelect");
  const Json added = Dump();
  Undo();
  Click("cmdAddSelect");
  EXPECT_EQ(Dump(), added);
}

TEST_F(UndoTest, TypingInOneBoxIsOneStep) {
  Tab(2);
  Type("txtSelectDo", "abc");
  Undo();
  EXPECT_EQ(Narrow(form().txtSelectDo.Text()), "");
  EXPECT_EQ(form().tabVrn.Tab(), 2);
  Redo();
  EXPECT_EQ(Narrow(form().txtSelectDo.Text()), "abc");
}

TEST_F(UndoTest, AnotherControlEndsTheRunOfTyping) {
  Tab(2);
  Type("txtSelectDo", "abc");
  Type("TxtOutput", "x");
  Type("txtSelectDo", "de");
  Undo();
  EXPECT_EQ(Narrow(form().txtSelectDo.Text()), "abc");
  EXPECT_EQ(Result(), "x");
  Undo();
  EXPECT_EQ(Result(), "");
  EXPECT_EQ(Narrow(form().txtSelectDo.Text()), "abc");
  Undo();
  EXPECT_EQ(Narrow(form().txtSelectDo.Text()), "");
}

TEST_F(UndoTest, AMereFocusEndsTheRunOfTypingToo) {
  Tab(2);
  Type("txtSelectDo", "abc");
  Enter("TxtOutput");
  Type("txtSelectDo", "de");
  Undo();
  EXPECT_EQ(Narrow(form().txtSelectDo.Text()), "abc");
}

TEST_F(UndoTest, TypingAfterAnUndoIsAStepOfItsOwn) {
  Tab(2);
  Type("txtSelectDo", "abc");
  Undo();
  Type("txtSelectDo", "de");
  Undo();
  EXPECT_EQ(Narrow(form().txtSelectDo.Text()), "");
  EXPECT_EQ(form().tabVrn.Tab(), 2);
}

TEST_F(UndoTest, RedoIsKeptAtAMereFocusAndForgottenAtAChange) {
  ClickRow("lsttables", 0);
  Undo();
  Enter("TxtOutput");
  EXPECT_EQ(Can(), Flags(false, true));
  Click("cmdDone");  // only tells the host
  EXPECT_EQ(Can(), Flags(false, true));
  ClickRow("lsttables", 1);
  EXPECT_EQ(Can(), Flags(true, false));
}

TEST_F(UndoTest, ABoxThatWasTypedIntoTakesItsOwnUndoFirst) {
  Tab(2);
  Type("txtSelectDo", "abc");
  QSignalSpy undone(&widget, &ZOLT20MapWidget::undone);
  Press(QKeySequence::Undo);
  EXPECT_EQ(Narrow(form().txtSelectDo.Text()), "");
  EXPECT_EQ(undone.count(), 0);
  Press(QKeySequence::Redo);
  EXPECT_EQ(Narrow(form().txtSelectDo.Text()), "abc");
  EXPECT_EQ(undone.count(), 0);
  Press(QKeySequence::Undo);
  Press(QKeySequence::Undo);
  EXPECT_EQ(undone.count(), 1);
  ExpectDrawn();
}

TEST_F(UndoTest, ARunOfTypingThatTheBoxTookBackIsNoStep) {
  Tab(2);
  Type("txtSelectDo", "abc");
  EXPECT_EQ(Can(), std::pair(true, false));
  const auto steps = [this] {
    int count = 0;
    for (; widget.canUndo(); ++count)
      widget.undo();
    return count;
  };
  Press(QKeySequence::Undo);
  EXPECT_EQ(Narrow(form().txtSelectDo.Text()), "");
  EXPECT_EQ(steps(), 1);  // the change of the page
}

TEST_F(UndoTest, ListsKeepThePlaceInSight) {
  widget.setPrpStrTables(QString(QStringLiteral("TABLE___0,")).repeated(200) +
                         QStringLiteral("LAST____0"));
  ClickRow("lsttables", 150);
  const int place = On<QAbstractItemView>("lsttables").verticalScrollBar()->value();
  EXPECT_GT(place, 0);
  Undo();
  EXPECT_EQ(On<QAbstractItemView>("lsttables").verticalScrollBar()->value(), place);
}

TEST_F(UndoTest, KeysUndoAndRedoWhereNothingWasTyped) {
  ClickRow("lsttables", 0);
  const Json after = Dump();
  Press(QKeySequence::Undo);
  EXPECT_EQ(form().lsttables.SelCount(), 0);
  Press(QKeySequence::Redo);
  EXPECT_EQ(Dump(), after);
}

TEST_F(UndoTest, KeysUndoFromATextBoxThatHasNothingOfItsOwn) {
  ClickRow("lsttables", 0);
  Enter("TxtOutput");
  Press(QKeySequence::Undo);
  EXPECT_EQ(form().lsttables.SelCount(), 0);
  Press(QKeySequence::Redo);
  EXPECT_EQ(form().lsttables.SelCount(), 1);
}

TEST_F(UndoTest, KeysUndoFromALineThatHasNothingOfItsOwn) {
  Tab(1);
  Enter("txtAsSet");
  Press(QKeySequence::Undo);
  EXPECT_EQ(form().tabVrn.Tab(), 0);
}

TEST_F(UndoTest, KeysUndoFromAComboThatHasNothingOfItsOwn) {
  Tab(1);
  On("cboWhereFields1").setFocus(Qt::MouseFocusReason);
  Press(QKeySequence::Undo);
  EXPECT_EQ(form().tabVrn.Tab(), 0);
}

TEST_F(UndoTest, AComboThatWasTypedIntoTakesItsOwnUndoFirst) {
  Tab(1);
  On("cboWhereFields1").setFocus(Qt::MouseFocusReason);
  QTest::keyClicks(&On("cboWhereFields1"), QStringLiteral("42"));
  ASSERT_EQ(Narrow(form().cboWhereFields1.Text()), "42");
  Press(QKeySequence::Undo);
  EXPECT_EQ(Narrow(form().cboWhereFields1.Text()), "");
  EXPECT_EQ(Can(), Flags(true, false)) << "nothing was taken back but by the box";
}

TEST_F(UndoTest, ALineThatWasTypedIntoTakesItsOwnUndoFirst) {
  Tab(6);
  Click("optIfThen");
  Type("txtCond", "a > 1");
  QSignalSpy undone(&widget, &ZOLT20MapWidget::undone);
  Press(QKeySequence::Undo);
  EXPECT_EQ(Narrow(form().txtCond.Text()), "");
  EXPECT_EQ(undone.count(), 0);
}

TEST_F(UndoTest, WhatAFailedGestureLeftIsTakenBack) {
  widget.setPrpStrFields(ToQt(Wide(Field("NCUSTOMER.C_ID") + ",no record")));
  QSignalSpy failed(&widget, &ZOLT20MapWidget::Failed);
  ClickRow("lsttables", 0);
  ASSERT_EQ(failed.count(), 1);
  EXPECT_EQ(failed[0][0].toString(), QStringLiteral("subscript"));
  ASSERT_GT(form().lstFields.ListCount(), 0);
  Undo();
  EXPECT_EQ(form().lstFields.ListCount(), 0);
  EXPECT_EQ(form().lsttables.SelCount(), 0);
  ExpectDrawn();
}

TEST_F(UndoTest, KeysOfALineAreOneStep) {
  Tab(1);
  Type("txtAsSet", "512");
  ASSERT_EQ(Narrow(form().txtAsSet.Text()), "512");
  Undo();
  EXPECT_EQ(Narrow(form().txtAsSet.Text()), "");
  EXPECT_EQ(form().tabVrn.Tab(), 1);
  Redo();
  EXPECT_EQ(Narrow(form().txtAsSet.Text()), "512");
  ExpectDrawn();
}

TEST_F(UndoTest, ATextThatIsPutBackLeavesNoUndoOfTheBox) {
  Tab(2);
  Type("txtSelectDo", "abc");
  Undo();
  Click("txtSelectDo");
  QSignalSpy undone(&widget, &ZOLT20MapWidget::undone);
  Press(QKeySequence::Undo);
  EXPECT_EQ(undone.count(), 1);
  EXPECT_EQ(form().tabVrn.Tab(), 0);
}

TEST_F(UndoTest, HostWritesFromOutsideForget) {
  const std::function<void()> writes[] = {
      [this] { widget.setPrpTab(0); },
      [this] { widget.setPrpintTabcount(1); },
      [this] { widget.ClearAll(0); },
      [this] { widget.BuildGroupBy(); },
      [this] { widget.setSyntax_Highlight(true); },
      [this] { widget.UserControl_ReadProperties({}); },
      [this] { widget.UserControl_InitProperties(); },
  };
  for (const auto& write : writes) {
    ClickRow("lsttables", 0);
    ClickRow("lsttables", 1);
    Undo();
    ASSERT_EQ(Can(), Flags(true, true));
    write();
    EXPECT_EQ(Can(), Flags(false, false));
  }
}

TEST_F(UndoTest, HostReadsFromOutsideForgetNothing) {
  ClickRow("lsttables", 0);
  widget.prpStroutput();
  widget.prpStrSQLPart();
  widget.prpstrSelectedFields();
  widget.UserControl_WriteProperties();
  widget.property("prpintTabcount");
  EXPECT_EQ(Can(), Flags(true, false));
}

TEST_F(UndoTest, AFailingHostWriteForgetsToo) {
  ClickRow("lsttables", 0);
  EXPECT_THROW(widget.setPrpTab(7), RuntimeError);
  EXPECT_EQ(Can(), Flags(false, false));
}

TEST_F(UndoTest, HostWritesWithinAnEventArePartOfItsStep) {
  Tab(2);
  const Json before = Dump();
  QObject::connect(&widget, &ZOLT20MapWidget::eventSubQuery, &widget,
                   [this] { widget.setPrpSelectDoPart(QStringLiteral("sub query")); });
  Click("cmdSubQuery(0)");
  ASSERT_TRUE(Holds(form().txtSelectDo.Text(), u"sub query"));
  EXPECT_EQ(Can(), Flags(true, false));
  Undo();
  EXPECT_EQ(Dump()["controls"]["txtSelectDo"], before["controls"]["txtSelectDo"]);
  EXPECT_EQ(Can(), Flags(true, true)) << "the page is still to be taken back";
}

TEST_F(UndoTest, UndoWithinAnEventDoesNothing) {
  ClickRow("lsttables", 0);
  ClickRow("lsttables", 1);
  Undo();
  int events = 0;
  QObject::connect(&widget, &ZOLT20MapWidget::eventDone, &widget, [&] {
    ++events;
    const Json before = Dump();
    widget.undo();
    widget.redo();
    QTest::mouseClick(&On("undo"), Qt::LeftButton);
    EXPECT_EQ(Dump(), before);
  });
  Click("cmdDone");
  EXPECT_EQ(events, 1);
  EXPECT_EQ(Can(), Flags(true, true));
  EXPECT_EQ(form().lsttables.SelCount(), 1);
}

TEST_F(UndoTest, SwitchedOffItForgetsAndKeepsNothing) {
  ClickRow("lsttables", 0);
  ClickRow("lsttables", 1);
  Undo();
  EXPECT_TRUE(widget.isUndoEnabled());
  widget.setUndoEnabled(false);
  EXPECT_FALSE(widget.isUndoEnabled());
  EXPECT_EQ(Can(), Flags(false, false));
  ClickRow("lsttables", 1);
  EXPECT_EQ(Can(), Flags(false, false));
  widget.setUndoEnabled(true);
  EXPECT_EQ(Can(), Flags(false, false));
  ClickRow("lsttables", 1);
  EXPECT_EQ(Can(), Flags(true, false));
}

TEST_F(UndoTest, SwitchedOffWithinAnEventItKeepsNotEvenThatStep) {
  Tab(2);
  QObject::connect(&widget, &ZOLT20MapWidget::eventSubQuery, &widget, [this] {
    widget.setUndoEnabled(false);
    widget.setPrpSelectDoPart(QStringLiteral("x"));
  });
  Click("cmdSubQuery(0)");
  EXPECT_EQ(Can(), Flags(false, false));
}

TEST_F(UndoTest, SignalsTellOfEachChangeOnce) {
  Texts log;
  const auto told = [&log](const char* what) { return [&log, what] { log.emplace_back(what); }; };
  QObject::connect(&widget, &ZOLT20MapWidget::canUndoChanged,
                   [&log](bool can) { log.emplace_back(can ? "can undo" : "cannot undo"); });
  QObject::connect(&widget, &ZOLT20MapWidget::canRedoChanged,
                   [&log](bool can) { log.emplace_back(can ? "can redo" : "cannot redo"); });
  QObject::connect(&widget, &ZOLT20MapWidget::undone, told("undone"));
  QObject::connect(&widget, &ZOLT20MapWidget::redone, told("redone"));
  ClickRow("lsttables", 0);
  ClickRow("lsttables", 1);
  EXPECT_EQ(std::exchange(log, {}), (Texts{"can undo"}));
  Undo();
  EXPECT_EQ(std::exchange(log, {}), (Texts{"can redo", "undone"}));
  Undo();
  EXPECT_EQ(std::exchange(log, {}), (Texts{"cannot undo", "undone"}));
  Redo();
  EXPECT_EQ(std::exchange(log, {}), (Texts{"can undo", "redone"}));
  Redo();
  EXPECT_EQ(std::exchange(log, {}), (Texts{"cannot redo", "redone"}));
  widget.setPrpTab(0);
  EXPECT_EQ(std::exchange(log, {}), (Texts{"cannot undo"}));
}

TEST_F(UndoTest, UndoneComesWhenAllIsDrawn) {
  Tab(2);
  Type("txtSelectDo", "abc");
  int undone = 0;
  QObject::connect(&widget, &ZOLT20MapWidget::undone, [&] {
    ++undone;
    ExpectDrawn();
  });
  Undo();
  EXPECT_EQ(undone, 1);
}

TEST_F(UndoTest, CaseRowsComeAndGo) {
  Tab(6);
  Click("optCase");
  Type("TxtExpr(0)", "a");
  Click("cmdNext");
  Type("TxtExpr(1)", "b");
  Click("cmdNext");
  Click("cmdNext");
  Click("cmdNext");
  const Json five = Dump();
  ASSERT_EQ(form().TxtExpr.UpperBound(), 4);
  for (int rows = 4; rows > 1; --rows) {
    Undo();
    EXPECT_EQ(form().TxtExpr.UpperBound(), rows - 1);
    const std::string gone = "TxtExpr(" + std::to_string(rows) + ")";
    EXPECT_EQ(widget.findChild<QWidget*>(QString::fromStdString(gone)), nullptr);
    ExpectDrawn();
  }
  EXPECT_EQ(Narrow(form().TxtExpr(1).Text()), "b");
  for (int steps = 0; steps < 3; ++steps)
    Redo();
  EXPECT_EQ(Dump(), five);
  ExpectDrawn();
  Type("TxtExpr(4)", "e");
  EXPECT_EQ(Narrow(form().TxtExpr(4).Text()), "e");
}

TEST_F(UndoTest, BuildConditionIsTakenBackWithItsRows) {
  Tab(6);
  Click("optCase");
  Type("txtcaseexp", "x");
  Type("TxtExpr(0)", "1");
  Type("txtStmt(0)", "s");
  Click("cmdNext");
  Type("TxtExpr(1)", "2");
  const Json before = Dump();
  Click("cmdAdd");
  ASSERT_EQ(widget.messages, 0);
  Undo();
  EXPECT_EQ(Dump()["controls"], before["controls"]);
  ExpectDrawn();
}

TEST_F(UndoTest, TheFocusGoesWhereItWasBeforeTheStep) {
  ClickRow("lsttables", 0);
  Click("cmdMoveAll");
  Tab(2);
  Type("txtSelectDo", "a");
  EXPECT_EQ(Focused(), "txtSelectDo");
  Undo();
  EXPECT_EQ(Focused(), "txtSelectDo");
  Undo();
  EXPECT_EQ(Focused(), "tabVrn");
  Undo();
  EXPECT_EQ(Focused(), "cmdMoveAll");
  Undo();
  EXPECT_EQ(Focused(), "lsttables");
}

TEST_F(UndoTest, AFocusOutsideStaysThere) {
  ClickRow("lsttables", 0);
  QWidget other;
  other.show();
  QLineEdit line(&other);
  line.show();
  other.activateWindow();
  line.setFocus();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  widget.undo();
  EXPECT_TRUE(line.hasFocus());
  EXPECT_EQ(form().lsttables.SelCount(), 0);
}

TEST_F(UndoTest, TwoHundredStepsAreKept) {
  for (int step = 0; step < 205; ++step)
    ClickRow("lsttables", step % 2);
  int steps = 0;
  for (; widget.canUndo() && steps < 300; ++steps)
    Undo();
  EXPECT_EQ(steps, 200);
  // What the first five clicks, of which three were on the first table, left.
  EXPECT_TRUE(form().lsttables.Selected(0));
  EXPECT_FALSE(form().lsttables.Selected(1));
}

// A walk over the whole form, by steps that each change something, and the way back.
class UndoWalkTest : public UndoTest, public ::testing::WithParamInterface<unsigned> {
 protected:
  struct Action {
    const char* control;
    std::function<void()> act;
    bool isTyping = false;
  };

  Action Typing(const char* box, const char* text = "z") {
    return {box, [this, box, text] { QTest::keyClicks(&On(box), QString::fromLatin1(text)); },
            true};
  }
  Action Row(const char* list, int row) {
    return {list, [this, list, row] { ClickRow(list, row); }};
  }
  Action Button(const char* name) {
    return {name, [this, name] { QTest::keyClick(&On(name), Qt::Key_Space); }};
  }

  // What changes something in any state that it can be done in.
  std::vector<Action> Actions() {
    std::vector<Action> actions{
        Row("lsttables", 0),     Row("lsttables", 1),         Row("lstGroupby", 0),
        Row("lstorderbyasc", 0), Row("lstorderbydesc", 1),    Typing("txtAsSet", "7"),
        Typing("TxtOutput"),     Typing("txtwhereCondition"), Typing("txtSelectDo"),
        Typing("txtSelectEOS"),  Typing("txtselectempty"),    Typing("txtSelectError"),
        Typing("txtCond"),       Typing("txtStmt1"),          Typing("txtWhlStm"),
        Typing("txtForStmt"),    Typing("TxtExpr(0)"),        Typing("txtStmt(0)"),
        Button("cmdNext")};
    for (const char* option : {"optIfThen", "optwhile", "optFor", "optRepeat", "optCase"}) {
      const auto& value = dynamic_cast<const OptionButton&>(*form().Find(option));
      if (!value.Value()) actions.push_back(Button(option));
    }
    for (int page = 0; page < 7; ++page) {
      if (form().tabVrn.Tab() != page) {
        actions.push_back({"tabVrn", [this, page] { Tab(page); }});
      }
    }
    return actions;
  }

  bool CanBeDone(const Action& action) {
    const Control& control = *form().Find(action.control);
    if (!control.Shown() || !control.Enabled()) return false;
    const auto* list = dynamic_cast<const ListBox*>(&control);
    return list == nullptr || list->ListCount() > 1;
  }
};

TEST_P(UndoWalkTest, AHundredStepsBackAndForth) {
  constexpr std::size_t kSteps = 100;
  std::mt19937 random(GetParam());
  std::vector<Json> states;
  const char* typedLast = nullptr;
  Texts walk;
  while (states.size() < kSteps) {
    const std::vector<Action> actions = Actions();
    const Action& action = actions[random() % actions.size()];
    if (!CanBeDone(action) || (action.isTyping && action.control == typedLast)) continue;
    On(action.control).setFocus(Qt::MouseFocusReason);
    if (!CanBeDone(action)) continue;
    states.push_back(Dump());
    action.act();
    walk.emplace_back(action.control);
    ASSERT_NE(Dump()["controls"], states.back()["controls"]) << action.control;
    typedLast = action.isTyping ? action.control : nullptr;
  }
  states.push_back(Dump());
  for (int round = 0; round < 2; ++round) {
    for (std::size_t step = kSteps; step-- > 0;) {
      SCOPED_TRACE("back to before step " + std::to_string(step) + ", " + walk[step]);
      ASSERT_TRUE(Can().first);
      Undo();
      ASSERT_EQ(Dump(), states[step]);
      Focused();
      ExpectDrawn();
      if (HasFailure()) return;
    }
    EXPECT_EQ(Can(), Flags(false, true));
    for (std::size_t step = 1; step <= kSteps; ++step) {
      SCOPED_TRACE("again step " + std::to_string(step) + ", " + walk[step - 1]);
      ASSERT_TRUE(Can().second);
      Redo();
      ASSERT_EQ(Dump(), states[step]);
      Focused();
      ExpectDrawn();
      if (HasFailure()) return;
    }
    EXPECT_EQ(Can(), Flags(true, false));
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, UndoWalkTest, ::testing::Values(1U, 2U, 3U));

TEST(UndoOfLongListsTest, StepsShareTheRowsOfALongCatalogue) {
  constexpr int kTables = 100000;
  constexpr int kSteps = 100;
  QuietWidget widget;
  Texts tables;
  Texts fields;
  for (int table = 0; table < kTables; ++table)
    tables.push_back("T" + std::to_string(1000000 + table) + "0");
  for (int table = 0; table < 10; ++table)
    fields.push_back(Field("NT" + std::to_string(1000000 + table) + ".F"));
  widget.setPrpStrTables(ToQt(Wide(List(tables))));
  widget.setPrpStrFields(ToQt(Wide(List(fields))));
  widget.resize(1000, 760);
  widget.show();
  widget.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&widget));
  auto& list = *widget.findChild<QAbstractItemView*>(QStringLiteral("lsttables"));
  const auto& rows = widget.form().lsttables;
  ASSERT_EQ(rows.ListCount(), kTables);
  const char16_t* const first = rows.List(0).data();
  const char16_t* const last = rows.List(kTables - 1).data();
  for (int step = 0; step < kSteps; ++step) {
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualRect(list.model()->index(step % 7, 0)).topLeft() + QPoint(4, 4));
    ASSERT_EQ(rows.List(0).data(), first) << "the rows were copied at step " << step;
  }
  // Seven tables by turns, fourteen times: all unmarked; then two more clicks.
  EXPECT_EQ(rows.SelCount(), 2);
  for (int step = 0; step < kSteps; ++step) {
    ASSERT_TRUE(widget.canUndo());
    widget.undo();
    ASSERT_EQ(rows.List(0).data(), first) << "the rows were copied at undo " << step;
  }
  EXPECT_FALSE(widget.canUndo());
  EXPECT_EQ(rows.SelCount(), 0);
  for (int step = 0; step < kSteps; ++step)
    widget.redo();
  EXPECT_EQ(rows.List(0).data(), first);
  EXPECT_EQ(rows.List(kTables - 1).data(), last);
}

}  // namespace
}  // namespace zolt20::tests
