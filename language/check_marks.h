// The part of a check that goes by single characters: strings that do not end on their line,
// unbalanced brackets, and characters that the control can't take back.
//
// Brackets have to balance within a clause, within a head, and within a run of plain statements,
// since a long statement may take several lines.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "language/findings.h"
#include "language/outline.h"

namespace zolt20::language {

class MarkChecker {
 public:
  MarkChecker(StringView text, const std::vector<Node>& nodes, Findings& findings)
      : text_(text), nodes_(nodes), findings_(findings) {}

  /// Checks a node. Called for all nodes in their order.
  void Take(std::size_t index);
  /// Called after the last node.
  void Finish() { LeaveTo(0); }

 private:
  enum Kind : std::uint8_t { kRound, kCurly };

  struct Open {
    std::size_t place;
    std::size_t node;
    Kind kind;
  };

  // A part of the text within which brackets have to balance.
  struct Scope {
    std::size_t first;                    // where the scope's open brackets begin in `open_`
    std::size_t behind;                   // the index of the node behind the scope
    bool isRun;                           // a run of plain statements, which the next one extends
    std::array<std::size_t, 2> counts{};  // how many brackets are open, by kind
  };

  bool IsIn(const Scope& scope, std::size_t index) const;
  void Enter(std::size_t index);
  void LeaveTo(std::size_t scopes);
  void Read(std::size_t index);
  void EndLine(std::size_t index, std::size_t end);
  void TakeMark(std::size_t index, std::size_t at);
  void CloseBracket(std::size_t index, std::size_t at, Kind kind);
  void TellOpen(const Open& open);
  void TellUnsendable(std::size_t index, std::size_t at, std::size_t length, Word meaning);

  static constexpr std::size_t kNoString = StringView::npos;

  StringView text_;
  const std::vector<Node>& nodes_;
  Findings& findings_;
  std::vector<Open> open_;
  std::vector<Scope> scopes_;
  std::size_t string_ = kNoString;  // the place of the quote that begins the open string
};

}  // namespace zolt20::language
