// Opens select statements on the pages. Most are opened by the part properties alone. For others
// the rows of the lists are made in the order in which the statement names them, and texts that no
// property takes are typed.
#include <algorithm>
#include <array>
#include <cstddef>
#include <unordered_set>
#include <utility>
#include <vector>

#include "language/clauses.h"
#include "language/line_words.h"
#include "language/own_control.h"
#include "shell/table_key.h"

namespace zolt20::reopen {
namespace {

constexpr int kSelectListPage = 0;
constexpr int kWherePage = 1;
constexpr int kSelectDoPage = 2;
// How many readings of an ambiguous condition are tried.
constexpr std::size_t kMostReadings = 6;
// An expression that is put into the list for a moment, because it removes the plain fields.
constexpr StringView kDriver = u"sum ( ) ";

StringView TableOf(StringView field) {
  return field.substr(0, kTableLength);
}

bool StartsLikeFunction(StringView field) {
  constexpr std::array<StringView, 5> kWords{u"avg", u"sum", u"min", u"max", u"count"};
  return std::any_of(kWords.begin(), kWords.end(),
                     [field](StringView word) { return field.starts_with(word); });
}

int RowOf(const RowsControl& list, StringView text, int from = 0) {
  for (int row = from; row < list.ListCount(); ++row) {
    if (list.List(row) == text) return row;
  }
  return -1;
}

// The row of selected fields from which a bound expression of the select list was made.
StringView RowOfBound(StringView entry) {
  return entry.substr(0, std::min(entry.find(u":var."), entry.size()));
}

class PageFiller {
 public:
  /// With `isBound` the list of selected fields holds function expressions.
  PageFiller(OwnControl& control, StringView statement, const Division& division, bool isBound)
      : control_(control),
        form_(control.Form()),
        statement_(statement),
        division_(division),
        isBound_(isBound) {
    select_ = EntriesOf(&Parts::prpSelectPart);
    tables_ = EntriesOf(&Parts::prpSelectFromPart);
  }

  void Fill() {
    MarkTables();
    MarkGroups();
    Order();
    control_.Tab(kSelectListPage);
    isBound_ ? SelectExpressions() : SelectFields();
    FillTexts();
    control_.Tab(kSelectListPage);
  }

 private:
  StringView ContentOf(String Parts::*part) const {
    for (const Clause& clause : division_.clauses) {
      if (clause.kind->part == part) return clause.content;
    }
    return {};
  }
  std::vector<StringView> EntriesOf(String Parts::*part) const {
    return Split(ContentOf(part), u",");
  }

  // Marking a table appends its fields to the rows of group by, and its indexes to those of the
  // order lists.
  void MarkTables() {
    std::unordered_set<StringView> missing(tables_.begin(), tables_.end());
    const auto mark = [&](StringView table) {
      if (missing.erase(table) != 0) control_.Write(&Parts::prpSelectFromPart, table);
    };
    for (const StringView field : EntriesOf(&Parts::prpSelectGroupbyPart))
      mark(TableOf(field));
    for (const StringView entry : EntriesOf(&Parts::prpSelectOrderbyPart)) {
      if (Holds(entry, u"._index")) mark(TableOf(entry));
    }
    for (const StringView table : tables_)
      mark(table);
  }

  void MarkGroups() {
    int row = -1;
    for (const StringView field : EntriesOf(&Parts::prpSelectGroupbyPart)) {
      row = RowOf(form_.lstGroupby, field, row + 1);
      if (row < 0) return;
      control_.Click(form_.lstGroupby, row);
    }
  }

  void Order() {
    const std::vector<StringView> entries = EntriesOf(&Parts::prpSelectOrderbyPart);
    std::vector<int> rows;
    int row = -1;
    for (const StringView entry : entries) {
      const StringView name = NameInOrder(entry);
      const int first = row + 1;
      row = RowOf(form_.lstorderbyasc, name, first);
      if (row < 0) row = AddOrderRow(name, first);
      if (row < 0) return;
      rows.push_back(row);
    }
    if (!added_.empty() && !AreSelected(added_)) DriveOutFields();
    if (!rows.empty()) control_.Tab(kWherePage);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const bool isAscending = NameInOrder(entries[i]).size() == entries[i].size();
      control_.Click(isAscending ? form_.lstorderbyasc : form_.lstorderbydesc, rows[i]);
    }
  }

