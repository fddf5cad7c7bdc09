// Control-flow statements back on the Condition page: for each construct its kind, its boxes and
// Add Condition, from the outermost to the one that stays in the boxes.
//
// The content of a construct can be text in its statement box or a pass of its own. Text can be
// edited with the rest of the box, so the fewest passes are made that give the same statement.
#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <vector>

#include "language/outline.h"
#include "language/own_control.h"

namespace zolt20::reopen {
namespace {

using language::HeadOf;
using language::Node;
using language::NodeKind;

constexpr int kConditionPage = 6;

bool IsConstruct(NodeKind kind) {
  return kind == NodeKind::kIf || kind == NodeKind::kFor || kind == NodeKind::kWhile ||
         kind == NodeKind::kRepeat || kind == NodeKind::kOnCase;
}

std::size_t TabsAt(StringView text, std::size_t place) {
  const std::size_t behind = text.find_first_not_of(u'\t', place);
  return std::min(behind, text.size()) - place;
}

// Removes so many tabs from the start of each line; a line with fewer keeps them.
String Outdented(StringView lines, std::size_t tabs) {
  const String start(tabs, u'\t');
  if (lines.starts_with(start)) lines.remove_prefix(tabs);
  return Replace(lines, Concat(kLineBreak, start), kLineBreak);
}

// Takes the text before a mark off the rest, and the mark with it; all of it if there is no mark.
StringView TakeUpTo(StringView& rest, StringView mark) {
  const std::size_t end = std::min(rest.find(mark), rest.size());
  const StringView taken = rest.substr(0, end);
  rest.remove_prefix(std::min(end + mark.size(), rest.size()));
  return taken;
}

void Fill(OwnControl& control, const Control& box, StringView text) {
  if (!text.empty()) control.Type(box, text);
}

class ConditionReader {
 public:
  explicit ConditionReader(StringView text) : text_(text), nodes_(language::ReadOutline(text)) {}

  /// The chain of nested constructs, each the last statement of the one before it; empty when the
  /// text is no single control-flow statement.
  std::vector<std::size_t> Chain() const {
    std::vector<std::size_t> chain;
    if (nodes_.empty() || nodes_[0].behind != nodes_.size()) return chain;
    for (std::size_t node = 0; IsConstruct(nodes_[node].kind); node = LastStatement(node))
      chain.push_back(node);
    return chain;
  }

  /// Fills the boxes in for one pass, for a construct at that depth. `inner` is the node of its
  /// last statement if that is left out, for a pass of its own.
  void FillIn(OwnControl& control, std::size_t node, std::size_t depth,
              std::optional<std::size_t> inner) const {
    switch (nodes_[node].kind) {
      case NodeKind::kIf:
        return FillInIf(control, node, depth, inner);
      case NodeKind::kFor:
        return FillInFor(control, node, depth, inner);
      case NodeKind::kWhile:
        return FillInWhile(control, node, depth, inner);
      case NodeKind::kRepeat:
        return FillInRepeat(control, node, depth, inner);
      default:  // kOnCase
        return FillInCase(control, node, inner);
    }
  }

 private:
  std::vector<std::size_t> ChildrenOf(std::size_t node) const {
    std::vector<std::size_t> children;
    for (std::size_t i = node + 1; i < nodes_[node].behind; i = nodes_[i].behind)
      children.push_back(i);
    return children;
  }

  std::optional<std::size_t> ChildOf(std::size_t node, NodeKind kind) const {
    for (const std::size_t child : ChildrenOf(node)) {
      if (nodes_[child].kind == kind) return child;
    }
    return {};
  }

  // The last statement before the closing line and the default; in an if with an else, the last one
  // of the else. The head if there is no statement.
  std::size_t LastStatement(std::size_t node) const {
    std::size_t last = node + 1;
    for (const std::size_t child : ChildrenOf(node)) {
      if (nodes_[child].kind != NodeKind::kEnd && nodes_[child].kind != NodeKind::kDefault)
        last = child;
    }
    const NodeKind kind = nodes_[last].kind;
    return kind == NodeKind::kElse || kind == NodeKind::kCaseRow ? LastStatement(last) : last;
  }

  // The lines of a construct or of one of its parts: from its head to its closing line, to its else
  // or to `inner`, without the last line break.
  StringView BodyOf(std::size_t node, std::optional<std::size_t> inner) const {
    std::size_t last = nodes_[node].last;
    for (const std::size_t child : ChildrenOf(node)) {
      const NodeKind kind = nodes_[child].kind;
      if (kind == NodeKind::kEnd || kind == NodeKind::kElse || child == inner) {
        last = nodes_[child].first;
        break;
      }
    }
    const std::size_t headEnd = text_.find(kLineBreak, nodes_[node].headLast);
    const std::size_t first = std::min(headEnd, text_.size()) + kLineBreak.size();
    if (first >= last) return {};
    StringView body = text_.substr(first, last - first);
    if (body.ends_with(kLineBreak)) body.remove_suffix(kLineBreak.size());
    return body;
  }

