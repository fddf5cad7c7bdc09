// Statements that people compose at random, opened again: how many come back byte for byte, and
// what is told of the others. ZOLT20_STATEMENTS sets how many there are.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <map>
#include <string>

#include "language/opening.h"
#include "tests/support/direct_road.h"
#include "tests/support/filled_forms.h"
#include "tests/support/nesting_test.h"
#include "tests/support/session_maker.h"

namespace zolt20::tests {
namespace {

using forms::Page;
using forms::Person;
using forms::Tables;
using reopen::Opening;

int Statements(int usual) {
  const char* number = std::getenv("ZOLT20_STATEMENTS");
  return number == nullptr ? usual : std::atoi(number);
}

/// What the steps are made of, or the first word of the first line that differs.
std::string KindOf(const Opening& opening) {
  if (opening.steps.empty()) return "not opened";
  if (!opening.IsEqual()) {
    const reopen::Difference& first = opening.differences.front();
    const String& line = first.stored.empty() ? first.comes.front() : first.stored.front();
    return "changed: " + Narrow(line.substr(0, line.find(u' ')));
  }
  for (const reopen::Step& step : opening.steps) {
    if (step.property == nullptr) return "equal by gestures";
  }
  return "equal by parts";
}

/// What a control that plays all steps has in its Result.
std::string Played(Page& page, const Opening& opening) {
  EXPECT_TRUE(reopen::Play(page.Control(), opening.steps));
  EXPECT_TRUE(reopen::Play(page.Control(), opening.finish));
  return Narrow(page.Form().TxtOutput.Text());
}

/// Of the condition and the blocks what comes into a statement.
Texts TextsOf(const Surface& form) {
  Texts texts{Narrow(form.txtwhereCondition.Text())};
  for (const SyntaxTextBox* box :
       {&form.txtSelectDo, &form.txtSelectEOS, &form.txtselectempty, &form.txtSelectError})
    texts.push_back(Narrow(box->Text()));
  for (std::string& text : texts) {
    text.erase(0, text.find_first_not_of(" \t\r\n"));
    text.resize(text.find_last_not_of(" \t\r\n") + 1);
  }
  return texts;
}

/// Expects that texts come into their boxes again, but for those that the form loses, which stay
/// away or have another in their place, and a condition that reads like an order by.
void ExpectInTheirBoxes(const Surface& first, const Surface& second) {
  const Texts before = TextsOf(first);
  const Texts after = TextsOf(second);
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (after[i].empty() || after[i] == ".") continue;
    if (before[i] != after[i] + "\r\norder by NOTHING_.X") {
      EXPECT_EQ(before[i], after[i]);
    }
  }
}

/// What became of the statements; told at the end.
struct Tally {
  ~Tally() {
    for (const auto& [kind, number] : kinds)
      std::cout << kind << ": " << number << "\n";
  }

  /// What is told must be what comes. Line breaks before a statement are none of it.
  void Count(String text, const Opening& opening) {
    text.erase(0, std::min(text.find_first_not_of(kLineBreak), text.size()));
    EXPECT_EQ(opening.differences.empty(), opening.result == text);
    ++statements;
    equal += opening.IsEqual() ? 1 : 0;
    ++kinds[KindOf(opening)];
    if (std::getenv("ZOLT20_TELL") != nullptr && !opening.IsEqual())
      std::cout << "--- " << KindOf(opening) << "\n" << Narrow(text) << "\n";
  }

  std::map<std::string, int> kinds;
  int statements = 0;
  int equal = 0;
};

TEST(RandomOpeningTest, StatementsOfFormsFilledInAtRandomComeBack) {
  const int count = Statements(1000);
  Tally tally;
  Person person(21);
  for (int number = 0; number < count && !HasFailure(); ++number) {
    const Tables tables = person.MakeCatalogue();
    Page first(tables);
    person.FillIn(first);
    const std::string text = first.AddToResult();
    SCOPED_TRACE("form " + std::to_string(number) + ":\n" + text);
    const Opening opening =
        reopen::Open(Wide(text), {forms::TableList(tables), forms::FieldList(tables)});
    tally.Count(Wide(text), opening);
    Page second(tables);
    EXPECT_EQ(Played(second, opening), Narrow(opening.result));
    ExpectInTheirBoxes(first.Form(), second.Form());
  }
  EXPECT_GE(tally.equal, count * 97 / 100);
}

/// A session of people who do anything, with the catalogue that its host wrote.
class AnySession {
 public:
  explicit AnySession(unsigned seed) : choices_(seed) {}

