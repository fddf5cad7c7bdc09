#include "language/check_marks.h"

#include "language/line_words.h"

namespace zolt20::language {
namespace {

constexpr StringView kMarks = u"\r\n\"(){}~\u0001`";
constexpr StringView kQuote = u"`^`";
constexpr StringView kEarlyQuote = u"`^\"";

constexpr std::array<bool, 128> kIsMark = [] {
  std::array<bool, 128> isMark{};
  for (const char16_t c : kMarks)
    isMark[c] = true;
  return isMark;
}();

}  // namespace

void MarkChecker::Take(std::size_t index) {
  while (!scopes_.empty() && !IsIn(scopes_.back(), index))
    LeaveTo(scopes_.size() - 1);
  if (!IsLeaf(nodes_, index)) return;
  Enter(index);
  Read(index);
}

bool MarkChecker::IsIn(const Scope& scope, std::size_t index) const {
  if (!scope.isRun) return index < scope.behind;
  return nodes_[index].kind == NodeKind::kStatement;
}

// A where clause with nested select statements is one scope: its head and each text behind those.
void MarkChecker::Enter(std::size_t index) {
  const Node& node = nodes_[index];
  const bool isRun = node.kind == NodeKind::kStatement;
  if (node.kind == NodeKind::kMore || (isRun && !scopes_.empty() && scopes_.back().isRun)) return;
  const bool isHeadOfWhere =
      node.kind == NodeKind::kHead && nodes_[node.parent].kind == NodeKind::kWhere;
  const std::size_t behind = isHeadOfWhere ? nodes_[node.parent].behind : index + 1;
  scopes_.push_back({open_.size(), behind, isRun});
}

void MarkChecker::LeaveTo(std::size_t scopes) {
  while (scopes_.size() > scopes) {
    for (std::size_t i = scopes_.back().first; i < open_.size(); ++i)
      TellOpen(open_[i]);
    open_.resize(scopes_.back().first);
    scopes_.pop_back();
  }
}

void MarkChecker::Read(std::size_t index) {
  const std::size_t last = nodes_[index].last;
  for (std::size_t at = nodes_[index].first; at < last; ++at) {
    const char16_t c = text_[at];
    if (c < kIsMark.size() && kIsMark[c]) TakeMark(index, at);
  }
  EndLine(index, last);
}

void MarkChecker::EndLine(std::size_t index, std::size_t end) {
  if (string_ == kNoString) return;
  findings_.Add(Mistake::openString, index, string_, end - string_);
  string_ = kNoString;
}

void MarkChecker::TakeMark(std::size_t index, std::size_t at) {
  const char16_t c = text_[at];
  if (IsLineEnd(c)) {
    EndLine(index, at);
  } else if (c == u'"') {
    string_ = string_ == kNoString ? at : kNoString;
  } else if (c == u'~') {
    TellUnsendable(index, at, 1, Word::readAsLineBreak);
  } else if (c == u'\u0001') {
    TellUnsendable(index, at, 1, Word::readAsTab);
  } else if (c == u'`') {
    const StringView rest = text_.substr(at, kQuote.size());
    if (rest == kQuote || rest == kEarlyQuote)
      TellUnsendable(index, at, kQuote.size(), Word::readAsQuote);
  } else if (string_ != kNoString) {
    return;
  } else if (c == u'(' || c == u'{') {
    const Kind kind = c == u'(' ? kRound : kCurly;
    open_.push_back({at, index, kind});
    ++scopes_.back().counts[kind];
  } else {
    CloseBracket(index, at, c == u')' ? kRound : kCurly);
  }
}

// A bracket of the other kind that was opened in between is reported as not closed.
void MarkChecker::CloseBracket(std::size_t index, std::size_t at, Kind kind) {
  Scope& scope = scopes_.back();
  if (scope.counts[kind] == 0) {
    findings_.Add(Mistake::strayBracket, index, at, 1, {{u"bracket", text_.substr(at, 1)}});
    return;
  }
  for (;;) {
    const Open open = open_.back();
    open_.pop_back();
    --scope.counts[open.kind];
    if (open.kind == kind) return;
    TellOpen(open);
  }
}

void MarkChecker::TellOpen(const Open& open) {
  findings_.Add(Mistake::openBracket, open.node, open.place, 1,
                {{u"bracket", text_.substr(open.place, 1)}});
}

void MarkChecker::TellUnsendable(std::size_t index, std::size_t at, std::size_t length,
                                 Word meaning) {
  findings_.Add(Mistake::notSendable, index, at, length,
                {{u"meaning", findings_.words()[meaning]}});
}

}  // namespace zolt20::language
