#include "language/names.h"

#include <algorithm>
#include <array>

#include "language/line_words.h"
#include "shell/field_records.h"
#include "shell/table_key.h"

namespace zolt20::language {
namespace {

constexpr std::size_t kLongestCompared = 64;
constexpr StringView kIndex = u"_index";

bool IsOdd(StringView field) {
  return !std::all_of(field.begin(), field.end(), IsWordCharacter);
}

// The number at the start of a text, of five digits at most, which is enough for indexes.
std::size_t NumberIn(StringView digits) {
  std::size_t number = 0;
  for (const char16_t digit : digits.substr(0, 5)) {
    if (digit < u'0' || digit > u'9') break;
    number = 10 * number + static_cast<std::size_t>(digit - u'0');
  }
  return number;
}

}  // namespace

Names::Names(StringView tables, StringView fields) : tableList_(tables), fieldList_(fields) {
  for (const StringView entry : Split(tableList_, u",")) {
    if (entry.size() < kTableLength) continue;
    Table table;
    table.name = entry.substr(0, kTableLength);
    table.indexes = NumberIn(entry.substr(kTableLength));
    if (places_.emplace(table.name, tables_.size()).second) tables_.push_back(std::move(table));
  }
  for (const StringView record : Split(fieldList_, u",")) {
    const std::vector<StringView> pieces = Split(record, kSeparator);
    // A flag, the table, a point, and at least one character.
    if (pieces.size() < 2 || pieces[1].size() < kTableLength + 3) continue;
    const auto place = places_.find(pieces[1].substr(1, kTableLength));
    if (place == places_.end()) continue;
    Table& table = tables_[place->second];
    const StringView field = pieces[1].substr(kTableLength + 2);
    if (!table.known.insert(field).second) continue;
    // Trailing blanks are invisible at the end of a line, so the trimmed name is known too.
    table.known.insert(Trim(field));
    table.fields.push_back(field);
    if (IsOdd(field)) table.oddFields.push_back(field);
  }
}

const Names::Table* Names::Find(StringView table) const {
  const auto place = places_.find(table);
  return place == places_.end() ? nullptr : &tables_[place->second];
}

bool Names::Has(const Table& table, StringView field) {
  if (field == u"*" || table.known.count(field) != 0) return true;
  if (!field.starts_with(kIndex)) return false;
  const std::size_t index = NumberIn(field.substr(kIndex.size()));
  return index > 0 && index <= table.indexes;
}

std::size_t EditDistance(StringView a, StringView b, std::size_t limit) {
  const std::size_t longer = std::max(a.size(), b.size());
  if (longer > kLongestCompared || longer - std::min(a.size(), b.size()) >= limit) return limit;
  // Dynamic programming: the rows for the character of `a`, for the one before and for the one
  // before that.
  using Row = std::array<std::size_t, kLongestCompared + 1>;
  Row beforeLast{};
  Row last{};
  Row row{};
  for (std::size_t j = 0; j <= b.size(); ++j)
    row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    beforeLast = last;
    last = row;
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const auto same = [&](std::size_t x, std::size_t y) {
        return LowerCase(a[x - 1]) == LowerCase(b[y - 1]);
      };
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (same(i, j) ? 0 : 1)});
      if (i > 1 && j > 1 && same(i, j - 1) && same(i - 1, j))
        row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
  }
  return std::min(row[b.size()], limit);
}

StringView NearestFinder::Nearest(StringView name, const std::vector<StringView>& list) {
  StringView nearest;
  std::size_t limit = std::max<std::size_t>(1, name.size() / 2) + 1;
  for (const StringView each : list) {
    if (comparisonsLeft_ == 0) break;
    --comparisonsLeft_;
    const std::size_t distance = EditDistance(name, each, limit);
    if (distance == limit) continue;
    nearest = each;
    limit = distance;
  }
  return nearest;
}

}  // namespace zolt20::language
