// The select statements within a rule, so that any one of them can be taken into the pages.
#pragma once

#include <vector>

#include "surface/string.h"

namespace zolt20::composer {

struct SelectStatement {
  int line = 1;  ///< where it begins, from 1; lines end with CR LF
  String text;   ///< from "select" to "endselect", at the margin
};

/// All of them from top to bottom, one within another behind the one around it. A statement begins
/// with a line of tabs and "select ", and ends with a line of the same tabs and "endselect". One
/// that is not closed so is passed over.
std::vector<SelectStatement> SelectStatementsOf(StringView rule);

}  // namespace zolt20::composer
