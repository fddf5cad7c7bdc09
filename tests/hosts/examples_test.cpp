// The recorded sessions of examples/sessions: they play as they were recorded, and at every step of
// them the state of the control is a value that can be put back.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "hosts/automation/dump.h"
#include "hosts/automation/session.h"
#include "hosts/kit/catalogue.h"
#include "tests/support/control_test.h"
#include "tests/support/example_sessions.h"
#include "tests/support/places.h"

namespace zolt20::tests {
namespace {

using automation::Dump;
using automation::Session;
using Json = nlohmann::ordered_json;
namespace fs = std::filesystem;

const fs::path kExamples = Examples();

std::string ReadFile(const fs::path& file) {
  std::ifstream input(file, std::ios::binary);
  EXPECT_TRUE(input.good()) << file;
  std::ostringstream text;
  text << input.rdbuf();
  return text.str();
}

Texts LinesOf(const std::string& text) {
  std::istringstream input(text);
  Texts lines;
  for (std::string line; std::getline(input, line);)
    lines.push_back(line);
  return lines;
}

struct Request {
  std::size_t number = 0;  ///< of its line in the file, from 1
  std::string line;        ///< as it stands there
  std::string comment;     ///< the comment line directly before it, or ""
  std::string reply;       ///< as it was recorded
  bool isNew = false;
  bool isAnswer = false;
};

struct Recording {
  std::vector<Request> requests;
  std::size_t replyCount;
  std::string result;
  std::string fields;
};

Recording Load(const std::string& name) {
  const std::string base = (kExamples / "sessions" / name).string();
  const Texts replies = LinesOf(ReadFile(base + ".replies.jsonl"));
  Recording recording{
      {}, replies.size(), ReadFile(base + ".result.txt"), ReadFile(base + ".fields.txt")};
  std::string before;
  std::size_t number = 0;
  for (const std::string& line : LinesOf(ReadFile(base + ".jsonl"))) {
    ++number;
    if (!Session::IsSkipped(line)) {
      const Json json = Json::parse(line);
      const std::size_t place = recording.requests.size();
      Request& request = recording.requests.emplace_back();
      request.number = number;
      request.line = line;
      if (before.starts_with('#')) request.comment = before;
      request.reply = place < replies.size() ? replies[place] : "none was recorded";
      request.isNew = json.contains("new");
      request.isAnswer = json.contains("answer");
    }
    before = line;
  }
  return recording;
}

// The state of a control, and what of it shows.
struct Kept {
  ControlSnapshot snapshot;
  Json state;
};

// A session whose surface is watched.
class WatchedSession {
 public:
  WatchedSession() { Watch(); }

  std::string Reply(const Request& request) {
    std::string reply = session_.Reply(request.line);
    if (&session_.Control() != watched_) Watch();
    return reply;
  }

  ZOLT20MapControl& Control() { return session_.Control(); }
  Json State() { return Dump(Control().Form()); }
  Kept Keep() { return {Control().Save(), State()}; }

  void Check() {
    EXPECT_EQ(mirror_->Difference(), "");
    EXPECT_EQ(BrokenRule(Control().Form()), "");
  }

  // What the host answers is no part of the control's state: forgets all answers and takes those of
  // these requests.
  void TakeAnswers(const std::vector<Request>& requests, std::size_t count) {
    for (const Event& event : Events()) {
      const Json request = {{"answer", event.name}, {"with", Json::array()}};
      session_.Reply(request.dump());
    }
    for (std::size_t i = 0; i < count; ++i) {
      if (requests[i].isAnswer) session_.Reply(requests[i].line);
    }
  }

 private:
  // A control that was made anew has taken its observers along.
  void Watch() {
    watched_ = &session_.Control();
    mirror_ = std::make_unique<Mirror>(watched_->Form());
    watched_->AddObserver(*mirror_);
  }

