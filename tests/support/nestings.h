// Random nestings of the constructs of the Condition page, and the texts that a plain recursive
// printer, the reference, writes for them.
//
// The printer knows well-behaved nestings alone: every construct has what its closing line needs,
// every row of an On...Case has a statement, and the On...Cases of one control either all have a
// default or none has.
#pragma once

#include <string>
#include <vector>

#include "tests/support/choices.h"

namespace zolt20::tests {

enum class Kind { kIf, kFor, kWhile, kRepeat, kCase };

constexpr int kKinds = 5;
constexpr std::size_t kDeepest = 8;

struct Row {
  std::string value;
  std::string statement;
};

/// One pass. A text that is "" stays untyped.
struct Construct {
  Kind kind = Kind::kIf;
  std::string head;  // a condition, a For's variable, an On...Case's expression
  std::string first;
  std::string last;
  std::string step;
  std::string statement;
  std::string elseStatement;
  std::vector<Row> rows;
  std::string defaultStatement;
};

/// Outermost first.
using Nesting = std::vector<Construct>;

/// The text that the control has to write for the nesting, indented by `depth` tabs.
std::string Print(const Nesting& nesting, std::size_t depth = 0);

/// Makes nestings up.
class Maker {
 public:
  explicit Maker(unsigned seed) : choices_(seed) {}

  bool Maybe() { return Below(2) == 1; }
  std::size_t Below(std::size_t bound) {
    return static_cast<std::size_t>(choices_.Below(static_cast<int>(bound)));
  }
  Kind AnyKind() { return static_cast<Kind>(Below(kKinds)); }

  /// Each text of a control is another one, so that no two can be taken for each other.
  Construct Make(Kind kind, bool hasStatements, bool hasDefaults) {
    Construct construct;
    construct.kind = kind;
    construct.head = Word("head");
    if (kind == Kind::kFor) {
      construct.first = Word("first");
      construct.last = Word("last");
      if (Maybe()) construct.step = Word("step");
    }
    if (hasStatements) construct.statement = Statement();
    if (hasStatements && kind == Kind::kIf && Maybe()) construct.elseStatement = Statement();
    if (kind == Kind::kCase) {
      for (std::size_t rows = 1 + Below(4); rows > 0; --rows)
        construct.rows.push_back({Word("value"), Statement()});
      if (hasDefaults) construct.defaultStatement = Word("default");
    }
    return construct;
  }

 private:
  std::string Word(const std::string& name) { return name + std::to_string(++words_); }
  std::string Statement() {
    std::string statement = Word("statement");
    for (std::size_t lines = Below(3); lines > 0; --lines)
      statement += "\r\n" + std::string(Below(2), '\t') + Word("line");
    return statement;
  }

  SeededChoices choices_;
  int words_ = 0;
};

}  // namespace zolt20::tests
