#include "hosts/kit/found_tables.h"

#include <algorithm>
#include <utility>

#include "hosts/kit/text_coding.h"

namespace zolt20::catalogue {
namespace {

// A text without lone surrogates in UTF-8.
std::string Utf8(StringView text) {
  return hosts::TakeStandIns(hosts::ToJsonText(text));
}

// Why a table or column has no usable name, "" when it has one.
std::string WhyNoName(const StoredText& name) {
  if (name.text.empty()) return "it has no name";
  if (!name.isExact) return "its name is no valid text";
  return {};
}

std::string WhyNoColumn(const StoredText& name) {
  std::string reason = WhyNoName(name);
  if (!reason.empty()) return reason;
  const std::string notListed = WhyNotListed(name.text);
  return notListed.empty() ? std::string() : "its name " + notListed;
}

// The declared type as the text of a field, with "." for each comma.
String DeclaredText(const StoredText& declared, const std::string& column,
                    std::vector<std::string>& leftOut) {
  String text = Replace(declared.text, u",", u".");
  const std::string reason = declared.isExact ? WhyNotListed(text) : "is no valid text";
  if (reason.empty()) return text;
  leftOut.push_back(column + " comes without its declared type, which " + reason);
  return {};
}

std::vector<Field> FieldsOf(const FoundTable& found, std::vector<std::string>& leftOut) {
  std::vector<Field> fields;
  for (const FoundColumn& each : found.columns) {
    std::string column = "column ";
    column.append(Utf8(found.name.text)).append(".").append(Utf8(each.name.text));
    const std::string reason = WhyNoColumn(each.name);
    if (!reason.empty()) {
      leftOut.push_back(column.append(" is left out: ").append(reason));
      continue;
    }
    Field field;
    field.name = each.name.text;
    field.type = each.word;
    field.flagged = field.type == u"date";
    field.text = DeclaredText(each.declared, column, leftOut);
    fields.push_back(std::move(field));
  }
  return fields;
}

}  // namespace

void AddTable(DatabaseCatalogue& result, const FoundTable& found) {
  Table table;
  table.name = found.name.text;
  table.indexes = std::clamp<std::int64_t>(found.indexes, 0, Integer::kGreatest);
  std::string reason = WhyNoName(found.name);
  if (reason.empty()) reason = found.unreadable;
  if (reason.empty()) table.fields = FieldsOf(found, result.leftOut);
  if (reason.empty() && table.fields.empty()) reason = "no column of it is left";
  if (reason.empty()) {
    result.catalogue.tables.push_back(std::move(table));
  } else {
    result.leftOut.push_back(found.kind + " " + Utf8(found.name.text) + " is left out: " + reason);
  }
}

}  // namespace zolt20::catalogue
