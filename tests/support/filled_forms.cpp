#include "tests/support/filled_forms.h"

#include <algorithm>

namespace zolt20::tests::forms {

String TableList(const Tables& tables) {
  Texts entries;
  for (const Table& table : tables)
    entries.push_back(table.name + std::to_string(table.indexes));
  return Wide(List(entries));
}

String FieldList(const Tables& tables) {
  Texts records;
  for (const Table& table : tables) {
    for (const std::string& field : table.fields)
      records.push_back(Field((field.ends_with("DATE") ? "Y" : "N") + field));
  }
  return Wide(List(records));
}

Tables Person::MakeCatalogue() {
  Texts names{"ORDERS__", "CUSTOMER", "STOCK___", "ITEM____", "HISTORY_"};
  std::shuffle(names.begin(), names.end(), choices_);
  names.resize(static_cast<std::size_t>(2 + Below(3)));
  if (OneIn(10)) names[0] = OneOf({"summarys", "summarys", "desctabl"});
  Tables tables;
  for (const std::string& name : names) {
    Table table{name, Below(3), {}};
    Texts fields{"ID", "NAME", "QTY", "QTY2", "DATE", "reindex", "LINE NO"};
    std::shuffle(fields.begin(), fields.end(), choices_);
    fields.resize(static_cast<std::size_t>(2 + Below(4)));
    if (OneIn(12))
      fields[1] = OneOf(
          {"description", "DESC_NO", "a:b", "NAME ", "CUSTOMER_NO", "STOCK___ID", "ITEM____"});
    if (OneIn(20)) fields.push_back(fields[0]);
    for (const std::string& field : fields)
      table.fields.push_back(name + "." + field);
    tables.push_back(table);
  }
  return tables;
}

void Person::FillIn(Page& page) {
  const Surface& form = page.Form();
  MarkTables(page);
  const bool all = OneIn(10);
  if (all) page.Click(form.cmdMoveAll);
  const bool functions = OneIn(4);
  for (int i = all ? Below(2) : 1 + Below(4); i > 0; --i) {
    if (functions) page.Click(form.lstFunctions, Below(6));
    page.Click(form.lstFields, Below(form.lstFields.ListCount()));
    page.Click(form.cmdMoveOne);
  }
  if (OneIn(8) && form.lstSelectedFields.ListCount() > 1) {
    page.Click(form.lstSelectedFields, Below(form.lstSelectedFields.ListCount()));
    page.Click(form.cmdRemoveOne);
  }
  if (form.lstSelectedFields.ListCount() == 0) {
    page.Click(form.lstFunctions, 0);
    page.Click(form.cmdMoveOne);
  }
  for (int i = Below(4); i > 0; --i)
    page.Click(form.lstGroupby, Below(form.lstGroupby.ListCount()));
  page.Tab(1);
  Order(page);
  ChooseConditions(page);
  LimitRows(page);
  FillBlocks(page);
}

void Person::MarkTables(Page& page) {
  const ListBox& list = page.Form().lsttables;
  for (int row = list.ListCount() - 1; row >= 0; --row) {
    if (!OneIn(3)) page.Click(list, row);
  }
  if (list.SelCount() == 0) page.Click(list, Below(list.ListCount()));
  // Some come back to a table later, so that it is marked behind the others.
  const int again = Below(list.ListCount());
  if (OneIn(4) && list.SelCount() > 1 && list.Selected(again)) {
    page.Click(list, again);
    page.Click(list, again);
  }
}

void Person::Order(Page& page) {
  const Surface& form = page.Form();
  const int rows = form.lstorderbyasc.ListCount();
  if (!form.lstorderbyasc.Enabled() || rows == 0) return;
  for (int i = Below(4); i > 0; --i)
    page.Click(OneIn(2) ? form.lstorderbyasc : form.lstorderbydesc, Below(rows));
}

void Person::ChooseConditions(Page& page) {
  const Surface& form = page.Form();
  if (OneIn(5)) {
    page.Type(form.txtwhereCondition,
              OneOf({"  A.B = C.D\r\n\tand E = F\r\n", "x", " \t\r\n ab", "A = \"x\r\nendselect\"",
                     "A *zlt* B", "a = \"(\"", "A = ~", "A = `^`", "A = \x01", "A = \"x",
                     "A in (1,2", "A = B\r\norder by NOTHING_.X", "A = B\r\nendselect",
                     "A\r\n\t\tor B", "A\nselectdo\nB"}));
    if (OneIn(2)) return;
  }
  for (int i = Below(4); i > 0; --i) {
    page.Pick(form.cboWhereFields, Below(form.cboWhereFields.ListCount()));
    page.Pick(form.cboOper, Below(form.cboOper.ListCount()));
    if (!form.FraCondition.Visible()) {
      page.Type(form.cboWhereFields1, OneOf({"10", "\"it (\"", ":var.x", "\"a\r\nendselect\""}));
    } else if (OneIn(3)) {
      page.Type(form.txtCondition,
                OneOf({"EXISTS  (  \r\nselect A.B\r\nfrom  A\r\nwhere C\r\norder by A.B\r\n"
                       "endselect\r\n)",
                       "A.B LIKE \"x%\"", "A.B IN ( \"(\", \")\" )", "A.B {: \t}"}));
    }
    page.Click(OneIn(2) ? form.cmdAnd : form.CmdOr);
  }
}

void Person::LimitRows(Page& page) {
  const TextBox& box = page.Form().txtAsSet;
  if (OneIn(6)) page.Type(box, OneOf({"  5 ", "10", "   ", "5 rows ", "~"}));
  if (OneIn(3)) {
    page.Key(box, '1');
    page.Key(box, '0');
  }
}

std::string Person::BlockText() {
  std::string text = OneOf({"", "", "", "", " ", "\t", "\r\n"});
  for (int i = 1 + Below(5); i > 0; --i) {
    text += OneOf({":var.x = 1", "if A = \"B\" then \r\n\t:x = \"\ty\"\r\n\telse\r\n\t\tz\r\nendif",
                   "select A.B\r\nfrom  A\r\nselectdo\r\n\tselect C.D\r\n\tfrom  C\r\n\tselecteos"
                   "\r\n\t\tx\r\n\tendselect\r\nendselect",
                   "\t\t\tdeep", "", "a\tb\t\tc", "endselect", "x = \"(", "lone\nfeed\rs"});
    if (OneIn(60)) text += OneOf({"~", "\x01", "`^`", "*zlt*", " *zlt*\t\t*zlt*"});
    text += "\r\n";
  }
  if (OneIn(40)) text = OneOf({"x   ", "\r\n\r\n\r\nabcdefgh", "x", "xy"});
  return text;
}

void Person::FillBlocks(Page& page) {
  const Surface& form = page.Form();
  int number = 2;
  for (const SyntaxTextBox* box :
       {&form.txtSelectDo, &form.txtSelectEOS, &form.txtselectempty, &form.txtSelectError}) {
    page.Tab(number++);
    if (OneIn(2)) page.Type(*box, BlockText());
  }
}

}  // namespace zolt20::tests::forms
