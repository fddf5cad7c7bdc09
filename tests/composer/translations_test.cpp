// The composer in other languages: in German as it is shipped, and in one that is made up here,
// where every text is twice as long, so that nothing that has room for English alone goes unseen.
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLibraryInfo>
#include <QMenuBar>
#include <QProcess>
#include <QScrollArea>
#include <QStatusBar>
#include <QTableWidget>
#include <QTextBrowser>
#include <QToolBar>
#include <QToolButton>
#include <QTranslator>
#include <QXmlStreamReader>
#include <map>
#include <set>

#include "hosts/composer/recovery.h"
#include "hosts/composer/server_dialog.h"
#include "hosts/composer/translations.h"
#include "hosts/kit/functions.h"
#include "language/check.h"
#include "tests/composer/composer_test.h"

namespace zolt20::tests {
namespace {

constexpr QSize kSmall{800, 600};
constexpr const char* kCustomers = "select CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nendselect";

/// The contexts of the texts that are to be translated, each with its texts.
std::map<QByteArray, std::set<QByteArray>> TextsOfTheComposer() {
  QFile file(Qs(Sources() + "/hosts/composer/translations/zolt20-composer_de.ts"));
  EXPECT_TRUE(file.open(QFile::ReadOnly));
  std::map<QByteArray, std::set<QByteArray>> texts;
  QXmlStreamReader reader(&file);
  QByteArray context;
  while (!reader.atEnd()) {
    if (!reader.readNextStartElement() && !reader.isEndElement()) continue;
    if (!reader.isStartElement()) continue;
    if (reader.name() == u"name") context = reader.readElementText().toUtf8();
    if (reader.name() == u"source") texts[context].insert(reader.readElementText().toUtf8());
  }
  return texts;
}

/// Says every text of the composer twice. What is filled in stands in the first half, and filters
/// of file dialogs stay what they are.
class Doubling final : public QTranslator {
 public:
  Doubling() : texts_(TextsOfTheComposer()) {}

  bool isEmpty() const override { return texts_.empty(); }
  QString translate(const char* context, const char* source, const char* /*about*/,
                    int /*number*/) const override {
    const auto found = texts_.find(context);
    const QString text = QString::fromUtf8(source);
    if (found == texts_.end() || !found->second.contains(source) || text.contains(u";;")) return {};
    static const QRegularExpression filledIn(QStringLiteral("%\\d|&|\\[\\*\\]"));
    const QString again = QString(text).replace(filledIn, QStringLiteral("x")).remove(u'.');
    const bool hasDots = text.endsWith(QStringLiteral("..."));
    return (hasDots ? text.chopped(3) : text) + u' ' + again +
           (hasDots ? QStringLiteral("...") : QString());
  }

 private:
  std::map<QByteArray, std::set<QByteArray>> texts_;
};

class DoubleLengthTest : public ComposerTest {
 protected:
  DoubleLengthTest() {
    CloseWindow();
    QApplication::installTranslator(&doubling_);
    OpenWindow();
    window().resize(kSmall);
    QTest::qWait(50);
  }
  ~DoubleLengthTest() override {
    CloseWindow();
    QApplication::removeTranslator(&doubling_);
  }

  QString Twice(const char* context, const char* text) {
    return WithoutMnemonic(doubling_.translate(context, text, nullptr, -1));
  }
  QMenu& MenuOf(const char* text) {
    return *ActionOf(*window().menuBar(), Twice("zolt20::composer::MainWindow", text)).menu();
  }
  void Trigger(const char* menu, const char* item, std::vector<Steps> dialogs) {
    QAction& action = ActionOf(MenuOf(menu), Twice("zolt20::composer::MainWindow", item));
    With([&] { action.trigger(); }, std::move(dialogs));
  }

