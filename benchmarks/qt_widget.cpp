// The time that the Qt widget takes, drawn without a display. The yardstick of a figure for a long
// list or text is the figure for a short one.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStyleFactory>
#include <QTest>
#include <QTextBlock>

#include "benchmarks/bars.h"
#include "faces/qt/map_widget.h"
#include "faces/qt/rows_view.h"
#include "surface/surface.h"

namespace zolt20::bench {
namespace {

using qt::RowsView;

// A message box would wait for ever, so a message ends the program.
class Widget final : public ZOLT20MapWidget {
 protected:
  void showMessage(const QString& text, const QString& /*title*/) override {
    qFatal("%s", qPrintable(text));
  }
};

QString TablesOf(int count) {
  QString tables;
  for (int table = 0; table < count; ++table)
    tables += QStringLiteral("T%1").arg(table, 7, 10, QChar(u'0')) + QStringLiteral("0,");
  tables.chop(1);
  return tables;
}

// The list of tables with so many rows, on the screen.
class Tables {
 public:
  explicit Tables(int count) {
    widget_.setPrpStrTables(TablesOf(count));
    widget_.setPrpStrFields(QStringLiteral("char*Q*V*R*N*NT0000000.A*Q*V*R*N*A"));
    widget_.resize(900, 650);
    widget_.show();
    QApplication::processEvents();
  }
  RowsView& view() { return *widget_.findChild<RowsView*>(QStringLiteral("lsttables")); }
  void Draw() {
    widget_.repaint();
    QApplication::processEvents();
  }
  void AddRow() {
    widget_.setPrpStrTables(QStringLiteral("T99999990"));
    QApplication::processEvents();
  }

 private:
  Widget widget_;
};

constexpr int kShort = 1000;
constexpr int kLong = 100'000;

// Measures a step on a list of 100,000 rows; the yardstick is the same on one of 1,000.
template <typename Step>
void OnBothLists(benchmark::State& state, double bar, const Step& step) {
  Tables longList(kLong);
  Tables shortList(kShort);
  Compare(
      state, Bar::kFigure, bar, [&] { return SecondsOf([&] { step(longList); }); },
      [&] { return SecondsOf([&] { step(shortList); }); });
}

void DrawNewRows(benchmark::State& state) {
  OnBothLists(state, 16e-3, [](Tables& tables) {
    tables.view().ReplaceRows();
    tables.view().ShowMarks();
    benchmark::DoNotOptimize(tables.view().grab());
  });
}

// The host appends a row, and the list draws it.
void OneMoreRow(benchmark::State& state) {
  OnBothLists(state, 1e-3, [](Tables& tables) { tables.AddRow(); });
}

// One letter more or less in the filter: every tenth row matches, and then every hundredth.
void FilterRows(benchmark::State& state) {
  OnBothLists(state, 4e-3, [](Tables& tables) {
    auto& filter =
        *tables.view().window()->findChild<QLineEdit*>(QStringLiteral("lsttables.filter"));
    filter.setText(filter.text() == u"7" ? QStringLiteral("77") : QStringLiteral("7"));
    tables.Draw();
  });
}

// A click on the first row, with its step for Undo, and what it changes on the screen.
void MarkARow(benchmark::State& state) {
  OnBothLists(state, 0, [](Tables& tables) {
    QTest::mouseClick(tables.view().viewport(), Qt::LeftButton, {}, QPoint(20, 8));
    tables.Draw();
  });
}

// A coloured text of so many letters, in which somebody types.
class Text {
 public:
  explicit Text(int letters) {
    widget_.setSyntax_Highlight(true);
    QString text;
    while (text.size() < letters)
      text += QStringLiteral("if CUSTOMER.C_ID = :var.id and \"x\" <> upper(NAME) then~");
    widget_.setPrpStroutput(text);
    widget_.resize(900, 650);
    widget_.show();
    widget_.activateWindow();
    box_ = widget_.findChild<QPlainTextEdit*>(QStringLiteral("TxtOutput"));
    box_->setFocus();
    box_->setTextCursor(QTextCursor(box_->document()->findBlockByNumber(box_->blockCount() / 2)));
    QApplication::processEvents();
  }
  // A key in the middle of the text, and what it changes on the screen.
  void TypeAKey() {
    QTest::keyClick(box_, Qt::Key_7);
    widget_.repaint();
    QApplication::processEvents();
  }

 private:
  Widget widget_;
  QPlainTextEdit* box_ = nullptr;
};

void TypeAKey(benchmark::State& state) {
  Text longText(1'000'000);
  Text shortText(1000);
  Compare(
      state, Bar::kFigure, 16e-3, [&] { return SecondsOf([&] { longText.TypeAKey(); }); },
      [&] { return SecondsOf([&] { shortText.TypeAKey(); }); });
}

void Register() {
  const auto add = [](const char* name, auto function) {
    benchmark::RegisterBenchmark(name, function)->UseManualTime()->Iterations(51);
  };
  add("the first screen of a list: 100,000 rows | 1,000", DrawNewRows);
  add("one more row in a list: 100,000 rows | 1,000", OneMoreRow);
  add("a letter in the filter of a list: 100,000 rows | 1,000", FilterRows);
  add("a click on a row: 100,000 rows | 1,000", MarkARow);
  add("a key in a coloured text: 1,000,000 letters | 1,000", TypeAKey);
}

}  // namespace
}  // namespace zolt20::bench

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  zolt20::bench::Register();
  return zolt20::bench::Run(argc, argv);
}
