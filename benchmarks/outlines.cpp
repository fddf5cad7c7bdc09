// The time to parse and to check long texts in the statement language.
#include <cstring>
#include <functional>
#include <memory>
#include <string>

#include "benchmarks/bars.h"
#include "language/check.h"
#include "language/outline.h"

namespace zolt20::bench {
namespace {

// 16 MB of repetitions of the piece.
String TextOf(StringView piece) {
  constexpr std::size_t kCharacters = 16'000'000 / sizeof(char16_t);
  String text;
  text.reserve(kCharacters + piece.size());
  while (text.size() < kCharacters)
    text += piece;
  return text;
}

void HoldAgainstACopy(benchmark::State& state, double most, StringView piece,
                      const std::function<void(StringView)>& read) {
  const String text = TextOf(piece);
  const auto work = [&] {
    ForgetFreeMemory();
    return SecondsOf([&] { read(text); });
  };
  const auto copy = [&text] {
    ForgetFreeMemory();
    return SecondsOf([&text] {
      const std::unique_ptr<char16_t[]> copied(new char16_t[text.size()]);
      std::memcpy(copied.get(), text.data(), text.size() * sizeof(char16_t));
      benchmark::DoNotOptimize(copied.get());
    });
  };
  Compare(state, Bar::kRatio, most, work, copy);
}

void ReadTheTree(StringView text) {
  benchmark::DoNotOptimize(language::ReadOutline(text).data());
}

// A check, with parsing and with a catalogue.
void CheckIt(StringView text) {
  const language::Names names(u"ORDRLINE1",
                              u"long*Q*V*R*N*NORDRLINE.OL_QUANTITY,long*Q*V*R*N*NORDRLINE.OL_O_ID");
  benchmark::DoNotOptimize(language::Check(text, &names).data());
}

const int kRegistered = [] {
  const auto add = [](const std::string& name, double most, StringView piece, auto read) {
    benchmark::RegisterBenchmark(
        name.c_str(), [=](benchmark::State& state) { HoldAgainstACopy(state, most, piece, read); })
        ->UseManualTime()
        ->Iterations(15);
  };
  constexpr StringView kStatements =
      u"select ORDRLINE.OL_QUANTITY\r\nfrom  ORDRLINE\r\nwhere ORDRLINE.OL_O_ID = :var.order\r\n"
      u"selectdo\r\n\tif :var.lines > 100 then \r\n\t\t:var.size = \"large\"\r\n\telse\r\n"
      u"\t\t:var.lines = :var.lines + 1\r\n\tendif\r\nendselect\r\n";
  constexpr StringView kIf = u"if :var.lines > 100 then \r\n";
  add("the tree of 16 MB of statements | a copy", 20, kStatements, ReadTheTree);
  add("the tree of 16 MB of nested ifs | a copy", 20, kIf, ReadTheTree);
  add("a check of 16 MB of statements | a copy", 25, kStatements, CheckIt);
  add("a check of 16 MB of nested ifs | a copy", 25, kIf, CheckIt);
  return 0;
}();

}  // namespace
}  // namespace zolt20::bench
