// IViewObjectEx: drawing the control while it is inactive, for containers.
#include <ole2.h>
#include <olectl.h>

#include "faces/com/control/com_call.h"
#include "faces/com/control/map_control.h"
#include "faces/com/control/outside_call.h"
#include "faces/com/form/form_picture.h"

namespace zolt20::com {

STDMETHODIMP MapControl::Draw(DWORD aspect, LONG /*index*/, void* /*aspectInfo*/,
                              DVTARGETDEVICE* /*device*/, HDC /*information*/, HDC canvas,
                              const RECTL* place, const RECTL* /*windowPlace*/,
                              BOOL(STDMETHODCALLTYPE* /*goesOn*/)(ULONG_PTR),
                              ULONG_PTR /*context*/) {
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  if (canvas == nullptr || place == nullptr) return E_INVALIDARG;
  return Enter([&] {
    DrawForm(canvas, {place->left, place->top, place->right, place->bottom}, control_.Form(),
             look_);
    return S_OK;
  });
}

STDMETHODIMP MapControl::GetColorSet(DWORD /*aspect*/, LONG /*index*/, void* /*aspectInfo*/,
                                     DVTARGETDEVICE* /*device*/, HDC /*information*/,
                                     LOGPALETTE** colors) {
  return Tell([&]() -> HRESULT {
    if (colors != nullptr) *colors = nullptr;
    return S_FALSE;
  });
}
STDMETHODIMP MapControl::Freeze(DWORD /*aspect*/, LONG /*index*/, void* /*aspectInfo*/,
                                DWORD* /*key*/) {
  return E_NOTIMPL;
}
STDMETHODIMP MapControl::Unfreeze(DWORD /*key*/) {
  return E_NOTIMPL;
}

STDMETHODIMP MapControl::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
  return Enter([&] {
    viewSink_ = Pointer(sink);
    viewAspects_ = aspects;
    viewFlags_ = flags;
    if (sink != nullptr && (flags & ADVF_PRIMEFIRST) != 0) PictureChanged();
    return S_OK;
  });
}

STDMETHODIMP MapControl::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
  return Enter([&] {
    if (aspects != nullptr) *aspects = viewAspects_;
    if (flags != nullptr) *flags = viewFlags_;
    if (sink != nullptr) *sink = Pointer(viewSink_).Detach();
    return S_OK;
  });
}

STDMETHODIMP MapControl::GetExtent(DWORD aspect, LONG /*index*/, DVTARGETDEVICE* /*device*/,
                                   SIZEL* size) {
  return GetExtent(aspect, size);
}

STDMETHODIMP MapControl::GetRect(DWORD aspect, RECTL* place) {
  if (place == nullptr) return E_POINTER;
  return Tell([&]() -> HRESULT {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    *place = {0, 0, extent_.cx, extent_.cy};
    return S_OK;
  });
}

STDMETHODIMP MapControl::GetViewStatus(DWORD* status) {
  if (status == nullptr) return E_POINTER;
  return Tell([&]() -> HRESULT {
    *status = VIEWSTATUS_OPAQUE;
    return S_OK;
  });
}

STDMETHODIMP MapControl::QueryHitPoint(DWORD aspect, const RECT* bounds, POINT point,
                                       LONG /*closeHint*/, DWORD* result) {
  if (bounds == nullptr || result == nullptr) return E_POINTER;
  return Tell([&]() -> HRESULT {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    *result = PtInRect(bounds, point) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
    return S_OK;
  });
}

STDMETHODIMP MapControl::QueryHitRect(DWORD aspect, const RECT* bounds, const RECT* place,
                                      LONG /*closeHint*/, DWORD* result) {
  if (bounds == nullptr || place == nullptr || result == nullptr) return E_POINTER;
  return Tell([&]() -> HRESULT {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    RECT common;
    *result = IntersectRect(&common, bounds, place) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
    return S_OK;
  });
}

STDMETHODIMP MapControl::GetNaturalExtent(DWORD /*aspect*/, LONG /*index*/,
                                          DVTARGETDEVICE* /*device*/, HDC /*target*/,
                                          DVEXTENTINFO* /*info*/, SIZEL* /*size*/) {
  return E_NOTIMPL;
}

// Notifies the container's advise sinks that the picture has changed.
void MapControl::PictureChanged() {
  DataChanged(0);
  if (!viewSink_ || (viewAspects_ & DVASPECT_CONTENT) == 0) return;
  const Pointer<IAdviseSink> sink = viewSink_;
  if ((viewFlags_ & ADVF_ONLYONCE) != 0) viewSink_ = {};
  CallOutside([&] { sink->OnViewChange(DVASPECT_CONTENT, -1); });
}

}  // namespace zolt20::com
