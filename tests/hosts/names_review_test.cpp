// What a person decides of names that another catalogue has not: new names, and places left out.
#include "hosts/kit/names_review.h"

#include <gtest/gtest.h>

#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using rules::NameLists;
using rules::NamesReview;
using rules::ReviewedName;
using rules::ReviewedPlace;
using rules::RulesContent;
using rules::TypeTrouble;

// Fields as "TABLE.FIELD type".
NameLists Lists(const std::string& tables, const Texts& fields) {
  NameLists lists{Wide(tables), {}};
  for (const std::string& field : fields) {
    const std::size_t blank = field.find(' ');
    lists.fields += Wide((lists.fields.empty() ? "" : ",") + field.substr(blank + 1) +
                         "*Q*V*R*N*N" + field.substr(0, blank) + "*Q*V*R*N*");
  }
  return lists;
}

class NamesReviewTest : public ::testing::Test {
 protected:
  NamesReviewTest() {
    Add(u"select CUSTOMER.C_LAST,sum(CUSTOMER.C_SUM)\r\nfrom  CUSTOMER\r\n"
        u"where CUSTOMER.C_SUM > 5\r\nselectdo\r\n\tx = CUSTOMER.C_LAST + \"CUSTOMER.C_LAST\"\r\n"
        u"endselect",
        u"of CUSTOMER.C_LAST");
    Add(u"if ORDERS__.O_ID = 1 then \r\nendif", u"");
  }
  void Add(const String& text, const String& note) {
    content_.rules.push_back({Wide(std::to_string(content_.rules.size())), text, u""});
    content_.extras.emplace_back();
    content_.extras.back().note = note;
  }
  // "NAME>NEW: places", those that are taken with "+".
  static Texts Told(const NamesReview& review) {
    Texts told;
    for (const ReviewedName& name : review.names()) {
      std::string line = Narrow(name.change.name) + ">" + Narrow(name.chosen) + ":";
      for (const ReviewedPlace& place : name.places) {
        const rules::Change& at = place.change;
        line += (at.isChosen ? " +" : " ") + std::to_string(at.rule) + "," +
                (at.isInNote ? "note" : std::to_string(at.line)) + "," + std::to_string(at.column);
      }
      told.push_back(line);
    }
    return told;
  }
  Texts TextsAfter(const NamesReview& review) {
    RulesContent changed = content_;
    rules::MakeChanges(changed, review.Changes(), review.Names(), u"now");
    Texts texts;
    for (const rules::Rule& rule : changed.rules)
      texts.push_back(Narrow(rule.text));
    return texts;
  }

  RulesContent content_;
  const NameLists before_ =
      Lists("CUSTOMER1,ORDERS__0",
            {"CUSTOMER.C_LAST char", "CUSTOMER.C_SUM decimal", "ORDERS__.O_ID long"});
};

TEST_F(NamesReviewTest, ALikelyNameIsChosenAtThePlacesThatMeanIt) {
  NamesReview review(
      content_, before_,
      Lists("CUSTOMER1,ORDERS__0", {"CUSTOMER.C_LASTNAME char", "CUSTOMER.C_SUM char",
                                    "ORDERS__.O_ID long", "CUSTOMER.C_OTHER long"}));
  EXPECT_EQ(Told(review),
            (Texts{"CUSTOMER.C_LAST>CUSTOMER.C_LASTNAME: +0,1,8 0,5,6 0,5,25 0,note,4",
                   "CUSTOMER.C_SUM>: 0,1,28 0,3,7"}));
  EXPECT_EQ(review.names()[1].places[0].trouble, TypeTrouble::kAggregate);
  EXPECT_EQ(review.names()[1].places[1].trouble, TypeTrouble::kTextBesideNumber);
  EXPECT_EQ(review.CountChosen(), 1U);
  EXPECT_EQ(review.CountRules(), 1U);
  EXPECT_EQ(review.Offered(0),
            (std::vector<String>{u"CUSTOMER.C_LASTNAME", u"CUSTOMER.C_OTHER", u"CUSTOMER.C_SUM"}));
  EXPECT_TRUE(review.Offered(1).empty());
}

TEST_F(NamesReviewTest, PlacesAreTakenAndLeftOutOneByOne) {
  NamesReview review(
      content_, before_,
      Lists("CUSTOMER1,ORDERS__0",
            {"CUSTOMER.C_LASTNAME char", "CUSTOMER.C_SUM decimal", "ORDERS__.O_ID long"}));
  review.Take(0, 0, false);
  review.Take(0, 1, true);
  review.Take(0, 2, true);
  EXPECT_EQ(TextsAfter(review)[0],
            "select CUSTOMER.C_LAST,sum(CUSTOMER.C_SUM)\r\nfrom  CUSTOMER\r\n"
            "where CUSTOMER.C_SUM > 5\r\nselectdo\r\n"
            "\tx = CUSTOMER.C_LASTNAME + \"CUSTOMER.C_LASTNAME\"\r\nendselect");
  review.Choose(0, u"CUSTOMER.C_SUM");
  EXPECT_EQ(Told(review)[0], "CUSTOMER.C_LAST>CUSTOMER.C_SUM: 0,1,8 +0,5,6 +0,5,25 0,note,4")
      << "another name does not bring back what was left out";
  review.Choose(0, u"");
  EXPECT_EQ(Told(review)[0], "CUSTOMER.C_LAST>: 0,1,8 0,5,6 0,5,25 0,note,4");
  EXPECT_TRUE(review.Changes().empty());
  review.Take(0, 0, true);
  EXPECT_EQ(review.CountChosen(), 0U) << "there is no other name";
}

