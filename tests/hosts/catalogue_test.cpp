#include "hosts/kit/catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include "tests/support/control_test.h"
#include "tests/support/places.h"

namespace zolt20::tests {
namespace {

using catalogue::Catalogue;
using catalogue::CatalogueError;
using catalogue::FieldList;
using catalogue::ReadCatalogue;
using catalogue::Table;
using catalogue::TableList;

// A sound catalogue; the cases spoil it in one place.
constexpr const char* kSmall = R"json({
  "name": "Small",
  "tables": [
    {"code": "CUSTOMER", "name": "CUSTOMER", "indexes": 2, "fields": [
      {"name": "C_ID", "type": "long", "flagged": false, "text": "numeric(5)"
},
      {"name": "C_SINCE", "type": "date", "flagged": true, "text": ""}
    ]
},
    {"code": "ORDRLINE", "name": "ORDER_LINE", "indexes": 0, "fields": [
      {"name": "OL_AMOUNT", "type": "decimal", "flagged": true, "text": "numeric(6.2)"}
    ]}
  ],
  "functions": [
    {"name": "today", "arguments": []},
    {"name": "substr", "arguments": ["text", "start", "length"]}
  ]
})json";

Catalogue Read(const std::string& json) {
  std::istringstream input(json);
  return ReadCatalogue(input);
}

// The small catalogue with `part`, which stands in it, replaced where it stands first.
std::string Small(const std::string& part, const std::string& by) {
  std::string json = kSmall;
  const std::size_t at = json.find(part);
  EXPECT_NE(at, std::string::npos) << part;
  return at == std::string::npos ? json : json.replace(at, part.size(), by);
}

// What the reading complains of, "" when it complains of nothing.
template <typename Source>
std::string ComplaintOf(const Source& source) {
  try {
    if constexpr (std::is_same_v<Source, std::filesystem::path>) {
      ReadCatalogue(source);
    } else {
      Read(source);
    }
  } catch (const CatalogueError& error) {
    return error.what();
  }
  return {};
}

TEST(CatalogueFileTest, TablesKeepTheirOrderCodesNamesAndIndexCounts) {
  const Catalogue small = Read(kSmall);
  EXPECT_EQ(Narrow(small.name), "Small");
  ASSERT_EQ(small.tables.size(), 2U);
  EXPECT_EQ(Narrow(small.tables[0].code), "CUSTOMER");
  EXPECT_EQ(small.tables[0].indexes, 2);
  EXPECT_EQ(Narrow(small.tables[1].code), "ORDRLINE");
  EXPECT_EQ(Narrow(small.tables[1].name), "ORDER_LINE");
  EXPECT_EQ(small.tables[1].indexes, 0);
}

TEST(CatalogueFileTest, FieldsKeepTheirOrderTypesFlagsAndTexts) {
  const Catalogue small = Read(kSmall);
  ASSERT_EQ(small.tables[0].fields.size(), 2U);
  const auto& since = small.tables[0].fields[1];
  EXPECT_EQ(Narrow(small.tables[0].fields[0].name), "C_ID");
  EXPECT_EQ(Narrow(small.tables[0].fields[0].text), "numeric(5)");
  EXPECT_FALSE(small.tables[0].fields[0].flagged);
  EXPECT_EQ(Narrow(since.name), "C_SINCE");
  EXPECT_EQ(Narrow(since.type), "date");
  EXPECT_EQ(Narrow(since.text), "");
  EXPECT_TRUE(since.flagged);
}

TEST(CatalogueFileTest, FunctionsKeepTheirArguments) {
  const Catalogue small = Read(kSmall);
  ASSERT_EQ(small.functions.size(), 2U);
  EXPECT_EQ(Narrow(small.functions[0].name), "today");
  EXPECT_TRUE(small.functions[0].arguments.empty());
  EXPECT_EQ(small.functions[1].arguments, (std::vector<String>{u"text", u"start", u"length"}));
}

TEST(CatalogueFileTest, AFunctionMayHaveAKindAndAText) {
  const Catalogue result = Read(
      R"({"name": "", "tables": [], "functions": [
          {"name": "a", "arguments": [], "kind": "date", "text": "Now."},
          {"name": "b", "arguments": []}]})");
  ASSERT_EQ(result.functions.size(), 2U);
  EXPECT_EQ(result.functions[0].kind, u"date");
  EXPECT_EQ(result.functions[0].text, u"Now.");
  EXPECT_EQ(result.functions[1].kind, u"");
  EXPECT_EQ(result.functions[1].text, u"");
}

