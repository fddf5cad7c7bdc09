// A composer that ends in the middle, and the next one, which goes on where it was.
#include "hosts/composer/recovery.h"

#include <QDir>
#include <QPlainTextEdit>

#include "hosts/composer/requests.h"
#include "tests/composer/composer_test.h"

namespace zolt20::tests {
namespace {

using composer::NestedComposer;
using composer::RecordedMap;
using composer::RecoveryOffer;
using Json = nlohmann::ordered_json;

constexpr int kCustomer = 2;
constexpr int kOrders = 5;
constexpr int kFirstField = 1;
constexpr int kSelectDoPage = 2;

composer::Rule StoredRule() {
  return {u"Orders", u"select ORDERS__.O_ID\r\nfrom  ORDERS__\r\nendselect",
          u"long*Q*V*R*N*NORDERS__.O_ID*Q*V*R*N*"};
}

class RecoveryTest : public ComposerTest {
 protected:
  /// All that can be seen of a composer, and what it has done.
  static Json StateOf(RecordedMap& map) {
    return {{"form", automation::Dump(map.form())},
            {"page", Std(map.prpStrSQLPart())},
            {"undo", map.canUndo()},
            {"redo", map.canRedo()},
            {"changed", map.IsChanged()},
            {"record", map.Record().toStdString()}};
  }
  Json State() { return StateOf(window().map()); }

  void ExpectState(const Json& before) {
    const std::string difference = Json::diff(State(), before).dump();
    EXPECT_EQ(difference.substr(0, 1000), "[]");
  }
  /// The forms on the way of Undo to its end, as sums.
  std::vector<std::size_t> FormsBack() {
    std::vector<std::size_t> forms;
    while (window().map().canUndo()) {
      window().map().undo();
      forms.push_back(std::hash<std::string>()(State().dump()));
    }
    return forms;
  }

