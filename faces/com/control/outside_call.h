// Calls into programs made by other compilers, whose exceptions the run-time library of this one
// passes by: no handler would see them, and nothing on the way would be cleaned up.
#pragma once

#include <windows.h>

namespace zolt20::com {

/// What a program outside threw that is not one of this compiler's exceptions.
struct OutsideException {};

/// Runs `act(context)`. Gives the code of an exception of another compiler or language that left
/// it, 0 without one. Those of this compiler, and faults such as a wrong address, pass through.
extern "C" DWORD zolt20_call_outside(void (*act)(void*), void* context);

/// Runs the function. Throws OutsideException for what another compiler's code threw.
template <typename Act>
void CallOutside(const Act& act) {
  const auto run = [](void* context) { (*static_cast<const Act*>(context))(); };
  if (zolt20_call_outside(run, const_cast<Act*>(&act)) != 0) throw OutsideException();
}

}  // namespace zolt20::com
