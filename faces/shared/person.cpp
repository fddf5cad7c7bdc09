#include "faces/shared/person.h"

#include <algorithm>
#include <cstdint>

#include "faces/shared/form_words.h"
#include "faces/shared/shown_text.h"

namespace zolt20::faces {
namespace {

// How the history records a gesture of this kind.
Recording RecordingOf(Gesture gesture) {
  switch (gesture) {
    case Gesture::kType:
      return Recording::kTypedText;
    case Gesture::kKey:
      return Recording::kTypedKeys;
    case Gesture::kFocus:
      return Recording::kNothing;
    default:
      return Recording::kStep;
  }
}

}  // namespace

Person::Person(ZOLT20MapControl& control) : control_(control), told_(control, words_) {
  control_.AddObserver(*this);
}

Person::~Person() {
  control_.RemoveObserver(*this);
}

// Gestures.

End Person::Make(UserGesture gesture) {
  const Control& source = *gesture.control;
  const Recording recording = RecordingOf(gesture.gesture);
  // The platform's widget may already show what the person did, though the control may refuse it.
  if (recording == Recording::kNothing) {
    changes_.focusMoved = true;
  } else {
    Note(source, Change::kByPlatform);
  }
  if (calls_ > 0) return End::kNotTaken;
  const HostCall inProgress(*this, false);
  anythingChanged_ = false;
  told_.Forget();
  made_ = {};
  End end = Guard([&] { history_.Begin(control_, hostData_, source, recording); });
  if (end != End::kDone) return end;
  made_ = {std::move(gesture), history_.GoesOn()};
  ++madeCount_;
  Outcome outcome = Outcome::kDone;
  end = Guard([&] { outcome = control_.User(made_.gesture); });
  const End kept = Guard([&] { changes_.historyChanged |= history_.End(anythingChanged_); });
  TellMark();
  const bool isTyped = made_.gesture.gesture == Gesture::kType && outcome == Outcome::kDone;
  // The control's caret is at the end now. The widget's caret stays where the person types, unless
  // a handler changed the text.
  if (isTyped && changes_.changed.count(&source) != 0 && TypedText(source) == made_.gesture.text)
    ShownAsItIs(source);
  return end == End::kDone ? kept : end;
}

End Person::Type(const Control& box, StringView shown, std::size_t caret, char16_t lineEnd) {
  const String& text = TypedText(box);
  const String before = Shown(text, lineEnd);
  const Edit edit = EditBetween(before, shown, std::min(caret, shown.size()));
  return Make({Gesture::kType, &box, UserGesture::kNone,
               AfterEdit(text, edit.position, edit.removed, shown.substr(edit.position, edit.added),
                         lineEnd)});
}

End Person::TypeInLine(const Control& box, StringView shown, std::size_t caret, TextMark marked) {
  const String before = TypedText(box);
  const Edit edit = EditOfMark(before, shown, static_cast<std::size_t>(marked.from),
                               static_cast<std::size_t>(marked.to), std::min(caret, shown.size()));
  String text = Concat(StringView(before).substr(0, edit.position),
                       WithLineEnds(shown.substr(edit.position, edit.added)),
                       StringView(before).substr(edit.position + edit.removed));
  const bool isShown = StringView(text) == shown;
  const End end = Make({Gesture::kType, &box, UserGesture::kNone, std::move(text)});
  if (!isShown && changes_.changed.count(&box) != 0) Note(box, Change::BitOf(Property::kText));
  return end;
}

End Person::Key(const TextBox& box, char16_t code, TextMark mark) {
  const String before = box.Text();
  const bool isAtCaret = mark.from == mark.to && mark.from == box.SelStart();
  const auto where = isAtCaret ? std::nullopt : std::optional(mark);
  const End end = Make({Gesture::kKey, &box, static_cast<std::int16_t>(code), {}, where});
  if (end == End::kNotTaken || changes_.changed.count(&box) == 0) return end;
  // A key that the control dropped leaves the selection; one that took effect moves the caret.
  if (box.Text() == before && box.SelStart() == mark.from) {
    ShownAsItIs(box);
  } else {
    Note(box, Change::BitOf(Property::kSelStart));
  }
  return end;
}

// Screen readers announce a mark that Space sets or clears. A mark that another key cleared, and
// one that Space then sets on the same row again, they do not announce, so it is told here.
void Person::TellMark() {
  const UserGesture& gesture = made_.gesture;
  const bool isTwice = gesture.gesture == Gesture::kDoubleClickRow;
  if (!isTwice && gesture.gesture != Gesture::kClickRow) return;
  const auto& list = static_cast<const ListBox&>(*gesture.control);
  const bool isAgain = taken_.first == &list && taken_.second == gesture.number;
  taken_ = {};
  if (gesture.number >= list.ListCount() || list.HasCheckBoxes()) return;
  const bool isMarked = list.Selected(gesture.number);
  if (isTwice && !isMarked) {
    taken_ = {&list, gesture.number};
    told_.Say(String(words_[Word::unselected]));
  } else if (isAgain && isMarked) {
    told_.Say(String(words_[Word::selected]));
  }
}

// Clears the dirty bits of text and caret: the widget shows the text already, and its caret stays.
void Person::ShownAsItIs(const Control& box) {
  changes_.changed[&box].what &=
      ~(Change::BitOf(Property::kText) | Change::BitOf(Property::kSelStart));
}

void Person::Fail(std::string_view kind, int number, const char* text) {
  failure_ = {kind, number, text};
}

// Calls of the host's.

bool Person::BeginStep() {
  if (calls_ > 0) return false;
  anythingChanged_ = false;
  if (Guard([&] { history_.Begin(control_, hostData_, Form().tabVrn, Recording::kStep); }) !=
      End::kDone)
    return false;
  ++calls_;
  return true;
}

void Person::EndStep(bool counts) {
  --calls_;
  Guard([&] { changes_.historyChanged |= history_.End(anythingChanged_ || counts); });
}

// The history.

void Person::SwitchHistory(bool on) {
  if (on == history_.IsOn()) return;
  history_.Switch(on);
  changes_.historyChanged = true;
}

void Person::ForgetHistory() {
  changes_.historyChanged |= history_.CanUndo() || history_.CanRedo();
  history_.Forget();
}

End Person::Undo() {
  return history_.CanUndo() ? PutBack(&History::Undo, words_[Word::undone]) : End::kNotTaken;
}

End Person::Redo() {
  return history_.CanRedo() ? PutBack(&History::Redo, words_[Word::redone]) : End::kNotTaken;
}

End Person::PutBack(History::Step (History::*take)(History::Step), StringView words) {
  if (calls_ > 0) return End::kNotTaken;
  const HostCall inProgress(*this, false);
  return Guard([&] {
    History::Step step = (history_.*take)({control_.Save(), hostData_});
    changes_.historyChanged = true;
    control_.Restore(std::move(step.state));
    hostData_ = std::move(step.hostData);
    told_.Say(String(words));
  });
}

// Notices.

void Person::Note(const Control& control, int what) {
  Change& change = changes_.changed[&control];
  change.what |= what;
  if ((what & Change::kRows) != 0) {
    change.firstRow = 0;
    change.behindRows = Change::kAllRows;
  }
}

void Person::NoteAll() {
  changes_.focusMoved = true;
  for (const Control* control : Form().Controls())
    Note(*control);
}

void Person::ControlChanged(const Control& control, Property property) noexcept {
  anythingChanged_ = true;
  Note(control, Change::BitOf(property));
}

void Person::RowsChanged(const Control& list, const RowChange& rows) noexcept {
  anythingChanged_ = true;
  const auto found = changes_.changed.find(&list);
  const bool isFirst = found == changes_.changed.end() || (found->second.what & Change::kRows) == 0;
  Note(list, Change::kRows);
  if (!isFirst || rows.what != RowChange::What::kInserted) return;
  Change& change = changes_.changed[&list];
  change.firstRow = rows.first;
  change.behindRows = rows.first + rows.count;
}

void Person::MarksChanged(const Control& list, int /*first*/, int /*count*/) noexcept {
  anythingChanged_ = true;
  Note(list, Change::kMarks);
}

void Person::FocusChanged(const Control* /*control*/) noexcept {
  changes_.focusMoved = true;
}

void Person::ElementLoaded(const Control& element) noexcept {
  anythingChanged_ = true;
  Note(element);
}

void Person::ElementUnloading(const Control& element) noexcept {
  anythingChanged_ = true;
  changes_.focusMoved = true;  // the platform's focus may have been there
  changes_.changed.erase(&element);
  changes_.gone.push_back(&element);
}

void Person::StateReplaced() noexcept {
  NoteAll();
}

}  // namespace zolt20::faces
