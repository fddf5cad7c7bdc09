#include "language/outline.h"

#include <algorithm>
#include <array>
#include <utility>

#include "language/line_words.h"

namespace zolt20::language {
namespace {

constexpr std::size_t kKinds = static_cast<std::size_t>(NodeKind::kDefault) + 1;
constexpr std::uint32_t kNoFrame = Node::kNone;
// In how many lines the "then" of an if is looked for.
constexpr int kMostHeadLines = 16;

constexpr std::array<const char*, kKinds> kKindNames{
    "blank",       "statement",  "head",         "more",         "end",      "select",
    "select list", "from",       "where",        "group by",     "order by", "row limit",
    "select do",   "select eos", "select empty", "select error", "if",       "else",
    "for",         "while",      "repeat",       "on case",      "case row", "default",
};
constexpr std::array<const char*, 5> kProblemNames{
    "", "not closed", "nothing to close", "out of place", "incomplete",
};

// A node that is still open.
struct Frame {
  std::uint32_t node;
  std::uint32_t outer;     // the frame of the same kind around it
  std::uint32_t brackets;  // of a where clause: how many brackets are open
  NodeKind kind;
  NodeKind clause;  // of a select: its last clause so far
  bool hasBranch;   // whether an if has its else, or an on case its default
};

bool NeedsClosing(NodeKind kind) {
  return kind == NodeKind::kSelect || kind == NodeKind::kIf || kind == NodeKind::kFor ||
         kind == NodeKind::kWhile || kind == NodeKind::kRepeat || kind == NodeKind::kOnCase;
}

bool IsList(NodeKind kind) {
  return kind == NodeKind::kSelectList || kind == NodeKind::kFrom || kind == NodeKind::kGroupBy ||
         kind == NodeKind::kOrderBy;
}

// The kind of node that a keyword begins or ends.
NodeKind KindOf(LineWord word) {
  constexpr std::array<NodeKind, 26> kKindOfWord{
      NodeKind::kStatement, NodeKind::kSelect,      NodeKind::kFrom,        NodeKind::kWhere,
      NodeKind::kGroupBy,   NodeKind::kOrderBy,     NodeKind::kRowLimit,    NodeKind::kSelectDo,
      NodeKind::kSelectEos, NodeKind::kSelectEmpty, NodeKind::kSelectError, NodeKind::kIf,
      NodeKind::kElse,      NodeKind::kFor,         NodeKind::kWhile,       NodeKind::kRepeat,
      NodeKind::kOnCase,    NodeKind::kCaseRow,     NodeKind::kDefault,     NodeKind::kEnd,
      NodeKind::kSelect,    NodeKind::kIf,          NodeKind::kFor,         NodeKind::kWhile,
      NodeKind::kRepeat,    NodeKind::kOnCase};
  return kKindOfWord[static_cast<std::size_t>(word)];
}

// The parser. Reads the text once, piece by piece: a piece is a line, or a node's part of a line.
class Reader {
 public:
  explicit Reader(StringView text) : text_(text) { open_.fill(kNoFrame); }

  std::vector<Node> Read() {
    const std::size_t first = PassBlankLines(text_, 0);
    if (first > 0) Leaf(NodeKind::kBlank, first);
    while (at_ < text_.size())
      ReadPiece();
    CloseTo(0);
    return std::move(nodes_);
  }

 private:
  // Pieces.

  void GoToLineOf(std::size_t place) {
    lineEnd_ = EndOfLine(text_, place);
    next_ = PassBlankLines(text_, BehindLineEnd(text_, lineEnd_));
  }

  StringView Line(std::size_t from) const { return text_.substr(from, lineEnd_ - from); }
  bool RestIsBlank(std::size_t from) const { return PassBlanks(text_, from) >= lineEnd_; }

  // The end of a piece: behind trailing blanks, and behind the line end when nothing else follows.
  std::size_t PieceEnd(std::size_t from) const {
    const std::size_t end = PassBlanks(text_, from);
    return end >= lineEnd_ ? next_ : end;
  }

  void ReadPiece() {
    if (at_ >= next_) GoToLineOf(at_);
    start_ = PassBlanks(text_, at_);
    const LineStart start = StartOf(Line(start_));
    Take(start.word, start_ + start.length);
  }

