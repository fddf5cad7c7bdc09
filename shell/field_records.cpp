#include "shell/field_records.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <unordered_map>

#include "shell/table_chains.h"

namespace zolt20 {
namespace {

constexpr std::uint32_t kNoPlace = TableChains::kNone;

std::size_t FindSeparator(StringView text, std::size_t from = 0) {
  std::size_t at = text.find(kSeparator.front(), from);
  while (at != StringView::npos && !text.substr(at).starts_with(kSeparator))
    at = text.find(kSeparator.front(), at + 1);
  return at;
}

// What a record has behind its first separator.
StringView BehindType(StringView record) {
  return record.substr(FindSeparator(record) + kSeparator.size());
}

// The name at the beginning of that.
StringView NameIn(StringView behindType) {
  const StringView flagAndName = behindType.substr(0, FindSeparator(behindType));
  return flagAndName.substr(std::min<std::size_t>(1, flagAndName.size()));
}

FieldRecord TakeApart(StringView record, std::size_t firstSeparator) {
  FieldRecord parts;
  parts.type = record.substr(0, firstSeparator);
  const std::size_t start = firstSeparator + kSeparator.size();
  const std::size_t second = FindSeparator(record, start);
  if (second == StringView::npos) {
    parts.flagAndName = record.substr(start);
    return parts;
  }
  parts.flagAndName = record.substr(start, second - start);
  const std::size_t rest = second + kSeparator.size();
  parts.rest = record.substr(rest, FindSeparator(record, rest) - rest);
  parts.hasRest = true;
  return parts;
}

// The key of a record's table, the first characters of its name. Fast path: the record is split
// only if a separator, and so the end of the name, may come within these characters.
TableKey TableOf(StringView record, std::size_t firstSeparator) {
  const StringView flagAndTable =
      record.substr(firstSeparator + kSeparator.size()).substr(0, 1 + kTableLength);
  if (flagAndTable.find(kSeparator.front()) != StringView::npos)
    return TableKey(TakeApart(record, firstSeparator).Name());
  return TableKey(flagAndTable.substr(std::min<std::size_t>(1, flagAndTable.size())));
}

}  // namespace

struct FieldRecords::Index {
  SplitList records;
  std::size_t inReach = 0;  // the place of the first broken record, or the number of records
  TableChains tables;
  // A cache: answers of Mentions that took a search of the whole list.
  mutable std::unordered_map<TableKey, bool, TableKeyHash> mentions;
  // A cache: answers of WithNameHolding.
  mutable std::unordered_map<TableKey, Places, TableKeyHash> holding;

  StringView NameAt(std::size_t place) const { return NameIn(BehindType(records(place))); }

  Places OfTable(const TableKey& table) const {
    Places places;
    for (std::uint32_t place = tables.First(table); place != kNoPlace; place = tables.Next(place))
      places.push_back(place);
    return places;
  }

