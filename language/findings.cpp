#include "language/findings.h"

#include <algorithm>

#include "language/line_words.h"

namespace zolt20::language {
namespace {

struct MistakeDesign {
  const char* code;
  Severity severity;
};

constexpr std::array<MistakeDesign, static_cast<std::size_t>(Mistake::kCount)> kDesigns{{
#define ZOLT20_WORD(key, text)
#define ZOLT20_MISTAKE(key, code, severity, text) {code, Severity::severity},
#include "language/words.def"
}};

// words.def has the mistakes first, so a mistake and its word have the same number.
Word WordOf(Mistake mistake) {
  return static_cast<Word>(mistake);
}
static_assert(static_cast<int>(Word::tooLong) == static_cast<int>(Mistake::tooLong));
static_assert(static_cast<int>(Mistake::tooLong) + 1 == static_cast<int>(Mistake::kCount));

}  // namespace

const char* NameOf(Severity severity) {
  return severity == Severity::kError ? "error" : "warning";
}

const char* CodeOf(Mistake mistake) {
  return kDesigns[static_cast<std::size_t>(mistake)].code;
}

void Findings::Add(Mistake mistake, std::size_t node, std::size_t first, std::size_t length,
                   Values values) {
  Add(mistake, WordOf(mistake), node, first, length, values);
}

void Findings::Add(Mistake mistake, Word sentence, std::size_t node, std::size_t first,
                   std::size_t length, Values values) {
  if (!HasRoomFor(mistake)) return;
  ++counts_[PlaceOf(mistake)];
  Finding finding;
  finding.first = first;
  finding.length = std::min(length, EndOfLine(text_.substr(0, first + length), first) - first);
  finding.node = static_cast<std::uint32_t>(node);
  finding.mistake = mistake;
  finding.severity = kDesigns[PlaceOf(mistake)].severity;
  finding.sentence = Filled(words_[sentence], values);
  found_.push_back(std::move(finding));
}

std::vector<Finding> Findings::Take() {
  std::stable_sort(found_.begin(), found_.end(),
                   [](const Finding& a, const Finding& b) { return a.first < b.first; });
  std::size_t line = 1;
  std::size_t begin = 0;
  std::size_t end = EndOfLine(text_, 0);
  for (Finding& finding : found_) {
    while (finding.first > end) {
      begin = BehindLineEnd(text_, end);
      end = EndOfLine(text_, begin);
      ++line;
    }
    finding.line = line;
    finding.column = finding.first - begin + 1;
  }
  return std::move(found_);
}

}  // namespace zolt20::language
