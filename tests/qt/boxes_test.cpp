// Boxes and lists at a person's hands: what they do as any box of Qt does, and what they leave
// alone.
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QWheelEvent>
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include "tests/qt/widget_test.h"

namespace zolt20::tests {
namespace {

class BoxesTest : public WidgetTest {
 protected:
  BoxesTest() { Catalogue(); }
  void TearDown() override {
    Log();
    WidgetTest::TearDown();
  }
  QLineEdit& Value() { return *Be<QComboBox>("cboWhereFields1").lineEdit(); }
  QLineEdit& Limit() { return Be<QLineEdit>("txtAsSet"); }
  void PickAValue() {
    Click("lsttables", 0);
    Tab(1);
    Pick("cboWhereFields1", 0);
  }
  void TypeHere(const char* text) {
    for (const char* letter = text; *letter != '\0'; ++letter)
      QTest::keyClick(Window(), *letter);
  }
  /// Text, caret and marked characters of a line.
  using Look = std::tuple<std::string, int, std::string>;
  static Look LookOf(const QLineEdit& line) {
    return {line.text().toStdString(), line.cursorPosition(), line.selectedText().toStdString()};
  }
  void Turn(QWidget& over) {
    const QPointF place = over.rect().center();
    QWheelEvent wheel(place, over.mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&over, &wheel);
  }
};

// The value of a condition: a box that lists entries.

TEST_F(BoxesTest, WhatIsTypedBehindAPickedEntryStandsBehindIt) {
  PickAValue();
  const QString entry = Value().text();
  Press(Qt::Key_End);
  TypeHere("xyz");
  EXPECT_EQ(Value().text(), entry + QStringLiteral("xyz"));
  EXPECT_EQ(form().cboWhereFields1.ListIndex(), -1);
}

TEST_F(BoxesTest, WhatIsTypedBeforeAPickedEntryStandsBeforeIt) {
  PickAValue();
  const QString entry = Value().text();
  Press(Qt::Key_Home);
  TypeHere("xyz");
  EXPECT_EQ(Value().text(), QStringLiteral("xyz") + entry);
  EXPECT_EQ(Value().cursorPosition(), 3);
}

TEST_F(BoxesTest, UndoTakesBackAllThatWasTypedBehindAPickedEntry) {
  PickAValue();
  const QString entry = Value().text();
  Press(Qt::Key_End);
  TypeHere("x7");
  QTest::keySequence(Window(), QKeySequence::Undo);
  EXPECT_EQ(Value().text(), entry);
}

TEST_F(BoxesTest, ArrowsBehindATypedTextBeginWithTheFirstEntry) {
  PickAValue();
  const QString first = Value().text();
  Pick("cboWhereFields1", 1);
  Press(Qt::Key_End);
  TypeHere("x");
  Press(Qt::Key_Down);
  EXPECT_EQ(Value().text(), first);
  EXPECT_EQ(form().cboWhereFields1.ListIndex(), 0);
}

// The row limit.

TEST_F(BoxesTest, AKeyThatIsDroppedLeavesTextCaretAndMark) {
  Tab(1);
  TypeKeys("txtAsSet", "50");
  for (const Look& look : {Look{"50", 2, "50"}, Look{"50", 0, "50"}, Look{"50", 1, ""}}) {
    const auto& [text, caret, marked] = look;
    Press(caret == 0 ? Qt::Key_End : Qt::Key_Home);
    if (!marked.empty()) {
      Press(caret == 0 ? Qt::Key_Home : Qt::Key_End, Qt::ShiftModifier);
    } else {
      Press(Qt::Key_Right);
    }
    for (const int key : {static_cast<int>(Qt::Key_X), static_cast<int>(Qt::Key_Space),
                          static_cast<int>(Qt::Key_Return), static_cast<int>(Qt::Key_Minus)}) {
      Press(key);
      EXPECT_EQ(LookOf(Limit()), look);
      EXPECT_EQ(form().txtAsSet.Text(), u"50");
    }
  }
}

TEST_F(BoxesTest, TheRuleOfTheButtonReadsTheTextThatStood) {
  Tab(1);
  TypeKeys("txtAsSet", "50");
  Type("txtAsSet", "");
  Press(Qt::Key_Return);
  EXPECT_FALSE(form().cmdAddWhereQuery.Enabled());
  Type("txtAsSet", "50");
  Press(Qt::Key_Home, Qt::ShiftModifier);
  Press(Qt::Key_7);
  EXPECT_EQ(LookOf(Limit()), (Look{"7", 1, ""}));
  EXPECT_TRUE(form().cmdAddWhereQuery.Enabled());
}

TEST_F(BoxesTest, AfterAPasteTheKeysAreAStepOfTheirOwn) {
  Tab(1);
  Type("txtAsSet", "12");
  TypeHere("5");
  EXPECT_EQ(form().txtAsSet.Text(), u"125");
  QTest::keySequence(Window(), QKeySequence::Undo);
  EXPECT_EQ(form().txtAsSet.Text(), u"12");
}

// Texts that are pasted.

TEST_F(BoxesTest, APastedTextComesWholeWithItsLineEndsAsCrLf) {
  Tab(6);
  Click("optIfThen");
  Type("txtCond", "a\r\nb\nc");
  EXPECT_EQ(form().txtCond.Text(), u"a\r\nb\r\nc");
  EXPECT_EQ(Be<QLineEdit>("txtCond").text(), QStringLiteral("a\r\nb\r\nc"));
  TypeHere("!");
  EXPECT_EQ(form().txtCond.Text(), u"a\r\nb\r\nc!");
}

// Lists.

TEST_F(BoxesTest, ADoubleClickMarksARowOnceInEveryKindOfList) {
  const auto isMarked = [](const ListBox& list) { return list.Selected(0); };
  DoubleClick("lsttables", 0);
  EXPECT_TRUE(isMarked(form().lsttables));
  Click("lstFields", 0);
  Click("cmdMoveOne");
  DoubleClick("lstSelectedFields", 0);
  EXPECT_TRUE(isMarked(form().lstSelectedFields));
  Tab(1);
  DoubleClick("lstorderbyasc", 0);
  EXPECT_TRUE(isMarked(form().lstorderbyasc));
}

// What a screen reader is told of a list: each row that the keys come to, and each mark.

class ToldTest : public BoxesTest {
 protected:
  ToldTest() {
    told.clear();
    Activate(true);
    before_ = QAccessible::installUpdateHandler(&Hear);
  }
  ~ToldTest() override {
    QAccessible::installUpdateHandler(before_);
    Activate(false);
  }
  /// What was told of a list since the last call, such as "at 3".
  Texts Of(const char* list) {
    Texts lines;
    for (const auto& [object, line] : std::exchange(told, {})) {
      if (object == list) lines.push_back(line);
    }
    return lines;
  }

