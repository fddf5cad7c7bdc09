#include "language/explain.h"

#include <array>

#include "language/line_words.h"
#include "language/list_entries.h"

namespace zolt20::language {
namespace {

constexpr std::size_t kMostShown = 200;

bool IsSpace(char16_t c) {
  return IsBlank(c) || IsLineEnd(c);
}

// A text on one line, with runs of blanks collapsed, and clipped.
String Squeezed(StringView text) {
  String squeezed;
  for (const char16_t c : text) {
    if (squeezed.size() == kMostShown) return Concat(squeezed, u"...");
    if (!IsSpace(c)) {
      squeezed += c;
    } else if (!squeezed.empty() && squeezed.back() != u' ') {
      squeezed += u' ';
    }
  }
  return String(Trim(squeezed));
}

class Explainer {
 public:
  Explainer(StringView text, const std::vector<Node>& nodes, const Words& words)
      : text_(text), nodes_(nodes), words_(words) {}

  String Sentence(std::size_t index) const {
    const Node& node = nodes_[index];
    switch (node.kind) {
      case NodeKind::kBlank:
        return {};
      case NodeKind::kHead:
      case NodeKind::kMore:
        return Sentence(node.parent);
      case NodeKind::kEnd:
        return Fill(Word::end, {{u"head", Squeezed(HeadOf(text_, nodes_[node.parent]))}});
      case NodeKind::kStatement:
        return Statement(node);
      case NodeKind::kSelect:
        return Select(index);
      default:
        break;
    }
    if (IsClause(node.kind)) return Clause(index);
    if (nodes_[index + 1].problem == Problem::kIncomplete)
      return Fill(Word::notComplete, {{u"head", Squeezed(HeadOf(text_, node))}});
    return Opening(index);
  }

 private:
  using Values = std::initializer_list<std::pair<StringView, StringView>>;

  static bool IsClause(NodeKind kind) {
    return kind >= NodeKind::kSelectList && kind <= NodeKind::kRowLimit;
  }

  String Fill(Word word, Values values) const { return Filled(words_[word], values); }

  // The head without its keyword.
  StringView BehindWordOf(const Node& node) const {
    const StringView head = HeadOf(text_, node);
    return head.substr(StartOf(head).length);
  }

  // Statements.

  // ":var.x = 1" is an assignment; a text with more than a name before "=" only contains one.
  String Statement(const Node& node) const {
    const StringView text = TextOf(text_, node);
    const std::size_t sign = text.find(u'=');
    const String variable = Squeezed(text.substr(0, std::min(sign, text.size())));
    if (sign == StringView::npos || variable.empty() ||
        variable.find_first_of(u" (\"<>!") != String::npos)
      return Fill(Word::statement, {{u"statement", Squeezed(text)}});
    return Fill(Word::assignment,
                {{u"variable", variable}, {u"value", Squeezed(text.substr(sign + 1))}});
  }

  String Opening(std::size_t index) const {
    const Node& node = nodes_[index];
    switch (node.kind) {
      case NodeKind::kSelectDo:
        return Fill(Word::selectDo, {});
      case NodeKind::kSelectEos:
        return Fill(Word::selectEos, {});
      case NodeKind::kSelectEmpty:
        return Fill(Word::selectEmpty, {});
      case NodeKind::kSelectError:
        return Fill(Word::selectError, {});
      case NodeKind::kIf:
        return If(node);
      case NodeKind::kElse:
        return Fill(Word::otherwise, {});
      case NodeKind::kFor:
        return For(node);
      case NodeKind::kWhile:
        return Fill(Word::whileTrue, {{u"condition", Squeezed(BehindWordOf(node))}});
      case NodeKind::kRepeat:
        return Repeat(index);
      case NodeKind::kOnCase:
        return Fill(Word::onCase, {{u"expression", Squeezed(BehindWordOf(node))}});
      case NodeKind::kCaseRow:
        return Row(node);
      default:
        return Fill(Word::otherCases, {});
    }
  }

  String If(const Node& node) const {
    StringView condition = BehindWordOf(node);
    condition.remove_suffix(StringView(u"then").size());
    return Fill(Word::ifThen, {{u"condition", Squeezed(condition)}});
  }

  String For(const Node& node) const {
    const StringView head = BehindWordOf(node);
    const std::size_t sign = head.find(u'=');
    const std::size_t to = BehindWord(head, u"to", sign);
    const std::size_t step = BehindWord(head, u"step", to);
    const String variable = Squeezed(head.substr(0, sign));
    const String first = Squeezed(head.substr(sign + 1, to - 2 - (sign + 1)));
    if (step == StringView::npos)
      return Fill(
          Word::forEach,
          {{u"variable", variable}, {u"first", first}, {u"last", Squeezed(head.substr(to))}});
    return Fill(Word::forEachStep, {{u"variable", variable},
                                    {u"first", first},
                                    {u"last", Squeezed(head.substr(to, step - 4 - to))},
                                    {u"step", Squeezed(head.substr(step))}});
  }

  // The condition of a repeat is in its closing line.
  String Repeat(std::size_t index) const {
    const Node& end = nodes_[nodes_[index].behind - 1];
    if (end.kind != NodeKind::kEnd || end.parent != index) return Fill(Word::repeat, {});
    StringView condition = Trim(BehindWordOf(end));
    if (condition.starts_with(u'(') && ClosingBracket(condition, 0) + 1 == condition.size())
      condition = condition.substr(1, condition.size() - 2);
    return Fill(Word::repeatUntil, {{u"condition", Squeezed(condition)}});
  }

  String Row(const Node& node) const {
    const StringView row = BehindWordOf(node);
    return Fill(Word::caseRow, {{u"value", Squeezed(row.substr(0, ColonOfRow(row)))}});
  }

