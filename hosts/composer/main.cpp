// zolt20-composer: rules are composed, stored and opened again, on a catalogue.
//
//   zolt20-composer [CATALOGUE [RULES.json]]
//   zolt20-composer --picture FILE.png SESSION.jsonl
//
// CATALOGUE is a JSON file or a SQLite database. The second form plays a recorded session and
// writes a picture of the composer in the state after it; it needs no display. Exit status: 0, or 1
// when a file can't be read or written, with a line on standard error for the second form.
#include <QApplication>
#include <QCommandLineParser>
#include <QTextStream>
#include <fstream>
#include <string>

#include "hosts/automation/session.h"
#include "hosts/composer/main_window.h"

namespace {

using zolt20::composer::MainWindow;

int Complain(const QString& text) {
  QTextStream(stderr) << "zolt20-composer: " << text << '\n';
  return 1;
}

int DrawSession(const QString& session, const QString& picture) {
  std::ifstream input(session.toStdString());
  if (!input) return Complain(session + QStringLiteral(" can't be read"));
  zolt20::automation::Session played;
  for (std::string line; std::getline(input, line);) {
    if (!zolt20::automation::Session::IsSkipped(line)) played.Reply(line);
  }
  MainWindow window;
  window.map().restore(played.Control().Save());
  window.map().setSyntax_Highlight(true);
  window.show();
  // The layout and the colours come with the loop, scroll bars some rounds later.
  for (int round = 0; round < 3; ++round)
    QApplication::processEvents();
  if (!window.grab().save(picture)) return Complain(picture + QStringLiteral(" can't be written"));
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const bool draws = argc > 1 && std::string(argv[1]).starts_with("--picture");
  if (draws && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // It has warnings for whatever only a screen can do.
    if (!qEnvironmentVariableIsSet("QT_LOGGING_RULES"))
      qputenv("QT_LOGGING_RULES", "default.warning=false");
  }
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("zolt20-composer"));
  QCommandLineParser parser;
  parser.addHelpOption();
  parser.addOption({QStringLiteral("picture"),
                    QStringLiteral("Play the session and write a picture of the composer."),
                    QStringLiteral("FILE.png")});
  parser.addPositionalArgument(QStringLiteral("CATALOGUE"),
                               QStringLiteral("A JSON catalogue or a SQLite database, or with "
                                              "--picture a recorded session."),
                               QStringLiteral("[CATALOGUE"));
  parser.addPositionalArgument(QStringLiteral("RULES"), QStringLiteral("A file of rules."),
                               QStringLiteral("[RULES]]"));
  parser.process(application);
  const QStringList files = parser.positionalArguments();

  const QString picture = parser.value(QStringLiteral("picture"));
  if (!picture.isEmpty() && files.size() != 1) return Complain(QStringLiteral("name one session"));
  if (!picture.isEmpty()) return DrawSession(files[0], picture);

  MainWindow window;
  window.show();
  if (!files.isEmpty() && !window.OpenCatalogue(files[0])) return 1;
  if (files.size() > 1) window.OpenRules(files[1]);
  return QApplication::exec();
}
