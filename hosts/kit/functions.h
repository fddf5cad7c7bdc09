// The functions that hosts offer where a database does not tell them itself: its names alone say
// neither what an argument is for nor whether a statement has any use of a function.
#pragma once

#include <vector>

#include "hosts/kit/catalogue.h"

namespace zolt20::catalogue {

/// The functions of SQLite that a statement can use, kind by kind, by their names in each kind.
/// Those that tell of the connection, load extensions or need a window are not among them.
std::vector<Function> SqliteFunctions();

/// The functions that the database servers have in common, in the same order.
std::vector<Function> StandardFunctions();

}  // namespace zolt20::catalogue
