// Converts texts between Qt and the control: both are UTF-16, and every unit passes unchanged.
#pragma once

#include <QString>

#include "surface/string.h"

namespace zolt20::qt {

inline QString ToQt(StringView text) {
  return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}
inline StringView View(const QString& text) {
  return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}
inline String FromQt(const QString& text) {
  return String(View(text));
}
/// A case-folded text, by Qt's rules.
inline String Folded(StringView text) {
  return FromQt(ToQt(text).toCaseFolded());
}

}  // namespace zolt20::qt
