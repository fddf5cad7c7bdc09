// The table of ./bench, row by row: a figure, its yardstick, their ratio, and the bar. Takes
// nothing but the standard library, so that programs of every platform print the same table.
#pragma once

#include <string>
#include <vector>

namespace zolt20::bench {

/// What a bar is held against.
enum class Bar {
  kRatio,       ///< the ratio is at most the bar
  kFigure,      ///< the figure is at most the bar
  kFigureAbove  ///< the figure is at least the bar
};

/// Figure, yardstick and a bar for the figure are in seconds, or in what `unit` names. A bar of 0
/// is none. The ratio of medians is not that of the figures, so it is a field of its own.
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

/// `more` stands at the end of the line.
void PrintHead(const std::string& more = {});
void Print(const Row& row, const std::string& more = {});

double MedianOf(std::vector<double> values);

}  // namespace zolt20::bench
