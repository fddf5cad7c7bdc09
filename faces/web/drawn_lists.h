// The cache of which rows the lists and combo boxes of one element draw. A change of rows marks a
// list's entry stale; the next Of() of that list refreshes it.
#pragma once

#include <map>

#include "faces/shared/drawn_rows.h"
#include "shell/control.h"

namespace zolt20::web {

class DrawnLists final : private SurfaceObserver {
 public:
  /// `control` has to outlive this object.
  DrawnLists(ZOLT20MapControl& control, faces::DrawnRows::Fold fold);
  ~DrawnLists() override;
  DrawnLists(const DrawnLists&) = delete;
  DrawnLists& operator=(const DrawnLists&) = delete;

  /// The drawn rows of a list of the control, up to date. Valid as long as this object lives.
  faces::DrawnRows& Of(const RowsControl& list);

 private:
  void ControlChanged(const Control& /*control*/, Property /*property*/) noexcept override {}
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
  std::map<const Control*, Drawn> drawn_;  // by list, for the lists that Of() was called for
};

}  // namespace zolt20::web
