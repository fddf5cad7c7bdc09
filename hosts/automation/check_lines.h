// What a check finds in a text, and what the text does in words, as lines.
#pragma once

#include <string>

#include "language/names.h"
#include "surface/string.h"

namespace zolt20::automation {

enum class FindingFormat {
  kForPeople,  ///< `FILE:LINE:COLUMN: error: text [code]`, which editors and build servers know
  kJson,       ///< an object a line
};

struct CheckLines {
  /// A line for each finding, in the order of the text.
  std::string lines;
  bool hasErrors = false;  ///< among which no warning counts
};

/// `file` is told as it stands. In JSON:
/// `{"line":3,"column":10,"first":43,"length":12,"code":"glued","severity":"error","text":"..."}`.
CheckLines CheckOf(StringView text, const language::Names* names, FindingFormat format,
                   const std::string& file);

/// A sentence a line for each statement and block, two blanks in for each one around it.
std::string ExplanationOf(StringView text);

}  // namespace zolt20::automation
