// The server as a whole: where its file is, whether it may be unloaded, its type library.
#pragma once

#include <windows.h>

#include <string>

#include "ZOLT20MappingCtrl.h"  // made from the type library's source
#include "faces/com/com_pointer.h"

namespace zolt20::com {

inline constexpr wchar_t kProgId[] = L"ZOLT20MappingCtrl.ZOLT20MapControl";

/// The module of the server.
HINSTANCE ServerInstance();
/// The path of the server's file. Throws std::bad_alloc.
std::wstring ServerPath();

/// A guard: the server is not unloaded during its lifetime.
class ServerLock {
 public:
  ServerLock() noexcept;
  ~ServerLock();
  ServerLock(const ServerLock&) = delete;
  ServerLock& operator=(const ServerLock&) = delete;
};

/// Loads a type description from the type library in the server's own file.
HRESULT LoadDescription(REFGUID guid, Pointer<ITypeInfo>& description);

}  // namespace zolt20::com