  // A field that is added to the list of selected fields appends a row to the order lists.
  int AddOrderRow(StringView name, int first) {
    if (form_.lstSelectedFields.LastRowOf(name) >= 0) DriveOutFields();
    if (StartsLikeFunction(name)) {
      // A field that starts like a function can't be selected alone.
      control_.Click(form_.cmdMoveAll);
    } else {
      SelectField(name);
    }
    added_.push_back(name);
    return RowOf(form_.lstorderbyasc, name, first);
  }

  bool AreSelected(const std::vector<StringView>& fields) const {
    if (isBound_ || form_.lstSelectedFields.ListCount() != static_cast<int>(fields.size()))
      return false;
    const std::unordered_set<StringView> wanted(select_.begin(), select_.end());
    return std::all_of(fields.begin(), fields.end(),
                       [&](StringView field) { return wanted.count(field) != 0; });
  }

  // Removes the plain fields from the selected ones; the rows of the order lists stay.
  void DriveOutFields() {
    control_.Write(&Parts::prpSelectPart, kDriver);
    control_.Click(form_.lstSelectedFields, form_.lstSelectedFields.LastRowOf(kDriver));
    control_.Click(form_.cmdRemoveOne);
  }

  void SelectField(StringView field) {
    if (!Holds(field, u":")) return control_.Write(&Parts::prpSelectPart, field);
    // By gestures, since the property would take the field for an expression.
    control_.Click(form_.lstFields, RowOf(form_.lstFields, field));
    control_.Click(form_.cmdMoveOne);
  }

  // Adds a row unchanged; the list then holds expressions.
  void SelectRow(StringView row) { control_.Write(&Parts::prpSelectPart, Concat(row, u":")); }

  void SelectFields() {
    bool hasRows = false;
    for (const StringView field : select_) {
      if (Holds(field, u":") || !StartsLikeFunction(field)) continue;
      SelectRow(field);
      hasRows = true;
    }
    if (hasRows) {
      // Clear, on any page but the first, lets the list hold fields again and keeps the rows.
      control_.Tab(kSelectDoPage);
      control_.Click(form_.cmdClear);
      control_.Tab(kSelectListPage);
      control_.Click(form_.cmdRemoveOne);  // enables the order lists
    }
    for (const StringView field : select_) {
      if (form_.lstSelectedFields.LastRowOf(field) < 0) SelectField(field);
    }
  }

  void SelectExpressions() {
    std::vector<StringView> rows;
    for (const StringView entry : select_) {
      const StringView row = RowOfBound(entry);
      if (!Holds(row, u":")) {
        rows.push_back(row);
      } else {
        SelectFunction(row);
      }
    }
    String last;
    for (const StringView row : rows) {
      if (row == u"count ( * ) ") {
        last = RowOfCount(last);
      } else {
        last = row;
      }
      SelectRow(last);
    }
  }

  // Adds an expression that applies a function to a field with a colon in its name. By gestures,
  // since prpSelectPart would end the expression at that colon.
  void SelectFunction(StringView row) {
    const std::size_t bracket = row.find(u" ( ");
    const std::size_t field = std::min(bracket, row.size() - 3) + 3;
    control_.Click(form_.lstFunctions, RowOf(form_.lstFunctions, row.substr(0, bracket)));
    control_.Click(form_.lstFields,
                   RowOf(form_.lstFields, row.substr(field, row.size() - field - 3)));
    control_.Click(form_.cmdMoveOne);
  }

  // The count of a whole table is written as the count of all rows, in its place among the
  // expressions.
  String RowOfCount(StringView last) const {
    String row = u"count ( * ) ";
    std::vector<StringView> tables = tables_;
    std::sort(tables.begin(), tables.end());
    for (auto table = tables.begin(); row <= last && table != tables.end(); ++table)
      row = Concat(u"count ( ", *table, u".* ) ");
    return row;
  }

  void FillTexts() {
    const Parts parts = MakeParts(statement_, division_).parts;
    if (const String& rows = parts.prpSelectAsSetPart; !rows.empty())
      control_.Write(&Parts::prpSelectAsSetPart, rows);
    for (const Clause& clause : division_.clauses) {
      if (clause.kind->form != Form::kCondition && clause.kind->form != Form::kBlock) continue;
      const bool isWhole = clause.content.size() > 1;
      if (isWhole && FindUnsendable(clause.content) == StringView::npos) {
        control_.Write(clause.kind->part, parts.*clause.kind->part);
      } else {
        TypeText(clause);
      }
    }
  }

