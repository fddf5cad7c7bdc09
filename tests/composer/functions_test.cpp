// Functions of a catalogue: picked, typed, edited, and kept where the catalogue is or in the
// settings of the user.
#include <sqlite3.h>

#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>

#include "hosts/composer/function_editor.h"
#include "hosts/composer/function_picker.h"
#include "tests/composer/composer_test.h"

namespace zolt20::tests {
namespace {

using composer::FunctionEditor;
using composer::FunctionPicker;

constexpr int kSelectDoPage = 2;

class FunctionsOfComposerTest : public ComposerTest {
 protected:
  FunctionsOfComposerTest() : before_(qgetenv("XDG_CONFIG_HOME")) {
    qputenv("XDG_CONFIG_HOME", In("settings").toUtf8());
  }
  ~FunctionsOfComposerTest() override {
    if (before_.isEmpty()) {
      qunsetenv("XDG_CONFIG_HOME");
    } else {
      qputenv("XDG_CONFIG_HOME", before_);
    }
  }

  void MakeDatabase(const QString& path) {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, "create table ITEM (a int)", nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(database);
  }
  void OpenDatabase(const char* name = "stock.db") {
    if (!QFile::exists(In(name))) MakeDatabase(In(name));
    ASSERT_TRUE(window().OpenCatalogue(In(name)));
    With([] {}, {});
  }
  void OpenEmpty() {
    WriteBytes(In("plain.json"), R"({"name": "Plain", "tables": [], "functions": [], "own": 1})");
    ASSERT_TRUE(window().OpenCatalogue(In("plain.json")));
    With([] {}, {});
  }
  void InPicker(Steps steps) {
    Tab(kSelectDoPage);
    ClickWith("cmdFunction(0)", {std::move(steps)});
  }

  QLineEdit& CallLine() { return LineOf("Call"); }
  std::string About() { return Std(Dialog().findChild<QLabel*>(QStringLiteral("about"))->text()); }
  bool MayAccept() {
    return Dialog().findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->isEnabled();
  }
  Texts Names() {
    Texts names;
    const auto& list = *Dialog().findChild<QListWidget*>();
    for (int row = 0; row < list.count(); ++row)
      names.push_back(Std(list.item(row)->text()));
    return names;
  }

  // A person in the editor.
  QTableWidget& Table() { return *Dialog<FunctionEditor>().findChild<QTableWidget*>(); }
  void TypeCell(int row, int column, const char* text) {
    QTableWidget& table = Table();
    table.scrollToItem(table.item(row, column));
    const QPoint at = table.visualItemRect(table.item(row, column)).center();
    PressOn(*table.viewport(), at);
    QTest::mouseDClick(table.window()->windowHandle(), Qt::LeftButton, {},
                       table.viewport()->mapTo(table.window(), at));
    QWindow* place = table.window()->windowHandle();
    QTest::keySequence(place, QKeySequence(QKeySequence::SelectAll));
    QTest::keyClick(place, Qt::Key_Delete);
    for (const char key : std::string(text))
      QTest::keyClick(place, key);
    QTest::keyClick(place, Qt::Key_Tab);
  }
  std::string Fault() { return Std(Dialog().findChild<QLabel*>(QStringLiteral("fault"))->text()); }

