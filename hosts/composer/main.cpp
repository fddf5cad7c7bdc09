// zolt20-composer: rules are composed, stored and opened again, on a catalogue.
//
//   zolt20-composer [CATALOGUE [RULES.json]]
//   zolt20-composer --picture FILE.png SESSION.jsonl
//   zolt20-composer --export DIR RULES.json
//   zolt20-composer --check RULES.json CATALOGUE
//
// CATALOGUE is a JSON file or a SQLite database. The second form plays a recorded session and
// writes a picture of the composer in the state after it, the third one writes each rule into a
// text file of the folder, the fourth one tells what is wrong in the rules; they need no display.
// Exit status: 0, or 1 when a file can't be read or written, with a line on standard error for the
// forms behind the first one. Of the fourth one it is 1 when a rule has an error, and 2 when a file
// can't be read. All of them take --language.
#include <QApplication>
#include <QCommandLineParser>
#include <QTextStream>
#include <cstdlib>
#include <fstream>
#include <string>

#include "hosts/automation/session.h"
#include "hosts/composer/checking.h"
#include "hosts/composer/main_window.h"
#include "hosts/composer/server_catalogue.h"
#include "hosts/composer/text_folder.h"
#include "hosts/composer/translations.h"

namespace {

using zolt20::composer::MainWindow;

constexpr int kUnreadable = 2;  // of a check

int Complain(const QString& text, int status = 1) {
  QTextStream(stderr) << "zolt20-composer: " << text << '\n';
  return status;
}

int DrawSession(const QString& session, const QString& picture) {
  std::ifstream input(session.toStdString());
  if (!input)
    return Complain(QCoreApplication::translate("composer", "%1 can't be read").arg(session));
  zolt20::automation::Session played;
  for (std::string line; std::getline(input, line);) {
    if (!zolt20::automation::Session::IsSkipped(line)) played.Reply(line);
  }
  MainWindow window;
  window.resize(1160, 740);
  window.map().restore(played.Control().Save());
  window.map().setSyntax_Highlight(true);
  window.show();
  // The layout and the colours are done in the event loop; the scroll bars settle some rounds
  // later.
  for (int round = 0; round < 3; ++round)
    QApplication::processEvents();
  if (!window.grab().save(picture))
    return Complain(QCoreApplication::translate("composer", "%1 can't be written").arg(picture));
  return 0;
}

int Compose(const QStringList& files) {
  MainWindow window;
  window.UseSettings();
  window.show();
  if (files.isEmpty()) window.OpenLastSession();
  if (!files.isEmpty() && !window.OpenCatalogue(files[0])) return 1;
  if (files.size() > 1) window.OpenRules(files[1]);
  if (!window.rules()) window.OfferJournals();
  return QApplication::exec();
}

int ExportAll(const QString& rules, const QString& folder) {
  try {
    zolt20::composer::ExportTexts(zolt20::composer::RulesFile::Open(rules).rules(), folder);
  } catch (const zolt20::composer::RulesError& error) {
    return Complain(zolt20::composer::Translated(error));
  }
  return 0;
}

int CheckAll(const QString& rules, const QString& catalogue) {
  try {
    const zolt20::composer::RulesCheck check = zolt20::composer::CheckRulesAt(rules, catalogue);
    QTextStream(stdout) << QString::fromStdString(check.lines);
    return check.hasErrors ? 1 : 0;
  } catch (const std::exception& error) {
    return Complain(zolt20::composer::Translated(error), kUnreadable);
  }
}

bool NeedsNoDisplay(int argc, char** argv) {
  for (int at = 1; at < argc; ++at) {
    const std::string word = argv[at];
    for (const char* option : {"--picture", "--export", "--check", "--help", "--version"}) {
      if (word.starts_with(option)) return true;
    }
  }
  return false;
}

// The value of --language. It is read before the option parser exists, whose texts are translated.
QString LanguageIn(const QStringList& arguments) {
  const QString option = QStringLiteral("--language");
  for (qsizetype at = 1; at < arguments.size(); ++at) {
    if (arguments[at] == option) return arguments.value(at + 1);
    if (arguments[at].startsWith(option + u'=')) return arguments[at].mid(option.size() + 1);
  }
  return {};
}

void AddOptions(QCommandLineParser& parser) {
  const auto add = [&parser](const char* name, const QString& about, const char* value) {
    parser.addOption({QLatin1String(name), about, QLatin1String(value)});
  };
  parser.addHelpOption();
  parser.addVersionOption();
  add("picture",
      QCoreApplication::translate("composer",
                                  "Play the session and write a picture of the composer."),
      "FILE.png");
  add("export",
      QCoreApplication::translate("composer", "Write each rule into a text file of the folder."),
      "DIR");
  add("check", QCoreApplication::translate("composer", "Tell what is wrong in the rules."),
      "RULES.json");
  add("language",
      QCoreApplication::translate("composer",
                                  "Show texts in a language such as \"de\" or \"en\", in place of "
                                  "the system's."),
      "LANGUAGE");
  parser.addPositionalArgument(
      QStringLiteral("CATALOGUE"),
      QCoreApplication::translate("composer",
                                  "A JSON catalogue or a SQLite database, or with --picture a "
                                  "recorded session."),
      QStringLiteral("[CATALOGUE"));
  parser.addPositionalArgument(QStringLiteral("RULES"),
                               QCoreApplication::translate("composer", "A file of rules."),
                               QStringLiteral("[RULES]]"));
}

// Runs the option that was given, if it is not the interactive composer.
int Run(const QCommandLineParser& parser) {
  const QStringList files = parser.positionalArguments();
  const bool hasOne = files.size() == 1;
  const QString picture = parser.value(QStringLiteral("picture"));
  if (!picture.isEmpty()) {
    return hasOne ? DrawSession(files[0], picture)
                  : Complain(QCoreApplication::translate("composer", "name one session"));
  }
  const QString folder = parser.value(QStringLiteral("export"));
  if (!folder.isEmpty()) {
    return hasOne ? ExportAll(files[0], folder)
                  : Complain(QCoreApplication::translate("composer", "name one file of rules"));
  }
  const QString rules = parser.value(QStringLiteral("check"));
  if (!rules.isEmpty()) {
    return hasOne ? CheckAll(rules, files[0])
                  : Complain(QCoreApplication::translate("composer",
                                                         "name a file of rules and a catalogue"),
                             kUnreadable);
  }
  return Compose(files);
}

}  // namespace

int main(int argc, char** argv) {
  if (NeedsNoDisplay(argc, argv) && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The offscreen platform logs a warning for each feature that needs a screen.
    if (!qEnvironmentVariableIsSet("QT_LOGGING_RULES"))
      qputenv("QT_LOGGING_RULES", "default.warning=false");
  }
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("zolt20-composer"));
  QApplication::setApplicationVersion(QStringLiteral(ZOLT20_VERSION));
  zolt20::composer::UseLanguage(LanguageIn(QApplication::arguments()));
  QCommandLineParser parser;
  AddOptions(parser);
  parser.process(application);

  const int status = Run(parser);
  // A driver thread may still wait for its server; a normal exit would destroy Qt's globals below
  // it.
  if (zolt20::composer::ServerReader::Threads() > 0) std::_Exit(status);
  return status;
}