TEST_F(NamesReviewTest, FieldsAreLookedForInTheTableThatIsChosen) {
  NamesReview review(content_, before_,
                     Lists("PERSON__1,PEOPLE__1,ORDERS__0",
                           {"PERSON__.C_LAST char", "PERSON__.C_SUM char", "PEOPLE__.SURNAME char",
                            "PEOPLE__.C_SUM decimal", "ORDERS__.O_ID long"}));
  EXPECT_EQ(Told(review), (Texts{"CUSTOMER>PERSON__: +0,1,8 +0,2,7 0,5,6 0,5,25 0,note,4",
                                 "CUSTOMER.C_SUM>: +0,1,28 +0,3,7"}));
  EXPECT_EQ(review.Offered(0), (std::vector<String>{u"PERSON__", u"PEOPLE__", u"ORDERS__"}));
  review.Choose(0, u"PEOPLE__");
  EXPECT_EQ(Told(review),
            (Texts{"CUSTOMER>PEOPLE__: +0,1,28 +0,2,7 +0,3,7",
                   "CUSTOMER.C_LAST>PEOPLE__.SURNAME: +0,1,8 0,5,6 0,5,25 0,note,4"}));
  EXPECT_EQ(TextsAfter(review)[0],
            "select PEOPLE__.SURNAME,sum(PEOPLE__.C_SUM)\r\nfrom  PEOPLE__\r\n"
            "where PEOPLE__.C_SUM > 5\r\nselectdo\r\n\tx = CUSTOMER.C_LAST + \"CUSTOMER.C_LAST\""
            "\r\nendselect");
  review.Choose(1, u"");
  EXPECT_EQ(Told(review)[1], "CUSTOMER.C_LAST>: +0,1,8 0,5,6 0,5,25 0,note,4")
      << "it goes along with its table";
  review.Choose(0, u"");
  EXPECT_EQ(Told(review), Texts{"CUSTOMER>: 0,1,8 0,1,28 0,2,7 0,3,7 0,5,6 0,5,25 0,note,4"});
  review.Choose(0, u"PEOPLE__");
  EXPECT_EQ(Told(review)[1].substr(0, 34), "CUSTOMER.C_LAST>PEOPLE__.SURNAME: ");
}

TEST_F(NamesReviewTest, ALikelyNameIsChosenForOneNameAlone) {
  const NameLists before =
      Lists("CUSTOMER1,CUSTOMED1", {"CUSTOMER.C_LAST char", "CUSTOMER.C_LOST char",
                                    "CUSTOMED.C_LAST char", "CUSTOMER.C_SUM long"});
  content_ = {};
  Add(u"select CUSTOMER.C_LAST,CUSTOMER.C_LOST\r\nfrom  CUSTOMER\r\nendselect", u"");
  NamesReview fields(content_, before,
                     Lists("CUSTOMER1", {"CUSTOMER.C_LIST char", "CUSTOMER.C_X long"}));
  EXPECT_EQ(Told(fields),
            (Texts{"CUSTOMER.C_LAST>CUSTOMER.C_LIST: +0,1,8", "CUSTOMER.C_LOST>: 0,1,24"}));
  EXPECT_EQ(fields.Offered(1).at(0), u"CUSTOMER.C_LIST");
  fields.Choose(1, u"CUSTOMER.C_LIST");
  fields.Choose(0, u"");
  EXPECT_EQ(fields.CountChosen(), 1U);
  Add(u"select CUSTOMED.C_LAST\r\nfrom  CUSTOMED\r\nendselect", u"");
  const NamesReview tables(content_, before,
                           Lists("CUSTOMEN1", {"CUSTOMEN.C_LAST char", "CUSTOMEN.C_LOST char"}));
  EXPECT_EQ(Told(tables),
            (Texts{"CUSTOMER>CUSTOMEN: +0,1,8 +0,1,24 +0,2,7", "CUSTOMED>: 1,1,8 1,2,7"}));
}

TEST_F(NamesReviewTest, ANameThatNoCatalogueHasIsTheRulesOwnAffair) {
  Add(u"select NOWHERE_.A\r\nfrom  NOWHERE_\r\nendselect", u"");
  const NamesReview review(content_, before_, before_);
  EXPECT_EQ(Told(review), Texts{"NOWHERE_>: 2,1,8 2,2,7"});
  EXPECT_FALSE(IsOfCatalogue(review.names()[0].change));
  const NamesReview unknown(content_, {}, Lists("CUSTOMER1", {"CUSTOMER.C_LAST char"}));
  EXPECT_FALSE(IsOfCatalogue(unknown.names().at(0).change));
}

}  // namespace
}  // namespace zolt20::tests
