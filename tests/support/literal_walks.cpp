#include "tests/support/literal_walks.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <tuple>

#include "hosts/kit/text_coding.h"
#include "tests/support/digester.h"

namespace zolt20::tests {
namespace {

const String kBreak = u"\r\n";
const String kSeparates = u"*Q*V*R*N*";

constexpr std::array kLists{"lsttables",  "lstFunctions",  "lstFields",     "lstSelectedFields",
                            "lstGroupby", "lstorderbyasc", "lstorderbydesc"};
constexpr std::array kCombos{"cboWhereFields", "cboOper", "cboWhereFields1"};
constexpr std::array kBoxes{
    "txtwhereCondition", "txtCondition", "txtAsSet",   "txtCond",    "txtStmt1",    "txtStmt2",
    "txtWhlCnd",         "txtWhlStm",    "txtRepCnd",  "txtRepStm",  "txtVariable", "txtinitval",
    "txtFinVal",         "txtStep",      "txtForStmt", "txtcaseexp", "TxtDef"};
constexpr std::array kSyntaxBoxes{"TxtOutput", "txtSelectDo", "txtSelectEOS", "txtselectempty",
                                  "txtSelectError"};
constexpr std::array kButtons{"cmdAddSelect",      "cmdAddWhereQuery", "cmdAddSelectDoQuer",
                              "cmdAddSEOStoquery", "cmdSelectmpty",    "cmdAddtoSERROR",
                              "cmdFunction(4)",    "cmdSubQuery(4)",   "cmdAdd",
                              "cmdBuild"};
constexpr std::array kParts{
    "FrawhereCondition", "FraCondition", "Frainitial", "fraSelect", "fraif",    "fraFor",
    "frawhile",          "frarepeat",    "fraOnCase",  "fracase",   "VscrCase", "cmdNext"};
constexpr std::array kOptions{"optIfThen", "optFor", "optwhile", "optRepeat", "optCase"};
constexpr std::array kCaptions{"cmdCancelWhere", "FraCondition"};

// Texts, one character after the other.

String trim(const String& s) {
  std::size_t first = 0;
  while (first < s.size() && s[first] == u' ')
    ++first;
  std::size_t end = s.size();
  while (end > first && s[end - 1] == u' ')
    --end;
  return s.substr(first, end - first);
}

/// At most `count` characters from `position` on, which counts from 1.
String mid(const String& s, int position, int count) {
  if (position < 1 || count < 0) throw LiteralError{ErrorKind::kArgument};
  String piece;
  for (int i = position; i <= static_cast<int>(s.size()) && i < position + count; ++i) {
    piece += s[static_cast<std::size_t>(i - 1)];
  }
  return piece;
}

String from(const String& s, int position) {
  return mid(s, position, static_cast<int>(s.size()));
}

String left(const String& s, int count) {
  return mid(s, 1, count);
}

bool standsAt(const String& s, std::size_t at, const String& part) {
  if (at + part.size() > s.size()) return false;
  for (std::size_t i = 0; i < part.size(); ++i) {
    if (s[at + i] != part[i]) return false;
  }
  return true;
}

/// The place of `part`, from 1, or 0.
int place(const String& s, const String& part) {
  for (std::size_t at = 0; at + part.size() <= s.size(); ++at) {
    if (standsAt(s, at, part)) return static_cast<int>(at) + 1;
  }
  return 0;
}

bool holds(const String& s, const String& part) {
  return place(s, part) > 0;
}

String replaced(const String& s, const String& old, const String& by) {
  String result;
  for (std::size_t at = 0; at < s.size();) {
    if (standsAt(s, at, old)) {
      result += by;
      at += old.size();
    } else {
      result += s[at];
      ++at;
    }
  }
  return result;
}

std::vector<String> split(const String& s, const String& separator) {
  if (s.empty()) return {};
  std::vector<String> pieces{u""};
  for (std::size_t at = 0; at < s.size();) {
    if (standsAt(s, at, separator)) {
      pieces.emplace_back();
      at += separator.size();
    } else {
      pieces.back() += s[at];
      ++at;
    }
  }
  return pieces;
}

String lower(const String& s) {
  String result;
  for (const char16_t c : s) {
    const bool isCapital =
        (c >= u'A' && c <= u'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7 /* the times sign */);
    result += isCapital ? static_cast<char16_t>(c + 32) : c;
  }
  return result;
}

String tabs(int count) {
  String result;
  for (int i = 1; i <= count; ++i)
    result += u'\t';
  return result;
}

/// The value of a text that is numeric.
std::optional<long double> number(const String& text) {
  const String s = trim(text);
  std::string plain;
  std::size_t at = 0;
  const auto isDigit = [&] { return at < s.size() && s[at] >= u'0' && s[at] <= u'9'; };
  const auto take = [&] { plain += static_cast<char>(s[at++]); };
  const auto takeSign = [&] {
    if (at < s.size() && (s[at] == u'+' || s[at] == u'-')) take();
  };
  int digits = 0;
  takeSign();
  for (; isDigit(); ++digits)
    take();
  if (at < s.size() && s[at] == u'.') {
    take();
    for (; isDigit(); ++digits)
      take();
  }
  if (digits == 0) return std::nullopt;
  if (at < s.size() && (s[at] == u'e' || s[at] == u'E')) {
    take();
    takeSign();
    if (!isDigit()) return std::nullopt;
    while (isDigit())
      take();
  }
  if (at < s.size()) return std::nullopt;
  return std::strtold(plain.c_str(), nullptr);
}

int sixteenBits(long double value) {
  const long double whole = std::nearbyint(value);
  if (whole < std::numeric_limits<std::int16_t>::min() ||
      whole > std::numeric_limits<std::int16_t>::max()) {
    throw LiteralError{ErrorKind::kOverflow};
  }
  return static_cast<int>(whole);
}

String digits(int value) {
  const std::string plain = std::to_string(value);
  return {plain.begin(), plain.end()};
}

String trimBlankEnds(const String& s) {
  const auto isBlank = [](char16_t c) {
    return c == u'\r' || c == u'\n' || c == u'\t' || c == u' ' || c == u'\0';
  };
  const int length = sixteenBits(static_cast<long double>(s.size()));
  int i = 1;
  while (i < length && isBlank(s[static_cast<std::size_t>(i - 1)]))
    ++i;
  if (s.empty()) return u"";
  String t = from(s, i);
  if (trim(t).empty()) return u"";
  const int m = static_cast<int>(t.size());
  if (m - i <= 0) return u"";
  while (!t.empty() && isBlank(t.back()))
    t.pop_back();
  return t;
}

template <typename Entry>
Entry& at(std::vector<Entry>& array, int index) {
  if (index < 0 || index >= static_cast<int>(array.size())) {
    throw LiteralError{ErrorKind::kSubscript};
  }
  return array[static_cast<std::size_t>(index)];
}

template <typename Entry>
Entry& at(std::optional<std::vector<Entry>>& array, int index) {
  if (!array) throw LiteralError{ErrorKind::kSubscript};
  return at(*array, index);
}

/// The entries of an array; raises kSubscript when the array was never filled.
const std::vector<String>& walked(const std::optional<std::vector<String>>& array) {
  if (!array) throw LiteralError{ErrorKind::kSubscript};
  return *array;
}

/// A piece of a split record; raises kSubscript when the record has fewer pieces.
const String& piece(const std::vector<String>& pieces, std::size_t index) {
  if (index >= pieces.size()) throw LiteralError{ErrorKind::kSubscript};
  return pieces[index];
}

String secondSubField(const String& record) {
  return piece(split(record, kSeparates), 1);
}

String nameIn(const String& record) {
  return from(secondSubField(record), 2);
}

// Images.

String Line(const std::string& name, const String& text) {
  return String(name.begin(), name.end()) + u" " + text;
}

String Flag(bool flag) {
  return flag ? u"yes" : u"no";
}

/// `row` gives the text of a row with its mark in front.
template <typename RowText>
String RowsLine(const std::string& name, bool enabled, int listIndex, int selCount, int count,
                RowText row) {
  String line = Line(name, Flag(enabled) + u" at " + digits(listIndex) + u" marked " +
                               digits(selCount) + u" of " + digits(count) + u":");
  line.reserve(line.size() + static_cast<std::size_t>(count) * 24);
  for (int i = 0; i < count; ++i) {
    line += u" |";
    row(i, line);
  }
  return line;
}

String ComboLine(const std::string& name, const String& text, unsigned backColor) {
  return Line(name, u"shows " + text + u" in " + digits(static_cast<int>(backColor)));
}

String BarLine(int value, int max) {
  return Line("VscrCase", digits(value) + u" of " + digits(max));
}

String BoxLine(const std::string& name, const String& text, int caret) {
  return Line(name, digits(caret) + u": " + text);
}

template <typename Kind>
const Kind& On(const Surface& form, const std::string& name) {
  return dynamic_cast<const Kind&>(*form.Find(name));
}

std::string Element(const std::string& array, int index) {
  return array + "(" + std::to_string(index) + ")";
}

}  // namespace

FormImage ImageOf(const Surface& form) {
  FormImage image;
  for (const char* name : kLists) {
    const auto& list = On<ListBox>(form, name);
    image.push_back(RowsLine(name, list.Enabled(), list.ListIndex(), list.SelCount(),
                             list.ListCount(), [&list](int i, String& line) {
                               line += list.Selected(i) ? u'x' : u'-';
                               line += list.List(i);
                             }));
  }
  for (const char* name : kCombos) {
    const auto& combo = On<ComboBox>(form, name);
    image.push_back(RowsLine(name, combo.Enabled(), combo.ListIndex(), 0, combo.ListCount(),
                             [&combo](int i, String& line) { line += combo.List(i); }));
    image.push_back(ComboLine(name, String(combo.Text()), combo.BackColor()));
  }
  const auto addBox = [&](const std::string& name) {
    const auto& box = On<TextBox>(form, name);
    image.push_back(BoxLine(name, box.Text(), box.SelStart()));
  };
  for (const char* name : kBoxes)
    addBox(name);
  for (int row = 0; row <= form.TxtExpr.UpperBound().value(); ++row) {
    addBox(Element("TxtExpr", row));
    addBox(Element("txtStmt", row));
    for (const char* array : {"TxtExpr", "txtStmt"})
      image.push_back(Line(array, digits(form.Find(Element(array, row))->Top())));
  }
  image.push_back(BarLine(form.VscrCase.Value(), form.VscrCase.Max()));
  for (const char* name : kSyntaxBoxes) {
    const auto& box = On<SyntaxTextBox>(form, name);
    image.push_back(BoxLine(name, box.Text(), 0) + Flag(box.Highlight()));
  }
  for (const char* name : kButtons)
    image.push_back(Line(name, Flag(form.Find(name)->Enabled())));
  for (const char* name : kParts)
    image.push_back(Line(name, Flag(form.Find(name)->Visible())));
  for (const char* name : kOptions)
    image.push_back(Line(name, Flag(On<OptionButton>(form, name).Value())));
  for (const char* name : kCaptions)
    image.push_back(Line(name, String(On<CaptionedControl>(form, name).Caption())));
  image.push_back(Line("tabVrn", digits(form.tabVrn.Tab().value())));
  return image;
}

std::string Difference(const FormImage& control, const FormImage& literal) {
  for (std::size_t i = 0; i < control.size() && i < literal.size(); ++i) {
    const String& a = control[i];
    const String& b = literal[i];
    if (a == b) continue;
    std::size_t same = 0;
    while (same < a.size() && same < b.size() && a[same] == b[same])
      ++same;
    const std::size_t start = same < 60 ? 0 : same - 60;
    const auto around = [&](const String& line) {
      return hosts::ToJsonText(line.substr(std::min(start, line.size()), 200));
    };
    return hosts::ToJsonText(left(a, 20)) + "...: the control has\n  " + around(a) +
           "\nthe walk\n  " + around(b);
  }
  return control.size() == literal.size() ? "" : "the numbers of case rows differ";
}

std::string StampOf(const FormImage& image) {
  std::size_t stamp = 0;
  for (const String& line : image)
    stamp = stamp * 31 + std::hash<String>()(line);
  return std::to_string(stamp);
}

// Rows.

String LiteralForm::Rows::List(int i) const {
  return i < 0 || i >= ListCount() ? String() : rows[static_cast<std::size_t>(i)];
}

bool LiteralForm::Rows::Selected(int i) const {
  if (i < 0 || i >= ListCount()) throw LiteralError{ErrorKind::kIndex};
  return marks[static_cast<std::size_t>(i)];
}

int LiteralForm::Rows::SelCount() const {
  int count = 0;
  for (const bool mark : marks) {
    if (mark) ++count;
  }
  return count;
}

void LiteralForm::Rows::AddItem(const String& item) {
  int i = ListCount();
  if (sorted) {
    while (i > 0 && rows[static_cast<std::size_t>(i - 1)] > item)
      --i;
  }
  rows.insert(rows.begin() + i, item);
  marks.insert(marks.begin() + i, false);
  if (i <= listIndex) ++listIndex;
}

void LiteralForm::Rows::RemoveItem(int i) {
  if (i < 0 || i >= ListCount()) throw LiteralError{ErrorKind::kArgument};
  rows.erase(rows.begin() + i);
  marks.erase(marks.begin() + i);
  if (i == listIndex) {
    listIndex = -1;
    text.clear();
  } else if (i < listIndex) {
    --listIndex;
  }
}

void LiteralForm::Rows::Clear() {
  rows.clear();
  marks.clear();
  listIndex = -1;
}

// The form.

LiteralForm::LiteralForm()
    : marrOpenKinds(21), marrRepeatConds(11), marrCaseDefaults(11), marrCaseTabs(11) {
  for (const char* item : {"count ( * ) ", "count", "sum", "avg", "max", "min"})
    lstFunctions.AddItem(hosts::FromJsonText(item));
  for (const char* item :
       {"=", "<>", "!=", "IN", "EXISTS", "NOT EXISTS", "LIKE", "INRANGE", "BETWEEN", "REFERS TO"}) {
    cboOper.AddItem(hosts::FromJsonText(item));
  }
  for (const char* name : kBoxes)
    boxes[name] = {};
  for (const char* name : kSyntaxBoxes)
    boxes[name] = {};
  boxes["TxtExpr(0)"] = {};
  boxes["txtStmt(0)"] = {};
  for (const char* name : kButtons)
    enabled[name] = true;
  for (const char* name : {"cmdAddWhereQuery", "cmdSubQuery(4)", "cmdFunction(4)", "cmdBuild"})
    enabled[name] = false;
  for (const char* name : kParts)
    visible[name] = true;
  for (const char* name : {"VscrCase", "fraif", "fraFor", "fraOnCase", "frawhile", "frarepeat"})
    visible[name] = false;
  for (const char* name : kOptions)
    options[name] = false;
  captions["cmdCancelWhere"] = u"Clear";
  captions["FraCondition"] = u"";
}

FormImage LiteralForm::Image() const {
  FormImage image;
  for (const Rows* list : {&lsttables, &lstFunctions, &lstFields, &lstSelectedFields, &lstGroupby,
                           &lstorderbyasc, &lstorderbydesc}) {
    image.push_back(RowsLine(list->name, list->enabled, list->listIndex, list->SelCount(),
                             list->ListCount(), [list](int i, String& line) {
                               line += list->Selected(i) ? u'x' : u'-';
                               line += list->rows[static_cast<std::size_t>(i)];
                             }));
  }
  for (const Rows* combo : {&cboWhereFields, &cboOper, &cboWhereFields1}) {
    image.push_back(RowsLine(
        combo->name, combo->enabled, combo->listIndex, 0, combo->ListCount(),
        [combo](int i, String& line) { line += combo->rows[static_cast<std::size_t>(i)]; }));
    image.push_back(ComboLine(combo->name, combo->text, combo->backColor));
  }
  const auto addBox = [&](const std::string& name) {
    const Box& box = boxes.at(name);
    image.push_back(BoxLine(name, box.text, box.caret));
  };
  for (const char* name : kBoxes)
    addBox(name);
  for (int row = 0; row <= lastCaseRow; ++row) {
    addBox(Element("TxtExpr", row));
    addBox(Element("txtStmt", row));
    for (const char* array : {"TxtExpr", "txtStmt"})
      image.push_back(Line(array, digits(rowTops[static_cast<std::size_t>(row)])));
  }
  image.push_back(BarLine(barValue, barMax));
  for (const char* name : kSyntaxBoxes)
    image.push_back(BoxLine(name, Text(name), 0) + Flag(mblnSyntaxHighlight));
  for (const char* name : kButtons)
    image.push_back(Line(name, Flag(enabled.at(name))));
  for (const char* name : kParts)
    image.push_back(Line(name, Flag(visible.at(name))));
  for (const char* name : kOptions)
    image.push_back(Line(name, Flag(options.at(name))));
  for (const char* name : kCaptions)
    image.push_back(Line(name, captions.at(name)));
  image.push_back(Line("tabVrn", digits(tab)));
  return image;
}

std::size_t LiteralForm::Digest() const {
  Digester digest;
  for (const String& line : Image())
    digest.Add(line);
  for (const auto& [name, value] : bag)
    digest.Add(value);
  for (const auto* array : {&marrTables, &marrFields, &marrResultStatements}) {
    digest.Add(array->has_value());
    if (*array) digest.AddAll(**array);
  }
  for (const String* text : {&mPrpStrFields,
                             &mstrActiveBox,
                             &mstrStatement,
                             &mstrSelectedFields,
                             &mstrSelectClause,
                             &mstrFromClause,
                             &mstrWhereClause,
                             &mstrGroupbyClause,
                             &mstrOrderbyClause,
                             &mstrAsSetClause,
                             &mstrSelectDoClause,
                             &mstrSelectEOSClause,
                             &mstrSelectEmptyClause,
                             &mstrSelectErrorClause,
                             &mstrConditionKind,
                             &mstrForText,
                             &mstrIfText,
                             &mstrWhileText,
                             &mstrCaseText,
                             &mstrRepeatMark}) {
    digest.Add(*text);
  }
  digest.AddAll(marrOpenKinds);
  digest.AddAll(marrRepeatConds);
  digest.AddAll(marrCaseDefaults);
  digest.AddAll(marrCaseTabs);
  for (const int number :
       {mintStatementCount, mintCurrentStatement, mintTabCount, mintOpenKinds, mintConditionsAdded,
        mintRepeatConds, mintCaseDefaults, mintCaseLevel, mintCaseRow, mintLastScrollValue}) {
    digest.Add(number);
  }
  for (const bool flag : {mblnAggregateMode, mblnWhereResetting, mblnSelectAdded, mblnKindChosen})
    digest.Add(flag);
  return digest.Value();
}

void LiteralForm::Told(const std::string& what) {
  tell(what + " at " + StampOf(Image()));
}

void LiteralForm::Message(const std::string& text) {
  Told("message " + text);
}

void LiteralForm::Changed(const std::string& property) {
  Told("changed " + property);
}

LiteralForm::Rows& LiteralForm::Named(const std::string& name) {
  for (Rows* rows :
       {&lsttables, &lstFunctions, &lstFields, &lstSelectedFields, &lstGroupby, &lstorderbyasc,
        &lstorderbydesc, &cboWhereFields, &cboOper, &cboWhereFields1}) {
    if (rows->name == name) return *rows;
  }
  throw std::invalid_argument("no rows of " + name);
}

void LiteralForm::Clicked(Rows& list) {
  if (&list == &lsttables) lsttables_Click();
}

void LiteralForm::WriteListIndex(Rows& list, int i) {
  if (i < -1 || i >= list.ListCount()) throw LiteralError{ErrorKind::kValue};
  if (list.kind == Kind::kSingle) {
    for (int j = 0; j < list.ListCount(); ++j)
      list.marks[static_cast<std::size_t>(j)] = j == i;
  }
  list.listIndex = i;
  Clicked(list);
}

void LiteralForm::WriteSelected(Rows& list, int i, bool marked) {
  const bool before = list.Selected(i);
  switch (list.kind) {
    case Kind::kSingle:
      if (marked) return WriteListIndex(list, i);
      if (before) return WriteListIndex(list, -1);
      return Clicked(list);
    case Kind::kMulti:
      list.marks[static_cast<std::size_t>(i)] = marked;
      list.listIndex = i;
      return Clicked(list);
    default:
      if (marked == before) return;
      list.marks[static_cast<std::size_t>(i)] = marked;
      list.listIndex = i;
      if (&list == &lstorderbyasc) {
        lstorderbyasc_ItemCheck(i);
      } else {
        lstorderbydesc_ItemCheck(i);
      }
  }
}

void LiteralForm::WriteComboIndex(Rows& combo, int i) {
  if (i < -1 || i >= combo.ListCount()) throw LiteralError{ErrorKind::kValue};
  if (i == combo.listIndex) {
    if (i == -1) combo.text.clear();
    return;
  }
  combo.listIndex = i;
  combo.text = combo.List(i);
  if (&combo == &cboWhereFields) cboWhereFields_Click();
  if (&combo == &cboOper) cboOper_Click();
}

void LiteralForm::WriteText(const std::string& name, const String& text) {
  Box& box = boxes.at(name);
  if (box.text == text) return;
  box = {text, 0};
  if (name == "txtwhereCondition") EnableAddWhereQuery(false);
}

void LiteralForm::Focus(const std::string& box) {
  for (const auto& [name, active] :
       {std::pair("txtForStmt", u"txtforstmt"), std::pair("txtWhlStm", u"txtwhlstm"),
        std::pair("txtStmt2", u"txtstmt2"), std::pair("txtStmt1", u"txtstmt1"),
        std::pair("TxtDef", u"txtdef"), std::pair("txtRepStm", u"txtrepstm")}) {
    if (box == name) mstrActiveBox = active;
  }
  for (int row = 0; row <= lastCaseRow; ++row) {
    if (box == Element("txtStmt", row)) mstrActiveBox = u"Ctxtstmt" + digits(row);
  }
}

// A person.

void LiteralForm::Click(const std::string& button) {
  if (options.count(button) != 0) {
    if (!options.at(button)) Option(button);
  } else if (button == "cmdMoveOne") {
    cmdMoveOne_Click();
  } else if (button == "cmdMoveAll") {
    cmdMoveAll_Click();
  } else if (button == "cmdRemoveOne") {
    cmdRemoveOne_Click();
  } else if (button == "cmdRemoveAll") {
    cmdRemoveAll_Click();
  } else if (button == "cmdAddSelect") {
    cmdAddSelect_Click();
  } else if (button == "cmdAddSelectDoQuer") {
    RewriteButton(true);
  } else if (button == "cmdAddWhereQuery" || button == "cmdAddSEOStoquery" ||
             button == "cmdSelectmpty" || button == "cmdAddtoSERROR") {
    RewriteButton(false);
  } else if (button == "cmdAnd") {
    Apply(u"and ");
  } else if (button == "CmdOr") {
    Apply(u"or ");
  } else if (button == "cmdCancelWhere") {
    cmdCancelWhere_Click();
  } else if (button == "cmdNext") {
    cmdNext_Click();
  } else if (button == "cmdAdd") {
    cmdAdd_Click();
  } else if (button == "cmdBuild") {
    cmdBuild_Click();
  } else if (button == "cmdClear") {
    cmdClear_Click();
  } else if (button == "cmdDone") {
    if (enabled["cmdBuild"] && tab == 6) {
      Message("Build Condition");
    } else {
      Told("eventDone");
    }
  } else if (button == "cmdCancel") {
    Told("eventCancel");
  } else if (!Request(button)) {
    throw std::invalid_argument("no button " + button);
  }
}

bool LiteralForm::Request(const std::string& button) {
  for (const auto& [array, codes, event] : {std::tuple("cmdFunction", u"DEOFC", "eventFunction"),
                                            std::tuple("cmdCondition", u"DEOF", "eventCondition"),
                                            std::tuple("cmdSubQuery", u"DEOFC", "eventSubQuery")}) {
    for (int index = 0; index <= 4; ++index) {
      if (button != Element(array, index)) continue;
      if (const String code = mid(codes, index + 1, 1); !code.empty()) bag["prpStrSQLPart"] = code;
      Told(event);
      return true;
    }
  }
  return false;
}

void LiteralForm::ClickRow(const std::string& name, int row) {
  Rows& list = Named(name);
  const auto i = static_cast<std::size_t>(row);
  if (list.kind == Kind::kSingle) return WriteListIndex(list, row);
  list.marks[i] = !list.marks[i];
  list.listIndex = row;
  if (&list == &lstorderbyasc) return lstorderbyasc_ItemCheck(row);
  if (&list == &lstorderbydesc) return lstorderbydesc_ItemCheck(row);
  Clicked(list);
}

void LiteralForm::DoubleClickRow(const std::string& name, int row) {
  Rows& list = Named(name);
  if (list.kind != Kind::kSingle) return;
  WriteListIndex(list, row);
  Unmark(list);
}

void LiteralForm::Pick(const std::string& name, int row) {
  Rows& combo = Named(name);
  combo.listIndex = row;
  combo.text = combo.List(row);
  if (&combo == &cboWhereFields) cboWhereFields_Click();
  if (&combo == &cboOper) cboOper_Click();
}

void LiteralForm::Type(const std::string& name, const String& text) {
  if (name == cboWhereFields1.name) {
    cboWhereFields1.listIndex = -1;
    cboWhereFields1.text = text;
    return;
  }
  Focus(name);
  Box& box = boxes.at(name);
  const bool differs = box.text != text;
  box = {text, static_cast<int>(text.size())};
  if (differs && name == "txtwhereCondition") EnableAddWhereQuery(false);
}

void LiteralForm::Key(const std::string& name, int code, const std::optional<TextMark>& mark) {
  Focus(name);
  Box& box = boxes.at(name);
  if (name == "txtAsSet") {
    if ((code < 48 || code > 57) && code != 8) code = 1;
    EnableAddWhereQuery(false);
  }
  const String before = box.text;
  const auto from = static_cast<std::size_t>(mark ? mark->from : box.caret);
  const auto to = static_cast<std::size_t>(mark ? mark->to : box.caret);
  const String left = before.substr(0, from);
  const String right = before.substr(to);
  if (code >= 32) {
    box = {left + static_cast<char16_t>(code) + right, static_cast<int>(from) + 1};
  } else if (code == 8 && from == to && from > 0) {
    box = {before.substr(0, from - 1) + right, static_cast<int>(from) - 1};
  } else if (code == 8) {
    box = {left + right, static_cast<int>(from)};
  } else {
    box.caret = static_cast<int>(from);
  }
  if (name == "txtwhereCondition" && box.text != before) EnableAddWhereQuery(false);
}

void LiteralForm::Tab(int page) {
  if (page < 0 || page > 6) throw LiteralError{ErrorKind::kValue};
  tab = page;
}

void LiteralForm::Scroll(int value) {
  if (value != barValue) MoveBar(value);
}

// The catalogue.

void LiteralForm::PrpStrTables(const String& value) {
  bag["PrpStrTables"] = value;
  marrTables = split(value, u",");
  for (const String& entry : *marrTables) {
    if (entry.size() >= 8) lsttables.AddItem(left(entry, 8));
  }
  Changed("PrpStrTables");
}

void LiteralForm::PrpStrFields(const String& value) {
  bag["PrpStrFields"] = value;
  mPrpStrFields = value;
  marrFields = split(value, u",");
  Changed("PrpStrFields");
}

void LiteralForm::lsttables_Click() {
  const int i = lsttables.listIndex;
  if (i < 0) return;
  const String T = lsttables.List(i);
  const String E = at(marrTables, i);
  if (lsttables.Selected(i)) {
    if (!holds(mPrpStrFields, T)) return Message("No Fields Present For The Selected Table");
    if (E.size() <= 8) return Message("Not a Valid Table");
    const std::optional<long double> count = number(from(E, 9));
    if (!count) return Message("Not a Valid Table");
    lstFields.AddItem(T + u".*");
    const int n = sixteenBits(*count);
    for (int k = 1; k <= n; ++k) {
      const String S = left(E, 8) + u"._index" + digits(k);
      lstorderbyasc.AddItem(S);
      lstorderbydesc.AddItem(S);
      cboWhereFields.AddItem(S);
    }
    for (const String& record : walked(marrFields)) {
      const String second = secondSubField(record);
      if (mid(second, 2, 8) != T) continue;
      const String N = from(second, 2);
      lstFields.AddItem(N);
      lstGroupby.AddItem(N);
      cboWhereFields.AddItem(N);
      cboWhereFields1.AddItem(N);
    }
    return;
  }
  for (int j = lstorderbyasc.ListCount() - 1; j >= 0; --j) {
    if (lower(left(lstorderbyasc.List(j), 8)) == lower(left(E, 8))) {
      lstorderbyasc.RemoveItem(j);
      lstorderbydesc.RemoveItem(j);
    }
  }
  for (Rows* list : {&lstFields, &lstGroupby, &cboWhereFields, &cboWhereFields1}) {
    for (int j = list->ListCount() - 1; j >= 0; --j) {
      if (left(list->List(j), 8) == T) list->RemoveItem(j);
    }
  }
  for (int j = lstSelectedFields.ListCount() - 1; j >= 0; --j) {
    if (holds(lstSelectedFields.List(j), T)) lstSelectedFields.RemoveItem(j);
  }
}

void LiteralForm::Unmark(Rows& list) {
  for (int i = list.ListCount() - 1; i >= 0; --i) {
    if (list.Selected(i)) WriteSelected(list, i, false);
  }
}

// The selected fields.

void LiteralForm::CatalogueMarksAway() {
  WriteListIndex(lstFunctions, -1);
  WriteListIndex(lstFields, -1);
}

void LiteralForm::cmdMoveOne_Click() {
  if (lsttables.SelCount() == 0) {
    Message("Tables Not Selected --Select A Table To Proceed Further");
    WriteListIndex(lstFunctions, -1);
    return;
  }
  MoveMarkedFields();
}

void LiteralForm::MoveMarkedFields() {
  String F;
  for (int i = lstFunctions.ListCount() - 1; i >= 0; --i) {
    if (lstFunctions.Selected(i)) {
      F = lstFunctions.List(i);
      break;
    }
  }
  String G;
  if (!lstFunctions.Selected(0)) {
    if (lstFields.SelCount() <= 0) {
      Message("Fields Not Selected --Select A Field To Proceed Further");
      return CatalogueMarksAway();
    }
    for (int i = lstFields.ListCount() - 1; i >= 0; --i) {
      if (lstFields.Selected(i)) {
        G = lstFields.List(i);
        break;
      }
    }
  }
  if (G.empty()) {
    AddSelectedField(lstFunctions.List(0));
  } else if (F.empty()) {
    AddSelectedField(G);
  } else {
    AddSelectedField(F + u" ( " + G + u" ) ");
  }
}

void LiteralForm::AddSelectedField(const String& X) {
  const std::string twoBlanks =
      "Field Already  Selected --Select A Different Field To Proceed Further";
  const String three = left(X, 3);
  if (holds(three, u"avg") || holds(three, u"sum") || holds(three, u"min") ||
      holds(three, u"max") || holds(left(X, 5), u"count")) {
    mblnAggregateMode = true;
  }
  if (mblnAggregateMode) {
    if (!holds(X, u")")) {
      return Message("Selection Not Allowed --Select A Different Field To Proceed Further");
    }
    for (int i = lstSelectedFields.ListCount() - 1; i >= 0; --i) {
      if (!holds(lstSelectedFields.List(i), u")")) lstSelectedFields.RemoveItem(i);
      if (lstSelectedFields.List(i) == X) {
        Message(twoBlanks);
        return CatalogueMarksAway();
      }
    }
    lstSelectedFields.AddItem(X);
    for (int i = lstorderbyasc.ListCount() - 1; i >= 0; --i) {
      WriteSelected(lstorderbyasc, i, false);
      WriteSelected(lstorderbydesc, i, false);
    }
    lstorderbyasc.enabled = false;
    lstorderbydesc.enabled = false;
    return CatalogueMarksAway();
  }
  for (int i = lstSelectedFields.ListCount() - 1; i >= 0; --i) {
    if (lstSelectedFields.List(i) == X) {
      Message(twoBlanks);
      return CatalogueMarksAway();
    }
  }
  if (holds(X, u"*")) {
    for (int i = lstSelectedFields.ListCount() - 1; i >= 0; --i) {
      if (left(lstSelectedFields.List(i), 8) == left(X, 8)) lstSelectedFields.RemoveItem(i);
    }
    lstSelectedFields.AddItem(X);
    for (const String& record : walked(marrFields)) {
      if (mid(secondSubField(record), 2, 8) != left(X, 8)) continue;
      lstorderbyasc.AddItem(nameIn(record));
      lstorderbydesc.AddItem(nameIn(record));
    }
    return;
  }
  for (int i = lstSelectedFields.ListCount() - 1; i >= 0; --i) {
    const String row = lstSelectedFields.List(i);
    if (left(row, 8) == left(X, 8) && holds(row, u"*")) {
      return Message("Field Already Selected --Select A Different Field To Proceed Further");
    }
  }
  lstSelectedFields.AddItem(X);
  CatalogueMarksAway();
  for (Rows* list : {&cboWhereFields, &cboWhereFields1, &lstorderbyasc, &lstorderbydesc})
    list->AddItem(X);
}

void LiteralForm::cmdMoveAll_Click() {
  if (mblnAggregateMode) return;
  if (lsttables.SelCount() > 0) {
    lstSelectedFields.Clear();
    for (int i = lsttables.ListCount() - 1; i >= 0; --i) {
      if (lsttables.Selected(i)) lstSelectedFields.AddItem(lsttables.List(i) + u".*");
    }
    for (int i = lsttables.ListCount(); i >= 0; --i) {
      const String T = left(lsttables.List(i), 8);
      for (int j = lstFields.ListCount() - 1; j >= 0; --j) {
        const String& F = lstFields.rows[static_cast<std::size_t>(j)];
        if (F.compare(0, 8, T) != 0 || holds(F, u"*")) continue;
        lstorderbyasc.AddItem(F);
        lstorderbydesc.AddItem(F);
      }
    }
  }
  mblnAggregateMode = false;
  CatalogueMarksAway();
}

void LiteralForm::cmdRemoveOne_Click() {
  String S;
  for (int i = lstSelectedFields.ListCount() - 1; i >= 0; --i) {
    if (!lstSelectedFields.Selected(i)) continue;
    S = lstSelectedFields.List(i);
    lstSelectedFields.RemoveItem(i);
    break;
  }
  for (int i = lstorderbyasc.ListCount() - 1; i >= 0; --i) {
    if (lower(lstorderbyasc.List(i)) != lower(S)) continue;
    lstorderbyasc.RemoveItem(i);
    lstorderbydesc.RemoveItem(i);
    break;
  }
  if (holds(S, u"*")) {
    for (int i = lstorderbyasc.ListCount() - 1; i >= 0; --i) {
      if (left(lstorderbydesc.List(i), 8) == left(S, 8) &&
          !holds(lstorderbyasc.List(i), u"index")) {
        lstorderbyasc.RemoveItem(i);
        lstorderbydesc.RemoveItem(i);
      }
    }
  }
  if (lstSelectedFields.ListCount() == 0) {
    mblnAggregateMode = false;
    lstorderbyasc.enabled = true;
    lstorderbydesc.enabled = true;
  }
  if (!mblnAggregateMode) {
    lstorderbyasc.enabled = true;
    lstorderbydesc.enabled = true;
  }
  CatalogueMarksAway();
}

void LiteralForm::cmdRemoveAll_Click() {
  if (lstSelectedFields.ListCount() > 0) {
    lstSelectedFields.Clear();
    mblnAggregateMode = false;
  }
  for (int i = lstorderbyasc.ListCount() - 1; i >= 0; --i) {
    if (holds(lstorderbyasc.List(i), u"_index")) continue;
    lstorderbyasc.RemoveItem(i);
    lstorderbydesc.RemoveItem(i);
  }
  CatalogueMarksAway();
  lstorderbyasc.enabled = true;
  lstorderbydesc.enabled = true;
}

// Clearing.

void LiteralForm::ClearAll(int page) {
  switch (page) {
    case 0:
      enabled["cmdAddSelect"] = true;
      for (int i = lsttables.ListCount() - 1; i >= 0; --i) {
        WriteListIndex(lsttables, i);
        if (lsttables.Selected(i)) WriteSelected(lsttables, i, false);
      }
      lstSelectedFields.Clear();
      WriteText("TxtOutput", u"");
      mblnSelectAdded = false;
      lstorderbyasc.enabled = true;
      lstorderbydesc.enabled = true;
      break;
    case 1:
      if (lstorderbyasc.SelCount() >= 1) {
        for (int i = lstorderbyasc.ListCount() - 1; i >= 0; --i) {
          if (lstorderbyasc.Selected(i)) WriteSelected(lstorderbyasc, i, false);
        }
      }
      if (lstorderbydesc.SelCount() >= 1) {
        for (int i = lstorderbyasc.ListCount() - 1; i >= 0; --i) {
          if (lstorderbydesc.Selected(i)) WriteSelected(lstorderbydesc, i, false);
        }
      }
      for (const char* box : {"TxtOutput", "txtAsSet", "txtwhereCondition", "txtCondition"})
        WriteText(box, u"");
      mstrAsSetClause.clear();
      mstrOrderbyClause.clear();
      break;
    case 2:
      WriteText("txtSelectDo", u"");
      mstrSelectDoClause.clear();
      break;
    case 3:
      WriteText("txtSelectEOS", u"");
      mstrSelectEOSClause.clear();
      break;
    case 4:
      WriteText("txtselectempty", u"");
      mstrSelectEmptyClause.clear();
      break;
    case 5:
      WriteText("txtSelectError", u"");
      mstrSelectErrorClause.clear();
      break;
    default:
      break;
  }
  WriteText("TxtOutput", u"");
  mblnAggregateMode = false;
}

void LiteralForm::cmdClear_Click() {
  const int page = tab;
  mintCurrentStatement = 0;
  if (mintStatementCount > 0) {
    const int upperBound = static_cast<int>(walked(marrResultStatements).size()) - 1;
    for (int i = 0; i < upperBound; ++i)
      at(marrResultStatements, i) = u"";
  }
  mintStatementCount = 0;
  ClearAll(page);
  for (int i = mintOpenKinds; i >= 0; --i)
    at(marrOpenKinds, i) = u"";
  mintOpenKinds = 0;
  mintCaseRow = 0;
  mintTabCount = 0;
  for (const char* button : {"cmdSubQuery(4)", "cmdFunction(4)", "cmdBuild"})
    enabled[button] = false;
  for (const char* part : {"VscrCase", "fraif", "fraFor", "fraOnCase", "frawhile", "frarepeat"})
    visible[part] = false;
  visible["fraSelect"] = true;
  visible["Frainitial"] = true;
  for (const char* option : kOptions)
    options[option] = false;
  for (const char* box : {"txtRepCnd", "txtCond", "txtStmt1", "txtStmt2", "TxtDef", "txtRepStm",
                          "txtWhlCnd", "txtWhlStm", "txtVariable", "txtFinVal", "txtStep",
                          "txtForStmt", "txtinitval", "TxtExpr(0)", "txtStmt(0)", "txtcaseexp"}) {
    WriteText(box, u"");
  }
  enabled["cmdAddSelect"] = true;
}

// The Where page.

bool LiteralForm::IsFlagged(const String& operand) const {
  for (const String& record : walked(marrFields)) {
    const String second = secondSubField(record);
    if (from(second, 2) == operand) return left(second, 1) == u"Y";
  }
  return false;
}

void LiteralForm::cboWhereFields_Click() {
  if (mblnWhereResetting) return;
  const bool flagged = IsFlagged(trim(cboWhereFields.text));
  for (int j = cboOper.ListCount() - 1; j >= 0; --j) {
    const String row = trim(cboOper.List(j));
    for (const char16_t* relation : {u">", u"<", u">=", u"<=", u"#>", u"#<", u"#>=", u"#<="}) {
      if (row != relation) continue;
      cboOper.RemoveItem(j);
      break;
    }
  }
  for (const char16_t* relation : {u">", u"<", u">=", u"<="})
    cboOper.AddItem((flagged ? u"#" : u"") + String(relation));
  const bool namesIndex = holds(cboWhereFields.text, u"_index");
  for (const bool isIndexPair : {false, true}) {
    if (!(isIndexPair ? namesIndex : flagged)) continue;
    cboWhereFields1.enabled = false;
    cboWhereFields1.backColor = 0x80000003;
    visible["FrawhereCondition"] = false;
    captions["FraCondition"] = cboOper.text;
    visible["FraCondition"] = true;
    captions["cmdCancelWhere"] = u"Cancel";
    const String text = cboWhereFields.text + u" " + cboOper.text +
                        (isIndexPair ? String(u" {: }") : String(u" {  ,  }"));
    WriteText("txtCondition", text);
    boxes["txtCondition"].caret =
        static_cast<int>(cboWhereFields.text.size() + 1 + cboOper.text.size() + 3);
  }
  if (!flagged && !namesIndex) {
    cboWhereFields1.enabled = true;
    cboWhereFields1.backColor = 0xFFFFFF;
    visible["FrawhereCondition"] = true;
    visible["FraCondition"] = false;
  }
}

void LiteralForm::cboOper_Click() {
  if (cboWhereFields.listIndex == -1) return WriteComboIndex(cboOper, -1);
  const bool flagged = IsFlagged(cboWhereFields.text);
  if (mblnWhereResetting) return;
  const String op = cboOper.text;
  struct Template {
    String op;
    String text;
    int caret;
  };
  const std::array<Template, 7> templates{{
      {u"IN", u" IN (" + String(8, u' ') + u")", 6},
      {u"EXISTS", u"EXISTS  (  \r\n)", 9},
      {u"NOT EXISTS", u"NOT EXISTS  (  \r\n)", 14},
      {u"BETWEEN", u" BETWEEN {" + String(10, u' ') + u"}  AND {" + String(9, u' ') + u"} ", 11},
      {u"INRANGE", u" IN RANGE" + String(12, u' ') + u"AND" + String(14, u' '), 11},
      {u"LIKE", u" LIKE ", 7},
      {u"REFERS TO", u" REFERS TO" + String(26, u' '), 12},
  }};
  const auto show = [&](const String& text, int caret) {
    visible["FrawhereCondition"] = false;
    captions["FraCondition"] = cboOper.text;
    visible["FraCondition"] = true;
    captions["cmdCancelWhere"] = u"Cancel";
    WriteText("txtCondition", text);
    boxes["txtCondition"].caret = std::min(caret, static_cast<int>(text.size()));
  };
  const Template* matched = nullptr;
  for (const Template& candidate : templates) {
    if (candidate.op == op) {
      matched = &candidate;
      break;
    }
  }
  const String field = cboWhereFields.text;
  const int pairCaret = static_cast<int>(field.size() + 1 + op.size() + 3);
  if (matched != nullptr) {
    cboWhereFields1.enabled = false;
    if (op == u"EXISTS" || op == u"NOT EXISTS") WriteComboIndex(cboWhereFields, -1);
    const String& now = cboWhereFields.text;
    show(now + matched->text, static_cast<int>(now.size()) + matched->caret);
  } else if (holds(field, u"_index")) {
    cboWhereFields1.enabled = false;
    show(field + u" " + op + u" {: }", pairCaret);
  } else if (holds(op, u"#") || flagged) {
    cboWhereFields1.enabled = false;
    show(field + u" " + op + u" {  ,  }", pairCaret);
  } else if (cboWhereFields1.ListCount() > 0) {
    WriteComboIndex(cboWhereFields1, -1);
    visible["FrawhereCondition"] = true;
    visible["FraCondition"] = false;
    captions["cmdCancelWhere"] = u"Cancel";
    cboWhereFields1.enabled = true;
    cboWhereFields1.backColor = 0xFFFFFF;
  }
  if (!cboWhereFields1.enabled) cboWhereFields1.backColor = 0x80000003;
}

void LiteralForm::Apply(const String& word) {
  enabled["cmdAddWhereQuery"] = true;
  captions["cmdCancelWhere"] = u"Clear";
  for (;;) {
    WriteText("txtwhereCondition", trim(Text("txtwhereCondition")));
    const String now = Text("txtwhereCondition");
    if (left(now, 2) == kBreak) {
      WriteText("txtwhereCondition", from(now, 3));
    } else if (left(now, 1) == u"\t") {
      WriteText("txtwhereCondition", from(now, 2));
    } else {
      break;
    }
  }
  const String field = cboWhereFields.text;
  const String op = cboOper.text;
  if (trim(field).empty()) {
    if (trim(op) != u"EXISTS" && trim(op) != u"NOT EXISTS") {
      return Message("Where Field is not selected");
    }
  } else if (trim(op).empty()) {
    return Message("Operator is not selected");
  }
  const String w = Text("txtwhereCondition");
  const auto joinTemplate = [&] {
    const String c = Text("txtCondition");
    WriteText("txtwhereCondition", w.empty() ? w + c : w + kBreak + word + c);
  };
  for (const char16_t* always : {u"#<=", u"#>=", u"#<", u"#>", u"REFERS TO", u"NOT EXISTS",
                                 u"EXISTS", u"LIKE", u"BETWEEN", u"INRANGE", u"IN"}) {
    if (op != always) continue;
    joinTemplate();
    return PutBack(true);
  }
  const bool flagged = IsFlagged(field);
  const String value = cboWhereFields1.text;
  if (trim(value).empty()) {
    if (holds(field, u"_index") || flagged) {
      joinTemplate();
      return PutBack(false);
    }
    Message("Where Field is not selected");
    if (!cboWhereFields1.enabled) throw LiteralError{ErrorKind::kArgument};
    return;
  }
  if (!trim(w).empty()) {
    WriteText("txtwhereCondition", w + kBreak + word + field + u" " + op + u"  " + value);
  } else {
    WriteText("txtwhereCondition", w + field + u" " + op + u" " + value);
  }
  PutBack(true);
}

void LiteralForm::PutBack(bool withText) {
  if (withText) {
    cboWhereFields1.listIndex = -1;
    cboWhereFields1.text.clear();
  }
  WriteComboIndex(cboWhereFields1, -1);
  WriteComboIndex(cboWhereFields, -1);
  WriteComboIndex(cboOper, -1);
  cboWhereFields1.enabled = true;
  cboWhereFields1.backColor = 0xFFFFFF;
  visible["FrawhereCondition"] = true;
  visible["FraCondition"] = false;
  WriteText("txtCondition", u"");
}

void LiteralForm::cmdCancelWhere_Click() {
  if (captions["cmdCancelWhere"] == u"Cancel") {
    mblnWhereResetting = true;
    WriteComboIndex(cboWhereFields1, -1);
    WriteText("txtCondition", u"");
    visible["FrawhereCondition"] = true;
    visible["FraCondition"] = false;
    cboWhereFields1.enabled = true;
    cboWhereFields1.backColor = 0xFFFFFF;
    WriteComboIndex(cboOper, -1);
    WriteComboIndex(cboWhereFields, -1);
    mblnWhereResetting = false;
    captions["cmdCancelWhere"] = u"Clear";
  } else {
    WriteText("txtwhereCondition", u"");
    WriteText("txtCondition", u"");
    WriteComboIndex(cboWhereFields, -1);
    WriteComboIndex(cboWhereFields1, -1);
  }
  EnableAddWhereQuery(false);
}

void LiteralForm::EnableAddWhereQuery(bool descendingCounts) {
  enabled["cmdAddWhereQuery"] = (descendingCounts && lstorderbydesc.SelCount() > 0) ||
                                lstorderbyasc.SelCount() > 0 || !Text("txtAsSet").empty() ||
                                !Text("txtwhereCondition").empty();
}

void LiteralForm::lstorderbyasc_ItemCheck(int item) {
  if (lstorderbyasc.ListCount() <= 0) return;
  const bool onEntry = lstorderbyasc.Selected(item);
  if (onEntry && lstorderbydesc.List(item) == lstorderbyasc.List(item)) {
    if (!lstorderbydesc.Selected(item)) {
      WriteSelected(lstorderbyasc, item, true);
      WriteSelected(lstorderbydesc, item, false);
    } else {
      WriteSelected(lstorderbyasc, item, false);
      WriteSelected(lstorderbydesc, item, true);
    }
  }
  if (!onEntry) WriteSelected(lstorderbydesc, item, false);
  EnableAddWhereQuery(false);
}

void LiteralForm::lstorderbydesc_ItemCheck(int item) {
  if (lstorderbydesc.ListCount() <= 0) return;
  const bool onEntry = lstorderbydesc.Selected(item);
  if (onEntry && lstorderbydesc.List(item) == lstorderbyasc.List(item)) {
    if (!lstorderbyasc.Selected(item)) {
      WriteSelected(lstorderbydesc, item, true);
      WriteSelected(lstorderbyasc, item, false);
    } else {
      WriteSelected(lstorderbyasc, item, true);
      WriteSelected(lstorderbydesc, item, false);
    }
  }
  if (!onEntry) WriteSelected(lstorderbydesc, item, false);
  EnableAddWhereQuery(true);
}

// Clauses.

void LiteralForm::BuildSelectPart() {
  mstrSelectClause.clear();
  mstrFromClause.clear();
  for (int i = lsttables.ListCount() - 1; i >= 0; --i) {
    if (lsttables.Selected(i)) mstrFromClause += u"," + lsttables.List(i);
  }
  for (int i = 0; i < lstSelectedFields.ListCount(); ++i) {
    if (mblnAggregateMode) {
      mstrSelectClause += u"," + secondSubField(BuildFieldBinding(lstSelectedFields.List(i)));
    } else {
      mstrSelectClause += u"," + lstSelectedFields.List(i);
    }
  }
  if (!mstrSelectClause.empty()) mstrSelectClause = u"select " + from(mstrSelectClause, 2);
  if (!mstrFromClause.empty()) mstrFromClause = kBreak + u"from  " + from(mstrFromClause, 2);
}

String LiteralForm::BuildFieldBinding(const String& L) const {
  const String long_ = u"long" + kSeparates;
  const int length = static_cast<int>(L.size());
  if (lower(L) == u"count ( * ) ") return long_ + u"count ( * ) :var.count";
  for (const String& record : walked(marrFields)) {
    if (holds(L, nameIn(record))) break;
  }
  const bool isCount = lower(left(L, 8)) == u"count ( ";
  if (isCount && holds(L, u"*")) return long_ + u"count ( * ) :var.count";
  if (isCount) return long_ + L + u":var.count." + mid(L, 9, length - 11);
  const String var = long_ + L + u":var." + trim(left(L, 3)) + u".";
  return var + trim(mid(L, 6, length - (holds(L, u"*") ? 10 : 7)));
}

void LiteralForm::BuildGroupBy() {
  mstrGroupbyClause.clear();
  for (int i = 0; i < lstGroupby.ListCount(); ++i) {
    if (!lstGroupby.Selected(i)) continue;
    const String F = lstGroupby.List(i);
    if (mblnAggregateMode) {
      mstrGroupbyClause += u"," + F;
    } else if (AddGroupByField(F)) {
      mstrGroupbyClause += u"," + F;
    } else {
      mstrGroupbyClause += u"," + F;
      mstrSelectClause += u"," + F;
    }
  }
  mstrGroupbyClause = from(mstrGroupbyClause, 2);
  if (!mstrGroupbyClause.empty()) mstrGroupbyClause = kBreak + u"group by  " + mstrGroupbyClause;
}

bool LiteralForm::AddGroupByField(const String& F) const {
  for (int i = lstSelectedFields.ListCount() - 1; i >= 0; --i) {
    const String E = lstSelectedFields.List(i);
    if ((holds(E, F) || holds(E, u"*")) && !holds(E, u")")) return true;
    if (E == F) return true;
  }
  return false;
}

void LiteralForm::BuildBlock(const std::string& box, const String& keyword, String& clause) const {
  clause.clear();
  if (trimBlankEnds(Text(box)).empty()) return;
  const String indented = replaced(Text(box), kBreak, kBreak + u"\t");
  clause = kBreak + keyword + kBreak + u"\t" + trimBlankEnds(indented);
}

bool LiteralForm::Checked() {
  if (lsttables.SelCount() == 0) {
    Message("Tables Not Selected --Select A Table To Proceed Further");
    return false;
  }
  if (lstSelectedFields.ListCount() == 0) {
    Message("Fields Not Selected --Select A Field To Proceed Further");
    return false;
  }
  return true;
}

void LiteralForm::Build() {
  BuildBlock("txtSelectDo", u"selectdo", mstrSelectDoClause);

  mstrOrderbyClause.clear();
  mstrAsSetClause.clear();
  for (int i = 0; i < lstorderbyasc.ListCount(); ++i) {
    if (lstorderbyasc.Selected(i)) mstrOrderbyClause += u"," + lstorderbyasc.List(i);
    if (lstorderbydesc.Selected(i)) mstrOrderbyClause += u"," + lstorderbydesc.List(i) + u" desc";
  }
  if (!trim(Text("txtAsSet")).empty()) {
    mstrAsSetClause = kBreak + u"as set with " + Text("txtAsSet") + u" rows ";
  }
  if (trim(mstrOrderbyClause).empty()) {
    mstrOrderbyClause.clear();
  } else {
    mstrOrderbyClause = kBreak + u"order by " + from(mstrOrderbyClause, 2);
  }

  BuildGroupBy();
  BuildBlock("txtselectempty", u"selectempty", mstrSelectEmptyClause);
  BuildBlock("txtSelectEOS", u"selecteos", mstrSelectEOSClause);
  BuildBlock("txtSelectError", u"selecterror", mstrSelectErrorClause);
  BuildSelectPart();

  mstrWhereClause.clear();
  if (!trimBlankEnds(Text("txtwhereCondition")).empty()) {
    mstrWhereClause = kBreak + u"where " + trimBlankEnds(Text("txtwhereCondition"));
  }
}

String LiteralForm::Assembled() const {
  return mstrSelectClause + mstrFromClause + mstrWhereClause + mstrGroupbyClause +
         mstrOrderbyClause + mstrAsSetClause + mstrSelectDoClause + mstrSelectEOSClause +
         mstrSelectEmptyClause + mstrSelectErrorClause + kBreak + u"endselect";
}

// The Result.

void LiteralForm::Resize(int upperBound) {
  if (!marrResultStatements) marrResultStatements.emplace();
  marrResultStatements->resize(static_cast<std::size_t>(upperBound + 1));
}

void LiteralForm::RewriteResult() {
  WriteText("TxtOutput", u"");
  for (const String& entry : walked(marrResultStatements))
    WriteText("TxtOutput", Text("TxtOutput") + entry);
}

void LiteralForm::cmdAddSelect_Click() {
  if (!Checked()) return;
  Build();
  mstrStatement = Assembled();
  mblnSelectAdded = true;
  if (mintStatementCount > 0) mstrStatement = kBreak + mstrStatement;
  Resize(mintStatementCount);
  at(marrResultStatements, mintStatementCount) = mstrStatement;
  mintCurrentStatement = mintStatementCount;
  ++mintStatementCount;
  RewriteResult();
}

void LiteralForm::RewriteButton(bool assemblesAlways) {
  if (!Checked()) return;
  Build();
  if (assemblesAlways || !Text("TxtOutput").empty()) mstrStatement = Assembled();
  if (!mblnSelectAdded) return Message("Select Statement Not Present");
  if (mintCurrentStatement > 0) mstrStatement = kBreak + mstrStatement;
  at(marrResultStatements, mintCurrentStatement) = mstrStatement;
  RewriteResult();
}

String LiteralForm::prpstrSelectedFields() {
  ReadSelectedFields();
  return mstrSelectedFields;
}

void LiteralForm::ReadSelectedFields() {
  if (mintStatementCount == 0) return;
  String S = at(marrResultStatements, 0);
  for (const String& entry : *marrResultStatements) {
    if (holds(lower(entry), u"dump ")) {
      S = entry;
      break;
    }
  }
  if (lower(left(trim(S), 6)) != u"select") return;
  const int p = place(lower(S), u"select ");
  const int q = place(lower(S), u"from ");
  if (q < p || q == 0) return;
  const String list = mid(S, 8, q - 8);
  String accumulator;
  for (const String& A : split(list, u",")) {
    std::optional<String> binding;  // the same at each record
    for (const String& R : walked(marrFields)) {
      const std::vector<String> pieces = split(R, kSeparates);
      const String N = from(piece(pieces, 1), 2);
      if (holds(A, u"*") && !holds(A, u")")) {
        if (!holds(N, left(A, 8))) continue;
      } else {
        if (!binding) binding = BuildFieldBinding(A);
        if (!holds(*binding, N)) continue;
        if (holds(A, u")")) {
          accumulator += u"," + *binding;
          continue;
        }
      }
      accumulator +=
          u"," + pieces[0] + kSeparates + piece(pieces, 1) + kSeparates + piece(pieces, 2);
    }
  }
  mstrSelectedFields = trim(from(accumulator, 2));
}

// Texts of the host.

void LiteralForm::Insert(const std::string& box, bool isEmpty, const String& S) {
  const String old = Text(box);
  const bool marked = holds(S, u"*zlt*");
  const String tail = from(S, 6);
  const String indented = replaced(S, kBreak, kBreak + u"\t");
  if (isEmpty && !marked) WriteText(box, S);
  if (isEmpty && marked) WriteText(box, tail);
  if (!isEmpty && marked) WriteText(box, old + kBreak + tail);
  if (!isEmpty && !marked) WriteText(box, old + kBreak + u"\t" + indented);
}

void LiteralForm::prpStroutput(const String& value) {
  String S = replaced(value, u"~", kBreak);
  S = replaced(S, u"\u0001", u"\t");
  S = replaced(S, u"`^`", u"\"");
  const auto insert = [&](const std::string& box) { Insert(box, Text(box).empty(), S); };
  if (mstrActiveBox == u"txtforstmt") {
    Insert("txtForStmt", trim(Text("txtForStmt")).empty(), S);
  } else if (mstrActiveBox == u"txtwhlstm") {
    insert("txtWhlStm");
  } else if (mstrActiveBox == u"txtstmt2") {
    if (Text("txtStmt2").empty() && !holds(S, u"*zlt*")) {
      WriteText("txtStmt1", S);
    } else {
      insert("txtStmt2");
    }
  } else if (mstrActiveBox == u"txtstmt1") {
    insert("txtStmt1");
  } else if (mstrActiveBox == u"txtdef") {
    insert("TxtDef");
  } else if (mstrActiveBox == u"txtrepstm") {
    insert("txtRepStm");
  } else if (mid(mstrActiveBox, 2, 7) == u"txtstmt") {
    const int n = sixteenBits(number(from(mstrActiveBox, 9)).value());
    if (n > lastCaseRow) throw LiteralError{ErrorKind::kElement};
    insert(Element("txtStmt", n));
  } else {
    insert("TxtOutput");
    if (trim(Text("TxtOutput")).empty()) return;
    Resize(mintStatementCount);
    at(marrResultStatements, mintStatementCount) = trim(Text("TxtOutput"));
    mintCurrentStatement = mintStatementCount;
    mblnSelectAdded = true;
    ++mintStatementCount;
  }
}

String LiteralForm::prpStroutput() {
  if (mintTabCount > 0) {
    WriteText("TxtOutput", replaced(Text("TxtOutput"), kBreak, kBreak + u"\t"));
  }
  return Text("TxtOutput");
}

namespace {

String decoded(const String& value) {
  String S = replaced(value, u"~", kBreak);
  S = replaced(S, u"\u0001", u"\t");
  S = replaced(S, u"`^`", u"\"");
  return replaced(S, kBreak + u"\t", kBreak);
}

}  // namespace

void LiteralForm::prpSelectWherePart(const String& value) {
  bag["prpSelectWherePart"] = decoded(value);
  WriteText("txtwhereCondition", decoded(value));
  Changed("prpSelectWherePart");
}

void LiteralForm::prpSelectDoPart(const String& value) {
  bag["prpSelectDoPart"] = value;
  const String S = replaced(decoded(value), u"\t\t", u"\t");
  const bool marked = holds(S, u"*zlt*");
  const String tail = from(S, 6);
  const String indented = replaced(S, kBreak, kBreak + u"\t");
  const String old = Text("txtSelectDo");
  if (old.empty() && !marked) {
    WriteText("txtSelectDo", S);
  } else if (old.empty()) {
    WriteText("txtSelectDo", trim(tail));
  } else if (!marked) {
    WriteText("txtSelectDo", old + kBreak + u"\t" + trim(indented));
  } else {
    WriteText("txtSelectDo", old + kBreak + trim(tail));
  }
  Changed("prpSelectDoPart");
}

void LiteralForm::prpSelectEOSPart(const String& value) {
  bag["prpSelectEOSPart"] = decoded(value);
  Insert("txtSelectEOS", Text("txtSelectEOS").empty(), decoded(value));
  Changed("prpSelectEOSPart");
}

void LiteralForm::prpSelectEmptyPart(const String& value) {
  bag["prpSelectEmptyPart"] = decoded(value);
  Insert("txtselectempty", Text("txtselectempty").empty(), decoded(value));
  Changed("prpSelectEmptyPart");
}

void LiteralForm::prpSelectErrorPart(const String& value) {
  bag["prpSelectErrorPart"] = decoded(value);
  Insert("txtSelectError", Text("txtSelectError").empty(), decoded(value));
  Changed("prpSelectErrorPart");
}

String LiteralForm::prpStrSQLPart() const {
  const auto code = bag.find("prpStrSQLPart");
  return code == bag.end() ? u"0" : code->second;
}

void LiteralForm::prpParentorChild(const String& /*value*/) {
  Changed("prpParentorChild");
}

// Stored parts.

void LiteralForm::prpTab(int page) {
  bag["prpTab"] = digits(page);
  Tab(page);
  Changed("prpTab");
}

void LiteralForm::prpSelectPart(const String& value) {
  bag["prpSelectPart"] = value;
  mstrSelectClause = u"select " + value;
  const std::vector<String> elements = split(value, u",");
  Changed("prpSelectPart");
  const int upperBound = static_cast<int>(elements.size()) - 1;
  for (int i = lsttables.ListCount() - 1; i >= 0; --i) {
    for (int j = upperBound - 1; j >= 0; --j) {
      if (holds(elements[static_cast<std::size_t>(j)], lsttables.List(i)) &&
          !lsttables.Selected(i)) {
        WriteSelected(lsttables, i, true);
      }
    }
  }
  for (const String& element : elements) {
    if (element.empty()) continue;
    if (!holds(element, u":")) {
      AddSelectedField(element);
      continue;
    }
    lstSelectedFields.AddItem(split(element, u":")[0]);
    lstorderbyasc.enabled = false;
    lstorderbydesc.enabled = false;
    mblnAggregateMode = true;
  }
}

void LiteralForm::prpSelectFromPart(const String& value) {
  bag["prpSelectFromPart"] = value;
  const std::vector<String> elements = split(value, u",");
  for (int i = lsttables.ListCount() - 1; i >= 0; --i) {
    for (const String& element : elements) {
      if (lsttables.List(i) == element && !lsttables.Selected(i)) {
        WriteSelected(lsttables, i, true);
      }
    }
  }
  Changed("prpSelectFromPart");
}

void LiteralForm::prpSelectGroupbyPart(const String& value) {
  bag["prpSelectGroupbyPart"] = value;
  for (const String& element : split(value, u",")) {
    for (int i = lstGroupby.ListCount(); i >= 0; --i) {
      if (trim(element) != lstGroupby.List(i)) continue;
      WriteSelected(lstGroupby, i, true);
      break;
    }
  }
  Changed("prpSelectGroupbyPart");
}

void LiteralForm::prpSelectOrderbyPart(const String& value) {
  bag["prpSelectOrderbyPart"] = value;
  for (const String& E : split(value, u",")) {
    for (int i = lstorderbyasc.ListCount() - 1; i >= 0; --i) {
      const bool isDescending = holds(lower(E), u"desc");
      if (!isDescending && lstorderbyasc.List(i) == E) {
        WriteSelected(lstorderbyasc, i, true);
        break;
      }
      const String D = trim(replaced(E, u"desc", u""));
      if (isDescending && trim(lstorderbydesc.List(i)) == D) {
        WriteSelected(lstorderbydesc, i, true);
        break;
      }
    }
  }
  Changed("prpSelectOrderbyPart");
}

void LiteralForm::prpSelectAsSetPart(const String& value) {
  bag["prpSelectAsSetPart"] = value;
  if (!value.empty()) WriteText("txtAsSet", value);
  Changed("prpSelectAsSetPart");
}

// Conditions.

void LiteralForm::Option(const std::string& option) {
  for (auto& [name, value] : options)
    value = name == option;
  bool isTyped = false;
  for (const char* box :
       {"txtCond", "txtStmt1", "txtStmt2", "txtWhlCnd", "txtWhlStm", "txtRepCnd", "txtRepStm",
        "txtinitval", "TxtDef", "txtVariable", "txtFinVal", "txtStep", "txtcaseexp"}) {
    if (!Text(box).empty()) isTyped = true;
  }
  if (isTyped && mintOpenKinds > 0) --mintOpenKinds;
  enabled["cmdFunction(4)"] = true;
  enabled["cmdSubQuery(4)"] = true;
  if (option == "optIfThen") mstrConditionKind = u"if";
  if (option == "optFor") mstrConditionKind = u"For";
  if (option == "optwhile") mstrConditionKind = u"While";
  if (option == "optRepeat") mstrConditionKind = u"Repeat";
  if (option == "optCase") mstrConditionKind = u"Case";
  if (option == "optIfThen") {
    for (const char* box : {"txtCond", "txtStmt1", "txtStmt2"})
      WriteText(box, u"");
  }
  if (mintOpenKinds >= 21) throw LiteralError{ErrorKind::kSubscript};
  at(marrOpenKinds, mintOpenKinds) = mstrConditionKind;
  ++mintOpenKinds;
  visible["Frainitial"] = false;
  visible["fraif"] = option == "optIfThen";
  visible["fraFor"] = option == "optFor";
  visible["frawhile"] = option == "optwhile";
  visible["frarepeat"] = option == "optRepeat";
  visible["fraOnCase"] = option == "optCase";
  visible["fracase"] = option == "optCase";
  if (option != "optwhile") visible["cmdNext"] = option == "optCase";
  mblnKindChosen = true;
}

void LiteralForm::cmdNext_Click() {
  ++mintCaseRow;
  const int r = mintCaseRow;
  if (r <= lastCaseRow) throw LiteralError{ErrorKind::kLoaded};
  boxes[Element("TxtExpr", r)] = {};
  boxes[Element("txtStmt", r)] = {};
  lastCaseRow = r;
  rowTops.push_back(rowTops.back() + 680 + 10);
  if (r > 3) {
    barMax = r - 3;
    if (barValue > barMax) MoveBar(barMax);
    if (barValue + 1 > barMax) throw LiteralError{ErrorKind::kValue};
    MoveBar(barValue + 1);
  }
  visible["VscrCase"] = r > 2;
}

void LiteralForm::MoveBar(int value) {
  barValue = value;
  int i = 0;
  for (; mintLastScrollValue != value && i <= mintCaseRow; ++i)
    at(rowTops, i) += mintLastScrollValue < value ? -690 : 690;
  --i;
  mintLastScrollValue = value;
  visible["VscrCase"] = (680 + 100) * mintCaseRow > 2880 || at(rowTops, i) < 300;
}

String LiteralForm::Block(const String& S) {
  ++mintTabCount;
  const String continuation = kBreak + u"\t" + tabs(mintTabCount - 1);
  const String block = tabs(mintTabCount) + replaced(S, kBreak, continuation);
  --mintTabCount;
  return block;
}

void LiteralForm::Store(String X) {
  if (mintStatementCount > 0) X = kBreak + X;
  Resize(mintStatementCount);
  at(marrResultStatements, mintStatementCount) = X;
  ++mintStatementCount;
  RewriteResult();
}

void LiteralForm::cmdAdd_Click() {
  mstrActiveBox.clear();
  const String R = trim(Text("TxtOutput"));
  if (mintConditionsAdded == 0 && !R.empty()) {
    WriteText("TxtOutput", R + kBreak);
  } else if (mintConditionsAdded > 0 && !R.empty()) {
    WriteText("TxtOutput", R + kBreak);
    ++mintTabCount;
  }
  if (!mblnKindChosen) return Message("Select A Condition");

  const auto T = [](int n) { return tabs(n); };
  const auto filled = [this](const char* box) { return !trim(Text(box)).empty(); };
  String X;
  if (mstrConditionKind == u"For") {
    String step = kBreak;
    if (filled("txtStep") && trim(Text("txtStep")) != u"0") {
      step = u"  Step    " + Text("txtStep") + kBreak;
    }
    if (filled("txtVariable") && filled("txtinitval") && filled("txtFinVal")) {
      X = T(mintTabCount) + u"for " + Text("txtVariable") + u" = " + Text("txtinitval") + u" to " +
          Text("txtFinVal") + step;
      if (filled("txtForStmt")) X += Block(Text("txtForStmt"));
    }
    mstrForText = X;
    Store(X);
  } else if (mstrConditionKind == u"if") {
    const String c = trim(Text("txtCond"));
    String elsePart;
    if (!c.empty()) {
      if (filled("txtStmt1")) {
        X = T(mintTabCount) + u"if " + c + u" then " + kBreak + Block(trim(Text("txtStmt1")));
      } else {
        X = u"if " + c + u" then ";
      }
      if (filled("txtStmt2")) {
        elsePart = kBreak + T(mintTabCount) + u"else" + kBreak + Block(trim(Text("txtStmt2")));
      }
    }
    mstrIfText = mintStatementCount > 0 ? kBreak + X : X;
    Store(X + elsePart);
  } else if (mstrConditionKind == u"Repeat") {
    X = T(mintTabCount) + u"repeat ";
    if (filled("txtRepStm")) X += kBreak + Block(trim(Text("txtRepStm")));
    if (filled("txtRepCnd")) {
      at(marrRepeatConds, mintRepeatConds) = trim(Text("txtRepCnd"));
      ++mintRepeatConds;
    }
    mstrRepeatMark = filled("txtRepCnd") || filled("txtRepStm") ? u"value" : u"";
    Store(X);
    ++mintStatementCount;
  } else if (mstrConditionKind == u"While") {
    const String c = trim(Text("txtWhlCnd"));
    if (!c.empty() && filled("txtWhlStm")) {
      X = T(mintTabCount) + u"while " + c + kBreak + Block(trim(Text("txtWhlStm")));
    } else if (!c.empty()) {
      X = T(mintTabCount) + u"while  " + c;
    }
    mstrWhileText = mintStatementCount > 0 ? kBreak + X : X;
    Store(X);
  } else {
    const String e = trim(Text("txtcaseexp"));
    ++mintCaseLevel;
    at(marrCaseTabs, mintCaseLevel) = mintTabCount;
    for (int i = 0; i <= lastCaseRow && !e.empty(); ++i) {
      const String v = trim(Text(Element("TxtExpr", i)));
      const String s = trim(Text(Element("txtStmt", i)));
      if (v.empty()) continue;
      if (!s.empty()) {
        const int m = mintTabCount;
        ++mintTabCount;
        X += kBreak + T(mintTabCount) + u"case " + v + u" :" + kBreak;
        X += Block(s) + kBreak;
        X += T(mintTabCount + 1) + u"break";
        mintTabCount = m;
      } else {
        ++mintTabCount;
        X += kBreak + T(mintTabCount) + u"case " + v + u": ";
      }
    }
    if (filled("TxtDef")) {
      at(marrCaseDefaults, mintCaseDefaults) = trim(Text("TxtDef"));
      ++mintCaseDefaults;
    }
    if (!X.empty()) {
      X = T(at(marrCaseTabs, mintCaseLevel)) + u"on case " + e + X;
      Store(X);
    }
    mstrCaseText = X;
  }
  ++mintConditionsAdded;

  if (tab == 6) {
    enabled["cmdSubQuery(4)"] = true;
    enabled["cmdFunction(4)"] = true;
  }
  for (; lastCaseRow > 0; --lastCaseRow) {
    boxes.erase(Element("TxtExpr", lastCaseRow));
    boxes.erase(Element("txtStmt", lastCaseRow));
    rowTops.pop_back();
  }
  mblnKindChosen = false;
  for (const char* option : kOptions)
    options[option] = false;
  enabled["cmdBuild"] = true;
  for (const char* part : {"frawhile", "fracase", "fraif", "frarepeat", "fraFor", "fraOnCase"})
    visible[part] = false;
  visible["fraSelect"] = true;
  visible["Frainitial"] = true;
  for (const char* box : {"txtRepCnd", "txtCond", "txtStmt1", "txtStmt2", "TxtDef", "txtRepStm",
                          "txtWhlCnd", "txtWhlStm", "txtVariable", "txtFinVal", "txtStep",
                          "txtForStmt", "txtinitval", "TxtExpr(0)", "txtStmt(0)", "txtcaseexp"}) {
    WriteText(box, u"");
  }
  mintCaseRow = 0;
}

void LiteralForm::Close(const String& C) {
  Resize(mintStatementCount);
  at(marrResultStatements, mintStatementCount) = C;
  ++mintStatementCount;
  RewriteResult();
}

void LiteralForm::cmdBuild_Click() {
  enabled["cmdBuild"] = false;
  if (tab == 6) {
    enabled["cmdSubQuery(4)"] = false;
    enabled["cmdFunction(4)"] = false;
  }
  mintConditionsAdded = 0;
  for (int i = mintOpenKinds - 1; i >= 0; --i) {
    const String kind = at(marrOpenKinds, i);
    const String start = kBreak + tabs(mintTabCount);
    if (kind == u"if") {
      if (!mstrIfText.empty()) Close(start + u"endif");
    } else if (kind == u"For") {
      if (!mstrForText.empty()) Close(start + u"endfor");
    } else if (kind == u"Repeat") {
      if (mintRepeatConds != 0) --mintRepeatConds;
      if (!mstrRepeatMark.empty()) {
        Close(start + u"Until  " + u"( " + at(marrRepeatConds, mintRepeatConds) + u" )");
      }
    } else if (kind == u"While") {
      if (!mstrWhileText.empty()) Close(start + u"endwhile");
    } else if (kind == u"Case") {
      if (mintCaseDefaults != 0) --mintCaseDefaults;
      if (!mstrCaseText.empty()) {
        const String d = at(marrCaseDefaults, mintCaseDefaults);
        if (mintCaseLevel != -1) {
          const int b = at(marrCaseTabs, mintCaseLevel);
          if (!d.empty()) {
            Close(kBreak + tabs(b + 1) + u"default: " + kBreak + tabs(b + 2) + d + kBreak +
                  u"endcase");
          } else {
            Close(kBreak + tabs(b) + u"endcase");
          }
          --mintCaseLevel;
        }
      }
    }
    --mintTabCount;
  }
  for (int j = mintOpenKinds; j >= 0; --j)
    at(marrOpenKinds, j) = u"";
  mintOpenKinds = 0;
  mintCaseRow = 0;
  mintTabCount = 0;
}

}  // namespace zolt20::tests
