// The calling convention between a page and the WebAssembly module: functions of numbers. A control
// or an element is passed by its address. The page passes a text by text_in, which makes room for
// it in `taken`, before the call that takes it. It reads the text that a call gave by text_out,
// from `given`, and a list of numbers by numbers_out, from `numbers`. These stay valid until the
// next call.
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
