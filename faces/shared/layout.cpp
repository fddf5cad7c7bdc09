#include "faces/shared/layout.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace zolt20::faces {
namespace {

using enum ControlName;
using Parts = std::vector<Part>;

const Design& DesignOf(ControlName name, int index = kNoIndex) {
  return *std::find_if(zolt20::kForm.begin(), zolt20::kForm.end(), [&](const Design& design) {
    return design.name == name && design.index == index;
  });
}

// The words of the description.

Part Of(ControlName name, int weight = 0) {
  return {PartKind::kControl, {}, weight, Gap::kNone, &DesignOf(name)};
}
Part Of(ControlName array, int index, int weight) {
  return {PartKind::kControl, {}, weight, Gap::kNone, &DesignOf(array, index)};
}
Parts All(std::initializer_list<ControlName> names) {
  Parts parts;
  for (const ControlName name : names)
    parts.push_back(Of(name));
  return parts;
}
Part Space(int weight = 1) {
  return {PartKind::kSpace, {}, weight};
}
Part Row(std::string_view name, int weight, Parts parts, Gap gap = Gap::kUsual) {
  return {PartKind::kRow, name, weight, gap, nullptr, std::move(parts)};
}
Part Column(std::string_view name, int weight, Parts parts, Gap gap = Gap::kUsual) {
  return {PartKind::kColumn, name, weight, gap, nullptr, std::move(parts)};
}
Part Stack(int weight, Parts parts) {
  return {PartKind::kStack, "stack", weight, Gap::kNone, nullptr, std::move(parts)};
}
Part Frame(ControlName frame, int weight, Parts parts, Gap gap = Gap::kUsual) {
  return {PartKind::kFrame, "frame", weight, gap, &DesignOf(frame), std::move(parts)};
}
// A label, and below it the control that it names; above a long list, with a filter between them.
Part Named(ControlName label, ControlName box, int weight) {
  return Column("named", weight, {Of(label), Of(box, 1)}, Gap::kTight);
}
Part NamedCombo(ControlName label, ControlName combo, int weight) {
  return Column("named", weight, {Of(label), Of(combo)}, Gap::kTight);
}
Part SearchedCombo(ControlName label, ControlName combo, int weight) {
  Part part = NamedCombo(label, combo, weight);
  part.parts.back().hasSearch = true;
  return part;
}
Part Filtered(ControlName label, ControlName list, int weight) {
  const Part filter{PartKind::kFilter, {}, 0, Gap::kNone, &DesignOf(list)};
  const Part marks{PartKind::kMarks, {}, 1, Gap::kNone, &DesignOf(list)};
  Part heading = Row("heading", 0, {Of(label), marks});
  return Column("named", weight, {std::move(heading), filter, Of(list, 1)}, Gap::kTight);
}
Part Pair(ControlName label, ControlName box, int weight = 0) {
  return {PartKind::kPair, "pair",  weight,
          Gap::kUsual,     nullptr, {Of(label), Of(box, weight > 0 ? 1 : 0)}};
}
Part Fields(int weight, Parts pairs) {
  return {PartKind::kFields, "fields", weight, Gap::kUsual, nullptr, std::move(pairs)};
}
// The foot of a page: the notes on how it is used, and the button to the Result.
Part Foot(std::initializer_list<ControlName> notes, ControlName button) {
  Part text{PartKind::kNotes, "notes", 1, Gap::kNone, nullptr, All(notes)};
  return Row("foot", 0, {std::move(text), Of(button)});
}

// The pages.

Part SelectList() {
  Part sources =
      Column("sources", 3, {Filtered(Label1, lsttables, 3), Named(Label4, lstFunctions, 2)});
  Part moves = Column(
      "moves", 0,
      {Space(), Of(cmdMoveOne), Of(cmdMoveAll), Of(cmdRemoveOne), Of(cmdRemoveAll), Space()});
  Part chosen =
      Column("chosen", 4, {Named(Label2, lstSelectedFields, 3), Filtered(Label5, lstGroupby, 2)});
  Part lists =
      Row("lists", 1,
          {std::move(sources), Filtered(Label3, lstFields, 4), std::move(moves), std::move(chosen)},
          Gap::kWide);
  return Column(
      "page", 1,
      {std::move(lists), Foot({Label41, Label9, Label10, Label11, Label42}, cmdAddSelect)});
}

Part Where() {
  Part operands = Row("operands", 0,
                      {SearchedCombo(Label6, cboWhereFields, 3), NamedCombo(Label7, cboOper, 2),
                       SearchedCombo(Label8, cboWhereFields1, 3)});
  // Both views of the condition take the same rectangle, and code shows one at a time. On a new
  // control both are visible, and the frame of txtwhereCondition covers the other.
  Part views = Stack(1, {Frame(FraCondition, 0, {Of(txtCondition, 1)}),
                         Frame(FrawhereCondition, 0, {Of(txtwhereCondition, 1)})});
  Part condition = Column("condition", 3,
                          {std::move(operands), std::move(views),
                           Row("apply", 0, {Of(cmdAnd), Of(CmdOr), Of(cmdCancelWhere), Space()})});
  Part lists =
      Row("orders", 1,
          {Filtered(lblorderbyasc, lstorderbyasc, 1), Filtered(lblOrderbyDesc, lstorderbydesc, 1)});
  Part order = Column("order", 2,
                      {Frame(Shape1, 1, {Of(Label13), std::move(lists)}, Gap::kTight),
                       Row("limit", 0, {Of(lblAsset), Of(txtAsSet), Of(Label12), Space()})});
  return Column("page", 1,
                {Row("where", 1, {std::move(condition), std::move(order)}, Gap::kWide),
                 Foot({Label20, Label21, Label22, Label23, Label24}, cmdAddWhereQuery)});
}

Part Statements(int index, ControlName box, std::initializer_list<ControlName> notes,
                ControlName button) {
  Part requests = Column(
      "requests", 0,
      {Of(cmdFunction, index, 0), Of(cmdCondition, index, 0), Of(cmdSubQuery, index, 0), Space()});
  return Column("page", 1,
                {Row("statements", 1, {Of(box, 1), std::move(requests)}), Foot(notes, button)});
}

Part OnCase() {
  Part head = Row("case-head", 0,
                  {Fields(2, {Pair(lblexprcase, txtcaseexp), Space()}),
                   Fields(3, {Pair(lblDefault, TxtDef, 1)})});
  // The headings above the two columns of case rows. The columns begin at fixed positions: at 120
  // and 2640 of 7665 twips.
  Part words = Row("case-words", 0, {Space(120), Of(lblexpr, 2520), Of(lblstmt, 5025)}, Gap::kNone);
  Part rows{PartKind::kOwn,
            "cases",
            0,
            Gap::kNone,
            &DesignOf(fracase),
            {Of(TxtExpr, 0, 0), Of(txtStmt, 0, 0), Of(VscrCase), Of(cmdNext)}};
  return Frame(fraOnCase, 0, {std::move(head), std::move(words), std::move(rows), Space()});
}

// The frame of a kind of condition: labels, and boxes beside them.
Part KindOf(ControlName frame, Parts pairs) {
  return Frame(frame, 0, {Fields(1, std::move(pairs))});
}

Part Conditions() {
  Parts options = All({optIfThen, optwhile, optRepeat, optFor, optCase});
  options.push_back(Space());
  Parts notes = All({Label14, Label15, Label16, Label17, Label18, Label19});
  notes.push_back(Space());
  Part panels =
      Stack(1, {Frame(Frainitial, 0, std::move(notes)),
                KindOf(fraif, {Pair(lblCondtion, txtCond), Pair(lblStmt1, txtStmt1, 1),
                               Pair(lblstmt2, txtStmt2, 1)}),
                KindOf(frawhile, {Pair(lblWhereCnd, txtWhlCnd), Pair(lblwherestm, txtWhlStm, 1)}),
                KindOf(frarepeat, {Pair(lblRepcond, txtRepCnd), Pair(lblrepstmt, txtRepStm, 1)}),
                KindOf(fraFor, {Pair(lblVariable, txtVariable), Pair(lnlintval, txtinitval),
                                Pair(lblfinValue, txtFinVal), Pair(lblStep, txtStep),
                                Pair(lblforStatement, txtForStmt, 1)}),
                OnCase()});
  return Column(
      "page", 1,
      {Row("kinds", 1, {Frame(fraSelect, 0, std::move(options)), std::move(panels)}, Gap::kWide),
       Row("ends", 0,
           {Of(cmdFunction, 4, 0), Of(cmdSubQuery, 4, 0), Space(), Of(cmdAdd), Of(cmdBuild)})});
}

Part WholeForm() {
  Part pages{PartKind::kPages,
             "pages",
             1,
             Gap::kNone,
             nullptr,
             {SelectList(), Where(),
              Statements(0, txtSelectDo, {Label27, Label26, Label28, Label25}, cmdAddSelectDoQuer),
              Statements(1, txtSelectEOS, {Label31, Label30, Label32, Label29}, cmdAddSEOStoquery),
              Statements(2, txtselectempty, {Label35, Label34, Label36, Label33}, cmdSelectmpty),
              Statements(3, txtSelectError, {Label39, Label38, Label40, Label37}, cmdAddtoSERROR),
              Conditions()}};
  Part top =
      Column("top", 3,
             {Row("head", 0, {Of(tabVrn, 1), Part{PartKind::kTools, "tools"}}), std::move(pages)});
  Part result = Column("result", 1, {Of(lblResult), Of(TxtOutput, 1)}, Gap::kTight);
  Part halves{PartKind::kSplit, "halves", 1,
              Gap::kUsual,      nullptr,  {std::move(top), std::move(result)}};
  return Column(
      "face", 1,
      {std::move(halves), Row("buttons", 0, {Space(), Of(cmdClear), Of(cmdCancel), Of(cmdDone)})});
}

template <typename Test>
bool Any(const Part& part, const Test& test) {
  return test(part) || std::any_of(part.parts.begin(), part.parts.end(),
                                   [&](const Part& inner) { return Any(inner, test); });
}

}  // namespace

const Part& Layout() {
  static const Part layout = WholeForm();
  return layout;
}

bool IsNote(const Design& control) {
  return Any(Layout(), [&](const Part& part) {
    return part.kind == PartKind::kNotes &&
           std::any_of(part.parts.begin(), part.parts.end(),
                       [&](const Part& note) { return note.control == &control; });
  });
}

bool HasFilter(const Design& control) {
  return Any(Layout(), [&](const Part& part) {
    return part.kind == PartKind::kFilter && part.control == &control;
  });
}

bool HasSearch(const Design& control) {
  return Any(Layout(),
             [&](const Part& part) { return part.hasSearch && part.control == &control; });
}

int LeastLines(const Design& control) {
  constexpr int kRowsOfList = 3;
  constexpr int kLinesOfBox = 2;
  if (control.kind == Kind::ListBox) return kRowsOfList;
  return (control.style & kMultiLine) != 0 ? kLinesOfBox : 1;
}

}  // namespace zolt20::faces
