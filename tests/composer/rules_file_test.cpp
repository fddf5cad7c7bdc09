#include "hosts/composer/rules_file.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "tests/composer/files.h"
#include "tests/composer/traced_disk.h"
#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using composer::ChangedOnDisk;
using composer::Rule;
using composer::RulesError;
using composer::RulesFile;

constexpr int kCannotTell = 77;

std::string Reason(int error) {
  return std::generic_category().message(error);
}

// What is complained of, "" when nothing is.
std::string ComplaintOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RulesError& error) {
    return error.what();
  }
  return {};
}

// Runs the steps in another process; gives back 0 when no check in them failed.
int InAnotherProcess(const std::function<void()>& steps) {
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    steps();
    std::fflush(nullptr);
    _exit(::testing::Test::HasFailure() ? 1 : 0);
  }
  int status = -1;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// The same without the rights of root. kCannotTell when they can't be given up, or when an ordinary
// person can't come into the folder at all.
int AsAnOrdinaryPerson(const QString& folder, const std::function<void()>& steps) {
  constexpr id_t kNobody = 65534;
  return InAnotherProcess([&] {
    if (geteuid() == 0 &&
        (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0)) {
      _exit(kCannotTell);
    }
    if (access(QFile::encodeName(folder).constData(), X_OK) != 0) _exit(kCannotTell);
    steps();
  });
}

// A composer in another process that has a file open until the end of this object.
class OtherComposer {
 public:
  explicit OtherComposer(const QString& path) {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    process_ = fork();
    if (process_ == 0) {
      const std::string complaint = ComplaintOf([&] {
        const RulesFile file = RulesFile::Open(path);
        EXPECT_EQ(write(ends[1], "1", 1), 1);
        while (true)
          pause();
      });
      _exit(1);
    }
    close(ends[1]);
    char opened = '0';
    EXPECT_EQ(read(ends[0], &opened, 1), 1) << "it can't open the file";
    close(ends[0]);
  }
  ~OtherComposer() { Kill(); }
  OtherComposer(const OtherComposer&) = delete;
  OtherComposer& operator=(const OtherComposer&) = delete;

  void Kill() {
    if (process_ == 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    process_ = 0;
  }
  pid_t Process() const { return process_; }

 private:
  pid_t process_ = 0;
};

class RulesFileTest : public ::testing::Test {
 protected:
  QString In(const char* name) const { return folder_.filePath(QString::fromUtf8(name)); }
  QString File() const { return In("orders.rules"); }
  // What a complaint of the file is, from its name on.
  std::string Of(const std::string& complaint) const { return File().toStdString() + complaint; }

  static void SetMode(const QString& path, mode_t mode) {
    ASSERT_EQ(chmod(QFile::encodeName(path).constData(), mode), 0);
  }
  static mode_t Mode(const QString& path) {
    struct stat status {};
    EXPECT_EQ(stat(QFile::encodeName(path).constData(), &status), 0);
    return status.st_mode & 07777U;
  }

  // The names in the folder, in the order of the alphabet.
  Texts Folder() const {
    Texts names;
    const auto filter = QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System;
    for (const QString& name : QDir(folder_.path()).entryList(filter, QDir::Name)) {
      names.push_back(name.toStdString());
    }
    return names;
  }

  static Texts Names(const RulesFile& file) {
    Texts names;
    for (const Rule& rule : file.rules())
      names.push_back(Narrow(rule.name));
    return names;
  }

  // A saved file of one rule, open.
  RulesFile Saved() const {
    RulesFile file = RulesFile::Create(File());
    file.Put({u"Orders", u"text", u"fields"});
    file.Save();
    return file;
  }
  std::string OpenComplaint() const {
    return ComplaintOf([this] { RulesFile::Open(File()); });
  }
  std::vector<Rule> ReadAgain() const { return RulesFile::Open(File()).rules(); }

  QTemporaryDir folder_;
};

// --- What is in the file

TEST_F(RulesFileTest, ANewFileIsMadeByTheFirstSave) {
  RulesFile file = RulesFile::Create(File());
  EXPECT_FALSE(QFile::exists(File()));
  EXPECT_TRUE(file.rules().empty());
  file.Save();
  EXPECT_EQ(Bytes(File()),
            "{\n"
            "  \"format\": \"zolt20 rules\",\n"
            "  \"version\": 2,\n"
            "  \"rules\": []\n"
            "}\n");
}

TEST_F(RulesFileTest, TheFileIsReadableJsonEndedByALineFeed) {
  RulesFile file = RulesFile::Create(File());
  file.Put({u"Orders of K\u00E4ufer", u"select ORDERS__.O_ID\r\nfrom  ORDERS__\r\n\tif \"~\" = \\",
            u"long*Q*V*R*N*NORDERS__.O_ID*Q*V*R*N*key"});
  file.Put({u"2", u"\x01\xD83D|\xDCD6|\xD83D\xDCD6", u""});
  file.Save();
  EXPECT_EQ(
      Timeless(File()),
      "{\n"
      "  \"format\": \"zolt20 rules\",\n"
      "  \"version\": 2,\n"
      "  \"rules\": [\n"
      "    {\n"
      "      \"name\": \"Orders of K\u00E4ufer\",\n"
      "      \"text\": \"select ORDERS__.O_ID\\r\\nfrom  ORDERS__\\r\\n\\tif \\\"~\\\" = \\\\\","
      "\n"
      "      \"fields\": \"long*Q*V*R*N*NORDERS__.O_ID*Q*V*R*N*key\"\n"
      "    },\n"
      "    {\n"
      "      \"name\": \"2\",\n"
      "      \"text\": \"\\u0001\\ud83d|\\udcd6|\U0001F4D6\",\n"
      "      \"fields\": \"\"\n"
      "    }\n"
      "  ]\n"
      "}\n");
}

TEST_F(RulesFileTest, TextsComeBackToTheLastCharacter) {
  const std::vector<String> texts = {
      u"a",
      u"line\r\nline\n\r\ttab\v\f\b",
      u"\"quotes\" 'and' `^` \\ / backslashes \\u0041 \\ud800",
      u"~",
      u"\x01",
      String(1, u'\0'),
      u"  blanks at the ends ",
      u"K\u00E4ufer \u20AC \xD83D\xDCD6",
      u"\xD83D",
      u"\xDCD6\xD83D",
      u"\xD800\xD800\xDC00\xDC00",
      u"\xDBFF\xDFFF",
      u"\xDBFF\xDFFF\xD800\xDBFF\xDFFF",
      u"\xFEFF\xFFFE\xFFFF\x7F\xE000",
  };
  RulesFile file = RulesFile::Create(File());
  for (const String& text : texts)
    file.Put({text, text, text});
  file.Save();
  const std::vector<Rule> saved = file.rules();
  file = RulesFile::Create(In("another.rules"));
  const std::vector<Rule> read = ReadAgain();
  ASSERT_EQ(read.size(), texts.size());
  EXPECT_EQ(read, saved);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    EXPECT_EQ(read[i].name, texts[i]);
    EXPECT_EQ(read[i].text, texts[i]);
    EXPECT_EQ(read[i].fields, texts[i]);
  }
}

