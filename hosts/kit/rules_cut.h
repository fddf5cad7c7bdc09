// The text of a file of rules with a short placeholder string in place of the versions of each
// rule, so that the JSON parser has little to read. Used by ReadContent (rules_text.h) alone.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/kit/kept_versions.h"

namespace zolt20::rules {

struct CutText {
  std::string text;  ///< valid JSON if and only if the whole file is
  std::vector<VersionSpan> spans;

  /// The index of the span in whose place the string stands; none for a string of the file.
  std::optional<std::size_t> SpanOf(std::string_view string) const;
};

/// Cuts out what ScanVersions accepts. None when a string of the file could be taken for a
/// placeholder.
std::optional<CutText> CutVersions(std::string_view bytes);

}  // namespace zolt20::rules
