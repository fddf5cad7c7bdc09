// What a file of rules keeps beside the rules: the texts before, notes, and a bin.
#include <gtest/gtest.h>

#include <QDateTime>
#include <QTemporaryDir>
#include <chrono>

#include "hosts/composer/rules_file.h"
#include "tests/composer/files.h"
#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using composer::DeletedRule;
using composer::Rule;
using composer::RulesError;
using composer::RulesFile;
using composer::Version;

class RuleVersionsTest : public ::testing::Test {
 protected:
  QString File() const { return folder_.filePath(QStringLiteral("orders.rules")); }
  RulesFile Made() const { return RulesFile::Create(File()); }
  /// The file as it is after it was saved and read again.
  void SaveAndRead(RulesFile& file) const {
    file.Save();
    file.Reload();
  }
  static Texts TextsOf(const std::vector<Version>& versions) {
    Texts texts;
    for (const Version& version : versions)
      texts.push_back(Narrow(version.text) + "/" + Narrow(version.fields));
    return texts;
  }
  static Texts BinOf(const RulesFile& file) {
    Texts names;
    for (const DeletedRule& deleted : file.Bin())
      names.push_back(Narrow(deleted.rule.name) + ": " + Narrow(deleted.rule.text));
    return names;
  }
  static void ExpectNow(const String& time, const QDateTime& before) {
    const QDateTime told = QDateTime::fromString(QString::fromStdU16String(time), Qt::ISODate);
    EXPECT_TRUE(told.isValid()) << Narrow(time);
    EXPECT_EQ(told.timeSpec(), Qt::UTC) << Narrow(time);
    EXPECT_GE(told, before.addSecs(-1)) << Narrow(time);
    EXPECT_LE(told, QDateTime::currentDateTimeUtc()) << Narrow(time);
  }

  QTemporaryDir folder_;
};

// --- Versions

TEST_F(RuleVersionsTest, TheTextsBeforeAreKeptWithTheirTimes) {
  const QDateTime before = QDateTime::currentDateTimeUtc();
  RulesFile file = Made();
  file.Put({u"A", u"1", u"f1"});
  EXPECT_EQ(TextsOf(file.VersionsOf(u"A")), Texts{});
  file.Put({u"A", u"2", u"f2"});
  file.Put({u"A", u"3", u"f3"});
  SaveAndRead(file);
  EXPECT_EQ(TextsOf(file.VersionsOf(u"A")), (Texts{"1/f1", "2/f2"}));
  for (const Version& version : file.VersionsOf(u"A"))
    ExpectNow(version.stored, before);
  ExpectNow(file.StoredAt(u"A"), before);
  EXPECT_THROW(file.VersionsOf(u"B"), RulesError);
  EXPECT_THROW(file.StoredAt(u"B"), RulesError);
}

TEST_F(RuleVersionsTest, TheSameTextIsNoVersion) {
  RulesFile file = Made();
  file.Put({u"A", u"1", u"f1"});
  file.Put({u"A", u"1", u"f1"});
  file.Put({u"A", u"1", u"f2"});
  EXPECT_EQ(TextsOf(file.VersionsOf(u"A")), Texts{});
  EXPECT_EQ(file.Find(u"A")->fields, u"f2");
}

TEST_F(RuleVersionsTest, TheLastTwentyAreKept) {
  RulesFile file = Made();
  for (int i = 0; i <= 25; ++i)
    file.Put({u"A", Wide(std::to_string(i)), u""});
  SaveAndRead(file);
  const std::vector<Version> versions = file.VersionsOf(u"A");
  ASSERT_EQ(versions.size(), RulesFile::kVersions);
  EXPECT_EQ(versions.front().text, u"5");
  EXPECT_EQ(versions.back().text, u"24");
}

