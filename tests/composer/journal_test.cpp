// The journal's file and what keeps it from being written.
#include "hosts/composer/journal.h"

#include <sys/stat.h>

#include <QDir>
#include <QSignalSpy>

#include "tests/composer/composer_test.h"

namespace zolt20::tests {
namespace {

using composer::Journal;
using composer::JournalHead;
using composer::JournalLines;
using composer::ReadJournal;
using Json = nlohmann::ordered_json;

QByteArray Step(int number) {
  return R"({"user":"click","control":"lsttables","row":)" + QByteArray::number(number) + "}";
}

class JournalTest : public ComposerTest {
 protected:
  JournalHead Head() const {
    return {In("orders.rules"), QStringLiteral("a"), QStringLiteral("b"), {}, {}, {}};
  }
  std::unique_ptr<Journal> NewJournal() {
    return std::make_unique<Journal>([this] { return Head(); });
  }
  static void KeepStep(Journal& journal, int number) {
    journal.Keep(0, Json::parse(Step(number).toStdString()), true);
  }
  static bool IsKept(Journal& journal) { return journal.WaitUntilKept(std::chrono::seconds(10)); }
  std::size_t StepsIn(const QString& path) {
    const auto session = ReadJournal(QByteArray::fromStdString(Bytes(path)));
    return session ? session->steps.all().size() : 0;
  }
};

TEST_F(JournalTest, OfATornFileAllWholeLinesAreRead) {
  JournalLines lines;
  QByteArray bytes = lines.Line(1, 0, HeadLine(Head()));
  std::vector<qsizetype> ends{bytes.size()};
  for (int i = 0; i < 5; ++i) {
    bytes += lines.Line(1, 0, Step(i));
    ends.push_back(bytes.size());
  }
  for (qsizetype size = 0; size <= bytes.size(); ++size) {
    std::size_t whole = 0;
    while (whole < ends.size() && ends[whole] <= size)
      ++whole;
    const auto session = ReadJournal(bytes.left(size));
    ASSERT_EQ(session.has_value(), whole > 0) << size;
    if (!session) continue;
    EXPECT_EQ(session->steps.all().size(), whole - 1) << size;
    EXPECT_EQ(session->size, ends[whole - 1]) << size;
  }
  // Another byte anywhere ends what is read before its line.
  for (qsizetype at = ends[0]; at < bytes.size(); ++at) {
    QByteArray changed = bytes;
    changed[at] = static_cast<char>(changed[at] ^ 1);
    std::size_t whole = 0;
    while (ends[whole] <= at)
      ++whole;
    EXPECT_EQ(ReadJournal(changed)->steps.all().size(), whole - 1) << at;
  }
}

TEST_F(JournalTest, StepsWithinAGestureGoWithIt) {
  composer::JournalSteps steps;
  EXPECT_TRUE(steps.Add(0, Step(1)));
  EXPECT_FALSE(steps.Add(1, Step(2))) << "nobody asked";
  EXPECT_TRUE(steps.Add(0, R"({"ask":{}})"));
  EXPECT_TRUE(steps.Add(1, Step(2)));
  EXPECT_TRUE(steps.Add(1, R"({"ask":{}})"));
  EXPECT_TRUE(steps.Add(2, Step(3)));
  EXPECT_EQ(steps.all().size(), 5U);
  EXPECT_TRUE(steps.Add(1, Step(4)));
  EXPECT_EQ(steps.At(1), (std::vector<QByteArray>{Step(2), Step(4)}));
  EXPECT_TRUE(steps.Add(0, Step(5)));
  EXPECT_EQ(steps.At(0), (std::vector<QByteArray>{Step(1), Step(5)}));
  EXPECT_EQ(steps.all().size(), 2U);
}

TEST_F(JournalTest, OnAFullDiskItTellsAndGoesOnWhenThereIsRoom) {
  auto journal = NewJournal();
  QSignalSpy troubles(journal.get(), &Journal::Troubled);
  KeepStep(*journal, 0);
  ASSERT_TRUE(IsKept(*journal));
  const QString path = journal->path();
  {
    const FullDisk full(static_cast<rlim_t>(Bytes(path).size() + 20));
    for (int i = 1; i < 20; ++i)
      KeepStep(*journal, i);
    ASSERT_TRUE(troubles.wait(5000));
    EXPECT_FALSE(troubles.back()[0].toString().isEmpty());
    EXPECT_EQ(StepsIn(path), 1U) << "no half of a line stays";
  }
  ASSERT_TRUE(IsKept(*journal));
  EXPECT_TRUE(QTest::qWaitFor([&] { return troubles.back()[0].toString().isEmpty(); }));
  EXPECT_EQ(StepsIn(path), 20U);
}

TEST_F(JournalTest, WhereItsFolderHasNoRightsItStandsInTheProgramsData) {
  QDir().mkpath(In("data"));
  ASSERT_EQ(chmod(QFile::encodeName(In("data")).constData(), 0777), 0);
  ASSERT_EQ(chmod(QFile::encodeName(folder_.path()).constData(), 0555), 0);
  {
    const WithoutRootRights ordinary;
    auto journal = NewJournal();
    KeepStep(*journal, 0);
    ASSERT_TRUE(IsKept(*journal));
    EXPECT_TRUE(journal->path().startsWith(In("data") + u'/')) << Std(journal->path());
    journal.reset();
    QStringList complaints;
    const auto left = Journal::Left(In("orders.rules"), complaints);
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left[0].session.steps.all().size(), 1U);
    EXPECT_EQ(complaints, QStringList());
  }
  ASSERT_EQ(chmod(QFile::encodeName(folder_.path()).constData(), 0755), 0);
}

TEST_F(JournalTest, TwoAtOnceHaveAFileEach) {
  auto first = NewJournal();
  auto second = NewJournal();
  KeepStep(*first, 0);
  KeepStep(*second, 1);
  ASSERT_TRUE(IsKept(*first) && IsKept(*second));
  EXPECT_NE(first->path(), second->path());
  QStringList complaints;
  EXPECT_TRUE(Journal::Left(In("orders.rules"), complaints).empty()) << "both are in use";
  first.reset();
  EXPECT_EQ(Journal::Left(In("orders.rules"), complaints).size(), 1U);
  second.reset();
  EXPECT_EQ(Journal::Left(In("orders.rules"), complaints).size(), 2U);
}

TEST_F(JournalTest, WhatIsNoJournalOfThisVersionStays) {
  JournalLines lines;
  QByteArray head = HeadLine(Head());
  head.replace(R"("version":1)", R"("version":2)");
  WriteBytes(In("orders.rules.journal"), lines.Line(1, 0, head).toStdString());
  WriteBytes(In("orders.rules.2.journal"), std::string(100, 'x'));
  QStringList complaints;
  EXPECT_TRUE(Journal::Left(In("orders.rules"), complaints).empty());
  complaints.sort();
  ASSERT_EQ(complaints.size(), 2);
  EXPECT_TRUE(complaints[0].contains(QStringLiteral("or no journal"))) << Std(complaints[0]);
  EXPECT_TRUE(complaints[1].contains(QStringLiteral("later version"))) << Std(complaints[1]);
  auto journal = NewJournal();
  KeepStep(*journal, 0);
  ASSERT_TRUE(IsKept(*journal));
  EXPECT_EQ(journal->path(), In("orders.rules.3.journal"));
}

}  // namespace
}  // namespace zolt20::tests
