// Rules that meet another catalogue than the one they were composed with: what is told, new names
// in all rules in one step and back, by mouse and keys, and as zolt20-host gives them.
#include <QComboBox>
#include <QLabel>
#include <QProcess>
#include <QStatusBar>
#include <QToolButton>
#include <QTreeWidget>
#include <random>
#include <set>

#include "faces/qt/qt_text.h"
#include "hosts/kit/catalogue.h"
#include "tests/composer/composer_test.h"
#include "tests/composer/traced_disk.h"

namespace zolt20::tests {
namespace {

using catalogue::Catalogue;
using composer::Rule;

const Texts kNewNames{"CUSTOMER.C_LAST=CUSTOMER.C_LASTNAME",
                      "ORDERS__.O_CARRIER_ID=ORDERS__.O_CARRIER",
                      "ORDRLINE.OL_QUANTITY=ORDRLINE.OL_COUNT"};

Catalogue ExampleCatalogue() {
  return catalogue::ReadCatalogue(std::filesystem::path(Examples() + "/catalogue.json"));
}

catalogue::Field& FieldOf(Catalogue& catalogue, StringView table, StringView name) {
  for (catalogue::Table& each : catalogue.tables) {
    if (each.code != table) continue;
    for (catalogue::Field& field : each.fields) {
      if (field.name == name) return field;
    }
  }
  throw std::runtime_error("there is no such field");
}

// Three fields have other names, one has another type, and a table is dropped.
Catalogue OtherCatalogue() {
  Catalogue other = ExampleCatalogue();
  other.name = u"Other";
  FieldOf(other, u"CUSTOMER", u"C_LAST").name = u"C_LASTNAME";
  FieldOf(other, u"ORDERS__", u"O_CARRIER_ID").name = u"O_CARRIER";
  FieldOf(other, u"ORDRLINE", u"OL_QUANTITY").name = u"OL_COUNT";
  FieldOf(other, u"ORDERS__", u"O_OL_CNT").type = u"char";
  std::erase_if(other.tables,
                [](const catalogue::Table& each) { return each.code == u"NEWORDER"; });
  return other;
}

// Rules of select statements, conditions, plain statements and texts over all names of a catalogue.
std::vector<Rule> MadeRules(unsigned count) {
  std::mt19937 random(20);
  const auto below = [&random](std::size_t bound) { return random() % bound; };
  const Catalogue catalogue = ExampleCatalogue();
  std::vector<Rule> rules;
  for (unsigned number = 0; number < count; ++number) {
    const catalogue::Table& table = catalogue.tables[below(catalogue.tables.size())];
    const auto field = [&] {
      return Concat(table.code, u".", table.fields[below(table.fields.size())].name);
    };
    const String first = field();
    String text = Concat(u"select ", first, u",max(", field(), u")\r\nfrom  ", table.code,
                         u"\r\nwhere ", field(), u" =  1\r\n");
    text +=
        Concat(u"order by ", first, u"\r\nselectdo\r\n\tif ", field(), u" > 1 then \r\n\t\t:a = ",
               field(), u" + \"", field(), u"\"\r\n\tendif\r\nendselect");
    rules.push_back({Concat(u"Rule ", Wide(std::to_string(number))), text,
                     Concat(u"long*Q*V*R*N*N", first, u"*Q*V*R*N*")});
  }
  return rules;
}

// A file of rules without what no two runs have alike: times, and names of the catalogue.
std::string Plain(const std::string& bytes) {
  rules::RulesContent content = rules::ReadContent(bytes, "FILE");
  content.catalogue.reset();
  for (rules::RuleExtras& extras : content.extras) {
    extras.stored.clear();
    rules::KeptVersions versions;
    for (rules::Version version : extras.versions.Read()) {
      version.stored.clear();
      versions.Add(rules::KeptVersion(version));
    }
    extras.versions = std::move(versions);
  }
  return rules::WriteContent(content);
}

class ChangedNamesTest : public ComposerTest {
 protected:
  ChangedNamesTest() { Write("other.json", OtherCatalogue()); }

