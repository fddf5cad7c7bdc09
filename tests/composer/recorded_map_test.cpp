// The control with a record: a person at its mouse and keys and a host that answers, and then the
// record played by a session of the automation host, which must end where the control is.
#include "hosts/composer/recorded_map.h"

#include <QMessageBox>
#include <QTimer>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <utility>

#include "hosts/automation/session.h"
#include "tests/qt/widget_test.h"
#include "tests/support/example_sessions.h"
#include "tests/support/places.h"

namespace zolt20::tests {
namespace {

using automation::Session;
using composer::RecordedMap;
using Json = nlohmann::ordered_json;
namespace fs = std::filesystem;

// Two tables of two fields, the first with two indexes.
catalogue::Catalogue SmallCatalogue() {
  catalogue::Catalogue catalogue;
  catalogue.tables = {
      {u"TABLE__1", u"Customers", 2, {{u"A", u"long", false, u"n"}, {u"B", u"char", false, u"m"}}},
      {u"TABLE__2", u"TABLE__2", 0, {{u"C", u"long", true, u"o"}, {u"D", u"date", false, u""}}},
  };
  return catalogue;
}

class RecordedMapTest : public PersonTest {
 protected:
  RecordedMapTest() {
    QObject::connect(&presser_, &QTimer::timeout, [this] { PressOk(); });
    presser_.start(1);
    MakeNew(SmallCatalogue());
  }
  ~RecordedMapTest() override { delete widget_.data(); }

  /// Discards the one before.
  void MakeNew(const catalogue::Catalogue& catalogue) {
    delete widget_.data();
    map_ = new RecordedMap(catalogue);
    widget_ = map_;
    firstLines_ = map_->Record().count('\n');
    widget_->resize(900, 650);
    Hear();
    ShowWindow(*widget_);
  }

  RecordedMap& map() { return *map_; }
  /// What the host does inside an event.
  void Answer(const std::string& event, std::function<void()> action) {
    answers_[event] = std::move(action);
  }
  /// Events, messages and failures since the last call, in order.
  Texts Log() { return std::exchange(log_, {}); }

  void MarkAndMove(int table, int field) {
    Click("lsttables", table);
    Click("lstFields", field);
    Click("cmdMoveOne");
  }
  using PersonTest::Pick;
  void Pick(std::string_view combo, std::string_view entry) {
    const auto& rows = dynamic_cast<const RowsControl&>(ControlOf(combo));
    int row = 0;
    while (row < rows.ListCount() && Narrow(rows.List(row)) != entry)
      ++row;
    ASSERT_LT(row, rows.ListCount()) << combo << " has no " << entry;
    Pick(combo, row);
  }
  void PressUndo() { Click("undo"); }
  void PressRedo() { Click("redo"); }

  // Reads.

  std::string Text(std::string_view box) {
    return Narrow(static_cast<const TextControl&>(ControlOf(box)).Text());
  }
  std::string Result() { return Text("TxtOutput"); }
  /// The lines of the record behind those that every record begins with.
  Texts Lines() {
    Texts lines;
    for (const QByteArray& line : map_->Record().split('\n').mid(firstLines_))
      lines.push_back(line.toStdString());
    EXPECT_EQ(lines.back(), "") << "the last line does not end";
    lines.pop_back();
    return lines;
  }
  /// The same without those that only move the focus, which are no steps.
  Texts Steps() {
    Texts lines = Lines();
    const auto isFocus = [](const std::string& line) {
      return line.starts_with(R"({"user":"focus")");
    };
    lines.erase(std::remove_if(lines.begin(), lines.end(), isFocus), lines.end());
    return lines;
  }
  static Json ReplyOf(Session& session, const std::string& line) {
    return Json::parse(hosts::PutStandIns(session.Reply(line)));
  }
  /// Plays the record to its end, and compares all that can be seen of the two controls. Gives the
  /// errors of the gestures in it.
  Texts Replay() {
    Session session;
    Texts errors;
    for (const QByteArray& each : map_->Record().split('\n')) {
      const std::string line = each.toStdString();
      if (line.empty()) continue;
      const Json reply = ReplyOf(session, line);
      EXPECT_FALSE(reply.contains("refused")) << line << reply;
      if (reply.contains("error")) {
        errors.push_back(reply["error"]["kind"].get<std::string>() + " " +
                         reply["error"]["number"].dump());
      }
    }
    EXPECT_EQ(Json::diff(automation::Dump(session.Control().Form()), State()), Json::array())
        << map_->Record().toStdString();
    EXPECT_EQ(Narrow(session.Control().prpStrSQLPart()), Std(map_->prpStrSQLPart()));
    const Json bag = ReplyOf(session, R"({"save":true})")["value"];
    const QVariantMap own = map_->UserControl_WriteProperties();
    EXPECT_EQ(static_cast<qsizetype>(bag.size()), own.size());
    for (const auto& [key, value] : bag.items()) {
      const QVariant other = own[Qs(key)];
      EXPECT_EQ(value, value.is_string() ? Json(Std(other.toString())) : Json(other.toInt()))
          << key;
    }
    EXPECT_EQ(Difference(), "");
    return errors;
  }
  void ExpectReplayed() { EXPECT_EQ(Replay(), Texts{}); }

 private:
  void PressOk() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr || !box->isVisible()) return;
    log_.push_back("message " + Std(box->windowTitle()) + ": " + Std(box->text()));
    QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
  }

