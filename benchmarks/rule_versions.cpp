// A file of rules with all their versions; the yardstick is a file of the same rules without.
#include <QFile>
#include <QTemporaryDir>
#include <memory>
#include <string>

#include "benchmarks/bars.h"
#include "hosts/composer/rules_file.h"

namespace zolt20::bench {
namespace {

using composer::RulesFile;

constexpr int kRules = 5000;

String Number(int number) {
  const std::string digits = std::to_string(number);
  return {digits.begin(), digits.end()};
}

class Files {
 public:
  Files() {
    Write(Plain(), 0);
    Write(Full(), static_cast<int>(RulesFile::kVersions));
  }
  QString Plain() const { return folder_.filePath(QStringLiteral("plain.rules")); }
  QString Full() const { return folder_.filePath(QStringLiteral("full.rules")); }

 private:
  static void Write(const QString& path, int versions) {
    RulesFile file = RulesFile::Create(path);
    for (int version = 0; version <= versions; ++version) {
      for (int rule = 0; rule < kRules; ++rule) {
        file.Put(
            {u"Rule " + Number(rule),
             u"select ORDERS__.O_ID,ORDERS__.O_ENTRY_D\r\nfrom  ORDERS__\r\nwhere ORDERS__.O_ID "
             u"= " +
                 Number(version) +
                 u"\r\norder by O_ENTRY_D desc\r\nselectdo\r\n\t:a = \"b\"\r\nendselect",
             u"long*Q*V*R*N*NORDERS__.O_ID*Q*V*R*N*,date*Q*V*R*N*NORDERS__.O_ENTRY_D*Q*V*R*N*"});
      }
    }
    file.Save();
  }

  QTemporaryDir folder_;
};

const Files& TheFiles() {
  static const Files files;
  return files;
}

void OpenRules(benchmark::State& state) {
  const auto open = [](const QString& path) {
    ForgetFreeMemory();
    return SecondsOf([&path] { benchmark::DoNotOptimize(RulesFile::Open(path).rules().size()); });
  };
  Compare(
      state, Bar::kRatio, 5, [&] { return open(TheFiles().Full()); },
      [&] { return open(TheFiles().Plain()); });
}

void StoreARule(benchmark::State& state) {
  int time = 0;
  const auto store = [&time](const QString& path) {
    RulesFile file = RulesFile::Open(path);
    file.Put({u"Rule 1", Number(++time), u""});
    return SecondsOf([&file] { file.Save(); });
  };
  Compare(
      state, Bar::kRatio, 12, [&] { return store(TheFiles().Full()); },
      [&] { return store(TheFiles().Plain()); });
}

const int kRegistered = [] {
  const auto add = [](const char* name, auto function) {
    benchmark::RegisterBenchmark(name, function)->UseManualTime()->Iterations(15);
  };
  add("a file of 5,000 rules is opened: 20 versions each | none", OpenRules);
  add("a rule of 5,000 is stored: 20 versions each | none", StoreARule);
  return 0;
}();

}  // namespace
}  // namespace zolt20::bench
