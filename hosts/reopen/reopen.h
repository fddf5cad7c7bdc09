// Where programs that were written for version 1.0 find the way back of a stored statement.
#pragma once

#include "language/reopen.h"  // IWYU pragma: export
