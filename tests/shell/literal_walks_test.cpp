// Clearing beside its plain walks, at forms in any state.
#include "tests/support/side_by_side.h"

namespace zolt20::tests {
namespace {

class ClearingWalks : public SideBySide {
 protected:
  Steps Clearing() {
    return {
        {4, [this] { ClearAll(Below(9) - 1); }},
        {4, [this] { Press("cmdClear"); }},
        {4, [this] { Page(Below(7)); }},
        {4, [this] { ClickSomeRow("lsttables"); }},
        {3, [this] { Let("prpSelectPart", SelectList(4)); }},
        {3, [this] { Let("prpSelectOrderbyPart", SelectList(4)); }},
        {2, [this] { Press("cmdMoveAll"); }},
        {2, [this] { ClickSomeRow("lstorderbyasc"); }},
        {2, [this] { ClickSomeRow("lstorderbydesc"); }},
        {2, [this] { PickSome("cboWhereFields"); }},
        {3, [this] { Press("cmdAddSelect"); }},
        {3,
         [this] {
           Press(OneOf({"cmdAddSelectDoQuer", "cmdSelectmpty", "cmdAddWhereQuery"}));
         }},
        {3, [this] { Let("prpStroutput", EncodedText()); }},
        {1, [this] { Let("prpSelectDoPart", EncodedText()); }},
        {2,
         [this] {
           Press(OneOf({"optIfThen", "optRepeat", "optCase"}));
         }},
        {1, [this] { Type("txtCond", TypedText()); }},
        {1, [this] { LoadCaseRow(); }},
        {2, [this] { Press("cmdAdd"); }},
        {1, [this] { Press("cmdBuild"); }},
        {2, [this] { ReadSelectedFields(); }},
        {1, [this] { Let("PrpStrFields", FieldList(12)); }},
    };
  }
};

TEST_F(ClearingWalks, WhatIsClearedAndWhatStaysIsWhatTheWalksLeave) {
  for (unsigned seed = 0; seed < 80; ++seed) {
    Start(seed);
    Let("PrpStrTables", TableList(8));
    Let("PrpStrFields", FieldList(15));
    Walk(60, Clearing());
  }
}

TEST_F(ClearingWalks, ManyMarkedTablesAreClearedOneAfterTheOther) {
  Start(100);
  Texts tables;
  Texts records;
  for (int t = 0; t < 120; ++t) {
    const std::string name =
        (t % 2 == 0 ? "TABLE" : "table") + std::to_string(100 + t / 2 * 3 % 90);
    tables.push_back(name + std::to_string(t % 3));
    for (int f = 0; f < 8; ++f)
      records.push_back(Field("N" + name + ".F" + std::to_string(f)));
  }
  Let("PrpStrTables", List(tables));
  Let("PrpStrFields", List(records));
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 40; ++i)
      ClickSomeRow("lsttables");
    Press("cmdMoveAll");
    for (int i = 0; i < 20; ++i)
      ClickSomeRow(OneOf({"lstorderbyasc", "lstorderbydesc"}));
    ClearAll(1);
    ClearAll(0);
  }
}

}  // namespace
}  // namespace zolt20::tests
