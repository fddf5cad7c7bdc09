// The field records of the catalogue, split and indexed once.
//
// A record is `type*Q*V*R*N*Fname*Q*V*R*N*rest`: a type word, a flag character F directly followed
// by the qualified name, and further text of the host's. Where the logic would walk all records,
// it queries the index here, mostly in a time that grows with the answer alone. A record without a
// separator has no name, and a walk raises `subscript` at it: it is called broken, and the records
// from the first broken one on are out of reach.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "shell/split_list.h"
#include "surface/string.h"

namespace zolt20 {

inline constexpr StringView kSeparator = u"*Q*V*R*N*";

/// A record taken apart; views of the list.
struct FieldRecord {
  StringView type;
  StringView flagAndName;
  StringView rest;
  bool hasRest = false;  ///< whether there is a second separator

  /// The qualified name: table, ".", field.
  StringView Name() const { return flagAndName.empty() ? flagAndName : flagAndName.substr(1); }
};

class FieldRecords {
 public:
  /// The places of records in the list, in ascending order.
  using Places = std::vector<std::uint32_t>;

  /// Records that were never assigned: every query below except List raises `subscript`.
  FieldRecords() = default;
  explicit FieldRecords(Shared<String> list);

  /// The list as one string, "" when unassigned.
  const Shared<String>& List() const;
  std::size_t Count() const;
  /// The record at that place. Raises `subscript` for one out of reach.
  FieldRecord At(std::size_t place) const;

  /// Raises `subscript` when a walk over all records would.
  void RaiseIfBroken() const;
  /// Raises `subscript` when a walk up to the first record whose name stands anywhere in `text`
  /// would.
  void RaiseIfBrokenBeforeNameIn(StringView text) const;

  /// Whether the first record of exactly that name has the flag "Y"; false for a name that no
  /// record has. Raises `subscript` when a walk up to that record would.
  bool IsFlagged(StringView name) const;

  /// The records in reach of which the first 8 characters of the name (all of a shorter one) are
  /// `table`.
  Places OfTable(StringView table) const;
  /// The records in reach whose name stands anywhere in `text`.
  Places WithNameIn(StringView text) const;
  /// The records in reach whose name holds `part`, of 8 characters or less, anywhere. Cached: the
  /// first query for a part walks all records. Valid until the next FindNamesHolding.
  const Places& WithNameHolding(StringView part) const;
  /// Fills the cache of WithNameHolding for all these parts of names in one walk.
  void FindNamesHolding(std::span<const StringView> parts) const;
  /// Whether `text`, of 8 characters, stands anywhere in the list.
  bool Mentions(StringView text) const;

 private:
  struct Index;

  const Index& Assigned() const;

  std::shared_ptr<const Index> index_;
};

}  // namespace zolt20
