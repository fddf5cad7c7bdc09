// The round trip of stored statements: a form is filled by gestures and added to the Result, the
// statement is split, its parts are written to a new control with the same catalogue, and what that
// control adds to its Result is held against the first text.
//
// The properties that take the parts have rules of their own, so some statements come back
// changed. What must come then is worked out here from those rules, clause by clause, and each
// clause that differs must have a rule that says why.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "language/reopen.h"
#include "tests/support/filled_forms.h"

namespace zolt20::tests {
namespace {

using forms::Page;
using forms::Person;
using forms::Table;
using forms::Tables;

constexpr int kForms = 3000;
constexpr std::string_view kBlanks{"\r\n\t \0", 5};
const std::array<std::string, 4> kBlockWords{"selectdo", "selecteos", "selectempty", "selecterror"};

bool HoldsText(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
    text.replace(at, from.size(), to);
  return text;
}

std::string Lower(std::string text) {
  for (char& c : text)
    c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return text;
}

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? ""
                                    : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

Texts Pieces(const std::string& list) {
  Texts pieces;
  std::size_t start = 0;
  for (std::size_t at; (at = list.find(',', start)) != std::string::npos; start = at + 1)
    pieces.push_back(list.substr(start, at - start));
  if (!list.empty()) pieces.push_back(list.substr(start));
  return pieces;
}

// A text without its blank ends; "" when its length does not exceed the place of its first
// character.
std::string WithoutBlankEnds(const std::string& text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos || text.size() - first <= first + 1) return "";
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

struct OrderRow {
  std::string name;
  bool ascending = false;
  bool descending = false;
};

// What a person chose on a form.
struct Choice {
  Texts tables;  // the marked ones, in the order of the list
  Texts selected;
  bool aggregate = false;
  Texts groupRows;  // the marked ones, in their order
  std::vector<OrderRow> orderRows;
  std::string where;
  std::string rowLimit;
  std::array<std::string, 4> blocks;
};

std::string Bound(const std::string& entry) {
  const std::string countOfRows = "count ( * ) :var.count";
  const bool star = HoldsText(entry, "*");
  if (entry.starts_with("count ( ")) {
    if (star) return countOfRows;
    return entry + ":var.count." + entry.substr(8, entry.size() - 11);
  }
  return entry + ":var." + Trimmed(entry.substr(0, 3)) + "." +
         Trimmed(entry.substr(5, entry.size() - (star ? 10 : 7)));
}

// The clauses of a statement, "" for one that is not there.
using Clauses = std::map<std::string, std::string>;
const Texts kClauseNames{"select", "from",     "where",     "group by",    "order by",
                         "as set", "selectdo", "selecteos", "selectempty", "selecterror"};

Clauses ClausesOf(const Choice& choice) {
  Clauses clauses;
  Texts entries;
  for (const std::string& entry : choice.selected)
    entries.push_back(choice.aggregate ? Bound(entry) : entry);
  clauses["select"] = List(entries);
  clauses["from"] = List({choice.tables.rbegin(), choice.tables.rend()});
  clauses["where"] = WithoutBlankEnds(choice.where);
  clauses["group by"] = List(choice.groupRows);
  Texts order;
  for (const OrderRow& row : choice.orderRows) {
    if (row.ascending) order.push_back(row.name);
    if (row.descending) order.push_back(row.name + " desc");
  }
  clauses["order by"] = List(order);
  clauses["as set"] = Trimmed(choice.rowLimit).empty() ? "" : choice.rowLimit;
  for (std::size_t i = 0; i < kBlockWords.size(); ++i) {
    if (WithoutBlankEnds(choice.blocks[i]).empty()) continue;
    clauses[kBlockWords[i]] =
        "\r\n\t" + WithoutBlankEnds(Replaced(choice.blocks[i], "\r\n", "\r\n\t"));
  }
  return clauses;
}

std::string TextOf(Clauses clauses) {
  const std::map<std::string, std::string> heads{
      {"select", "select "},         {"from", "\r\nfrom  "},
      {"where", "\r\nwhere "},       {"group by", "\r\ngroup by  "},
      {"order by", "\r\norder by "}, {"as set", "\r\nas set with "}};
  std::string text;
  for (const std::string& name : kClauseNames) {
    if (clauses[name].empty()) continue;
    text += heads.count(name) != 0 ? heads.at(name) : "\r\n" + name;
    text += clauses[name];
    if (name == "as set") text += " rows ";
  }
  return text + "\r\nendselect";
}

Choice ChoiceOf(const Surface& form) {
  Choice choice;
  for (int i = 0; i < form.lsttables.ListCount(); ++i) {
    if (form.lsttables.Selected(i)) choice.tables.push_back(Narrow(form.lsttables.List(i)));
  }
  for (int i = 0; i < form.lstSelectedFields.ListCount(); ++i) {
    choice.selected.push_back(Narrow(form.lstSelectedFields.List(i)));
    choice.aggregate = choice.aggregate || HoldsText(choice.selected.back(), ")");
  }
  for (int i = 0; i < form.lstGroupby.ListCount(); ++i) {
    if (form.lstGroupby.Selected(i)) choice.groupRows.push_back(Narrow(form.lstGroupby.List(i)));
  }
  for (int i = 0; i < form.lstorderbyasc.ListCount(); ++i) {
    choice.orderRows.push_back({Narrow(form.lstorderbyasc.List(i)), form.lstorderbyasc.Selected(i),
                                form.lstorderbydesc.Selected(i)});
  }
  choice.where = Narrow(form.txtwhereCondition.Text());
  choice.rowLimit = Narrow(form.txtAsSet.Text());
  choice.blocks = {Narrow(form.txtSelectDo.Text()), Narrow(form.txtSelectEOS.Text()),
                   Narrow(form.txtselectempty.Text()), Narrow(form.txtSelectError.Text())};
  return choice;
}

// The rules by which the parts fill a new form, told from the texts of the clauses.
class Reloading {
 public:
  explicit Reloading(const Tables& tables) : tables_(tables) {}

