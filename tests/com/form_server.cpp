// What the windows of the form take from the server's file, in a program that has them itself.
#include "faces/com/server/server.h"

namespace zolt20::com {

HINSTANCE ServerInstance() {
  return GetModuleHandleW(nullptr);
}
ServerLock::ServerLock() noexcept = default;
ServerLock::~ServerLock() = default;

}  // namespace zolt20::com
