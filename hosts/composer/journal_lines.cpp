#include "hosts/composer/journal_lines.h"

#include <QCryptographicHash>

#include "faces/qt/qt_text.h"
#include "hosts/kit/text_coding.h"

namespace zolt20::composer {
namespace {

using qt::FromQt;
using qt::ToQt;
using qt::View;
using Json = nlohmann::ordered_json;

constexpr const char* kFormat = "zolt20 journal";
constexpr int kVersion = 1;
constexpr qsizetype kSumLength = 16;
constexpr int kDeepest = 1000;

std::string Utf8(const QString& text) {
  return hosts::ToJsonText(View(text));
}

QString TextOf(const Json& object, const char* key) {
  return ToQt(hosts::FromJsonText(object.at(key).get_ref<const std::string&>()));
}

bool HasKey(const QByteArray& json, const char* key) {
  return json.startsWith(QByteArray("{\"") + key + "\":");
}

JournalHead HeadOf(const Json& head) {
  return {TextOf(head, "rules"),     TextOf(head, "rule"),   TextOf(head, "text"),
          TextOf(head, "catalogue"), TextOf(head, "tables"), TextOf(head, "fields")};
}

// Whether a step changes what is composed. RecordedMap::IsChange decides the same for gestures.
bool IsChange(const QByteArray& json) {
  if (!json.startsWith(R"({"user":)"))
    return HasKey(json, "undo") || HasKey(json, "redo") || HasKey(json, "note");
  const auto isOf = [&json](const char* beginning) { return json.startsWith(beginning); };
  return !isOf(R"({"user":"focus")") && !isOf(R"({"user":"tab")") &&
         !isOf(R"({"user":"click","control":"cmdDone")") &&
         !isOf(R"({"user":"click","control":"cmdCancel")");
}

// Adds one line of the journal to the session; its first line is the head. Returns false for an
// invalid line.
bool Take(KeptSession& session, const JournalLines::Content& content, bool isHead) try {
  const bool isStored = HasKey(content.json, "store");
  if (!isHead && !isStored && !HasKey(content.json, "allStored")) {
    session.isChanged = session.isChanged || IsChange(content.json);
    return session.steps.Add(content.depth, content.json);
  }
  const Json value = FromJsonLine(content.json);
  if (isHead) {
    if (value.at("format") != kFormat || value.at("version") != kVersion) return false;
    session.head = HeadOf(value);
  } else if (isStored) {
    const Json& rule = value.at("store");
    session.stored.push_back({FromQt(TextOf(rule, "name")), FromQt(TextOf(rule, "text")),
                              FromQt(TextOf(rule, "fields")),
                              NotesFromJson(rule.value("notes", Json::array()))});
    session.head.rule = TextOf(rule, "name");
    session.head.text = TextOf(rule, "text");
    session.isChanged = false;
  } else {
    session.isAllStored = true;
  }
  return true;
} catch (const Json::exception&) {
  return false;
}

}  // namespace

// Steps.

bool JournalSteps::Add(int depth, const QByteArray& json) {
  const int deepest = steps_.empty() ? 0 : steps_.back().depth;
  const bool isAsked = !steps_.empty() && HasKey(steps_.back().json, "ask");
  if (depth < 0 || depth > kDeepest || depth > deepest + (isAsked ? 1 : 0)) return false;
  while (!steps_.empty() && steps_.back().depth > depth)
    steps_.pop_back();
  // A line at the depth of an "ask" is the finished gesture that asked; it replaces the "ask".
  const bool isOver = !steps_.empty() && steps_.back().depth == depth;
  if (isOver && HasKey(steps_.back().json, "ask")) steps_.pop_back();
  steps_.push_back({depth, json});
  return true;
}

std::vector<QByteArray> JournalSteps::At(int depth) const {
  std::vector<QByteArray> steps;
  for (const JournalStep& step : steps_) {
    if (step.depth == depth) steps.push_back(step.json);
  }
  return steps;
}

// Whether the last step is the Done of a nested composer whose text has not reached the composer
// that asked for it.
bool JournalSteps::EndsWithNestedDone() const {
  return !steps_.empty() && steps_.back().depth > 0 &&
         steps_.back().json.startsWith(R"({"user":"click","control":"cmdDone","event")");
}

// Lines.

QByteArray JournalLines::SumOf(const QByteArray& content) const {
  QCryptographicHash sum(QCryptographicHash::Sha256);
  sum.addData(last_);
  sum.addData(content);
  return sum.result().toHex().left(kSumLength);
}

QByteArray JournalLines::Line(qint64 seconds, int depth, const QByteArray& json) {
  const QByteArray content =
      QByteArray::number(seconds) + ' ' + QByteArray::number(depth) + ' ' + json;
  last_ = SumOf(content);
  return last_ + ' ' + content + '\n';
}

std::optional<JournalLines::Content> JournalLines::Read(const QByteArray& line) {
  const QByteArray sum = line.left(kSumLength);
  const QByteArray content = line.mid(kSumLength + 1);
  if (!line.startsWith(sum + ' ') || sum != SumOf(content)) return std::nullopt;
  last_ = sum;
  const qsizetype depthAt = content.indexOf(' ') + 1;
  const qsizetype jsonAt = content.indexOf(' ', depthAt) + 1;
  return Content{content.left(depthAt - 1).toLongLong(),
                 content.mid(depthAt, jsonAt - depthAt - 1).toInt(), content.mid(jsonAt)};
}

QByteArray JsonLine(const Json& value) {
  return QByteArray::fromStdString(hosts::TakeStandIns(value.dump()));
}

Json FromJsonLine(const QByteArray& line) {
  return Json::parse(hosts::PutStandIns(line.toStdString()));
}

Json NotesAsJson(const std::vector<language::NodeNote>& notes) {
  Json values = Json::array();
  for (const language::NodeNote& note : notes) {
    values.push_back({{"at", note.path},
                      {"head", hosts::ToJsonText(note.head)},
                      {"note", hosts::ToJsonText(note.note)}});
  }
  return values;
}

std::vector<language::NodeNote> NotesFromJson(const Json& notes) {
  std::vector<language::NodeNote> values;
  for (const Json& note : notes) {
    values.push_back({note.at("at").get<std::vector<std::uint32_t>>(), FromQt(TextOf(note, "head")),
                      FromQt(TextOf(note, "note"))});
  }
  return values;
}

QByteArray HeadLine(const JournalHead& head) {
  return JsonLine({{"format", kFormat},
                   {"version", kVersion},
                   {"rules", Utf8(head.rules)},
                   {"rule", Utf8(head.rule)},
                   {"text", Utf8(head.text)},
                   {"catalogue", Utf8(head.catalogue)},
                   {"tables", Utf8(head.tables)},
                   {"fields", Utf8(head.fields)}});
}

QByteArray StoredLine(const Rule& rule) {
  Json value = {{"name", hosts::ToJsonText(rule.name)},
                {"text", hosts::ToJsonText(rule.text)},
                {"fields", hosts::ToJsonText(rule.fields)}};
  if (!rule.notes.empty()) value["notes"] = NotesAsJson(rule.notes);
  return JsonLine({{"store", value}});
}

QByteArray AllStoredLine() {
  return R"({"allStored":true})";
}

// Reading.

int KeptSession::Depth() const {
  return steps.all().empty() ? 0 : steps.all().back().depth + 1;
}

std::optional<KeptSession> ReadJournal(const QByteArray& bytes) {
  KeptSession session;
  qint64 lastAt = 0;  // of the last whole line
  JournalLines beforeLast;
  qsizetype end = 0;
  for (qsizetype at = 0; (end = bytes.indexOf('\n', at)) >= 0; at = end + 1) {
    const JournalLines before = session.lines;
    const auto content = session.lines.Read(bytes.mid(at, end - at));
    if (!content || !Take(session, *content, at == 0)) {
      session.lines = before;
      break;
    }
    lastAt = at;
    beforeLast = before;
    session.time = QDateTime::fromSecsSinceEpoch(content->seconds);
    session.size = end + 1;
  }
  if (session.size == 0) return std::nullopt;
  session.unreadLines = bytes.mid(session.size).count('\n');
  // Drops a nested Done without the step that takes its text, so that the nested composer is still
  // open after recovery.
  if (session.steps.EndsWithNestedDone()) {
    session.steps.DropLast();
    session.size = lastAt;
    session.lines = beforeLast;
  }
  return session;
}

bool IsLaterJournal(const QByteArray& bytes) {
  const QByteArray line = bytes.left(bytes.indexOf('\n'));
  const Json head = Json::parse(line.mid(line.indexOf('{')).toStdString(), nullptr, false);
  return head.is_object() && head.contains("format") && head["format"] == kFormat &&
         head.contains("version") && head["version"] != kVersion;
}

}  // namespace zolt20::composer
