// The Where page beside its plain walks: picks, applied conditions, orders, the row limit.
#include "tests/support/side_by_side.h"

namespace zolt20::tests {
namespace {

class WhereWalks : public SideBySide {
 protected:
  void MarkedCatalogue(int tables, int fields) {
    Let("PrpStrTables", TableList(tables));
    Let("PrpStrFields", FieldList(fields));
    for (int i = 0; i < tables; ++i)
      ClickSomeRow("lsttables");
  }

  Steps Conditions() {
    return {
        {10, [this] { PickSome("cboWhereFields"); }},
        {10, [this] { PickSome("cboOper"); }},
        {5, [this] { PickSome("cboWhereFields1"); }},
        {3,
         [this] {
           Type("cboWhereFields1", OneOf({"", " ", "10", " 5 ", "'a b'"}));
         }},
        {8, [this] { Press("cmdAnd"); }},
        {6, [this] { Press("CmdOr"); }},
        {3, [this] { Press("cmdCancelWhere"); }},
        {3, [this] { Type("txtCondition", TypedText()); }},
        {2, [this] { Type("txtwhereCondition", TypedText()); }},
        {1, [this] { Let("prpSelectWherePart", EncodedText()); }},
        {1, [this] { ClickSomeRow("lsttables"); }},
        {1, [this] { Let("PrpStrFields", FieldList(20)); }},
        {1,
         [this] {
           Key("txtwhereCondition", OneOf({"a", "b", "c"})[0]);
         }},
        {1,
         [this] {
           ClearAll(OneOf({"1", "0"})[0] - '0');
         }},
    };
  }

  Steps Orders() {
    return {
        {10, [this] { ClickSomeRow("lstorderbyasc"); }},
        {10, [this] { ClickSomeRow("lstorderbydesc"); }},
        {3,
         [this] {
           Key("txtAsSet", OneOf({"0", "5", "a", " ", "\b", "\r", "-"})[0]);
         }},
        {2,
         [this] {
           Type("txtAsSet", OneOf({"", " ", "12"}));
         }},
        {1,
         [this] {
           Type("txtwhereCondition", OneOf({"", "a"}));
         }},
        {1, [this] { Press("cmdCancelWhere"); }},
        {2, [this] { Let("prpSelectOrderbyPart", SelectList(5)); }},
        {2, [this] { Let("prpSelectPart", SelectList(3)); }},
        {1, [this] { Press("cmdMoveAll"); }},
        {1, [this] { Press("cmdRemoveAll"); }},
        {2, [this] { Press("cmdRemoveOne"); }},
        {2, [this] { ClickSomeRow("lstSelectedFields"); }},
        {2, [this] { ClickSomeRow("lsttables"); }},
        {1, [this] { Press("cmdClear"); }},
        {1, [this] { ClearAll(1); }},
    };
  }
};

TEST_F(WhereWalks, TheWhereTextIsWhatOneConditionAfterTheOtherGives) {
  for (unsigned seed = 0; seed < 50; ++seed) {
    Start(seed);
    MarkedCatalogue(6, 20);
    Walk(80, Conditions());
  }
}

TEST_F(WhereWalks, OrderMarksAndTheButtonFollowEachHandlerAsItIsWalked) {
  for (unsigned seed = 100; seed < 150; ++seed) {
    Start(seed);
    MarkedCatalogue(6, 20);
    Walk(60, Orders());
  }
}

TEST_F(WhereWalks, TheFlagIsThatOfTheFirstRecordOfTheNameAmongManyToo) {
  for (unsigned seed = 200; seed < 203; ++seed) {
    Start(seed);
    Texts records;
    for (int i = 0; i < 1500; ++i) {
      const std::string table = OneOf({"AAAAAAAA", "AAAAAAAB", "BBBBBBBB", "BBBBBBBA"});
      records.push_back(Field(OneOf({"Y", "N", "N"}) + table + ".F" + std::to_string(Below(900))));
    }
    if (seed == 202) records.insert(records.begin() + 700, "broken");
    Let("PrpStrTables", "AAAAAAAA1,AAAAAAAB2,BBBBBBBB0,BBBBBBBA1");
    Let("PrpStrFields", List(records));
    for (int row = 0; row < 4; ++row)
      ClickRow("lsttables", row);
    Walk(80, Conditions());
  }
}

}  // namespace
}  // namespace zolt20::tests
