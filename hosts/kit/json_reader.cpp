#include "hosts/kit/json_reader.h"

#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cstdint>

namespace zolt20::hosts {

namespace {

// Passes on what a reader finds, and remembers a number with a fraction or an exponent.
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

// Without full precision: numbers with a fraction or an exponent are read once more, as the other
// library writes them.
constexpr unsigned kAsWritten = rapidjson::kParseInsituFlag | rapidjson::kParseValidateEncodingFlag;

}  // namespace

const JsonValue& JsonReader::Read(std::string_view line) {
  if (Parse<kAsWritten>(line) != Outcome::kRead) {
    // The other library names the place of a fault and takes a few lines more, and 0e99 is 0 to it.
    Parse<kAsWritten | rapidjson::kParseFullPrecisionFlag>(Json::parse(line).dump());
  }
  return document_;
}

template <unsigned kFlags>
JsonReader::Outcome JsonReader::Parse(std::string_view line) {
  line_ = line;
  // A character that is cut off at the end is read for as long as its first byte says.
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
