// The select statements within a rule, which can be put onto the pages one by one.
#pragma once

#include <vector>

#include "surface/string.h"

namespace zolt20::composer {

struct SelectStatement {
  int line = 1;  ///< the line where it begins, from 1; lines end with CR LF
  String text;   ///< from "select" to "endselect", without indentation
};

/// All select statements in the order of the text; a nested one follows the one around it. A
/// statement begins with a line of tabs and "select ", and ends with a line of the same tabs and
/// "endselect". A statement without such an end is skipped.
std::vector<SelectStatement> SelectStatementsOf(StringView rule);

}  // namespace zolt20::composer
