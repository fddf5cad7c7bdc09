#include "hosts/composer/help_window.h"

#include <QAction>
#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QHeaderView>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTableWidget>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "hosts/composer/settings.h"

namespace zolt20::composer {
namespace {

struct Key {
  QString keys;
  QString does;
};

QString Plain(QString text) {
  text.remove(QStringLiteral("..."));
  text.replace(QStringLiteral("&&"), QString(QChar(1)));
  return text.remove(u'&').replace(QChar(1), u'&');
}

void AddKeys(const QMenu& menu, const QString& path, std::vector<Key>& keys) {
  for (const QAction* action : menu.actions()) {
    const QVariant command = action->property("command");
    const QString name = path + QStringLiteral(" / ") +
                         Plain(command.isValid() ? command.toString() : action->text());
    if (action->menu() != nullptr) AddKeys(*action->menu(), name, keys);
    QStringList texts;
    for (const QKeySequence& sequence : action->shortcuts())
      texts.append(sequence.toString(QKeySequence::NativeText));
    texts.removeDuplicates();
    if (!texts.isEmpty()) keys.push_back({texts.join(QStringLiteral(", ")), name});
  }
}

std::vector<Key> KeysOf(const QMainWindow& window) {
  std::vector<Key> keys;
  for (const QAction* action : window.menuBar()->actions()) {
    if (action->menu() != nullptr) AddKeys(*action->menu(), Plain(action->text()), keys);
  }
  const auto native = [](QKeySequence sequence) {
    return sequence.toString(QKeySequence::NativeText);
  };
  keys.push_back(
      {native(Qt::ALT | Qt::Key_Up) + QStringLiteral(", ") + native(Qt::ALT | Qt::Key_Down),
       QCoreApplication::translate("composer", "Move the rule in the list")});
  return keys;
}

// A window that is not modal and is deleted with `parent`.
QDialog& NewWindow(QMainWindow& parent, const QString& title, QWidget* content, QSize size) {
  auto* dialog = new QDialog(&parent);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setWindowTitle(title);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
  auto* layout = new QVBoxLayout(dialog);
  layout->addWidget(content);
  layout->addWidget(buttons);
  ResizeWithinScreen(*dialog, size);
  dialog->show();
  return *dialog;
}

}  // namespace

void ShowHelp(QMainWindow& window) {
  auto* pages = new QTextBrowser;
  pages->setObjectName(QStringLiteral("help"));
  pages->setOpenExternalLinks(true);
  // Only docs/composer.md and its pictures are in the resources of the program.
  pages->setSource(QUrl(QStringLiteral("qrc:/help/composer.md")), QTextDocument::MarkdownResource);
  NewWindow(window, QCoreApplication::translate("composer", "Composer Help"), pages, {820, 640});
}

void ShowKeys(QMainWindow& window) {
  const std::vector<Key> keys = KeysOf(window);
  auto* table = new QTableWidget(static_cast<int>(keys.size()), 2);
  table->setObjectName(QStringLiteral("keys"));
  table->setHorizontalHeaderLabels({QCoreApplication::translate("composer", "Keys"),
                                    QCoreApplication::translate("composer", "Command")});
  table->verticalHeader()->hide();
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->setTabKeyNavigation(false);
  for (int row = 0; row < table->rowCount(); ++row) {
    const Key& key = keys[static_cast<std::size_t>(row)];
    table->setItem(row, 0, new QTableWidgetItem(key.keys));
    table->setItem(row, 1, new QTableWidgetItem(key.does));
  }
  table->resizeColumnsToContents();
  table->horizontalHeader()->setStretchLastSection(true);
  NewWindow(window, QCoreApplication::translate("composer", "Keys"), table, {520, 560});
}

void ShowAbout(QMainWindow& window) {
  QMessageBox::about(
      &window, QCoreApplication::translate("composer", "About"),
      QCoreApplication::translate("composer", "Composer of rules, version %1, with Qt %2.")
          .arg(QCoreApplication::applicationVersion(), QString::fromLatin1(qVersion())));
}

}  // namespace zolt20::composer