  void TypeText(const Clause& clause) {
    const std::array<const Control*, 5> boxes{&form_.txtwhereCondition, &form_.txtSelectDo,
                                              &form_.txtSelectEOS, &form_.txtselectempty,
                                              &form_.txtSelectError};
    constexpr std::array<String Parts::*, 5> kParts{
        &Parts::prpSelectWherePart, &Parts::prpSelectDoPart, &Parts::prpSelectEOSPart,
        &Parts::prpSelectEmptyPart, &Parts::prpSelectErrorPart};
    const auto box = static_cast<std::size_t>(
        std::find(kParts.begin(), kParts.end(), clause.kind->part) - kParts.begin());
    // A blank behind a text of one character keeps the control from dropping the text. An empty
    // block comes from a text that has hardly more than a line break at its start.
    String text = Replace(clause.content, u"\r\n\t", kLineBreak);
    if (text.size() == 1) text += u' ';
    if (text.empty() && box > 0) text = u"\r\n.   ";
    control_.Tab(kWherePage + static_cast<int>(box));
    control_.Type(*boxes[box], box == 0 && clause.content.size() > 1 ? clause.content : text);
  }

  OwnControl& control_;
  const Surface& form_;
  StringView statement_;
  const Division& division_;
  bool isBound_;
  std::vector<StringView> select_;
  std::vector<StringView> tables_;
  std::vector<StringView> added_;  // by AddOrderRow
};

bool BeginsStatement(language::LineWord word) {
  using language::LineWord;
  return word == LineWord::kSelect || word == LineWord::kIf || word == LineWord::kFor ||
         word == LineWord::kWhile || word == LineWord::kRepeat || word == LineWord::kOnCase;
}

// Whether another statement follows an "endselect" at the margin, so that the text is more than
// one statement.
bool HoldsStatements(StringView text) {
  constexpr StringView kEnd = u"\r\nendselect\r\n";
  for (std::size_t at = Find(text, kEnd); at != StringView::npos; at = Find(text, kEnd, at + 1)) {
    const std::size_t next = language::PassBlankLines(text, at + kEnd.size());
    if (BeginsStatement(language::StartOf(text.substr(next)).word)) return true;
  }
  return false;
}

class SelectOpener {
 public:
  SelectOpener(StringView statement, const Catalogue& catalogue)
      : statement_(statement), catalogue_(catalogue) {}

  Opening Open() {
    const Division division = Divide(statement_);
    std::vector<Problem> problems = MakeParts(statement_, division).problems;
    if (!division.refusal) {
      TryToOpen(division);
    } else if (!HoldsStatements(statement_)) {
      TryOtherReadings();
    }
    if (best_.steps.empty()) best_.differences = Compare(statement_, best_.result);
    if (!best_.IsEqual()) best_.problems = std::move(problems);
    return std::move(best_);
  }

 private:
  // A condition that a person typed may have lines that look like later clauses, or strings and
  // brackets that do not end. If the text as it is can be read, no other reading is tried: any
  // statement comes back if all behind its "where" is taken for the condition.
  void TryOtherReadings() {
    std::vector<std::size_t> ends = ConditionEnds(statement_);
    if (ends.size() > kMostReadings) ends.erase(ends.begin() + kMostReadings - 1, ends.end() - 1);
    for (auto end = ends.begin(); end != ends.end() && !best_.IsEqual(); ++end) {
      const Division division = Divide(statement_, *end);
      if (!division.refusal) TryToOpen(division);
    }
  }

  void TryToOpen(const Division& division) {
    const Reopened reopened = MakeParts(statement_, division);
    const Doing byParts = [&](OwnControl& control) {
      for (const PartProperty& property : PartsInOrder()) {
        const String& value = reopened.parts.*property.part;
        if (!value.empty()) control.Write(property.part, value);
      }
    };
    const bool mayBeBound = Holds(division.clauses.front().content, u":var.");
    if (reopened.rest.empty()) Try(byParts);
    if (!best_.IsEqual()) TryByHand(division, mayBeBound);
    if (!best_.IsEqual()) TryByHand(division, !mayBeBound);
  }

  void TryByHand(const Division& division, bool isBound) {
    Try([&](OwnControl& control) { PageFiller(control, statement_, division, isBound).Fill(); });
  }

  void Try(const Doing& fill) {
    KeepBetter(best_, reopen::Try(statement_, catalogue_, fill, [](OwnControl& control) {
                 control.Tab(kSelectListPage);
                 control.Click(control.Form().cmdAddSelect);
               }));
  }

  StringView statement_;
  const Catalogue& catalogue_;
  Opening best_;
};

}  // namespace

Opening OpenSelect(StringView statement, const Catalogue& catalogue) {
  return SelectOpener(statement, catalogue).Open();
}

}  // namespace zolt20::reopen
