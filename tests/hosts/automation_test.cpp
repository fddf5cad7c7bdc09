// The protocol of the automation host, line by line.
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
  Json Control(const std::string& name) { return Dump()["controls"][name]; }

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
  void ExpectRefused(const std::string& line) {
    const Json reply = Send(line);
    EXPECT_EQ(reply["ok"], false) << line;
    EXPECT_TRUE(reply["refused"].is_string()) << line;
    EXPECT_EQ(reply["log"], Json::array()) << line;
    EXPECT_FALSE(reply.contains("error")) << line;
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

TEST_F(AutomationTest, EachReplyRepeatsTheIdOfItsRequest) {
  EXPECT_EQ(Send(R"j({"id":7,"get":"prpStrSQLPart"})j"),
            Json::parse(R"j({"id":7,"ok":true,"value":"0","log":[]})j"));
  EXPECT_EQ(Send(R"j({"id":null,"user":"click","control":"cmdBuild"})j")["id"], Json(nullptr));
  EXPECT_EQ(Send(R"j({"id":{"a":[1,2.5]},"get":"nothing"})j")["id"],
            Json::parse(R"j({"a":[1,2.5]})j"));
  EXPECT_EQ(Send(R"j({"id":"x","nothing":1})j")["id"], "x");
  EXPECT_FALSE(Send(R"j({"get":"prpStrSQLPart"})j").contains("id"));
}

TEST_F(AutomationTest, ALineThatIsNoRequestChangesNothing) {
  const std::vector<std::string> lines{
      "{",
      "nothing",
      "[]",
      "3",
      "null",
      "\"dump\"",
      "{} {}",
      "{}",
      R"j({"dump":true}x)j",
      R"j({"nothing":true})j",
      R"j({"dump":false})j",
      R"j({"dump":1})j",
      R"j({"save":"true"})j",
      R"j({"save":true,"dump":true})j",
      R"j({"new":{},"get":"prpStrSQLPart"})j",
      R"j({"new":true})j",
      R"j({"new":[]})j",
      R"j({"new":{"bag":[]}})j",
      R"j({"new":{"visible":0}})j",
      R"j({"new":{"bag":{"prpSelectPart":1}}})j",
      R"j({"new":{"bag":{"prpTab":"1"}}})j",
      R"j({"new":{"bag":{"prpTab":1.5}}})j",
      R"j({"set":"prpTab"})j",
      R"j({"set":"prpTab","value":"2"})j",
      R"j({"set":"prpTab","value":2.5})j",
      R"j({"set":"prpTab","value":true})j",
      R"j({"set":"prpTab","value":null})j",
      R"j({"set":"prpStroutput","value":2})j",
      R"j({"set":"Syntax_Highlight","value":1})j",
      R"j({"set":"prpStrSQLPart","value":"D"})j",
      R"j({"set":"PRPTAB","value":2})j",
      R"j({"set":7,"value":2})j",
      R"j({"get":"prpTab"})j",
      R"j({"get":"ClearAll"})j",
      R"j({"get":"TxtOutput"})j",
      R"j({"call":"prpStroutput"})j",
      R"j({"call":"cmdAddSelect_Click"})j",
      R"j({"call":"ClearAll"})j",
      R"j({"call":"ClearAll","args":[]})j",
      R"j({"call":"ClearAll","args":[1,2]})j",
      R"j({"call":"ClearAll","args":["1"]})j",
      R"j({"call":"ClearAll","args":1})j",
      R"j({"call":"BuildGroupBy","args":[1]})j",
      R"j({"call":"BuildGroupBy","args":{}})j",
      R"j({"user":"wave","control":"cmdDone"})j",
      R"j({"user":"click"})j",
      R"j({"user":"click","control":"nothing"})j",
      R"j({"user":"click","control":"cmdcondition(0)"})j",
      R"j({"user":"click","control":"cmdCondition"})j",
      R"j({"user":"click","control":"cmdCondition(4)"})j",
      R"j({"user":"click","control":"cmdCondition(00)"})j",
      R"j({"user":"click","control":"TxtExpr(1)"})j",
      R"j({"user":"click","control":3})j",
      R"j({"user":"click","control":"lsttables"})j",
      R"j({"user":"click","control":"lsttables","row":"0"})j",
      R"j({"user":"click","control":"lsttables","row":0.5})j",
      R"j({"user":"click","control":"lsttables","row":0})j",
      R"j({"user":"click","control":"lstFunctions","row":-1})j",
      R"j({"user":"click","control":"lstFunctions","row":6})j",
      R"j({"user":"click","control":"lstFunctions","row":99999999999999999999})j",
      R"j({"user":"click","control":"Label1"})j",
      R"j({"user":"click","control":"cboOper"})j",
      R"j({"user":"click","control":"tabVrn"})j",
      R"j({"user":"dblclick","control":"cmdDone","row":0})j",
      R"j({"user":"dblclick","control":"lstFunctions"})j",
      R"j({"user":"pick","control":"lstFunctions","row":0})j",
      R"j({"user":"pick","control":"cboOper","row":10})j",
      R"j({"user":"pick","control":"cboOper"})j",
      R"j({"user":"type","control":"cboOper","text":"="})j",
      R"j({"user":"type","control":"lstFields","text":"x"})j",
      R"j({"user":"type","control":"txtAsSet","text":5})j",
      R"j({"user":"type","control":"txtAsSet"})j",
      R"j({"user":"key","control":"TxtOutput","code":53})j",
      R"j({"user":"key","control":"cboWhereFields1","code":53})j",
      R"j({"user":"key","control":"txtAsSet","code":"5"})j",
      R"j({"user":"key","control":"txtAsSet"})j",
      R"j({"user":"key","control":"txtAsSet","code":53,"from":-1})j",
      R"j({"user":"key","control":"txtAsSet","code":53,"from":1})j",
      R"j({"user":"key","control":"txtAsSet","code":53,"from":0,"to":1})j",
      R"j({"user":"key","control":"txtAsSet","code":53,"from":1,"to":0})j",
      R"j({"user":"key","control":"txtAsSet","code":53,"to":0})j",
      R"j({"user":"key","control":"txtAsSet","code":53,"from":"0"})j",
      R"j({"user":"key","control":"txtAsSet","code":53,"from":null})j",
      R"j({"user":"key","control":"txtAsSet","code":53,"from":0,"to":0.5})j",
      R"j({"user":"key","control":"txtAsSet","code":53,"from":0,"to":99999999999})j",
      R"j({"user":"focus","control":"Label1"})j",
      R"j({"user":"focus","control":"fraSelect"})j",
      R"j({"user":"focus","control":"Shape1"})j",
      R"j({"user":"tab"})j",
      R"j({"user":"tab","page":"1"})j",
      R"j({"user":"scroll","control":"cmdNext","value":1})j",
      R"j({"user":"scroll","control":"VscrCase"})j",
      R"j({"user":"scroll","control":"VscrCase","value":"1"})j",
      R"j({"answer":"eventNothing","with":[]})j",
      R"j({"answer":"eventDone"})j",
      R"j({"answer":"eventDone","with":{}})j",
      R"j({"answer":"eventDone","with":[1]})j",
      R"j({"answer":"eventDone","with":[{"user":"click","control":"cmdDone"}]})j",
      R"j({"answer":"eventDone","with":[{"set":"prpTab","value":"1"}]})j",
      R"j({"answer":"eventDone","with":[{"set":"prpTab","value":1,"get":"prpStrSQLPart"}]})j",
      R"j({"answer":"eventDone","with":[{"get":"prpTab"}]})j",
      "\xFF",
      "{\"get\":\"prp\xC3\"}",
      std::string("{\"get\":\0}", 9),
      "{\"get\":\"\x01\"}",
      R"j({"get":"\x"})j",
      R"j({"get":"\ud8"})j",
  };
  for (const std::string& line : lines)
    ExpectNoRequest(line);
}

TEST_F(AutomationTest, UnknownKeysBesideTheRequestsOwnAreIgnored) {
  ExpectOk(R"j({"set":"prpTab","value":1,"note":"x","args":5})j",
           Json::parse(R"j([{"changed":"prpTab"}])j"));
  ExpectOk(R"j({"user":"click","control":"cmdCancel","row":"none"})j",
           Json::parse(R"j([{"event":"eventCancel"}])j"));
  ExpectOk(R"j({"new":{"size":3,"bag":{"PrpStrTables":5,"what":[]}}})j");
}

TEST_F(AutomationTest, AWholeNumberMayBeWrittenWithAPoint) {
  ExpectOk(R"j({"set":"prpintTabcount","value":2.0})j");
  EXPECT_EQ(Send(R"j({"get":"prpintTabcount"})j")["value"], 2);
  ExpectOk(R"j({"set":"prpintTabcount","value":-3e1})j");
  EXPECT_EQ(Send(R"j({"get":"prpintTabcount"})j")["value"], -30);
}

TEST_F(AutomationTest, AnIntegerBeyond16BitsOverflows) {
  for (const char* number : {"32768", "-32769", "99999999999", "1e300", "18446744073709551615"}) {
    ExpectError(std::string(R"j({"set":"prpintTabcount","value":)j") + number + "}", "overflow", 6);
    ExpectError(std::string(R"j({"call":"ClearAll","args":[)j") + number + "]}", "overflow", 6);
    ExpectError(std::string(R"j({"user":"tab","page":)j") + number + "}", "overflow", 6);
  }
  ExpectOk(R"j({"set":"prpintTabcount","value":32767})j");
  ExpectOk(R"j({"set":"prpintTabcount","value":-32768})j");
  EXPECT_EQ(Send(R"j({"get":"prpintTabcount"})j")["value"], -32768);
}

TEST_F(AutomationTest, TheChecksComeInTheirOrder) {
  // Shape before control, control before range, range before shown, shown before the gesture.
  ExpectNoRequest(R"j({"user":"key","control":"nothing","code":99999})j");
  ExpectNoRequest(R"j({"user":"key","control":"lstFields","code":99999})j");
  ExpectError(R"j({"user":"key","control":"txtAsSet","code":99999})j", "overflow", 6);
  ExpectNoRequest(R"j({"user":"key","control":"txtAsSet","code":99999,"from":0,"to":1})j");
  ExpectError(R"j({"user":"key","control":"txtAsSet","code":99999,"from":0})j", "overflow", 6);
  ExpectRefused(R"j({"user":"key","control":"txtAsSet","code":53})j");
  ExpectRefused(R"j({"user":"key","control":"txtAsSet","code":53,"from":0,"to":0})j");
  ExpectNoRequest(R"j({"user":"click","control":"lstorderbyasc","row":0})j");
  ExpectRefused(R"j({"user":"pick","control":"cboOper","row":0})j");
  ExpectRefused(R"j({"user":"scroll","control":"VscrCase","value":99999})j");
  ExpectError(R"j({"user":"tab","page":7})j", "value", 380);
  EXPECT_EQ(Dump()["focus"], "tabVrn");
}

TEST_F(AutomationTest, AKeyTakesThePlaceOfTheMarkOrGoesInAtTheCaret) {
  Send(R"j({"user":"tab","page":1})j");
  Send(R"j({"user":"type","control":"txtAsSet","text":"12345"})j");
  const auto expect = [&](const std::string& key, const char* text, int caret) {
    ExpectOk(R"j({"user":"key","control":"txtAsSet",)j" + key + "}");
    const Json box = Dump()["controls"]["txtAsSet"];
    EXPECT_EQ(box["Text"], text) << key;
    EXPECT_EQ(box["SelStart"], caret) << key;
  };
  expect(R"("code":57,"from":1,"to":3)", "1945", 2);
  expect(R"("code":48,"from":0)", "01945", 1);
  expect(R"("code":120,"from":0,"to":5)", "01945", 0);
  expect(R"("code":8,"from":3,"to":5.0)", "019", 3);
  expect(R"("code":8,"from":2)", "09", 1);
  expect(R"("code":49)", "019", 2);
}

TEST_F(AutomationTest, AGestureOnWhatIsNotShownOrNotEnabledIsRefused) {
  ExpectRefused(R"j({"user":"click","control":"cmdAnd"})j");
  ExpectOk(R"j({"user":"tab","page":6})j");
  ExpectRefused(R"j({"user":"click","control":"cmdBuild"})j");
  ExpectRefused(R"j({"user":"type","control":"txtCond","text":"x"})j");
  ExpectOk(R"j({"new":{"visible":false}})j");
  ExpectRefused(R"j({"user":"tab","page":1})j");
  ExpectRefused(R"j({"user":"focus","control":"cmdDone"})j");
}

TEST_F(AutomationTest, MessagesReportsAndEventsStandInTheLogInTheirOrder) {
  ExpectOk(R"j({"set":"PrpStrTables","value":"CUSTOMER1"})j",
           Json::parse(R"j([{"changed":"PrpStrTables"}])j"));
  ExpectOk(R"j({"user":"click","control":"lsttables","row":0})j",
           Json::parse(R"j([{"message":"No Fields Present For The Selected Table",
                            "title":"Maintain Mapping Objects","icon":"critical","buttons":"ok"}])j"));
  ExpectOk(R"j({"user":"click","control":"cmdDone"})j",
           Json::parse(R"j([{"event":"eventDone"}])j"));
}

