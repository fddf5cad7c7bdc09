// The server file (DLL) of the map control: its class and interfaces.
#include <array>

#include "faces/com/control/map_control.h"
#include "faces/com/server/served.h"
#include "faces/com/server/server.h"

namespace zolt20::com {

const Served& TheServed() {
  static const std::array<ServedInterface, 3> interfaces{
      {{IID__ZOLT20MapControl, L"_ZOLT20MapControl", true},
       {IID_IZOLT20MapControlView, L"IZOLT20MapControlView", true},
       {DIID___ZOLT20MapControl, L"__ZOLT20MapControl", false}}};
  static const Served served{CLSID_ZOLT20MapControl,
                             IID__ZOLT20MapControl,
                             L"ZOLT20MapControl",
                             kProgId,
                             L"ZOLT20MappingCtrl.ZOLT20MapControl.1",
                             LIBID_ZOLT20MappingCtrl,
                             L"ZOLT20MappingCtrl",
                             interfaces,
                             kMiscStatus,
                             true,
                             &MapControl::Create};
  return served;
}

}  // namespace zolt20::com
