// The tree of the statements beside the Result, what is wrong in them, and how it leads to the
// texts and back.
#include <QAccessible>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QTextBlock>
#include <QTextLayout>
#include <QTimer>
#include <QToolTip>
#include <QTreeView>
#include <algorithm>

#include "hosts/composer/settings.h"
#include "hosts/composer/statement_tree.h"
#include "tests/composer/composer_test.h"

namespace zolt20::tests {
namespace {

using composer::StatementTree;

constexpr const char* kLoop =
    "for :var.i = 1 to 3\r\n"
    "\tif :var.i > 2 then \r\n"
    "\t\tx = 1\r\n"
    "\telse\r\n"
    "\t\ty = 2\r\n"
    "\tendif\r\n"
    "endfor\r\n"
    "z = 3";
constexpr const char* kLoopRows =
    "for :var.i = 1 to 3\n"
    " if :var.i > 2 then\n"
    "  x = 1\n"
    "  else\n"
    "   y = 2\n"
    "z = 3\n";

class StatementTreeTest : public ComposerTest {
 protected:
  void Open(const char* text) {
    OpenRules({{u"A", Wide(text), u""}});
    window().resize(1200, 720);
    QTest::qWait(20);
  }
  StatementTree& Pane() { return *window().findChild<StatementTree*>(); }
  QTreeView& Tree() { return Pane().View(); }
  QPlainTextEdit& ResultBox() { return Be<QPlainTextEdit>("TxtOutput"); }
  /// The text of the rule; where it is read in place of the control, that one.
  QPlainTextEdit& RuleBox() {
    for (auto* box : window().findChildren<QPlainTextEdit*>(QStringLiteral("ruleText"))) {
      if (box->isVisible()) return *box;
    }
    throw std::runtime_error("no text of a rule is shown");
  }

  /// The rows that are unfolded, a blank before each for each row that it stands in.
  std::string Rows() {
    QTest::qWait(1);
    std::string rows;
    const auto add = [&](const auto& more, const QModelIndex& within, int depth) -> void {
      for (int row = 0; row < Tree().model()->rowCount(within); ++row) {
        const QModelIndex index = Tree().model()->index(row, 0, within);
        rows +=
            std::string(static_cast<std::size_t>(depth), ' ') + Std(index.data().toString()) + "\n";
        if (Tree().isExpanded(index)) more(more, index, depth + 1);
      }
    };
    add(add, {}, 0);
    return rows;
  }
  /// The first row of this head.
  QModelIndex Row(const char* head) {
    const auto* model = Tree().model();
    const QModelIndexList found =
        model->match(model->index(0, 0), Qt::DisplayRole, QString::fromUtf8(head), 1,
                     Qt::MatchExactly | Qt::MatchRecursive);
    if (found.isEmpty()) throw std::runtime_error(std::string("there is no row ") + head);
    return found.front();
  }
  std::string Current() { return Std(Tree().currentIndex().data().toString()); }
  QPoint MiddleOf(const QModelIndex& row) {
    Tree().scrollTo(row);
    return Tree().visualRect(row).center();
  }
  void ClickOn(const char* head) {
    PressOn(*Tree().viewport(), MiddleOf(Row(head)));
    QTest::qWait(1);
  }
  void DoubleClickOn(const char* head) {
    QWidget& rows = *Tree().viewport();
    const QPoint at = MiddleOf(Row(head));
    QTest::mouseDClick(rows.window()->windowHandle(), Qt::LeftButton, {},
                       rows.mapTo(rows.window(), at));
  }
  /// Presses into a text, behind so many of its characters.
  void ClickIn(QPlainTextEdit& box, int position) {
    QTextCursor place(box.document());
    place.setPosition(position);
    box.verticalScrollBar()->setValue(place.blockNumber());
    const QPoint at = box.cursorRect(place).center();
    PressOn(*box.viewport(), at + QPoint(1, 0));
    QTest::qWait(1);
  }
  static std::string Marked(const QPlainTextEdit& box) {
    return Std(box.textCursor().selectedText().replace(QChar::ParagraphSeparator, u'\n'));
  }

  /// From now on the window does nothing when an edit is asked for.
  void LeaveAlone() {
    QObject::disconnect(&Pane(), &StatementTree::EditRequested, nullptr, nullptr);
  }

  // Problems.

