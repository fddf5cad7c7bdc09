// Merges what a person edited in the Result with what the control writes anew. The control knows
// only its own text and would drop the edits.
#pragma once

#include "surface/string.h"

namespace zolt20::composer {

/// The texts that are merged.
struct RewrittenResult {
  StringView own;      ///< the Result as the control wrote it last
  StringView edited;   ///< that text with the person's edits
  StringView written;  ///< the Result as the control writes it now
  StringView added;    ///< the statement that Add To Result wrote last; "" for none
};

struct MergedResult {
  String text;
  bool loses = false;  ///< whether an edit was overwritten by the control
};

/// The edited text with the changes of the control. What the control appended is appended to the
/// edited text. A statement that the control wrote anew replaces the old one completely, with the
/// edits in it. Lines end with CR LF; takes time in proportion to the length.
MergedResult MergeResult(const RewrittenResult& result);

}  // namespace zolt20::composer
