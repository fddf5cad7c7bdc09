// The registry after registering and unregistering, each in a process of its own, as a setup
// program does it.
#include <aclapi.h>
#include <gtest/gtest.h>
#include <ole2.h>

#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "ZOLT20MappingCtrl.h"

namespace zolt20::tests {
namespace {

constexpr wchar_t kClasses[] = L"Software\\Classes";

// The registry does not tell capital letters from small ones.
std::wstring Small(std::wstring text) {
  CharLowerW(text.data());
  return text;
}

// Every key and value below, a line each.
void Collect(HKEY root, const std::wstring& path, std::set<std::wstring>& lines) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
  wchar_t name[512];
  for (DWORD i = 0;; ++i) {
    DWORD length = 512;
    DWORD type = 0;
    std::vector<BYTE> data(1 << 16);
    auto size = static_cast<DWORD>(data.size());
    if (RegEnumValueW(key, i, name, &length, nullptr, &type, data.data(), &size) != ERROR_SUCCESS)
      break;
    std::wstring line = path + L" [" + name + L"] = ";
    if (type == REG_SZ) line += reinterpret_cast<const wchar_t*>(data.data());
    lines.insert(Small(line));
  }
  for (DWORD i = 0;; ++i) {
    DWORD length = 512;
    if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
      break;
    lines.insert(Small(path + L"\\" + name));
    Collect(root, path + L"\\" + name, lines);
  }
  RegCloseKey(key);
}

std::set<std::wstring> ClassesOf(HKEY root) {
  std::set<std::wstring> lines;
  Collect(root, kClasses, lines);
  return lines;
}

// The lines that only one of the two has.
std::vector<std::string> Difference(const std::set<std::wstring>& before,
                                    const std::set<std::wstring>& after) {
  std::vector<std::string> lines;
  const auto missing = [&lines](const auto& in, const auto& from, const char* sign) {
    for (const std::wstring& line : from) {
      if (in.count(line) == 0) lines.push_back(sign + std::string(line.begin(), line.end()));
    }
  };
  missing(before, after, "+");
  missing(after, before, "-");
  return lines;
}

const std::vector<std::string> kNothing;

std::wstring Server() {
  wchar_t path[MAX_PATH] = L"";
  GetEnvironmentVariableW(L"ZOLT20_SERVER", path, MAX_PATH);
  return path;
}

// The exit code of the system's own program for this.
DWORD Regsvr32(const std::wstring& arguments) {
  const std::wstring line = L"regsvr32.exe /s " + arguments + L" \"" + Server() + L"\"";
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  bool isStarted = false;
  // Wine fails to start a program now and then when the machine is busy.
  constexpr int kAttempts = 5;
  constexpr DWORD kPause = 1000;
  for (int attempt = 0; attempt < kAttempts && !isStarted; ++attempt) {
    std::wstring given = line;
    isStarted = CreateProcessW(nullptr, given.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                               &start, &process) != FALSE;
    if (!isStarted) Sleep(kPause);
  }
  if (!isStarted) {
    ADD_FAILURE() << "regsvr32 does not start, error " << GetLastError();
    return 99;
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD code = 98;
  GetExitCodeProcess(process.hProcess, &code);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return code;
}

// By the name of the class that the server has.
bool CanBeCreated() {
  wchar_t progId[80] = L"ZOLT20MappingCtrl.ZOLT20MapControl";
  GetEnvironmentVariableW(L"ZOLT20_PROGID", progId, 80);
  CLSID id{};
  if (FAILED(CLSIDFromProgID(progId, &id))) return false;
  IDispatch* control = nullptr;
  if (FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                              reinterpret_cast<void**>(&control))))
    return false;
  control->Release();
  CoFreeUnusedLibraries();
  return true;
}

