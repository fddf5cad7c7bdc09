// A COM enumerator over a snapshot: values that were copied when it was made.
#pragma once

#include <ocidl.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <utility>
#include <vector>

#include "faces/com/control/com_call.h"
#include "faces/com/server/server.h"

namespace zolt20::com {

/// `Interface` is a COM enumerator over `Item`. `Traits::Keep(item)` makes a copy own its
/// resources, such as a reference or a text, and `Traits::Drop(item)` releases them.
template <typename Interface, typename Item, typename Traits>
class Enumeration final : public Interface {
 public:
  /// A new one, with one reference.
  explicit Enumeration(std::vector<Item> items, std::size_t next = 0)
      : items_(std::move(items)), next_(next) {
    for (Item& item : items_)
      Traits::Keep(item);
  }

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    if (id != IID_IUnknown && id != __uuidof(Interface)) {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    *object = static_cast<Interface*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
  STDMETHODIMP_(ULONG) Release() override {
    const long left = --references_;
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

  STDMETHODIMP Next(ULONG count, Item* items, ULONG* fetched) override {
    if (items == nullptr || (fetched == nullptr && count != 1)) return E_POINTER;
    if (fetched != nullptr) *fetched = 0;
    return Guarded([&] {
      ULONG given = 0;
      for (; given < count && next_ < items_.size(); ++given, ++next_) {
        items[given] = items_[next_];
        Traits::Keep(items[given]);
      }
      if (fetched != nullptr) *fetched = given;
      return given == count ? S_OK : S_FALSE;
    });
  }
  STDMETHODIMP Skip(ULONG count) override {
    const std::size_t left = items_.size() - next_;
    next_ += std::min<std::size_t>(count, left);
    return count <= left ? S_OK : S_FALSE;
  }
  STDMETHODIMP Reset() override {
    next_ = 0;
    return S_OK;
  }
  STDMETHODIMP Clone(Interface** clone) override {
    if (clone == nullptr) return E_POINTER;
    *clone = nullptr;
    return Guarded([&] {
      *clone = new Enumeration(items_, next_);
      return S_OK;
    });
  }

 private:
  virtual ~Enumeration() {
    for (Item& item : items_)
      Traits::Drop(item);
  }

  ServerLock lock_;
  std::atomic<long> references_ = 1;
  std::vector<Item> items_;
  std::size_t next_;
};

}  // namespace zolt20::com
