// The two order lists, the row limit, and when the Where page's Add To Result can be clicked.
#include <ostream>
#include <string>
#include <tuple>

#include "tests/support/control_test.h"
#include "tests/support/silent.h"

namespace zolt20::tests {
namespace {

const char* const kNoWhereField = "Where Field is not selected";

// Keeps the marks of the order lists and the switching of the button, in order.
class MarkLog final : public SilentObserver {
 public:
  void ControlChanged(const Control& control, Property property) noexcept override {
    if (property != Property::kEnabled || control.name() != "cmdAddWhereQuery") return;
    steps.emplace_back(control.Enabled() ? "button on" : "button off");
  }
  void MarksChanged(const Control& list, int first, int /*count*/) noexcept override {
    const bool marked = dynamic_cast<const ListBox&>(list).Selected(first);
    steps.push_back((list.name() == "lstorderbyasc" ? "asc " : "desc ") + std::to_string(first) +
                    (marked ? " on" : " off"));
  }

  Texts steps;
};

class OrderingTest : public ControlTest {
 protected:
  /// Opens the Where page with four rows in each order list, those of the table's indexes.
  void Open() {
    Catalogue("CUSTOMER4", Field("NCUSTOMER.A"));
    Mark("lsttables", 0);
    Tab(1);
  }

  /// Opens the Where page with these fields chosen and a first statement in the Result.
  void OpenWithFields(const Texts& fields) {
    Texts records;
    for (const std::string& field : fields)
      records.push_back(Field("N" + field));
    Catalogue("CUSTOMER0", List(records));
    Mark("lsttables", 0);
    for (std::size_t i = 0; i < fields.size(); ++i) {
      Mark("lstFields", static_cast<int>(i) + 1);  // behind the whole table
      Click("cmdMoveOne");
    }
    Click("cmdAddSelect");
    Tab(1);
    ASSERT_EQ(Rows("lstorderbyasc"), fields);
  }

  /// A click on a row that takes its mark away.
  void Unmark(std::string_view list, int row) { Click(list, row); }

  /// Turns the button on and changes no control that decides about it.
  void TurnButtonOn() {
    Click("cmdAnd");
    EXPECT_EQ(Log(), Texts{ErrorMessage(kNoWhereField)});
    ASSERT_TRUE(Enabled("cmdAddWhereQuery"));
  }

  /// What a click on the row does to marks and button, in order.
  Texts StepsOfClick(std::string_view list, int row) {
    MarkLog log;
    host().AddObserver(log);
    Click(list, row);
    host().RemoveObserver(log);
    return log.steps;
  }

  /// The marks of both lists, ascending first.
  std::vector<RowNumbers> Marks() {
    return {MarkedRows("lstorderbyasc"), MarkedRows("lstorderbydesc")};
  }

  bool Button() { return Enabled("cmdAddWhereQuery"); }

