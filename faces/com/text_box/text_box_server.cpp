// The server file (DLL) of the box: its class and interfaces.
#include <array>

#include "faces/com/server/served.h"
#include "faces/com/text_box/synt_text_box.h"

namespace zolt20::com {

const Served& TheServed() {
  static const std::array<ServedInterface, 2> interfaces{
      {{IID__ZOLT21SyntTextBox, L"_ZOLT21SyntTextBox", true},
       {DIID___ZOLT21SyntTextBox, L"__ZOLT21SyntTextBox", false}}};
  static const Served served{CLSID_ZOLT21SyntTextBox,
                             IID__ZOLT21SyntTextBox,
                             L"ZOLT21SyntTextBox",
                             L"ZOLT21TextBox.ZOLT21SyntTextBox",
                             L"ZOLT21TextBox.ZOLT21SyntTextBox.1",
                             LIBID_ZOLT21TextBox,
                             L"ZOLT21TextBox",
                             interfaces,
                             SyntTextBox::kMiscStatus,
                             false,
                             &SyntTextBox::Create};
  return served;
}

}  // namespace zolt20::com
