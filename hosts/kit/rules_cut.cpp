#include "hosts/kit/rules_cut.h"

#include <charconv>

namespace zolt20::rules {
namespace {

// JSON strings contain no line ends, so in valid JSON these bytes are a key.
constexpr std::string_view kKey = "\n      \"versions\": ";
constexpr std::string_view kOpening = "[\n        ";
constexpr std::string_view kEnd = "\n      ]";

// A placeholder is this and the index of its span.
constexpr std::string_view kPlaceholder = "versions kept as they are written ";

// Whether a string of the text could begin as a placeholder does. Its letters may be escapes by
// number, which the writer uses for control characters alone.
bool CouldHoldPlaceholder(std::string_view text) {
  if (text.find(kPlaceholder) != std::string_view::npos) return true;
  constexpr std::string_view kEscape = "\\u00";
  for (std::size_t at = text.find(kEscape); at != std::string_view::npos;
       at = text.find(kEscape, at + 1)) {
    const std::string_view digit = text.substr(at + kEscape.size(), 1);
    if (digit != "0" && digit != "1") return true;
  }
  return false;
}

}  // namespace

std::optional<std::size_t> CutText::SpanOf(std::string_view string) const {
  if (spans.empty() || !string.starts_with(kPlaceholder)) return std::nullopt;
  std::size_t number = 0;
  const char* const end = string.data() + string.size();
  std::from_chars(string.data() + kPlaceholder.size(), end, number);
  return number;
}

std::optional<CutText> CutVersions(std::string_view bytes) {
  CutText cut;
  std::size_t copied = 0;
  for (std::size_t at = bytes.find(kKey); at != std::string_view::npos; at = bytes.find(kKey, at)) {
    at += kKey.size();
    if (bytes.substr(at, kOpening.size()) != kOpening) continue;
    const VersionSpan span = ScanVersions(bytes, at + kOpening.size());
    if (span.count == 0) continue;
    const std::string_view before = bytes.substr(copied, at - copied);
    if (CouldHoldPlaceholder(before)) return std::nullopt;
    cut.text += before;
    cut.text += '"';
    cut.text += kPlaceholder;
    cut.text += std::to_string(cut.spans.size());
    cut.text += '"';
    cut.spans.push_back(span);
    at += kOpening.size() + span.bytes.size() + kEnd.size();
    copied = at;
  }
  const std::string_view rest = bytes.substr(copied);
  if (CouldHoldPlaceholder(rest)) return std::nullopt;
  cut.text += rest;
  return cut;
}

}  // namespace zolt20::rules
