#include "tests/support/silent.h"
#include "tests/support/written_form.h"

namespace zolt20::tests {
namespace {

using PageOfTheHostTest = ControlTest;

TEST_F(PageOfTheHostTest, PrpTabActivatesThePageAndThenReports) {
  host().prpTab(6);
  EXPECT_TRUE(Shown("fraSelect"));
  EXPECT_EQ(TabIndex("optIfThen"), 1);
  EXPECT_EQ(Log(), Texts{"changed prpTab"});
}

TEST_F(PageOfTheHostTest, PrpTabRunsThePageChangeBeforeItReports) {
  host().prpTab(2);
  EXPECT_EQ(Focused(), "txtSelectDo");
  EXPECT_EQ(Log(), Texts{"changed prpTab"});
}

TEST_F(PageOfTheHostTest, PrpTabWithTheActivePageRunsNoPageChange) {
  Tab(2);
  Focus("cmdDone");
  Written(host()).cmdDone.TabIndex(1);
  host().prpTab(2);
  EXPECT_EQ(Focused(), "cmdDone");
  EXPECT_EQ(TabIndex("cmdDone"), 1);
  EXPECT_EQ(Log(), Texts{"changed prpTab"});
}

TEST_F(PageOfTheHostTest, PrpTabBeyondThePagesIsAValueErrorHalfDone) {
  for (const int page : {7, -1}) {
    ExpectError(ErrorKind::kValue, [&] { host().prpTab(page); });
    MemoryBag bag;
    host().UserControl_WriteProperties(bag);
    EXPECT_EQ(bag.values["prpTab"], std::to_string(page));
  }
  EXPECT_TRUE(Shown("lsttables"));
}

TEST_F(PageOfTheHostTest, PrpTabDoesNotFollowThePersonsPageChanges) {
  host().prpTab(1);
  Tab(4);
  MemoryBag bag;
  host().UserControl_WriteProperties(bag);
  EXPECT_EQ(bag.values["prpTab"], "1");
  EXPECT_EQ(Log(), Texts{"changed prpTab"});
}

TEST_F(PageOfTheHostTest, PrpTabHidesAndDisablesNoPage) {
  host().prpTab(6);
  for (const int page : {0, 1, 2, 3, 4, 5, 6})
    Tab(page);
  EXPECT_TRUE(Shown("fraSelect"));
  EXPECT_EQ(Log(), Texts{"changed prpTab"});
}

class HiddenFormTest : public ControlTest {
 protected:
  HiddenFormTest() { MakeNew(FormVisible::kNo); }
  int Page() { return dynamic_cast<const TabStrip&>(On("tabVrn")).Tab().value(); }
};

TEST_F(HiddenFormTest, IsCreatedLikeAnyOther) {
  EXPECT_EQ(Rows("lstFunctions").size(), 6U);
  EXPECT_EQ(TabOrder(2), (Texts{"tabVrn", "lsttables", "lstFunctions"}));
  EXPECT_FALSE(Shown("lsttables"));
}

TEST_F(HiddenFormTest, PagesWithoutFocusAreActivated) {
  for (const int page : {1, 6, 0}) {
    host().prpTab(page);
    EXPECT_EQ(Page(), page);
    EXPECT_EQ(Log(), Texts{"changed prpTab"});
  }
}

TEST_F(HiddenFormTest, APageThatWantsTheFocusFailsHalfDone) {
  for (const int page : {2, 3, 4, 5}) {
    const int before = TabIndex("cmdDone");
    ExpectError(ErrorKind::kArgument, [&] { host().prpTab(page); });
    EXPECT_EQ(Page(), page);
    EXPECT_EQ(TabIndex("tabVrn"), 0);
    EXPECT_EQ(TabIndex("cmdDone"), before);
    EXPECT_EQ(Focused(), "nothing");
    MemoryBag bag;
    host().UserControl_WriteProperties(bag);
    EXPECT_EQ(bag.values["prpTab"], std::to_string(page));
    EXPECT_EQ(Log(), Texts{});
  }
}

TEST_F(HiddenFormTest, ThePageThatFailedIsActiveSoTheSameWriteSucceedsNext) {
  ExpectError(ErrorKind::kArgument, [&] { host().prpTab(2); });
  host().prpTab(2);
  EXPECT_EQ(Log(), Texts{"changed prpTab"});
}

TEST_F(HiddenFormTest, ItsPropertiesWorkAndItsGesturesAreRefused) {
  Catalogue("CUSTOMER2", Field("NCUSTOMER.CUST_NO"));
  EXPECT_EQ(Rows("lsttables"), Texts{"CUSTOMER"});
  EXPECT_EQ(host().UserClick(On("lsttables"), 0), Outcome::kNotShown);
  EXPECT_EQ(host().UserClick(On("cmdDone")), Outcome::kNotShown);
  EXPECT_EQ(host().UserTab(1), Outcome::kNotShown);
}

using PlainPropertiesTest = ControlTest;

TEST_F(PlainPropertiesTest, ParentOrChildOnlyReports) {
  const TouchedControls touched(host());
  for (const std::string_view value : {"Parent", "Child", ""}) {
    host().prpParentorChild(Wide(value));
    EXPECT_EQ(Log(), Texts{"changed prpParentorChild"});
  }
  EXPECT_EQ(touched.names, std::set<std::string>{});
}

TEST_F(PlainPropertiesTest, TheTabCountIsReadAsWrittenAndNotReported) {
  EXPECT_EQ(host().prpintTabcount(), 0);
  for (const int depth : {3, -2, 32767, 0}) {
    host().prpintTabcount(depth);
    EXPECT_EQ(host().prpintTabcount(), depth);
  }
}

TEST_F(PlainPropertiesTest, ATabCountAboveZeroIndentsTheResultAtEachRead) {
  host().prpStroutput(u"a~b");
  host().prpintTabcount(2);
  EXPECT_EQ(host().prpStroutput(), u"a\r\n\tb");
  EXPECT_EQ(host().prpStroutput(), u"a\r\n\t\tb");
  host().prpintTabcount(0);
  EXPECT_EQ(host().prpStroutput(), u"a\r\n\t\tb");
  host().prpintTabcount(-1);
  EXPECT_EQ(host().prpStroutput(), u"a\r\n\t\tb");
}

// The boxes with colours, in the order in which they are told.
class HighlightOrder final : public SilentObserver {
 public:
  void ControlChanged(const Control& control, Property property) noexcept override {
    if (property == Property::kHighlight) names.emplace_back(control.name());
  }

