// Accessibility: roles and accessible names by QAccessible, and the mnemonics (letters with Alt).
#include <QAccessible>
#include <QKeySequence>
#include <QSignalSpy>
#include <set>

#include "tests/qt/widget_test.h"

namespace zolt20::tests {
namespace {

using Found = std::pair<QAccessible::Role, std::string>;

QAccessible::Role RoleOf(const Control& control) {
  switch (control.kind()) {
    case Kind::TabStrip:
      return QAccessible::PageTabList;
    case Kind::SyntaxTextBox:
    case Kind::TextBox:
      return QAccessible::EditableText;
    case Kind::ListBox:
      return QAccessible::List;
    case Kind::ComboBox:
      return QAccessible::ComboBox;
    case Kind::Button:
      return QAccessible::PushButton;
    case Kind::OptionButton:
      return QAccessible::RadioButton;
    case Kind::Frame:
      return QAccessible::Grouping;
    case Kind::Label:
      return QAccessible::StaticText;
    case Kind::Rectangle:
      return QAccessible::Grouping;
    case Kind::ScrollBar:
      return QAccessible::ScrollBar;
  }
  return QAccessible::NoRole;
}

class NamesTest : public WidgetTest {
 protected:
  // All that is there for a screen reader below the widget, by role and name.
  std::multiset<Found> Tree() {
    std::multiset<Found> found;
    Collect(QAccessible::queryAccessibleInterface(&widget()), found);
    return found;
  }
  QAccessibleInterface* Of(std::string_view control) {
    return QAccessible::queryAccessibleInterface(&On(control));
  }
  static std::string NameOf(QAccessibleInterface* interface) {
    return Std(interface->text(QAccessible::Name));
  }
  // The buttons and options that are shown.
  std::vector<QAbstractButton*> Buttons() {
    std::vector<QAbstractButton*> buttons;
    for (const Control* control : form().Controls()) {
      if (!control->Shown()) continue;
      if (auto* button = qobject_cast<QAbstractButton*>(&On(control->name())))
        buttons.push_back(button);
    }
    return buttons;
  }
  // Every view of the form: each page, and the last with each kind of condition.
  void InEachView(const std::function<void()>& look) {
    const auto at = [&](int page, const std::string& option) {
      SCOPED_TRACE("page " + std::to_string(page) + " " + option);
      MakeNew();
      Tab(page);
      if (!option.empty()) Click(option);
      if (option == "optCase") {
        for (int row = 1; row < 4; ++row)
          Click("cmdNext");
      }
      look();
    };
    for (int page = 0; page < 7; ++page)
      at(page, "");
    for (const char* option : {"optIfThen", "optwhile", "optRepeat", "optFor", "optCase"})
      at(6, option);
  }

