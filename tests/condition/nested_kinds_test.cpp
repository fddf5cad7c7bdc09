// Constructs nested to depth 8, in every order of two kinds and in random orders, against texts
// that a plain recursive printer writes.
//
// The printer knows well-behaved nestings alone: every construct has what its closing line needs,
// every row of an On...Case has a statement, and the On...Cases of one control either all have a
// default or none has.
#include <random>
#include <sstream>

#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

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

// The printer.

std::string Tabs(std::size_t count) {
  return std::string(count, '\t');
}

/// Every line of the statement behind that many tabs, without a line end behind the last.
std::string Lines(const std::string& statement, std::size_t tabs) {
  std::string text;
  std::istringstream lines(statement);
  for (std::string line; std::getline(lines, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!text.empty()) text += "\r\n";
    text += Tabs(tabs) + line;
  }
  return text;
}

/// Lines behind a line break, nothing for no statement.
std::string Below(const std::string& statement, std::size_t tabs) {
  return statement.empty() ? "" : "\r\n" + Lines(statement, tabs);
}

std::string Opening(const Construct& construct, std::size_t depth) {
  const std::string& head = construct.head;
  const std::string& statement = construct.statement;
  std::string text;
  switch (construct.kind) {
    case Kind::kIf:
      text = (statement.empty() ? "" : Tabs(depth)) + "if " + head + " then ";
      text += Below(statement, depth + 1);
      if (!construct.elseStatement.empty()) {
        text += "\r\n" + Tabs(depth) + "else" + Below(construct.elseStatement, depth + 1);
      }
      return text;
    case Kind::kFor:
      text = Tabs(depth) + "for " + head + " = " + construct.first + " to " + construct.last;
      if (!construct.step.empty()) text += "  Step    " + construct.step;
      return text + "\r\n" + Lines(statement, depth + 1);
    case Kind::kWhile:
      text = Tabs(depth) + (statement.empty() ? "while  " : "while ") + head;
      return text + Below(statement, depth + 1);
    case Kind::kRepeat:
      return Tabs(depth) + "repeat " + Below(statement, depth + 1);
    case Kind::kCase:
      text = Tabs(depth) + "on case " + head;
      for (const Row& row : construct.rows) {
        text += "\r\n" + Tabs(depth + 1) + "case " + row.value + " :";
        text += Below(row.statement, depth + 2) + Below("break", depth + 2);
      }
      return text;
  }
  return text;
}

std::string Closing(const Construct& construct, std::size_t depth) {
  const std::string start = "\r\n" + Tabs(depth);
  switch (construct.kind) {
    case Kind::kIf:
      return start + "endif";
    case Kind::kFor:
      return start + "endfor";
    case Kind::kWhile:
      return start + "endwhile";
    case Kind::kRepeat:
      return start + "Until  ( " + construct.head + " )";
    case Kind::kCase:
      if (construct.defaultStatement.empty()) return start + "endcase";
      return start + "\tdefault: " + start + "\t\t" + construct.defaultStatement + "\r\nendcase";
  }
  return start;
}

std::string Print(const Nesting& nesting, std::size_t depth = 0) {
  const Construct& construct = nesting[depth];
  std::string text = Opening(construct, depth);
  if (depth + 1 < nesting.size()) text += "\r\n" + Print(nesting, depth + 1);
  return text + Closing(construct, depth);
}

// Making nestings up.

class Maker {
 public:
  explicit Maker(unsigned seed) : random_(seed) {}

  bool Maybe() { return Below(2) == 1; }
  std::size_t Below(std::size_t bound) { return random_() % bound; }
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

  std::mt19937 random_;
  int words_ = 0;
};

class NestedKindsTest : public ControlTest {
 protected:
  NestedKindsTest() { Tab(6); }

  void Fill(const std::string& box, const std::string& text) {
    if (!text.empty()) Type(box, text);
  }

  void Add(const Construct& construct) {
    switch (construct.kind) {
      case Kind::kIf:
        Click("optIfThen");
        Fill("txtCond", construct.head);
        Fill("txtStmt1", construct.statement);
        Fill("txtStmt2", construct.elseStatement);
        break;
      case Kind::kFor:
        Click("optFor");
        Fill("txtVariable", construct.head);
        Fill("txtinitval", construct.first);
        Fill("txtFinVal", construct.last);
        Fill("txtStep", construct.step);
        Fill("txtForStmt", construct.statement);
        break;
      case Kind::kWhile:
        Click("optwhile");
        Fill("txtWhlCnd", construct.head);
        Fill("txtWhlStm", construct.statement);
        break;
      case Kind::kRepeat:
        Click("optRepeat");
        Fill("txtRepCnd", construct.head);
        Fill("txtRepStm", construct.statement);
        break;
      case Kind::kCase:
        Click("optCase");
        Fill("txtcaseexp", construct.head);
        Fill("TxtDef", construct.defaultStatement);
        for (std::size_t i = 0; i < construct.rows.size(); ++i) {
          if (i > 0) Click("cmdNext");
          const std::string index = "(" + std::to_string(i) + ")";
          Fill("TxtExpr" + index, construct.rows[i].value);
          Fill("txtStmt" + index, construct.rows[i].statement);
        }
        break;
    }
    Click("cmdAdd");
  }

