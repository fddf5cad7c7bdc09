// The names in a text beside those of a catalogue.
#include "language/names.h"

#include <gtest/gtest.h>

#include "tests/support/finding_lines.h"

namespace zolt20::tests {
namespace {

using language::Names;

const Names& Catalogue() {
  static const Names kNames(
      Wide("CUSTOMER1,ORDERS__2,short,NEWORDER,ODD TAB_0,CUSTOMER9"),
      Wide(List({Field("NCUSTOMER.C_LAST"), Field("NCUSTOMER.C_ID"), Field("NORDERS__.O_ID"),
                 Field("NORDERS__.LINE NO"), Field("NORDERS__.a:b"), Field("NNOTHING_.X"), "broken",
                 Field("NORDERS__."), Field("NORDERS__.O_ID"), Field("NODD TAB_.F")})));
  return kNames;
}

void Expect(std::string_view text, const Texts& lines) {
  EXPECT_EQ(FindingLines(Wide(text), &Catalogue()), lines) << text;
}

std::string Select(std::string_view list, std::string_view lines = "") {
  return "select " + std::string(list) + "\r\n" + std::string(lines) + "endselect";
}

TEST(CheckNamesTest, WhatTheCatalogueHasIsFine) {
  Expect(Select("CUSTOMER.C_LAST, ORDERS__.LINE NO,ORDERS__.a:b,ORDERS__.*,ODD TAB_.F",
                "from  ORDERS__,CUSTOMER,ODD TAB_\r\nwhere CUSTOMER.C_ID = ORDERS__.O_ID\r\n"
                "and ORDERS__._index2 = {: 1.5 }\r\nand ORDERS__.LINE NO = \"NOWHERE_.X\"\r\n"
                "and ORDERS__.a:b = :var.x.y\r\ngroup by  CUSTOMER.C_LAST\r\n"
                "order by ORDERS__._index1 DESC,CUSTOMER.C_LAST asc,CUSTOMER.C_ID\r\n"
                "as set with 5 rows \r\nselectdo\r\n\tx = CUSTOMER.C_ID + a.b + .5\r\n"),
         {});
  Expect(Select("max ( ORDERS__.* ) :var.max.ORDERS__,sum ( CUSTOMER.C_ID ) :var.sum.CUSTOMER.C_ID",
                "from  CUSTOMER c\r\n"),
         {});
  Expect(Select("CUSTOMER.C_ID :var.x,CUSTOMER.C_ID:var.y,5,D"), {});
}

TEST(CheckNamesTest, ATableThatTheCatalogueHasNot) {
  const std::string no = " error unknown-table: The catalogue has no table ";
  Expect(
      Select("CUSTOMR.C_LAST", "from  CUSTOMR,ORDERS x\r\nwhere A.B = 1\r\n"),
      {"1:8+7" + no + "CUSTOMR. Is CUSTOMER meant?", "2:7+7" + no + "CUSTOMR. Is CUSTOMER meant?",
       "2:15+6" + no + "ORDERS. Is ORDERS__ meant?", "3:7+1" + no + "A."});
  Expect(Select("sum ( orders__.O_ID )"), {"1:14+8" + no + "orders__. Is ORDERS__ meant?"});
  const std::string name(100, 'x');
  Expect(Select(name + ".Y"), {"1:8+100" + no + name.substr(0, 80) + "."});
}

TEST(CheckNamesTest, AFieldThatItsTableHasNot) {
  const std::string no = " error unknown-field: The table CUSTOMER has no field ";
  Expect(Select("CUSTOMER.C_LSAT,CUSTOMER.NOTHING",
                "group by  CUSTOMER.c_id\r\n"
                "order by CUSTOMER._index2 desc\r\n"),
         {"1:17+6" + no + "C_LSAT. Is C_LAST meant?", "1:33+7" + no + "NOTHING.",
          "2:20+4" + no + "c_id. Is C_ID meant?", "3:19+7" + no + "_index2."});
  Expect(Select("ORDERS__.LINE"),
         {"1:17+4 error unknown-field: The table ORDERS__ has no field LINE."});
}

TEST(CheckNamesTest, ADirectionIsAWordOfItsOwn) {
  Expect(Select("CUSTOMER.C_ID", "order by CUSTOMER.C_IDdesc,CUSTOMER.C_ID  desc\r\n"),
         {"2:19+8 error unknown-field: The table CUSTOMER has no field C_IDdesc. Is C_ID meant?"});
}

TEST(CheckNamesTest, ATableOfTheRightLengthInAList) {
  Expect(Select("NOWHERE_.X,12345678.5"),
         {"1:8+8 error unknown-table: The catalogue has no table NOWHERE_."});
}

TEST(CheckNamesTest, InAStatementItIsAWarningAndMustLookLikeAName) {
  Expect(
      "if CUSTOMER.C_LAT = 1 then\r\n\tx = NOWHERE_.X + 12345678.5 + NOWHERE.X\r\n"
      "\ty = :var.NOWHERE_.X + \"NOWHERE_.X\" + CUSTOMER.\r\nendif",
      {"1:13+5 warning unknown-field: The table CUSTOMER has no field C_LAT. Is C_LAST meant?",
       "2:6+8 warning unknown-table: The catalogue has no table NOWHERE_."});
}

TEST(CheckNamesTest, AConditionIsAClauseAroundItsSelectStatementsToo) {
  const std::string no = " error unknown-table: The catalogue has no table ";
  Expect(Select("CUSTOMER.C_ID",
                "where A.B = 1 and EXISTS (\r\nselect ORDERS__.O_ID\r\n"
                "where C.D = 1\r\nendselect\r\n)\r\nand E.F = 1\r\n"),
         {"2:7+1" + no + "A.", "4:7+1" + no + "C.", "7:5+1" + no + "E."});
}

TEST(CheckNamesTest, AStringEndsWithItsLine) {
  Expect("x = \"a\r\ny = NOWHERE_.X",
         {"1:5+2 error open-string: The string that begins here does not end on its line.",
          "2:5+8 warning unknown-table: The catalogue has no table NOWHERE_."});
}

TEST(CheckNamesTest, OfEachKindAThousandAreTold) {
  String text;
  for (int i = 0; i < 1500; ++i)
    text += u"x = NOWHERE_.X\r\n";
  EXPECT_EQ(language::Check(text, &Catalogue()).size(), language::kMostFindings);
}

}  // namespace
}  // namespace zolt20::tests
