// Which rows the lists and combos of one element draw. A list is counted anew when it is asked for
// after its rows changed, whoever asks.
#pragma once

#include <map>

#include "faces/shared/drawn_rows.h"
#include "shell/control.h"

namespace zolt20::web {

class DrawnLists final : private SurfaceObserver {
 public:
  /// The control outlives it.
  DrawnLists(ZOLT20MapControl& control, faces::DrawnRows::Fold fold);
  ~DrawnLists() override;
  DrawnLists(const DrawnLists&) = delete;
  DrawnLists& operator=(const DrawnLists&) = delete;

  /// Of a list of the control.
  faces::DrawnRows& Of(const RowsControl& list);

 private:
  void PropertyChanged(const Control& /*control*/, Property /*property*/) noexcept override {}
  void RowsAboutToChange(const Control& /*list*/, const RowChange& /*change*/) noexcept override {}
  void RowsChanged(const Control& list, const RowChange& change) noexcept override;
  void MarksChanged(const Control& /*list*/, int /*first*/, int /*count*/) noexcept override {}
  void FocusChanged(const Control* /*control*/) noexcept override {}
  void TabOrderChanged(int /*first*/, int /*last*/) noexcept override {}
  void ElementLoaded(const Control& /*element*/) noexcept override {}
  void ElementUnloading(const Control& /*element*/) noexcept override {}
  void StateReplaced() noexcept override;

  struct Drawn {
    faces::DrawnRows rows;
    bool isStale = false;
  };

  ZOLT20MapControl& control_;
  faces::DrawnRows::Fold fold_;
  std::map<const Control*, Drawn> drawn_;  // of the lists that were asked for
};

}  // namespace zolt20::web
