// Texts that leave the composer's window: by the clipboard and as files.
#include <QApplication>
#include <QClipboard>
#include <QFileDialog>

#include "faces/qt/qt_text.h"
#include "hosts/composer/main_window.h"
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
  const QString text = ShownText();
  const QByteArray utf8 = text.toUtf8();
  if (QString::fromUtf8(utf8) != text) {
    return Complain(
        tr("Export"),
        tr("The text holds half of a character and can't be written as UTF-8.").toStdString());
  }
  const QString path = QFileDialog::getSaveFileName(this, tr("Export Text"));
  if (!path.isEmpty()) WriteFile(path, utf8);
}

void MainWindow::SaveRecord() {
  const QString path = QFileDialog::getSaveFileName(this, tr("Save Session Record"), {},
                                                    tr("Sessions (*.jsonl);;All files (*)"));
  if (!path.isEmpty()) WriteFile(path, map_->Record());
}

void MainWindow::WriteFile(const QString& path, const QByteArray& content) {
  try {
    WriteWholeFile(path, content);
  } catch (const RulesError& error) {
    Complain(tr("Save"), error.what());
  }
}

}  // namespace zolt20::composer
