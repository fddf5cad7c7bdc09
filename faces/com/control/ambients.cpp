// The ambient properties of the container: user or design mode, its colours, and whether it is
// mirrored (right to left).
#include <ole2.h>
#include <olectl.h>

#include "faces/com/com_value.h"
#include "faces/com/control/com_call.h"
#include "faces/com/control/map_control.h"

namespace zolt20::com {
namespace {

// Reads an ambient property. `value` stays empty where the container has none.
void ReadAmbient(IOleClientSite* site, DISPID property, VARTYPE type, Value& value) {
  const auto container = Query<IDispatch>(site);
  if (!container) return;
  DISPPARAMS none{};
  const HRESULT result = container->Invoke(property, IID_NULL, LOCALE_USER_DEFAULT,
                                           DISPATCH_PROPERTYGET, &none, &value, nullptr, nullptr);
  if (FAILED(result) || FAILED(VariantChangeType(&value, &value, 0, type))) VariantClear(&value);
}

std::optional<COLORREF> AmbientColor(IOleClientSite* site, DISPID property) {
  Value value;
  ReadAmbient(site, property, VT_I4, value);
  COLORREF color = 0;
  if (value->vt != VT_I4 ||
      FAILED(OleTranslateColor(static_cast<OLE_COLOR>(value->lVal), nullptr, &color)))
    return std::nullopt;
  return color;
}

}  // namespace

bool MapControl::IsAmbient(DISPID property, bool otherwise) const {
  Value value;
  ReadAmbient(site_.Get(), property, VT_BOOL, value);
  return value->vt == VT_BOOL ? value->boolVal != VARIANT_FALSE : otherwise;
}

// Reads all ambient properties and shows what differs. In design mode, and where the container says
// that its user interface is dead (UIDEAD), the window is disabled.
void MapControl::ReadAmbients() {
  const bool isAtWork =
      IsAmbient(DISPID_AMBIENT_USERMODE, true) && !IsAmbient(DISPID_AMBIENT_UIDEAD, false);
  const FormLook before = look_;
  look_ = FormLook(AmbientColor(site_.Get(), DISPID_AMBIENT_BACKCOLOR),
                   AmbientColor(site_.Get(), DISPID_AMBIENT_FORECOLOR),
                   IsAmbient(DISPID_AMBIENT_RIGHTTOLEFT, false));
  if (look_ != before) isPictureOld_ = true;
  if (window_ && look_.IsMirrored() != before.IsMirrored()) TurnForm();
  if (window_ && look_ != before) window_->UseLook(look_);
  if (window_) window_->Enable(isAtWork);
}

// Mirroring is fixed when a window is created, so a change of it makes a new window in the place of
// the one before.
void MapControl::TurnForm() {
  const HWND before = window_->Window();
  if (before == nullptr) return;
  const HWND parent = GetParent(before);
  const RECT place = window_->PlaceNow();
  const bool isVisible = IsWindowVisible(before) != FALSE;
  const bool hadFocus = IsChild(before, GetFocus()) != FALSE;
  MakeForm(parent, place);
  window_->Place(place, clip_);
  if (isVisible) window_->Show(true);
  if (hadFocus && window_) window_->TakeFocus();
}

STDMETHODIMP MapControl::OnAmbientPropertyChange(DISPID property) {
  return Enter([&] {
    switch (property) {
      case DISPID_UNKNOWN:  // more than one
      case DISPID_AMBIENT_UIDEAD:
      case DISPID_AMBIENT_USERMODE:
      case DISPID_AMBIENT_BACKCOLOR:
      case DISPID_AMBIENT_FORECOLOR:
      case DISPID_AMBIENT_RIGHTTOLEFT:
        ReadAmbients();
        break;
      default:
        break;
    }
    return S_OK;
  });
}

}  // namespace zolt20::com
