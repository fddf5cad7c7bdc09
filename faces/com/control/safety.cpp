#include "faces/com/control/map_control.h"

// IObjectSafety: the control is safe for initializing and scripting by untrusted documents.

namespace zolt20::com {
namespace {

constexpr DWORD kSafe = INTERFACESAFE_FOR_UNTRUSTED_CALLER | INTERFACESAFE_FOR_UNTRUSTED_DATA;

}  // namespace

STDMETHODIMP MapControl::GetInterfaceSafetyOptions(REFIID id, DWORD* supported, DWORD* enabled) {
  if (supported == nullptr || enabled == nullptr) return E_POINTER;
  *supported = 0;
  *enabled = 0;
  return Enter([&] {
    Pointer<IUnknown> asked;
    const HRESULT result = own_.QueryInterface(id, reinterpret_cast<void**>(asked.Put()));
    if (FAILED(result)) return result;
    *supported = kSafe;
    *enabled = kSafe;
    return S_OK;
  });
}

// The control is always in its safe mode, so there is nothing to switch.
STDMETHODIMP MapControl::SetInterfaceSafetyOptions(REFIID id, DWORD mask, DWORD /*enabled*/) {
  return Enter([&] {
    Pointer<IUnknown> asked;
    const HRESULT result = own_.QueryInterface(id, reinterpret_cast<void**>(asked.Put()));
    if (FAILED(result)) return result;
    return (mask & ~kSafe) == 0 ? S_OK : E_FAIL;
  });
}

}  // namespace zolt20::com
