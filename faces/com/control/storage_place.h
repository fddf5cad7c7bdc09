// Where a control stands with the storage that its container gave it: which calls are in order, and
// whose storage it holds. It knows nothing of what is stored.
#pragma once

#include <objidl.h>

#include "faces/com/com_pointer.h"

namespace zolt20::com {

class StoragePlace {
 public:
  /// The control is about to be new, or loaded, in a storage. CO_E_ALREADYINITIALIZED when it is in
  /// one already, E_UNEXPECTED when that was taken from its hands.
  HRESULT MayBegin() const;
  /// It is: from now on it holds the storage.
  void Begin(IStorage* storage);

  /// Whether it may be saved now; after that it may not write until Completed. E_UNEXPECTED between
  /// a save and its end, and when the storage was taken from its hands.
  HRESULT MaySave() const;
  /// It was saved, into its own storage or as a copy.
  void Saved(bool isOwn);

  /// A save is over, or hands may be laid on a storage again: on `storage`, or where that is null
  /// on the one before. `isStored` becomes true when what the control has is what its storage
  /// holds.
  HRESULT Complete(IStorage* storage, bool& isStored);
  /// Gives the storage up, until Complete brings one.
  HRESULT HandsOff();

  /// The one that it holds; null when it holds none.
  IStorage* Storage() const { return storage_.Get(); }

 private:
  enum class State { kNone, kNormal, kNoScribble, kHandsOff };

  State state_ = State::kNone;
  enum class Save { kNone, kOwn, kCopy };
  Save save_ = Save::kNone;  // that was not completed
  Pointer<IStorage> storage_;
};

}  // namespace zolt20::com
