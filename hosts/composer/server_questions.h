// What each kind of server is asked about its tables, in its own words.
//
// All answer in the same columns. "%1" stands for the schemas that are asked about.
#pragma once

#include "hosts/composer/server_tables.h"

namespace zolt20::composer {

struct Questions {
  const char* schemas;  ///< schema, number of tables and views
  const char* tables;   ///< schema, table, "table" or "view"; in their order
  const char* columns;  ///< schema, table, column, declared type, type without its own name
  const char* indexes;  ///< schema, table, number of indexes
};

/// Of any dialect but kOther.
const Questions& QuestionsFor(Dialect dialect);

}  // namespace zolt20::composer
