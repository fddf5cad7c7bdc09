#include "tests/support/whole_forms.h"

#include <algorithm>

namespace zolt20::tests {
namespace {

std::string Indented(std::string text, std::size_t tabs) {
  const std::string end = "\r\n" + std::string(tabs, '\t');
  for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos; at += end.size())
    text.replace(at, 2, end);
  return text;
}

}  // namespace

WholeForm::WholeForm(unsigned seed)
    : choices_(seed), hasDefaults_(OneIn(2)), control_(host_), form_(control_.Form()) {
  control_.UserControl_InitProperties();
  MakeCatalogue();
  control_.PrpStrTables(tables_);
  control_.PrpStrFields(fields_);
}

String WholeForm::Compose() {
  if (OneIn(4)) control_.prpintTabcount(Below(3));
  for (int parts = 1 + Below(3); parts > 0; --parts) {
    if (OneIn(3)) {
      AddNesting();
    } else {
      FillSelect();
      AddSelect();
    }
  }
  return OneIn(2) ? control_.prpStroutput() : form_.TxtOutput.Text();
}

void WholeForm::Done(Outcome outcome) {
  EXPECT_EQ(outcome, Outcome::kDone);
}

void WholeForm::Type(const zolt20::Control& box, const std::string& text) {
  if (!text.empty()) Done(control_.UserType(box, Wide(text)));
}

// What is typed.

void WholeForm::MakeCatalogue() {
  Texts names{"ORDERS__", "CUSTOMER", "STOCK___", "ITEM____", "2NDTABLE", "from_tab"};
  std::shuffle(names.begin(), names.end(), choices_);
  names.resize(static_cast<std::size_t>(2 + Below(3)));
  Texts entries;
  Texts records;
  for (const std::string& name : names) {
    Table table{name, Below(3), {}};
    Texts fields{"ID",    "NAME",        "QTY2",       "DATE",     "reindex",       "LINE NO",
                 "a:b",   "description", "STOCK___ID", "ITEM____", "\u00E9t\u00E9", "END-IF",
                 "NAME ", "if",          "endselect"};
    std::shuffle(fields.begin(), fields.end(), choices_);
    fields.resize(static_cast<std::size_t>(2 + Below(5)));
    for (const std::string& field : fields) {
      table.fields.push_back(name + "." + field);
      records.push_back(Field((OneIn(4) ? "Y" : "N") + name + "." + field));
    }
    entries.push_back(name + std::to_string(table.indexes));
    tableRows_.push_back(table);
  }
  tables_ = Wide(List(entries));
  fields_ = Wide(List(records));
}

std::string WholeForm::Value() {
  if (OneIn(2)) return Name();
  return OneOf({"10", "-1.5", "\"it (\"", "\"a, \t} b\"", "\"\"", ":var.x", ":var.sum.NOTHING_.X",
                "f ( :var.x , g ( \"then\" ) )", "( 1 + 2 ) * :var.y"});
}

std::string WholeForm::Condition() {
  const Texts relations{" = ", " <> ", " > ", " <= "};
  std::string text = Value() + OneOf(relations) + Value();
  for (int more = Below(3); more > 0; --more)
    text += OneOf({" and ", " or "}) + Value() + OneOf(relations) + Value();
  return text;
}

// A select statement as the control writes it, all lines but the first indented by `tabs` tabs.
std::string WholeForm::Select(std::size_t depth, std::size_t tabs) {
  const Table& table = OneOfTables();
  std::string text = "select " + OneOf(table.fields);
  if (OneIn(3)) text = "select count ( * ) :var.count";
  if (OneIn(3)) text = "select " + table.name + ".*";
  text += "\r\nfrom  " + table.name;
  if (OneIn(2)) text += "\r\nwhere " + Condition();
  if (OneIn(4)) text += "\r\norder by " + OneOf(table.fields) + " desc";
  if (OneIn(4)) text += "\r\nas set with 5 rows ";
  for (const char* const block : {"selectdo", "selecteos", "selectempty", "selecterror"}) {
    if (depth > 0 && OneIn(4))
      text += std::string("\r\n") + block + "\r\n\t" + Indented(Block(depth - 1), 1);
  }
  return Indented(text + "\r\nendselect", tabs);
}

