// What became of names that rules use, in another catalogue.
#include "hosts/kit/catalogue_changes.h"

#include <gtest/gtest.h>

#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using rules::NameChange;
using rules::NameLists;
using rules::RulesContent;
using rules::TypeTrouble;

// Fields as "TABLE.FIELD type", flagged ones with "!" behind.
NameLists Lists(const std::string& tables, const Texts& fields) {
  NameLists lists{Wide(tables), {}};
  for (const std::string& field : fields) {
    const std::size_t blank = field.find(' ');
    const bool isFlagged = field.ends_with('!');
    const std::string type =
        field.substr(blank + 1, field.size() - blank - 1 - (isFlagged ? 1 : 0));
    lists.fields += Wide((lists.fields.empty() ? "" : ",") + type + "*Q*V*R*N*" +
                         (isFlagged ? "Y" : "N") + field.substr(0, blank) + "*Q*V*R*N*text");
  }
  return lists;
}

RulesContent ContentOf(const std::string& text) {
  RulesContent content;
  content.rules.push_back({u"A", Wide(text), u""});
  content.extras.emplace_back();
  return content;
}

Texts Changes(const std::string& text, const NameLists& before, const NameLists& now) {
  Texts told;
  for (const NameChange& change : rules::CompareNames(ContentOf(text), before, now)) {
    std::string line = Narrow(change.name);
    if (change.isGone) {
      line += change.wasThere ? " gone" : " missing";
      for (const String& proposal : change.proposals)
        line += " " + Narrow(proposal);
      if (change.isLikely) line += " likely";
    } else {
      line += " " + Narrow(change.typeBefore) + (change.wasFlagged ? "!" : "") + " " +
              Narrow(change.typeNow) + (change.isFlagged ? "!" : "");
    }
    told.push_back(line);
  }
  return told;
}

const NameLists& Before() {
  static const NameLists kLists =
      Lists("CUSTOMER1,ORDERS__0", {"CUSTOMER.C_ID long", "CUSTOMER.C_LAST char",
                                    "CUSTOMER.C_SUM decimal!", "ORDERS__.O_ID long"});
  return kLists;
}

TEST(CatalogueChangesTest, ARenamedFieldIsProposedByLikenessAndType) {
  const NameLists now =
      Lists("CUSTOMER1,ORDERS__0",
            {"CUSTOMER.C_ID long", "CUSTOMER.C_FAST long", "CUSTOMER.C_LASTNAME char",
             "CUSTOMER.C_SUM decimal!", "ORDERS__.O_ID long"});
  EXPECT_EQ(Changes("select CUSTOMER.C_LAST\r\nfrom  CUSTOMER\r\nendselect", Before(), now),
            Texts{"CUSTOMER.C_LAST gone CUSTOMER.C_LASTNAME CUSTOMER.C_FAST likely"});
  EXPECT_EQ(Changes("select CUSTOMER.C_ID\r\nendselect", Before(), now), Texts{});
  EXPECT_EQ(Changes("x = \"CUSTOMER.C_LAST\" + f(CUSTOMER.C_ID)", Before(), now), Texts{});
}

TEST(CatalogueChangesTest, AFieldInTheSamePlaceIsLikelyWhateverItsName) {
  const NameLists now =
      Lists("CUSTOMER1,ORDERS__0", {"CUSTOMER.C_ID long", "CUSTOMER.SURNAME char",
                                    "CUSTOMER.C_SUM decimal!", "CUSTOMER.MORE long"});
  EXPECT_EQ(Changes("if CUSTOMER.C_LAST = 1 then \r\nendif", Before(), now),
            Texts{"CUSTOMER.C_LAST gone CUSTOMER.SURNAME CUSTOMER.MORE likely"});
}

TEST(CatalogueChangesTest, ATableThatIsRenamedIsLookedThroughByItsSuccessor) {
  const NameLists now = Lists(
      "PERSON__0,OTHER___0,ORDERS__0",
      {"OTHER___.X long", "PERSON__.C_ID long", "PERSON__.C_NAME char", "PERSON__.C_SUM decimal"});
  EXPECT_EQ(Changes("select CUSTOMER.C_ID,CUSTOMER.C_LAST,CUSTOMER.C_SUM,CUSTOMER._index1\r\n"
                    "from  CUSTOMER\r\nendselect",
                    Before(), now),
            (Texts{"CUSTOMER gone PERSON__ OTHER___ likely",
                   "CUSTOMER.C_LAST gone PERSON__.C_NAME likely", "CUSTOMER.C_SUM decimal! decimal",
                   "CUSTOMER._index1 gone PERSON__.C_NAME"}));
}

