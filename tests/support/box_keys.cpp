#include "tests/support/box_keys.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <random>
#include <string_view>
#include <utility>

namespace zolt20::tests {
namespace {

using What = BoxKey::What;

class Maker {
 public:
  Maker(unsigned seed, const BoxManner& manner) : random_(seed), manner_(manner) {}

  std::u16string Beginning() {
    std::u16string text;
    if (OneIn(3)) return text;
    for (int words = 1 + Below(manner_.hasSeveralLines ? 14 : 4); words > 0; --words)
      text += Word(manner_.hasSeveralLines);
    return text;
  }

  BoxKey Next() {
    const int dice = Below(100);
    if (dice < 34) return Typed();
    if (dice < 42) return Key(What::kLeft, true);
    if (dice < 50) return Key(What::kRight, true);
    if (dice < 54) return Key(What::kUp, false);
    if (dice < 58) return Key(What::kDown, false);
    if (dice < 62) return Key(What::kHome, true);
    if (dice < 66) return Key(What::kEnd, true);
    if (dice < 73) return Key(What::kBackspace, false);
    if (dice < 77) return Key(What::kDelete, false);
    if (dice < 78) return {What::kSelectAll};
    if (dice < 80) return {What::kCopy};
    if (dice < 82) return {What::kCut};
    if (dice < 85) return Paste();
    if (dice < 90) return {What::kUndo};
    if (dice < 93) return {What::kRedo};
    if (dice < 98) return Mouse(What::kClick);
    return Mouse(What::kDoubleClick);
  }

 private:
  int Below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
  bool OneIn(int count) { return Below(count) == 0; }

  std::u16string Word(bool withLineEnds) {
    static constexpr std::array<std::u16string_view, 10> kWords{
        u"a", u"select ", u"x7", u" ", u"CUSTOMER.C_LAST", u"= 12", u"( ", u"\t", u"if b", u"\xE9"};
    static constexpr std::array<std::u16string_view, 3> kLineEnds{u"\r\n", u"\n", u"\r\n\r\n"};
    if (withLineEnds && OneIn(3))
      return std::u16string(kLineEnds[static_cast<std::size_t>(Below(3))]);
    return std::u16string(kWords[static_cast<std::size_t>(Below(10))]);
  }
  BoxKey Typed() {
    static constexpr std::string_view kLetters = "abcxyzSELECT.,=( )'\"";
    BoxKey key{What::kCharacter};
    if (manner_.hasSeveralLines && OneIn(8)) {
      key.what = What::kEnter;
    } else if (OneIn(manner_.takesDigits ? 2 : 4)) {
      key.character = static_cast<char>('0' + Below(10));
    } else {
      key.character = kLetters[static_cast<std::size_t>(Below(static_cast<int>(kLetters.size())))];
    }
    return key;
  }
  BoxKey Key(What what, bool byWordsToo) {
    BoxKey key{what};
    const bool moves = what != What::kBackspace && what != What::kDelete;
    key.shift = moves && OneIn(3);
    key.control = byWordsToo && OneIn(4);
    return key;
  }
  BoxKey Paste() {
    BoxKey key{What::kPaste};
    if (OneIn(2)) return key;
    for (int words = 1 + Below(4); words > 0; --words)
      key.text += Word(manner_.hasSeveralLines || OneIn(4));
    return key;
  }
  BoxKey Mouse(What what) {
    BoxKey key{what};
    key.shift = what == What::kClick && OneIn(4);
    constexpr double kParts = 1000;
    key.across = Below(1000) / kParts;
    key.down = Below(1000) / kParts;
    return key;
  }