  void Hear() {
    const auto event = [this](void (ZOLT20MapWidget::*signal)(), const char* name) {
      QObject::connect(map_, signal, map_, [this, name] {
        log_.emplace_back(name);
        const auto answer = answers_.find(name);
        if (answer != answers_.end() && answer->second) answer->second();
      });
    };
    event(&ZOLT20MapWidget::eventCancel, "eventCancel");
    event(&ZOLT20MapWidget::eventDone, "eventDone");
    event(&ZOLT20MapWidget::eventSubQuery, "eventSubQuery");
    event(&ZOLT20MapWidget::eventCondition, "eventCondition");
    event(&ZOLT20MapWidget::eventFunction, "eventFunction");
    // Without a display no window comes up again behind a message box that closes.
    QObject::connect(map_, &ZOLT20MapWidget::gestureMade, map_, [this] {
      if (!map_->isActiveWindow()) map_->activateWindow();
    });
    QObject::connect(map_, &ZOLT20MapWidget::Failed, map_, [this](const QString& kind, int number) {
      log_.push_back("failed " + Std(kind) + " " + std::to_string(number));
    });
  }

  RecordedMap* map_ = nullptr;
  qsizetype firstLines_ = 0;
  Texts log_;
  std::map<std::string, std::function<void()>> answers_;
  QTimer presser_;  // answers message boxes
};

// The lines of a record.
std::string FocusLine(const std::string& control) {
  return R"({"user":"focus","control":")" + control + "\"}";
}
std::string ClickLine(const std::string& control) {
  return R"({"user":"click","control":")" + control + "\"}";
}
std::string RowLine(const std::string& verb, const std::string& control, int row) {
  return R"({"user":")" + verb + R"(","control":")" + control + R"(","row":)" +
         std::to_string(row) + "}";
}
std::string TypeLine(const std::string& box, const std::string& text) {
  return R"({"user":"type","control":")" + box + R"(","text":")" + text + "\"}";
}
std::string TabLine(int page) {
  return R"({"user":"tab","page":)" + std::to_string(page) + "}";
}
std::string KeyLine(const std::string& box, char key) {
  return R"({"user":"key","control":")" + box + R"(","code":)" + std::to_string(key) + "}";
}

// What is in the record.

TEST_F(RecordedMapTest, ARecordBeginsWithTheCatalogue) {
  EXPECT_EQ(map().Record().toStdString(),
            R"({"set":"PrpStrTables","value":"TABLE__12,TABLE__20"})"
            "\n"
            R"({"set":"PrpStrFields","value":"long*Q*V*R*N*NTABLE__1.A*Q*V*R*N*n,)"
            R"(char*Q*V*R*N*NTABLE__1.B*Q*V*R*N*m,long*Q*V*R*N*YTABLE__2.C*Q*V*R*N*o,)"
            R"(date*Q*V*R*N*NTABLE__2.D*Q*V*R*N*"})"
            "\n"
            R"({"set":"Syntax_Highlight","value":true})"
            "\n");
  EXPECT_FALSE(map().IsChanged());
  ExpectReplayed();
}

TEST_F(RecordedMapTest, AGestureIsALine) {
  Click("lsttables", 0);
  Click("lsttables", 0);
  Tab(1);
  EXPECT_EQ(Lines(), (Texts{FocusLine("lsttables"), RowLine("click", "lsttables", 0),
                            RowLine("click", "lsttables", 0), FocusLine("tabVrn"), TabLine(1)}));
  ExpectReplayed();
}

TEST_F(RecordedMapTest, AWriteOfTheHostIsALine) {
  map().Write("prpTab", 2);
  map().Write("prpSelectDoPart", QStringLiteral("x = `^`y`^`~\u0001z"));
  map().Write("prpintTabcount", 1);
  map().ReadResult();
  EXPECT_EQ(Lines(), (Texts{R"({"set":"prpTab","value":2})",
                            R"({"set":"prpSelectDoPart","value":"x = `^`y`^`~\u0001z"})",
                            R"({"set":"prpintTabcount","value":1})", R"({"get":"prpStroutput"})"}));
  EXPECT_EQ(Text("txtSelectDo"), "x = \"y\"\r\nz");  // a tab was taken off the second line
  ExpectReplayed();
}

TEST_F(RecordedMapTest, AWriteThatFailsIsALineToo) {
  EXPECT_THROW(map().Write("prpTab", 7), RuntimeError);
  EXPECT_EQ(Lines(), Texts{R"({"set":"prpTab","value":7})"});
  EXPECT_EQ(Replay(), Texts{"value 380"});
}

TEST_F(RecordedMapTest, APropertyThatIsNoneIsRefused) {
  EXPECT_THROW(map().Write("prpTab", QStringLiteral("1")), std::invalid_argument);
  EXPECT_THROW(map().Write("prpStrSQLPart", QStringLiteral("D")), std::invalid_argument);
  EXPECT_EQ(Lines(), Texts{});
}

TEST_F(RecordedMapTest, AReadAtADepthIndentsTheResultInTheRecordToo) {
  map().Write("prpintTabcount", 2);
  Type("TxtOutput", "a\r\nb");
  EXPECT_EQ(Std(map().ReadResult()), "a\r\n\tb");
  EXPECT_EQ(Std(map().ReadResult()), "a\r\n\t\tb");
  ExpectReplayed();
}

// The kinds of gestures.

TEST_F(RecordedMapTest, ASelectListIsReplayed) {
  Click("lsttables", 0);
  Click("lsttables", 1);
  for (const int row : {1, 2}) {
    Click("lstFields", row);
    Click("cmdMoveOne");
  }
  Click("lstFunctions", 0);
  DoubleClick("lstFunctions", 0);
  DoubleClick("lstFields", 2);
  Click("lstSelectedFields", 0);
  Click("cmdRemoveOne");
  Click("lstGroupby", 0);
  Click("cmdAddSelect");
  EXPECT_TRUE(Result().starts_with("select TABLE__1.B\r\nfrom  ")) << Result();
  const Texts lines = Lines();
  for (const std::string& line :
       {RowLine("dblclick", "lstFunctions", 0), RowLine("dblclick", "lstFields", 2)}) {
    EXPECT_EQ(std::count(lines.begin(), lines.end(), line), 1) << line;
  }
  ExpectReplayed();
}

