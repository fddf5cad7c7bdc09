// A composer that is killed again and again in a long session, and each time goes on where it was.
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <random>
#include <string>
#include <vector>

#include "hosts/composer/rules_file.h"
#include "tests/composer/files.h"
#include "tests/qt/widget_test.h"
#include "tests/support/places.h"

namespace zolt20::tests {
namespace {

using Json = nlohmann::ordered_json;
using Steps = std::vector<std::string>;

/// The composer in a process of its own. A copy of this process would not do: once a test has
/// drawn, Qt waits for threads that the copy does not have.
class Composer {
 public:
  explicit Composer(const QString& rules) {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
      ADD_FAILURE() << "there are no sockets";
      return;
    }
    // What waits to be printed is printed once.
    static_cast<void>(std::fflush(nullptr));
    process_ = fork();
    if (process_ == 0) {
      close(ends[0]);
      Drive(rules, ends[1]);
    }
    EXPECT_GT(process_, 0);
    close(ends[1]);
    socket_ = ends[0];
  }
  ~Composer() {
    Kill();
    close(socket_);
  }
  Composer(const Composer&) = delete;
  Composer& operator=(const Composer&) = delete;

  void Send(const std::string& step) {
    const std::string line = step + "\n";
    for (std::size_t done = 0; done < line.size();) {
      const ssize_t sent = send(socket_, line.data() + done, line.size() - done, MSG_NOSIGNAL);
      if (sent <= 0) return;  // it says nothing then
      done += static_cast<std::size_t>(sent);
    }
  }
  /// What it says next; "" when it says nothing for long.
  std::string Hear() {
    std::size_t end = 0;
    while ((end = heard_.find('\n')) == std::string::npos) {
      pollfd ready{socket_, POLLIN, 0};
      std::array<char, 4096> bytes{};
      if (poll(&ready, 1, 30000) <= 0) return {};
      const ssize_t got = recv(socket_, bytes.data(), bytes.size(), 0);
      if (got <= 0) return {};
      heard_.append(bytes.data(), static_cast<std::size_t>(got));
    }
    const std::string line = heard_.substr(0, end);
    heard_.erase(0, end + 1);
    return line;
  }
  std::string Ask(const std::string& line) {
    Send(line);
    return Hear();
  }
  void Kill() {
    if (process_ <= 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    process_ = -1;
  }

 private:
  // What it leaves when it is killed goes with the test's own folder.
  [[noreturn]] static void Drive(const QString& rules, int socket) {
    dup2(socket, STDIN_FILENO);
    dup2(socket, STDOUT_FILENO);
    qputenv("TMPDIR", QFile::encodeName(QFileInfo(rules).absolutePath()));
    execl("/proc/self/exe", "composer_tests", "--driven", (Examples() + "/catalogue.json").c_str(),
          rules.toUtf8().constData(), nullptr);
    std::_Exit(127);
  }

  pid_t process_ = -1;
  int socket_ = -1;
  std::string heard_;
};

std::string Click(const char* control, int row = -1) {
  Json step = {{"user", "click"}, {"control", control}};
  if (row >= 0) step["row"] = row;
  return step.dump();
}
std::string Tab(int page) {
  return Json({{"user", "tab"}, {"page", page}}).dump();
}
std::string Focus(const char* control) {
  return Json({{"user", "focus"}, {"control", control}}).dump();
}
const std::string kUndo = R"({"undo":true})";
const std::string kRedo = R"({"redo":true})";
const std::string kReopen = R"({"reopen":true})";

// The text key by key.
void TypeIn(Steps& steps, const char* box, const std::string& text) {
  for (std::size_t length = 1; length <= text.size(); ++length)
    steps.push_back(
        Json({{"user", "type"}, {"control", box}, {"text", text.substr(0, length)}}).dump());
}
void Add(Steps& steps, const Steps& more) {
  steps.insert(steps.end(), more.begin(), more.end());
}

// A condition with a sub query in it, each in a composer of its own.
void ComposeWithin(Steps& steps, const std::string& number) {
  Add(steps, {Click("cmdCondition(0)"), Click("optIfThen")});
  TypeIn(steps, "txtCond", ":n > " + number);
  Add(steps,
      {kUndo, kRedo, Focus("txtStmt1"), Click("cmdSubQuery(4)"), Click("lsttables", 2),
       Click("lstFields", 1), Click("cmdMoveOne"), kUndo, kRedo, Click("cmdAddSelect"),
       Click("cmdDone"), Click("cmdAdd"), kUndo, kRedo, Click("cmdBuild"), Click("cmdDone")});
}

Steps LongSession() {
  Steps steps{kReopen};
  for (int round = 0; round < 5; ++round) {
    const std::string number = std::to_string(round);
    Add(steps, {Tab(0), Click("cmdAddSelect"), kUndo, kRedo, Tab(1), Focus("txtAsSet")});
    steps.push_back(Json({{"user", "key"}, {"control", "txtAsSet"}, {"code", '1' + round}}).dump());
    Add(steps, {Click("cmdAddWhereQuery"), Tab(2)});
    for (int times = 0; times < 2; ++times) {
      TypeIn(steps, "txtSelectDo", ":a = " + number);
      Add(steps, {kUndo, kUndo, kRedo, kRedo});
      ComposeWithin(steps, number);
    }
    Add(steps, {Click("cmdAddSelectDoQuer"), kUndo, kRedo, Click("cmdDone"), kReopen});
  }
  return steps;
}

// A state from which the next start begins when the program ends behind a step.
struct Place {
  std::string state;
  std::size_t next = 0;  // the step to be done then
};

class KillTest : public testing::Test {
 protected:
  KillTest() : steps_(LongSession()) {
    if (states_.empty()) states_ = StatesBehindSteps();
  }