TEST(CatalogueFileTest, TheTableListHasCodesWithIndexCounts) {
  EXPECT_EQ(Narrow(TableList(Read(kSmall))), "CUSTOMER2,ORDRLINE0");
}

TEST(CatalogueFileTest, TheFieldListHasARecordForEachFieldFlaggedYOrN) {
  EXPECT_EQ(Narrow(FieldList(Read(kSmall))),
            "long*Q*V*R*N*NCUSTOMER.C_ID*Q*V*R*N*numeric(5),"
            "date*Q*V*R*N*YCUSTOMER.C_SINCE*Q*V*R*N*,"
            "decimal*Q*V*R*N*YORDRLINE.OL_AMOUNT*Q*V*R*N*numeric(6.2)");
}

TEST(CatalogueFileTest, ACatalogueOfNothingGivesEmptyLists) {
  const Catalogue nothing = Read(R"({"name": "", "tables": [], "functions": []})");
  EXPECT_EQ(TableList(nothing), u"");
  EXPECT_EQ(FieldList(nothing), u"");
}

TEST(CatalogueFileTest, ATableMayHaveNoFields) {
  const Catalogue empty = Read(
      R"({"name": "", "tables": [{"code": "HISTORY_", "name": "HISTORY", "indexes": 0, "fields": []}], "functions": []})");
  EXPECT_EQ(TableList(empty), u"HISTORY_0");
  EXPECT_EQ(FieldList(empty), u"");
}

TEST(CatalogueFileTest, UnknownKeysAreIgnored) {
  EXPECT_EQ(ComplaintOf(Small(R"("indexes": 2,)", R"("indexes": 2, "owner": 7,)")), "");
}

TEST(CatalogueFileTest, TheSameFieldMayStandInTwoTables) {
  EXPECT_EQ(ComplaintOf(Small("OL_AMOUNT", "C_ID")), "");
}

TEST(CatalogueFileTest, TheGreatestIndexCountIsThatOfTheControl) {
  EXPECT_EQ(Read(Small(R"("indexes": 2)", R"("indexes": 32767)")).tables[0].indexes, 32767);
}

TEST(CatalogueFileTest, CodesHaveEightCharactersOfTheControlHoweverManyBytes) {
  const Catalogue umlauts = Read(Small("CUSTOMER", "K\u00C4UFER\u20AC_"));
  EXPECT_EQ(umlauts.tables[0].code, u"K\u00C4UFER\u20AC_");
  // A character beyond the first 65,536 counts as two.
  EXPECT_EQ(Read(Small("CUSTOMER", "LISTE_\U0001F4D6")).tables[0].code, u"LISTE_\U0001F4D6");
  EXPECT_EQ(ComplaintOf(Small("CUSTOMER", "LISTE__\U0001F4D6")),
            "table LISTE__\U0001F4D6 has a \"code\" of 9 characters, and it must have 8");
}

TEST(CatalogueFileTest, HalfASeparatorIsNone) {
  EXPECT_EQ(ComplaintOf(Small("\"numeric(5)\"", "\"*Q*V*R*N\u00B0*Q*V*R\"")), "");
}

struct Wrong {
  const char* what;
  const char* part;  ///< of the small catalogue
  const char* by;
  const char* complaint;
};

std::ostream& operator<<(std::ostream& out, const Wrong& wrong) {
  return out << wrong.what;
}

class WrongCatalogueTest : public ::testing::TestWithParam<Wrong> {};

TEST_P(WrongCatalogueTest, IsComplainedOf) {
  EXPECT_EQ(ComplaintOf(Small(GetParam().part, GetParam().by)), GetParam().complaint);
}

