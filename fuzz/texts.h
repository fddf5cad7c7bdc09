// Turns bytes into texts of the statement language, for fuzzers. Each byte is a character; a few
// bytes that no text has otherwise stand for keywords and line breaks, so that a fuzzer finds
// statements soon.
#pragma once

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "hosts/kit/text_coding.h"
#include "surface/string.h"

namespace zolt20::fuzz {

inline constexpr std::array<StringView, 32> kWords{
    u"\r\n",
    u"select ",
    u"from  T",
    u"where ",
    u"group by  ",
    u"order by ",
    u"as set with 5 rows ",
    u"selectdo",
    u"selecteos",
    u"selectempty",
    u"selecterror",
    u"endselect",
    u"if ",
    u" then ",
    u"else",
    u"endif",
    u"for i = 1 to ",
    u"endfor",
    u"while ",
    u"endwhile",
    u"repeat ",
    u"Until  ( ",
    u"on case ",
    u"case ",
    u"default: ",
    u"break",
    u"endcase",
    u":var.x = ",
    u"EXISTS  (  \r\n",
    u")",
    u"\t",
    u"\"",
};
// Bytes from here on are words: none of them stands in a text of ASCII.
inline constexpr std::uint8_t kFirstWord = 0xC0;

inline String TextOf(const std::uint8_t* data, std::size_t size) {
  String text;
  for (std::size_t i = 0; i < size; ++i) {
    if (data[i] < kFirstWord) {
      text += static_cast<char16_t>(data[i]);
    } else {
      text += kWords[(data[i] - kFirstWord) % kWords.size()];
    }
  }
  return text;
}

[[noreturn]] inline void Complain(const std::string& complaint, StringView text) {
  std::fprintf(stderr, "%s\ntext:\n%s\n", complaint.c_str(), hosts::ToJsonText(text).c_str());
  std::abort();
}

}  // namespace zolt20::fuzz
