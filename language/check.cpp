#include "language/check.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <unordered_map>

#include "language/check_marks.h"
#include "language/check_names.h"
#include "language/findings.h"
#include "language/line_words.h"
#include "language/list_entries.h"

namespace zolt20::language {
namespace {

constexpr std::size_t kMostInBox = 32'767;

bool IsList(NodeKind kind) {
  return kind == NodeKind::kSelectList || kind == NodeKind::kFrom || kind == NodeKind::kGroupBy ||
         kind == NodeKind::kOrderBy;
}

bool IsBlock(NodeKind kind) {
  return kind >= NodeKind::kSelectDo && kind <= NodeKind::kSelectError;
}

StringView EndOf(NodeKind kind) {
  switch (kind) {
    case NodeKind::kSelect:
      return u"endselect";
    case NodeKind::kIf:
      return u"endif";
    case NodeKind::kFor:
      return u"endfor";
    case NodeKind::kWhile:
      return u"endwhile";
    case NodeKind::kRepeat:
      return u"until";
    default:
      return u"endcase";
  }
}

Word WhyIncomplete(NodeKind kind) {
  switch (kind) {
    case NodeKind::kIf:
      return Word::ifIncomplete;
    case NodeKind::kFor:
      return Word::forIncomplete;
    case NodeKind::kWhile:
    case NodeKind::kRepeat:
      return Word::conditionIncomplete;
    case NodeKind::kOnCase:
      return Word::onCaseIncomplete;
    case NodeKind::kCaseRow:
      return Word::rowIncomplete;
    default:
      return Word::incomplete;
  }
}

Word WhyOutOfPlace(LineWord word) {
  switch (word) {
    case LineWord::kNone:
      return Word::lineOutOfPlace;
    case LineWord::kElse:
      return Word::elseOutOfPlace;
    case LineWord::kCase:
    case LineWord::kDefault:
      return Word::rowOutOfPlace;
    default:
      return Word::outOfPlace;
  }
}

bool IsAggregate(StringView entry) {
  const std::size_t bracket = entry.find(u'(');
  if (bracket == StringView::npos) return false;
  const StringView word = Trim(entry.substr(0, bracket));
  constexpr std::array<StringView, 5> kAggregates{u"avg", u"sum", u"min", u"max", u"count"};
  return std::any_of(kAggregates.begin(), kAggregates.end(),
                     [word](StringView each) { return EqualIgnoringCase(word, each); });
}

// Whether an entry is a field, and no function, number, text or variable.
bool IsPlainField(StringView entry) {
  constexpr StringView kNumber = u"0123456789.";
  return !entry.empty() && IsWordCharacter(entry[0]) &&
         entry.find_first_not_of(kNumber) != StringView::npos &&
         entry.find(u'(') == StringView::npos && entry.find(u'.') != StringView::npos;
}

class Checker {
 public:
  Checker(StringView text, const std::vector<Node>& nodes, const Names* names, const Words& words)
      : text_(text), nodes_(nodes), findings_(text, words), marks_(text, nodes, findings_) {
    if (names != nullptr) names_.emplace(text, *names, findings_);
  }

  std::vector<Finding> Check() {
    for (std::size_t index = 0; index < nodes_.size(); ++index)
      Take(index);
    marks_.Finish();
    return findings_.Take();
  }

 private:
  void Take(std::size_t index) {
    const Node& node = nodes_[index];
    if (node.problem != Problem::kNone) TellProblem(index);
    marks_.Take(index);
    if (IsList(node.kind)) {
      CheckList(index);
    } else if (names_ && IsLeaf(nodes_, index)) {
      names_->TakeText(index, node.first, node.last, IsCondition(node));
    }
    if (node.kind == NodeKind::kRowLimit) CheckRowLimit(index);
    if (node.kind == NodeKind::kWhere) CheckWhere(index);
    if (node.kind == NodeKind::kEnd) CheckBehindEnd(index);
    if (IsBlock(node.kind)) CheckBlock(index);
  }

