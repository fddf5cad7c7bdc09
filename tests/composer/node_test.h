// A person at the tree of the statements.
#pragma once

#include <QFrame>
#include <QStatusBar>
#include <QTreeView>

#include "hosts/composer/node_composer.h"
#include "hosts/composer/recovery.h"
#include "hosts/composer/statement_tree.h"
#include "tests/composer/composer_test.h"

namespace zolt20::tests {

// A select statement in a row of an On...Case in a For, and what is around them.
inline std::string RuleWith(const std::string& select) {
  return "for :var.i = 1 to 3\r\n"
         "\ton case :var.i\r\n"
         "\t\tcase 1 :\r\n"
         "\t\t\t:var.a = 1\r\n"
         "\t\t\t" +
         select +
         "\r\n"
         "\t\t\tfrom  ORDERS__\r\n"
         "\t\t\tendselect\r\n"
         "\t\t\tbreak\r\n"
         "\t\tcase 2 :\r\n"
         "\t\t\t:var.b = 2\r\n"
         "\t\t\tbreak\r\n"
         "\t\tdefault: \r\n"
         "\t\t\t:var.d = 4\r\n"
         "endcase\r\n"
         "endfor\r\n"
         ":var.c = 3";
}
inline constexpr const char* kSelect = "select ORDERS__.O_ID";
inline constexpr const char* kChanged = "select ORDERS__.O_D_ID,ORDERS__.O_ID";

class NodeTest : public ComposerTest {
 protected:
  void Open(const std::string& text) {
    OpenRules({{u"A", Wide(text), u""}});
    window().resize(1300, 760);
    QTest::qWait(20);
  }
  composer::StatementTree& Pane() { return *window().findChild<composer::StatementTree*>(); }
  QTreeView& Tree() { return Pane().View(); }
  QModelIndex Row(const char* head) {
    const auto* model = Tree().model();
    const QModelIndexList found =
        model->match(model->index(0, 0), Qt::DisplayRole, QString::fromUtf8(head), 1,
                     Qt::MatchExactly | Qt::MatchRecursive);
    if (found.isEmpty()) throw std::runtime_error(std::string("there is no row ") + head);
    return found.front();
  }
  /// A place of the row in the window: so much of its height below its top.
  QPoint On(const char* head, double part = 0.5) {
    const QModelIndex row = Row(head);
    Tree().scrollTo(row);
    const QRect place = Tree().visualRect(row);
    const int below = static_cast<int>(place.height() * part);
    return Tree().viewport()->mapTo(&window(), QPoint(place.center().x(), place.top() + below));
  }
  void ClickOn(const char* head) {
    QTest::mouseClick(window().windowHandle(), Qt::LeftButton, {}, On(head));
    QTest::qWait(1);
  }
  void DoubleClickOn(const char* head, std::vector<Steps> dialogs) {
    With([&] { QTest::mouseDClick(window().windowHandle(), Qt::LeftButton, {}, On(head)); },
         std::move(dialogs));
    window().activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers with = {}) {
    QTest::keyClick(window().windowHandle(), key, with);
    QTest::qWait(1);
  }
  void DragTo(const char* head, const char* onto, double part, Qt::KeyboardModifiers with = {}) {
    const QPoint from = On(head);
    const QPoint to = On(onto, part);
    QWindow* place = window().windowHandle();
    QTest::mousePress(place, Qt::LeftButton, with, from);
    QTest::mouseMove(place, from + QPoint(0, 40));
    QTest::mouseMove(place, to);
    EXPECT_TRUE(Pane().findChild<QFrame*>(QStringLiteral("nodeDropMark"))->isVisible());
    QTest::mouseRelease(place, Qt::LeftButton, with, to);
    QTest::qWait(1);
  }
  /// Adds a field to the statement on the pages of the dialog.
  Steps AddField() {
    return [this] {
      Dialog<composer::NodeComposer>();
      Click("lstFields", 2);
      Click("cmdMoveOne");
      Click("cmdDone");
    };
  }
  /// Opens the rules again after a kill.
  void Recover() {
    KillWindow();
    OpenWindow();
    With([&] { EXPECT_TRUE(window().OpenRules(RulesPath())); }, {[this] {
           Dialog<composer::RecoveryOffer>();
           Choose("Go On");
         }});
  }
  std::string StoredText() {
    window_.reset();
    return Narrow(composer::RulesFile::Open(RulesPath()).rules()[0].text);
  }
  std::string Status() { return Std(window().statusBar()->currentMessage()); }
};

}  // namespace zolt20::tests
