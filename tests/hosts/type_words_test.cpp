#include "hosts/kit/type_words.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

TEST(TypeWordsTest, TheFirstWordOfAServersTypeDecides) {
  const std::map<std::string, Texts> types{
      {"date",
       {"date", "timestamp(3) without time zone", "time with time zone", "datetime(6)", "TIMESTAMP",
        "DATETIME2(7)", "smalldatetime"}},
      {"long",
       {"integer", "bigint", "smallint", "int(11)", "bigint(20) unsigned", "tinyint(1)", "year(4)",
        "boolean", "INT IDENTITY", "int4", "serial"}},
      {"double", {"double precision", "real", "float", "double", "float8"}},
      {"decimal", {"numeric(10,2)", "decimal(5,0) unsigned", "money", "NUMBER(3)"}},
      {"blob", {"bytea", "varbinary(20)", "longblob", "binary(16)", "image"}},
      {"char",
       {"character varying(20)", "character(3)", "text", "enum('date','int')", "uuid", "jsonb",
        "integer[]", "timestamp without time zone[]", "interval", "int4range", "point", "bit(3)",
        "inet", "\"Odd Type\"", "", "nvarchar(5)", "daterange"}},
  };
  for (const auto& [word, declared] : types) {
    for (const std::string& type : declared)
      EXPECT_EQ(Narrow(catalogue::TypeWordByName(FromAscii(type))), word) << type;
  }
}

}  // namespace
}  // namespace zolt20::tests
