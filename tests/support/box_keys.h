// Random keys and clicks, from a seed, for a text box of a face and a plain box of the platform
// beside it, which has to behave alike. Knows no platform: a test's driver sends the keys.
//
// A walk in a box consists of courses. Each begins with a text that the control shows, so that
// neither box has an undo history, and goes on with keys; a course can be played alone, by its
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

/// The properties of a box by which keys are chosen.
struct BoxManner {
  bool hasSeveralLines = false;
  bool takesDigits = false;  ///< digits are likelier
  int usualKeys = 2000;      ///< how many keys the box gets by default
};

/// A text to begin with, and the keys behind it.
struct BoxCourse {
  unsigned seed = 0;
  std::u16string text;
  std::vector<BoxKey> keys;
};
inline constexpr int kKeysOfACourse = 100;
BoxCourse MakeBoxCourse(unsigned seed, const BoxManner& manner, int keys = kKeysOfACourse);

/// A text in quotes, with visible line ends.
std::string InQuotes(const std::u16string& text);

/// A key as people write it, such as "Ctrl+Shift+Left"; a whole list of them.
std::string Written(const BoxKey& key);
std::string Written(const std::vector<BoxKey>& keys);

/// How many keys a box gets: the number in ZOLT20_ALIKE_KEYS, or else the default.
int KeysOfABox(const BoxManner& manner);
/// The seed in ZOLT20_ALIKE_SEED, of the only course to play; nullopt to play all.
std::optional<unsigned> SeedAsked();
/// The first seed for the courses of a box; boxes have different ones.
unsigned FirstSeedOf(const std::string& box);

/// Plays a course from its beginning with the keys given. Gives the first difference of the two
/// boxes and after how many keys it came; nullopt when they agree.
struct Divergence {
  int keys = 0;
  std::string what;
};
using PlayKeys = std::function<std::optional<Divergence>(const BoxCourse& course)>;

/// Plays courses until a box has had its keys. Gives a report of the first divergence, shrunk to
/// the shortest tail of keys that shows one; empty when there is none. Counts the keys.
std::string PlayBox(const std::string& box, const BoxManner& manner, const PlayKeys& play,
                    const std::string& howToRun, long& played);

}  // namespace zolt20::tests
