#include "hosts/composer/text_difference.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace zolt20::composer {
namespace {

// With more changes between two matched lines, all lines between them count as changed.
constexpr int kMostChanges = 400;

std::vector<StringView> LinesOf(StringView text) {
  std::vector<StringView> lines;
  for (std::size_t at = 0; !text.empty() && at <= text.size();) {
    const std::size_t end = std::min(text.find(kLineBreak, at), text.size());
    lines.push_back(text.substr(at, end - at));
    at = end + kLineBreak.size();
  }
  return lines;
}

// Lines as numbers; equal lines have equal numbers.
using Numbers = std::vector<int>;

Numbers NumbersOf(const std::vector<StringView>& lines,
                  std::unordered_map<StringView, int>& known) {
  Numbers numbers;
  for (const StringView line : lines)
    numbers.push_back(known.emplace(line, static_cast<int>(known.size())).first->second);
  return numbers;
}

// Half-open ranges of lines in both texts.
struct Region {
  int a0, a1, b0, b1;
};
struct Match {
  int a, b;
};

class Differ {
 public:
  Differ(Numbers a, Numbers b) : a_(std::move(a)), b_(std::move(b)) {}

  /// The matched lines, in their order.
  std::vector<Match> Matches() {
    std::vector<Region> open{{0, static_cast<int>(a_.size()), 0, static_cast<int>(b_.size())}};
    while (!open.empty()) {
      Region region = open.back();
      open.pop_back();
      TrimEnds(region);
      if (region.a0 == region.a1 || region.b0 == region.b1) continue;
      const std::vector<Match> anchors = Anchors(region);
      if (anchors.empty()) {
        MatchByFewestChanges(region);
        continue;
      }
      Match last{region.a0 - 1, region.b0 - 1};
      for (const Match& anchor : anchors) {
        open.push_back({last.a + 1, anchor.a, last.b + 1, anchor.b});
        matches_.push_back(anchor);
        last = anchor;
      }
      open.push_back({last.a + 1, region.a1, last.b + 1, region.b1});
    }
    std::sort(matches_.begin(), matches_.end(),
              [](const Match& one, const Match& other) { return one.a < other.a; });
    return std::move(matches_);
  }

 private:
  bool Same(int a, int b) const {
    return a_[static_cast<std::size_t>(a)] == b_[static_cast<std::size_t>(b)];
  }

  void TrimEnds(Region& region) {
    while (region.a0 < region.a1 && region.b0 < region.b1 && Same(region.a0, region.b0))
      matches_.push_back({region.a0++, region.b0++});
    while (region.a0 < region.a1 && region.b0 < region.b1 && Same(region.a1 - 1, region.b1 - 1))
      matches_.push_back({--region.a1, --region.b1});
  }

  // The longest common subsequence of the lines that the region has exactly once in each text.
  std::vector<Match> Anchors(const Region& region) const {
    struct Seen {
      int inA = 0, inB = 0, atB = 0;
    };
    std::unordered_map<int, Seen> seen;
    for (int a = region.a0; a < region.a1; ++a)
      ++seen[a_[static_cast<std::size_t>(a)]].inA;
    for (int b = region.b0; b < region.b1; ++b) {
      Seen& line = seen[b_[static_cast<std::size_t>(b)]];
      ++line.inB;
      line.atB = b;
    }
    std::vector<Match> once;
    for (int a = region.a0; a < region.a1; ++a) {
      const Seen& line = seen[a_[static_cast<std::size_t>(a)]];
      if (line.inA == 1 && line.inB == 1) once.push_back({a, line.atB});
    }
    return LongestRising(once);
  }

  static std::vector<Match> LongestRising(const std::vector<Match>& matches) {
    std::vector<std::size_t> tops;  // of each length the match that ends lowest
    std::vector<std::size_t> before(matches.size());
    for (std::size_t i = 0; i < matches.size(); ++i) {
      const auto place =
          std::lower_bound(tops.begin(), tops.end(), matches[i].b,
                           [&](std::size_t top, int b) { return matches[top].b < b; });
      before[i] = place == tops.begin() ? i : *(place - 1);
      if (place == tops.end()) {
        tops.push_back(i);
      } else {
        *place = i;
      }
    }
    std::vector<Match> rising;
    for (std::size_t length = tops.size(), i = tops.empty() ? 0 : tops.back(); length > 0;
         --length, i = before[i])
      rising.push_back(matches[i]);
    std::reverse(rising.begin(), rising.end());
    return rising;
  }

