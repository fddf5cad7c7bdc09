// A hash of a sequence of values: equal sequences have equal hashes, and different ones hardly
// ever.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

#include "surface/string.h"

namespace zolt20::tests {

class Digester {
 public:
  void Add(StringView text) { Mix(std::hash<StringView>()(text)); }
  void Add(const String& text) { Add(StringView(text)); }
  void Add(std::int64_t number) { Mix(static_cast<std::uint64_t>(number)); }
  void Add(int number) { Add(std::int64_t{number}); }
  void Add(bool flag) { Add(flag ? 1 : 2); }

  /// The number of entries, and the entries.
  template <typename Entries>
  void AddAll(const Entries& entries) {
    Add(static_cast<std::int64_t>(entries.size()));
    for (const auto& entry : entries)
      Add(entry);
  }

  std::size_t Value() const { return value_; }

 private:
  void Mix(std::uint64_t part) {
    constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;
    value_ = (value_ ^ (part + kOdd + (value_ << 6U) + (value_ >> 2U))) * kOdd;
    value_ ^= value_ >> 29U;
  }

  std::uint64_t value_ = 0;
};

}  // namespace zolt20::tests