// Upwards one pair comes about, downwards none.
TEST_F(RulesFileTest, ATextOfAMegabyteWithEveryCharacterComesBack) {
  String text;
  for (int i = 0; i < 4; ++i) {
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit)
      text += static_cast<char16_t>(unit);
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit)
      text += static_cast<char16_t>(0xFFFF - unit);
  }
  ASSERT_EQ(text.size() * sizeof(char16_t), std::size_t{1} << 20U);
  {
    RulesFile file = RulesFile::Create(File());
    file.Put({u"all", text, u""});
    file.Save();
  }
  const std::vector<Rule> read = ReadAgain();
  ASSERT_EQ(read.size(), 1U);
  EXPECT_TRUE(read[0].text == text);
}

TEST_F(RulesFileTest, AFileWrittenByHandIsRead) {
  WriteBytes(File(),
             "\xEF\xBB\xBF"
             R"({"rules":[{"fields":"f","text":"a\r\n\tb\ud800\uDBFF\uDFFF","name":"\u004f"}],)"
             "\r\n"
             R"("version":1,"format":"zolt20 rules"})");
  EXPECT_EQ(ReadAgain(), (std::vector<Rule>{{u"O", u"a\r\n\tb\xD800\xDBFF\xDFFF", u"f"}}));
}

TEST_F(RulesFileTest, UnknownKeysAreKeptWithTheirRules) {
  WriteBytes(File(),
             R"({"format":"zolt20 rules","made by":{"z":[1,-2.5,null],"a":"\udc00"},"version":1,
                 "rules":[{"name":"A","text":"","fields":"","tags":["x"],"name2":true},
                          {"name":"B","text":"","fields":"","b":1},
                          {"name":"C","text":"","fields":"","c":1}],"last":0})");
  RulesFile file = RulesFile::Open(File());
  file.Rename(u"A", u"a");
  file.Put({u"a", u"new", u""});
  file.Remove(u"B");
  file.Forget(0);
  EXPECT_EQ(file.Duplicate(u"C"), u"C (2)");
  file.Put({u"D", u"", u""});
  file.Save();
  EXPECT_EQ(Timeless(File()), R"json({
  "format": "zolt20 rules",
  "version": 2,
  "rules": [
    {
      "name": "a",
      "text": "new",
      "fields": "",
      "versions": [
        {
          "text": "",
          "fields": ""
        }
      ],
      "tags": [
        "x"
      ],
      "name2": true
    },
    {
      "name": "C",
      "text": "",
      "fields": "",
      "c": 1
    },
    {
      "name": "C (2)",
      "text": "",
      "fields": "",
      "c": 1
    },
    {
      "name": "D",
      "text": "",
      "fields": ""
    }
  ],
  "made by": {
    "z": [
      1,
      -2.5,
      null
    ],
    "a": "\udc00"
  },
  "last": 0
}
)json");
}

TEST_F(RulesFileTest, UnknownKeysMayBeAHundredLevelsDeepInAll) {
  const auto nested = [](std::size_t arrays) {
    return R"({"format":"zolt20 rules","version":1,"rules":[],"x":)" + std::string(arrays, '[') +
           std::string(arrays, ']') + "}";
  };
  WriteBytes(File(), nested(99));
  EXPECT_EQ(OpenComplaint(), "");
  WriteBytes(File(), nested(100));
  EXPECT_EQ(OpenComplaint(), Of(" is nested more than 100 levels deep"));
  WriteBytes(File(), nested(1000000));
  EXPECT_EQ(OpenComplaint(), Of(" is nested more than 100 levels deep"));
}

// --- What can't be read. Reading stops at the last character of what should not be there.

constexpr const char* kSound = R"({
  "format": "zolt20 rules",
  "version": 1,
  "rules": [
    {"name": "Orders", "text": "a", "fields": "b"},
    {"name": "Stock", "text": "c", "fields": "d"}
  ]
})";

struct Wrong {
  const char* what;
  const char* part;  ///< of the sound file
  const char* by;
  const char* complaint;  ///< behind the name of the file
};

std::ostream& operator<<(std::ostream& out, const Wrong& wrong) {
  return out << wrong.what;
}

