// Boxes and lists as a person uses them, where the list of what any face does leaves it to Qt.
#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include "tests/qt/widget_test.h"

namespace zolt20::tests {
namespace {

class BoxesTest : public WidgetTest {
 protected:
  BoxesTest() { Catalogue(); }
  void TearDown() override {
    Log();
    WidgetTest::TearDown();
  }
  void TypeHere(const char* text) {
    for (const char* letter = text; *letter != '\0'; ++letter)
      QTest::keyClick(Window(), *letter);
  }
};

// Texts that are pasted.

TEST_F(BoxesTest, APastedTextComesWholeWithItsLineEndsAsCrLf) {
  Tab(6);
  Click("optIfThen");
  Type("txtCond", "a\r\nb\nc");
  EXPECT_EQ(form().txtCond.Text(), u"a\r\nb\r\nc");
  EXPECT_EQ(Be<QLineEdit>("txtCond").text(), QStringLiteral("a\r\nb\r\nc"));
  TypeHere("!");
  EXPECT_EQ(form().txtCond.Text(), u"a\r\nb\r\nc!");
}

TEST_F(BoxesTest, ATextThatIsPastedOverItselfHasItsLineEndsAsCrLfAgain) {
  Tab(6);
  Click("optIfThen");
  Type("txtCond", "a\nb");
  Type("txtCond", "a\nb");
  EXPECT_EQ(form().txtCond.Text(), u"a\r\nb");
}

TEST_F(BoxesTest, HalfALineEndComesBackByUndoAsItWas) {
  Tab(6);
  Click("optIfThen");
  Type("txtCond", "a\r\nb");
  Press(Qt::Key_Left);
  Press(Qt::Key_Backspace);
  EXPECT_EQ(form().txtCond.Text(), u"a\rb");
  QTest::keySequence(Window(), QKeySequence::Undo);
  EXPECT_EQ(form().txtCond.Text(), u"a\r\nb");
}

// Accessibility events of a list: each row that becomes current, and each mark.

class ToldTest : public BoxesTest {
 protected:
  ToldTest() {
    told.clear();
    Activate(true);
    before_ = QAccessible::installUpdateHandler(&Hear);
  }
  ~ToldTest() override {
    QAccessible::installUpdateHandler(before_);
    Activate(false);
  }
  /// What was told of a list since the last call, such as "at 3".
  Texts Of(const char* list) {
    Texts lines;
    for (const auto& [object, line] : std::exchange(told, {})) {
      if (object == list) lines.push_back(line);
    }
    return lines;
  }

 private:
  // As a screen reader does. Public headers have no way to it.
  static void Activate(bool active) {
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(active);
  }
  static void Hear(QAccessibleEvent* event) {
    const char* word = nullptr;
    switch (event->type()) {
      case QAccessible::Focus:
        word = "at ";
        break;
      case QAccessible::SelectionAdd:
        word = "marked ";
        break;
      case QAccessible::SelectionRemove:
        word = "not marked ";
        break;
      case QAccessible::StateChanged:
        word = "checked or not ";
        break;
      default:
        return;
    }
    if (event->object() == nullptr || event->child() < 0) return;
    told.emplace_back(event->object()->objectName().toStdString(),
                      word + std::to_string(event->child()));
  }

  static inline std::vector<std::pair<std::string, std::string>> told;
  QAccessible::UpdateHandler before_ = nullptr;
};

TEST_F(ToldTest, TheRowThatTheKeysComeToAndItsMark) {
  Focus("lsttables");
  Of("lsttables");
  Press(Qt::Key_Home);
  Of("lsttables");
  Press(Qt::Key_Down);
  EXPECT_EQ(Of("lsttables"), Texts{"at 1"});
  Press(Qt::Key_Space);
  EXPECT_EQ(Of("lsttables"), Texts{"marked 1"});
  Press(Qt::Key_Space);
  EXPECT_EQ(Of("lsttables"), Texts{"not marked 1"});
}

TEST_F(ToldTest, InASingleSelectionTheRowIsMarkedWithIt) {
  Click("lsttables", 0);
  Click("lstFields", 0);
  Of("lstFields");
  Press(Qt::Key_Down);
  EXPECT_EQ(Of("lstFields"), (Texts{"at 1", "not marked 0", "marked 1"}));
}

TEST_F(ToldTest, TheCheckBoxOfARow) {
  Click("lsttables", 0);
  Tab(1);
  Click("lstorderbyasc", 0);
  Of("lstorderbyasc");
  Press(Qt::Key_Down);
  Press(Qt::Key_Space);
  EXPECT_EQ(Of("lstorderbyasc"), (Texts{"at 1", "checked or not 1"}));
}

}  // namespace
}  // namespace zolt20::tests
