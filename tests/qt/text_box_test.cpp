// The box of statements as a widget of its own.
#include "faces/qt/text_box.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMetaProperty>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>
#include <QVBoxLayout>

namespace zolt20::tests {
namespace {

class SyntTextBoxTest : public testing::Test {
 protected:
  SyntTextBoxTest() {
    auto* const layout = new QVBoxLayout(&window_);
    layout->addWidget(line_);
    layout->addWidget(box_);
    window_.resize(400, 300);
    window_.show();
    window_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    line_->setFocus();
  }

  QPlainTextEdit& Lines() const { return *box_->findChild<QPlainTextEdit*>(); }
  bool IsColored(int line) const {
    return !Lines().document()->findBlockByNumber(line).layout()->formats().isEmpty();
  }
  /// How many lines are seen of the first.
  int Rows() const {
    QTest::qWait(0);
    return Lines().document()->firstBlock().layout()->lineCount();
  }

  QWidget window_;
  QLineEdit* line_ = new QLineEdit;
  ZOLT21SyntTextBox* box_ = new ZOLT21SyntTextBox;
};

TEST_F(SyntTextBoxTest, ATextIsReadBackExactly) {
  const QString text = QStringLiteral("select a\r\n\tfrom b\rx\ny");
  const QSignalSpy changes(box_, &ZOLT21SyntTextBox::textChanged);
  box_->setText(text);
  EXPECT_EQ(box_->text(), text);
  box_->setText(text);
  EXPECT_EQ(changes.count(), 1);
  box_->setHighlight(true);
  EXPECT_EQ(box_->text(), text);
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(SyntTextBoxTest, HighlightGivesWordsTheirColorsAndTakesThem) {
  const QSignalSpy changes(box_, &ZOLT21SyntTextBox::highlightChanged);
  box_->setText(QStringLiteral("select x\nx"));
  EXPECT_FALSE(box_->highlight());
  EXPECT_FALSE(IsColored(0));
  box_->setHighlight(true);
  QTest::qWait(0);
  EXPECT_TRUE(IsColored(0));
  EXPECT_FALSE(IsColored(1));
  box_->setHighlight(false);
  QTest::qWait(0);
  EXPECT_FALSE(IsColored(0));
  EXPECT_EQ(changes.count(), 2);
}

TEST_F(SyntTextBoxTest, LinesGoOnBelowAtTheRightMargin) {
  box_->setText(QStringLiteral("condition ").repeated(60));
  const int atTheEdge = Rows();
  EXPECT_GT(atTheEdge, 1);
  box_->setRightMargin(100'000);
  EXPECT_EQ(box_->rightMargin(), 100'000);
  EXPECT_EQ(Rows(), 1);
  box_->setRightMargin(1'440);
  EXPECT_GT(Rows(), atTheEdge);
  box_->setRightMargin(-1);
  EXPECT_EQ(box_->rightMargin(), 1'440);
  box_->setRightMargin(0);
  EXPECT_EQ(Rows(), atTheEdge);
}

TEST_F(SyntTextBoxTest, TheFocusIsToldEachTimeItComes) {
  const QSignalSpy focus(box_, &ZOLT21SyntTextBox::tabChain);
  QTest::keyClick(line_, Qt::Key_Tab);
  EXPECT_TRUE(Lines().hasFocus());
  EXPECT_EQ(focus.count(), 1);
  QTest::keyClick(&Lines(), Qt::Key_Tab);
  EXPECT_TRUE(line_->hasFocus());
  box_->setFocus();
  EXPECT_EQ(focus.count(), 2);
}

TEST_F(SyntTextBoxTest, WhatIsTypedIsTheTextAndIsTold) {
  const QSignalSpy changes(box_, &ZOLT21SyntTextBox::textChanged);
  box_->setFocus();
  QTest::keyClicks(&Lines(), QStringLiteral("a"));
  QTest::keyClick(&Lines(), Qt::Key_Return);
  QTest::keyClicks(&Lines(), QStringLiteral("b"));
  EXPECT_EQ(box_->text(), QStringLiteral("a\r\nb"));
  EXPECT_EQ(changes.count(), 3);
  QTest::keyClick(&Lines(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_NE(box_->text(), QStringLiteral("a\r\nb"));
}

TEST_F(SyntTextBoxTest, ItsPropertiesAreThereForDesignersAndDelegates) {
  const QMetaObject& type = *box_->metaObject();
  EXPECT_STREQ(type.userProperty().name(), "text");
  EXPECT_TRUE(box_->setProperty("text", QStringLiteral("select")));
  EXPECT_TRUE(box_->setProperty("highlight", true));
  EXPECT_TRUE(box_->setProperty("rightMargin", 100'000));
  EXPECT_EQ(box_->text(), QStringLiteral("select"));
  EXPECT_TRUE(box_->highlight());
  EXPECT_EQ(box_->rightMargin(), 100'000);
}

}  // namespace
}  // namespace zolt20::tests
