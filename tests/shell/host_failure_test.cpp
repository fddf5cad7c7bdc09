#include <stdexcept>

#include "tests/support/written_form.h"

namespace zolt20::tests {
namespace {

// An exception of the host passes through the handler, and what was done before it stays done.
class HostFailureTest : public ControlTest {
 protected:
  void FailIn(const std::string& event) {
    Answer(event, [] { throw std::runtime_error("the host failed"); });
  }
  void ExpectFailure(const std::function<void()>& action) {
    EXPECT_THROW(action(), std::runtime_error);
  }
};

TEST_F(HostFailureTest, InARequestTheCodeIsSetAndTheFocusMoved) {
  FailIn("eventSubQuery");
  Tab(3);
  ExpectFailure([this] { host().UserClick(On("cmdSubQuery(1)")); });
  EXPECT_EQ(host().prpStrSQLPart(), u"E");
  EXPECT_EQ(Focused(), "cmdSubQuery(1)");
  EXPECT_EQ(Log(), Texts{"eventSubQuery"});
}

TEST_F(HostFailureTest, WhatTheHostDidBeforeItFailedStays) {
  Answer("eventFunction", [this] {
    host().prpSelectDoPart(u"x");
    throw std::runtime_error("the host failed");
  });
  Tab(2);
  ExpectFailure([this] { host().UserClick(On("cmdFunction(0)")); });
  EXPECT_EQ(Text("txtSelectDo"), "x");
  EXPECT_EQ(Log(), (Texts{"eventFunction", "changed prpSelectDoPart"}));
}

TEST_F(HostFailureTest, TheControlStaysUsable) {
  for (const std::string_view button : {"cmdDone", "cmdCancel"}) {
    FailIn(button == "cmdDone" ? "eventDone" : "eventCancel");
    ExpectFailure([&] { host().UserClick(On(button)); });
  }
  host_.answers.clear();
  Click("cmdDone");
  Tab(2);
  EXPECT_EQ(Focused(), "txtSelectDo");
  EXPECT_EQ(Log(), (Texts{"eventDone", "eventCancel", "eventDone"}));
}

TEST_F(HostFailureTest, ARunTimeErrorThatTheHostMeetsInAnEventPassesOn) {
  Answer("eventCondition", [this] { host().prpTab(7); });
  Tab(2);
  ExpectError(ErrorKind::kValue, [this] { host().UserClick(On("cmdCondition(0)")); });
  EXPECT_EQ(host().prpStrSQLPart(), u"D");
  EXPECT_TRUE(Shown("txtSelectDo"));
  EXPECT_EQ(Log(), Texts{"eventCondition"});
}

TEST_F(HostFailureTest, AnErrorThatTheHostCatchesItselfEndsNothing) {
  Answer("eventDone", [this] { EXPECT_THROW(host().prpTab(7), RuntimeError); });
  Click("cmdDone");
  EXPECT_EQ(Log(), Texts{"eventDone"});
}

// A host that fails wherever it is told anything.
class FailingHost final : public ControlHost {
 public:
  void eventCancel() override { Fail(); }
  void eventDone() override { Fail(); }
  void eventSubQuery() override { Fail(); }
  void eventCondition() override { Fail(); }
  void eventFunction() override { Fail(); }
  void PropertyChanged(std::string_view /*property*/) override { Fail(); }
  void ShowMessage(const Message& /*message*/) override { Fail(); }

 private:
  [[noreturn]] static void Fail() { throw std::runtime_error("the host failed"); }
};

class FailingHostTest : public ::testing::Test {
 protected:
  template <typename Name>
  const Control& On(const Name& name) {
    return *control.Form().Find(name);
  }

  FailingHost host;
  ZOLT20MapControl control{host};
};

TEST_F(FailingHostTest, APropertyHasTakenEffectBeforeItsReport) {
  EXPECT_THROW(control.prpTab(6), std::runtime_error);
  EXPECT_TRUE(On("fraSelect").Shown());
  EXPECT_THROW(control.PrpStrTables(u"CUSTOMER"), std::runtime_error);
  EXPECT_EQ(control.Form().lsttables.ListCount(), 1);
  EXPECT_THROW(control.prpSelectDoPart(u"x"), std::runtime_error);
  EXPECT_EQ(control.Form().txtSelectDo.Text(), u"x");
}

TEST_F(FailingHostTest, AMessageThatFailsEndsTheHandlerBeforeItsNextStep) {
  EXPECT_EQ(control.UserClick(On("lstFunctions"), 1), Outcome::kDone);
  EXPECT_THROW(control.UserClick(On("cmdMoveOne")), std::runtime_error);  // no table is marked
  EXPECT_EQ(control.Form().lstFunctions.ListIndex(), 1);
  EXPECT_EQ(control.Form().Focused(), &On("cmdMoveOne"));
  EXPECT_EQ(BrokenRule(control.Form()), "");
}

}  // namespace
}  // namespace zolt20::tests
