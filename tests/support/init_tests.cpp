#include "tests/support/init_tests.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

namespace zolt20::tests {
namespace {

class HowToRunAlone final : public ::testing::EmptyTestEventListener {
 public:
  explicit HowToRunAlone(std::string program) : program_(std::move(program)) {}

  void OnTestEnd(const ::testing::TestInfo& test) override {
    if (!test.result()->Failed()) return;
    std::printf("To run it alone:\n  %s --gtest_filter='%s.%s'\n", program_.c_str(),
                test.test_suite_name(), test.name());
    std::fflush(stdout);
  }

 private:
  std::string program_;
};

// A watchdog: ends the program when a case hangs, such as in a dialog that nobody answers, and
// names the case.
class Watchdog final : public ::testing::EmptyTestEventListener {
 public:
  Watchdog() { static_cast<void>(std::signal(SIGALRM, Bark)); }

  void OnTestStart(const ::testing::TestInfo& test) override {
    name_ = std::string("\nEnded after ") + std::to_string(kSeconds) + " s in " +
            test.test_suite_name() + "." + test.name() + "\n";
    alarm(kSeconds);
  }
  void OnTestEnd(const ::testing::TestInfo& /*test*/) override { alarm(0); }

 private:
  // The timeout: ten times the longest case under the sanitizers.
  static constexpr unsigned kSeconds = 600;

  static void Bark(int /*signal*/) {
    static_cast<void>(!write(STDERR_FILENO, name_.data(), name_.size()));
    std::_Exit(1);
  }
  static inline std::string name_;
};

}  // namespace

void InitTests(int* argc, char** argv) {
  GTEST_FLAG_SET(brief, true);
  const std::string program = argv[0];
  ::testing::InitGoogleTest(argc, argv);
  ::testing::UnitTest::GetInstance()->listeners().Append(new HowToRunAlone(program));
  ::testing::UnitTest::GetInstance()->listeners().Append(new Watchdog);
}

}  // namespace zolt20::tests
