// The composer's window: rules and their file, catalogues, and the texts that leave.
#include "hosts/composer/main_window.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <QCloseEvent>
#include <QLabel>
#include <QStatusBar>

#include "tests/composer/composer_test.h"
#include "tests/support/places.h"

namespace zolt20::tests {
namespace {

using composer::Rule;
using composer::RulesFile;

constexpr int kCustomer = 2;
constexpr int kOrders = 5;

constexpr const char* kCustomers = "select CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nendselect";
constexpr const char* kChanged =
    "select CUSTOMER.C_D_ID,CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nendselect";
constexpr const char* kOrdersText = "select ORDERS__.O_ID\r\nfrom  ORDERS__\r\nendselect";

class MainWindowTest : public ComposerTest {
 protected:
  /// Two rules on the disk, opened; the first one stands in the pages.
  void OpenTwo() { OpenRules({{u"A", Wide(kCustomers), u""}, {u"B", Wide(kOrdersText), u""}}); }
  /// Adds what the pages hold; of a rule that was just opened it is the stored text.
  void Add() { Click("cmdAddSelect"); }
  /// Makes another statement of the first rule and adds it.
  void Change() {
    Click("lstFields", 2);
    Click("cmdMoveOne");
    Add();
  }

  static std::string NotStored(const std::string& rule) {
    return "Rule: What was composed for \"" + rule + "\" is not stored.";
  }
  std::string Of(const std::string& complaint) const {
    return RulesPath().toStdString() + complaint;
  }
  /// Closes the window as by its frame. Whether it is gone.
  bool Close(std::vector<Steps> dialogs) {
    With([this] { window().close(); }, std::move(dialogs));
    return !window().isVisible();
  }
  QString Title() { return window().windowTitle(); }
};

// --- Storing

TEST_F(MainWindowTest, DoneStoresANewRuleUnderANameInAFileThatItAsksFor) {
  EXPECT_EQ(Title(), QStringLiteral("no rules file[*] - Order entry - Composer"));
  EXPECT_EQ(Heading(), "New rule");
  AddSelect(kCustomer, 1);
  ClickWith("cmdDone", {File(RulesPath(), "Save"), [this] {
                          EXPECT_EQ(Std(Dialog<QInputDialog>().textValue()), "Rule 1");
                          Named("Customers")();
                        }});
  EXPECT_EQ(Title(), QStringLiteral("orders.rules[*] - Order entry - Composer"));
  EXPECT_FALSE(window().isWindowModified());
  EXPECT_EQ(Heading(), "Customers");
  EXPECT_EQ(Listed(), (Texts{"Customers*"}));
  EXPECT_FALSE(window().map().IsChanged());
  EXPECT_EQ(Stored(), (Texts{std::string("Customers: ") + kCustomers}));
}

TEST_F(MainWindowTest, DoneAsksAgainForANameThatIsEmptyOrTaken) {
  OpenTwo();
  Menu("Rule", "New");
  AddSelect(kOrders, 1);
  ClickWith("cmdDone", {Named(""), Named("   "), Named("B"),
                        Answer("Store: There is a rule of this name."), Named(" C ")});
  EXPECT_EQ(Listed(), (Texts{"A", "B", "C*"}));
  EXPECT_EQ(Stored(), (Texts{std::string("A: ") + kCustomers, std::string("B: ") + kOrdersText,
                             std::string("C: ") + kOrdersText}));
}

TEST_F(MainWindowTest, ARuleWithoutAFileOrANameIsNotStored) {
  AddSelect(kOrders, 1);
  ClickWith("cmdDone", {File(RulesPath(), "Cancel")});
  EXPECT_FALSE(window().rules().has_value());
  OpenRules();
  AddSelect(kOrders, 1);
  ClickWith("cmdDone", {Named("X", "Cancel")});
  EXPECT_EQ(Heading(), "New rule");
  EXPECT_EQ(Result(), kOrdersText);
  EXPECT_TRUE(window().map().IsChanged());
  EXPECT_EQ(Stored(), Texts{});
}

// What stands in the pages is no text yet, so an empty one would take its place.
TEST_F(MainWindowTest, DoneWithAnEmptyResultLeavesTheRuleAsStored) {
  OpenTwo();
  Click("cmdDone");
  EXPECT_EQ(Std(window().statusBar()->currentMessage()), "\"A\" is as it was stored");
  Menu("Rule", "New");
  ClickWith("cmdDone", {Answer("Store: The Result is empty. Add a statement to it first.")});
  EXPECT_EQ(Stored(), (Texts{std::string("A: ") + kCustomers, std::string("B: ") + kOrdersText}));
}

TEST_F(MainWindowTest, DoneStoresAnOpenRuleInItsPlace) {
  OpenTwo();
  Change();
  Click("cmdDone");
  EXPECT_EQ(Listed(), (Texts{"A*", "B"}));
  EXPECT_EQ(Stored(), (Texts{"A: select CUSTOMER.C_D_ID,CUSTOMER.C_ID\r\nfrom  "
                             "CUSTOMER\r\nendselect",
                             std::string("B: ") + kOrdersText}));
}

TEST_F(MainWindowTest, WhatIsDoneAfterAnUndoOfAStoredStepIsNotStored) {
  OpenTwo();
  Change();
  Click("cmdDone");
  window().map().undo();
  EXPECT_FALSE(window().map().IsChanged()) << "the pages hold the stored text";
  Click("lsttables", kOrders);
  EXPECT_FALSE(Close({Answer(NotStored("A"), "Go On")}));
}

TEST_F(MainWindowTest, DoneWithinAnUnbuiltConditionSaysSoAndStoresNothing) {
  OpenTwo();
  Tab(6);
  Click("optIfThen");
  Type("txtCond", "a");
  Click("cmdAdd");
  ClickWith("cmdDone", {Answer("Maintain Mapping Objects: Build Condition")});
  ClickRule(1,
            {Answer(NotStored("A"), "Save"), Answer("Maintain Mapping Objects: Build Condition")});
  EXPECT_EQ(Heading(), "A");
  EXPECT_EQ(Stored(), (Texts{std::string("A: ") + kCustomers, std::string("B: ") + kOrdersText}));
}

// --- Leaving a rule

TEST_F(MainWindowTest, MovingAboutAndDoneAndCancelAskNothing) {
  OpenTwo();
  Tab(1);
  Focus("txtwhereCondition");
  Click("cmdCancel");
  QTest::qWait(5);
  widget_ = &window().map();
  EXPECT_EQ(Heading(), "A");
  ClickRule(1);
  EXPECT_EQ(Heading(), "B");
  Add();
  Click("cmdDone");
  ClickRule(0);
  EXPECT_EQ(Heading(), "A");
  EXPECT_TRUE(Close({}));
}

TEST_F(MainWindowTest, OpeningAnotherRuleAsksForWhatIsNotStored) {
  OpenTwo();
  Change();
  ClickRule(1, {Answer(NotStored("A"), "Cancel")});
  EXPECT_EQ(Listed(), (Texts{"A*", "B"}));
  EXPECT_EQ(Result(), kChanged);

  ClickRule(1, {Answer(NotStored("A"), "Discard")});
  EXPECT_EQ(Listed(), (Texts{"A", "B*"}));
  Add();
  EXPECT_EQ(Result(), kOrdersText);

  ClickRule(0);
  Change();
  ClickRule(1, {Answer(NotStored("A"), "Save")});
  EXPECT_EQ(Listed(), (Texts{"A", "B*"}));
  EXPECT_EQ(Stored(), (Texts{std::string("A: ") + kChanged, std::string("B: ") + kOrdersText}));
}

TEST_F(MainWindowTest, CancelLeavesTheRuleAsStored) {
  OpenTwo();
  Click("lsttables", kOrders);
  Add();
  ClickWith("cmdCancel", {Answer(NotStored("A"), "Cancel")});
  EXPECT_NE(Result(), "");
  ClickWith("cmdCancel", {Answer(NotStored("A"), "Discard")});
  EXPECT_EQ(Result(), "");
  Add();
  EXPECT_EQ(Result(), kCustomers);
  EXPECT_EQ(Stored(), (Texts{std::string("A: ") + kCustomers, std::string("B: ") + kOrdersText}));
}

TEST_F(MainWindowTest, ClosingTheWindowAsks) {
  OpenTwo();
  Change();
  EXPECT_FALSE(Close({Answer(NotStored("A"), "Cancel")}));
  EXPECT_TRUE(Close({Answer(NotStored("A"), "Save")}));
  EXPECT_EQ(Stored()[0], "A: select CUSTOMER.C_D_ID,CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nendselect");
}

TEST_F(MainWindowTest, ClosingTheWindowOnAFullDiskLosesNothing) {
  OpenTwo();
  const std::string before = Bytes(RulesPath());
  Change();
  {
    const FullDisk room(20);
    EXPECT_FALSE(Close({Answer(NotStored("A"), "Save"),
                        Answer("Save: " + Of(" can't be saved: File too large")),
                        Answer("Rules: " + Of(" has changes that are not saved."), "Cancel")}));
  }
  EXPECT_EQ(Bytes(RulesPath()), before);
  EXPECT_TRUE(Close({Answer("Rules: " + Of(" has changes that are not saved."), "Save")}));
  EXPECT_EQ(Stored()[0], "A: select CUSTOMER.C_D_ID,CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nendselect");
}

TEST_F(MainWindowTest, ANewRuleThatGetsNoNameIsNotLeft) {
  OpenTwo();
  Menu("Rule", "New");
  AddSelect(kOrders, 1);
  ClickRule(1, {Answer(NotStored("New rule"), "Save"), Named("X", "Cancel")});
  EXPECT_EQ(Listed(), (Texts{"A", "B"}));
  EXPECT_EQ(Result(), kOrdersText);
  ClickRule(1, {Answer(NotStored("New rule"), "Save"), Named("X")});
  EXPECT_EQ(Listed(), (Texts{"A", "B*", "X"}));
}

TEST_F(MainWindowTest, AFileDialogThatIsCancelledChangesNothing) {
  OpenTwo();
  Change();
  for (const char* item : {"New Rules File...", "Open Rules File...", "Open Catalogue..."}) {
    Menu("File", item, {File(In("x"), "Cancel")});
    EXPECT_EQ(Result(), kChanged) << item;
    EXPECT_TRUE(window().map().IsChanged()) << item;
  }
  EXPECT_FALSE(Close({Answer(NotStored("A"), "Cancel")}));
}

// --- Rules

TEST_F(MainWindowTest, RenameDuplicateAndDeleteAreOnTheDiskAtOnce) {
  OpenTwo();
  Menu("Rule", "Rename...", {Named("Z")});
  EXPECT_EQ(Heading(), "Z");
  Menu("Rule", "Duplicate");
  EXPECT_EQ(Heading(), "Z (2)");
  EXPECT_EQ(Listed(), (Texts{"Z", "Z (2)*", "B"}));
  Change();
  EXPECT_EQ(Result(), kChanged);
  ClickRule(0, {Answer(NotStored("Z (2)"), "Discard")});
  Menu("Rule", "Delete");
  EXPECT_EQ(Heading(), "New rule");
  EXPECT_EQ(Listed(), (Texts{"Z (2)", "B"}));
  EXPECT_EQ(Stored(),
            (Texts{std::string("Z (2): ") + kCustomers, std::string("B: ") + kOrdersText}));
}

TEST_F(MainWindowTest, ARuleIsNotRenamedToNothingOrToAnother) {
  OpenTwo();
  Menu("Rule", "Rename...", {Named("B"), Answer("Rename: " + Of(" has a rule \"B\" already"))});
  Menu("Rule", "Rename...", {Named(""), Answer("Rename: " + Of(" takes no rule without a name"))});
  Menu("Rule", "Rename...", {Named("C", "Cancel")});
  Menu("Rule", "Rename...", {Named("A")});
  EXPECT_EQ(Listed(), (Texts{"A*", "B"}));
}

TEST_F(MainWindowTest, ANewRuleCanNeitherBeRenamedNorDuplicatedNorDeleted) {
  for (const char* item : {"Rename...", "Duplicate", "Delete"}) {
    QAction& title = ActionOf(*window().menuBar(), QStringLiteral("Rule"));
    EXPECT_FALSE(ActionOf(*title.menu(), QString::fromUtf8(item)).isEnabled()) << item;
  }
}

TEST_F(MainWindowTest, WhatIsComposedStaysWithItsRuleWhenThatIsRenamed) {
  OpenTwo();
  Change();
  Menu("Rule", "Rename...", {Named("Z")});
  EXPECT_EQ(Result(), kChanged);
  ClickRule(1, {Answer(NotStored("Z"), "Cancel")});
  EXPECT_EQ(Listed(), (Texts{"Z*", "B"}));
}

// --- The file of rules

TEST_F(MainWindowTest, AFileThatIsNoneIsToldAndTheOneBeforeStays) {
  OpenTwo();
  Change();
  const QString other = In("other.rules");
  const auto complains = [&](const char* bytes, const std::string& complaint) {
    if (bytes != nullptr) WriteBytes(other, bytes);
    With([&] { EXPECT_FALSE(window().OpenRules(other)); },
         {Answer("Open Rules: " + other.toStdString() + complaint)});
    EXPECT_EQ(Listed(), (Texts{"A*", "B"}));
    EXPECT_EQ(Result(), kChanged);
    EXPECT_TRUE(window().map().IsChanged());
  };
  complains(nullptr, " can't be read: No such file or directory");
  complains("", " is empty");
  complains("{\"format\": \"zolt20 rules\",", " is no JSON, or cut short: it ends within line 1");
  complains(R"({"format": "zolt20 rules", "version": 3, "rules": []})",
            " was written by a later version: its format is version 3, and this program knows "
            "version 2");
  complains(R"({"name": "Order entry"})", " is no file of rules");
  Click("cmdDone");
  EXPECT_EQ(Stored(), (Texts{std::string("A: ") + kChanged, std::string("B: ") + kOrdersText}));
}

TEST_F(MainWindowTest, AFileThatIsOpenElsewhereIsNotOpened) {
  OpenTwo();
  const RulesFile other = [this] {
    RulesFile file = RulesFile::Create(In("other.rules"));
    file.Put({u"X", u"x", u""});
    file.Save();
    return file;
  }();
  With([&] { EXPECT_FALSE(window().OpenRules(In("other.rules"))); }, {[&] {
         EXPECT_EQ(Told().find("Open Rules: " + In("other.rules").toStdString() +
                               " is open in another composer (process " + std::to_string(getpid()) +
                               " on "),
                   0U)
             << Told();
         Choose("OK");
       }});
  EXPECT_EQ(Listed(), (Texts{"A*", "B"}));
}

TEST_F(MainWindowTest, TheOpenFileCanBeOpenedAgain) {
  OpenTwo();
  std::string bytes = Bytes(RulesPath());
  bytes.replace(bytes.find("\"B\""), 3, "\"C\"");
  WriteBytes(RulesPath(), bytes);
  With([&] { EXPECT_TRUE(window().OpenRules(RulesPath())); }, {});
  EXPECT_EQ(Listed(), (Texts{"A*", "C"}));
  Menu("Rule", "Duplicate");
  EXPECT_EQ(Listed(), (Texts{"A", "A (2)*", "C"}));
  EXPECT_EQ(Stored().size(), 3U);
}

TEST_F(MainWindowTest, TheOpenFileCutShortByAnotherLeavesTheRulesInTheWindow) {
  OpenTwo();
  WriteBytes(RulesPath(), "{");
  With([&] { EXPECT_FALSE(window().OpenRules(RulesPath())); },
       {Answer("Open Rules: " + Of(" is no JSON, or cut short: it ends within line 1"))});
  EXPECT_EQ(Listed(), (Texts{"A*", "B"}));
  Menu("Rule", "Rename...",
       {Named("Z"),
        Answer("Save: " + Of(" was changed by somebody else in the meantime"), "Save Over It")});
  EXPECT_EQ(Stored(), (Texts{std::string("Z: ") + kCustomers, std::string("B: ") + kOrdersText}));
}

TEST_F(MainWindowTest, AFileChangedByAnotherIsNotWrittenOverUnasked) {
  OpenTwo();
  WriteBytes(RulesPath(), "theirs");
  const std::string told = "Save: " + Of(" was changed by somebody else in the meantime");
  Menu("Rule", "Rename...", {Named("Z"), Answer(told, "Cancel")});
  EXPECT_EQ(Bytes(RulesPath()), "theirs");
  EXPECT_EQ(Heading(), "Z");
  EXPECT_TRUE(window().isWindowModified());
  EXPECT_FALSE(Close({Answer("Rules: " + Of(" has changes that are not saved."), "Cancel")}));
  Menu("File", "Save", {Answer(told, "Save Over It")});
  EXPECT_FALSE(window().isWindowModified());
  EXPECT_EQ(Stored(), (Texts{std::string("Z: ") + kCustomers, std::string("B: ") + kOrdersText}));
}

TEST_F(MainWindowTest, OnAFullDiskTheOldFileAndTheRuleStay) {
  OpenTwo();
  const std::string before = Bytes(RulesPath());
  Menu("Rule", "New");
  AddSelect(kOrders, 1);
  {
    const FullDisk room(20);
    ClickWith("cmdDone", {Named("C"), Answer("Save: " + Of(" can't be saved: File too large"))});
  }
  EXPECT_EQ(Bytes(RulesPath()), before);
  EXPECT_EQ(Listed(), (Texts{"A", "B", "C*"}));
  EXPECT_EQ(Result(), kOrdersText);
  EXPECT_TRUE(window().isWindowModified());
  Menu("File", "Save");
  EXPECT_FALSE(window().isWindowModified());
  EXPECT_EQ(Stored(), (Texts{std::string("A: ") + kCustomers, std::string("B: ") + kOrdersText,
                             std::string("C: ") + kOrdersText}));
}

TEST_F(MainWindowTest, SaveAsGoesOnWithTheOtherFile) {
  OpenTwo();
  Menu("File", "Save As...", {File(In("other.rules"), "Save")});
  EXPECT_EQ(Title(), QStringLiteral("other.rules[*] - Order entry - Composer"));
  Menu("Rule", "Delete");
  EXPECT_EQ(StoredIn(RulesPath()).size(), 2U);
  window_.reset();
  EXPECT_EQ(StoredIn(In("other.rules")), (Texts{std::string("B: ") + kOrdersText}));
}

TEST_F(MainWindowTest, ANewFileBeginsWithANewRule) {
  OpenTwo();
  Menu("File", "New Rules File...", {File(In("other.rules"), "Save")});
  EXPECT_EQ(Listed(), Texts{});
  EXPECT_EQ(Heading(), "New rule");
  AddSelect(kOrders, 1);
  StoreAs("X");
  window_.reset();
  EXPECT_EQ(StoredIn(In("other.rules")), (Texts{std::string("X: ") + kOrdersText}));
  EXPECT_EQ(StoredIn(RulesPath()).size(), 2U);
}

TEST_F(MainWindowTest, OpeningAnotherFileAsksForBothTheRuleAndTheFile) {
  OpenTwo();
  WriteBytes(In("other.rules"), R"({"format": "zolt20 rules", "version": 1, "rules": []})");
  WriteBytes(RulesPath(), "theirs");
  Menu("Rule", "Rename...",
       {Named("Z"),
        Answer("Save: " + Of(" was changed by somebody else in the meantime"), "Cancel")});
  Change();
  const std::string unsaved = "Rules: " + Of(" has changes that are not saved.");
  const auto open = File(In("other.rules"), "Open");
  const std::string notStored = NotStored("Z");
  Menu("File", "Open Rules File...", {open, Answer(notStored, "Cancel")});
  Menu("File", "Open Rules File...",
       {open, Answer(notStored, "Discard"), Answer(unsaved, "Cancel")});
  EXPECT_EQ(Listed(), (Texts{"Z*", "B"}));
  EXPECT_EQ(Result(), kChanged);
  EXPECT_TRUE(window().map().IsChanged());
  Menu("File", "Open Rules File...",
       {open, Answer(notStored, "Discard"), Answer(unsaved, "Discard")});
  EXPECT_EQ(Title(), QStringLiteral("other.rules[*] - Order entry - Composer"));
  EXPECT_EQ(Listed(), Texts{});
  EXPECT_EQ(Bytes(RulesPath()), "theirs");
}

// --- Catalogues

class CatalogueTest : public MainWindowTest {
 protected:
  void Make(const QString& path, const char* statements) {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, statements, nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
  }
  /// The rows of the list of tables as they are read to a person: the code, and the real name.
  Texts Tables() {
    Texts texts;
    const QAbstractItemModel& model = *Be<QAbstractItemView>("lsttables").model();
    for (int row = 0; row < model.rowCount(); ++row) {
      const QModelIndex index = model.index(row, 0);
      const QString name = index.data(Qt::UserRole).toString();
      texts.push_back(Std(index.data().toString() + (name.isEmpty() ? name : u' ' + name)));
    }
    return texts;
  }
  /// The catalogue before is still there.
  void ExpectExample() {
    EXPECT_EQ(Title(), QStringLiteral("no rules file[*] - Order entry - Composer"));
    EXPECT_EQ(form().lsttables.ListCount(), 9);
  }
};

TEST_F(CatalogueTest, ADatabaseOpensWithCodesAndRealNames) {
  Make(In("shop.db"),
       "create table items (id integer);"
       "create table customer_orders (id integer, at date);"
       "create table customer_lines (id integer);"
       "create table ARTICLES (id integer);");
  Menu("File", "Open Catalogue...", {File(In("shop.db"), "Open")});
  EXPECT_EQ(Title(), QStringLiteral("no rules file[*] - shop - Composer"));
  EXPECT_EQ(Tables(), (Texts{"items___ items", "customer customer_orders",
                             "custome1 customer_lines", "ARTICLES"}));
  AddSelect(2, 1);
  EXPECT_EQ(Result(), "select custome1.id\r\nfrom  custome1\r\nendselect");
}

TEST_F(CatalogueTest, WhatIsLeftOutOfADatabaseIsToldInOneMessage) {
  Make(In("shop.db"),
       "create table items (id integer, \"a,b\" integer);"
       "create table broken (\"c,d\" integer);");
  With([this] { EXPECT_TRUE(window().OpenCatalogue(In("shop.db"))); }, {[this] {
         EXPECT_EQ(Told(),
                   "Open Catalogue: Not all of " + In("shop.db").toStdString() + " can be used.");
         const auto& message = Dialog<QMessageBox>();
         const QStringList lines = message.detailedText().split(u'\n');
         EXPECT_EQ(Std(message.informativeText()), "Left out: " + std::to_string(lines.size()));
         EXPECT_NE(message.detailedText().indexOf(QStringLiteral("column items.a,b")), -1)
             << message.detailedText().toStdString();
         EXPECT_NE(message.detailedText().indexOf(QStringLiteral("table broken")), -1)
             << message.detailedText().toStdString();
         Choose("OK");
       }});
  EXPECT_EQ(Tables(), (Texts{"items___ items"}));
}

TEST_F(CatalogueTest, WhatIsNoCatalogueIsToldAndTheOneBeforeStays) {
  const QString path = In("wrong");
  for (const char* bytes : {"", "{\"name\": ", "SQLite format 3", "\x01\x02 no database"}) {
    WriteBytes(path, bytes);
    With([&] { EXPECT_FALSE(window().OpenCatalogue(path)); }, {[&] {
           EXPECT_EQ(Told().find("Open Catalogue: " + path.toStdString() +
                                 ": the catalogue is no JSON: "),
                     0U)
               << Told();
           Choose("OK");
         }});
    ExpectExample();
  }
  WriteBytes(path, std::string("SQLite format 3\0", 16) + std::string(500, 'x'));
  With([&] { EXPECT_FALSE(window().OpenCatalogue(path)); }, {[&] {
         EXPECT_EQ(Told().find("Open Catalogue: " + path.toStdString() + ": the database "), 0U)
             << Told();
         Choose("OK");
       }});
  ExpectExample();
  WriteBytes(path, R"({"name": "n", "tables": [{"code": "SHORT"}], "functions": []})");
  With([&] { EXPECT_FALSE(window().OpenCatalogue(path)); },
       {Answer("Open Catalogue: " + path.toStdString() +
               ": table SHORT has a \"code\" of 5 characters, and it must have 8")});
  ExpectExample();
}

TEST_F(CatalogueTest, WithoutRightsToReadItTheCatalogueBeforeStays) {
  const QString path = In("secret.json");
  WriteBytes(path, R"({"name": "Secret", "tables": [], "functions": []})");
  ASSERT_EQ(chmod(QFile::encodeName(path).constData(), 0), 0);
  {
    const WithoutRootRights ordinary;
    With([&] { EXPECT_FALSE(window().OpenCatalogue(path)); }, {[&] {
           EXPECT_EQ(Told().find("Open Catalogue: " + path.toStdString() +
                                 ": the catalogue can't be read: "),
                     0U)
               << Told();
           Choose("OK");
         }});
  }
  ExpectExample();
}

TEST_F(CatalogueTest, AnotherCatalogueAsksForWhatIsNotStoredAndOpensTheRuleAnew) {
  OpenTwo();
  Change();
  const QString example = Qs(Examples() + "/catalogue.json");
  Menu("File", "Open Catalogue...", {File(example, "Open"), Answer(NotStored("A"), "Cancel")});
  EXPECT_EQ(Result(), kChanged);
  Menu("File", "Open Catalogue...", {File(example, "Open"), Answer(NotStored("A"), "Discard")});
  EXPECT_EQ(Heading(), "A");
  EXPECT_EQ(Result(), "");
  Add();
  EXPECT_EQ(Result(), kCustomers);
}

// --- Texts that leave

TEST_F(MainWindowTest, TheTextIsCopiedAsItStandsInTheResultOrIsStored) {
  OpenTwo();
  Menu("Rule", "Copy Text");
  EXPECT_EQ(Std(QApplication::clipboard()->text()), kCustomers) << "the stored text";
  Type("TxtOutput", "x = \"1\"\r\n\ty");
  Menu("Rule", "Copy Text");
  EXPECT_EQ(Std(QApplication::clipboard()->text()), "x = \"1\"\r\n\ty");
}

TEST_F(MainWindowTest, TheTextIsExportedWithCrLfAndTabs) {
  AddSelect(kOrders, 1);
  Tab(2);
  Type("txtSelectDo", "n = \"\xC3\xA4\"\r\n\tm");
  Click("cmdAddSelectDoQuer");
  Menu("File", "Export Text...", {File(In("rule.txt"), "Save")});
  EXPECT_EQ(Bytes(In("rule.txt")),
            "select ORDERS__.O_ID\r\n"
            "from  ORDERS__\r\n"
            "selectdo\r\n"
            "\tn = \"\xC3\xA4\"\r\n"
            "\t\tm\r\n"
            "endselect");
}

TEST_F(MainWindowTest, AnExportThatFailsIsToldAndLeavesTheOldFile) {
  AddSelect(kOrders, 1);
  WriteBytes(In("rule.txt"), "old");
  {
    const FullDisk room(20);
    Menu("File", "Export Text...",
         {File(In("rule.txt"), "Save"), [this] { Choose("Yes"); },
          Answer("Save: " + In("rule.txt").toStdString() + " can't be saved: File too large")});
  }
  EXPECT_EQ(Bytes(In("rule.txt")), "old");
}

TEST_F(MainWindowTest, ATextWithHalfOfACharacterIsNotExported) {
  OpenRules({{u"Half", String(u"x = ") + char16_t{0xD83D}, u""}});
  Menu("File", "Export Text...",
       {Answer("Export Text: The text holds half of a character and can't be written as UTF-8.")});
}

}  // namespace
}  // namespace zolt20::tests
