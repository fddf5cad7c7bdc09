// The recorded sessions in a container of ours.
#include "tests/com/com_test.h"

namespace zolt20::tests {
namespace {

class SessionsTest : public testing::TestWithParam<std::wstring> {};

TEST_P(SessionsTest, GoesAsItWasRecorded) {
  Container container(880, 620);
  SessionPlayer player([&container] { return Embed(container); });
  EXPECT_EQ(player.Play(GetParam()), std::vector<std::string>{});
  EXPECT_GT(player.counts().personLines, 10);
  EXPECT_GT(player.counts().events, 0);
  EXPECT_GT(player.counts().notices, 1);
}

std::string NameOf(const testing::TestParamInfo<std::wstring>& session) {
  std::string name;
  for (const wchar_t each : session.param.substr(session.param.rfind(L'\\') + 1)) {
    if (each == L'.') break;
    if (each != L'-') name += static_cast<char>(each);
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(Recorded, SessionsTest, testing::ValuesIn(SessionsIn(Sessions())), NameOf);

}  // namespace
}  // namespace zolt20::tests
