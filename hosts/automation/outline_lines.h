// The tree of a text as JSON lines.
#pragma once

#include <string>

#include "surface/string.h"

namespace zolt20::automation {

struct OutlineLines {
  /// A line for each node, in the order of the text.
  std::string lines;
  bool hasProblems = false;
};

/// `{"kind":"if","first":0,"last":57,"depth":0,"head":"if a then"}`, with `"problem"` behind that
/// when the node has one. Places are 16-bit characters.
OutlineLines OutlineOf(StringView text);

}  // namespace zolt20::automation
