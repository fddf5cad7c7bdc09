// Writes all rules of a file as text files into a folder, one for each rule, and reads such a
// folder back.
#pragma once

#include <QString>
#include <vector>

#include "hosts/composer/rules_file.h"

namespace zolt20::composer {

/// The file name of a rule: the name of the rule, in which each character that file names can't
/// have is "%" and its four hexadecimal digits.
QString FileNameOf(StringView rule);
/// The name of the rule of a file name; "" if it is no such file name.
QString RuleNameOf(const QString& fileName);

/// Writes a file for each rule into the folder, which is created if needed. Existing files are
/// replaced. Throws RulesError.
void ExportTexts(const std::vector<Rule>& rules, const QString& folder);

/// The rules of a folder, by name. Line ends become CR LF; such files have no field records. Throws
/// RulesError when a file can't be read or is not UTF-8.
std::vector<Rule> ImportTexts(const QString& folder);

}  // namespace zolt20::composer