  String StatementOf(std::size_t node, std::size_t tabs, std::optional<std::size_t> inner) const {
    return Outdented(BodyOf(node, inner), tabs);
  }

  // The head without its first words.
  StringView HeadBehind(std::size_t node, StringView words) const {
    const StringView head = HeadOf(text_, nodes_[node]);
    return head.substr(std::min(words.size(), head.size()));
  }

  void FillInIf(OwnControl& control, std::size_t node, std::size_t depth,
                std::optional<std::size_t> inner) const {
    const Surface& form = control.Form();
    const StringView condition = HeadBehind(node, u"if ");
    control.Click(form.optIfThen);
    Fill(control, form.txtCond, condition.substr(0, condition.rfind(u" then")));
    Fill(control, form.txtStmt1, StatementOf(node, depth + 1, inner));
    if (const auto part = ChildOf(node, NodeKind::kElse))
      Fill(control, form.txtStmt2, StatementOf(*part, depth + 1, inner));
  }

  void FillInFor(OwnControl& control, std::size_t node, std::size_t depth,
                 std::optional<std::size_t> inner) const {
    const Surface& form = control.Form();
    // Up to the end of the line, blanks included: these boxes keep their blanks.
    StringView head = text_.substr(nodes_[node].headFirst);
    head = TakeUpTo(head, kLineBreak);
    TakeUpTo(head, u"for ");
    control.Click(form.optFor);
    Fill(control, form.txtVariable, TakeUpTo(head, u" = "));
    Fill(control, form.txtinitval, TakeUpTo(head, u" to "));
    Fill(control, form.txtFinVal, TakeUpTo(head, u"  Step    "));
    Fill(control, form.txtStep, head);
    Fill(control, form.txtForStmt, StatementOf(node, depth + 1, inner));
  }

  void FillInWhile(OwnControl& control, std::size_t node, std::size_t depth,
                   std::optional<std::size_t> inner) const {
    const Surface& form = control.Form();
    control.Click(form.optwhile);
    Fill(control, form.txtWhlCnd, HeadBehind(node, u"while "));
    Fill(control, form.txtWhlStm, StatementOf(node, depth + 1, inner));
  }

  void FillInRepeat(OwnControl& control, std::size_t node, std::size_t depth,
                    std::optional<std::size_t> inner) const {
    const Surface& form = control.Form();
    control.Click(form.optRepeat);
    if (const auto end = ChildOf(node, NodeKind::kEnd)) {
      const StringView condition = HeadBehind(*end, u"Until  ( ");
      Fill(control, form.txtRepCnd, condition.substr(0, condition.rfind(u" )")));
    }
    Fill(control, form.txtRepStm, StatementOf(node, depth + 1, inner));
  }

  void FillInCase(OwnControl& control, std::size_t node, std::optional<std::size_t> inner) const {
    const Surface& form = control.Form();
    control.Click(form.optCase);
    Fill(control, form.txtcaseexp, HeadBehind(node, u"on case "));
    int row = 0;
    for (const std::size_t child : ChildrenOf(node)) {
      if (nodes_[child].kind == NodeKind::kDefault) {
        StringView body = BodyOf(child, {});
        const std::size_t tabs = TabsAt(text_, nodes_[node].first) + 2;
        body.remove_prefix(std::min(tabs, TabsAt(body, 0)));
        Fill(control, form.TxtDef, body);
      }
      if (nodes_[child].kind != NodeKind::kCaseRow) continue;
      if (row > 0) control.Click(form.cmdNext);
      const StringView value = HeadBehind(child, u"case ");
      // Rows stand deeper behind one without a statement.
      const std::size_t tabs = TabsAt(text_, nodes_[child].first) + 1;
      Fill(control, form.TxtExpr(row), Trim(value.substr(0, value.rfind(u':'))));
      Fill(control, form.txtStmt(row), StatementOf(child, tabs, inner));
      ++row;
    }
  }

  StringView text_;
  std::vector<Node> nodes_;
};

}  // namespace

Opening OpenCondition(StringView statement, const Catalogue& catalogue) {
  const ConditionReader reader(statement);
  const std::vector<std::size_t> chain = reader.Chain();
  Opening best;
  for (std::size_t passes = 0; passes < chain.size() && !best.IsEqual(); ++passes) {
    const auto fill = [&](OwnControl& control) {
      control.Tab(kConditionPage);
      std::size_t depth = 0;
      for (std::size_t i = 0; i < passes; ++i) {
        reader.FillIn(control, chain[i], depth, chain[i + 1]);
        control.Click(control.Form().cmdAdd);
        depth = static_cast<std::size_t>(control.Depth()) + 1;
      }
      reader.FillIn(control, chain[passes], depth, {});
    };
    KeepBetter(best, Try(statement, catalogue, fill, [](OwnControl& control) {
                 control.Click(control.Form().cmdAdd);
                 control.Click(control.Form().cmdBuild);
               }));
  }
  if (best.steps.empty()) {
    best.differences = Compare(statement, best.result);
    best.problems.push_back({1, 1, "the text is no single statement that the form shows"});
  }
  return best;
}

}  // namespace zolt20::reopen
