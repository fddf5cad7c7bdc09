// What the control costs. Each figure stands beside its yardstick, measured in the same run, so
// that the ratio counts and not the machine.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "shell/control.h"

namespace {

using zolt20::String;
using zolt20::ZOLT20MapControl;

class SilentHost final : public zolt20::ControlHost {
 public:
  void eventCancel() override {}
  void eventDone() override {}
  void eventSubQuery() override {}
  void eventCondition() override {}
  void eventFunction() override {}
  void PropertyChanged(std::string_view) override {}
  void ShowMessage(const zolt20::Message&) override {}
};

String Digits(int number, std::size_t width) {
  const std::string digits = std::to_string(number);
  String text(width - digits.size(), u'0');
  text.append(digits.begin(), digits.end());
  return text;
}

constexpr int kFieldsOfTable = 50;

struct Lists {
  String tables;
  String fields;
};

// Records of about 45 characters, 50 to a table, grouped by table or shuffled.
Lists MakeLists(int records, bool shuffled) {
  std::vector<String> all;
  Lists lists;
  for (int i = 0; i < records; ++i) {
    const String table = u"T" + Digits(i / kFieldsOfTable, 7);
    if (i % kFieldsOfTable == 0) lists.tables += table + u"2,";
    all.push_back(u"long*Q*V*R*N*N" + table + u".FLD" + Digits(i % kFieldsOfTable, 4) +
                  u"*Q*V*R*N*" + u"X9");
  }
  if (shuffled) std::shuffle(all.begin(), all.end(), std::mt19937(1));
  for (const String& record : all) {
    if (!lists.fields.empty()) lists.fields += u',';
    lists.fields += record;
  }
  lists.tables.pop_back();
  return lists;
}

const Lists& ListsOf(int records, bool shuffled) {
  static const Lists kSmall = MakeLists(1000, false);
  static const Lists kGrouped = MakeLists(1'000'000, false);
  static const Lists kShuffled = MakeLists(1'000'000, true);
  if (records == 1000) return kSmall;
  return shuffled ? kShuffled : kGrouped;
}

// The yardstick of the lists: the same bytes into fresh memory.
void CopyOfTheFields(benchmark::State& state) {
  const String& fields = ListsOf(1'000'000, state.range(0) != 0).fields;
  for (auto _ : state) {
    const std::unique_ptr<char16_t[]> copy(new char16_t[fields.size()]);
    std::memcpy(copy.get(), fields.data(), fields.size() * sizeof(char16_t));
    benchmark::DoNotOptimize(copy.get());
  }
}
BENCHMARK(CopyOfTheFields)->ArgName("shuffled")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void FieldsUpToTheFirstClick(benchmark::State& state) {
  const Lists& lists = ListsOf(1'000'000, state.range(0) != 0);
  SilentHost host;
  for (auto _ : state) {
    state.PauseTiming();
    auto control = std::make_unique<ZOLT20MapControl>(host);
    control->PrpStrTables(lists.tables);
    String fields = lists.fields;
    state.ResumeTiming();
    control->PrpStrFields(std::move(fields));
    control->UserClick(control->Form().lsttables, 7);
    state.PauseTiming();
    control.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(FieldsUpToTheFirstClick)
    ->ArgName("shuffled")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond);

// The same work on catalogues of any size.
void MarkAndUnmarkATable(benchmark::State& state) {
  const Lists& lists = ListsOf(static_cast<int>(state.range(0)), false);
  SilentHost host;
  ZOLT20MapControl control(host);
  control.PrpStrTables(lists.tables);
  control.PrpStrFields(lists.fields);
  for (auto _ : state) {
    control.UserClick(control.Form().lsttables, 7);
    control.UserClick(control.Form().lsttables, 7);
  }
}
BENCHMARK(MarkAndUnmarkATable)->ArgName("records")->Arg(1000)->Arg(1'000'000);

void CreateAControl(benchmark::State& state) {
  SilentHost host;
  for (auto _ : state) {
    ZOLT20MapControl control(host);
    control.UserControl_InitProperties();
    benchmark::DoNotOptimize(&control);
  }
}
BENCHMARK(CreateAControl)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
