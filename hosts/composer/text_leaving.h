// How the text of a rule leaves a window: on paper and as a file. Menus and panes share it.
#pragma once

#include <QByteArray>
#include <QString>

class QPrinter;
class QWidget;

namespace zolt20::composer {

/// Fills pages with the text in letters of one width, below its name.
void PrintText(const QString& name, const QString& text, QPrinter& printer);
/// Asks for a printer and prints.
void AskAndPrint(QWidget& window, const QString& name, const QString& text);

/// Asks for a file by a dialog of that title and writes the text as UTF-8, to the last line end.
/// What goes wrong is told in a message, and a file that was there stays whole.
void AskAndSaveText(QWidget& window, const QString& title, const QString& text);
/// Writes a whole file, or leaves the old one and says why in a message.
void SaveBytes(QWidget& window, const QString& path, const QByteArray& content);

}  // namespace zolt20::composer
