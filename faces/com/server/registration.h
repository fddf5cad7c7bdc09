// The control in the registry: under the machine's classes, or without the rights for that under
// those of the user.
#pragma once

#include <windows.h>

#include <string>

namespace zolt20::com {

/// Registers the class, its ProgID and its type library for the server's file. Half a registration
/// is taken back.
HRESULT Register(const std::wstring& path);
/// Takes away what Register wrote, wherever that was, but for what the control of the other width
/// needs when that one is registered too. What is not there is no error.
HRESULT Unregister();

}  // namespace zolt20::com
