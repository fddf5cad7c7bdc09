// Persistence in the storage of a document and in a block of memory, with the same bytes as in a
// stream.
#include <ole2.h>

#include <algorithm>
#include <cstring>

#include "faces/com/control/com_call.h"
#include "faces/com/control/map_control.h"
#include "faces/com/control/outside_call.h"
#include "faces/com/control/value_bags.h"

namespace zolt20::com {
namespace {

constexpr const wchar_t* kStream = L"Contents";
constexpr DWORD kAlone = STGM_SHARE_EXCLUSIVE;

// Allocates the size that the values need before it writes any of them, so that a full medium keeps
// its old contents.
void StoreAt(IStorage& storage, const StreamBag& values) {
  Pointer<IStream> stream;
  HRESULT result = storage.OpenStream(kStream, nullptr, STGM_READWRITE | kAlone, 0, stream.Put());
  if (result == STG_E_FILENOTFOUND)
    result = storage.CreateStream(kStream, STGM_READWRITE | kAlone, 0, 0, stream.Put());
  Check(result);
  STATSTG before{};
  Check(stream->Stat(&before, STATFLAG_NONAME));
  ULARGE_INTEGER size{};
  size.QuadPart = values.Size();
  if (size.QuadPart > before.cbSize.QuadPart) Check(stream->SetSize(size));
  values.Store(*stream.Get());
  Check(stream->SetSize(size));
}

StreamBag ValuesAt(IStorage& storage) {
  Pointer<IStream> stream;
  Check(storage.OpenStream(kStream, nullptr, STGM_READ | kAlone, 0, stream.Put()));
  StreamBag values;
  values.Take(*stream.Get());
  return values;
}

Pointer<IStream> StreamOf(const void* bytes, ULONG count) {
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, std::max<ULONG>(1, count));
  if (memory == nullptr) throw std::bad_alloc();
  std::memcpy(GlobalLock(memory), bytes, count);
  GlobalUnlock(memory);
  Pointer<IStream> stream;
  if (const HRESULT result = CreateStreamOnHGlobal(memory, TRUE, stream.Put()); FAILED(result)) {
    GlobalFree(memory);
    throw Failed{result};
  }
  ULARGE_INTEGER size{};
  size.QuadPart = count;
  Check(stream->SetSize(size));
  return stream;
}

}  // namespace

// A storage.

STDMETHODIMP MapControl::InitNew(IStorage* storage) {
  if (storage == nullptr) return E_POINTER;
  return Enter(
      [&] {
        if (const HRESULT result = place_.MayBegin(); FAILED(result)) return result;
        control_.UserControl_InitProperties();
        place_.Begin(storage);
        return S_OK;
      },
      true);
}

STDMETHODIMP MapControl::Load(IStorage* storage) {
  if (storage == nullptr) return E_POINTER;
  return Enter(
      [&] {
        if (const HRESULT result = place_.MayBegin(); FAILED(result)) return result;
        return WithFailures([&] {
          StreamBag values = ValuesAt(*storage);
          control_.UserControl_ReadProperties(values);
          place_.Begin(storage);
          isDirty_ = false;
        });
      },
      true);
}

HRESULT MapControl::StoreAt(IStorage& storage) {
  return WithFailures([&] {
    StreamBag values;
    control_.UserControl_WriteProperties(values);
    com::StoreAt(storage, values);
    Check(WriteFmtUserTypeStg(&storage, 0, const_cast<wchar_t*>(kUserType)));
  });
}

STDMETHODIMP MapControl::Save(IStorage* storage, BOOL isOwn) {
  return Enter([&] {
    if (const HRESULT result = place_.MaySave(); FAILED(result)) return result;
    IStorage* const to = storage == nullptr && isOwn ? place_.Storage() : storage;
    if (to == nullptr) return E_POINTER;
    const Pointer<IStorage> held(to);
    if (const HRESULT result = StoreAt(*to); FAILED(result)) return result;
    place_.Saved(isOwn != FALSE);
    return S_OK;
  });
}

STDMETHODIMP MapControl::SaveCompleted(IStorage* storage) {
  return Enter([&] {
    bool isStored = false;
    if (const HRESULT result = place_.Complete(storage, isStored); FAILED(result)) return result;
    if (!isStored) return S_OK;
    isDirty_ = false;
    if (advised_) CallOutside([&] { advised_->SendOnSave(); });
    return S_OK;
  });
}

STDMETHODIMP MapControl::HandsOffStorage() {
  return Enter([&] { return place_.HandsOff(); });
}

// A block of memory.

STDMETHODIMP MapControl::Load(void* memory, ULONG size) {
  if (memory == nullptr) return E_POINTER;
  return Enter(
      [&] {
        const HRESULT result = WithFailures([&] {
          const Pointer<IStream> stream = StreamOf(memory, size);
          StreamBag values;
          values.Take(*stream.Get());
          control_.UserControl_ReadProperties(values);
          isDirty_ = false;
        });
        return result == STG_E_READFAULT ? E_INVALIDARG : result;  // the block is too short
      },
      true);
}

STDMETHODIMP MapControl::Save(void* memory, BOOL clearDirty, ULONG size) {
  if (memory == nullptr) return E_POINTER;
  return Enter([&] {
    StreamBag values;
    control_.UserControl_WriteProperties(values);
    if (values.Size() > size) return E_INVALIDARG;
    return WithFailures([&] {
      Pointer<IStream> stream;
      Check(CreateStreamOnHGlobal(nullptr, TRUE, stream.Put()));
      values.Store(*stream.Get());
      HGLOBAL bytes = nullptr;
      Check(GetHGlobalFromStream(stream.Get(), &bytes));
      std::memcpy(memory, GlobalLock(bytes), static_cast<std::size_t>(values.Size()));
      GlobalUnlock(bytes);
      if (clearDirty) isDirty_ = false;
    });
  });
}

STDMETHODIMP MapControl::GetSizeMax(ULONG* size) {
  if (size == nullptr) return E_POINTER;
  return Enter([&] {
    StreamBag values;
    control_.UserControl_WriteProperties(values);
    if (values.Size() > std::numeric_limits<ULONG>::max()) return E_OUTOFMEMORY;
    *size = static_cast<ULONG>(values.Size());
    return S_OK;
  });
}

}  // namespace zolt20::com
