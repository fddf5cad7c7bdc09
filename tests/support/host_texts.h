// Texts as tests write them, in UTF-8, and what a host's lists are made of.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosts/kit/text_coding.h"
#include "surface/string.h"

namespace zolt20::tests {

using Texts = std::vector<std::string>;

/// UTF-8 to the control's texts and back.
inline String Wide(std::string_view text) {
  return hosts::FromJsonText(text);
}
inline std::string Narrow(StringView text) {
  return hosts::ToJsonText(text);
}

/// A field record of the catalogue: type word, flag and qualified name, further text.
std::string Field(std::string_view flagAndName, std::string_view type = "long",
                  std::string_view rest = "X");
/// Entries of a host's list.
std::string List(const Texts& entries);

}  // namespace zolt20::tests
