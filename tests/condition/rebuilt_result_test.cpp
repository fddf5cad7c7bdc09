// The Result as Build Condition leaves it: one sequence of select statements, heads, closing texts
// and the host's texts, rewritten as a whole.
#include <string>

#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

class RebuiltResultTest : public ControlTest {
 protected:
  /// A catalogue of one table with its field chosen, and the Condition page.
  void Open() {
    Catalogue("CUSTOMER0", Field("NCUSTOMER.A"));
    Mark("lsttables", 0);
    Mark("lstFields", 1);  // behind the whole table
    Click("cmdMoveOne");
    Tab(6);
  }

  /// A further select statement, from the Condition page and back.
  void AddSelect() {
    Tab(0);
    Click("cmdAddSelect");
    Tab(6);
  }

  /// Gives the select statement that was added last a row limit of 50.
  void RewriteWithLimit() {
    Tab(1);
    Key("txtAsSet", '5');
    Key("txtAsSet", '0');
    Click("cmdAddWhereQuery");
    Tab(6);
  }

  // A pass each.
  void AddIf(std::string_view condition, std::string_view statement) {
    Click("optIfThen");
    Type("txtCond", condition);
    Type("txtStmt1", statement);
    Click("cmdAdd");
  }
  void AddWhile(std::string_view condition, std::string_view statement) {
    Click("optwhile");
    Type("txtWhlCnd", condition);
    Type("txtWhlStm", statement);
    Click("cmdAdd");
  }
  void AddRepeat(std::string_view condition) {
    Click("optRepeat");
    Type("txtRepCnd", condition);
    Click("cmdAdd");
  }
  void AddEmptyCase() {
    Click("optCase");
    Click("cmdAdd");
  }

  void Build() { Click("cmdBuild"); }
};

// Select statements among the constructs.

TEST_F(RebuiltResultTest, AConstructFollowsASelectStatement) {
  Open();
  AddSelect();
  AddIf("a", "x");
  Build();
  EXPECT_EQ(Result(),
            "select CUSTOMER.A\r\nfrom  CUSTOMER\r\nendselect"
            "\r\nif a then \r\n\tx"
            "\r\nendif");
}

TEST_F(RebuiltResultTest, ASelectStatementFollowsAConstruct) {
  Open();
  AddIf("a", "x");
  Build();
  AddSelect();
  EXPECT_EQ(Result(),
            "if a then \r\n\tx"
            "\r\nendif"
            "\r\nselect CUSTOMER.A\r\nfrom  CUSTOMER\r\nendselect");
}

TEST_F(RebuiltResultTest, ASelectStatementInsideAConstructStandsAtTheMarginAndTheClosersBehindIt) {
  Open();
  AddWhile("c", "s");
  AddIf("a", "x");
  AddSelect();
  Build();
  EXPECT_EQ(Result(),
            "while c\r\n\ts"
            "\r\n\tif a then \r\n\t\tx"
            "\r\nselect CUSTOMER.A\r\nfrom  CUSTOMER\r\nendselect"
            "\r\n\tendif"
            "\r\nendwhile");
}

TEST_F(RebuiltResultTest, ASelectStatementInsideAConstructDoesNotDeepenIt) {
  Open();
  AddIf("a", "x");
  AddSelect();
  AddIf("b", "y");
  Build();
  EXPECT_EQ(Result(),
            "if a then \r\n\tx"
            "\r\nselect CUSTOMER.A\r\nfrom  CUSTOMER\r\nendselect"
            "\r\n\tif b then \r\n\t\ty"
            "\r\n\tendif"
            "\r\nendif");
}

TEST_F(RebuiltResultTest, ASelectStatementIsRewrittenInItsPlaceAfterTheConstructAroundItIsBuilt) {
  Open();
  AddIf("a", "x");
  AddSelect();
  Build();
  RewriteWithLimit();
  EXPECT_EQ(Result(),
            "if a then \r\n\tx"
            "\r\nselect CUSTOMER.A\r\nfrom  CUSTOMER\r\nas set with 50 rows \r\nendselect"
            "\r\nendif");
}

TEST_F(RebuiltResultTest, AFirstSelectStatementIsRewrittenInItsPlaceBeforeTheConstructIsBuilt) {
  Open();
  AddSelect();
  AddIf("a", "x");
  RewriteWithLimit();
  Build();
  EXPECT_EQ(Result(),
            "select CUSTOMER.A\r\nfrom  CUSTOMER\r\nas set with 50 rows \r\nendselect"
            "\r\nif a then \r\n\tx"
            "\r\nendif");
}

TEST_F(RebuiltResultTest, TheEmptyPlaceBehindARepeatDoesNotShow) {
  Open();
  AddRepeat("p");
  AddSelect();
  AddRepeat("q");
  Build();
  AddSelect();
  EXPECT_EQ(Result(),
            "repeat "
            "\r\nselect CUSTOMER.A\r\nfrom  CUSTOMER\r\nendselect"
            "\r\n\trepeat "
            "\r\n\tUntil  ( q )"
            "\r\nUntil  ( p )"
            "\r\nselect CUSTOMER.A\r\nfrom  CUSTOMER\r\nendselect");
}

TEST_F(RebuiltResultTest, TheFieldsAreReadWhereTheSelectStatementComesFirst) {
  Open();
  AddSelect();
  AddIf("a", "x");
  Build();
  EXPECT_EQ(Narrow(host().prpstrSelectedFields()), Field("NCUSTOMER.A"));
}

TEST_F(RebuiltResultTest, NoFieldsAreReadWhereAConstructComesFirst) {
  Open();
  AddIf("a", "x");
  Build();
  AddSelect();
  EXPECT_EQ(Narrow(host().prpstrSelectedFields()), "");
}

