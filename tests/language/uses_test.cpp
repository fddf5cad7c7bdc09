// Where names stand in a text, and new names in their places.
#include "language/uses.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <set>
#include <tuple>

#include "tests/support/host_texts.h"
#include "tests/support/whole_forms.h"

namespace zolt20::tests {
namespace {

using language::Names;
using language::Use;
using language::UseKind;
using language::UsePlace;

const Names& Catalogue() {
  static const Names kNames(
      Wide("CUSTOMER1,ORDERS__2,ODD TAB_0"),
      Wide(List({Field("NCUSTOMER.C_LAST"), Field("NCUSTOMER.C_ID"), Field("NORDERS__.O_ID"),
                 Field("NORDERS__.LINE NO"), Field("NORDERS__.LINE"), Field("NODD TAB_.F")})));
  return kNames;
}

// Each "line:column+length kind in place: TABLE.name".
Texts Lines(std::string_view text, const Names* names = nullptr) {
  Texts lines;
  const String wide = Wide(std::string(text));
  for (const Use& use : language::UsesIn(wide, names)) {
    lines.push_back(std::to_string(use.line) + ":" + std::to_string(use.column) + "+" +
                    std::to_string(use.length) + " " + NameOf(use.kind) + " in " +
                    NameOf(use.place) + ": " + Narrow(String(use.table)) + "." +
                    Narrow(String(use.name)));
  }
  return lines;
}

TEST(UsesTest, WhatTheCatalogueHasNotIsMissingWhereItIsMeant) {
  const String text =
      u"select CUSTOMER.C_ID,CUSTOMER.C_NO,NOWHERE_.A\r\nfrom  ORDERS__,NOWHERE_\r\nselectdo\r\n"
      u"\tx = round(CUSTOMER.B) + \"NOWHERE_.A\"\r\nendselect";
  Texts missing;
  for (const Use& use : language::UsesIn(text, &Catalogue())) {
    if (IsMissing(use, Catalogue()))
      missing.push_back(Narrow(String(text.substr(use.first, use.length))));
  }
  EXPECT_EQ(missing, (Texts{"CUSTOMER.C_NO", "NOWHERE_.A", "NOWHERE_", "CUSTOMER.B"}));
}

TEST(UsesTest, TheClausesOfASelectStatement) {
  EXPECT_EQ(
      Lines("select CUSTOMER.C_LAST,sum ( ORDERS__.* ),MAX(ORDERS__.O_ID) :var.A_______.B\r\n"
            "from  CUSTOMER,ORDERS__ o\r\n"
            "where ( CUSTOMER.C_ID = ORDERS__._index2 )\r\n"
            "order by CUSTOMER.C_LAST desc\r\n"
            "endselect"),
      (Texts{"1:8+15 field in clause: CUSTOMER.C_LAST", "1:30+8 table in clause: ORDERS__.",
             "1:43+3 function in clause: .MAX", "1:47+13 field in clause: ORDERS__.O_ID",
             "2:7+8 table in clause: CUSTOMER.", "2:16+8 table in clause: ORDERS__.",
             "3:9+13 field in clause: CUSTOMER.C_ID", "3:25+16 index in clause: ORDERS__._index2",
             "4:10+15 field in clause: CUSTOMER.C_LAST"}));
}

TEST(UsesTest, ConditionsStatementsAndQuotedTextsAreToldApart) {
  EXPECT_EQ(
      Lines(
          "if not (CUSTOMER.C_ID = 1) then\r\n\tx = round(CUSTOMER.C_ID,0) + \"CUSTOMER.C_ID\"\r\n"
          "endif\r\nwhile  12345678.5 > :CUSTOMER.C_ID\r\n\tx\r\nendwhile"),
      (Texts{"1:9+13 field in head: CUSTOMER.C_ID", "2:6+5 function in statement: .round",
             "2:12+13 field in statement: CUSTOMER.C_ID",
             "2:32+13 field in string: CUSTOMER.C_ID"}));
  EXPECT_EQ(Lines("x = \"open\r\ny = CUSTOMER.C_ID"),
            (Texts{"2:5+13 field in statement: CUSTOMER.C_ID"}));
}

TEST(UsesTest, NamesWithBlanksAreThoseOfTheCatalogue) {
  EXPECT_EQ(
      Lines("select ODD TAB_.F,ORDERS__.LINE NO,ORDERS__.LINE\r\nfrom  ODD TAB_,ORDERS__\r\n"
            "endselect",
            &Catalogue()),
      (Texts{"1:8+10 field in clause: ODD TAB_.F", "1:19+16 field in clause: ORDERS__.LINE NO",
             "1:36+13 field in clause: ORDERS__.LINE", "2:7+8 table in clause: ODD TAB_.",
             "2:16+8 table in clause: ORDERS__."}));
}

TEST(UsesTest, TheEndOfALongerWordIsNoTable) {
  EXPECT_EQ(Lines("x = MYCUSTOMER.C_ID + 9ODD TAB_.F + (ODD TAB_.F + CUSTOMER.C_ID", &Catalogue()),
            (Texts{"1:38+10 field in statement: ODD TAB_.F",
                   "1:51+13 field in statement: CUSTOMER.C_ID"}));
}

TEST(UsesTest, IndexesHaveNumbers) {
  EXPECT_EQ(Lines("x = ORDERS__._index + ORDERS__._indexa + ORDERS__._index12"),
            (Texts{"1:5+15 field in statement: ORDERS__._index",
                   "1:23+16 field in statement: ORDERS__._indexa",
                   "1:42+17 index in statement: ORDERS__._index12"}));
}

TEST(UsesTest, FromListsHaveTablesWithOtherNamesBehindThem) {
  const Texts uses{"2:8+8 table in clause: CUSTOMER.", "2:19+8 table in clause: ORDERS__."};
  const std::string text = "select 1\r\nfrom  ,CUSTOMER c,ORDERS__\r\nendselect";
  EXPECT_EQ(Lines(text), uses);
  EXPECT_EQ(Lines(text, &Catalogue()), uses);
}

TEST(UsesTest, VariablesThatTheControlNamesByFieldsAreToldWhenAskedFor) {
  const auto lines = [](std::string_view text) {
    Texts found;
    const String wide = Wide(std::string(text));
    for (const Use& use :
         language::UsesAndVariablesIn(wide, language::ReadOutline(wide), &Catalogue()))
      found.push_back(std::to_string(use.column) + "+" + std::to_string(use.length) + " " +
                      NameOf(use.kind) + " in " + NameOf(use.place));
    return found;
  };
  EXPECT_EQ(lines("x = :var.sum.ORDERS__.LINE NO + :var.Count.CUSTOMER"),
            (Texts{"14+16 variable in statement", "44+8 variable in statement"}));
  EXPECT_EQ(lines("x = \":var.max.ODD TAB_.F\" + :VAR.min.ODD TAB_"),
            (Texts{"15+10 variable in string", "38+8 variable in statement"}));
  EXPECT_EQ(lines("x = :var.sum + :v + :a.sum.CUSTOMER + :var.a.CUSTOMER.C_ID + :var.avg.X"),
            Texts{});
  EXPECT_EQ(lines("x = :var.sum.CUSTOMERS + :var.sum.NOT ONE_.A + :var.sum.ODD TAB_S"), Texts{});
  EXPECT_EQ(lines("x = :var.sum.NOWHERE_.A"), (Texts{"14+10 variable in statement"}));
  EXPECT_EQ(lines("x = :var.sum.CUSTOMER + 1"), (Texts{"14+8 variable in statement"}));
  const String open = u"x = :var.sum.A";
  EXPECT_TRUE(language::UsesAndVariablesIn(open, language::ReadOutline(open)).empty());
}

TEST(UsesTest, FunctionsAreWordsRightBeforeABracket) {
  EXPECT_EQ(Lines("x = f(1) + g (2) + \"h(3)\" + and(4) + If(5) + last"),
            (Texts{"1:5+1 function in statement: .f"}));
  EXPECT_EQ(Lines("f("), (Texts{"1:1+1 function in statement: .f"}));
}

TEST(UsesTest, NothingStandsInAnEmptyText) {
  EXPECT_EQ(Lines(""), Texts{});
  EXPECT_EQ(Lines("a.b = 5 and (c)"), Texts{});
}

std::string RenamedIn(std::string_view text, const language::Renames& renames) {
  const String wide = Wide(std::string(text));
  return Narrow(language::Renamed(wide, language::UsesIn(wide), renames));
}

TEST(UsesTest, ATableThatIsRenamedTakesItsFieldsAlong) {
  EXPECT_EQ(RenamedIn("select CUSTOMER.C_ID,CUSTOMER.*,ORDERS__.O_ID\r\nfrom  CUSTOMER,ORDERS__\r\n"
                      "where CUSTOMER._index1 = {: 1 }\r\nendselect",
                      {{u"CUSTOMER", u"PERSON__"}}),
            "select PERSON__.C_ID,PERSON__.*,ORDERS__.O_ID\r\nfrom  PERSON__,ORDERS__\r\n"
            "where PERSON__._index1 = {: 1 }\r\nendselect");
}

TEST(UsesTest, TheChangeOfAFieldGoesBeforeThatOfItsTable) {
  EXPECT_EQ(RenamedIn("x = CUSTOMER.C_ID + CUSTOMER.C_IDS",
                      {{u"CUSTOMER", u"PERSON__"}, {u"CUSTOMER.C_ID", u"ORDERS__.O_C_ID"}}),
            "x = ORDERS__.O_C_ID + PERSON__.C_IDS");
  EXPECT_EQ(RenamedIn("x = round(CUSTOMER.C_ID)", {{u"CUSTOMER.C_I", u"A"}, {u"round", u"B"}}),
            "x = round(CUSTOMER.C_ID)");
}

unsigned NumberOfForms() {
  const char* const asked = std::getenv("ZOLT20_CHECK_FORMS");
  return asked == nullptr ? 2000 : static_cast<unsigned>(std::stoul(asked));
}

// Another way to find the same: each name that there may be is looked for in the whole text.
using Place = std::tuple<std::size_t, std::size_t, std::string>;

class Search {
 public:
  explicit Search(String text) : text_(std::move(text)) {}