  /// Whether the pages, whose texts are not the composer's, have the widget in them.
  static bool IsInPages(const QWidget& widget) {
    for (const QWidget* each = &widget; each != nullptr; each = each->parentWidget()) {
      if (qobject_cast<const ZOLT20MapWidget*>(each) != nullptr) return true;
    }
    return false;
  }
  static QString TextOf(const QWidget& widget) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return button->text();
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) return label->text();
    return {};
  }
  static bool Scrolls(const QWidget& widget) {
    for (const QWidget* each = widget.parentWidget(); each != nullptr;
         each = each->parentWidget()) {
      if (qobject_cast<const QAbstractScrollArea*>(each) != nullptr) return true;
    }
    return false;
  }
  /// Looks at all that is shown of a window: it is no larger than the screen that is meant, and the
  /// text of no label and button is cut or covered, where it can't be scrolled.
  static void LookAt(QWidget& shown) {
    shown.resize(shown.size().boundedTo(kSmall));
    QTest::qWait(20);
    EXPECT_LE(shown.width(), kSmall.width()) << Std(shown.windowTitle());
    EXPECT_LE(shown.height(), kSmall.height()) << Std(shown.windowTitle());
    for (QWidget* widget : shown.findChildren<QWidget*>()) {
      const QString text = TextOf(*widget);
      if (text.isEmpty() || !widget->isVisible() || IsInPages(*widget)) continue;
      const std::string what = Std(shown.windowTitle() + QStringLiteral(": ") + text);
      QSize needed = widget->minimumSizeHint();
      const bool isWrapped = widget->hasHeightForWidth();
      if (isWrapped) needed = {0, widget->heightForWidth(widget->width())};
      EXPECT_GE(widget->width(), needed.width()) << what;
      if (Scrolls(*widget)) continue;
      EXPECT_GE(widget->height(), needed.height()) << what;
      EXPECT_EQ(widget->visibleRegion().boundingRect(), widget->rect()) << what;
    }
    for (const QTableWidget* table : shown.findChildren<QTableWidget*>()) {
      const QHeaderView& heads = *table->horizontalHeader();
      for (int column = 0; column < table->columnCount(); ++column) {
        EXPECT_GE(heads.sectionSize(column), heads.sectionSizeHint(column))
            << Std(shown.windowTitle()) << ", column " << column;
      }
    }
  }
  Steps Look(const char* context, const char* button) {
    return [this, context, button] {
      LookAt(Dialog());
      Choose(Twice(context, button).toUtf8().constData());
    };
  }
  Steps LookAndLeave() {
    return [this] {
      LookAt(Dialog());
      Dialog().reject();
    };
  }
  /// The list, which a small window folds away.
  void ShowRules() {
    if (!RuleList().isVisible()) Trigger("&View", "List of &Rules", {});
    QTest::qWait(20);
    ASSERT_TRUE(RuleList().isVisible());
  }
  void OpenMissing() {
    ShowRules();
    ClickRule(1);
    Trigger("&View", "List of &Rules", {});
  }
  void OpenTwo() {
    OpenRules({{u"Customers", Wide(kCustomers), u""},
               {u"Missing", u"select NONE____.A\r\nfrom  NONE____\r\nendselect", u""}});
    QTest::qWait(50);
  }

 private:
  Doubling doubling_;
};

TEST_F(DoubleLengthTest, EveryTextOfTheSourceIsTheMadeUpLanguages) {
  EXPECT_EQ(Twice("zolt20::composer::MainWindow", "&Rename..."),
            QStringLiteral("Rename xRename..."));
  for (const QAction* menu : window().menuBar()->actions()) {
    for (const QAction* action : menu->menu()->actions()) {
      const QString text = action->text();
      EXPECT_TRUE(text.isEmpty() || text.contains(u" x") || text.count(u' ') % 2 == 1) << Std(text);
    }
  }
}

TEST_F(DoubleLengthTest, TheWindowHasRoomForItsTexts) {
  OpenTwo();
  LookAt(window());
  OpenMissing();
  EXPECT_NE(Note(), "");
  LookAt(window());
  for (const QAction* menu : window().menuBar()->actions()) {
    const QRect place = window().menuBar()->actionGeometry(const_cast<QAction*>(menu));
    EXPECT_FALSE(place.isEmpty()) << Std(menu->text());
    EXPECT_LE(place.right(), window().width()) << Std(menu->text());
    EXPECT_LE(menu->menu()->sizeHint().width(), kSmall.width()) << Std(menu->text());
    EXPECT_LE(menu->menu()->sizeHint().height(), kSmall.height()) << Std(menu->text());
  }
}