std::string WholeForm::Statement(std::size_t depth) {
  switch (Below(depth == 0 ? 3 : 6)) {
    case 0:
      return ":var.x = " + Value();
    case 1:
      return OneOf({"call ( :var.x )", "commit", "break", "# a remark", "x.y", "fore = 1",
                    "endselected = 2", "f (\r\n\t:var.x,\r\n\t:var.y )"});
    case 2:
      return Name() + " = " + Value();
    case 3:
      return Select(depth - 1, 0);
    default:
      return Print({Filled(depth - 1, OneIn(2)), Filled(depth - 1, true)});
  }
}

std::string WholeForm::Block(std::size_t depth) {
  std::string text = Statement(depth);
  for (int more = Below(4); more > 0; --more)
    text += "\r\n" + Statement(depth);
  return text;
}

Construct WholeForm::Filled(std::size_t depth, bool hasStatement) {
  Construct construct;
  construct.kind = static_cast<Kind>(Below(kKinds));
  construct.head = construct.kind == Kind::kFor ? ":var.i" : Condition();
  if (construct.kind == Kind::kFor) {
    construct.first = Value();
    construct.last = Value();
    if (OneIn(2)) construct.step = OneOf({"2", ":var.step"});
  }
  if (hasStatement) construct.statement = Block(depth);
  if (construct.kind == Kind::kIf && hasStatement && OneIn(2))
    construct.elseStatement = Block(depth);
  if (construct.kind == Kind::kCase) {
    // A fifth one fails where the one before was added scrolled down.
    for (int rows = 1 + Below(4); rows > 0; --rows)
      construct.rows.push_back({OneOf({"1", "\"a : b\"", ":var.x", "( 1 )"}), Block(depth)});
    if (hasDefaults_) construct.defaultStatement = Statement(0);
  }
  return construct;
}

// Gestures.

void WholeForm::FillSelect() {
  Done(control_.UserTab(0));
  const ListBox& tables = form_.lsttables;
  for (int row = tables.ListCount() - 1; row >= 0; --row) {
    if (OneIn(2)) Click(tables, row);
  }
  if (tables.SelCount() == 0) Click(tables, Below(tables.ListCount()));
  ChooseFields();
  if (form_.lstSelectedFields.ListCount() == 0) {
    // The rows are counted.
    Click(form_.lstFunctions, 0);
    Click(form_.cmdMoveOne);
  }
  for (int groups = OneIn(2) ? Below(4) : 0; groups > 0; --groups)
    Click(form_.lstGroupby, Below(form_.lstGroupby.ListCount()));
  Done(control_.UserTab(1));
  const int orders = form_.lstorderbyasc.ListCount();
  for (int marks = orders > 0 && form_.lstorderbyasc.Enabled() ? Below(4) : 0; marks > 0; --marks)
    Click(OneIn(2) ? form_.lstorderbyasc : form_.lstorderbydesc, Below(orders));
  for (int conditions = Below(4); conditions > 0; --conditions)
    ApplyCondition();
  if (OneIn(3)) Type(form_.txtAsSet, OneOf({"10", "  5 ", ":var.rows"}));
  FillBlocks();
}

void WholeForm::ChooseFields() {
  if (OneIn(6)) Click(form_.cmdMoveAll);
  const bool hasFunctions = OneIn(3);
  for (int fields = Below(5); fields > 0; --fields) {
    if (hasFunctions) Click(form_.lstFunctions, Below(form_.lstFunctions.ListCount()));
    Click(form_.lstFields, Below(form_.lstFields.ListCount()));
    Click(form_.cmdMoveOne);
  }
  if (OneIn(8) && form_.lstSelectedFields.ListCount() > 1) {
    Click(form_.lstSelectedFields, Below(form_.lstSelectedFields.ListCount()));
    Click(form_.cmdRemoveOne);
  }
}

