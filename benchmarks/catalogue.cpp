// Catalogues of a million records: time to write them, to click, to read back, and their memory.
#include <malloc.h>

#include <cstring>
#include <memory>
#include <numeric>
#include <string>
#include <utility>

#include "benchmarks/bars.h"
#include "benchmarks/forms.h"

namespace zolt20::bench {
namespace {

// The yardstick: copies the bytes into fresh memory.
double CopySeconds(const String& text) {
  ForgetFreeMemory();
  return SecondsOf([&] {
    const std::unique_ptr<char16_t[]> copy(new char16_t[text.size()]);
    std::memcpy(copy.get(), text.data(), text.size() * sizeof(char16_t));
    benchmark::DoNotOptimize(copy.get());
  });
}

// The time from the write of the fields, which the control copies, through the first click.
void FieldsUpToTheFirstClick(benchmark::State& state, bool shuffled, double bar) {
  const Lists& lists = MillionRecords(shuffled);
  SilentHost host;
  const auto work = [&] {
    ZOLT20MapControl control(host);
    control.PrpStrTables(lists.tables);
    ForgetFreeMemory();
    return SecondsOf([&] {
      control.PrpStrFields(lists.fields);
      control.UserClick(control.Form().lsttables, 7);
    });
  };
  Compare(state, Bar::kRatio, bar, work, [&] { return CopySeconds(lists.fields); });
}

// Times a click that marks a table of 50 fields, and one that unmarks it.
class Clicks {
 public:
  explicit Clicks(const Lists& lists) : control_(host_) {
    control_.PrpStrTables(lists.tables);
    control_.PrpStrFields(lists.fields);
  }
  double Mark() {
    return SecondsOf([&] { control_.UserClick(control_.Form().lsttables, 7); });
  }

 private:
  SilentHost host_;
  ZOLT20MapControl control_;
};

void ClickThatMarks(benchmark::State& state) {
  Clicks large(MillionRecords(false));
  Clicks small(ThousandRecords());
  const auto marking = [](Clicks& clicks) {
    const double seconds = clicks.Mark();
    clicks.Mark();
    return seconds;
  };
  Compare(
      state, Bar::kRatio, 1.5, [&] { return marking(large); }, [&] { return marking(small); });
}

void ClickThatUnmarks(benchmark::State& state) {
  Clicks large(MillionRecords(false));
  Clicks small(ThousandRecords());
  const auto unmarking = [](Clicks& clicks) {
    clicks.Mark();
    return clicks.Mark();
  };
  Compare(
      state, Bar::kRatio, 1.5, [&] { return unmarking(large); }, [&] { return unmarking(small); });
}

double SecondsToClear(int tables, int fields) {
  const Lists lists = MakeLists(tables, fields);
  SilentHost host;
  ZOLT20MapControl control(host);
  control.PrpStrTables(lists.tables);
  control.PrpStrFields(lists.fields);
  for (int table = 0; table < tables; ++table)
    control.UserClick(control.Form().lsttables, table);
  ForgetFreeMemory();
  return SecondsOf([&] { control.ClearAll(0); });
}

void ClearAllOfMarkedTables(benchmark::State& state) {
  Compare(
      state, Bar::kRatio, 4.6, [] { return SecondsToClear(200, 200); },
      [] { return SecondsToClear(100, 100); });
}

// Reads a select list of 1,000 items back from a statement.
class ReadBack {
 public:
  ReadBack(const Lists& lists, bool wholeTables) : control_(host_) {
    control_.PrpStrTables(lists.tables);
    control_.PrpStrFields(lists.fields);
    String statement = u"select ";
    for (int item = 0; item < 1000; ++item) {
      if (item > 0) statement += u',';
      statement += wholeTables ? TableName(item % 20) + u".*" : FieldName(item % 20, item / 20);
    }
    control_.prpStroutput(statement + u"~from  T0000000~endselect");
  }
  double Get() {
    return SecondsOf([&] { benchmark::DoNotOptimize(control_.prpstrSelectedFields()); });
  }

 private:
  SilentHost host_;
  ZOLT20MapControl control_;
};

void ReadSelectedFields(benchmark::State& state, bool wholeTables) {
  ReadBack large(MillionRecords(false), wholeTables);
  ReadBack small(ThousandRecords(), wholeTables);
  Compare(
      state, Bar::kRatio, 3, [&] { return large.Get(); }, [&] { return small.Get(); });
}

// The yardstick: one pass over all characters of a text.
double PassSeconds(const String& text) {
  return SecondsOf(
      [&] { benchmark::DoNotOptimize(std::accumulate(text.begin(), text.end(), std::size_t{0})); });
}

// The first read of a whole table scans all records.
void ReadAWholeTableFirst(benchmark::State& state) {
  const Lists& lists = MillionRecords(false);
  const auto work = [&] { return ReadBack(lists, true).Get(); };
  Compare(state, Bar::kRatio, 4, work, [&] { return PassSeconds(lists.fields); });
}

// The bytes that are allocated at the moment.
std::size_t LiveBytes() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

void MemoryOfTheCatalogue(benchmark::State& state) {
  const Lists& lists = MillionRecords(false);
  const auto bytes = static_cast<double>(lists.fields.size() * sizeof(char16_t));
  SilentHost host;
  double kept = 0;
  for (auto _ : state) {
    ZOLT20MapControl control(host);
    control.PrpStrTables(lists.tables);
    const std::size_t before = LiveBytes();
    control.PrpStrFields(lists.fields);
    kept = static_cast<double>(LiveBytes() - before);
    state.SetIterationTime(1);
  }
  constexpr double kMegabyte = 1e6;
  Report(state, kept / kMegabyte, bytes / kMegabyte, Bar::kRatio, 1.5, "MB");
}

const int kRegistered = [] {
  const auto add = [](const char* name, auto function, int iterations) {
    benchmark::RegisterBenchmark(name, function)->UseManualTime()->Iterations(iterations);
  };
  add(
      "1,000,000 records to the first click, grouped | a copy",
      [](benchmark::State& state) { FieldsUpToTheFirstClick(state, false, 1.5); }, 9);
  add(
      "1,000,000 records to the first click, shuffled | a copy",
      [](benchmark::State& state) { FieldsUpToTheFirstClick(state, true, 2.2); }, 9);
  add("a click that marks: 1,000,000 records | 1,000", ClickThatMarks, 1001);
  add("a click that unmarks: 1,000,000 records | 1,000", ClickThatUnmarks, 1001);
  add("ClearAll(0): 200 tables of 200 marked | 100 of 100", ClearAllOfMarkedTables, 9);
  add(
      "1,000 fields read back: 1,000,000 records | 1,000",
      [](benchmark::State& state) { ReadSelectedFields(state, false); }, 21);
  add(
      "1,000 whole tables read back: 1,000,000 records | 1,000",
      [](benchmark::State& state) { ReadSelectedFields(state, true); }, 5);
  add("whole tables read back first, 1,000,000 records | a pass", ReadAWholeTableFirst, 9);
  add("memory of 1,000,000 records | their string", MemoryOfTheCatalogue, 1);
  return 0;
}();

}  // namespace
}  // namespace zolt20::bench

int main(int argc, char** argv) {
  return zolt20::bench::Run(argc, argv);
}
