// What is asked before a rule is stored or left, and what is marked as changed.
#include <QMessageBox>

#include "tests/composer/composer_test.h"

namespace zolt20::tests {
namespace {

constexpr int kCustomer = 2;
constexpr int kWherePage = 1;
constexpr int kDoPage = 2;
constexpr int kConditionPage = 6;

constexpr const char* kCustomers = "select CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nendselect";
constexpr const char* kLimited =
    "select CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nas set with 999 rows \r\nendselect";
constexpr const char* kWithDo =
    "select CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nselectdo\r\n\ttotal\r\nendselect";

class StoringTest : public ComposerTest {
 protected:
  void OpenOne() { OpenRules({{u"A", Wide(kCustomers), u""}, {u"B", u"x = 1", u""}}); }
  /// A word on a page that no Add To Result took.
  void TypeInDo() {
    Tab(kDoPage);
    Type("txtSelectDo", "total");
  }
  /// The question of what stands on the pages; what it tells is kept.
  Steps Pending(const char* button) {
    return [this, button] {
      EXPECT_EQ(Told(), "Store: The pages hold what is not in the Result.");
      informed_ = Std(Dialog<QMessageBox>().informativeText());
      Choose(button);
    };
  }
  Steps Leaving(const char* button) {
    return [this, button] {
      EXPECT_EQ(Told(), "Rule: What was composed for \"A\" is not stored.");
      informed_ = Std(Dialog<QMessageBox>().informativeText());
      Choose(button);
    };
  }
  bool IsMarked() {
    Rest();
    return window().isWindowModified();
  }
  bool IsBold(int row) { return RuleList().item(row)->font().bold(); }
  /// What stands in a step that is asked nothing.
  std::string StoredNow(const char16_t* name) { return Narrow(window().rules()->Find(name)->text); }

