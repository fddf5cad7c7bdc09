// Statements of a rule edited in place, moved, copied and deleted in the tree, by mouse and keys.
#include "hosts/composer/node_edits.h"

#include <QFrame>
#include <QListView>
#include <QStatusBar>
#include <QTreeView>

#include "hosts/automation/session.h"
#include "hosts/composer/node_composer.h"
#include "hosts/composer/node_text.h"
#include "hosts/composer/recovery.h"
#include "hosts/composer/statement_tree.h"
#include "tests/composer/node_test.h"

namespace zolt20::tests {
namespace {

using composer::NodeComposer;
using composer::NodeText;
using composer::RecoveryOffer;

class NodeEditsTest : public NodeTest {};

TEST_F(NodeEditsTest, TheInnermostStatementIsChangedStoredAndOpenedAndNothingElseDiffers) {
  Open(RuleWith(kSelect));
  DoubleClickOn(kSelect, {[this] {
                  EXPECT_EQ(Std(Dialog<NodeComposer>().Path()), std::string("A > ") + kSelect);
                  EXPECT_EQ(Text("TxtOutput"), "");
                  AddField()();
                }});
  EXPECT_EQ(Result(), RuleWith(kChanged));
  EXPECT_EQ(Std(Tree().currentIndex().data().toString()), kChanged);
  Click("cmdDone");
  OpenAgain();
  EXPECT_EQ(Std(Pane().Text()), RuleWith(kChanged));
  EXPECT_EQ(StoredText(), RuleWith(kChanged));
}

TEST_F(NodeEditsTest, OneUndoTakesAnEditBackAndTheRecordHasIt) {
  Open(RuleWith(kSelect));
  DoubleClickOn(kSelect, {AddField()});
  ClickOn(":var.c = 3");
  Press(Qt::Key_Delete);
  const std::string both = Result();
  EXPECT_NE(both, RuleWith(kChanged));
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Result(), RuleWith(kChanged));
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_NE(Result(), RuleWith(kChanged));
  EXPECT_FALSE(window().map().IsChanged());
  Press(Qt::Key_Y, Qt::ControlModifier);
  Press(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(Result(), both);

  automation::Session session;
  for (const QByteArray& line : window().map().Record().split('\n'))
    if (!line.isEmpty()) session.Reply(line.toStdString());
  EXPECT_EQ(Narrow(session.Control().Form().TxtOutput.Text()), both);
}

TEST_F(NodeEditsTest, CancelAndADoneWithoutAChangeLeaveAllAsItIs) {
  Open(RuleWith(kSelect));
  const std::string before = Result();
  ClickOn(kSelect);
  With([this] { Press(Qt::Key_F2); }, {[this] { Click("cmdCancel"); }});
  With([this] { Press(Qt::Key_Return); }, {[this] { Click("cmdDone"); }});
  With([this] { Press(Qt::Key_Return); }, {[this] {
         Click("lstFields", 2);
         Click("cmdMoveOne");
         ClickWith("cmdCancel", {[this] { Choose("Discard"); }});
       }});
  EXPECT_EQ(Result(), before);
  EXPECT_FALSE(window().map().IsChanged());
  EXPECT_FALSE(window().map().canUndo());
}

TEST_F(NodeEditsTest, AClauseOpensItsPage) {
  Open(
      "select ORDERS__.O_ID\r\nfrom  ORDERS__\r\nwhere ORDERS__.O_ID = 1\r\nselectdo\r\n\t:a = "
      "1\r\n"
      "endselect\r\n:b = 1");
  for (const auto& [head, page] : {std::pair{"where ORDERS__.O_ID = 1", 1},
                                   std::pair{"selectdo", 2}, std::pair{"from ORDERS__", 0}}) {
    DoubleClickOn(head, {[&, page = page] {
                    EXPECT_EQ(Dialog<NodeComposer>().map().form().tabVrn.Tab().value(), page);
                    Click("cmdDone");
                  }});
  }
}

TEST_F(NodeEditsTest, AControlFlowStatementOpensOnTheConditionPage) {
  Open(":a = 1\r\nif :b = 1 then \r\n\t:c = 1\r\nendif");
  DoubleClickOn("if :b = 1 then", {[this] {
                  EXPECT_EQ(Text("txtStmt1"), ":c = 1");
                  Type("txtStmt1", ":c = 2");
                  Click("cmdDone");
                }});
  EXPECT_EQ(Result(), ":a = 1\r\nif :b = 1 then \r\n\t:c = 2\r\nendif");
}

TEST_F(NodeEditsTest, APlainStatementOpensAsTextThatIsChecked) {
  Open(RuleWith(kSelect));
  const auto type = [this](const char* text) {
    auto& box = *Dialog<NodeText>().findChild<QPlainTextEdit*>(QStringLiteral("nodeText"));
    box.setFocus();
    QTest::keySequence(&box, QKeySequence(QKeySequence::SelectAll));
    QTest::keyClicks(&box, QString::fromUtf8(text));
  };
  DoubleClickOn(":var.b = 2",
                {[&] {
                   type("endfor");
                   QTest::keyClick(&Dialog(), Qt::Key_Return, Qt::ControlModifier);
                 },
                 Answer("Edit Statement: That would change other statements too."),
                 [&] {
                   type("x = round ( 5");
                   const QListView& problems = *Dialog().findChild<QListView*>();
                   EXPECT_TRUE(QTest::qWaitFor([&] { return problems.model()->rowCount() == 1; }));
                   QTest::keyClick(&Dialog(), Qt::Key_Return, Qt::ControlModifier);
                 }});
  std::string expected = RuleWith(kSelect);
  expected.replace(expected.find(":var.b = 2"), 10, "x = round ( 5");
  EXPECT_EQ(Result(), expected);
}

TEST_F(NodeEditsTest, StatementsMoveByKeys) {
  Open("a = 1\r\nfor i = 1 to 2\r\n\tb = 1\r\n\tc = 1\r\nendfor");
  ClickOn("c = 1");
  Press(Qt::Key_Up, Qt::AltModifier);
  EXPECT_EQ(Result(), "a = 1\r\nfor i = 1 to 2\r\n\tc = 1\r\n\tb = 1\r\nendfor");
  Press(Qt::Key_Up, Qt::AltModifier);
  EXPECT_EQ(Result(), "a = 1\r\nc = 1\r\nfor i = 1 to 2\r\n\tb = 1\r\nendfor");
  Press(Qt::Key_Down, Qt::AltModifier);
  EXPECT_EQ(Result(), "a = 1\r\nfor i = 1 to 2\r\n\tb = 1\r\nendfor\r\nc = 1");
  Press(Qt::Key_Down, Qt::AltModifier);
  EXPECT_EQ(Result(), "a = 1\r\nfor i = 1 to 2\r\n\tb = 1\r\nendfor\r\nc = 1") << "the last one";
  for (int undo = 0; undo < 3; ++undo)
    Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_FALSE(window().map().IsChanged());
}

TEST_F(NodeEditsTest, StatementsAreCopiedCutAndPastedAsTexts) {
  Open("a = 1\r\nfor i = 1 to 2\r\n\tif b then \r\n\t\tc = 1\r\n\tendif\r\nendfor");
  ClickOn("if b then");
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Std(QApplication::clipboard()->text()), "if b then \r\n\tc = 1\r\nendif");
  ClickOn("c = 1");
  Press(Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(Std(QApplication::clipboard()->text()), "c = 1");
  EXPECT_EQ(Result(), "a = 1\r\nfor i = 1 to 2\r\n\tif b then \r\n\tendif\r\nendfor");
  ClickOn("if b then");
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Result(), "a = 1\r\nfor i = 1 to 2\r\n\tif b then \r\n\tendif\r\n\tc = 1\r\nendfor");
  QApplication::clipboard()->setText(QStringLiteral("endfor"));
  const std::string before = Result();
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Result(), before);
  EXPECT_EQ(Status(), "That would change other statements too.");
}

