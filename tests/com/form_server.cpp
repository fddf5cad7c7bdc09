// Stands in for the server's file, from which the form's windows take their resources.
#include "faces/com/server/server.h"

namespace zolt20::com {

HINSTANCE ServerInstance() {
  return GetModuleHandleW(nullptr);
}
ServerLock::ServerLock() noexcept = default;
ServerLock::~ServerLock() = default;

}  // namespace zolt20::com