TEST_F(RuleVersionsTest, VersionsAndNotesGoWithARenamedRuleAndNotIntoACopy) {
  RulesFile file = Made();
  file.Put({u"A", u"1", u""});
  file.Put({u"A", u"2", u""});
  file.SetNote(u"A", u"first\nsecond");
  file.Rename(u"A", u"B");
  EXPECT_EQ(file.Duplicate(u"B"), u"B (2)");
  SaveAndRead(file);
  EXPECT_EQ(TextsOf(file.VersionsOf(u"B")), Texts{"1/"});
  EXPECT_EQ(file.NoteOf(u"B"), u"first\nsecond");
  EXPECT_EQ(TextsOf(file.VersionsOf(u"B (2)")), Texts{});
  EXPECT_EQ(file.NoteOf(u"B (2)"), u"first\nsecond");
}

TEST_F(RuleVersionsTest, ANoteIsAChangeOfTheFile) {
  RulesFile file = Made();
  file.Put({u"A", u"1", u""});
  file.Save();
  file.SetNote(u"A", u"");
  EXPECT_FALSE(file.IsChanged());
  file.SetNote(u"A", u"x");
  EXPECT_TRUE(file.IsChanged());
  EXPECT_THROW(file.SetNote(u"B", u"x"), RulesError);
  EXPECT_THROW(static_cast<void>(file.NoteOf(u"B")), RulesError);
}

// --- The bin

TEST_F(RuleVersionsTest, ADeletedRuleComesBackWithAllThatBelongsToIt) {
  const QDateTime before = QDateTime::currentDateTimeUtc();
  WriteBytes(File(), R"({"format":"zolt20 rules","version":1,"rules":[
    {"name":"A","text":"1","fields":"f","tags":["x"]},{"name":"B","text":"","fields":""}]})");
  RulesFile file = RulesFile::Open(File());
  file.Put({u"A", u"2", u"f"});
  file.SetNote(u"A", u"note");
  file.Remove(u"A");
  EXPECT_TRUE(file.IsChanged());
  EXPECT_EQ(file.Find(u"A"), nullptr);
  SaveAndRead(file);
  ASSERT_EQ(BinOf(file), Texts{"A: 2"});
  ExpectNow(file.Bin().front().deleted, before);
  EXPECT_EQ(file.BringBack(0), u"A");
  EXPECT_TRUE(file.IsChanged());
  SaveAndRead(file);
  EXPECT_EQ(BinOf(file), Texts{});
  EXPECT_EQ(file.rules().back(), (Rule{u"A", u"2", u"f"}));
  EXPECT_EQ(file.NoteOf(u"A"), u"note");
  EXPECT_EQ(TextsOf(file.VersionsOf(u"A")), Texts{"1/f"});
  EXPECT_NE(Bytes(File()).find("\"tags\""), std::string::npos);
}

TEST_F(RuleVersionsTest, ARuleComesBackUnderANameThatIsFree) {
  RulesFile file = Made();
  for (const char16_t* text : {u"1", u"2"}) {
    file.Put({u"A", text, u""});
    file.Remove(u"A");
  }
  file.Put({u"A", u"3", u""});
  EXPECT_EQ(BinOf(file), (Texts{"A: 1", "A: 2"}));
  EXPECT_EQ(file.BringBack(1), u"A (2)");
  EXPECT_EQ(file.Find(u"A (2)")->text, u"2");
  EXPECT_EQ(BinOf(file), (Texts{"A: 1"}));
  EXPECT_THROW(file.BringBack(1), RulesError);
}

TEST_F(RuleVersionsTest, ARuleOfTheBinCanBeDeletedForGood) {
  RulesFile file = Made();
  file.Put({u"A", u"1", u""});
  file.Remove(u"A");
  file.Save();
  file.Forget(0);
  EXPECT_TRUE(file.IsChanged());
  EXPECT_EQ(BinOf(file), Texts{});
  EXPECT_THROW(file.Forget(0), RulesError);
}

// --- The file

