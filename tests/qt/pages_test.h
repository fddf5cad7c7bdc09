// The fixture of tests on the looks of the widget's pages: whether there is room for everything, in
// fonts and colours that a test chooses. With ZOLT20_PICTURES set to a folder the pages are drawn
// into it.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QTextDocument>
#include <fstream>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "faces/qt/map_widget.h"
#include "hosts/automation/session.h"
#include "surface/surface.h"
#include "tests/support/places.h"

namespace zolt20::tests {

struct Look {
  const char* name;
  bool isDark;

  friend std::ostream& operator<<(std::ostream& out, const Look& look) { return out << look.name; }
};
inline constexpr Look kLooks[] = {{"light", false}, {"dark", true}};

inline QPalette DarkPalette() {
  QPalette palette;
  const QColor ground(45, 45, 48);
  palette.setColor(QPalette::Window, ground);
  palette.setColor(QPalette::WindowText, Qt::white);
  palette.setColor(QPalette::Base, QColor(30, 30, 30));
  palette.setColor(QPalette::AlternateBase, ground);
  palette.setColor(QPalette::Text, Qt::white);
  palette.setColor(QPalette::Button, QColor(53, 53, 56));
  palette.setColor(QPalette::ButtonText, Qt::white);
  palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
  palette.setColor(QPalette::HighlightedText, Qt::black);
  palette.setColor(QPalette::PlaceholderText, QColor(170, 170, 170));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, QColor(125, 125, 125));
  return palette;
}

class PagesTest : public ::testing::Test {
 protected:
  /// With a family, all fonts are of that family. The test is skipped if it is not installed.
  explicit PagesTest(const Look& look, const char* family = nullptr)
      : paletteBefore_(QApplication::palette()),
        fontBefore_(QApplication::font()),
        look_(look),
        family_(QString::fromLatin1(family)) {
    if (look.isDark) QApplication::setPalette(DarkPalette());
    if (!family_.isEmpty()) {
      QFont font = fontBefore_;
      font.setFamilies({family_});
      QApplication::setFont(font);
    }
    map_ = std::make_unique<ZOLT20MapWidget>();
    map_->resize(900, 650);
    map_->setSyntax_Highlight(true);
    map_->show();
  }
  ~PagesTest() override {
    map_.reset();
    QApplication::setPalette(paletteBefore_);
    QApplication::setFont(fontBefore_);
  }

  void SetUp() override {
    if (family_.isEmpty()) return;
    if (!QFontDatabase::families().contains(family_))
      GTEST_SKIP() << family_.toStdString() << " is not installed on this machine";
    // These two controls have font families of their own.
    QFont font = map_->font();
    font.setFamilies({family_});
    map_->setFont(font);
    Find("frawhile")->setProperty("captionFamilies", QStringList{family_});
    for (const QWidget* widget : map_->findChildren<QWidget*>())
      ASSERT_EQ(QFontInfo(widget->font()).family(), family_) << NameOf(*widget);
  }

  /// In a window of twice the size.
  void DoubleTheLetters() {
    QFont font = map_->font();
    font.setPointSizeF(2 * font.pointSizeF());
    map_->setFont(font);
    map_->resize(1800, 1300);
  }

  // A person and a host.

  /// The state after the first `requests` lines of an example session.
  void Play(const std::string& name, int requests) {
    automation::Session session;
    std::ifstream input(Examples() + "/sessions/" + name + ".jsonl");
    ASSERT_TRUE(input.good());
    for (std::string line; requests > 0 && std::getline(input, line);) {
      if (automation::Session::IsSkipped(line)) continue;
      session.Reply(line);
      --requests;
    }
    session.Reply(R"({"set":"Syntax_Highlight","value":true})");
    map_->restore(session.Control().Save());
  }
  void Click(const char* name) { QTest::mouseClick(Find(name), Qt::LeftButton, {}, QPoint(8, 8)); }

  // What is to be seen.

