// Fuzzes zolt20-host with bytes as a file of lines. Property: any line, malformed or not, gets one
// well-formed reply.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>

#include "fuzz/bounds.h"
#include "hosts/automation/session.h"

namespace {

using Json = nlohmann::json;
using zolt20::automation::Session;

constexpr int kMostLines = 300;

// How many large index counts one input may have: each marked table with such a count makes three
// lists so much longer, and a line may mark very many tables.
constexpr int kMostLargeCounts = 2;
constexpr double kLargeCount = 1000;

int LargeCounts(std::string_view input) {
  constexpr std::size_t kTableNameLength = 8;
  int count = 0;
  while (!input.empty()) {
    const std::string entry(input.substr(0, input.find_first_of(",\"\n")));
    input.remove_prefix(std::min(input.size(), entry.size() + 1));
    if (entry.size() <= kTableNameLength) continue;
    if (std::strtod(entry.c_str() + kTableNameLength, nullptr) >= kLargeCount) ++count;
  }
  return count;
}

[[noreturn]] void Complain(const char* complaint, const std::string& line,
                           const std::string& reply) {
  std::fprintf(stderr, "%s\nrequest: %s\nreply: %s\n", complaint, line.c_str(), reply.c_str());
  std::abort();
}

// The line with a blank for each escape of a lone surrogate. Such escapes are valid JSON, but the
// library's parser refuses them.
std::string WithoutLoneSurrogates(std::string line) {
  const auto unitAt = [&line](std::size_t at) -> unsigned long {
    if (line.compare(at, 2, "\\u") != 0 || at + 6 > line.size()) return 0;
    return std::strtoul(line.substr(at + 2, 4).c_str(), nullptr, 16);
  };
  const auto isHigh = [](unsigned long unit) { return unit >= 0xD800 && unit <= 0xDBFF; };
  const auto isLow = [](unsigned long unit) { return unit >= 0xDC00 && unit <= 0xDFFF; };
  for (std::size_t at = 0; at < line.size(); ++at) {
    if (line[at] != '\\') continue;
    const unsigned long unit = unitAt(at);
    if (isHigh(unit) && at + 6 < line.size() && isLow(unitAt(at + 6))) {
      at += 11;
    } else if (isHigh(unit) || isLow(unit)) {
      line.replace(at, 6, "\\u0020");
      at += 5;
    } else {
      ++at;
    }
  }
  return line;
}

void CheckReply(const std::string& line, const std::string& reply) {
  if (reply.find('\n') != std::string::npos) Complain("the reply has several lines", line, reply);
  const Json object = Json::parse(WithoutLoneSurrogates(reply), nullptr, false);
  if (!object.is_object()) Complain("the reply is no JSON object", line, reply);
  const auto ok = object.find("ok");
  const auto log = object.find("log");
  if (ok == object.end() || !ok->is_boolean()) Complain("the reply has no \"ok\"", line, reply);
  if (log == object.end() || !log->is_array()) Complain("the reply has no \"log\"", line, reply);
  const std::size_t reasons = object.count("error") + object.count("refused");
  if (reasons != (ok->get<bool>() ? 0U : 1U)) {
    Complain("the reply does not tell just one reason of a failure", line, reply);
  }
  if (object.count("refused") != 0 && !log->empty()) {
    Complain("a refused gesture did something", line, reply);
  }
  if (object.count("error") == 0) return;
  const Json kind = object["error"].value("kind", Json());
  if (kind == "failure") Complain("an exception came that is no run-time error", line, reply);
  if (kind == "request" && !log->empty())
    Complain("a line that is no request did something", line, reply);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  if (LargeCounts(bytes) > kMostLargeCounts) return 0;
  std::istringstream input(bytes);
  Session session;
  std::string line;
  for (int number = 1; number <= kMostLines && std::getline(input, line); ++number) {
    if (Session::IsSkipped(line)) continue;
    CheckReply(line, session.Reply(line));
    if (zolt20::fuzz::IsLarge(session.Control().Form())) break;
  }
  return 0;
}
