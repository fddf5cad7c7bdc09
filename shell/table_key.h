// What tells one table from another in lists of names: the first 8 characters, or all of a shorter
// name.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "surface/string.h"

namespace zolt20 {

inline constexpr std::size_t kTableLength = 8;

struct TableKey {
  explicit TableKey(StringView name) : length(std::min(name.size(), kTableLength)) {
    // Most names have 8 characters or more, and copying a constant size is one move.
    if (length == kTableLength) {
      std::memcpy(halves.data(), name.data(), sizeof(halves));
    } else if (length > 0) {
      std::memcpy(halves.data(), name.data(), length * sizeof(char16_t));
    }
  }

  friend bool operator==(const TableKey& a, const TableKey& b) {
    return a.halves[0] == b.halves[0] && a.halves[1] == b.halves[1] && a.length == b.length;
  }

  std::array<std::uint64_t, 2> halves{};  // the characters; a short name is padded with zeros
  std::size_t length;
};

struct TableKeyHash {
  std::size_t operator()(const TableKey& key) const {
    constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;
    std::uint64_t hash = (key.halves[0] ^ key.length) * kOdd;
    hash = ((hash ^ (hash >> 32)) + key.halves[1]) * kOdd;
    // Multiplication carries upwards only: without the shift the last characters would change the
    // upper bits alone.
    hash = (hash ^ (hash >> 32)) * kOdd;
    return static_cast<std::size_t>(hash ^ (hash >> 29));
  }
};

/// A Bloom filter with one hash: rarely a false positive, never a false negative. It fits into the
/// processor's cache where the tables themselves do not.
class TableFilter {
 public:
  /// Sized for about so many tables.
  explicit TableFilter(std::size_t tables) {
    constexpr std::size_t kBitsOfTable = 16;
    std::size_t bits = 64;
    while (bits < tables * kBitsOfTable)
      bits *= 2;
    bits_.resize(bits);
  }

  void Add(const TableKey& key) { bits_[PlaceOf(key)] = true; }
  bool MayHold(const TableKey& key) const { return bits_[PlaceOf(key)]; }

 private:
  std::size_t PlaceOf(const TableKey& key) const {
    return TableKeyHash()(key) & (bits_.size() - 1);
  }

  std::vector<bool> bits_;
};

}  // namespace zolt20