TEST_F(RecordedMapTest, ACheckedRowOfAFilteredListIsItsOwnRow) {
  Click("lsttables.filter");
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("__2"));
  Click("lsttables", 0);  // the first that is drawn
  Be<QLineEdit>("lsttables.filter").clear();
  EXPECT_EQ(Lines(), (Texts{FocusLine("lsttables"), RowLine("click", "lsttables", 1)}));
  ExpectReplayed();
}

TEST_F(RecordedMapTest, AWherePageIsReplayed) {
  MarkAndMove(0, 1);
  Click("cmdAddSelect");
  Tab(1);
  Pick("cboWhereFields", "TABLE__1.A");
  Pick("cboOper", ">");
  Pick("cboWhereFields1", "TABLE__1.B");
  TypeKeys("cboWhereFields1", "42");
  Click("cmdAnd");
  Pick("cboWhereFields", "TABLE__1.B");
  Pick("cboOper", "<");
  Type("cboWhereFields1", ":var.x");
  Click("CmdOr");
  Pick("cboWhereFields", "TABLE__1.B");
  Pick("cboOper", "LIKE");
  TypeKeys("txtCondition", "\"x\"");
  Click("cmdAnd");
  Click("lstorderbyasc", 1);
  Click("lstorderbydesc", 0);
  TypeKeys("txtAsSet", "25");
  Click("cmdAddWhereQuery");
  EXPECT_NE(Result().find("\r\nwhere "), std::string::npos) << Result();
  EXPECT_NE(Result().find("\r\nas set with 25 rows "), std::string::npos) << Result();
  ExpectReplayed();
}

TEST_F(RecordedMapTest, KeysAtTheEndOfTheRowLimitAreKeys) {
  Tab(1);
  TypeKeys("txtAsSet", "1a2");
  Press(Qt::Key_Backspace);
  EXPECT_EQ(Text("txtAsSet"), "1");
  EXPECT_EQ(Lines(),
            (Texts{FocusLine("tabVrn"), TabLine(1), FocusLine("txtAsSet"), KeyLine("txtAsSet", '1'),
                   KeyLine("txtAsSet", 'a'), KeyLine("txtAsSet", '2'), KeyLine("txtAsSet", 8)}));
  ExpectReplayed();
}

TEST_F(RecordedMapTest, KeysInTheMiddleOfTheRowLimitAreReplayed) {
  Tab(1);
  TypeKeys("txtAsSet", "123");
  Press(Qt::Key_Left);
  Key("txtAsSet", '9');
  EXPECT_EQ(Text("txtAsSet"), "1293");
  const Texts lines = Lines();
  EXPECT_EQ(lines.back(), R"({"user":"key","control":"txtAsSet","code":57,"from":2})");
  Key("txtAsSet", 'x');  // refused
  Key("txtAsSet", 8);
  EXPECT_EQ(Text("txtAsSet"), "123");
  Press(Qt::Key_Home);
  Press(Qt::Key_Right, Qt::ShiftModifier);
  Press(Qt::Key_Right, Qt::ShiftModifier);
  Key("txtAsSet", '7');
  EXPECT_EQ(Text("txtAsSet"), "73");
  Press(Qt::Key_Home);
  Key("txtAsSet", 8);
  EXPECT_EQ(Text("txtAsSet"), "73");
  Type("txtAsSet", "55");
  EXPECT_EQ(Text("txtAsSet"), "55");
  ExpectReplayed();
}

TEST_F(RecordedMapTest, AConditionPageIsReplayed) {
  Tab(6);
  Click("optIfThen");
  TypeKeys("txtCond", "a > 1");
  TypeKeys("txtStmt1", "x = 1\ny = 2");
  Type("txtStmt2", "z = 3");
  Click("cmdAdd");
  Click("optwhile");
  TypeKeys("txtWhlCnd", "b");
  TypeKeys("txtWhlStm", "c");
  Click("cmdAdd");
  Click("optRepeat");
  TypeKeys("txtRepCnd", "d");
  TypeKeys("txtRepStm", "e");
  Click("cmdAdd");
  Click("optFor");
  TypeKeys("txtVariable", "i");
  TypeKeys("txtinitval", "1");
  TypeKeys("txtFinVal", "9");
  TypeKeys("txtStep", "2");
  TypeKeys("txtForStmt", "f");
  Click("cmdAdd");
  Click("cmdBuild");
  TypeKeys("TxtOutput", "\nlast");
  EXPECT_TRUE(Result().starts_with("if a > 1 then")) << Result();
  EXPECT_TRUE(Result().ends_with("\r\nlast")) << Result();
  ExpectReplayed();
}

TEST_F(RecordedMapTest, CaseRowsAndTheirScrollBarAreReplayed) {
  Tab(6);
  Click("optCase");
  TypeKeys("txtcaseexp", "e");
  for (int row = 0; row < 5; ++row) {
    const std::string number = "(" + std::to_string(row) + ")";
    TypeKeys("TxtExpr" + number, std::to_string(row));
    TypeKeys("txtStmt" + number, "s");
    Click("cmdNext");
  }
  const auto& bar = dynamic_cast<const ScrollBar&>(ControlOf("VscrCase"));
  ASSERT_GT(bar.Value(), 1);
  Scroll("VscrCase", bar.Value() - 2);
  Scroll("VscrCase", bar.Value() + 1);
  const Texts lines = Lines();
  EXPECT_EQ(lines.back(), R"({"user":"scroll","control":"VscrCase","value":)" +
                              std::to_string(bar.Value()) + "}");
  TypeKeys("TxtDef", "d");
  ExpectReplayed();
  Click("cmdAdd");
  Click("cmdBuild");
  EXPECT_NE(Result().find("\tcase 4 :"), std::string::npos) << Result();
  ExpectReplayed();
}

