// The reader of lines beside the JSON library that it stands in for: the same lines are taken, with
// the same values, and of the others the same is said.
#include "hosts/kit/json_reader.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "hosts/kit/text_coding.h"

namespace zolt20::tests {
namespace {

using hosts::Json;
using hosts::JsonReader;

// What a reader makes of a line: the value as text, or the complaint.
std::string Told(const Json& value) {
  return "value " + value.dump();
}
std::string Told(const Json::exception& error) {
  return std::string("complaint ") + error.what();
}

std::string Expected(const std::string& line) {
  try {
    return Told(Json::parse(line));
  } catch (const Json::exception& error) {
    return Told(error);
  }
}

std::string Read(JsonReader& reader, const std::string& line) {
  try {
    return Told(hosts::ToJson(reader.Read(line)));
  } catch (const Json::exception& error) {
    return Told(error);
  }
}

const std::vector<std::string>& Lines() {
  static const std::vector<std::string> kLines{
      R"({"user":"click","control":"lsttables","row":0,"id":[1,2.50,-3e2,1e+20,{"a":null}]})",
      R"({"set":"PrpStrTables","value":"CUSTOMER2,\"\\\/\b\f\n\r\t\u00e9 é 日本 \ud83d\ude00"})",
      R"({"a":1,"b":2,"a":{"c":3,"c":4}})",
      "\xEF\xBB\xBF{\"get\":\"prpTab\"}",
      " \t\r\n [ true , false , null ] \n",
      R"([18446744073709551615,18446744073709551616,-9223372036854775808,-9223372036854775809])",
      R"([0,-0,-0.0,0.1,1E-400,123456789012345678901234567890,2.2250738585072011e-308,0e999])",
      R"(["\u0000",""," "])",
      "",
      "7",
      "\"text\"",
  };
  return kLines;
}

TEST(JsonReaderTest, ValuesAreThoseOfTheOtherLibrary) {
  JsonReader reader;
  for (const std::string& line : Lines())
    EXPECT_EQ(Read(reader, line), Expected(line)) << line;
}

TEST(JsonReaderTest, ComplaintsAreThoseOfTheOtherLibrary) {
  JsonReader reader;
  for (const std::string line : {"{",
                                 "{]",
                                 "{\"a\":}",
                                 "[1,]",
                                 "[01]",
                                 "[1.]",
                                 "[.5]",
                                 "[+1]",
                                 "[1e999]",
                                 "tru",
                                 "\"\n\"",
                                 "\"\xFF\"",
                                 "\"\xED\xA0\x80\"",
                                 "\"\xF4\x90\x80\x80\"",
                                 "\"\xC0\xAF\"",
                                 "[1] 2",
                                 "'a'",
                                 "\"\\x\"",
                                 "\"\\u12\"",
                                 "{a:1}",
                                 "// no comment",
                                 "nan"}) {
    EXPECT_EQ(Read(reader, line), Expected(line)) << line;
    EXPECT_EQ(Expected(line).find("complaint"), 0U) << line;
  }
}

TEST(JsonReaderTest, EveryByteIsTakenOrRefusedWhereverItStandsInAString) {
  JsonReader reader;
  const std::string text(40, 'x');
  for (int byte = 0; byte < 256; ++byte) {
    for (std::size_t at = 0; at < text.size(); ++at) {
      std::string line = "{\"key\":\"" + text + "\",\"and\":\"\\u0041" + text + "\"}";
      const std::size_t first = line.find(text);
      const std::size_t second = line.rfind(text);
      for (const std::size_t begin : {first, second}) {
        std::string changed = line;
        changed[begin + at] = static_cast<char>(byte);
        ASSERT_EQ(Read(reader, changed), Expected(changed)) << byte << " at " << at;
      }
    }
  }
}

TEST(JsonReaderTest, LinesChangedAtRandomAreReadAlike) {
  JsonReader reader;
  std::mt19937 random(20);
  const auto below = [&random](std::size_t end) {
    return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
  };
  const std::string letters = "{}[]\",:\\/eE+-.0123456789truefalsn \t\xC3\xA9\xF4\x8F\xBF\xED\x01";
  int values = 0;
  for (int round = 0; round < 20000; ++round) {
    std::string line = Lines()[below(Lines().size())];
    for (std::size_t change = below(4); change > 0 && !line.empty(); --change) {
      const std::size_t at = below(line.size());
      switch (below(3)) {
        case 0:
          line.erase(at, 1 + below(3));
          break;
        case 1:
          line.insert(at, 1, letters[below(letters.size())]);
          break;
        default:
          line[at] = letters[below(letters.size())];
      }
    }
    line = hosts::PutStandIns(line);
    const std::string expected = Expected(line);
    values += expected.starts_with("value") ? 1 : 0;
    ASSERT_EQ(Read(reader, line), expected) << line;
  }
  EXPECT_GT(values, 4000);
  EXPECT_LT(values, 16000);
}

TEST(JsonReaderTest, OfARepeatedKeyTheLastValueHolds) {
  JsonReader reader;
  const auto& value = reader.Read(R"({"row":1,"row":2})");
  EXPECT_EQ(hosts::FindValue(value, "row")->GetInt(), 2);
  EXPECT_EQ(hosts::FindValue(value, "ro"), nullptr);
}

TEST(JsonReaderTest, ALineLongerThanTheReadersOwnMemoryIsRead) {
  JsonReader reader;
  const std::string longLine = "[" + std::string(100000, ' ') + "\"" + std::string(50000, 'x') +
                               "\"" +
                               [] {
                                 std::string more;
                                 for (int i = 0; i < 5000; ++i)
                                   more += ",{\"a\":[" + std::to_string(i) + "]}";
                                 return more;
                               }() +
                               "]";
  EXPECT_EQ(Read(reader, longLine), Expected(longLine));
  EXPECT_EQ(Read(reader, "[1]"), "value [1]");
}

}  // namespace
}  // namespace zolt20::tests