class WrongRulesFileTest : public RulesFileTest, public ::testing::WithParamInterface<Wrong> {};

TEST_P(WrongRulesFileTest, IsComplainedOfAndLeftAsItIs) {
  std::string bytes = kSound;
  const std::size_t at = bytes.find(GetParam().part);
  ASSERT_NE(at, std::string::npos);
  bytes.replace(at, std::string(GetParam().part).size(), GetParam().by);
  WriteBytes(File(), bytes);
  EXPECT_EQ(OpenComplaint(), Of(GetParam().complaint));
  EXPECT_EQ(Bytes(File()), bytes);
  EXPECT_EQ(Folder(), (Texts{"orders.rules"}));
}

constexpr Wrong kWrongs[] = {
    {"NoJson", kSound, "select", " is no JSON: reading stops at line 1, column 1"},
    {"CommaMissing", "1,", "1", " is no JSON: reading stops at line 4, column 9"},
    {"ColumnsAreCharacters", R"("Orders", )", "\"\u00E4\U0001F4D6\" ",
     " is no JSON: reading stops at line 5, column 24"},
    {"SomethingBehindTheEnd", "  ]\n}", "  ]\n}}",
     " is no JSON: reading stops at line 8, column 2"},
    {"NoUtf8", "Orders", "\xE4", " is no JSON: reading stops at line 5, column 16"},
    {"LineEndWithinAText", "Orders", "Or\nders", " is no JSON: reading stops at line 5, column 17"},
    {"NumberBeyondAll", "1,", "1e999,", " is no JSON: reading stops at line 3, column 18"},
    {"NoObject", kSound, "[]", " is no file of rules"},
    {"NoFormat", R"("format": "zolt20 rules",)", "", " is no file of rules"},
    {"AnotherFormat", "zolt20 rules", "zolt20 rule", " is no file of rules"},
    {"FormatOfAnotherType", R"("zolt20 rules")", R"(["zolt20 rules"])", " is no file of rules"},
    {"NoVersion", R"("version": 1,)", "", " has no \"version\""},
    {"VersionAsText", R"("version": 1)", R"("version": "1")",
     " has a \"version\" that is no whole number"},
    {"BrokenVersion", R"("version": 1)", R"("version": 1.5)",
     " has a \"version\" that is no whole number"},
    {"VersionNull", R"("version": 1)", R"("version": 0)",
     " has a \"version\" 0, which there is not"},
    {"NegativeVersion", R"("version": 1)", R"("version": -1)",
     " has a \"version\" -1, which there is not"},
    {"LaterVersion", R"("version": 1)", R"("version": 3)",
     " was written by a later version: its format is version 3, and this program knows version 2"},
    {"MuchLaterVersion", R"("version": 1)", R"("version": 18446744073709551615)",
     " was written by a later version: its format is version 18446744073709551615, and this "
     "program knows version 2"},
    {"NoRules", R"("rules")", R"("rule")", " has no \"rules\""},
    {"RulesTwice", R"("version")", R"("rules": [], "version")",
     " has the key \"rules\" twice in one place"},
    {"TextTwice", R"("text": "a")", R"("text": "a", "text": "b")",
     " has the key \"text\" twice in one place"},
    {"RuleIsNoObject", "{\"name\": \"Orders\"", "null, {\"name\": \"Orders\"",
     ": rule number 1 is no object"},
    {"RuleWithoutName", R"("name": "Stock", )", "", ": rule number 2 has no \"name\""},
    {"NameOfAnotherType", R"("Stock")", "1", ": rule number 2 has a \"name\" that is no string"},
    {"EmptyName", "Stock", "", ": rule number 2 has an empty \"name\""},
    {"DoubledName", "Stock", "Orders", " has two rules of the name \"Orders\""},
    {"NoText", R"("text": "c", )", "", ": rule \"Stock\" has no \"text\""},
    {"TextOfAnotherType", R"("c")", "null", ": rule \"Stock\" has a \"text\" that is no string"},
    {"NoFields", R"(, "fields": "d")", "", ": rule \"Stock\" has no \"fields\""},
    {"FieldsOfAnotherType", R"("d")", "[]", ": rule \"Stock\" has a \"fields\" that is no string"},
};

INSTANTIATE_TEST_SUITE_P(RulesFile, WrongRulesFileTest, ::testing::ValuesIn(kWrongs),
                         [](const auto& test) { return test.param.what; });

TEST_F(RulesFileTest, TheRulesOfAnotherTypeAreComplainedOf) {
  WriteBytes(File(), R"({"format":"zolt20 rules","version":1,"rules":{}})");
  EXPECT_EQ(OpenComplaint(), Of(" has \"rules\" that are no array"));
}

TEST_F(RulesFileTest, NamesWithPercentSignsStandInComplaintsAsTheyAre) {
  const QString path = In("100%2 %1.rules");
  WriteBytes(path, R"({"format":"zolt20 rules","version":1,"rules":[0]})");
  EXPECT_EQ(ComplaintOf([&] { RulesFile::Open(path); }),
            path.toStdString() + ": rule number 1 is no object");
  WriteBytes(path, R"({"format":"zolt20 rules","version":1,"rules":[{"name":"%3 %1"}]})");
  EXPECT_EQ(ComplaintOf([&] { RulesFile::Open(path); }),
            path.toStdString() + ": rule \"%3 %1\" has no \"text\"");
  WriteBytes(path, R"({"format":"zolt20 rules","version":2,"rules":[],"bin":[{"name":"%3 %1"}]})");
  EXPECT_EQ(ComplaintOf([&] { RulesFile::Open(path); }),
            path.toStdString() + ": deleted rule \"%3 %1\" has no \"text\"");
}