TEST_F(AutomationTest, AMethodReturnsNull) {
  EXPECT_EQ(Send(R"j({"call":"ClearAll","args":[2.0]})j"),
            Json::parse(R"j({"ok":true,"value":null,"log":[]})j"));
  EXPECT_EQ(Send(R"j({"call":"BuildGroupBy"})j"),
            Json::parse(R"j({"ok":true,"value":null,"log":[]})j"));
  EXPECT_EQ(Send(R"j({"call":"BuildGroupBy","args":[]})j")["ok"], true);
}

TEST_F(AutomationTest, AnAnswerRunsInsideItsEvent) {
  ExpectOk(R"j({"answer":"eventSubQuery","with":[{"get":"prpStrSQLPart"},
              {"set":"prpSelectDoPart","value":"x~y"},{"call":"ClearAll","args":[7]}]})j");
  ExpectOk(R"j({"user":"tab","page":2})j");
  ExpectOk(R"j({"user":"click","control":"cmdSubQuery(0)"})j",
           Json::parse(R"j([{"event":"eventSubQuery"},{"answered":"prpStrSQLPart","value":"D"},
                           {"changed":"prpSelectDoPart"},{"answered":"prpSelectDoPart"},
                           {"answered":"ClearAll","value":null}])j"));
  EXPECT_EQ(Control("txtSelectDo")["Text"], "x\r\ny");
}

