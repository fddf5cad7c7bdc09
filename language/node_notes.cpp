#include "language/node_notes.h"

#include <algorithm>
#include <unordered_map>

#include "language/line_words.h"

namespace zolt20::language {
namespace {

using Nodes = std::vector<Node>;
using Numbers = std::vector<std::uint32_t>;

constexpr std::uint64_t kSeed = 0xCBF2'9CE4'8422'2325;
constexpr std::uint64_t kPrime = 0x0000'0100'0000'01B3;

std::uint64_t Mix(std::uint64_t sum, std::uint64_t value) {
  return (sum ^ value) * kPrime;
}

// Of two texts that differ in blanks alone it is the same.
std::uint64_t SumOf(StringView text) {
  std::uint64_t sum = kSeed;
  for (const char16_t c : text) {
    if (!IsBlank(c) && !IsLineEnd(c)) sum = Mix(sum, c);
  }
  return sum;
}

// A text and its tree, with sums of heads and of whole nodes.
struct Tree {
  explicit Tree(StringView read) : text(read), nodes(ReadOutline(read)) {
    heads.reserve(nodes.size());
    sums.reserve(nodes.size());
    for (const Node& node : nodes) {
      heads.push_back(Mix(SumOf(HeadOf(text, node)), static_cast<std::uint64_t>(node.kind)));
      sums.push_back(heads.back());
    }
    // Those within a node stand behind it.
    for (std::size_t i = nodes.size(); i-- > 0;) {
      if (IsLeaf(nodes, i)) sums[i] = Mix(SumOf(TextOf(text, nodes[i])), sums[i]);
      if (nodes[i].parent != Node::kNone)
        sums[nodes[i].parent] = Mix(sums[nodes[i].parent], sums[i]);
    }
  }

  Numbers Within(std::uint32_t index) const {
    Numbers within;
    const bool isRoot = index == Node::kNone;
    const std::size_t end = isRoot ? nodes.size() : nodes[index].behind;
    for (std::size_t i = isRoot ? 0 : index + 1; i < end; i = nodes[i].behind)
      within.push_back(static_cast<std::uint32_t>(i));
    return within;
  }

  StringView text;
  Nodes nodes;
  std::vector<std::uint64_t> heads;
  std::vector<std::uint64_t> sums;
};

// Finds for the nodes of one tree those of another one.
class Matcher {
 public:
  Matcher(const Tree& before, const Tree& after)
      : before_(before),
        after_(after),
        found_(before.nodes.size(), Node::kNone),
        isTaken_(after.nodes.size(), false) {}

  void Match(std::optional<NodePair> known) {
    if (known) Pair(Number(known->first), Number(known->second));
    MatchWithin(Node::kNone, Node::kNone, false);
    MatchAlike();
    MatchWithin(Node::kNone, Node::kNone, true);
  }

  /// Node::kNone for one that is gone.
  std::uint32_t Found(std::size_t index) const { return found_[index]; }
  bool IsTaken(std::size_t index) const { return isTaken_[index]; }

 private:
  static std::uint32_t Number(std::size_t index) { return static_cast<std::uint32_t>(index); }
  bool IsFree(std::uint32_t a, std::uint32_t b) const {
    return found_[a] == Node::kNone && !isTaken_[b];
  }

  // Two that are alike have as many nodes within.
  void Pair(std::uint32_t a, std::uint32_t b) {
    const bool isAlike = before_.sums[a] == after_.sums[b] &&
                         before_.nodes[a].behind - a == after_.nodes[b].behind - b;
    const std::uint32_t count = isAlike ? before_.nodes[a].behind - a : 1;
    for (std::uint32_t i = 0; i < count; ++i) {
      if (!IsFree(a + i, b + i)) continue;
      found_[a + i] = b + i;
      isTaken_[b + i] = true;
    }
  }