TEST_F(RulesFileTest, ALaterVersionNeedNotHaveRulesAsTheyAreNow) {
  WriteBytes(File(), R"({"format":"zolt20 rules","version":3,"groups":[]})");
  EXPECT_EQ(OpenComplaint(), Of(" was written by a later version: its format is version 3, and "
                                "this program knows version 2"));
}

TEST_F(RulesFileTest, AnEmptyFileIsComplainedOf) {
  WriteBytes(File(), "");
  EXPECT_EQ(OpenComplaint(), Of(" is empty"));
  EXPECT_EQ(Bytes(File()), "");
}

TEST_F(RulesFileTest, AFileThatIsNotThereIsComplainedOf) {
  EXPECT_EQ(OpenComplaint(), Of(" can't be read: " + Reason(ENOENT)));
  EXPECT_EQ(Folder(), Texts());
  EXPECT_EQ(ComplaintOf([this] { RulesFile::Open(In("no folder/a.rules")); }),
            In("no folder/a.rules").toStdString() + " can't be read: " + Reason(ENOENT));
}

TEST_F(RulesFileTest, AFolderIsComplainedOf) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("orders.rules")));
  EXPECT_EQ(OpenComplaint(), Of(" is a folder"));
  EXPECT_EQ(Folder(), (Texts{"orders.rules"}));
}

// Reading it would wait for ever.
TEST_F(RulesFileTest, APipeIsComplainedOf) {
  ASSERT_EQ(mkfifo(QFile::encodeName(File()).constData(), 0600), 0);
  EXPECT_EQ(OpenComplaint(), Of(" is no ordinary file"));
}

TEST_F(RulesFileTest, AFileWithoutRightsToReadIsComplainedOf) {
  Saved();
  SetMode(folder_.path(), 0777);
  SetMode(File(), 0);
  const int outcome = AsAnOrdinaryPerson(folder_.path(), [this] {
    EXPECT_EQ(OpenComplaint(), Of(" can't be read: " + Reason(EACCES)));
  });
  if (outcome == kCannotTell) GTEST_SKIP() << "the rights of root can't be given up here";
  EXPECT_EQ(outcome, 0);
  EXPECT_EQ(Folder(), (Texts{"orders.rules"}));
}

// A whole file lacks nothing but the last line end, if anything.
TEST_F(RulesFileTest, AFileCutShortAnywhereGivesNoRulesAndStaysAsItIs) {
  {
    RulesFile file = RulesFile::Create(File());
    file.Put({u"K\u00E4ufer \xD83D\xDCD6", u"a\r\n\t\"b\" \xD83D \xDBFF\xDFFF", u"\xDC00"});
    file.Put({u"2", u"", u"c"});
    file.Save();
  }
  const std::string whole = Bytes(File());
  const std::vector<Rule> rules = ReadAgain();
  ASSERT_EQ(rules.size(), 2U);
  for (std::size_t length = 1; length < whole.size() - 1; ++length) {
    const std::string prefix = whole.substr(0, length);
    WriteBytes(File(), prefix);
    const auto line = 1 + std::count(prefix.begin(), prefix.end(), '\n');
    ASSERT_EQ(OpenComplaint(),
              Of(" is no JSON, or cut short: it ends within line " + std::to_string(line)))
        << prefix;
    ASSERT_EQ(Bytes(File()), prefix);
    ASSERT_EQ(Folder(), (Texts{"orders.rules"}));
  }
  WriteBytes(File(), whole.substr(0, whole.size() - 1));
  EXPECT_EQ(ReadAgain(), rules);
}

TEST_F(RulesFileTest, AFileThatIsThereCannotBeCreated) {
  Saved();
  const std::string before = Bytes(File());
  EXPECT_EQ(ComplaintOf([this] { RulesFile::Create(File()); }), Of(" is there already"));
  EXPECT_EQ(Bytes(File()), before);
  EXPECT_EQ(Folder(), (Texts{"orders.rules"}));
}

TEST_F(RulesFileTest, NothingCanBeCreatedInAFolderThatIsNotThere) {
  const QString path = In("no folder/a.rules");
  EXPECT_EQ(ComplaintOf([&] { RulesFile::Create(path); }),
            path.toStdString() + " can't be saved: its lock " + path.toStdString() +
                ".lock can't be made");
}

// --- What is done in memory

TEST_F(RulesFileTest, PutAddsAtTheEndAndReplacesInPlace) {
  RulesFile file = RulesFile::Create(File());
  file.Put({u"A", u"1", u""});
  file.Put({u"B", u"2", u""});
  file.Put({u"A", u"3", u"f"});
  EXPECT_EQ(file.rules(), (std::vector<Rule>{{u"A", u"3", u"f"}, {u"B", u"2", u""}}));
  EXPECT_EQ(ComplaintOf([&] { file.Put({u"", u"4", u""}); }), Of(" takes no rule without a name"));
  EXPECT_EQ(Names(file), (Texts{"A", "B"}));
}

TEST_F(RulesFileTest, FindGoesByTheExactName) {
  const RulesFile file = Saved();
  ASSERT_NE(file.Find(u"Orders"), nullptr);
  EXPECT_EQ(file.Find(u"Orders")->text, u"text");
  EXPECT_EQ(file.Find(u"orders"), nullptr);
  EXPECT_EQ(file.Find(u"Orders "), nullptr);
  EXPECT_EQ(file.Find(u""), nullptr);
}

TEST_F(RulesFileTest, RenameKeepsThePlaceAndTheTexts) {
  RulesFile file = Saved();
  file.Put({u"B", u"", u""});
  file.Rename(u"Orders", u"\xD800");
  EXPECT_EQ(file.rules(), (std::vector<Rule>{{u"\xD800", u"text", u"fields"}, {u"B", u"", u""}}));
}

