// The windows of the form without the COM object around them. The test is the host, and records the
// person's gestures.
#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <vector>

#include "faces/com/form/form_window.h"
#include "faces/shared/person.h"
#include "shell/control.h"
#include "tests/com/hands.h"

namespace zolt20::tests {

class FormHands final : public WindowHands, private ControlHost, private com::FormWindow::Owner {
 public:
  FormHands();
  ~FormHands() override;

  void CarryOut(const Json& request) override;
  std::vector<Json> TakeGestures() override { return std::exchange(gestures_, {}); }
  std::string TextOnSurface(const std::string& control) override;

  const Surface& Form() const { return control_.Form(); }
  /// The session so far as lines of the automation host, without steps that were undone.
  std::vector<Json> Record() const;

 protected:
  HWND Around() const override { return frame_; }
  bool TakesKey(MSG& message) override { return window_->TranslateKey(message); }

 private:
  // ControlHost.
  void eventCancel() override { Raised("eventCancel"); }
  void eventDone() override { Raised("eventDone"); }
  void eventSubQuery() override { Raised("eventSubQuery"); }
  void eventCondition() override { Raised("eventCondition"); }
  void eventFunction() override { Raised("eventFunction"); }
  void PropertyChanged(std::string_view /*property*/) override {}
  void ShowMessage(const Message& /*message*/) override {}
  void Raised(const char* event);

  // FormWindow::Owner.
  void GestureBegins() override { ++gesturesInProgress_; }
  void GestureEnds() noexcept override;
  void GestureFailed(const wchar_t* /*description*/) override {}
  void FocusCame() override {}
  void FocusWent() override {}
  bool LeavesAtTheEnd(const MSG& /*message*/) override { return false; }

  void Keep(const Json& line);

  // A line of the record, linked to the line before it.
  struct Line {
    Json text;
    int before;
  };

  HWND frame_;
  ZOLT20MapControl control_{*this};
  faces::Person person_{control_};
  com::FormWindow::Handle window_;
  int gesturesInProgress_ = 0;
  int heardOf_ = 0;  // how many gestures were recorded
  std::string raised_;
  std::map<std::string, Json> answers_;
  std::vector<Json> gestures_;
  std::vector<Line> lines_;
};

}  // namespace zolt20::tests
