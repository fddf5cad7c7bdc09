// Texts on their way between the control and Windows. Both count characters of 16 bits, so every
// text comes and goes exactly, NULs and lone surrogates included.
#pragma once

#include <ole2.h>

#include <new>

#include "surface/string.h"

namespace zolt20::com {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

/// No text at all is the empty one, as everywhere in Automation.
inline StringView View(BSTR text) {
  return {reinterpret_cast<const char16_t*>(text), SysStringLen(text)};
}

/// Of a text that ends at its first NUL.
inline StringView View(const wchar_t* text) {
  return reinterpret_cast<const char16_t*>(text);
}

/// Valid as long as the text; ends at its first NUL for whoever asks no length.
inline const wchar_t* Wide(const String& text) {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}
inline const wchar_t* Wide(const char16_t* text) {
  return reinterpret_cast<const wchar_t*>(text);
}

/// The caller frees it. Throws std::bad_alloc.
inline BSTR ToBstr(StringView text) {
  BSTR copy = SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()),
                                static_cast<UINT>(text.size()));
  if (copy == nullptr) throw std::bad_alloc();
  return copy;
}

/// A name of the contract, which is plain ASCII.
inline String Widened(std::string_view name) {
  return {name.begin(), name.end()};
}

}  // namespace zolt20::com
