// The Condition page beside its plain walks, with the host's texts and edits of the Result between.
#include "tests/support/side_by_side.h"

namespace zolt20::tests {
namespace {

const Texts kOptions{"optIfThen", "optFor", "optwhile", "optRepeat", "optCase"};
const Texts kBoxes{"txtCond",    "txtStmt1",   "txtStmt2",    "txtWhlCnd",  "txtWhlStm",
                   "txtRepCnd",  "txtRepStm",  "txtVariable", "txtinitval", "txtFinVal",
                   "txtStep",    "txtForStmt", "txtcaseexp",  "TxtDef",     "TxtExpr(0)",
                   "txtStmt(0)", "TxtExpr(1)", "txtStmt(1)",  "TxtExpr(2)", "txtStmt(3)"};

class ConditionWalks : public SideBySide {
 protected:
  std::string BoxText() {
    return OneOf({"a", "i", "1", "0", " ", "", "x = y", " b ", "a\r\nb", "\tc\r\n", "a\nb"});
  }

  /// Text for every box that the chosen kind shows, or for most of them.
  void FillIn() {
    for (const std::string& box : kBoxes) {
      if (!OneIn(4)) Type(box, BoxText());
    }
  }

  Steps Composing() {
    return {
        {10, [this] { Press(OneOf(kOptions)); }},
        {8, [this] { FillIn(); }},
        {4, [this] { Type(OneOf(kBoxes), BoxText()); }},
        {3, [this] { LoadCaseRow(); }},
        {10, [this] { Press("cmdAdd"); }},
        {4, [this] { Press("cmdBuild"); }},
        {6, [this] { Let("prpStroutput", EncodedText()); }},
        {2, [this] { Type("TxtOutput", TypedText()); }},
        {2, [this] { ReadResult(); }},
        {1, [this] { LetDepth(Below(5) - 1); }},
        {1, [this] { Press("cmdClear"); }},
        {1, [this] { ClearAll(Below(8)); }},
        {2,
         [this] {
           Press(OneOf({"cmdAddSelect", "cmdAddSelectDoQuer", "cmdAddSEOStoquery"}));
         }},
        {1, [this] { Type("txtSelectDo", TypedText()); }},
        {1, [this] { ReadSelectedFields(); }},
        {1, [this] { Press("cmdDone"); }},
    };
  }

  void OneSelectedField() {
    Let("PrpStrTables", "AAAAAAAA0");
    Let("PrpStrFields", Field("NAAAAAAAA.A"));
    Let("prpSelectPart", "AAAAAAAA.A,");
  }
};

TEST_F(ConditionWalks, EveryPassAndBuildLeavesTheEntriesOneBehindTheOther) {
  for (unsigned seed = 0; seed < 80; ++seed) {
    Start(seed);
    if (OneIn(2)) OneSelectedField();
    Walk(70, Composing());
  }
}

TEST_F(ConditionWalks, ManyPassesAndBuildsLeaveThemToo) {
  Start(200);
  OneSelectedField();
  for (int pass = 0; pass < 120; ++pass) {
    Press(OneOf(kOptions));
    FillIn();
    Press("cmdAdd");
    if (OneIn(3)) Press("cmdBuild");
    if (OneIn(4)) Press(OneOf({"cmdAddSelect", "cmdAddSelectDoQuer", "cmdSelectmpty"}));
    if (OneIn(10)) Let("prpStroutput", EncodedText());
    if (OneIn(10)) Type("TxtOutput", TypedText());
  }
}

TEST_F(ConditionWalks, ClicksOnOptionsAloneFillTheStackAsItIsWalked) {
  for (unsigned seed = 300; seed < 310; ++seed) {
    Start(seed);
    Walk(60, {{30, [this] { Press(OneOf(kOptions)); }},
              {1, [this] { Press("cmdAdd"); }},
              {1, [this] { Press("cmdBuild"); }},
              {1, [this] { Type("txtForStmt", "x"); }}});
    Press("cmdClear");
    Press("cmdClear");
  }
}

TEST_F(ConditionWalks, CaseRowsWithAndWithoutStatementsAreClosedAtTheDepthOfTheirHead) {
  for (unsigned seed = 400; seed < 420; ++seed) {
    Start(seed);
    for (int pass = 0; pass < 8; ++pass) {
      Press("optCase");
      Type("txtcaseexp", "e");
      LoadCaseRow();
      Type("TxtExpr(0)", OneOf({"1", "2", ""}));
      Type("txtStmt(0)", OneOf({"", "s"}));
      Type("TxtExpr(1)", OneOf({"3", ""}));
      if (OneIn(6)) Type("TxtDef", "d");
      Press("cmdAdd");
      if (OneIn(2)) Press("cmdBuild");
    }
  }
}

}  // namespace
}  // namespace zolt20::tests
