// The two kinds of array that the logic keeps its texts in. Both count from 0 and raise `subscript`
// for an index outside their bounds, and for any use of one that was never assigned.
#pragma once

#include <array>
#include <cstddef>
#include <utility>
#include <vector>

#include "surface/error.h"
#include "surface/integer.h"
#include "surface/shared.h"

namespace zolt20 {

/// An array of fixed bounds, 0 to `Size` - 1.
template <typename T, std::size_t Size>
class FixedArray {
 public:
  T& operator()(Integer index) { return entries_[Checked(index)]; }
  const T& operator()(Integer index) const { return entries_[Checked(index)]; }

 private:
  static std::size_t Checked(Integer index) {
    if (index < 0 || static_cast<std::size_t>(index.value()) >= Size) Raise(ErrorKind::kSubscript);
    return static_cast<std::size_t>(index.value());
  }

  std::array<T, Size> entries_{};
};

/// An array whose upper bound changes. At the start it is unassigned, which is not the same as
/// empty.
template <typename T>
class DynamicArray {
 public:
  DynamicArray() = default;
  /// An assigned array with these entries.
  explicit DynamicArray(std::vector<T> entries) : assigned_(true), entries_(std::move(entries)) {}

  T& operator()(int index) { return entries_.Write()[Checked(index)]; }
  const T& operator()(int index) const { return (*entries_)[Checked(index)]; }

  /// The last index, -1 for an assigned array that is empty. Raises `subscript` when unassigned.
  int UpperBound() const { return static_cast<int>(Entries().size()) - 1; }

  /// All entries. Raises `subscript` when unassigned.
  const std::vector<T>& Entries() const {
    if (!assigned_) Raise(ErrorKind::kSubscript);
    return *entries_;
  }

  /// Sets the upper bound, keeping what lies within it; new entries are empty. Assigns the array.
  void Resize(Integer upperBound) {
    entries_.Write().resize(static_cast<std::size_t>(upperBound.value()) + 1);
    assigned_ = true;
  }

 private:
  std::size_t Checked(int index) const {
    if (index < 0 || static_cast<std::size_t>(index) >= Entries().size()) {
      Raise(ErrorKind::kSubscript);
    }
    return static_cast<std::size_t>(index);
  }

  bool assigned_ = false;
  Shared<std::vector<T>> entries_;
};

}  // namespace zolt20