  std::set<Place> found;

  void LookFor(const String& table, const std::set<String>& fields) {
    for (std::size_t at = text_.find(table); at != String::npos; at = text_.find(table, at + 1)) {
      if (at > 0 && (IsWord(at - 1) || text_[at - 1] == u':')) continue;
      const std::size_t behind = at + table.size();
      if (!IsWord(behind)) {
        if (InFromList(at)) found.insert({at, table.size(), "table"});
      } else if (text_.compare(behind, 2, u".*") == 0) {
        found.insert({at, table.size(), "table"});
      }
      const String* longest = nullptr;
      for (const String& field : fields) {
        const bool isHere = text_.compare(behind, field.size() + 1, u"." + field) == 0 &&
                            !IsWord(behind + 1 + field.size());
        if (isHere && (longest == nullptr || field.size() > longest->size())) longest = &field;
      }
      if (longest != nullptr)
        found.insert({at, table.size() + 1 + longest->size(),
                      longest->starts_with(u"_index") ? "index" : "field"});
    }
  }

 private:
  bool IsWord(std::size_t at) const {
    constexpr StringView kOthers = u"0123456789_.";
    if (at >= text_.size()) return false;
    const char16_t c = text_[at];
    return (c | 0x20) >= u'a' && (c | 0x20) <= u'z'
               ? true
               : c > 0x7F || kOthers.find(c) != StringView::npos;
  }
  bool InFromList(std::size_t at) const {
    const std::size_t begin = text_.rfind(u'\n', at) + 1;
    return text_.find_first_not_of(u'\t', begin) == text_.find(u"from ", begin);
  }