TEST_F(RecordedMapTest, ClearIsReplayedOnEveryPage) {
  MarkAndMove(0, 1);
  Click("cmdAddSelect");
  for (int page = 0; page <= 6; ++page) {
    Tab(page);
    if (page == 6) Click("optwhile");
    Type("TxtOutput", "x");
    Click("cmdClear");
    EXPECT_EQ(Result(), "") << page;
    ExpectReplayed();
  }
}

TEST_F(RecordedMapTest, AMessageIsNoLine) {
  Click("cmdMoveOne");
  EXPECT_EQ(Log(), Texts{"message Maintain Mapping Objects: Tables Not Selected --Select A Table "
                         "To Proceed Further"});
  EXPECT_EQ(Lines(), (Texts{FocusLine("cmdMoveOne"), ClickLine("cmdMoveOne")}));
  ExpectReplayed();
}

TEST_F(RecordedMapTest, TheFocusByKeysIsReplayed) {
  Tab(6);
  Click("optIfThen");
  Focus("txtCond");
  for (int press = 0; press < 4; ++press)
    Press(Qt::Key_Tab);
  Press(Qt::Key_Backtab, Qt::ShiftModifier);
  const Texts lines = Lines();
  EXPECT_EQ(
      std::count_if(lines.begin(), lines.end(),
                    [](const std::string& line) { return line.starts_with(R"({"user":"focus")"); }),
      7);  // of the option, the box, and of five keys
  ExpectReplayed();
}

// The box that stands ready for the host's text is the one that had the focus last.
TEST_F(RecordedMapTest, AFocusThatChoosesTheBoxOfAnAnswerIsReplayed) {
  Tab(6);
  Click("optCase");
  Answer("eventFunction", [this] { map().Write("prpStroutput", QStringLiteral("f ( x )")); });
  Focus("TxtDef");
  Click("cmdFunction(4)");
  EXPECT_EQ(Text("TxtDef"), "f ( x )");
  Focus("txtStmt(0)");
  Click("cmdFunction(4)");
  EXPECT_EQ(Text("txtStmt(0)"), "f ( x )");
  EXPECT_EQ(Text("TxtDef"), "f ( x )");
  ExpectReplayed();
}

// Answers.

struct RequestPage {
  int page;
  const char* property;
  const char* box;
};

class AnsweredPageTest : public RecordedMapTest, public ::testing::WithParamInterface<RequestPage> {
 protected:
  AnsweredPageTest() {
    Tab(GetParam().page);
    if (GetParam().page == 6) Click("optwhile");  // else the buttons are disabled
    before_ = Lines();
  }

  /// The lines that came since the page was turned.
  Texts NewLines() {
    const Texts lines = Lines();
    EXPECT_TRUE(std::equal(before_.begin(), before_.end(), lines.begin()));
    return {lines.begin() + static_cast<std::ptrdiff_t>(before_.size()), lines.end()};
  }

  static std::string Button(const char* array) {
    return std::string(array) + "(" + std::to_string(GetParam().page - 2) + ")";
  }
  void Write(const char* text) { map().Write(GetParam().property, Qs(text)); }

 private:
  Texts before_;
};

TEST_P(AnsweredPageTest, AnAnswerOfSeveralWritesStandsBeforeItsGesture) {
  Answer("eventSubQuery", [this] {
    Write("select A~\u0001from  B~endselect");
    Write("second `^`text`^`");
  });
  const std::string button = Button("cmdSubQuery");
  Click(button);
  const std::string set = std::string(R"({"set":")") + GetParam().property + R"(","value":")";
  EXPECT_EQ(NewLines(),
            (Texts{FocusLine(button),
                   R"({"answer":"eventSubQuery","with":[)" + set +
                       R"(select A~\u0001from  B~endselect"},)" + set + R"(second `^`text`^`"}]})",
                   ClickLine(button), R"({"answer":"eventSubQuery","with":[]})"}));
  EXPECT_NE(Text(GetParam().box).find("second \"text\""), std::string::npos);
  ExpectReplayed();
}

TEST_P(AnsweredPageTest, AnswersOfTheSameEventDoNotMix) {
  int number = 0;
  Answer("eventFunction", [&] { Write(("f" + std::to_string(++number) + " ( )").c_str()); });
  Click(Button("cmdFunction"));
  Click(Button("cmdFunction"));
  Answer("eventFunction", {});
  Click(Button("cmdFunction"));
  EXPECT_EQ(Text(GetParam().box).find("f2 ( )"), Text(GetParam().box).size() - 6);
  EXPECT_EQ(Log(), (Texts{"eventFunction", "eventFunction", "eventFunction"}));
  ExpectReplayed();
}

TEST_P(AnsweredPageTest, AnEventWithoutAnAnswerIsAGestureAlone) {
  const std::string button = Button("cmdSubQuery");
  Click(button);
  EXPECT_EQ(Log(), Texts{"eventSubQuery"});
  EXPECT_EQ(NewLines(), (Texts{FocusLine(button), ClickLine(button)}));
  ExpectReplayed();
}

TEST_P(AnsweredPageTest, AnAnswerThatFailsIsReplayedAsFarAsItCame) {
  Answer("eventFunction", [this] {
    Write("before");
    map().Write("prpTab", 7);
  });
  Click(Button("cmdFunction"));
  EXPECT_EQ(Log(), (Texts{"eventFunction", "failed value 380"}));
  EXPECT_EQ(Text(GetParam().box), "before");
  ExpectReplayed();  // a session goes on behind an answer that failed
  Answer("eventFunction", {});
  Click(Button("cmdFunction"));
  EXPECT_EQ(Lines().back(), ClickLine(Button("cmdFunction")));
  ExpectReplayed();
}

