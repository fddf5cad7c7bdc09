// The names by which screen readers call the windows of controls: many have
// no caption, and some a caption like ">" or one that stands on several pages.
#pragma once

#include <windows.h>
// The system's other headers need it.
#include <oleacc.h>

#include <map>

#include "faces/com/com_pointer.h"
#include "surface/string.h"

namespace zolt20::com {

class SpokenNames {
 public:
  /// Where the platform has no service for it, nothing is named.
  SpokenNames();

  /// The name that it has already is told to nobody again.
  void Give(HWND window, const String& name);
  /// Before the window goes.
  void Take(HWND window);

 private:
  Pointer<IAccPropServices> service_;
  std::map<HWND, String> names_;
};

}  // namespace zolt20::com
