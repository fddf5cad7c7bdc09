// The text of a rule beside the control, its versions and note, and the deleted rules.
#include <QComboBox>
#include <QContextMenuEvent>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextLayout>

#include "hosts/composer/rule_pane.h"
#include "tests/composer/composer_test.h"

namespace zolt20::tests {
namespace {

constexpr int kCustomer = 2;
constexpr int kDoPage = 2;

constexpr const char* kCustomers = "select CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nendselect";
constexpr const char* kTilde = "x = 1\r\ny = \"~\"";

class RulePaneTest : public ComposerTest {
 protected:
  /// The text of the pane that is shown; of two the one in place of the control.
  QPlainTextEdit& View(QWidget& within) {
    QPlainTextEdit* shown = nullptr;
    for (auto* view : within.findChildren<QPlainTextEdit*>(QStringLiteral("ruleText"))) {
      if (view->isVisible() && (shown == nullptr || view->width() > shown->width())) shown = view;
    }
    if (shown == nullptr) throw std::runtime_error("no text is shown");
    return *shown;
  }
  std::string Shown() {
    Rest();
    return Std(View(window()).toPlainText());
  }
  std::string ToldAbove() {
    std::string told;
    for (auto* label : window().findChildren<QLabel*>(QStringLiteral("ruleTold"))) {
      if (label->isVisible()) told += Std(label->text());
    }
    return told;
  }
  void OpenTilde() { OpenRules({{u"Tilde", Wide(kTilde), u""}, {u"A", Wide(kCustomers), u""}}); }
  Steps InVersions(const std::function<void()>& act) {
    return [this, act] {
      EXPECT_EQ(Told(), "Versions of A");
      act();
    };
  }
  QListWidget& List(const char* name) {
    return *Dialog().findChild<QListWidget*>(QString::fromUtf8(name));
  }
  static void FocusOn(QWidget& widget) {
    widget.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(widget.window()));
    widget.setFocus();
  }
  std::function<void()> RightClickIn(QPlainTextEdit& view) {
    return [&view] {
      const QPoint at = view.viewport()->rect().center();
      QTest::mouseClick(view.window()->windowHandle(), Qt::RightButton, {},
                        view.viewport()->mapTo(view.window(), at));
    };
  }
  /// The keys for the menu, while the text has the focus: that of its own is told by the system.
  std::function<void()> MenuKeyIn(QPlainTextEdit& view) {
    return [&view] {
      FocusOn(view);
      QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, {}, Qt::NoModifier);
      QCoreApplication::sendEvent(view.window()->windowHandle(), &asked);
    };
  }
  std::function<void()> ShiftF10In(QPlainTextEdit& view) {
    return [&view] {
      FocusOn(view);
      QTest::keyClick(view.window()->windowHandle(), Qt::Key_F10, Qt::ShiftModifier);
    };
  }
  /// The line that finds in a window, once it has the focus there.
  static QLineEdit& FindLine(QWidget& within) {
    auto& line = *within.findChild<QLineEdit*>(QStringLiteral("find"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return within.focusWidget() == &line; }, 2000));
    return line;
  }
  static std::string Clipboard() { return Std(QApplication::clipboard()->text()); }
  /// Composes what would come into rule A.
  void ComposeMore() {
    Tab(kDoPage);
    Type("txtSelectDo", "total");
    Tab(0);
  }
  void ClickRow(QListWidget& list, int row) {
    PressOn(*list.viewport(), list.visualItemRect(list.item(row)).center());
  }
};

TEST_F(RulePaneTest, TheStoredTextCanBeReadWhileTheResultIsEmpty) {
  OpenRules({{u"A", Wide(kCustomers), u""}});
  EXPECT_EQ(Result(), "");
  EXPECT_EQ(Shown(), "select CUSTOMER.C_ID\nfrom  CUSTOMER\nendselect");
  EXPECT_TRUE(View(window()).isReadOnly());
  EXPECT_EQ(View(window()).document()->firstBlock().layout()->formats().isEmpty(), false)
      << "words have colours";
  Menu("Rule", "New");
  EXPECT_EQ(Shown(), "");
}

