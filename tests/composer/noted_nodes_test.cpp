// Notes on statements of the tree: written, shown, found, and kept with their statements.
#include <QAccessible>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>

#include "hosts/composer/find_in_rules.h"
#include "tests/composer/node_test.h"

namespace zolt20::tests {
namespace {

class NotedNodesTest : public NodeTest {
 protected:
  /// Writes a note by the key of the menu entry.
  void NoteOn(const char* head, const char* note) {
    ClickOn(head);
    With([this] { Press(Qt::Key_F2, Qt::ShiftModifier); }, {[this, head, note] {
           EXPECT_EQ(Std(Dialog().findChild<QLabel*>()->text()),
                     std::string("Note of \"") + head + "\"");
           auto& box = *Dialog().findChild<QPlainTextEdit*>();
           QTest::keySequence(&box, QKeySequence(QKeySequence::SelectAll));
           QTest::keyClick(&box, Qt::Key_Delete);
           QTest::keyClicks(&box, QString::fromUtf8(note));
           Choose("OK");
         }});
    window().activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
  }
  /// "head: note" of each row that has one, in the order of the tree.
  Texts Noted() {
    Pane().Refresh();
    Texts noted;
    const QAbstractItemModel& model = *Tree().model();
    for (const QModelIndex& row :
         model.match(model.index(0, 0), composer::StatementModel::kNoteRole, QStringLiteral("."),
                     -1, Qt::MatchRegularExpression | Qt::MatchRecursive)) {
      noted.push_back(Std(row.data().toString() + QStringLiteral(": ") +
                          row.data(composer::StatementModel::kNoteRole).toString()));
    }
    return noted;
  }
  std::string RuleTold() {
    Rest();
    for (const QLabel* label : window().findChildren<QLabel*>(QStringLiteral("ruleTold")))
      if (label->isVisible()) return Std(label->text());
    return {};
  }
  void Undo() { Press(Qt::Key_Z, Qt::ControlModifier); }
  /// What is on the disk, after the window is closed.
  composer::Rule StoredRule() {
    CloseWindow();
    return composer::RulesFile::Open(RulesPath()).rules()[0];
  }
};

constexpr const char* kFor = "for i = 1 to 2\r\n\tb = 1\r\n\tc = 1\r\nendfor";

TEST_F(NotedNodesTest, ANoteIsWrittenShownStoredAndOpenedAgain) {
  Open(kFor);
  NoteOn("c = 1", "why it is so");
  EXPECT_EQ(Noted(), Texts{"c = 1: why it is so"});
  EXPECT_TRUE(window().map().IsChanged());
  EXPECT_NE(Std(Row("c = 1").data(Qt::ToolTipRole).toString()).find("Note: why it is so"),
            std::string::npos);
  EXPECT_NE(
      Std(Row("c = 1").data(Qt::AccessibleDescriptionRole).toString()).find("Note: why it is so"),
      std::string::npos);
  EXPECT_EQ(Std(Row("b = 1").data(Qt::AccessibleDescriptionRole).toString()).find("Note"),
            std::string::npos);
  Press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_FALSE(window().map().IsChanged());
  OpenAgain();
  EXPECT_EQ(Noted(), Texts{"c = 1: why it is so"});
  EXPECT_FALSE(window().map().IsChanged());
  EXPECT_EQ(StoredRule().notes,
            (std::vector<language::NodeNote>{{{0, 2}, u"c = 1", u"why it is so"}}));
}

TEST_F(NotedNodesTest, ANoteOfAStatementOnThePagesIsStoredAlone) {
  Open("select ORDERS__.O_ID\r\nfrom  ORDERS__\r\nendselect");
  ASSERT_EQ(Result(), "");
  NoteOn("from ORDERS__", "all of them");
  Press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_FALSE(window().map().IsChanged());
  const composer::Rule stored = StoredRule();
  EXPECT_EQ(Narrow(stored.text), "select ORDERS__.O_ID\r\nfrom  ORDERS__\r\nendselect");
  ASSERT_EQ(stored.notes.size(), 1U);
}

TEST_F(NotedNodesTest, UndoTakesANoteBackAndRedoBringsIt) {
  Open(kFor);
  NoteOn("c = 1", "first");
  NoteOn("c = 1", "second");
  EXPECT_EQ(Noted(), Texts{"c = 1: second"});
  Undo();
  EXPECT_EQ(Noted(), Texts{"c = 1: first"});
  Undo();
  EXPECT_EQ(Noted(), Texts{});
  EXPECT_FALSE(window().map().IsChanged());
  Press(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(Noted(), Texts{"c = 1: first"});
  NoteOn("c = 1", "");
  EXPECT_EQ(Noted(), Texts{});
}

TEST_F(NotedNodesTest, ItStaysThroughMovesCopiesAndEdits) {
  Open("a = 1\r\nx = 1\r\na = 1\r\n" + RuleWith(kSelect));
  NoteOn(kSelect, "n");
  DoubleClickOn(kSelect, {AddField()});
  EXPECT_EQ(Noted(), Texts{std::string(kChanged) + ": n"});
  Press(Qt::Key_Up, Qt::AltModifier);
  EXPECT_EQ(Noted(), Texts{std::string(kChanged) + ": n"});
  Press(Qt::Key_C, Qt::ControlModifier);
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Noted(), Texts{std::string(kChanged) + ": n"}) << "the copy has none";
  NoteOn("a = 1", "first");
  Press(Qt::Key_Down, Qt::AltModifier);
  EXPECT_EQ(Result().substr(0, 21), "x = 1\r\na = 1\r\na = 1\r\n");
  EXPECT_EQ(window().map().NodeNotes()[0].path, std::vector<std::uint32_t>{1}) << "of two alike";
  TypeKeys("TxtOutput", "\nlast = 1");
  EXPECT_EQ(Noted(), (Texts{"a = 1: first", std::string(kChanged) + ": n"}));
  Type("TxtOutput", "z = 1\r\n" + Result());
  EXPECT_EQ(Noted(), (Texts{"a = 1: first", std::string(kChanged) + ": n"}));
}

TEST_F(NotedNodesTest, OfAStatementThatIsDeletedItBecomesANoteOfTheRule) {
  Open(kFor);
  NoteOn("c = 1", "n");
  Press(Qt::Key_Delete);
  EXPECT_EQ(Noted(), Texts{});
  EXPECT_EQ(Status(), "The note of \"c = 1\" is a note of the rule now.");
  EXPECT_EQ(RuleTold(), "c = 1: n");
  Undo();
  EXPECT_EQ(Noted(), Texts{"c = 1: n"});
  EXPECT_EQ(RuleTold(), "");
  // Cut and pasted it is there again.
  ClickOn("c = 1");
  Press(Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(Noted(), Texts{});
  ClickOn("for i = 1 to 2");
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Noted(), Texts{"c = 1: n"});
  ClickOn("c = 1");
  Press(Qt::Key_Delete);
  Press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Narrow(window().rules()->NoteOf(u"A")), "c = 1: n");
  EXPECT_EQ(RuleTold(), "c = 1: n") << "once";
  EXPECT_TRUE(StoredRule().notes.empty());
}

TEST_F(NotedNodesTest, TypingCarriesItAlongAndTellsWhenItsStatementGoes) {
  Open(kFor);
  NoteOn("c = 1", "n");
  Type("TxtOutput", "x = 1\r\nfor i = 1 to 2\r\n\tb = 1\r\n\tc = 2\r\nendfor");
  EXPECT_EQ(Noted(), Texts{"c = 2: n"});
  Type("TxtOutput", "x = 1");
  EXPECT_EQ(Noted(), Texts{});
  EXPECT_EQ(Status(), "The note of \"c = 2\" is a note of the rule now.");
  Undo();
  EXPECT_EQ(Noted(), Texts{"c = 2: n"});
  Undo();
  EXPECT_EQ(Noted(), Texts{"c = 1: n"});
}

TEST_F(NotedNodesTest, VersionsHaveTheNotesThatTheyHad) {
  Open(kFor);
  NoteOn("c = 1", "old");
  Press(Qt::Key_S, Qt::ControlModifier);
  NoteOn("c = 1", "new");
  Type("TxtOutput", "c = 1");
  Press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Noted(), Texts{"c = 1: new"});
  ASSERT_EQ(window().rules()->VersionsOf(u"A").size(), 1U);
  EXPECT_EQ(Narrow(window().rules()->VersionsOf(u"A")[0].notes.at(0).note), "old");
  Menu("Rule", "Versions...", {[this] {
         auto& list = *Dialog().findChild<QListWidget*>(QStringLiteral("versions"));
         list.setCurrentRow(1);
         Choose("Bring Back");
       }});
  EXPECT_EQ(Narrow(window().rules()->Find(u"A")->text), kFor);
  EXPECT_EQ(Noted(), Texts{"c = 1: old"});
}

