// The tests of the composer, and the composers that one of them starts and kills.
#include <gtest/gtest.h>

#include <string_view>

#include "tests/composer/application.h"
#include "tests/composer/driven_composer.h"

int main(int argc, char** argv) {
  const zolt20::tests::TestApplication application(&argc, argv);
  if (argc == 4 && std::string_view(argv[1]) == "--driven")
    return zolt20::tests::DriveComposer(argv[2], argv[3]);
  return RUN_ALL_TESTS();
}