  // Those within two nodes that belong together, and so on downwards.
  void MatchWithin(std::uint32_t rootBefore, std::uint32_t rootAfter, bool byKind) {
    std::vector<std::pair<std::uint32_t, std::uint32_t>> open{{rootBefore, rootAfter}};
    while (!open.empty()) {
      const auto [a, b] = open.back();
      open.pop_back();
      const Numbers left = before_.Within(a);
      const Numbers right = after_.Within(b);
      MatchBySums(left, right, before_.sums, after_.sums);
      MatchBySums(left, right, before_.heads, after_.heads);
      if (byKind) MatchByKinds(left, right);
      for (const std::uint32_t node : left) {
        if (found_[node] == Node::kNone || IsLeaf(before_.nodes, node)) continue;
        if (before_.sums[node] != after_.sums[found_[node]]) open.emplace_back(node, found_[node]);
      }
    }
  }

  // Equal ones, from both ends and then as often as they come.
  void MatchBySums(const Numbers& left, const Numbers& right,
                   const std::vector<std::uint64_t>& sumsBefore,
                   const std::vector<std::uint64_t>& sumsAfter) {
    const auto isSame = [&](std::uint32_t a, std::uint32_t b) {
      return IsFree(a, b) && sumsBefore[a] == sumsAfter[b];
    };
    std::size_t front = 0;
    const std::size_t most = std::min(left.size(), right.size());
    for (; front < most && isSame(left[front], right[front]); ++front)
      Pair(left[front], right[front]);
    for (std::size_t back = 1; back <= most - front; ++back) {
      const std::uint32_t a = left[left.size() - back];
      const std::uint32_t b = right[right.size() - back];
      if (!isSame(a, b)) break;
      Pair(a, b);
    }
    std::unordered_map<std::uint64_t, Numbers> waiting;
    for (std::size_t place = right.size(); place-- > 0;) {
      const std::uint32_t b = right[place];
      if (!isTaken_[b]) waiting[sumsAfter[b]].push_back(b);
    }
    for (const std::uint32_t a : left) {
      const auto found = waiting.find(sumsBefore[a]);
      if (found_[a] != Node::kNone || found == waiting.end() || found->second.empty()) continue;
      Pair(a, found->second.back());
      found->second.pop_back();
    }
  }

  // What is left, where its neighbours are the same.
  void MatchByKinds(const Numbers& left, const Numbers& right) {
    std::unordered_map<std::uint32_t, std::size_t> places;
    for (std::size_t place = 0; place < right.size(); ++place)
      places.emplace(right[place], place);
    std::size_t next = 0;
    for (const std::uint32_t a : left) {
      if (found_[a] != Node::kNone) {
        const auto place = places.find(found_[a]);
        if (place != places.end()) next = place->second + 1;
        continue;
      }
      if (next == right.size() || isTaken_[right[next]]) continue;
      if (before_.nodes[a].kind == after_.nodes[right[next]].kind) Pair(a, right[next++]);
    }
  }

  // Nodes that moved away, the outer ones first.
  void MatchAlike() {
    std::unordered_map<std::uint64_t, Numbers> waiting;
    for (std::size_t b = after_.nodes.size(); b-- > 0;)
      if (!isTaken_[b]) waiting[after_.sums[b]].push_back(Number(b));
    for (std::uint32_t a = 0; a < before_.nodes.size(); ++a) {
      if (found_[a] != Node::kNone) continue;
      const auto found = waiting.find(before_.sums[a]);
      if (found == waiting.end()) continue;
      Numbers& places = found->second;
      while (!places.empty() && isTaken_[places.back()])
        places.pop_back();
      if (!places.empty()) Pair(a, places.back());
    }
  }

