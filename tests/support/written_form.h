// Helpers beside the fixture: write access to the form, and an observer that
// keeps which controls had notices.
#pragma once

#include <set>
#include <string>

#include "tests/support/control_test.h"

namespace zolt20::tests {

/// Write access to the form, as handlers have it, for states that a person would reach by a longer
/// way. A write runs its handler.
inline Surface& Written(ZOLT20MapControl& control) {
  return const_cast<Surface&>(control.Form());
}

/// The names of all controls with a notice; "focus" and "tab order" for notices of these.
class TouchedControls final : public SurfaceObserver {
 public:
  explicit TouchedControls(ZOLT20MapControl& control) : control_(control) {
    control_.AddObserver(*this);
  }
  TouchedControls(const TouchedControls&) = delete;
  TouchedControls& operator=(const TouchedControls&) = delete;
  ~TouchedControls() override { control_.RemoveObserver(*this); }

  void ControlChanged(const Control& control, Property /*property*/) noexcept override {
    Touch(control);
  }
  void RowsAboutToChange(const Control& list, const RowChange& /*change*/) noexcept override {
    Touch(list);
  }
  void RowsChanged(const Control& list, const RowChange& /*change*/) noexcept override {
    Touch(list);
  }
  void MarksChanged(const Control& list, int /*first*/, int /*count*/) noexcept override {
    Touch(list);
  }
  void FocusChanged(const Control* /*control*/) noexcept override { names.insert("focus"); }
  void TabOrderChanged(int /*first*/, int /*last*/) noexcept override { names.insert("tab order"); }
  void ElementLoaded(const Control& element) noexcept override { Touch(element); }
  void ElementUnloading(const Control& element) noexcept override { Touch(element); }
  void StateReplaced() noexcept override { names.insert("state"); }

  std::set<std::string> names;

 private:
  void Touch(const Control& control) { names.emplace(control.name()); }

  ZOLT20MapControl& control_;
};

}  // namespace zolt20::tests
