// Calls into programs made by other compilers, whose exceptions the run-time library of this one
// ignores: no catch would see them, and no destructor would run while the stack is unwound.
#pragma once

#include <windows.h>

namespace zolt20::com {

/// Stands for a foreign exception: one that another compiler's code threw.
struct OutsideException {};

/// Runs `act(context)`. Returns the code of a foreign exception (of another compiler or language)
/// that left it, 0 without one. This compiler's own, and faults such as a wrong address, propagate.
extern "C" DWORD zolt20_call_outside(void (*act)(void*), void* context);

/// Runs the function. Throws OutsideException in place of a foreign exception.
template <typename Act>
void CallOutside(const Act& act) {
  const auto run = [](void* context) { (*static_cast<const Act*>(context))(); };
  if (zolt20_call_outside(run, const_cast<Act*>(&act)) != 0) throw OutsideException();
}

}  // namespace zolt20::com