  // Whether a node is a where clause, or a piece of one before or behind a nested select statement.
  bool IsCondition(const Node& node) const {
    if (node.kind == NodeKind::kWhere || node.kind == NodeKind::kMore) return true;
    return node.kind == NodeKind::kHead && nodes_[node.parent].kind == NodeKind::kWhere;
  }

  void TellProblem(std::size_t index) {
    const Node& node = nodes_[index];
    const StringView head = HeadOf(text_, node);
    const LineStart start = StartOf(head);
    const auto tell = [&](Mistake mistake, Word sentence, Findings::Values values) {
      findings_.Add(mistake, sentence, index, node.headFirst, head.size(), values);
    };
    if (node.problem == Problem::kNotClosed) {
      tell(Mistake::notClosed, Word::notClosed, {{u"end", EndOf(node.kind)}});
    } else if (node.problem == Problem::kNothingToClose) {
      tell(Mistake::nothingToClose, Word::nothingToClose,
           {{u"word", head.substr(0, start.length)}});
    } else if (node.problem == Problem::kOutOfPlace) {
      tell(Mistake::outOfPlace, WhyOutOfPlace(start.word), {});
    } else {
      const bool isPart = node.kind == NodeKind::kHead || node.kind == NodeKind::kEnd;
      tell(Mistake::incomplete, WhyIncomplete(isPart ? nodes_[node.parent].kind : node.kind), {});
    }
  }

  // The text behind the keyword of a clause that is a leaf, trimmed.
  ListEntry ContentOf(const Node& node) const {
    return WithoutBlankEnds(text_, BehindWordOf(node), node.last);
  }

  std::size_t BehindWordOf(const Node& node) const {
    return node.headFirst + StartOf(HeadOf(text_, node)).length;
  }

  // Lists.

  void CheckList(std::size_t index) {
    const Node& node = nodes_[index];
    const ListEntry content = ContentOf(node);
    if (content.first == content.last) return;
    const std::vector<ListEntry> entries = EntriesOf(text_, content.first, content.last);
    for (const ListEntry& entry : entries) {
      if (entry.first == entry.last) {
        // The finding of an empty entry is at the comma behind it, or else at the one before.
        const std::size_t comma = entry.last < content.last ? entry.last : content.last - 1;
        findings_.Add(Mistake::emptyEntry, index, comma, 1);
      } else if (names_) {
        names_->TakeEntry(index, node.kind, entry.first, entry.last);
      }
    }
    if (node.kind == NodeKind::kSelectList && !HasGroupBy(index)) CheckAggregates(index, entries);
  }

  bool HasGroupBy(std::size_t list) const {
    const std::size_t end = nodes_[nodes_[list].parent].behind;
    for (std::size_t clause = nodes_[list].behind; clause < end; clause = nodes_[clause].behind) {
      if (nodes_[clause].kind == NodeKind::kGroupBy) return true;
    }
    return false;
  }

  void CheckAggregates(std::size_t index, const std::vector<ListEntry>& entries) {
    const auto textOf = [this](const ListEntry& entry) {
      return text_.substr(entry.first, entry.last - entry.first);
    };
    const auto plain = std::find_if(entries.begin(), entries.end(), [&](const ListEntry& entry) {
      return IsPlainField(textOf(entry));
    });
    if (plain == entries.end()) return;
    if (std::any_of(entries.begin(), entries.end(),
                    [&](const ListEntry& entry) { return IsAggregate(textOf(entry)); }))
      findings_.Add(Mistake::mixedAggregate, index, plain->first, plain->last - plain->first);
  }

  void CheckRowLimit(std::size_t index) {
    const Node& node = nodes_[index];
    if (node.problem != Problem::kNone) return;
    const ListEntry content = ContentOf(node);
    const StringView limit = text_.substr(content.first, content.last - content.first);
    constexpr StringView kRows = u"rows";
    const bool hasRows = limit.size() > kRows.size() &&
                         EqualIgnoringCase(limit.substr(limit.size() - kRows.size()), kRows);
    if (!hasRows)
      findings_.Add(Mistake::incomplete, Word::rowLimitIncomplete, index, node.headFirst,
                    node.headLast - node.headFirst);
  }

