// The part of a check that looks up names in a catalogue: entries of the lists of a select
// statement, and words with a point in all other texts, except strings and variables.
#pragma once

#include <cstddef>
#include <vector>

#include "language/findings.h"
#include "language/names.h"
#include "language/outline.h"

namespace zolt20::language {

class NameChecker {
 public:
  NameChecker(StringView text, const Names& names, Findings& findings);

  /// Checks an entry of a list, whose ends are trimmed.
  void TakeEntry(std::size_t node, NodeKind list, std::size_t first, std::size_t last);
  /// Checks any other text. Outside clauses a word with a point need not be a name: only a word
  /// that looks like one is reported, as a warning.
  void TakeText(std::size_t node, std::size_t first, std::size_t last, bool isClause);

 private:
  void TakeWord(std::size_t node, std::size_t first, std::size_t last, bool isClause);
  void TakeTable(std::size_t node, std::size_t first, std::size_t last);
  bool Knows(StringView name) const;
  bool BeginsOddField(const Names::Table& table, std::size_t place) const;
  void TellTable(std::size_t node, std::size_t first, std::size_t last, bool isClause);
  void TellField(std::size_t node, const Names::Table& table, std::size_t first, std::size_t last,
                 bool isClause);
  void Tell(Mistake mistake, std::size_t node, std::size_t first, std::size_t last,
            StringView table, const std::vector<StringView>& list, bool isClause);

  StringView text_;
  const Names& names_;
  Findings& findings_;
  NearestFinder finder_;
  std::vector<StringView> tables_;
};

}  // namespace zolt20::language
