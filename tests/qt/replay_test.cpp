// Sessions of the automation host, played on the widget by mouse and keys: after each step the
// widget has to be in the session's state. First the recorded ones of examples/sessions, then
// gestures that these leave out, then random people.
#include <algorithm>
#include <filesystem>
#include <fstream>

#include "hosts/automation/session.h"
#include "tests/qt/host_requests.h"
#include "tests/qt/widget_test.h"
#include "tests/support/example_sessions.h"
#include "tests/support/places.h"
#include "tests/support/session_maker.h"

namespace zolt20::tests {
namespace {

using automation::Session;
using Json = nlohmann::ordered_json;
namespace fs = std::filesystem;

const fs::path kSessions = fs::path(Examples()) / "sessions";

// What a session's log tells, in the words of the fixture.
Texts LinesOfLog(const Json& log) {
  Texts lines;
  for (const Json& entry : log) {
    if (entry.contains("event")) {
      lines.push_back(entry["event"]);
    } else if (entry.contains("changed")) {
      lines.push_back("changed " + entry["changed"].get<std::string>());
    } else if (entry.contains("message")) {
      lines.push_back("message " + entry["title"].get<std::string>() + ": " +
                      entry["message"].get<std::string>());
    } else {
      lines.push_back(entry.dump());
    }
  }
  return lines;
}

class ReplayTest : public WidgetTest {
 protected:
  // Carries a line out on both sides.
  void Play(const std::string& line) {
    SCOPED_TRACE(line.substr(0, 200));
    const Json request = Json::parse(line);
    const Json expected = Json::parse(session_.Reply(line));
    const Json reply = Do(request);
    Texts log = LinesOfLog(expected["log"]);
    if (request.contains("user") && expected.contains("error")) {
      log.push_back("failed " + expected["error"]["kind"].get<std::string>() + " " +
                    expected["error"]["number"].dump());
    } else {
      EXPECT_EQ(reply["ok"], expected["ok"]);
      EXPECT_EQ(reply.value("error", ""),
                expected.contains("error") ? expected["error"]["kind"] : "");
    }
    // The bag of the widget is a map in alphabetical order.
    EXPECT_EQ(nlohmann::json(reply.value("value", Json())),
              nlohmann::json(expected.value("value", Json())));
    EXPECT_EQ(Log(), log);
    EXPECT_EQ(Json::diff(automation::Dump(session_.Control().Form()), State()), Json::array());
    EXPECT_EQ(Difference(), "");
  }
  void PlayAll(const std::vector<Json>& requests) {
    for (const Json& request : requests) {
      Play(request.dump());
      if (HasFailure()) return;
    }
  }
  // Two tables with two fields and an index each, one field of them flagged.
  void PlayCatalogue() {
    const std::string fields = List(
        {Field("NTABLE__1.A"), Field("YTABLE__1.B"), Field("NTABLE__2.C"), Field("NTABLE__2.D")});
    PlayAll({{{"set", "PrpStrTables"}, {"value", "TABLE__11,TABLE__21"}},
             {{"set", "PrpStrFields"}, {"value", fields}}});
  }

  Session session_;

 private:
  // Does what a line asks for. Gives the reply without its log.
  Json Do(const Json& request) {
    Json reply = {{"ok", true}};
    try {
      if (request.contains("user")) {
        if (!Make(request)) reply = {{"ok", false}};
      } else if (request.contains("answer")) {
        KeepAnswer(request);
      } else if (request.contains("new")) {
        MakeNew();
        if (request["new"].contains("bag")) widget().UserControl_ReadProperties(Bag(request));
      } else if (request.contains("save")) {
        const QVariantMap bag = widget().UserControl_WriteProperties();
        for (auto entry = bag.begin(); entry != bag.end(); ++entry)
          reply["value"][Std(entry.key())] = ToJson(entry.value());
      } else {
        const QVariant value = RunRequest(widget(), request);
        if (!request.contains("set")) reply["value"] = ToJson(value);
      }
    } catch (const RuntimeError& error) {
      reply = {{"ok", false}, {"error", std::string(error.kind_word())}};
    }
    return reply;
  }