  // Select statements.

  struct ClauseWords {
    NodeKind clause;
    StringView key;     // the clause's key in the sentence of the select statement
    Word within;        // the clause's words in that sentence
    Word alone;         // the clause's sentence by itself
    StringView filled;  // the key that both fill in
  };

  static const std::array<ClauseWords, 6>& AllClauses() {
    static constexpr std::array<ClauseWords, 6> kClauses{{
        {NodeKind::kSelectList, u"list", Word::selectList, Word::selectList, u"list"},
        {NodeKind::kFrom, u"from", Word::selectFrom, Word::from, u"tables"},
        {NodeKind::kWhere, u"where", Word::selectWhere, Word::where, u"condition"},
        {NodeKind::kGroupBy, u"groupBy", Word::selectGroupBy, Word::groupBy, u"fields"},
        {NodeKind::kOrderBy, u"orderBy", Word::selectOrderBy, Word::orderBy, u"fields"},
        {NodeKind::kRowLimit, u"rowLimit", Word::selectRowLimit, Word::rowLimit, u"count"},
    }};
    return kClauses;
  }

  static std::size_t PlaceOf(NodeKind clause) {
    return static_cast<std::size_t>(clause) - static_cast<std::size_t>(NodeKind::kSelectList);
  }

  String Clause(std::size_t index) const {
    const ClauseWords& clause = AllClauses()[PlaceOf(nodes_[index].kind)];
    return Fill(clause.alone, {{clause.filled, Content(index)}});
  }

  String Select(std::size_t index) const {
    std::array<String, 6> told;
    for (std::size_t child = index + 1; child < nodes_[index].behind;
         child = nodes_[child].behind) {
      const Node& node = nodes_[child];
      if (!IsClause(node.kind) || node.problem != Problem::kNone) continue;
      const ClauseWords& clause = AllClauses()[PlaceOf(node.kind)];
      String& clauseTold = told[PlaceOf(node.kind)];
      clauseTold = Content(child);
      if (node.kind != NodeKind::kSelectList)
        clauseTold = Fill(clause.within, {{clause.filled, clauseTold}});
    }
    return Fill(Word::select, {{u"list", told[0]},
                               {u"from", told[1]},
                               {u"where", told[2]},
                               {u"groupBy", told[3]},
                               {u"orderBy", told[4]},
                               {u"rowLimit", told[5]}});
  }

  String Content(std::size_t index) const {
    const Node& node = nodes_[index];
    if (node.kind == NodeKind::kWhere) return Condition(index);
    const std::size_t first = node.headFirst + StartOf(HeadOf(text_, node)).length;
    if (node.kind == NodeKind::kRowLimit) return RowLimit(text_.substr(first, node.last - first));
    String content;
    for (const ListEntry& entry : EntriesOf(text_, first, node.last)) {
      if (!content.empty()) content += words_[Word::listComma];
      content += Entry(text_.substr(entry.first, entry.last - entry.first), node.kind);
    }
    return content;
  }

  // The condition without its nested select statements, which have sentences of their own.
  String Condition(std::size_t index) const {
    const Node& node = nodes_[index];
    if (IsLeaf(nodes_, index)) {
      const std::size_t first = node.headFirst + StartOf(HeadOf(text_, node)).length;
      return Squeezed(text_.substr(first, node.last - first));
    }
    String condition;
    for (std::size_t child = index + 1; child < node.behind; child = nodes_[child].behind) {
      StringView text = TextOf(text_, nodes_[child]);
      if (nodes_[child].kind == NodeKind::kHead) {
        text.remove_prefix(node.headFirst - node.first);
        text.remove_prefix(StartOf(HeadOf(text_, node)).length);
      }
      condition += nodes_[child].kind == NodeKind::kSelect ? StringView(u" ... ") : text;
    }
    return Squeezed(condition);
  }

  static String RowLimit(StringView limit) {
    const std::size_t rows = BehindWord(limit, u"rows");
    return Squeezed(rows == StringView::npos ? limit : limit.substr(0, rows - 4));
  }

  String Entry(StringView entry, NodeKind list) const {
    constexpr StringView kDescending = u" desc";
    if (list == NodeKind::kOrderBy && entry.ends_with(kDescending))
      return Fill(Word::descending,
                  {{u"field", Squeezed(entry.substr(0, entry.size() - kDescending.size()))}});
    if (list != NodeKind::kSelectList) return Squeezed(entry);
    const std::size_t bracket = entry.rfind(u')');
    if (bracket == StringView::npos) {
      if (!entry.ends_with(u".*")) return Squeezed(entry);
      return Fill(Word::allFields, {{u"table", Squeezed(entry.substr(0, entry.size() - 2))}});
    }
    String expression = Squeezed(entry.substr(0, bracket + 1));
    if (LowerCase(expression) == u"count ( * )") expression = words_[Word::countOfRows];
    const String variable = Squeezed(entry.substr(bracket + 1));
    if (variable.empty()) return expression;
    return Fill(Word::bound, {{u"expression", expression}, {u"variable", variable}});
  }

  StringView text_;
  const std::vector<Node>& nodes_;
  const Words& words_;
};

}  // namespace

String Explain(StringView text, const std::vector<Node>& nodes, std::size_t index,
               const Words& words) {
  return Explainer(text, nodes, words).Sentence(index);
}

bool IsToldByAnother(const Node& node) {
  switch (node.kind) {
    case NodeKind::kBlank:
    case NodeKind::kHead:
    case NodeKind::kMore:
    case NodeKind::kEnd:
      return true;
    default:
      return node.kind >= NodeKind::kSelectList && node.kind <= NodeKind::kRowLimit;
  }
}

}  // namespace zolt20::language
