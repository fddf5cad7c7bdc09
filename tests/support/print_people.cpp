// Prints what people made up at random do, a line each, for players in other languages.
//   zolt20-people SEED LINES             steps of mouse and keys
//   zolt20-people --requests SEED LINES  requests of the automation host: gestures on anything in
//                                        sight between those of courses
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "tests/support/direct_road.h"
#include "tests/support/people.h"
#include "tests/support/session_maker.h"

namespace zolt20::tests {
namespace {

using Json = nlohmann::ordered_json;

void Print(const Json& line) {
  std::printf("%s\n", line.dump().c_str());
}

void PrintSteps(unsigned seed, int lines) {
  People people(seed);
  for (; lines > 0; --lines)
    Print(people.Next());
}

void PrintRequests(unsigned seed, int lines) {
  SeededChoices choices(seed);
  SessionMaker maker(choices, Gestures::kOfAPerson);
  DirectRoad road;
  while (lines > 0) {
    const Surface& form = road.Control().Form();
    const Json request = choices.OneIn(2) ? maker.LikelyGesture(form) : maker.Next(form);
    if (request.is_null()) continue;
    if (request.value("user", "") == "dblclick") {
      // A double click of a person is a click before it.
      Json click = request;
      click["user"] = "click";
      road.Reply(click);
    }
    maker.Hear(request, road.Reply(request));
    Print(request);
    --lines;
  }
}

}  // namespace
}  // namespace zolt20::tests

int main(int count, char** arguments) {
  const bool areRequests = count == 4 && std::string_view(arguments[1]) == "--requests";
  if (count != 3 && !areRequests) {
    std::fputs("zolt20-people [--requests] SEED LINES\n", stderr);
    return EXIT_FAILURE;
  }
  const auto seed = static_cast<unsigned>(std::atoi(arguments[count - 2]));
  const int lines = std::atoi(arguments[count - 1]);
  areRequests ? zolt20::tests::PrintRequests(seed, lines) : zolt20::tests::PrintSteps(seed, lines);
  return EXIT_SUCCESS;
}