TEST_F(RulesFileTest, RenameTakesNoNameThatIsEmptyTakenOrNotThere) {
  RulesFile file = RulesFile::Create(File());
  file.Put({u"A", u"", u""});
  file.Put({u"B", u"", u""});
  file.Save();
  EXPECT_EQ(ComplaintOf([&] { file.Rename(u"A", u""); }), Of(" takes no rule without a name"));
  EXPECT_EQ(ComplaintOf([&] { file.Rename(u"A", u"B"); }), Of(" has a rule \"B\" already"));
  EXPECT_EQ(ComplaintOf([&] { file.Rename(u"C", u"D"); }), Of(" has no rule \"C\""));
  EXPECT_EQ(ComplaintOf([&] { file.Rename(u"C", u"C"); }), Of(" has no rule \"C\""));
  EXPECT_EQ(ComplaintOf([&] { file.Rename(u"A", u"A"); }), "");
  EXPECT_EQ(Names(file), (Texts{"A", "B"}));
  EXPECT_FALSE(file.IsChanged());
}

TEST_F(RulesFileTest, MovePutsARuleAtAPlaceAmongTheOthers) {
  RulesFile file = RulesFile::Create(In("file"));
  for (const char16_t* name : {u"A", u"B", u"C", u"D"})
    file.Put({name, u"", u""});
  file.Save();
  const auto names = [&] {
    String all;
    for (const Rule& rule : file.rules())
      all += rule.name;
    return all;
  };
  file.Move(u"A", 0);
  EXPECT_FALSE(file.IsChanged());
  file.Move(u"A", 2);
  EXPECT_EQ(names(), u"BCAD");
  EXPECT_TRUE(file.IsChanged());
  file.Move(u"D", 0);
  EXPECT_EQ(names(), u"DBCA");
  EXPECT_EQ(ComplaintOf([&] { file.Move(u"A", 4); }), "There is no such place.");
  EXPECT_NE(ComplaintOf([&] { file.Move(u"X", 0); }), "");
  EXPECT_EQ(names(), u"DBCA");
}

TEST_F(RulesFileTest, DuplicateTakesTheNextFreeNumberAndStandsBehindItsRule) {
  RulesFile file = Saved();
  file.Put({u"Orders (3)", u"other", u""});
  EXPECT_EQ(file.Duplicate(u"Orders"), u"Orders (2)");
  EXPECT_EQ(file.Duplicate(u"Orders"), u"Orders (4)");
  EXPECT_EQ(file.Duplicate(u"Orders (2)"), u"Orders (2) (2)");
  EXPECT_EQ(Names(file),
            (Texts{"Orders", "Orders (4)", "Orders (2)", "Orders (2) (2)", "Orders (3)"}));
  EXPECT_EQ(*file.Find(u"Orders (4)"), (Rule{u"Orders (4)", u"text", u"fields"}));
  EXPECT_EQ(ComplaintOf([&] { file.Duplicate(u"X"); }), Of(" has no rule \"X\""));
}

TEST_F(RulesFileTest, RemoveTakesOneRuleAway) {
  RulesFile file = Saved();
  file.Put({u"B", u"", u""});
  file.Remove(u"Orders");
  EXPECT_EQ(Names(file), (Texts{"B"}));
  EXPECT_EQ(ComplaintOf([&] { file.Remove(u"Orders"); }), Of(" has no rule \"Orders\""));
  EXPECT_EQ(ComplaintOf([&] { file.Remove(u""); }), Of(" has no rule \"\""));
  EXPECT_EQ(Names(file), (Texts{"B"}));
}

TEST_F(RulesFileTest, AFileIsChangedFromAnyChangeToTheNextSave) {
  RulesFile file = RulesFile::Create(File());
  EXPECT_FALSE(file.IsChanged());
  const std::vector<std::function<void()>> changes = {
      [&] {
        file.Put({u"A", u"", u""});
      },
      [&] {
        file.Put({u"A", u"new", u""});
      },
      [&] { file.Rename(u"A", u"B"); }, [&] { file.Duplicate(u"B"); }, [&] { file.Remove(u"B"); }};
  for (const auto& change : changes) {
    change();
    EXPECT_TRUE(file.IsChanged());
    file.Save();
    EXPECT_FALSE(file.IsChanged());
  }
  file.Put({u"B (2)", u"new", u""});
  EXPECT_FALSE(file.IsChanged()) << "it was so before";
  file = RulesFile::Create(In("another.rules"));
  EXPECT_FALSE(RulesFile::Open(File()).IsChanged());
}

TEST_F(RulesFileTest, NothingIsWrittenBeforeSave) {
  RulesFile file = Saved();
  const std::string before = Bytes(File());
  file.Put({u"B", u"", u""});
  file.Rename(u"Orders", u"C");
  file.Duplicate(u"B");
  file.Remove(u"B");
  EXPECT_EQ(Bytes(File()), before);
}

// --- Saving

TEST_F(RulesFileTest, SavingKeepsThePermissionsOfTheFile) {
  RulesFile file = Saved();
  for (const mode_t mode : {0600U, 0640U, 0666U}) {
    SetMode(File(), mode);
    file.Put({u"B", Wide(std::to_string(mode)), u""});
    file.Save();
    EXPECT_EQ(Mode(File()), mode);
  }
}

TEST_F(RulesFileTest, ANewFileHasThePermissionsOfAnyNewFile) {
  WriteBytes(In("any"), "");
  Saved();
  EXPECT_EQ(Mode(File()), Mode(In("any")));
}

