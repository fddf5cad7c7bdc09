// How the composer looks: no text of its own is cut. With ZOLT20_PICTURES set to a folder the
// windows are drawn into it, which is where the pictures of docs/ come from.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

#include "hosts/composer/function_picker.h"
#include "hosts/composer/main_window.h"
#include "hosts/composer/requests.h"
#include "hosts/composer/statement_tree.h"
#include "surface/surface.h"
#include "tests/support/places.h"

namespace zolt20::tests {
namespace {

QString Example(const char* name) {
  return Qs(Examples() + "/" + name);
}

void Draw(QWidget& window, const char* name) {
  QTest::qWait(20);  // a scroll bar comes some rounds of the loop after its rows
  if (!qEnvironmentVariableIsSet("ZOLT20_PICTURES")) return;
  const QString file = qEnvironmentVariable("ZOLT20_PICTURES") + QStringLiteral("/") +
                       QString::fromLatin1(name) + QStringLiteral(".png");
  QApplication::processEvents();
  EXPECT_TRUE(window.grab().save(file)) << file.toStdString();
}

// In the same letters on every machine that has them.
class ComposerPicturesTest : public ::testing::Test {
 protected:
  ComposerPicturesTest() : before_(QApplication::font()) {
    QFont font = before_;
    font.setFamilies({QStringLiteral("DejaVu Sans")});
    QApplication::setFont(font);
  }
  ~ComposerPicturesTest() override { QApplication::setFont(before_); }

 private:
  QFont before_;
};

TEST_F(ComposerPicturesTest, AStoredRuleStandsInThePagesWithNothingCut) {
  const QTemporaryDir folder;
  const QString rules = folder.filePath(QStringLiteral("rules.json"));
  ASSERT_TRUE(QFile::copy(Example("rules.json"), rules));
  composer::MainWindow window;
  window.show();
  ASSERT_TRUE(window.OpenCatalogue(Example("catalogue.json")));
  ASSERT_TRUE(window.OpenRules(rules));
  EXPECT_EQ(window.findChild<QListWidget*>(QStringLiteral("rules"))->count(), 3);
  QTest::mouseClick(window.map().findChild<QWidget*>(QStringLiteral("cmdAddSelect")),
                    Qt::LeftButton);
  Draw(window, "composer");
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    const bool hasText =
        qobject_cast<const QLabel*>(widget) || qobject_cast<const QToolButton*>(widget);
    if (!hasText || !widget->isVisible()) continue;
    // A line that tells of the text gets its room some rounds of the loop later.
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return widget->width() >= widget->minimumSizeHint().width(); }, 1000))
        << widget->objectName().toStdString();
  }
}

// In both schemes of colours; the light one stands in docs/.
TEST_F(ComposerPicturesTest, TheTreeOfTheStatementsStandsBesideTheResult) {
  const QTemporaryDir folder;
  const QString rules = folder.filePath(QStringLiteral("rules.json"));
  ASSERT_TRUE(QFile::copy(Example("rules.json"), rules));
  composer::MainWindow window;
  window.show();
  ASSERT_TRUE(window.OpenCatalogue(Example("catalogue.json")));
  ASSERT_TRUE(window.OpenRules(rules));
  window.resize(1240, 760);
  auto& list = *window.findChild<QListWidget*>(QStringLiteral("rules"));
  list.setCurrentRow(2);
  QTest::qWait(20);
  auto& result = *window.map().findChild<QPlainTextEdit*>(QStringLiteral("TxtOutput"));
  result.setFocus();
  QTextCursor place = result.document()->find(QStringLiteral("O_CARRIER_ID"));
  place.insertText(QStringLiteral("O_CARIER_ID"));
  place = result.document()->find(QStringLiteral(":var.discount = 5"));
  result.setTextCursor(place);
  auto& tree = window.findChild<composer::StatementTree*>()->View();
  EXPECT_TRUE(tree.isVisible());
  const auto& problems = *window.findChild<QLabel*>(QStringLiteral("problemsTitle"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return problems.text().contains(u'('); }, 3000));
  Draw(window, "composer-statements");
  const QPalette before = QApplication::palette();
  QPalette dark(QColor(53, 53, 57));
  dark.setColor(QPalette::Base, QColor(35, 35, 38));
  QApplication::setPalette(dark);
  Draw(window, "composer-statements-dark");
  QApplication::setPalette(before);
  window.journal().Forget();
}

TEST_F(ComposerPicturesTest, ANestedComposerSaysWhatItIsFor) {
  const catalogue::Catalogue sample =
      catalogue::ReadCatalogue(Example("catalogue.json").toStdU16String());
  composer::NestedComposer nested(sample, QStringLiteral("D"), true);
  nested.show();
  EXPECT_EQ(nested.windowTitle(), QStringLiteral("Condition for SelectDo"));
  QTest::mouseClick(nested.map().findChild<QWidget*>(QStringLiteral("optIfThen")), Qt::LeftButton,
                    {}, QPoint(8, 8));
  QTest::keyClicks(nested.map().findChild<QWidget*>(QStringLiteral("txtCond")),
                   QStringLiteral(":var.sum > 1000"));
  QTest::keyClicks(nested.map().findChild<QWidget*>(QStringLiteral("txtStmt1")),
                   QStringLiteral(":var.size = \"large\""));
  QTest::mouseClick(nested.map().findChild<QWidget*>(QStringLiteral("cmdAdd")), Qt::LeftButton);
  Draw(nested, "composer-nested");
  EXPECT_EQ(nested.map().form().TxtOutput.Text(),
            u"if :var.sum > 1000 then \r\n\t:var.size = \"large\"");
}

TEST_F(ComposerPicturesTest, ThePickerShowsTheCallAsItWillStand) {
  const catalogue::Catalogue sample =
      catalogue::ReadCatalogue(Example("catalogue.json").toStdU16String());
  composer::FunctionPicker picker(sample.functions);
  picker.show();
  EXPECT_EQ(picker.Call(), QStringLiteral("today()"));
  Draw(picker, "function");
}

}  // namespace
}  // namespace zolt20::tests
