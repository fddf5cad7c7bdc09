// Finding texts, names and problems in all rules of a file.
#include <QComboBox>
#include <QLabel>
#include <QTreeView>

#include "hosts/composer/find_in_rules.h"
#include "hosts/composer/statement_tree.h"
#include "tests/composer/composer_test.h"

namespace zolt20::tests {
namespace {

class FindInRulesTest : public ComposerTest {
 protected:
  void OpenThree() {
    OpenRules({{u"A", u"x = 1\r\ny = 100%\r\nwhile a\r\n\tX = 3\r\nendwhile", u""},
               {u"B", u"select CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nendselect", u""},
               {u"C %1", u"z = \"CUSTOMER\"\r\nendif\r\nxx = 5", u""}});
    window().resize(1200, 720);
  }
  composer::FindWindow& Finder() { return *window().findChild<composer::FindWindow*>(); }
  QListWidget& Found() { return *Finder().findChild<QListWidget*>(QStringLiteral("found")); }
  void Open() {
    QTest::keyClick(&window(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    const QLineEdit& line = *Finder().findChild<QLineEdit*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return line.hasFocus(); }, 2000));
  }
  void Search(const char* words) {
    QLineEdit& line = *Finder().findChild<QLineEdit*>();
    QTest::keyClicks(&line, QString::fromUtf8(words));
    Rest();
  }
  void SearchIn(int entry) { Finder().findChild<QComboBox*>()->setCurrentIndex(entry); }
  Texts Rows() {
    Texts rows;
    for (int row = 0; row < Found().count(); ++row)
      rows.push_back(Std(Found().item(row)->text()));
    return rows;
  }
  std::string ToldAbove() {
    return Std(Finder().findChild<QLabel*>(QStringLiteral("foundTold"))->text());
  }
  void ClickRow(int row) {
    PressOn(*Found().viewport(), Found().visualItemRect(Found().item(row)).center());
  }
  std::string MarkedIn(QPlainTextEdit& box) { return Std(box.textCursor().selectedText()); }
  std::string MarkedInResult() { return MarkedIn(Be<QPlainTextEdit>("TxtOutput")); }
};

TEST_F(FindInRulesTest, TextsAreFoundInAllRulesLetterCaseAside) {
  OpenThree();
  Open();
  EXPECT_EQ(Rows(), Texts{});
  Search("x");
  EXPECT_EQ(Rows(), (Texts{"A, line 1: x = 1", "A, line 4: X = 3", "C %1, line 3: xx = 5",
                           "C %1, line 3: xx = 5"}));
  EXPECT_EQ(ToldAbove(), "Places: 4, in rules: 2");
}

TEST_F(FindInRulesTest, APlaceOpensItsRuleAndIsMarkedThere) {
  OpenThree();
  Open();
  Search("x");
  ClickRow(3);
  widget_ = &window().map();
  EXPECT_EQ(Heading(), "C %1");
  EXPECT_EQ(MarkedInResult(), "x");
  EXPECT_EQ(Be<QPlainTextEdit>("TxtOutput").textCursor().selectionStart(), 22);
  auto& tree = *window().findChild<composer::StatementTree*>();
  EXPECT_EQ(Std(tree.View().currentIndex().data().toString()), "xx = 5");
  QTest::keyClick(&Found(), Qt::Key_Up);
  QTest::keyClick(&Found(), Qt::Key_Up);
  QTest::keyClick(&Found(), Qt::Key_Return);
  widget_ = &window().map();
  EXPECT_EQ(Heading(), "A");
  EXPECT_EQ(MarkedInResult(), "X");
}

TEST_F(FindInRulesTest, EnterInTheLineLeadsToTheFirstPlace) {
  OpenThree();
  Open();
  Search("from");
  QTest::keyClick(Finder().findChild<QLineEdit*>(), Qt::Key_Return);
  EXPECT_EQ(Heading(), "B");
  auto& tree = *window().findChild<composer::StatementTree*>();
  EXPECT_EQ(Std(tree.View().currentIndex().data().toString()), "from CUSTOMER");
  EXPECT_TRUE(Finder().isVisible());
}

TEST_F(FindInRulesTest, NamesAreFoundWhereTheyAreUsed) {
  OpenThree();
  Open();
  SearchIn(1);
  Search("customer");
  EXPECT_EQ(Rows(), (Texts{"B, line 1: select CUSTOMER.C_ID", "B, line 2: from CUSTOMER"}))
      << "a text in quotes is no table";
}

TEST_F(FindInRulesTest, ProblemsOfAllRulesAreFoundWithoutWords) {
  OpenThree();
  Open();
  SearchIn(2);
  EXPECT_EQ(Rows(), (Texts{"C %1, line 2: Nothing is open here that 'endif' could close."}));
  Search("bracket");
  EXPECT_EQ(Rows(), Texts{});
}

TEST_F(FindInRulesTest, OfTheRuleThatIsComposedItsResultIsLookedThrough) {
  OpenThree();
  Type("TxtOutput", "fresh = 1");
  Open();
  Search("fresh");
  EXPECT_EQ(Rows(), (Texts{"A, line 1: fresh = 1"}));
  ClickRow(0);
  EXPECT_EQ(MarkedInResult(), "fresh");
  EXPECT_EQ(Result(), "fresh = 1");
}

TEST_F(FindInRulesTest, ARuleIsNotLeftForAPlaceWithoutAQuestion) {
  OpenThree();
  Type("TxtOutput", "fresh = 1");
  Open();
  Search("from");
  With([&] { ClickRow(0); }, {[this] { Choose("Cancel"); }});
  EXPECT_EQ(Heading(), "A");
  EXPECT_EQ(Result(), "fresh = 1");
}

TEST_F(FindInRulesTest, NoMoreIsFoundThanCanBeRead) {
  const std::vector<composer::RuleText> rules{{QStringLiteral("A"), QString(3000, u'x')},
                                              {QStringLiteral("B"), QStringLiteral("x")}};
  const auto found =
      composer::FindInRules(rules, QStringLiteral("x"), composer::Searched::kText, nullptr);
  EXPECT_EQ(found.size(), composer::kMostFound);
  EXPECT_EQ(found.back().first, composer::kMostFound - 1);
}

}  // namespace
}  // namespace zolt20::tests
