// zolt20-window: the control in a window of its own, on a catalogue file.
//
//   zolt20-window CATALOGUE.json
//   zolt20-window --picture FILE.png SESSION.jsonl
//
// The second form plays a recorded session and writes a picture of the widget in the state after
// it; it needs no display. Exit status: 0, or 1 when a file can't be read or written, with a line
// on standard error.
#include <QApplication>
#include <QInputDialog>
#include <QTextStream>
#include <fstream>
#include <string>

#include "faces/qt/map_widget.h"
#include "hosts/automation/session.h"
#include "hosts/catalogue/catalogue.h"

namespace {

using zolt20::String;

QString ToQt(const String& text) {
  return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

int Complain(const QString& text) {
  QTextStream(stderr) << "zolt20-window: " << text << '\n';
  return 1;
}

// The text of a request, typed by the person, goes to the property that the page asks for.
void AnswerRequests(ZOLT20MapWidget& map) {
  const auto answer = [&map] {
    const QString typed =
        QInputDialog::getMultiLineText(&map, QStringLiteral("Request"), QStringLiteral("Text"));
    if (typed.isEmpty()) return;
    QString text = typed;
    text.replace(u'\n', u'~')
        .replace(u'\t', QChar(1))
        .replace(QLatin1String("\""), QLatin1String("`^`"));
    const QString page = map.prpStrSQLPart();
    if (page == u"D") map.setPrpSelectDoPart(text);
    if (page == u"E") map.setPrpSelectEOSPart(text);
    if (page == u"O") map.setPrpSelectEmptyPart(text);
    if (page == u"F") map.setPrpSelectErrorPart(text);
    if (page == u"C") map.setPrpStroutput(text);
  };
  for (const auto request : {&ZOLT20MapWidget::eventSubQuery, &ZOLT20MapWidget::eventCondition,
                             &ZOLT20MapWidget::eventFunction}) {
    QObject::connect(&map, request, &map, answer);
  }
}

int ShowCatalogue(const std::string& file) {
  ZOLT20MapWidget map;
  try {
    const zolt20::catalogue::Catalogue catalogue = zolt20::catalogue::ReadCatalogue(file);
    map.setPrpStrTables(ToQt(TableList(catalogue)));
    map.setPrpStrFields(ToQt(FieldList(catalogue)));
    map.setWindowTitle(ToQt(catalogue.name));
  } catch (const zolt20::catalogue::CatalogueError& error) {
    return Complain(QString::fromUtf8(error.what()));
  }
  map.setSyntax_Highlight(true);
  AnswerRequests(map);
  QObject::connect(&map, &ZOLT20MapWidget::eventDone, &map, [&map] {
    QTextStream(stdout) << map.prpStroutput() << '\n';
    map.close();
  });
  QObject::connect(&map, &ZOLT20MapWidget::eventCancel, &map, &QWidget::close);
  QObject::connect(&map, &ZOLT20MapWidget::Failed, &map,
                   [](const QString& kind, int number, const QString& text) {
                     Complain(QStringLiteral("%1 (%2): %3").arg(kind).arg(number).arg(text));
                   });
  map.resize(900, 650);
  map.show();
  return QApplication::exec();
}

int DrawSession(const std::string& session, const QString& picture) {
  std::ifstream input(session);
  if (!input) return Complain(QStringLiteral("%1 can't be read").arg(session.c_str()));
  zolt20::automation::Session played;
  for (std::string line; std::getline(input, line);) {
    if (!zolt20::automation::Session::IsSkipped(line)) played.Reply(line);
  }
  ZOLT20MapWidget map;
  map.resize(900, 650);
  map.restore(played.Control().Save());
  map.setSyntax_Highlight(true);
  map.show();
  QApplication::processEvents();  // the layout and the colours come with the loop
  if (!map.grab().save(picture)) return Complain(picture + QStringLiteral(" can't be written"));
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const bool draws = argc == 4 && std::string(argv[1]) == "--picture";
  if (draws && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  if (!draws && argc != 2) {
    return Complain(
        QStringLiteral("zolt20-window CATALOGUE.json | --picture FILE.png SESSION.jsonl"));
  }
  QApplication application(argc, argv);
  return draws ? DrawSession(argv[3], QString::fromLocal8Bit(argv[2])) : ShowCatalogue(argv[1]);
}
