// The table of ./bench, row by row: a figure, its yardstick, their ratio, and the bar. Depends on
// the standard library alone, so that programs of every platform print the same table.
#pragma once

#include <string>
#include <vector>

namespace zolt20::bench {

/// What a bar limits.
enum class Bar {
  kRatio,       ///< the ratio is at most the bar
  kFigure,      ///< the figure is at most the bar
  kFigureAbove  ///< the figure is at least the bar
};

/// Figure, yardstick and a bar for the figure are in seconds, or in `unit`. A bar of 0 means no
/// bar. The ratio is a field of its own, since a median of ratios is no ratio of medians.
struct Row {
  std::string name;
  double figure = 0;
  double yardstick = 0;
  Bar kind = Bar::kRatio;
  double bar = 0;
  std::string unit = "s";
  double ratio = figure / yardstick;
};

bool Holds(const Row& row);

/// `more` is printed at the end of the line.
void PrintHead(const std::string& more = {});
void Print(const Row& row, const std::string& more = {});

double MedianOf(std::vector<double> values);

}  // namespace zolt20::bench