TEST_F(NodeEditsTest, StatementsAreDraggedBesideAndIntoOthers) {
  Open("a = 1\r\nfor i = 1 to 2\r\n\tb = 1\r\nendfor\r\nc = 1");
  DragTo("c = 1", "a = 1", 0.1);
  EXPECT_EQ(Result(), "c = 1\r\na = 1\r\nfor i = 1 to 2\r\n\tb = 1\r\nendfor");
  DragTo("a = 1", "for i = 1 to 2", 0.6);
  EXPECT_EQ(Result(), "c = 1\r\nfor i = 1 to 2\r\n\tb = 1\r\n\ta = 1\r\nendfor");
  DragTo("b = 1", "c = 1", 0.9, Qt::ControlModifier);
  EXPECT_EQ(Result(), "c = 1\r\nb = 1\r\nfor i = 1 to 2\r\n\tb = 1\r\n\ta = 1\r\nendfor");
}

// The control itself would write anew what it had before the edit.
TEST_F(NodeEditsTest, WhatIsAddedLaterComesBehindWhatWasEdited) {
  Open("a = 1\r\nb = 1");
  ClickOn("a = 1");
  Press(Qt::Key_Delete);
  ASSERT_EQ(Result(), "b = 1");
  AddSelect(5, 1);
  const std::string added = "b = 1\r\nselect ORDERS__.O_ID\r\nfrom  ORDERS__\r\nendselect";
  EXPECT_EQ(Result(), added);
  ClickOn("b = 1");
  Press(Qt::Key_Delete);
  EXPECT_EQ(Result(), added.substr(7));
  Click("cmdAddSelect");
  EXPECT_EQ(Result(), added.substr(7) + added.substr(5));
  Click("cmdDone");
  EXPECT_EQ(StoredText(), added.substr(7) + added.substr(5));
}

