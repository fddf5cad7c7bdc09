// The fixture of differential tests: a control and a literal form make the same steps.
//
// After each step the two must agree in all rows, marks and texts, in the events of the host with
// the state of the form at each event, and in the kind of the error that was raised. The first
// difference ends the walk and prints the steps that led to it. Random steps come from small
// alphabets, so that names collide often, and from a fixed seed, so that every run makes the same.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/choices.h"
#include "tests/support/control_test.h"
#include "tests/support/literal_walks.h"

namespace zolt20::tests {

/// A host that logs its calls, each with the stamp of the form at that moment.
class StampingHost final : public ControlHost {
 public:
  void eventCancel() override { Told("eventCancel"); }
  void eventDone() override { Told("eventDone"); }
  void eventSubQuery() override { Told("eventSubQuery"); }
  void eventCondition() override { Told("eventCondition"); }
  void eventFunction() override { Told("eventFunction"); }
  void PropertyChanged(std::string_view property) override {
    Told("changed " + std::string(property));
  }
  void ShowMessage(const Message& message) override { Told("message " + Narrow(message.text)); }

  const Surface* form = nullptr;
  Texts log;

 private:
  void Told(const std::string& what) { log.push_back(what + " at " + StampOf(ImageOf(*form))); }
};

class SideBySide : public ::testing::Test {
 protected:
  using Step = std::function<void()>;
  /// Steps with their weights.
  using Steps = std::vector<std::pair<int, Step>>;

  void TearDown() override;

  /// Begins with a new control, a new form and this seed.
  void Start(unsigned seed);
  /// Makes steps at random, until the first difference.
  void Walk(int count, const Steps& steps);

  // Chance.
  int Below(int count) { return choices_.Below(count); }
  bool OneIn(int count) { return choices_.OneIn(count); }
  std::string OneOf(const Texts& texts) { return choices_.From(texts); }
  /// Up to that many of the pieces, one behind the other.
  std::string Joined(const Texts& pieces, int most);

  // Values of the host, of few and colliding names.
  std::string TableList(int most);
  std::string FieldList(int most);
  std::string Name();
  std::string SelectElement();
  std::string SelectList(int most);
  std::string EncodedText();
  std::string TypedText();

  // Steps of the host.
  void Let(const std::string& property, const std::string& value);
  void LetDepth(int depth);
  void LetPage(int page);
  void ClearAll(int page);
  void ReadResult();
  void ReadSelectedFields();
  void BuildGroupBy();

  // Steps of a person; refused gestures are skipped. A gesture turns to its control's page first.
  void Page(int page);
  void Press(const std::string& button);
  void ClickRow(const std::string& list, int row);
  void ClickSomeRow(const std::string& list);
  void DoubleClickSomeRow(const std::string& list);
  void PickSome(const std::string& combo);
  void PickEntry(const std::string& combo, const std::string& entry);
  void Type(const std::string& box, const std::string& text);
  void Key(const std::string& box, int code);
  /// A click on Next, as long as the rows fit into their frame.
  void LoadCaseRow();

  const ZOLT20MapControl& control() const { return *control_; }
  int RowCount(const std::string& list) const;

  /// Compares the values of the property bag that a host wrote.
  void ComparePersisted();

 private:
  void Both(const std::string& step, const std::function<void(ZOLT20MapControl&)>& onControl,
            const std::function<void(LiteralForm&)>& onLiteral);
  void Gesture(const std::string& step, const std::string& control,
               const std::function<Outcome(ZOLT20MapControl&, const Control&)>& onControl,
               const std::function<void(LiteralForm&)>& onLiteral);
  void Compare(const std::string& controlError, const std::string& literalError);
  void Fail(const std::string& what);

  SeededChoices choices_{std::mt19937::default_seed};
  StampingHost host_;
  std::unique_ptr<Mirror> mirror_;
  std::unique_ptr<ZOLT20MapControl> control_;
  std::unique_ptr<LiteralForm> literal_;
  Texts literalLog_;
  std::deque<std::string> trace_;
  unsigned seed_ = 0;
  int stepCount_ = 0;
  bool differs_ = false;
};

}  // namespace zolt20::tests
