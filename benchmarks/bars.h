// The figures of ./bench. Each is compared with a yardstick that is measured in turn with it, so
// that the ratio does not depend on the machine or its load.
//
// A row of the table is one benchmark. Its bar is what the ratio, or the figure itself, is meant to
// stay below.
#pragma once

#include <benchmark/benchmark.h>

#include <utility>
#include <vector>

#include "benchmarks/rows.h"

namespace zolt20::bench {

/// The processor time of this thread so far, in seconds.
double SecondsNow();

/// The processor time of `work()` on this thread, in seconds, which other programs do not add to.
template <typename Work>
double SecondsOf(const Work& work) {
  const double start = SecondsNow();
  work();
  return SecondsNow() - start;
}

/// Returns free memory to the system, so that the next allocations get fresh pages, for a figure
/// and for its yardstick alike.
void ForgetFreeMemory();

/// Puts the row's figure beside its yardstick, both in seconds, or in what `unit` names.
void Report(benchmark::State& state, double figure, double yardstick, Bar kind, double bar,
            const char* unit = "s");

/// Measures both in turn, as often as the benchmark runs, and reports the medians. `work()` and
/// `yardstick()` give the seconds of what they time within them.
template <typename Work, typename Yardstick>
void Compare(benchmark::State& state, Bar kind, double bar, const Work& work,
             const Yardstick& yardstick) {
  std::vector<double> figures;
  std::vector<double> yardsticks;
  for (auto _ : state) {
    yardsticks.push_back(yardstick());
    figures.push_back(work());
    state.SetIterationTime(figures.back());
  }
  Report(state, MedianOf(std::move(figures)), MedianOf(std::move(yardsticks)), kind, bar);
}

/// Runs the benchmarks of the program and prints the table, or the format of --benchmark_format.
/// A benchmark whose ratio misses its bar is run up to two times more. Gives the exit status: 1
/// when a benchmark missed its bar three times in a row, or failed. `--times=N` runs all N times,
/// and prints medians and the spread of the ratios.
int Run(int argc, char** argv);

}  // namespace zolt20::bench
