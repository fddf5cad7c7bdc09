// Keys and clicks made up at random, from a seed, for a text box of a face and for a plain box of
// the platform beside it. Knows no platform: a test has a driver that sends them.
//
// A walk in a box is made of courses. Each begins with a text that the control shows, so that both
// boxes have no history of their own, and goes on with keys; a course can be had alone, by its
// seed.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zolt20::tests {

/// A key, or the mouse at a place of the box.
struct BoxKey {
  enum class What {
    kCharacter,
    kEnter,
    kLeft,
    kRight,
    kUp,
    kDown,
    kHome,
    kEnd,
    kBackspace,
    kDelete,
    kSelectAll,
    kCopy,
    kCut,
    kPaste,
    kUndo,
    kRedo,
    kClick,
    kDoubleClick,
  };
  What what = What::kCharacter;
  bool control = false;
  bool shift = false;
  char character = 'a';
  std::u16string text{};  ///< what the clipboard has at a paste; empty: what was copied last
  double across = 0;      ///< of a click, as a share of the box
  double down = 0;
};

/// What a box is like, as far as keys are chosen by it.
struct BoxManner {
  bool hasSeveralLines = false;
  bool takesDigits = false;  ///< digits are likelier
  int usualKeys = 2000;      ///< how many keys it gets when nobody asks for another number
};

/// A text to begin with, and the keys behind it.
struct BoxCourse {
  unsigned seed = 0;
  std::u16string text;
  std::vector<BoxKey> keys;
};
inline constexpr int kKeysOfACourse = 100;
BoxCourse MakeBoxCourse(unsigned seed, const BoxManner& manner, int keys = kKeysOfACourse);

/// A text with its line ends to be seen.
std::string InQuotes(const std::u16string& text);

/// A key as people write it, such as "Ctrl+Shift+Left"; a whole list of them.
std::string Written(const BoxKey& key);
std::string Written(const std::vector<BoxKey>& keys);

/// How many keys a box gets: of ZOLT20_ALIKE_KEYS, or else as usual.
int KeysOfABox(const BoxManner& manner);
/// The one course to play, of ZOLT20_ALIKE_SEED.
std::optional<unsigned> SeedAsked();
/// The first seed of the courses of a box, which is another one in each.
unsigned FirstSeedOf(const std::string& box);

/// Plays a course from its beginning with the keys given, and tells the first way in which the two
/// boxes differ and after how many keys; nothing when they agree.
struct Divergence {
  int keys = 0;
  std::string what;
};
using PlayKeys = std::function<std::optional<Divergence>(const BoxCourse& course)>;

/// Plays courses until a box has had its keys. Gives a report of the first divergence, with the
/// shortest tail of its keys that shows one; empty when there is none. Counts the keys.
std::string PlayBox(const std::string& box, const BoxManner& manner, const PlayKeys& play,
                    const std::string& howToRun, long& played);

}  // namespace zolt20::tests
