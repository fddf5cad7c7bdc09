#include "hosts/composer/checking.h"

#include "hosts/automation/check_lines.h"
#include "hosts/composer/catalogue_place.h"
#include "hosts/composer/rules_file.h"
#include "hosts/kit/text_coding.h"
#include "language/names.h"

namespace zolt20::composer {
namespace {

// The name without line breaks, so that each finding stays on one line.
std::string InOneLine(const String& name) {
  std::string shown = hosts::ToJsonText(name);
  for (char& character : shown) {
    if (static_cast<unsigned char>(character) < ' ') character = ' ';
  }
  return shown;
}

}  // namespace

RulesCheck CheckRulesAt(const QString& rules, const QString& catalogue) {
  const catalogue::Catalogue known = ReadCatalogueAt(catalogue).catalogue;
  const language::Names names(TableList(known), FieldList(known));
  RulesCheck check;
  for (const Rule& rule : RulesFile::RulesAt(rules)) {
    const automation::CheckLines found = automation::CheckOf(
        rule.text, &names, automation::FindingFormat::kForPeople, InOneLine(rule.name));
    check.lines += found.lines;
    check.hasErrors = check.hasErrors || found.hasErrors;
  }
  return check;
}

}  // namespace zolt20::composer
