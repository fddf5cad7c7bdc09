// Whether a control can take a stored text back.
#pragma once

#include <QString>
#include <optional>

#include "hosts/kit/catalogue.h"

namespace zolt20::composer {

/// The first character that the control can't take back.
struct Untakeable {
  qsizetype line;    ///< from 1; lines end with CR LF
  qsizetype column;  ///< from 1, in characters of 16 bits
  QString what;      ///< the reason, for the person
};

/// Finds what the control can take back neither into its pages nor into its Result; none if it
/// takes the whole text.
std::optional<Untakeable> FindUntakeable(const QString& text,
                                         const catalogue::Catalogue& catalogue);

}  // namespace zolt20::composer
