#include "tests/explore/moves.h"

#include <algorithm>
#include <array>

#include "tests/support/silent.h"

namespace zolt20::tests {
namespace {

using Json = nlohmann::ordered_json;
using Moves = std::vector<Move>;

// Two tables, one with an index, and a field each, one of them flagged.
constexpr const char* kTables = "ORDERS__1,PARTS___0";
constexpr const char* kFields =
    "long*Q*V*R*N*NORDERS__.NO*Q*V*R*N*X,char*Q*V*R*N*YPARTS___.NAME*Q*V*R*N*X";

Json Set(const char* property, const Json& value) {
  return {{"set", property}, {"value", value}};
}

Json Click(const std::string& control) {
  return {{"user", "click"}, {"control", control}};
}

Json OnRow(const char* verb, const std::string& control, int row) {
  return {{"user", verb}, {"control", control}, {"row", row}};
}

Json Type(const std::string& control, const char* text) {
  return {{"user", "type"}, {"control", control}, {"text", text}};
}

Move CallOfHost(const Json& request) {
  return {-1, "", {StepOf(request)}};
}

Move On(const Control& control, const Json& request) {
  const int page = control.design().page;
  return {page == kEveryPage ? -1 : page, std::string(control.name()), {StepOf(request)}};
}

// A click that raises an event, and what the host does inside it.
Move Answered(const Control& control, const char* event, const Json& action) {
  Move move = On(control, Click(std::string(control.name())));
  move.steps = {StepOf({{"answer", event}, {"with", Json::array({action})}}), move.steps[0],
                StepOf({{"answer", event}, {"with", Json::array()}})};
  return move;
}

void AddClicks(const Control& control, Moves& moves) {
  moves.push_back(On(control, Click(std::string(control.name()))));
  switch (control.design().name) {
    case ControlName::cmdFunction:
      moves.push_back(Answered(control, "eventFunction", Set("prpStroutput", "f(a,~\u0001b)")));
      break;
    case ControlName::cmdCondition:
      moves.push_back(Answered(control, "eventCondition", Set("prpSelectDoPart", "*zlt*a~b")));
      break;
    case ControlName::cmdSubQuery:
      moves.push_back(Answered(control, "eventSubQuery", Set("prpSelectEOSPart", "a~\u0001b")));
      break;
    case ControlName::cmdDone:
      moves.push_back(Answered(control, "eventDone", {{"get", "prpStroutput"}}));
      break;
    case ControlName::cmdCancel:
      moves.push_back(Answered(control, "eventCancel", {{"call", "ClearAll"}, {"args", {0}}}));
      break;
    default:
      break;
  }
}

void AddRows(const Control& control, Moves& moves) {
  const std::string name(control.name());
  if (control.kind() == Kind::ComboBox) {
    const bool isOperator = control.design().name == ControlName::cboOper;
    for (int row = 0; row < (isOperator ? 14 : 3); ++row)
      moves.push_back(On(control, OnRow("pick", name, row)));
    return;
  }
  for (int row = 0; row < 3; ++row)
    moves.push_back(On(control, OnRow("click", name, row)));
  moves.push_back(On(control, OnRow("dblclick", name, 0)));
}

void AddTexts(const Control& control, Moves& moves) {
  const std::string name(control.name());
  const auto add = [&](const Json& request) { moves.push_back(On(control, request)); };
  add(Type(name, ""));
  add(Type(name, "a"));
  if (control.kind() == Kind::ComboBox) return;
  add(Type(name, " a\r\n\tb "));
  if (control.kind() != Kind::TextBox) return;
  for (const int code : {int{'5'}, int{'x'}, 8})
    add({{"user", "key"}, {"control", name}, {"code", code}});
  add({{"user", "key"}, {"control", name}, {"code", 'y'}, {"from", 0}, {"to", 1}});
}

// Whether a control has a focus handler; no other control has one.
bool IsHeardOfFocus(const Control& control) {
  constexpr std::array kHeard{
      ControlName::CmdOr,     ControlName::cmdBuild,      ControlName::txtForStmt,
      ControlName::txtWhlStm, ControlName::txtStmt1,      ControlName::txtStmt2,
      ControlName::TxtDef,    ControlName::txtRepStm,     ControlName::txtStmt,
      ControlName::TxtOutput, ControlName::txtSelectError};
  const ControlName name = control.design().name;
  return std::find(kHeard.begin(), kHeard.end(), name) != kHeard.end();
}

void AddGestures(const Control& control, Moves& moves) {
  const std::string name(control.name());
  if (IsHeardOfFocus(control) || control.design().name == ControlName::lsttables)
    moves.push_back(On(control, {{"user", "focus"}, {"control", name}}));
  if (Surface::Offers(control, Gesture::kClick)) AddClicks(control, moves);
  if (control.kind() == Kind::ListBox || control.kind() == Kind::ComboBox) AddRows(control, moves);
  if (Surface::Offers(control, Gesture::kType)) AddTexts(control, moves);
  if (Surface::Offers(control, Gesture::kScroll)) {
    for (const int value : {0, 1, 2})
      moves.push_back(On(control, {{"user", "scroll"}, {"control", name}, {"value", value}}));
  }
  if (Surface::Offers(control, Gesture::kTab)) {
    for (int page = 0; page <= 7; ++page)
      moves.push_back(On(control, {{"user", "tab"}, {"page", page}}));
  }
}

Moves CallsOfTheHost() {
  Moves moves;
  const auto add = [&](const Json& request) { moves.push_back(CallOfHost(request)); };
  const auto addEach = [&](const char* property, std::initializer_list<const char*> values) {
    for (const char* value : values)
      add(Set(property, value));
  };
  addEach("PrpStrTables", {kTables});
  addEach("PrpStrFields", {kFields, "broken"});
  addEach("prpSelectPart",
          {"ORDERS__.NO,PARTS___.NAME", "sum ( ORDERS__.NO ) :var.sum.ORDERS__.NO", "ORDERS__.*"});
  addEach("prpParentorChild", {"P"});
  addEach("prpStroutput", {"a~\u0001b", "*zlt*a~b", "select ORDERS__.NO~from  ORDERS__~endselect"});
  addEach("prpSelectFromPart", {"PARTS___", "ORDERS__,PARTS___"});
  addEach("prpSelectWherePart", {"a = 1~\u0001and b = `^`2`^`", ""});
  addEach("prpSelectGroupbyPart", {"ORDERS__.NO", ","});
  addEach("prpSelectOrderbyPart", {"ORDERS__.NO", "ORDERS__._index1 desc"});
  addEach("prpSelectAsSetPart", {"5", ""});
  addEach("prpSelectDoPart", {"a~\u0001b", "*zlt*a~b"});
  addEach("prpSelectEOSPart", {"a~\u0001b", "*zlt*a~b"});
  addEach("prpSelectEmptyPart", {"a~\u0001b", "*zlt*a~b"});
  addEach("prpSelectErrorPart", {"a~\u0001b", "*zlt*a~b"});
  for (const int page : {0, 1, 2, 5, 6, 7})
    add(Set("prpTab", page));
  for (const int depth : {0, 1})
    add(Set("prpintTabcount", depth));
  for (const bool highlight : {false, true})
    add(Set("Syntax_Highlight", highlight));
  for (const char* property : {"prpStroutput", "prpStrSQLPart", "prpstrSelectedFields",
                               "prpintTabcount", "Syntax_Highlight"})
    add({{"get", property}});
  add({{"call", "BuildGroupBy"}});
  for (int page = 0; page <= 7; ++page)
    add({{"call", "ClearAll"}, {"args", {page}}});
  return moves;
}

// All moves, with those on the second case row, which a click on Next loads.
Moves AllMoves() {
  SilentHost host;
  ZOLT20MapControl control(host);
  control.UserTab(6);
  control.UserClick(control.Form().optCase);
  control.UserClick(control.Form().cmdNext);
  Moves moves = CallsOfTheHost();
  for (const Control* each : control.Form().Controls())
    AddGestures(*each, moves);
  return moves;
}

bool Holds(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

// Whether a move belongs to the topic of some pages, with few texts for each box.
bool IsOfPages(const Move& move, std::initializer_list<int> pages,
               std::initializer_list<std::string_view> calls) {
  const std::string& line = move.steps[move.steps.size() / 2].line;
  const auto isCalled = [&](std::string_view call) { return Holds(line, call); };
  if (std::any_of(calls.begin(), calls.end(), isCalled)) return true;
  if (move.control.empty() || Holds(line, "\"key\"") || Holds(line, "\"focus\"")) return false;
  if (Holds(line, "\"type\"") && !Holds(line, "\"a\"")) return false;
  return std::find(pages.begin(), pages.end(), move.page) != pages.end();
}

Moves MovesOf(const Moves& all, std::initializer_list<int> pages,
              std::initializer_list<std::string_view> calls) {
  Moves moves;
  std::copy_if(all.begin(), all.end(), std::back_inserter(moves),
               [&](const Move& move) { return IsOfPages(move, pages, calls); });
  return moves;
}

}  // namespace

std::vector<Topic> Topics() {
  const std::string tables = Set("PrpStrTables", kTables).dump();
  const std::string fields = Set("PrpStrFields", kFields).dump();
  const std::string first = OnRow("click", "lsttables", 0).dump();
  const std::string second = OnRow("click", "lsttables", 1).dump();
  const std::vector<std::string> filled{tables, fields};
  const std::vector<std::string> marked{tables, fields, first, second};
  std::vector<std::string> selected = marked;
  for (const Json& request :
       {Json{{"call", "ClearAll"}, {"args", {7}}}, OnRow("click", "lstFields", 1),
        Click("cmdMoveOne"), Click("cmdAddSelect")})
    selected.push_back(request.dump());
  std::vector<std::string> rows{tables, fields, Json{{"user", "tab"}, {"page", 6}}.dump(),
                                Click("optCase").dump()};
  for (int row = 1; row <= 4; ++row)
    rows.push_back(Click("cmdNext").dump());

  const Moves all = AllMoves();
  return {
      {"all", 1, all, {filled, marked, selected, rows}},
      {"select",
       8,
       MovesOf(all, {0}, {"cmdClear", "ClearAll\",\"args\":[0", "PrpStrTables", "prpSelectPart"}),
       {filled, marked}},
      {"where",
       6,
       MovesOf(all, {1}, {"cmdClear", "ClearAll\",\"args\":[1", "cmdMoveAll", "cmdAddSelect"}),
       {marked, selected}},
      {"blocks",
       4,
       MovesOf(all, {2, 3, 4, 5}, {"cmdClear", "cmdAddSelect", "Part\",", "prpStroutput"}),
       {marked, selected}},
      {"conditions",
       8,
       MovesOf(all, {6}, {"cmdClear", "cmdDone", "prpStroutput", "prpintTabcount"}),
       {filled, rows}},
  };
}

}  // namespace zolt20::tests
