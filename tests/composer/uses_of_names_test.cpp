// The uses of all names in all rules, and the names that the catalogue has not.
#include "hosts/composer/uses_of_names.h"

#include <QComboBox>
#include <QLabel>
#include <QTreeWidget>

#include "tests/composer/composer_test.h"

namespace zolt20::tests {
namespace {

class UsesOfNamesTest : public ComposerTest {
 protected:
  void OpenThree() {
    OpenRules({{u"A", u"select CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nendselect", u""},
               {u"B", u"x = round(CUSTOMER.C_ID,0)\r\ny = \"CUSTOMER.C_ID\"", u""},
               {u"C", u"select CUSTOMER.C_NONE,NOWHERE_.X\r\nfrom  CUSTOMER,NOWHERE_\r\nendselect",
                u""}});
    window().resize(1200, 720);
  }
  void Open() {
    QTest::keyClick(&window(), Qt::Key_U, Qt::ControlModifier | Qt::ShiftModifier);
    const QLineEdit& line = *Uses().findChild<QLineEdit*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return line.hasFocus(); }, 2000));
  }
  composer::UsesWindow& Uses() { return *window().findChild<composer::UsesWindow*>(); }
  QTreeWidget& Tree() { return *Uses().findChild<QTreeWidget*>(); }
  std::string Counted() {
    return Std(Uses().findChild<QLabel*>(QStringLiteral("usesTold"))->text());
  }
  Texts NamesShown() {
    Texts names;
    for (int row = 0; row < Tree().topLevelItemCount(); ++row) {
      const QTreeWidgetItem& item = *Tree().topLevelItem(row);
      names.push_back(Std(item.text(0)) + (item.text(1).isEmpty() ? "" : ": " + Std(item.text(1))));
    }
    return names;
  }
  Texts PlacesOf(int name) {
    Texts places;
    const QTreeWidgetItem& item = *Tree().topLevelItem(name);
    for (int row = 0; row < item.childCount(); ++row)
      places.push_back(
          Std(item.child(row)->text(0) + QStringLiteral(": ") + item.child(row)->text(1)));
    return places;
  }
  void Press(QTreeWidgetItem* item) {
    Tree().scrollToItem(item);
    PressOn(*Tree().viewport(), Tree().visualItemRect(item).center());
  }
};

TEST_F(UsesOfNamesTest, EveryNameIsListedWithItsPlaces) {
  OpenThree();
  Open();
  EXPECT_EQ(NamesShown(),
            (Texts{"CUSTOMER (2)", "CUSTOMER.C_ID (3)", "CUSTOMER.C_NONE (1): not in the catalogue",
                   "NOWHERE_ (1): not in the catalogue", "NOWHERE_.X (1): not in the catalogue",
                   "round (1)"}));
  EXPECT_EQ(Counted(), "Names: 6, places: 9");
  EXPECT_EQ(PlacesOf(1),
            (Texts{"A, line 1: select CUSTOMER.C_ID", "B, line 1: x = round(CUSTOMER.C_ID,0)",
                   "B, line 2: y = \"CUSTOMER.C_ID\""}));
}

TEST_F(UsesOfNamesTest, NamesThatTheCatalogueHasNotAreListedAlone) {
  OpenThree();
  Open();
  QTest::keyClick(Uses().findChild<QComboBox*>(), Qt::Key_Down);
  EXPECT_EQ(NamesShown(),
            (Texts{"CUSTOMER.C_NONE (1): not in the catalogue",
                   "NOWHERE_ (1): not in the catalogue", "NOWHERE_.X (1): not in the catalogue"}));
  QTest::keyClicks(Uses().findChild<QLineEdit*>(), QStringLiteral("c_n"));
  EXPECT_EQ(NamesShown(), Texts{"CUSTOMER.C_NONE (1): not in the catalogue"});
  EXPECT_TRUE(Tree().topLevelItem(0)->isExpanded());
}

TEST_F(UsesOfNamesTest, AClickAndEnterLeadToThePlace) {
  OpenThree();
  Open();
  QTest::keyClicks(Uses().findChild<QLineEdit*>(), QStringLiteral("customer.c_id"));
  Press(Tree().topLevelItem(0)->child(2));
  widget_ = &window().map();
  EXPECT_EQ(Heading(), "B");
  const auto& result = Be<QPlainTextEdit>("TxtOutput");
  EXPECT_EQ(Std(result.textCursor().selectedText()), "CUSTOMER.C_ID");
  EXPECT_EQ(result.textCursor().selectionStart(), 32);
  EXPECT_TRUE(Uses().isVisible());
  QTest::keyClick(&Tree(), Qt::Key_Up);
  QTest::keyClick(&Tree(), Qt::Key_Return);
  EXPECT_EQ(Be<QPlainTextEdit>("TxtOutput").textCursor().selectionStart(), 10);
  Press(Tree().topLevelItem(0));
  EXPECT_EQ(Heading(), "B") << "a name leads nowhere";
}

TEST_F(UsesOfNamesTest, WhatIsComposedMeanwhileIsSeenOnTheWayBack) {
  OpenThree();
  ClickRule(1);
  Open();
  EXPECT_EQ(NamesShown().back(), "round (1)");
  window().activateWindow();
  EXPECT_TRUE(QTest::qWaitFor([this] { return window().isActiveWindow(); }, 2000));
  widget_ = &window().map();
  Type("TxtOutput", "z = trunc(1)");
  EXPECT_EQ(Result(), "z = trunc(1)");
  Uses().activateWindow();
  EXPECT_TRUE(QTest::qWaitFor([this] { return Uses().isActiveWindow(); }, 2000));
  EXPECT_EQ(NamesShown().back(), "trunc (1)");
}

}  // namespace
}  // namespace zolt20::tests