TEST_P(AnsweredPageTest, AnAnswerIsUndoneWithItsGesture) {
  Answer("eventSubQuery", [this] { Write("text"); });
  Click(Button("cmdSubQuery"));
  const Json after = State();
  const QByteArray all = map().Record();
  PressUndo();
  EXPECT_EQ(Text(GetParam().box), "");
  EXPECT_EQ(NewLines(), Texts{FocusLine(Button("cmdSubQuery"))});
  ExpectReplayed();
  PressRedo();
  EXPECT_EQ(State(), after);
  EXPECT_EQ(map().Record(), all);
  ExpectReplayed();
}

INSTANTIATE_TEST_SUITE_P(Each, AnsweredPageTest,
                         ::testing::Values(RequestPage{2, "prpSelectDoPart", "txtSelectDo"},
                                           RequestPage{3, "prpSelectEOSPart", "txtSelectEOS"},
                                           RequestPage{4, "prpSelectEmptyPart", "txtselectempty"},
                                           RequestPage{5, "prpSelectErrorPart", "txtSelectError"},
                                           RequestPage{6, "prpStroutput", "TxtOutput"}),
                         [](const auto& page) { return "Page" + std::to_string(page.param.page); });

TEST_F(RecordedMapTest, ConditionsAreAnsweredOnTheFourPagesOfBlocks) {
  Answer("eventCondition", [this] {
    const std::map<std::string, const char*> properties{{"D", "prpSelectDoPart"},
                                                        {"E", "prpSelectEOSPart"},
                                                        {"O", "prpSelectEmptyPart"},
                                                        {"F", "prpSelectErrorPart"}};
    map().Write(properties.at(Std(map().prpStrSQLPart())), QStringLiteral("if a then~endif"));
  });
  for (int index = 0; index < 4; ++index) {
    Tab(index + 2);
    Click("cmdCondition(" + std::to_string(index) + ")");
  }
  for (const char* box : {"txtSelectDo", "txtSelectEOS", "txtselectempty", "txtSelectError"})
    EXPECT_EQ(Text(box), "if a then\r\nendif") << box;
  ExpectReplayed();
}

TEST_F(RecordedMapTest, WhatTheHostDoesAtDoneIsReplayed) {
  map().Write("prpintTabcount", 1);
  Type("TxtOutput", "a\r\nb");
  std::string read;
  Answer("eventDone", [&] {
    read = Std(map().ReadResult());
    map().Write("prpTab", 3);
  });
  Click("cmdDone");
  EXPECT_EQ(read, "a\r\n\tb");
  const Texts lines = Lines();
  EXPECT_EQ(Texts(lines.end() - 3, lines.end()),
            (Texts{R"({"answer":"eventDone","with":[{"get":"prpStroutput"},)"
                   R"({"set":"prpTab","value":3}]})",
                   ClickLine("cmdDone"), R"({"answer":"eventDone","with":[]})"}));
  ExpectReplayed();
  Answer("eventCancel", [this] { map().Write("prpTab", 0); });
  Click("cmdCancel");
  EXPECT_EQ(Log(), (Texts{"eventDone", "eventCancel"}));
  ExpectReplayed();
}

TEST_F(RecordedMapTest, AGestureThatFailsIsReplayed) {
  map().Write("prpintTabcount", 32767);
  Tab(6);
  Click("optwhile");
  TypeKeys("txtWhlCnd", "c");
  TypeKeys("txtWhlStm", "s");
  Click("cmdAdd");
  EXPECT_EQ(Log(), Texts{"failed overflow 6"});
  EXPECT_EQ(Lines().back(), ClickLine("cmdAdd"));
  EXPECT_EQ(Replay(), Texts{"overflow 6"});
}

// A lone write is not taken for the answer to an event that came before it.
TEST_F(RecordedMapTest, AWriteBehindAnEventIsNoAnswer) {
  Click("cmdDone");
  map().Write("prpTab", 2);
  EXPECT_EQ(Lines().back(), R"({"set":"prpTab","value":2})");
  ExpectReplayed();
}

// Typing.

TEST_F(RecordedMapTest, ARunOfTypingInASyntaxBoxIsOneLine) {
  Tab(2);
  TypeKeys("txtSelectDo", "ab\ncd");
  EXPECT_EQ(Lines(),
            (Texts{FocusLine("tabVrn"), TabLine(2), TypeLine("txtSelectDo", R"(ab\r\ncd)")}));
  ExpectReplayed();
}

TEST_F(RecordedMapTest, ARunOfTypingInATextBoxIsALineForEachKey) {
  Tab(1);
  TypeKeys("txtwhereCondition", "ab");
  EXPECT_EQ(Lines(),
            (Texts{FocusLine("tabVrn"), TabLine(1), FocusLine("txtwhereCondition"),
                   TypeLine("txtwhereCondition", "a"), TypeLine("txtwhereCondition", "ab")}));
  ExpectReplayed();
}

TEST_F(RecordedMapTest, AnotherBoxEndsARun) {
  Tab(2);
  TypeKeys("txtSelectDo", "ab");
  TypeKeys("TxtOutput", "x");
  TypeKeys("txtSelectDo", "c");
  EXPECT_EQ(Lines(), (Texts{FocusLine("tabVrn"), TabLine(2), TypeLine("txtSelectDo", "ab"),
                            FocusLine("TxtOutput"), TypeLine("TxtOutput", "x"),
                            FocusLine("txtSelectDo"), TypeLine("txtSelectDo", "abc")}));
  ExpectReplayed();
}