  void Take(LineWord word, std::size_t behind) {
    switch (word) {
      case LineWord::kNone:
        return TakeStatement();
      case LineWord::kSelect:
        return TakeSelect(behind);
      case LineWord::kIf:
        return TakeIf(behind);
      case LineWord::kElse:
        return TakeBranch(NodeKind::kIf, NodeKind::kElse, behind);
      case LineWord::kDefault:
        return TakeBranch(NodeKind::kOnCase, NodeKind::kDefault, behind);
      case LineWord::kFor:
      case LineWord::kWhile:
      case LineWord::kRepeat:
      case LineWord::kOnCase:
        return TakeOpening(KindOf(word), behind);
      case LineWord::kCase:
        return TakeRow(behind);
      case LineWord::kBreak:
        return TakeBreak(behind);
      case LineWord::kUntil:
        return TakeUntil(behind);
      case LineWord::kEndSelect:
      case LineWord::kEndIf:
      case LineWord::kEndFor:
      case LineWord::kEndWhile:
      case LineWord::kEndCase:
        TakeEnd(KindOf(word), PieceEnd(behind));
        return;
      default:
        return TakeClause(KindOf(word), behind);
    }
  }

  // Nodes.

  Node& Add(NodeKind kind, std::size_t last, std::size_t headLast) {
    if (StandsIn(NodeKind::kWhere)) GiveHeadToWhere();
    Node node;
    node.first = at_;
    node.last = last;
    node.headFirst = start_;
    node.headLast = HeadEnd(headLast);
    node.depth = static_cast<std::uint32_t>(frames_.size());
    if (!frames_.empty()) node.parent = frames_.back().node;
    node.kind = kind;
    if (nodes_.size() == nodes_.capacity()) MakeRoom();
    nodes_.push_back(node);
    nodes_.back().behind = static_cast<std::uint32_t>(nodes_.size());
    return nodes_.back();
  }

  // Reserves as much as the rest of the text needs if it goes on like this, but not very much more
  // than there is.
  void MakeRoom() {
    const double nodesPerCharacter =
        static_cast<double>(nodes_.size() + 1) / static_cast<double>(at_ + 1);
    const auto needed =
        static_cast<std::size_t>(nodesPerCharacter * static_cast<double>(text_.size()));
    const std::size_t room = nodes_.size() + 16;
    nodes_.reserve(std::clamp(needed + needed / 64, 2 * room, 8 * room));
  }

  // The end of a head, moved before trailing blanks.
  std::size_t HeadEnd(std::size_t end) const {
    while (end > 0 && IsBlank(text_[end - 1]))
      --end;
    return end;
  }

  Node& Leaf(NodeKind kind, std::size_t end) {
    Node& node = Add(kind, end, std::min(end, lineEnd_));
    at_ = end;
    return node;
  }

  void Stray(Problem problem, std::size_t end) {
    Leaf(NodeKind::kStatement, end).problem = problem;
  }

  void Open(NodeKind kind, std::size_t headLast) {
    Add(kind, at_, headLast);
    const auto frame = static_cast<std::uint32_t>(frames_.size());
    const auto node = static_cast<std::uint32_t>(nodes_.size() - 1);
    frames_.push_back(
        {node, std::exchange(OpenFrame(kind), frame), 0, kind, NodeKind::kSelectList, false});
  }

  // Opens a node with a head; gives the leaf of the head.
  Node& OpenWithHead(NodeKind kind, std::size_t end) {
    Open(kind, std::min(end, lineEnd_));
    return Leaf(NodeKind::kHead, end);
  }

  void Close() {
    const Frame& frame = frames_.back();
    nodes_[frame.node].last = at_;
    nodes_[frame.node].behind = static_cast<std::uint32_t>(nodes_.size());
    OpenFrame(frame.kind) = frame.outer;
    frames_.pop_back();
  }

  // Closes the innermost open nodes until `count` are left. Notes that their closing lines are
  // missing.
  void CloseTo(std::size_t count) {
    while (frames_.size() > count) {
      if (NeedsClosing(frames_.back().kind))
        nodes_[frames_.back().node].problem = Problem::kNotClosed;
      Close();
    }
  }

