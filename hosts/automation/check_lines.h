// The findings of a check of a text, and the explanation of a text, both as lines.
#pragma once

#include <string>

#include "language/names.h"
#include "surface/string.h"

namespace zolt20::automation {

enum class FindingFormat {
  kForPeople,  ///< `FILE:LINE:COLUMN: error: text [code]`, which editors and build servers know
  kJson,       ///< one object per line (JSON lines)
};

struct CheckLines {
  /// A line for each finding, in the order of the text.
  std::string lines;
  bool hasErrors = false;  ///< whether a finding is an error; warnings do not count
};

/// `file` stands in the lines unchanged; JSON lines leave it out:
/// `{"line":3,"column":10,"first":43,"length":12,"code":"glued","severity":"error","text":"..."}`.
CheckLines CheckOf(StringView text, const language::Names* names, FindingFormat format,
                   const std::string& file);

/// One sentence per line for each statement and block, indented by two blanks for each level.
std::string ExplanationOf(StringView text);

}  // namespace zolt20::automation
