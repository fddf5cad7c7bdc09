#include "tests/torture/allocations.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace zolt20::tests {
namespace {

constexpr std::size_t kPlain = alignof(std::max_align_t);

struct State {
  long live = 0;
  bool counts = false;
  int untilFailure = 0;  // of the counted ones
  bool hasFailed = false;
};

// Set up before any allocation, as it is constant.
constinit State state;

// nullptr when this one is to fail.
void* Allocate(std::size_t size, std::size_t alignment) {
  if (state.counts && state.untilFailure > 0 && --state.untilFailure == 0) {
    state.hasFailed = true;
    return nullptr;
  }
  void* memory = nullptr;
  if (alignment <= kPlain) {
    memory = std::malloc(size == 0 ? 1 : size);
  } else {
    memory = std::aligned_alloc(alignment, (size + alignment - 1) / alignment * alignment);
  }
  if (memory != nullptr) ++state.live;
  return memory;
}

void* AllocateOrThrow(std::size_t size, std::size_t alignment) {
  void* memory = Allocate(size, alignment);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void Free(void* memory) noexcept {
  if (memory == nullptr) return;
  --state.live;
  std::free(memory);
}

}  // namespace

long LiveAllocations() {
  return state.live;
}

FailingAllocation::FailingAllocation(int n) {
  state.untilFailure = n;
  state.hasFailed = false;
  state.counts = true;
}

FailingAllocation::~FailingAllocation() {
  state.counts = false;
  state.untilFailure = 0;
}

bool FailingAllocation::HasFailed() {
  return state.hasFailed;
}

Uncounted::Uncounted() : counted_(state.counts) {
  state.counts = false;
}

Uncounted::~Uncounted() {
  state.counts = counted_;
}

}  // namespace zolt20::tests

// Every form of them: a sanitizer brings forms of its own for those that are not replaced here.
using zolt20::tests::Allocate;
using zolt20::tests::AllocateOrThrow;
using zolt20::tests::Free;
using zolt20::tests::kPlain;

void* operator new(std::size_t size) {
  return AllocateOrThrow(size, kPlain);
}
void* operator new[](std::size_t size) {
  return AllocateOrThrow(size, kPlain);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return Allocate(size, kPlain);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return Allocate(size, kPlain);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
  return AllocateOrThrow(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
  return AllocateOrThrow(size, static_cast<std::size_t>(alignment));
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
  return Allocate(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
  return Allocate(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* memory) noexcept {
  Free(memory);
}
void operator delete[](void* memory) noexcept {
  Free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  Free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  Free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
  Free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
  Free(memory);
}
void operator delete(void* memory, std::align_val_t) noexcept {
  Free(memory);
}
void operator delete[](void* memory, std::align_val_t) noexcept {
  Free(memory);
}
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
  Free(memory);
}
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept {
  Free(memory);
}
void operator delete(void* memory, std::align_val_t, const std::nothrow_t&) noexcept {
  Free(memory);
}
void operator delete[](void* memory, std::align_val_t, const std::nothrow_t&) noexcept {
  Free(memory);
}
