// A VARIANT that is cleared by its destructor.
#pragma once

#include <windows.h>

#include <oleauto.h>

namespace zolt20::com {

class Value {
 public:
  Value() { VariantInit(&value_); }
  ~Value() { VariantClear(&value_); }
  Value(const Value&) = delete;
  Value& operator=(const Value&) = delete;
  VARIANT* operator&() { return &value_; }
  VARIANT* operator->() { return &value_; }

 private:
  VARIANT value_;
};

}  // namespace zolt20::com
