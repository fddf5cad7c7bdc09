// The same session through direct calls and through the automation host: the same log at every
// step, the same Result and the same dump at the end.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "hosts/automation/dump.h"
#include "hosts/automation/session.h"
#include "hosts/kit/text_coding.h"

namespace zolt20::tests {
namespace {

using Json = nlohmann::ordered_json;

// A host written against the C++ interface alone, which keeps its log in the protocol's words.
class DirectHost final : public ControlHost {
 public:
  void eventCancel() override { Raised("eventCancel"); }
  void eventDone() override { Raised("eventDone"); }
  void eventSubQuery() override { Raised("eventSubQuery"); }
  void eventCondition() override { Raised("eventCondition"); }
  void eventFunction() override { Raised("eventFunction"); }
  void PropertyChanged(std::string_view property) override {
    log.push_back({{"changed", property}});
  }
  void ShowMessage(const Message& message) override {
    log.push_back({{"message", hosts::ToJsonText(message.text)},
                   {"title", hosts::ToJsonText(message.title)},
                   {"icon", "critical"},
                   {"buttons", "ok"}});
  }

  Json log = Json::array();
  std::map<std::string, std::function<void()>> answers;

 private:
  void Raised(const std::string& event) {
    log.push_back({{"event", event}});
    if (const auto answer = answers.find(event); answer != answers.end()) answer->second();
  }
};

class TwoRoadsTest : public ::testing::Test {
 protected:
  TwoRoadsTest() { control_.UserControl_InitProperties(); }

  // One step on both roads.
  void Step(const std::string& line, const std::function<void()>& direct) {
    const Json reply = Json::parse(session_.Reply(line));
    Json told = {{"ok", true}};
    try {
      direct();
    } catch (const RuntimeError& error) {
      told["ok"] = false;
      told["error"] = {
          {"kind", error.kind_word()}, {"number", error.number()}, {"description", error.what()}};
    }
    told["log"] = std::exchange(host_.log, Json::array());
    EXPECT_EQ(told, reply) << line;
    EXPECT_EQ(automation::Dump(control_.Form()), automation::Dump(session_.Control().Form()))
        << line;
  }

  // An answer to an event, made on both roads.
  void Answer(const std::string& event, const std::string& property, const std::string& value,
              void (ZOLT20MapControl::*let)(String)) {
    const Json request = {{"answer", event}, {"with", {{{"set", property}, {"value", value}}}}};
    EXPECT_EQ(Json::parse(session_.Reply(request.dump()))["ok"], true);
    host_.answers[event] = [this, property, value, let] {
      (control_.*let)(hosts::FromJsonText(value));
      host_.log.push_back({{"answered", property}});
    };
  }

  const Surface& Form() const { return control_.Form(); }

