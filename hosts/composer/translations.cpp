#include "hosts/composer/translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "faces/qt/qt_text.h"

namespace zolt20::composer {
namespace {

// The first of the person's languages that there is; behind English, which has no file, no other
// one is looked for.
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

}  // namespace zolt20::composer
