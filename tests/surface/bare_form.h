// A form without logic, for tests of the surface alone. Its controls are written from the code
// side, it keeps the events that they fire in order, and a test can say what the handler of an
// event does.
//
// As with the fixture of the whole control, a mirror and the rules of the surface are checked, and
// a test takes every event.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <utility>

#include "surface/surface.h"
#include "tests/support/control_test.h"
#include "tests/support/mirror.h"

namespace zolt20::tests {

class BareForm final : public Surface {
 public:
  explicit BareForm(FormVisible visible = FormVisible::kYes) : Surface(visible) {}
  ~BareForm() override = default;

  Texts events;
  /// What the handler of an event does, by the event: "Click cmdAdd".
  std::map<std::string, std::function<void()>> handlers;
  /// The code that the handler of KeyPress puts in the place of another.
  std::map<int, int> replacedCodes;

 private:
  void Fired(const std::string& event) {
    events.push_back(event);
    if (const auto handler = handlers.find(event); handler != handlers.end()) handler->second();
  }
  static std::string Name(const Control& control) { return std::string(control.name()); }

  void OnClick(Control& source) override { Fired("Click " + Name(source)); }
  void OnDoubleClick(Control& list) override { Fired("DblClick " + Name(list)); }
  void OnChange(Control& source) override { Fired("Change " + Name(source)); }
  void OnItemCheck(ListBox& list, int row) override {
    Fired("ItemCheck " + Name(list) + " " + std::to_string(row));
  }
  void OnGotFocus(Control& source) override { Fired("GotFocus " + Name(source)); }
  void OnTabChain(SyntaxTextBox& box) override { Fired("TabChain " + Name(box)); }
  void OnKeyPress(TextBox& box, Integer& code) override {
    const auto replaced = replacedCodes.find(code.value());
    Fired("KeyPress " + Name(box) + " " + std::to_string(code.value()));
    if (replaced != replacedCodes.end()) code = replaced->second;
  }
  void OnTabClick(Integer previousTab) override {
    Fired("Click tabVrn " + std::to_string(previousTab.value()));
  }
};

/// The number and the kind of the error with which the action fails, such as "380 value", or
/// "none".
inline std::string ErrorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return std::to_string(error.number()) + " " + std::string(error.kind_word());
  }
  return "none";
}

class BareFormTest : public ::testing::Test {
 protected:
  BareFormTest() { form.AddObserver(mirror_); }
  ~BareFormTest() override { form.RemoveObserver(mirror_); }

  void TearDown() override {
    EXPECT_EQ(BrokenRule(form), "");
    EXPECT_EQ(mirror_.Difference(), "");
    EXPECT_EQ(Events(), Texts{}) << "more events came than the test took";
  }

  /// The events since the last call, in order.
  Texts Events() { return std::exchange(form.events, {}); }
  /// What the handler of an event does from now on.
  void When(const std::string& event, std::function<void()> action) {
    form.handlers[event] = std::move(action);
  }

  static Texts Rows(const RowsControl& list) {
    Texts rows;
    for (int row = 0; row < list.ListCount(); ++row)
      rows.push_back(Narrow(list.List(row)));
    return rows;
  }
  static RowNumbers Marks(const ListBox& list) {
    RowNumbers marked;
    for (int row = 0; row < list.ListCount(); ++row) {
      if (list.Selected(row)) marked.push_back(row);
    }
    return marked;
  }
  static void Fill(RowsControl& list, const Texts& rows) {
    for (const std::string& row : rows)
      list.AddItem(Wide(row));
  }
  std::string Focused() const {
    return form.Focused() == nullptr ? "nothing" : std::string(form.Focused()->name());
  }

  BareForm form;

 private:
  Mirror mirror_{form};
};

}  // namespace zolt20::tests
