// The allocations of a test program, which can be made to fail one by one.
//
// The program's operator new and delete are replaced by those of allocations.cpp: they count what
// is alive, and while a test says so they count towards the one that fails. Everything goes through
// malloc, so that the sanitizers still see it. One thread.
#pragma once

namespace zolt20::tests {

/// The allocations that were made and not yet freed.
long LiveAllocations();

/// While one of these lives, allocations are counted, and the n-th of them throws std::bad_alloc;
/// those before and behind it work. One at a time.
class FailingAllocation {
 public:
  explicit FailingAllocation(int n);
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;
  ~FailingAllocation();

  /// Whether it has failed.
  static bool HasFailed();
};

/// While one of these lives, allocations are not counted: those of the test, within a call of the
/// system under test.
class Uncounted {
 public:
  Uncounted();
  Uncounted(const Uncounted&) = delete;
  Uncounted& operator=(const Uncounted&) = delete;
  ~Uncounted();

 private:
  bool counted_;
};

}  // namespace zolt20::tests
