// The tree of long texts in the statement language.
#include <cstring>
#include <memory>
#include <string>

#include "benchmarks/bars.h"
#include "language/outline.h"

namespace zolt20::bench {
namespace {

// 16 MB of the piece, again and again.
String TextOf(StringView piece) {
  constexpr std::size_t kCharacters = 16'000'000 / sizeof(char16_t);
  String text;
  text.reserve(kCharacters + piece.size());
  while (text.size() < kCharacters)
    text += piece;
  return text;
}

void ReadTheTree(benchmark::State& state, StringView piece) {
  const String text = TextOf(piece);
  const auto work = [&text] {
    ForgetFreeMemory();
    return SecondsOf([&text] { benchmark::DoNotOptimize(language::ReadOutline(text).data()); });
  };
  const auto copy = [&text] {
    ForgetFreeMemory();
    return SecondsOf([&text] {
      const std::unique_ptr<char16_t[]> copied(new char16_t[text.size()]);
      std::memcpy(copied.get(), text.data(), text.size() * sizeof(char16_t));
      benchmark::DoNotOptimize(copied.get());
    });
  };
  Compare(state, Bar::kRatio, 20, work, copy);
}

const int kRegistered = [] {
  const auto add = [](const std::string& name, StringView piece) {
    benchmark::RegisterBenchmark(name.c_str(),
                                 [piece](benchmark::State& state) { ReadTheTree(state, piece); })
        ->UseManualTime()
        ->Iterations(15);
  };
  add("the tree of 16 MB of statements | a copy",
      u"select ORDRLINE.OL_QUANTITY\r\nfrom  ORDRLINE\r\nwhere ORDRLINE.OL_O_ID = :var.order\r\n"
      u"selectdo\r\n\tif :var.lines > 100 then \r\n\t\t:var.size = \"large\"\r\n\telse\r\n"
      u"\t\t:var.lines = :var.lines + 1\r\n\tendif\r\nendselect\r\n");
  add("the tree of 16 MB of nested ifs | a copy", u"if :var.lines > 100 then \r\n");
  return 0;
}();

}  // namespace
}  // namespace zolt20::bench
