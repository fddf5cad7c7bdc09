// What was edited in a Result and what the control writes anew, put together: the control knows
// only what it wrote itself, and would leave the edits out.
#pragma once

#include "surface/string.h"

namespace zolt20::composer {

/// What stood in a Result, and what becomes of it.
struct RewrittenResult {
  StringView own;      ///< as the control wrote it last
  StringView edited;   ///< the same with all that was edited since
  StringView written;  ///< as the control writes it now
  StringView added;    ///< the statement that Add To Result wrote last; "" for none
};

struct MergedResult {
  String text;
  bool loses = false;  ///< whether an edit is not in it, as the control wrote that statement anew
};

/// The edited text with what the control changed. What it put behind its own text comes behind the
/// edited one. A statement that it wrote anew takes the place of the old one: all of it, and what
/// was edited in it is lost. Lines end with CR LF; takes time in proportion to the length.
MergedResult MergeResult(const RewrittenResult& result);

}  // namespace zolt20::composer
