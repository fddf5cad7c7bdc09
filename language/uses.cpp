#include "language/uses.h"

#include <algorithm>
#include <array>
#include <utility>

#include "language/line_words.h"
#include "language/list_entries.h"
#include "shell/table_key.h"

namespace zolt20::language {
namespace {

constexpr StringView kIndexPrefix = u"_index";

bool IsIndex(StringView name) {
  return name.starts_with(kIndexPrefix) && name.size() > kIndexPrefix.size() &&
         name.find_first_not_of(u"0123456789", kIndexPrefix.size()) == StringView::npos;
}

// Whether the word is a keyword that may stand before "(" without being a function; case is
// ignored.
bool IsReserved(StringView word) {
  constexpr std::array<StringView, 14> kWords{u"and",    u"or",      u"not",  u"in",    u"exists",
                                              u"like",   u"between", u"if",   u"while", u"until",
                                              u"select", u"from",    u"then", u"where"};
  return std::any_of(kWords.begin(), kWords.end(),
                     [word](StringView each) { return EqualIgnoringCase(word, each); });
}

bool IsAggregate(StringView word) {
  constexpr std::array<StringView, 5> kWords{u"avg", u"sum", u"min", u"max", u"count"};
  return std::any_of(kWords.begin(), kWords.end(),
                     [word](StringView each) { return EqualIgnoringCase(word, each); });
}

class Finder {
 public:
  Finder(StringView text, const std::vector<Node>& nodes, const Names* names, bool withVariables)
      : text_(text), nodes_(nodes), names_(names), withVariables_(withVariables) {}

  std::vector<Use> Find() {
    for (std::size_t index = 0; index < nodes_.size(); ++index) {
      const Node& node = nodes_[index];
      if (!IsLeaf(nodes_, index)) continue;
      node_ = static_cast<std::uint32_t>(index);
      place_ = PlaceOf(node);
      if (node.kind == NodeKind::kFrom) {
        ReadTables(node);
      } else {
        Read(node.first, node.last);
      }
    }
    PutLines();
    return std::move(uses_);
  }

 private:
  static bool IsClause(NodeKind kind) {
    return kind >= NodeKind::kSelectList && kind <= NodeKind::kRowLimit;
  }

  UsePlace PlaceOf(const Node& node) const {
    if (IsClause(node.kind) || node.kind == NodeKind::kMore) return UsePlace::kClause;
    if (node.kind == NodeKind::kHead && IsClause(nodes_[node.parent].kind))
      return UsePlace::kClause;
    return node.kind == NodeKind::kStatement ? UsePlace::kStatement : UsePlace::kHead;
  }

  // An alias for this statement may follow the name of a table.
  void ReadTables(const Node& node) {
    const std::size_t word = node.headFirst + StartOf(HeadOf(text_, node)).length;
    for (const ListEntry& entry : EntriesOf(text_, word, node.last)) {
      const StringView all = text_.substr(entry.first, entry.last - entry.first);
      const bool isWhole = names_ != nullptr && names_->Find(all) != nullptr;
      const StringView table =
          isWhole ? all : all.substr(0, std::min(all.find_first_of(u" \t\r\n"), all.size()));
      if (!table.empty()) Add(UseKind::kTable, entry.first, table.size(), table, {});
    }
  }

  void Read(std::size_t first, std::size_t last) {
    bool isInString = false;
    for (std::size_t at = first; at < last;) {
      const char16_t c = text_[at];
      if (IsLineEnd(c)) isInString = false;
      if (c == u'"') isInString = !isInString;
      if (!IsWordCharacter(c)) {
        ++at;
        continue;
      }
      std::size_t end = at;
      while (end < last && IsWordCharacter(text_[end]))
        ++end;
      const bool isVariable = at > 0 && text_[at - 1] == u':';
      if (!isVariable) {
        at = ReadWord(at, end, isInString);
      } else {
        at = withVariables_ ? ReadVariable(at, end, isInString) : end;
      }
    }
  }

  // Reads "var.sum." and a name. Gives the place behind them.
  std::size_t ReadVariable(std::size_t first, std::size_t last, bool isInString) {
    constexpr StringView kVar = u"var.";
    const StringView word = text_.substr(first, last - first);
    const std::size_t point = word.find(u'.', std::min(kVar.size(), word.size()));
    if (point == StringView::npos || !EqualIgnoringCase(word.substr(0, kVar.size()), kVar) ||
        !IsAggregate(word.substr(kVar.size(), point - kVar.size())))
      return last;
    const std::size_t begin = first + point + 1;
    const std::size_t behind = begin + kTableLength;
    if (behind > last && (names_ == nullptr || behind > text_.size() ||
                          names_->Find(text_.substr(begin, kTableLength)) == nullptr))
      return last;
    const StringView table = text_.substr(begin, kTableLength);
    const bool hasField = behind < text_.size() && text_[behind] == u'.';
    if (!hasField && behind < text_.size() && IsWordCharacter(text_[behind])) return last;
    std::size_t end = hasField ? behind + 1 : behind;
    while (hasField && end < text_.size() && IsWordCharacter(text_[end]))
      ++end;
    if (hasField) end = std::max(end, BehindOddField(table, behind + 1));
    const UsePlace around = std::exchange(place_, isInString ? UsePlace::kString : place_);
    Add(UseKind::kVariable, begin, end - begin, table,
        hasField ? text_.substr(behind + 1, end - behind - 1) : StringView());
    place_ = around;
    return end;
  }

