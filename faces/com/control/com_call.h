// What every entry into the control from COM has around it: no exception crosses the border, and
// what was raised becomes an error code with its text.
#pragma once

#include <windows.h>

#include <new>

#include "surface/error.h"

namespace zolt20::com {

/// The code of a run-time error: 0x800A0000 and its number.
constexpr HRESULT CodeOf(int number) {
  return static_cast<HRESULT>(0x800A0000U + static_cast<unsigned>(number));
}

/// Leaves the error's text for the caller, who finds it by GetErrorInfo.
HRESULT Report(const RuntimeError& error) noexcept;

/// Runs the body, which gives a HRESULT. A run-time error becomes its code, with rich error
/// information; memory that runs out E_OUTOFMEMORY; anything else, such as what a host threw from
/// an event, E_FAIL.
template <typename Body>
HRESULT Guarded(const Body& body) noexcept {
  try {
    return body();
  } catch (const RuntimeError& error) {
    return Report(error);
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_FAIL;
  }
}

}  // namespace zolt20::com
