// What the pages of a control would add to its Result. It is found by pressing the buttons of a
// copy; the control itself does not change.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "shell/control.h"

namespace zolt20::composer {

/// The contents of the pages as text. Equal texts mean equal contents.
struct PagesText {
  String statement;  ///< the select statement that Add To Result would write; "" when it refuses
  String unapplied;  ///< a condition of the Where page that was not applied yet
  String loose;      ///< parts of a statement that it refuses or leaves out
  String condition;  ///< the texts of the Condition page

  bool operator==(const PagesText&) const = default;
};

/// A button to press, and the page it stands on.
struct PageButton {
  int page;
  const char* name;
};

/// Whether it is one of the six buttons with the caption Add To Result.
bool IsAddButton(StringView name);

/// The buttons that add the pages to the Result, and what they give.
struct Addition {
  std::vector<PageButton> buttons;  ///< in the order of pressing; empty when nothing can be added
  String result;                    ///< the Result afterwards
};

/// Whether the text contains the statement as whole lines.
bool HoldsStatement(StringView text, StringView statement);

/// Keeps the copy, so that one reader can be asked many times.
class PagesReader {
 public:
  PagesReader();
  ~PagesReader();
  PagesReader(const PagesReader&) = delete;
  PagesReader& operator=(const PagesReader&) = delete;

  PagesText Read(const ControlSnapshot& state);
  /// Finds the buttons that add the statement, the condition, or both. The buttons of the pages
  /// after the Select List page replace `added`, the statement that was added last; the button of
  /// the Select List page appends. The latter is taken where replacing would change the Result
  /// outside of `added`.
  Addition Add(const ControlSnapshot& state, bool statement, bool condition, StringView added);
  /// The Result after a button of the shown page was pressed; none when the control refuses.
  std::optional<String> Press(const ControlSnapshot& state, const std::string& button);

 private:
  class Copy;

  const PageButton* AddStatement(const ControlSnapshot& state, StringView added);

  std::unique_ptr<Copy> copy_;
};

}  // namespace zolt20::composer