  std::uint32_t& OpenFrame(NodeKind kind) { return open_[static_cast<std::size_t>(kind)]; }
  bool StandsIn(NodeKind kind) const { return !frames_.empty() && frames_.back().kind == kind; }

  // A where clause is a leaf until a node comes within it; then its text becomes a head.
  void GiveHeadToWhere() {
    const std::uint32_t where = frames_.back().node;
    if (where + 1 < nodes_.size()) return;
    nodes_[where].headLast = HeadEnd(std::min(nodes_[where].headLast, at_));
    Node head = nodes_[where];
    head.kind = NodeKind::kHead;
    head.problem = Problem::kNone;
    head.last = at_;
    head.parent = where;
    ++head.depth;
    ++head.behind;
    nodes_.push_back(head);
  }

  // Statements.

  void TakeStatement() {
    if (text_[start_] == u')') LeaveNestedSelect();
    if (StandsIn(NodeKind::kWhere)) {
      TakeCondition(start_);
    } else if (!StandsIn(NodeKind::kSelect)) {
      Leaf(NodeKind::kStatement, next_);
    } else if (ContinuesList()) {
      nodes_.back().problem = Problem::kNone;
      nodes_.back().last = at_ = next_;
    } else {
      Stray(Problem::kOutOfPlace, next_);
    }
  }

  // A list continues on a next line after a comma, before one, or while it is empty.
  bool ContinuesList() const {
    const Node& list = nodes_.back();
    if (!IsList(list.kind)) return false;
    if (list.problem == Problem::kIncomplete || text_[start_] == u',') return true;
    std::size_t end = at_;
    while (IsBlank(text_[end - 1]) || IsLineEnd(text_[end - 1]))
      --end;
    return text_[end - 1] == u',';
  }

  // A closing bracket ends the innermost select statement, unless it closes a bracket inside it.
  void LeaveNestedSelect() {
    if (!StandsIn(NodeKind::kSelect) && !StandsIn(NodeKind::kWhere)) return;
    if (frames_.back().brackets > 0) return;
    const std::uint32_t select = OpenFrame(NodeKind::kSelect);
    if (select > 0 && frames_[select - 1].kind == NodeKind::kWhere) CloseTo(select);
  }

  // Closes select statements without "endselect", before a statement that can't be in a clause.
  void LeaveClauses() {
    while (StandsIn(NodeKind::kSelect) || StandsIn(NodeKind::kWhere))
      CloseTo(OpenFrame(NodeKind::kSelect));
  }

  void TakeSelect(std::size_t behind) {
    if (StandsIn(NodeKind::kSelect) || (StandsIn(NodeKind::kWhere) && frames_.back().brackets == 0))
      CloseTo(OpenFrame(NodeKind::kSelect));
    Open(NodeKind::kSelect, lineEnd_);
    const bool isEmpty = RestIsBlank(behind);
    Node& list = Leaf(NodeKind::kSelectList, next_);
    if (isEmpty) list.problem = Problem::kIncomplete;
  }

  // Whether the open select statement at this index of frames_ is still in its clauses, before its
  // blocks.
  bool IsInClauses(std::size_t select) const {
    return select + 1 == frames_.size() || frames_[select + 1].kind == NodeKind::kWhere;
  }

  // The open select statement that a clause belongs to: the innermost one, or the one around that
  // when the innermost one already has this clause or a later one, in the order of the grammar.
  std::uint32_t SelectFor(NodeKind clause) {
    const std::uint32_t select = OpenFrame(NodeKind::kSelect);
    if (select == kNoFrame || clause > frames_[select].clause) return select;
    const std::uint32_t outer = frames_[select].outer;
    return outer == kNoFrame || clause <= frames_[outer].clause ? select : outer;
  }

