// Composers within composers, and the function picker: what lands in the statement that asked.
#include <QDialogButtonBox>
#include <QImage>
#include <QLabel>
#include <QProcess>
#include <QScreen>
#include <ostream>

#include "hosts/automation/session.h"
#include "hosts/composer/function_picker.h"
#include "hosts/composer/requests.h"
#include "tests/composer/composer_test.h"
#include "tests/support/places.h"

namespace zolt20::tests {
namespace {

using composer::FunctionPicker;
using composer::NestedComposer;
using Json = nlohmann::ordered_json;

// Rows of the lists: tables as in the catalogue, fields behind the whole table.
constexpr int kCustomer = 2;
constexpr int kOrders = 5;
constexpr int kOrderLine = 6;
constexpr int kItem = 7;
constexpr int kFirstField = 1;

constexpr int kSelectDoPage = 2;
constexpr int kConditionPage = 6;

// The pages with a block: the number of their buttons, and what stands on them.
struct BlockPage {
  int number;
  const char* keyword;
  const char* box;
  const char* add;

  int Page() const { return number + kSelectDoPage; }
  std::string Condition() const { return "cmdCondition(" + std::to_string(number) + ")"; }
  std::string SubQuery() const { return "cmdSubQuery(" + std::to_string(number) + ")"; }
  std::string Function() const { return "cmdFunction(" + std::to_string(number) + ")"; }
};
// GoogleTest tells the parameter of a test by it.
void PrintTo(const BlockPage& page, std::ostream* stream) {
  *stream << page.keyword;
}
constexpr BlockPage kBlockPages[] = {
    {0, "selectdo", "txtSelectDo", "cmdAddSelectDoQuer"},
    {1, "selecteos", "txtSelectEOS", "cmdAddSEOStoquery"},
    {2, "selectempty", "txtselectempty", "cmdSelectmpty"},
    {3, "selecterror", "txtSelectError", "cmdAddtoSERROR"},
};

class NestedTest : public ComposerTest {
 protected:
  std::string Title() { return Std(Dialog<NestedComposer>().windowTitle()); }

  /// Presses a function in the list of the picker.
  void PickFunction(const char* name) {
    auto& list = *Dialog<FunctionPicker>().findChild<QListWidget*>();
    const auto found = list.findItems(QString::fromUtf8(name), Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1) << name;
    PressOn(*list.viewport(), list.visualItemRect(found[0]).center());
  }

  /// An If around a sub query, inside the SelectDo page of a select statement.
  void ComposeRule() {
    AddSelect(kCustomer, kFirstField);
    Tab(kSelectDoPage);
    ClickWith("cmdCondition(0)", {[this] {
                EXPECT_EQ(Title(), "Condition for SelectDo");
                Click("optIfThen");
                Type("txtCond", ":var.n > 1");
                Focus("txtStmt1");
                ClickWith("cmdSubQuery(4)", {[this] {
                            EXPECT_EQ(Title(), "Sub Query for Condition");
                            AddSelect(kOrders, kFirstField);
                            Click("cmdDone");
                          }});
                Click("cmdAdd");
                Click("cmdBuild");
                Click("cmdDone");
              }});
    Click("cmdAddSelectDoQuer");
  }

