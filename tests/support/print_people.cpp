// Prints the steps of people made up at random, a line each, for players in other languages.
//   zolt20-people SEED STEPS
#include <cstdio>
#include <cstdlib>

#include "tests/support/people.h"

int main(int count, char** arguments) {
  if (count != 3) {
    std::fputs("zolt20-people SEED STEPS\n", stderr);
    return EXIT_FAILURE;
  }
  zolt20::tests::People people(static_cast<unsigned>(std::atoi(arguments[1])));
  for (int step = std::atoi(arguments[2]); step > 0; --step)
    std::printf("%s\n", people.Next().dump().c_str());
  return EXIT_SUCCESS;
}
