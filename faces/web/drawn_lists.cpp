#include "faces/web/drawn_lists.h"

#include <utility>

namespace zolt20::web {

DrawnLists::DrawnLists(ZOLT20MapControl& control, faces::DrawnRows::Fold fold)
    : control_(control), fold_(std::move(fold)) {
  control_.AddObserver(*this);
}

DrawnLists::~DrawnLists() {
  control_.RemoveObserver(*this);
}

faces::DrawnRows& DrawnLists::Of(const RowsControl& list) {
  auto found = drawn_.find(&list);
  if (found == drawn_.end())
    found = drawn_.emplace(&list, Drawn{faces::DrawnRows(list, fold_)}).first;
  Drawn& drawn = found->second;
  if (std::exchange(drawn.isStale, false)) drawn.rows.Refresh();
  return drawn.rows;
}

void DrawnLists::RowsChanged(const Control& list, const RowChange& /*change*/) noexcept {
  const auto found = drawn_.find(&list);
  if (found != drawn_.end()) found->second.isStale = true;
}

void DrawnLists::StateReplaced() noexcept {
  for (auto& [list, drawn] : drawn_)
    drawn.isStale = true;
}

}  // namespace zolt20::web