TEST_F(NotedNodesTest, ItComesBackAfterAKill) {
  Open(kFor);
  NoteOn("c = 1", "n");
  ClickOn("b = 1");
  Press(Qt::Key_Delete);
  TypeKeys("TxtOutput", "\nlast = 1");
  Recover();
  EXPECT_EQ(Noted(), Texts{"c = 1: n"});
  EXPECT_TRUE(window().map().IsChanged());
  for (int steps = 0; steps < 9 && window().map().canUndo(); ++steps)
    window().map().undo();
  EXPECT_EQ(Noted(), Texts{});
  EXPECT_FALSE(window().map().IsChanged());
}

TEST_F(NotedNodesTest, ItIsKeptWhenTheTextIsStoredInMemoryAlone) {
  Open(kFor);
  NoteOn("c = 1", "n");
  Press(Qt::Key_S, Qt::ControlModifier);
  NoteOn("b = 1", "m");
  Recover();
  EXPECT_EQ(Noted(), (Texts{"b = 1: m", "c = 1: n"}));
}

TEST_F(NotedNodesTest, ARuleIsNotLeftWithoutAWordAboutItsNotes) {
  OpenRules({{u"A", Wide(kFor), u""}, {u"B", u"b = 1", u""}});
  NoteOn("c = 1", "n");
  ClickRule(1, {[this] {
              EXPECT_EQ(Told(), "Rule: What was composed for \"A\" is not stored.");
              EXPECT_EQ(Std(Dialog<QMessageBox>().informativeText()),
                        "Notes of statements are others now.");
              Choose("Save");
            }});
  EXPECT_EQ(Heading(), "B");
  EXPECT_EQ(Noted(), Texts{});
  ClickRule(0);
  EXPECT_EQ(Noted(), Texts{"c = 1: n"});
}

TEST_F(NotedNodesTest, FindInRulesFindsNotesAndLeadsToTheirStatements) {
  Open(kFor);
  NoteOn("c = 1", "look Here");
  Press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  auto& find = *window().findChild<composer::FindWindow*>();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&find));
  QTest::keySequence(find.windowHandle(), QKeySequence(QStringLiteral("h, e, r, e")));
  QTest::keyClick(find.windowHandle(), Qt::Key_Return);
  const auto& list = *find.findChild<QListWidget*>(QStringLiteral("found"));
  ASSERT_EQ(list.count(), 1);
  EXPECT_EQ(Std(list.item(0)->text()), "A, line 3: Note: look Here");
  EXPECT_EQ(Std(Tree().currentIndex().data().toString()), "c = 1");
  find.close();
}

}  // namespace
}  // namespace zolt20::tests
