// A document that holds one control: a compound file with the control in a storage of its own, a
// picture of it beside that, and a window in which it can be active. It makes, stores and opens the
// control by what the system has for documents.
#pragma once

#include <ole2.h>

#include <optional>
#include <string>

#include "faces/com/com_pointer.h"
#include "tests/com/container.h"

namespace zolt20::tests {

class Document {
 public:
  /// A new file with nothing in it, which goes with the document.
  Document();
  ~Document();
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  /// Inserts a new control; with OLERENDER_DRAW a picture of it is kept.
  HRESULT Insert(DWORD rendering);
  /// Inserts a copy of an object that is given as data.
  HRESULT InsertFrom(IDataObject& source);
  /// Stores the control and its picture in the file.
  HRESULT Save();
  /// Gives the control up and closes the file.
  void Close();
  /// Opens the file again. The control is loaded, or just its picture.
  HRESULT Open();
  HRESULT OpenPicture();
  HRESULT Activate(LONG verb = OLEIVERB_SHOW);

  Container& Site() { return *site_; }
  IUnknown* Object() const { return site_->Control(); }
  /// The storage of the control.
  IStorage* Storage() const { return storage_.Get(); }
  /// What draws it where it is not active: the control, or the picture alone.
  IUnknown* Drawn() const;

 private:
  HRESULT OpenStorages(bool isNew);
  HRESULT KeepPicture(bool isNew);

  std::wstring path_;
  std::optional<Container> site_;
  com::Pointer<IStorage> root_;
  com::Pointer<IStorage> storage_;
  com::Pointer<IStorage> pictureStorage_;
  com::Pointer<IUnknown> picture_;
};

}  // namespace zolt20::tests
