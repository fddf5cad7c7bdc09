// What the pages of a control hold that is not in its Result yet: what Add To Result would write,
// played on a copy of the control. The control itself stays as it is.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "shell/control.h"

namespace zolt20::composer {

/// What stands on the pages, as text. Two states of the pages with equal texts hold the same.
struct PagesText {
  String statement;  ///< the select statement that Add To Result would write; "" when it refuses
  String unapplied;  ///< the condition of the Where page that was not applied yet
  String loose;      ///< parts of a statement that it refuses, or passes over
  String condition;  ///< what is typed on the Condition page

  bool operator==(const PagesText&) const = default;
};

/// A button to press, and the page it stands on.
struct PageButton {
  int page;
  const char* name;
};

/// Whether it is one of the six that are called Add To Result.
bool IsAddButton(StringView name);

/// What would come of the buttons.
struct Addition {
  std::vector<PageButton> buttons;  ///< in their order; none when nothing can be added
  String result;                    ///< the Result then
};

/// Whether the text has the statement in it, from the start of a line to the end of one.
bool HoldsStatement(StringView text, StringView statement);

/// Plays on copies. One can be asked again and again.
class PagesReader {
 public:
  PagesReader();
  ~PagesReader();
  PagesReader(const PagesReader&) = delete;
  PagesReader& operator=(const PagesReader&) = delete;

  PagesText Read(const ControlSnapshot& state);
  /// Adds the statement, the condition, or both. On the pages behind the Select List page the
  /// statement takes the place of `added`, the one that was added last, as their buttons do it;
  /// where that would touch anything else, and on the Select List page, it goes behind the Result.
  Addition Add(const ControlSnapshot& state, bool statement, bool condition, StringView added);
  /// The Result once a button of the page that is shown was pressed; none when the control refuses.
  std::optional<String> Press(const ControlSnapshot& state, const std::string& button);

 private:
  class Copy;

  const PageButton* AddStatement(const ControlSnapshot& state, StringView added);

  std::unique_ptr<Copy> copy_;
};

}  // namespace zolt20::composer
