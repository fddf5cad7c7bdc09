#include "hosts/kit/json_fault.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>
#include <utility>
#include <vector>

#include "hosts/kit/text_coding.h"

namespace zolt20::hosts {
namespace {

using Json = nlohmann::json;

bool BeginsCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

// A SAX handler that stops at the first fault and keeps its message.
class Follower final : public nlohmann::json_sax<Json> {
 public:
  explicit Follower(std::string_view text) : text_(text) {}

  Message complaint;

  bool null() override { return true; }
  bool boolean(bool) override { return true; }
  bool number_integer(number_integer_t) override { return true; }
  bool number_unsigned(number_unsigned_t) override { return true; }
  bool number_float(number_float_t, const string_t&) override { return true; }
  bool string(string_t&) override { return true; }
  bool binary(binary_t&) override { return true; }
  bool start_object(std::size_t) override { return Enter(); }
  bool end_object() override { return Leave(); }
  bool start_array(std::size_t) override { return Enter(); }
  bool end_array() override { return Leave(); }

  bool key(string_t& key) override {
    if (keys_.back().insert(key).second) return true;
    return Complain(Message("has the key \"%1\" twice in one place", ForPeople(key)));
  }

  bool parse_error(std::size_t position, const std::string&, const Json::exception&) override {
    const std::string_view before = text_.substr(0, position - 1);
    const auto line = static_cast<std::size_t>(1 + std::count(before.begin(), before.end(), '\n'));
    if (position > text_.size())
      return Complain(Message("is no JSON, or cut short: it ends within line %1", line));
    const std::string_view inLine = before.substr(before.rfind('\n') + 1);
    const auto column =
        static_cast<std::size_t>(1 + std::count_if(inLine.begin(), inLine.end(), BeginsCharacter));
    return Complain(Message("is no JSON: reading stops at line %1, column %2", line, column));
  }

 private:
  bool Complain(Message words) {
    complaint = std::move(words);
    return false;
  }
  bool Enter() {
    if (keys_.size() == kDeepestJson) {
      return Complain(Message("is nested more than %1 levels deep", kDeepestJson));
    }
    keys_.emplace_back();
    return true;
  }
  bool Leave() {
    keys_.pop_back();
    return true;
  }

  std::string_view text_;
  std::vector<std::set<std::string>> keys_;  // the keys of each open object; empty for an array
};

bool IsHigh(char16_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLow(char16_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

}  // namespace

bool IsTooDeep(std::string_view text) {
  std::size_t depth = 0;
  for (std::size_t at = text.find_first_of("\"[]{}"); at != std::string_view::npos;
       at = text.find_first_of("\"[]{}", at + 1)) {
    if (text[at] == '"') {
      at = text.find_first_of("\"\\", at + 1);
      while (at < text.size() && text[at] == '\\')
        at = text.find_first_of("\"\\", std::min(at + 2, text.size()));
      if (at == std::string_view::npos) return false;
    } else if (text[at] == '[' || text[at] == '{') {
      if (++depth > kDeepestJson) return true;
    } else if (depth > 0) {
      --depth;
    }
  }
  return false;
}

Message FaultIn(std::string_view text) {
  Follower follower(text);
  Json::sax_parse(text, &follower);
  return follower.complaint;
}

std::string ForPeople(std::string_view jsonText) {
  String text = FromJsonText(jsonText);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (IsHigh(text[i]) && i + 1 < text.size() && IsLow(text[i + 1])) {
      ++i;
    } else if (IsHigh(text[i]) || IsLow(text[i])) {
      text[i] = u'?';
    }
  }
  return TakeStandIns(ToJsonText(text));
}

}  // namespace zolt20::hosts
