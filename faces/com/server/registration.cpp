#include "faces/com/server/registration.h"

#include <comcat.h>
#include <objsafe.h>
#include <olectl.h>

#include <array>
#include <cwchar>

#include "faces/com/control/map_control.h"
#include "faces/com/server/server.h"

namespace zolt20::com {
namespace {

constexpr const wchar_t* kCurrentVersion = L"ZOLT20MappingCtrl.ZOLT20MapControl.1";
#ifdef _WIN64
constexpr const wchar_t* kPlatform = L"win64";
constexpr const wchar_t* kOtherPlatform = L"win32";
#else
constexpr const wchar_t* kPlatform = L"win32";
constexpr const wchar_t* kOtherPlatform = L"win64";
#endif
constexpr const wchar_t* kClasses = L"Software\\Classes\\";

std::wstring Text(REFGUID guid) {
  std::array<wchar_t, 40> text{};
  StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
  return text.data();
}

// The registry has the numbers of type libraries in hexadecimal digits.
std::wstring LibraryVersion() {
  std::array<wchar_t, 24> text{};
  std::swprintf(text.data(), text.size(), L"%x.%x", ZOLT20_MAJOR, ZOLT20_MINOR);
  return text.data();
}

HRESULT ResultOf(LSTATUS status) {
  return HRESULT_FROM_WIN32(static_cast<unsigned long>(status));
}

// Writes values below the classes of one root, and keeps the first failure.
class Writer {
 public:
  explicit Writer(HKEY root) : root_(root) {}

  /// The default value of a key, or the one of that name.
  void Write(const std::wstring& key, const std::wstring& value, const wchar_t* name = nullptr) {
    if (status_ != ERROR_SUCCESS) return;
    const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    status_ = RegSetKeyValueW(root_, (kClasses + key).c_str(), name, REG_SZ, value.c_str(), bytes);
  }
  LSTATUS status() const { return status_; }

 private:
  HKEY root_;
  LSTATUS status_ = ERROR_SUCCESS;
};

// An interface that Automation carries from one apartment to another by itself, as the type library
// describes it.
void WriteInterface(Writer& writer, REFGUID id, const wchar_t* name, const wchar_t* marshaller) {
  const std::wstring key = L"Interface\\" + Text(id);
  writer.Write(key, name);
  writer.Write(key + L"\\ProxyStubClsid32", marshaller);
  writer.Write(key + L"\\TypeLib", Text(LIBID_ZOLT20MappingCtrl));
  writer.Write(key + L"\\TypeLib", LibraryVersion(), L"Version");
}

std::wstring TypeLibraryKey() {
  return L"TypeLib\\" + Text(LIBID_ZOLT20MappingCtrl);
}

// Where the files of both platforms stand.
std::wstring FilesKey() {
  return TypeLibraryKey() + L"\\" + LibraryVersion() + L"\\0\\";
}

// Not by the system's own function for it, which has one for the machine alone in some versions.
void WriteTypeLibrary(Writer& writer, const std::wstring& path) {
  const std::wstring key = TypeLibraryKey() + L"\\" + LibraryVersion();
  writer.Write(key, L"ZOLT20MappingCtrl");
  writer.Write(FilesKey() + kPlatform, path);
  writer.Write(key + L"\\FLAGS", L"0");
  writer.Write(key + L"\\HELPDIR", path.substr(0, path.find_last_of(L"\\/")));
  constexpr const wchar_t* kByTable = L"{00020424-0000-0000-C000-000000000046}";
  WriteInterface(writer, IID__ZOLT20MapControl, L"_ZOLT20MapControl", kByTable);
  WriteInterface(writer, IID_IZOLT20MapControlView, L"IZOLT20MapControlView", kByTable);
  WriteInterface(writer, DIID___ZOLT20MapControl, L"__ZOLT20MapControl",
                 L"{00020420-0000-0000-C000-000000000046}");  // by name
}

HRESULT RegisterUnder(HKEY root, const std::wstring& path) {
  const std::wstring classId = Text(CLSID_ZOLT20MapControl);
  const std::wstring classKey = L"CLSID\\" + classId;
  Writer writer(root);
  writer.Write(kCurrentVersion, kUserType);
  writer.Write(kCurrentVersion + std::wstring(L"\\CLSID"), classId);
  writer.Write(kProgId, kUserType);
  writer.Write(kProgId + std::wstring(L"\\CLSID"), classId);
  writer.Write(kProgId + std::wstring(L"\\CurVer"), kCurrentVersion);
  writer.Write(classKey, kUserType);
  writer.Write(classKey + L"\\InprocServer32", path);
  writer.Write(classKey + L"\\InprocServer32", L"Apartment", L"ThreadingModel");
  writer.Write(classKey + L"\\ProgID", kCurrentVersion);
  writer.Write(classKey + L"\\VersionIndependentProgID", kProgId);
  writer.Write(classKey + L"\\TypeLib", Text(LIBID_ZOLT20MappingCtrl));
  writer.Write(classKey + L"\\Version",
               std::to_wstring(ZOLT20_MAJOR) + L"." + std::to_wstring(ZOLT20_MINOR));
  writer.Write(classKey + L"\\Control", L"");
  writer.Write(classKey + L"\\Insertable", L"");
  writer.Write(classKey + L"\\Programmable", L"");
  writer.Write(classKey + L"\\MiscStatus", L"0");
  writer.Write(classKey + L"\\MiscStatus\\1", std::to_wstring(kMiscStatus));
  writer.Write(classKey + L"\\ToolboxBitmap32", path + L", 101");
  // The verb of menus, enabled; the other ones are for containers alone.
  writer.Write(classKey + L"\\verb", L"");
  writer.Write(classKey + L"\\verb\\0", L"&Edit,0,2");
  for (const CATID& category :
       {CATID_Control, CATID_Insertable, CATID_SafeForScripting, CATID_SafeForInitializing,
        CATID_PersistsToStreamInit, CATID_PersistsToPropertyBag, CATID_PersistsToStorage,
        CATID_PersistsToMemory})
    writer.Write(classKey + L"\\Implemented Categories\\" + Text(category), L"");
  WriteTypeLibrary(writer, path);
  return writer.status() == ERROR_SUCCESS ? S_OK : ResultOf(writer.status());
}

// Keeps the first failure in `result`; what is not there is none.
void RemoveTree(HKEY root, const std::wstring& key, HRESULT& result) {
  const LSTATUS status = RegDeleteTreeW(root, (kClasses + key).c_str());
  if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND && SUCCEEDED(result))
    result = ResultOf(status);
}

// What registrations share goes with the last of them.
void RemoveWhenEmpty(HKEY root, const std::wstring& key) {
  HKEY opened = nullptr;
  const std::wstring path = kClasses + key;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_QUERY_VALUE, &opened) != ERROR_SUCCESS) return;
  DWORD keys = 1;
  DWORD values = 1;
  RegQueryInfoKeyW(opened, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr,
                   nullptr, nullptr, nullptr);
  RegCloseKey(opened);
  if (keys == 0 && values == 0) RegDeleteKeyW(root, path.c_str());
}

