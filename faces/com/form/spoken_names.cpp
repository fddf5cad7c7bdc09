#include "faces/com/form/spoken_names.h"

#include "faces/com/com_text.h"

namespace zolt20::com {
namespace {

// PROPID_ACC_NAME, which no import library defines.
constexpr MSAAPROPID kName{
    0x608d3df8, 0x8128, 0x4aa7, {0xa4, 0x28, 0xf5, 0x5e, 0x49, 0x26, 0x72, 0x91}};

}  // namespace

SpokenNames::SpokenNames() {
  CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                   reinterpret_cast<void**>(service_.Put()));
}

void SpokenNames::Give(HWND window, const String& name) {
  if (!service_) return;
  const auto [given, isNew] = names_.emplace(window, name);
  if (!isNew && given->second == name) return;
  given->second = name;
  service_->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, kName,
                           Wide(name));
}

void SpokenNames::Take(HWND window) {
  names_.erase(window);
  MSAAPROPID name = kName;
  if (service_)
    service_->ClearHwndProps(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, &name, 1);
}

}  // namespace zolt20::com
