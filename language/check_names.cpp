#include "language/check_names.h"

#include <algorithm>

#include "language/line_words.h"
#include "shell/table_key.h"

namespace zolt20::language {
namespace {

bool IsNumber(StringView digits) {
  return digits.find_first_not_of(u"0123456789") == StringView::npos;
}

// An entry of order by without its " desc" or " asc".
StringView WithoutDirection(StringView entry) {
  for (const StringView direction : {StringView(u" desc"), StringView(u" asc")}) {
    if (entry.size() > direction.size() &&
        EqualIgnoringCase(entry.substr(entry.size() - direction.size()), direction))
      return entry.substr(0, entry.size() - direction.size());
  }
  return entry;
}

// Clips a name for a sentence.
StringView Clipped(StringView name) {
  constexpr std::size_t kMostShown = 80;
  return name.substr(0, kMostShown);
}

}  // namespace

NameChecker::NameChecker(StringView text, const Names& names, Findings& findings)
    : text_(text), names_(names), findings_(findings) {
  for (const Names::Table& table : names.Tables())
    tables_.push_back(table.name);
}

bool NameChecker::Knows(StringView name) const {
  if (name.size() <= kTableLength || name[kTableLength] != u'.') return false;
  const Names::Table* const table = names_.Find(name.substr(0, kTableLength));
  return table != nullptr && Names::Has(*table, name.substr(kTableLength + 1));
}

void NameChecker::TakeEntry(std::size_t node, NodeKind list, std::size_t first, std::size_t last) {
  if (list == NodeKind::kFrom) return TakeTable(node, first, last);
  const StringView entry = text_.substr(first, last - first);
  if (Knows(entry) || Knows(WithoutDirection(entry))) return;
  if (entry.find(u'(') != StringView::npos) return TakeText(node, first, last, true);
  // A variable may follow the name.
  const std::size_t end = entry.find_first_of(u" \t\r\n:");
  TakeWord(node, first, end == StringView::npos ? last : first + end, true);
}

// An alias for this statement may follow the name of a table.
void NameChecker::TakeTable(std::size_t node, std::size_t first, std::size_t last) {
  const StringView entry = text_.substr(first, last - first);
  if (names_.Find(entry) != nullptr) return;
  const std::size_t end = std::min(entry.find_first_of(u" \t\r\n"), entry.size());
  if (names_.Find(entry.substr(0, end)) == nullptr) TellTable(node, first, first + end, true);
}

void NameChecker::TakeText(std::size_t node, std::size_t first, std::size_t last, bool isClause) {
  bool isInString = false;
  for (std::size_t at = first; at < last;) {
    const char16_t c = text_[at];
    if (IsLineEnd(c)) isInString = false;
    if (c == u'"') isInString = !isInString;
    if (isInString || !IsWordCharacter(c)) {
      ++at;
      continue;
    }
    std::size_t end = at;
    while (end < last && IsWordCharacter(text_[end]))
      ++end;
    const bool isVariable = at > 0 && text_[at - 1] == u':';
    if (!isVariable) TakeWord(node, at, end, isClause);
    at = end;
  }
}

void NameChecker::TakeWord(std::size_t node, std::size_t first, std::size_t last, bool isClause) {
  const StringView word = text_.substr(first, last - first);
  const std::size_t point = word.find(u'.');
  if (point == StringView::npos || point == 0) return;
  const Names::Table* const table = names_.Find(word.substr(0, point));
  if (table == nullptr) {
    if (!IsNumber(word.substr(0, point)) && (isClause || point == kTableLength))
      TellTable(node, first, first + point, isClause);
    return;
  }
  const std::size_t field = first + point + 1;
  // No field behind the point means "*".
  if (field == last || Names::Has(*table, word.substr(point + 1))) return;
  if (!BeginsOddField(*table, field)) TellField(node, *table, field, last, isClause);
}

bool NameChecker::BeginsOddField(const Names::Table& table, std::size_t place) const {
  return std::any_of(table.oddFields.begin(), table.oddFields.end(),
                     [&](StringView field) { return text_.substr(place).starts_with(field); });
}

void NameChecker::TellTable(std::size_t node, std::size_t first, std::size_t last, bool isClause) {
  Tell(Mistake::unknownTable, node, first, last, {}, tables_, isClause);
}

void NameChecker::TellField(std::size_t node, const Names::Table& table, std::size_t first,
                            std::size_t last, bool isClause) {
  Tell(Mistake::unknownField, node, first, last, table.name, table.fields, isClause);
}

void NameChecker::Tell(Mistake mistake, std::size_t node, std::size_t first, std::size_t last,
                       StringView table, const std::vector<StringView>& list, bool isClause) {
  if (!findings_.HasRoomFor(mistake)) return;
  const StringView name = text_.substr(first, last - first);
  findings_.Add(mistake, node, first, last - first, {{u"name", Clipped(name)}, {u"table", table}});
  Finding& finding = findings_.Last();
  if (!isClause) finding.severity = Severity::kWarning;
  const StringView nearest = finder_.Nearest(name, list);
  if (nearest.empty()) return;
  finding.sentence = Filled(findings_.words()[Word::nearest],
                            {{u"sentence", finding.sentence}, {u"nearest", nearest}});
}

}  // namespace zolt20::language
