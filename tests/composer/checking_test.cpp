// zolt20-composer --check: what is wrong in the rules of a file, for scripts.
#include <QProcess>

#include "hosts/composer/checking.h"
#include "tests/composer/composer_test.h"

namespace zolt20::tests {
namespace {

using composer::Rule;

constexpr const char* kCustomers = "select CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nendselect";

class CheckingTest : public ::testing::Test {
 protected:
  QString RulesPath() const { return folder_.filePath(QStringLiteral("orders.rules")); }
  static QString Catalogue() { return Qs(Examples() + "/catalogue.json"); }
  void Write(const std::vector<Rule>& rules) {
    composer::RulesFile file = composer::RulesFile::Create(RulesPath());
    for (const Rule& rule : rules)
      file.Put(rule);
    file.Save();
  }
  /// Runs the program; what it wrote is in `output_` and `errors_`.
  int Run(const QStringList& arguments) {
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    program.setProcessEnvironment(environment);
    program.start(Qs(ComposerProgram()), QStringList{QStringLiteral("--check")} + arguments);
    EXPECT_TRUE(program.waitForFinished());
    output_ = program.readAllStandardOutput().toStdString();
    errors_ = program.readAllStandardError().toStdString();
    return program.exitCode();
  }

  QTemporaryDir folder_;
  std::string output_;
  std::string errors_;
};

TEST_F(CheckingTest, EachProblemIsALineWithRuleLineAndColumn) {
  Write({{u"Customers", Wide(kCustomers), u""},
         {u"Über alle", u"select CUSTOMER.C_LSAT\r\nfrom  CUSTOMER\r\nendselect", u""},
         {u"Sum", u"x = 1\r\nif x then\r\n\ty = 1", u""}});
  EXPECT_EQ(Run({RulesPath(), Catalogue()}), 1);
  EXPECT_EQ(output_,
            "Über alle:1:17: error: The table CUSTOMER has no field C_LSAT. Is C_LAST meant? "
            "[unknown-field]\n"
            "Sum:2:1: error: 'endif' is missing: this statement is not closed. [not-closed]\n");
  EXPECT_EQ(errors_, "");
}

TEST_F(CheckingTest, WithoutAnErrorItEndsWithNought) {
  Write({{u"Customers", Wide(kCustomers), u""}});
  EXPECT_EQ(Run({RulesPath(), Catalogue()}), 0);
  EXPECT_EQ(output_, "");
  folder_.remove();
  ASSERT_TRUE(QDir().mkpath(folder_.path()));
  Write({{u"A", u":x = \"a~b\"", u""}});
  EXPECT_EQ(Run({RulesPath(), Catalogue()}), 0);
  EXPECT_EQ(output_.substr(0, 17), "A:1:8: warning: T") << output_;
}

TEST_F(CheckingTest, WhatCantBeReadEndsWithTwo) {
  EXPECT_EQ(Run({RulesPath(), Catalogue()}), 2);
  EXPECT_NE(errors_, "");
  Write({});
  EXPECT_EQ(Run({RulesPath(), RulesPath() + QStringLiteral(".none")}), 2);
  EXPECT_EQ(Run({RulesPath()}), 2);
  EXPECT_EQ(output_, "");
}

TEST_F(CheckingTest, AFileThatAComposerHasOpenIsReadAndStaysAsItIs) {
  Write({{u"A\nB", u"if x then", u""}});
  const composer::RulesFile open = composer::RulesFile::Open(RulesPath());
  const std::string before = Bytes(RulesPath());
  const composer::RulesCheck check = composer::CheckRulesAt(RulesPath(), Catalogue());
  EXPECT_TRUE(check.hasErrors);
  EXPECT_EQ(check.lines.substr(0, 6), "A B:1:");
  EXPECT_EQ(Bytes(RulesPath()), before);
}

}  // namespace
}  // namespace zolt20::tests
