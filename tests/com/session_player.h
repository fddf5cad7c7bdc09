// Plays recorded sessions on a control in any container, as a program around it would: the lines of
// the host by late-bound calls, those of the person by messages to the controls' windows, which are
// found by class and name.
//
// Written for tests of other people's containers, so it uses nothing of the control except
// Automation and its windows.
#pragma once

#include <ocidl.h>

#include <functional>
#include <string>
#include <vector>

#include "faces/com/com_pointer.h"

namespace zolt20::tests {

class SessionPlayer {
 public:
  /// Replaces the control by a new one, active in place. Its windows are descendants of
  /// `container`.
  struct Embedded {
    com::Pointer<IUnknown> control;
    HWND container;
  };
  using Embed = std::function<Embedded()>;

  explicit SessionPlayer(Embed embed) : embed_(std::move(embed)) {}

  /// Plays a session of JSON lines on a new control. Files beside the session have the recorded
  /// replies, and the Result and the selected fields at the end. Gives a line for each difference;
  /// nothing when all is as recorded.
  std::vector<std::string> Play(const std::wstring& path);
  /// Plays the first lines of a session, comments not counted.
  std::vector<std::string> PlayTo(const std::wstring& path, int lines);

  /// How many lines of each kind were played so far, with their outcomes.
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