TEST_F(AutomationTest, AnErrorEndsAnAnswerButNotTheEvent) {
  ExpectOk(
      R"j({"answer":"eventCancel","with":[{"set":"prpTab","value":9},{"get":"prpStrSQLPart"}]})j");
  const Json reply = Send(R"j({"user":"click","control":"cmdCancel"})j");
  EXPECT_EQ(reply["ok"], true);
  ASSERT_EQ(reply["log"].size(), 2U);
  EXPECT_EQ(reply["log"][1]["answered"], "prpTab");
  EXPECT_EQ(reply["log"][1]["error"]["number"], 380);
  ExpectOk(R"j({"answer":"eventCancel","with":[{"set":"prpTab","value":99999}]})j");
  EXPECT_EQ(Send(R"j({"user":"click","control":"cmdCancel"})j")["log"][1]["error"]["kind"],
            "overflow");
}

TEST_F(AutomationTest, AnswersOutliveTheControlAndEndWithAnEmptyList) {
  ExpectOk(R"j({"answer":"eventCancel","with":[{"get":"prpStrSQLPart"}]})j");
  ExpectOk(R"j({"new":{}})j");
  EXPECT_EQ(Send(R"j({"user":"click","control":"cmdCancel"})j")["log"].size(), 2U);
  ExpectOk(R"j({"answer":"eventCancel","with":[]})j");
  EXPECT_EQ(Send(R"j({"user":"click","control":"cmdCancel"})j")["log"].size(), 1U);
}