bool IsThere(HKEY root, const std::wstring& key) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(root, (kClasses + key).c_str(), 0, KEY_QUERY_VALUE, &opened) != ERROR_SUCCESS)
    return false;
  RegCloseKey(opened);
  return true;
}

HRESULT UnregisterUnder(HKEY root) {
  HRESULT result = S_OK;
  RemoveTree(root, L"CLSID\\" + Text(CLSID_ZOLT20MapControl), result);
  RemoveTree(root, FilesKey() + kPlatform, result);
  // Programs of 32 and of 64 bits see the same names and libraries, and classes of their own.
  if (!IsThere(root, FilesKey() + kOtherPlatform)) {
    RemoveTree(root, kProgId, result);
    RemoveTree(root, kCurrentVersion, result);
    RemoveTree(root, TypeLibraryKey(), result);
  }
  RemoveTree(root, L"Interface\\" + Text(IID__ZOLT20MapControl), result);
  RemoveTree(root, L"Interface\\" + Text(IID_IZOLT20MapControlView), result);
  RemoveTree(root, L"Interface\\" + Text(DIID___ZOLT20MapControl), result);
  for (const wchar_t* shared : {L"CLSID", L"TypeLib", L"Interface"})
    RemoveWhenEmpty(root, shared);
  return result;
}

bool IsDenied(HRESULT result) {
  return result == E_ACCESSDENIED;
}

}  // namespace

HRESULT Register(const std::wstring& path) {
  HRESULT result = S_OK;
  for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
    result = RegisterUnder(root, path);
    if (SUCCEEDED(result)) return result;
    UnregisterUnder(root);
    if (!IsDenied(result)) return result;
  }
  return result;
}

HRESULT Unregister() {
  // Of the user's first: what is there hides what the machine has.
  const HRESULT ofUser = UnregisterUnder(HKEY_CURRENT_USER);
  const HRESULT ofMachine = UnregisterUnder(HKEY_LOCAL_MACHINE);
  return FAILED(ofUser) ? ofUser : ofMachine;
}

}  // namespace zolt20::com