  // Matches lines by the greedy algorithm for the shortest edit script: for each number of changes,
  // the furthest point on each diagonal.
  void MatchByFewestChanges(const Region& region) {
    const int sizeA = region.a1 - region.a0;
    const int sizeB = region.b1 - region.b0;
    std::vector<std::vector<int>> reached;
    for (int changes = 0; changes <= std::min(kMostChanges, sizeA + sizeB); ++changes) {
      std::vector<int> now(static_cast<std::size_t>(2 * changes + 1));
      for (int diagonal = -changes; diagonal <= changes; diagonal += 2) {
        int x = StartOn(reached, changes, diagonal);
        while (x < sizeA && x - diagonal < sizeB && Same(region.a0 + x, region.b0 + x - diagonal))
          ++x;
        now[PlaceOf(changes, diagonal)] = x;
        if (x >= sizeA && x - diagonal >= sizeB) {
          return WalkBack(region, reached, changes, diagonal, x);
        }
      }
      reached.push_back(std::move(now));
    }
  }

  static int At(const std::vector<int>& reached, int changes, int diagonal) {
    if (diagonal < -changes || diagonal > changes) return -1;
    return reached[PlaceOf(changes, diagonal)];
  }

  static std::size_t PlaceOf(int changes, int diagonal) {
    const int place = diagonal + changes;
    return static_cast<std::size_t>(place);
  }

  // Whether the path to a diagonal ends with an added line.
  static bool ComesByAdding(const std::vector<int>& before, int changes, int diagonal) {
    return diagonal == -changes ||
           (diagonal != changes &&
            At(before, changes - 1, diagonal - 1) < At(before, changes - 1, diagonal + 1));
  }

  static int StartOn(const std::vector<std::vector<int>>& reached, int changes, int diagonal) {
    if (changes == 0) return 0;
    const std::vector<int>& before = reached.back();
    if (ComesByAdding(before, changes, diagonal)) return At(before, changes - 1, diagonal + 1);
    return At(before, changes - 1, diagonal - 1) + 1;
  }

  void WalkBack(const Region& region, const std::vector<std::vector<int>>& reached, int changes,
                int diagonal, int x) {
    for (; changes >= 0; --changes) {
      int start = 0;
      int next = diagonal;
      if (changes > 0) {
        const std::vector<int>& before = reached[static_cast<std::size_t>(changes) - 1];
        const bool adds = ComesByAdding(before, changes, diagonal);
        next = adds ? diagonal + 1 : diagonal - 1;
        start = At(before, changes - 1, next) + (adds ? 0 : 1);
      }
      for (; x > start; --x)
        matches_.push_back({region.a0 + x - 1, region.b0 + x - 1 - diagonal});
      if (changes > 0) x = next == diagonal + 1 ? start : start - 1;
      diagonal = next;
    }
  }

  Numbers a_;
  Numbers b_;
  std::vector<Match> matches_;
};

}  // namespace

std::vector<MarkedLine> LineDifference(StringView before, StringView after) {
  const std::vector<StringView> old = LinesOf(before);
  const std::vector<StringView> fresh = LinesOf(after);
  std::unordered_map<StringView, int> known;
  Numbers oldNumbers = NumbersOf(old, known);
  std::vector<Match> matches = Differ(std::move(oldNumbers), NumbersOf(fresh, known)).Matches();
  matches.push_back({static_cast<int>(old.size()), static_cast<int>(fresh.size())});
  std::vector<MarkedLine> lines;
  std::size_t a = 0;
  std::size_t b = 0;
  for (const Match& match : matches) {
    for (; a < static_cast<std::size_t>(match.a); ++a)
      lines.push_back({LineMark::kRemoved, old[a]});
    for (; b < static_cast<std::size_t>(match.b); ++b)
      lines.push_back({LineMark::kAdded, fresh[b]});
    if (b < fresh.size()) lines.push_back({LineMark::kSame, fresh[b]});
    ++a;
    ++b;
  }
  return lines;
}

bool HasMarks(const std::vector<MarkedLine>& lines) {
  return std::any_of(lines.begin(), lines.end(),
                     [](const MarkedLine& line) { return line.mark != LineMark::kSame; });
}

}  // namespace zolt20::composer