void WholeForm::ApplyCondition() {
  Done(control_.UserPick(form_.cboWhereFields, Below(form_.cboWhereFields.ListCount())));
  Done(control_.UserPick(form_.cboOper, Below(form_.cboOper.ListCount())));
  if (!form_.FraCondition.Visible()) {
    Type(form_.cboWhereFields1, Value());
  } else {
    const std::string shown = Narrow(form_.txtCondition.Text());
    std::string text = shown;
    if (shown.find("EXISTS") != std::string::npos) {
      text = "EXISTS  (  \r\n" + Select(0, 0) + "\r\n)";
    } else if (shown.ends_with("{: }")) {
      text.insert(text.size() - 2, Value());
    } else if (shown.ends_with("{  ,  }")) {
      text = shown.substr(0, shown.size() - 7) + "{ " + Value() + " , " + Value() + " }";
    } else if (shown.find(" IN (") != std::string::npos) {
      text = shown.substr(0, shown.find(" IN (")) + " IN ( " + Value() + ", " + Value() + " )";
    } else if (shown.find(" BETWEEN {") == std::string::npos) {
      text += Value();
    }
    if (!OneIn(5)) Type(form_.txtCondition, text);
  }
  Click(OneIn(2) ? form_.cmdAnd : form_.CmdOr);
}

void WholeForm::FillBlocks() {
  int page = 2;
  for (const SyntaxTextBox* const box :
       {&form_.txtSelectDo, &form_.txtSelectEOS, &form_.txtselectempty, &form_.txtSelectError}) {
    Done(control_.UserTab(page++));
    if (OneIn(3)) Type(*box, Block(2));
  }
  // The host's answer is appended to the text of the box.
  const std::string& table = OneOfTables().name;
  if (OneIn(3))
    control_.prpSelectDoPart(Wide("select " + table + ".*~from  " + table + "~endselect"));
  if (OneIn(3)) control_.prpSelectEOSPart(u":var.a = today ( )");
  if (OneIn(6)) control_.prpSelectEOSPart(u"*zlt*if :var.b = 1 then ~\u0001:var.c = `^`x`^`~endif");
}

void WholeForm::AddSelect() {
  Done(control_.UserTab(0));
  Click(form_.cmdAddSelect);
  if (!OneIn(4)) return;
  Done(control_.UserTab(2));
  Click(form_.cmdAddSelectDoQuer);
}

void WholeForm::AddConstruct(const Construct& construct) {
  switch (construct.kind) {
    case Kind::kIf:
      Click(form_.optIfThen);
      Type(form_.txtCond, construct.head);
      Type(form_.txtStmt1, construct.statement);
      Type(form_.txtStmt2, construct.elseStatement);
      break;
    case Kind::kFor:
      Click(form_.optFor);
      Type(form_.txtVariable, construct.head);
      Type(form_.txtinitval, construct.first);
      Type(form_.txtFinVal, construct.last);
      Type(form_.txtStep, construct.step);
      Type(form_.txtForStmt, construct.statement);
      break;
    case Kind::kWhile:
      Click(form_.optwhile);
      Type(form_.txtWhlCnd, construct.head);
      Type(form_.txtWhlStm, construct.statement);
      break;
    case Kind::kRepeat:
      Click(form_.optRepeat);
      Type(form_.txtRepCnd, construct.head);
      Type(form_.txtRepStm, construct.statement);
      break;
    case Kind::kCase:
      AddCase(construct);
      break;
  }
  Click(form_.cmdAdd);
}

void WholeForm::AddCase(const Construct& construct) {
  Click(form_.optCase);
  Type(form_.txtcaseexp, construct.head);
  Type(form_.TxtDef, construct.defaultStatement);
  for (std::size_t row = 0; row < construct.rows.size(); ++row) {
    if (row > 0) Click(form_.cmdNext);
    const Integer index(static_cast<int>(row));
    Type(form_.TxtExpr(index), construct.rows[row].value);
    if (!OneIn(6)) Type(form_.txtStmt(index), construct.rows[row].statement);
  }
}

// Adds nested constructs, with select statements of the other pages in between.
void WholeForm::AddNesting() {
  for (int depth = 1 + Below(4); depth > 0; --depth) {
    Done(control_.UserTab(6));
    AddConstruct(Filled(1, OneIn(2)));
    if (!OneIn(6)) continue;
    FillSelect();
    AddSelect();
  }
  Done(control_.UserTab(6));
  Click(form_.cmdBuild);
}

}  // namespace zolt20::tests
