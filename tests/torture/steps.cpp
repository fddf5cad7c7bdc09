#include "tests/torture/steps.h"

#include <stdexcept>

#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using Json = nlohmann::ordered_json;

Json Click(const std::string& control) {
  return {{"user", "click"}, {"control", control}};
}
Json Click(const std::string& list, const std::string& entry) {
  return {{"user", "click"}, {"control", list}, {"entry", entry}};
}
Json Twice(const std::string& list, const std::string& entry) {
  return {{"user", "dblclick"}, {"control", list}, {"entry", entry}};
}
Json Pick(const std::string& combo, const std::string& entry) {
  return {{"user", "pick"}, {"control", combo}, {"entry", entry}};
}
Json Type(const std::string& box, const std::string& text) {
  return {{"user", "type"}, {"control", box}, {"text", text}};
}
Json Key(const std::string& box, int code) {
  return {{"user", "key"}, {"control", box}, {"code", code}};
}
Json Focus(const std::string& control) {
  return {{"user", "focus"}, {"control", control}};
}
Json Tab(int page) {
  return {{"user", "tab"}, {"page", page}};
}
Json Set(const std::string& property, const Json& value) {
  return {{"set", property}, {"value", value}};
}
Json Get(const std::string& property) {
  return {{"get", property}};
}
Json ClearAll(int page) {
  return {{"call", "ClearAll"}, {"args", {page}}};
}
Json Answer(const std::string& event, const std::string& property, const std::string& text) {
  return {{"answer", event}, {"with", Json::array({Set(property, text)})}};
}

