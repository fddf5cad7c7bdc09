// The 16-bit Integer of the contract.
//
// A value is always within -32768 to 32767: every way to make one checks it and raises `overflow`
// outside. Counters, page numbers and array indexes of the logic are Integers, so that an overflow
// shows where it happens.
#pragma once

#include <compare>
#include <cstdint>

#include "surface/error.h"

namespace zolt20 {

class Integer {
 public:
  static constexpr int kLeast = -32768;
  static constexpr int kGreatest = 32767;

  constexpr Integer() = default;
  /// Raises `overflow` outside the range. Implicit: a plain number in code stands for an Integer.
  constexpr Integer(std::int64_t value) : value_(Checked(value)) {}

  constexpr int value() const { return value_; }

  constexpr Integer& operator+=(Integer other) { return *this = *this + other; }
  constexpr Integer& operator-=(Integer other) { return *this = *this - other; }
  constexpr Integer& operator++() { return *this += 1; }
  constexpr Integer& operator--() { return *this -= 1; }

  friend constexpr Integer operator+(Integer a, Integer b) { return {a.value() + b.value()}; }
  friend constexpr Integer operator-(Integer a, Integer b) { return {a.value() - b.value()}; }
  friend constexpr bool operator==(Integer, Integer) = default;
  friend constexpr auto operator<=>(Integer, Integer) = default;

 private:
  static constexpr std::int16_t Checked(std::int64_t value) {
    if (value < kLeast || value > kGreatest) Raise(ErrorKind::kOverflow);
    return static_cast<std::int16_t>(value);
  }

  std::int16_t value_ = 0;
};

}  // namespace zolt20