TEST_F(RecordedMapTest, AWriteOfTheHostEndsARun) {
  TypeKeys("TxtOutput", "ab");
  map().Write("prpStroutput", QStringLiteral("*zlt*x"));
  TypeKeys("TxtOutput", "c");
  const Texts lines = Lines();
  EXPECT_EQ(lines.size(), 4U);
  EXPECT_EQ(lines[1], TypeLine("TxtOutput", "ab"));
  EXPECT_TRUE(Result().ends_with("xc")) << Result();
  EXPECT_FALSE(map().canRedo());
  ExpectReplayed();
  PressUndo();
  EXPECT_EQ(Lines().size(), 3U);
  EXPECT_FALSE(map().canUndo());
  ExpectReplayed();
}

TEST_F(RecordedMapTest, TypingAfterAnUndoIsALineOfItsOwn) {
  Tab(2);
  TypeKeys("txtSelectDo", "ab");
  PressUndo();
  TypeKeys("txtSelectDo", "cd");
  EXPECT_EQ(Text("txtSelectDo"), "cd");
  EXPECT_EQ(Lines(), (Texts{FocusLine("tabVrn"), TabLine(2), TypeLine("txtSelectDo", "cd")}));
  ExpectReplayed();
  PressUndo();
  EXPECT_EQ(Lines(), (Texts{FocusLine("tabVrn"), TabLine(2)}));
  ExpectReplayed();
}

// The box takes the run back by itself, which is no step of the history.
TEST_F(RecordedMapTest, ARunThatTheBoxTookBackLeavesARecordThatIsRight) {
  Tab(2);
  TypeKeys("txtSelectDo", "ab");
  QTest::keySequence(Window(), QKeySequence(QKeySequence::Undo));
  ASSERT_EQ(Text("txtSelectDo"), "");
  ExpectReplayed();
  TypeKeys("txtSelectDo", "c");
  ExpectReplayed();
  PressUndo();
  EXPECT_EQ(Text("txtSelectDo"), "");
  ExpectReplayed();
  PressRedo();
  EXPECT_EQ(Text("txtSelectDo"), "c");
  ExpectReplayed();
}

// Undo and redo.

TEST_F(RecordedMapTest, UndoTakesStepsOutAndRedoPutsThemIn) {
  Click("lsttables", 0);
  std::vector<Texts> records{Steps()};
  const auto step = [&](const std::function<void()>& act) {
    act();
    records.push_back(Steps());
    ExpectReplayed();
  };
  step([this] { Click("lsttables", 1); });
  step([this] { Tab(2); });
  step([this] { Tab(0); });
  step([this] { Click("lsttables", 0); });
  for (std::size_t back = records.size() - 1; back > 0; --back) {
    PressUndo();
    EXPECT_EQ(Steps(), records[back - 1]) << back;
    ExpectReplayed();
  }
  for (std::size_t on = 1; on < records.size(); ++on) {
    PressRedo();
    EXPECT_EQ(Steps(), records[on]) << on;
    ExpectReplayed();
  }
}

TEST_F(RecordedMapTest, AGestureAfterAnUndoDropsWhatWasUndone) {
  Click("lsttables", 0);
  Click("lsttables", 1);
  PressUndo();
  PressUndo();
  Tab(3);
  EXPECT_EQ(Steps(), Texts{TabLine(3)});
  EXPECT_FALSE(map().canRedo());
  ExpectReplayed();
  PressUndo();
  EXPECT_EQ(Steps(), Texts{});
  PressRedo();
  EXPECT_EQ(Steps(), Texts{TabLine(3)});
  ExpectReplayed();
}

// Moving about and what only tells the host are no steps, so that what was undone comes back after
// them.
TEST_F(RecordedMapTest, RedoAfterAMereFocusBringsItsOwnLines) {
  Click("lsttables", 0);
  Click("lsttables", 1);
  const Texts lines = Lines();
  const Json state = State();
  PressUndo();
  PressUndo();
  Focus("TxtOutput");
  Click("cmdDone");
  ASSERT_TRUE(map().canRedo());
  ExpectReplayed();
  const Texts moved = Lines();
  PressRedo();
  ExpectReplayed();
  PressRedo();
  EXPECT_EQ(Lines(), lines);
  EXPECT_EQ(State(), state);
  ExpectReplayed();
  PressUndo();
  PressUndo();
  EXPECT_EQ(Lines(), moved);
  ExpectReplayed();
}

TEST_F(RecordedMapTest, MoreStepsThanTheHistoryKeepsStayInTheRecord) {
  for (int step = 0; step < 250; ++step)
    Click("lsttables", step % 2);
  EXPECT_EQ(Lines().size(), 251U);
  int undone = 0;
  for (; map().canUndo(); ++undone)
    map().undo();
  EXPECT_EQ(undone, 200);
  EXPECT_EQ(Lines().size(), 51U);
  ExpectReplayed();
  for (int step = 0; step < 120; ++step)
    map().redo();
  EXPECT_EQ(Lines().size(), 171U);
  ExpectReplayed();
}

TEST_F(RecordedMapTest, AHostWriteOutsideAGestureStaysInTheRecord) {
  Click("lsttables", 0);
  map().Write("prpTab", 1);
  EXPECT_FALSE(map().canUndo());
  Tab(2);
  PressUndo();
  EXPECT_EQ(Steps(), (Texts{RowLine("click", "lsttables", 0), R"({"set":"prpTab","value":1})"}));
  map().undo();
  EXPECT_EQ(Steps().size(), 2U);
  ExpectReplayed();
}

// Whether something is to be stored.

TEST_F(RecordedMapTest, MovingAboutAndDoneAndCancelAreNoChange) {
  Click("cmdDone");
  Click("cmdCancel");
  Tab(1);
  Focus("txtAsSet");
  Press(Qt::Key_Tab);
  Tab(6);
  Click("optFor");
  EXPECT_FALSE(map().IsChanged());
}

