#include "faces/com/server/registration.h"

#include <comcat.h>
#include <objsafe.h>
#include <olectl.h>

#include <array>
#include <cwchar>
#include <initializer_list>
#include <string>

#include "faces/com/server/served.h"

namespace zolt20::com {
namespace {

constexpr const wchar_t* kClasses = L"Software\\Classes\\";
#ifdef _WIN64
constexpr const wchar_t* kPlatform = L"win64";
constexpr const wchar_t* kOtherPlatform = L"win32";
#else
constexpr const wchar_t* kPlatform = L"win32";
constexpr const wchar_t* kOtherPlatform = L"win64";
#endif

std::wstring Text(REFGUID guid) {
  std::array<wchar_t, 40> text{};
  StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
  return text.data();
}

// The registry has the version numbers of type libraries in hexadecimal digits.
std::wstring LibraryVersion() {
  std::array<wchar_t, 24> text{};
  std::swprintf(text.data(), text.size(), L"%x.%x", ZOLT20_MAJOR, ZOLT20_MINOR);
  return text.data();
}

HRESULT ResultOf(LSTATUS status) {
  return HRESULT_FROM_WIN32(static_cast<unsigned long>(status));
}

// Writes and removes keys below Software\Classes of one root key. Keeps the first failure.
class Classes {
 public:
  explicit Classes(HKEY root) : root_(root) {}

  /// The default value of a key, or the one of that name.
  void Write(const std::wstring& key, const std::wstring& value, const wchar_t* name = nullptr) {
    if (status_ != ERROR_SUCCESS) return;
    const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    status_ = RegSetKeyValueW(root_, (kClasses + key).c_str(), name, REG_SZ, value.c_str(), bytes);
  }
  /// Idempotent: a key that is missing is no failure.
  void Remove(const std::wstring& key) {
    const LSTATUS status = RegDeleteTreeW(root_, (kClasses + key).c_str());
    if (status_ == ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) status_ = status;
  }
  bool IsThere(const std::wstring& key) const {
    HKEY opened = nullptr;
    const std::wstring path = kClasses + key;
    if (RegOpenKeyExW(root_, path.c_str(), 0, KEY_QUERY_VALUE, &opened) != ERROR_SUCCESS)
      return false;
    RegCloseKey(opened);
    return true;
  }
  /// Removes a key that registrations share, once the last of them has emptied it.
  void RemoveWhenEmpty(const std::wstring& key) const {
    HKEY opened = nullptr;
    const std::wstring path = kClasses + key;
    if (RegOpenKeyExW(root_, path.c_str(), 0, KEY_QUERY_VALUE, &opened) != ERROR_SUCCESS) return;
    DWORD keys = 1;
    DWORD values = 1;
    RegQueryInfoKeyW(opened, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr,
                     nullptr, nullptr, nullptr);
    RegCloseKey(opened);
    if (keys == 0 && values == 0) RegDeleteKeyW(root_, path.c_str());
  }
  HRESULT Result() const { return status_ == ERROR_SUCCESS ? S_OK : ResultOf(status_); }

