// What the control gives away of itself as data: pictures of its form in the formats of the
// platform, and a description of it as an object.
#pragma once

#include <objidl.h>

#include "faces/com/form/form_look.h"
#include "surface/surface.h"

namespace zolt20::com {

/// Each gives a medium that its taker releases by ReleaseStgMedium. `extent` is the size of the
/// picture in hundredths of a millimetre. Throw std::bad_alloc when the platform has no room.
STGMEDIUM EnhancedMetafileOf(const Surface& form, const FormLook& look, SIZEL extent);
STGMEDIUM MetafileOf(const Surface& form, const FormLook& look, SIZEL extent);
STGMEDIUM BitmapOf(const Surface& form, const FormLook& look, SIZEL extent);
/// What an object in a storage is: class, name, size and status.
STGMEDIUM DescriptionOf(REFCLSID classId, const wchar_t* userType, DWORD status, SIZEL extent);

}  // namespace zolt20::com
