// Reads lines of JSON one behind the other, by RapidJSON for its speed. The values live in a buffer
// that the next line reuses, so a line costs no allocation. It accepts the same lines, takes the
// same value of a duplicate key and gives the same error messages as nlohmann::json, which writes
// the replies.
#pragma once

#include <rapidjson/document.h>

#include <array>
#include <cstddef>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace zolt20::hosts {

using Json = nlohmann::ordered_json;
using JsonValue = rapidjson::Value;

/// Reads lines. Neither copied nor moved, since its values point into it.
class JsonReader {
 public:
  JsonReader() = default;
  JsonReader(const JsonReader&) = delete;
  JsonReader& operator=(const JsonReader&) = delete;

  /// The value of a line in UTF-8, lone surrogates as stand-ins. Valid until the next call. Throws
  /// nlohmann::json::exception for a line that is no JSON; then there is no value.
  const JsonValue& Read(std::string_view line);

 private:
  using Pool = rapidjson::MemoryPoolAllocator<>;
  using Document = rapidjson::GenericDocument<rapidjson::UTF8<>, Pool, Pool>;
  // Enough for most lines; pools take more when they need it.
  using Memory = std::array<char, 4096>;
  enum class Outcome { kRead, kDouble, kFault };

  // Parses a line with these flags of RapidJSON.
  template <unsigned kFlags>
  Outcome Parse(std::string_view line);

  static constexpr std::size_t kStackBytes = 1024;
  // Not that of std::max_align_t, which differs between files of one program on 32-bit Windows.
  static constexpr std::size_t kAlignment = alignof(JsonValue);
  std::string line_;  // a copy of the line, in which RapidJSON decodes strings in place
  alignas(kAlignment) Memory valueMemory_{};
  alignas(kAlignment) Memory stackMemory_{};
  Pool values_{valueMemory_.data(), valueMemory_.size()};
  Pool stack_{stackMemory_.data(), stackMemory_.size()};
  Document document_{&values_, kStackBytes, &stack_};
};

/// The value of a key, the last one of a duplicate key; null when there is none.
const JsonValue* FindValue(const JsonValue& object, std::string_view key);
/// The characters of a string; valid as long as the value.
std::string_view TextOf(const JsonValue& string);
/// A copy of a value that can be changed or written.
Json ToJson(const JsonValue& value);

}  // namespace zolt20::hosts
