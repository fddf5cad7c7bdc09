// What is offered of a journal that can't come back as it was left: on another catalogue, of a rule
// that is another one by now, damaged or of another's hand.
#include <QClipboard>
#include <QDir>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <optional>

#include "hosts/composer/recovery.h"
#include "tests/composer/composer_test.h"

namespace zolt20::tests {
namespace {

using composer::JournalHead;
using composer::JournalLines;
using composer::JournalStep;
using composer::KeptSession;
using composer::RecoveryOffer;
using composer::Rule;

constexpr int kCustomer = 2;
constexpr int kFirstField = 1;
constexpr const char* kUnmakeable = R"({"user":"click","control":"nothing of the form"})";

Rule StoredRule() {
  return {u"Orders", u"select ORDERS__.O_ID\r\nfrom  ORDERS__\r\nendselect",
          u"long*Q*V*R*N*NORDERS__.O_ID*Q*V*R*N*"};
}

class RecoveryOffersTest : public ComposerTest {
 protected:
  QString JournalPath() const { return In("orders.rules.journal"); }
  /// The journal of a composer that was killed behind a statement added.
  KeptSession LeaveStatement(const std::vector<Rule>& rules = {}) {
    OpenRules(rules);
    if (rules.empty()) {
      AddSelect(kCustomer, kFirstField);
    } else {
      Click("cmdAddSelect");  // of the rule that is open
    }
    KillWindow();
    return *composer::ReadJournal(QByteArray::fromStdString(Bytes(JournalPath())));
  }
  /// Another journal in its place. What the composer has in memory comes before the steps.
  void Leave(const JournalHead& head, const std::vector<JournalStep>& steps,
             const std::optional<Rule>& stored = {}) {
    JournalLines lines;
    QByteArray bytes = lines.Line(1, 0, HeadLine(head));
    if (stored) bytes += lines.Line(1, 0, composer::StoredLine(*stored));
    for (const JournalStep& step : steps)
      bytes += lines.Line(1, step.depth, step.json);
    WriteBytes(JournalPath(), bytes.toStdString());
  }
  /// Another character in a line of the file, from 0.
  void DamageLine(int line) {
    std::string bytes = Bytes(JournalPath());
    std::size_t at = 0;
    for (; line > 0; --line)
      at = bytes.find('\n', at) + 1;
    bytes[at] = bytes[at] == 'a' ? 'b' : 'a';
    WriteBytes(JournalPath(), bytes);
  }