// Makes the classes of the machine read-only as long as the object lives.
class WithoutRights {
 public:
  WithoutRights() {
    RegOpenKeyExW(HKEY_LOCAL_MACHINE, kClasses, 0, KEY_READ | WRITE_DAC, &key_);
    SID_IDENTIFIER_AUTHORITY world = SECURITY_WORLD_SID_AUTHORITY;
    PSID everyone = nullptr;
    AllocateAndInitializeSid(&world, 1, SECURITY_WORLD_RID, 0, 0, 0, 0, 0, 0, 0, &everyone);
    Set(everyone, KEY_READ | WRITE_DAC);
    everyone_ = everyone;
  }
  ~WithoutRights() {
    Set(everyone_, KEY_ALL_ACCESS);
    FreeSid(everyone_);
    RegCloseKey(key_);
  }
  WithoutRights(const WithoutRights&) = delete;
  WithoutRights& operator=(const WithoutRights&) = delete;

 private:
  void Set(PSID who, DWORD rights) {
    alignas(ACL) BYTE memory[256];
    auto* list = reinterpret_cast<ACL*>(memory);
    InitializeAcl(list, sizeof memory, ACL_REVISION);
    AddAccessAllowedAce(list, ACL_REVISION, rights, who);
    SECURITY_DESCRIPTOR descriptor{};
    InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
    SetSecurityDescriptorDacl(&descriptor, TRUE, list, FALSE);
    EXPECT_EQ(RegSetKeySecurity(key_, DACL_SECURITY_INFORMATION, &descriptor), ERROR_SUCCESS);
  }

  HKEY key_ = nullptr;
  PSID everyone_ = nullptr;
};

// What the file VERSION tells: three numbers with points between.
struct Version {
  Version() {
    char point = 0;
    std::ifstream(ZOLT20_VERSION_FILE) >> major >> point >> minor >> point >> patch;
  }
  std::wstring OfTheLibrary() const {
    return std::to_wstring(major) + L"." + std::to_wstring(minor);
  }
  std::wstring Text() const { return OfTheLibrary() + L"." + std::to_wstring(patch); }

  WORD major = 0;
  WORD minor = 0;
  WORD patch = 0;
};

class RegistrationTest : public testing::Test {
 protected:
  ~RegistrationTest() override { Regsvr32(L"/u"); }

  const std::set<std::wstring> machine_ = ClassesOf(HKEY_LOCAL_MACHINE);
  const std::set<std::wstring> user_ = ClassesOf(HKEY_CURRENT_USER);
};

TEST_F(RegistrationTest, PerMachineItLeavesNothingBehind) {
  EXPECT_FALSE(CanBeCreated());
  EXPECT_EQ(Regsvr32(L""), 0U);
  const std::set<std::wstring> registered = ClassesOf(HKEY_LOCAL_MACHINE);
  EXPECT_GT(registered.size(), machine_.size() + 20);
  EXPECT_EQ(Difference(user_, ClassesOf(HKEY_CURRENT_USER)), kNothing);
  EXPECT_TRUE(CanBeCreated());
  EXPECT_EQ(Regsvr32(L"/u"), 0U);
  EXPECT_EQ(Difference(machine_, ClassesOf(HKEY_LOCAL_MACHINE)), kNothing);
  EXPECT_FALSE(CanBeCreated());
}

TEST_F(RegistrationTest, ASecondTimeNothingIsDifferent) {
  EXPECT_EQ(Regsvr32(L""), 0U);
  const std::set<std::wstring> once = ClassesOf(HKEY_LOCAL_MACHINE);
  EXPECT_EQ(Regsvr32(L""), 0U);
  EXPECT_EQ(Difference(once, ClassesOf(HKEY_LOCAL_MACHINE)), kNothing);
  EXPECT_EQ(Regsvr32(L"/u"), 0U);
  EXPECT_EQ(Regsvr32(L"/u"), 0U);
  EXPECT_EQ(Difference(machine_, ClassesOf(HKEY_LOCAL_MACHINE)), kNothing);
}

