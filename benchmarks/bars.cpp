#include "benchmarks/bars.h"

#include <malloc.h>
#include <time.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace zolt20::bench {
namespace {

// Three digits with the unit that suits them: "1.52 ms".
std::string WithUnit(double value, const std::string& unit) {
  std::array<char, 32> text{};
  if (unit != "s") {
    std::snprintf(text.data(), text.size(), "%.3g %s", value, unit.c_str());
    return text.data();
  }
  struct Scale {
    double least;
    double factor;
    const char* word;
  };
  constexpr std::array<Scale, 4> kScales{
      {{1, 1, "s"}, {1e-3, 1e3, "ms"}, {1e-6, 1e6, "us"}, {0, 1e9, "ns"}}};
  const auto* const scale =
      std::find_if(kScales.begin(), kScales.end(),
                   [=](const Scale& candidate) { return value >= candidate.least; });
  std::snprintf(text.data(), text.size(), "%.3g %s", value * scale->factor, scale->word);
  return text.data();
}

class Table final : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& /*context*/) override {
    std::printf("%-66s %10s %10s %8s  %-18s\n", "work", "figure", "yardstick", "ratio", "bar");
    return true;
  }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      std::string name = run.benchmark_name();
      name = name.substr(0, name.find("/iterations"));
      if (const std::size_t manual = name.find("/manual_time"); manual != std::string::npos)
        name.resize(manual);
      if (run.error_occurred) {
        std::printf("%-66s %s\n", name.c_str(), run.error_message.c_str());
        continue;
      }
      const auto counter = [&run](const char* key) {
        const auto found = run.counters.find(key);
        return found == run.counters.end() ? 0.0 : found->second.value;
      };
      const double figure = counter("figure");
      const double ratio = counter("ratio");
      const auto kind = static_cast<Bar>(static_cast<int>(counter("kind")));
      const std::string& unit = run.report_label;
      const double bar = counter("bar");
      std::string held;
      bool holds = true;
      if (kind == Bar::kRatio) {
        std::array<char, 32> text{};
        std::snprintf(text.data(), text.size(), "%.4g times", bar);
        held = text.data();
        holds = ratio <= bar;
      } else {
        held = WithUnit(bar, unit);
        holds = kind == Bar::kFigure ? figure <= bar : figure >= bar;
      }
      if (bar == 0) held.clear();
      std::printf("%-66s %10s %10s %8.3g  %-18s%s\n", name.c_str(), WithUnit(figure, unit).c_str(),
                  WithUnit(counter("yardstick"), unit).c_str(), ratio, held.c_str(),
                  holds || bar == 0 ? "" : " MISSED");
      std::fflush(stdout);
    }
  }
};

}  // namespace

double SecondsNow() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

void ForgetFreeMemory() {
  malloc_trim(0);
}

double MedianOf(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

void Report(benchmark::State& state, double figure, double yardstick, Bar kind, double bar,
            const char* unit) {
  state.counters["figure"] = figure;
  state.counters["yardstick"] = yardstick;
  state.counters["ratio"] = figure / yardstick;
  state.counters["bar"] = bar;
  state.counters["kind"] = static_cast<int>(kind);
  state.SetLabel(unit);
}

int Run(int argc, char** argv) {
  const bool asked = std::any_of(argv + 1, argv + argc, [](const char* word) {
    return std::strncmp(word, "--benchmark_format", std::strlen("--benchmark_format")) == 0;
  });
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  if (asked) {
    benchmark::RunSpecifiedBenchmarks();
  } else {
    Table table;
    benchmark::RunSpecifiedBenchmarks(&table);
  }
  return 0;
}

}  // namespace zolt20::bench