// Reading the Result, and the host's texts.

TEST_F(RebuiltResultTest, ReadInTheMiddleOfNestingItIsIndentedUntilTheNextClosingText) {
  Open();
  AddIf("a", "x");
  AddWhile("c", "s");
  EXPECT_EQ(Narrow(host().prpStroutput()), "if a then \r\n\t\tx\r\n\t\twhile c\r\n\t\t\ts");
  Build();
  EXPECT_EQ(Narrow(host().prpStroutput()),
            "if a then \r\n\tx\r\n\twhile c\r\n\t\ts\r\n\tendwhile\r\nendif");
}

TEST_F(RebuiltResultTest, ReadAtABaseDepthItIsIndentedBeforeAndNotAfter) {
  Open();
  host().prpintTabcount(2);
  AddIf("a", "x");
  EXPECT_EQ(Narrow(host().prpStroutput()), "\t\tif a then \r\n\t\t\t\tx");
  EXPECT_EQ(Narrow(host().prpStroutput()), "\t\tif a then \r\n\t\t\t\t\tx");
  Build();
  EXPECT_EQ(Narrow(host().prpStroutput()), "\t\tif a then \r\n\t\t\tx\r\n\t\tendif");
}

TEST_F(RebuiltResultTest, ATextOfTheHostInsideAConstructRepeatsWhatStandsBeforeIt) {
  Open();
  AddIf("a", "x");
  host().prpStroutput(u"q");
  EXPECT_EQ(Result(), "if a then \r\n\tx\r\n\tq");
  Build();
  EXPECT_EQ(Result(),
            "if a then \r\n\tx"
            "if a then \r\n\tx\r\n\tq"
            "\r\nendif");
}

TEST_F(RebuiltResultTest, ATextOfTheHostBehindABuiltConstructIsIndentedByATab) {
  Open();
  AddIf("a", "x");
  Build();
  host().prpStroutput(u"q~r");
  EXPECT_EQ(Result(), "if a then \r\n\tx\r\nendif\r\n\tq\r\n\tr");
}

TEST_F(RebuiltResultTest, TextTypedByHandIsLostWhereAClosingTextIsWritten) {
  Open();
  AddIf("a", "x");
  Type("TxtOutput", "by hand");
  Build();
  EXPECT_EQ(Result(), "if a then \r\n\tx\r\nendif");
}

TEST_F(RebuiltResultTest, TextTypedByHandStaysWhereNoClosingTextIsWritten) {
  Open();
  AddEmptyCase();
  Type("TxtOutput", "by hand");
  Build();
  EXPECT_EQ(Result(), "by hand");
}

TEST_F(RebuiltResultTest, AfterBuildTextTypedByHandDoesNotDeepenTheNextPass) {
  Open();
  AddEmptyCase();
  Build();
  Type("TxtOutput", "by hand");
  AddIf("a", "x");
  Build();
  EXPECT_EQ(Result(), "if a then \r\n\tx\r\nendif");
}

// Clear.

TEST_F(RebuiltResultTest, AConstructAfterClearHasNoEntryOfTheOneBefore) {
  Open();
  AddIf("a", "x");
  AddWhile("c", "s");
  Click("cmdClear");
  EXPECT_FALSE(Enabled("cmdBuild"));
  AddIf("b", "y");
  Build();
  EXPECT_EQ(Result(), "if b then \r\n\ty\r\nendif");
}

TEST_F(RebuiltResultTest, AConstructAfterClearAndBuildIsTheWholeResult) {
  Open();
  AddSelect();
  AddIf("a", "x");
  Build();
  Click("cmdClear");
  AddWhile("c", "s");
  Build();
  EXPECT_EQ(Result(), "while c\r\n\ts\r\nendwhile");
}

TEST_F(RebuiltResultTest, AfterClearPassesStillCountUntilBuild) {
  Open();
  AddIf("a", "x");
  Click("cmdClear");
  AddSelect();
  AddIf("b", "y");
  Build();
  AddWhile("c", "s");
  Build();
  EXPECT_EQ(Result(),
            "select CUSTOMER.A\r\nfrom  CUSTOMER\r\nendselect"
            "\r\n\tif b then \r\n\t\ty"
            "\r\n\tendif"
            "\r\nwhile c\r\n\ts"
            "\r\nendwhile");
}

TEST_F(RebuiltResultTest, ClearOfTheBoxAloneBringsAllEntriesBackWithTheClosingText) {
  Open();
  AddSelect();
  AddIf("a", "x");
  host().ClearAll(6);
  EXPECT_EQ(Result(), "");
  Build();
  EXPECT_EQ(Result(),
            "select CUSTOMER.A\r\nfrom  CUSTOMER\r\nendselect"
            "\r\nif a then \r\n\tx"
            "\r\nendif");
}

TEST_F(RebuiltResultTest, ConstructsAndSelectStatementsOfALongSession) {
  Open();
  AddSelect();
  AddIf("a", "x");
  AddRepeat("p");
  Build();
  AddSelect();
  AddWhile("c", "s");
  Build();
  RewriteWithLimit();
  EXPECT_EQ(Result(),
            "select CUSTOMER.A\r\nfrom  CUSTOMER\r\nendselect"
            "\r\nif a then \r\n\tx"
            "\r\n\trepeat "
            "\r\n\tUntil  ( p )"
            "\r\nendif"
            "\r\nselect CUSTOMER.A\r\nfrom  CUSTOMER\r\nas set with 50 rows \r\nendselect"
            "\r\nwhile c\r\n\ts"
            "\r\nendwhile");
}

}  // namespace
}  // namespace zolt20::tests
