// Plays the recorded sessions in the system's own container, the window class AtlAxWin.
#include <ole2.h>

#include <cstdio>

#include "tests/com/player_library.h"

namespace {

HWND frame = nullptr;
HWND container = nullptr;

template <typename Function>
Function FromAtl(const char* name) {
  static const HMODULE atl = LoadLibraryW(L"atl.dll");
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(atl, name)));
}

HRESULT __stdcall Embed(void* /*context*/, IUnknown** control, HWND* window) {
  if (container != nullptr) DestroyWindow(container);
  container =
      CreateWindowW(L"AtlAxWin", L"ZOLT20MappingCtrl.ZOLT20MapControl", WS_CHILD | WS_VISIBLE, 4, 4,
                    870, 590, frame, nullptr, nullptr, nullptr);
  *window = container;
  using GetControl = HRESULT(WINAPI*)(HWND, IUnknown**);
  return FromAtl<GetControl>("AtlAxGetControl")(container, control);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count != 2) {
    std::printf("The folder of the sessions is missing\n");
    return 2;
  }
  OleInitialize(nullptr);
  using Initialize = BOOL(WINAPI*)();
  FromAtl<Initialize>("AtlAxWinInit")();
  frame = CreateWindowW(L"STATIC", L"AtlAxWin", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 900, 640,
                        nullptr, nullptr, nullptr, nullptr);
  const int differing = PlaySessions(arguments[1], &Embed, nullptr);
  DestroyWindow(frame);
  OleUninitialize();
  return differing == 0 ? 0 : 1;
}
