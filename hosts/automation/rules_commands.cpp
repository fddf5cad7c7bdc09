#include "hosts/automation/rules_commands.h"

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <stdexcept>

#include "hosts/automation/rename_lines.h"
#include "hosts/automation/uses_lines.h"
#include "hosts/kit/catalogue.h"
#include "hosts/kit/rules_changes.h"
#include "hosts/kit/rules_place.h"
#include "hosts/kit/text_coding.h"

namespace zolt20::automation {
namespace {

// The words of the command line are wrong.
class WordsError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Options {
  bool renames = false;
  bool json = false;
  bool dryRun = false;
  bool merge = false;
  RenamedPlaces places;
  std::optional<std::string> catalogue;
  std::vector<std::string> names;
  std::string file;
};

bool* SwitchOf(Options& options, const std::string& word) {
  if (word == "--dry-run") return &options.dryRun;
  if (word == "--merge") return &options.merge;
  if (word == "--in-statements") return &options.places.inStatements;
  if (word == "--in-strings") return &options.places.inStrings;
  if (word == "--in-notes") return &options.places.inNotes;
  return nullptr;
}

void CheckOptions(const Options& options, bool hasSwitch, std::size_t words) {
  if (options.renames && options.json) throw WordsError("--json goes with --uses");
  if (!options.renames && hasSwitch)
    throw WordsError("--dry-run, --merge and --in-... go with --rename");
  if (!options.renames && (words < 1 || words > 2))
    throw WordsError("--uses takes a file of rules and at most one name");
  if (options.renames && words < 2)
    throw WordsError("--rename takes OLD=NEW, once or more often, and a file of rules");
}

Options ReadOptions(const std::vector<std::string>& words) {
  Options options;
  bool hasSwitch = false;
  std::vector<std::string> others;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i] == "--uses" || words[i] == "--rename") {
      options.renames = words[i] == "--rename";
    } else if (bool* const one = SwitchOf(options, words[i])) {
      *one = hasSwitch = true;
    } else if (words[i] == "--json") {
      options.json = true;
    } else if (words[i] == "--catalogue" && i + 1 < words.size()) {
      options.catalogue = words[++i];
    } else if (words[i].starts_with("-")) {
      throw WordsError("can't take " + words[i] + "; --help tells the options");
    } else {
      others.push_back(words[i]);
    }
  }
  CheckOptions(options, hasSwitch, others.size());
  const auto file = options.renames ? others.end() - 1 : others.begin();
  options.file = *file;
  others.erase(file);
  options.names = std::move(others);
  return options;
}

String TextOf(const std::string& word) {
  // Validates UTF-8: the JSON library throws for anything else.
  try {
    static_cast<void>(nlohmann::json(word).dump());
  } catch (const nlohmann::json::exception&) {
    throw WordsError("a name is not in UTF-8");
  }
  return hosts::FromJsonText(word);
}

rules::NameLists ListsOf(const Options& options) {
  if (!options.catalogue.has_value()) return {};
  try {
    const auto catalogue = catalogue::ReadCatalogue(std::filesystem::path(*options.catalogue));
    return {TableList(catalogue), FieldList(catalogue)};
  } catch (const catalogue::CatalogueError& error) {
    throw WordsError(*options.catalogue + ": " + error.what());
  }
}

int TellUses(const Options& options, std::ostream& out) {
  const rules::RulesContent content =
      rules::ReadContent(rules::ReadWhole(options.file), options.file);
  const rules::NameLists lists = ListsOf(options);
  const language::Names names(lists.tables, lists.fields);
  const bool hasCatalogue = options.catalogue.has_value();
  const UseLines uses =
      UsesOf(content, hasCatalogue ? &names : nullptr,
             options.names.empty() ? String() : TextOf(options.names[0]), options.json);
  out << uses.lines;
  return hasCatalogue && uses.count > 0 ? 1 : 0;
}

language::Renames RenamesOf(const Options& options) {
  language::Renames renames;
  for (const std::string& word : options.names) {
    const std::size_t sign = word.find('=');
    if (sign == std::string::npos) throw WordsError(word + " is no OLD=NEW");
    const String before = TextOf(word.substr(0, sign));
    const String after = TextOf(word.substr(sign + 1));
    for (const String& name : {before, after}) {
      const std::string why = rules::WhyNoName(name);
      if (!why.empty()) throw WordsError('"' + hosts::ToJsonText(name) + "\" " + why);
    }
    if (rules::IsField(before) != rules::IsField(after))
      throw WordsError(word + " has a table and a field");
    if (!renames.emplace(before, after).second)
      throw WordsError(word.substr(0, sign) + " is given two new names");
  }
  return renames;
}

int Rename(const Options& options, std::ostream& out) {
  const language::Renames renames = RenamesOf(options);
  std::optional<rules::RulesLock> lock;
  if (!options.dryRun) lock.emplace(options.file);
  rules::RulesContent content = rules::ReadContent(rules::ReadWhole(options.file), options.file);
  rules::NameLists lists = ListsOf(options);
  for (const auto& [before, after] : renames) {
    lists.Add(before);
    lists.Add(after);
  }
  const language::Names names(lists.tables, lists.fields);
  std::vector<rules::Change> changes = rules::FindChanges(content, renames, names);
  Choose(changes, options.places);
  const String merged = options.merge ? String() : FindMerged(content, changes, names);
  if (!merged.empty()) {
    throw WordsError("two names would become " + hosts::ToJsonText(merged) +
                     ", and could not be told apart again; --merge does it");
  }
  const rules::RulesContent before = options.dryRun ? content : rules::RulesContent();
  const std::vector<std::size_t> changed =
      rules::MakeChanges(content, changes, names, rules::TimeNow());
  if (options.dryRun) {
    out << DifferenceOf(before, content);
    return changed.empty() ? 0 : 1;
  }
  if (!changed.empty()) rules::WriteWhole(options.file, rules::WriteContent(content));
  out << RenamesDone(content, changes);
  return 0;
}

}  // namespace

bool IsOfRules(const std::vector<std::string>& words) {
  return std::any_of(words.begin(), words.end(), [](const std::string& word) {
    return word == "--uses" || word == "--rename";
  });
}

int RunOnRules(const std::vector<std::string>& words, std::ostream& out, std::ostream& errors) {
  try {
    const Options options = ReadOptions(words);
    const int status = options.renames ? Rename(options, out) : TellUses(options, out);
    out.flush();
    if (!out.good()) throw WordsError("the output can't be written");
    return status;
  } catch (const std::runtime_error& error) {
    errors << "zolt20-host: " << error.what() << "\n";
    return 2;
  }
}

}  // namespace zolt20::automation