  String text_;
};

TEST(UsesTest, ASearchForEachNameFindsTheSame) {
  std::size_t uses = 0;
  for (unsigned seed = 1; seed <= NumberOfForms(); ++seed) {
    SCOPED_TRACE(seed);
    WholeForm form(seed);
    const String text = form.Compose();
    const Names names(form.Tables(), form.Fields());
    std::set<Place> found;
    for (const Use& use : language::UsesIn(text, &names)) {
      if (use.kind != UseKind::kFunction) found.insert({use.first, use.length, NameOf(use.kind)});
    }
    Search search(text);
    for (const Names::Table& table : names.Tables()) {
      std::set<String> fields;
      for (const StringView field : table.fields)
        fields.insert(String(Trim(field)));
      for (std::size_t index = 1; index <= table.indexes; ++index)
        fields.insert(u"_index" + Wide(std::to_string(index)));
      search.LookFor(String(table.name), fields);
    }
    ASSERT_EQ(found, search.found) << Narrow(text);
    uses += found.size();
  }
  EXPECT_GT(uses, NumberOfForms() * 5);
}

TEST(UsesTest, RenamedAndBackIsTheSameText) {
  unsigned changed = 0;
  for (unsigned seed = 1; seed <= NumberOfForms(); ++seed) {
    WholeForm form(seed);
    const String text = form.Compose();
    const Names names(form.Tables(), form.Fields());
    language::Renames there;
    language::Renames back;
    int number = 10;
    for (const Names::Table& table : names.Tables()) {
      const String name = u"NEW___" + Wide(std::to_string(number++));
      there.emplace(table.name, name);
      back.emplace(name, table.name);
    }
    const String renamed = language::Renamed(text, language::UsesIn(text, &names), there);
    changed += renamed == text ? 0U : 1U;
    ASSERT_EQ(language::Renamed(renamed, language::UsesIn(renamed), back), text) << seed;
  }
  // Some have no names.
  EXPECT_GT(changed, NumberOfForms() * 9 / 10);
}

}  // namespace
}  // namespace zolt20::tests