TEST_F(AutomationTest, ANewControlStartsFromItsDefaults) {
  const Json fresh = Dump();
  ExpectOk(R"j({"set":"prpTab","value":3})j", Json::parse(R"j([{"changed":"prpTab"}])j"));
  ExpectOk(R"j({"new":{}})j");
  EXPECT_EQ(Dump(), fresh);
}

TEST_F(AutomationTest, TheBagIsWrittenUnderItsKeysInTheirOrder) {
  Send(R"j({"set":"PrpStrTables","value":"CUSTOMER1"})j");
  const Json bag = Send(R"j({"save":true})j")["value"];
  const Json expected = Json::parse(
      R"j({"PrpStrTables":"CUSTOMER1","PrpStrFields":"0","prpSelectPart":"0","prpSelectFromPart":"0",
          "prpSelectWherePart":"0","prpSelectGroupbyPart":"0","prpSelectOrderbyPart":"0",
          "prpSelectAsSetPart":"0","prpSelectDoPart":"0","prpSelectEOSPart":"0",
          "prpSelectEmptyPart":"0","prpSelectErrorPart":"0","prpStrSQLPart":"0","prpTab":0})j");
  EXPECT_EQ(bag.dump(), expected.dump());
}

TEST_F(AutomationTest, AStoredControlForgetsItsLists) {
  ExpectOk(R"j({"new":{"bag":{"PrpStrTables":"CUSTOMER1","prpStrSQLPart":"E","prpTab":4.0}}})j");
  const Json bag = Send(R"j({"save":true})j")["value"];
  EXPECT_EQ(bag["PrpStrTables"], "0");
  EXPECT_EQ(bag["prpStrSQLPart"], "E");
  EXPECT_EQ(bag["prpTab"], 4);
  EXPECT_EQ(Control("tabVrn")["Tab"], 0);
}

