// How the pages look: in a light and a dark palette, at the usual size and at twice the letters, no
// text is cut and nothing lies over anything else. With ZOLT20_PICTURES set to a folder the pages
// are drawn into it, which is where the pictures of docs/ come from.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QTest>
#include <fstream>
#include <functional>
#include <ostream>

#include "faces/qt/map_widget.h"
#include "faces/qt/qt_text.h"
#include "hosts/automation/session.h"
#include "surface/surface.h"
#include "tests/support/places.h"

namespace zolt20::tests {
namespace {

QPalette DarkPalette() {
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

struct Look {
  const char* name;
  bool isDark;

  friend std::ostream& operator<<(std::ostream& out, const Look& look) { return out << look.name; }
};

class PicturesTest : public ::testing::TestWithParam<Look> {
 protected:
  PicturesTest() : before_(QApplication::palette()) {
    if (GetParam().isDark) QApplication::setPalette(DarkPalette());
    map_ = std::make_unique<ZOLT20MapWidget>();
    map_->resize(900, 650);
    map_->setSyntax_Highlight(true);
    map_->show();
  }
  ~PicturesTest() override {
    map_.reset();
    QApplication::setPalette(before_);
  }

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

  void Click(const char* name) {
    QTest::mouseClick(map_->findChild<QWidget*>(QString::fromLatin1(name)), Qt::LeftButton, {},
                      QPoint(8, 8));
  }

  /// Every label, button and frame in sight has room for its text.
  void ExpectNothingCut() {
    QApplication::processEvents();
    for (const QWidget* widget : map_->findChildren<QWidget*>()) {
      const bool hasText =
          qobject_cast<const QLabel*>(widget) || qobject_cast<const QAbstractButton*>(widget);
      if (!hasText || !widget->isVisible() || widget->objectName().isEmpty()) continue;
      const std::string name = widget->objectName().toStdString();
      // A push button would like to be wider than its text.
      constexpr int kEdges = 10;
      const auto* push = qobject_cast<const QPushButton*>(widget);
      const int needed =
          push == nullptr
              ? widget->minimumSizeHint().width()
              : push->fontMetrics().size(Qt::TextShowMnemonic, push->text()).width() + kEdges;
      EXPECT_GE(widget->width(), needed) << name;
      EXPECT_GE(widget->height(), widget->minimumSizeHint().height()) << name;
      const QPoint corner(widget->width() - 1, widget->height() - 1);
      for (const QPoint& point :
           {widget->mapTo(map_.get(), QPoint(0, 0)), widget->mapTo(map_.get(), corner)}) {
        EXPECT_TRUE(map_->rect().contains(point)) << name << " reaches out of the window";
      }
    }
  }

  /// No two controls of a page that take the focus lie over each other.
  void ExpectNothingCovered() {
    std::vector<std::pair<std::string, QRect>> seen;
    for (const Control* control : map_->form().Controls()) {
      if (!control->TakesFocus() || !control->Shown()) continue;
      const std::string name(control->name());
      if (control->frame() == &map_->form().fracase) continue;  // placed by the form
      // Until the first template the where text lies over it.
      if (name == "txtCondition" && map_->form().FrawhereCondition.Visible()) continue;
      const auto* widget = map_->findChild<QWidget*>(QString::fromStdString(name));
      ASSERT_NE(widget, nullptr) << name;
      const QRect place(widget->mapTo(map_.get(), QPoint(0, 0)), widget->size());
      EXPECT_GE(place.width() * place.height(), 400) << name << " is hardly to be seen";
      for (const auto& [other, otherPlace] : seen)
        EXPECT_FALSE(place.intersects(otherPlace)) << name << " covers " << other;
      seen.emplace_back(name, place);
    }
  }

  void Picture(const std::string& name) {
    ExpectNothingCut();
    ExpectNothingCovered();
    const QString folder = qEnvironmentVariable("ZOLT20_PICTURES");
    if (folder.isEmpty()) return;
    const QString suffix = GetParam().isDark ? QStringLiteral("-dark.png") : QStringLiteral(".png");
    ASSERT_TRUE(map_->grab().save(folder + u'/' + QString::fromStdString(name) + suffix));
  }

  std::unique_ptr<ZOLT20MapWidget> map_;

 private:
  QPalette before_;
};

TEST_P(PicturesTest, EveryEmptyPageHasRoomForItsTexts) {
  for (int page = 0; page < 7; ++page) {
    map_->setPrpTab(page);
    Picture("empty" + std::to_string(page));
  }
}

TEST_P(PicturesTest, TheSelectListPageIsFilled) {
  Play("where-report", 12);
  map_->setPrpTab(0);
  Picture("page0");
}

TEST_P(PicturesTest, TheWherePageIsFilled) {
  Play("where-report", 1000);
  map_->setPrpTab(1);
  Picture("page1");
}

TEST_P(PicturesTest, TheStatementPagesAreFilled) {
  Play("full-statement", 1000);
  for (int page = 2; page <= 5; ++page) {
    map_->setPrpTab(page);
    Picture("page" + std::to_string(page));
  }
}

TEST_P(PicturesTest, EachKindHasItsPanel) {
  map_->setPrpTab(6);
  for (const char* option : {"optIfThen", "optwhile", "optRepeat", "optFor", "optCase"}) {
    Click(option);
    Picture(std::string("kind-") + option);
  }
}

TEST_P(PicturesTest, TheRowsOfAnOnCaseScroll) {
  Play("mapping-rule", 40);
  Picture("page6");
}

TEST_P(PicturesTest, TwiceTheLettersStillFitTwiceTheWindow) {
  QFont font = map_->font();
  font.setPointSizeF(2 * font.pointSizeF());
  map_->setFont(font);
  map_->resize(1800, 1300);
  for (int page = 0; page < 7; ++page) {
    map_->setPrpTab(page);
    ExpectNothingCut();
  }
}

INSTANTIATE_TEST_SUITE_P(Palettes, PicturesTest,
                         ::testing::Values(Look{"light", false}, Look{"dark", true}),
                         [](const auto& look) { return std::string(look.param.name); });

}  // namespace
}  // namespace zolt20::tests