  // Texts.

  void CheckWhere(std::size_t index) {
    const Node& node = nodes_[index];
    const std::size_t first = BehindWordOf(node);
    if (IsLeaf(nodes_, index) && ContentOf(node).first == node.last) {
      findings_.Add(Mistake::incomplete, index, node.headFirst, node.headLast - node.headFirst);
    } else {
      CheckLength(index, first, TabsBefore(node));
    }
  }

  void CheckBlock(std::size_t index) {
    CheckLength(index, nodes_[index + 1].last, TabsBefore(nodes_[index]) + 1);
  }

  std::size_t TabsBefore(const Node& node) const {
    const StringView before = text_.substr(node.first, node.headFirst - node.first);
    return static_cast<std::size_t>(std::count(before.begin(), before.end(), u'\t'));
  }

  // The text of a box is shorter than the node by `tabs` tabs on each line: the indentation.
  void CheckLength(std::size_t index, std::size_t first, std::size_t tabs) {
    const Node& node = nodes_[index];
    if (node.last - first <= kMostInBox) return;
    const ListEntry content = WithoutBlankEnds(text_, first, EndWithoutBlanks(node));
    const std::size_t length = content.last - content.first;
    const std::size_t withoutTabs = length - std::min(length, tabs * LineEndsIn(content));
    if (withoutTabs <= kMostInBox) return;
    findings_.Add(Mistake::tooLong, index, node.headFirst, node.headLast - node.headFirst,
                  {{u"count", FromAscii(std::to_string(withoutTabs))}});
  }

  // A cache of trimmed ends: many nodes may end at the same place, behind many blank lines.
  std::size_t EndWithoutBlanks(const Node& node) {
    const auto [end, isNew] = trimmedEnds_.try_emplace(node.last);
    if (isNew) end->second = WithoutBlankEnds(text_, node.headFirst, node.last).last;
    return end->second;
  }

  // A cache of the line ends: nested blocks ask for the same lines again and again.
  std::size_t LineEndsIn(const ListEntry& piece) {
    if (lineEnds_.empty()) {
      for (std::size_t end = EndOfLine(text_, 0); end < text_.size();
           end = EndOfLine(text_, BehindLineEnd(text_, end)))
        lineEnds_.push_back(end);
    }
    const auto first = std::lower_bound(lineEnds_.begin(), lineEnds_.end(), piece.first);
    const auto last = std::lower_bound(first, lineEnds_.end(), piece.last);
    return static_cast<std::size_t>(last - first);
  }

  // The control itself may write a statement with a keyword right behind a closing word.
  void CheckBehindEnd(std::size_t index) {
    const Node& end = nodes_[index];
    if (index + 1 == nodes_.size() || IsLineEnd(text_[end.last - 1])) return;
    const Node& next = nodes_[index + 1];
    if (next.kind != NodeKind::kStatement || next.problem != Problem::kNone) return;
    const StringView head = HeadOf(text_, end);
    findings_.Add(Mistake::glued, index + 1, next.headFirst, next.headLast - next.headFirst,
                  {{u"word", head.substr(0, StartOf(head).length)}});
  }

  StringView text_;
  const std::vector<Node>& nodes_;
  Findings findings_;
  MarkChecker marks_;
  std::optional<NameChecker> names_;
  std::vector<std::size_t> lineEnds_;
  std::unordered_map<std::size_t, std::size_t> trimmedEnds_;
};

}  // namespace

std::vector<Finding> Check(StringView text, const Names* names, const Words& words) {
  return Check(text, ReadOutline(text), names, words);
}

std::vector<Finding> Check(StringView text, const std::vector<Node>& nodes, const Names* names,
                           const Words& words) {
  return Checker(text, nodes, names, words).Check();
}

}  // namespace zolt20::language
