#include <gtest/gtest.h>

#include "tests/support/init_tests.h"

int main(int argc, char** argv) {
  zolt20::tests::InitTests(&argc, argv);
  return RUN_ALL_TESTS();
}