// The system shows programs of both widths the same type libraries and names, and classes and
// interfaces of their own.
TEST_F(RegistrationTest, WhatTheControlOfTheOtherWidthNeedsIsLeftToIt) {
  wchar_t library[40] = L"";
  StringFromGUID2(LIBID_ZOLT20MappingCtrl, library, 40);
  const std::wstring common = std::wstring(kClasses) + L"\\TypeLib\\" + library;
  const std::wstring platforms = common + L"\\" + Version().OfTheLibrary() + L"\\0\\";
  const bool isWide = sizeof(void*) == 8;
  const std::wstring own = Small(platforms + (isWide ? L"win64" : L"win32"));
  const std::wstring other = platforms + (isWide ? L"win32" : L"win64");
  EXPECT_EQ(Regsvr32(L""), 0U);
  EXPECT_EQ(ClassesOf(HKEY_LOCAL_MACHINE).count(own), 1U);
  ASSERT_EQ(RegSetKeyValueW(HKEY_LOCAL_MACHINE, other.c_str(), nullptr, REG_SZ, L"", 2), 0);
  EXPECT_EQ(Regsvr32(L"/u"), 0U);
  const std::set<std::wstring> left = ClassesOf(HKEY_LOCAL_MACHINE);
  EXPECT_EQ(left.count(own), 0U);
  EXPECT_EQ(left.count(Small(other)), 1U);
  for (const wchar_t* name : {L"", L".1", L"\\CLSID", L".1\\CLSID"})
    EXPECT_EQ(
        left.count(Small(std::wstring(kClasses) + L"\\ZOLT20MappingCtrl.ZOLT20MapControl" + name)),
        1U);
  EXPECT_FALSE(CanBeCreated());
  EXPECT_EQ(RegDeleteTreeW(HKEY_LOCAL_MACHINE, other.c_str()), ERROR_SUCCESS);
  EXPECT_EQ(Regsvr32(L"/u"), 0U);
  EXPECT_EQ(Difference(machine_, ClassesOf(HKEY_LOCAL_MACHINE)), kNothing);
}

TEST_F(RegistrationTest, WithoutRightsItIsTheSameForTheUserAlone) {
  EXPECT_EQ(Regsvr32(L""), 0U);
  std::vector<std::string> ofMachine = Difference(machine_, ClassesOf(HKEY_LOCAL_MACHINE));
  // Programs of 32 bits see the machine's type libraries too.
  std::erase_if(ofMachine,
                [](const std::string& line) { return line.find("wow6432node") != line.npos; });
  EXPECT_EQ(Regsvr32(L"/u"), 0U);
  {
    const WithoutRights withoutRights;
    EXPECT_EQ(Regsvr32(L""), 0U);
    EXPECT_EQ(Difference(machine_, ClassesOf(HKEY_LOCAL_MACHINE)), kNothing);
    std::vector<std::string> ofUser = Difference(user_, ClassesOf(HKEY_CURRENT_USER));
    // What registrations share is not there yet.
    for (const char* shared : {"clsid", "interface", "typelib"})
      std::erase(ofUser, std::string("+software\\classes\\") + shared);
    EXPECT_EQ(ofUser, ofMachine);
    EXPECT_EQ(Regsvr32(L"/u"), 0U);
  }
  EXPECT_EQ(Difference(user_, ClassesOf(HKEY_CURRENT_USER)), kNothing);
  EXPECT_EQ(Difference(machine_, ClassesOf(HKEY_LOCAL_MACHINE)), kNothing);
}