constexpr const char* kAdded = "select ORDERS__.O_ID\r\nfrom  ORDERS__\r\nendselect";
constexpr const char* kWithBlock =
    "select ORDERS__.O_ID\r\nfrom  ORDERS__\r\nselectdo\r\n\tx = 1\r\nendselect";
constexpr const char* kAsked =
    "Add To Result: The statement would be written anew as it stands on the pages. What was edited "
    "in it in the Result would be lost.";

TEST_F(NodeEditsTest, AStatementThatIsWrittenAnewLeavesTheEditsAroundItAlone) {
  Open("a = 1\r\nb = 1");
  AddSelect(5, 1);
  ClickOn("a = 1");
  Press(Qt::Key_Delete);
  TypeKeys("TxtOutput", "\nc = 1");
  Tab(2);
  TypeKeys("txtSelectDo", "x = 1");
  Click("cmdAddSelectDoQuer");
  EXPECT_EQ(Result(), std::string("b = 1\r\n") + kWithBlock + "\r\nc = 1");
  window().map().undo();
  window().map().undo();
  EXPECT_EQ(Result(), std::string("b = 1\r\n") + kAdded + "\r\nc = 1");
}

TEST_F(NodeEditsTest, AddAsksBeforeItWritesAnEditedStatementAnew) {
  Open("a = 1\r\nb = 1");
  AddSelect(5, 1);
  DoubleClickOn(kSelect, {AddField()});
  const std::string edited =
      std::string("a = 1\r\nb = 1\r\n") + kChanged + "\r\nfrom  ORDERS__\r\nendselect";
  ASSERT_EQ(Result(), edited);
  Tab(2);
  TypeKeys("txtSelectDo", "x = 1");
  const QByteArray record = window().map().Record();
  ClickWith("cmdAddSelectDoQuer", {[this] {
              EXPECT_EQ(Told(), kAsked);
              EXPECT_EQ(
                  Std(Dialog<QMessageBox>().informativeText()),
                  std::string("- ") + kChanged + "\n+ " + kSelect + "\n+ selectdo\n+ \tx = 1");
              Choose("Go On");
            }});
  EXPECT_EQ(Result(), edited);
  EXPECT_EQ(Std(window().map().Record().mid(record.size()))
                .find("click\",\"control\":\"cmdAddSelectDoQuer"),
            std::string::npos)
      << "nothing was pressed";
  ClickWith("cmdAddSelectDoQuer", {Answer(kAsked, "Write Anew")});
  EXPECT_EQ(Result(), std::string("a = 1\r\nb = 1\r\n") + kWithBlock);
  Tab(0);
  Click("cmdAddSelect");
  EXPECT_EQ(Result(), std::string("a = 1\r\nb = 1\r\n") + kWithBlock + "\r\n" + kWithBlock)
      << "behind, nothing is asked";
}

