// How large a form may grow before the input of a fuzzer is abandoned: larger forms are slow and
// reach no new code.
#pragma once

#include <cstddef>

#include "shell/control.h"

namespace zolt20::fuzz {

constexpr int kMostRows = 4000;
constexpr std::size_t kMostText = 40000;

/// Whether a list or the Result is beyond these bounds.
inline bool IsLarge(const Surface& form) {
  for (const Control* control : form.Controls()) {
    const auto* rows = dynamic_cast<const RowsControl*>(control);
    if (rows != nullptr && rows->ListCount() > kMostRows) return true;
  }
  return form.TxtOutput.Text().size() > kMostText;
}

}  // namespace zolt20::fuzz