TEST_F(AutomationTest, ANewControlSurvivesABagWhosePageOverflows) {
  ExpectError(R"j({"new":{"bag":{"prpSelectPart":"x","prpTab":40000}}})j", "overflow", 6);
  const Json bag = Send(R"j({"save":true})j")["value"];
  EXPECT_EQ(bag["prpSelectPart"], "x");
  EXPECT_EQ(bag["prpTab"], 0);
}

TEST_F(AutomationTest, AnInvisibleFormMayStandBesideABag) {
  ExpectOk(R"j({"new":{"visible":false,"bag":{"prpSelectPart":"x"}}})j");
  ExpectError(R"j({"set":"prpTab","value":2})j", "argument", 5);
  EXPECT_EQ(Control("tabVrn")["Tab"], 2);
}

TEST_F(AutomationTest, TheDumpTellsEachKindOfControl) {
  Send(R"j({"set":"PrpStrTables","value":"CUSTOMER1"})j");
  Send(R"j({"user":"click","control":"lsttables","row":0})j");
  const Json controls = Dump()["controls"];
  EXPECT_EQ(controls["lsttables"],
            Json::parse(R"j({"Enabled":true,"Visible":true,"TabIndex":1,"List":["CUSTOMER"],
                            "Selected":[true],"ListIndex":0})j"));
  EXPECT_EQ(controls["cboWhereFields"],
            Json::parse(R"j({"Enabled":true,"Visible":true,"TabIndex":28,"List":[],"ListIndex":-1,
                            "Text":"","BackColor":16777215})j"));
  EXPECT_EQ(controls["txtCondition"],
            Json::parse(R"j({"Enabled":true,"Visible":true,"TabIndex":34,"Text":"","SelStart":0,
                            "BackColor":2147483662})j"));
  EXPECT_EQ(controls["txtStmt(0)"]["Left"], 2640);
  EXPECT_EQ(controls["txtStmt(0)"]["Height"], 680);
  EXPECT_FALSE(controls["txtStmt1"].contains("Left"));
  EXPECT_FALSE(controls["txtStmt1"].contains("BackColor"));
  EXPECT_EQ(controls["TxtOutput"],
            Json::parse(
                R"j({"Enabled":true,"Visible":true,"TabIndex":15,"Text":"","Highlight":false})j"));
  EXPECT_EQ(controls["Shape1"], Json::parse(R"j({"Enabled":true,"Visible":true})j"));
  EXPECT_EQ(controls["optCase"]["Value"], false);
  EXPECT_FALSE(controls["optCase"].contains("Caption"));
  EXPECT_EQ(controls["cmdBuild"]["Caption"], "Build Condition");
  EXPECT_EQ(controls["fracase"]["Caption"], "Frame1");
  EXPECT_EQ(controls["VscrCase"]["SmallChange"], 1);
  EXPECT_EQ(controls["VscrCase"]["Max"], 0);
  EXPECT_EQ(controls["tabVrn"]["Tab"], 0);
  EXPECT_EQ(controls.size(), kForm.size());
  EXPECT_EQ(Dump()["focus"], "lsttables");
}

