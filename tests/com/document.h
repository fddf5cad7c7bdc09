// A document that embeds one control: a compound file with a storage for the control, a cached
// picture of it, and a window in which it can be active. It creates, saves and loads the control by
// the functions that the system has for documents.
#pragma once

#include <ole2.h>

#include <optional>
#include <string>

#include "faces/com/com_pointer.h"
#include "tests/com/container.h"

namespace zolt20::tests {

class Document {
 public:
  /// Makes an empty file, which is deleted with the document.
  Document();
  ~Document();
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  /// Inserts a new control; with OLERENDER_DRAW a picture of it is cached.
  HRESULT Insert(DWORD rendering);
  /// Inserts a copy of an object, given as a data object.
  HRESULT InsertFrom(IDataObject& source);
  /// Saves the control and its picture in the file.
  HRESULT Save();
  /// Releases the control and closes the file.
  void Close();
  /// Opens the file again. The control is loaded, or just its picture.
  HRESULT Open();
  HRESULT OpenPicture();
  HRESULT Activate(LONG verb = OLEIVERB_SHOW);

  Container& Site() { return *site_; }
  IUnknown* Object() const { return site_->Control(); }
  /// The storage of the control.
  IStorage* Storage() const { return storage_.Get(); }
  /// Draws the control while it is not active: the control itself, or its cached picture.
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
