// A smart pointer to a COM object: an owned reference that is released automatically.
#pragma once

#include <unknwn.h>

#include <utility>

namespace zolt20::com {

template <typename Interface>
class Pointer {
 public:
  Pointer() = default;
  /// Adds a reference (AddRef).
  explicit Pointer(Interface* object) : object_(object) {
    if (object_ != nullptr) object_->AddRef();
  }
  Pointer(const Pointer& other) : Pointer(other.object_) {}
  Pointer(Pointer&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Pointer& operator=(Pointer other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Pointer() {
    if (object_ != nullptr) object_->Release();
  }

  Interface* Get() const { return object_; }
  Interface* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  /// For an out parameter that receives a reference. Releases the reference held before.
  Interface** Put() {
    *this = Pointer();
    return &object_;
  }
  /// Transfers ownership of the reference to the caller.
  Interface* Detach() { return std::exchange(object_, nullptr); }

  /// QueryInterface: null when the object is null or lacks the interface.
  template <typename Other>
  Pointer<Other> As() const {
    return AnyAs<Other>(object_);
  }

  /// QueryInterface for any object, which may be null.
  template <typename Other>
  static Pointer<Other> AnyAs(IUnknown* object) {
    Pointer<Other> other;
    if (object != nullptr &&
        FAILED(object->QueryInterface(__uuidof(Other), reinterpret_cast<void**>(other.Put())))) {
      return {};
    }
    return other;
  }

 private:
  Interface* object_ = nullptr;
};

/// QueryInterface that also takes null: null when the object is null or lacks the interface.
template <typename Interface>
Pointer<Interface> Query(IUnknown* object) {
  return Pointer<IUnknown>::AnyAs<Interface>(object);
}

}  // namespace zolt20::com
