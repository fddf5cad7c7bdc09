// What a file of the server serves: one class of controls. Each file says it once; the rest of the
// server is the same in all of them.
#pragma once

#include <windows.h>

#include <span>

namespace zolt20::com {

/// An interface that Automation carries from one apartment to another.
struct ServedInterface {
  const IID& id;
  const wchar_t* name;
  bool isByTable;  ///< and by name; otherwise by name alone
};

struct Served {
  const CLSID& classId;
  const IID& interfaceId;  ///< the default one
  const wchar_t* userType;
  const wchar_t* progId;
  const wchar_t* versionedProgId;
  const GUID& libraryId;
  const wchar_t* libraryName;
  std::span<const ServedInterface> interfaces;
  DWORD miscStatus;
  bool isForDocuments;  ///< stores itself in storages and memory, and has a verb of its own
  /// A new object, which may be a part of `outer`. Throws std::bad_alloc.
  HRESULT (*create)(IUnknown* outer, REFIID id, void** object);
};

const Served& TheServed();

}  // namespace zolt20::com