 private:
  // As a screen reader does. Public headers have no way to it.
  static void Activate(bool active) {
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(active);
  }
  static void Hear(QAccessibleEvent* event) {
    const char* word = nullptr;
    switch (event->type()) {
      case QAccessible::Focus:
        word = "at ";
        break;
      case QAccessible::SelectionAdd:
        word = "marked ";
        break;
      case QAccessible::SelectionRemove:
        word = "not marked ";
        break;
      case QAccessible::StateChanged:
        word = "checked or not ";
        break;
      default:
        return;
    }
    if (event->object() == nullptr || event->child() < 0) return;
    told.emplace_back(event->object()->objectName().toStdString(),
                      word + std::to_string(event->child()));
  }

  static inline std::vector<std::pair<std::string, std::string>> told;
  QAccessible::UpdateHandler before_ = nullptr;
};

TEST_F(ToldTest, TheRowThatTheKeysComeToAndItsMark) {
  Focus("lsttables");
  Of("lsttables");
  Press(Qt::Key_Home);
  Of("lsttables");
  Press(Qt::Key_Down);
  EXPECT_EQ(Of("lsttables"), Texts{"at 1"});
  Press(Qt::Key_Space);
  EXPECT_EQ(Of("lsttables"), Texts{"marked 1"});
  Press(Qt::Key_Space);
  EXPECT_EQ(Of("lsttables"), Texts{"not marked 1"});
}

TEST_F(ToldTest, InASingleSelectionTheRowIsMarkedWithIt) {
  Click("lsttables", 0);
  Click("lstFields", 0);
  Of("lstFields");
  Press(Qt::Key_Down);
  EXPECT_EQ(Of("lstFields"), (Texts{"at 1", "not marked 0", "marked 1"}));
}

TEST_F(ToldTest, TheCheckBoxOfARow) {
  Click("lsttables", 0);
  Tab(1);
  Click("lstorderbyasc", 0);
  Of("lstorderbyasc");
  Press(Qt::Key_Down);
  Press(Qt::Key_Space);
  EXPECT_EQ(Of("lstorderbyasc"), (Texts{"at 1", "checked or not 1"}));
}

// The wheel.

TEST_F(BoxesTest, TheWheelPicksNothingAndTurnsNoPage) {
  PickAValue();
  Pick("cboWhereFields", 1);
  Focus("txtAsSet");
  for (const char* name : {"cboWhereFields", "cboOper", "cboWhereFields1", "tabVrn"})
    Turn(On(name));
  EXPECT_EQ(form().cboWhereFields.ListIndex(), 1);
  EXPECT_EQ(form().cboOper.ListIndex(), -1);
  EXPECT_EQ(form().cboWhereFields1.ListIndex(), 0);
  EXPECT_EQ(form().tabVrn.Tab(), 1);
  EXPECT_EQ(form().Focused(), &form().txtAsSet);
}

}  // namespace
}  // namespace zolt20::tests