TEST_F(RuleVersionsTest, UnknownKeysOfVersionsAndOfTheBinAreKept) {
  const std::string bytes = R"({
  "format": "zolt20 rules",
  "version": 2,
  "rules": [
    {
      "name": "A",
      "text": "2",
      "fields": "",
      "note": "n",
      "versions": [
        {
          "text": "1",
          "fields": "",
          "by": "x"
        }
      ]
    }
  ],
  "bin": [
    {
      "name": "B",
      "text": "",
      "fields": "",
      "deleted": "2026-01-31T23:59:59Z",
      "why": "x"
    }
  ]
}
)";
  WriteBytes(File(), bytes);
  RulesFile file = RulesFile::Open(File());
  file.SaveOver();
  EXPECT_EQ(Bytes(File()), bytes);
}

struct WrongKey {
  const char* what;
  const char* keys;  ///< of the rule A, or of the top
  const char* complaint;
};
std::ostream& operator<<(std::ostream& out, const WrongKey& wrong) {
  return out << wrong.what;
}
class WrongVersionsTest : public RuleVersionsTest,
                          public ::testing::WithParamInterface<WrongKey> {};

TEST_P(WrongVersionsTest, IsComplainedOf) {
  WriteBytes(File(), std::string(R"({"format":"zolt20 rules","version":2,)") + GetParam().keys);
  try {
    RulesFile::Open(File());
    ADD_FAILURE() << "it was read";
  } catch (const RulesError& error) {
    EXPECT_EQ(error.what(), File().toStdString() + GetParam().complaint);
  }
}

constexpr WrongKey kWrongKeys[] = {
    {"Note", R"("rules":[{"name":"A","text":"","fields":"","note":1}]})",
     ": rule \"A\" has a \"note\" that is no string"},
    {"Stored", R"("rules":[{"name":"A","text":"","fields":"","stored":1}]})",
     ": rule \"A\" has a \"stored\" that is no string"},
    {"Versions", R"("rules":[{"name":"A","text":"","fields":"","versions":{}}]})",
     ": rule \"A\" has \"versions\" that are no array"},
    {"Version", R"("rules":[{"name":"A","text":"","fields":"","versions":[1]}]})",
     ": rule \"A\" has a version that is no object"},
    {"VersionWithoutText", R"("rules":[{"name":"A","text":"","fields":"","versions":[{}]}]})",
     ": rule \"A\" has no \"text\""},
    {"Bin", R"("rules":[],"bin":1})", " has \"bin\" that are no array"},
    {"InTheBin", R"("rules":[],"bin":[1]})", ": deleted rule number 1 is no object"},
    {"Deleted", R"("rules":[],"bin":[{"name":"A","text":"","fields":"","deleted":1}]})",
     ": deleted rule \"A\" has a \"deleted\" that is no string"},
};
INSTANTIATE_TEST_SUITE_P(RuleVersions, WrongVersionsTest, ::testing::ValuesIn(kWrongKeys),
                         [](const auto& test) { return test.param.what; });

// --- Many rules

// Quadratic work would take minutes here.
TEST_F(RuleVersionsTest, FiveThousandRulesWithAllTheirVersionsAreStoredAndRead) {
  RulesFile file = Made();
  for (std::size_t version = 0; version <= RulesFile::kVersions; ++version) {
    for (int i = 0; i < 5000; ++i)
      file.Put({Wide(std::to_string(i)), Wide(std::to_string(version)), u""});
  }
  const auto start = std::chrono::steady_clock::now();
  SaveAndRead(file);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  EXPECT_LT(taken.count(), 30);
  ASSERT_EQ(file.rules().size(), 5000U);
  for (int i = 0; i < 5000; i += 499)
    EXPECT_EQ(file.VersionsOf(Wide(std::to_string(i))).size(), RulesFile::kVersions);
}

}  // namespace
}  // namespace zolt20::tests