  const Tree& before_;
  const Tree& after_;
  Numbers found_;
  std::vector<bool> isTaken_;
};

NodeNote At(const Tree& tree, std::size_t index, StringView note) {
  return {PathOf(tree.nodes, index), String(HeadOf(tree.text, tree.nodes[index])), String(note)};
}

bool HasPlace(const NodeNote& note) {
  return !note.path.empty();
}

// In the order of the tree.
void Sort(std::vector<NodeNote>& notes) {
  std::stable_sort(notes.begin(), notes.end(), [](const NodeNote& a, const NodeNote& b) {
    if (HasPlace(a) != HasPlace(b)) return HasPlace(a);
    return a.path < b.path;
  });
}

}  // namespace

std::vector<std::uint32_t> PathOf(const Nodes& nodes, std::size_t index) {
  std::vector<std::uint32_t> path;
  while (index != Node::kNone) {
    const std::uint32_t parent = nodes[index].parent;
    std::uint32_t place = 0;
    for (std::size_t i = parent == Node::kNone ? 0 : parent + 1; i < index; i = nodes[i].behind)
      ++place;
    path.push_back(place);
    index = parent;
  }
  std::reverse(path.begin(), path.end());
  return path;
}

std::size_t NodeAt(const Nodes& nodes, const std::vector<std::uint32_t>& path) {
  std::size_t index = Node::kNone;
  for (const std::uint32_t place : path) {
    const std::size_t end = index == Node::kNone ? nodes.size() : nodes[index].behind;
    std::size_t child = index == Node::kNone ? 0 : index + 1;
    for (std::uint32_t passed = 0; passed < place && child < end; ++passed)
      child = nodes[child].behind;
    if (child >= end) return Node::kNone;
    index = child;
  }
  return index;
}

const NodeNote* NoteOf(const std::vector<NodeNote>& notes, const Nodes& nodes, std::size_t index) {
  const std::vector<std::uint32_t> path = PathOf(nodes, index);
  const auto found = std::find_if(notes.begin(), notes.end(),
                                  [&](const NodeNote& note) { return note.path == path; });
  return found == notes.end() || path.empty() ? nullptr : &*found;
}

void PutNote(std::vector<NodeNote>& notes, StringView text, const Nodes& nodes, std::size_t index,
             StringView note) {
  const std::vector<std::uint32_t> path = PathOf(nodes, index);
  std::erase_if(notes, [&](const NodeNote& each) { return each.path == path; });
  if (note.empty()) return;
  notes.push_back({path, String(HeadOf(text, nodes[index])), String(note)});
  Sort(notes);
}

std::vector<NodeNote> CarryNotes(const std::vector<NodeNote>& notes, StringView before,
                                 StringView after, std::optional<NodePair> known) {
  if (notes.empty() || before == after) return notes;
  const Tree left(before);
  const Tree right(after);
  Matcher matcher(left, right);
  matcher.Match(known);
  std::vector<NodeNote> carried;
  std::vector<bool> isNoted(right.nodes.size(), false);
  for (const NodeNote& note : notes) {
    const std::size_t index = NodeAt(left.nodes, note.path);
    const std::uint32_t found = index == Node::kNone ? Node::kNone : matcher.Found(index);
    if (found == Node::kNone) {
      carried.push_back({{}, note.head, note.note});
      continue;
    }
    isNoted[found] = true;
    carried.push_back(At(right, found, note.note));
  }
  // One that came now may be one that went before.
  for (NodeNote& note : carried) {
    if (HasPlace(note)) continue;
    const std::uint64_t sum = SumOf(note.head);
    for (std::size_t i = 0; i < right.nodes.size(); ++i) {
      if (matcher.IsTaken(i) || isNoted[i] || SumOf(HeadOf(after, right.nodes[i])) != sum) continue;
      isNoted[i] = true;
      note = At(right, i, note.note);
      break;
    }
  }
  Sort(carried);
  return carried;
}

std::vector<NodeNote> FindNotes(std::vector<NodeNote> notes, StringView text) {
  if (notes.empty()) return notes;
  const Nodes nodes = ReadOutline(text);
  std::vector<bool> isNoted(nodes.size(), false);
  const auto isAt = [&](const NodeNote& note, std::size_t index) {
    return index != Node::kNone && HeadOf(text, nodes[index]) == note.head;
  };
  for (const NodeNote& note : notes) {
    const std::size_t index = NodeAt(nodes, note.path);
    if (isAt(note, index)) isNoted[index] = true;
  }
  for (NodeNote& note : notes) {
    if (!HasPlace(note) || isAt(note, NodeAt(nodes, note.path))) continue;
    std::size_t found = Node::kNone;
    bool isOnly = true;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      if (isNoted[i] || !isAt(note, i)) continue;
      isOnly = found == Node::kNone;
      if (!isOnly) break;
      found = i;
    }
    note.path.clear();
    if (found == Node::kNone || !isOnly) continue;
    note.path = PathOf(nodes, found);
    isNoted[found] = true;
  }
  Sort(notes);
  return notes;
}

}  // namespace zolt20::language
