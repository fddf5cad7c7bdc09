// A disk that is full, for tests of what writes files.
#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

namespace zolt20::tests {

/// As long as it lives, no file of this process can grow beyond a number of bytes.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit now{bytes, before_.rlim_max};
    handler_ = std::signal(SIGXFSZ, SIG_IGN);
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &now), 0);
  }
  ~FullDisk() {
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &before_), 0);
    static_cast<void>(std::signal(SIGXFSZ, handler_));
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int) = SIG_DFL;
};

}  // namespace zolt20::tests
