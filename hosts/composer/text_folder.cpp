#include "hosts/composer/text_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSet>
#include <QStringDecoder>

#include "faces/qt/qt_text.h"

namespace zolt20::composer {
namespace {

using qt::FromQt;
using qt::ToQt;

constexpr const char* kEnding = ".txt";

bool MayStand(QChar character, bool isFirst) {
  if (character == u'%' || character < u' ') return false;
  if (isFirst && character == u'.') return false;
  return !QStringLiteral("/\\:*?\"<>|").contains(character);
}

[[noreturn]] void Fail(const QString& text, const QString& file) {
  throw RulesError(text.arg(file).toStdString());
}

}  // namespace

QString FileNameOf(StringView rule) {
  QString name;
  for (const QChar character : ToQt(rule)) {
    name += MayStand(character, name.isEmpty())
                ? QString(character)
                : QStringLiteral("%%1").arg(character.unicode(), 4, 16, QChar(u'0'));
  }
  return name + QLatin1String(kEnding);
}

QString RuleNameOf(const QString& fileName) {
  if (!fileName.endsWith(QLatin1String(kEnding))) return {};
  const QString stem = fileName.chopped(static_cast<qsizetype>(qstrlen(kEnding)));
  QString name;
  for (qsizetype at = 0; at < stem.size(); ++at) {
    bool isCode = stem[at] == u'%' && at + 4 < stem.size();
    const ushort code = isCode ? stem.mid(at + 1, 4).toUShort(&isCode, 16) : ushort{0};
    name += isCode ? QChar(code) : stem[at];
    if (isCode) at += 4;
  }
  return name;
}

void ExportTexts(const std::vector<Rule>& rules, const QString& folder) {
  const QDir directory(folder);
  if (!directory.mkpath(QStringLiteral(".")))
    Fail(QCoreApplication::translate("composer", "The folder %1 can't be made."), folder);
  // Some file systems ignore case, so names are compared without it.
  QSet<QString> taken;
  for (const Rule& rule : rules) {
    const QString name = FileNameOf(rule.name);
    if (taken.contains(name.toCaseFolded()))
      Fail(QCoreApplication::translate("composer", "Two rules would have the file %1."), name);
    taken.insert(name.toCaseFolded());
    const QString text = ToQt(rule.text);
    const QByteArray utf8 = text.toUtf8();
    if (QString::fromUtf8(utf8) != text)
      Fail(QCoreApplication::translate("composer", "%1 can't be written as UTF-8."), name);
    WriteWholeFile(directory.filePath(name), utf8);
  }
}

std::vector<Rule> ImportTexts(const QString& folder) {
  const QDir directory(folder);
  if (!directory.exists())
    Fail(QCoreApplication::translate("composer", "There is no folder %1."), folder);
  std::vector<Rule> rules;
  for (const QString& file : directory.entryList({QStringLiteral("*") + QLatin1String(kEnding)},
                                                 QDir::Files, QDir::Name)) {
    QFile content(directory.filePath(file));
    if (!content.open(QFile::ReadOnly))
      Fail(QCoreApplication::translate("composer", "%1 can't be read."), file);
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder(content.readAll());
    if (decoder.hasError()) Fail(QCoreApplication::translate("composer", "%1 is no UTF-8."), file);
    // An editor may have changed CR LF to LF.
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(u'\n', QStringLiteral("\r\n"));
    const QString name = RuleNameOf(file);
    if (!name.isEmpty()) rules.push_back({FromQt(name), FromQt(text), {}});
  }
  return rules;
}

}  // namespace zolt20::composer