 private:
  static void Collect(QAccessibleInterface* interface, std::multiset<Found>& found) {
    if (interface == nullptr || interface->state().invisible) return;
    found.emplace(interface->role(), NameOf(interface));
    for (int i = 0; i < interface->childCount(); ++i)
      Collect(interface->child(i), found);
  }
};

TEST_F(NamesTest, EveryControlThatIsShownIsFoundByItsRoleAndName) {
  InEachView([&] {
    const std::multiset<Found> tree = Tree();
    for (const Control* control : form().Controls()) {
      if (!control->Shown()) continue;
      const std::string name = NameOf(Of(control->name()));
      EXPECT_NE(name, "") << control->name();
      EXPECT_EQ(tree.count({RoleOf(*control), name}), 1U) << control->name() << ": " << name;
    }
  });
}

TEST_F(NamesTest, WhatIsHiddenIsToldNobody) {
  Tab(6);
  Click("optIfThen");
  const std::multiset<Found> tree = Tree();
  EXPECT_EQ(tree.count({QAccessible::EditableText, "If condition"}), 1U);
  EXPECT_EQ(tree.count({QAccessible::EditableText, "For variable"}), 0U);
  EXPECT_EQ(tree.count({QAccessible::List, "Tables"}), 0U);
  EXPECT_EQ(tree.count({QAccessible::PushButton, "Next"}), 0U);
}

// Qt names a tab strip by the caption of its page, blanks included; rows are as they are.
TEST_F(NamesTest, NamesHaveNoBlanksOrCommasAtTheirEnds) {
  InEachView([&] {
    for (const auto& [role, name] : Tree()) {
      if (role == QAccessible::PageTabList || role == QAccessible::PageTab ||
          role == QAccessible::ListItem)
        continue;
      EXPECT_EQ(name, Std(Qs(name).trimmed()));
      EXPECT_FALSE(name.starts_with(',') || name.ends_with(',')) << name;
    }
  });
}

TEST_F(NamesTest, PagesAreTabsByTheirCaptions) {
  QAccessibleInterface* strip = Of("tabVrn");
  std::vector<std::string> tabs;
  for (int i = 0; i < strip->childCount(); ++i) {
    if (strip->child(i)->role() == QAccessible::PageTab) tabs.push_back(NameOf(strip->child(i)));
  }
  EXPECT_EQ(tabs, (Texts{" Select List ", "Where", "SelectDo", "SelectEOS", "SelectEmpty",
                         "SelectError", "Condition"}));
}

TEST_F(NamesTest, RowsOfAListTellTheirTextAndWhetherTheyAreMarked) {
  Catalogue();
  Click("lsttables", 1);
  QAccessibleInterface* list = Of("lsttables");
  ASSERT_EQ(list->childCount(), 2);
  EXPECT_EQ(list->child(0)->role(), QAccessible::ListItem);
  EXPECT_EQ(NameOf(list->child(1)), "TABLE__2");
  EXPECT_FALSE(list->child(0)->state().selected);
  EXPECT_TRUE(list->child(1)->state().selected);
  EXPECT_FALSE(list->child(1)->state().checkable);
}

TEST_F(NamesTest, RowsOfACheckBoxListTellWhetherTheyAreChecked) {
  Catalogue();
  Click("lsttables", 0);
  Tab(1);
  Click("lstorderbydesc", 1);
  QAccessibleInterface* list = Of("lstorderbydesc");
  ASSERT_EQ(list->childCount(), 2);
  EXPECT_EQ(NameOf(list->child(1)), "TABLE__1._index2");
  EXPECT_TRUE(list->child(0)->state().checkable);
  EXPECT_FALSE(list->child(0)->state().checked);
  EXPECT_TRUE(list->child(1)->state().checkable);
  EXPECT_TRUE(list->child(1)->state().checked);
}

TEST_F(NamesTest, OptionsAndButtonsTellTheirState) {
  Tab(6);
  EXPECT_FALSE(Of("optFor")->state().checked);
  Click("optFor");
  EXPECT_TRUE(Of("optFor")->state().checked);
  EXPECT_FALSE(Of("optCase")->state().checked);
  EXPECT_TRUE(Of("cmdBuild")->state().disabled);
  EXPECT_FALSE(Of("cmdAdd")->state().disabled);
}

TEST_F(NamesTest, ATextIsReadByItsBox) {
  Type("TxtOutput", "a\r\nb");
  EXPECT_EQ(Of("TxtOutput")->text(QAccessible::Value), QStringLiteral("a\nb"));
  ASSERT_NE(Of("TxtOutput")->textInterface(), nullptr);
  EXPECT_TRUE(Of("TxtOutput")->state().focused);
}

TEST_F(NamesTest, CaptionsAreThoseOfTheFormButForTheMark) {
  InEachView([&] {
    for (QAbstractButton* button : Buttons()) {
      const auto& control =
          static_cast<const CaptionedControl&>(ControlOf(Std(button->objectName())));
      EXPECT_EQ(Std(WithoutMnemonic(button->text())), Narrow(control.Caption()));
    }
  });
}

TEST_F(NamesTest, NoTwoButtonsOfAPageShareALetter) {
  InEachView([&] {
    std::map<std::string, std::string> letters;
    for (const QAbstractButton* button : Buttons()) {
      const std::string letter = Std(QKeySequence::mnemonic(button->text()).toString());
      const std::string caption = Std(WithoutMnemonic(button->text()));
      // An arrow has no letter.
      EXPECT_EQ(letter.empty(), caption.find_first_not_of("<>") == std::string::npos) << caption;
      if (letter.empty()) continue;
      EXPECT_TRUE(letters.emplace(letter, caption).second)
          << letter << ": " << caption << ", " << letters[letter];
    }
    EXPECT_EQ(letters["Alt+D"], "Done");
  });
}

// A button that is pressed by its letter is seen to go down before it is clicked.
TEST_F(NamesTest, AltAndItsLetterClicksAButton) {
  std::set<QString> clickedBefore;
  InEachView([&] {
    for (const QAbstractButton* button : Buttons()) {
      const QString name = button->objectName();
      const QKeySequence keys = QKeySequence::mnemonic(button->text());
      // Going through them may have hidden or disabled one of those that follow.
      if (keys.isEmpty() || !button->isVisible() || !button->isEnabled()) continue;
      if (!clickedBefore.insert(name).second) continue;
      QSignalSpy clicked(button, &QAbstractButton::clicked);
      QTest::keySequence(Window(), keys);
      EXPECT_TRUE(clicked.wait(1000)) << Std(name);
      EXPECT_EQ(clicked.count(), 1) << Std(name);
      EXPECT_EQ(Difference(), "") << Std(name);
    }
  });
  for (const char* name : {"cmdDone", "cmdAddSelect", "cmdAnd", "CmdOr", "cmdCancelWhere",
                           "cmdSubQuery(3)", "optCase", "cmdAdd", "cmdNext"}) {
    EXPECT_EQ(clickedBefore.count(Qs(name)), 1U) << name;
  }
}

TEST_F(NamesTest, ALetterOfADisabledButtonDoesNothing) {
  Tab(6);
  QSignalSpy clicked(&Be<QPushButton>("cmdBuild"), &QAbstractButton::clicked);
  const QKeySequence keys = QKeySequence::mnemonic(Be<QPushButton>("cmdBuild").text());
  ASSERT_FALSE(keys.isEmpty());
  QTest::keySequence(Window(), keys);
  EXPECT_FALSE(clicked.wait(300));
  EXPECT_EQ(Focused(), "tabVrn");
}

TEST_F(NamesTest, ALetterMovesTheFocusToItsButton) {
  QSignalSpy clicked(&Be<QPushButton>("cmdCancel"), &QAbstractButton::clicked);
  QTest::keySequence(Window(), QKeySequence::mnemonic(Be<QPushButton>("cmdCancel").text()));
  EXPECT_TRUE(clicked.wait(1000));
  EXPECT_EQ(Log(), (Texts{"eventCancel"}));
  EXPECT_EQ(Focused(), "cmdCancel");
  EXPECT_EQ(KeyboardFocus(), "cmdCancel");
}

TEST_F(NamesTest, TheNameOfACaseRowHasItsNumber) {
  Tab(6);
  Click("optCase");
  Click("cmdNext");
  EXPECT_EQ(NameOf(Of("TxtExpr(0)")), "Case value 1");
  EXPECT_EQ(NameOf(Of("TxtExpr(1)")), "Case value 2");
  EXPECT_EQ(NameOf(Of("txtStmt(1)")), "Case statements 2");
}

}  // namespace
}  // namespace zolt20::tests
