// The opening of a stored statement, the requests that bring it back onto the form, as JSON.
#pragma once

#include <string>

#include "language/opening.h"
#include "surface/string.h"

namespace zolt20::automation {

struct OpeningLine {
  /// One line with one object: whether the stored text comes out again, the requests that fill the
  /// pages, those that then make the Result, the Result, its differences, and the problems.
  std::string line;
  bool isEqual = false;
};

/// `{"equal":true,"steps":[{"set":"prpSelectPart","value":"A.B"}],"finish":[{"user":"tab",
/// "page":0}],"result":"...","differences":[],"problems":[]}`.
OpeningLine OpeningOf(StringView text, const reopen::Catalogue& catalogue);

}  // namespace zolt20::automation
