#include "tests/support/init_tests.h"

#include <gtest/gtest.h>

#include <cstdio>
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

}  // namespace

void InitTests(int* argc, char** argv) {
  GTEST_FLAG_SET(brief, true);
  const std::string program = argv[0];
  ::testing::InitGoogleTest(argc, argv);
  ::testing::UnitTest::GetInstance()->listeners().Append(new HowToRunAlone(program));
}

}  // namespace zolt20::tests
