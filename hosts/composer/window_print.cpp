// What leaves the composer's window on paper and as whole folders.
#include <QFileDialog>
#include <QMessageBox>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QStatusBar>

#include "faces/qt/qt_text.h"
#include "hosts/composer/cut_label.h"
#include "hosts/composer/main_window.h"
#include "hosts/composer/text_folder.h"
#include "hosts/composer/text_leaving.h"

namespace zolt20::composer {
using qt::ToQt;

void MainWindow::Print() {
  AskAndPrint(*this, PrintedName(), ShownText());
}

void MainWindow::PreviewPrint() {
  QPrinter printer(QPrinter::HighResolution);
  QPrintPreviewDialog preview(&printer, this);
  connect(&preview, &QPrintPreviewDialog::paintRequested, this,
          [this](QPrinter* paper) { PrintText(PrintedName(), ShownText(), *paper); });
  preview.exec();
}

void MainWindow::SavePdf() {
  const QString path =
      QFileDialog::getSaveFileName(this, tr("Save as PDF"), {}, tr("PDF (*.pdf);;All files (*)"));
  if (path.isEmpty()) return;
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(path);
  PrintText(PrintedName(), ShownText(), printer);
  if (!QFileInfo::exists(path))
    Complain(tr("Save as PDF"), tr("%1 can't be written.").arg(path).toStdString());
}

QString MainWindow::PrintedName() const {
  return rule_.isEmpty() ? tr("New rule") : rule_;
}

void MainWindow::ExportRules() {
  if (!rules_) return;
  const QString folder = QFileDialog::getExistingDirectory(this, tr("Export All Rules"));
  if (folder.isEmpty()) return;
  try {
    ExportTexts(rules_->rules(), folder);
  } catch (const RulesError& error) {
    return Complain(tr("Export All Rules"), error);
  }
  statusBar()->showMessage(tr("Rules written: %1").arg(rules_->rules().size()), 5000);
}

// Imports a folder of text files. A rule of the same name gets the text of its file.
void MainWindow::ImportRules() {
  if (!MayLeaveRule() || !NeedRules()) return;
  const QString folder = QFileDialog::getExistingDirectory(this, tr("Import Rules"));
  if (folder.isEmpty()) return;
  try {
    std::vector<Rule> rules = ImportTexts(folder);
    QStringList replaced;
    for (Rule& rule : rules) {
      const Rule* old = rules_->Find(rule.name);
      if (old == nullptr || old->text == rule.text) continue;
      rule.fields = old->fields;
      replaced.append(ShortName(ToQt(rule.name)));
    }
    if (!replaced.isEmpty() &&
        QMessageBox::question(this, tr("Import Rules"),
                              tr("Rules that get another text: %1").arg(replaced.size())) !=
            QMessageBox::Yes)
      return;
    for (const Rule& rule : rules) {
      const Rule* old = rules_->Find(rule.name);
      if (old == nullptr || old->text != rule.text) rules_->Put(rule);
    }
    statusBar()->showMessage(tr("Rules read: %1").arg(rules.size()), 5000);
  } catch (const RulesError& error) {
    return Complain(tr("Import Rules"), error);
  }
  Save();
  OpenRule(rule_);
}

}  // namespace zolt20::composer