TEST_F(RulesFileTest, SavingLeavesNothingButTheFileAndItsLock) {
  {
    RulesFile file = Saved();
    file.Save();
    EXPECT_EQ(Folder(), (Texts{"orders.rules", "orders.rules.lock"}));
  }
  EXPECT_EQ(Folder(), (Texts{"orders.rules"}));
}

TEST_F(RulesFileTest, BehindALinkTheFileIsReplacedAndTheLinkStays) {
  Saved();
  ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("links")));
  const QString link = In("links/a.rules");
  const QString linkToLink = In("links/b.rules");
  ASSERT_TRUE(QFile::link(QStringLiteral("../orders.rules"), link));
  ASSERT_TRUE(QFile::link(link, linkToLink));
  {
    RulesFile file = RulesFile::Open(linkToLink);
    EXPECT_EQ(OpenComplaint(),
              Of(" is open in another composer (process " + std::to_string(getpid()) + " on " +
                 QSysInfo::machineHostName().toStdString() + ")"));
    file.Put({u"B", u"", u""});
    file.Save();
  }
  EXPECT_TRUE(QFileInfo(link).isSymbolicLink());
  EXPECT_TRUE(QFileInfo(linkToLink).isSymbolicLink());
  EXPECT_FALSE(QFileInfo(File()).isSymbolicLink());
  EXPECT_EQ(ReadAgain(), (std::vector<Rule>{{u"Orders", u"text", u"fields"}, {u"B", u"", u""}}));
}

TEST_F(RulesFileTest, ALinkToNothingIsFilledWithAFile) {
  const QString link = In("link");
  ASSERT_TRUE(QFile::link(File(), link));
  {
    RulesFile file = RulesFile::Create(link);
    file.Put({u"A", u"", u""});
    file.Save();
  }
  EXPECT_TRUE(QFileInfo(link).isSymbolicLink());
  EXPECT_EQ(ReadAgain(), (std::vector<Rule>{{u"A", u"", u""}}));
}

// Less than the program gathers before it writes, and much more.
TEST_F(RulesFileTest, OnAFullDiskTheOldFileAndTheRulesStay) {
  for (const auto& [length, room] : {std::pair<std::size_t, rlim_t>{10, 20}, {1000000, 65536}}) {
    QFile::remove(File());
    RulesFile file = Saved();
    const std::string before = Bytes(File());
    ASSERT_GT(before.size(), 20U);
    const Rule big{u"Big", String(length, u'x'), u""};
    file.Put(big);
    std::string complaint;
    {
      const FullDisk full(room);
      complaint = ComplaintOf([&] { file.Save(); });
    }
    EXPECT_EQ(complaint, Of(" can't be saved: " + Reason(EFBIG)));
    EXPECT_EQ(Bytes(File()), before);
    EXPECT_EQ(Folder(), (Texts{"orders.rules", "orders.rules.lock"}));
    EXPECT_TRUE(file.IsChanged());
    EXPECT_EQ(Names(file), (Texts{"Orders", "Big"}));

    file.Save();
    EXPECT_FALSE(file.IsChanged());
    file = RulesFile::Create(In("another.rules"));
    EXPECT_EQ(ReadAgain(), (std::vector<Rule>{{u"Orders", u"text", u"fields"}, big}));
  }
}

TEST_F(RulesFileTest, ADiskThatTellsAtTheFlushThatItIsFullCountsToo) {
  RulesFile file = Saved();
  const std::string before = Bytes(File());
  file.Put({u"B", u"", u""});
  flushFails = ENOSPC;
  const std::string complaint = ComplaintOf([&] { file.Save(); });
  flushFails = 0;
  EXPECT_EQ(complaint, Of(" can't be saved: " + Reason(ENOSPC)));
  EXPECT_EQ(Bytes(File()), before);
  EXPECT_EQ(Folder(), (Texts{"orders.rules", "orders.rules.lock"}));
  EXPECT_TRUE(file.IsChanged());
  file.Save();
  EXPECT_NE(Bytes(File()), before);
}

TEST_F(RulesFileTest, ADiskThatCannotBeFlushedIsNoReasonNotToSave) {
  RulesFile file = Saved();
  file.Put({u"B", u"", u""});
  flushFails = EINVAL;
  const std::string complaint = ComplaintOf([&] { file.Save(); });
  flushFails = 0;
  EXPECT_EQ(complaint, "");
  EXPECT_NE(Bytes(File()).find("\"B\""), std::string::npos);
}

TEST_F(RulesFileTest, WhatSomebodyElseWroteIsNotOverwrittenUnasked) {
  RulesFile file = Saved();
  file.Put({u"B", u"", u""});
  WriteBytes(File(), "theirs");
  EXPECT_THROW(file.Save(), ChangedOnDisk);
  EXPECT_EQ(ComplaintOf([&] { file.Save(); }), Of(" was changed by somebody else in the meantime"));
  EXPECT_EQ(Bytes(File()), "theirs");
  EXPECT_TRUE(file.IsChanged());
  EXPECT_EQ(Names(file), (Texts{"Orders", "B"}));

  file.SaveOver();
  EXPECT_FALSE(file.IsChanged());
  EXPECT_EQ(ComplaintOf([&] { file.Save(); }), "");
  file = RulesFile::Create(In("another.rules"));
  EXPECT_EQ(ReadAgain(), (std::vector<Rule>{{u"Orders", u"text", u"fields"}, {u"B", u"", u""}}));
}

TEST_F(RulesFileTest, AChangeOfTheSameLengthIsSeenToo) {
  Saved();
  RulesFile file = RulesFile::Open(File());
  std::string theirs = Bytes(File());
  theirs.replace(theirs.find("fields\",\n"), 6, "FIELDS");
  WriteBytes(File(), theirs);
  EXPECT_THROW(file.Save(), ChangedOnDisk);
  EXPECT_EQ(Bytes(File()), theirs);
}