TEST_F(DoubleLengthTest, TheListAndTheTextOfARuleHaveRoomToo) {
  OpenTwo();
  ShowRules();
  LookAt(window());
  auto& buttons = *window().findChild<QToolBar*>();
  EXPECT_EQ(buttons.actions().size(), 3);
  for (QAction* action : buttons.actions())
    EXPECT_TRUE(buttons.widgetForAction(action)->isVisible()) << Std(action->text());
}

TEST_F(DoubleLengthTest, TheFindBarHasRoom) {
  QTest::keyClick(&window(), Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("not there"));
  LookAt(window());
}

TEST_F(DoubleLengthTest, WindowsOfARuleHaveRoom) {
  OpenTwo();
  Trigger("&Rule", "&Versions...", {LookAndLeave()});
  Trigger("&Rule", "&Rename...", {LookAndLeave()});
  Trigger("&Rule", "N&ote...", {LookAndLeave()});
  Trigger("&Rule", "De&lete", {});
  Trigger("&Rule", "Deleted Rules...", {LookAndLeave()});
}

TEST_F(DoubleLengthTest, WindowsOfACatalogueHaveRoom) {
  Trigger("&File", "Edit &Functions...", {LookAndLeave()});
  Trigger("&File", "Open &Database...", {LookAndLeave()});
}

TEST_F(DoubleLengthTest, WhatTellsOfNamesHasRoom) {
  OpenRules({{u"Missing", u"if NONE____.A = \"NONE____.A\" then \r\nendif", u""},
             {u"Customers", Wide(kCustomers), u""}});
  catalogue::Catalogue other;
  other.tables.push_back({u"OTHER___", u"Other", 0, {{u"A", u"long", false, u""}}});
  WriteBytes(In("other.json"), catalogue::WriteCatalogue(other));
  // The file knows the names of the example, from which the table of the customers is gone.
  Trigger("&File", "&Save", {});
  EXPECT_TRUE(window().OpenCatalogue(In("other.json")));
  auto& told = *window().findChild<QLabel*>(QStringLiteral("changedNamesTold"));
  EXPECT_TRUE(told.isVisible());
  LookAt(window());
  Trigger("&File", "C&hanged Names...", {LookAndLeave()});
  Trigger("&View", "&Uses of Names...", {});
  LookAt(*window().findChild<QDialog*>(QStringLiteral("usesOfNames")));
}

TEST_F(DoubleLengthTest, TheServerDialogHasRoomWhereADriverIsMissing) {
  composer::ServerDialog dialog(&window(), [](const QString&) { return false; });
  dialog.show();
  LookAt(dialog);
  dialog.findChild<QComboBox*>()->setCurrentIndex(2);
  LookAt(dialog);
}

TEST_F(DoubleLengthTest, HelpAndKeysHaveRoom) {
  Menu(Twice("zolt20::composer::MainWindow", "&Help").toUtf8().constData(),
       Twice("zolt20::composer::MainWindow", "&Composer Help").toUtf8().constData());
  LookAt(*window().findChild<QTextBrowser*>()->window());
  Menu(Twice("zolt20::composer::MainWindow", "&Help").toUtf8().constData(),
       Twice("zolt20::composer::MainWindow", "&Keys").toUtf8().constData());
  LookAt(*window().findChild<QTableWidget*>(QStringLiteral("keys"))->window());
}

TEST_F(DoubleLengthTest, QuestionsHaveRoom) {
  OpenTwo();
  Trigger("&Rule", "&New", {});
  Click("lsttables", 5);
  Click("lstFields", 1);
  Click("cmdMoveOne");
  Trigger("&File", "&Save", {Look("zolt20::composer::MainWindow", "Go On")});
  ShowRules();
  ClickRule(1, {Look("zolt20::composer::MainWindow", "Go On")});
}

