#include "language/clauses.h"

#include <algorithm>
#include <utility>

namespace zolt20::reopen {

// In the order of a statement.
const std::array<ClauseKind, 10> kClauses{{
    {u"select ", Form::kList, &Parts::prpSelectPart},
    {u"from  ", Form::kList, &Parts::prpSelectFromPart},
    {u"where ", Form::kCondition, &Parts::prpSelectWherePart},
    {u"group by  ", Form::kList, &Parts::prpSelectGroupbyPart},
    {u"order by ", Form::kOrder, &Parts::prpSelectOrderbyPart},
    {u"as set with ", Form::kRowLimit, &Parts::prpSelectAsSetPart},
    {u"selectdo", Form::kBlock, &Parts::prpSelectDoPart},
    {u"selecteos", Form::kBlock, &Parts::prpSelectEOSPart},
    {u"selectempty", Form::kBlock, &Parts::prpSelectEmptyPart},
    {u"selecterror", Form::kBlock, &Parts::prpSelectErrorPart},
}};

namespace {

constexpr StringView kEnd = u"endselect";
constexpr char16_t kTab = u'\t';

std::size_t EndOfLine(StringView text, std::size_t at) {
  return std::min(text.find(kLineBreak, at), text.size());
}

bool BeginsClause(StringView line, const ClauseKind& kind) {
  if (!line.starts_with(kind.keyword)) return false;
  return kind.form != Form::kBlock || line.substr(kind.keyword.size()).starts_with(kLineBreak);
}

bool BeginsEnd(StringView line) {
  if (!line.starts_with(kEnd)) return false;
  line.remove_prefix(kEnd.size());
  return line.empty() || line.starts_with(kLineBreak);
}

const ClauseKind* ClauseAt(StringView line) {
  const auto* const found =
      std::find_if(kClauses.begin(), kClauses.end(),
                   [line](const ClauseKind& kind) { return BeginsClause(line, kind); });
  return found == kClauses.end() ? nullptr : found;
}

bool EndsCondition(StringView text) {
  if (!text.starts_with(kLineBreak)) return false;
  text.remove_prefix(kLineBreak.size());
  if (BeginsEnd(text)) return true;
  const ClauseKind* const kind = ClauseAt(text);
  return kind != nullptr && kind->part != &Parts::prpSelectPart &&
         kind->part != &Parts::prpSelectFromPart && kind->part != &Parts::prpSelectWherePart;
}

// Finds the clauses of a text, or the place where that fails.
class Splitter {
 public:
  Splitter(StringView text, std::optional<std::size_t> conditionEnd)
      : text_(text), conditionEnd_(conditionEnd) {}

  Division Divide() {
    Division division;
    division.refusal = Split();
    division.clauses = std::move(clauses_);
    return division;
  }

 private:
  std::optional<Refusal> Split() {
    // The control itself writes two line breaks before a statement that it brings back into a
    // Result that was emptied.
    while (Line().starts_with(kLineBreak))
      at_ += kLineBreak.size();
    if (!BeginsClause(Line(), kClauses[0]))
      return Refusal{at_, "a statement begins with 'select '"};
    const ClauseKind* last = nullptr;
    while (!BeginsEnd(Line())) {
      const ClauseKind* const kind = ClauseAt(Line());
      if (kind == nullptr) return Refusal{at_, "neither a clause nor 'endselect' begins here"};
      if (last != nullptr && kind <= last)
        return Refusal{at_, "this clause has its place before the one above it"};
      last = kind;
      if (auto refusal = TakeClause(*kind)) return refusal;
      if (at_ == text_.size()) return Refusal{at_, "the statement ends without 'endselect'"};
      at_ += kLineBreak.size();
    }
    at_ += kEnd.size();
    if (at_ < text_.size()) return Refusal{at_, "text stands behind 'endselect'"};
    return {};
  }

  StringView Line() const { return text_.substr(at_); }

  // Takes a clause, up to the line break behind it or to the end of the text.
  std::optional<Refusal> TakeClause(const ClauseKind& kind) {
    const std::size_t begin = at_;
    std::size_t content = at_ + kind.keyword.size();
    switch (kind.form) {
      case Form::kCondition:
        at_ = conditionEnd_.value_or(content);
        if (conditionEnd_) break;
        if (auto refusal = PassCondition()) return refusal;
        break;
      case Form::kBlock:
        content += kLineBreak.size();
        if (content == text_.size() || text_[content] != kTab)
          return Refusal{content, "the lines of a block stand one tab in"};
        at_ = content++;
        PassBlock();
        break;
      case Form::kList:
      case Form::kOrder:
      case Form::kRowLimit:
        at_ = EndOfLine(text_, content);
        break;
    }
    clauses_.push_back(
        {&kind, text_.substr(begin, at_ - begin), text_.substr(content, at_ - content)});
    return {};
  }

  void PassBlock() {
    at_ = EndOfLine(text_, at_);
    while (at_ + kLineBreak.size() < text_.size() && text_[at_ + kLineBreak.size()] == kTab)
      at_ = EndOfLine(text_, at_ + kLineBreak.size());
  }

  // A condition stands at the margin with all its lines, so it goes on up to a line that begins
  // what may follow it.
  std::optional<Refusal> PassCondition() {
    std::optional<std::size_t> string;
    std::size_t outerBracket = 0;
    std::size_t brackets = 0;
    for (; at_ < text_.size(); ++at_) {
      const char16_t c = text_[at_];
      if (c == u'"') {
        string = string ? std::nullopt : std::optional(at_);
      } else if (string) {
        continue;
      } else if (c == u'(') {
        if (brackets++ == 0) outerBracket = at_;
      } else if (c == u')') {
        if (brackets > 0) --brackets;
      } else if (c == u'\r' && brackets == 0 && EndsCondition(text_.substr(at_))) {
        return {};
      }
    }
    if (string) return Refusal{*string, "the string that begins here has no end"};
    if (brackets > 0) return Refusal{outerBracket, "the bracket that opens here is not closed"};
    return {};
  }

  StringView text_;
  std::optional<std::size_t> conditionEnd_;
  std::size_t at_ = 0;
  std::vector<Clause> clauses_;
};

}  // namespace

Division Divide(StringView statement, std::optional<std::size_t> conditionEnd) {
  return Splitter(statement, conditionEnd).Divide();
}

StringView NameInOrder(StringView entry) {
  constexpr StringView kDescending = u" desc";
  if (entry.ends_with(kDescending)) entry.remove_suffix(kDescending.size());
  return entry;
}

std::vector<std::size_t> ConditionEnds(StringView statement) {
  std::vector<std::size_t> ends;
  const Division division = Divide(statement, statement.size());
  if (division.clauses.empty() || division.clauses.back().kind->form != Form::kCondition)
    return ends;
  const std::size_t first = statement.size() - division.clauses.back().content.size();
  for (std::size_t at = statement.find(kLineBreak, first); at != StringView::npos;
       at = statement.find(kLineBreak, at + kLineBreak.size())) {
    if (EndsCondition(statement.substr(at))) ends.push_back(at);
  }
  return ends;
}

}  // namespace zolt20::reopen
