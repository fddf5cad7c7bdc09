#include "surface/start_runs.h"

#include <algorithm>

namespace zolt20 {

StartRuns::Run::Run(StringView start) : length(start.size()) {
  std::copy(start.begin(), start.end(), characters.begin());
}

void StartRuns::Cover(const RowTexts& rows) {
  for (auto row = static_cast<std::size_t>(covered_); row < rows.size(); ++row) {
    const StringView start = rows[row].substr(0, kLength);
    if (!runs_.empty() && runs_.back().Start() == start) {
      ++runs_.back().count;
    } else {
      runs_.emplace_back(start);
    }
    ++covered_;
  }
}

void StartRuns::Erased(int first, int count) noexcept {
  const int end = std::min(first + count, covered_);
  if (first >= end) return;
  int row = 0;
  for (Run& run : runs_) {
    const int behind = row + run.count;
    run.count -= std::max(0, std::min(behind, end) - std::max(row, first));
    row = behind;
  }
  runs_.erase(
      std::remove_if(runs_.begin(), runs_.end(), [](const Run& run) { return run.count == 0; }),
      runs_.end());
  covered_ -= end - first;
}

void StartRuns::Inserted(int row) noexcept {
  if (row < covered_) Forget();
}

void StartRuns::Forget() noexcept {
  runs_.clear();
  covered_ = 0;
}

}  // namespace zolt20
