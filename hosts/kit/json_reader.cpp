#include "hosts/kit/json_reader.h"

#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cstdint>

namespace zolt20::hosts {

namespace {

// A handler that passes all to the document, and notes numbers with a fraction or an exponent.
template <typename Document>
struct Watch {
  Document& document;
  bool hasDouble = false;

  bool Null() { return document.Null(); }
  bool Bool(bool value) { return document.Bool(value); }
  bool Int(int value) { return document.Int(value); }
  bool Uint(unsigned value) { return document.Uint(value); }
  bool Int64(std::int64_t value) { return document.Int64(value); }
  bool Uint64(std::uint64_t value) { return document.Uint64(value); }
  bool Double(double value) {
    hasDouble = true;
    return document.Double(value);
  }
  bool RawNumber(const char* text, rapidjson::SizeType size, bool copy) {
    return document.RawNumber(text, size, copy);
  }
  bool String(const char* text, rapidjson::SizeType size, bool copy) {
    return document.String(text, size, copy);
  }
  bool StartObject() { return document.StartObject(); }
  bool Key(const char* text, rapidjson::SizeType size, bool copy) {
    return document.Key(text, size, copy);
  }
  bool EndObject(rapidjson::SizeType size) { return document.EndObject(size); }
  bool StartArray() { return document.StartArray(); }
  bool EndArray(rapidjson::SizeType size) { return document.EndArray(size); }
};

// Without full precision: a line with a fraction or an exponent is parsed again, as nlohmann::json
// writes it.
constexpr unsigned kAsWritten = rapidjson::kParseInsituFlag | rapidjson::kParseValidateEncodingFlag;

}  // namespace

const JsonValue& JsonReader::Read(std::string_view line) {
  if (Parse<kAsWritten>(line) != Outcome::kRead) {
    // nlohmann::json decides: it names the place of a fault, accepts a few more lines, and reads
    // 0e99 as 0.
    Parse<kAsWritten | rapidjson::kParseFullPrecisionFlag>(Json::parse(line).dump());
  }
  return document_;
}

template <unsigned kFlags>
JsonReader::Outcome JsonReader::Parse(std::string_view line) {
  line_ = line;
  // Padding: RapidJSON reads a truncated UTF-8 character for as many bytes as its lead byte tells.
  line_.append(3, '\0');
  document_.SetNull();
  values_.Clear();
  stack_.Clear();
  Outcome outcome = Outcome::kRead;
  const auto read = [&](Document& document) {
    rapidjson::InsituStringStream stream(line_.data());
    rapidjson::GenericReader<rapidjson::UTF8<>, rapidjson::UTF8<>, Pool> reader(&stack_);
    Watch<Document> watch{document};
    if (!reader.Parse<kFlags>(stream, watch)) {
      outcome = Outcome::kFault;
    } else if (watch.hasDouble) {
      outcome = Outcome::kDouble;
    }
    return outcome != Outcome::kFault;
  };
  document_.Populate(read);
  return outcome;
}

const JsonValue* FindValue(const JsonValue& object, std::string_view key) {
  for (auto member = object.MemberEnd(); member != object.MemberBegin();) {
    --member;
    if (TextOf(member->name) == key) return &member->value;
  }
  return nullptr;
}

std::string_view TextOf(const JsonValue& string) {
  return {string.GetString(), string.GetStringLength()};
}

Json ToJson(const JsonValue& value) {
  rapidjson::StringBuffer text;
  rapidjson::Writer<rapidjson::StringBuffer> writer(text);
  value.Accept(writer);
  return Json::parse(text.GetString(), text.GetString() + text.GetSize());
}

}  // namespace zolt20::hosts