  /// The elements of `select` are those of the clause, in the order in which they are written.
  Choice Reload(Clauses clauses, const Texts& select) {
    MarkFrom(Pieces(clauses["from"]));
    MarkSelect(select);
    for (const std::string& entry : select)
      Add(entry);
    MarkGroup(Pieces(clauses["group by"]));
    for (const std::string& entry : Pieces(clauses["order by"]))
      MarkOrder(entry);
    choice_.rowLimit = clauses["as set"];
    choice_.where = IsSendable(clauses["where"]) ? clauses["where"] : "";
    for (std::size_t i = 0; i < kBlockWords.size(); ++i) {
      const std::string& block = clauses[kBlockWords[i]];
      if (block.empty() || !IsSendable(block)) continue;
      choice_.blocks[i] = Replaced(block.substr(3), "\r\n\t", "\r\n");
    }
    for (const Table& table : tables_) {
      if (IsMarked(table)) choice_.tables.push_back(table.name);
    }
    return choice_;
  }

  static bool IsSendable(const std::string& text) {
    return !HoldsText(text, "~") && !HoldsText(text, "\x01") && !HoldsText(text, "`^`") &&
           !HoldsText(text, "`^\"");
  }

 private:
  bool IsMarked(const Table& table) const { return marked_.count(table.name) != 0; }

  // Tables are marked from the last row to the first; the fields of each go behind the others.
  void MarkWhere(const std::function<bool(const Table&)>& names) {
    for (auto table = tables_.rbegin(); table != tables_.rend(); ++table) {
      if (IsMarked(*table) || !names(*table)) continue;
      marked_.insert(table->name);
      for (int k = 1; k <= table->indexes; ++k)
        choice_.orderRows.push_back({table->name + "._index" + std::to_string(k)});
      groupRows_.insert(groupRows_.end(), table->fields.begin(), table->fields.end());
    }
  }

  void MarkFrom(const Texts& entries) {
    MarkWhere([&](const Table& table) {
      return std::find(entries.begin(), entries.end(), table.name) != entries.end();
    });
  }

  // The last entry marks no table, and a name anywhere in any other entry does.
  void MarkSelect(const Texts& entries) {
    MarkWhere([&](const Table& table) {
      return std::any_of(entries.begin(), entries.end() - 1,
                         [&](const std::string& entry) { return HoldsText(entry, table.name); });
    });
  }

  void Add(const std::string& entry) {
    Texts& selected = choice_.selected;
    const auto insert = [&](const std::string& row) {
      selected.insert(std::upper_bound(selected.begin(), selected.end(), row), row);
    };
    if (HoldsText(entry, ":")) {
      insert(entry.substr(0, entry.find(':')));
      choice_.aggregate = true;
      return;
    }
    for (const std::string_view word : {"avg", "sum", "min", "max", "count"})
      choice_.aggregate = choice_.aggregate || entry.starts_with(word);
    if (choice_.aggregate) return;  // refused: it is no function
    insert(entry);
    if (!entry.ends_with(".*")) {
      choice_.orderRows.push_back({entry});
      return;
    }
    for (const Table& table : tables_) {
      if (!entry.starts_with(table.name)) continue;
      for (const std::string& field : table.fields)
        choice_.orderRows.push_back({field});
    }
  }

  // The last row of the name is marked.
  void MarkGroup(const Texts& entries) {
    std::set<std::size_t> rows;
    for (const std::string& entry : entries) {
      for (std::size_t i = groupRows_.size(); i-- > 0;) {
        if (groupRows_[i] != Trimmed(entry)) continue;
        rows.insert(i);
        break;
      }
    }
    for (const std::size_t row : rows)
      choice_.groupRows.push_back(groupRows_[row]);
  }

