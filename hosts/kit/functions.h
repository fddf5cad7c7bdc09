// The functions that hosts offer for databases. A database can only list names, which tell neither
// what an argument is for nor whether a statement can use a function.
#pragma once

#include <vector>

#include "hosts/kit/catalogue.h"

namespace zolt20::catalogue {

/// The functions of SQLite that a statement can use, sorted by kind and by name. Functions on the
/// connection, for extensions or for windows are not among them.
std::vector<Function> SqliteFunctions();

/// The functions that the database servers have in common, in the same order.
std::vector<Function> StandardFunctions();

}  // namespace zolt20::catalogue
