// Checks a text of the statement language, such as a Result, a stored rule or a statement box, for
// blocks that are not closed, misplaced clauses, unbalanced brackets, names that are missing in the
// catalogue, and texts that the control can't take back.
//
// The text that the control itself writes from a completely filled form has no findings. A check
// never fails, and takes linear time. Hosts call this, for squiggles under words, for a list of
// problems, and on build servers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "language/names.h"
#include "language/outline.h"
#include "language/words.h"
#include "surface/string.h"

namespace zolt20::language {

enum class Severity : std::uint8_t {
  kError,    ///< the statement can't be right
  kWarning,  ///< the statement can be right, but the control or a host may not keep it unchanged
};

enum class Mistake : std::uint8_t {
#define ZOLT20_WORD(key, text)
#define ZOLT20_MISTAKE(key, code, severity, text) key,
#include "language/words.def"
  kCount,
};

/// "error" and "warning".
const char* NameOf(Severity severity);
/// A short word that never changes: "not-closed".
const char* CodeOf(Mistake mistake);

/// One problem with its place. Lines and columns count from 1, columns and lengths in characters of
/// 16 bits. A line ends with CR LF, CR or LF.
struct Finding {
  std::size_t first = 0;   ///< the offset in the text, from 0
  std::size_t length = 0;  ///< ends within the line; 0 only at the end of a line
  std::size_t line = 1;
  std::size_t column = 1;
  std::uint32_t node = 0;  ///< the index of the node that it was found in
  Mistake mistake = Mistake::kCount;
  Severity severity = Severity::kError;
  String sentence;
};

/// The limit of findings for each kind of mistake.
inline constexpr std::size_t kMostFindings = 1000;

/// The findings in the order of the text. Names are checked if there is a catalogue.
std::vector<Finding> Check(StringView text, const Names* names = nullptr,
                           const Words& words = Words::English());
/// The same with the nodes that ReadOutline made of the text.
std::vector<Finding> Check(StringView text, const std::vector<Node>& nodes,
                           const Names* names = nullptr, const Words& words = Words::English());

}  // namespace zolt20::language
