// The guard around every COM entry point of the control: no exception crosses the COM boundary;
// it becomes an HRESULT with error information.
#pragma once

#include <windows.h>

#include <new>

#include "surface/error.h"

namespace zolt20::com {

/// The code of a run-time error: 0x800A0000 and its number.
constexpr HRESULT CodeOf(int number) {
  return static_cast<HRESULT>(0x800A0000U + static_cast<unsigned>(number));
}

/// Sets the error's text as error information, which the caller reads by GetErrorInfo.
HRESULT Report(const RuntimeError& error) noexcept;

/// Runs the body, which returns an HRESULT. A RuntimeError becomes its code, with error
/// information; std::bad_alloc becomes E_OUTOFMEMORY; any other exception, such as one that a host
/// threw from an event, E_FAIL.
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