TEST(CatalogueChangesTest, ADroppedTableHasNoSuccessor) {
  const NameLists now = Lists("CUSTOMER1", {"CUSTOMER.C_ID long", "x", "y*Q*V*R*N*"});
  EXPECT_EQ(Changes("select ORDERS__.O_ID\r\nfrom  ORDERS__\r\nendselect", Before(), now),
            Texts{"ORDERS__ gone"});
}

TEST(CatalogueChangesTest, WhatNeitherHasIsMissing) {
  const NameLists now = Lists("CUSTOMER1,ORDERS_20", {"CUSTOMER.C_ID long"});
  EXPECT_EQ(
      Changes("select NOWHERE_.A,CUSTOMER.C_IDD\r\nselectdo\r\n\tNOWHERE2.A = 1\r\n"
              "\tORDERS__.O_ID = 1\r\nendselect",
              Before(), now),
      (Texts{"NOWHERE_ missing ORDERS_2", "CUSTOMER.C_IDD missing", "ORDERS__ gone ORDERS_2"}));
  EXPECT_EQ(Changes("select ORDERS__.A\r\nendselect", {}, now),
            (Texts{"ORDERS__ missing ORDERS_2 CUSTOMER likely", "ORDERS__.A missing"}));
}

TypeTrouble Trouble(const std::string& text, NameChange change) {
  const String wide = Wide(text);
  return rules::TroubleOf(wide, language::UsesIn(wide).at(0), change);
}

TEST(CatalogueChangesTest, AnotherTypeIsToldByWhatStandsBesideIt) {
  NameChange text;
  text.typeBefore = u"long";
  text.typeNow = u"char";
  EXPECT_EQ(Trouble("x = max ( CUSTOMER.A )", text), TypeTrouble::kNone);
  EXPECT_EQ(Trouble("x = avg ( CUSTOMER.A )", text), TypeTrouble::kAggregate);
  EXPECT_EQ(Trouble("if CUSTOMER.A >= 5 then ", text), TypeTrouble::kTextBesideNumber);
  EXPECT_EQ(Trouble("if CUSTOMER.A >= \"5\" then ", text), TypeTrouble::kNone);
  EXPECT_EQ(Trouble("if CUSTOMER.A IN ( 1 ) then ", text), TypeTrouble::kTextBesideNumber);
  EXPECT_EQ(Trouble("if CUSTOMER.A #> { 1 , 2 } then ", text), TypeTrouble::kPair);
  EXPECT_EQ(Trouble("if CUSTOMER.A", text), TypeTrouble::kNone);
  EXPECT_EQ(Trouble("if CUSTOMER.A INSIDE 1", text), TypeTrouble::kNone);
  EXPECT_EQ(Trouble("if CUSTOMER.A =", text), TypeTrouble::kNone);
  EXPECT_EQ(Trouble("x = (CUSTOMER.A)", text), TypeTrouble::kNone);
  NameChange number;
  number.typeBefore = u"char";
  number.typeNow = u"decimal";
  number.isFlagged = true;
  EXPECT_EQ(Trouble("if CUSTOMER.A like \"5\" then ", number), TypeTrouble::kNoPair);
  EXPECT_EQ(Trouble("if CUSTOMER.A = { \"5\" , 2 } then ", number), TypeTrouble::kNumberBesideText);
  number.isGone = true;
  EXPECT_EQ(Trouble("if CUSTOMER.A like \"5\" then ", number), TypeTrouble::kNone);
}

TEST(CatalogueChangesTest, OnlyTablesThatAreUsedAreKeptWithTheirFields) {
  const NameLists kept =
      rules::NamesUsed(ContentOf("select CUSTOMER.C_ID\r\nfrom  NOWHERE_\r\nendselect"), Before());
  EXPECT_EQ(kept.tables, Before().tables);
  EXPECT_EQ(Narrow(kept.fields),
            "long*Q*V*R*N*NCUSTOMER.C_ID*Q*V*R*N*,char*Q*V*R*N*NCUSTOMER.C_LAST*Q*V*R*N*,"
            "decimal*Q*V*R*N*YCUSTOMER.C_SUM*Q*V*R*N*");
}

}  // namespace
}  // namespace zolt20::tests