std::vector<HandlerStep> MakeHandlerSession() {
  const std::string fields = List({Field("NTABLE__1.A"), Field("YTABLE__1.FLAGGED"),
                                   Field("NTABLE__2.CATEGORY"), Field("NTABLE__2.D")});
  return {
      // The Select List page.
      {"", {Set("PrpStrTables", "TABLE__12,TABLE__20"), Set("PrpStrFields", fields)}, ""},
      {"", {Click("cmdAddSelect"), Click("cmdMoveOne")}, ""},
      {"lsttables_Click", {Click("lsttables", "TABLE__1")}, "lstFields.List"},
      {"", {Click("lsttables", "TABLE__2"), Click("cmdMoveOne"), Click("cmdAddSelect")}, ""},
      {"", {Click("lstFunctions", "sum")}, ""},
      {"lstFunctions_DblClick", {Twice("lstFunctions", "sum")}, "lstFunctions.ListIndex"},
      {"", {Click("lstFields", "TABLE__1.A")}, ""},
      {"lstFields_DblClick", {Twice("lstFields", "TABLE__1.A")}, "lstFields.ListIndex"},
      {"cmdMoveAll_Click", {Click("cmdMoveAll")}, "lstSelectedFields.List"},
      {"cmdRemoveAll_Click", {Click("cmdRemoveAll")}, "lstSelectedFields.List"},
      {"", {Click("lstFields", "TABLE__1.*"), Click("cmdMoveOne"), Click("cmdMoveOne")}, ""},
      {"", {Click("lstSelectedFields", "TABLE__1.*")}, ""},
      {"cmdRemoveOne_Click", {Click("cmdRemoveOne")}, "lstSelectedFields.List"},
      {"", {Click("lstFields", "TABLE__1.A")}, ""},
      {"cmdMoveOne_Click", {Click("cmdMoveOne")}, "lstSelectedFields.List"},
      {"", {Click("lstFields", "TABLE__1.A"), Click("lstFunctions", "max")}, ""},
      {"", {Click("cmdMoveOne"), Click("cmdAddSelect"), Get("prpstrSelectedFields")}, ""},
      {"", {Click("lstSelectedFields", "max ( TABLE__1.A ) "), Click("cmdRemoveOne")}, ""},
      {"", {Click("lstFields", "TABLE__1.A"), Click("cmdMoveOne")}, ""},
      {"", {Click("lstFields", "TABLE__2.CATEGORY"), Click("cmdMoveOne")}, ""},
      {"", {Click("lstFields", "TABLE__2.CATEGORY"), Click("cmdMoveOne")}, ""},
      {"", {Click("lstGroupby", "TABLE__1.A"), {{"call", "BuildGroupBy"}}}, ""},
      {"", {Click("lstSelectedFields", "TABLE__1.A")}, ""},
      {"cmdAddSelect_Click", {Click("cmdAddSelect")}, "TxtOutput.Text"},
      {"", {Get("prpstrSelectedFields")}, ""},

      // The Where page.
      {"", {Tab(1)}, ""},
      {"CmdOr_GotFocus", {Focus("CmdOr")}, "cmdCancelWhere.TabIndex"},
      {"lstorderbyasc_ItemCheck",
       {Click("lstorderbyasc", "TABLE__1.A")},
       "cmdAddWhereQuery.Enabled"},
      {"", {Click("lstorderbyasc", "TABLE__1.A")}, ""},
      {"lstorderbydesc_ItemCheck",
       {Click("lstorderbydesc", "TABLE__1.A")},
       "cmdAddWhereQuery.Enabled"},
      {"", {Click("lstorderbyasc", "TABLE__1.A"), ClearAll(1)}, ""},
      {"txtwhereCondition_Change",
       {Type("txtwhereCondition", " \r\nTABLE__1.A > 0")},
       "cmdAddWhereQuery.Enabled"},
      {"", {Type("txtwhereCondition", ""), Key("txtAsSet", '5')}, ""},
      {"txtAsSet_KeyPress", {Key("txtAsSet", '0')}, "cmdAddWhereQuery.Enabled"},
      {"", {Key("txtAsSet", 'x'), Key("txtAsSet", 8)}, ""},
      {"", {Type("txtwhereCondition", "\t TABLE__2.D > 7"), Click("cmdAnd")}, ""},
      {"cboWhereFields_Click", {Pick("cboWhereFields", "TABLE__1.FLAGGED")}, "txtCondition.Text"},
      {"", {Pick("cboOper", "#>="), Type("txtCondition", "{ 1 }"), Click("cmdAnd")}, ""},
      {"", {Pick("cboWhereFields", "TABLE__1._index2"), Pick("cboOper", "<>"), Click("CmdOr")}, ""},
      {"", {Pick("cboWhereFields", "TABLE__1.A"), Click("cmdAnd")}, ""},
      {"cboOper_Click", {Pick("cboOper", "REFERS TO")}, "txtCondition.Text"},
      {"", {Type("txtCondition", "TABLE__1.A REFERS TO TABLE__2.D")}, ""},
      {"cmdAnd_Click", {Click("cmdAnd")}, "txtwhereCondition.Text"},
      {"", {Pick("cboWhereFields", "TABLE__2.CATEGORY"), Pick("cboOper", "EXISTS")}, ""},
      {"", {Click("CmdOr"), Pick("cboOper", "NOT EXISTS"), Click("cmdAnd")}, ""},
      {"", {Pick("cboWhereFields", "TABLE__2.CATEGORY"), Pick("cboOper", "=")}, ""},
      {"", {Pick("cboWhereFields1", "TABLE__2.CATEGORY")}, ""},
      {"CmdOr_Click", {Click("CmdOr")}, "txtwhereCondition.Text"},
      {"", {Pick("cboWhereFields", "TABLE__2.CATEGORY"), Pick("cboOper", "=")}, ""},
      {"", {Type("cboWhereFields1", ":var.a value")}, ""},
      {"cmdCancelWhere_Click", {Click("cmdCancelWhere")}, "cmdCancelWhere.Caption"},
      {"", {Click("lstorderbydesc", "TABLE__2.CATEGORY")}, ""},
      {"cmdAddWhereQuery_Click", {Click("cmdAddWhereQuery")}, "TxtOutput.Text"},
      {"", {Click("cmdCancelWhere")}, ""},

      // The pages of the blocks.
      {"tabVrn_Click", {Tab(2)}, "txtSelectDo.TabIndex"},
      {"", {Answer("eventFunction", "prpSelectDoPart", "*zlt*:var.a = f(`^`x`^`)")}, ""},
      {"cmdFunction_Click", {Click("cmdFunction(0)")}, "txtSelectDo.Text"},
      {"", {Answer("eventCondition", "prpSelectDoPart", "if a then~\u0001b~endif")}, ""},
      {"cmdCondition_Click", {Click("cmdCondition(0)")}, "txtSelectDo.Text"},
      {"", {Answer("eventSubQuery", "prpSelectDoPart", "select A~\u0001from  B~endselect")}, ""},
      {"cmdSubQuery_Click", {Click("cmdSubQuery(0)")}, "txtSelectDo.Text"},
      {"cmdAddSelectDoQuer_Click", {Click("cmdAddSelectDoQuer")}, "TxtOutput.Text"},
      {"", {Tab(3), Type("txtSelectEOS", ":var.end = 1\r\n:var.a = 2")}, ""},
      {"cmdAddSEOStoquery_Click", {Click("cmdAddSEOStoquery")}, "TxtOutput.Text"},
      {"", {Tab(4), Set("prpSelectEmptyPart", ":var.none = 1~\u0001:var.b = 0")}, ""},
      {"cmdSelectmpty_Click", {Click("cmdSelectmpty")}, "TxtOutput.Text"},
      {"txtSelectError_TabChain", {Tab(5)}, "cmdFunction(3).TabIndex"},
      {"", {Answer("eventFunction", "prpSelectErrorPart", "stop ( )~\u0001:var.error")}, ""},
      {"", {Click("cmdFunction(3)"), Get("prpStrSQLPart")}, ""},
      {"cmdAddtoSERROR_Click", {Click("cmdAddtoSERROR")}, "TxtOutput.Text"},
      {"TxtOutput_TabChain", {Focus("TxtOutput")}, "cmdClear.TabIndex"},
      {"cmdCancel_Click", {Click("cmdCancel")}, "log"},
      {"cmdDone_Click", {Click("cmdDone")}, "log"},
      {"",
       {Get("prpStroutput"), Tab(0), Click("cmdAddSelect"), Tab(4), Click("cmdSelectmpty")},
       ""},

      // The Condition page.
      {"", {Tab(6), Click("cmdAdd")}, ""},
      {"optIfThen_Click", {Click("optIfThen")}, "fraif.Visible"},
      {"txtStmt1_GotFocus",
       {Focus("txtStmt1"), Set("prpStroutput", "first~text")},
       "txtStmt1.Text"},
      {"", {Answer("eventSubQuery", "prpStroutput", "select A~\u0001from  B~endselect")}, ""},
      {"", {Click("cmdSubQuery(4)"), Type("txtCond", "TABLE__1.A > 10")}, ""},
      {"txtStmt2_GotFocus",
       {Focus("txtStmt2"), Set("prpStroutput", "*zlt*another")},
       "txtStmt2.Text"},
      {"cmdAdd_Click", {Click("cmdAdd")}, "TxtOutput.Text"},
      {"", {Click("cmdDone")}, ""},
      {"optFor_Click", {Click("optFor")}, "fraFor.Visible"},
      {"txtForStmt_GotFocus",
       {Focus("txtForStmt"), Set("prpStroutput", "a~statement")},
       "txtForStmt.Text"},
      {"", {Type("txtVariable", ":var.counter"), Type("txtinitval", ":var.first")}, ""},
      {"", {Type("txtFinVal", ":var.last"), Type("txtStep", "2"), Click("cmdAdd")}, ""},
      {"", {Get("prpStroutput")}, ""},
      {"optwhile_Click", {Click("optwhile")}, "frawhile.Visible"},
      {"txtWhlStm_GotFocus",
       {Focus("txtWhlStm"), Set("prpStroutput", "a~statement")},
       "txtWhlStm.Text"},
      {"", {Type("txtWhlCnd", ":var.counter > 1"), Click("cmdAdd")}, ""},
      {"optRepeat_Click", {Click("optRepeat")}, "frarepeat.Visible"},
      {"txtRepStm_GotFocus",
       {Focus("txtRepStm"), Set("prpStroutput", "a~statement")},
       "txtRepStm.Text"},
      {"", {Type("txtRepCnd", ":var.counter > 1"), Click("cmdAdd")}, ""},
      {"optCase_Click", {Click("optCase")}, "fraOnCase.Visible"},
      {"txtStmt_GotFocus",
       {Focus("txtStmt(0)"), Set("prpStroutput", "a~statement")},
       "txtStmt(0).Text"},
      {"TxtDef_GotFocus", {Focus("TxtDef"), Set("prpStroutput", "a default")}, "TxtDef.Text"},
      {"", {Type("txtcaseexp", ":var.expression"), Type("TxtExpr(0)", "the first value")}, ""},
      {"cmdNext_Click", {Click("cmdNext")}, "TxtExpr(1).Visible"},
      {"", {Type("TxtExpr(1)", "another value"), Click("cmdNext"), Click("cmdNext")}, ""},
      {"", {Click("cmdNext"), Click("cmdNext"), Focus("txtStmt(3)")}, ""},
      {"", {Set("prpStroutput", "of a row that scrolled")}, ""},
      {"VscrCase_Change",
       {{{"user", "scroll"}, {"control", "VscrCase"}, {"value", 0}}},
       "TxtExpr(0).Top"},
      {"", {Click("cmdAdd")}, ""},
      {"", {Focus("TxtOutput")}, ""},
      {"cmdBuild_GotFocus", {Focus("cmdBuild")}, "cmdClear.TabIndex"},
      {"cmdBuild_Click", {Click("cmdBuild")}, "TxtOutput.Text"},
      {"", {Set("prpStroutput", "behind~all"), Get("prpstrSelectedFields")}, ""},
      {"", {Click("optCase"), Click("cmdNext"), Click("cmdNext"), Click("optIfThen")}, ""},
      {"", {Type("txtCond", "TABLE__1.A > 10"), Click("cmdAdd"), Click("cmdBuild")}, ""},
      {"cmdClear_Click", {Click("cmdClear")}, "TxtOutput.Text"},

      // The other members of the contract.
      {"",
       {{{"save", true}}, {{"new", {{"bag", {{"prpSelectPart", "TABLE__1.A,TABLE__2.D"}}}}}}},
       ""},
      {"", {Set("PrpStrTables", "TABLE__12,TABLE__20"), Set("PrpStrFields", fields)}, ""},
      {"", {Set("prpSelectFromPart", "TABLE__2,TABLE__1")}, ""},
      {"", {Set("prpSelectPart", "TABLE__2.CATEGORY,TABLE__1.A,TABLE__2.D")}, ""},
      {"", {Set("prpSelectWherePart", "TABLE__1.A > 1~\u0001and TABLE__2.D = `^`x`^`")}, ""},
      {"", {Set("prpSelectGroupbyPart", "TABLE__2.CATEGORY,TABLE__1.A")}, ""},
      {"", {Set("prpSelectOrderbyPart", "TABLE__2.CATEGORY desc,TABLE__1.A")}, ""},
      {"", {Set("prpSelectAsSetPart", "1000000000"), Set("prpSelectEOSPart", "a~\u0001line")}, ""},
      {"",
       {Set("prpSelectEOSPart", "*zlt*another~line"), Set("prpSelectDoPart", "x~\u0001\u0001y")},
       ""},
      {"", {Set("prpSelectErrorPart", "x~\u0001y"), Set("prpSelectEmptyPart", "x~\u0001y")}, ""},
      {"", {Click("cmdAddSelect"), Set("prpParentorChild", "the parent")}, ""},
      {"", {Set("prpintTabcount", 2), Get("prpintTabcount"), Get("prpStroutput")}, ""},
      {"", {Set("Syntax_Highlight", true), Get("Syntax_Highlight"), Set("prpTab", 5)}, ""},
      {"", {{{"save", true}}, ClearAll(1), ClearAll(2), ClearAll(3), ClearAll(4), ClearAll(5)}, ""},
      {"", {ClearAll(6), ClearAll(0), Set("prpTab", 1), Click("cmdClear")}, ""},

      // A catalogue of many rows, so that rows go from all over a list, and stored expressions.
      {"", {{{"new", Json::object()}}}, ""},
      {"", {Set("PrpStrTables", "TABLE__19,OTHER__17"), Set("PrpStrFields", fields)}, ""},
      {"",
       {Set("prpSelectPart", "TABLE__1.A,sum ( TABLE__1.A ) :var.sum,count ( * ) :var.count")},
       ""},
      {"",
       {Click("cmdAddSelect"), Get("prpstrSelectedFields"), Click("lsttables", "TABLE__1")},
       ""},
      {"", {Click("lsttables", "OTHER__1"), Set("PrpStrFields", fields), Click("cmdClear")}, ""},
  };
}

}  // namespace

const std::vector<HandlerStep>& HandlerSession() {
  static const std::vector<HandlerStep> kSteps = MakeHandlerSession();
  return kSteps;
}

Json WithRow(Json request, const Surface& form) {
  const auto entry = request.find("entry");
  if (entry == request.end()) return request;
  const auto& list =
      dynamic_cast<const RowsControl&>(*form.Find(request["control"].get<std::string>()));
  const String wanted = Wide(entry->get<std::string>());
  int row = 0;
  while (row < list.ListCount() && list.List(row) != wanted)
    ++row;
  if (row == list.ListCount()) throw std::invalid_argument("no such entry: " + request.dump());
  request.erase("entry");
  request["row"] = row;
  return request;
}

}  // namespace zolt20::tests
