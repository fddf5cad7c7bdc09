// The names by which screen readers call the windows of controls that have no caption.
#pragma once

#include <windows.h>
// The system's other headers need it.
#include <oleacc.h>

#include "faces/com/com_pointer.h"
#include "surface/string.h"

namespace zolt20::com {

class SpokenNames {
 public:
  /// Where the platform has no service for it, nothing is named.
  SpokenNames();

  void Give(HWND window, const String& name) const;
  /// Before the window goes.
  void Take(HWND window) const;

 private:
  Pointer<IAccPropServices> service_;
};

}  // namespace zolt20::com