  // Reads a word, or the name that it begins. Gives the place behind it.
  std::size_t ReadWord(std::size_t first, std::size_t last, bool isInString) {
    const StringView word = text_.substr(first, last - first);
    const UsePlace around = std::exchange(place_, isInString ? UsePlace::kString : place_);
    std::size_t end = last;
    const std::size_t point = word.find(u'.');
    const std::size_t table =
        point == StringView::npos ? point : BeginOfTable(first, first + point);
    if (table != StringView::npos) {
      end = ReadName(table, first + point, last);
    } else if (!isInString && last < text_.size() && text_[last] == u'(' && !IsReserved(word)) {
      Add(UseKind::kFunction, first, word.size(), {}, word);
    }
    place_ = around;
    return end;
  }

  // The start of the table's name before the point; npos for none. The word before the point begins
  // at `first`; a name of the catalogue begins further left where it has blanks. A word of 8
  // characters that is no number counts as a table's name even if the catalogue lacks it.
  std::size_t BeginOfTable(std::size_t first, std::size_t point) const {
    if (names_ != nullptr && point >= kTableLength) {
      const std::size_t begin = point - kTableLength;
      const bool isWithinAWord =
          begin > 0 && IsWordCharacter(text_[begin - 1]) && IsWordCharacter(text_[begin]);
      if (!isWithinAWord && names_->Find(text_.substr(begin, kTableLength)) != nullptr)
        return begin;
    }
    const StringView word = text_.substr(first, point - first);
    const bool isNumber = word.find_first_not_of(u"0123456789") == StringView::npos;
    return word.size() == kTableLength && !isNumber ? first : StringView::npos;
  }

  // Reads a table, a point, and the name behind it.
  std::size_t ReadName(std::size_t first, std::size_t point, std::size_t last) {
    const StringView table = text_.substr(first, point - first);
    const std::size_t end = std::max(last, BehindOddField(table, point + 1));
    const StringView name = text_.substr(point + 1, end - point - 1);
    const UseKind kind = name.empty()    ? UseKind::kTable
                         : IsIndex(name) ? UseKind::kIndex
                                         : UseKind::kField;
    Add(kind, first, name.empty() ? table.size() : end - first, table, name);
    return end;
  }

  // The end of a field whose name goes on behind the word, without trailing blanks.
  std::size_t BehindOddField(StringView table, std::size_t at) const {
    const Names::Table* const known = names_ == nullptr ? nullptr : names_->Find(table);
    std::size_t behind = at;
    if (known == nullptr) return behind;
    for (const StringView odd : known->oddFields) {
      const StringView field = Trim(odd);
      if (text_.substr(at).starts_with(field)) behind = std::max(behind, at + field.size());
    }
    return behind;
  }

  void Add(UseKind kind, std::size_t first, std::size_t length, StringView table, StringView name) {
    Use use;
    use.first = first;
    use.length = length;
    use.node = node_;
    use.kind = kind;
    use.place = place_;
    use.table = table;
    use.name = name;
    uses_.push_back(use);
  }

  void PutLines() {
    std::size_t line = 1;
    std::size_t begin = 0;
    for (Use& use : uses_) {
      for (std::size_t end = EndOfLine(text_, begin); end < use.first;
           end = EndOfLine(text_, begin)) {
        begin = BehindLineEnd(text_, end);
        ++line;
      }
      use.line = line;
      use.column = use.first - begin + 1;
    }
  }

  StringView text_;
  const std::vector<Node>& nodes_;
  const Names* names_;
  bool withVariables_;
  std::vector<Use> uses_;
  std::uint32_t node_ = 0;
  UsePlace place_ = UsePlace::kClause;
};

String Joined(StringView table, StringView name) {
  String joined(table);
  if (!name.empty()) joined += u'.';
  joined += name;
  return joined;
}

}  // namespace

std::vector<Use> UsesIn(StringView text, const Names* names) {
  return UsesIn(text, ReadOutline(text), names);
}

std::vector<Use> UsesIn(StringView text, const std::vector<Node>& nodes, const Names* names) {
  return Finder(text, nodes, names, false).Find();
}

std::vector<Use> UsesAndVariablesIn(StringView text, const std::vector<Node>& nodes,
                                    const Names* names) {
  return Finder(text, nodes, names, true).Find();
}

bool IsMissing(const Use& use, const Names& names) {
  if (use.kind == UseKind::kFunction || use.place == UsePlace::kString) return false;
  const Names::Table* const table = names.Find(use.table);
  return table == nullptr || (!use.name.empty() && !Names::Has(*table, use.name));
}

String RenamedUse(const Use& use, const Renames& renames) {
  if (use.kind == UseKind::kFunction) return {};
  if (const auto field = renames.find(Joined(use.table, use.name)); field != renames.end())
    return field->second;
  const auto table = renames.find(use.table);
  return table == renames.end() ? String() : Joined(table->second, use.name);
}

String Renamed(StringView text, std::span<const Use> uses, const Renames& renames) {
  String result;
  result.reserve(text.size());
  std::size_t copied = 0;
  for (const Use& use : uses) {
    const String name = RenamedUse(use, renames);
    if (name.empty()) continue;
    result += text.substr(copied, use.first - copied);
    result += name;
    copied = use.first + use.length;
  }
  result += text.substr(copied);
  return result;
}

const char* NameOf(UseKind kind) {
  constexpr std::array<const char*, 5> kNames{"table", "field", "index", "function", "variable"};
  return kNames[static_cast<std::size_t>(kind)];
}

const char* NameOf(UsePlace place) {
  constexpr std::array<const char*, 4> kNames{"clause", "head", "statement", "string"};
  return kNames[static_cast<std::size_t>(place)];
}

}  // namespace zolt20::language