  /// One step; gives the statement that it added to an empty Result, "" for none.
  String Step() {
    const nlohmann::ordered_json request = maker_.Next(Form());
    const bool wasEmpty = Form().TxtOutput.Text().empty();
    maker_.Hear(request, road_.Reply(request));
    const std::string set = request.value("set", "");
    // A second list of tables goes behind the first, and a stored control has none.
    if (set == "PrpStrTables" && !catalogue_.tables.empty()) isOver_ = true;
    if (request.contains("new")) isOver_ = true;
    if (set == "PrpStrTables") catalogue_.tables = Wide(request.at("value").get<std::string>());
    if (set == "PrpStrFields") catalogue_.fields = Wide(request.at("value").get<std::string>());
    const bool isAdded = wasEmpty && request.value("control", "") == "cmdAddSelect";
    return isAdded && !isOver_ ? Form().TxtOutput.Text() : String();
  }

  const reopen::Catalogue& Catalogue() const { return catalogue_; }

 private:
  const Surface& Form() { return road_.Control().Form(); }

  DirectRoad road_;
  SeededChoices choices_;
  SessionMaker maker_{choices_};
  reopen::Catalogue catalogue_;
  bool isOver_ = false;
};

TEST(RandomOpeningTest, StatementsOfPeopleWhoDoAnythingComeBackOrAreTold) {
  const int count = Statements(400);
  Tally tally;
  for (unsigned seed = 1; tally.statements < count && !HasFailure(); ++seed) {
    AnySession session(seed);
    for (int step = 0; step < 60; ++step) {
      const String text = session.Step();
      if (text.empty()) continue;
      SCOPED_TRACE("seed " + std::to_string(seed) + ":\n" + Narrow(text));
      tally.Count(text, reopen::Open(text, session.Catalogue()));
    }
  }
  // The others are of catalogues with a broken record, and several statements at once.
  EXPECT_GE(tally.equal, count * 90 / 100);
}

/// Nestings as a person may leave them: boxes stay empty here and there.
class RandomConditionTest : public NestingTest {
 protected:
  Nesting MakeNesting() {
    Nesting nesting;
    for (std::size_t depth = 1 + maker_.Below(kDeepest); depth > 0; --depth) {
      Construct construct =
          maker_.Make(maker_.AnyKind(), maker_.Below(4) > 0, maker_.Below(3) == 0);
      for (Row& row : construct.rows) {
        if (maker_.Below(8) == 0) row.statement.clear();
      }
      nesting.push_back(construct);
    }
    return nesting;
  }

  std::string Compose(const Nesting& nesting) {
    MakeNew();
    Tab(6);
    AddAndBuild(nesting);
    Log();
    return Result();
  }

  Maker maker_{22};
};

TEST_F(RandomConditionTest, NestingsMadeUpAtRandomComeBack) {
  const int count = Statements(200);
  Tally tally;
  for (int number = 0; number < count && !HasFailure(); ++number) {
    const std::string text = Compose(MakeNesting());
    SCOPED_TRACE("nesting " + std::to_string(number) + ":\n" + text);
    const Opening opening = reopen::Open(Wide(text), {});
    tally.Count(Wide(text), opening);
    Page page({});
    EXPECT_EQ(Played(page, opening), Narrow(opening.result));
  }
  EXPECT_GE(tally.equal, count * 95 / 100);
}

TEST_F(RandomConditionTest, NestingsWithPassesThatSayNothingComeBackOrAreTold) {
  const int count = Statements(100);
  Tally tally;
  for (int number = 0; number < count && !HasFailure(); ++number) {
    Nesting nesting = MakeNesting();
    nesting[maker_.Below(nesting.size())].head.clear();
    const std::string text = Compose(nesting);
    SCOPED_TRACE("nesting " + std::to_string(number) + ":\n" + text);
    tally.Count(Wide(text), reopen::Open(Wide(text), {}));
  }
  EXPECT_LT(tally.equal, count);
}

}  // namespace
}  // namespace zolt20::tests
