// Runs the program of examples/windows and composes a statement in its window, as a person would:
// by messages from another process.
#include <ole2.h>

#include <cstdio>
#include <string>

namespace {

struct Search {
  const wchar_t* name;
  HWND found;
};

HWND WindowOf(HWND parent, const wchar_t* name) {
  Search search{name, nullptr};
  EnumChildWindows(
      parent,
      [](HWND window, LPARAM data) WINAPI -> BOOL {
        auto& wanted = *reinterpret_cast<Search*>(data);
        wchar_t text[64] = L"";
        const HANDLE atom = GetPropW(window, L"ZOLT20.Name");
        if (atom != nullptr)
          GlobalGetAtomNameW(static_cast<ATOM>(reinterpret_cast<UINT_PTR>(atom)), text, 64);
        if (std::wstring(text) != wanted.name) return TRUE;
        wanted.found = window;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

// By the keyboard, since the place of a row is known in its own process only.
void MarkRow(HWND window, const wchar_t* list, int row) {
  const HWND found = WindowOf(window, list);
  SendMessageW(found, WM_KEYDOWN, VK_HOME, 0);
  for (int i = 0; i < row; ++i)
    SendMessageW(found, WM_KEYDOWN, VK_DOWN, 0);
  SendMessageW(found, WM_KEYDOWN, VK_SPACE, 0);
}

void Click(HWND window, const wchar_t* button) {
  SendMessageW(WindowOf(window, button), BM_CLICK, 0, 0);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count != 2) return 9;
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, arguments[1], nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                      &process)) {
    std::printf("%ls cannot be run\n", arguments[1]);
    return 9;
  }
  HWND window = nullptr;
  constexpr int kTries = 200;
  for (int i = 0; i < kTries; ++i) {
    window = FindWindowW(L"Rule", nullptr);
    if (window != nullptr && WindowOf(window, L"cmdDone") != nullptr) break;
    Sleep(100);
  }
  Sleep(1000);  // the catalogue is written behind the windows
  MarkRow(window, L"lsttables", 0);
  MarkRow(window, L"lstFields", 2);
  Click(window, L"cmdMoveOne");
  Click(window, L"cmdAddSelect");
  Click(window, L"cmdDone");
  if (WaitForSingleObject(process.hProcess, 30'000) != WAIT_OBJECT_0) {
    TerminateProcess(process.hProcess, 8);
    std::printf("It did not end\n");
  }
  DWORD code = 9;
  GetExitCodeProcess(process.hProcess, &code);
  return static_cast<int>(code);
}