TEST_F(RegistrationTest, TheRegistryNamesWhatContainersLookFor) {
  EXPECT_EQ(Regsvr32(L""), 0U);
  wchar_t* text = nullptr;
  ASSERT_EQ(StringFromCLSID(CLSID_ZOLT20MapControl, &text), S_OK);
  const std::wstring key = std::wstring(kClasses) + L"\\CLSID\\" + text;
  CoTaskMemFree(text);
  const std::set<std::wstring> registered = ClassesOf(HKEY_LOCAL_MACHINE);
  const std::wstring version = L"\\Version [] = " + Version().OfTheLibrary();
  for (const wchar_t* line :
       {L"\\Control", L"\\InprocServer32 [ThreadingModel] = Apartment",
        L"\\VersionIndependentProgID [] = ZOLT20MappingCtrl.ZOLT20MapControl", version.c_str(),
        L"\\MiscStatus\\1", L"\\ToolboxBitmap32", L"\\Insertable", L"\\verb\\0 [] = &Edit,0,2",
        // What can be inserted in documents.
        L"\\Implemented Categories\\{40FC6ED3-2438-11CF-A3DB-080036F12502}",
        // What it persists to: a storage, a stream, memory, a bag.
        L"\\Implemented Categories\\{0DE86A52-2BAA-11CF-A229-00AA003D7352}",
        L"\\Implemented Categories\\{0DE86A53-2BAA-11CF-A229-00AA003D7352}",
        L"\\Implemented Categories\\{0DE86A55-2BAA-11CF-A229-00AA003D7352}",
        L"\\Implemented Categories\\{0DE86A57-2BAA-11CF-A229-00AA003D7352}",
        L"\\Implemented Categories\\{40FC6ED4-2438-11CF-A3DB-080036F12502}",
        L"\\Implemented Categories\\{7DD95801-9882-11CF-9FA9-00AA006C42C4}",
        L"\\Implemented Categories\\{7DD95802-9882-11CF-9FA9-00AA006C42C4}"}) {
    EXPECT_EQ(registered.count(Small(key + line)), 1U) << std::string(line, line + wcslen(line));
  }
}

TEST_F(RegistrationTest, EachInterfaceNamesTheLibraryThatDescribesIt) {
  EXPECT_EQ(Regsvr32(L""), 0U);
  const std::set<std::wstring> registered = ClassesOf(HKEY_LOCAL_MACHINE);
  for (const GUID& id :
       {IID__ZOLT20MapControl, IID_IZOLT20MapControlView, DIID___ZOLT20MapControl}) {
    wchar_t text[40] = L"";
    wchar_t library[40] = L"";
    StringFromGUID2(id, text, 40);
    StringFromGUID2(LIBID_ZOLT20MappingCtrl, library, 40);
    const std::wstring line =
        std::wstring(kClasses) + L"\\Interface\\" + text + L"\\TypeLib [] = " + library;
    EXPECT_EQ(registered.count(Small(line)), 1U) << std::string(text, text + wcslen(text));
  }
}

TEST_F(RegistrationTest, FileAndTypeLibraryHaveTheVersionOfTheProject) {
  const Version version;
  const std::wstring server = Server();
  std::vector<BYTE> resource(GetFileVersionInfoSizeW(server.c_str(), nullptr));
  ASSERT_TRUE(
      GetFileVersionInfoW(server.c_str(), 0, static_cast<DWORD>(resource.size()), resource.data()));
  void* found = nullptr;
  UINT size = 0;
  ASSERT_TRUE(VerQueryValueW(resource.data(), L"\\", &found, &size));
  const auto& numbers = *static_cast<VS_FIXEDFILEINFO*>(found);
  EXPECT_EQ(numbers.dwFileVersionMS, static_cast<DWORD>(MAKELONG(version.minor, version.major)));
  EXPECT_EQ(numbers.dwFileVersionLS, static_cast<DWORD>(MAKELONG(0, version.patch)));
  EXPECT_EQ(numbers.dwProductVersionMS, numbers.dwFileVersionMS);
  EXPECT_EQ(numbers.dwProductVersionLS, numbers.dwFileVersionLS);
  for (const wchar_t* name : {L"FileVersion", L"ProductVersion"}) {
    const std::wstring path = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
    ASSERT_TRUE(VerQueryValueW(resource.data(), path.c_str(), &found, &size)) << size;
    EXPECT_EQ(std::wstring(static_cast<wchar_t*>(found)), version.Text() + L".0");
  }

  EXPECT_EQ(Regsvr32(L""), 0U);
  ITypeLib* library = nullptr;
  ASSERT_EQ(LoadRegTypeLib(LIBID_ZOLT20MappingCtrl, version.major, version.minor, 0, &library),
            S_OK);
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->wMajorVerNum, version.major);
  EXPECT_EQ(attributes->wMinorVerNum, version.minor);
  library->ReleaseTLibAttr(attributes);
  library->Release();
}

}  // namespace
}  // namespace zolt20::tests
