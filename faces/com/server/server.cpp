#include "faces/com/server/server.h"

#include <olectl.h>

#include <atomic>

#include "faces/com/control/com_call.h"
#include "faces/com/form/common_controls.h"
#include "faces/com/server/registration.h"
#include "faces/com/server/served.h"

namespace zolt20::com {
namespace {

HINSTANCE instance = nullptr;
std::atomic<long> locks = 0;

class ClassFactory final : public IClassFactory {
 public:
  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    if (id == IID_IUnknown || id == IID_IClassFactory) {
      *object = static_cast<IClassFactory*>(this);
      AddRef();
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
  STDMETHODIMP_(ULONG) Release() override {
    const long left = --references_;
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    // Aggregation: an outer object must ask for the control's non-delegating IUnknown first.
    if (outer != nullptr && id != IID_IUnknown) return CLASS_E_NOAGGREGATION;
    return Guarded([&] { return TheServed().create(outer, id, object); });
  }
  STDMETHODIMP LockServer(BOOL lock) override {
    lock ? ++locks : --locks;
    return S_OK;
  }

 private:
  virtual ~ClassFactory() = default;

  std::atomic<long> references_ = 1;
  ServerLock lock_;
};

}  // namespace

HINSTANCE ServerInstance() {
  return instance;
}

std::wstring ServerPath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(instance, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(2 * path.size());
  }
}

ServerLock::ServerLock() noexcept {
  ++locks;
}
ServerLock::~ServerLock() {
  --locks;
}

HRESULT LoadDescription(REFGUID guid, Pointer<ITypeInfo>& description) {
  Pointer<ITypeLib> library;
  if (const HRESULT result = LoadTypeLibEx(ServerPath().c_str(), REGKIND_NONE, library.Put());
      FAILED(result))
    return result;
  return library->GetTypeInfoOfGuid(guid, description.Put());
}

}  // namespace zolt20::com

using namespace zolt20::com;

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void* reserved) {
  if (reason == DLL_PROCESS_ATTACH) instance = module;
  // Not when the process ends (`reserved` is not null), which frees everything.
  if (reason == DLL_PROCESS_DETACH && reserved == nullptr) UnregisterClasses();
  return TRUE;
}

STDAPI DllCanUnloadNow() {
  return locks == 0 ? S_OK : S_FALSE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (classId != TheServed().classId) return CLASS_E_CLASSNOTAVAILABLE;
  return Guarded([&] {
    auto* const factory = new ClassFactory;
    const HRESULT result = factory->QueryInterface(id, object);
    factory->Release();
    return result;
  });
}

STDAPI DllRegisterServer() {
  return Guarded([] { return Register(ServerPath()); });
}

STDAPI DllUnregisterServer() {
  return Guarded([] { return Unregister(); });
}
