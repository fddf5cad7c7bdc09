// The way back of a stored statement onto the form, as JSON.
#pragma once

#include <string>

#include "language/opening.h"
#include "surface/string.h"

namespace zolt20::automation {

struct OpeningLine {
  /// One object on a line: whether the same text comes again, the requests that fill the pages and
  /// those that a person makes then, the Result, what differs in it, and why.
  std::string line;
  bool isEqual = false;
};

/// `{"equal":true,"steps":[{"set":"prpSelectPart","value":"A.B"}],"finish":[{"user":"tab",
/// "page":0}],"result":"...","differences":[],"problems":[]}`.
OpeningLine OpeningOf(StringView text, const reopen::Catalogue& catalogue);

}  // namespace zolt20::automation