  /// Gives a row of the descending list another text, which neither a person nor a host can do.
  void RenameDescendingRow(int row) {
    auto& list = const_cast<ListBox&>(dynamic_cast<const ListBox&>(On("lstorderbydesc")));
    while (list.ListCount() > row)
      list.RemoveItem(row);
    for (int next = row; next < 4; ++next)
      list.AddItem(u"another row");
  }
};

using Both = std::vector<RowNumbers>;

// The two lists.

TEST_F(OrderingTest, AtTheStartNothingIsMarkedAndTheButtonIsOff) {
  Open();
  EXPECT_EQ(Marks(), (Both{{}, {}}));
  EXPECT_FALSE(Button());
}

TEST_F(OrderingTest, DifferentRowsMayBeMarkedInTheTwoLists) {
  Open();
  Mark("lstorderbyasc", 0);
  Mark("lstorderbydesc", 1);
  Mark("lstorderbyasc", 3);
  EXPECT_EQ(Marks(), (Both{{0, 3}, {1}}));
  EXPECT_TRUE(Button());
}

TEST_F(OrderingTest, ARowMarkedDescendingKeepsThatMarkAgainstAnAscendingOne) {
  Open();
  Mark("lstorderbydesc", 2);
  EXPECT_EQ(StepsOfClick("lstorderbyasc", 2),
            (Texts{"asc 2 on", "asc 2 off", "desc 2 off", "button off", "desc 2 on", "button on",
                   "button off"}));
  EXPECT_EQ(Marks(), (Both{{}, {2}}));
  EXPECT_FALSE(Button());
}

TEST_F(OrderingTest, ARowMarkedAscendingKeepsThatMarkAgainstADescendingOne) {
  Open();
  Mark("lstorderbyasc", 2);
  EXPECT_EQ(StepsOfClick("lstorderbydesc", 2), (Texts{"desc 2 on", "desc 2 off"}));
  EXPECT_EQ(Marks(), (Both{{2}, {}}));
  EXPECT_TRUE(Button());
}

TEST_F(OrderingTest, TheMarkThatWinsLeavesTheOtherRowsAsTheyAre) {
  Open();
  Mark("lstorderbydesc", 2);
  Mark("lstorderbyasc", 1);
  Mark("lstorderbydesc", 3);
  Mark("lstorderbyasc", 2);
  EXPECT_EQ(Marks(), (Both{{1}, {2, 3}}));
  Mark("lstorderbydesc", 1);
  EXPECT_EQ(Marks(), (Both{{1}, {2, 3}}));
  EXPECT_TRUE(Button());
}

TEST_F(OrderingTest, AMarkInAFreeRowSetsTheButtonAndNothingElse) {
  Open();
  EXPECT_EQ(StepsOfClick("lstorderbyasc", 0), (Texts{"asc 0 on", "button on"}));
  EXPECT_EQ(StepsOfClick("lstorderbydesc", 1), Texts{"desc 1 on"});
}

TEST_F(OrderingTest, UnmarkingAnAscendingRowSetsTheButtonAndNothingElse) {
  Open();
  Mark("lstorderbyasc", 0);
  EXPECT_EQ(StepsOfClick("lstorderbyasc", 0), (Texts{"asc 0 off", "button off"}));
}

TEST_F(OrderingTest, UnmarkingADescendingRowSetsTheButtonAndNothingElse) {
  Open();
  Mark("lstorderbydesc", 0);
  EXPECT_EQ(StepsOfClick("lstorderbydesc", 0), (Texts{"desc 0 off", "button off"}));
}

TEST_F(OrderingTest, UnmarkingTheLastAscendingRowTurnsTheButtonOffBesideADescendingMark) {
  Open();
  Mark("lstorderbydesc", 1);
  Mark("lstorderbyasc", 0);
  Unmark("lstorderbyasc", 0);
  EXPECT_EQ(Marks(), (Both{{}, {1}}));
  EXPECT_FALSE(Button());
}

TEST_F(OrderingTest, UnmarkingTheLastDescendingRowKeepsTheButtonOnBesideAnAscendingMark) {
  Open();
  Mark("lstorderbyasc", 0);
  Mark("lstorderbydesc", 1);
  Unmark("lstorderbydesc", 1);
  EXPECT_EQ(Marks(), (Both{{0}, {}}));
  EXPECT_TRUE(Button());
}

TEST_F(OrderingTest, RowsOfDifferentTextsMayBothBeMarked) {
  Open();
  RenameDescendingRow(2);
  Mark("lstorderbydesc", 2);
  Mark("lstorderbyasc", 2);
  Mark("lstorderbyasc", 3);
  Mark("lstorderbydesc", 3);
  EXPECT_EQ(Marks(), (Both{{2, 3}, {2, 3}}));
}

TEST_F(OrderingTest, UnmarkingAnAscendingRowUnmarksTheDescendingOneWhateverItsText) {
  Open();
  RenameDescendingRow(2);
  Mark("lstorderbydesc", 2);
  Mark("lstorderbyasc", 2);
  EXPECT_EQ(StepsOfClick("lstorderbyasc", 2), (Texts{"asc 2 off", "desc 2 off", "button off"}));
}

TEST_F(OrderingTest, UnmarkingADescendingRowLeavesTheAscendingOneMarked) {
  Open();
  RenameDescendingRow(2);
  Mark("lstorderbyasc", 2);
  Mark("lstorderbydesc", 2);
  EXPECT_EQ(StepsOfClick("lstorderbydesc", 2), Texts{"desc 2 off"});
  EXPECT_EQ(Marks(), (Both{{2}, {}}));
}

TEST_F(OrderingTest, MarksWrittenByTheHostsOrderFieldsRunTheSameRules) {
  Open();
  host().prpSelectOrderbyPart(
      u"CUSTOMER._index2 desc,CUSTOMER._index2,CUSTOMER._index1,CUSTOMER._index1 desc");
  EXPECT_EQ(Log(), Texts{"changed prpSelectOrderbyPart"});
  EXPECT_EQ(Marks(), (Both{{0}, {1}}));
  EXPECT_TRUE(Button());
}

TEST_F(OrderingTest, AFunctionTakesAllMarksAndShutsTheListsUntilItLeaves) {
  Open();
  Mark("lstorderbydesc", 1);
  ASSERT_TRUE(Button());
  Tab(0);
  Mark("lstFunctions", 0);
  Click("cmdMoveOne");
  Tab(1);
  EXPECT_EQ(Marks(), (Both{{}, {}}));
  EXPECT_FALSE(Button());
  EXPECT_EQ(host().UserClick(On("lstorderbyasc"), 0), Outcome::kNotEnabled);
  EXPECT_EQ(host().UserClick(On("lstorderbydesc"), 0), Outcome::kNotEnabled);
  Tab(0);
  Click("cmdRemoveAll");
  Tab(1);
  Mark("lstorderbydesc", 0);
  EXPECT_TRUE(Button());
}

// The button.

enum class Handler {
  kDescendingMark,
  kAscendingMark,
  kWhereText,
  kCancel,
  kClear,
  kKey,
};

std::ostream& operator<<(std::ostream& out, Handler handler) {
  constexpr const char* kNames[] = {"DescendingMark", "AscendingMark", "WhereText",
                                    "Cancel",         "Clear",         "Key"};
  return out << kNames[static_cast<int>(handler)];
}

// Handler, an ascending mark, a descending mark, a row limit, a where text: as the handler finds
// them.
using Situation = std::tuple<Handler, bool, bool, bool, bool>;

class ButtonRuleTest : public OrderingTest, public ::testing::WithParamInterface<Situation> {};

TEST_P(ButtonRuleTest, OnlyTheDescendingListsOwnHandlerCountsItsMarks) {
  const auto [handler, ascending, descending, limit, where] = GetParam();
  const bool byAscending = handler == Handler::kAscendingMark;
  const bool byDescending = handler == Handler::kDescendingMark;
  const bool byWhereText = handler == Handler::kWhereText;
  Open();
  // Everything but what the handler's own event changes; for it, the opposite.
  if (ascending != byAscending) Mark("lstorderbyasc", byAscending ? 1 : 0);
  if (descending != byDescending) Mark("lstorderbydesc", byDescending ? 3 : 2);
  if (limit) Type("txtAsSet", "5");
  if (where != byWhereText) Type("txtwhereCondition", "x");
  TurnButtonOn();

  switch (handler) {
    case Handler::kDescendingMark:
      Click("lstorderbydesc", descending ? 2 : 3);
      break;
    case Handler::kAscendingMark:
      Click("lstorderbyasc", ascending ? 0 : 1);
      break;
    case Handler::kWhereText:
      Type("txtwhereCondition", where ? "x" : "");
      break;
    case Handler::kCancel:
      Pick("cboWhereFields", 0);
      ASSERT_EQ(Caption("cmdCancelWhere"), "Cancel");
      Click("cmdCancelWhere");
      break;
    case Handler::kClear:
      Click("cmdCancelWhere");
      break;
    case Handler::kKey:
      Key("txtAsSet", 'x');
      break;
  }

  ASSERT_EQ(MarkedRows("lstorderbyasc").empty(), !ascending);
  ASSERT_EQ(MarkedRows("lstorderbydesc").empty(), !descending);
  ASSERT_EQ(Text("txtAsSet"), limit ? "5" : "");
  const bool whereLeft = where && handler != Handler::kClear;
  ASSERT_EQ(Text("txtwhereCondition"), whereLeft ? "x" : "");
  EXPECT_EQ(Button(), ascending || (descending && byDescending) || limit || whereLeft);
}

INSTANTIATE_TEST_SUITE_P(Situations, ButtonRuleTest,
                         ::testing::Combine(::testing::Values(Handler::kDescendingMark,
                                                              Handler::kAscendingMark,
                                                              Handler::kWhereText, Handler::kCancel,
                                                              Handler::kClear, Handler::kKey),
                                            ::testing::Bool(), ::testing::Bool(), ::testing::Bool(),
                                            ::testing::Bool()));

TEST_F(OrderingTest, AKeyTurnsTheButtonOffBesideADescendingMarkAndTheNextMarkTurnsItOn) {
  Open();
  Mark("lstorderbydesc", 0);
  EXPECT_TRUE(Button());
  Key("txtAsSet", '5');
  EXPECT_FALSE(Button());
  Mark("lstorderbydesc", 1);
  EXPECT_TRUE(Button());
}

TEST_F(OrderingTest, AWipedWhereTextTurnsTheButtonOffBesideADescendingMark) {
  Open();
  Mark("lstorderbydesc", 0);
  Type("txtwhereCondition", "x");
  EXPECT_TRUE(Button());
  Type("txtwhereCondition", "");
  EXPECT_FALSE(Button());
  EXPECT_EQ(MarkedRows("lstorderbydesc"), RowNumbers{0});
}

TEST_F(OrderingTest, BlanksAreTextEnoughForTheButton) {
  Open();
  Type("txtAsSet", " ");
  EXPECT_FALSE(Button());
  Key("txtAsSet", 'x');
  EXPECT_TRUE(Button());
}

// The row limit.

TEST_F(OrderingTest, OfAllKeysTheDigitsGoInAndTheBackspaceTakesOut) {
  Tab(1);
  for (int code = 0; code <= 255; ++code) {
    Type("txtAsSet", "7");
    Key("txtAsSet", code);
    std::string expected = "7";
    if (code >= 48 && code <= 57) expected += static_cast<char>(code);
    if (code == 8) expected.clear();
    EXPECT_EQ(Text("txtAsSet"), expected) << "code " << code;
  }
}

TEST_F(OrderingTest, DigitsOfOtherScriptsAndCodesBeyondAByteAreDropped) {
  Tab(1);
  for (const int code : {256, 256 + 8, 256 + 48, 0x0660, 0x0967, 32767, -1, -8, -32768}) {
    Key("txtAsSet", code);
    EXPECT_EQ(Text("txtAsSet"), "") << "code " << code;
  }
}

TEST_F(OrderingTest, ADroppedKeyLeavesTheCaret) {
  Tab(1);
  Type("txtAsSet", "12");
  Key("txtAsSet", '-');
  EXPECT_EQ(Caret("txtAsSet"), 2);
  Key("txtAsSet", 8);
  EXPECT_EQ(Caret("txtAsSet"), 1);
  Key("txtAsSet", '3');
  EXPECT_EQ(Text("txtAsSet"), "13");
}

TEST_F(OrderingTest, TheButtonLagsOneKeyBehindTheFirstDigit) {
  Tab(1);
  Key("txtAsSet", '1');
  EXPECT_EQ(Text("txtAsSet"), "1");
  EXPECT_FALSE(Button());
  Key("txtAsSet", '2');
  EXPECT_EQ(Text("txtAsSet"), "12");
  EXPECT_TRUE(Button());
}

TEST_F(OrderingTest, TheButtonLagsOneKeyBehindTheLastBackspace) {
  Tab(1);
  Type("txtAsSet", "1");
  Key("txtAsSet", 8);
  EXPECT_EQ(Text("txtAsSet"), "");
  EXPECT_TRUE(Button());
  Key("txtAsSet", 8);
  EXPECT_FALSE(Button());
}

TEST_F(OrderingTest, ADroppedKeyCatchesTheButtonUp) {
  Tab(1);
  Key("txtAsSet", '1');
  EXPECT_FALSE(Button());
  Key("txtAsSet", 13);
  EXPECT_EQ(Text("txtAsSet"), "1");
  EXPECT_TRUE(Button());
}

TEST_F(OrderingTest, PastedTextIsNotFilteredAndLeavesTheButton) {
  Tab(1);
  Type("txtAsSet", " x-1.5\r\n");
  EXPECT_EQ(Text("txtAsSet"), " x-1.5\r\n");
  EXPECT_FALSE(Button());
}

TEST_F(OrderingTest, ALimitFromTheHostLeavesTheButtonUntilAHandlerRuns) {
  Open();
  host().prpSelectAsSetPart(u"5");
  EXPECT_EQ(Log(), Texts{"changed prpSelectAsSetPart"});
  EXPECT_EQ(Text("txtAsSet"), "5");
  EXPECT_FALSE(Button());
  Mark("lstorderbydesc", 0);
  Unmark("lstorderbydesc", 0);
  EXPECT_TRUE(Button());
}

TEST_F(OrderingTest, AClearedLimitLeavesTheButtonOn) {
  Tab(1);
  Key("txtAsSet", '1');
  Key("txtAsSet", '2');
  host().ClearAll(1);
  EXPECT_EQ(Text("txtAsSet"), "");
  EXPECT_TRUE(Button());
}

// The clauses.

TEST_F(OrderingTest, TheStatementTakesTheMarksOfBothListsInTheOrderOfTheRows) {
  OpenWithFields({"CUSTOMER.D", "CUSTOMER.A", "CUSTOMER.C", "CUSTOMER.B"});
  Mark("lstorderbydesc", 3);
  Mark("lstorderbyasc", 2);
  Mark("lstorderbydesc", 1);
  Mark("lstorderbyasc", 0);
  Click("cmdAddWhereQuery");
  EXPECT_EQ(Result(),
            "select CUSTOMER.A,CUSTOMER.B,CUSTOMER.C,CUSTOMER.D\r\n"
            "from  CUSTOMER\r\n"
            "order by CUSTOMER.D,CUSTOMER.A desc,CUSTOMER.C,CUSTOMER.B desc\r\n"
            "endselect");
}

TEST_F(OrderingTest, TheStatementHasTheMarkThatCameFirst) {
  OpenWithFields({"CUSTOMER.A", "CUSTOMER.B"});
  Mark("lstorderbydesc", 0);
  Mark("lstorderbyasc", 0);
  Mark("lstorderbyasc", 1);
  Mark("lstorderbydesc", 1);
  Click("cmdAddWhereQuery");
  EXPECT_EQ(Result(),
            "select CUSTOMER.A,CUSTOMER.B\r\n"
            "from  CUSTOMER\r\n"
            "order by CUSTOMER.A desc,CUSTOMER.B\r\n"
            "endselect");
}

TEST_F(OrderingTest, ADescendingMarkGoesIntoTheStatementThoughTheButtonWasOff) {
  OpenWithFields({"CUSTOMER.A"});
  Mark("lstorderbydesc", 0);
  Key("txtAsSet", '-');
  ASSERT_FALSE(Button());
  Tab(0);
  Click("cmdAddSelect");
  EXPECT_TRUE(Result().ends_with("order by CUSTOMER.A desc\r\nendselect")) << Result();
}

TEST_F(OrderingTest, ALimitWithLeadingZerosAndOfAnyLengthGoesIntoTheStatement) {
  OpenWithFields({"CUSTOMER.A"});
  for (const char digit : std::string_view("00099999999999999999999"))
    Key("txtAsSet", digit);
  Click("cmdAddWhereQuery");
  EXPECT_EQ(Result(),
            "select CUSTOMER.A\r\n"
            "from  CUSTOMER\r\n"
            "as set with 00099999999999999999999 rows \r\n"
            "endselect");
}

TEST_F(OrderingTest, ALimitOfZeroGoesIntoTheStatement) {
  OpenWithFields({"CUSTOMER.A"});
  Key("txtAsSet", '0');
  Key("txtAsSet", 'x');
  Click("cmdAddWhereQuery");
  EXPECT_EQ(Result(), "select CUSTOMER.A\r\nfrom  CUSTOMER\r\nas set with 0 rows \r\nendselect");
}

TEST_F(OrderingTest, APastedLimitGoesIntoTheStatementAsItStands) {
  OpenWithFields({"CUSTOMER.A"});
  Type("txtAsSet", " a-b ");
  Mark("lstorderbyasc", 0);
  Click("cmdAddWhereQuery");
  EXPECT_EQ(Result(),
            "select CUSTOMER.A\r\n"
            "from  CUSTOMER\r\n"
            "order by CUSTOMER.A\r\n"
            "as set with  a-b  rows \r\n"
            "endselect");
}

}  // namespace
}  // namespace zolt20::tests
