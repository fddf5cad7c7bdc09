#include "faces/com/control/storage_place.h"

#include <utility>

namespace zolt20::com {

HRESULT StoragePlace::MayBegin() const {
  if (state_ == State::kHandsOff) return E_UNEXPECTED;
  return state_ == State::kNone ? S_OK : CO_E_ALREADYINITIALIZED;
}

void StoragePlace::Begin(IStorage* storage) {
  storage_ = Pointer(storage);
  state_ = State::kNormal;
  save_ = Save::kNone;
}

HRESULT StoragePlace::MaySave() const {
  const bool isOut = state_ == State::kNoScribble || state_ == State::kHandsOff;
  return isOut ? E_UNEXPECTED : S_OK;
}

void StoragePlace::Saved(bool isOwn) {
  save_ = isOwn ? Save::kOwn : Save::kCopy;
  state_ = State::kNoScribble;
}

HRESULT StoragePlace::Complete(IStorage* storage, bool& isStored) {
  isStored = false;
  if (state_ == State::kNone || state_ == State::kNormal) return E_UNEXPECTED;
  if (state_ == State::kHandsOff && storage == nullptr) return E_INVALIDARG;
  // A copy that becomes the control's own storage: the document was saved under another name.
  isStored = save_ == Save::kOwn || (save_ == Save::kCopy && storage != nullptr);
  if (storage != nullptr) storage_ = Pointer(storage);
  save_ = Save::kNone;
  state_ = storage_ ? State::kNormal : State::kNone;
  return S_OK;
}

HRESULT StoragePlace::HandsOff() {
  if (state_ == State::kNone) return E_UNEXPECTED;
  storage_ = {};
  state_ = State::kHandsOff;
  return S_OK;
}

}  // namespace zolt20::com
