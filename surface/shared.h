// Copy on write: a value that its copies share until one of them is written.
//
// A snapshot of a form thus costs a reference count for each long list or text, and only what
// changes afterwards is copied. Not thread-safe: one thread uses a value and its copies.
#pragma once

#include <memory>
#include <utility>

namespace zolt20 {

template <typename T>
class Shared {
 public:
  Shared() : value_(std::make_shared<T>()) {}
  explicit Shared(T value) : value_(std::make_shared<T>(std::move(value))) {}

  const T& operator*() const { return *value_; }
  const T* operator->() const { return value_.get(); }

  /// The value for writing. Copied first when others share it.
  T& Write() {
    if (value_.use_count() > 1) value_ = std::make_shared<T>(std::as_const(*value_));
    return *value_;
  }

  /// Whether both share one value: identity, not equality.
  bool IsSameAs(const Shared& other) const { return value_ == other.value_; }

 private:
  std::shared_ptr<T> value_;
};

}  // namespace zolt20