  void AddAndBuild(const Nesting& nesting) {
    for (const Construct& construct : nesting)
      Add(construct);
    Click("cmdBuild");
  }

  /// The nesting in a control of its own.
  void Expect(const Nesting& nesting) {
    MakeNew();
    Tab(6);
    AddAndBuild(nesting);
    ASSERT_EQ(Result(), Print(nesting));
  }
};

TEST_F(NestedKindsTest, ThePrinterWritesWhatAPersonWouldExpect) {
  const Nesting nesting = {{Kind::kIf, "a", "", "", "", "x\r\ny", "z", {}, ""},
                           {Kind::kFor, "i", "1", "3", "2", "", "", {}, ""},
                           {Kind::kWhile, "c", "", "", "", "", "", {}, ""},
                           {Kind::kRepeat, "p", "", "", "", "s", "", {}, ""},
                           {Kind::kCase, "e", "", "", "", "", "", {{"1", "t"}}, "d"}};
  EXPECT_EQ(Print(nesting),
            "if a then \r\n\tx\r\n\ty\r\nelse\r\n\tz\r\n"
            "\tfor i = 1 to 3  Step    2\r\n\r\n"
            "\t\twhile  c\r\n"
            "\t\t\trepeat \r\n\t\t\t\ts\r\n"
            "\t\t\t\ton case e\r\n"
            "\t\t\t\t\tcase 1 :\r\n\t\t\t\t\t\tt\r\n\t\t\t\t\t\tbreak\r\n"
            "\t\t\t\t\tdefault: \r\n\t\t\t\t\t\td\r\nendcase\r\n"
            "\t\t\tUntil  ( p )\r\n"
            "\t\tendwhile\r\n"
            "\tendfor\r\n"
            "endif");
}

TEST_F(NestedKindsTest, EveryOrderOfTwoKindsNestsToDepthEight) {
  Maker maker(20);
  for (int outer = 0; outer < kKinds; ++outer) {
    for (int inner = 0; inner < kKinds; ++inner) {
      for (const bool hasStatements : {true, false}) {
        const bool hasDefaults = maker.Maybe();
        for (const std::size_t depth : {std::size_t{2}, kDeepest}) {
          Nesting nesting;
          while (nesting.size() < depth) {
            const auto kind = static_cast<Kind>(nesting.size() % 2 == 0 ? outer : inner);
            nesting.push_back(maker.Make(kind, hasStatements, hasDefaults));
          }
          ASSERT_NO_FATAL_FAILURE(Expect(nesting))
              << outer << " around " << inner << " to depth " << depth;
        }
      }
    }
  }
}

TEST_F(NestedKindsTest, RandomOrdersNestToDepthEight) {
  for (unsigned seed = 1; seed <= 80; ++seed) {
    Maker maker(seed);
    const bool hasDefaults = maker.Maybe();
    Nesting nesting;
    while (nesting.size() < kDeepest)
      nesting.push_back(maker.Make(maker.AnyKind(), maker.Maybe(), hasDefaults));
    ASSERT_NO_FATAL_FAILURE(Expect(nesting)) << "seed " << seed;
  }
}

TEST_F(NestedKindsTest, OneNestingAfterTheOtherFollowsInTheSameResult) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    MakeNew();
    Tab(6);
    Maker maker(seed);
    const bool hasDefaults = maker.Maybe();
    std::string expected;
    for (int count = 0; count < 3; ++count) {
      Nesting nesting;
      for (std::size_t depth = 1 + maker.Below(kDeepest); depth > 0; --depth)
        nesting.push_back(maker.Make(maker.AnyKind(), maker.Maybe(), hasDefaults));
      AddAndBuild(nesting);
      expected += (count > 0 ? "\r\n" : "") + Print(nesting);
    }
    ASSERT_EQ(Result(), expected) << "seed " << seed;
  }
}

}  // namespace
}  // namespace zolt20::tests