TEST_F(DoubleLengthTest, AFurtherComposerAndThePickerHaveRoom) {
  Tab(2);
  ClickWith("cmdFunction(0)", {LookAndLeave()});
  ClickWith("cmdSubQuery(0)", {[this] {
              LookAt(Dialog());
              Click("lsttables", 5);
              Click("lstFields", 1);
              Click("cmdMoveOne");
              ClickWith("cmdDone", {Look("zolt20::composer::NestedComposer", "Leave")});
            }});
}

// --- German

class GermanTest : public ComposerTest {
 protected:
  GermanTest() {
    CloseWindow();
    composer::UseLanguage(QStringLiteral("de"));
    OpenWindow();
  }
  ~GermanTest() override {
    CloseWindow();
    for (QTranslator* translator : qApp->findChildren<QTranslator*>()) {
      QApplication::removeTranslator(translator);
      delete translator;
    }
    QLocale::setDefault(QLocale::system());
  }
};

TEST_F(GermanTest, MenusQuestionsAndQtsOwnButtonsAreGerman) {
  Click("lsttables", 2);
  Click("lstFields", 1);
  Click("cmdMoveOne");
  QAction* undo = window().findChild<QAction*>(QStringLiteral("undoAction"));
  EXPECT_EQ(Std(WithoutMnemonic(undo->text())), "Rückgängig: „CUSTOMER.C_ID verschieben“");
  OpenRules({{u"Kunden", Wide(kCustomers), u""}});
  Menu("Regel", "Umbenennen...", {[this] {
         EXPECT_EQ(Told(), "Umbenennen");
         Choose("Abbrechen");
       }});
}

TEST_F(GermanTest, NoTwoEntriesOfAMenuHaveTheSameLetter) {
  const auto look = [](const QList<QAction*>& actions, const QString& menu) {
    std::set<QChar> letters;
    for (const QAction* action : actions) {
      const QString text = QString(action->text()).remove(QStringLiteral("&&"));
      const qsizetype at = text.indexOf(u'&');
      if (at < 0) continue;
      EXPECT_TRUE(letters.insert(text[at + 1].toLower()).second)
          << Std(menu + QStringLiteral(": ") + text);
    }
  };
  look(window().menuBar()->actions(), {});
  for (const QAction* menu : window().menuBar()->actions())
    look(menu->menu()->actions(), menu->text());
}

TEST_F(GermanTest, ChecksAreTold) {
  const language::Words words = composer::Sentences();
  const auto found = language::Check(u"if x then\r\n\ty = 1", nullptr, words);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(Narrow(found[0].sentence), "„endif“ fehlt: Diese Anweisung ist nicht abgeschlossen.");
}

// --- What hosts/kit tells

TEST_F(GermanTest, WhatIsWrongWithAFileOfRulesIsToldInGerman) {
  const auto complain = [this](const char* content, const std::string& told) {
    WriteBytes(In("odd.rules"), content);
    With([this] { EXPECT_FALSE(window().OpenRules(In("odd.rules"))); },
         {Answer("Regeln öffnen: " + Std(In("odd.rules")) + told)});
  };
  complain("", " ist leer");
  complain("[1,\n", " ist kein JSON oder abgeschnitten: Es endet in Zeile 2");
  complain(R"({"format": "zolt20 rules", "version": 3})",
           " stammt von einer neueren Version: Das Format ist Version 3, und dieses Programm kennt "
           "Version 2");
  complain(R"({"format": "zolt20 rules", "version": 2, "rules": [{"name": "%1 %2", "text": ""}]})",
           ": Regel „%1 %2“ hat kein „fields“");
}

TEST_F(GermanTest, WhatIsWrongWithACatalogueIsToldInGerman) {
  const auto complain = [this](const char* content, const std::string& told) {
    WriteBytes(In("odd.json"), content);
    With([this] { EXPECT_FALSE(window().OpenCatalogue(In("odd.json"))); },
         {Answer("Katalog öffnen: " + Std(In("odd.json")) + ": " + told)});
  };
  complain("{}", "der Katalog hat kein „name“");
  complain(R"({"name": "", "tables": [{"code": "A,CDEFGH"}], "functions": []})",
           "Tabelle A,CDEFGH hat ein ungeeignetes „code“: Es enthält ein Komma");
}