  /// For around While around Repeat, and the text of them.
  void ComposeLoops() {
    Click("optFor");
    Type("txtVariable", ":var.i");
    Type("txtinitval", "1");
    Type("txtFinVal", "3");
    Type("txtForStmt", "a = 1\r\nb = 2");
    Click("cmdAdd");
    Click("optwhile");
    Type("txtWhlCnd", ":var.w < 9");
    Type("txtWhlStm", "c = 3");
    Click("cmdAdd");
    Click("optRepeat");
    Type("txtRepCnd", ":var.r = 1");
    Type("txtRepStm", "d = 4");
    Click("cmdAdd");
    Click("cmdBuild");
  }
  static constexpr const char* kLoops =
      "for :var.i = 1 to 3\r\n"
      "\ta = 1\r\n"
      "\tb = 2\r\n"
      "\twhile :var.w < 9\r\n"
      "\t\tc = 3\r\n"
      "\t\trepeat \r\n"
      "\t\t\td = 4\r\n"
      "\t\tUntil  ( :var.r = 1 )\r\n"
      "\tendwhile\r\n"
      "endfor";
};

constexpr const char* kRule =
    "select CUSTOMER.C_ID\r\n"
    "from  CUSTOMER\r\n"
    "selectdo\r\n"
    "\tif :var.n > 1 then \r\n"
    "\t\tselect ORDERS__.O_ID\r\n"
    "\t\tfrom  ORDERS__\r\n"
    "\t\tendselect\r\n"
    "\tendif\r\n"
    "endselect";

// --- A rule from its first click to the next start of the program

TEST_F(NestedTest, ARuleIsComposedThroughTwoComposersStoredAndComposedAgain) {
  OpenRules();
  ComposeRule();
  EXPECT_EQ(Text("txtSelectDo"),
            "if :var.n > 1 then \r\n"
            "\tselect ORDERS__.O_ID\r\n"
            "\tfrom  ORDERS__\r\n"
            "\tendselect\r\n"
            "endif");
  EXPECT_EQ(Result(), kRule);
  StoreAs("Orders");
  EXPECT_EQ(Heading(), "Orders");
  EXPECT_EQ(Listed(), (Texts{"Orders*"}));

  OpenAgain();
  EXPECT_EQ(Listed(), (Texts{"Orders*"}));
  EXPECT_EQ(Note(), "");
  EXPECT_EQ(Result(), "") << "the parts stand in the pages, not in the Result";
  Click("cmdAddSelect");
  EXPECT_EQ(Result(), kRule);
  Tab(kSelectDoPage);
  Click("cmdAddSelectDoQuer");
  EXPECT_EQ(Result(), kRule) << "the same statement once more";
  Click("cmdDone");
  EXPECT_EQ(Stored(), (Texts{std::string("Orders: ") + kRule}));
  const composer::RulesFile file = composer::RulesFile::Open(RulesPath());
  EXPECT_EQ(Narrow(file.rules()[0].fields), "long*Q*V*R*N*NCUSTOMER.C_ID*Q*V*R*N*numeric(5)");
}

TEST_F(NestedTest, TheRecordOfTheSessionComesToTheSameResult) {
  OpenRules();
  ComposeRule();
  StoreAs("Orders");
  Menu("File", "Save Session Record...", {File(In("record.jsonl"), "Save")});

  automation::Session session;
  int conditionAnswers = 0;
  for (const QByteArray& each : QByteArray::fromStdString(Bytes(In("record.jsonl"))).split('\n')) {
    if (each.isEmpty()) continue;
    const Json request = Json::parse(each.toStdString());
    if (request.value("answer", "") == "eventCondition" && !request["with"].empty()) {
      ++conditionAnswers;
      EXPECT_EQ(request["with"][0]["set"], "prpSelectDoPart");
      EXPECT_EQ(request["with"].size(), 1U);
    }
    EXPECT_TRUE(Json::parse(session.Reply(each.toStdString()))["ok"]) << each.toStdString();
  }
  EXPECT_EQ(conditionAnswers, 1);
  EXPECT_EQ(Narrow(session.Control().Form().TxtOutput.Text()), kRule);

  QProcess host;
  host.start(Qs(HostProgram()), {QStringLiteral("--result"), In("record.jsonl")});
  ASSERT_TRUE(host.waitForFinished());
  EXPECT_EQ(host.exitCode(), 0);
  EXPECT_EQ(host.readAllStandardError().toStdString(), "");
  EXPECT_EQ(host.readAllStandardOutput().toStdString(), kRule);
}

TEST_F(NestedTest, AnotherProgramDrawsTheRecord) {
  OpenRules();
  ComposeRule();
  Menu("File", "Save Session Record...", {File(In("record.jsonl"), "Save")});
  QProcess program;
  program.start(Qs(ComposerProgram()),
                {QStringLiteral("--picture"), In("record.png"), In("record.jsonl")});
  ASSERT_TRUE(program.waitForFinished());
  EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
  const QImage picture(In("record.png"));
  EXPECT_EQ(picture.size(), QSize(1160, 740));

  program.start(Qs(ComposerProgram()),
                {QStringLiteral("--picture"), In("other.png"), In("none.jsonl")});
  ASSERT_TRUE(program.waitForFinished());
  EXPECT_EQ(program.exitCode(), 1);
  const std::string complaint = program.readAllStandardError().toStdString();
  EXPECT_NE(
      complaint.find("zolt20-composer: " + In("none.jsonl").toStdString() + " can't be read\n"),
      std::string::npos)
      << complaint;
  EXPECT_FALSE(QFile::exists(In("other.png")));
}

// --- What a further composer hands over

// After Add Condition the person stands in no box, so the text goes behind the Result, and the
// control keeps the whole of the Result as a new entry behind the head that it holds already.
TEST_F(NestedTest, AfterAddConditionASubQueryGoesIntoTheResult) {
  Tab(kSelectDoPage);
  ClickWith("cmdCondition(0)", {[this] {
              Click("optIfThen");
              Type("txtCond", ":var.n > 1");
              Click("cmdAdd");
              ClickWith("cmdSubQuery(4)", {[this] {
                          AddSelect(kOrders, kFirstField);
                          Click("cmdDone");
                        }});
              EXPECT_EQ(Result(),
                        "if :var.n > 1 then \r\n"
                        "\tselect ORDERS__.O_ID\r\n"
                        "\tfrom  ORDERS__\r\n"
                        "\tendselect");
              Click("cmdBuild");
              Click("cmdDone");
            }});
  EXPECT_EQ(Text("txtSelectDo"),
            "if :var.n > 1 then if :var.n > 1 then \r\n"
            "\tselect ORDERS__.O_ID\r\n"
            "\tfrom  ORDERS__\r\n"
            "\tendselect\r\n"
            "endif");
}

class EachBlockTest : public NestedTest, public ::testing::WithParamInterface<BlockPage> {
 protected:
  const BlockPage& page() const { return GetParam(); }
  /// The text with the keyword of the page where "@" stands.
  std::string WithKeyword(std::string text) const {
    for (std::size_t at; (at = text.find('@')) != std::string::npos;)
      text.replace(at, 1, page().keyword);
    return text;
  }
  /// Adds a select statement whose block of this page holds what the further composer hands over.
  void AddSelectAround(int table, const std::string& request, const Steps& inside) {
    AddSelect(table, kFirstField);
    Tab(page().Page());
    ClickWith(request.c_str(), {inside});
    Click(page().add);
  }
};

TEST_P(EachBlockTest, FourLevelsDeepEachLineStandsAtItsDepth) {
  OpenRules();
  const Steps items = [this] {
    AddSelect(kItem, kFirstField);
    Click("cmdDone");
  };
  const Steps lines = [&] {
    AddSelectAround(kOrderLine, page().SubQuery(), items);
    Click("cmdDone");
  };
  const Steps loop = [&] {
    Click("optwhile");
    Type("txtWhlCnd", ":var.a < 2");
    Focus("txtWhlStm");
    ClickWith("cmdSubQuery(4)", {lines});
    Click("cmdAdd");
    Click("cmdBuild");
    Click("cmdDone");
  };
  const Steps orders = [&] {
    AddSelectAround(kOrders, page().Condition(), loop);
    Click("cmdDone");
  };
  AddSelectAround(kCustomer, page().SubQuery(), orders);

  const std::string expected = WithKeyword(
      "select CUSTOMER.C_ID\r\n"
      "from  CUSTOMER\r\n"
      "@\r\n"
      "\tselect ORDERS__.O_ID\r\n"
      "\tfrom  ORDERS__\r\n"
      "\t@\r\n"
      "\t\twhile :var.a < 2\r\n"
      "\t\t\tselect ORDRLINE.OL_O_ID\r\n"
      "\t\t\tfrom  ORDRLINE\r\n"
      "\t\t\t@\r\n"
      "\t\t\t\tselect ITEM____.I_ID\r\n"
      "\t\t\t\tfrom  ITEM____\r\n"
      "\t\t\t\tendselect\r\n"
      "\t\t\tendselect\r\n"
      "\t\tendwhile\r\n"
      "\tendselect\r\n"
      "endselect");
  EXPECT_EQ(Result(), expected);
  StoreAs("Deep");

  OpenAgain();
  Click("cmdAddSelect");
  EXPECT_EQ(Result(), expected);
}

TEST_P(EachBlockTest, LoopsKeepTheirDepthsInAnEmptyBoxAndBehindAText) {
  const Steps loops = [this] {
    EXPECT_EQ(Dialog<NestedComposer>().map().form().tabVrn.Tab().value(), kConditionPage);
    ComposeLoops();
    EXPECT_EQ(Result(), kLoops);
    Click("cmdDone");
  };
  AddSelectAround(kCustomer, page().Condition(), loops);
  EXPECT_EQ(Text(page().box), kLoops);
  EXPECT_EQ(Result(), WithKeyword("select CUSTOMER.C_ID\r\n"
                                  "from  CUSTOMER\r\n"
                                  "@\r\n"
                                  "\tfor :var.i = 1 to 3\r\n"
                                  "\t\ta = 1\r\n"
                                  "\t\tb = 2\r\n"
                                  "\t\twhile :var.w < 9\r\n"
                                  "\t\t\tc = 3\r\n"
                                  "\t\t\trepeat \r\n"
                                  "\t\t\t\td = 4\r\n"
                                  "\t\t\tUntil  ( :var.r = 1 )\r\n"
                                  "\t\tendwhile\r\n"
                                  "\tendfor\r\n"
                                  "endselect"));

  Type(page().box, "x = 0");
  ClickWith(page().Condition().c_str(), {loops});
  EXPECT_EQ(Text(page().box),
            "x = 0\r\n"
            "\tfor :var.i = 1 to 3\r\n"
            "\t\ta = 1\r\n"
            "\t\tb = 2\r\n"
            "\t\twhile :var.w < 9\r\n"
            "\t\t\tc = 3\r\n"
            "\t\t\trepeat \r\n"
            "\t\t\t\td = 4\r\n"
            "\t\t\tUntil  ( :var.r = 1 )\r\n"
            "\t\tendwhile\r\n"
            "\tendfor");
}

TEST_P(EachBlockTest, AFunctionLandsInTheBox) {
  Tab(page().Page());
  ClickWith(page().Function().c_str(), {[this] {
              PickFunction("substr");
              TypeLine(LineOf("text"), "NAME");
              TypeLine(LineOf("start"), "1");
              TypeLine(LineOf("length"), ":var.n + 2");
              Choose("OK");
            }});
  EXPECT_EQ(Text(page().box), "substr(NAME, 1, :var.n + 2)");
}

INSTANTIATE_TEST_SUITE_P(Page, EachBlockTest, ::testing::ValuesIn(kBlockPages),
                         [](const auto& page) { return std::string(page.param.keyword); });

// There is no button Condition on that page, but the further composer has the page itself.
TEST_F(NestedTest, AConditionForTheConditionPageIsComposedOnThatPageOfTheSubQuery) {
  Tab(kConditionPage);
  Click("optwhile");
  Type("txtWhlCnd", ":var.a < 2");
  Focus("txtWhlStm");
  ClickWith("cmdSubQuery(4)", {[this] {
              Tab(kConditionPage);
              ComposeLoops();
              Click("cmdDone");
            }});
  EXPECT_EQ(Text("txtWhlStm"), kLoops);
  Click("cmdAdd");
  Click("cmdBuild");
  EXPECT_EQ(Result(),
            "while :var.a < 2\r\n"
            "\tfor :var.i = 1 to 3\r\n"
            "\t\ta = 1\r\n"
            "\t\tb = 2\r\n"
            "\t\twhile :var.w < 9\r\n"
            "\t\t\tc = 3\r\n"
            "\t\t\trepeat \r\n"
            "\t\t\t\td = 4\r\n"
            "\t\t\tUntil  ( :var.r = 1 )\r\n"
            "\t\tendwhile\r\n"
            "\tendfor\r\n"
            "endwhile");
}

TEST_F(NestedTest, ASubQueryLandsInTheRowOfAnOnCase) {
  Tab(kConditionPage);
  Click("optCase");
  Type("txtcaseexp", ":var.k");
  Type("TxtExpr(0)", "1");
  Focus("txtStmt(0)");
  ClickWith("cmdSubQuery(4)", {[this] {
              AddSelect(kOrders, kFirstField);
              Click("cmdDone");
            }});
  Click("cmdAdd");
  Click("cmdBuild");
  EXPECT_EQ(Result(),
            "on case :var.k\r\n"
            "\tcase 1 :\r\n"
            "\t\tselect ORDERS__.O_ID\r\n"
            "\t\tfrom  ORDERS__\r\n"
            "\t\tendselect\r\n"
            "\t\tbreak\r\n"
            "endcase");
}

TEST_F(NestedTest, TextsWithQuotesMarkersAndOtherCharactersComeExactly) {
  Tab(kSelectDoPage);
  for (const char* text : {"a = \"b\"\r\n\tc = '`'\r\n\t\t\td", "*zlt*x = 1\r\ny = 2",
                           "a = \"*zlt*\"\r\n\tb", "n = \"\xC3\xA4\xF0\x9F\x98\x80\""}) {
    Type("txtSelectDo", "");
    ClickWith("cmdSubQuery(0)", {[this, text] {
                Type("TxtOutput", text);
                Click("cmdDone");
              }});
    EXPECT_EQ(Text("txtSelectDo"), text);
  }
}

// --- What a further composer keeps

TEST_F(NestedTest, CancelHandsNothingOverAndAsksForWhatWasComposed) {
  const std::string question = "Sub Query for SelectDo: Leave without what was composed?";
  Tab(kSelectDoPage);
  Type("txtSelectDo", "x = 1");
  ClickWith("cmdSubQuery(0)", {[this] { Click("cmdCancel"); }});
  ClickWith("cmdSubQuery(0)", {[&] {
              AddSelect(kOrders, kFirstField);
              ClickWith("cmdCancel", {Answer(question, "Cancel")});
              EXPECT_NE(Result(), "");
              With([&] { Press(Qt::Key_Escape); }, {Answer(question, "Cancel")});
              With([&] { Dialog().close(); }, {Answer(question, "Cancel")});
              EXPECT_TRUE(Dialog().isVisible());
              ClickWith("cmdCancel", {Answer(question, "Discard")});
            }});
  EXPECT_EQ(Text("txtSelectDo"), "x = 1");
}

TEST_F(NestedTest, DoneWithAnEmptyResultTellsWhatIsMissing) {
  const std::string told =
      "Sub Query for SelectDo: Nothing was added to the Result, so there is nothing to hand over.";
  Tab(kSelectDoPage);
  ClickWith("cmdSubQuery(0)", {[this] { Click("cmdDone"); }});
  ClickWith("cmdSubQuery(0)", {[&] {
              Click("lsttables", kOrders);
              Click("lstFields", 1);
              Click("cmdMoveOne");
              ClickWith("cmdDone", {Answer(told, "Go On")});
              EXPECT_TRUE(Dialog().isVisible());
              ClickWith("cmdDone", {Answer(told, "Leave")});
            }});
  EXPECT_EQ(Text("txtSelectDo"), "");
}

TEST_F(NestedTest, WhatIsMissingIsAddedAndHandedOverWhenAsked) {
  const std::string told =
      "Sub Query for SelectDo: Nothing was added to the Result, so there is nothing to hand over.";
  Tab(kSelectDoPage);
  ClickWith("cmdSubQuery(0)", {[&] {
              Click("lsttables", kOrders);
              Click("lstFields", kFirstField);
              Click("cmdMoveOne");
              ClickWith("cmdDone", {Answer(told, "Add To Result")});
              QTest::qWait(10);
            }});
  EXPECT_EQ(Text("txtSelectDo"), "select ORDERS__.O_ID\r\nfrom  ORDERS__\r\nendselect");
}

TEST_F(NestedTest, ANestedWindowTellsWhereItIsAndStandsShifted) {
  OpenRules({{u"Orders", u"select CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nendselect", u""}});
  const auto path = [this] {
    return Std(Dialog().findChild<QLabel*>(QStringLiteral("path"))->text());
  };
  Tab(kSelectDoPage);
  ClickWith("cmdCondition(0)", {[&] {
              EXPECT_EQ(path(), "Orders > SelectDo > Condition");
              const QPoint first = Dialog().pos();
              EXPECT_NE(first, window().pos());
              EXPECT_TRUE(Dialog().screen()->availableGeometry().contains(Dialog().geometry()));
              Click("optIfThen");
              Focus("txtStmt1");
              ClickWith("cmdSubQuery(4)", {[&, first] {
                          EXPECT_EQ(path(), "Orders > SelectDo > Condition > Sub Query");
                          EXPECT_EQ(Dialog().pos(), first + QPoint(32, 32));
                          Press(Qt::Key_PageDown, Qt::ControlModifier);
                          EXPECT_EQ(Dialog<NestedComposer>().map().form().tabVrn.Tab().value(), 1);
                          ClickWith("cmdCancel", {});
                        }});
              Click("cmdCancel");
            }});
}

TEST_F(NestedTest, ATextThatCannotBeHandedOverIsToldAndStaysInItsComposer) {
  const std::string told =
      "Text: The text can't be handed over: it holds \"~\", which has a meaning of its own on the "
      "way.";
  Tab(kSelectDoPage);
  ClickWith("cmdSubQuery(0)", {[&] {
              Type("TxtOutput", "a ~ b");
              ClickWith("cmdDone", {Answer(told)});
              EXPECT_EQ(Result(), "a ~ b");
              Type("TxtOutput", "a - b");
              Click("cmdDone");
            }});
  EXPECT_EQ(Text("txtSelectDo"), "a - b");
}

TEST_F(NestedTest, WhatIsUndoneAfterAFurtherComposerComesBack) {
  Tab(kSelectDoPage);
  ClickWith("cmdSubQuery(0)", {[this] {
              AddSelect(kOrders, kFirstField);
              Click("cmdDone");
            }});
  const std::string text = Text("txtSelectDo");
  EXPECT_EQ(text, "select ORDERS__.O_ID\r\nfrom  ORDERS__\r\nendselect");
  window().map().undo();
  EXPECT_EQ(Text("txtSelectDo"), "");
  window().map().redo();
  EXPECT_EQ(Text("txtSelectDo"), text);
}

// --- Functions

TEST_F(NestedTest, AFunctionForTheConditionPageLandsWhereThePersonStands) {
  Tab(kConditionPage);
  Click("optwhile");
  Type("txtWhlStm", "a = 1");
  ClickWith("cmdFunction(4)", {[this] {
              PickFunction("today");
              Choose("OK");
            }});
  EXPECT_EQ(Text("txtWhlStm"), "a = 1\r\n\ttoday()");
}

TEST_F(NestedTest, AFunctionThatIsNotPickedChangesNothing) {
  Tab(kSelectDoPage);
  const QByteArray before = window().map().Record();
  ClickWith("cmdFunction(0)", {[this] {
              PickFunction("substr");
              TypeLine(LineOf("text"), "NAME");
              Choose("Cancel");
            }});
  EXPECT_EQ(Text("txtSelectDo"), "");
  EXPECT_EQ(window().map().Record().mid(before.size()).toStdString(),
            "{\"user\":\"focus\",\"control\":\"cmdFunction(0)\"}\n"
            "{\"user\":\"click\",\"control\":\"cmdFunction(0)\"}\n");
}

TEST_F(NestedTest, OfNoFunctionsNoneCanBePicked) {
  WriteBytes(In("plain.json"), R"({"name": "Plain", "tables": [], "functions": []})");
  With([this] { ASSERT_TRUE(window().OpenCatalogue(In("plain.json"))); }, {});
  Tab(kSelectDoPage);
  ClickWith("cmdFunction(0)", {[this] {
              auto* buttons = Dialog<FunctionPicker>().findChild<QDialogButtonBox*>();
              EXPECT_FALSE(buttons->button(QDialogButtonBox::Ok)->isEnabled());
              EXPECT_EQ(Std(Dialog<FunctionPicker>().Call()), "");
              Choose("Cancel");
            }});
  EXPECT_EQ(Text("txtSelectDo"), "");
}

TEST_F(NestedTest, AnArgumentThatCannotBeHandedOverIsToldAndThePickerComesBack) {
  Tab(kSelectDoPage);
  ClickWith("cmdFunction(0)",
            {[this] {
               PickFunction("upper");
               TypeLine(LineOf("text"), "a~b");
               Choose("OK");
             },
             Answer("Text: The text can't be handed over: it holds \"~\", which has a meaning of "
                    "its own on the way."),
             [this] {
               EXPECT_EQ(Std(LineOf("text").text()), "a~b");
               TypeLine(LineOf("text"), "a-b");
               Choose("OK");
             }});
  EXPECT_EQ(Text("txtSelectDo"), "upper(a-b)");
}

TEST_F(NestedTest, AFilterLeavesNoFunctionPickedThatIsOutOfSight) {
  Tab(kSelectDoPage);
  ClickWith("cmdFunction(0)", {[this] {
              EXPECT_EQ(Std(Dialog<FunctionPicker>().Call()), "today()");
              TypeLine(LineOf("Filter functions"), "ROU");
              EXPECT_EQ(Std(Dialog<FunctionPicker>().Call()), "round(, )");
              TypeLine(LineOf("Filter functions"), "none");
              EXPECT_EQ(Std(Dialog<FunctionPicker>().Call()), "");
              auto* buttons = Dialog().findChild<QDialogButtonBox*>();
              EXPECT_FALSE(buttons->button(QDialogButtonBox::Ok)->isEnabled());
              TypeLine(LineOf("Filter functions"), "up");
              TypeLine(LineOf("text"), "NAME");
              Choose("OK");
            }});
  EXPECT_EQ(Text("txtSelectDo"), "upper(NAME)");
}

}  // namespace
}  // namespace zolt20::tests
