// The fixture of tests that use the control: the verbs of a person and of a host, and readable
// reads.
//
// Texts are written in UTF-8. Whenever a test acts or reads, two checkers run: that the rules of
// the surface hold, and that a mirror fed by its notices alone equals the surface. Events, messages
// and reports are logged in order; a test takes them with Log(), and at the end of the test the log
// has to be empty, so that no event goes unnoticed.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "shell/control.h"
#include "tests/support/host_texts.h"
#include "tests/support/mirror.h"

namespace zolt20::tests {

using RowNumbers = std::vector<int>;

/// The line of the log for an error message: "message " and its text. Title, icon and buttons are
/// checked too.
std::string ErrorMessage(std::string_view text);

/// A host that logs its calls: "eventDone", "changed prpTab", or ErrorMessage(text).
class RecordingHost final : public ControlHost {
 public:
  void eventCancel() override { Raised("eventCancel"); }
  void eventDone() override { Raised("eventDone"); }
  void eventSubQuery() override { Raised("eventSubQuery"); }
  void eventCondition() override { Raised("eventCondition"); }
  void eventFunction() override { Raised("eventFunction"); }
  void PropertyChanged(std::string_view property) override {
    log.push_back("changed " + std::string(property));
  }
  void ShowMessage(const Message& message) override;

  Texts log;
  /// What the host does inside an event, by the event's name.
  std::map<std::string, std::function<void()>> answers;

 private:
  void Raised(const std::string& event);
};

/// A property bag in memory, with its keys in the order of writing.
class MemoryBag final : public PropertyBag {
 public:
  String ReadString(std::string_view key, StringView defaultValue) override;
  Integer ReadInteger(std::string_view key, Integer defaultValue) override;
  void WriteString(std::string_view key, StringView value) override;
  void WriteInteger(std::string_view key, Integer value) override;

  std::map<std::string, std::string> values;  ///< an Integer in decimal digits
  Texts keysWritten;
  Texts keysRead;
};

class ControlTest : public ::testing::Test {
 protected:
  ControlTest();
  void TearDown() override;

  // Making controls. Each call discards the control before; a test begins with a new control.
  void MakeNew(FormVisible visible = FormVisible::kYes);
  void MakeStored(MemoryBag& bag);

  /// The control itself, for the host's calls: `host().prpTab(6)`.
  ZOLT20MapControl& host();
  /// Takes the log: the host's calls since the last call of Log(), in order.
  Texts Log();
  /// Sets what the host does inside an event.
  void Answer(const std::string& event, std::function<void()> action);
  /// Writes PrpStrTables and PrpStrFields, and takes their two reports from the log.
  void Catalogue(std::string_view tables, std::string_view fields);

  // Gestures of a person. Each call expects that the form does not refuse the gesture.
  void Click(std::string_view control);
  void Click(std::string_view list, int row);
  /// A click on a row of a list, for tests in which it marks the row.
  void Mark(std::string_view list, int row) { Click(list, row); }
  void DoubleClick(std::string_view list, int row);
  void Pick(std::string_view combo, int row);
  void Pick(std::string_view combo, std::string_view entry);
  void Type(std::string_view box, std::string_view text);
  void Key(std::string_view box, int code);
  void Focus(std::string_view control);
  void Tab(int page);
  void Scroll(std::string_view bar, int value);

  // Reads.
  const Control& On(std::string_view control);
  Texts Rows(std::string_view list);
  RowNumbers MarkedRows(std::string_view list);
  int ListIndex(std::string_view list);
  std::string Text(std::string_view box);
  int Caret(std::string_view box);
  std::string Caption(std::string_view control);
  bool Enabled(std::string_view control);
  bool Visible(std::string_view control);
  bool Shown(std::string_view control);
  bool Option(std::string_view option);
  int TabIndex(std::string_view control);
  /// The controls at places 0 to `last` of the tab order.
  Texts TabOrder(int last);
  std::string Focused();
  /// The Result. Expects as well that the tree of the Result loses nothing of its text.
  std::string Result();

  /// Expects that `action` fails with an error of that kind.
  void ExpectError(ErrorKind kind, const std::function<void()>& action);

  RecordingHost host_;

 private:
  void Watch();
  void Check();

  std::unique_ptr<Mirror> mirror_;
  std::unique_ptr<ZOLT20MapControl> control_;
};

}  // namespace zolt20::tests
