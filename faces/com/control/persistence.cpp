// Persistence of the control's properties in the property bag of its container, or in a stream of
// the same keys and values.
#include <ole2.h>
#include <olectl.h>

#include "faces/com/control/com_call.h"
#include "faces/com/control/map_control.h"
#include "faces/com/control/value_bags.h"

namespace zolt20::com {

STDMETHODIMP MapControl::GetClassID(CLSID* classId) {
  if (classId == nullptr) return E_POINTER;
  return Tell([&]() -> HRESULT {
    *classId = CLSID_ZOLT20MapControl;
    return S_OK;
  });
}

STDMETHODIMP MapControl::InitNew() {
  return Enter(
      [&] {
        control_.UserControl_InitProperties();
        return S_OK;
      },
      true);
}

STDMETHODIMP MapControl::IsDirty() {
  return Tell([&]() -> HRESULT { return isDirty_ ? S_OK : S_FALSE; });
}

STDMETHODIMP MapControl::Load(IPropertyBag* bag, IErrorLog* log) {
  if (bag == nullptr) return E_POINTER;
  return Enter(
      [&] {
        return WithFailures([&] {
          ContainerBag values(*bag, log);
          control_.UserControl_ReadProperties(values);
          isDirty_ = false;
        });
      },
      true);
}

STDMETHODIMP MapControl::Save(IPropertyBag* bag, BOOL clearDirty, BOOL /*saveAll*/) {
  if (bag == nullptr) return E_POINTER;
  return Enter([&] {
    return WithFailures([&] {
      ContainerBag values(*bag, nullptr);
      control_.UserControl_WriteProperties(values);
      if (clearDirty) isDirty_ = false;
    });
  });
}

STDMETHODIMP MapControl::Load(IStream* stream) {
  if (stream == nullptr) return E_POINTER;
  return Enter(
      [&] {
        return WithFailures([&] {
          StreamBag values;
          values.Take(*stream);
          control_.UserControl_ReadProperties(values);
          isDirty_ = false;
        });
      },
      true);
}

STDMETHODIMP MapControl::Save(IStream* stream, BOOL clearDirty) {
  if (stream == nullptr) return E_POINTER;
  return Enter([&] {
    return WithFailures([&] {
      StreamBag values;
      control_.UserControl_WriteProperties(values);
      values.Store(*stream);
      if (clearDirty) isDirty_ = false;
    });
  });
}

STDMETHODIMP MapControl::GetSizeMax(ULARGE_INTEGER* size) {
  if (size == nullptr) return E_POINTER;
  return Enter([&] {
    StreamBag values;
    control_.UserControl_WriteProperties(values);
    size->QuadPart = values.Size();
    return S_OK;
  });
}

}  // namespace zolt20::com
