// Prints and exports the text of a rule, for menus and panes.
#pragma once

#include <QByteArray>
#include <QString>

class QPrinter;
class QWidget;

namespace zolt20::composer {

/// Paints the text on the pages of a printer in a fixed-width font, below its name.
void PrintText(const QString& name, const QString& text, QPrinter& printer);
/// Shows the printer dialog and prints.
void AskAndPrint(QWidget& window, const QString& name, const QString& text);

/// Shows a file dialog with that title and writes the text as UTF-8, exactly. On failure a message
/// is shown, and an existing file is unchanged.
void AskAndSaveText(QWidget& window, const QString& title, const QString& text);
/// Writes a file, or leaves the old one as it was and shows the reason in a message.
void SaveBytes(QWidget& window, const QString& path, const QByteArray& content);

}  // namespace zolt20::composer
