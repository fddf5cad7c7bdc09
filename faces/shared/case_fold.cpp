#include "faces/shared/case_fold.h"

#include <algorithm>
#include <utility>

namespace zolt20::faces {
namespace {

constexpr char16_t kBehindAscii = 0x80;

bool IsAscii(StringView text) {
  char16_t all = 0;
  for (const char16_t each : text)
    all |= each;
  return all < kBehindAscii;
}

char16_t InLowerCase(char16_t ascii) {
  return ascii >= u'A' && ascii <= u'Z' ? ascii + (u'a' - u'A') : ascii;
}

bool BeginsAt(const char16_t* text, StringView part) {
  return std::equal(part.begin(), part.end(), text,
                    [](char16_t lower, char16_t each) { return lower == InLowerCase(each); });
}

}  // namespace

CaseFold::CaseFold(Rules rules)
    : rules_(rules ? std::move(rules) : Rules([](StringView text) { return LowerCase(text); })) {}

bool CaseFold::Holds(StringView text, StringView part) const {
  if (!KeepsToAscii() || !IsAscii(text)) return zolt20::Holds(rules_(text), part);
  if (part.size() > text.size()) return false;
  const char16_t* const last = text.data() + (text.size() - part.size());
  for (const char16_t* at = text.data(); at <= last; ++at) {
    if (BeginsAt(at, part)) return true;
  }
  return false;
}

bool CaseFold::Begins(StringView text, StringView part) const {
  if (!KeepsToAscii() || !IsAscii(text)) return StringView(rules_(text)).starts_with(part);
  return part.size() <= text.size() && BeginsAt(text.data(), part);
}

// Cached: asks the platform's rules once, at the first comparison.
bool CaseFold::KeepsToAscii() const {
  if (!keepsToAscii_.has_value()) {
    String ascii;
    String lower;
    for (char16_t each = 1; each < kBehindAscii; ++each) {
      ascii += each;
      lower += InLowerCase(each);
    }
    keepsToAscii_ = rules_(ascii) == lower;
  }
  return *keepsToAscii_;
}

}  // namespace zolt20::faces