TEST_F(RulePaneTest, WhatWouldBeAddedIsMarkedBeforeItIsAdded) {
  OpenRules({{u"A", Wide(kCustomers), u""}});
  Tab(kDoPage);
  Type("txtSelectDo", "total");
  const char* const marked =
      "  select CUSTOMER.C_ID\n  from  CUSTOMER\n+ selectdo\n+ \ttotal\n  endselect";
  EXPECT_EQ(Shown(), marked);
  EXPECT_EQ(Result(), "");
  Tab(0);
  Click("cmdAddSelect");
  EXPECT_EQ(Shown(), marked) << "it is not stored yet";
  Click("cmdDone");
  EXPECT_EQ(Shown(), "select CUSTOMER.C_ID\nfrom  CUSTOMER\nselectdo\n\ttotal\nendselect");
}

TEST_F(RulePaneTest, WhatWouldGoIsMarkedToo) {
  OpenRules({{u"A", u"x = 1\r\ny = 2", u""}});
  Type("TxtOutput", "x = 1");
  EXPECT_EQ(Shown(), "  x = 1\n- y = 2");
}

// --- A rule that can't be taken back

TEST_F(RulePaneTest, ARuleThatCannotBeTakenBackIsReadInPlaceOfTheControl) {
  OpenTilde();
  EXPECT_EQ(Heading(), "Tilde");
  EXPECT_FALSE(window().map().isVisible());
  EXPECT_EQ(Shown(), "x = 1\ny = \"~\"");
  EXPECT_EQ(Std(View(window()).textCursor().selectedText()), "~");
  EXPECT_EQ(ToldAbove(),
            "The control can't take this rule back: it holds ~ at line 2, column 6. The rule can "
            "be read, copied, renamed, duplicated and deleted.");
  ClickRule(1);
  EXPECT_TRUE(window().map().isVisible());
  EXPECT_EQ(Shown(), "select CUSTOMER.C_ID\nfrom  CUSTOMER\nendselect");
}

TEST_F(RulePaneTest, ARuleThatCannotBeTakenBackIsCopiedRenamedDuplicatedAndDeleted) {
  OpenTilde();
  Menu("Rule", "Copy Text");
  EXPECT_EQ(Std(QApplication::clipboard()->text()), kTilde);
  Menu("Rule", "Rename...", {Named("T")});
  Menu("Rule", "Duplicate");
  EXPECT_EQ(Listed(), (Texts{"T", "T (2)*", "A"}));
  Menu("Rule", "Delete");
  EXPECT_EQ(Stored(), (Texts{std::string("T: ") + kTilde, std::string("A: ") + kCustomers}));
}

// --- Versions

TEST_F(RulePaneTest, AnEarlierVersionIsComparedAndBroughtBack) {
  OpenRules({{u"A", Wide(kCustomers), u""}});
  Tab(kDoPage);
  Type("txtSelectDo", "total");
  Tab(0);
  Click("cmdAddSelect");
  Click("cmdDone");
  Menu("Rule", "Versions...", {InVersions([this] {
         EXPECT_EQ(List("versions").count(), 2);
         EXPECT_EQ(Std(View(Dialog()).toPlainText()),
                   "  select CUSTOMER.C_ID\n  from  CUSTOMER\n+ selectdo\n+ \ttotal\n"
                   "  endselect");
         QTest::keyClick(&Dialog(), Qt::Key_Return);  // brings nothing back
       })});
  EXPECT_NE(Shown().find("total"), std::string::npos);
  Menu("Rule", "Versions...", {InVersions([this] {
         ClickRow(List("versions"), 1);
         EXPECT_EQ(Std(View(Dialog()).toPlainText()),
                   "select CUSTOMER.C_ID\nfrom  CUSTOMER\nendselect");
         Choose("Bring Back");
       })});
  EXPECT_EQ(Shown(), "select CUSTOMER.C_ID\nfrom  CUSTOMER\nendselect");
  EXPECT_EQ(Text("txtSelectDo"), "");
  EXPECT_FALSE(window().map().IsChanged());
  EXPECT_EQ(window().rules()->VersionsOf(u"A").size(), 2U) << "the other one is a version now";
  EXPECT_EQ(Stored(), Texts{std::string("A: ") + kCustomers});
}

