// The composer's menus and keys, wherever the focus is: history, find, pages, views, help; and what
// leaves the window on paper and as folders.
#include <QAction>
#include <QDir>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProcess>
#include <QTabBar>
#include <QTableWidget>
#include <QTextBrowser>

#include "hosts/composer/settings.h"
#include "hosts/composer/text_folder.h"
#include "tests/composer/composer_test.h"

namespace zolt20::tests {
namespace {

using composer::Rule;

constexpr int kCustomer = 2;
constexpr const char* kCustomers = "select CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nendselect";
constexpr const char* kOrdersText = "select ORDERS__.O_ID\r\nfrom  ORDERS__\r\nendselect";

class WindowKeysTest : public ComposerTest {
 protected:
  void OpenTwo() { OpenRules({{u"A", Wide(kCustomers), u""}, {u"B", Wide(kOrdersText), u""}}); }
  void PressKeys(const QKeySequence& keys) {
    QTest::keySequence(window().windowHandle(), keys);
    QTest::qWait(1);
  }
  void FocusRules() {
    window().activateWindow();
    RuleList().setFocus();
  }
  template <typename Kind>
  Kind& Part(const char* name) {
    auto* part = window().findChild<Kind*>(QString::fromUtf8(name));
    if (part == nullptr) throw std::runtime_error(std::string("there is no ") + name);
    return *part;
  }
  std::string UndoText() { return Std(WithoutMnemonic(Part<QAction>("undoAction").text())); }
  std::string RedoText() { return Std(WithoutMnemonic(Part<QAction>("redoAction").text())); }
  int Page() { return static_cast<int>(form().tabVrn.Tab().value()); }
};

TEST_F(WindowKeysTest, TheHistoryIsAtHandWhileTheListOfRulesHasTheFocus) {
  OpenTwo();
  Click("cmdAddSelect");
  EXPECT_EQ(Result(), kCustomers);
  FocusRules();
  PressKeys(QKeySequence::Undo);
  EXPECT_EQ(Result(), "");
  PressKeys(Qt::CTRL | Qt::Key_Y);
  EXPECT_EQ(Result(), kCustomers);
}

TEST_F(WindowKeysTest, TheHistoryIsAtHandInTheControlToo) {
  OpenTwo();
  Click("cmdAddSelect");
  Focus("lsttables");
  const std::string before = Result();
  PressKeys(QKeySequence::Undo);
  PressKeys(QKeySequence::Undo);
  EXPECT_EQ(Result(), "");
  EXPECT_NE(before, "");
}

TEST_F(WindowKeysTest, UndoNamesWhatItTakesBack) {
  EXPECT_EQ(UndoText(), "Undo");
  Click("lsttables", kCustomer);
  Click("lstFields", 1);
  Click("cmdMoveOne");
  EXPECT_EQ(UndoText(), "Undo \"Move CUSTOMER.C_ID\"");
  Click("cmdAddSelect");
  EXPECT_EQ(UndoText(), "Undo \"Add To Result, Select List\"");
  window().map().undo();
  EXPECT_EQ(UndoText(), "Undo \"Move CUSTOMER.C_ID\"");
  EXPECT_EQ(RedoText(), "Redo \"Add To Result, Select List\"");
  window().map().redo();
  EXPECT_EQ(UndoText(), "Undo \"Add To Result, Select List\"");
  EXPECT_EQ(RedoText(), "Redo");
}

TEST_F(WindowKeysTest, WordsAreFoundInTheResultWhileTheListOfRulesHasTheFocus) {
  OpenTwo();
  Click("cmdAddSelect");
  FocusRules();
  PressKeys(QKeySequence::Find);
  auto& words = Part<QLineEdit>("find");
  ASSERT_EQ(QApplication::focusWidget(), &words);
  QTest::keyClicks(&words, QStringLiteral("customer"));
  const auto& result = *window().map().findChild<QPlainTextEdit*>(QStringLiteral("TxtOutput"));
  EXPECT_EQ(result.textCursor().selectionStart(), 7);
  QTest::keyClick(&words, Qt::Key_Return);
  EXPECT_EQ(result.textCursor().blockNumber(), 1);
  QTest::keyClick(&words, Qt::Key_Return);
  EXPECT_EQ(result.textCursor().selectionStart(), 7) << "from the start again";
  QTest::keyClick(&words, Qt::Key_Escape);
  EXPECT_FALSE(words.isVisible());
}

TEST_F(WindowKeysTest, WordsAreFoundInTheTextWithTheFocusAndListsKeepTheirFilter) {
  Tab(2);
  Type("txtSelectDo", "x = 1");
  PressKeys(QKeySequence::Find);
  QTest::keyClicks(&Part<QLineEdit>("find"), QStringLiteral("= 1"));
  const auto& box = *window().map().findChild<QPlainTextEdit*>(QStringLiteral("txtSelectDo"));
  EXPECT_EQ(box.textCursor().selectedText(), QStringLiteral("= 1"));
  QTest::keyClick(&Part<QLineEdit>("find"), Qt::Key_Escape);
  Tab(0);
  Focus("lsttables");
  PressKeys(QKeySequence::Find);
  EXPECT_FALSE(Part<QWidget>("findBar").isVisible());
  EXPECT_TRUE(qobject_cast<QLineEdit*>(QApplication::focusWidget()));
}

TEST_F(WindowKeysTest, CtrlWithPageKeysTurnsThePages) {
  FocusRules();
  PressKeys(Qt::CTRL | Qt::Key_PageDown);
  EXPECT_EQ(Page(), 1);
  Tab(2);
  Focus("txtSelectDo");
  PressKeys(Qt::CTRL | Qt::Key_PageDown);
  EXPECT_EQ(Page(), 3);
  PressKeys(Qt::CTRL | Qt::Key_PageUp);
  PressKeys(Qt::CTRL | Qt::Key_PageUp);
  EXPECT_EQ(Page(), 1);
}

TEST_F(WindowKeysTest, TheStatusBarTellsOfTheTextWithTheFocus) {
  const auto status = [&] {
    Rest();
    return Std(Part<QLabel>("statusLine").text());
  };
  Tab(2);
  Type("txtSelectDo", "if a then\r\nx = 1\r\ny = 2\r\nendif");
  EXPECT_EQ(status(), "Line 4, column 6   Statements: 3   Depth: 2");
  Press(Qt::Key_Home);
  EXPECT_EQ(status(), "Line 4, column 1   Statements: 3   Depth: 2");
}

TEST_F(WindowKeysTest, ZoomAndColorsAreTakenAtOnceAndComeBack) {
  window().UseSettings();
  const qreal before = window().map().font().pointSizeF();
  PressKeys(Qt::CTRL | Qt::Key_Plus);
  PressKeys(Qt::CTRL | Qt::Key_Plus);
  EXPECT_NEAR(window().map().font().pointSizeF(), before * 1.2, 0.01);
  window().close();
  OpenWindow();
  window().UseSettings();
  EXPECT_NEAR(window().map().font().pointSizeF(), before * 1.2, 0.01);
  Menu("Rule", "New");
  EXPECT_NEAR(window().map().font().pointSizeF(), before * 1.2, 0.01);
  PressKeys(Qt::CTRL | Qt::Key_0);
  EXPECT_NEAR(window().map().font().pointSizeF(), before, 0.01);
  composer::Settings().clear();
}

TEST_F(WindowKeysTest, TheListOfKeysIsThatOfTheMenus) {
  Click("lsttables", kCustomer);
  EXPECT_EQ(UndoText(), "Undo \"CUSTOMER in Tables\"");
  Menu("Help", "Keys");
  const auto& table = Part<QTableWidget>("keys");
  Texts rows;
  for (int row = 0; row < table.rowCount(); ++row)
    rows.push_back(Std(table.item(row, 0)->text() + u' ' + table.item(row, 1)->text()));
  EXPECT_NE(std::find(rows.begin(), rows.end(), "Ctrl+F Edit / Find"), rows.end());
  EXPECT_NE(std::find(rows.begin(), rows.end(), "Ctrl+Z Edit / Undo"), rows.end());
  EXPECT_NE(std::find(rows.begin(), rows.end(), "F9 View / List of Rules"), rows.end());
}

TEST_F(WindowKeysTest, HelpShowsThePagesOfTheComposer) {
  PressKeys(Qt::Key_F1);
  const auto& pages = Part<QTextBrowser>("help");
  EXPECT_TRUE(pages.isVisible());
  EXPECT_TRUE(pages.toPlainText().startsWith(QStringLiteral("The composer")));
}

TEST_F(WindowKeysTest, ARuleIsSavedAsPdf) {
  OpenTwo();
  Menu("File", "Save as PDF...", {File(In("rule.pdf"), "Save")});
  EXPECT_EQ(Bytes(In("rule.pdf")).substr(0, 4), "%PDF");
}

// --- Folders of texts

class TextFolderTest : public WindowKeysTest {};

TEST_F(TextFolderTest, AllRulesLeaveAsTextsAndComeBack) {
  OpenTwo();
  composer::ExportTexts(window().rules()->rules(), In("texts"));
  EXPECT_EQ(Bytes(In("texts/A.txt")), kCustomers);
  EXPECT_EQ(QDir(In("texts")).entryList(QDir::Files), (QStringList{"A.txt", "B.txt"}));
  EXPECT_EQ(composer::ImportTexts(In("texts")),
            (std::vector<Rule>{{u"A", Wide(kCustomers), u""}, {u"B", Wide(kOrdersText), u""}}));
}

TEST_F(TextFolderTest, AnyNameHasAFileAndComesBack) {
  for (const char16_t* name : {u"a/b", u"..", u"100 %", u"x:y*?", u"Größe", u"%0041"}) {
    const QString file = composer::FileNameOf(name);
    EXPECT_FALSE(file.contains(u'/')) << Std(file);
    EXPECT_FALSE(file.startsWith(u'.')) << Std(file);
    EXPECT_EQ(qt::FromQt(composer::RuleNameOf(file)), name);
  }
  EXPECT_EQ(composer::RuleNameOf(QStringLiteral("A.json")), QString());
  EXPECT_THROW(composer::ExportTexts({{u"a", u"", u""}, {u"A", u"", u""}}, In("texts")),
               composer::RulesError);
}

TEST_F(TextFolderTest, AFolderIsImportedAndTextsThatDifferAreAskedFor) {
  OpenTwo();
  composer::ExportTexts({{u"A", u"x = 1\r\ny = 2", u""}, {u"C", u"z = 3", u""}}, In("texts"));
  const Steps choose = [&] {
    auto* line = Dialog().findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    ASSERT_NE(line, nullptr);
    line->setText(In("texts"));
    Choose("Choose");
  };
  Menu("File", "Import Rules...",
       {choose, Answer("Import Rules: Rules that get another text: 1", "No")});
  EXPECT_EQ(Listed(), (Texts{"A*", "B"}));
  Menu("File", "Import Rules...",
       {choose, Answer("Import Rules: Rules that get another text: 1", "Yes")});
  EXPECT_EQ(Listed(), (Texts{"A*", "B", "C"}));
  EXPECT_EQ(Stored(), (Texts{"A: x = 1\r\ny = 2", std::string("B: ") + kOrdersText, "C: z = 3"}));
}

TEST_F(TextFolderTest, TheProgramWritesThemWithoutADisplay) {
  WriteRules({{u"A", Wide(kCustomers), u""}});
  QProcess program;
  program.start(Qs(ComposerProgram()), {QStringLiteral("--export"), In("texts"), RulesPath()});
  ASSERT_TRUE(program.waitForFinished());
  EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
  EXPECT_EQ(Bytes(In("texts/A.txt")), kCustomers);
  program.start(Qs(ComposerProgram()), {QStringLiteral("--export"), In("texts"), In("none.json")});
  ASSERT_TRUE(program.waitForFinished());
  EXPECT_EQ(program.exitCode(), 1);
}

TEST_F(WindowKeysTest, TheLastSessionAndRecentFilesComeBack) {
  window().UseSettings();
  OpenTwo();
  ASSERT_TRUE(window().OpenCatalogue(Qs(Examples() + "/catalogue.json")));
  window_.reset();
  window_ = std::make_unique<composer::MainWindow>();
  window().UseSettings();
  window().OpenLastSession();
  ShowWindow(window());
  EXPECT_EQ(Listed(), (Texts{"A*", "B"}));
  EXPECT_EQ(window().windowTitle(), QStringLiteral("orders.rules[*] - Order entry - Composer"));
  composer::Settings().clear();
}

}  // namespace
}  // namespace zolt20::tests
