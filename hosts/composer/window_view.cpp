// How the composer's window looks: sizes, panes and letters, which come back at the next start.
#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QFileInfo>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QStatusBar>
#include <algorithm>

#include "hosts/composer/cut_label.h"
#include "hosts/composer/edit_menu.h"
#include "hosts/composer/main_window.h"
#include "hosts/composer/rules_list.h"
#include "hosts/composer/settings.h"
#include "hosts/composer/statement_tree.h"
#include "hosts/composer/status_line.h"

namespace zolt20::composer {
namespace {

constexpr int kSmallestZoom = 50;
constexpr int kLargestZoom = 300;
constexpr int kRecentFiles = 8;

enum Colors { kAsTheSystem, kLight, kDark };

QPalette PaletteOf(int colors) {
  if (colors == kAsTheSystem) return {};
  QPalette palette(colors == kDark ? QColor(53, 53, 57) : QColor(239, 239, 239));
  if (colors == kLight) return palette;
  palette.setColor(QPalette::Base, QColor(35, 35, 38));
  palette.setColor(QPalette::AlternateBase, QColor(45, 45, 49));
  palette.setColor(QPalette::Link, QColor(110, 170, 255));
  palette.setColor(QPalette::Highlight, QColor(42, 110, 190));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::PlaceholderText, QColor(160, 160, 165));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, QColor(235, 235, 235));
    palette.setColor(QPalette::Disabled, role, QColor(140, 140, 145));
  }
  return palette;
}

void Enlarge(QWidget& widget, qreal points, int zoom) {
  QFont font = widget.font();
  font.setPointSizeF(points * zoom / 100);
  widget.setFont(font);
}

}  // namespace

// Applies the zoom and the palette to a new control.
void MainWindow::ShowMap() {
  edit_->Follow(*map_);
  mapPoints_ = map_->font().pointSizeF();
  if (zoom_ != kNormalZoom) Enlarge(*map_, mapPoints_, zoom_);
  if (auto* result = map_->findChild<QPlainTextEdit*>(QStringLiteral("TxtOutput")))
    status_->Follow(*result);
  ShowTreeOf(*map_);
}

void MainWindow::Zoom(int percent) {
  zoom_ = std::clamp(percent, kSmallestZoom, kLargestZoom);
  Enlarge(*map_, mapPoints_, zoom_);
  Enlarge(*list_, font().pointSizeF(), zoom_);
  Enlarge(*tree_, font().pointSizeF(), zoom_);
  statusBar()->showMessage(tr("Zoom: %1 %").arg(zoom_), 2000);
}

void MainWindow::UseColors(int colors) {
  colors_->actions()[colors]->setChecked(true);
  QApplication::setPalette(PaletteOf(colors));
}

// Recent files.

void MainWindow::AddRecent(const QString& kind, const QString& path) {
  if (!keepsSettings_) return;
  const QString whole = QFileInfo(path).absoluteFilePath();
  Settings settings;
  QStringList files = settings.value(kind).toStringList();
  files.removeAll(whole);
  files.prepend(whole);
  settings.setValue(kind, QStringList(files.mid(0, kRecentFiles)));
}

void MainWindow::ShowRecent() {
  recent_->clear();
  const Settings settings;
  const auto add = [&](const QString& kind, auto open) {
    for (const QString& path : settings.value(kind).toStringList()) {
      QAction* action = recent_->addAction(ShortName(path).replace(u'&', QLatin1String("&&")), this,
                                           [path, open] { open(path); });
      action->setToolTip(TipOf(path));
    }
  };
  add(QStringLiteral("recent/rules"), [this](const QString& path) {
    if (MayLeaveRule() && MayLeaveRules()) OpenRules(path);
  });
  recent_->addSeparator();
  add(QStringLiteral("recent/catalogues"), [this](const QString& path) {
    if (MayLeaveRule()) OpenCatalogue(path);
  });
}

void MainWindow::OpenLastSession() {
  const Settings settings;
  const auto last = [&](const char* kind) {
    const QString path = settings.value(QLatin1String(kind)).toStringList().value(0);
    return QFileInfo::exists(path) ? path : QString();
  };
  const QString catalogue = last("recent/catalogues");
  const QString rules = last("recent/rules");
  if (!catalogue.isEmpty()) OpenCatalogue(catalogue);
  if (!rules.isEmpty()) OpenRules(rules);
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  showTree_.FitInto(width());
  showList_.FitInto(width());
}

void MainWindow::UseSettings() {
  keepsSettings_ = true;
  const Settings settings;
  const QRect place = settings.value(QStringLiteral("window/place")).toRect();
  if (place.isValid()) PlaceOnScreens(*this, place);
  if (settings.value(QStringLiteral("window/maximized")).toBool()) showMaximized();
  split_->restoreState(settings.value(QStringLiteral("window/panes")).toByteArray());
  showList_.Want(settings.value(QStringLiteral("window/list"), true).toBool());
  showTree_.Want(settings.value(QStringLiteral("window/statements"), true).toBool());
  const int zoom = settings.value(QStringLiteral("window/zoom"), kNormalZoom).toInt();
  if (zoom != kNormalZoom) Zoom(zoom);
  UseColors(std::clamp(settings.value(QStringLiteral("window/colours")).toInt(), 0, int{kDark}));
}

void MainWindow::KeepSettings() {
  if (!keepsSettings_) return;
  Settings settings;
  settings.setValue(QStringLiteral("window/place"), normalGeometry());
  settings.setValue(QStringLiteral("window/maximized"), isMaximized());
  settings.setValue(QStringLiteral("window/panes"), split_->saveState());
  settings.setValue(QStringLiteral("window/zoom"), zoom_);
  settings.setValue(QStringLiteral("window/colours"),
                    colors_->actions().indexOf(colors_->checkedAction()));
  settings.setValue(QStringLiteral("window/list"), showList_.IsWanted());
  settings.setValue(QStringLiteral("window/statements"), showTree_.IsWanted());
}

}  // namespace zolt20::composer
