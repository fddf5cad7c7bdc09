// An index of a list's rows by prefix: runs of neighbouring rows whose first characters are equal.
//
// Rows of one table come into a list together, so a list of thousands of rows has few runs, and a
// query by prefix costs one test per run. The runs are a cache: the first query builds it, and each
// query adds the rows that were appended since.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "surface/row_text.h"

namespace zolt20 {

class StartRuns {
 public:
  /// The length of a prefix in characters; a shorter row is its own prefix.
  static constexpr std::size_t kLength = 8;

  /// The rows, in ascending order, for whose prefix `holds(prefix)` is true. `rows` is always all
  /// rows of the one list that this object indexes.
  template <typename Test>
  std::vector<int> RowsWhere(const RowTexts& rows, const Test& holds) {
    Cover(rows);
    std::vector<int> found;
    int first = 0;
    for (const Run& run : runs_) {
      if (holds(run.Start())) {
        for (int row = first; row < first + run.count; ++row)
          found.push_back(row);
      }
      first += run.count;
    }
    return found;
  }

  /// Rows were erased. None of these three allocates.
  void Erased(int first, int count) noexcept;
  /// A row was inserted here.
  void Inserted(int row) noexcept;
  /// Invalidates the cache: any row may be different.
  void Forget() noexcept;

 private:
  struct Run {
    explicit Run(StringView start);
    StringView Start() const { return {characters.data(), length}; }

    std::array<char16_t, kLength> characters{};
    std::size_t length;
    int count = 1;
  };

  void Cover(const RowTexts& rows);

  std::vector<Run> runs_;
  int covered_ = 0;  // how many rows, from row 0 on, the runs hold
};

}  // namespace zolt20
