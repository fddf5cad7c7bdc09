// Memory that is allocated: by a control, by the steps of Undo, by nested controls.
#include <malloc.h>

#include <functional>
#include <memory>
#include <vector>

#include "benchmarks/bars.h"
#include "benchmarks/forms.h"
#include "faces/shared/person.h"

namespace zolt20::bench {
namespace {

double LiveBytes() {
  const struct mallinfo2 info = mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd);
}

// The growth of allocated bytes by the work.
double BytesOf(const std::function<void()>& work) {
  const double before = LiveBytes();
  work();
  return LiveBytes() - before;
}

void ReportBytes(benchmark::State& state, double figure, double yardstick, Bar kind, double bar) {
  for (auto _ : state)
    state.SetIterationTime(1);
  constexpr double kKilobyte = 1000;
  Report(state, figure / kKilobyte, yardstick / kKilobyte, kind, bar, "kB");
}

struct Composer {
  SilentHost host;
  ZOLT20MapControl control{host};
};

void AControl(benchmark::State& state) {
  std::unique_ptr<Composer> composer;
  // The first composer makes the data that all composers share.
  { const Composer first; }
  const double bytes = BytesOf([&] { composer = std::make_unique<Composer>(); });
  ReportBytes(state, bytes, sizeof(Composer), Bar::kRatio, 2);
}

void StepsOfUndo(benchmark::State& state) {
  constexpr int kRows = 100'000;
  constexpr int kSteps = 200;
  Composer composer;
  const Lists lists = MakeLists(1, kRows, false);
  composer.control.PrpStrTables(lists.tables);
  composer.control.PrpStrFields(lists.fields);
  faces::Person person(composer.control);
  const Surface& form = composer.control.Form();
  const auto click = [&](const Control& list, int row) {
    return person.Make({Gesture::kClickRow, &list, row}) == faces::End::kDone;
  };
  bool isMade = true;
  const double rows = BytesOf([&] { isMade = click(form.lsttables, 0); });
  const double steps = BytesOf([&] {
    for (int step = 0; step < kSteps; ++step)
      isMade = click(form.lstFields, step * 400) && isMade;
  });
  if (!isMade || form.lstFields.ListCount() < kRows) state.SkipWithError("the rows are not there");
  ReportBytes(state, steps, rows, Bar::kRatio, 3);
}

void TenWithACatalogue(benchmark::State& state) {
  const Lists lists = MakeLists(2'000, 50, false);
  std::vector<std::unique_ptr<Composer>> composers;
  const auto open = [&] {
    composers.push_back(std::make_unique<Composer>());
    composers.back()->control.PrpStrTables(lists.tables);
    composers.back()->control.PrpStrFields(lists.fields);
  };
  const double one = BytesOf(open);
  const double ten = one + BytesOf([&] {
                       for (int further = 0; further < 9; ++further)
                         open();
                     });
  ReportBytes(state, ten, one, Bar::kRatio, 10.5);
}

const int kRegistered = [] {
  const auto add = [](const char* name, auto function) {
    benchmark::RegisterBenchmark(name, function)->UseManualTime()->Iterations(1);
  };
  add("memory of a control without a catalogue | its object", AControl);
  add("memory of 200 steps back with 100,000 rows | of those rows", StepsOfUndo);
  add("memory of ten controls with 100,000 records | of one", TenWithACatalogue);
  return 0;
}();

}  // namespace
}  // namespace zolt20::bench
