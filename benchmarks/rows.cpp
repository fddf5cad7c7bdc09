#include "benchmarks/rows.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>

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

std::string BarText(const Row& row) {
  if (row.bar == 0) return "";
  if (row.kind != Bar::kRatio) return WithUnit(row.bar, row.unit);
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.4g times", row.bar);
  return text.data();
}

}  // namespace

bool Holds(const Row& row) {
  if (row.bar == 0) return true;
  if (row.kind == Bar::kRatio) return row.ratio <= row.bar;
  return row.kind == Bar::kFigure ? row.figure <= row.bar : row.figure >= row.bar;
}

void PrintHead(const std::string& more) {
  std::printf("%-66s %10s %10s %8s  %-12s %s\n", "work", "figure", "yardstick", "ratio", "bar",
              more.c_str());
}

void Print(const Row& row, const std::string& more) {
  const char* const outcome = row.bar == 0 ? "" : Holds(row) ? "holds" : "falls short";
  std::printf("%-66s %10s %10s %8.3g  %-12s %-12s%s\n", row.name.c_str(),
              WithUnit(row.figure, row.unit).c_str(), WithUnit(row.yardstick, row.unit).c_str(),
              row.ratio, BarText(row).c_str(), outcome, more.c_str());
  std::fflush(stdout);
}

double MedianOf(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace zolt20::bench