  void Write(const char* name, const Catalogue& catalogue) {
    WriteBytes(In(name), catalogue::WriteCatalogue(catalogue));
  }
  void OpenOther(const char* name = "other.json", std::vector<Steps> more = {}) {
    more.insert(more.begin(), File(In(name), "Open"));
    Menu("File", "Open Catalogue...", std::move(more));
  }
  static Rule Customers() {
    return {u"Customers",
            u"select CUSTOMER.C_LAST\r\nfrom  CUSTOMER\r\nselectdo\r\n"
            u"\t:a = CUSTOMER.C_LAST + \"CUSTOMER.C_LAST\"\r\nendselect",
            u"char*Q*V*R*N*NCUSTOMER.C_LAST*Q*V*R*N*varchar(16)"};
  }
  static Rule Orders() {
    return {u"Orders",
            u"select ORDERS__.O_ID\r\nfrom  ORDERS__\r\nwhere ORDERS__.O_OL_CNT >  5\r\n"
            u"and ORDERS__.O_CARRIER_ID =  1\r\nendselect",
            u"long*Q*V*R*N*NORDERS__.O_ID*Q*V*R*N*numeric(8)"};
  }
  static Rule Fresh() {
    return {u"Fresh", u"select NEWORDER.NO_O_ID\r\nfrom  NEWORDER\r\nendselect", u""};
  }
  void OpenThree() {
    OpenRules({Customers(), Orders(), Fresh()});
    Menu("File", "Save");
  }
  std::string TextOf(StringView name) { return Narrow(window().rules()->Find(name)->text); }

  // The strip.
  QLabel& Strip() { return *window().findChild<QLabel*>(QStringLiteral("changedNamesTold")); }
  std::string StripText() { return Strip().isVisible() ? Std(Strip().text()) : ""; }
  void PressStrip(const char* button, std::vector<Steps> dialogs = {}) {
    With(
        [&] {
          auto& pressed = *window().findChild<QToolButton*>(QLatin1String(button));
          PressOn(pressed, pressed.rect().center());
        },
        std::move(dialogs));
  }

