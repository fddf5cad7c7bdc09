#include "shell/contract.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <map>
#include <set>

#include "tests/support/control_test.h"
#include "tests/support/places.h"

namespace zolt20::tests {
namespace {

enum Access { kLet = 1, kGet = 2, kCall = 4 };

struct Row {
  std::string_view name;
  int access;
  ValueType type;
  bool reports;
};

constexpr auto kString = ValueType::kString;
constexpr auto kInteger = ValueType::kInteger;

// In the order of the interface.
constexpr Row kRows[] = {
    {"PrpStrTables", kLet, kString, true},
    {"PrpStrFields", kLet, kString, true},
    {"prpSelectPart", kLet, kString, true},
    {"prpTab", kLet, kInteger, true},
    {"prpParentorChild", kLet, kString, true},
    {"prpStroutput", kLet | kGet, kString, false},
    {"prpSelectFromPart", kLet, kString, true},
    {"prpSelectWherePart", kLet, kString, true},
    {"prpSelectGroupbyPart", kLet, kString, true},
    {"prpSelectOrderbyPart", kLet, kString, true},
    {"prpSelectAsSetPart", kLet, kString, true},
    {"prpSelectDoPart", kLet, kString, true},
    {"prpSelectEOSPart", kLet, kString, true},
    {"prpSelectEmptyPart", kLet, kString, true},
    {"prpSelectErrorPart", kLet, kString, true},
    {"prpStrSQLPart", kGet, kString, false},
    {"BuildGroupBy", kCall, ValueType::kNone, false},
    {"ClearAll", kCall, kInteger, false},
    {"prpstrSelectedFields", kGet, kString, false},
    {"prpintTabcount", kLet | kGet, kInteger, false},
    {"Syntax_Highlight", kLet | kGet, ValueType::kBoolean, false},
};

class ContractTest : public ControlTest {
 protected:
  static Variant ValueOf(ValueType type) {
    switch (type) {
      case ValueType::kString:
        return String();
      case ValueType::kInteger:
        return Integer(1);
      case ValueType::kBoolean:
        return true;
      case ValueType::kNone:
        break;
    }
    return {};
  }
  static ValueType TypeOf(const Variant& value) {
    if (std::holds_alternative<String>(value)) return ValueType::kString;
    if (std::holds_alternative<Integer>(value)) return ValueType::kInteger;
    if (std::holds_alternative<bool>(value)) return ValueType::kBoolean;
    return ValueType::kNone;
  }
  const Member& The(std::string_view name) {
    const Member* member = FindMember(name);
    if (member == nullptr) throw std::invalid_argument(std::string(name));
    return *member;
  }
};

TEST_F(ContractTest, HoldsTheMembersInTheOrderOfTheInterface) {
  ASSERT_EQ(Members().size(), std::size(kRows));
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    EXPECT_EQ(Members()[i].name, kRows[i].name);
    EXPECT_EQ(Members()[i].number, static_cast<int>(i) + 1);
  }
}

TEST_F(ContractTest, EveryMemberHasItsAccessAndType) {
  for (const Row& row : kRows) {
    const Member& member = The(row.name);
    EXPECT_EQ(member.let != nullptr, (row.access & kLet) != 0) << row.name;
    EXPECT_EQ(member.get != nullptr, (row.access & kGet) != 0) << row.name;
    EXPECT_EQ(member.IsMethod(), (row.access & kCall) != 0) << row.name;
    EXPECT_EQ(member.type, row.type) << row.name;
  }
}

// The word at the start of a text, taken off the text.
std::string TakeWord(std::string_view& text) {
  const auto isOfWord = [](unsigned char c) { return std::isalnum(c) != 0 || c == '_'; };
  const auto end = std::find_if_not(text.begin(), text.end(), isOfWord);
  const std::string word(text.begin(), end);
  text.remove_prefix(word.size());
  return word;
}

// The declarations of the contract's part of the header, as rows of name and access with type; in
// the order in which the names come first.
std::vector<std::string> RowsOfTheHeader() {
  std::ifstream header(Sources() + "/shell/control.h");
  const std::set<std::string> results{"void", "String", "Integer", "bool", "Variant"};
  constexpr std::string_view kIndent = "  ";
  std::vector<std::string> names;
  std::map<std::string, std::set<std::string>> accesses;
  bool isContract = false;
  for (std::string line; std::getline(header, line);) {
    if (line.find("// The contract, in its order.") != std::string::npos) isContract = true;
    if (line.find("// The property bag.") != std::string::npos) break;
    std::string_view rest = line;
    if (!isContract || !rest.starts_with(kIndent)) continue;
    rest.remove_prefix(kIndent.size());
    const std::string result = TakeWord(rest);
    if (results.count(result) == 0 || !rest.starts_with(' ')) continue;
    rest.remove_prefix(1);
    const std::string name = TakeWord(rest);
    if (name.empty() || !rest.starts_with('(')) continue;
    rest.remove_prefix(1);
    const std::string argument = TakeWord(rest);
    if (accesses[name].empty()) names.push_back(name);
    accesses[name].insert(result == "void"      ? "let " + argument
                          : result == "Variant" ? "call " + argument
                                                : "get " + result);
  }
  std::vector<std::string> rows;
  for (const std::string& name : names) {
    std::string row = name;
    for (const std::string& access : accesses[name])
      row += " " + access;
    rows.push_back(row);
  }
  return rows;
}

TEST_F(ContractTest, TheListIsWhatTheHeaderDeclares) {
  const auto nameOf = [](ValueType type) {
    switch (type) {
      case ValueType::kString:
        return "String";
      case ValueType::kInteger:
        return "Integer";
      case ValueType::kBoolean:
        return "bool";
      case ValueType::kNone:
        break;
    }
    return "";
  };
  std::vector<std::string> rows;
  for (const Member& member : Members()) {
    std::string row(member.name);
    if (member.IsMethod()) row += std::string(" call ") + nameOf(member.type);
    if (member.get != nullptr) row += std::string(" get ") + nameOf(member.type);
    if (member.let != nullptr) row += std::string(" let ") + nameOf(member.type);
    rows.push_back(row);
  }
  EXPECT_EQ(RowsOfTheHeader(), rows);
}

TEST_F(ContractTest, ALetTellsTheHostWhereItReportsAndNothingElsewhere) {
  for (const Row& row : kRows) {
    EXPECT_EQ(The(row.name).reports, row.reports) << row.name;
    if ((row.access & kLet) == 0) continue;
    The(row.name).let(host(), ValueOf(row.type));
    EXPECT_EQ(Log(), row.reports ? Texts{"changed " + std::string(row.name)} : Texts{}) << row.name;
  }
}

TEST_F(ContractTest, AGetGivesAValueOfItsType) {
  for (const Row& row : kRows) {
    if ((row.access & kGet) == 0) continue;
    EXPECT_EQ(TypeOf(The(row.name).get(host())), row.type) << row.name;
  }
}

TEST_F(ContractTest, TheResultsOfTheMethodsStayEmpty) {
  EXPECT_EQ(TypeOf(The("BuildGroupBy").call(host(), {})), ValueType::kNone);
  for (const int page : {-1, 0, 1, 2, 3, 4, 5, 6, 7}) {
    EXPECT_EQ(TypeOf(The("ClearAll").call(host(), Integer(page))), ValueType::kNone) << page;
  }
}

TEST_F(ContractTest, TheArgumentOfClearAllHasItsName) {
  EXPECT_EQ(The("ClearAll").argument, "i_intTabNo");
  EXPECT_EQ(The("BuildGroupBy").argument, "");
}

TEST_F(ContractTest, NoOtherMemberNamesAnArgument) {
  for (const Row& row : kRows) {
    if (row.name == "ClearAll") continue;
    EXPECT_EQ(The(row.name).argument, "") << row.name;
  }
}

TEST_F(ContractTest, WhatIsWrittenByTheListIsReadByIt) {
  The("prpintTabcount").let(host(), Integer(3));
  EXPECT_EQ(std::get<Integer>(The("prpintTabcount").get(host())), 3);
  The("Syntax_Highlight").let(host(), true);
  EXPECT_TRUE(std::get<bool>(The("Syntax_Highlight").get(host())));
  The("prpintTabcount").let(host(), Integer(0));
  The("prpStroutput").let(host(), String(u"a"));
  EXPECT_EQ(std::get<String>(The("prpStroutput").get(host())), u"a");
}

TEST_F(ContractTest, MembersAreFoundWithTheirLetterCase) {
  EXPECT_EQ(FindMember("prpStrTables"), nullptr);
  EXPECT_EQ(FindMember("eventDone"), nullptr);
  EXPECT_EQ(FindMember(""), nullptr);
}

TEST_F(ContractTest, HoldsTheEventsInTheOrderOfTheOutgoingInterface) {
  const Texts names{"eventCancel", "eventDone", "eventSubQuery", "eventCondition", "eventFunction"};
  ASSERT_EQ(Events().size(), names.size());
  for (std::size_t i = 0; i < names.size(); ++i) {
    EXPECT_EQ(Events()[i].name, names[i]);
    EXPECT_EQ(Events()[i].number, static_cast<int>(i) + 1);
    (host_.*Events()[i].raise)();
    EXPECT_EQ(Log(), Texts{names[i]});
  }
}

}  // namespace
}  // namespace zolt20::tests