  void MarkOrder(const std::string& entry) {
    const bool descending = HoldsText(Lower(entry), "desc");
    const std::string name = Trimmed(Replaced(entry, "desc", ""));
    for (auto row = choice_.orderRows.rbegin(); row != choice_.orderRows.rend(); ++row) {
      if (descending ? Trimmed(row->name) != name : row->name != entry) continue;
      // The mark that came first stays.
      if (!row->ascending && !row->descending)
        (descending ? row->descending : row->ascending) = true;
      return;
    }
  }

  const Tables& tables_;
  std::set<std::string> marked_;
  Texts groupRows_;
  Choice choice_;
};

bool HoldsTwice(Texts texts) {
  std::sort(texts.begin(), texts.end());
  return std::adjacent_find(texts.begin(), texts.end()) != texts.end();
}

bool SameInOtherOrder(Texts a, Texts b) {
  std::sort(a.begin(), a.end());
  std::sort(b.begin(), b.end());
  return a == b;
}

Texts WithoutDirection(Texts entries) {
  for (std::string& entry : entries) {
    if (entry.ends_with(" desc")) entry.resize(entry.size() - 5);
  }
  return entries;
}

// Why a clause comes back changed; "" for no reason that is known.
std::string ReasonOf(const std::string& clause, const Clauses& before, const Clauses& after,
                     const Choice& reloaded) {
  const std::string& text = before.at(clause);
  const Texts entries = Pieces(text);
  const Texts changed = Pieces(after.at(clause));
  if (clause == "select") {
    for (const std::string& entry : entries) {
      if (!HoldsText(entry, "(") && HoldsText(entry, ":")) return "a colon in a field's name";
      if (entry == "summarys.*") return "a whole table named like a function";
    }
    if (HoldsText(text, "count ( * ) :") && SameInOtherOrder(entries, changed))
      return "a whole table that is counted";
  }
  if (clause == "from") {
    for (const std::string& table : changed) {
      if (std::find(entries.begin(), entries.end(), table) == entries.end() &&
          HoldsText(before.at("select"), "." + table))
        return "a table's name in the name of a field";
    }
  }
  if (clause == "where" || clause.starts_with("select")) {
    if (!Reloading::IsSendable(text)) return "a text that can't be sent";
    if (text.size() == (clause == "where" ? 1U : 4U)) return "a text of one character";
    if (text == "\r\n\t") return "a block without a text";
  }
  if (clause == "group by") {
    for (const std::string& entry : entries) {
      if (entry != Trimmed(entry)) return "a blank at the end of a name";
    }
    if (HoldsTwice(entries)) return "a name twice in group by";
    if (SameInOtherOrder(entries, changed)) return "tables marked in another order";
  }
  if (clause == "order by") {
    for (const std::string& entry : entries) {
      const bool descending = entry.ends_with(" desc");
      const std::string name = WithoutDirection({entry})[0];
      if (HoldsText(descending ? name : Lower(name), "desc")) return "desc in a name";
    }
    for (const std::string& entry : WithoutDirection(entries)) {
      if (entry != Trimmed(entry)) return "a blank at the end of a name";
    }
    if (HoldsTwice(WithoutDirection(entries))) return "a name twice in order by";
    for (const std::string& entry : WithoutDirection(entries)) {
      if (std::none_of(reloaded.orderRows.begin(), reloaded.orderRows.end(),
                       [&](const OrderRow& row) { return row.name == entry; }))
        return "an order row without its field";
    }
    if (SameInOtherOrder(entries, changed)) return "fields chosen in another order";
  }
  return "";
}

struct Refused {
  std::string rule;
  std::string message;  // the end of the problem's message; "here": where something begins
};

// Conditions that a person typed so that the statement reads as another one. `read` takes the
// clauses as they read where that goes well.
std::vector<Refused> RefusedFor(const Clauses& clauses, Clauses& read) {
  const std::string orderInCondition = "A = B\r\norder by NOTHING_.X";
  const std::string& where = clauses.at("where");
  // Conditions that follow in the same box leave the odd text in front. A quote in a block behind
  // may end the string, and a bracket there then opens.
  if (where.starts_with("A = \"x") && !where.starts_with("A = \"x\r\nendselect\""))
    return {{"a string that does not end", "here"}};
  if (where.starts_with("A in (1,2")) return {{"a bracket that is not closed", "here"}};
  if (where.starts_with("A = B\r\nendselect"))
    return {{"an endselect in the condition", "behind 'endselect'"}};
  if (!where.starts_with(orderInCondition)) return {};
  if (where != orderInCondition)
    return {{"a condition behind an order by", "neither a clause nor 'endselect' begins here"}};
  if (!clauses.at("group by").empty() || !clauses.at("order by").empty())
    return {{"a second clause in the condition", "before the one above it"}};
  read["where"] = "A = B";
  read["order by"] = "NOTHING_.X";
  return {};
}

const Texts kRules{"a blank at the end of a name",
                   "a block without a text",
                   "a bracket that is not closed",
                   "a colon in a field's name",
                   "a condition behind an order by",
                   "a name twice in group by",
                   "a name twice in order by",
                   "a second clause in the condition",
                   "a string that does not end",
                   "a table's name in the name of a field",
                   "a text of one character",
                   "a text that can't be sent",
                   "a whole table named like a function",
                   "a whole table that is counted",
                   "after a changed select",
                   "an endselect in the condition",
                   "an order by in the condition",
                   "an order row without its field",
                   "desc in a name",
                   "fields chosen in another order",
                   "tables marked in another order"};

// The rules that also go with a problem: the text tells them, without the catalogue.
bool IsToldByTheText(const std::string& rule) {
  return rule == "a block without a text" || rule == "a text of one character" ||
         rule == "a text that can't be sent" || rule == "desc in a name";
}

TEST(RoundTripTest, AReopenedStatementIsAddedAsItWasOrAsTheRulesOfItsPartsSay) {
  std::map<std::string, int> rules;
  int equal = 0;
  Person person(20);
  for (int number = 0; number < kForms && !::testing::Test::HasFailure(); ++number) {
    const Tables tables = person.MakeCatalogue();
    Page first(tables);
    person.FillIn(first);
    const std::string text = first.AddToResult();
    SCOPED_TRACE("form " + std::to_string(number) + ":\n" + text);
    Choice choice = ChoiceOf(first.Form());
    // A field of a table named like a function turns the mode on too, and is refused.
    for (const std::string& line : first.TakeLog())
      choice.aggregate = choice.aggregate || HoldsText(line, "Selection Not Allowed");
    Clauses clauses = ClausesOf(choice);
    for (const std::string& name : kClauseNames)
      clauses[name];
    ASSERT_EQ(TextOf(clauses), text);

    const reopen::Reopened reopened = reopen::Reopen(Wide(text));
    Page second(tables);
    reopen::WriteParts(second.Control(), reopened.parts);
    second.TakeLog();
    const std::string result = second.AddToResult();

    Clauses read = clauses;
    const std::vector<Refused> refused = RefusedFor(clauses, read);
    if (!refused.empty()) {
      ++rules[refused[0].rule];
      EXPECT_EQ(Narrow(reopened.rest), text);
      ASSERT_EQ(reopened.problems.size(), 1U);
      const std::string& message = reopened.problems[0].message;
      if (refused[0].message == "here") {
        EXPECT_NE(message.find("here "), std::string::npos) << message;
      } else {
        EXPECT_TRUE(message.ends_with(refused[0].message)) << message;
      }
      EXPECT_EQ(result, "");
      EXPECT_EQ(second.TakeLog(),
                Texts{ErrorMessage("Tables Not Selected --Select A Table To Proceed Further")});
      continue;
    }

    const Texts select = Pieces(Narrow(reopened.parts.prpSelectPart));
    EXPECT_TRUE(SameInOtherOrder(select, Pieces(clauses["select"])));
    const Choice reloaded = Reloading(tables).Reload(read, select);
    Clauses expected = ClausesOf(reloaded);
    bool isPlain = true;
    bool isTold = false;
    for (const std::string& name : kClauseNames) {
      if (expected[name] == clauses[name]) continue;
      isPlain = false;
      std::string rule = read[name] != clauses[name] ? "an order by in the condition"
                                                     : ReasonOf(name, clauses, expected, reloaded);
      // A field or table that is not as it was takes its rows along.
      if (rule.empty() && expected["select"] != clauses["select"]) rule = "after a changed select";
      EXPECT_NE(rule, "") << name << " comes back as " << expected[name];
      ++rules[rule];
      isTold = isTold || IsToldByTheText(rule);
    }
    EXPECT_EQ(!reopened.problems.empty(), isTold);
    if (reloaded.selected.empty()) {
      EXPECT_EQ(result, "");
      EXPECT_EQ(second.TakeLog(),
                Texts{ErrorMessage("Fields Not Selected --Select A Field To Proceed Further")});
      continue;
    }
    EXPECT_EQ(result, isPlain ? text : TextOf(expected));
    EXPECT_EQ(second.TakeLog(), Texts{});
    if (!isPlain) continue;
    ++equal;
    EXPECT_EQ(Narrow(reopened.rest), "");
  }
  EXPECT_GT(equal, kForms * 7 / 10);
  Texts seen;
  for (const auto& [rule, count] : rules)
    seen.push_back(rule);
  EXPECT_EQ(seen, kRules);
}

}  // namespace
}  // namespace zolt20::tests