constexpr Wrong kWrongs[] = {
    {"CatalogueWithoutName", R"("name": "Small",)", "", "the catalogue has no \"name\""},
    {"CatalogueNameOfAnotherType", R"("Small")", "1",
     "the catalogue has a \"name\" that is no string"},
    {"NoTables", R"("tables")", R"("table")", "the catalogue has no \"tables\""},
    {"NoFunctions", R"("functions")", R"("function")", "the catalogue has no \"functions\""},
    {"TableIsNoObject", R"("tables": [)", R"("tables": [null, )", "table number 1 is no object"},
    {"TableWithoutCode", R"("code": "ORDRLINE", )", "", "table number 2 has no \"code\""},
    {"CodeOfAnotherType", R"("ORDRLINE")", "[]", "table number 2 has a \"code\" that is no string"},
    {"EmptyCode", "ORDRLINE", "", "table number 2 has an empty \"code\""},
    {"CodeTooShort", "ORDRLINE", "ORDRLIN",
     "table ORDRLIN has a \"code\" of 7 characters, and it must have 8"},
    {"CodeTooLong", "ORDRLINE", "ORDERLINE",
     "table ORDERLINE has a \"code\" of 9 characters, and it must have 8"},
    {"CommaInCode", "ORDRLINE", "ORDR,INE", "table ORDR,INE has a \"code\" that holds a comma"},
    {"DoubledCode", "ORDRLINE", "CUSTOMER", "table CUSTOMER stands twice"},
    {"TableWithoutName", R"("name": "ORDER_LINE", )", "", "table ORDRLINE has no \"name\""},
    {"TableNameOfAnotherType", R"("ORDER_LINE")", "{}",
     "table ORDRLINE has a \"name\" that is no string"},
    {"EmptyTableName", "ORDER_LINE", "", "table ORDRLINE has an empty \"name\""},
    {"NoIndexCount", R"("indexes": 2, )", "", "table CUSTOMER has no \"indexes\""},
    {"NegativeIndexCount", R"("indexes": 2)", R"("indexes": -1)",
     "table CUSTOMER has -1 indexes, and 0 to 32767 are possible"},
    {"IndexCountBeyondTheControl", R"("indexes": 2)", R"("indexes": 32768)",
     "table CUSTOMER has 32768 indexes, and 0 to 32767 are possible"},
    {"IndexCountBeyondAllNumbers", R"("indexes": 2)", R"("indexes": 18446744073709551615)",
     "table CUSTOMER has 18446744073709551615 indexes, and 0 to 32767 are possible"},
    {"BrokenIndexCount", R"("indexes": 2)", R"("indexes": 2.5)",
     "table CUSTOMER has \"indexes\" that are no whole number"},
    {"IndexCountAsText", R"("indexes": 2)", R"("indexes": "2")",
     "table CUSTOMER has \"indexes\" that are no whole number"},
    {"NoFields", R"("indexes": 0, "fields")", R"("indexes": 0, "field")",
     "table ORDRLINE has no \"fields\""},
    {"FieldsOfAnotherType", R"("indexes": 0, "fields": [)",
     R"("indexes": 0, "fields": 3, "rest": [)", "table ORDRLINE has \"fields\" that are no array"},
    {"FieldIsNoObject", R"({"name": "C_SINCE", "type": "date", "flagged": true, "text": ""})",
     R"("C_SINCE")", "table CUSTOMER, field number 2, is no object"},
    {"FieldWithoutName", R"("name": "C_SINCE", )", "",
     "table CUSTOMER, field number 2, has no \"name\""},
    {"FieldNameOfAnotherType", R"("C_SINCE")", "false",
     "table CUSTOMER, field number 2, has a \"name\" that is no string"},
    {"EmptyFieldName", "C_SINCE", "", "table CUSTOMER, field number 2, has an empty \"name\""},
    {"DoubledField", "C_SINCE", "C_ID", "field CUSTOMER.C_ID stands twice"},
    {"CommaInFieldName", "C_SINCE", "C,SINCE",
     "field CUSTOMER.C,SINCE has a \"name\" that holds a comma"},
    {"SeparatorInFieldName", "C_SINCE", "C*Q*V*R*N*D",
     "field CUSTOMER.C*Q*V*R*N*D has a \"name\" that holds the separator *Q*V*R*N* or runs into "
     "it"},
    {"SeparatorAcrossTheEnd", "C_SINCE", "C*Q*V*R*N",
     "field CUSTOMER.C*Q*V*R*N has a \"name\" that holds the separator *Q*V*R*N* or runs into it"},
    {"FieldWithoutType", R"("type": "date", )", "", "field CUSTOMER.C_SINCE has no \"type\""},
    {"FieldTypeOfAnotherType", R"("date")", "0",
     "field CUSTOMER.C_SINCE has a \"type\" that is no string"},
    {"EmptyFieldType", R"("date")", R"("")", "field CUSTOMER.C_SINCE has an empty \"type\""},
    {"CommaInFieldType", R"("date")", R"("date,time")",
     "field CUSTOMER.C_SINCE has a \"type\" that holds a comma"},
    {"SeparatorInFieldType", R"("date")", R"("*Q*V*R*N*")",
     "field CUSTOMER.C_SINCE has a \"type\" that holds the separator *Q*V*R*N* or runs into it"},
    {"FieldWithoutFlag", R"("flagged": true, )", "", "field CUSTOMER.C_SINCE has no \"flagged\""},
    {"FlagOfAnotherType", R"("flagged": true)", R"("flagged": "Y")",
     "field CUSTOMER.C_SINCE has a \"flagged\" that is neither true nor false"},
    {"FieldWithoutText", R"json(, "text": "numeric(5)")json", "",
     "field CUSTOMER.C_ID has no \"text\""},
    {"FieldTextOfAnotherType", R"json("numeric(5)")json", "5",
     "field CUSTOMER.C_ID has a \"text\" that is no string"},
    {"CommaInFieldText", "numeric(6.2)", "numeric(6,2)",
     "field ORDRLINE.OL_AMOUNT has a \"text\" that holds a comma"},
    {"SeparatorInFieldText", "numeric(6.2)", "a*Q*V*R*N*b",
     "field ORDRLINE.OL_AMOUNT has a \"text\" that holds the separator *Q*V*R*N* or runs into it"},
    {"FunctionIsNoObject", R"({"name": "today", "arguments": []})", "[]",
     "function number 1 is no object"},
    {"FunctionWithoutName", R"("name": "substr", )", "", "function number 2 has no \"name\""},
    {"EmptyFunctionName", "substr", "", "function number 2 has an empty \"name\""},
    {"DoubledFunction", "substr", "today", "function today stands twice"},
    {"NoArguments", R"(, "arguments": [])", "", "function today has no \"arguments\""},
    {"ArgumentsOfAnotherType", R"("arguments": [])", R"("arguments": 0)",
     "function today has \"arguments\" that are no array"},
    {"ArgumentOfAnotherType", R"("start")", "2",
     "function substr has an argument that is no string"},
};

