// What fails, fails once: each allocation within each step of many sessions, and each call to the
// host. The failure comes out as it is; the surface's rules hold and its notices told the truth;
// nothing leaks; and the control can be cleared, used for another statement, and destroyed.
//
// A step is tried on a control of its own, which gets the state from before the step, as often as
// there is something in the step that can fail.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <new>
#include <set>
#include <string_view>
#include <utility>

#include "hosts/automation/dump.h"
#include "hosts/automation/session.h"
#include "shell/contract.h"
#include "tests/support/direct_road.h"
#include "tests/support/example_sessions.h"
#include "tests/support/places.h"
#include "tests/torture/allocations.h"
#include "tests/torture/steps.h"

namespace zolt20::tests {
namespace {

using Json = nlohmann::ordered_json;
namespace fs = std::filesystem;

// An exception that nothing else throws.
struct HostFailed {};

// What a host does in its events, by their names.
using Answers = std::map<std::string, std::vector<DirectCall>>;

class TortureHost final : public ControlHost {
 public:
  explicit TortureHost(const Answers& answers) : answers_(answers) {}

  void eventCancel() override { Raised("eventCancel"); }
  void eventDone() override { Raised("eventDone"); }
  void eventSubQuery() override { Raised("eventSubQuery"); }
  void eventCondition() override { Raised("eventCondition"); }
  void eventFunction() override { Raised("eventFunction"); }
  void PropertyChanged(std::string_view /*property*/) override { Called(); }
  void ShowMessage(const Message& /*message*/) override { Called(); }

  // Every call of the control's comes here; the one that `failAt` counts down to fails.
  void Called() {
    if (failAt > 0 && --failAt == 0) {
      hasFailed = true;
      throw HostFailed();
    }
  }

  ZOLT20MapControl* control = nullptr;
  int failAt = 0;
  bool hasFailed = false;

 private:
  void Raised(std::string_view event) {
    Called();
    for (const auto& [name, calls] : answers_) {
      if (name != event) continue;
      for (const DirectCall& call : calls)
        call(*control);
    }
  }

  const Answers& answers_;
};

// A property bag of that host's.
class TortureBag final : public PropertyBag {
 public:
  TortureBag(TortureHost& host, const Json& values) : host_(host), values_(values) {}

  String ReadString(std::string_view key, StringView defaultValue) override {
    host_.Called();
    const auto found = values_.find(key);
    return found == values_.end() ? String(defaultValue)
                                  : Wide(found->get_ref<const std::string&>());
  }
  Integer ReadInteger(std::string_view key, Integer defaultValue) override {
    host_.Called();
    const auto found = values_.find(key);
    return found == values_.end() ? defaultValue : Integer(found->get<int>());
  }
  void WriteString(std::string_view /*key*/, StringView /*value*/) override { host_.Called(); }
  void WriteInteger(std::string_view /*key*/, Integer /*value*/) override { host_.Called(); }

 private:
  TortureHost& host_;
  const Json& values_;
};

// A mirror whose own allocations are none of the control's.
class UncountedMirror final : public SurfaceObserver {
 public:
  explicit UncountedMirror(const Surface& surface) : mirror_(surface) {}

  std::string Difference() const { return mirror_.Difference(); }

  void ControlChanged(const Control& control, Property property) noexcept override {
    const Uncounted uncounted;
    mirror_.ControlChanged(control, property);
  }
  void RowsAboutToChange(const Control& list, const RowChange& change) noexcept override {
    const Uncounted uncounted;
    mirror_.RowsAboutToChange(list, change);
  }
  void RowsChanged(const Control& list, const RowChange& change) noexcept override {
    const Uncounted uncounted;
    mirror_.RowsChanged(list, change);
  }
  void MarksChanged(const Control& list, int first, int count) noexcept override {
    const Uncounted uncounted;
    mirror_.MarksChanged(list, first, count);
  }
  void FocusChanged(const Control* control) noexcept override {
    const Uncounted uncounted;
    mirror_.FocusChanged(control);
  }
  void TabOrderChanged(int first, int last) noexcept override {
    const Uncounted uncounted;
    mirror_.TabOrderChanged(first, last);
  }
  void ElementLoaded(const Control& element) noexcept override {
    const Uncounted uncounted;
    mirror_.ElementLoaded(element);
  }
  void ElementUnloading(const Control& element) noexcept override {
    const Uncounted uncounted;
    mirror_.ElementUnloading(element);
  }
  void StateReplaced() noexcept override {
    const Uncounted uncounted;
    mirror_.StateReplaced();
  }