TEST_F(RulePaneTest, BringingBackAsksForWhatIsNotStored) {
  OpenRules({{u"A", u"x = 1", u""}});
  Type("TxtOutput", "x = 2");
  Click("cmdDone");
  Type("TxtOutput", "x = 3");
  const auto bringBack = InVersions([this] {
    ClickRow(List("versions"), 1);
    Choose("Bring Back");
  });
  const char* const told = "Rule: What was composed for \"A\" is not stored.";
  Menu("Rule", "Versions...", {bringBack, Answer(told, "Cancel")});
  EXPECT_EQ(Result(), "x = 3");
  Menu("Rule", "Versions...", {bringBack, Answer(told, "Discard")});
  EXPECT_EQ(Result(), "x = 1");
}

TEST_F(RulePaneTest, ANoteIsKeptAndShown) {
  OpenRules({{u"A", u"x = 1", u""}, {u"B", u"y = 1", u""}});
  Menu("Rule", "Note...", {[this] {
         auto& text = *Dialog().findChild<QPlainTextEdit*>();
         PressOn(*text.viewport(), text.viewport()->rect().center());
         QTest::keyClicks(&text, QStringLiteral("for the morning"));
         Choose("OK");
       }});
  EXPECT_EQ(ToldAbove(), "for the morning");
  ClickRule(1);
  EXPECT_EQ(ToldAbove(), "");
  OpenAgain();
  EXPECT_EQ(ToldAbove(), "for the morning");
}

// --- The menu

TEST_F(RulePaneTest, TheMenuOpensByTheMouseTheMenuKeyAndShiftF10) {
  OpenRules({{u"A", Wide(kCustomers), u""}});
  const Texts all{"-Copy", "Copy All", "Select All", "Find...", "Print...", "Save As Text..."};
  QPlainTextEdit& view = View(window());
  EXPECT_EQ(OfferedBy(RightClickIn(view)), all);
  EXPECT_EQ(OfferedBy(MenuKeyIn(view)), all);
  EXPECT_EQ(OfferedBy(ShiftF10In(view)), all);
  view.selectAll();
  EXPECT_EQ(OfferedBy(ShiftF10In(view)).front(), "Copy");
  Menu("Rule", "New");
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(OfferedBy(RightClickIn(view)), (Texts{"-Copy", "-Copy All", "-Select All", "Find...",
                                                  "-Print...", "-Save As Text..."}));
}

TEST_F(RulePaneTest, TheMenuCopiesWhatIsMarkedAndTheTextWithoutItsMarks) {
  OpenRules({{u"A", Wide(kCustomers), u""}});
  ComposeMore();
  Shown();
  QPlainTextEdit& view = View(window());
  Pick("Copy All", RightClickIn(view));
  EXPECT_EQ(Clipboard(),
            "select CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nselectdo\r\n\ttotal\r\nendselect");
  Pick("Select All", ShiftF10In(view));
  Pick("Copy", ShiftF10In(view));
  EXPECT_EQ(Clipboard(),
            "  select CUSTOMER.C_ID\n  from  CUSTOMER\n+ selectdo\n+ \ttotal\n  endselect");
}

TEST_F(RulePaneTest, TheMenuFindsInTheText) {
  OpenRules({{u"A", Wide(kCustomers), u""}});
  QPlainTextEdit& view = View(window());
  Pick("Find...", ShiftF10In(view));
  QTest::keyClicks(&FindLine(window()), QStringLiteral("endsel"));
  EXPECT_EQ(Std(view.textCursor().selectedText()), "endsel");
}

TEST_F(RulePaneTest, TheMenuPrintsAndSavesTheText) {
  OpenRules({{u"A", Wide(kCustomers), u""}});
  QPlainTextEdit& view = View(window());
  Pick("Save As Text...", RightClickIn(view), {File(In("a.txt"), "Save")});
  EXPECT_EQ(Bytes(In("a.txt")), kCustomers);
  Pick("Print...", RightClickIn(view), {[this] {
         auto* file = Dialog().findChild<QLineEdit*>(QStringLiteral("filename"));
         ASSERT_NE(file, nullptr) << Told();
         file->setText(In("a.pdf"));
         Choose("Print");
       }});
  EXPECT_EQ(Bytes(In("a.pdf")).substr(0, 4), "%PDF");
}