 private:
  HKEY root_;
  LSTATUS status_ = ERROR_SUCCESS;
};

std::wstring LibraryKey() {
  return L"TypeLib\\" + Text(TheServed().libraryId);
}

// The key below which the library's files for 32 and 64 bits stand.
std::wstring FilesKey() {
  return LibraryKey() + L"\\" + LibraryVersion() + L"\\0\\";
}

// Writes the keys itself, since some versions of Windows can register a type library for the
// machine only.
void WriteLibrary(Classes& classes, const std::wstring& path) {
  const Served& served = TheServed();
  const std::wstring library = Text(served.libraryId);
  const std::wstring key = LibraryKey() + L"\\" + LibraryVersion();
  classes.Write(key, served.libraryName);
  classes.Write(FilesKey() + kPlatform, path);
  classes.Write(key + L"\\FLAGS", L"0");
  classes.Write(key + L"\\HELPDIR", path.substr(0, path.find_last_of(L"\\/")));
  for (const ServedInterface& each : served.interfaces) {
    const std::wstring interfaceKey = L"Interface\\" + Text(each.id);
    classes.Write(interfaceKey, each.name);
    classes.Write(interfaceKey + L"\\ProxyStubClsid32",
                  each.isByTable ? L"{00020424-0000-0000-C000-000000000046}"
                                 : L"{00020420-0000-0000-C000-000000000046}");
    classes.Write(interfaceKey + L"\\TypeLib", library);
    classes.Write(interfaceKey + L"\\TypeLib", LibraryVersion(), L"Version");
  }
}

HRESULT RegisterUnder(HKEY root, const std::wstring& path) {
  const Served& served = TheServed();
  const std::wstring classId = Text(served.classId);
  const std::wstring key = L"CLSID\\" + classId;
  Classes classes(root);
  for (const wchar_t* progId : {served.versionedProgId, served.progId}) {
    classes.Write(progId, served.userType);
    classes.Write(progId + std::wstring(L"\\CLSID"), classId);
  }
  classes.Write(served.progId + std::wstring(L"\\CurVer"), served.versionedProgId);
  classes.Write(key, served.userType);
  classes.Write(key + L"\\InprocServer32", path);
  classes.Write(key + L"\\InprocServer32", L"Apartment", L"ThreadingModel");
  classes.Write(key + L"\\ProgID", served.versionedProgId);
  classes.Write(key + L"\\VersionIndependentProgID", served.progId);
  classes.Write(key + L"\\TypeLib", Text(served.libraryId));
  classes.Write(key + L"\\Version",
                std::to_wstring(ZOLT20_MAJOR) + L"." + std::to_wstring(ZOLT20_MINOR));
  classes.Write(key + L"\\Control", L"");
  classes.Write(key + L"\\Programmable", L"");
  classes.Write(key + L"\\MiscStatus", L"0");
  classes.Write(key + L"\\MiscStatus\\1", std::to_wstring(served.miscStatus));
  classes.Write(key + L"\\ToolboxBitmap32", path + L", 101");
  const auto isOf = [&](std::initializer_list<CATID> categories) {
    for (const CATID& category : categories)
      classes.Write(key + L"\\Implemented Categories\\" + Text(category), L"");
  };
  isOf({CATID_Control, CATID_SafeForScripting, CATID_SafeForInitializing,
        CATID_PersistsToStreamInit, CATID_PersistsToPropertyBag});
  if (served.isForDocuments) {
    isOf({CATID_Insertable, CATID_PersistsToStorage, CATID_PersistsToMemory});
    classes.Write(key + L"\\Insertable", L"");
    // The one verb that shows in menus, enabled; the other verbs are for containers only.
    classes.Write(key + L"\\verb", L"");
    classes.Write(key + L"\\verb\\0", L"&Edit,0,2");
  }
  WriteLibrary(classes, path);
  return classes.Result();
}

HRESULT UnregisterUnder(HKEY root) {
  const Served& served = TheServed();
  Classes classes(root);
  classes.Remove(L"CLSID\\" + Text(served.classId));
  classes.Remove(FilesKey() + kPlatform);
  // Programs of 32 and of 64 bits share ProgIDs and libraries in the registry, but not classes.
  if (!classes.IsThere(FilesKey() + kOtherPlatform)) {
    classes.Remove(served.progId);
    classes.Remove(served.versionedProgId);
    classes.Remove(LibraryKey());
  }
  for (const ServedInterface& each : served.interfaces)
    classes.Remove(L"Interface\\" + Text(each.id));
  for (const wchar_t* shared : {L"CLSID", L"TypeLib", L"Interface"})
    classes.RemoveWhenEmpty(shared);
  return classes.Result();
}

}  // namespace

HRESULT Register(const std::wstring& path) {
  HRESULT result = S_OK;
  for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
    result = RegisterUnder(root, path);
    if (SUCCEEDED(result)) return result;
    UnregisterUnder(root);
    if (result != E_ACCESSDENIED) return result;
  }
  return result;
}

HRESULT Unregister() {
  // The user's keys first: they hide those of the machine.
  const HRESULT ofUser = UnregisterUnder(HKEY_CURRENT_USER);
  const HRESULT ofMachine = UnregisterUnder(HKEY_LOCAL_MACHINE);
  return FAILED(ofUser) ? ofUser : ofMachine;
}

}  // namespace zolt20::com
