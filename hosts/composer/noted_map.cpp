// The part of RecordedMap that keeps notes on nodes. They are part of the undo state and follow the
// text.
#include "faces/qt/qt_text.h"
#include "hosts/composer/journal_lines.h"
#include "hosts/composer/recorded_map.h"
#include "surface/surface.h"

namespace zolt20::composer {

using qt::ToQt;
using qt::View;

QString RecordedMap::NotedText() const {
  const StringView result = form().TxtOutput.Text();
  return result.empty() ? stored_ : ToQt(result);
}

const RecordedMap::Notes& RecordedMap::NodeNotes() const {
  static const Notes kNoNotes;
  const Place place = Now();
  // The history shares ownership of the notes, so the reference stays valid.
  return place.notes == nullptr ? kNoNotes : place.notes->notes;
}

void RecordedMap::PutNotes(const Notes& notes) {
  Place place = Now();
  place.notes = std::make_shared<const NotedNodes>(NotedNodes{NotedText(), notes});
  MoveTo(place);
}

void RecordedMap::TakeNotes(const Notes& notes) {
  if (notes.empty() && NodeNotes().empty()) return;
  PutNotes(notes);
  settledNotes_ = notes;
  ToJournal({{"notes", NotesAsJson(notes)}, {"settled", true}}, false);
}

void RecordedMap::FollowNotes(const Notes& notes) {
  PutNotes(notes);
  ToJournal({{"notes", NotesAsJson(notes)}}, false);
}

// Changes the notes as an undo step with that name. Adds a comment to the recorded session, because
// each undo step needs a line there.
void RecordedMap::WriteNotes(const Notes& notes, const QString& name) {
  Place place = Now();
  lines_.push_back({QByteArray("# a note"), place.last});
  place.last = static_cast<int>(lines_.size()) - 1;
  place.notes = std::make_shared<const NotedNodes>(NotedNodes{NotedText(), notes});
  if (!stepHostData(ValueOf(place))) return;
  typedIn_.clear();
  keptIn_.clear();
  ToJournal({{"note", NotesAsJson(notes)}}, true);
  stepName_ = name;
  emit NotesWritten();
  stepName_.clear();
}

void RecordedMap::CarryNotes() {
  const std::shared_ptr<const NotedNodes> noted = Now().notes;
  if (noted == nullptr || noted->notes.empty()) return;
  const QString text = NotedText();
  if (noted->text != text)
    PutNotes(language::CarryNotes(noted->notes, View(noted->text), View(text)));
}

}  // namespace zolt20::composer