  // The window, within its steps.
  QTreeWidget& Tree() { return *Dialog().findChild<QTreeWidget*>(); }
  std::string Counted() {
    return Std(Dialog().findChild<QLabel*>(QStringLiteral("changedNamesCounted"))->text());
  }
  QComboBox* ComboOf(int name) {
    return qobject_cast<QComboBox*>(Tree().itemWidget(Tree().topLevelItem(name), 2));
  }
  // "NAME|what|new", and below it "+PLACE|line|remark" for a place that is taken, "-" for one that
  // can be, and nothing for one that can't.
  Texts Rows() {
    Texts rows;
    for (int name = 0; name < Tree().topLevelItemCount(); ++name) {
      const QTreeWidgetItem& item = *Tree().topLevelItem(name);
      const QComboBox* combo = ComboOf(name);
      rows.push_back(Std(item.text(0) + u'|' + item.text(1) + u'|' +
                         (combo == nullptr ? QString() : combo->currentText())));
      for (int place = 0; place < item.childCount(); ++place) {
        const QTreeWidgetItem& row = *item.child(place);
        const QVariant state = row.data(0, Qt::CheckStateRole);
        const QString sign = !state.isValid()               ? QString()
                             : state.toInt() == Qt::Checked ? QStringLiteral("+")
                                                            : QStringLiteral("-");
        rows.push_back(Std(sign + row.text(0) + u'|' + row.text(1) + u'|' + row.text(2)));
      }
    }
    return rows;
  }
  void PressBox(int name, int place) {
    QTreeWidgetItem* item = Tree().topLevelItem(name)->child(place);
    Tree().scrollToItem(item);
    const QRect row = Tree().visualItemRect(item);
    PressOn(*Tree().viewport(), {row.left() + 9, row.center().y()});
  }
  void ChooseByKey(int name, Qt::Key key) {
    QComboBox& combo = *ComboOf(name);
    combo.setFocus();
    QTest::keyClick(&combo, key);
    QTest::qWait(10);
  }
};

TEST_F(ChangedNamesTest, AnotherCatalogueIsToldInOneLineThatAsksNothing) {
  OpenThree();
  EXPECT_EQ(StripText(), "");
  OpenOther();
  EXPECT_EQ(StripText(),
            "The catalogue is another one. Names gone or of another type: 4, in rules: 3.");
  EXPECT_EQ(Heading(), "Customers");
  PressStrip("changedNamesLater");
  EXPECT_EQ(StripText(), "");
  Menu("File", "Save");
  EXPECT_EQ(StripText(), "") << "it is put off";
  OpenOther();
  EXPECT_NE(StripText(), "");
  With([&] { window().OpenCatalogue(Qs(Examples() + "/catalogue.json")); }, {});
  EXPECT_EQ(StripText(), "");
}

TEST_F(ChangedNamesTest, TheWindowListsEveryNameWithItsPlaces) {
  OpenThree();
  OpenOther();
  PressStrip("showChangedNames", {[this] {
               EXPECT_EQ(
                   Rows(),
                   (Texts{"CUSTOMER.C_LAST|gone|CUSTOMER.C_LASTNAME",
                          "+Customers, line 1, column 8|select CUSTOMER.C_LAST|",
                          "-Customers, line 4, column 7|:a = CUSTOMER.C_LAST + \"CUSTOMER.C_LAST\"|"
                          "plain statement",
                          "-Customers, line 4, column 26|:a = CUSTOMER.C_LAST + "
                          "\"CUSTOMER.C_LAST\"|quoted text",
                          "ORDERS__.O_OL_CNT|char, was long|",
                          "Orders, line 3, column 7|where ORDERS__.O_OL_CNT > 5|a text beside a "
                          "number",
                          "ORDERS__.O_CARRIER_ID|gone|ORDERS__.O_CARRIER",
                          "+Orders, line 4, column 5|and ORDERS__.O_CARRIER_ID = 1|",
                          "NEWORDER|gone|leave it",
                          "Fresh, line 1, column 8|select "
                          "NEWORDER.NO_O_ID|",
                          "Fresh, line 2, column 7|from NEWORDER|"}));
               EXPECT_EQ(Counted(), "Names: 4, in rules: 3. Places that get a new name: 2.");
               EXPECT_EQ(ComboOf(1), nullptr);
               Choose("Cancel");
             }});
  EXPECT_EQ(TextOf(u"Customers"), Narrow(Customers().text));
  EXPECT_NE(StripText(), "");
}

TEST_F(ChangedNamesTest, PlacesAreTakenByMouseAndByKeysAndAllChangeInOneStep) {
  OpenThree();
  OpenOther();
  const std::string before = Bytes(RulesPath());
  PressStrip("showChangedNames", {[this] {
               PressBox(0, 0);
               PressBox(0, 2);
               Tree().setFocus();
               QTest::keyClick(&Tree(), Qt::Key_Down);
               QTest::keyClick(&Tree(), Qt::Key_Down);
               EXPECT_EQ(Std(Tree().currentItem()->text(0)), "Customers, line 4, column 7");
               QTest::keyClick(&Tree(), Qt::Key_Space);
               EXPECT_EQ(Counted(), "Names: 4, in rules: 3. Places that get a new name: 3.");
               Choose("OK");
             }});
  EXPECT_EQ(TextOf(u"Customers"),
            "select CUSTOMER.C_LAST\r\nfrom  CUSTOMER\r\nselectdo\r\n"
            "\t:a = CUSTOMER.C_LASTNAME + \"CUSTOMER.C_LASTNAME\"\r\nendselect");
  EXPECT_EQ(TextOf(u"Orders"),
            "select ORDERS__.O_ID\r\nfrom  ORDERS__\r\nwhere ORDERS__.O_OL_CNT >  5\r\n"
            "and ORDERS__.O_CARRIER =  1\r\nendselect");
  EXPECT_EQ(window().rules()->VersionsOf(u"Customers").size(), 1U);
  EXPECT_EQ(window().rules()->VersionsOf(u"Fresh").size(), 0U);
  EXPECT_EQ(StripText(), "") << "what was left is decided";
  EXPECT_FALSE(window().rules()->IsChanged());
  Menu("File", "Take Back New Names");
  EXPECT_TRUE(Bytes(RulesPath()) == before);
  EXPECT_NE(StripText(), "") << "it is open again";
  EXPECT_FALSE(ActionOf(*ActionOf(*window().menuBar(), QStringLiteral("File")).menu(),
                        QStringLiteral("Take Back New Names"))
                   .isEnabled());
}

TEST_F(ChangedNamesTest, AnotherNewNameIsPickedByKeys) {
  OpenThree();
  OpenOther();
  PressStrip("showChangedNames", {[this] {
               ChooseByKey(0, Qt::Key_Down);
               EXPECT_EQ(Std(ComboOf(0)->currentText()), "leave it");
               EXPECT_TRUE(ComboOf(0)->hasFocus());
               EXPECT_EQ(Counted(), "Names: 4, in rules: 3. Places that get a new name: 1.");
               ChooseByKey(0, Qt::Key_Down);
               EXPECT_EQ(Std(ComboOf(0)->currentText()), "CUSTOMER.C_ID");
               ChooseByKey(3, Qt::Key_Down);
               EXPECT_EQ(Std(ComboOf(3)->currentText()), "WAREHOUS");
               EXPECT_EQ(Rows().back(), "+Fresh, line 1, column 8|select NEWORDER.NO_O_ID|");
               Choose("OK");
             }});
  EXPECT_EQ(TextOf(u"Fresh"), "select WAREHOUS.W_ID\r\nfrom  WAREHOUS\r\nendselect");
  EXPECT_EQ(TextOf(u"Customers").substr(0, 22), "select CUSTOMER.C_ID\r\n");
}

TEST_F(ChangedNamesTest, NamesThatBecomeOneAreAskedFor) {
  OpenRules({{u"A", u"if CUSTOMER.C_ID = CUSTOMER.C_LAST then \r\nendif", u""}});
  OpenOther();
  const auto merge = [this](const char* answer) {
    return Answer(
        "Changed Names: Two names would become CUSTOMER.C_ID, and could not be told apart again.",
        answer);
  };
  PressStrip("showChangedNames", {[this, merge] {
               ChooseByKey(0, Qt::Key_Down);
               ChooseByKey(0, Qt::Key_Down);
               With([this] { Choose("OK"); }, {merge("Go On")});
               EXPECT_TRUE(Dialog().isVisible());
               With([this] { Choose("OK"); }, {merge("Change All the Same")});
             }});
  EXPECT_EQ(TextOf(u"A"), "if CUSTOMER.C_ID = CUSTOMER.C_ID then \r\nendif");
}

TEST_F(ChangedNamesTest, WhatIsLeftAsItIsIsToldNoMore) {
  OpenThree();
  OpenOther();
  PressStrip("showChangedNames", {[this] { Choose("Leave All As It Is"); }});
  EXPECT_EQ(StripText(), "");
  EXPECT_EQ(TextOf(u"Customers"), Narrow(Customers().text));
  OpenAgain();
  With([&] { window().OpenCatalogue(In("other.json")); }, {});
  EXPECT_EQ(StripText(), "");
  Menu("File", "Changed Names...", {[this] {
         EXPECT_EQ(Rows().at(0), "CUSTOMER.C_LAST|not in the catalogue|leave it");
         Choose("Cancel");
       }});
}

TEST_F(ChangedNamesTest, TheFileKnowsWhatItWasComposedWith) {
  OpenThree();
  CloseWindow();
  window_ = std::make_unique<composer::MainWindow>();
  EXPECT_TRUE(window().OpenCatalogue(In("other.json")));
  EXPECT_TRUE(window().OpenRules(RulesPath()));
  ShowWindow(window());
  EXPECT_NE(StripText(), "");
  widget_ = &window().map();
  // What is done meanwhile settles nothing but what it concerns.
  Menu("Rule", "Delete");
  const std::string told =
      "The catalogue is another one. Names gone or of another type: 3, in rules: 2.";
  EXPECT_EQ(StripText(), told);
  EXPECT_TRUE(window().OpenRules(RulesPath()));
  EXPECT_EQ(StripText(), told);
}

TEST_F(ChangedNamesTest, RulesOfNoKnownCatalogueAreNotSpokenOf) {
  OpenRules({{u"A", u"select NOWHERE_.X\r\nfrom  NOWHERE_\r\nendselect", u""}});
  EXPECT_EQ(StripText(), "");
  Menu("File", "Changed Names...", {[this] {
         EXPECT_EQ(Rows().at(0), "NOWHERE_|not in the catalogue|leave it");
         Choose("Cancel");
       }});
}

TEST_F(ChangedNamesTest, WhereNothingIsOthersTheWindowSaysSo) {
  OpenThree();
  Menu("File", "Changed Names...", {[this] {
         EXPECT_EQ(Counted(), "All names of the rules are in the catalogue.");
         EXPECT_TRUE(Rows().empty());
         Choose("Cancel");
       }});
}

TEST_F(ChangedNamesTest, ARuleThatIsAnotherOneSinceIsNotTakenBack) {
  OpenThree();
  OpenOther();
  PressStrip("showChangedNames", {[this] { Choose("OK"); }});
  ClickRule(1);
  Menu("Rule", "Versions...", {[this] {
         Dialog().findChild<QListWidget*>()->setCurrentRow(1);
         Choose("Bring Back");
       }});
  Menu("File", "Take Back New Names");
  EXPECT_EQ(TextOf(u"Customers"), Narrow(Customers().text));
  EXPECT_EQ(TextOf(u"Orders"), Narrow(Orders().text));
  EXPECT_EQ(window().rules()->VersionsOf(u"Orders").size(), 2U);
  EXPECT_EQ(Std(window().statusBar()->currentMessage()),
            "The new names are taken back, but for rules that are others since: 1");
}

TEST_F(ChangedNamesTest, WhatIsComposedIsAskedForFirst) {
  OpenThree();
  OpenOther();
  Type("TxtOutput", "fresh = 1");
  PressStrip("showChangedNames", {[this] { Choose("Cancel"); }});
  EXPECT_EQ(Result(), "fresh = 1");
  PressStrip("showChangedNames", {[this] { Choose("Discard"); }, [this] { Choose("Cancel"); }});
  EXPECT_EQ(Result(), "fresh = 1") << "nothing is given up yet";
  PressStrip("showChangedNames", {[this] { Choose("Discard"); }, [this] { Choose("OK"); }});
  EXPECT_EQ(Result(), "");
  EXPECT_EQ(TextOf(u"Customers").substr(0, 26), "select CUSTOMER.C_LASTNAME");
}

TEST_F(ChangedNamesTest, WhatTheFileDoesNotTakeIsNotDone) {
  OpenThree();
  OpenOther();
  const std::string before = Bytes(RulesPath());
  const FullDisk full(10);
  PressStrip("showChangedNames", {[this] { Choose("OK"); },
                                  [this] {
                                    EXPECT_EQ(Told().substr(0, 6), "Save: ");
                                    Choose("OK");
                                  }});
  EXPECT_TRUE(Bytes(RulesPath()) == before);
  EXPECT_EQ(TextOf(u"Customers"), Narrow(Customers().text));
  EXPECT_FALSE(window().rules()->IsChanged());
  EXPECT_NE(StripText(), "");
}

TEST_F(ChangedNamesTest, ACrashLeavesAllOrNothing) {
  OpenThree();
  OpenOther();
  const std::string before = Bytes(RulesPath());
  std::vector<DiskStep> steps;
  {
    const TracedDisk traced(folder_.path().toStdString());
    PressStrip("showChangedNames", {[this] { Choose("OK"); }});
    steps = TracedDisk::Steps();
  }
  const std::string after = Bytes(RulesPath());
  ASSERT_NE(after, before);
  // The file of before, which no step has written.
  std::set<std::string> found;
  for (std::size_t count = 0; count <= steps.size(); ++count) {
    for (const FolderState& state : CrashStates(steps, count)) {
      const auto file = state.find("orders.rules");
      found.insert(file == state.end() ? before : file->second);
    }
  }
  EXPECT_EQ(found, (std::set<std::string>{before, after}));
}

// --- Many rules

class ManyRulesTest : public ChangedNamesTest {
 protected:
  void BringInOrder(const QString& path) {
    QFile::remove(In("hosts.rules"));
    EXPECT_TRUE(QFile::copy(path, In("hosts.rules")));
    OpenOther();
    ASSERT_NE(StripText(), "");
    PressStrip("showChangedNames", {[this] {
                 Texts names;
                 for (int name = 0; name < Tree().topLevelItemCount(); ++name)
                   names.push_back(Std(Tree().topLevelItem(name)->text(0)));
                 std::sort(names.begin(), names.end());
                 EXPECT_EQ(names, (Texts{"CUSTOMER.C_LAST", "NEWORDER", "ORDERS__.O_CARRIER_ID",
                                         "ORDERS__.O_OL_CNT", "ORDRLINE.OL_QUANTITY"}));
                 Choose("OK");
               }});
  }
  void RunHost() {
    QStringList words{QStringLiteral("--rename")};
    for (const std::string& name : kNewNames)
      words.append(Qs(name));
    words.append(In("hosts.rules"));
    QProcess host;
    host.start(Qs(HostProgram()), words);
    EXPECT_TRUE(host.waitForFinished());
    EXPECT_EQ(host.exitCode(), 0) << host.readAllStandardError().toStdString();
  }
};

TEST_F(ManyRulesTest, TheSampleRulesAreBroughtInOrderAndBack) {
  ASSERT_TRUE(QFile::copy(Qs(Examples() + "/rules.json"), RulesPath()));
  QFile::setPermissions(RulesPath(), QFile::ReadOwner | QFile::WriteOwner);
  ASSERT_TRUE(window().OpenRules(RulesPath()));
  Menu("File", "Save");
  const std::string before = Bytes(RulesPath());
  BringInOrder(RulesPath());
  RunHost();
  EXPECT_TRUE(Plain(Bytes(RulesPath())) == Plain(Bytes(In("hosts.rules"))));
  EXPECT_TRUE(Plain(Bytes(RulesPath())) != Plain(before));
  Menu("File", "Take Back New Names");
  EXPECT_TRUE(Bytes(RulesPath()) == before);
}

TEST_F(ManyRulesTest, FiveHundredRulesAreBroughtInOrderInOneStepAndBack) {
  OpenRules(MadeRules(500));
  Menu("File", "Save");
  const std::string before = Bytes(RulesPath());
  BringInOrder(RulesPath());
  RunHost();
  EXPECT_TRUE(Plain(Bytes(RulesPath())) == Plain(Bytes(In("hosts.rules"))));
  std::size_t changed = 0;
  for (const Rule& rule : window().rules()->rules())
    changed += window().rules()->VersionsOf(rule.name).size();
  EXPECT_GT(changed, 30U);
  // With the new names nothing is left but what no catalogue has any more.
  Menu("File", "Changed Names...", {[this] {
         ASSERT_EQ(Tree().topLevelItemCount(), 4);
         EXPECT_EQ(Std(Tree().topLevelItem(0)->text(1)), "not in the catalogue");
         Choose("Cancel");
       }});
  Menu("File", "Take Back New Names");
  EXPECT_TRUE(Bytes(RulesPath()) == before);
}

}  // namespace
}  // namespace zolt20::tests
