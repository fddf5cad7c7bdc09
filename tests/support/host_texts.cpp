#include "tests/support/host_texts.h"

namespace zolt20::tests {

std::string Field(std::string_view flagAndName, std::string_view type, std::string_view rest) {
  constexpr std::string_view kSeparates = "*Q*V*R*N*";
  std::string record(type);
  record.append(kSeparates).append(flagAndName).append(kSeparates).append(rest);
  return record;
}

std::string List(const Texts& entries) {
  std::string list;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (i > 0) list += ",";
    list += entries[i];
  }
  return list;
}

}  // namespace zolt20::tests
