// zolt20-host as a process: its time to the first reply, and the time of a session of gestures.
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "benchmarks/bars.h"

extern char** environ;

namespace zolt20::bench {
namespace {

using Json = nlohmann::ordered_json;

// A child process with pipes at its standard input and output.
class Child {
 public:
  explicit Child(const char* path) {
    std::array<int, 2> in{};
    std::array<int, 2> out{};
    if (pipe2(in.data(), O_CLOEXEC) != 0 || pipe2(out.data(), O_CLOEXEC) != 0) std::abort();
    posix_spawn_file_actions_t actions{};
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, in[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
    std::string word = path;
    std::array<char*, 2> words{word.data(), nullptr};
    if (posix_spawn(&child_, path, &actions, nullptr, words.data(), environ) != 0) std::abort();
    posix_spawn_file_actions_destroy(&actions);
    close(in[0]);
    close(out[1]);
    in_ = in[1];
    out_ = out[0];
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;
  ~Child() {
    End();
    close(out_);
    int status = 0;
    waitpid(child_, &status, 0);
  }

  void Write(std::string_view text) const {
    if (write(in_, text.data(), text.size()) != static_cast<ssize_t>(text.size())) std::abort();
  }
  // Reads up to the end of a line or of the output.
  std::string ReadLine() const {
    std::string line;
    char c = 0;
    while (read(out_, &c, 1) == 1 && c != '\n')
      line += c;
    return line;
  }
  void End() {
    if (in_ >= 0) close(in_);
    in_ = -1;
  }

 private:
  pid_t child_ = 0;
  int in_ = -1;
  int out_ = -1;
};

double WallSecondsOf(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// The processor time, in seconds, of all child processes that have ended.
double ChildSecondsNow() {
  rusage usage{};
  getrusage(RUSAGE_CHILDREN, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

void StartTheHost(benchmark::State& state) {
  Compare(
      state, Bar::kFigure, 10e-3,
      [] {
        return WallSecondsOf([] {
          Child host(ZOLT20_HOST_PROGRAM);
          host.Write("{\"get\":\"prpintTabcount\"}\n");
          if (host.ReadLine().empty()) std::abort();
        });
      },
      [] {
        return WallSecondsOf([] {
          Child nothing("/bin/true");
          nothing.ReadLine();
        });
      });
}

// A mixed session: fields chosen, conditions, statements, an If, all pages; again and again.
std::vector<std::string> MixedSession(int rounds) {
  std::vector<std::string> lines;
  const auto add = [&lines](const char* line) { lines.emplace_back(line); };
  add(R"({"set":"PrpStrTables","value":"CUSTOMER2,ORDERS__1"})");
  add(R"({"set":"PrpStrFields","value":"char*Q*V*R*N*NCUSTOMER.C_LAST*Q*V*R*N*name,long*Q*V*R*N*NCUSTOMER.C_ID*Q*V*R*N*id,date*Q*V*R*N*YORDERS__.O_DATE*Q*V*R*N*day"})");
  for (int round = 0; round < rounds; ++round) {
    add(R"({"user":"tab","page":0})");
    add(R"({"user":"click","control":"lsttables","row":0})");
    add(R"({"user":"click","control":"lstFields","row":1})");
    add(R"({"user":"click","control":"cmdMoveOne"})");
    add(R"({"user":"click","control":"lstFields","row":2})");
    add(R"({"user":"click","control":"cmdMoveOne"})");
    add(R"({"user":"tab","page":1})");
    for (int condition = 0; condition < 3; ++condition) {
      add(R"({"user":"pick","control":"cboWhereFields","row":3})");
      add(R"({"user":"pick","control":"cboOper","row":0})");
      add(R"({"user":"type","control":"cboWhereFields1","text":"100"})");
      add(R"({"user":"click","control":"cmdAnd"})");
    }
    add(R"({"user":"click","control":"lstorderbyasc","row":0})");
    add(R"({"user":"key","control":"txtAsSet","code":53})");
    add(R"({"user":"tab","page":2})");
    add(R"({"user":"type","control":"txtSelectDo","text":"move CUSTOMER.C_LAST to x"})");
    add(R"-({"user":"click","control":"cmdFunction(0)"})-");
    add(R"({"user":"tab","page":0})");
    add(R"({"user":"click","control":"cmdAddSelect"})");
    add(R"({"user":"tab","page":6})");
    add(R"({"user":"click","control":"optIfThen"})");
    add(R"({"user":"type","control":"txtCond","text":"CUSTOMER.C_ID > 0"})");
    add(R"({"user":"focus","control":"txtStmt1"})");
    add(R"({"user":"type","control":"txtStmt1","text":"x = 1"})");
    add(R"({"user":"click","control":"cmdAdd"})");
    add(R"({"user":"click","control":"cmdBuild"})");
    add(R"({"user":"tab","page":0})");
    add(R"({"user":"click","control":"cmdRemoveAll"})");
    add(R"({"user":"click","control":"lsttables","row":0})");
    add(R"({"user":"tab","page":1})");
    add(R"({"user":"click","control":"cmdCancelWhere"})");
    add(R"({"user":"click","control":"cmdClear"})");
  }
  return lines;
}

void GesturesThroughTheHost(benchmark::State& state) {
  const std::vector<std::string> lines = MixedSession(2000);
  const std::string path = "zolt20_bench_session.jsonl";
  {
    std::ofstream file(path, std::ios::binary);
    for (const std::string& line : lines)
      file << line << '\n';
  }
  const auto gestures = static_cast<double>(lines.size() - 2);
  const std::string command = std::string(ZOLT20_HOST_PROGRAM) + " " + path + " > " + path + ".out";
  std::vector<double> figures;
  std::vector<double> yardsticks;
  for (auto _ : state) {
    // The yardstick: each line parsed and written again by the JSON library alone.
    yardsticks.push_back(SecondsOf([&] {
      for (const std::string& line : lines)
        benchmark::DoNotOptimize(Json::parse(line).dump());
    }));
    const double before = ChildSecondsNow();
    if (std::system(command.c_str()) != 0) state.SkipWithError("zolt20-host failed");
    const double seconds = ChildSecondsNow() - before;
    figures.push_back(seconds);
    state.SetIterationTime(seconds);
  }
  std::remove(path.c_str());
  std::remove((path + ".out").c_str());
  Report(state, gestures / MedianOf(std::move(figures)), gestures / MedianOf(std::move(yardsticks)),
         Bar::kFigureAbove, 200'000, "/s");
}

const int kRegistered = [] {
  benchmark::RegisterBenchmark("zolt20-host up to its first reply | /bin/true", StartTheHost)
      ->UseManualTime()
      ->Iterations(51);
  benchmark::RegisterBenchmark("gestures through zolt20-host | their JSON alone",
                               GesturesThroughTheHost)
      ->UseManualTime()
      ->Iterations(5);
  return 0;
}();

}  // namespace
}  // namespace zolt20::bench
