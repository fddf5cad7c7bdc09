#include "shell/table_chains.h"

#include <utility>

namespace zolt20 {

void TableChains::Add(const TableKey& table) {
  if (3 * tables_ >= 2 * slots_.size()) Grow();
  const auto place = static_cast<std::uint32_t>(next_.size());
  next_.push_back(kNone);
  // Records of one table mostly stand together, so the slot of the last record is tried first.
  if (slots_[lastSlot_].first == kNone || !(slots_[lastSlot_].table == table))
    lastSlot_ = SlotOf(table);
  Slot& slot = slots_[lastSlot_];
  if (slot.first == kNone) {
    slot = {table, place, place};
    ++tables_;
    hasKeyOfLength_[table.length] = true;
    return;
  }
  next_[slot.last] = place;
  slot.last = place;
}

std::uint32_t TableChains::First(const TableKey& table) const {
  return slots_.empty() ? kNone : slots_[SlotOf(table)].first;
}

std::size_t TableChains::SlotOf(const TableKey& table) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = TableKeyHash()(table) & mask;
  while (slots_[at].first != kNone && !(slots_[at].table == table))
    at = (at + 1) & mask;
  return at;
}

void TableChains::Grow() {
  constexpr std::size_t kLeast = 16;
  std::vector<Slot> before(slots_.empty() ? kLeast : 2 * slots_.size());
  before.swap(slots_);
  for (const Slot& slot : before) {
    if (slot.first != kNone) slots_[SlotOf(slot.table)] = slot;
  }
  lastSlot_ = 0;
}

}  // namespace zolt20
