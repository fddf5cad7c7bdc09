// A Qt program with the control in a dialog: it offers two tables, answers the requests with a
// line of text that the user types, and prints the statement.
#include <QApplication>
#include <QDialog>
#include <QInputDialog>
#include <QTextStream>
#include <QVBoxLayout>

#include "faces/qt/map_widget.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QDialog dialog;
  dialog.setWindowTitle("Rule");
  auto* map = new ZOLT20MapWidget;
  (new QVBoxLayout(&dialog))->addWidget(map);

  // Tables have names of 8 characters, with the count of their indexes behind them.
  map->setPrpStrTables("CUSTOMER2,ORDERS__1");
  const QString record = "%1*Q*V*R*N*%2%3*Q*V*R*N*%4";
  map->setPrpStrFields(QStringList{record.arg("long", "N", "CUSTOMER.C_ID", "key"),
                                   record.arg("char", "N", "CUSTOMER.C_LAST", "name"),
                                   record.arg("long", "N", "ORDERS__.O_C_ID", "key"),
                                   record.arg("date", "Y", "ORDERS__.O_ENTRY_D", "day")}
                           .join(','));
  map->setSyntax_Highlight(true);

  // A request is answered from inside its signal, through the property of the page.
  const auto answer = [map] {
    const QString text = QInputDialog::getText(map, "Request", "Text");
    if (text.isEmpty()) return;
    const QString page = map->prpStrSQLPart();
    if (page == "D") map->setPrpSelectDoPart(text);
    if (page == "E") map->setPrpSelectEOSPart(text);
    if (page == "O") map->setPrpSelectEmptyPart(text);
    if (page == "F") map->setPrpSelectErrorPart(text);
    if (page == "C") map->setPrpStroutput(text);
  };
  for (const auto request : {&ZOLT20MapWidget::eventSubQuery, &ZOLT20MapWidget::eventCondition,
                             &ZOLT20MapWidget::eventFunction}) {
    QObject::connect(map, request, map, answer);
  }
  QObject::connect(map, &ZOLT20MapWidget::Failed, map, [](const QString& kind, int number) {
    QTextStream(stderr) << kind << " (" << number << ")\n";
  });
  QObject::connect(map, &ZOLT20MapWidget::eventDone, &dialog, &QDialog::accept);
  QObject::connect(map, &ZOLT20MapWidget::eventCancel, &dialog, &QDialog::reject);

  if (dialog.exec() != QDialog::Accepted) return 1;
  QTextStream(stdout) << map->prpStroutput() << '\n' << map->prpstrSelectedFields() << '\n';
  return 0;
}
