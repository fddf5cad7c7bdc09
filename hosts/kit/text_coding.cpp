#include "hosts/kit/text_coding.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>

namespace zolt20::hosts {
namespace {

constexpr char32_t kLast = 0x10FFFF;
constexpr std::string_view kLastBytes = "\xF4\x8F\xBF\xBF";
constexpr char32_t kFirstStandIn = 0xE000;  // stands for 0xD800, and so on up to 0xDFFF

bool IsHigh(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLow(char32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

char32_t Pair(char32_t high, char32_t low) {
  return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

void AppendUtf8(std::string& text, char32_t code) {
  const auto tail = [code](int shift) {
    return static_cast<char>(0x80 | ((code >> shift) & 0x3F));
  };
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0 | (code >> 6));
    text += tail(0);
  } else if (code < 0x10000) {
    text += static_cast<char>(0xE0 | (code >> 12));
    text += tail(6);
    text += tail(0);
  } else {
    text += static_cast<char>(0xF0 | (code >> 18));
    text += tail(12);
    text += tail(6);
    text += tail(0);
  }
}

void AppendStandIn(std::string& text, char32_t surrogate) {
  text += kLastBytes;
  AppendUtf8(text, kFirstStandIn + (surrogate - 0xD800));
}

// The code point at `at` of valid UTF-8; moves `at` behind it.
char32_t TakeUtf8(std::string_view text, std::size_t& at) {
  const auto lead = static_cast<unsigned char>(text[at++]);
  if (lead < 0x80) return lead;
  const int tails = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
  char32_t code = lead & (0x3FU >> tails);
  for (int i = 0; i < tails && at < text.size(); ++i) {
    code = (code << 6) | (static_cast<unsigned char>(text[at++]) & 0x3FU);
  }
  return code;
}

void AppendUtf16(String& text, char32_t code) {
  if (code < 0x10000) {
    text += static_cast<char16_t>(code);
    return;
  }
  text += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
  text += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
}

// The unit of an escape \uXXXX at `at`.
std::optional<char32_t> UnicodeEscape(std::string_view line, std::size_t at) {
  if (line.substr(at, 2) != "\\u" || line.size() < at + 6) return std::nullopt;
  char32_t unit = 0;
  for (const char digit : line.substr(at + 2, 4)) {
    if (digit >= '0' && digit <= '9') {
      unit = unit * 16 + static_cast<char32_t>(digit - '0');
    } else if (digit >= 'a' && digit <= 'f') {
      unit = unit * 16 + static_cast<char32_t>(digit - 'a' + 10);
    } else if (digit >= 'A' && digit <= 'F') {
      unit = unit * 16 + static_cast<char32_t>(digit - 'A' + 10);
    } else {
      return std::nullopt;
    }
  }
  return unit;
}

constexpr std::size_t kEscapeLength = 6;

}  // namespace

std::string ToJsonText(StringView text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char32_t unit = text[i];
    if (IsHigh(unit) && i + 1 < text.size() && IsLow(text[i + 1])) {
      const char32_t code = Pair(unit, text[++i]);
      AppendUtf8(result, code);
      if (code == kLast) result += kLastBytes;
    } else if (IsHigh(unit) || IsLow(unit)) {
      AppendStandIn(result, unit);
    } else {
      AppendUtf8(result, unit);
    }
  }
  return result;
}

String FromJsonText(std::string_view text) {
  String result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    char32_t code = TakeUtf8(text, at);
    if (code == kLast && at < text.size()) {
      code = TakeUtf8(text, at);
      if (code != kLast) code = code - kFirstStandIn + 0xD800;
    }
    AppendUtf16(result, code);
  }
  return result;
}

bool NeedsStandIns(std::string_view line) {
  return line.find('\\') != std::string_view::npos ||
         line.find(kLastBytes.front()) != std::string_view::npos;
}

std::string PutStandIns(std::string_view line) {
  std::string result;
  result.reserve(line.size());
  for (std::size_t at = 0; at < line.size();) {
    if (line.substr(at, kLastBytes.size()) == kLastBytes) {
      result += kLastBytes;
      result += kLastBytes;
      at += kLastBytes.size();
      continue;
    }
    if (line[at] != '\\') {
      result += line[at++];
      continue;
    }
    const std::optional<char32_t> unit = UnicodeEscape(line, at);
    if (!unit.has_value()) {
      result += line.substr(at, 2);
      at += 2;
      continue;
    }
    const std::optional<char32_t> next = UnicodeEscape(line, at + kEscapeLength);
    if (IsHigh(*unit) && next.has_value() && IsLow(*next)) {
      result += line.substr(at, 2 * kEscapeLength);
      if (Pair(*unit, *next) == kLast) result += kLastBytes;
      at += 2 * kEscapeLength;
    } else if (IsHigh(*unit) || IsLow(*unit)) {
      AppendStandIn(result, *unit);
      at += kEscapeLength;
    } else {
      result += line.substr(at, kEscapeLength);
      at += kEscapeLength;
    }
  }
  return result;
}

std::string TakeStandIns(std::string text) {
  const std::string_view line = text;
  if (line.find(kLastBytes.front()) == std::string_view::npos) return text;
  std::string result;
  result.reserve(line.size());
  std::size_t at = 0;
  for (std::size_t found = line.find(kLastBytes); found != std::string_view::npos;
       found = line.find(kLastBytes, at)) {
    result += line.substr(at, found - at);
    at = found + kLastBytes.size();
    const char32_t code = TakeUtf8(line, at);
    if (code == kLast) {
      result += kLastBytes;
    } else {
      std::array<char, 8> escape{};
      std::snprintf(escape.data(), escape.size(), "\\u%04x",
                    static_cast<unsigned>(code - kFirstStandIn + 0xD800));
      result += escape.data();
    }
  }
  result += line.substr(at);
  return result;
}

}  // namespace zolt20::hosts
