#include "hosts/composer/translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <algorithm>

#include "faces/qt/qt_text.h"
#include "hosts/kit/functions.h"

namespace zolt20::composer {
namespace {

// Installs the first available language of the user's list. English has no file and ends the
// search.
void Install(const QLocale& locale, const QString& name, const QString& folder) {
  for (const QString& language : locale.uiLanguages()) {
    const QLocale one(language);
    if (one.language() == QLocale::C || one.language() == QLocale::English) return;
    auto* translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(one, name, QStringLiteral("_"), folder)) {
      QCoreApplication::installTranslator(translator);
      return;
    }
    delete translator;
  }
}

bool IsKnown(const catalogue::Function& function) {
  static const auto known = [] {
    std::vector<catalogue::Function> functions = catalogue::SqliteFunctions();
    for (catalogue::Function& each : catalogue::StandardFunctions())
      functions.push_back(std::move(each));
    return functions;
  }();
  return std::find(known.begin(), known.end(), function) != known.end();
}

void TranslateWord(String& word) {
  const QByteArray english = qt::ToQt(word).toUtf8();
  if (!word.empty())
    word = qt::FromQt(QCoreApplication::translate("functions", english.constData()));
}

}  // namespace

void UseLanguage(const QString& language) {
  const QLocale locale = language.isEmpty() ? QLocale::system() : QLocale(language);
  if (!language.isEmpty()) QLocale::setDefault(locale);
  Install(locale, QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
  Install(locale, QStringLiteral("zolt20-composer"), QStringLiteral(":/translations"));
}

language::Words Sentences() {
  language::Words words;
  for (const language::Word word : language::AllWords()) {
    const QByteArray english = qt::ToQt(words[word]).toUtf8();
    words.Set(word, qt::FromQt(QCoreApplication::translate("language", english.constData())));
  }
  return words;
}

QString Translated(const hosts::Message& message) {
  return QString::fromStdString(message.In([](const char* pattern) {
    return QCoreApplication::translate("kit", pattern).toStdString();
  }));
}

QString Translated(const std::exception& error) {
  const auto* told = dynamic_cast<const hosts::MessageError*>(&error);
  return told == nullptr ? QString::fromUtf8(error.what()) : Translated(told->Told());
}

catalogue::Function Translated(const catalogue::Function& function) {
  if (!IsKnown(function)) return function;
  catalogue::Function words = function;
  TranslateWord(words.kind);
  TranslateWord(words.text);
  for (String& argument : words.arguments)
    TranslateWord(argument);
  return words;
}

}  // namespace zolt20::composer
