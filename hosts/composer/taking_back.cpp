#include "hosts/composer/taking_back.h"

#include <QCoreApplication>

#include "faces/qt/qt_text.h"
#include "hosts/composer/opened_statement.h"
#include "language/reopen.h"

namespace zolt20::composer {

std::optional<Untakeable> FindUntakeable(const QString& text,
                                         const catalogue::Catalogue& catalogue) {
  if (text.isEmpty() || reopen::Reopen(qt::View(text)).rest.empty()) return std::nullopt;
  const std::size_t found = reopen::FindUnsendable(qt::View(text));
  if (found == StringView::npos || OpeningOf(text, catalogue).IsEqual()) return std::nullopt;
  const auto at = static_cast<qsizetype>(found);
  const QString before = text.left(at);
  const QString end = QStringLiteral("\r\n");
  const qsizetype lineBreak = before.lastIndexOf(end);
  Untakeable place;
  place.line = before.count(end) + 1;
  place.column = at - (lineBreak < 0 ? 0 : lineBreak + end.size()) + 1;
  place.what = text.mid(at, text[at] == u'`' ? 3 : 1);
  if (place.what == QChar(1))
    place.what = QCoreApplication::translate("composer", "the character of code 1");
  return place;
}

}  // namespace zolt20::composer
