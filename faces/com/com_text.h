// Converts texts between the control and Windows. Both have characters of 16 bits, so every text
// passes unchanged, NULs and lone surrogates included.
#pragma once

#include <ole2.h>

#include <new>

#include "surface/string.h"

namespace zolt20::com {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

/// A null BSTR is the empty text, as everywhere in Automation.
inline StringView View(BSTR text) {
  return {reinterpret_cast<const char16_t*>(text), SysStringLen(text)};
}

/// A view of a NUL-terminated text.
inline StringView View(const wchar_t* text) {
  return reinterpret_cast<const char16_t*>(text);
}

/// Valid as long as the text. NUL-terminated, so a text with NULs in it seems to end at the first.
inline const wchar_t* Wide(const String& text) {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}
inline const wchar_t* Wide(const char16_t* text) {
  return reinterpret_cast<const wchar_t*>(text);
}

/// A new BSTR that the caller owns and frees. Throws std::bad_alloc.
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