  void TakeClause(NodeKind kind, std::size_t behind) {
    const std::uint32_t select = SelectFor(kind);
    const bool isBlock = kind >= NodeKind::kSelectDo;
    if (select == kNoFrame || (!isBlock && !IsInClauses(select)))
      return Stray(Problem::kOutOfPlace, next_);
    CloseTo(select + 1);
    const bool fits = kind > frames_[select].clause;
    if (fits) frames_[select].clause = kind;
    const std::size_t clause = nodes_.size();
    const bool isEmpty = RestIsBlank(behind);
    if (isBlock) {
      OpenWithHead(kind, PieceEnd(behind));
    } else if (kind == NodeKind::kWhere) {
      Open(kind, lineEnd_);
      TakeCondition(behind);
    } else {
      Leaf(kind, next_);
    }
    if (!fits) {
      nodes_[clause].problem = Problem::kOutOfPlace;
    } else if (isEmpty && !isBlock && kind != NodeKind::kWhere) {
      nodes_[clause].problem = Problem::kIncomplete;
    }
  }

  // Takes the rest of a line in a where clause, or the part before a nested select statement whose
  // brackets are not closed on the line.
  void TakeCondition(std::size_t from) {
    const std::size_t select = PassCondition(from);
    const std::size_t end = select == StringView::npos ? next_ : select;
    const std::uint32_t where = frames_.back().node;
    if (where + 1 == nodes_.size()) {
      at_ = end;
    } else if (nodes_.back().kind == NodeKind::kMore && nodes_.back().parent == where) {
      nodes_.back().last = at_ = end;
    } else {
      Leaf(NodeKind::kMore, end);
    }
  }

  // Counts the brackets of the open statement to the end of the line. Returns the place of a nested
  // select statement that does not end on the line, npos for none.
  std::size_t PassCondition(std::size_t from) {
    std::uint32_t& brackets = frames_.back().brackets;
    std::size_t select = StringView::npos;
    std::uint32_t bracketsAtSelect = 0;
    bool isInString = false;
    for (std::size_t at = from; at < lineEnd_; ++at) {
      if (text_[at] == u'"') isInString = !isInString;
      if (isInString) continue;
      if (text_[at] == u'(') {
        ++brackets;
        const std::size_t inside = PassBlanks(text_, at + 1);
        if (select == StringView::npos && inside < lineEnd_ &&
            StartOf(Line(inside)).word == LineWord::kSelect) {
          select = inside;
          bracketsAtSelect = brackets;
        }
      } else if (text_[at] == u')' && brackets > 0) {
        if (brackets-- == bracketsAtSelect) select = StringView::npos;
      }
    }
    if (select != StringView::npos) brackets = bracketsAtSelect;
    return select;
  }

  void TakeIf(std::size_t behind) {
    LeaveClauses();
    const std::size_t then = FindThen(behind);
    if (then == StringView::npos) {
      OpenWithHead(NodeKind::kIf, next_).problem = Problem::kIncomplete;
      return;
    }
    if (then > lineEnd_) GoToLineOf(then);
    constexpr StringView kThen = u"then";
    const bool isEmpty = PassBlanks(text_, behind) + kThen.size() == then;
    Open(NodeKind::kIf, then);
    const std::size_t end = PieceEnd(then);
    Node& head = Add(NodeKind::kHead, end, then);
    if (isEmpty) head.problem = Problem::kIncomplete;
    at_ = end;
  }

  // The position behind the "then" of a head, which may be on a later line (kMostHeadLines at
  // most); npos when an empty line or one that begins with a keyword comes first.
  std::size_t FindThen(std::size_t from) const {
    std::size_t end = lineEnd_;
    for (int lines = 0; lines < kMostHeadLines; ++lines) {
      const std::size_t then = BehindWord(text_.substr(from, end - from), u"then");
      if (then != StringView::npos) return from + then;
      from = PassBlanks(text_, BehindLineEnd(text_, end));
      end = EndOfLine(text_, from);
      if (from == end || StartOf(text_.substr(from, end - from)).word != LineWord::kNone) break;
    }
    return StringView::npos;
  }

  void TakeOpening(NodeKind kind, std::size_t behind) {
    LeaveClauses();
    bool isComplete = true;
    std::size_t end = next_;
    if (kind == NodeKind::kRepeat) {
      end = PieceEnd(behind);
    } else if (kind == NodeKind::kFor) {
      const StringView line = Line(behind);
      const std::size_t equals = line.find(u'=');
      isComplete = equals != StringView::npos && BehindWord(line, u"to", equals) != line.npos;
    } else {
      isComplete = !RestIsBlank(behind);
    }
    Node& head = OpenWithHead(kind, end);
    if (!isComplete) head.problem = Problem::kIncomplete;
  }

