#include "hosts/composer/opened_statement.h"

#include <QCoreApplication>
#include <algorithm>

#include "faces/qt/qt_text.h"
#include "hosts/kit/request.h"

namespace zolt20::composer {
namespace {

using qt::ToQt;
using qt::View;

// The first few differences are enough for a message.
constexpr std::size_t kMostNotes = 3;

QString Joined(const std::vector<String>& lines) {
  QStringList texts;
  for (const String& line : lines)
    texts.append(ToQt(line));
  return texts.join(QStringLiteral(" / "));
}

QString NoteOn(const reopen::Difference& difference) {
  const QString stored = Joined(difference.stored);
  const QString comes = Joined(difference.comes);
  if (difference.comes.empty())
    return QCoreApplication::translate("composer", R"(Line %1 will not come back: "%2")")
        .arg(difference.line)
        .arg(stored);
  if (difference.stored.empty())
    return QCoreApplication::translate("composer", R"(Before line %1 will come: "%2")")
        .arg(difference.line)
        .arg(comes);
  return QCoreApplication::translate("composer", R"(Line %1 will change: "%2" becomes "%3")")
      .arg(difference.line)
      .arg(stored, comes);
}

}  // namespace

reopen::Opening OpeningOf(const QString& statement, const catalogue::Catalogue& catalogue) {
  return reopen::Open(View(statement), {TableList(catalogue), FieldList(catalogue)});
}

void TakeSteps(RecordedMap& map, const std::vector<reopen::Step>& steps) {
  bool hasGestures = false;
  for (const reopen::Step& step : steps) {
    if (step.property != nullptr) {
      map.Write(step.property->name, ToQt(step.text));
    } else {
      const UserGesture gesture{step.gesture, nullptr, step.number, step.text};
      map.MakeGestureOfOpening(hosts::WriteGesture(gesture, step.control));
      hasGestures = true;
    }
  }
  // A write by the host clears the undo history, so that opening a rule can't be undone.
  if (hasGestures) map.Write("prpTab", map.form().tabVrn.Tab().value());
}

QStringList NotesOn(const reopen::Opening& opening) {
  QStringList notes;
  for (const reopen::Problem& problem : opening.problems) {
    notes.append(QCoreApplication::translate("composer", "Line %1, column %2: %3")
                     .arg(problem.line)
                     .arg(problem.column)
                     .arg(QString::fromStdString(problem.message)));
  }
  const std::size_t told = std::min(opening.differences.size(), kMostNotes);
  for (std::size_t i = 0; i < told; ++i)
    notes.append(NoteOn(opening.differences[i]));
  if (opening.differences.size() > told)
    notes.append(QCoreApplication::translate("composer", "More lines will change: %1")
                     .arg(opening.differences.size() - told));
  return notes;
}

}  // namespace zolt20::composer
