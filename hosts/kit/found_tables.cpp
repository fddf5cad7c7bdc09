#include "hosts/kit/found_tables.h"

#include <algorithm>
#include <utility>

#include "hosts/kit/text_coding.h"

namespace zolt20::catalogue {
namespace {

using hosts::Message;

// A text without lone surrogates in UTF-8.
std::string Utf8(StringView text) {
  return hosts::TakeStandIns(hosts::ToJsonText(text));
}

// Why a table or column can't be told by its name, empty when it can.
Message WhyNoName(const StoredText& name) {
  if (name.text.empty()) return Message("it has no name");
  if (!name.isExact) return Message("its name is no valid text");
  return {};
}

Message WhyNoColumn(const StoredText& name) {
  Message reason = WhyNoName(name);
  if (!reason.IsEmpty()) return reason;
  const Message notListed = WhyNotListed(name.text);
  return notListed.IsEmpty() ? Message() : Message("its name %1", notListed);
}

// The declared type as the text of a field, with "." for each comma.
String DeclaredText(const StoredText& declared, const std::string& column,
                    std::vector<Message>& leftOut) {
  String text = Replace(declared.text, u",", u".");
  const Message reason = declared.isExact ? WhyNotListed(text) : Message("is no valid text");
  if (reason.IsEmpty()) return text;
  // NOLINTNEXTLINE(modernize-use-emplace): translations are found by the word Message.
  leftOut.push_back(Message("column %1 comes without its declared type, which %2", column, reason));
  return {};
}

std::vector<Field> FieldsOf(const FoundTable& found, std::vector<Message>& leftOut) {
  std::vector<Field> fields;
  for (const FoundColumn& each : found.columns) {
    const std::string column = Utf8(found.name.text) + "." + Utf8(each.name.text);
    const Message reason = WhyNoColumn(each.name);
    if (!reason.IsEmpty()) {
      // NOLINTNEXTLINE(modernize-use-emplace): translations are found by the word Message.
      leftOut.push_back(Message("column %1 is left out: %2", column, reason));
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
  Message reason = WhyNoName(found.name);
  if (reason.IsEmpty()) reason = Message::Of(found.unreadable);
  if (reason.IsEmpty()) table.fields = FieldsOf(found, result.leftOut);
  if (reason.IsEmpty() && table.fields.empty()) reason = Message("no column of it is left");
  if (reason.IsEmpty()) {
    result.catalogue.tables.push_back(std::move(table));
  } else {
    const std::string name = Utf8(found.name.text);
    result.leftOut.push_back(found.kind == "view"
                                 ? Message("view %1 is left out: %2", name, reason)
                                 : Message("table %1 is left out: %2", name, reason));
  }
}

}  // namespace zolt20::catalogue
