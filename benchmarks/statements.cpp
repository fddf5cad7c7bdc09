// The time to compose, store and reopen statements.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>
#include <nlohmann/json.hpp>
#include <numeric>
#include <optional>
#include <random>
#include <utility>
#include <vector>

#include "benchmarks/bars.h"
#include "benchmarks/forms.h"
#include "shell/contract.h"

namespace zolt20::bench {
namespace {

// A stored select list of two fields a table.
double SecondsToReopen(int elements, bool shuffled) {
  const int tables = elements / 2;
  const Lists lists = MakeLists(tables, 3);
  std::vector<int> order(static_cast<std::size_t>(elements));
  std::iota(order.begin(), order.end(), 0);
  if (shuffled) std::shuffle(order.begin(), order.end(), std::mt19937(2));
  String list;
  for (const int element : order) {
    if (!list.empty()) list += u',';
    list += FieldName(element / 2, element % 2);
  }
  SilentHost host;
  ZOLT20MapControl control(host);
  control.PrpStrTables(lists.tables);
  control.PrpStrFields(lists.fields);
  ForgetFreeMemory();
  return SecondsOf([&] { control.prpSelectPart(std::move(list)); });
}

// If shuffled, rows are inserted in the middle and move those behind them.
void ReopenASelectList(benchmark::State& state, bool shuffled) {
  Compare(
      state, Bar::kRatio, shuffled ? 17 : 12, [=] { return SecondsToReopen(10'000, shuffled); },
      [=] { return SecondsToReopen(1000, shuffled); });
}

// The last 1,000 of 10,000 additions against the first 1,000, `add(number)` being one.
template <typename Add>
void AddTenThousand(benchmark::State& state, const Add& add) {
  std::vector<double> firsts;
  std::vector<double> lasts;
  for (auto _ : state) {
    SilentHost host;
    ZOLT20MapControl control(host);
    control.PrpStrTables(MakeLists(1, 10).tables);
    control.PrpStrFields(MakeLists(1, 10).fields);
    control.UserClick(control.Form().lsttables, 0);
    control.UserClick(control.Form().lstFields, 3);
    control.UserClick(control.Form().cmdMoveOne);
    const auto thousand = [&] {
      return SecondsOf([&] {
        for (int i = 0; i < 1000; ++i)
          add(control);
      });
    };
    firsts.push_back(thousand());
    for (int i = 0; i < 8; ++i)
      thousand();
    lasts.push_back(thousand());
    state.SetIterationTime(lasts.back());
    if (host.messages > 0) state.SkipWithError("a statement was refused");
  }
  Report(state, MedianOf(std::move(lasts)) / 1000, MedianOf(std::move(firsts)) / 1000, Bar::kRatio,
         1.5);
}

void AddSelects(benchmark::State& state) {
  AddTenThousand(state,
                 [](ZOLT20MapControl& control) { control.UserClick(control.Form().cmdAddSelect); });
}

// Each condition is an If of its own, closed at once.
void AddConditions(benchmark::State& state) {
  AddTenThousand(state, [](ZOLT20MapControl& control) {
    const Surface& form = control.Form();
    control.UserTab(6);
    control.UserClick(form.optIfThen);
    control.UserType(form.txtCond, u"T0000000.FLD0003 > 0");
    control.UserType(form.txtStmt1, u"x = 1");
    control.UserClick(form.cmdAdd);
    control.UserClick(form.cmdBuild);
  });
}

// 16 MB with a line break every 40 characters.
const String& EncodedText() {
  static const String kText = [] {
    constexpr std::size_t kCharacters = 16'000'000 / sizeof(char16_t);
    String text;
    text.reserve(kCharacters);
    while (text.size() < kCharacters)
      text += u"move CUSTOMER.C_LAST to ORDERS.O_NAME  ~";
    return text;
  }();
  return kText;
}

double CopySeconds(const String& text) {
  ForgetFreeMemory();
  return SecondsOf([&] {
    const std::unique_ptr<char16_t[]> copy(new char16_t[text.size()]);
    std::memcpy(copy.get(), text.data(), text.size() * sizeof(char16_t));
    benchmark::DoNotOptimize(copy.get());
  });
}

void WriteEncodedText(benchmark::State& state, std::string_view property) {
  const Member& member = *FindMember(property);
  SilentHost host;
  const auto work = [&] {
    ZOLT20MapControl control(host);
    Variant text = EncodedText();
    ForgetFreeMemory();
    return SecondsOf([&] { member.let(control, std::move(text)); });
  };
  Compare(state, Bar::kRatio, 4, work, [] { return CopySeconds(EncodedText()); });
}

constexpr int kConditions = 1000;
constexpr int kFields = 50;

// Operand, operator, value and And, a thousand times; the seconds of each. The conditions are those
// of compare/. Empty if the text is not as expected.
std::vector<double> SecondsOfConditions() {
  constexpr std::array<StringView, 6> kOperators{u"=", u"<>", u"<", u"<=", u">", u">="};
  SilentHost host;
  ZOLT20MapControl control(host);
  String fields;
  for (int field = 1; field <= kFields; ++field) {
    if (field > 1) fields += u',';
    fields += u"long*Q*V*R*N*NT1234567.FIELD_NAME_" + ToText(field) + u"*Q*V*R*N*X9";
  }
  control.PrpStrTables(u"T12345670");
  control.PrpStrFields(fields);
  const Surface& form = control.Form();
  control.UserClick(form.lsttables, 0);
  control.UserTab(1);
  control.UserPick(form.cboWhereFields, 0);
  std::vector<int> operatorRows;
  for (const StringView op : kOperators)
    operatorRows.push_back(form.cboOper.LastRowOf(op));

  std::vector<double> seconds;
  String expected;
  for (int i = 0; i < kConditions; ++i) {
    const auto op = static_cast<std::size_t>(i) % kOperators.size();
    const String value = ToText(1000 + i);
    seconds.push_back(SecondsOf([&] {
      control.UserPick(form.cboWhereFields, i % kFields);
      control.UserPick(form.cboOper, operatorRows[op]);
      control.UserType(form.cboWhereFields1, value);
      control.UserClick(form.cmdAnd);
    }));
    if (i > 0) expected += u"\r\nand ";
    expected += u"T1234567.FIELD_NAME_" + ToText(i % kFields + 1) + u" ";
    expected += kOperators[op];
    expected += (i == 0 ? u" " : u"  ") + value;
  }
  if (form.txtwhereCondition.Text() != expected) seconds.clear();
  return seconds;
}

constexpr const char* kWrongConditions = "the where text is not that of the conditions";

void ApplyConditions(benchmark::State& state, Bar kind, double bar) {
  std::vector<double> medians;
  std::vector<double> firsts;
  for (auto _ : state) {
    const std::vector<double> seconds = SecondsOfConditions();
    if (seconds.empty()) return state.SkipWithError(kWrongConditions);
    medians.push_back(MedianOf(seconds));
    firsts.push_back(MedianOf({seconds.begin(), seconds.begin() + 100}));
    state.SetIterationTime(medians.back());
  }
  Report(state, MedianOf(std::move(medians)), MedianOf(std::move(firsts)), kind, bar);
}

// An If within an If, a hundred deep, by gestures on the Condition page, and the text for them; its
// seconds. The page itself nests a dozen, so each If is built with the text of the one before as
// its statement, as by one composer within another. Nothing when the text isn't what it should be.
std::optional<double> SecondsOfNesting() {
  constexpr int kDepth = 100;
  SilentHost host;
  ZOLT20MapControl control(host);
  const Surface& form = control.Form();
  control.UserTab(6);
  String text;
  const double seconds = SecondsOf([&] {
    for (int depth = 0; depth < kDepth; ++depth) {
      control.UserClick(form.optIfThen);
      control.UserType(form.txtCond, u"item");
      control.UserType(form.txtStmt1, text);
      control.UserClick(form.cmdAdd);
      control.UserClick(form.cmdBuild);
      text = form.TxtOutput.Text();
      control.UserClick(form.cmdClear);
      control.UserType(form.TxtOutput, {});
    }
  });
  int closed = 0;
  for (std::size_t at = text.find(u"endif"); at != String::npos; at = text.find(u"endif", at + 1))
    ++closed;
  if (closed != kDepth || host.messages > 0) return std::nullopt;
  return seconds;
}

void NestWith(benchmark::State& state, double theirs) {
  std::vector<double> each;
  for (auto _ : state) {
    const std::optional<double> seconds = SecondsOfNesting();
    if (!seconds) return state.SkipWithError("the text is not that of the blocks");
    each.push_back(*seconds);
    state.SetIterationTime(*seconds);
  }
  Report(state, MedianOf(std::move(each)), theirs, Bar::kRatio, 1);
}

// The figures of another package, from its line of JSON.
struct Other {
  std::string package;
  double seconds;  // of all additions, or of the nesting, and the text for them
  bool nests;
};

std::vector<Other> Others() {
  std::vector<Other> others;
  const char* path = std::getenv("ZOLT20_COMPARE");
  if (path == nullptr) return others;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    const auto told = nlohmann::json::parse(line);
    const bool nests = told.contains("nested_ms");
    const double milliseconds =
        nests ? told.at("nested_ms").get<double>()
              : told.at("add_total_ms").get<double>() + told.at("text_ms").get<double>();
    others.push_back(
        {told.at("package").get<std::string>() + " " + told.at("version").get<std::string>(),
         milliseconds * 1e-3, nests});
  }
  return others;
}

// The time for all conditions and their text; the yardstick is the other package's time.
void CompareWith(benchmark::State& state, double seconds) {
  std::vector<double> totals;
  for (auto _ : state) {
    const std::vector<double> each = SecondsOfConditions();
    if (each.empty()) return state.SkipWithError(kWrongConditions);
    totals.push_back(std::accumulate(each.begin(), each.end(), 0.0));
    state.SetIterationTime(totals.back());
  }
  Report(state, MedianOf(std::move(totals)), seconds, Bar::kRatio, 0);
}

// The yardstick: allocate and write as many bytes as the control has.
void CreateAControl(benchmark::State& state) {
  SilentHost host;
  Compare(
      state, Bar::kFigure, 100e-6,
      [&] {
        return SecondsOf([&] {
          ZOLT20MapControl control(host);
          control.UserControl_InitProperties();
          benchmark::DoNotOptimize(&control);
        });
      },
      [] {
        return SecondsOf([] {
          const std::unique_ptr<char[]> memory(new char[sizeof(ZOLT20MapControl)]);
          std::memset(memory.get(), 0, sizeof(ZOLT20MapControl));
          benchmark::DoNotOptimize(memory.get());
        });
      });
}

const int kRegistered = [] {
  const auto add = [](const std::string& name, auto function, int iterations) {
    benchmark::RegisterBenchmark(name.c_str(), function)->UseManualTime()->Iterations(iterations);
  };
  add(
      "prpSelectPart, sorted: 10,000 elements | 1,000",
      [](benchmark::State& state) { ReopenASelectList(state, false); }, 9);
  add(
      "prpSelectPart, shuffled: 10,000 elements | 1,000",
      [](benchmark::State& state) { ReopenASelectList(state, true); }, 9);
  add("select statements added: the last 1,000 | the first 1,000", AddSelects, 5);
  add("if statements added and built: the last 1,000 | the first 1,000", AddConditions, 5);
  for (const char* property : {"prpStroutput", "prpSelectWherePart", "prpSelectDoPart",
                               "prpSelectEOSPart", "prpSelectEmptyPart", "prpSelectErrorPart"}) {
    add(
        std::string(property) + " of 16 MB | a copy",
        [=](benchmark::State& state) { WriteEncodedText(state, property); }, 15);
  }
  add(
      "1,000 conditions by gestures, each | each of the first 100",
      [](benchmark::State& state) { ApplyConditions(state, Bar::kFigure, 15e-6); }, 11);
  add(
      "1,000 conditions by gestures, each | each of the first 100, ratio",
      [](benchmark::State& state) { ApplyConditions(state, Bar::kRatio, 5); }, 11);
  for (const Other& other : Others()) {
    if (other.nests) {
      add(
          "100 nested ifs and their text | " + other.package,
          [=](benchmark::State& state) { NestWith(state, other.seconds); }, 11);
      continue;
    }
    add(
        "1,000 conditions and their text | " + other.package,
        [=](benchmark::State& state) { CompareWith(state, other.seconds); }, 11);
  }
  add("a control created and destroyed | its bytes written", CreateAControl, 1001);
  return 0;
}();

}  // namespace
}  // namespace zolt20::bench