 private:
  QByteArray before_;
};

// ---- the picker

TEST_F(FunctionsOfComposerTest, ADatabaseOffersTheFunctionsOfSqlite) {
  OpenDatabase();
  InPicker([this] {
    EXPECT_GT(Names().size(), 80U);
    EXPECT_EQ(About(), "aggregate: The mean of the rows.");
    TypeLine(LineOf("Filter functions"), "strf");
    EXPECT_EQ(Std(CallLine().text()), "strftime()");
    TypeLine(LineOf("format"), "'%Y'");
    EXPECT_EQ(Std(CallLine().text()), "strftime('%Y')");
    Choose("OK");
  });
  EXPECT_EQ(Text("txtSelectDo"), "strftime('%Y')");
}

TEST_F(FunctionsOfComposerTest, ACallIsTypedWhereTheCatalogueHasNoFunctions) {
  OpenEmpty();
  InPicker([this] {
    EXPECT_EQ(About(),
              "The catalogue has no functions to choose from. Type a call in the line below, or "
              "add functions to the catalogue by File / Edit Functions.");
    EXPECT_TRUE(CallLine().hasFocus());
    EXPECT_FALSE(MayAccept());
    TypeLine(CallLine(), "soundex(NAME)");
    EXPECT_TRUE(MayAccept());
    Choose("OK");
  });
  EXPECT_EQ(Text("txtSelectDo"), "soundex(NAME)");
}

TEST_F(FunctionsOfComposerTest, ACallOfAnyOtherFunctionIsTypedOverThePickedOne) {
  InPicker([this] {
    EXPECT_EQ(Std(CallLine().text()), "today()");
    TypeLine(CallLine(), " today() + 1 ");
    Choose("OK");
  });
  EXPECT_EQ(Text("txtSelectDo"), "today() + 1");
}

TEST_F(FunctionsOfComposerTest, BlanksAreNoCall) {
  InPicker([this] {
    TypeLine(CallLine(), "  ");
    EXPECT_FALSE(MayAccept());
    Choose("Cancel");
  });
}

TEST_F(FunctionsOfComposerTest, OptionalArgumentsAreLeftOutWhileTheyAreEmpty) {
  OpenDatabase();
  InPicker([this] {
    TypeLine(LineOf("Filter functions"), "coalesce");
    EXPECT_EQ(Std(CallLine().text()), "coalesce(, )");
    TypeLine(LineOf("value"), "A");
    EXPECT_EQ(Std(CallLine().text()), "coalesce(A, )");
    TypeLine(LineOf("[more]"), "C");
    EXPECT_EQ(Std(CallLine().text()), "coalesce(A, , C)");
    Choose("Cancel");
  });
}

TEST_F(FunctionsOfComposerTest, TheFilterFindsKindsToo) {
  OpenDatabase();
  InPicker([this] {
    TypeLine(LineOf("Filter functions"), "json");
    TypeLine(LineOf("Filter functions"), "aggr");
    EXPECT_EQ(Std(CallLine().text()), "avg()");
    Choose("Cancel");
  });
}

// ---- the editor

TEST_F(FunctionsOfComposerTest, WhatIsEditedStandsInTheFileOfTheCatalogueAndInThePicker) {
  OpenEmpty();
  Menu("File", "Edit Functions...", {[this] {
         Choose("Add");
         TypeCell(0, 0, "days");
         TypeCell(0, 1, "from, [to]");
         TypeCell(0, 2, "date");
         TypeCell(0, 3, "Days.");
         Choose("OK");
       }});
  EXPECT_EQ(Bytes(In("plain.json")), R"({
  "name": "Plain",
  "tables": [],
  "functions": [{"name": "days", "arguments": ["from", "[to]"], "kind": "date", "text": "Days."}],
  "own": 1
}
)");
  InPicker([this] {
    EXPECT_EQ(Names(), Texts{"days"});
    TypeLine(LineOf("from"), "A");
    Choose("OK");
  });
  EXPECT_EQ(Text("txtSelectDo"), "days(A)");
}

TEST_F(FunctionsOfComposerTest, ThoseOfADatabaseAreKeptInTheSettingsOfTheUser) {
  OpenDatabase();
  MakeDatabase(In("other.db"));
  const std::string before = Bytes(In("stock.db"));
  Menu("File", "Edit Functions...", {[this] {
         PressOn(*Table().viewport(), Table().visualItemRect(Table().item(0, 0)).center());
         Choose("Remove");
         TypeCell(0, 0, "number_of");
         Choose("OK");
       }});
  OpenWindow();
  OpenDatabase("other.db");
  InPicker([this] {
    EXPECT_EQ(Names()[0], "avg");
    Choose("Cancel");
  });
  OpenDatabase();
  InPicker([this] {
    EXPECT_EQ(Names()[0], "number_of");
    EXPECT_EQ(Names()[1], "group_concat");
    Choose("Cancel");
  });
  EXPECT_EQ(Bytes(In("stock.db")), before);
  EXPECT_EQ(QDir(folder_.path()).entryList({QStringLiteral("stock*")}, QDir::Files).size(), 1);
}

TEST_F(FunctionsOfComposerTest, KeptFunctionsThatCannotBeReadAreToldAndTheUsualOnesStay) {
  OpenDatabase();
  Menu("File", "Edit Functions...", {[this] { Choose("OK"); }});
  const QDir kept(In("settings/zolt20-composer/functions"));
  ASSERT_EQ(kept.entryList(QDir::Files).size(), 1);
  WriteBytes(kept.filePath(kept.entryList(QDir::Files)[0]), "no JSON");
  With([this] { EXPECT_TRUE(window().OpenCatalogue(In("stock.db"))); }, {[this] {
         EXPECT_EQ(Std(Dialog<QMessageBox>().informativeText()), "Left out: 1");
         EXPECT_TRUE(Dialog<QMessageBox>().detailedText().contains(
             QStringLiteral("are left out: the catalogue is no JSON")));
         Choose("OK");
       }});
  InPicker([this] {
    EXPECT_EQ(Names()[0], "avg");
    Choose("Cancel");
  });
}

TEST_F(FunctionsOfComposerTest, ARowThatIsWrongIsToldAndKeepsTheEditorOpen) {
  Menu("File", "Edit Functions...", {[this] {
         EXPECT_EQ(Fault(), "");
         TypeCell(0, 0, "days");
         EXPECT_EQ(Fault(), "The function days stands twice.");
         EXPECT_FALSE(MayAccept());
         TypeCell(0, 0, "");
         EXPECT_EQ(Fault(), "");  // it has no arguments, so nothing is in the row
         TypeCell(0, 1, "a");
         EXPECT_EQ(Fault(), "The function in row 1 has no name.");
         EXPECT_FALSE(MayAccept());
         Choose("Cancel");
       }});
  InPicker([this] {
    EXPECT_EQ(Names(), (Texts{"today", "days", "substr", "upper", "round"}));
    Choose("Cancel");
  });
}

TEST_F(FunctionsOfComposerTest, RowsMoveAndKnownFunctionsComeBehindThem) {
  OpenEmpty();
  Menu("File", "Edit Functions...", {[this] {
         Choose("Add");
         TypeCell(0, 0, "upper");
         Choose("Add");
         TypeCell(1, 0, "mine");
         Choose("Move Up");
         const auto names = [this] {
           return std::vector<std::string>{Std(Table().item(0, 0)->text()),
                                           Std(Table().item(1, 0)->text())};
         };
         EXPECT_EQ(names(), (Texts{"mine", "upper"}));
         Choose("Move Up");
         EXPECT_EQ(names(), (Texts{"mine", "upper"}));
         auto* menu = Dialog().findChild<QMenu*>();
         menu->actions()[0]->trigger();
         menu->actions()[0]->trigger();
         Choose("OK");
       }});
  InPicker([this] {
    const Texts names = Names();
    EXPECT_EQ(names[0], "mine");
    EXPECT_EQ(names[1], "upper");
    EXPECT_EQ(names[2], "avg");
    EXPECT_EQ(std::count(names.begin(), names.end(), "upper"), 1);
    EXPECT_EQ(std::count(names.begin(), names.end(), "sum"), 1);
    Choose("Cancel");
  });
}

TEST_F(FunctionsOfComposerTest, AFileThatCannotBeWrittenIsToldAndTheEditorComesBack) {
  OpenEmpty();
  ASSERT_TRUE(QFile::remove(In("plain.json")));
  Menu("File", "Edit Functions...",
       {[this] {
          Choose("Add");
          TypeCell(0, 0, "mine");
          Choose("OK");
        },
        [this] {
          EXPECT_TRUE(QString::fromStdString(Told()).startsWith(
              QStringLiteral("Edit Functions: %1 can't be read").arg(In("plain.json"))))
              << Told();
          Choose("OK");
        },
        [this] {
          EXPECT_EQ(Std(Table().item(0, 0)->text()), "mine");
          Choose("Cancel");
        }});
  InPicker([this] {
    EXPECT_EQ(Names(), Texts{});
    Choose("Cancel");
  });
}

// ---- the catalogue as a file

TEST_F(FunctionsOfComposerTest, TheCatalogueOfADatabaseIsSavedAsJson) {
  OpenDatabase();
  Menu("File", "Save Catalogue As...", {File(In("stock.json"), "Save")});
  const auto saved = catalogue::ReadCatalogue(In("stock.json").toStdU16String());
  EXPECT_EQ(saved.name, u"stock");
  ASSERT_EQ(saved.tables.size(), 1U);
  EXPECT_EQ(saved.tables[0].name, u"ITEM");
  EXPECT_GT(saved.functions.size(), 80U);
  // From then on it is that file whose functions are edited.
  Menu("File", "Edit Functions...", {[this] {
         TypeCell(0, 0, "mine");
         Choose("OK");
       }});
  EXPECT_EQ(catalogue::ReadCatalogue(In("stock.json").toStdU16String()).functions[0].name, u"mine");
}

TEST_F(FunctionsOfComposerTest, WithoutACatalogueThereIsNothingToSaveOrToEdit) {
  window_ = std::make_unique<composer::MainWindow>();
  ShowWindow(window());
  Menu("File", "Save Catalogue As...",
       {Answer("Save Catalogue As: There is no catalogue. Open one first.")});
  Menu("File", "Edit Functions...",
       {Answer("Edit Functions: There is no catalogue. Open one first.")});
}

}  // namespace
}  // namespace zolt20::tests
