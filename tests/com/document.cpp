#include "tests/com/document.h"

#include "ZOLT20MappingCtrl.h"

namespace zolt20::tests {
namespace {

constexpr DWORD kOpen = STGM_READWRITE | STGM_SHARE_EXCLUSIVE;
constexpr wchar_t kObject[] = L"Object";
constexpr wchar_t kPicture[] = L"Picture";

std::wstring NewFile() {
  wchar_t folder[MAX_PATH] = L"";
  wchar_t path[MAX_PATH] = L"";
  GetTempPathW(MAX_PATH, folder);
  GetTempFileNameW(folder, L"doc", 0, path);
  return path;
}

}  // namespace

Document::Document() : path_(NewFile()) {
  site_.emplace(880, 620);
  StgCreateDocfile(path_.c_str(), kOpen | STGM_CREATE, 0, root_.Put());
}

Document::~Document() {
  Close();
  site_.reset();
  DeleteFileW(path_.c_str());
}

HRESULT Document::OpenStorages(bool isNew) {
  const auto open = [&](const wchar_t* name, IStorage** storage) {
    return isNew ? root_->CreateStorage(name, kOpen | STGM_CREATE, 0, 0, storage)
                 : root_->OpenStorage(name, nullptr, kOpen, nullptr, 0, storage);
  };
  const HRESULT result = open(kObject, storage_.Put());
  return FAILED(result) ? result : open(kPicture, pictureStorage_.Put());
}

// A picture beside the control, which is brought up to date with each save.
HRESULT Document::KeepPicture(bool isNew) {
  const HRESULT result = CreateDataCache(nullptr, CLSID_ZOLT20MapControl, IID_IUnknown,
                                         reinterpret_cast<void**>(picture_.Put()));
  if (FAILED(result)) return result;
  const auto persist = com::Query<IPersistStorage>(picture_.Get());
  return isNew ? persist->InitNew(pictureStorage_.Get()) : persist->Load(pictureStorage_.Get());
}

HRESULT Document::Insert(DWORD rendering) {
  HRESULT result = OpenStorages(true);
  FORMATETC picture{CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
  com::Pointer<IUnknown> control;
  if (SUCCEEDED(result)) {
    result = OleCreate(CLSID_ZOLT20MapControl, IID_IUnknown, rendering,
                       rendering == OLERENDER_FORMAT ? &picture : nullptr, &*site_, storage_.Get(),
                       reinterpret_cast<void**>(control.Put()));
  }
  if (FAILED(result)) return result;
  site_->Take(control.Detach());
  return KeepPicture(true);
}

HRESULT Document::InsertFrom(IDataObject& source) {
  HRESULT result = OpenStorages(true);
  com::Pointer<IUnknown> control;
  if (SUCCEEDED(result)) {
    result = OleCreateFromData(&source, IID_IUnknown, OLERENDER_NONE, nullptr, &*site_,
                               storage_.Get(), reinterpret_cast<void**>(control.Put()));
  }
  if (FAILED(result)) return result;
  site_->Take(control.Detach());
  return KeepPicture(true);
}

HRESULT Document::Save() {
  const auto persist = com::Query<IPersistStorage>(Object());
  HRESULT result = OleSave(persist.Get(), storage_.Get(), TRUE);
  if (SUCCEEDED(result)) result = persist->SaveCompleted(nullptr);
  if (FAILED(result)) return result;
  FORMATETC format{CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
  STGMEDIUM medium{};
  result = com::Query<IDataObject>(Object())->GetData(&format, &medium);
  if (FAILED(result)) return result;
  const auto cache = com::Query<IOleCache>(picture_.Get());
  DWORD connection = 0;
  result = cache->Cache(&format, ADVF_NODATA, &connection);
  if (SUCCEEDED(result)) result = cache->SetData(&format, &medium, TRUE);
  if (FAILED(result)) return result;
  const auto pictures = com::Query<IPersistStorage>(picture_.Get());
  result = pictures->Save(pictureStorage_.Get(), TRUE);
  if (SUCCEEDED(result)) result = pictures->SaveCompleted(nullptr);
  if (SUCCEEDED(result)) result = pictureStorage_->Commit(STGC_DEFAULT);
  return FAILED(result) ? result : root_->Commit(STGC_DEFAULT);
}

void Document::Close() {
  if (site_) site_->GiveUp();
  picture_ = {};
  pictureStorage_ = {};
  storage_ = {};
  root_ = {};
}

HRESULT Document::Open() {
  HRESULT result = StgOpenStorage(path_.c_str(), nullptr, kOpen, nullptr, 0, root_.Put());
  if (SUCCEEDED(result)) result = OpenStorages(false);
  com::Pointer<IUnknown> control;
  if (SUCCEEDED(result)) {
    result =
        OleLoad(storage_.Get(), IID_IUnknown, &*site_, reinterpret_cast<void**>(control.Put()));
  }
  if (FAILED(result)) return result;
  site_->Take(control.Detach());
  return KeepPicture(false);
}

HRESULT Document::OpenPicture() {
  HRESULT result = StgOpenStorage(path_.c_str(), nullptr, kOpen, nullptr, 0, root_.Put());
  if (SUCCEEDED(result)) result = OpenStorages(false);
  return FAILED(result) ? result : KeepPicture(false);
}

HRESULT Document::Activate(LONG verb) {
  return site_->Activate(verb);
}

IUnknown* Document::Drawn() const {
  return Object() != nullptr ? Object() : picture_.Get();
}

}  // namespace zolt20::tests
