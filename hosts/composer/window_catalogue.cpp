// The catalogue of the composer's window: where it comes from, where it is saved, its functions.
#include <QFileDialog>
#include <QMessageBox>
#include <QStatusBar>

#include "faces/qt/qt_text.h"
#include "hosts/composer/function_editor.h"
#include "hosts/composer/main_window.h"
#include "hosts/composer/server_dialog.h"
#include "hosts/composer/translations.h"

namespace zolt20::composer {

using qt::ToQt;

bool MainWindow::OpenCatalogue(const QString& path) {
  try {
    TakeCatalogue(ReadCatalogueAt(path), path);
    AddRecent(QStringLiteral("recent/catalogues"), path);
  } catch (const catalogue::CatalogueError& error) {
    Complain(tr("Open Catalogue"), (path + QStringLiteral(": ") + Translated(error)).toStdString());
    return false;
  }
  return true;
}

void MainWindow::OpenDatabase() {
  ServerDialog dialog(this);
  if (dialog.exec() == QDialog::Accepted && MayLeaveRule())
    TakeCatalogue(dialog.Opened(), dialog.Opened().place.database);
}

void MainWindow::TakeCatalogue(OpenedCatalogue opened, const QString& from) {
  catalogue_ = std::move(opened.catalogue);
  cataloguePlace_ = std::move(opened.place);
  catalogueName_ = ToQt(catalogue_.name);
  UseNames();
  OfferNames();
  OpenRule(rule_);
  if (opened.leftOut.isEmpty()) return;
  QMessageBox message(QMessageBox::Information, tr("Open Catalogue"),
                      tr("Not all of %1 can be used.").arg(from), QMessageBox::Ok, this);
  message.setInformativeText(tr("Left out: %1").arg(opened.leftOut.size()));
  message.setDetailedText(opened.leftOut.join(u'\n'));
  message.exec();
}

// Whether there is a catalogue; shows a message if there is none.
bool MainWindow::NeedCatalogue(const QString& title) {
  if (!cataloguePlace_.file.isEmpty() || !cataloguePlace_.database.isEmpty()) return true;
  Complain(title, tr("There is no catalogue. Open one first.").toStdString());
  return false;
}

// Saves the catalogue as JSON, which is then the open catalogue.
void MainWindow::SaveCatalogueAs() {
  const QString title = tr("Save Catalogue As");
  if (!NeedCatalogue(title)) return;
  const QString path = QFileDialog::getSaveFileName(this, title, cataloguePlace_.file,
                                                    tr("Catalogues (*.json);;All files (*)"));
  if (path.isEmpty()) return;
  try {
    WriteWholeFile(path, QByteArray::fromStdString(catalogue::WriteCatalogue(catalogue_)));
  } catch (const RulesError& error) {
    return Complain(title, error);
  }
  cataloguePlace_ = {QFileInfo(path).absoluteFilePath(), {}};
  statusBar()->showMessage(tr("Saved %1").arg(path), 5000);
}

void MainWindow::EditFunctions() {
  const QString title = tr("Edit Functions");
  if (!NeedCatalogue(title)) return;
  const QString place = tr("Kept in %1").arg(PlaceOfFunctions(cataloguePlace_));
  FunctionEditor editor(catalogue_.functions, place, this);
  while (editor.exec() == QDialog::Accepted) {
    try {
      KeepFunctions(cataloguePlace_, editor.Functions());
      catalogue_.functions = editor.Functions();
      return;
    } catch (const std::runtime_error& error) {
      Complain(title, error);  // and the editor comes back
    }
  }
}

}  // namespace zolt20::composer
