// Lines of JSON read one behind the other, at the pace of RapidJSON. The values stand in memory
// that the next line takes over, so a line costs no allocation. What a line is, which value of a
// repeated key holds and what is said of a line that is no JSON are as nlohmann::json has them,
// which writes the replies.
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

/// Reads lines. Neither copied nor moved, since the values point into it.
class JsonReader {
 public:
  JsonReader() = default;
  JsonReader(const JsonReader&) = delete;
  JsonReader& operator=(const JsonReader&) = delete;

  /// The value of a line in UTF-8, its lone surrogates as stand-ins. It stands until the next call.
  /// Throws nlohmann::json::exception for what is no JSON, and then there is no value.
  const JsonValue& Read(std::string_view line);

 private:
  using Pool = rapidjson::MemoryPoolAllocator<>;
  using Document = rapidjson::GenericDocument<rapidjson::UTF8<>, Pool, Pool>;
  // Enough for most lines; pools take more when they need it.
  using Memory = std::array<char, 4096>;
  enum class Outcome { kRead, kDouble, kFault };

  // By flags of RapidJSON.
  template <unsigned kFlags>
  Outcome Parse(std::string_view line);

  static constexpr std::size_t kStackBytes = 1024;
  // That of std::max_align_t differs between files of one program where Windows has 32 bits.
  static constexpr std::size_t kAlignment = alignof(JsonValue);
  std::string line_;  // what is read; its strings are decoded where they stand
  alignas(kAlignment) Memory valueMemory_{};
  alignas(kAlignment) Memory stackMemory_{};
  Pool values_{valueMemory_.data(), valueMemory_.size()};
  Pool stack_{stackMemory_.data(), stackMemory_.size()};
  Document document_{&values_, kStackBytes, &stack_};
};

/// The value of a key, of several the last; null when there is none.
const JsonValue* FindValue(const JsonValue& object, std::string_view key);
/// The characters of a string; they stand as long as the value does.
std::string_view TextOf(const JsonValue& string);
/// A value to be changed or written.
Json ToJson(const JsonValue& value);

}  // namespace zolt20::hosts
