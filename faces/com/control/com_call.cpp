#include "faces/com/control/com_call.h"

#include <oleauto.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "faces/com/com_pointer.h"
#include "faces/com/server/served.h"

namespace zolt20::com {

HRESULT Report(const RuntimeError& error) noexcept {
  Pointer<ICreateErrorInfo> info;
  if (SUCCEEDED(CreateErrorInfo(info.Put()))) {
    // The descriptions are plain ASCII, and short.
    std::array<wchar_t, 128> description{};
    const std::string_view text = error.what();
    std::copy_n(text.begin(), std::min(text.size(), description.size() - 1), description.begin());
    info->SetDescription(description.data());
    info->SetGUID(TheServed().interfaceId);
    info->SetSource(const_cast<wchar_t*>(TheServed().progId));
    if (const auto asError = info.As<IErrorInfo>()) SetErrorInfo(0, asError.Get());
  }
  return CodeOf(error.number());
}

}  // namespace zolt20::com
