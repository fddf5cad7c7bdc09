#include "hosts/composer/text_leaving.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QTextCursor>
#include <QTextDocument>

#include "hosts/composer/rules_file.h"
#include "hosts/composer/translations.h"

namespace zolt20::composer {

void PrintText(const QString& name, const QString& text, QPrinter& printer) {
  QTextDocument document;
  QTextCursor at(&document);
  QTextCharFormat heading;
  heading.setFontWeight(QFont::Bold);
  heading.setFontPointSize(14);
  at.insertText(name + u'\n', heading);
  QTextCharFormat letters;
  letters.setFontFamilies({QStringLiteral("monospace")});
  letters.setFontPointSize(10);
  at.insertText(QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")), letters);
  document.print(&printer);
}

void AskAndPrint(QWidget& window, const QString& name, const QString& text) {
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, &window);
  if (dialog.exec() == QDialog::Accepted) PrintText(name, text, printer);
}

void AskAndSaveText(QWidget& window, const QString& title, const QString& text) {
  const QByteArray utf8 = text.toUtf8();
  if (QString::fromUtf8(utf8) != text) {
    QMessageBox::warning(
        &window, title,
        QCoreApplication::translate(
            "composer", "The text holds half of a character and can't be written as UTF-8."));
    return;
  }
  const QString path = QFileDialog::getSaveFileName(&window, title);
  if (!path.isEmpty()) SaveBytes(window, path, utf8);
}

void SaveBytes(QWidget& window, const QString& path, const QByteArray& content) {
  try {
    WriteWholeFile(path, content);
  } catch (const RulesError& error) {
    QMessageBox::warning(&window, QCoreApplication::translate("composer", "Save"),
                         Translated(error));
  }
}

}  // namespace zolt20::composer