TEST_F(RulesFileTest, TheSameWrittenAgainIsNoChange) {
  RulesFile file = Saved();
  const std::string before = Bytes(File());
  QFile::remove(File());
  WriteBytes(File(), before);
  EXPECT_EQ(ComplaintOf([&] { file.Save(); }), "");
}

TEST_F(RulesFileTest, AFileThatSomebodyElseRemovedOrMadeIsAChange) {
  RulesFile file = Saved();
  QFile::remove(File());
  EXPECT_THROW(file.Save(), ChangedOnDisk);
  EXPECT_EQ(ComplaintOf([&] { file.Save(); }), Of(" was removed by somebody else in the meantime"));
  EXPECT_FALSE(QFile::exists(File()));
  file.SaveOver();
  EXPECT_TRUE(QFile::exists(File()));

  RulesFile another = RulesFile::Create(In("another.rules"));
  WriteBytes(In("another.rules"), "theirs");
  EXPECT_EQ(ComplaintOf([&] { another.Save(); }),
            In("another.rules").toStdString() + " was made by somebody else in the meantime");
  EXPECT_EQ(Bytes(In("another.rules")), "theirs");
}

TEST_F(RulesFileTest, SaveAsGoesOnWithTheOtherFile) {
  RulesFile file = Saved();
  const std::string before = Bytes(File());
  file.Put({u"B", u"", u""});
  file.SaveAs(In("new.rules"));
  EXPECT_EQ(file.Path(), In("new.rules"));
  EXPECT_FALSE(file.IsChanged());
  EXPECT_EQ(Names(file), (Texts{"Orders", "B"}));
  EXPECT_EQ(Bytes(File()), before);
  EXPECT_EQ(Folder(), (Texts{"new.rules", "new.rules.lock", "orders.rules"}));
  EXPECT_EQ(OpenComplaint(), "");
  file.Remove(u"Orders");
  file.Forget(0);
  file.Save();
  EXPECT_EQ(Bytes(File()), before);
  EXPECT_EQ(Bytes(In("new.rules")).find("Orders"), std::string::npos);
}

TEST_F(RulesFileTest, SaveAsReplacesAFileThatIsThereAndKeepsUnknownKeys) {
  WriteBytes(File(), R"({"format":"zolt20 rules","version":1,"rules":[],"x":1})");
  WriteBytes(In("new.rules"), "theirs");
  RulesFile file = RulesFile::Open(File());
  file.SaveAs(In("new.rules"));
  EXPECT_EQ(Bytes(In("new.rules")), R"({
  "format": "zolt20 rules",
  "version": 2,
  "rules": [],
  "x": 1
}
)");
}

TEST_F(RulesFileTest, SaveAsUnderAnotherNameOfTheSameFileSavesIt) {
  ASSERT_TRUE(QFile::link(File(), In("link")));
  RulesFile file = Saved();
  file.Put({u"B", u"", u""});
  file.SaveAs(In("link"));
  EXPECT_EQ(file.Path(), In("link"));
  EXPECT_TRUE(QFileInfo(In("link")).isSymbolicLink());
  EXPECT_NE(Bytes(File()).find("\"B\""), std::string::npos);
  EXPECT_EQ(Folder(), (Texts{"link", "orders.rules", "orders.rules.lock"}));
}

TEST_F(RulesFileTest, AfterASaveAsThatFailedTheFileIsTheOneItWas) {
  RulesFile file = Saved();
  RulesFile other = RulesFile::Create(In("other.rules"));
  ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("folder")));
  file.Put({u"B", u"", u""});
  EXPECT_EQ(ComplaintOf([&] {
              file.SaveAs(In("other.rules"));
            }).find(In("other.rules").toStdString() + " is open in another composer"),
            0U);
  EXPECT_EQ(ComplaintOf([&] {
              file.SaveAs(In("folder"));
            }).find(In("folder").toStdString() + " can't be saved: "),
            0U);
  EXPECT_EQ(ComplaintOf([&] {
              file.SaveAs(In("none/a.rules"));
            }).find(In("none/a.rules").toStdString() + " can't be saved: "),
            0U);
  EXPECT_EQ(file.Path(), File());
  EXPECT_TRUE(file.IsChanged());
  EXPECT_EQ(Folder(), (Texts{"folder", "orders.rules", "orders.rules.lock", "other.rules.lock"}));
  file.Save();
  EXPECT_NE(Bytes(File()).find("\"B\""), std::string::npos);
}

// --- Locks

TEST_F(RulesFileTest, AFileOpenInAnotherProcessIsNotOpened) {
  Saved();
  const OtherComposer other(File());
  EXPECT_EQ(OpenComplaint(),
            Of(" is open in another composer (process " + std::to_string(other.Process()) + " on " +
               QSysInfo::machineHostName().toStdString() + ")"));
  EXPECT_EQ(Folder(), (Texts{"orders.rules", "orders.rules.lock"}));
}

TEST_F(RulesFileTest, TheLockOfAProcessThatIsGoneIsTakenOver) {
  Saved();
  OtherComposer other(File());
  other.Kill();
  ASSERT_EQ(Folder(), (Texts{"orders.rules", "orders.rules.lock"}));
  {
    RulesFile file = RulesFile::Open(File());
    EXPECT_TRUE(file.CanSave());
    EXPECT_NE(OpenComplaint(), "");
  }
  EXPECT_EQ(Folder(), (Texts{"orders.rules"}));
}

