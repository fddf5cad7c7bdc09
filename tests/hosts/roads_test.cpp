// Sessions made up at random, by direct calls and as lines of the automation host: the same reply
// at every step and the same form. And each once more: its lines in a second host, and parts of it
// after a state was put back.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "hosts/automation/dump.h"
#include "hosts/automation/session.h"
#include "tests/support/direct_road.h"
#include "tests/support/mirror.h"
#include "tests/support/session_maker.h"

namespace zolt20::tests {
namespace {

using Json = nlohmann::ordered_json;

#ifdef __SANITIZE_ADDRESS__
constexpr unsigned kSessions = 60;
#else
constexpr unsigned kSessions = 400;
#endif
constexpr int kSteps = 40;

// What came of the sessions: they are to get somewhere.
struct Tally {
  int gestures = 0;
  int refused = 0;
  int errors = 0;
  int results = 0;
  int reopened = 0;
  int built = 0;
};

class RoadsTest : public ::testing::Test {
 protected:
  // One session on both roads. Gives its lines and the replies to them.
  void PlayOnBoth(unsigned seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    DirectRoad direct;
    automation::Session session;
    SeededChoices choices(seed);
    SessionMaker maker(choices);
    lines_.clear();
    replies_.clear();
    for (int step = 0; step < kSteps; ++step) {
      const Json request = maker.Next(direct.Control().Form());
      lines_.push_back(request.dump());
      replies_.push_back(session.Reply(lines_.back()));
      const Json reply = Json::parse(replies_.back());
      ASSERT_EQ(direct.Reply(request), reply) << lines_.back();
      maker.Hear(request, reply);
      Count(request, reply);
      if (step % 8 == 0 || step == kSteps - 1) {
        ASSERT_EQ(BrokenRule(direct.Control().Form()), "") << lines_.back();
        ASSERT_EQ(automation::Dump(direct.Control().Form()),
                  automation::Dump(session.Control().Form()))
            << lines_.back();
      }
    }
    dump_ = automation::Dump(direct.Control().Form());
    if (!direct.Control().Form().TxtOutput.Text().empty()) ++tally_.results;
  }

  void Count(const Json& request, const Json& reply) {
    if (request.contains("user")) ++tally_.gestures;
    if (request.contains("new")) ++tally_.reopened;
    if (reply.contains("refused")) ++tally_.refused;
    if (reply.contains("error")) ++tally_.errors;
    if (request.value("control", "") == "cmdBuild" && reply["ok"] == true) ++tally_.built;
  }

  std::vector<std::string> lines_;
  std::vector<std::string> replies_;
  Json dump_;
  Tally tally_;
};

TEST_F(RoadsTest, AMadeUpSessionGoesTheSameWayByCallsAndByLines) {
  for (unsigned seed = 1; seed <= kSessions && !HasFatalFailure(); ++seed)
    PlayOnBoth(seed);
  std::printf(
      "%u sessions of %d steps: %d gestures, %d of them refused; %d errors; %d controls "
      "reopened; %d builds; %d sessions end with a Result\n",
      kSessions, kSteps, tally_.gestures, tally_.refused, tally_.errors, tally_.reopened,
      tally_.built, tally_.results);
  EXPECT_LT(tally_.refused * 4, tally_.gestures);
  EXPECT_GT(tally_.results * 4, static_cast<int>(kSessions) * 3);
  EXPECT_GT(tally_.reopened, 0);
  EXPECT_GT(tally_.built, 0);
}

TEST_F(RoadsTest, ARecordedSessionComesToTheSameInASecondHost) {
  for (unsigned seed = 1; seed <= kSessions / 4 && !HasFatalFailure(); ++seed) {
    PlayOnBoth(seed);
    automation::Session second;
    for (std::size_t i = 0; i < lines_.size(); ++i)
      ASSERT_EQ(second.Reply(lines_[i]), replies_[i]) << seed << ": " << lines_[i];
    EXPECT_EQ(automation::Dump(second.Control().Form()), dump_);
  }
}

// The answers of the host are no part of the control, so they are given anew.
TEST_F(RoadsTest, FromAStateThatIsPutBackASessionGoesTheSameWayAgain) {
  for (unsigned seed = 1; seed <= kSessions / 4 && !HasFatalFailure(); ++seed) {
    PlayOnBoth(seed);
    DirectRoad road;
    const std::size_t from = seed % lines_.size();
    std::map<std::string, Json> answers;
    for (const char* event :
         {"eventCancel", "eventDone", "eventSubQuery", "eventCondition", "eventFunction"})
      answers[event] = {{"answer", event}, {"with", Json::array()}};
    for (std::size_t i = 0; i < from; ++i) {
      const Json request = Json::parse(lines_[i]);
      if (request.contains("answer")) answers[request["answer"]] = request;
      road.Reply(request);
    }
    const ControlSnapshot kept = road.Control().Save();
    const Json dump = automation::Dump(road.Control().Form());
    for (int time = 0; time < 2; ++time) {
      for (std::size_t i = from; i < lines_.size(); ++i)
        ASSERT_EQ(road.Reply(Json::parse(lines_[i])), Json::parse(replies_[i])) << lines_[i];
      EXPECT_EQ(automation::Dump(road.Control().Form()), dump_);
      road.Control().Restore(kept);
      EXPECT_EQ(automation::Dump(road.Control().Form()), dump);
      for (const auto& [event, answer] : answers)
        road.Reply(answer);
    }
  }
}

// What a control forgets that is saved and made anew, both roads forget alike.
TEST_F(RoadsTest, AControlMadeFromTheBagAtAnyPointIsTheSameOnBothRoads) {
  for (unsigned seed = 1; seed <= kSessions / 4 && !HasFatalFailure(); ++seed) {
    PlayOnBoth(seed);
    DirectRoad direct;
    automation::Session session;
    for (std::size_t i = 0; i <= seed % lines_.size(); ++i) {
      direct.Reply(Json::parse(lines_[i]));
      session.Reply(lines_[i]);
    }
    const Json saved = Json::parse(session.Reply(R"({"save":true})"));
    ASSERT_EQ(direct.Reply({{"save", true}}), saved);
    ASSERT_EQ(saved["value"].size(), 14U);
    for (const Json& request :
         {Json{{"new", {{"bag", saved["value"]}}}}, Json{{"save", true}}, Json{{"dump", true}},
          Json::parse(lines_[0]), Json::parse(lines_[1]),
          Json{{"user", "click"}, {"control", "lsttables"}, {"row", 0}}, Json{{"dump", true}}})
      ASSERT_EQ(direct.Reply(request), Json::parse(session.Reply(request.dump()))) << request;
  }
}

}  // namespace
}  // namespace zolt20::tests