  // An else or a default belongs to the innermost if or on case, or to the one around it when the
  // innermost has one already.
  void TakeBranch(NodeKind owner, NodeKind kind, std::size_t behind) {
    std::uint32_t frame = OpenFrame(owner);
    if (frame != kNoFrame && frames_[frame].hasBranch) {
      frame = frames_[frame].outer;
      if (frame != kNoFrame && frames_[frame].hasBranch) frame = kNoFrame;
    }
    if (frame == kNoFrame) return Stray(Problem::kOutOfPlace, PieceEnd(behind));
    CloseTo(frame + 1);
    frames_[frame].hasBranch = true;
    OpenWithHead(kind, PieceEnd(behind));
  }

  void TakeRow(std::size_t behind) {
    const std::uint32_t frame = OpenFrame(NodeKind::kOnCase);
    if (frame == kNoFrame) return Stray(Problem::kOutOfPlace, next_);
    CloseTo(frame + 1);
    const std::size_t colon = ColonOfRow(Line(behind));
    const bool hasColon = colon != StringView::npos;
    const bool isComplete = hasColon && PassBlanks(text_, behind) < behind + colon;
    Node& head = OpenWithHead(NodeKind::kCaseRow, hasColon ? PieceEnd(behind + colon + 1) : next_);
    if (!isComplete) head.problem = Problem::kIncomplete;
  }

  void TakeBreak(std::size_t behind) {
    if (!StandsIn(NodeKind::kCaseRow) && !StandsIn(NodeKind::kDefault)) return TakeStatement();
    Leaf(NodeKind::kEnd, PieceEnd(behind));
    Close();
  }

  // "Until  ( a )": text behind the closing bracket belongs to the line too, unless it begins
  // another statement.
  void TakeUntil(std::size_t behind) {
    const std::size_t open = PassBlanks(text_, behind);
    std::size_t end = next_;
    bool isComplete = open < lineEnd_;
    if (isComplete && text_[open] == u'(') {
      const StringView line = Line(open);
      const std::size_t close = ClosingBracket(line, 0);
      if (close != StringView::npos) {
        isComplete = PassBlanks(line, 1) < close;
        const std::size_t rest = PassBlanks(line, close + 1);
        if (StartOf(line.substr(rest)).word != LineWord::kNone) end = open + rest;
      }
    }
    const std::size_t leaf = TakeEnd(NodeKind::kRepeat, end);
    if (!isComplete && nodes_[leaf].problem == Problem::kNone)
      nodes_[leaf].problem = Problem::kIncomplete;
  }

  // Closes a statement; gives the index of its closing line.
  std::size_t TakeEnd(NodeKind kind, std::size_t end) {
    const std::uint32_t frame = OpenFrame(kind);
    if (frame == kNoFrame) {
      Stray(Problem::kNothingToClose, end);
      return nodes_.size() - 1;
    }
    CloseTo(frame + 1);
    Leaf(NodeKind::kEnd, end);
    Close();
    return nodes_.size() - 1;
  }

  StringView text_;
  std::size_t at_ = 0;       // the text before this offset was read
  std::size_t start_ = 0;    // behind the blanks at `at_`
  std::size_t lineEnd_ = 0;  // the end of the line of `at_`
  std::size_t next_ = 0;     // the next line that is not blank
  std::vector<Node> nodes_;
  std::vector<Frame> frames_;               // the stack of open nodes, the outermost first
  std::array<std::uint32_t, kKinds> open_;  // the innermost frame of each kind
};

}  // namespace

std::vector<Node> ReadOutline(StringView text) {
  return Reader(text).Read();
}

const char* NameOf(NodeKind kind) {
  return kKindNames[static_cast<std::size_t>(kind)];
}

const char* NameOf(Problem problem) {
  return kProblemNames[static_cast<std::size_t>(problem)];
}

}  // namespace zolt20::language