INSTANTIATE_TEST_SUITE_P(Each, WrongCatalogueTest, ::testing::ValuesIn(kWrongs),
                         [](const auto& wrong) { return std::string(wrong.param.what); });

TEST(CatalogueFileTest, WhatIsNoJsonIsComplainedOf) {
  for (const std::string& text : Texts{"", "tables", R"({"name": "Small")", "{} {}", "\"\xFF\""}) {
    EXPECT_TRUE(ComplaintOf(text).starts_with("the catalogue is no JSON: ")) << text;
  }
}

TEST(CatalogueFileTest, WhatIsNoObjectIsComplainedOf) {
  EXPECT_EQ(ComplaintOf(std::string("[]")), "the catalogue is no object");
}

TEST(CatalogueFileTest, AFileThatIsNotThereIsComplainedOf) {
  const std::filesystem::path missing = std::filesystem::path(Examples()) / "none.json";
  EXPECT_EQ(ComplaintOf(missing), "the catalogue can't be read: there is no " + missing.string());
}

TEST(CatalogueFileTest, AFolderIsComplainedOf) {
  const std::string complaint = ComplaintOf(std::filesystem::path(Examples()));
  EXPECT_TRUE(complaint.starts_with("the catalogue can't be read: ")) << complaint;
}

// The example catalogue, and that a control takes it.
// ---- written

std::string Written(const Catalogue& catalogue) {
  return WriteCatalogue(catalogue);
}

TEST(WrittenCatalogueTest, WhatFitsALineStandsInOne) {
  Catalogue some{u"Some", {}, {}};
  Table table{u"ITEM____", u"ITEM", 2, {}};
  table.fields.push_back({u"I_ID", u"long", false, u"integer"});
  table.fields.push_back({u"I_MADE", u"date", true, u"timestamp with time zone"});
  some.tables.push_back(table);
  some.functions.push_back({u"now", {}, u"date", u"The time."});
  some.functions.push_back({u"abs", {u"number"}, {}, {}});
  EXPECT_EQ(Written(some), R"({
  "name": "Some",
  "tables": [
    {
      "code": "ITEM____",
      "name": "ITEM",
      "indexes": 2,
      "fields": [
        {"name": "I_ID", "type": "long", "flagged": false, "text": "integer"},
        {"name": "I_MADE", "type": "date", "flagged": true, "text": "timestamp with time zone"}
      ]
    }
  ],
  "functions": [
    {"name": "now", "arguments": [], "kind": "date", "text": "The time."},
    {"name": "abs", "arguments": ["number"]}
  ]
}
)");
}