  /// The window after a new start, in which these dialogs come.
  void StartAgain(std::vector<Steps> dialogs) {
    window_ = std::make_unique<composer::MainWindow>();
    ASSERT_TRUE(window().OpenCatalogue(Qs(Examples() + "/catalogue.json")));
    ShowWindow(window());
    With([&] { EXPECT_TRUE(window().OpenRules(RulesPath())); }, std::move(dialogs));
  }
  void ExpectOffered(const char* text) {
    const std::string told = Std(Dialog<RecoveryOffer>().findChild<QLabel*>()->text());
    EXPECT_NE(told.find(text), std::string::npos) << told;
  }
  void ExpectText(const char* text) {
    EXPECT_NE(OfferedText().find(text), std::string::npos) << OfferedText();
  }
  std::string OfferedText() {
    return Std(Dialog<RecoveryOffer>().findChild<QPlainTextEdit*>()->toPlainText());
  }
  Texts Buttons() {
    Texts texts;
    for (const QPushButton* button : Dialog().findChildren<QPushButton*>())
      texts.push_back(Std(WithoutMnemonic(button->text())) + (button->isDefault() ? "*" : ""));
    std::sort(texts.begin(), texts.end());
    return texts;
  }
  bool HasJournal() {
    EXPECT_TRUE(window().journal().WaitUntilKept(std::chrono::seconds(10)));
    return QFile::exists(JournalPath());
  }
};

TEST_F(RecoveryOffersTest, OnAnotherCatalogueTheTextCanBeCopied) {
  const KeptSession session = LeaveStatement();
  JournalHead head = session.head;
  head.catalogue = QStringLiteral("other.json");
  head.tables += QStringLiteral(",OTHER___0");
  Leave(head, session.steps.all());
  StartAgain({[this] {
    ExpectOffered("It was composed on another catalogue, other.json.");
    EXPECT_EQ(Buttons(), (Texts{"Copy Text", "Discard", "Later*"}));
    ExpectText("New rule:\nselect CUSTOMER.C_ID");
    Choose("Copy Text");
    EXPECT_EQ(Std(QApplication::clipboard()->text()), OfferedText());
    Choose("Later");
  }});
  EXPECT_EQ(Result(), "");
  EXPECT_TRUE(HasJournal());
}

TEST_F(RecoveryOffersTest, WhatCannotBeMadeAgainIsOfferedAsTheTextUpToThere) {
  const KeptSession session = LeaveStatement();
  std::vector<JournalStep> steps = session.steps.all();
  steps.push_back({0, kUnmakeable});
  Leave(session.head, steps);
  StartAgain({[this] {
    ExpectOffered("Not all of it can be made again.");
    EXPECT_EQ(Buttons(), (Texts{"Copy Text", "Discard", "Later*"}));
    ExpectText("select CUSTOMER.C_ID");
    Choose("Discard");
  }});
  EXPECT_FALSE(HasJournal());
}

TEST_F(RecoveryOffersTest, AFurtherComposerThatIsNoneOfOursIsNoCrash) {
  const KeptSession session = LeaveStatement();
  std::vector<JournalStep> steps = session.steps.all();
  steps.push_back({0, R"-({"ask":{"user":"click","control":"cmdCondition(0)"}})-"});
  for (const char* first : {kUnmakeable, R"({"window":1,"opening":[]})", R"({"window":"x"})",
                            R"({"window":"x","opening":[{"set":"nothing","value":1}]})", "[1"}) {
    std::vector<JournalStep> all = steps;
    all.push_back({1, first});
    Leave(session.head, all);
    StartAgain({[this] {
      ExpectOffered("Not all of it can be made again.");
      ExpectText("select CUSTOMER.C_ID");
      Choose("Later");
    }});
    window_.reset();
  }
}

TEST_F(RecoveryOffersTest, OfARuleThatIsAnotherOneByNowANewRuleComesBack) {
  LeaveStatement({StoredRule()});
  auto file = composer::RulesFile::Open(RulesPath());
  file.Put({u"Orders", u"x = 1", u""});
  file.Save();
  { const auto closed = std::move(file); }
  StartAgain({[this] {
    ExpectOffered("The rule \"Orders\" is another one now. What comes back is a new rule.");
    EXPECT_EQ(Buttons(), (Texts{"Discard", "Go On*", "Later"}));
    Choose("Go On");
  }});
  EXPECT_EQ(Heading(), "New rule");
  EXPECT_NE(Result().find("select ORDERS__.O_ID"), std::string::npos) << Result();
  StoreAs("Again");
  EXPECT_EQ(Stored().front(), "Orders: x = 1");
}

TEST_F(RecoveryOffersTest, WhatWasStoredInMemoryAloneComesBackInTheFile) {
  const KeptSession session = LeaveStatement({StoredRule()});
  const Rule more{u"More", u"select CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nendselect", u""};
  Leave(session.head, session.steps.all(), more);
  StartAgain({[this] {
    ExpectOffered("Stored, and not in the file yet: More");
    ExpectText("More:\nselect CUSTOMER.C_ID\nfrom  CUSTOMER\nendselect");
    Choose("Go On");
  }});
  EXPECT_EQ(Heading(), "More");
  EXPECT_EQ(Listed(), (Texts{"Orders", "More*"}));
  Click("cmdDone");
  EXPECT_FALSE(HasJournal());
  EXPECT_EQ(Stored().size(), 2U);
}

TEST_F(RecoveryOffersTest, WhatIsInTheFileByNowIsNotOffered) {
  const KeptSession session = LeaveStatement({StoredRule()});
  Leave(session.head, {{0, R"({"user":"tab","page":1})"}}, StoredRule());
  StartAgain({});
  EXPECT_FALSE(HasJournal());
}

TEST_F(RecoveryOffersTest, AnEmptyResultIsTold) {
  OpenRules();
  Click("lsttables", kCustomer);
  KillWindow();
  StartAgain({[this] {
    EXPECT_EQ(OfferedText(), "The Result is empty: what was composed stands in the pages.");
    Choose("Go On");
  }});
}

TEST_F(RecoveryOffersTest, AJournalWithoutItsBeginningIsToldAndStays) {
  LeaveStatement();
  DamageLine(0);
  const std::string bytes = Bytes(JournalPath());
  const std::string told =
      "Go On: " + Std(JournalPath()) + " is damaged, or no journal; it stays where it is";
  StartAgain({Answer(told)});
  EXPECT_EQ(Bytes(JournalPath()), bytes);
}

TEST_F(RecoveryOffersTest, BehindDamageNothingComesBackAndACopyStays) {
  const KeptSession session = LeaveStatement();
  ASSERT_GT(session.steps.all().size(), 2U);
  DamageLine(2);
  const std::string bytes = Bytes(JournalPath());
  const std::string unread = std::to_string(session.steps.all().size() - 1);
  const std::string told =
      "Behind that step the journal is damaged. Lines that can't be read: " + unread + ".";
  for (const char* copy : {"orders.rules.journal.damaged", "orders.rules.journal.2.damaged"}) {
    StartAgain({[&] {
      ExpectOffered(told.c_str());
      Choose("Go On");
    }});
    Click("lsttables", kCustomer + 1);
    KillWindow();
    EXPECT_EQ(Bytes(In(copy)), bytes);
    const auto after = composer::ReadJournal(QByteArray::fromStdString(Bytes(JournalPath())));
    ASSERT_TRUE(after.has_value());
    EXPECT_EQ(after->unreadLines, 0);
    WriteBytes(JournalPath(), bytes);
  }
}

TEST_F(RecoveryOffersTest, TheStatusBarSaysThatNothingIsKeptAsLongAsThatIsSo) {
  OpenRules();
  const auto told = [this] {
    const auto* label = window().statusBar()->findChild<QLabel*>(QStringLiteral("journalTrouble"));
    return label == nullptr || !label->isVisible() ? std::string() : Std(label->text());
  };
  {
    const FullDisk full(100);
    Click("lsttables", kCustomer);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !told().empty(); }, 10000));
    EXPECT_EQ(told().find("A crash would lose what you compose now: "), 0U) << told();
  }
  EXPECT_TRUE(QTest::qWaitFor([&] { return told().empty(); }, 10000));
  EXPECT_TRUE(HasJournal());
}

}  // namespace
}  // namespace zolt20::tests