TEST_F(GermanTest, KnownFunctionsAreToldInGermanAndKeptAsTheyAre) {
  const catalogue::Function own{u"mine", {u"number"}, u"number", u"The mean of the rows."};
  catalogue::Catalogue catalogue{u"Functions", {}, catalogue::SqliteFunctions()};
  catalogue.functions.push_back(own);
  const std::string before = catalogue::WriteCatalogue(catalogue);
  WriteBytes(In("functions.json"), before);
  ASSERT_TRUE(window().OpenCatalogue(In("functions.json")));
  widget_ = &window().map();
  Tab(2);
  ClickWith("cmdFunction(0)", {[this] {
              const auto* about = Dialog().findChild<QLabel*>(QStringLiteral("about"));
              TypeLine(LineOf("Funktionen filtern"), "round");
              EXPECT_EQ(Std(about->text()),
                        "Zahl: Gerundet auf so viele Stellen hinter dem Komma.");
              LineOf("[Stellen]");
              TypeLine(LineOf("Funktionen filtern"), "mine");
              EXPECT_EQ(Std(about->text()), "number: The mean of the rows.");
              LineOf("number");
              Choose("Abbrechen");
            }});
  Menu("Datei", "Funktionen bearbeiten...", {[this] {
         const auto& table = *Dialog().findChild<QTableWidget*>();
         EXPECT_EQ(Std(table.item(0, 3)->text()), "Der Mittelwert der Zeilen.");
         table.item(0, 3)->setText(QStringLiteral("Der Durchschnitt."));
         Choose("OK");
       }});
  std::string expected = before;
  const std::string changed = "The mean of the rows.";
  expected.replace(expected.find(changed), changed.size(), "Der Durchschnitt.");
  EXPECT_EQ(Bytes(In("functions.json")), expected);
}

TEST_F(GermanTest, EveryKnownFunctionHasGermanWords) {
  for (const auto& functions : {catalogue::SqliteFunctions(), catalogue::StandardFunctions()}) {
    for (const catalogue::Function& function : functions)
      EXPECT_NE(composer::Translated(function).text, function.text) << Narrow(function.name);
  }
}

/// What the program says to standard error, in a language of the system.
std::string Said(const QStringList& arguments, const char* system) {
  QProcess program;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
  environment.insert(QStringLiteral("LANGUAGE"), QString::fromUtf8(system));
  environment.remove(QStringLiteral("QT_QPA_PLATFORM"));  // with which Qt has warnings of its own
  program.setProcessEnvironment(environment);
  program.start(Qs(ComposerProgram()), arguments);
  EXPECT_TRUE(program.waitForFinished());
  return program.readAllStandardError().toStdString();
}

TEST(LanguageTest, TheOptionChoosesTheLanguageOfTheProgram) {
  const QStringList asked{QStringLiteral("--export"), QStringLiteral("none")};
  const std::string german = "zolt20-composer: eine Regeldatei ist zu nennen\n";
  const std::string english = "zolt20-composer: name one file of rules\n";
  EXPECT_EQ(Said(asked, ""), english);
  EXPECT_EQ(Said(asked + QStringList{QStringLiteral("--language"), QStringLiteral("de")}, ""),
            german);
  EXPECT_EQ(Said(asked + QStringList{QStringLiteral("--language=de_AT")}, ""), german);
  EXPECT_EQ(Said(asked + QStringList{QStringLiteral("--language=xx")}, ""), english);
}

TEST(LanguageTest, TheSystemChoosesItWithoutOne) {
  const QStringList asked{QStringLiteral("--export"), QStringLiteral("none")};
  const std::string german = "zolt20-composer: eine Regeldatei ist zu nennen\n";
  const std::string english = "zolt20-composer: name one file of rules\n";
  EXPECT_EQ(Said(asked, "de"), german);
  EXPECT_EQ(Said(asked, "fr:de"), german);
  EXPECT_EQ(Said(asked, "en:de"), english);
  EXPECT_EQ(Said(asked + QStringList{QStringLiteral("--language=en")}, "de"), english);
}

}  // namespace
}  // namespace zolt20::tests