 private:
  Mirror mirror_;
};

// A control under torture with its host.
struct Subject {
  explicit Subject(const Answers& answers) : host(answers), control(host) {
    host.control = &control;
  }

  TortureHost host;
  ZOLT20MapControl control;
};

struct Step {
  std::string name;
  std::function<void(Subject&)> run;
};

enum class What { kAllocation, kHostCall };

// Clears the control the ways that a host and a person have.
void ClearEverything(ZOLT20MapControl& control) {
  control.UserTab(0);
  for (int page = 0; page <= 6; ++page)
    control.ClearAll(page);
  control.UserClick(control.Form().cmdClear);
}

int RowOf(const RowsControl& list, StringView text) {
  int row = list.ListCount() - 1;
  while (row >= 0 && list.List(row) != text)
    --row;
  return row;
}

// Composes a statement of a table of its own, whatever the tables before it are: entries too short
// for a row keep the places of the rows that are there.
String UseForAStatement(ZOLT20MapControl& control) {
  const Surface& form = control.Form();
  const int row = form.lsttables.ListCount();
  control.PrpStrTables(String(static_cast<std::size_t>(row), u',') + u"ANOTHER_1");
  control.PrpStrFields(
      u"long*Q*V*R*N*NANOTHER_.ONE*Q*V*R*N*X,long*Q*V*R*N*NANOTHER_.TWO*Q*V*R*N*X");
  control.UserTab(0);
  // A function that is marked stays marked whatever is cleared.
  if (const int function = form.lstFunctions.ListIndex(); function >= 0)
    control.UserDoubleClick(form.lstFunctions, function);
  control.UserClick(form.lsttables, row);
  control.UserClick(form.lstFields, RowOf(form.lstFields, u"ANOTHER_.TWO"));
  control.UserClick(form.cmdMoveOne);
  control.UserClick(form.lstFields, RowOf(form.lstFields, u"ANOTHER_.ONE"));
  control.UserClick(form.cmdMoveOne);
  control.UserClick(form.lstGroupby, RowOf(form.lstGroupby, u"ANOTHER_.TWO"));
  control.UserTab(1);
  control.UserClick(form.lstorderbydesc, RowOf(form.lstorderbydesc, u"ANOTHER_.ONE"));
  control.UserTab(0);
  control.UserClick(form.cmdAddSelect);
  return form.TxtOutput.Text();
}

std::string ErrorWord(const RuntimeError& error) {
  return std::string(error.kind_word());
}

// "" or what is wrong with a control that something failed in.
std::string WrongBehindFailure(Subject& subject, const UncountedMirror& mirror) {
  ZOLT20MapControl& control = subject.control;
  if (std::string rule = BrokenRule(control.Form()); !rule.empty()) return "rule: " + rule;
  if (std::string why = mirror.Difference(); !why.empty()) return "mirror: " + why;
  try {
    ClearEverything(control);
  } catch (const RuntimeError& error) {
    return "clearing raises " + ErrorWord(error);
  }
  try {
    const String result = UseForAStatement(control);
    if (result !=
        u"select ANOTHER_.ONE,ANOTHER_.TWO\r\nfrom  ANOTHER_\r\ngroup by  ANOTHER_.TWO"
        u"\r\norder by ANOTHER_.ONE desc\r\nendselect") {
      return "the next statement is \"" + Narrow(result) + "\"";
    }
  } catch (const RuntimeError& error) {
    return "using it raises " + ErrorWord(error);
  }
  if (std::string rule = BrokenRule(control.Form()); !rule.empty()) return "rule, used: " + rule;
  if (std::string why = mirror.Difference(); !why.empty()) return "mirror, used: " + why;
  return {};
}

struct Trial {
  bool hasFailed = false;
  std::string wrong;
};

Trial Try(const Step& step, const ControlSnapshot& before, const Answers& answers, What what,
          int n) {
  Trial trial;
  Subject subject(answers);
  subject.control.Restore(before);
  UncountedMirror mirror(subject.control.Form());
  subject.control.AddObserver(mirror);
  std::string ended = "nothing";
  {
    const FailingAllocation failing(what == What::kAllocation ? n : 0);
    subject.host.failAt = what == What::kHostCall ? n : 0;
    const auto end = [&](const char* with) {
      const Uncounted uncounted;
      ended = with;
    };
    try {
      step.run(subject);
    } catch (const std::bad_alloc&) {
      end("bad_alloc");
    } catch (const HostFailed&) {
      end("the host's own");
    } catch (const RuntimeError&) {
      end("a run-time error");
    } catch (...) {
      end("another");
    }
    subject.host.failAt = 0;
    trial.hasFailed =
        what == What::kAllocation ? FailingAllocation::HasFailed() : subject.host.hasFailed;
  }
  if (trial.hasFailed && ended != (what == What::kAllocation ? "bad_alloc" : "the host's own")) {
    trial.wrong = "the exception that came out was " + ended;
  } else {
    trial.wrong = WrongBehindFailure(subject, mirror);
  }
  subject.control.RemoveObserver(mirror);
  return trial;
}

// Plays sessions, and tries each step in every way before it is played.
class TortureTest : public ::testing::Test {
 protected:
  TortureTest() { MakeNew(); }

