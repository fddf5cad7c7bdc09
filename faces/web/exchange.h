// The calling convention between a page and the module: functions of numbers. A control or an
// element is passed by its address. A text comes in by text_in, which makes room for the text that
// the next call takes, and goes out by text_out; a list of numbers goes out by numbers_out. Both
// stay valid until the next call.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "surface/string.h"

#define ZOLT20_EXPORT(name) __attribute__((export_name(#name)))
#define ZOLT20_IMPORT(name) __attribute__((import_module("page"), import_name(#name)))

namespace zolt20::web {

inline String taken;
inline String given;
inline std::vector<std::int32_t> numbers;

inline void Give(StringView text) {
  given = text;
}
inline void Give(std::string_view text) {
  given = FromAscii(text);
}

inline std::int32_t Address(const void* object) {
  return static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(object));
}

}  // namespace zolt20::web
