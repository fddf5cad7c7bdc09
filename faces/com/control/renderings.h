// Renderings of the control for data transfer: pictures of its form in the formats of the platform,
// and its object descriptor.
#pragma once

#include <objidl.h>

#include "faces/com/form/form_look.h"
#include "surface/surface.h"

namespace zolt20::com {

/// Each returns a medium that the caller owns and releases by ReleaseStgMedium. `extent` is the
/// size of the picture in hundredths of a millimetre. Throw std::bad_alloc when memory runs out.
STGMEDIUM EnhancedMetafileOf(const Surface& form, const FormLook& look, SIZEL extent);
STGMEDIUM MetafileOf(const Surface& form, const FormLook& look, SIZEL extent);
STGMEDIUM BitmapOf(const Surface& form, const FormLook& look, SIZEL extent);
/// An OBJECTDESCRIPTOR in global memory, for a data transfer: class, name, size and status.
STGMEDIUM DescriptionOf(REFCLSID classId, const wchar_t* userType, DWORD status, SIZEL extent);

}  // namespace zolt20::com