  void PlayLines(const std::string& session, const std::vector<Json>& requests) {
    int line = 0;
    for (const Json& request : requests)
      Play(session + " " + std::to_string(++line), request);
  }

  void Play(const std::string& place, const Json& given) {
    const Json request = WithRow(given, subject_->control.Form());
    if (request.contains("answer")) return KeepAnswer(request);
    if (request.contains("dump")) return;
    Step step{place + " " + request.dump().substr(0, 120), {}};
    if (request.contains("new")) {
      MakeNew();
      if (!request["new"].contains("bag")) return;
      step.run = [values = request["new"]["bag"]](Subject& subject) {
        TortureBag bag(subject.host, values);
        subject.control.UserControl_ReadProperties(bag);
      };
    } else if (request.contains("save")) {
      step.run = [](Subject& subject) {
        const Json none = Json::object();
        TortureBag bag(subject.host, none);
        subject.control.UserControl_WriteProperties(bag);
      };
    } else {
      step.run = [call = CallOf(request)](Subject& subject) { call(subject.control); };
    }
    Torture(step);
    try {
      step.run(*subject_);
    } catch (const RuntimeError&) {  // some sessions show that
    }
  }

  void Torture(const Step& step) {
    const ControlSnapshot before = subject_->control.Save();
    for (const What what : {What::kAllocation, What::kHostCall}) {
      for (int n = 1;; ++n) {
        const long live = LiveAllocations();
        Trial trial = Try(step, before, answers_, what, n);
        ++trials_;
        if (trial.wrong.empty() && LiveAllocations() != live) {
          // An answer that the catalogue keeps for its next reader is kept once.
          const long kept = LiveAllocations();
          trial = Try(step, before, answers_, what, n);
          if (trial.wrong.empty() && LiveAllocations() != kept) trial.wrong = "a leak";
        }
        if (!trial.wrong.empty()) Complain(step, what, n, trial.wrong);
        if (!trial.hasFailed) break;
        ++failures_;
      }
    }
  }

  void MakeNew() {
    subject_.reset();
    subject_ = std::make_unique<Subject>(answers_);
    subject_->control.UserControl_InitProperties();
  }

