// zolt20-host: the control with a host that is driven by text.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "hosts/automation/check_lines.h"
#include "hosts/automation/opening_lines.h"
#include "hosts/automation/outline_lines.h"
#include "hosts/automation/rules_commands.h"
#include "hosts/automation/session.h"
#include "hosts/kit/catalogue.h"
#include "hosts/kit/text_coding.h"

namespace {

using zolt20::automation::Session;

constexpr const char* kUsage =
    "usage: zolt20-host [--result | --get PROPERTY] [FILE.jsonl]\n"
    "       zolt20-host --outline [FILE]\n"
    "       zolt20-host --check [--json] [--catalogue CATALOGUE] [FILE]\n"
    "       zolt20-host --explain [FILE]\n"
    "       zolt20-host --open --catalogue CATALOGUE [FILE]\n"
    "       zolt20-host --uses [--json] [--catalogue CATALOGUE] RULES [NAME]\n"
    "       zolt20-host --rename OLD=NEW... [--dry-run] [--merge] [--in-statements]\n"
    "                   [--in-strings] [--in-notes] [--catalogue CATALOGUE] RULES\n"
    "\n"
    "Reads requests, one JSON object a line, from FILE or from standard input, and writes\n"
    "one reply a line.\n"
    "\n"
    "  --result        write the final Result text and no replies\n"
    "  --get PROPERTY  write the final value of the property and no replies\n"
    "\n"
    "With either of the two, a request that fails is told on standard error with its line.\n"
    "\n"
    "The others read a text of the statement language in place of requests.\n"
    "\n"
    "  --outline       write its tree, one JSON object a node; end with 1 when a node has a "
    "problem\n"
    "  --check         write what is wrong in it, FILE:LINE:COLUMN: error: text [code]; end with "
    "1\n"
    "                  when there is an error\n"
    "  --json          the same as one JSON object a line\n"
    "  --catalogue CATALOGUE\n"
    "                  look at names too: the catalogue is a JSON file\n"
    "  --explain       write what it does, a sentence a line\n"
    "  --open          write the requests that bring a stored statement back onto the form, and\n"
    "                  what they bring, as one JSON object; end with 1 when that is another text\n"
    "\n"
    "The last two take a file of rules.\n"
    "\n"
    "  --uses          write where tables, fields, indexes and functions stand, or NAME alone;\n"
    "                  with a catalogue what it has not, and end with 1 when there is any\n"
    "  --rename        give new names to tables and fields, TABLE.FIELD, in clauses and "
    "conditions\n"
    "  --dry-run       write the difference and nothing else; end with 1 when there is any\n"
    "  --merge         let two names become one\n"
    "  --in-statements, --in-strings, --in-notes\n"
    "                  change plain statements, quoted texts and notes too\n";

enum class Mode { kPlay, kOutline, kCheck, kExplain, kOpen };

struct Options {
  Mode mode = Mode::kPlay;
  bool result = false;
  bool json = false;
  std::optional<std::string> catalogue;
  const zolt20::Member* get = nullptr;
  std::optional<std::string> file;
};

int Complain(const std::string& complaint) {
  std::cerr << "zolt20-host: " << complaint << "\n";
  return 2;
}

std::optional<Mode> ModeOf(const std::string& word) {
  if (word == "--outline") return Mode::kOutline;
  if (word == "--check") return Mode::kCheck;
  if (word == "--explain") return Mode::kExplain;
  if (word == "--open") return Mode::kOpen;
  return std::nullopt;
}

// nullopt when the words are wrong; the error message is written by then.
std::optional<Options> ReadOptions(const std::vector<std::string>& words) {
  Options options;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i] == "--result") {
      options.result = true;
    } else if (const auto mode = ModeOf(words[i])) {
      options.mode = *mode;
    } else if (words[i] == "--json") {
      options.json = true;
    } else if (words[i] == "--catalogue" && i + 1 < words.size()) {
      options.catalogue = words[++i];
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
  if (options.mode == Mode::kOpen && !options.catalogue.has_value()) {
    Complain("--open needs a --catalogue");
    return std::nullopt;
  }
  const bool takesNames = options.mode == Mode::kCheck || options.mode == Mode::kOpen;
  if ((options.json && options.mode != Mode::kCheck) ||
      (options.catalogue.has_value() && !takesNames)) {
    Complain("--json goes with --check, and --catalogue with that and --open");
    return std::nullopt;
  }
  return options;
}