  std::string informed_;
};

// --- Done

TEST_F(StoringTest, DoneWithMoreOnThePagesOffersToAddIt) {
  OpenOne();
  Click("cmdAddSelect");
  Tab(kWherePage);
  TypeKeys("txtAsSet", "999");
  ClickWith("cmdDone", {Pending("Add and Store")});
  EXPECT_EQ(informed_, "Add To Result would write:\n+ as set with 999 rows ");
  EXPECT_EQ(Result(), kLimited);
  EXPECT_EQ(StoredNow(u"A"), kLimited);
  EXPECT_FALSE(IsMarked());
}

TEST_F(StoringTest, DoneWithMoreOnThePagesCanStoreWithoutIt) {
  OpenRules();
  AddSelect(kCustomer, 1);
  TypeInDo();
  ClickWith("cmdDone", {Pending("Store Without"), Named("X")});
  EXPECT_EQ(StoredNow(u"X"), kCustomers);
  EXPECT_EQ(Text("txtSelectDo"), "total");
  EXPECT_FALSE(window().map().IsChanged()) << "the person has decided it";
}

TEST_F(StoringTest, DoneWithMoreOnThePagesCanGoOn) {
  OpenOne();
  Click("cmdAddSelect");
  TypeInDo();
  ClickWith("cmdDone", {Pending("Go On")});
  ClickWith("cmdDone", {[this] { QTest::keyClick(&Dialog(), Qt::Key_Return); }});
  EXPECT_EQ(StoredNow(u"A"), kCustomers);
  EXPECT_TRUE(window().map().PendingOnPages().statement);
}

TEST_F(StoringTest, AnOpenedRuleIsStoredWithWhatWasTypedAndNotAdded) {
  OpenOne();
  TypeInDo();
  ClickWith(
      "cmdDone", {[this] {
        for (const QAbstractButton* button : Dialog<QMessageBox>().findChildren<QAbstractButton*>())
          EXPECT_NE(button->text(), QStringLiteral("Store Without")) << "of an empty Result";
        Choose("Add and Store");
      }});
  EXPECT_EQ(StoredNow(u"A"), kWithDo);
}

TEST_F(StoringTest, AConditionThatWasTypedIsOfferedToo) {
  OpenOne();
  Click("cmdAddSelect");
  Tab(kConditionPage);
  Click("optIfThen");
  Type("txtCond", "a > b");
  ClickWith("cmdDone", {Pending("Add and Store")});
  EXPECT_EQ(StoredNow(u"A"), std::string(kCustomers) + "\r\nif a > b then \r\nendif");
}

TEST_F(StoringTest, WhatCannotBeAddedIsTold) {
  OpenRules();
  Type("TxtOutput", "x = 1");
  TypeInDo();
  ClickWith("cmdDone", {Pending("Go On")});
  EXPECT_EQ(informed_, "The pages hold parts that Add To Result does not take.");
  Type("txtSelectDo", "");
  Tab(kWherePage);
  Type("cboWhereFields1", "7");
  ClickWith("cmdDone", {Pending("Store Without"), Named("X")});
  EXPECT_EQ(informed_, "A condition on the Where page is not applied.");
  EXPECT_EQ(StoredNow(u"X"), "x = 1");
}

// --- Leaving

TEST_F(StoringTest, LeavingTellsWhatWouldBeLost) {
  OpenOne();
  TypeInDo();
  ClickRule(1, {Leaving("Go On")});
  EXPECT_EQ(informed_,
            "Add To Result would write:\n+ select CUSTOMER.C_ID\n+ from  CUSTOMER\n+ selectdo\n"
            "+ \ttotal\n+ endselect");
  ClickRule(1, {Leaving("Add and Store")});
  EXPECT_EQ(StoredNow(u"A"), kWithDo);
  EXPECT_EQ(Heading(), "B");
}

TEST_F(StoringTest, LeavingTellsWhatTheResultHasMore) {
  OpenOne();
  TypeInDo();
  Tab(0);
  Click("cmdAddSelect");
  ClickRule(1, {Leaving("Discard")});
  EXPECT_EQ(informed_, "+ selectdo\n+ \ttotal");
  EXPECT_EQ(StoredNow(u"A"), kCustomers);
}

TEST_F(StoringTest, ARefusedAddAndAClickWithItsOppositeAskNothing) {
  OpenOne();
  ClickRule(1);
  ClickWith("cmdAddSelect", {Answer("Maintain Mapping Objects: Tables Not Selected --Select A "
                                    "Table To Proceed Further")});
  ClickRule(0);
  Click("lsttables", 0);
  EXPECT_TRUE(window().map().IsChanged()) << "its statement is from another table too";
  Click("lsttables", 0);
  EXPECT_FALSE(window().map().IsChanged());
  ClickRule(1);
  EXPECT_EQ(Heading(), "B");
}

// --- Save, and marks

TEST_F(StoringTest, SaveStoresTheRuleThatIsComposed) {
  OpenOne();
  TypeInDo();
  With([this] { QTest::keySequence(Window(), QKeySequence::Save); }, {Pending("Add and Store")});
  EXPECT_EQ(StoredNow(u"A"), kWithDo);
  EXPECT_FALSE(IsMarked());
  EXPECT_EQ(Stored()[0], std::string("A: ") + kWithDo);
}

TEST_F(StoringTest, TitleAndListMarkWhatIsChanged) {
  OpenOne();
  EXPECT_FALSE(IsMarked());
  EXPECT_FALSE(IsBold(0));
  TypeInDo();
  EXPECT_TRUE(IsMarked());
  EXPECT_TRUE(IsBold(0));
  EXPECT_FALSE(IsBold(1));
  EXPECT_EQ(Std(RuleList().item(0)->data(Qt::AccessibleDescriptionRole).toString()), "changed");
  window().map().undo();
  EXPECT_FALSE(IsMarked());
  EXPECT_FALSE(IsBold(0));
  TypeInDo();
  EXPECT_TRUE(IsMarked());
  ClickRule(1, {Leaving("Discard")});
  EXPECT_FALSE(IsMarked());
  EXPECT_FALSE(IsBold(0));
}

TEST_F(StoringTest, ARuleIsDeletedWithoutAQuestionAndStandsInTheBin) {
  OpenOne();
  Menu("Rule", "Delete");
  EXPECT_EQ(Listed(), Texts{"B"});
  EXPECT_EQ(Narrow(window().rules()->Bin().front().rule.name), "A");
  ClickRule(0);
  Type("TxtOutput", "y = 1");
  Menu("Rule", "Delete", {[this] {
         EXPECT_EQ(Told(), "Rule: What was composed for \"B\" is not stored.");
         Choose("Cancel");
       }});
  EXPECT_EQ(Listed(), Texts{"B*"});
}

// --- What the person is to know of the text

TEST_F(StoringTest, ATextThatCannotBeTakenBackIsToldBeforeItIsStored) {
  OpenOne();
  Click("cmdAddSelect");
  Type("TxtOutput", "x = 1\r\ny = ~");
  const std::string told =
      "Store: The control can't take this text back: it holds ~ at line 2, column 5.";
  ClickWith("cmdDone", {Answer(told, "Go On")});
  EXPECT_EQ(StoredNow(u"A"), kCustomers);
  ClickWith("cmdDone", {Answer(told, "Store All the Same")});
  EXPECT_EQ(StoredNow(u"A"), "x = 1\r\ny = ~");
}

TEST_F(StoringTest, ATextThatLostATableOfNoCatalogueIsAskedFor) {
  OpenRules(
      {{u"A", u"select CUSTOMER.C_ID,STRANGER.S_ID\r\nfrom  CUSTOMER,STRANGER\r\nendselect", u""}});
  EXPECT_NE(Note().find("Line 2, column 16: The catalogue has no table STRANGER."),
            std::string::npos)
      << Note();
  Click("lstSelectedFields", 1);
  Click("cmdRemoveOne");
  Click("cmdAddSelect");
  ASSERT_EQ(Result().find("STRANGER"), std::string::npos) << Result();
  ClickWith("cmdDone",
            {Answer("Store: The text has lost what the catalogue does not have.", "Go On")});
  EXPECT_NE(StoredNow(u"A").find("STRANGER"), std::string::npos);
  ClickWith("cmdDone", {Answer("Store: The text has lost what the catalogue does not have.",
                               "Store Without It")});
  EXPECT_EQ(StoredNow(u"A"), kCustomers);
}

}  // namespace
}  // namespace zolt20::tests
