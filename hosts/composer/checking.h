// What is wrong in the rules of a file, for scripts.
#pragma once

#include <QString>
#include <string>

namespace zolt20::composer {

struct RulesCheck {
  /// `RULE:LINE:COLUMN: error: text [code]` for each finding, rule by rule.
  std::string lines;
  bool hasErrors = false;  ///< among which no warning counts
};

/// Throws RulesError or CatalogueError when a file can't be read. Nothing is written, and a file
/// that is open in a composer can be checked too.
RulesCheck CheckRulesAt(const QString& rules, const QString& catalogue);

}  // namespace zolt20::composer
