// A reference to a COM object that is given back by itself.
#pragma once

#include <unknwn.h>

#include <utility>

namespace zolt20::com {

template <typename Interface>
class Pointer {
 public:
  Pointer() = default;
  /// Adds a reference of its own.
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

  /// For a call that gives a reference away. Whatever was here is gone before.
  Interface** Put() {
    *this = Pointer();
    return &object_;
  }
  /// Gives the reference away.
  Interface* Detach() { return std::exchange(object_, nullptr); }

  /// Another interface of the object; none when it has none.
  template <typename Other>
  Pointer<Other> As() const {
    return AnyAs<Other>(object_);
  }

  /// That interface of any object, which may be none.
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

/// That interface of an object, which may be none; none when it has none.
template <typename Interface>
Pointer<Interface> Query(IUnknown* object) {
  return Pointer<IUnknown>::AnyAs<Interface>(object);
}

}  // namespace zolt20::com
