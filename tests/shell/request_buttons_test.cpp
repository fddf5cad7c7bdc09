#include "tests/support/written_form.h"

namespace zolt20::tests {
namespace {

struct Request {
  std::string_view button;
  int page;
  StringView code;
  std::string_view event;
};

constexpr Request kRequests[] = {
    {"cmdFunction(0)", 2, u"D", "eventFunction"},   {"cmdFunction(1)", 3, u"E", "eventFunction"},
    {"cmdFunction(2)", 4, u"O", "eventFunction"},   {"cmdFunction(3)", 5, u"F", "eventFunction"},
    {"cmdFunction(4)", 6, u"C", "eventFunction"},   {"cmdCondition(0)", 2, u"D", "eventCondition"},
    {"cmdCondition(1)", 3, u"E", "eventCondition"}, {"cmdCondition(2)", 4, u"O", "eventCondition"},
    {"cmdCondition(3)", 5, u"F", "eventCondition"}, {"cmdSubQuery(0)", 2, u"D", "eventSubQuery"},
    {"cmdSubQuery(1)", 3, u"E", "eventSubQuery"},   {"cmdSubQuery(2)", 4, u"O", "eventSubQuery"},
    {"cmdSubQuery(3)", 5, u"F", "eventSubQuery"},   {"cmdSubQuery(4)", 6, u"C", "eventSubQuery"},
};

class RequestButtonsTest : public ControlTest {
 protected:
  RequestButtonsTest() {
    // As it is from the choice of a kind of condition on.
    Written(host()).cmdFunction(4).Enabled(true);
    Written(host()).cmdSubQuery(4).Enabled(true);
  }
};

TEST_F(RequestButtonsTest, EachSetsTheCodeOfItsPageAndThenRaisesItsEvent) {
  for (const Request& request : kRequests) {
    String codeInside;
    Answer(std::string(request.event), [&] { codeInside = host().prpStrSQLPart(); });
    Tab(request.page);
    Click(request.button);
    EXPECT_EQ(codeInside, request.code) << request.button;
    EXPECT_EQ(host().prpStrSQLPart(), request.code) << request.button;
    EXPECT_EQ(Log(), Texts{std::string(request.event)}) << request.button;
  }
}

TEST_F(RequestButtonsTest, NoneTouchesABoxOrAnythingElse) {
  for (const Request& request : kRequests) {
    Tab(request.page);
    const TouchedControls touched(host());
    Click(request.button);
    EXPECT_EQ(touched.names, std::set<std::string>{"focus"}) << request.button;
  }
  EXPECT_EQ(Log().size(), std::size(kRequests));
}

TEST_F(RequestButtonsTest, AnyOtherIndexKeepsTheCodeAndRaisesTheEvent) {
  Tab(2);
  Click("cmdSubQuery(0)");
  Surface& form = Written(host());
  form.cmdFunction.Load(5);
  form.cmdCondition.Load(4);
  form.cmdSubQuery.Load(5);
  for (Button* button : {&form.cmdFunction(5), &form.cmdCondition(4), &form.cmdSubQuery(5)}) {
    button->Visible(true);
    Click(button->name());
    EXPECT_EQ(host().prpStrSQLPart(), u"D") << button->name();
  }
  EXPECT_EQ(Log(), (Texts{"eventSubQuery", "eventFunction", "eventCondition", "eventSubQuery"}));
}

TEST_F(RequestButtonsTest, BeforeAnyClickTheCodeIsThatOfANewControl) {
  EXPECT_EQ(host().prpStrSQLPart(), u"0");
}

TEST_F(RequestButtonsTest, TheHostAnswersFromInsideTheEvent) {
  struct Way {
    std::string_view button;
    int page;
    std::string_view event;
    void (ZOLT20MapControl::*property)(String);
    std::string_view box;
    std::string_view report;
  };
  for (const Way& way : std::initializer_list<Way>{
           {"cmdCondition(0)", 2, "eventCondition", &ZOLT20MapControl::prpSelectDoPart,
            "txtSelectDo", "changed prpSelectDoPart"},
           {"cmdSubQuery(1)", 3, "eventSubQuery", &ZOLT20MapControl::prpSelectEOSPart,
            "txtSelectEOS", "changed prpSelectEOSPart"},
           {"cmdFunction(2)", 4, "eventFunction", &ZOLT20MapControl::prpSelectEmptyPart,
            "txtselectempty", "changed prpSelectEmptyPart"},
           {"cmdSubQuery(3)", 5, "eventSubQuery", &ZOLT20MapControl::prpSelectErrorPart,
            "txtSelectError", "changed prpSelectErrorPart"}}) {
    Answer(std::string(way.event), [&] { (host().*way.property)(u"a~b"); });
    Tab(way.page);
    Click(way.button);
    EXPECT_EQ(Text(way.box), "a\r\nb");
    EXPECT_EQ(Log(), (Texts{std::string(way.event), std::string(way.report)}));
  }
}

TEST_F(RequestButtonsTest, OnTheConditionPageTheTextGoesToTheResultWithoutAnActiveBox) {
  Answer("eventSubQuery", [this] { host().prpStroutput(u"a~b"); });
  Tab(6);
  Click("cmdSubQuery(4)");
  EXPECT_EQ(Result(), "a\r\nb");
  EXPECT_EQ(Log(), Texts{"eventSubQuery"});
}

TEST_F(RequestButtonsTest, ThePropertyNeedNotMatchTheCode) {
  Answer("eventFunction", [this] { host().prpSelectErrorPart(u"x"); });
  Tab(2);
  Click("cmdFunction(0)");
  EXPECT_EQ(Text("txtSelectError"), "x");
  EXPECT_EQ(Text("txtSelectDo"), "");
  EXPECT_EQ(Log(), (Texts{"eventFunction", "changed prpSelectErrorPart"}));
}

TEST_F(RequestButtonsTest, TheHostMayWriteAPartOutsideAnyEvent) {
  host().prpSelectDoPart(u"x");
  EXPECT_EQ(Text("txtSelectDo"), "x");
  EXPECT_EQ(Log(), Texts{"changed prpSelectDoPart"});
}

TEST_F(RequestButtonsTest, TheHostMayChangeThePageFromInsideTheEvent) {
  Answer("eventCondition", [this] { host().prpTab(3); });
  Tab(2);
  Click("cmdCondition(0)");
  EXPECT_EQ(Focused(), "txtSelectEOS");
  EXPECT_EQ(Log(), (Texts{"eventCondition", "changed prpTab"}));
}

TEST_F(RequestButtonsTest, TheActiveBoxStaysTheTarget) {
  Tab(6);
  Written(host()).fraif.Visible(true);
  Focus("txtStmt1");
  Tab(2);
  Click("cmdFunction(0)");
  host().prpStroutput(u"x");
  EXPECT_EQ(Text("txtStmt1"), "x");
  EXPECT_EQ(Result(), "");
  EXPECT_EQ(Log(), Texts{"eventFunction"});
}

using DisabledRequestTest = ControlTest;

TEST_F(DisabledRequestTest, AtTheStartTheConditionPageMakesNoRequest) {
  Tab(6);
  EXPECT_EQ(host().UserClick(On("cmdFunction(4)")), Outcome::kNotEnabled);
  EXPECT_EQ(host().UserClick(On("cmdSubQuery(4)")), Outcome::kNotEnabled);
  EXPECT_EQ(host().prpStrSQLPart(), u"0");
}

TEST_F(DisabledRequestTest, AButtonOfAnotherPageMakesNoRequest) {
  EXPECT_EQ(host().UserClick(On("cmdCondition(0)")), Outcome::kNotShown);
  EXPECT_EQ(host().prpStrSQLPart(), u"0");
}

}  // namespace
}  // namespace zolt20::tests
