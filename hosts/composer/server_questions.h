// The queries about tables, for each kind of server.
//
// The results of all servers have the same columns. "%1" stands for the list of schemas.
#pragma once

#include "hosts/composer/server_tables.h"

namespace zolt20::composer {

struct Questions {
  const char* schemas;  ///< gives schema, number of tables and views
  const char* tables;   ///< gives schema, table, "table" or "view", sorted
  const char* columns;  ///< gives schema, table, column, declared type, base type of a domain
  const char* indexes;  ///< gives schema, table, number of indexes
};

/// The queries for a dialect other than kOther.
const Questions& QuestionsFor(Dialect dialect);

}  // namespace zolt20::composer
