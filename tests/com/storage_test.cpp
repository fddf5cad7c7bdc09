// Persistence of the control in a storage and in memory: the same bytes as in a stream.
#include "tests/com/com_test.h"

namespace zolt20::tests {
namespace {

constexpr DWORD kAlone = STGM_READWRITE | STGM_SHARE_EXCLUSIVE;

Pointer<IStorage> NewStorage() {
  Pointer<ILockBytes> bytes;
  Pointer<IStorage> storage;
  CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.Put());
  StgCreateDocfileOnILockBytes(bytes.Get(), kAlone | STGM_CREATE, 0, storage.Put());
  return storage;
}

std::string BytesIn(IStream& stream) {
  STATSTG state{};
  stream.Stat(&state, STATFLAG_NONAME);
  std::string bytes(static_cast<std::size_t>(state.cbSize.QuadPart), '\0');
  stream.Seek({}, STREAM_SEEK_SET, nullptr);
  stream.Read(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
  return bytes;
}

std::string BytesIn(IStorage& storage) {
  Pointer<IStream> stream;
  if (FAILED(storage.OpenStream(L"Contents", nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0,
                                stream.Put())))
    return "no stream";
  return BytesIn(*stream.Get());
}

void PutBytes(IStorage& storage, const std::string& bytes) {
  Pointer<IStream> stream;
  storage.CreateStream(L"Contents", kAlone | STGM_CREATE, 0, 0, stream.Put());
  stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
}

class StorageTest : public ControlTest {
 protected:
  StorageTest() : persist_(As<IPersistStorage>()) {}
  void SetUp() override { ASSERT_TRUE(persist_); }

  // What the control would store now.
  std::string Bytes() const { return BytesOf(control_.Get()); }
  static std::string BytesOf(IUnknown* control) {
    Pointer<IStream> stream;
    CreateStreamOnHGlobal(nullptr, TRUE, stream.Put());
    com::Query<IPersistStreamInit>(control)->Save(stream.Get(), FALSE);
    return BytesIn(*stream.Get());
  }

  Pointer<IPersistStorage> persist_;
  Pointer<IStorage> storage_ = NewStorage();
};

TEST_F(StorageTest, HoldsTheBytesOfTheStream) {
  EXPECT_EQ(persist_->InitNew(storage_.Get()), S_OK);
  named().Put(L"prpSelectDoPart", L"x~y");
  EXPECT_EQ(OleSave(persist_.Get(), storage_.Get(), TRUE), S_OK);
  EXPECT_EQ(BytesIn(*storage_.Get()), Bytes());
  named().Put(L"prpSelectDoPart", L"");
  named().Put(L"prpTab", Number(3));
  EXPECT_EQ(persist_->SaveCompleted(nullptr), S_OK);
  EXPECT_EQ(persist_->Save(nullptr, TRUE), S_OK);  // into its own, shorter than before
  EXPECT_EQ(BytesIn(*storage_.Get()), Bytes());
}

TEST_F(StorageTest, IsReadByAnotherControl) {
  named().Put(L"prpSelectDoPart", L"x~y");
  named().Put(L"prpTab", Number(2));
  EXPECT_EQ(persist_->Save(storage_.Get(), FALSE), S_OK);
  const auto other = NewControl();
  const auto persist = com::Query<IPersistStorage>(other.Get());
  EXPECT_EQ(persist->Load(storage_.Get()), S_OK);
  EXPECT_EQ(persist->IsDirty(), S_FALSE);
  const auto again = NewStorage();
  EXPECT_EQ(persist->Save(again.Get(), FALSE), S_OK);
  EXPECT_EQ(BytesIn(*again.Get()), BytesOf(other.Get()));
  EXPECT_NE(BytesOf(other.Get()), BytesOf(NewControl().Get()));
}

TEST_F(StorageTest, IsGivenOnce) {
  EXPECT_EQ(persist_->InitNew(nullptr), E_POINTER);
  EXPECT_EQ(persist_->InitNew(storage_.Get()), S_OK);
  EXPECT_EQ(persist_->InitNew(storage_.Get()), CO_E_ALREADYINITIALIZED);
  EXPECT_EQ(persist_->Load(storage_.Get()), CO_E_ALREADYINITIALIZED);
  EXPECT_EQ(persist_->Save(nullptr, FALSE), E_POINTER);
}

TEST_F(StorageTest, IsLeftAloneBetweenASaveAndItsEnd) {
  EXPECT_EQ(persist_->SaveCompleted(nullptr), E_UNEXPECTED);
  EXPECT_EQ(persist_->InitNew(storage_.Get()), S_OK);
  EXPECT_EQ(persist_->SaveCompleted(nullptr), E_UNEXPECTED);
  EXPECT_EQ(persist_->Save(storage_.Get(), TRUE), S_OK);
  EXPECT_EQ(persist_->Save(storage_.Get(), TRUE), E_UNEXPECTED);
  EXPECT_EQ(persist_->SaveCompleted(nullptr), S_OK);
  EXPECT_EQ(persist_->Save(storage_.Get(), TRUE), S_OK);
}

TEST_F(StorageTest, IsGivenUpWhenHandsAreOff) {
  EXPECT_EQ(persist_->HandsOffStorage(), E_UNEXPECTED);
  EXPECT_EQ(persist_->InitNew(storage_.Get()), S_OK);
  storage_->AddRef();
  const ULONG held = storage_->Release();
  EXPECT_EQ(persist_->HandsOffStorage(), S_OK);
  storage_->AddRef();
  EXPECT_EQ(storage_->Release(), held - 1);
  EXPECT_EQ(persist_->Save(storage_.Get(), FALSE), E_UNEXPECTED);
  EXPECT_EQ(persist_->InitNew(storage_.Get()), E_UNEXPECTED);
  EXPECT_EQ(persist_->SaveCompleted(nullptr), E_INVALIDARG);
  const auto other = NewStorage();
  EXPECT_EQ(persist_->SaveCompleted(other.Get()), S_OK);
  EXPECT_EQ(persist_->Save(nullptr, TRUE), S_OK);
  EXPECT_EQ(BytesIn(*other.Get()), Bytes());
  EXPECT_EQ(BytesIn(*storage_.Get()), "no stream");
}

TEST_F(StorageTest, IsDirtyUntilWhatItHasIsWhatIsStored) {
  EXPECT_EQ(persist_->InitNew(storage_.Get()), S_OK);
  named().Put(L"prpTab", Number(1));
  EXPECT_EQ(persist_->IsDirty(), S_OK);
  const auto copy = NewStorage();
  EXPECT_EQ(persist_->Save(copy.Get(), FALSE), S_OK);
  EXPECT_EQ(persist_->SaveCompleted(nullptr), S_OK);
  EXPECT_EQ(persist_->IsDirty(), S_OK) << "a copy elsewhere is not its own";
  EXPECT_EQ(persist_->Save(copy.Get(), FALSE), S_OK);
  EXPECT_EQ(persist_->SaveCompleted(copy.Get()), S_OK);
  EXPECT_EQ(persist_->IsDirty(), S_FALSE) << "saved under another name";
  named().Put(L"prpTab", Number(2));
  EXPECT_EQ(persist_->Save(copy.Get(), TRUE), S_OK);
  EXPECT_EQ(persist_->IsDirty(), S_OK) << "not over yet";
  EXPECT_EQ(persist_->SaveCompleted(nullptr), S_OK);
  EXPECT_EQ(persist_->IsDirty(), S_FALSE);
}

TEST_F(StorageTest, WhatIsCutOffOrAnotherOnesLosesNothing) {
  named().Put(L"prpSelectDoPart", L"x~y");
  const std::string before = Bytes();
  for (const std::size_t size :
       {std::size_t{0}, std::size_t{3}, std::size_t{40}, before.size() - 1}) {
    PutBytes(*storage_.Get(), before.substr(0, size));
    EXPECT_EQ(persist_->Load(storage_.Get()), STG_E_READFAULT) << size;
    EXPECT_EQ(Bytes(), before);
  }
  PutBytes(*storage_.Get(), "something else, and long enough");
  EXPECT_EQ(persist_->Load(storage_.Get()), STG_E_INVALIDHEADER);
  EXPECT_EQ(persist_->Load(NewStorage().Get()), STG_E_FILENOTFOUND);
  EXPECT_EQ(Bytes(), before);
  EXPECT_EQ(persist_->IsDirty(), S_OK);
  EXPECT_EQ(persist_->InitNew(storage_.Get()), S_OK) << "it is in no storage yet";
}

// Memory.

TEST_F(StorageTest, MemoryHoldsTheSameBytes) {
  named().Put(L"prpSelectDoPart", L"x~y");
  const auto memory = As<IPersistMemory>();
  ULONG size = 0;
  EXPECT_EQ(memory->GetSizeMax(&size), S_OK);
  std::string block(size, '?');
  EXPECT_EQ(memory->Save(block.data(), FALSE, size - 1), E_INVALIDARG);
  EXPECT_EQ(block, std::string(size, '?'));
  EXPECT_EQ(memory->Save(block.data(), FALSE, size), S_OK);
  EXPECT_EQ(memory->IsDirty(), S_OK);
  EXPECT_EQ(block, Bytes());
  EXPECT_EQ(memory->Save(block.data(), TRUE, size), S_OK);
  EXPECT_EQ(memory->IsDirty(), S_FALSE);
  const auto other = NewControl();
  EXPECT_EQ(com::Query<IPersistMemory>(other.Get())->Load(block.data(), size), S_OK);
  EXPECT_NE(BytesOf(other.Get()), BytesOf(NewControl().Get()));
}

TEST_F(StorageTest, AShortBlockOrAForeignOneLosesNothing) {
  named().Put(L"prpSelectDoPart", L"x~y");
  const std::string before = Bytes();
  std::string block = before;
  const auto memory = As<IPersistMemory>();
  for (ULONG size = 0; size < block.size(); ++size)
    ASSERT_EQ(memory->Load(block.data(), size), E_INVALIDARG) << size;
  block[0] = 'x';
  EXPECT_EQ(memory->Load(block.data(), static_cast<ULONG>(block.size())), STG_E_INVALIDHEADER);
  EXPECT_EQ(memory->Load(nullptr, 10), E_POINTER);
  EXPECT_EQ(Bytes(), before);
  EXPECT_EQ(memory->IsDirty(), S_OK);
}

}  // namespace
}  // namespace zolt20::tests
