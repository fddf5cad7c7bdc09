// Select forms that gestures fill in at random, on random catalogues.
//
// What people choose and type here is odd more often than people are: names like keywords and
// functions, fields named twice, tables that are marked again, conditions that read like clauses.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/choices.h"
#include "tests/support/control_test.h"

namespace zolt20::tests::forms {

struct Table {
  std::string name;
  int indexes;
  Texts fields;  // qualified
};
using Tables = std::vector<Table>;

/// What PrpStrTables and PrpStrFields take.
String TableList(const Tables& tables);
String FieldList(const Tables& tables);

// A form and the gestures on it.
class Page {
 public:
  explicit Page(const Tables& tables) {
    control_.UserControl_InitProperties();
    control_.PrpStrTables(TableList(tables));
    control_.PrpStrFields(FieldList(tables));
    host_.log.clear();
  }

  ZOLT20MapControl& Control() { return control_; }
  const Surface& Form() const { return control_.Form(); }
  Texts TakeLog() { return std::exchange(host_.log, {}); }
  void Click(const zolt20::Control& control) { Done(control_.UserClick(control)); }
  void Click(const ListBox& list, int row) { Done(control_.UserClick(list, row)); }
  void Pick(const ComboBox& combo, int row) { Done(control_.UserPick(combo, row)); }
  void Type(const zolt20::Control& box, const std::string& text) {
    Done(control_.UserType(box, Wide(text)));
  }
  void Key(const zolt20::Control& box, int code) { Done(control_.UserKey(box, code)); }
  void Tab(int page) { Done(control_.UserTab(page)); }

  std::string AddToResult() {
    Tab(0);
    Click(Form().cmdAddSelect);
    return Narrow(Form().TxtOutput.Text());
  }

 private:
  static void Done(Outcome outcome) { EXPECT_EQ(outcome, Outcome::kDone); }

  RecordingHost host_;
  ZOLT20MapControl control_{host_};
};

/// A random person who makes up a catalogue and fills in a form.
class Person {
 public:
  explicit Person(unsigned seed) : choices_(seed) {}

  int Below(int count) { return choices_.Below(count); }
  bool OneIn(int count) { return choices_.OneIn(count); }
  std::string OneOf(const Texts& texts) { return choices_.From(texts); }

  Tables MakeCatalogue();
  void FillIn(Page& page);

 private:
  void MarkTables(Page& page);
  void Order(Page& page);
  void ChooseConditions(Page& page);
  void LimitRows(Page& page);
  std::string BlockText();
  void FillBlocks(Page& page);

  SeededChoices choices_;
};

}  // namespace zolt20::tests::forms
