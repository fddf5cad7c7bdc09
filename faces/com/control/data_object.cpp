// IDataObject, for documents and the clipboard: pictures of the control, and itself in a storage.
#include <ole2.h>

#include <array>
#include <vector>

#include "faces/com/control/com_call.h"
#include "faces/com/control/enumeration.h"
#include "faces/com/control/map_control.h"
#include "faces/com/control/outside_call.h"
#include "faces/com/control/renderings.h"

namespace zolt20::com {
namespace {

CLIPFORMAT Registered(const wchar_t* name) {
  return static_cast<CLIPFORMAT>(RegisterClipboardFormatW(name));
}
CLIPFORMAT EmbedSource() {
  static const CLIPFORMAT format = Registered(L"Embed Source");
  return format;
}
CLIPFORMAT EmbeddedObject() {
  static const CLIPFORMAT format = Registered(L"Embedded Object");
  return format;
}
CLIPFORMAT ObjectDescriptor() {
  static const CLIPFORMAT format = Registered(L"Object Descriptor");
  return format;
}

// The formats offered, the best first.
std::vector<FORMATETC> Formats() {
  const auto row = [](CLIPFORMAT format, DWORD medium) {
    return FORMATETC{format, nullptr, DVASPECT_CONTENT, -1, medium};
  };
  return {row(EmbedSource(), TYMED_ISTORAGE),     row(EmbeddedObject(), TYMED_ISTORAGE),
          row(ObjectDescriptor(), TYMED_HGLOBAL), row(CF_ENHMETAFILE, TYMED_ENHMF),
          row(CF_METAFILEPICT, TYMED_MFPICT),     row(CF_DIB, TYMED_HGLOBAL)};
}

struct FormatTraits {
  static void Keep(const FORMATETC& /*format*/) {}
  static void Drop(const FORMATETC& /*format*/) {}
};

// Why a format is not given, or S_OK.
HRESULT Fits(const FORMATETC& wanted) {
  HRESULT result = DV_E_FORMATETC;
  for (const FORMATETC& offered : Formats()) {
    if (offered.cfFormat != wanted.cfFormat) continue;
    if (wanted.dwAspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (wanted.lindex != -1) return DV_E_LINDEX;
    if ((offered.tymed & wanted.tymed) != 0) return S_OK;
    result = DV_E_TYMED;
  }
  return result;
}

bool IsObject(const FORMATETC& format) {
  return format.cfFormat == EmbedSource() || format.cfFormat == EmbeddedObject();
}

HRESULT NewStorage(Pointer<IStorage>& storage) {
  Pointer<ILockBytes> bytes;
  if (const HRESULT result = CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.Put()); FAILED(result))
    return result;
  return StgCreateDocfileOnILockBytes(
      bytes.Get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0, storage.Put());
}

}  // namespace

HRESULT MapControl::CopyTo(IStorage& storage) {
  if (const HRESULT result = WriteClassStg(&storage, CLSID_ZOLT20MapControl); FAILED(result))
    return result;
  if (const HRESULT result = StoreAt(storage); FAILED(result)) return result;
  return storage.Commit(STGC_DEFAULT);
}

STDMETHODIMP MapControl::GetData(FORMATETC* format, STGMEDIUM* medium) {
  if (format == nullptr || medium == nullptr) return E_POINTER;
  *medium = {};
  return Enter([&] {
    if (const HRESULT result = Fits(*format); FAILED(result)) return result;
    if (IsObject(*format)) {
      Pointer<IStorage> storage;
      HRESULT result = NewStorage(storage);
      if (SUCCEEDED(result)) result = CopyTo(*storage.Get());
      if (FAILED(result)) return result;
      medium->tymed = TYMED_ISTORAGE;
      medium->pstg = storage.Detach();
      return S_OK;
    }
    const Surface& form = control_.Form();
    *medium = format->cfFormat == CF_ENHMETAFILE    ? EnhancedMetafileOf(form, look_, extent_)
              : format->cfFormat == CF_METAFILEPICT ? MetafileOf(form, look_, extent_)
              : format->cfFormat == CF_DIB
                  ? BitmapOf(form, look_, extent_)
                  : DescriptionOf(CLSID_ZOLT20MapControl, kUserType, kMiscStatus, extent_);
    return S_OK;
  });
}

STDMETHODIMP MapControl::GetDataHere(FORMATETC* format, STGMEDIUM* medium) {
  if (format == nullptr || medium == nullptr) return E_POINTER;
  return Enter([&] {
    if (const HRESULT result = Fits(*format); FAILED(result)) return result;
    // Only an object can be written into the caller's medium; pictures are always new media.
    if (!IsObject(*format)) return DATA_E_FORMATETC;
    if (medium->tymed != TYMED_ISTORAGE) return DV_E_TYMED;
    return medium->pstg == nullptr ? E_INVALIDARG : CopyTo(*medium->pstg);
  });
}

STDMETHODIMP MapControl::QueryGetData(FORMATETC* format) {
  if (format == nullptr) return E_POINTER;
  return Enter([&] { return Fits(*format); });
}

// Pictures are the same for all target devices.
STDMETHODIMP MapControl::GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) {
  if (format == nullptr || canonical == nullptr) return E_POINTER;
  return Tell([&]() -> HRESULT {
    *canonical = *format;
    canonical->ptd = nullptr;
    return DATA_S_SAMEFORMATETC;
  });
}

STDMETHODIMP MapControl::SetData(FORMATETC* /*format*/, STGMEDIUM* /*medium*/, BOOL /*release*/) {
  return E_NOTIMPL;
}

STDMETHODIMP MapControl::EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) {
  if (formats == nullptr) return E_POINTER;
  *formats = nullptr;
  if (direction != DATADIR_GET) return E_NOTIMPL;
  return Enter([&] {
    *formats = new Enumeration<IEnumFORMATETC, FORMATETC, FormatTraits>(Formats());
    return S_OK;
  });
}

STDMETHODIMP MapControl::DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink,
                                 DWORD* connection) {
  if (format == nullptr || sink == nullptr || connection == nullptr) return E_POINTER;
  *connection = 0;
  return Enter([&] {
    // A clipboard format of 0 stands for all formats.
    if (format->cfFormat != 0) {
      if (const HRESULT result = Fits(*format); FAILED(result)) return result;
    }
    if (!dataAdvised_) {
      if (const HRESULT result = CreateDataAdviseHolder(dataAdvised_.Put()); FAILED(result))
        return result;
    }
    return dataAdvised_->Advise(this, format, flags, sink, connection);
  });
}

STDMETHODIMP MapControl::DUnadvise(DWORD connection) {
  return Enter(
      [&] { return dataAdvised_ ? dataAdvised_->Unadvise(connection) : OLE_E_NOCONNECTION; });
}

STDMETHODIMP MapControl::EnumDAdvise(IEnumSTATDATA** connections) {
  if (connections == nullptr) return E_POINTER;
  *connections = nullptr;
  return Enter([&] { return dataAdvised_ ? dataAdvised_->EnumAdvise(connections) : S_OK; });
}

void MapControl::DataChanged(DWORD flags) {
  const Pointer<IDataAdviseHolder> holder = dataAdvised_;
  if (holder) CallOutside([&] { holder->SendOnDataChange(this, 0, flags); });
}

}  // namespace zolt20::com
