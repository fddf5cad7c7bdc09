// For containers with many controls: quick activation by one call instead of many, and no window
// while a control is inactive, which it is until the mouse enters.
#include <ole2.h>

#include "faces/com/control/com_call.h"
#include "faces/com/control/map_control.h"

namespace zolt20::com {

STDMETHODIMP MapControl::QuickActivate(QACONTAINER* container, QACONTROL* control) {
  if (container == nullptr || control == nullptr) return E_POINTER;
  if (container->cbSize < sizeof *container || control->cbSize < sizeof *control)
    return E_INVALIDARG;
  const ULONG size = control->cbSize;
  *control = {};
  control->cbSize = size;
  const HRESULT result = SetClientSite(container->pClientSite);
  if (FAILED(result)) return result;
  if (container->pAdviseSink != nullptr) SetAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink);
  if (container->pUnkEventSink != nullptr)
    events_.Advise(container->pUnkEventSink, &control->dwEventCookie);
  if (container->pPropertyNotifySink != nullptr)
    notices_.Advise(container->pPropertyNotifySink, &control->dwPropNotifyCookie);
  control->dwMiscStatus = kMiscStatus;
  GetViewStatus(&control->dwViewStatus);
  return GetActivationPolicy(&control->dwPointerActivationPolicy);
}

STDMETHODIMP MapControl::SetContentExtent(SIZEL* size) {
  return SetExtent(DVASPECT_CONTENT, size);
}
STDMETHODIMP MapControl::GetContentExtent(SIZEL* size) {
  return GetExtent(DVASPECT_CONTENT, size);
}

// Activates the control when the mouse enters, since an inactive control is only a picture.
STDMETHODIMP MapControl::GetActivationPolicy(DWORD* policy) {
  if (policy == nullptr) return E_POINTER;
  return Enter([&] {
    *policy = POINTERINACTIVE_ACTIVATEONENTRY;
    return S_OK;
  });
}

STDMETHODIMP MapControl::OnInactiveMouseMove(const RECT* bounds, LONG /*x*/, LONG /*y*/,
                                             DWORD /*keys*/) {
  if (bounds == nullptr) return E_POINTER;
  return Enter([] { return S_OK; });
}

STDMETHODIMP MapControl::OnInactiveSetCursor(const RECT* bounds, LONG /*x*/, LONG /*y*/,
                                             DWORD /*message*/, BOOL always) {
  if (bounds == nullptr) return E_POINTER;
  return Enter([&] {
    if (!always) return S_FALSE;  // the container sets its own cursor
    SetCursor(LoadCursorW(nullptr, IDC_ARROW));
    return S_OK;
  });
}

}  // namespace zolt20::com