  Texts names;
};

TEST_F(PlainPropertiesTest, SyntaxHighlightIsWrittenToTheFiveBoxesInOrder) {
  HighlightOrder order;
  host().AddObserver(order);
  host().Syntax_Highlight(true);
  EXPECT_EQ(order.names, (Texts{"txtSelectError", "txtSelectEOS", "txtselectempty", "txtSelectDo",
                                "TxtOutput"}));
  EXPECT_TRUE(host().Syntax_Highlight());
  host().Syntax_Highlight(false);
  EXPECT_EQ(order.names.size(), 10U);
  EXPECT_FALSE(dynamic_cast<const SyntaxTextBox&>(On("TxtOutput")).Highlight());
  host().RemoveObserver(order);
}

TEST_F(PlainPropertiesTest, SyntaxHighlightReadsTheVariableNotABox) {
  EXPECT_FALSE(host().Syntax_Highlight());
  host().Syntax_Highlight(true);
  Written(host()).TxtOutput.Highlight(false);
  Written(host()).txtSelectError.Highlight(false);
  EXPECT_TRUE(host().Syntax_Highlight());
}

TEST_F(PlainPropertiesTest, StoredPartsAreKeptForTheBagAndReported) {
  // Nothing is marked or listed yet, so the parts meet an empty form; the select list has none of
  // its own.
  host().prpSelectPart(u"");
  host().prpSelectFromPart(u"CUSTOMER");
  host().prpSelectGroupbyPart(u"CUSTOMER.CITY");
  host().prpSelectOrderbyPart(u"CUSTOMER.NAME desc");
  host().prpSelectAsSetPart(u"10");
  EXPECT_EQ(Log(), (Texts{"changed prpSelectPart", "changed prpSelectFromPart",
                          "changed prpSelectGroupbyPart", "changed prpSelectOrderbyPart",
                          "changed prpSelectAsSetPart"}));
  MemoryBag bag;
  host().UserControl_WriteProperties(bag);
  EXPECT_EQ(bag.values["prpSelectPart"], "");
  EXPECT_EQ(bag.values["prpSelectFromPart"], "CUSTOMER");
  EXPECT_EQ(bag.values["prpSelectGroupbyPart"], "CUSTOMER.CITY");
  EXPECT_EQ(bag.values["prpSelectOrderbyPart"], "CUSTOMER.NAME desc");
  EXPECT_EQ(bag.values["prpSelectAsSetPart"], "10");
}

TEST_F(PlainPropertiesTest, AStoredSelectListIsKeptForTheBagAndReported) {
  Catalogue("CUSTOMER0", Field("NCUSTOMER.CUST_NO"));
  Mark("lsttables", 0);
  host().prpSelectPart(u"CUSTOMER.CUST_NO");
  EXPECT_EQ(Log(), Texts{"changed prpSelectPart"});
  MemoryBag bag;
  host().UserControl_WriteProperties(bag);
  EXPECT_EQ(bag.values["prpSelectPart"], "CUSTOMER.CUST_NO");
}

}  // namespace
}  // namespace zolt20::tests
