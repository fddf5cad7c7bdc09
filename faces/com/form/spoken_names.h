// The accessible names of the windows of controls, for screen readers: many controls have
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
  /// Without the platform's accessibility service, no window gets a name.
  SpokenNames();

  /// Sets the accessible name of a window. An unchanged name is not set again.
  void Give(HWND window, const String& name);
  /// Removes the name. To be called before the window is destroyed.
  void Take(HWND window);

 private:
  Pointer<IAccPropServices> service_;
  std::map<HWND, String> names_;
};

}  // namespace zolt20::com
