// Renaming in all rules of a file; the yardstick is reading that file.
#include <string>
#include <vector>

#include "benchmarks/bars.h"
#include "hosts/kit/rules_changes.h"
#include "hosts/kit/rules_text.h"

namespace zolt20::bench {
namespace {

constexpr int kRules = 5000;

// Rules with one former version each, and six places of the two names that change.
std::string FileOfRules() {
  constexpr StringView kText =
      u"select CUSTOMER.C_LAST,ORDRLINE.OL_QUANTITY\r\nfrom  CUSTOMER,ORDRLINE\r\n"
      u"where CUSTOMER.C_LAST = \"BAR\"\r\nand ORDRLINE.OL_O_ID = :var.order\r\nselectdo\r\n"
      u"\tif ORDRLINE.OL_QUANTITY > 100 then \r\n\t\t:var.size = \"large\"\r\n\telse\r\n"
      u"\t\t:var.lines = :var.lines + 1\r\n\tendif\r\nendselect\r\n";
  rules::RulesContent content;
  for (int i = 0; i < kRules; ++i) {
    const std::string name = "rule " + std::to_string(i);
    content.rules.push_back({String(name.begin(), name.end()), String(kText), u""});
    content.extras.emplace_back();
    content.extras.back().versions.Add(rules::KeptVersion({String(kText), u"", u""}));
  }
  return rules::WriteContent(content);
}

void RenameInAll(benchmark::State& state) {
  const std::string file = FileOfRules();
  const language::Renames renames{{u"CUSTOMER.C_LAST", u"CUSTOMER.C_LASTNAME"},
                                  {u"ORDRLINE", u"LINES___"}};
  rules::NameLists lists;
  for (const auto& [before, after] : renames) {
    lists.Add(before);
    lists.Add(after);
  }
  const language::Names names(lists.tables, lists.fields);
  const auto read = [&file] {
    return SecondsOf(
        [&file] { benchmark::DoNotOptimize(rules::ReadContent(file, "FILE").rules.data()); });
  };
  const auto rename = [&] {
    rules::RulesContent content = rules::ReadContent(file, "FILE");
    return SecondsOf([&] {
      const std::vector<rules::Change> changes = rules::FindChanges(content, renames, names);
      if (!rules::FindMerged(content, changes, names).empty())
        state.SkipWithError("two names become one");
      rules::MakeChanges(content, changes, names, u"2026-01-31T09:30:00Z");
      benchmark::DoNotOptimize(rules::WriteContent(content).data());
    });
  };
  Compare(state, Bar::kRatio, 4, rename, read);
}

BENCHMARK(RenameInAll)
    ->Name("5,000 rules with new names | reading their file")
    ->UseManualTime()
    ->Iterations(7);

}  // namespace
}  // namespace zolt20::bench
