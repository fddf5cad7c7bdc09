// Checks all rules of a file, for scripts without a window.
#pragma once

#include <QString>
#include <string>

namespace zolt20::composer {

struct RulesCheck {
  /// `RULE:LINE:COLUMN: error: text [code]` for each finding, rule by rule.
  std::string lines;
  bool hasErrors = false;  ///< warnings do not count
};

/// Checks the rules against the catalogue. Throws RulesError or CatalogueError when a file can't be
/// read. Writes nothing, and also reads a file that is open in a composer.
RulesCheck CheckRulesAt(const QString& rules, const QString& catalogue);

}  // namespace zolt20::composer
