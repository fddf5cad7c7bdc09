// Whether a control takes a stored text back.
#pragma once

#include <QString>
#include <optional>

#include "hosts/kit/catalogue.h"

namespace zolt20::composer {

/// The first character that stands in the way.
struct Untakeable {
  qsizetype line;    ///< from 1; lines end with CR LF
  qsizetype column;  ///< from 1, in characters of 16 bits
  QString what;      ///< as a person reads it
};

/// What a control can't take back of a text, neither in its pages nor in its Result; none for a
/// text that comes back.
std::optional<Untakeable> FindUntakeable(const QString& text,
                                         const catalogue::Catalogue& catalogue);

}  // namespace zolt20::composer