TEST_F(NodeEditsTest, ARuleThatWasEditedIsNotReplacedUnasked) {
  Open("a = 1\r\nb = 1");
  ClickOn("a = 1");
  Press(Qt::Key_Delete);
  Click("lsttables", 5);
  Click("lstFields", 1);
  Click("cmdMoveOne");
  Tab(2);
  TypeKeys("txtSelectDo", "x = 1");
  ClickWith("cmdAddSelectDoQuer", {Answer(kAsked, "Go On")});
  EXPECT_EQ(Result(), "b = 1");
}

TEST_F(NodeEditsTest, WhatIsTypedInTheResultStaysWhenAStatementIsAdded) {
  TypeKeys("TxtOutput", "x = 1");
  AddSelect(5, 1);
  EXPECT_EQ(Result(), std::string("x = 1\r\n") + kAdded);
  EXPECT_EQ(Std(window().map().StepName()), "");
  TypeKeys("TxtOutput", "\ny = 1");
  Tab(6);
  Click("optIfThen");
  TypeKeys("txtCond", "a");
  Click("cmdAdd");
  Click("cmdBuild");
  EXPECT_EQ(Result(), std::string("x = 1\r\n") + kAdded + "\r\ny = 1\r\nif a then \r\nendif");
}

TEST_F(NodeEditsTest, WhatIsAddedAfterARecoveryLeavesTheEditsAlone) {
  Open("a = 1\r\nb = 1");
  AddSelect(5, 1);
  ClickOn("a = 1");
  Press(Qt::Key_Delete);
  TypeKeys("TxtOutput", "\nc = 1");
  KillWindow();
  OpenWindow();
  const auto recover = [this] {
    With([&] { EXPECT_TRUE(window().OpenRules(RulesPath())); }, {[this] {
           Dialog<RecoveryOffer>();
           Choose("Go On");
         }});
  };
  recover();
  const std::string edited = std::string("b = 1\r\n") + kAdded + "\r\nc = 1";
  ASSERT_EQ(Result(), edited);
  Click("cmdAddSelect");
  EXPECT_EQ(Result(), edited + "\r\n" + kAdded);
  // The composer ends before what was edited is put in again.
  KillWindow();
  QFile journal(In("orders.rules.journal"));
  ASSERT_TRUE(journal.open(QIODevice::ReadWrite));
  const QByteArray steps = journal.readAll();
  const qsizetype press = steps.lastIndexOf("cmdAddSelect");
  ASSERT_TRUE(journal.resize(steps.indexOf('\n', press) + 1));
  journal.close();
  OpenWindow();
  recover();
  EXPECT_EQ(Result(), edited + "\r\n" + kAdded);
}

TEST_F(NodeEditsTest, AnEditComesBackAfterAKill) {
  Open(RuleWith(kSelect));
  DoubleClickOn(kSelect, {AddField()});
  KillWindow();
  OpenWindow();
  With([&] { EXPECT_TRUE(window().OpenRules(RulesPath())); }, {[this] {
         Dialog<RecoveryOffer>();
         Choose("Go On");
       }});
  EXPECT_EQ(Result(), RuleWith(kChanged));
  EXPECT_TRUE(window().map().canUndo());
}

TEST_F(NodeEditsTest, AnEditThatIsUnderWayComesBackAfterAKill) {
  Open(RuleWith(kSelect));
  DoubleClickOn(kSelect, {[this] {
                  Click("lstFields", 2);
                  Click("cmdMoveOne");
                  EXPECT_TRUE(window().journal().WaitUntilKept(std::chrono::seconds(10)));
                  QFile::copy(In("orders.rules.journal"), In("kept"));
                  Click("cmdDone");
                }});
  CloseWindow();
  ASSERT_TRUE(QFile::rename(In("kept"), In("orders.rules.journal")));
  OpenWindow();
  With([&] { EXPECT_TRUE(window().OpenRules(RulesPath())); },
       {[this] {
          EXPECT_NE(Std(Dialog<RecoveryOffer>().findChild<QLabel*>()->text())
                        .find("Open: A > Edit Statement"),
                    std::string::npos);
          Choose("Go On");
        },
        [this] {
          Dialog<NodeComposer>();
          EXPECT_EQ(window().map().form().lstSelectedFields.ListCount(), 0);
          EXPECT_EQ(Dialog<NodeComposer>().map().form().lstSelectedFields.ListCount(), 2);
          Click("cmdDone");
        }});
  EXPECT_EQ(Result(), RuleWith(kChanged));
}

}  // namespace
}  // namespace zolt20::tests
