// Where names stand in the rules of a file, as lines.
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

/// `RULE:LINE:COLUMN: field CUSTOMER.C_ID [where]`, with `, string` or `, statement` behind where
/// the text need not mean the name. In JSON:
/// `{"rule":"A","line":3,"column":7,"first":43,"length":13,"kind":"field","name":"CUSTOMER.C_ID",
/// "node":"where","place":"clause"}`.
///
/// With names of a catalogue those alone that it has not, strings and functions aside. With a name
/// its uses alone: a table's are those of its fields too.
UseLines UsesOf(const rules::RulesContent& content, const language::Names* names, StringView name,
                bool asJson);

/// The name of a rule within a line for people.
std::string OnOneLine(StringView name);

}  // namespace zolt20::automation