TEST_F(RecordedMapTest, WhatIsPendingOnThePagesIsAChange) {
  const auto changes = [this](const std::function<void()>& act) {
    map().Settle(Qs(Result()));
    EXPECT_FALSE(map().IsChanged());
    act();
    EXPECT_TRUE(map().IsChanged());
  };
  Click("lsttables", 0);
  changes([this] {
    Click("lstFields", 0);
    Click("cmdMoveOne");
  });
  EXPECT_TRUE(map().PendingOnPages().statement);
  Tab(1);
  changes([this] { Pick("cboWhereFields", "TABLE__1.A"); });
  EXPECT_TRUE(map().PendingOnPages().unapplied);
  changes([this] { Type("cboWhereFields1", "1"); });
  changes([this] { TypeKeys("txtAsSet", "1"); });
  EXPECT_TRUE(map().PendingOnPages().statement);
  changes([this] { TypeKeys("TxtOutput", "a"); });
  EXPECT_FALSE(map().PendingOnPages().Any());
  changes([this] { TypeKeys("TxtOutput", "b"); });  // goes on with the same run
  Tab(6);
  Click("optIfThen");
  changes([this] { TypeKeys("txtCond", "a"); });
  EXPECT_TRUE(map().PendingOnPages().condition);
}

TEST_F(RecordedMapTest, PartsWithoutATableArePendingToo) {
  Tab(2);
  TypeKeys("txtSelectDo", "x");
  EXPECT_TRUE(map().PendingOnPages().loose);
  EXPECT_TRUE(map().IsChanged());
  EXPECT_TRUE(map().WhatAddDoes().buttons.empty());
}

TEST_F(RecordedMapTest, AGestureAndItsOppositeAreNoChange) {
  Click("lsttables", 0);
  Click("lstFields", 1);
  Click("cmdMoveOne");
  map().Settle();
  Click("lsttables", 1);
  EXPECT_TRUE(map().IsChanged()) << "from another table too";
  Click("lsttables", 1);
  EXPECT_FALSE(map().IsChanged());
  Tab(2);
  Type("txtSelectDo", "x");
  EXPECT_EQ(Text("txtSelectDo"), "x");
  EXPECT_TRUE(map().IsChanged());
  Type("txtSelectDo", "");
  EXPECT_FALSE(map().IsChanged());
}

TEST_F(RecordedMapTest, WhatWasAddedIsPendingNoMore) {
  Click("lsttables", 0);
  Click("lstFields", 1);
  Click("cmdMoveOne");
  Click("cmdAddSelect");
  EXPECT_FALSE(map().PendingOnPages().Any());
  EXPECT_TRUE(map().IsChanged()) << "the Result is stored nowhere";
  Type("TxtOutput", "edited by hand");
  EXPECT_FALSE(map().PendingOnPages().Any());
  PressUndo();
  PressUndo();
  EXPECT_TRUE(map().PendingOnPages().statement) << "the Result is empty again";
}

TEST_F(RecordedMapTest, WhatIsPendingIsAddedByTheButtonOfThePage) {
  Click("lsttables", 0);
  Click("lstFields", 1);
  Click("cmdMoveOne");
  Click("cmdAddSelect");
  Tab(1);
  TypeKeys("txtAsSet", "9");
  const composer::Addition addition = map().WhatAddDoes();
  EXPECT_EQ(Result().find("as set"), std::string::npos) << "nothing is done yet";
  map().AddPages();
  EXPECT_EQ(Result(), Narrow(addition.result));
  EXPECT_NE(Result().find("as set with 9"), std::string::npos);
  EXPECT_EQ(Result().find("select"), Result().rfind("select ")) << "there is one statement";
  EXPECT_FALSE(map().PendingOnPages().Any());
  ExpectReplayed();
}

TEST_F(RecordedMapTest, ThePageWhoseButtonRefusesLeavesItToTheSelectListPage) {
  Click("lsttables", 0);
  Click("lstFields", 1);
  Click("cmdMoveOne");
  Tab(2);
  Type("txtSelectDo", "x = 1");
  map().AddPages();
  EXPECT_NE(Result().find("selectdo\r\n\tx = 1"), std::string::npos) << Result();
  EXPECT_EQ(Be<QTabBar>("tabVrn").currentIndex(), 2);
  ExpectReplayed();
}

TEST_F(RecordedMapTest, AConditionIsAddedAndBuilt) {
  Tab(6);
  Click("optIfThen");
  Type("txtCond", "a");
  const composer::Addition addition = map().WhatAddDoes();
  map().AddPages();
  EXPECT_EQ(Result(), Narrow(addition.result));
  EXPECT_EQ(Result(), "if a then \r\nendif");
  EXPECT_FALSE(map().PendingOnPages().Any());
  ExpectReplayed();
}

TEST_F(RecordedMapTest, UndoAndRedoComeToTheStoredTextAndLeaveIt) {
  Click("lsttables", 0);
  Click("lstFields", 1);
  Click("cmdMoveOne");
  Click("cmdAddSelect");
  map().Settle(Qs(Result()));
  Click("lstFields", 2);
  Click("cmdMoveOne");
  EXPECT_TRUE(map().IsChanged());
  PressUndo();
  EXPECT_FALSE(map().IsChanged());
  PressRedo();
  EXPECT_TRUE(map().IsChanged());
}

// Texts.

class AnyTextTest : public RecordedMapTest,
                    public ::testing::WithParamInterface<const char16_t*> {};

// Lines of JSON in valid UTF-8. A surrogate that stands alone is an escape in them.
bool IsValid(const QByteArray& record) {
  for (const QByteArray& line : record.split('\n')) {
    if (!line.isEmpty() && !Json::accept(hosts::PutStandIns(line.toStdString()))) return false;
  }
  return QString::fromUtf8(record).toUtf8() == record;
}

