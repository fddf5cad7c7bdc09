// Hosts and catalogues for the benchmarks.
#pragma once

#include <string>
#include <string_view>

#include "shell/control.h"

namespace zolt20::bench {

class SilentHost final : public ControlHost {
 public:
  void eventCancel() override {}
  void eventDone() override {}
  void eventSubQuery() override {}
  void eventCondition() override {}
  void eventFunction() override {}
  void PropertyChanged(std::string_view /*property*/) override {}
  void ShowMessage(const Message& /*message*/) override { ++messages; }

  int messages = 0;
};

struct Lists {
  String tables;
  String fields;
};

/// "T" and seven digits.
String TableName(int table);
/// Field of table, qualified.
String FieldName(int table, int field);

/// Records of about 45 characters, `fieldsOfTable` for each table, and two index rows a table; in
/// the order of the tables, or shuffled.
Lists MakeLists(int tables, int fieldsOfTable, bool shuffled = false);
/// 1,000,000 records, 50 for each table. Made once.
const Lists& MillionRecords(bool shuffled);
/// 1,000 of the same, made once.
const Lists& ThousandRecords();

}  // namespace zolt20::bench