// Whether a process of another machine is gone can't be known from here.
TEST_F(RulesFileTest, TheLockOfAnotherMachineDoesNotGrowOld) {
  Saved();
  WriteBytes(In("orders.rules.lock"), "4711\ncomposer\nelsewhere\n");
  QFile lock(In("orders.rules.lock"));
  ASSERT_TRUE(lock.open(QIODevice::ReadWrite));
  ASSERT_TRUE(lock.setFileTime(QDateTime::currentDateTime().addYears(-1),
                               QFileDevice::FileModificationTime));
  lock.close();
  EXPECT_EQ(OpenComplaint(), Of(" is open in another composer (process 4711 on elsewhere)"));
}

TEST_F(RulesFileTest, TheLockGoesWithTheFileAndNotWithAMove) {
  std::optional<RulesFile> file(Saved());
  EXPECT_NE(OpenComplaint(), "");
  RulesFile moved = std::move(*file);
  file.reset();
  EXPECT_NE(OpenComplaint(), "");
  moved = RulesFile::Create(In("another.rules"));
  EXPECT_EQ(OpenComplaint(), "");
}

TEST_F(RulesFileTest, ALockThatNamesNobodyIsToBeRemovedByThePerson) {
  Saved();
  WriteBytes(In("orders.rules.lock"), "");
  EXPECT_EQ(OpenComplaint(),
            Of(" is open in another composer, or one left its lock " +
               In("orders.rules.lock").toStdString() + "; when none has it open, remove the lock"));
  QFile::remove(In("orders.rules.lock"));
  EXPECT_EQ(OpenComplaint(), "");
}

// The name of the file is the longest there is, so that of its lock is too long.
TEST_F(RulesFileTest, WhereNoLockCanBeMadeAFileCanOnlyBeRead) {
  const std::string name(255, 'n');
  const QString path = In(name.c_str());
  const std::string complaint = path.toStdString() + " can't be saved: its lock " +
                                path.toStdString() + ".lock can't be made";
  Saved();
  ASSERT_TRUE(QFile::rename(File(), path));
  const std::string before = Bytes(path);
  RulesFile file = RulesFile::Open(path);
  EXPECT_EQ(Names(file), (Texts{"Orders"}));
  EXPECT_FALSE(file.CanSave());
  EXPECT_EQ(file.WhyNotSaved(), complaint);
  file.Put({u"B", u"", u""});
  EXPECT_EQ(ComplaintOf([&] { file.Save(); }), complaint);
  EXPECT_EQ(ComplaintOf([&] { file.SaveOver(); }), complaint);
  EXPECT_TRUE(file.IsChanged());
  EXPECT_EQ(Bytes(path), before);

  file.SaveAs(File());
  EXPECT_TRUE(file.CanSave());
  EXPECT_EQ(file.WhyNotSaved(), "");
  file = RulesFile::Create(In("another.rules"));
  EXPECT_EQ(ReadAgain(), (std::vector<Rule>{{u"Orders", u"text", u"fields"}, {u"B", u"", u""}}));
}

TEST_F(RulesFileTest, AFileThatCanBeLockedByNowIsSaved) {
  Saved();
  std::optional<RulesFile> file;
  {
    const FullDisk full(0);  // not even a lock has room
    file = RulesFile::Open(File());
  }
  EXPECT_FALSE(file->CanSave());
  file->Put({u"B", u"", u""});
  file->Save();
  EXPECT_TRUE(file->CanSave());
  EXPECT_NE(Bytes(File()).find("\"B\""), std::string::npos);
}

TEST_F(RulesFileTest, InAFolderWithoutRightsToWriteAFileCanOnlyBeRead) {
  Saved();
  const std::string before = Bytes(File());
  SetMode(File(), 0666);
  SetMode(folder_.path(), 0555);
  const int outcome = AsAnOrdinaryPerson(folder_.path(), [this] {
    const std::string complaint = Of(" can't be saved: there are no rights to write in its folder");
    RulesFile file = RulesFile::Open(File());
    EXPECT_EQ(Names(file), (Texts{"Orders"}));
    EXPECT_FALSE(file.CanSave());
    EXPECT_EQ(file.WhyNotSaved(), complaint);
    EXPECT_EQ(ComplaintOf([&] { file.Save(); }), complaint);
    EXPECT_EQ(ComplaintOf([this] { RulesFile::Create(In("new.rules")); }),
              In("new.rules").toStdString() +
                  " can't be saved: there are no rights to write in its folder");
  });
  SetMode(folder_.path(), 0755);
  if (outcome == kCannotTell) GTEST_SKIP() << "the rights of root can't be given up here";
  EXPECT_EQ(outcome, 0);
  EXPECT_EQ(Bytes(File()), before);
  EXPECT_EQ(Folder(), (Texts{"orders.rules"}));
}

TEST_F(RulesFileTest, AFileWithoutRightsToWriteCanOnlyBeRead) {
  Saved();
  const std::string before = Bytes(File());
  SetMode(File(), 0444);
  SetMode(folder_.path(), 0777);
  const int outcome = AsAnOrdinaryPerson(folder_.path(), [this] {
    RulesFile file = RulesFile::Open(File());
    EXPECT_EQ(Names(file), (Texts{"Orders"}));
    EXPECT_FALSE(file.CanSave());
    EXPECT_EQ(file.WhyNotSaved(), Of(" can't be saved: there are no rights to write it"));
    EXPECT_EQ(ComplaintOf([&] { file.Save(); }).find(Of(" can't be saved: ")), 0U);
  });
  if (outcome == kCannotTell) GTEST_SKIP() << "the rights of root can't be given up here";
  EXPECT_EQ(outcome, 0);
  EXPECT_EQ(Bytes(File()), before);
  EXPECT_EQ(Folder(), (Texts{"orders.rules"}));
}

}  // namespace
}  // namespace zolt20::tests