// The texts as they stand in the JSON of a reply: its bytes, not what a JSON library makes of them.
TEST_F(AutomationTest, TextsOfEveryKindComeBackExactly) {
  const std::vector<std::pair<std::string, std::string>> texts{
      {R"j(a\u0000b)j", R"j(a\u0000b)j"},
      {R"j(\ud800)j", R"j(\ud800)j"},
      {R"j(\uDFFFx\uDBFF)j", R"j(\udfffx\udbff)j"},
      {R"j(\udc00\ud800)j", R"j(\udc00\ud800)j"},
      {R"j(\ud83d\ude00)j", "\xF0\x9F\x98\x80"},
      {R"j(\ud83d\u0041)j", R"j(\ud83dA)j"},
      {R"j(\\ud800)j", R"j(\\ud800)j"},
      {R"j(\\\ud800)j", R"j(\\\ud800)j"},
      {R"j(\udbff\udfff)j", "\xF4\x8F\xBF\xBF"},
      {"\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF"},
      {"\xF4\x8F\xBF\xBF\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF\xF4\x8F\xBF\xBF"},
      {"\xF4\x8F\xBF\xBF\xEE\x80\x80", "\xF4\x8F\xBF\xBF\xEE\x80\x80"},
      {R"j(\udbff\udfff\ud800)j", "\xF4\x8F\xBF\xBF\\ud800"},
      {"\xEE\x80\x80", "\xEE\x80\x80"},
      {R"j(\ufeff\uffff)j", "\xEF\xBB\xBF\xEF\xBF\xBF"},
      {R"j(\u00e9)j", "\xC3\xA9"},
  };
  for (const auto& [written, read] : texts) {
    EXPECT_EQ(Send(R"j({"user":"type","control":"TxtOutput","text":")j" + written + "\"}")["ok"],
              true);
    EXPECT_EQ(session_.Reply(R"j({"get":"prpStroutput"})j"),
              R"j({"ok":true,"value":")j" + read + R"j(","log":[]})j");
  }
}

TEST_F(AutomationTest, APairMadeOfTwoPiecesIsOneCharacter) {
  Send(R"j({"user":"type","control":"TxtOutput","text":"\ud83d"})j");
  Send(R"j({"set":"prpStroutput","value":"*zlt*"})j");
  EXPECT_EQ(session_.Reply(R"j({"get":"prpStroutput"})j"),
            R"j({"ok":true,"value":"\ud83d\r\n","log":[]})j");
}

TEST_F(AutomationTest, AnIdComesBackExactlyToo) {
  EXPECT_EQ(session_.Reply(R"j({"id":"\ud800","save":1})j").substr(0, 15), R"j({"id":"\ud800",)j");
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

}  // namespace
}  // namespace zolt20::tests
