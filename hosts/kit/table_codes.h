// Codes for tables that have names of any kind.
//
// The control knows a table by a code of 8 characters: letters of any script, digits and "_". A
// name that is such a code is the table's code. Any other name is turned into a code: each other
// character becomes "_", a short name is padded with "_", a long one cut, and if the code is taken
// a number replaces its end: CUSTOMER, CUSTOME1, ..., CUSTOM10. Codes are unique regardless of
// letter case, since neither the database nor the control tells names apart by it.
#pragma once

#include <vector>

#include "hosts/kit/catalogue.h"

namespace zolt20::catalogue {

/// Gives each table a code. Names that are codes come first, so that each is its table's code.
void GiveCodes(std::vector<Table>& tables);

}  // namespace zolt20::catalogue
