// The lists of functions, against what SQLite itself has.
#include "hosts/kit/functions.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <string>

#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using catalogue::Function;

// For each function of the SQLite that runs the tests the numbers of arguments that it takes, -1
// for any.
std::map<std::string, std::set<int>> BuiltIn() {
  std::map<std::string, std::set<int>> result;
  sqlite3* database = nullptr;
  EXPECT_EQ(sqlite3_open(":memory:", &database), SQLITE_OK);
  const auto keep = [](void* into, int, char** values, char**) {
    (*static_cast<std::map<std::string, std::set<int>>*>(into))[values[0]].insert(
        std::stoi(values[1]));
    return 0;
  };
  EXPECT_EQ(sqlite3_exec(database,
                         "select name, narg from pragma_function_list"
                         " where builtin and type in ('s', 'a', 'w')",
                         keep, &result, nullptr),
            SQLITE_OK);
  sqlite3_close(database);
  return result;
}

bool IsOptional(const String& argument) {
  return argument.starts_with(u'[') && argument.ends_with(u']');
}

TEST(FunctionsTest, SqliteHasEachWithItsArguments) {
  const auto builtIn = BuiltIn();
  for (const Function& function : catalogue::SqliteFunctions()) {
    const std::string name = Narrow(function.name);
    const auto found = builtIn.find(name);
    ASSERT_NE(found, builtIn.end()) << name;
    const auto all = static_cast<int>(function.arguments.size());
    const auto needed = static_cast<int>(std::count_if(
        function.arguments.begin(), function.arguments.end(), std::not_fn(IsOptional)));
    const bool any = found->second.contains(-1);
    EXPECT_TRUE(any || (found->second.contains(all) && found->second.contains(needed))) << name;
    // count() is SQLite's own way of saying count(*).
    if (name == "count") continue;
    EXPECT_EQ(any || found->second.size() > 1, all != needed) << name;
  }
}

// What is left out has no place in a statement, and this list says so by name.
TEST(FunctionsTest, OfSqliteNoneIsForgotten) {
  auto rest = BuiltIn();
  for (const Function& function : catalogue::SqliteFunctions())
    rest.erase(Narrow(function.name));
  const std::set<std::string> leftOut{
      // of the connection and of the program
      "changes", "last_insert_rowid", "load_extension", "sqlite_compileoption_get",
      "sqlite_compileoption_used", "sqlite_log", "sqlite_offset", "sqlite_source_id",
      "sqlite_version", "total_changes", "current_date", "current_time", "current_timestamp",
      // hints for the planner
      "likelihood", "likely", "unlikely",
      // windows
      "cume_dist", "dense_rank", "first_value", "lag", "last_value", "lead", "nth_value", "ntile",
      "percent_rank", "rank", "row_number",
      // for modules and tests
      "bm25", "fts3_tokenizer", "fts5", "fts5_source_id", "highlight", "matchinfo", "match",
      "offsets", "optimize", "regexp", "rtreecheck", "rtreedepth", "rtreenode", "snippet",
      "subtype", "randomblob", "soundex", "->", "->>"};
  for (const auto& [name, counts] : rest)
    EXPECT_TRUE(leftOut.contains(name)) << name;
}

TEST(FunctionsTest, EachStandsOnceWithAKindAndAText) {
  for (const auto& functions : {catalogue::SqliteFunctions(), catalogue::StandardFunctions()}) {
    std::set<String> names;
    for (const Function& function : functions) {
      EXPECT_TRUE(names.insert(function.name).second) << Narrow(function.name);
      EXPECT_FALSE(function.kind.empty()) << Narrow(function.name);
      EXPECT_TRUE(function.text.ends_with(u'.')) << Narrow(function.name);
    }
    EXPECT_TRUE(names.contains(u"count") && names.contains(u"upper"));
  }
}

}  // namespace
}  // namespace zolt20::tests
