// The file of a journal: what was done since a rule was opened, one line a step.
//
//   9f86d081884c7d65 1763845000 0 {"user":"click","control":"lsttables","row":2}
//
// A line has a sum over itself and all lines before it, the time in seconds, the depth of the
// composer that it is of, and the step as JSON. The first line is the head. By the sums a reader
// knows where the whole lines of a file end, whatever a crash made of those behind: it takes no
// notice of them. Depth 0 is the composer of the rule; one that stands within a gesture of another
// is one deeper. So is one for a part of the text, before which {"ask":{"edit":[FIRST,LAST]}}
// stands. Once that gesture is over, its own line has all that came of it, and the steps of what
// was deeper are of no more use.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <nlohmann/json.hpp>
#include <optional>
#include <vector>

#include "hosts/composer/rules_file.h"

namespace zolt20::composer {

/// What a journal is of.
struct JournalHead {
  QString rules;      ///< the file of rules; "" for none
  QString rule;       ///< the name of the one that is composed; "" for a new one
  QString text;       ///< as it was stored when the journal was begun
  QString catalogue;  ///< its name
  QString tables;     ///< the catalogue as the control has it
  QString fields;

  bool operator==(const JournalHead&) const = default;
};

struct JournalStep {
  int depth = 0;
  QByteArray json;
};

/// The steps that count: what a gesture that is over did deeper down goes with it.
class JournalSteps {
 public:
  /// False when no composer can be so deep.
  bool Add(int depth, const QByteArray& json);
  void Clear() { steps_.clear(); }
  const std::vector<JournalStep>& all() const { return steps_; }
  /// Those of one composer, in order.
  std::vector<QByteArray> At(int depth) const;
  bool EndsWithNestedDone() const;
  void DropLast() { steps_.pop_back(); }

 private:
  std::vector<JournalStep> steps_;
};

/// Makes lines, each with its sum.
class JournalLines {
 public:
  QByteArray Line(qint64 seconds, int depth, const QByteArray& json);
  /// The depth and the JSON of a line without its end; none when its sum is not right.
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

/// What can be known of a journal's file.
struct KeptSession {
  JournalHead head;          ///< the rule as it was stored last, if only in memory
  std::vector<Rule> stored;  ///< in memory, behind each other; perhaps not on the disk yet
  bool isChanged = false;    ///< since then
  JournalSteps steps;
  bool isAllStored = false;
  QDateTime time;             ///< of the last step
  qint64 size = 0;            ///< bytes of the whole lines
  qsizetype unreadLines = 0;  ///< behind a line that is damaged, with that one
  JournalLines lines;         ///< goes on behind them

  /// How many composers there were, one within the other.
  int Depth() const;
  bool IsEmpty() const { return isAllStored || (stored.empty() && steps.all().empty()); }
};

/// JSON as it stands in lines, with halves of characters as escapes, and back. Reading throws
/// nlohmann's exceptions.
QByteArray JsonLine(const nlohmann::ordered_json& value);
nlohmann::ordered_json FromJsonLine(const QByteArray& line);

/// Notes of nodes, as they stand in lines.
nlohmann::ordered_json NotesAsJson(const std::vector<language::NodeNote>& notes);
std::vector<language::NodeNote> NotesFromJson(const nlohmann::ordered_json& notes);

QByteArray HeadLine(const JournalHead& head);
QByteArray StoredLine(const Rule& rule);
QByteArray AllStoredLine();

/// All up to the first line that is not whole. None when the head is not, or is of a later version.
std::optional<KeptSession> ReadJournal(const QByteArray& bytes);
/// Whether the file is a journal of a version that this composer does not know.
bool IsLaterJournal(const QByteArray& bytes);

}  // namespace zolt20::composer
