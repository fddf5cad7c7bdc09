// The state machine of IPersistStorage: which calls are allowed in which order, and which storage
// the control holds. It knows nothing of the stored contents.
#pragma once

#include <objidl.h>

#include "faces/com/com_pointer.h"

namespace zolt20::com {

class StoragePlace {
 public:
  /// Whether InitNew or Load may be called now: S_OK, CO_E_ALREADYINITIALIZED when the control has
  /// a storage already, E_UNEXPECTED after HandsOff.
  HRESULT MayBegin() const;
  /// After InitNew or Load: from now on holds the storage.
  void Begin(IStorage* storage);

  /// Before Save: whether it is allowed. E_UNEXPECTED between a Save and its Complete, when the
  /// control may not write (no scribble), and after HandsOff.
  HRESULT MaySave() const;
  /// After Save, into the control's own storage or as a copy.
  void Saved(bool isOwn);

  /// SaveCompleted: ends a save or the state after HandsOff. Holds `storage` from now on, or where
  /// that is null the one before. `isStored` becomes true when the control is not dirty any more:
  /// its storage holds what it has.
  HRESULT Complete(IStorage* storage, bool& isStored);
  /// HandsOffStorage: releases the storage, until Complete brings one.
  HRESULT HandsOff();

  /// The storage that the control holds; null when it holds none.
  IStorage* Storage() const { return storage_.Get(); }

 private:
  enum class State { kNone, kNormal, kNoScribble, kHandsOff };

  State state_ = State::kNone;
  enum class Save { kNone, kOwn, kCopy };
  Save save_ = Save::kNone;  // the save that was not completed yet
  Pointer<IStorage> storage_;
};

}  // namespace zolt20::com