  /// Expects that every visible label, button and box has room for its text.
  void ExpectNothingCut() {
    QApplication::processEvents();
    for (const QWidget* widget : map_->findChildren<QWidget*>()) {
      if (!widget->isVisible() || widget->objectName().isEmpty()) continue;
      const std::string name = NameOf(*widget);
      if (qobject_cast<const QLabel*>(widget) || qobject_cast<const QAbstractButton*>(widget)) {
        // A push button would like to be wider than its text.
        constexpr int kEdges = 10;
        const auto* push = qobject_cast<const QPushButton*>(widget);
        const int needed =
            push == nullptr
                ? widget->minimumSizeHint().width()
                : push->fontMetrics().size(Qt::TextShowMnemonic, push->text()).width() + kEdges;
        EXPECT_GE(widget->width(), needed) << name;
        EXPECT_GE(widget->height(), widget->minimumSizeHint().height()) << name;
        EXPECT_TRUE(map_->rect().contains(PlaceOf(*widget)))
            << name << " reaches out of the window";
      } else if (qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QComboBox*>(widget)) {
        EXPECT_GE(widget->height(), widget->minimumSizeHint().height()) << name;
      } else if (const auto* box = qobject_cast<const QPlainTextEdit*>(widget)) {
        constexpr int kLines = 2;
        const int edge = qRound(box->document()->documentMargin());
        EXPECT_GE(box->viewport()->height(), edge + kLines * box->fontMetrics().lineSpacing())
            << name;
      } else if (const auto* strip = qobject_cast<const QTabBar*>(widget)) {
        EXPECT_LE(strip->tabRect(strip->count() - 1).right(), strip->width()) << name;
      }
    }
  }

  /// Expects that no two controls of a page that take the focus overlap, and that no control in the
  /// frame of the case rows is cut.
  void ExpectNothingCovered() {
    const Surface& form = map_->form();
    std::vector<std::pair<std::string, QRect>> seen;
    for (const Control* control : form.Controls()) {
      if (!control->TakesFocus() || !control->Shown()) continue;
      const std::string name(control->name());
      // Until the first template the where text lies over it.
      if (name == "txtCondition" && form.FrawhereCondition.Visible()) continue;
      const auto* widget = Find(name.c_str());
      ASSERT_NE(widget, nullptr) << name;
      const QRect place = PlaceOf(*widget);
      if (control->frame() == &form.fracase) {
        const QRect frame = PlaceOf(*Find("fracase"));
        const bool isRow = control != &form.VscrCase && control != &form.cmdNext;
        if (isRow && (place.bottom() < frame.top() || place.top() > frame.bottom())) continue;
        EXPECT_LE(place.bottom(), frame.bottom()) << name;
        EXPECT_LE(place.right(), frame.right()) << name;
        EXPECT_GE(place.top(), frame.top()) << name;
      }
      EXPECT_GE(place.width() * place.height(), 400) << name << " is hardly to be seen";
      EXPECT_TRUE(map_->rect().contains(place)) << name << " reaches out of the window";
      for (const auto& [other, otherPlace] : seen)
        EXPECT_FALSE(place.intersects(otherPlace)) << name << " covers " << other;
      seen.emplace_back(name, place);
    }
  }

  void Picture(const std::string& name) {
    ExpectNothingCut();
    ExpectNothingCovered();
    DrawnAs(name);
  }
  void DrawnAs(const std::string& name) {
    const QString folder = qEnvironmentVariable("ZOLT20_PICTURES");
    if (folder.isEmpty()) return;
    const QString suffix = look_.isDark ? QStringLiteral("-dark.png") : QStringLiteral(".png");
    ASSERT_TRUE(map_->grab().save(folder + u'/' + QString::fromStdString(name) + suffix));
  }

  QWidget* Find(const char* name) const {
    return map_->findChild<QWidget*>(QString::fromLatin1(name));
  }

  std::unique_ptr<ZOLT20MapWidget> map_;

 private:
  static std::string NameOf(const QWidget& widget) { return widget.objectName().toStdString(); }
  QRect PlaceOf(const QWidget& widget) const {
    return {widget.mapTo(map_.get(), QPoint(0, 0)), widget.size()};
  }

  QPalette paletteBefore_;
  QFont fontBefore_;
  Look look_;
  QString family_;
};

}  // namespace zolt20::tests
