// The figures of ./bench: each stands beside a yardstick that is measured in turn with it, so that
// the ratio counts and not the machine or what else it does.
//
// A row of the table is one benchmark. Its bar is what the ratio, or the figure itself, is meant to
// stay below.
#pragma once

#include <benchmark/benchmark.h>

#include <utility>
#include <vector>

#include "benchmarks/rows.h"

namespace zolt20::bench {

/// Seconds of the processor that this thread has had.
double SecondsNow();

/// Seconds of the processor that `work()` takes on this thread. What other programs do at the same
/// time is not in them.
template <typename Work>
double SecondsOf(const Work& work) {
  const double start = SecondsNow();
  work();
  return SecondsNow() - start;
}

/// Gives free memory back to the system, so that what is allocated next comes fresh, for a figure
/// and its yardstick alike.
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

/// Runs the benchmarks of the program and prints the table, or what --benchmark_format asks for.
/// What falls short of a bar on its ratio is run up to two times more. Gives the exit status: 1
/// when it fell short three times in a row, or failed. `--times=N` runs all that often, and prints
/// medians and the spread of the ratios.
int Run(int argc, char** argv);

}  // namespace zolt20::bench
