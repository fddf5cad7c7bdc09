// The records of a list by their tables: for each table the places of its records, as a chain.
//
// A hash table with open addressing: a slot of 32 bytes per table, so that adding a record costs
// one cache miss where the tables no longer fit into the nearest cache; and 4 bytes per record.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "shell/table_key.h"

namespace zolt20 {

class TableChains {
 public:
  static constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

  /// Appends a record of this table. Its place is the number of records before it, of all tables.
  void Add(const TableKey& table);

  /// The place of the first record of a table, kNone where there is none.
  std::uint32_t First(const TableKey& table) const;
  /// The place of the next record of the same table, kNone behind the last one.
  std::uint32_t Next(std::uint32_t place) const { return next_[place]; }
  /// Whether the key of any table has this length, from 0 to 8.
  bool HasKeyOfLength(std::size_t length) const { return hasKeyOfLength_[length]; }

 private:
  struct Slot {
    TableKey table{StringView()};
    std::uint32_t first = kNone;
    std::uint32_t last = kNone;
  };

  // The slot of the table, or the free slot where linear probing would put it.
  std::size_t SlotOf(const TableKey& table) const;
  void Grow();

  std::vector<Slot> slots_;  // a power of two; grows once two thirds are taken
  std::size_t tables_ = 0;
  std::size_t lastSlot_ = 0;  // of the record added last
  std::vector<std::uint32_t> next_;
  std::array<bool, kTableLength + 1> hasKeyOfLength_{};
};

}  // namespace zolt20