  automation::Session session_;
  DirectHost host_;
  ZOLT20MapControl control_{host_};
};

TEST_F(TwoRoadsTest, GiveTheSameLogResultAndDump) {
  constexpr const char* kFields =
      "long*Q*V*R*N*NCUSTOMER.CUST_NO*Q*V*R*N*X,char*Q*V*R*N*YCUSTOMER.NAME*Q*V*R*N*X,"
      "decimal*Q*V*R*N*NORDERITM.QTY*Q*V*R*N*X,broken";
  Step(R"({"set":"PrpStrTables","value":"CUSTOMER2,ORDERITM0,SHORT,NOWHERE_1"})",
       [&] { control_.PrpStrTables(u"CUSTOMER2,ORDERITM0,SHORT,NOWHERE_1"); });
  Step(std::string(R"({"set":"PrpStrFields","value":")") + kFields + "\"}",
       [&] { control_.PrpStrFields(hosts::FromJsonText(kFields)); });
  Step(R"({"user":"click","control":"cmdMoveOne"})",
       [&] { control_.UserClick(Form().cmdMoveOne); });
  Step(R"({"user":"click","control":"lsttables","row":0})",
       [&] { control_.UserClick(Form().lsttables, 0); });
  Step(R"({"set":"PrpStrFields","value":"long*Q*V*R*N*NCUSTOMER.CUST_NO*Q*V*R*N*X"})",
       [&] { control_.PrpStrFields(u"long*Q*V*R*N*NCUSTOMER.CUST_NO*Q*V*R*N*X"); });
  Step(R"({"user":"click","control":"lsttables","row":2})",
       [&] { control_.UserClick(Form().lsttables, 2); });
  Step(R"({"user":"click","control":"lstFields","row":1})",
       [&] { control_.UserClick(Form().lstFields, 1); });
  Step(R"({"user":"click","control":"cmdMoveOne"})",
       [&] { control_.UserClick(Form().cmdMoveOne); });
  Step(R"({"user":"click","control":"lstFields","row":0})",
       [&] { control_.UserClick(Form().lstFields, 0); });
  Step(R"({"user":"click","control":"lstFunctions","row":2})",
       [&] { control_.UserClick(Form().lstFunctions, 2); });
  Step(R"({"user":"dblclick","control":"lstFunctions","row":2})",
       [&] { control_.UserDoubleClick(Form().lstFunctions, 2); });
  Step(R"({"user":"click","control":"lstGroupby","row":0})",
       [&] { control_.UserClick(Form().lstGroupby, 0); });
  Step(R"({"user":"tab","page":2})", [&] { control_.UserTab(2); });
  Answer("eventCondition", "prpSelectDoPart", "if a then~\u0001x~endif",
         &ZOLT20MapControl::prpSelectDoPart);
  Step(R"j({"user":"click","control":"cmdCondition(0)"})j",
       [&] { control_.UserClick(Form().cmdCondition(0)); });
  Step(R"({"user":"tab","page":5})", [&] { control_.UserTab(5); });
  Answer("eventFunction", "prpSelectErrorPart", "*zlt*stop ( )",
         &ZOLT20MapControl::prpSelectErrorPart);
  Step(R"j({"user":"click","control":"cmdFunction(3)"})j",
       [&] { control_.UserClick(Form().cmdFunction(3)); });
  Step(R"({"user":"click","control":"cmdAddtoSERROR"})",
       [&] { control_.UserClick(Form().cmdAddtoSERROR); });
  Step(R"({"user":"tab","page":0})", [&] { control_.UserTab(0); });
  Step(R"({"user":"click","control":"cmdAddSelect"})",
       [&] { control_.UserClick(Form().cmdAddSelect); });
  Step(R"({"set":"prpSelectWherePart","value":"CUSTOMER.CUST_NO = 10"})",
       [&] { control_.prpSelectWherePart(u"CUSTOMER.CUST_NO = 10"); });
  Step(R"({"user":"type","control":"TxtOutput","text":"mine"})",
       [&] { control_.UserType(Form().TxtOutput, u"mine"); });
  Step(R"({"set":"prpintTabcount","value":2})", [&] { control_.prpintTabcount(2); });
  Step(R"({"set":"prpTab","value":5})", [&] { control_.prpTab(5); });
  Step(R"({"set":"prpTab","value":7})", [&] { control_.prpTab(7); });
  Step(R"({"user":"click","control":"cmdAddtoSERROR"})",
       [&] { control_.UserClick(Form().cmdAddtoSERROR); });
  EXPECT_EQ(control_.UserKey(Form().TxtExpr(0), 65), Outcome::kNotShown);
  const std::string refused =
      session_.Reply(R"j({"user":"key","control":"TxtExpr(0)","code":65})j");
  EXPECT_TRUE(Json::parse(refused).contains("refused"));
  EXPECT_EQ(session_.Reply(R"({"get":"prpStroutput"})"),
            Json({{"ok", true},
                  {"value", hosts::ToJsonText(control_.prpStroutput())},
                  {"log", Json::array()}})
                .dump());
  EXPECT_EQ(automation::Dump(control_.Form()), automation::Dump(session_.Control().Form()));
}

}  // namespace
}  // namespace zolt20::tests
