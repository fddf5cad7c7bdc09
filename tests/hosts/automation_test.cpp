// The protocol of the automation host, where tests/conversations can't have the line or the reply.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "hosts/automation/session.h"

namespace zolt20::tests {
namespace {

using automation::Session;
using Json = nlohmann::ordered_json;

class AutomationTest : public ::testing::Test {
 protected:
  Json Send(const std::string& line) { return Json::parse(session_.Reply(line)); }
  Json Dump() { return Send(R"j({"dump":true})j")["value"]; }

  void ExpectOk(const std::string& line, const Json& log = Json::array()) {
    EXPECT_EQ(Send(line), Json({{"ok", true}, {"log", log}})) << line;
  }
  void ExpectError(const std::string& line, const std::string& kind, int number) {
    const Json reply = Send(line);
    EXPECT_EQ(reply["ok"], false) << line;
    EXPECT_EQ(reply["error"]["kind"], kind) << line;
    EXPECT_EQ(reply["error"]["number"], number) << line;
    EXPECT_TRUE(reply["error"]["description"].is_string()) << line;
    EXPECT_FALSE(reply.contains("value")) << line;
    EXPECT_FALSE(reply.contains("refused")) << line;
  }
  void ExpectNoRequest(const std::string& line) {
    const Json before = Dump();
    ExpectError(line, "request", 0);
    EXPECT_EQ(Dump(), before) << line;
  }

  Session session_;
};

TEST_F(AutomationTest, BlankLinesAndCommentsAreSkipped) {
  for (const char* line : {"", " ", "\t\r", "# a comment", "#{\"dump\":true}"}) {
    EXPECT_TRUE(Session::IsSkipped(line)) << line;
  }
  for (const char* line : {"{}", " # no comment", "\v", "\xEF\xBB\xBF#", "x"}) {
    EXPECT_FALSE(Session::IsSkipped(line)) << line;
  }
}

// The complaint is that of the JSON library, in the words of its version.
TEST_F(AutomationTest, ALineThatIsNoJsonIsNoRequest) {
  const std::vector<std::string> lines{
      "{",
      "nothing",
      "{} {}",
      R"j({"dump":true}x)j",
      R"j({"get":"\x"})j",
      R"j({"get":"\ud8"})j",
      "\xFF",
      "{\"get\":\"prp\xC3\"}",
      std::string("{\"get\":\0}", 9),
      "{\"get\":\"\x01\"}",
  };
  for (const std::string& line : lines)
    ExpectNoRequest(line);
}

TEST_F(AutomationTest, ANewControlStartsFromItsDefaults) {
  const Json fresh = Dump();
  ExpectOk(R"j({"set":"prpTab","value":3})j", Json::parse(R"j([{"changed":"prpTab"}])j"));
  ExpectOk(R"j({"new":{}})j");
  EXPECT_EQ(Dump(), fresh);
}

TEST_F(AutomationTest, DepthAndLengthDoNoHarm) {
  const std::string deep = R"j({"get":"prpStrSQLPart","id":)j" + std::string(100000, '[') +
                           std::string(100000, ']') + "}";
  ExpectNoRequest(deep);
  ExpectNoRequest(std::string(1000000, '['));
  ExpectNoRequest(std::string(1000000, '{'));
  ExpectNoRequest("{\"get\":\"" + std::string(5000000, 'x') + "\"}");
  const std::string shallow =
      R"j({"get":"prpStrSQLPart","id":)j" + std::string(200, '[') + std::string(200, ']') + "}";
  EXPECT_EQ(Send(shallow)["ok"], true);
}

TEST_F(AutomationTest, TheStateHasEveryControl) {
  EXPECT_EQ(Dump()["controls"].size(), kForm.size());
}

}  // namespace
}  // namespace zolt20::tests
