// The rows of a list by how they begin, as runs of neighbours that begin alike.
//
// Rows of one table come into a list together, so a list of thousands of rows has few runs, and a
// question about the beginnings of all rows costs one test a run. The runs are found when they are
// first asked for; rows that come to the end later are taken up by the next question.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "surface/row_text.h"

namespace zolt20 {

class StartRuns {
 public:
  /// The characters of a beginning; a shorter row is its own.
  static constexpr std::size_t kLength = 8;

  /// Of all the rows of the list: those, in ascending order, whose beginning `holds(start)` is true
  /// of.
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

  /// Rows went. None of these allocates.
  void Erased(int first, int count) noexcept;
  /// A row came before others.
  void Inserted(int row) noexcept;
  /// The rows are others.
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
  int covered_ = 0;  // the rows of the runs, from the first one on
};

}  // namespace zolt20
