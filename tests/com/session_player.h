// Plays recorded sessions on a control in whatever container, as a program around it would: the
// host's lines by name, the person's by messages to the windows of the controls, which are found by
// their class and name.
//
// Written for the tests of containers that are not ours, so it knows no more of the control than
// Automation and windows tell.
#pragma once

#include <ocidl.h>

#include <functional>
#include <string>
#include <vector>

#include "faces/com/com_pointer.h"

namespace zolt20::tests {

class SessionPlayer {
 public:
  /// A new control that is active in place, in the place of the one before. Its windows are
  /// children, grandchildren or further below of `container`.
  struct Embedded {
    com::Pointer<IUnknown> control;
    HWND container;
  };
  using Embed = std::function<Embedded()>;

  explicit SessionPlayer(Embed embed) : embed_(std::move(embed)) {}

  /// Plays a session of JSON lines on a new control. The replies that were recorded, the Result and
  /// the selected fields at its end lie beside it. Gives what differs, one line for each; nothing
  /// when all went as it was recorded.
  std::vector<std::string> Play(const std::wstring& path);
  /// Plays the first lines of a session, comments not counted.
  std::vector<std::string> PlayTo(const std::wstring& path, int lines);

  /// How many lines of each kind were played so far, and what came of them.
  struct Counts {
    int hostLines = 0;
    int personLines = 0;
    int events = 0;
    int notices = 0;
    int answers = 0;
  };
  const Counts& counts() const { return counts_; }

 private:
  Embed embed_;
  Counts counts_;
};

/// The sessions of a folder, in the order of their names.
std::vector<std::wstring> SessionsIn(const std::wstring& folder);

}  // namespace zolt20::tests