  void KeepAnswer(const Json& request) {
    std::vector<DirectCall>& calls = answers_[request["answer"]];
    calls.clear();
    for (const Json& action : request["with"])
      calls.push_back(CallOf(action));
  }

  void TearDown() override {
    std::printf("%d trials, %d failures\n", trials_, failures_);
    for (const std::string& complaint : complaints_)
      ADD_FAILURE() << complaint;
  }

  Subject& subject() { return *subject_; }
  int Failures() const { return failures_; }

 private:
  void Complain(const Step& step, What what, int n, const std::string& wrong) {
    constexpr std::size_t kMost = 60;
    if (complaints_.size() >= kMost || !complained_.insert(step.name + wrong).second) return;
    complaints_.push_back(step.name +
                          (what == What::kAllocation ? ", allocation " : ", host call ") +
                          std::to_string(n) + ": " + wrong);
  }

  Answers answers_;
  std::unique_ptr<Subject> subject_;
  int trials_ = 0;
  int failures_ = 0;
  std::set<std::string> complained_;
  std::vector<std::string> complaints_;
};

std::vector<Json> Requests(const fs::path& file) {
  std::vector<Json> requests;
  std::ifstream input(file, std::ios::binary);
  for (std::string line; std::getline(input, line);) {
    if (!automation::Session::IsSkipped(line)) requests.push_back(Json::parse(line));
  }
  return requests;
}

TEST_F(TortureTest, NothingThatFailsInTheSessionOfEveryHandlerDoesHarm) {
  for (const HandlerStep& step : HandlerSession())
    PlayLines(step.handler, step.requests);
  EXPECT_GT(Failures(), 500);
}

// The handlers as the control declares them, in its order.
std::vector<std::string> DeclaredHandlers() {
  std::ifstream header(fs::path(Sources()) / "shell" / "control.h");
  constexpr std::string_view kVoid = "  void ";
  std::vector<std::string> handlers;
  for (std::string line; std::getline(header, line);) {
    const std::size_t bracket = line.find('(');
    if (!line.starts_with(kVoid) || bracket == std::string::npos) continue;
    const std::string name = line.substr(kVoid.size(), bracket - kVoid.size());
    for (const std::string_view event :
         {"_Click", "_DblClick", "_Change", "_ItemCheck", "_GotFocus", "_KeyPress", "_TabChain"}) {
      if (name.ends_with(event)) handlers.push_back(name);
    }
  }
  return handlers;
}

// What a dump holds at "CONTROL.PROPERTY"; null when it is not there.
Json Part(const Json& dump, const std::string& path) {
  const std::size_t dot = path.find('.');
  const Json& controls = dump["controls"];
  const auto control = controls.find(path.substr(0, dot));
  return control == controls.end() ? Json() : control->value(path.substr(dot + 1), Json());
}

TEST(TheSessionOfEveryHandler, ReachesEveryHandler) {
  DirectRoad road;
  std::set<std::string> reached;
  for (const HandlerStep& step : HandlerSession()) {
    const Json before = automation::Dump(road.Control().Form());
    Json log = Json::array();
    for (const Json& request : step.requests) {
      const Json reply = road.Reply(WithRow(request, road.Control().Form()));
      EXPECT_EQ(reply["ok"], true) << step.handler << " " << request << " " << reply;
      log.insert(log.end(), reply["log"].begin(), reply["log"].end());
    }
    if (step.handler.empty()) continue;
    if (step.changed == "log") {
      EXPECT_NE(log, Json::array()) << step.handler;
    } else {
      const Json after = automation::Dump(road.Control().Form());
      EXPECT_NE(Part(before, step.changed), Part(after, step.changed)) << step.handler;
      EXPECT_NE(Part(after, step.changed), Json()) << step.handler;
    }
    reached.insert(step.handler);
  }
  for (const std::string& handler : DeclaredHandlers())
    EXPECT_EQ(reached.erase(handler), 1U) << handler;
  EXPECT_EQ(reached, std::set<std::string>());
}

TEST(TheSessionOfEveryHandler, UsesEveryMemberOfTheContract) {
  std::set<std::string> used;
  for (const HandlerStep& step : HandlerSession()) {
    for (const Json& request : step.requests) {
      for (const char* verb : {"set", "get", "call"}) {
        if (request.contains(verb)) used.insert(verb + (" " + request[verb].get<std::string>()));
      }
    }
  }
  for (const Member& member : Members()) {
    const std::string name(member.name);
    EXPECT_EQ(used.count("set " + name), member.let == nullptr ? 0U : 1U) << name;
    EXPECT_EQ(used.count("get " + name), member.get == nullptr ? 0U : 1U) << name;
    EXPECT_EQ(used.count("call " + name), member.call == nullptr ? 0U : 1U) << name;
  }
}

// Creation is tried alone: there is no control before it.
TEST(Creation, FailsWithoutALeakWhereverAnAllocationFails) {
  const Answers answers;
  { const Subject first(answers); }
  int n = 1;
  for (bool hasFailed = true; hasFailed; ++n) {
    const long live = LiveAllocations();
    bool isMade = false;
    {
      const FailingAllocation failing(n);
      try {
        const Subject subject(answers);
        isMade = true;
      } catch (const std::bad_alloc&) {
      }
      hasFailed = FailingAllocation::HasFailed();
    }
    EXPECT_EQ(isMade, !hasFailed) << "allocation " << n;
    EXPECT_EQ(LiveAllocations(), live) << "allocation " << n;
  }
  EXPECT_GT(n, 100);
}

// A state that is put back over another one with other case rows.
TEST_F(TortureTest, SavingAndPuttingBackMayFailAtAnyAllocation) {
  PlayLines("rows", {{{"user", "tab"}, {"page", 6}}, {{"user", "click"}, {"control", "optCase"}}});
  const ControlSnapshot none = subject().control.Save();
  subject().control.UserClick(subject().control.Form().cmdNext);
  subject().control.UserClick(subject().control.Form().cmdNext);
  const ControlSnapshot two = subject().control.Save();
  Torture({"saving", [](Subject& tried) { tried.control.Save(); }});
  Torture({"taking two rows away", [&](Subject& tried) { tried.control.Restore(none); }});
  Torture({"as it is", [&](Subject& tried) { tried.control.Restore(two); }});
  subject().control.Restore(none);
  Torture({"bringing two rows", [&](Subject& tried) { tried.control.Restore(two); }});
  EXPECT_GT(Failures(), 50);
}

// An observer that leaves the form before it goes, as all have to.
struct Visitor {
  explicit Visitor(ZOLT20MapControl& visited) : control(visited), mirror(MadeUncounted(visited)) {}
  Visitor(const Visitor&) = delete;
  Visitor& operator=(const Visitor&) = delete;
  ~Visitor() { control.RemoveObserver(*mirror); }

  static std::unique_ptr<Mirror> MadeUncounted(ZOLT20MapControl& control) {
    const Uncounted uncounted;
    return std::make_unique<Mirror>(control.Form());
  }

  ZOLT20MapControl& control;
  std::unique_ptr<Mirror> mirror;
};

TEST_F(TortureTest, ObserversMayFailToBeAdded) {
  Torture({"adding", [](Subject& tried) {
             const Visitor visitor(tried.control);
             for (int i = 0; i < 3; ++i)
               tried.control.AddObserver(*visitor.mirror);
           }});
  EXPECT_GT(Failures(), 0);
}

class RecordedTortureTest : public TortureTest,
                            public ::testing::WithParamInterface<std::string> {};

const fs::path kSessions = fs::path(Examples()) / "sessions";

TEST_P(RecordedTortureTest, NothingThatFailsDoesHarm) {
  PlayLines(GetParam(), Requests(kSessions / (GetParam() + ".jsonl")));
  EXPECT_GT(Failures(), 200);
}

INSTANTIATE_TEST_SUITE_P(Each, RecordedTortureTest, ::testing::ValuesIn(SessionNames(kSessions)),
                         [](const auto& session) { return CaseName(session.param); });

}  // namespace
}  // namespace zolt20::tests