  /// The window after a new start, in which these dialogs come.
  void StartAgain(std::vector<Steps> dialogs) {
    window_ = std::make_unique<composer::MainWindow>();
    ASSERT_TRUE(window().OpenCatalogue(Qs(Examples() + "/catalogue.json")));
    ShowWindow(window());
    With([&] { EXPECT_TRUE(window().OpenRules(RulesPath())); }, std::move(dialogs));
  }
  std::string Title() { return Std(Dialog<NestedComposer>().windowTitle()); }
  std::string Offered() { return Std(Dialog<RecoveryOffer>().findChild<QLabel*>()->text()); }
  std::string OfferedText() {
    return Std(Dialog<RecoveryOffer>().findChild<QPlainTextEdit*>()->toPlainText());
  }
  Steps Press(const char* button) {
    return [this, button] {
      EXPECT_EQ(Told(), "Go On");
      Choose(button);
    };
  }
  QStringList Journals() const {
    return QDir(folder_.path()).entryList({QStringLiteral("*.journal")}, QDir::Files);
  }
  void ExpectNoJournal() {
    EXPECT_TRUE(window().journal().WaitUntilKept(std::chrono::seconds(10)));
    EXPECT_EQ(Journals(), QStringList());
  }
};

TEST_F(RecoveryTest, NothingIsKeptBeforeAnythingIsComposed) {
  OpenRules({StoredRule()});
  Focus("cmdAddSelect");
  Tab(1);
  Tab(0);
  ExpectNoJournal();
  EXPECT_FALSE(QDir(In("data")).exists());
  Click("lsttables", kCustomer);
  EXPECT_TRUE(window().journal().WaitUntilKept(std::chrono::seconds(10)));
  EXPECT_EQ(Journals(), QStringList{QStringLiteral("orders.rules.journal")});
}

TEST_F(RecoveryTest, AGestureIsOnTheDiskWithinASecondAndWithoutBeingAskedFor) {
  OpenRules();
  AddSelect(kCustomer, kFirstField);
  EXPECT_TRUE(QTest::qWaitFor(
      [this] {
        const auto session = composer::ReadJournal(QByteArray::fromStdString(
            Journals().isEmpty() ? "" : Bytes(In("orders.rules.journal"))));
        return session && session->steps.all().back().json.contains("cmdAddSelect");
      },
      1000));
}

TEST_F(RecoveryTest, WhatIsStoredLeavesNothingBehind) {
  OpenRules();
  AddSelect(kCustomer, kFirstField);
  StoreAs("Customers");
  ExpectNoJournal();
  Tab(1);
  ExpectNoJournal();
  KillWindow();
  StartAgain({});
  EXPECT_EQ(Heading(), "Customers");
}

TEST_F(RecoveryTest, WhatIsGivenUpLeavesNothingBehind) {
  OpenRules({StoredRule()});
  Type("TxtOutput", "x = 1");
  Menu("Rule", "New", {Answer("Rule: What was composed for \"Orders\" is not stored.", "Discard")});
  ExpectNoJournal();
  AddSelect(kCustomer, kFirstField);
  With([this] { window().close(); },
       {Answer("Rule: What was composed for \"New rule\" is not stored.", "Discard")});
  ExpectNoJournal();
}

TEST_F(RecoveryTest, ANewRuleComesBackWithPagesResultAndHistory) {
  OpenRules();
  AddSelect(kCustomer, kFirstField);
  Tab(kSelectDoPage);
  Type("txtSelectDo", ":var.a = 1");
  Click("undo");
  Type("txtSelectDo", ":var.b = \"x\"");
  Tab(1);
  TypeKeys("txtAsSet", "25");
  Click("undo");
  const Json before = State();
  EXPECT_TRUE(window().journal().WaitUntilKept(std::chrono::seconds(10)));
  ASSERT_TRUE(QFile::copy(In("orders.rules.journal"), In("kept")));
  const std::vector<std::size_t> back = FormsBack();
  CloseWindow();
  ASSERT_TRUE(QFile::rename(In("kept"), In("orders.rules.journal")));

  StartAgain({[this] {
    EXPECT_NE(Offered().find("Open: New rule"), std::string::npos) << Offered();
    EXPECT_NE(OfferedText().find("select CUSTOMER.C_ID"), std::string::npos) << OfferedText();
    EXPECT_TRUE(window().map().form().TxtOutput.Text().empty()) << "nothing has come back yet";
    Choose("Go On");
  }});
  ExpectState(before);
  window().map().redo();
  EXPECT_EQ(Text("txtAsSet"), "25");
  window().map().undo();
  EXPECT_EQ(FormsBack(), back);
}

TEST_F(RecoveryTest, AStoredRuleComesBackUnderItsName) {
  OpenRules({StoredRule()});
  Click("cmdAddSelect");
  Tab(1);
  const Json before = State();
  KillWindow();
  StartAgain({[this] {
    EXPECT_NE(Offered().find("Open: Orders"), std::string::npos) << Offered();
    Choose("Go On");
  }});
  EXPECT_EQ(Heading(), "Orders");
  ExpectState(before);
  Click("cmdDone");
  ExpectNoJournal();
}

TEST_F(RecoveryTest, WhatComesBackIsKeptAgain) {
  OpenRules();
  AddSelect(kCustomer, kFirstField);
  KillWindow();
  StartAgain({Press("Go On")});
  Tab(kSelectDoPage);
  Type("txtSelectDo", "a = 1");
  const Json before = State();
  KillWindow();
  StartAgain({Press("Go On")});
  ExpectState(before);
}

TEST_F(RecoveryTest, LaterKeepsItBesideANewOneAndDiscardDoesNot) {
  OpenRules();
  AddSelect(kCustomer, kFirstField);
  KillWindow();
  StartAgain({Press("Later")});
  EXPECT_EQ(Result(), "");
  AddSelect(kOrders, kFirstField);
  KillWindow();
  EXPECT_EQ(Journals(), (QStringList{QStringLiteral("orders.rules.2.journal"),
                                     QStringLiteral("orders.rules.journal")}));
  StartAgain({Press("Later"), Press("Later")});
  CloseWindow();
  StartAgain({Press("Discard"), Press("Discard")});
  EXPECT_EQ(Journals(), QStringList());
}

TEST_F(RecoveryTest, NestedComposersComeBackWithinTheirGestures) {
  OpenRules();
  AddSelect(kCustomer, kFirstField);
  Tab(kSelectDoPage);
  Json inner;
  ClickWith("cmdCondition(0)", {[&] {
              Click("optIfThen");
              Type("txtCond", ":var.n > 1");
              Focus("txtStmt1");
              ClickWith("cmdSubQuery(4)", {[&] {
                          AddSelect(kOrders, kFirstField);
                          inner = StateOf(Dialog<NestedComposer>().map());
                          EXPECT_TRUE(window().journal().WaitUntilKept(std::chrono::seconds(10)));
                          QFile::copy(In("orders.rules.journal"), In("kept"));
                          Click("cmdDone");
                        }});
              Click("cmdAdd");
              Click("cmdBuild");
              Click("cmdDone");
            }});
  Click("cmdAddSelectDoQuer");
  const std::string whole = Result();
  CloseWindow();
  ASSERT_TRUE(QFile::rename(In("kept"), In("orders.rules.journal")));

  StartAgain({[this] {
                EXPECT_NE(Offered().find(
                              "Open: New rule > Condition for SelectDo > Sub Query for Condition"),
                          std::string::npos)
                    << Offered();
                Choose("Go On");
              },
              [&] {  // both are open, the inner one on top
                EXPECT_EQ(Title(), "Sub Query for Condition");
                EXPECT_EQ(StateOf(Dialog<NestedComposer>().map()), inner);
                Click("cmdDone");
              },
              [&] {
                EXPECT_EQ(Title(), "Condition for SelectDo");
                EXPECT_NE(Text("txtStmt1").find("select ORDERS__.O_ID"), std::string::npos);
                Click("cmdAdd");
                Click("cmdBuild");
                Click("cmdDone");
              }});
  Click("cmdAddSelectDoQuer");
  EXPECT_EQ(Result(), whole);
}

}  // namespace
}  // namespace zolt20::tests
