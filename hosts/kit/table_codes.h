// Codes for tables that have names of any kind.
//
// A table is known to the control by a code of 8 characters, which are letters of any script,
// digits and "_". A name that is such a code is the table's own. Any other name makes one: each
// other character becomes "_", a shorter one is filled up with "_", a longer one cut, and where
// that code is taken its end gives way to a number: CUSTOMER, CUSTOME1, ..., CUSTOM10. Codes differ
// beyond letter case, since neither the database nor the control tells names apart by it.
#pragma once

#include <vector>

#include "hosts/kit/catalogue.h"

namespace zolt20::catalogue {

/// Gives each table a code. Names that are codes keep theirs, whatever stands before them.
void GiveCodes(std::vector<Table>& tables);

}  // namespace zolt20::catalogue