TEST_F(RulePaneTest, AVersionIsCopiedAndSearchedInItsWindow) {
  OpenRules({{u"A", Wide(kCustomers), u""}});
  Menu("Rule", "Versions...", {InVersions([this] {
         QPlainTextEdit& view = View(Dialog());
         QTest::keyClick(Dialog().windowHandle(), Qt::Key_F, Qt::ControlModifier);
         QLineEdit& line = FindLine(Dialog());
         QTest::keyClicks(&line, QStringLiteral("customer"));
         EXPECT_EQ(view.textCursor().selectionStart(), 7);
         QTest::keyClick(&line, Qt::Key_Return);
         EXPECT_EQ(view.textCursor().blockNumber(), 1);
         QTest::keyClick(&line, Qt::Key_Escape);
         EXPECT_TRUE(view.hasFocus());
         QTest::keyClick(Dialog().windowHandle(), Qt::Key_F3);
         EXPECT_EQ(view.textCursor().selectionStart(), 7);
         Choose("Close");
       })});
}

// --- Deleted rules

TEST_F(RulePaneTest, ADeletedRuleIsBroughtBack) {
  OpenRules({{u"A", u"x = 1", u""}, {u"B", u"y = 1", u""}});
  Menu("Rule", "Delete");
  Menu("Rule", "Deleted Rules...", {[this] {
         EXPECT_EQ(Std(List("deleted").item(0)->text().section(u'\n', 0, 0)), "A");
         EXPECT_EQ(Std(View(Dialog()).toPlainText()), "x = 1");
         Choose("Bring Back");
         EXPECT_EQ(List("deleted").count(), 0);
         Choose("Close");
       }});
  EXPECT_EQ(Heading(), "A");
  EXPECT_EQ(Stored(), (Texts{"B: y = 1", "A: x = 1"}));
}

TEST_F(RulePaneTest, EnterDeletesNothingForGood) {
  OpenRules({{u"A", u"x = 1", u""}});
  Menu("Rule", "Delete");
  Menu("Rule", "Deleted Rules...", {[this] {
         With([this] { Choose("Delete for Good"); },
              {[this] { QTest::keyClick(&Dialog(), Qt::Key_Return); }});
         EXPECT_EQ(List("deleted").count(), 1);
         With([this] { Choose("Delete for Good"); },
              {Answer("Deleted Rules: Delete \"A\" for good?", "Yes")});
         EXPECT_EQ(List("deleted").count(), 0);
         Choose("Close");
       }});
  EXPECT_TRUE(window().rules()->Bin().empty());
}

// Only what differs is put in; what is shown must not depend on what was shown before.
TEST(RulePaneTextTest, ATextBehindAnotherIsShownAsByANewPane) {
  const QStringList texts{{},
                          QStringLiteral("a"),
                          QStringLiteral("a\r\nb\r\nc"),
                          QStringLiteral("a\r\nx\r\nc"),
                          QStringLiteral("a\r\nx\r\nx\r\nc"),
                          QStringLiteral("a\rb\nc\r\n"),
                          QStringLiteral("a\r\r\nb"),
                          QString::fromUtf8("a\u2029b\u2028c\r\nb")};
  composer::RulePane pane(QStringLiteral("Rule"));
  const auto viewOf = [](composer::RulePane& each) -> QPlainTextEdit& {
    return *each.findChild<QPlainTextEdit*>();
  };
  for (const QString& text : texts) {
    for (const QString& coming : texts) {
      for (const QString& later : texts) {
        pane.Show(text, coming);
        pane.Show(text, later);
        composer::RulePane fresh(QStringLiteral("Rule"));
        fresh.Show(text, later);
        ASSERT_EQ(Std(viewOf(pane).toPlainText()), Std(viewOf(fresh).toPlainText()));
        ASSERT_EQ(viewOf(pane).document()->blockCount(), viewOf(fresh).document()->blockCount());
      }
    }
  }
}

}  // namespace
}  // namespace zolt20::tests
