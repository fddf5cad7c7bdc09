// The format of a journal: one line for each step since a rule was opened.
//
//   9f86d081884c7d65 1763845000 0 {"user":"click","control":"lsttables","row":2}
//
// A line has a checksum over its other words and all lines before it, the time in seconds, the
// depth of its composer, and the step as JSON. The first line is the head. The checksums tell a
// reader where the undamaged lines end; what follows them, such as a line cut off by a crash, is
// ignored. Depth 0 is the composer of the rule. A composer that a gesture opens is one deeper than
// the composer of that gesture. A composer for a part of the text is one deeper, too; the line
// {"ask":{"edit":[FIRST,LAST]}} stands before its steps. When a gesture that opened a composer is
// over, its own line is written and contains the outcome; then the deeper steps before it are not
// needed any more.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <nlohmann/json.hpp>
#include <optional>
#include <vector>

#include "hosts/composer/rules_file.h"

namespace zolt20::composer {

/// The first line: which rule is being composed, with which catalogue.
struct JournalHead {
  QString rules;      ///< the file of rules; "" for none
  QString rule;       ///< the name of the rule; "" for a new one
  QString text;       ///< the stored text when the journal was created
  QString catalogue;  ///< the name of the catalogue
  QString tables;     ///< the properties of the control that have the catalogue
  QString fields;

  bool operator==(const JournalHead&) const = default;
};

struct JournalStep {
  int depth = 0;
  QByteArray json;
};

/// The steps that are needed to recover. When a gesture is over, the steps of the composers that it
/// opened are dropped.
class JournalSteps {
 public:
  /// Adds a step. False when there can be no composer at that depth.
  bool Add(int depth, const QByteArray& json);
  void Clear() { steps_.clear(); }
  const std::vector<JournalStep>& all() const { return steps_; }
  /// The steps of one composer, in order.
  std::vector<QByteArray> At(int depth) const;
  bool EndsWithNestedDone() const;
  void DropLast() { steps_.pop_back(); }

 private:
  std::vector<JournalStep> steps_;
};

/// Writes and reads lines with their checksums.
class JournalLines {
 public:
  QByteArray Line(qint64 seconds, int depth, const QByteArray& json);
  /// The contents of a line without its line end; none when the checksum is wrong.
  struct Content {
    qint64 seconds = 0;
    int depth = 0;
    QByteArray json;
  };
  std::optional<Content> Read(const QByteArray& line);

 private:
  QByteArray SumOf(const QByteArray& content) const;

  QByteArray last_;  // the sum of the line before
};

/// What a journal's file contains.
struct KeptSession {
  JournalHead head;          ///< the rule as it was stored last, in memory at least
  std::vector<Rule> stored;  ///< the rules stored in memory, in order; perhaps not on the disk yet
  bool isChanged = false;    ///< whether there are changes since then
  JournalSteps steps;
  bool isAllStored = false;
  QDateTime time;             ///< of the last step
  qint64 size = 0;            ///< of the undamaged lines, in bytes
  qsizetype unreadLines = 0;  ///< the first damaged line and all behind it
  JournalLines lines;         ///< continues behind the undamaged lines

  /// How many composers were open, one nested in the other.
  int Depth() const;
  bool IsEmpty() const { return isAllStored || (stored.empty() && steps.all().empty()); }
};

/// JSON as one line, with lone surrogates as escapes, and back. Reading throws nlohmann's
/// exceptions.
QByteArray JsonLine(const nlohmann::ordered_json& value);
nlohmann::ordered_json FromJsonLine(const QByteArray& line);

/// Notes on statements as JSON, and back.
nlohmann::ordered_json NotesAsJson(const std::vector<language::NodeNote>& notes);
std::vector<language::NodeNote> NotesFromJson(const nlohmann::ordered_json& notes);

QByteArray HeadLine(const JournalHead& head);
QByteArray StoredLine(const Rule& rule);
QByteArray AllStoredLine();

/// Reads all lines up to the first damaged one. None when the head is damaged or of a later
/// version.
std::optional<KeptSession> ReadJournal(const QByteArray& bytes);
/// Whether the file is a journal of a later version, which this composer can't read.
bool IsLaterJournal(const QByteArray& bytes);

}  // namespace zolt20::composer
