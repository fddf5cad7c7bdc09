#include "shell/field_records.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <unordered_map>

namespace zolt20 {
namespace {

constexpr std::size_t kTableLength = 8;
constexpr std::uint32_t kNoPlace = std::numeric_limits<std::uint32_t>::max();

// The first 8 characters of a name, or all of a shorter one.
struct TableKey {
  explicit TableKey(StringView name) : length(std::min(name.size(), kTableLength)) {
    std::copy_n(name.begin(), length, characters.begin());
  }

  friend bool operator==(const TableKey&, const TableKey&) = default;

  std::array<char16_t, kTableLength> characters{};
  std::size_t length;
};

struct TableKeyHash {
  std::size_t operator()(const TableKey& key) const {
    std::array<std::uint64_t, 2> halves{};
    std::memcpy(halves.data(), key.characters.data(), sizeof(halves));
    constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;
    std::uint64_t hash = (halves[0] ^ key.length) * kOdd;
    hash = ((hash ^ (hash >> 32)) + halves[1]) * kOdd;
    return static_cast<std::size_t>(hash ^ (hash >> 29));
  }
};

FieldRecord TakeApart(StringView record, std::size_t firstSeparator) {
  FieldRecord parts;
  parts.type = record.substr(0, firstSeparator);
  const std::size_t start = firstSeparator + kSeparator.size();
  const std::size_t second = record.find(kSeparator, start);
  if (second == StringView::npos) {
    parts.flagAndName = record.substr(start);
    return parts;
  }
  parts.flagAndName = record.substr(start, second - start);
  const std::size_t rest = second + kSeparator.size();
  parts.rest = record.substr(rest, record.find(kSeparator, rest) - rest);
  parts.hasRest = true;
  return parts;
}

// The records of one table as a chain through Index::next.
struct Chain {
  std::uint32_t first;
  std::uint32_t last;
};

}  // namespace

struct FieldRecords::Index {
  SplitList records;
  std::size_t inReach = 0;  // the place of the first broken record, or the number of records
  std::unordered_map<TableKey, Chain, TableKeyHash> tables;
  std::vector<std::uint32_t> next;  // the next record of the same table, or kNoPlace
  std::array<bool, kTableLength + 1> hasKeyOfLength{};
  // Answers to Mentions that took a search of the whole list.
  mutable std::unordered_map<TableKey, bool, TableKeyHash> mentions;

  StringView NameAt(std::size_t place) const {
    const StringView record = records(place);
    return TakeApart(record, record.find(kSeparator)).Name();
  }

  const Chain* Find(StringView key) const {
    const auto found = tables.find(TableKey(key));
    return found == tables.end() ? nullptr : &found->second;
  }
};

FieldRecords::FieldRecords(SharedString list) {
  auto index = std::make_shared<Index>();
  index->records = SplitList(std::move(list));
  const std::size_t count = index->records.Count();
  index->next.assign(count, kNoPlace);
  std::pair<const TableKey, Chain>* table = nullptr;  // that of the record before
  for (; index->inReach < count; ++index->inReach) {
    const StringView record = index->records(index->inReach);
    const std::size_t separator = record.find(kSeparator);
    if (separator == StringView::npos) break;
    const auto place = static_cast<std::uint32_t>(index->inReach);
    const TableKey key(TakeApart(record, separator).Name());
    if (table == nullptr || table->first != key) {
      const auto [entry, isNew] = index->tables.try_emplace(key, Chain{place, place});
      table = &*entry;
      index->hasKeyOfLength[key.length] = true;
      if (isNew) continue;
    }
    index->next[table->second.last] = place;
    table->second.last = place;
  }
  index_ = std::move(index);
}

const SharedString& FieldRecords::List() const {
  static const SharedString kNone;
  return index_ == nullptr ? kNone : index_->records.Text();
}

std::size_t FieldRecords::Count() const {
  return Assigned().records.Count();
}

FieldRecord FieldRecords::At(std::size_t place) const {
  if (place >= Assigned().inReach) Raise(ErrorKind::kSubscript);
  const StringView record = Assigned().records(place);
  return TakeApart(record, record.find(kSeparator));
}

void FieldRecords::RaiseIfBroken() const {
  if (Assigned().inReach < Count()) Raise(ErrorKind::kSubscript);
}

void FieldRecords::RaiseIfBrokenBeforeNameIn(StringView text) const {
  if (Assigned().inReach < Count() && WithNameIn(text).empty()) Raise(ErrorKind::kSubscript);
}

bool FieldRecords::IsFlagged(StringView name) const {
  for (const std::uint32_t place : OfTable(name.substr(0, kTableLength))) {
    const FieldRecord record = At(place);
    if (record.Name() == name) return record.flagAndName.starts_with(u'Y');
  }
  RaiseIfBroken();
  return false;
}

FieldRecords::Places FieldRecords::OfTable(StringView table) const {
  const Index& index = Assigned();
  Places places;
  if (const Chain* chain = index.Find(table)) {
    for (std::uint32_t place = chain->first; place != kNoPlace; place = index.next[place]) {
      places.push_back(place);
    }
  }
  return places;
}

FieldRecords::Places FieldRecords::WithNameIn(StringView text) const {
  const Index& index = Assigned();
  Places places;
  for (std::size_t start = 0; start <= text.size(); ++start) {
    const StringView rest = text.substr(start);
    for (std::size_t length = 0; length <= std::min(kTableLength, rest.size()); ++length) {
      if (!index.hasKeyOfLength[length]) continue;
      const Chain* chain = index.Find(rest.substr(0, length));
      if (chain == nullptr) continue;
      for (std::uint32_t place = chain->first; place != kNoPlace; place = index.next[place]) {
        if (length < kTableLength || rest.starts_with(index.NameAt(place))) places.push_back(place);
      }
    }
  }
  std::sort(places.begin(), places.end());
  places.erase(std::unique(places.begin(), places.end()), places.end());
  return places;
}

FieldRecords::Places FieldRecords::WithNameHolding(StringView part) const {
  const Index& index = Assigned();
  Places places;
  for (std::size_t place = 0; place < index.inReach; ++place) {
    if (Holds(index.NameAt(place), part)) places.push_back(static_cast<std::uint32_t>(place));
  }
  return places;
}

bool FieldRecords::Mentions(StringView text) const {
  const Index& index = Assigned();
  if (index.Find(text) != nullptr) return true;
  const auto [answer, isNew] = index.mentions.try_emplace(TableKey(text), false);
  if (isNew) answer->second = Holds(index.records.Text().Text(), text);
  return answer->second;
}

const FieldRecords::Index& FieldRecords::Assigned() const {
  if (index_ == nullptr) Raise(ErrorKind::kSubscript);
  return *index_;
}

}  // namespace zolt20
