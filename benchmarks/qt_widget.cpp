// What the Qt widget costs, drawn without a display. Each figure for a long list or text stands
// beside the one for a short one.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStyleFactory>
#include <QTest>
#include <QTextBlock>

#include "faces/qt/map_widget.h"
#include "faces/qt/rows_view.h"
#include "surface/surface.h"

namespace {

using zolt20::qt::RowsView;

// A message would wait for somebody to answer it.
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

 private:
  Widget widget_;
};

void DrawNewRows(benchmark::State& state) {
  Tables tables(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    tables.view().ReplaceRows();
    tables.view().ShowMarks();
    benchmark::DoNotOptimize(tables.view().grab());
  }
}
BENCHMARK(DrawNewRows)->ArgName("rows")->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

// One letter more or less in the filter: every tenth row is drawn, and then every hundredth.
void FilterRows(benchmark::State& state) {
  Tables tables(static_cast<int>(state.range(0)));
  auto& filter = *tables.view().window()->findChild<QLineEdit*>(QStringLiteral("lsttables.filter"));
  for (auto _ : state) {
    filter.setText(filter.text() == u"7" ? QStringLiteral("77") : QStringLiteral("7"));
    tables.Draw();
  }
}
BENCHMARK(FilterRows)->ArgName("rows")->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

// A click on the first row, with its step for Undo, and what it changes on the screen.
void MarkARow(benchmark::State& state) {
  Tables tables(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    QTest::mouseClick(tables.view().viewport(), Qt::LeftButton, {}, QPoint(20, 8));
    tables.Draw();
  }
}
BENCHMARK(MarkARow)->ArgName("rows")->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

// A key in the middle of a coloured text, and what it changes on the screen.
void TypeAKey(benchmark::State& state) {
  Widget widget;
  widget.setSyntax_Highlight(true);
  QString text;
  while (text.size() < state.range(0))
    text += QStringLiteral("if CUSTOMER.C_ID = :var.id and \"x\" <> upper(NAME) then~");
  widget.setPrpStroutput(text);
  widget.resize(900, 650);
  widget.show();
  widget.activateWindow();
  auto& box = *widget.findChild<QPlainTextEdit*>(QStringLiteral("TxtOutput"));
  box.setFocus();
  QTextCursor middle(box.document()->findBlockByNumber(box.blockCount() / 2));
  box.setTextCursor(middle);
  QApplication::processEvents();
  for (auto _ : state) {
    QTest::keyClick(&box, Qt::Key_7);
    widget.repaint();
    QApplication::processEvents();
  }
}
BENCHMARK(TypeAKey)->ArgName("letters")->Arg(1000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  benchmark::Initialize(&argc, argv);
  QApplication application(argc, argv);
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