TEST(WrittenCatalogueTest, ComesBackTheSame) {
  Catalogue some{u"H\u00E9 \"\\\xD800 \U0010FFFF", {}, {}};
  some.tables.push_back({u"A_______", u"a\n\xDC00", 32767, {}});
  some.tables[0].fields.push_back({u"\x00F6\xD800", u"char", false, u"\x0001"});
  some.functions.push_back({u"f\xDFFF", {u"[\u4E00]"}, u"\xD800", u"\xDBFF"});
  const Catalogue back = Read(Written(some));
  EXPECT_EQ(back.name, some.name);
  EXPECT_EQ(TableList(back), TableList(some));
  EXPECT_EQ(FieldList(back), FieldList(some));
  ASSERT_EQ(back.tables.size(), 1U);
  EXPECT_EQ(back.tables[0].name, some.tables[0].name);
  ASSERT_EQ(back.functions.size(), 1U);
  EXPECT_EQ(back.functions[0].name, some.functions[0].name);
  EXPECT_EQ(back.functions[0].arguments, some.functions[0].arguments);
  EXPECT_EQ(back.functions[0].kind, some.functions[0].kind);
  EXPECT_EQ(back.functions[0].text, some.functions[0].text);
}

TEST(WrittenCatalogueTest, WithOtherFunctionsAllElseStays) {
  EXPECT_EQ(catalogue::WithFunctions(
                R"({"x": [1.5, null], "functions": [{"name": "old", "arguments": []}],
                    "tables": [], "name": "\ud800", "y": {}})",
                {{u"new", {u"a"}, {}, {}}}),
            R"({
  "x": [1.5, null],
  "functions": [{"name": "new", "arguments": ["a"]}],
  "tables": [],
  "name": "\ud800",
  "y": {}
}
)");
}

TEST(WrittenCatalogueTest, NoOtherFunctionsThanACatalogueMayHave) {
  const std::string before = R"({"name": "", "tables": [], "functions": []})";
  EXPECT_THROW(catalogue::WithFunctions(before, {{u"", {}, {}, {}}}), CatalogueError);
  EXPECT_THROW(catalogue::WithFunctions(before, {{u"f", {}, {}, {}}, {u"f", {}, {}, {}}}),
               CatalogueError);
  EXPECT_THROW(catalogue::WithFunctions("[]", {}), CatalogueError);
}

class ExampleCatalogueTest : public ControlTest {
 protected:
  ExampleCatalogueTest()
      : catalogue_(ReadCatalogue(std::filesystem::path(Examples()) / "catalogue.json")) {
    Catalogue(Narrow(TableList(catalogue_)), Narrow(FieldList(catalogue_)));
  }

  const catalogue::Catalogue catalogue_;
};

TEST_F(ExampleCatalogueTest, HasTheTablesAndColumnsOfTheBenchmark) {
  std::size_t fields = 0;
  for (const Table& table : catalogue_.tables)
    fields += table.fields.size();
  EXPECT_EQ(catalogue_.tables.size(), 9U);
  EXPECT_EQ(fields, 92U);
  EXPECT_FALSE(catalogue_.functions.empty());
}

TEST_F(ExampleCatalogueTest, FlagsDatesAndMoneyAndNothingElse) {
  Texts flagged;
  for (const Table& table : catalogue_.tables) {
    for (const catalogue::Field& field : table.fields) {
      if (field.flagged) flagged.push_back(Narrow(field.name));
    }
  }
  EXPECT_EQ(flagged,
            (Texts{"W_YTD", "D_YTD", "C_SINCE", "C_CREDIT_LIM", "C_BALANCE", "C_YTD_PAYMENT",
                   "H_DATE", "H_AMOUNT", "O_ENTRY_D", "OL_DELIVERY_D", "OL_AMOUNT", "I_PRICE"}));
}

TEST_F(ExampleCatalogueTest, ShowsEachTableByItsCode) {
  EXPECT_EQ(Rows("lsttables"), (Texts{"WAREHOUS", "DISTRICT", "CUSTOMER", "HISTORY_", "NEWORDER",
                                      "ORDERS__", "ORDRLINE", "ITEM____", "STOCK___"}));
}

TEST_F(ExampleCatalogueTest, MarkingEachTableOffersItsFieldsAndIndexes) {
  for (int row = 0; row < static_cast<int>(catalogue_.tables.size()); ++row) {
    const Table& table = catalogue_.tables[static_cast<std::size_t>(row)];
    Texts fields{Narrow(table.code) + ".*"};
    Texts indexes;
    for (const catalogue::Field& field : table.fields)
      fields.push_back(Narrow(table.code) + "." + Narrow(field.name));
    for (int index = 1; index <= table.indexes.value(); ++index)
      indexes.push_back(Narrow(table.code) + "._index" + std::to_string(index));
    Mark("lsttables", row);
    EXPECT_EQ(Rows("lstFields"), fields);
    EXPECT_EQ(Rows("lstorderbyasc"), indexes);
    Mark("lsttables", row);  // a second click takes the mark back
  }
}

}  // namespace
}  // namespace zolt20::tests
