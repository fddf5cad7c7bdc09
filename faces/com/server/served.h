// What a server file (DLL) serves: one COM class. Each file defines it once; the rest of the server
// is the same in all of them.
#pragma once

#include <windows.h>

#include <span>

namespace zolt20::com {

/// An interface that the Automation marshaler carries between apartments.
struct ServedInterface {
  const IID& id;
  const wchar_t* name;
  bool isByTable;  ///< a dual interface; otherwise a dispinterface
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
  bool isForDocuments;  ///< has storage and memory persistence, and its own verb
  /// A new object; with `outer` not null it is aggregated. Throws std::bad_alloc.
  HRESULT (*create)(IUnknown* outer, REFIID id, void** object);
};

const Served& TheServed();

}  // namespace zolt20::com