int End(const std::string& lines, bool isGood) {
  std::cout << lines << std::flush;
  if (!std::cout.good()) return Complain("the output can't be written");
  return isGood ? 0 : 1;
}

// The two lists of the catalogue of --catalogue; nullopt without one, or when it can't be read,
// and the error message is written by then.
std::optional<zolt20::reopen::Catalogue> ReadLists(const Options& options) {
  if (!options.catalogue.has_value()) return std::nullopt;
  try {
    const std::filesystem::path file(*options.catalogue);
    const auto catalogue = zolt20::catalogue::ReadCatalogue(file);
    return zolt20::reopen::Catalogue{TableList(catalogue), FieldList(catalogue)};
  } catch (const zolt20::catalogue::CatalogueError& error) {
    Complain(*options.catalogue + ": " + error.what());
    return std::nullopt;
  }
}

int WriteCheck(zolt20::StringView text, const Options& options,
               const std::optional<zolt20::reopen::Catalogue>& lists) {
  using zolt20::automation::FindingFormat;
  std::optional<zolt20::language::Names> names;
  if (lists.has_value()) names.emplace(lists->tables, lists->fields);
  const auto check =
      zolt20::automation::CheckOf(text, names ? &*names : nullptr,
                                  options.json ? FindingFormat::kJson : FindingFormat::kForPeople,
                                  options.file.value_or("<stdin>"));
  return End(check.lines, !check.hasErrors);
}

// A text of the statement language.
int WriteOf(std::istream& input, const Options& options) {
  const std::string bytes{std::istreambuf_iterator<char>(input), std::istreambuf_iterator<char>()};
  // Validates UTF-8: the JSON library throws for anything else.
  try {
    static_cast<void>(nlohmann::json(bytes).dump());
  } catch (const nlohmann::json::exception&) {
    return Complain("the text is not in UTF-8");
  }
  const zolt20::String text = zolt20::hosts::FromJsonText(bytes);
  const std::optional<zolt20::reopen::Catalogue> lists = ReadLists(options);
  if (options.catalogue.has_value() && !lists.has_value()) return 2;
  if (options.mode == Mode::kCheck) return WriteCheck(text, options, lists);
  if (options.mode == Mode::kOpen) {
    const auto opening = zolt20::automation::OpeningOf(text, *lists);
    return End(opening.line, opening.isEqual);
  }
  if (options.mode == Mode::kExplain) return End(zolt20::automation::ExplanationOf(text), true);
  const auto outline = zolt20::automation::OutlineOf(text);
  return End(outline.lines, !outline.hasProblems);
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
    std::string reply = session.Reply(line);
    if (!quiet) {
      reply += '\n';
      std::cout << reply;
      // A program that sends requests may wait for this reply before it sends the next one.
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
  if (zolt20::automation::IsOfRules(words))
    return zolt20::automation::RunOnRules(words, std::cout, std::cerr);
  const std::optional<Options> options = ReadOptions(words);
  if (!options.has_value()) return 2;
  const auto run = [&options](std::istream& input) {
    return options->mode == Mode::kPlay ? Play(input, *options) : WriteOf(input, *options);
  };
  if (!options->file.has_value()) return run(std::cin);
  std::ifstream file(*options->file, std::ios::binary);
  if (!file) return Complain("can't read " + *options->file);
  return run(file);
}
