// A day's work in a window of 800 x 600 by key events alone. Each key goes to the window that has
// the focus; the mouse and direct calls of widgets are not used.
#include <QMenu>
#include <QPlainTextEdit>
#include <QTabBar>

#include "tests/composer/composer_test.h"

namespace zolt20::tests {
namespace {

constexpr const char* kCustomers = "select CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nendselect";
constexpr const char* kOrders = "select ORDERS__.O_ID\r\nfrom  ORDERS__\r\nendselect";

class ByKeysTest : public ComposerTest {
 protected:
  ByKeysTest() {
    window().resize(800, 600);
    QTest::qWait(50);
    WriteRules({{u"A", Wide(kCustomers), u""}, {u"B", Wide(kOrders), u""}});
  }

  /// The active window. When one was closed, the window below it is activated first, as a window
  /// manager does.
  QWindow* Here() {
    QTest::qWait(1);
    if (QApplication::activeWindow() == nullptr) {
      QWidget* const modal = QApplication::activeModalWidget();
      QWidget& below = modal == nullptr ? window() : *modal;
      below.activateWindow();
      EXPECT_TRUE(QTest::qWaitForWindowActive(&below));
    }
    return QApplication::activeWindow()->windowHandle();
  }
  /// A key where the focus is, or in the menu that is open.
  void Key(int key, Qt::KeyboardModifiers modifiers = {}, int times = 1) {
    for (; times > 0; --times) {
      QTest::keyClick(Here(), static_cast<Qt::Key>(key), modifiers);
      QTest::qWait(1);
    }
  }
  void TypeHere(const QString& text) {
    for (const QChar letter : text)
      QTest::keyClick(Here(), letter.toLatin1());
  }
  static QString FocusName() {
    const QWidget* focus = QApplication::focusWidget();
    return focus == nullptr ? QString() : focus->objectName();
  }
  /// Presses Tab or Shift+Tab until the control of that name has the focus. In a statement box Tab
  /// is a character, so there it is Ctrl+Tab.
  void GoTo(const char* name, int atMost = 40, bool forward = true) {
    QStringList passed;
    while (FocusName() != QString::fromUtf8(name)) {
      passed.append(FocusName());
      if (passed.size() > atMost) {
        ADD_FAILURE() << name << " is not reached: " << Std(passed.join(u' '));
        return;
      }
      const auto* text = qobject_cast<QPlainTextEdit*>(QApplication::focusWidget());
      const bool isLetter = text != nullptr && !text->tabChangesFocus();
      Key(forward ? Qt::Key_Tab : Qt::Key_Backtab,
          (isLetter ? Qt::ControlModifier : Qt::NoModifier) |
              (forward ? Qt::NoModifier : Qt::ShiftModifier));
    }
  }
  void GoToAndPress(const char* button, int atMost = 40) {
    GoTo(button, atMost);
    Key(Qt::Key_Space);
  }
  /// What is marked in the Result.
  std::string Marked() {
    const auto* result = window().map().findChild<QPlainTextEdit*>(QStringLiteral("TxtOutput"));
    return Std(result->textCursor().selectedText());
  }
  int Page() { return static_cast<int>(form().tabVrn.Tab().value()); }

  std::string StoredText(const char* rule) {
    return Narrow(window().rules()->Find(Wide(rule))->text);
  }

  /// File / Open Rules.
  void OpenByKeys() {
    With([this] { Key(Qt::Key_O, Qt::ControlModifier); }, {[this] {
           TypeHere(RulesPath());
           Key(Qt::Key_Return);
         }});
  }
  /// Within a further composer: If :var.n > 1 then x = 1.
  void ComposeCondition() {
    GoTo("optIfThen");
    Key(Qt::Key_Space);
    GoTo("txtCond");
    TypeHere(QStringLiteral(":var.n > 1"));
    GoTo("txtStmt1");
    TypeHere(QStringLiteral("x = 1"));
    GoToAndPress("cmdAdd");
    GoToAndPress("cmdBuild");
    GoToAndPress("cmdDone");
  }
};

TEST_F(ByKeysTest, ADaysWorkIsDoneWithoutAMouse) {
  OpenByKeys();
  ASSERT_EQ(Heading(), "A");

  // Down in the filter line of the list of rules goes to the list.
  Key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(FocusName(), QStringLiteral("rulesFilter"));
  Key(Qt::Key_Down, {}, 2);
  QTest::qWait(20);
  ASSERT_EQ(Heading(), "B");
  widget_ = &window().map();

  // A field more.
  GoTo("lstFields");
  Key(Qt::Key_Down, {}, 3);
  Key(Qt::Key_Space);
  GoToAndPress("cmdMoveOne");
  GoToAndPress("cmdAddSelect");
  const std::string twoFields = Result();
  EXPECT_TRUE(twoFields.starts_with("select ORDERS__.O_ID,ORDERS__.")) << twoFields;

  // A condition of the page SelectDo, in a composer of its own.
  Key(Qt::Key_PageDown, Qt::ControlModifier, 2);
  EXPECT_EQ(Page(), 2);
  With([this] { GoToAndPress("cmdCondition(0)"); }, {[this] { ComposeCondition(); }});
  GoToAndPress("cmdAddSelectDoQuer");
  const std::string composed = Result();
  EXPECT_NE(composed.find("selectdo\r\n\tif :var.n > 1 then"), std::string::npos) << composed;

  // Undo, Redo, find.
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Result(), twoFields);
  Key(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(Result(), composed);
  GoTo("TxtOutput");
  Key(Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(FocusName(), QStringLiteral("find"));
  TypeHere(QStringLiteral("var.n"));
  Key(Qt::Key_Return);
  EXPECT_EQ(Marked(), "var.n");
  Key(Qt::Key_Escape);

  // Stored, and an earlier version brought back.
  Key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(StoredText("B"), composed);
  With(
      [this] {
        Key(Qt::Key_R, Qt::AltModifier);
        Key(Qt::Key_V);
      },
      {[this] {
        EXPECT_EQ(Told(), "Versions of B");
        EXPECT_EQ(FocusName(), QStringLiteral("versions"));
        Key(Qt::Key_Down);
        GoToAndPress("bringBack");
      }});
  EXPECT_EQ(StoredText("B"), kOrders);

  Key(Qt::Key_Q, Qt::ControlModifier);
  EXPECT_FALSE(window().isVisible());
  EXPECT_EQ(Stored(), (Texts{std::string("A: ") + kCustomers, std::string("B: ") + kOrders}));
}

}  // namespace
}  // namespace zolt20::tests
