// Rules of several statements: the select statements that are found in them, and the way of such a
// rule through the window.
#include "hosts/composer/statements.h"

#include "tests/composer/composer_test.h"

namespace zolt20::tests {
namespace {

using composer::SelectStatementsOf;

// The statements of a rule, "LINE: TEXT".
Texts Found(std::string_view rule) {
  Texts texts;
  for (const composer::SelectStatement& statement : SelectStatementsOf(Wide(rule)))
    texts.push_back(std::to_string(statement.line) + ": " + Narrow(statement.text));
  return texts;
}

TEST(SelectStatementsTest, OneBehindTheOtherComesInTheirOrder) {
  EXPECT_EQ(Found("select A\r\nfrom  T\r\nendselect\r\nselect B\r\nfrom  U\r\nendselect"),
            (Texts{"1: select A\r\nfrom  T\r\nendselect", "4: select B\r\nfrom  U\r\nendselect"}));
}

TEST(SelectStatementsTest, OneWithinAnotherComesBehindItAtTheMargin) {
  EXPECT_EQ(Found("for i\r\n"
                  "\tselect A\r\n"
                  "\tselectdo\r\n"
                  "\t\tx = 1\r\n"
                  "\t\tselect B\r\n"
                  "\t\tselectempty\r\n"
                  "\t\t\ty = 2\r\n"
                  "\t\tendselect\r\n"
                  "\tendselect\r\n"
                  "endfor"),
            (Texts{"2: select A\r\n"
                   "selectdo\r\n"
                   "\tx = 1\r\n"
                   "\tselect B\r\n"
                   "\tselectempty\r\n"
                   "\t\ty = 2\r\n"
                   "\tendselect\r\n"
                   "endselect",
                   "5: select B\r\nselectempty\r\n\ty = 2\r\nendselect"}));
}

TEST(SelectStatementsTest, OneWithinAConditionAtTheSameMarginDoesNotEndTheOuterOne) {
  EXPECT_EQ(Found("select A\r\nwhere B IN (\r\nselect C\r\nendselect\r\n)\r\nendselect"),
            (Texts{"1: select A\r\nwhere B IN (\r\nselect C\r\nendselect\r\n)\r\nendselect",
                   "3: select C\r\nendselect"}));
}

TEST(SelectStatementsTest, OnlyWholeStatementsAndWholeWordsCount) {
  EXPECT_EQ(Found(""), Texts{});
  EXPECT_EQ(Found("select A\r\nfrom  T"), Texts{}) << "no end";
  EXPECT_EQ(Found("select A\r\n\tendselect"), Texts{}) << "the end stands deeper";
  EXPECT_EQ(Found("select A\r\nendselect "), Texts{}) << "a blank behind the end";
  EXPECT_EQ(Found("selectdo A\r\nendselect"), Texts{});
  EXPECT_EQ(Found("Select A\r\nendselect"), Texts{});
  EXPECT_EQ(Found(" select A\r\nendselect"), Texts{});
  EXPECT_EQ(Found("select A\nendselect"), Texts{}) << "no line break of the control";
  EXPECT_EQ(Found("\r\nselect A\r\nendselect\r\n"), (Texts{"2: select A\r\nendselect"}));
}

TEST(SelectStatementsTest, ALineThatStandsLessDeepLosesTheTabsItHas) {
  EXPECT_EQ(Found("\t\tselect A\r\n\twhere x\r\ny\r\n\t\tendselect"),
            (Texts{"1: select A\r\nwhere x\r\ny\r\nendselect"}));
}

// --- In the window

constexpr const char* kOrdersSelect = "select ORDERS__.O_ID\r\nfrom  ORDERS__\r\nendselect";
constexpr const char* kItemSelect =
    "select ITEM____.I_ID\r\n"
    "from  ITEM____\r\n"
    "where ITEM____.I_ID = :var.i\r\n"
    "selectdo\r\n"
    "\tx = \"1\"\r\n"
    "endselect";
// Both, the second within control flow.
constexpr const char* kFlow =
    "select ORDERS__.O_ID\r\n"
    "from  ORDERS__\r\n"
    "endselect\r\n"
    "for :var.i = 1 to 3\r\n"
    "\tselect ITEM____.I_ID\r\n"
    "\tfrom  ITEM____\r\n"
    "\twhere ITEM____.I_ID = :var.i\r\n"
    "\tselectdo\r\n"
    "\t\tx = \"1\"\r\n"
    "\tendselect\r\n"
    "endfor";
constexpr const char* kSeveralNote =
    "The rule is more than one select statement and stands in the Result. Add To Result on the "
    "Select List page adds behind it; on the pages after that it replaces what is there.";

class StatementsTest : public ComposerTest {};

TEST_F(StatementsTest, ARuleWithControlFlowOpensWithItsWholeTextInTheResult) {
  OpenRules({{u"Flow", Wide(kFlow), u"f"}});
  EXPECT_EQ(Heading(), "Flow");
  EXPECT_EQ(Result(), kFlow);
  EXPECT_EQ(Note(), kSeveralNote);
  EXPECT_EQ(Takeable(), (Texts{"1: select ORDERS__.O_ID", "5: select ITEM____.I_ID"}));
  EXPECT_FALSE(window().map().IsChanged());
  Click("cmdDone");
  EXPECT_EQ(Stored(), (Texts{std::string("Flow: ") + kFlow}));
}

TEST_F(StatementsTest, ATableThatTheCatalogueDoesNotHaveIsTold) {
  OpenRules({{u"Strange",
              u"select ORDERS__.O_ID,STRANGER.A\r\nfrom  STRANGER,ORDERS__\r\nendselect", u""}});
  EXPECT_EQ(Note(),
            "Line 2 will change: \"from  STRANGER,ORDERS__\" becomes \"from  ORDERS__\"\n"
            "Line 1, column 22: The catalogue has no table STRANGER.\n"
            "Line 2, column 7: The catalogue has no table STRANGER.");
}

TEST_F(StatementsTest, AnyTextComesIntoTheResultExactly) {
  for (const char* text : {"*zlt*x = 1\r\n\ty", "x = \"*zlt*\"\r\n\t\ty = `^ \r\nz", "  a  ",
                           "\xF0\x9F\x98\x80 = \"\xC3\xA4\"\r\n\r\n\tb\r\n"}) {
    QFile::remove(RulesPath());
    OpenWindow();
    OpenRules({{u"Any", Wide(text), u""}});
    EXPECT_EQ(Result(), text);
  }
}

TEST_F(StatementsTest, EachSelectStatementCanBeTakenAndAddedBehind) {
  OpenRules({{u"Flow", Wide(kFlow), u""}});
  TakeStatement(0);
  EXPECT_EQ(Result(), kFlow);
  EXPECT_EQ(Heading(), "Flow");
  Click("cmdAddSelect");
  EXPECT_EQ(Result(), std::string(kFlow) + "\r\n" + kOrdersSelect);

  TakeStatement(1, {Answer("Rule: What was composed for \"Flow\" is not stored.", "Discard")});
  EXPECT_EQ(Result(), kFlow);
  EXPECT_EQ(Text("txtwhereCondition"), "ITEM____.I_ID = :var.i");
  EXPECT_EQ(Text("txtSelectDo"), "x = \"1\"");
  Click("cmdAddSelect");
  EXPECT_EQ(Result(), std::string(kFlow) + "\r\n" + kItemSelect);
  Click("cmdDone");
  EXPECT_EQ(Takeable(), (Texts{"1: select ORDERS__.O_ID", "5: select ITEM____.I_ID",
                               "12: select ITEM____.I_ID"}));
  EXPECT_EQ(Stored(), (Texts{std::string("Flow: ") + kFlow + "\r\n" + kItemSelect}));
}

TEST_F(StatementsTest, TakingAStatementAsksForWhatIsNotStored) {
  const std::string question = "Rule: What was composed for \"Flow\" is not stored.";
  OpenRules({{u"Flow", Wide(kFlow), u""}});
  Type("TxtOutput", "x = 1");
  TakeStatement(0, {Answer(question, "Cancel")});
  EXPECT_EQ(Result(), "x = 1");
  EXPECT_TRUE(window().map().IsChanged());

  Type("TxtOutput", std::string(kFlow) + "\r\ny = 2");
  TakeStatement(0, {Answer(question, "Save")});
  EXPECT_EQ(Result(), std::string(kFlow) + "\r\ny = 2");
  EXPECT_FALSE(window().map().IsChanged());
  EXPECT_EQ(Stored(), (Texts{std::string("Flow: ") + kFlow + "\r\ny = 2"}));
}

TEST_F(StatementsTest, ASelectStatementAloneCanBeTakenOnceMore) {
  OpenRules({{u"Item", Wide(kItemSelect), u""}});
  EXPECT_EQ(Takeable(), (Texts{"1: select ITEM____.I_ID"}));
  TakeStatement(0);
  EXPECT_EQ(Result(), "");
  Click("cmdAddSelect");
  EXPECT_EQ(Result(), kItemSelect);
}

TEST_F(StatementsTest, ANewRuleHasNothingToTake) {
  OpenRules({{u"Item", Wide(kItemSelect), u""}});
  auto& button = *window().findChild<QPushButton*>(QStringLiteral("take"));
  EXPECT_TRUE(button.isEnabled());
  Menu("Rule", "New");
  EXPECT_FALSE(button.isEnabled());
  EXPECT_EQ(Takeable(), Texts{});
}

TEST_F(StatementsTest, AnAmpersandInAStatementIsShown) {
  OpenRules({{u"And", u"select A&B\r\nfrom  T\r\nendselect", u""}});
  ASSERT_EQ(Takeable(), (Texts{"1: select A&&B"})) << "the second is the one that is drawn";
}

TEST_F(StatementsTest, AStatementOfARuleThatCannotBeTakenBackBeginsANewRule) {
  const std::string text = std::string("x = ~\r\n") + kItemSelect;
  OpenRules({{u"Tilde", Wide(text), u""}});
  EXPECT_FALSE(window().map().isVisible());
  TakeStatement(0);
  EXPECT_TRUE(window().map().isVisible());
  EXPECT_EQ(Heading(), "New rule");
  EXPECT_EQ(Listed(), (Texts{"Tilde"}));
  Click("cmdAddSelect");
  StoreAs("New");
  EXPECT_EQ(Stored(), (Texts{"Tilde: " + text, std::string("New: ") + kItemSelect}));
}

TEST_F(StatementsTest, WhatDoesNotComeBackTheSameIsTold) {
  OpenRules({{u"Short",
              u"select ITEM____.I_ID\r\nfrom  ITEM____\r\nwhere \r\norder by A\r\n"
              u"as set with 5 rows \r\nselectdo\r\n\t \r\nendselect",
              u""}});
  EXPECT_EQ(Note(),
            "Line 3, column 7: a clause without a text does not come back\n"
            "Line 7, column 2: the text begins blank, and blank ends do not come back\n"
            "Line 7, column 2: a text of one character does not come back\n"
            "Line 3 will not come back: \"where \"\n"
            "Line 6 will not come back: \"selectdo / \t \"");
  EXPECT_EQ(Heading(), "Short");
}

TEST_F(StatementsTest, ATextThatNoPropertySendsComesOntoThePages) {
  const std::string text = "select ITEM____.I_ID\r\nfrom  ITEM____\r\nwhere a = \"~\"\r\nendselect";
  OpenRules({{u"Tilde", Wide(text), u""}});
  EXPECT_EQ(Heading(), "Tilde");
  EXPECT_EQ(Note(), "");
  EXPECT_EQ(Text("txtwhereCondition"), "a = \"~\"");
  EXPECT_FALSE(window().map().IsChanged());
  EXPECT_FALSE(window().map().canUndo()) << "opening is no step of the person's";
  Click("cmdAddSelect");
  Click("cmdDone");
  EXPECT_EQ(Stored(), Texts{"Tilde: " + text});
}

TEST_F(StatementsTest, OneControlFlowStatementOpensOnTheConditionPage) {
  const std::string text =
      "for :var.i = 1 to 3\r\n\tif :var.i > 2 then \r\n\t\tx = \"~\"\r\n\tendif\r\nendfor";
  OpenRules({{u"For", Wide(text), u""}});
  EXPECT_EQ(Note(), "");
  EXPECT_EQ(window().map().form().tabVrn.Tab(), 6);
  EXPECT_EQ(Std(window().journal().path()), "") << "there is nothing to bring back";
  EXPECT_EQ(Text("txtVariable"), ":var.i");
  EXPECT_EQ(Text("txtForStmt"), "if :var.i > 2 then \r\n\tx = \"~\"\r\nendif");
  EXPECT_FALSE(window().map().IsChanged());
  Click("cmdAdd");
  Click("cmdBuild");
  EXPECT_EQ(Result(), text);
  Click("cmdDone");
  EXPECT_EQ(Stored(), Texts{"For: " + text});
}

TEST_F(StatementsTest, TheSampleRulesAreStoredAsTheyWere) {
  const QString samples = Qs(Examples() + "/rules.json");
  ASSERT_TRUE(QFile::copy(samples, RulesPath()));
  const std::vector<composer::Rule> rules = composer::RulesFile::Open(samples).rules();
  ASSERT_EQ(rules.size(), 3U);
  OpenAgain();
  for (int rule = 0; rule < 3; ++rule) {
    ClickRule(rule);
    EXPECT_EQ(Result().empty(), rule < 2) << "two are one statement";
    if (rule < 2) Click("cmdAddSelect");
    EXPECT_EQ(Result(), Narrow(rules[static_cast<std::size_t>(rule)].text));
    Click("cmdDone");
    EXPECT_FALSE(window().map().IsChanged());
  }
  EXPECT_EQ(Stored(), StoredIn(samples));
}

}  // namespace
}  // namespace zolt20::tests