TEST_P(AnyTextTest, ATextThatIsPastedComesBackExactly) {
  const std::string text = Narrow(StringView(GetParam()));
  Type("TxtOutput", text);
  EXPECT_EQ(Result(), text);
  Tab(1);
  Type("txtwhereCondition", text);
  Tab(2);
  Type("txtSelectDo", text);
  Tab(6);
  Click("optIfThen");
  if (text.find('\n') == std::string::npos) Type("txtCond", text);  // a box of one line
  EXPECT_TRUE(IsValid(map().Record()));
  ExpectReplayed();
}

TEST_P(AnyTextTest, ATextThatTheHostWritesComesBackExactly) {
  for (const char* property : {"prpStroutput", "prpSelectWherePart", "prpSelectEOSPart"})
    map().Write(property, Qs(Narrow(StringView(GetParam()))));
  Answer("eventFunction",
         [this] { map().Write("prpSelectErrorPart", Qs(Narrow(StringView(GetParam())))); });
  Tab(5);
  Click("cmdFunction(3)");
  EXPECT_NE(Text("txtSelectError"), "");
  EXPECT_TRUE(IsValid(map().Record()));
  ExpectReplayed();
}

INSTANTIATE_TEST_SUITE_P(
    Each, AnyTextTest,
    ::testing::Values(u"say \"x\" `^` \\ / \b\f", u"a ~ b ~~", u"one \u0001 two\u0001\u0001",
                      u"high \xD800 low \xDC00 end", u"\xDC00\xD800", u"\xD83D\xDE00 \u00E4\u20AC",
                      u"line\r\n\tline\r\n\r\nline", u"\u007F\u0085\uFFFE\uFFFF", u"*zlt*x *zlt*",
                      u"{\"user\":\"click\"}"));

TEST_F(RecordedMapTest, RandomTextsComeBackExactly) {
  std::mt19937 random(20);
  const StringView units =
      u"ab \"\\~\u0001\t`^*zlt{}[]:,\xD800\xDBFF\xDC00\xDFFF\u00E4\u20AC\uFFFF";
  for (int round = 0; round < 40; ++round) {
    String text;
    for (auto left = random() % 30 + 1; left > 0; --left) {
      text += random() % 8 == 0 ? String(u"\r\n") : String(1, units[random() % units.size()]);
    }
    Type("TxtOutput", Narrow(text));
    EXPECT_EQ(Result(), Narrow(text));
    map().Write("prpSelectEmptyPart", Qs(Narrow(text)));
  }
  EXPECT_TRUE(IsValid(map().Record()));
  ExpectReplayed();
}

// Whole sessions.

const fs::path kExamples = Examples();

std::string Contents(const fs::path& file) {
  std::ifstream input(file, std::ios::binary);
  EXPECT_TRUE(input) << file;
  std::ostringstream contents;
  contents << input.rdbuf();
  return contents.str();
}

// Those that make no second control.
Texts PlayableSessions() {
  Texts names = SessionNames(kExamples / "sessions");
  std::erase_if(names, [](const std::string& name) {
    return Contents(kExamples / "sessions" / (name + ".jsonl")).find("{\"new\":") !=
           std::string::npos;
  });
  return names;
}

class RecordedSessionTest : public RecordedMapTest,
                            public ::testing::WithParamInterface<std::string> {
 protected:
  RecordedSessionTest() : catalogue_(catalogue::ReadCatalogue(kExamples / "catalogue.json")) {
    MakeNew(catalogue_);
  }

  void Play(const Json& request) {
    if (request.contains("user")) {
      Make(request);
    } else if (request.contains("answer")) {
      Answer(request["answer"], [this, actions = request["with"]] {
        for (const Json& action : actions)
          Run(action);
      });
    } else {
      Run(request);
    }
  }

  std::string result_;  // as the host read it last

 private:
  // What the host does. The lists of the catalogue are there already.
  void Run(const Json& action) {
    const std::string name = action.contains("set") ? action["set"] : action.value("get", Json(""));
    if (name == "PrpStrTables" && action.contains("set")) {
      EXPECT_EQ(action["value"], Narrow(TableList(catalogue_)));
    } else if (name == "PrpStrFields" && action.contains("set")) {
      EXPECT_EQ(action["value"], Narrow(FieldList(catalogue_)));
    } else if (action.contains("set")) {
      const Json& value = action["value"];
      value.is_string() ? map().Write(name.c_str(), Qs(value.get<std::string>()))
                        : map().Write(name.c_str(), value.get<int>());
    } else if (name == "prpStroutput") {
      result_ = Std(map().ReadResult());
    }  // the others change nothing
  }

  catalogue::Catalogue catalogue_;
};

TEST_P(RecordedSessionTest, ASessionThatIsPlayedIsRecordedToTheSameResult) {
  std::istringstream input(Contents(kExamples / "sessions" / (GetParam() + ".jsonl")));
  int gestures = 0;
  for (std::string line; std::getline(input, line) && !HasFailure();) {
    if (Session::IsSkipped(line)) continue;
    SCOPED_TRACE(line.substr(0, 200));
    const Json request = Json::parse(line);
    gestures += request.contains("user") ? 1 : 0;
    Play(request);
  }
  EXPECT_GT(gestures, 0);
  EXPECT_TRUE(map().IsChanged());
  EXPECT_EQ(result_, Contents(kExamples / "sessions" / (GetParam() + ".result.txt")));
  ExpectReplayed();
  // And from its record once more, after some steps back and on.
  const QByteArray record = map().Record();
  int steps = 0;
  for (; map().canUndo() && steps < 20; ++steps)
    map().undo();
  EXPECT_GT(steps, 0);
  ExpectReplayed();
  for (; steps > 0; --steps)
    map().redo();
  EXPECT_EQ(map().Record(), record);
  ExpectReplayed();
}

INSTANTIATE_TEST_SUITE_P(Each, RecordedSessionTest, ::testing::ValuesIn(PlayableSessions()),
                         [](const auto& session) { return CaseName(session.param); });

}  // namespace
}  // namespace zolt20::tests