  /// The title of the window has the name of the file, so both runs have the same.
  QString RulesPath(const char* folder) const {
    const QString path = folder_.filePath(QString::fromUtf8(folder));
    QDir().mkpath(path);
    return path + QStringLiteral("/orders.rules");
  }
  void WriteRules(const QString& path) {
    qputenv("XDG_DATA_HOME", QFile::encodeName(folder_.filePath(QStringLiteral("data"))));
    auto file = composer::RulesFile::Create(path);
    file.Put({u"Orders", u"select ORDERS__.O_ID\r\nfrom  ORDERS__\r\nendselect",
              u"long*Q*V*R*N*NORDERS__.O_ID*Q*V*R*N*"});
    file.Save();
  }

  /// What a composer shows that nobody kills.
  std::vector<std::string> StatesBehindSteps() {
    WriteRules(RulesPath("whole"));
    Composer composer(RulesPath("whole"));
    std::vector<std::string> states;
    for (const std::string& step : steps_) {
      composer.Send(step);
      states.push_back(composer.Ask("state"));
      if (states.back().empty()) {
        ADD_FAILURE() << "nothing is said behind " << step;
        break;
      }
    }
    return states;
  }

  /// Moving about before anything is composed is not kept, and what is stored is opened again.
  Place AfterStart(std::size_t step) const {
    if (step + 1 < steps_.size() && steps_[step + 1] == kReopen && steps_[step] != kReopen)
      return {states_[step + 1], step + 2};
    const auto isMove = [](const std::string& each) {
      return each.find(R"({"user":"tab")") == 0 || each.find(R"({"user":"focus")") == 0;
    };
    std::size_t last = step;
    while (last > 0 && isMove(steps_[last]))
      --last;
    if (steps_[last] != kReopen) last = step;
    return {states_[last], last + 1};
  }

  /// Goes on with the session; the composer is killed behind each step that `killed` tells.
  void Play(unsigned seed, std::size_t kills) {
    std::mt19937 random(seed);
    const QString rules = RulesPath("killed");
    WriteRules(rules);
    std::size_t next = 0;
    std::size_t killed = 0;
    const double stride = static_cast<double>(steps_.size()) / static_cast<double>(kills);
    while (next < steps_.size()) {
      Composer composer(rules);
      if (next > 0) next = FindPlace(composer, next - 1, sent_);
      if (HasFailure()) return;
      const auto wanted = static_cast<std::size_t>(stride * static_cast<double>(killed + 1));
      const std::size_t end = std::clamp(wanted, next + 1, steps_.size());
      const bool waits = killed % 2 == 0 || end == steps_.size();
      for (std::size_t step = next; step < end && next < steps_.size(); ++step)
        composer.Send(steps_[step]);
      if (!waits) {
        QThread::usleep(random() % 20000);
      } else if (composer.Ask("kept") != "kept") {
        ADD_FAILURE() << "nothing is kept behind " << steps_[end - 1];
      }
      composer.Kill();
      ++killed;
      sent_ = end;
      if (waits) next = end;
      if (!waits && next == 0) next = 1;
    }
    EXPECT_GE(killed, kills);
  }

  /// Which step comes next, by what the composer shows: behind one of those that were sent, and
  /// none that was kept is missing.
  std::size_t FindPlace(Composer& composer, std::size_t kept, std::size_t sent) {
    const std::string shown = composer.Ask("state");
    for (std::size_t step = std::min(sent, steps_.size()); step-- > kept;) {
      if (AfterStart(step).state == shown) return AfterStart(step).next;
    }
    // Within Done the rule may be stored in memory, and be settled, but not on the disk.
    for (std::size_t step = kept; step < sent && step + 1 < steps_.size(); ++step) {
      if (steps_[step + 1] == kReopen) return step;
    }
    ADD_FAILURE() << "a start shows " << shown << ", which is the state behind none of the steps "
                  << kept << " to " << sent << ", " << steps_[kept] << " to " << steps_[sent - 1];
    return steps_.size();
  }

  QTemporaryDir folder_;
  Steps steps_;
  static std::vector<std::string> states_;  // behind each step; both tests have the same
  std::size_t sent_ = 0;
};
std::vector<std::string> KillTest::states_;

TEST_F(KillTest, AHundredKillsInALongSessionLoseNothing) {
  Play(1, 100);
}
TEST_F(KillTest, AHundredKillsAtOtherMomentsLoseNothing) {
  Play(2, 100);
}

}  // namespace
}  // namespace zolt20::tests
