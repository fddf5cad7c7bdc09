#include "hosts/composer/undo_names.h"

#include "hosts/composer/map_keys.h"
#include "surface/surface.h"

namespace zolt20::composer {
namespace {

// Whether the gesture is an undo step; focus and Done, for example, are none.
bool IsStep(const ZOLT20Gesture& gesture) {
  return gesture.verb != u"focus" && gesture.control != u"cmdDone" &&
         gesture.control != u"cmdCancel";
}

}  // namespace

void UndoNames::Follow(RecordedMap& map) {
  map_ = &map;
  done_.clear();
  undone_.clear();
  selected_ = map.form().lstSelectedFields.ListCount();
  connect(&map, &ZOLT20MapWidget::gestureMade, this, &UndoNames::Add);
  connect(&map, &RecordedMap::NotesWritten, this, [this] {
    undone_.clear();
    done_.push_back({Place(), map_->StepName()});
    emit Changed();
  });
  connect(&map, &ZOLT20MapWidget::undone, this, &UndoNames::MoveBack);
  connect(&map, &ZOLT20MapWidget::redone, this, &UndoNames::MoveOn);
  connect(&map, &ZOLT20MapWidget::canUndoChanged, this, &UndoNames::Changed);
  connect(&map, &ZOLT20MapWidget::canRedoChanged, this, &UndoNames::Changed);
  emit Changed();
}

QString UndoNames::Undo() const {
  return done_.empty() ? QString() : done_.back().name;
}

QString UndoNames::Redo() const {
  return undone_.empty() ? QString() : undone_.back().back().name;
}

// The number of the current step, kept in the host data of the control, so that undo and redo
// restore it.
int UndoNames::Place() const {
  const QVariantList place = map_->hostData().toList();
  return place.isEmpty() ? -1 : place.front().toInt();
}

void UndoNames::Add(const ZOLT20Gesture& gesture) {
  const int before = std::exchange(selected_, map_->form().lstSelectedFields.ListCount());
  if (!IsStep(gesture)) return;
  undone_.clear();
  // A run of typing is one step of the history.
  if (!gesture.goesOn || done_.empty()) {
    const QString& name = map_->StepName();
    done_.push_back(
        {Place(), name.isEmpty() ? NameOfGesture(gesture, map_->form(), before) : name});
  }
  emit Changed();
}

void UndoNames::MoveBack() {
  std::vector<Named> step;
  while (!done_.empty() && done_.back().place > Place()) {
    step.insert(step.begin(), done_.back());
    done_.pop_back();
  }
  if (!step.empty()) undone_.push_back(std::move(step));
  selected_ = map_->form().lstSelectedFields.ListCount();
  emit Changed();
}

void UndoNames::MoveOn() {
  if (!undone_.empty()) {
    done_.insert(done_.end(), undone_.back().begin(), undone_.back().end());
    undone_.pop_back();
  }
  selected_ = map_->form().lstSelectedFields.ListCount();
  emit Changed();
}

}  // namespace zolt20::composer