  void KeepAnswer(const Json& request) {
    Answer(request["answer"], [this, actions = request["with"]] {
      for (const Json& action : actions) {
        const char* verb = action.contains("set") ? "set" : action.contains("get") ? "get" : "call";
        Json entry = {{"answered", action[verb]}};
        const QVariant value = RunRequest(widget(), action);
        if (!action.contains("set")) entry["value"] = ToJson(value);
        Told(entry.dump());
      }
    });
  }

  static QVariantMap Bag(const Json& request) {
    QVariantMap bag;
    for (const auto& [key, value] : request["new"]["bag"].items()) {
      bag[Qs(key)] =
          value.is_string() ? QVariant(Qs(value.get<std::string>())) : QVariant(value.get<int>());
    }
    return bag;
  }
};

class RecordedSessionTest : public ReplayTest, public ::testing::WithParamInterface<std::string> {};

TEST_P(RecordedSessionTest, TheWidgetGoesTheWayOfTheSession) {
  EXPECT_EQ(State(), automation::Dump(session_.Control().Form()));
  std::ifstream input(kSessions / (GetParam() + ".jsonl"), std::ios::binary);
  int gestures = 0;
  for (std::string line; std::getline(input, line) && !HasFailure();) {
    if (Session::IsSkipped(line)) continue;
    gestures += Json::parse(line).contains("user") ? 1 : 0;
    Play(line);
  }
  EXPECT_GT(gestures, 0);
}

INSTANTIATE_TEST_SUITE_P(Each, RecordedSessionTest, ::testing::ValuesIn(SessionNames(kSessions)),
                         [](const auto& session) { return CaseName(session.param); });

Json OnControl(const std::string& gesture, const std::string& control) {
  return {{"user", gesture}, {"control", control}};
}
Json OnRow(const std::string& gesture, const std::string& control, int row) {
  return {{"user", gesture}, {"control", control}, {"row", row}};
}
Json Typed(const std::string& box, const std::string& text) {
  return {{"user", "type"}, {"control", box}, {"text", text}};
}
Json ToPage(int page) {
  return {{"user", "tab"}, {"page", page}};
}
Json Answered(const std::string& event, const std::string& property, const Json& value) {
  return {{"answer", event}, {"with", Json::array({{{"set", property}, {"value", value}}})}};
}

// A combo box of Qt takes a typed text for the entry of the same text when the focus goes away.
TEST_F(ReplayTest, AValueThatIsTypedLikeAnEntryIsNotPicked) {
  PlayCatalogue();
  PlayAll({OnRow("click", "lsttables", 0), ToPage(1), Typed("cboWhereFields1", "TABLE__1.B"),
           OnControl("focus", "txtwhereCondition"), OnRow("pick", "cboWhereFields1", 0),
           Typed("cboWhereFields1", "table__1.b"), OnControl("click", "cmdAnd")});
  EXPECT_EQ(form().cboWhereFields1.ListIndex(), -1);
  auto& combo = Be<QComboBox>("cboWhereFields1");
  combo.showPopup();
  EXPECT_EQ(combo.currentIndex(), -1);
  EXPECT_EQ(combo.currentText(), QStringLiteral("table__1.b"));
  combo.hidePopup();
}

TEST_F(ReplayTest, AnEntryIsPickedOnceMore) {
  PlayCatalogue();
  PlayAll({OnRow("click", "lsttables", 0), ToPage(1), OnRow("pick", "cboWhereFields", 1),
           OnRow("pick", "cboOper", 4), Typed("cboWhereFields1", "1"),
           OnRow("pick", "cboWhereFields", 1), OnRow("pick", "cboOper", 4)});
}

TEST_F(ReplayTest, KeyByKeyComesToTheSameAsAllAtOnce) {
  PlayAll({ToPage(6), OnControl("click", "optIfThen"), OnControl("focus", "txtStmt1")});
  session_.Reply(Typed("txtCond", "a > (b)").dump());
  TypeKeys("txtCond", "a > (b)");
  session_.Reply(Typed("txtStmt1", "x = 1\r\ny = 2").dump());
  TypeKeys("txtStmt1", "x = 1\ny = 2");
  session_.Reply(Typed("TxtOutput", "z").dump());
  TypeKeys("TxtOutput", "z");
  PlayAll({OnControl("click", "cmdAdd"), OnControl("click", "cmdBuild")});
}

TEST_F(ReplayTest, AnAnswerMayTurnThePage) {
  PlayCatalogue();
  PlayAll({ToPage(2), Answered("eventCondition", "prpTab", 6),
           OnControl("click", "cmdCondition(0)"), Answered("eventFunction", "prpTab", 3), ToPage(2),
           OnControl("click", "cmdFunction(0)"), Answered("eventCancel", "prpTab", 0),
           OnControl("click", "cmdCancel")});
  EXPECT_EQ(Be<QTabBar>("tabVrn").currentIndex(), 0);
}

TEST_F(ReplayTest, WhatFailsFailsOnBothSides) {
  PlayAll({{{"set", "prpTab"}, {"value", 7}},
           {{"set", "prpintTabcount"}, {"value", 40000}},
           {{"set", "prpSelectGroupbyPart"}, {"value", "a,,b"}},
           {{"get", "prpstrSelectedFields"}},
           {{"call", "ClearAll"}, {"args", {70000}}},
           {{"call", "ClearAll"}, {"args", {6}}},
           {{"call", "BuildGroupBy"}}});
}

TEST_F(ReplayTest, ClearMayComeAtAnyTime) {
  PlayCatalogue();
  PlayAll({OnRow("click", "lsttables", 0), OnRow("click", "lstFields", 1),
           OnControl("click", "cmdMoveOne"), OnControl("click", "cmdClear"), ToPage(6),
           OnControl("click", "optCase"), OnControl("click", "cmdNext"),
           OnControl("click", "cmdNext"), OnControl("click", "cmdNext"),
           OnControl("click", "cmdClear"), OnControl("click", "optCase"),
           OnControl("click", "cmdNext"), OnControl("click", "cmdClear"), ToPage(0)});
}

class ClickingAroundTest : public ReplayTest, public ::testing::WithParamInterface<unsigned> {};

TEST_P(ClickingAroundTest, TheWidgetGoesTheWayOfTheSession) {
  PlayCatalogue();
  PlayAll({Answered("eventSubQuery", "prpStroutput", "select A~\u0001from  B~endselect"),
           Answered("eventFunction", "prpSelectDoPart", "*zlt*f(`^`x`^`)"),
           Answered("eventCondition", "prpSelectErrorPart", "if a then ~\u0001b~endif")});
  SeededChoices choices(GetParam());
  SessionMaker maker(choices, Gestures::kOfAPerson,
                     [this](const std::string& control) { return IsInSight(control); });
  constexpr int kSteps = 200;
  for (int step = 0; step < kSteps && !HasFailure();) {
    const Json gesture = maker.LikelyGesture(form());
    if (gesture.is_null()) continue;
    SCOPED_TRACE("step " + std::to_string(++step));
    Play(gesture.dump());
  }
}

INSTANTIATE_TEST_SUITE_P(Seed, ClickingAroundTest, ::testing::Range(1U, 7U));

// People who know what they want.
class MadeUpSessionsTest : public ReplayTest, public ::testing::WithParamInterface<unsigned> {};

TEST_P(MadeUpSessionsTest, TheWidgetGoesTheWayOfTheSession) {
  constexpr unsigned kSessionsOfEach = 10;
  constexpr int kSteps = 40;
  int results = 0;
  for (unsigned i = 0; i < kSessionsOfEach; ++i) {
    const unsigned seed = GetParam() * kSessionsOfEach + i;
    Play(R"({"new":{}})");
    SeededChoices choices(seed);
    SessionMaker maker(choices, Gestures::kOfAPerson,
                       [this](const std::string& control) { return IsInSight(control); });
    for (int step = 0; step < kSteps; ++step) {
      SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step));
      const Json request = maker.Next(form());
      maker.Hear(request, Json::parse(session_.Reply(R"({"save":true})")));
      Play(request.dump());
      if (HasFailure()) return;
    }
    if (!form().TxtOutput.Text().empty()) ++results;
  }
  EXPECT_GT(results, static_cast<int>(kSessionsOfEach) / 2);
}

INSTANTIATE_TEST_SUITE_P(Seeds, MadeUpSessionsTest, ::testing::Range(0U, 6U));

}  // namespace
}  // namespace zolt20::tests
