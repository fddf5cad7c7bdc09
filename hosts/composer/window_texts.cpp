// Texts that leave the composer's window: by the clipboard and as files.
#include <QApplication>
#include <QClipboard>
#include <QFileDialog>

#include "faces/qt/qt_text.h"
#include "hosts/composer/main_window.h"
#include "hosts/composer/text_leaving.h"
#include "surface/surface.h"

namespace zolt20::composer {

using qt::ToQt;
using qt::View;

QString MainWindow::ShownText() const {
  const QString result = ToQt(map_->form().TxtOutput.Text());
  const Rule* rule = rules_ && !rule_.isEmpty() ? rules_->Find(View(rule_)) : nullptr;
  return result.isEmpty() && rule != nullptr ? ToQt(rule->text) : result;
}

void MainWindow::CopyText() {
  QApplication::clipboard()->setText(ShownText());
}

void MainWindow::ExportText() {
  AskAndSaveText(*this, tr("Export Text"), ShownText());
}

void MainWindow::SaveRecord() {
  const QString path = QFileDialog::getSaveFileName(this, tr("Save Session Record"), {},
                                                    tr("Sessions (*.jsonl);;All files (*)"));
  if (!path.isEmpty()) SaveBytes(*this, path, map_->Record());
}

}  // namespace zolt20::composer
