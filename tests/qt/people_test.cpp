// Random people use the widget by real mouse and keys. The record of their gestures, played by
// zolt20-host, has to end in the same state as the widget.
#include <QProcess>
#include <QTemporaryFile>

#include "tests/qt/hands.h"
#include "tests/support/people.h"
#include "tests/support/places.h"

namespace zolt20::tests {
namespace {

class PeopleTest : public QtHands, public ::testing::WithParamInterface<unsigned> {};

// The last reply of zolt20-host to the lines and a dump.
nlohmann::ordered_json DumpBehind(const std::string& lines) {
  QTemporaryFile file;
  EXPECT_TRUE(file.open());
  file.write(QByteArray::fromStdString(lines + "{\"dump\":true}\n"));
  file.close();
  QProcess host;
  host.start(Qs(HostProgram()), {file.fileName()});
  EXPECT_TRUE(host.waitForFinished()) << Std(host.errorString());
  const QList<QByteArray> replies = host.readAllStandardOutput().trimmed().split('\n');
  return nlohmann::ordered_json::parse(replies.back().toStdString())["value"];
}

TEST_P(PeopleTest, EndWhereTheirRecordEnds) {
  constexpr int kSteps = 300;
  People people(GetParam());
  int done = 0;
  for (int step = 0; step < kSteps && !HasFailure(); ++step) {
    SCOPED_TRACE("seed " + std::to_string(GetParam()) + ", step " + std::to_string(step));
    done += TryStep(*this, people.Next()) ? 1 : 0;
  }
  EXPECT_GT(done, kSteps / 2);
  std::string lines;
  for (const Json& line : Record())
    lines += line.dump() + "\n";
  EXPECT_EQ(Json::diff(DumpBehind(lines), State()), Json::array())
      << "seed " << GetParam() << ", record\n"
      << lines;
}

INSTANTIATE_TEST_SUITE_P(Qt, PeopleTest, ::testing::Range(1U, 7U));

}  // namespace
}  // namespace zolt20::tests