  std::mt19937 random_;
  BoxManner manner_;
};

std::string NumberOfEnvironment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

// The course from its key `first` on, behind what the ones before it made.
BoxCourse Tail(const BoxCourse& course, std::size_t count) {
  BoxCourse tail = course;
  tail.keys.erase(tail.keys.begin(), tail.keys.end() - static_cast<std::ptrdiff_t>(count));
  return tail;
}

}  // namespace

BoxCourse MakeBoxCourse(unsigned seed, const BoxManner& manner, int keys) {
  Maker maker(seed, manner);
  BoxCourse course{seed, maker.Beginning(), {}};
  for (; keys > 0; --keys)
    course.keys.push_back(maker.Next());
  return course;
}

std::string InQuotes(const std::u16string& text) {
  std::string shown = "\"";
  for (const char16_t character : text) {
    constexpr char16_t kFirstOther = 0x7F;
    if (character == u'\r') {
      shown += "\\r";
    } else if (character == u'\n') {
      shown += "\\n";
    } else if (character == u'\t') {
      shown += "\\t";
    } else {
      shown += character < kFirstOther ? static_cast<char>(character) : '?';
    }
  }
  return shown + "\"";
}

std::string Written(const BoxKey& key) {
  static constexpr std::array<const char*, 18> kNames{
      "",       "Enter",  "Left",      "Right",  "Up",     "Down",
      "Home",   "End",    "Backspace", "Delete", "Ctrl+A", "Ctrl+C",
      "Ctrl+X", "Ctrl+V", "Ctrl+Z",    "Ctrl+Y", "click",  "double click"};
  std::string written;
  if (key.control) written += "Ctrl+";
  if (key.shift) written += "Shift+";
  if (key.what == What::kCharacter) return std::string("'") + key.character + '\'';
  written += kNames[static_cast<std::size_t>(key.what)];
  if (key.what == What::kPaste && !key.text.empty()) written += " of " + InQuotes(key.text);
  if (key.what == What::kClick || key.what == What::kDoubleClick) {
    constexpr int kHundred = 100;
    written += " at " + std::to_string(static_cast<int>(key.across * kHundred)) + "% " +
               std::to_string(static_cast<int>(key.down * kHundred)) + "%";
  }
  return written;
}

std::string Written(const std::vector<BoxKey>& keys) {
  std::string written;
  for (const BoxKey& key : keys)
    written += (written.empty() ? "" : ", ") + Written(key);
  return written;
}

int KeysOfABox(const BoxManner& manner) {
  const std::string asked = NumberOfEnvironment("ZOLT20_ALIKE_KEYS");
  return asked.empty() ? manner.usualKeys : std::max(1, std::stoi(asked));
}

std::optional<unsigned> SeedAsked() {
  const std::string asked = NumberOfEnvironment("ZOLT20_ALIKE_SEED");
  return asked.empty() ? std::nullopt : std::optional(static_cast<unsigned>(std::stoul(asked)));
}

unsigned FirstSeedOf(const std::string& box) {
  unsigned seed = 0;
  constexpr unsigned kFactor = 31;
  for (const char letter : box)
    seed = seed * kFactor + static_cast<unsigned char>(letter);
  constexpr unsigned kSpace = 1'000'000;
  return seed % 1000 * kSpace;
}

std::string PlayBox(const std::string& box, const BoxManner& manner, const PlayKeys& play,
                    const std::string& howToRun, long& played) {
  const std::optional<unsigned> asked = SeedAsked();
  const int courses = asked ? 1 : (KeysOfABox(manner) + kKeysOfACourse - 1) / kKeysOfACourse;
  unsigned seed = asked.value_or(FirstSeedOf(box));
  for (int count = 0; count < courses; ++count, ++seed) {
    const int keys = asked ? kKeysOfACourse
                           : std::min(kKeysOfACourse, KeysOfABox(manner) - count * kKeysOfACourse);
    BoxCourse course = MakeBoxCourse(seed, manner, keys);
    std::optional<Divergence> found = play(course);
    played += found ? found->keys : keys;
    if (!found) continue;
    course.keys.resize(static_cast<std::size_t>(found->keys));
    BoxCourse shortest = course;
    for (std::size_t tail = 1; tail < course.keys.size(); ++tail) {
      const BoxCourse shorter = Tail(course, tail);
      const std::optional<Divergence> again = play(shorter);
      if (!again) continue;
      found = again;
      shortest = shorter;
      shortest.keys.resize(static_cast<std::size_t>(again->keys));
      break;
    }
    return box + " with seed " + std::to_string(seed) + ": " + found->what + "\n  a text of " +
           InQuotes(shortest.text) + " and the keys " + Written(shortest.keys) +
           "\n  To run it alone: ZOLT20_ALIKE_SEED=" + std::to_string(seed) + " " + howToRun;
  }
  return "";
}

}  // namespace zolt20::tests
