#include "benchmarks/forms.h"

#include <algorithm>
#include <random>
#include <vector>

namespace zolt20::bench {
namespace {

String Digits(int number, std::size_t width) {
  const std::string digits = std::to_string(number);
  String text(width - std::min(width, digits.size()), u'0');
  text.append(digits.begin(), digits.end());
  return text;
}

constexpr int kFieldsOfTable = 50;

}  // namespace

String TableName(int table) {
  return u"T" + Digits(table, 7);
}

String FieldName(int table, int field) {
  return TableName(table) + u".FLD" + Digits(field, 4);
}

Lists MakeLists(int tables, int fieldsOfTable, bool shuffled) {
  std::vector<String> records;
  Lists lists;
  for (int table = 0; table < tables; ++table) {
    if (table > 0) lists.tables += u',';
    lists.tables += TableName(table) + u"2";
    for (int field = 0; field < fieldsOfTable; ++field) {
      records.push_back(u"long*Q*V*R*N*N" + FieldName(table, field) + u"*Q*V*R*N*X9");
    }
  }
  if (shuffled) std::shuffle(records.begin(), records.end(), std::mt19937(1));
  std::size_t characters = 0;
  for (const String& record : records)
    characters += record.size() + 1;
  lists.fields.reserve(characters);
  for (const String& record : records) {
    if (!lists.fields.empty()) lists.fields += u',';
    lists.fields += record;
  }
  return lists;
}

const Lists& MillionRecords(bool shuffled) {
  static const Lists kGrouped = MakeLists(1'000'000 / kFieldsOfTable, kFieldsOfTable, false);
  static const Lists kShuffled = MakeLists(1'000'000 / kFieldsOfTable, kFieldsOfTable, true);
  return shuffled ? kShuffled : kGrouped;
}

const Lists& ThousandRecords() {
  static const Lists kLists = MakeLists(1000 / kFieldsOfTable, kFieldsOfTable, false);
  return kLists;
}

}  // namespace zolt20::bench
