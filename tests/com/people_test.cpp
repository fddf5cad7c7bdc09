// Random people use the windows of the form, by the platform's mouse and keys. The record of their
// gestures, played by the automation host, has to end in the same state as the form.
#include "tests/support/people.h"
#include "hosts/automation/dump.h"
#include "hosts/automation/session.h"
#include "tests/com/form_hands.h"

namespace zolt20::tests {
namespace {

using Json = FaceHands::Json;

class PeopleTest : public testing::TestWithParam<unsigned> {};

TEST_P(PeopleTest, EndWhereTheirRecordEnds) {
  constexpr int kSteps = 300;
  FormHands hands;
  People people(GetParam());
  int done = 0;
  for (int step = 0; step < kSteps && !HasFailure(); ++step) {
    SCOPED_TRACE("seed " + std::to_string(GetParam()) + ", step " + std::to_string(step));
    done += TryStep(hands, people.Next()) ? 1 : 0;
  }
  EXPECT_GT(done, kSteps / 2);
  automation::Session host;
  std::string lines;
  for (const Json& line : hands.Record()) {
    lines += line.dump() + "\n";
    host.Reply(line.dump());
  }
  EXPECT_EQ(Json::diff(automation::Dump(host.Control().Form()), automation::Dump(hands.Form())),
            Json::array())
      << "seed " << GetParam() << ", record\n"
      << lines;
}

INSTANTIATE_TEST_SUITE_P(Windows, PeopleTest, testing::Range(1U, 4U));

}  // namespace
}  // namespace zolt20::tests
