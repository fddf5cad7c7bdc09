#include "hosts/automation/rename_lines.h"

#include <set>

#include "hosts/automation/uses_lines.h"
#include "hosts/kit/text_coding.h"

namespace zolt20::automation {
namespace {

using language::UsePlace;
using rules::Change;

bool IsTaken(const Change& change, const RenamedPlaces& places) {
  if (change.isInNote) return places.inNotes;
  if (change.place == UsePlace::kStatement) return change.isVariable || places.inStatements;
  return change.place != UsePlace::kString || places.inStrings;
}

std::string Counted(std::size_t count, const std::string& word) {
  return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
}

std::vector<StringView> LinesOf(StringView text) {
  std::vector<StringView> lines = Split(text, u"\n");
  for (StringView& line : lines) {
    if (line.ends_with(u'\r')) line.remove_suffix(1);
  }
  return lines;
}

// Renaming adds no line and removes none, so lines are compared one by one.
void AppendDifference(std::string& out, const std::string& name, StringView before,
                      StringView after) {
  if (before == after) return;
  out += "--- " + name + "\n+++ " + name + "\n";
  const std::vector<StringView> old = LinesOf(before);
  const std::vector<StringView> now = LinesOf(after);
  for (std::size_t i = 0; i < old.size(); ++i) {
    if (old[i] == now[i]) continue;
    const std::string number = std::to_string(i + 1);
    out += "@@ -" + number;
    out += " +" + number;
    out += " @@\n-" + hosts::ToJsonText(old[i]);
    out += "\n+" + hosts::ToJsonText(now[i]);
    out += '\n';
  }
}

std::string LeftLine(const std::string& rule, const Change& change) {
  const char* const where = change.isInNote                     ? "note"
                            : change.place == UsePlace::kString ? "string"
                                                                : "statement";
  return rule + ":" + std::to_string(change.line) + ":" + std::to_string(change.column) +
         ": left as it is: " + hosts::ToJsonText(change.before) + " [" + where + "]\n";
}

}  // namespace

void Choose(std::vector<Change>& changes, const RenamedPlaces& places) {
  for (Change& change : changes)
    change.isChosen = IsTaken(change, places);
}

std::string DifferenceOf(const rules::RulesContent& before, const rules::RulesContent& after) {
  std::string out;
  for (std::size_t i = 0; i < before.rules.size(); ++i) {
    const std::string name = OnOneLine(before.rules[i].name);
    AppendDifference(out, name, before.rules[i].text, after.rules[i].text);
    AppendDifference(out, name + " (note)", before.extras[i].note, after.extras[i].note);
  }
  return out;
}

std::string RenamesDone(const rules::RulesContent& content, std::span<const Change> changes) {
  std::string out;
  std::set<std::size_t> rules;
  std::size_t places = 0;
  for (const Change& change : changes) {
    if (change.isChosen) {
      rules.insert(change.rule);
      ++places;
    } else {
      out += LeftLine(OnOneLine(content.rules[change.rule].name), change);
    }
  }
  return out + Counted(rules.size(), "rule") + " changed at " + Counted(places, "place") + "\n";
}

}  // namespace zolt20::automation
