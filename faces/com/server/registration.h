// Registration of the control in the registry: under the machine's classes, or without the rights
// for that under those of the user.
#pragma once

#include <windows.h>

#include <string>

namespace zolt20::com {

/// Registers the class, its ProgID and its type library for the server's file. A registration that
/// fails halfway is removed.
HRESULT Register(const std::wstring& path);
/// Removes what Register wrote, for machine and user, except what the control of the other width
/// (32 or 64 bits) needs if that one is registered, too. Idempotent: missing keys are no error.
HRESULT Unregister();

}  // namespace zolt20::com
