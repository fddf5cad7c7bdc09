// All rules of a file as text files in a folder, one each, and such a folder as rules again.
#pragma once

#include <QString>
#include <vector>

#include "hosts/composer/rules_file.h"

namespace zolt20::composer {

/// What a rule's file is called: its name, with "%" and a code for what no file name may hold.
QString FileNameOf(StringView rule);
/// The name of the rule again; "" for a file that is none of these.
QString RuleNameOf(const QString& fileName);

/// Writes a file for each rule into the folder, which is made when there is none. Files that are
/// there are replaced. Throws RulesError.
void ExportTexts(const std::vector<Rule>& rules, const QString& folder);

/// The rules of a folder, by name. Line ends become CR LF; fields are not in such files. Throws
/// RulesError when a file can't be read or is no UTF-8.
std::vector<Rule> ImportTexts(const QString& folder);

}  // namespace zolt20::composer
