// Drives the program of examples/qt as a person would: linked with it, it waits for the dialog,
// composes a statement with the mouse and clicks Done.
#include <QAbstractItemView>
#include <QApplication>
#include <QTest>
#include <QTimer>

#include "faces/qt/map_widget.h"

namespace {

void ClickRow(const ZOLT20MapWidget& map, const QString& list, int row) {
  auto* view = map.findChild<QAbstractItemView*>(list);
  QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                    view->visualRect(view->model()->index(row, 0)).center());
}

void Click(const ZOLT20MapWidget& map, const QString& button) {
  QTest::mouseClick(map.findChild<QWidget*>(button), Qt::LeftButton);
}

void Drive() {
  for (QWidget* widget : QApplication::allWidgets()) {
    auto* map = qobject_cast<ZOLT20MapWidget*>(widget);
    if (map == nullptr) continue;
    ClickRow(*map, QStringLiteral("lsttables"), 0);
    ClickRow(*map, QStringLiteral("lstFields"), 2);
    Click(*map, QStringLiteral("cmdMoveOne"));
    Click(*map, QStringLiteral("cmdAddSelect"));
    Click(*map, QStringLiteral("cmdDone"));
    return;
  }
}

void DriveLater() {
  QTimer::singleShot(0, &Drive);
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(DriveLater)
