// Renamed names in the rules of a file, as lines for people and build servers.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "hosts/kit/rules_changes.h"

namespace zolt20::automation {

/// In which places names are renamed too, beside clauses and heads.
struct RenamedPlaces {
  bool inStatements = false;
  bool inStrings = false;
  bool inNotes = false;
};

void Choose(std::vector<rules::Change>& changes, const RenamedPlaces& places);

/// The lines of texts and notes that change, as `diff -U0` writes them, each rule a file.
std::string DifferenceOf(const rules::RulesContent& before, const rules::RulesContent& after);

/// A line for each place that is left unchanged, and at the end a line that sums up.
std::string RenamesDone(const rules::RulesContent& content, std::span<const rules::Change> changes);

}  // namespace zolt20::automation
