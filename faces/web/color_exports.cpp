// Exports for syntax colouring, in each module that has boxes of statements.
#include <cstdint>
#include <utility>

#include "faces/shared/statement_colors.h"
#include "faces/web/exchange.h"

using namespace zolt20;
using web::numbers;
using web::taken;

extern "C" {

/// Four numbers for each kind of word: colour on light, colour on dark, weight, 1 for italic.
ZOLT20_EXPORT(looks) void looks() {
  numbers.clear();
  for (int kind = 0; kind <= static_cast<int>(faces::WordKind::kNumber); ++kind) {
    const faces::Look look = faces::LookOf(static_cast<faces::WordKind>(kind));
    numbers.insert(numbers.end(),
                   {static_cast<std::int32_t>(look.onLight), static_cast<std::int32_t>(look.onDark),
                    look.weight, look.italic ? 1 : 0});
  }
}

/// First character, count and kind of each coloured word of the line in `taken`.
ZOLT20_EXPORT(colored_words) void colored_words() {
  const String line = std::exchange(taken, {});
  numbers.clear();
  for (const faces::ColoredWord& word : faces::ColoredWordsOf(line)) {
    numbers.insert(numbers.end(),
                   {static_cast<std::int32_t>(word.first), static_cast<std::int32_t>(word.count),
                    static_cast<std::int32_t>(word.kind)});
  }
}

}  // extern "C"
