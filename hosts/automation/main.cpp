// zolt20-host: the control with a host that is driven by text.
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "hosts/automation/outline_lines.h"
#include "hosts/automation/session.h"
#include "hosts/kit/text_coding.h"

namespace {

using zolt20::automation::Session;

constexpr const char* kUsage =
    "usage: zolt20-host [--result | --get PROPERTY] [FILE.jsonl]\n"
    "       zolt20-host --outline [FILE]\n"
    "\n"
    "Reads requests, one JSON object a line, from FILE or from standard input, and writes\n"
    "one reply a line.\n"
    "\n"
    "  --result        write the final Result text and no replies\n"
    "  --get PROPERTY  write the final value of the property and no replies\n"
    "\n"
    "With either of the two, a request that fails is told on standard error with its line.\n"
    "\n"
    "  --outline       read a text of the statement language in place of requests, and write its\n"
    "                  tree, one JSON object a node; ends with 1 when a node has a problem\n";

struct Options {
  bool result = false;
  bool outline = false;
  const zolt20::Member* get = nullptr;
  std::optional<std::string> file;
};

int Complain(const std::string& complaint) {
  std::cerr << "zolt20-host: " << complaint << "\n";
  return 2;
}

// Nothing when the words can't be taken; the complaint is made by then.
std::optional<Options> ReadOptions(const std::vector<std::string>& words) {
  Options options;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i] == "--result") {
      options.result = true;
    } else if (words[i] == "--outline") {
      options.outline = true;
    } else if (words[i] == "--get" && i + 1 < words.size()) {
      options.get = zolt20::FindMember(words[++i]);
      if (options.get == nullptr || options.get->get == nullptr) {
        Complain("there is no property " + words[i] + " to read");
        return std::nullopt;
      }
    } else if (words[i].starts_with("-") || options.file.has_value()) {
      Complain("can't take " + words[i] + "; --help tells the options");
      return std::nullopt;
    } else {
      options.file = words[i];
    }
  }
  return options;
}

int WriteOutline(std::istream& input) {
  const std::string text{std::istreambuf_iterator<char>(input), std::istreambuf_iterator<char>()};
  // The JSON library refuses what is no UTF-8.
  try {
    static_cast<void>(nlohmann::json(text).dump());
  } catch (const nlohmann::json::exception&) {
    return Complain("the text is not in UTF-8");
  }
  const auto outline = zolt20::automation::OutlineOf(zolt20::hosts::FromJsonText(text));
  std::cout << outline.lines << std::flush;
  if (!std::cout.good()) return Complain("the output can't be written");
  return outline.hasProblems ? 1 : 0;
}

std::string FinalValue(Session& session, const Options& options) {
  if (options.get == nullptr) {
    return zolt20::hosts::ToJsonText(session.Control().Form().TxtOutput.Text());
  }
  const zolt20::Variant value = options.get->get(session.Control());
  if (const auto* text = std::get_if<zolt20::String>(&value)) {
    return zolt20::hosts::ToJsonText(*text);
  }
  if (const auto* number = std::get_if<zolt20::Integer>(&value)) {
    return std::to_string(number->value());
  }
  return std::get<bool>(value) ? "true" : "false";
}

int Play(std::istream& input, const Options& options) {
  Session session;
  const bool quiet = options.result || options.get != nullptr;
  std::string line;
  for (long number = 1; std::getline(input, line); ++number) {
    if (Session::IsSkipped(line)) continue;
    const std::string reply = session.Reply(line);
    if (!quiet) {
      std::cout << reply << '\n';
      // Whoever sends the next request may be waiting for this reply.
      if (!options.file.has_value()) std::cout.flush();
    } else if (reply.find("\"ok\":false") != std::string::npos) {
      std::cerr << "line " << number << ": " << reply << "\n";
    }
  }
  if (quiet) {
    try {
      std::cout << FinalValue(session, options);
    } catch (const zolt20::RuntimeError& error) {
      return Complain(std::string("the property can't be read: ") + error.what());
    }
  }
  std::cout.flush();
  return std::cout.good() ? 0 : Complain("the output can't be written");
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> words(argv + 1, argv + argc);
  if (words.size() == 1 && (words[0] == "--help" || words[0] == "-h")) {
    std::cout << kUsage;
    return 0;
  }
  std::ios::sync_with_stdio(false);
  const std::optional<Options> options = ReadOptions(words);
  if (!options.has_value()) return 2;
  const auto run = [&options](std::istream& input) {
    return options->outline ? WriteOutline(input) : Play(input, *options);
  };
  if (!options->file.has_value()) return run(std::cin);
  std::ifstream file(*options->file, std::ios::binary);
  if (!file) return Complain("can't read " + *options->file);
  return run(file);
}
