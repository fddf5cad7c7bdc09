// Random people, from a seed, who fill in forms completely: they finish every template, box and
// construct that they begin, and type whole statements and conditions with names of the catalogue.
// They choose among everything that the form offers, and their host answers requests.
#pragma once

#include <string>

#include "shell/control.h"
#include "tests/support/choices.h"
#include "tests/support/control_test.h"
#include "tests/support/nestings.h"

namespace zolt20::tests {

class WholeForm {
 public:
  explicit WholeForm(unsigned seed);

  /// The catalogue, as the control takes it.
  const String& Tables() const { return tables_; }
  const String& Fields() const { return fields_; }

  /// Composes some statements, one behind the other or nested, and gives the Result.
  String Compose();

 private:
  struct Table {
    std::string name;
    int indexes;
    Texts fields;  // qualified
  };

  int Below(int count) { return choices_.Below(count); }
  bool OneIn(int count) { return choices_.OneIn(count); }
  std::string OneOf(const Texts& texts) { return choices_.From(texts); }

  // What is typed.
  void MakeCatalogue();
  std::string Name() { return OneOf(OneOfTables().fields); }
  const Table& OneOfTables() {
    return tableRows_[static_cast<std::size_t>(Below(static_cast<int>(tableRows_.size())))];
  }
  std::string Value();
  std::string Condition();
  std::string Select(std::size_t depth, std::size_t tabs);
  std::string Statement(std::size_t depth);
  std::string Block(std::size_t depth);
  Construct Filled(std::size_t depth, bool hasStatement);

  // Gestures.
  void Click(const zolt20::Control& control) { Done(control_.UserClick(control)); }
  void Click(const ListBox& list, int row) { Done(control_.UserClick(list, row)); }
  void Type(const zolt20::Control& box, const std::string& text);
  void FillSelect();
  void ChooseFields();
  void ApplyCondition();
  void FillBlocks();
  void AddSelect();
  void AddConstruct(const Construct& construct);
  void AddCase(const Construct& construct);
  void AddNesting();
  static void Done(Outcome outcome);

  SeededChoices choices_;
  std::vector<Table> tableRows_;
  String tables_;
  String fields_;
  bool hasDefaults_;
  RecordingHost host_;
  ZOLT20MapControl control_;
  const Surface& form_;
};

}  // namespace zolt20::tests