  void WaitForCheck() {
    EXPECT_TRUE(QTest::qWaitFor([this] { return Pane().IsChecked(); }, 3000));
  }
  QListView& Problems() { return *Pane().findChild<QListView*>(QStringLiteral("problems")); }
  Texts ProblemRows() {
    Texts rows;
    for (int row = 0; row < Problems().model()->rowCount(); ++row)
      rows.push_back(Std(Problems().model()->index(row, 0).data().toString()));
    return rows;
  }
  std::string ProblemsTitle() {
    return Std(WithoutMnemonic(Pane().findChild<QLabel*>(QStringLiteral("problemsTitle"))->text()));
  }
  static Texts Waved(const QPlainTextEdit& box) {
    Texts waved;
    for (const QTextEdit::ExtraSelection& wave : box.extraSelections()) {
      EXPECT_EQ(wave.format.underlineStyle(), QTextCharFormat::WaveUnderline);
      waved.push_back(Std(wave.cursor.selectedText()));
    }
    return waved;
  }
  composer::Mark MarkOf(const QModelIndex& row, int role) {
    return static_cast<composer::Mark>(row.data(role).toInt());
  }
  QImage PictureOf(const QModelIndex& row) {
    QRect place = Tree().visualRect(row);
    place.setWidth(20);
    return Tree().viewport()->grab(place).toImage();
  }
};

TEST_F(StatementTreeTest, TheTreeShowsTheStatementsOfTheResult) {
  Open(kLoop);
  EXPECT_EQ(Rows(), kLoopRows);
  Type("TxtOutput", "while a\nb = 1\nendwhile");
  EXPECT_EQ(Rows(), "while a\n b = 1\n");
  Menu("Rule", "New", {[this] { Choose("Discard"); }});
  EXPECT_EQ(Rows(), "");
}

TEST_F(StatementTreeTest, OfAnEmptyResultTheTreeIsThatOfTheStoredRule) {
  Open("select CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nendselect");
  EXPECT_EQ(Result(), "");
  EXPECT_EQ(Rows(), "select CUSTOMER.C_ID\n from CUSTOMER\n");
}

TEST_F(StatementTreeTest, WhatIsFoldedStaysFoldedWhileTheTextIsEdited) {
  Open(kLoop);
  Tree().setFocus();
  ClickOn("if :var.i > 2 then");
  QTest::keyClick(&Tree(), Qt::Key_Left);
  const std::string folded = "for :var.i = 1 to 3\n if :var.i > 2 then\nz = 3\n";
  EXPECT_EQ(Rows(), folded);
  TypeKeys("TxtOutput", "\nwhile a\nb = 1\nendwhile");
  EXPECT_EQ(Rows(), folded + "while a\n b = 1\n");
  QTest::keyClick(&ResultBox(), Qt::Key_Home, Qt::ControlModifier);
  QTest::keyClicks(&ResultBox(), QStringLiteral("q = 0"));
  QTest::keyClick(&ResultBox(), Qt::Key_Return);
  EXPECT_EQ(Rows(), "q = 0\n" + folded + "while a\n b = 1\n");
}

TEST_F(StatementTreeTest, ARowInAnEmptyStatementIsUnfolded) {
  Open("while a\r\nendwhile\r\nz = 3");
  EXPECT_EQ(Rows(), "while a\nz = 3\n");
  Type("TxtOutput", "while a\nb = 1\nendwhile\nz = 3");
  EXPECT_EQ(Rows(), "while a\n b = 1\nz = 3\n");
}

TEST_F(StatementTreeTest, RowsThatComeInGreatNumberLeaveTheFoldsAsTheyAre) {
  Open(kLoop);
  ClickOn("if :var.i > 2 then");
  QTest::keyClick(&Tree(), Qt::Key_Left);
  std::string text = kLoop;
  std::string rows = "for :var.i = 1 to 3\n if :var.i > 2 then\nz = 3\n";
  for (int number = 0; number < 60; ++number) {
    text += "\r\nwhile a\r\nb = 1\r\nendwhile";
    rows += "while a\n b = 1\n";
  }
  Type("TxtOutput", text);
  EXPECT_EQ(Rows(), rows);
}

TEST_F(StatementTreeTest, ManyKeysAreReadOnceAndALongTextLater) {
  Open(kLoop);
  std::string text;
  for (int line = 0; line < 2'000; ++line)
    text += "x = " + std::string(500, 'x') + "\n";
  Type("TxtOutput", text);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Tree().model()->rowCount() == 2'000; }, 10'000));
  Focus("TxtOutput");
  QSignalSpy read(&Pane(), &StatementTree::Read);
  // Straight to the box: a key lays the text out, which takes longer than the wait on a busy
  // machine, and reading would come between two keys of the window's.
  for (const char key : std::string("abc")) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_A, {}, QString(QLatin1Char(key)));
    QApplication::sendEvent(QApplication::focusWidget(), &press);
    EXPECT_TRUE(Pane().IsStale());
  }
  const auto timers = Pane().findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
  EXPECT_TRUE(std::any_of(timers.begin(), timers.end(), [](const QTimer* timer) {
    return timer->isActive() && timer->interval() >= 1'000;
  }));
  EXPECT_TRUE(read.wait(10'000));
  EXPECT_EQ(read.count(), 1);
  EXPECT_FALSE(Pane().IsStale());
}

// --- Places

TEST_F(StatementTreeTest, AClickOnARowMarksItsPlaceInTheTexts) {
  Open(kLoop);
  ClickOn("if :var.i > 2 then");
  const std::string marked = "if :var.i > 2 then \n\t\tx = 1\n\telse\n\t\ty = 2\n\tendif";
  EXPECT_EQ(Marked(ResultBox()), marked);
  EXPECT_EQ(Marked(RuleBox()), marked);
  EXPECT_EQ(QApplication::focusWidget(), &Tree());
  QTest::keyClick(&Tree(), Qt::Key_Down);
  EXPECT_EQ(Marked(ResultBox()), "x = 1");
  EXPECT_EQ(Current(), "x = 1");
}

TEST_F(StatementTreeTest, TheCaretInTheResultMarksItsStatement) {
  Open(kLoop);
  const QString text = ResultBox().toPlainText();
  ClickIn(ResultBox(), static_cast<int>(text.indexOf(u'y')));
  EXPECT_EQ(Current(), "y = 2");
  EXPECT_EQ(QApplication::focusWidget(), &ResultBox());
  EXPECT_EQ(Marked(ResultBox()), "") << "the caret stays where the person has it";
  ClickIn(ResultBox(), static_cast<int>(text.indexOf(QStringLiteral("endif"))));
  EXPECT_EQ(Current(), "if :var.i > 2 then");
  ClickIn(ResultBox(), static_cast<int>(text.indexOf(u'z')));
  EXPECT_EQ(Current(), "z = 3");
}

TEST_F(StatementTreeTest, OfAFoldedStatementTheRowThatIsSeenIsMarked) {
  Open(kLoop);
  ClickOn("for :var.i = 1 to 3");
  QTest::keyClick(&Tree(), Qt::Key_Left);
  ClickIn(ResultBox(), static_cast<int>(ResultBox().toPlainText().indexOf(u'y')));
  EXPECT_EQ(Current(), "for :var.i = 1 to 3");
  EXPECT_EQ(Rows(), "for :var.i = 1 to 3\nz = 3\n");
}

TEST_F(StatementTreeTest, TheCaretInTheTextOfTheRuleMarksItsStatement) {
  Open(kLoop);
  ClickIn(RuleBox(), static_cast<int>(RuleBox().toPlainText().indexOf(u'y')));
  EXPECT_EQ(Current(), "y = 2");
}

TEST_F(StatementTreeTest, LinesThatComeAndGoStandBetweenInTheTextOfTheRule) {
  Open("x = 1\r\ny = 2\r\nz = 3");
  Type("TxtOutput", "w = 0\nx = 1\nz = 3");
  Rest();
  EXPECT_EQ(Std(RuleBox().toPlainText()), "+ w = 0\n  x = 1\n- y = 2\n  z = 3");
  ClickOn("z = 3");
  EXPECT_EQ(Marked(RuleBox()), "z = 3");
  ClickOn("w = 0");
  EXPECT_EQ(Marked(RuleBox()), "w = 0");
  ClickIn(RuleBox(), static_cast<int>(RuleBox().toPlainText().indexOf(u'x')));
  EXPECT_EQ(Current(), "x = 1");
  ClickIn(RuleBox(), static_cast<int>(RuleBox().toPlainText().indexOf(u'y')));
  EXPECT_EQ(Current(), "x = 1") << "a line that goes is no statement of the Result";
}

// --- What a row tells

TEST_F(StatementTreeTest, ATipTellsWhatAStatementDoes) {
  Open(kLoop);
  EXPECT_EQ(Std(Row("for :var.i = 1 to 3").data(Qt::ToolTipRole).toString()),
            "<qt>For each :var.i from 1 to 3:</qt>");
  EXPECT_EQ(Std(Row("if :var.i > 2 then").data(Qt::ToolTipRole).toString()),
            "<qt>If :var.i &gt; 2:</qt>");
}

TEST_F(StatementTreeTest, ScreenReadersHearKindDepthBeginAndEnd) {
  Open("while a\r\n\tif b then \r\n\t\tc = 1\r\n\tendif\r\n");
  WaitForCheck();
  QAccessibleInterface* tree = QAccessible::queryAccessibleInterface(&Tree());
  ASSERT_NE(tree, nullptr);
  const auto heard = [&](const char* head) {
    for (int at = 0; at < tree->childCount(); ++at) {
      QAccessibleInterface* row = tree->child(at);
      if (row->text(QAccessible::Name).endsWith(QString::fromUtf8(head)))
        return Std(row->text(QAccessible::Name) + u'|' + row->text(QAccessible::Description));
    }
    return std::string("nothing");
  };
  EXPECT_EQ(heard("while a"),
            "While: while a|Depth 1, begins in line 1, ends in line 4. As long as a: Problems: "
            "'endwhile' is missing: this statement is not closed.");
  EXPECT_EQ(heard("if b then"), "If: if b then|Depth 2, begins in line 2, ends in line 4. If b:");
  EXPECT_EQ(heard("c = 1"), "Statement: c = 1|Depth 3, line 3. Sets c to 1.");
}

TEST_F(StatementTreeTest, EachKindHasAPictureOfItsOwnInLightAndInDarkColors) {
  Open(kLoop);
  const QImage loop = PictureOf(Row("for :var.i = 1 to 3"));
  EXPECT_NE(loop, PictureOf(Row("if :var.i > 2 then")));
  const QPalette before = QApplication::palette();
  QPalette dark(QColor(53, 53, 57));
  dark.setColor(QPalette::Base, QColor(35, 35, 38));
  QApplication::setPalette(dark);
  QTest::qWait(20);
  EXPECT_NE(PictureOf(Row("for :var.i = 1 to 3")), loop);
  QApplication::setPalette(before);
}

// --- Problems

constexpr const char* kWrong =
    "while a\r\n"
    "\tselect CUSTOMER.C_NO\r\n"
    "\tfrom  CUSTOMER\r\n"
    "\tendselect\r\n"
    "endwhile\r\n"
    "endif";

TEST_F(StatementTreeTest, WhatIsWrongIsListedMarkedAndUnderlined) {
  Open(kWrong);
  WaitForCheck();
  EXPECT_EQ(ProblemsTitle(), "Problems (2)");
  EXPECT_EQ(ProblemRows().size(), 2U);
  EXPECT_EQ(ProblemRows()[0].substr(0, 45), "Line 2: The table CUSTOMER has no field C_NO.");
  EXPECT_EQ(ProblemRows()[1], "Line 6: Nothing is open here that 'endif' could close.");
  const Texts waved{"C_NO", "endif"};
  EXPECT_EQ(Waved(ResultBox()), waved);
  EXPECT_EQ(Waved(RuleBox()), waved);
  using composer::Mark;
  using composer::StatementModel;
  EXPECT_EQ(MarkOf(Row("select CUSTOMER.C_NO"), StatementModel::kMarkRole), Mark::kError);
  EXPECT_EQ(MarkOf(Row("from CUSTOMER"), StatementModel::kMarkRole), Mark::kNone);
  EXPECT_EQ(MarkOf(Row("while a"), StatementModel::kMarkRole), Mark::kNone);
  EXPECT_EQ(MarkOf(Row("while a"), StatementModel::kMarkWithinRole), Mark::kError);
}

TEST_F(StatementTreeTest, AFoldedStatementBearsTheMarkOfWhatIsInIt) {
  Open(kWrong);
  WaitForCheck();
  ClickOn("endif");
  const QImage open = PictureOf(Row("while a"));
  Tree().collapse(Row("while a"));
  EXPECT_NE(PictureOf(Row("while a")), open);
  EXPECT_EQ(Rows(), "while a\nendif\n");
}

TEST_F(StatementTreeTest, AProblemLeadsToItsPlaceByAClickAndByEnter) {
  Open(kWrong);
  WaitForCheck();
  const auto middle = [&](int row) {
    return Problems().visualRect(Problems().model()->index(row, 0)).center();
  };
  PressOn(*Problems().viewport(), middle(0));
  EXPECT_EQ(Marked(ResultBox()), "C_NO");
  EXPECT_EQ(Marked(RuleBox()), "C_NO");
  EXPECT_EQ(Current(), "select CUSTOMER.C_NO");
  QTest::keyClick(&Problems(), Qt::Key_Down);
  QTest::keyClick(&Problems(), Qt::Key_Return);
  EXPECT_EQ(Marked(ResultBox()), "endif");
  EXPECT_EQ(Current(), "endif");
}

TEST_F(StatementTreeTest, WavesAndWordsTakeTheColorsOfTheWindow) {
  Open(kWrong);
  WaitForCheck();
  const auto colors = [&] {
    QTest::qWait(20);
    const QColor word =
        RuleBox().document()->firstBlock().layout()->formats()[0].format.foreground().color();
    return std::pair(word, RuleBox().extraSelections()[0].format.underlineColor());
  };
  const auto light = colors();
  const QPalette before = QApplication::palette();
  QPalette dark(QColor(53, 53, 57));
  dark.setColor(QPalette::Base, QColor(35, 35, 38));
  QApplication::setPalette(dark);
  const auto now = colors();
  QApplication::setPalette(before);
  EXPECT_GT(now.first.lightness(), light.first.lightness());
  EXPECT_GT(now.second.lightness(), light.second.lightness());
}

TEST_F(StatementTreeTest, WhatIsMendedIsNoProblemAnyMore) {
  Open("endif");
  WaitForCheck();
  EXPECT_EQ(ProblemsTitle(), "Problems (1)");
  Type("TxtOutput", "x = 1");
  EXPECT_FALSE(Pane().IsChecked());
  WaitForCheck();
  EXPECT_EQ(ProblemsTitle(), "No problems");
  EXPECT_FALSE(Problems().isVisible());
  EXPECT_EQ(Waved(ResultBox()), Texts{});
  EXPECT_EQ(Result(), "x = 1");
}

// --- Editing, and the pane

TEST_F(StatementTreeTest, ADoubleClickEnterAndF2AskForAnEdit) {
  Open(kLoop);
  LeaveAlone();
  QSignalSpy asked(&Pane(), &StatementTree::EditRequested);
  DoubleClickOn("y = 2");
  ASSERT_EQ(asked.count(), 1);
  const auto node = asked[0][0].value<std::size_t>();
  EXPECT_EQ(node, Pane().CurrentNode());
  EXPECT_EQ(Narrow(language::HeadOf(qt::View(Pane().Text()), Pane().Nodes()[node])), "y = 2");
  EXPECT_NE(Rows().find("y = 2"), std::string::npos);
  QTest::keyClick(&Tree(), Qt::Key_Return);
  EXPECT_EQ(asked.count(), 2);
  QTest::keyClick(&Tree(), Qt::Key_F2);
  EXPECT_EQ(asked.count(), 3) << "and the window does not rename the rule";
}

TEST_F(StatementTreeTest, ActionsOfOthersStandInTheMenuAndHaveTheirKeysInTheTree) {
  Open(kLoop);
  QAction own(QStringLiteral("Own"));
  own.setShortcut(Qt::CTRL | Qt::Key_D);
  Pane().AddAction(own);
  QSignalSpy done(&own, &QAction::triggered);
  const Texts offered = OfferedAt(*Tree().viewport(), MiddleOf(Row("z = 3")));
  ASSERT_GE(offered.size(), 5U);
  EXPECT_EQ(offered.front(), "Edit");
  EXPECT_EQ(Texts(offered.end() - 4, offered.end()), (Texts{"Own", "", "Unfold All", "Fold All"}));
  EXPECT_EQ(Current(), "z = 3");
  QTest::keyClick(&Tree(), Qt::Key_D, Qt::ControlModifier);
  EXPECT_EQ(done.count(), 1);
  EXPECT_EQ(Listed(), (Texts{"A*"})) << "the window does not duplicate the rule";
}

TEST_F(StatementTreeTest, NoEditIsOfferedWhereNobodyHearsOfIt) {
  Open(kLoop);
  LeaveAlone();
  const Texts offered = OfferedAt(*Tree().viewport(), MiddleOf(Row("z = 3")));
  EXPECT_EQ(std::find(offered.begin(), offered.end(), "Edit"), offered.end());
}

TEST_F(StatementTreeTest, ThePaneFoldsAwayWhereThereIsNoRoomAndTheSettingsKeepIt) {
  Open(kLoop);
  EXPECT_TRUE(Pane().isVisible());
  window().resize(640, 400);
  QTest::qWait(1);
  EXPECT_FALSE(Pane().isVisible());
  EXPECT_EQ(window().size(), QSize(640, 400));
  Menu("View", "Statements");
  EXPECT_TRUE(Pane().isVisible());
  EXPECT_EQ(window().size(), QSize(640, 400));
  window().resize(1200, 700);
  EXPECT_TRUE(Pane().isVisible());
  window().UseSettings();
  QTest::keyClick(&window(), Qt::Key_F9, Qt::ShiftModifier);
  EXPECT_FALSE(Pane().isVisible());
  window().close();
  OpenWindow();
  window().UseSettings();
  window().resize(1200, 700);
  EXPECT_FALSE(Pane().isVisible());
  composer::Settings().clear();
}

}  // namespace
}  // namespace zolt20::tests