  // The first record of a table, or kNoPlace.
  std::uint32_t First(StringView table) const { return tables.First(TableKey(table)); }
};

FieldRecords::FieldRecords(Shared<String> list) {
  auto index = std::make_shared<Index>();
  bool isBroken = false;
  index->records = SplitList(std::move(list), [&](StringView record) {
    const std::size_t separator = isBroken ? StringView::npos : FindSeparator(record);
    isBroken = separator == StringView::npos;
    if (isBroken) return;
    index->tables.Add(TableOf(record, separator));
    ++index->inReach;
  });
  index_ = std::move(index);
}

const Shared<String>& FieldRecords::List() const {
  static const Shared<String> kNone;
  return index_ == nullptr ? kNone : index_->records.Text();
}

std::size_t FieldRecords::Count() const {
  return Assigned().records.Count();
}

FieldRecord FieldRecords::At(std::size_t place) const {
  if (place >= Assigned().inReach) Raise(ErrorKind::kSubscript);
  const StringView record = Assigned().records(place);
  return TakeApart(record, FindSeparator(record));
}

void FieldRecords::RaiseIfBroken() const {
  if (Assigned().inReach < Count()) Raise(ErrorKind::kSubscript);
}

void FieldRecords::RaiseIfBrokenBeforeNameIn(StringView text) const {
  if (Assigned().inReach < Count() && WithNameIn(text).empty()) Raise(ErrorKind::kSubscript);
}

bool FieldRecords::IsFlagged(StringView name) const {
  const Index& index = Assigned();
  std::uint32_t place = index.First(name.substr(0, kTableLength));
  for (; place != kNoPlace; place = index.tables.Next(place)) {
    const StringView record = index.records(place);
    const std::size_t separator = FindSeparator(record);
    // A prefix test first, which is faster than to find where the record's name ends.
    const StringView flagged = record.substr(separator + kSeparator.size());
    if (!flagged.substr(std::min<std::size_t>(1, flagged.size())).starts_with(name)) continue;
    const FieldRecord parts = TakeApart(record, separator);
    if (parts.Name() == name) return parts.flagAndName.starts_with(u'Y');
  }
  RaiseIfBroken();
  return false;
}

FieldRecords::Places FieldRecords::OfTable(StringView table) const {
  return Assigned().OfTable(TableKey(table));
}

FieldRecords::Places FieldRecords::WithNameIn(StringView text) const {
  const Index& index = Assigned();
  Places places;
  for (std::size_t start = 0; start <= text.size(); ++start) {
    const StringView rest = text.substr(start);
    for (std::size_t length = 0; length <= std::min(kTableLength, rest.size()); ++length) {
      if (!index.tables.HasKeyOfLength(length)) continue;
      std::uint32_t place = index.First(rest.substr(0, length));
      for (; place != kNoPlace; place = index.tables.Next(place)) {
        if (length < kTableLength || rest.starts_with(index.NameAt(place))) places.push_back(place);
      }
    }
  }
  std::sort(places.begin(), places.end());
  places.erase(std::unique(places.begin(), places.end()), places.end());
  return places;
}

const FieldRecords::Places& FieldRecords::WithNameHolding(StringView part) const {
  const auto known = Assigned().holding.find(TableKey(part));
  if (known != Assigned().holding.end()) return known->second;
  FindNamesHolding({&part, 1});
  return Assigned().holding.at(TableKey(part));
}

void FieldRecords::FindNamesHolding(std::span<const StringView> parts) const {
  const Index& index = Assigned();
  constexpr std::size_t kMostAnswers = 10'000;
  if (index.holding.size() + parts.size() > kMostAnswers) index.holding.clear();

  // Substrings of each name are looked up among the parts of 8 characters in a hash table; the few
  // shorter parts are searched for one by one.
  TableFilter wanted(parts.size());
  std::vector<bool> isInAPart(std::numeric_limits<char16_t>::max() + 1U);
  std::unordered_map<TableKey, Places, TableKeyHash> found;
  std::vector<StringView> shortParts;
  for (const StringView part : parts) {
    if (index.holding.count(TableKey(part)) != 0) continue;
    const bool isNew = found.try_emplace(TableKey(part)).second;
    if (!isNew) continue;
    if (part.size() < kTableLength) {
      shortParts.push_back(part);
    } else {
      wanted.Add(TableKey(part));
      for (const char16_t character : part)
        isInAPart[character] = true;
    }
  }
  if (found.empty()) return;

  // Skips most names: a part that does not stand at the beginning of a name covers one of its
  // places 8, 16 and so on, counted from 0, where most names have no character of any part. To see
  // that takes no search for the end of the name.
  const auto add = [](Places& places, std::size_t place) {
    const auto last = static_cast<std::uint32_t>(place);
    if (places.empty() || places.back() != last) places.push_back(last);
  };
  for (std::size_t place = 0; place < index.inReach; ++place) {
    const StringView behindType = BehindType(index.records(place));
    std::size_t covered = 1 + kTableLength;  // the first place with such a character
    while (covered < behindType.size() && !isInAPart[behindType[covered]])
      covered += kTableLength;
    if (covered >= behindType.size() && shortParts.empty()) continue;
    const StringView name = NameIn(behindType);
    const bool mayHold = covered <= name.size();  // it does not stand behind the name
    for (std::size_t at = 1; mayHold && at + kTableLength <= name.size(); ++at) {
      const TableKey key(name.substr(at, kTableLength));
      if (!wanted.MayHold(key)) continue;
      if (const auto entry = found.find(key); entry != found.end()) add(entry->second, place);
    }
    for (const StringView part : shortParts) {
      if (Holds(name, part)) add(found.at(TableKey(part)), place);
    }
  }
  // Names that begin with a part are the records of a table: the index has them.
  for (auto& [part, places] : found) {
    if (part.length < kTableLength) continue;
    Places all;
    const Places beginning = index.OfTable(part);
    std::set_union(places.begin(), places.end(), beginning.begin(), beginning.end(),
                   std::back_inserter(all));
    places = std::move(all);
  }
  index.holding.merge(found);
}

bool FieldRecords::Mentions(StringView text) const {
  const Index& index = Assigned();
  if (index.First(text) != kNoPlace) return true;
  const auto [answer, isNew] = index.mentions.try_emplace(TableKey(text), false);
  if (isNew) answer->second = Holds(*index.records.Text(), text);
  return answer->second;
}

const FieldRecords::Index& FieldRecords::Assigned() const {
  if (index_ == nullptr) Raise(ErrorKind::kSubscript);
  return *index_;
}

}  // namespace zolt20
