// A host and an observer that do nothing: base classes for those that override one or two members.
#pragma once

#include <string_view>

#include "shell/host.h"
#include "surface/observer.h"

namespace zolt20::tests {

class SilentHost : public ControlHost {
 public:
  void eventCancel() override {}
  void eventDone() override {}
  void eventSubQuery() override {}
  void eventCondition() override {}
  void eventFunction() override {}
  void PropertyChanged(std::string_view /*property*/) override {}
  void ShowMessage(const Message& /*message*/) override {}
};

class SilentObserver : public SurfaceObserver {
 public:
  void ControlChanged(const Control& /*control*/, Property /*property*/) noexcept override {}
  void RowsAboutToChange(const Control& /*list*/, const RowChange& /*change*/) noexcept override {}
  void RowsChanged(const Control& /*list*/, const RowChange& /*change*/) noexcept override {}
  void MarksChanged(const Control& /*list*/, int /*first*/, int /*count*/) noexcept override {}
  void FocusChanged(const Control* /*control*/) noexcept override {}
  void TabOrderChanged(int /*first*/, int /*last*/) noexcept override {}
  void ElementLoaded(const Control& /*element*/) noexcept override {}
  void ElementUnloading(const Control& /*element*/) noexcept override {}
  void StateReplaced() noexcept override {}
};

}  // namespace zolt20::tests
