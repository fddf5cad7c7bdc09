// The tests of the composer at database servers.
#include <gtest/gtest.h>

#include "tests/composer/application.h"

int main(int argc, char** argv) {
  const zolt20::tests::TestApplication application(&argc, argv);
  return RUN_ALL_TESTS();
}