  std::unique_ptr<Mirror> mirror_;  // outlives the control
  Session session_;
  ZOLT20MapControl* watched_ = nullptr;
};

class ExampleSessionTest : public ::testing::TestWithParam<std::string> {
 protected:
  const Recording recording_ = Load(GetParam());
};

TEST_P(ExampleSessionTest, BeginsWithTheExampleCatalogue) {
  const auto catalogue = catalogue::ReadCatalogue(kExamples / "catalogue.json");
  ASSERT_GE(recording_.requests.size(), 2U);
  EXPECT_EQ(Json::parse(recording_.requests[0].line),
            (Json{{"set", "PrpStrTables"}, {"value", Narrow(TableList(catalogue))}}));
  EXPECT_EQ(Json::parse(recording_.requests[1].line),
            (Json{{"set", "PrpStrFields"}, {"value", Narrow(FieldList(catalogue))}}));
}

TEST_P(ExampleSessionTest, PlaysAsItWasRecorded) {
  WatchedSession session;
  EXPECT_EQ(recording_.requests.size(), recording_.replyCount);
  for (const Request& request : recording_.requests) {
    SCOPED_TRACE("line " + std::to_string(request.number) + ": " + request.line);
    EXPECT_EQ(session.Reply(request), request.reply);
    session.Check();
  }
  EXPECT_EQ(Narrow(session.Control().Form().TxtOutput.Text()), recording_.result);
  EXPECT_EQ(Narrow(session.Control().prpstrSelectedFields()), recording_.fields);
}

TEST_P(ExampleSessionTest, FailsJustWhereItSaysSo) {
  for (const Request& request : recording_.requests) {
    SCOPED_TRACE("line " + std::to_string(request.number) + ": " + request.line);
    const Json reply = Json::parse(request.reply);
    const bool refused = request.comment.starts_with("# refused");
    const bool fails = request.comment.starts_with("# fails");
    EXPECT_EQ(reply.at("ok"), !refused && !fails);
    EXPECT_EQ(reply.contains("refused"), refused);
    EXPECT_EQ(reply.contains("error"), fails);
  }
}

// The stretches of a session between which a new control is made are played one by one: straight
// through, with the state of each step kept, then from each of these states again. Both ways must
// end in the same state.
TEST_P(ExampleSessionTest, EachStateCanBePutBackAndGoneOnFrom) {
  const std::vector<Request>& requests = recording_.requests;
  WatchedSession session;
  for (std::size_t begin = 0; begin < requests.size();) {
    if (requests[begin].isNew) session.Reply(requests[begin++]);
    std::vector<Kept> kept{session.Keep()};
    std::size_t end = begin;
    while (end < requests.size() && !requests[end].isNew) {
      session.Reply(requests[end++]);
      kept.push_back(session.Keep());
    }
    for (std::size_t step = begin; step <= end; ++step) {
      SCOPED_TRACE("put back to behind request " + std::to_string(step));
      session.Control().Restore(kept[step - begin].snapshot);
      EXPECT_EQ(session.State(), kept[step - begin].state);
      session.Check();
      session.TakeAnswers(requests, step);
      for (std::size_t i = step; i < end; ++i) {
        EXPECT_EQ(session.Reply(requests[i]), requests[i].reply) << requests[i].line;
      }
      EXPECT_EQ(session.State(), kept.back().state);
      if (HasFailure()) return;
    }
    begin = end;
  }
}

// A second control takes the state of the session at its end and then the one of each step. It has
// a host of its own, which must not hear of it.
TEST_P(ExampleSessionTest, NoHostHearsOfAStateThatIsPutBack) {
  std::vector<ControlSnapshot> snapshots;
  WatchedSession session;
  for (const Request& request : recording_.requests) {
    snapshots.push_back(session.Control().Save());
    session.Reply(request);
  }
  RecordingHost host;
  ZOLT20MapControl other(host);
  Mirror mirror(other.Form());
  other.AddObserver(mirror);
  for (const ControlSnapshot& snapshot : snapshots) {
    other.Restore(session.Control().Save());
    other.Restore(snapshot);
    EXPECT_EQ(host.log, Texts{});
    EXPECT_EQ(mirror.Difference(), "");
  }
  other.Restore(session.Control().Save());
  EXPECT_EQ(Dump(other.Form()), session.State());
  other.RemoveObserver(mirror);
}

INSTANTIATE_TEST_SUITE_P(Each, ExampleSessionTest,
                         ::testing::ValuesIn(SessionNames(kExamples / "sessions")),
                         [](const auto& session) { return CaseName(session.param); });

}  // namespace
}  // namespace zolt20::tests
