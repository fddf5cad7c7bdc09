// The uses of names in the rules of a file, as lines.
#pragma once

#include <cstddef>
#include <string>

#include "hosts/kit/rules_text.h"
#include "language/names.h"
#include "language/uses.h"

namespace zolt20::automation {

struct UseLines {
  std::string lines;
  std::size_t count = 0;
};

/// A line for each use: `RULE:LINE:COLUMN: field CUSTOMER.C_ID [where]`. The brackets hold the kind
/// of the clause or statement around the use, and for a name in a string also that:
/// `[where, string]`. In a string, and in a plain statement (`[statement]`), a word need not mean
/// the name of the catalogue. In JSON:
/// `{"rule":"A","line":3,"column":7,"first":43,"length":13,"kind":"field","name":"CUSTOMER.C_ID",
/// "node":"where","place":"clause"}`.
///
/// With `names`, only uses of names that are missing in the catalogue, without strings and
/// functions. With `name`, only its uses; uses of a table include those of its fields.
UseLines UsesOf(const rules::RulesContent& content, const language::Names* names, StringView name,
                bool asJson);

/// The name of a rule as one line, for lines that people read.
std::string OnOneLine(StringView name);

}  // namespace zolt20::automation
