// zolt20-host with files of rules: where names stand, and new names in their places.
#include "hosts/automation/rules_commands.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "hosts/kit/rules_place.h"
#include "tests/support/control_test.h"
#include "tests/support/places.h"

namespace zolt20::tests {
namespace {

using rules::Rule;

struct Ended {
  int status = -1;
  std::string out;
  std::string errors;
};

class RulesCommandsTest : public ::testing::Test {
 protected:
  RulesCommandsTest() {
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    folder_ = std::filesystem::temp_directory_path() /
              ("zolt20-rules-" + std::to_string(getpid()) + test->name());
    std::filesystem::create_directories(folder_);
    Write({{u"Orders",
            u"select ORDERS__.O_ID,max(ORDERS__.O_ID)\r\nfrom  ORDERS__\r\n"
            u"where ORDERS__.O_C_ID = 1\r\nselectdo\r\n"
            u"\t:var.a = ORDERS__.O_ID + \"ORDERS__.O_ID\"\r\nendselect",
            u"long*Q*V*R*N*NORDERS__.O_ID*Q*V*R*N*numeric(8)"},
           {u"Plain", u"if CUSTOMER.C_ID = 1 then \r\n\tx\r\nendif", u""}},
          u"of ORDERS__.O_ID");
  }
  ~RulesCommandsTest() override { std::filesystem::remove_all(folder_); }

  std::string File() const { return (folder_ / "orders.json").string(); }
  void Write(const std::vector<Rule>& all, const String& note = {}) const {
    rules::RulesContent content;
    content.rules = all;
    content.extras.resize(all.size());
    if (!all.empty()) content.extras[0].note = note;
    rules::WriteWhole(File(), rules::WriteContent(content));
  }
  rules::RulesContent Read() const { return rules::ReadContent(rules::ReadWhole(File()), "FILE"); }
  Texts TextsOfRules() const {
    Texts texts;
    for (const Rule& rule : Read().rules)
      texts.push_back(Narrow(rule.text));
    return texts;
  }
  Ended Host(Texts words) const {
    for (std::string& word : words) {
      if (word == "FILE") word = File();
    }
    std::ostringstream out;
    std::ostringstream errors;
    EXPECT_TRUE(automation::IsOfRules(words));
    Ended run;
    run.status = automation::RunOnRules(words, out, errors);
    run.out = out.str();
    run.errors = errors.str();
    return run;
  }
  std::string Refusal(const Texts& words) const {
    const std::string before = rules::ReadWhole(File());
    const Ended run = Host(words);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(rules::ReadWhole(File()), before);
    const std::string begin = "zolt20-host: ";
    return run.errors.starts_with(begin) ? run.errors.substr(begin.size()) : run.errors;
  }
  Texts Folder() const {
    Texts names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_))
      names.push_back(entry.path().filename().string());
    return names;
  }

  std::filesystem::path folder_;
};

TEST_F(RulesCommandsTest, EveryUseIsTold) {
  const Ended run = Host({"--uses", "FILE"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out,
            "Orders:1:8: field ORDERS__.O_ID [select list]\n"
            "Orders:1:22: function max [select list]\n"
            "Orders:1:26: field ORDERS__.O_ID [select list]\n"
            "Orders:2:7: table ORDERS__ [from]\n"
            "Orders:3:7: field ORDERS__.O_C_ID [where]\n"
            "Orders:5:11: field ORDERS__.O_ID [statement]\n"
            "Orders:5:28: field ORDERS__.O_ID [statement, string]\n"
            "Plain:1:4: field CUSTOMER.C_ID [if]\n");
}

TEST_F(RulesCommandsTest, UsesAreThoseOfOneName) {
  EXPECT_EQ(Host({"--uses", "FILE", "CUSTOMER"}).out, "Plain:1:4: field CUSTOMER.C_ID [if]\n");
  EXPECT_EQ(Host({"--uses", "FILE", "CUSTOMER.C_ID"}).out, "Plain:1:4: field CUSTOMER.C_ID [if]\n");
  EXPECT_EQ(Host({"--uses", "FILE", "max"}).out, "Orders:1:22: function max [select list]\n");
  EXPECT_EQ(Host({"--uses", "FILE", "C_ID"}).out, "");
  EXPECT_EQ(Host({"--uses", "--json", "FILE", "CUSTOMER.C_ID"}).out,
            "{\"rule\":\"Plain\",\"line\":1,\"column\":4,\"first\":3,\"length\":13,\"kind\":"
            "\"field\",\"name\":\"CUSTOMER.C_ID\",\"node\":\"if\",\"place\":\"head\"}\n");
}

TEST_F(RulesCommandsTest, NamesThatACatalogueHasNotEndWithOne) {
  const std::string catalogue = Examples() + "/catalogue.json";
  EXPECT_EQ(Host({"--uses", "--catalogue", catalogue, "FILE"}).out, "");
  EXPECT_EQ(Host({"--uses", "--catalogue", catalogue, "FILE"}).status, 0);
  Write({{u"A\nB",
          u"select ORDERS__.O_IDS,NOWHERE_.X,CUSTOMER._index9\r\nfrom  NOWHERE_\r\n"
          u"selectdo\r\n\tx = \"NOWHERE_.X\" + f(1)\r\nendselect",
          u""}});
  const Ended run = Host({"--uses", "--catalogue", catalogue, "FILE"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out,
            "A B:1:8: field ORDERS__.O_IDS [select list]\n"
            "A B:1:23: field NOWHERE_.X [select list]\n"
            "A B:1:34: index CUSTOMER._index9 [select list]\n"
            "A B:2:7: table NOWHERE_ [from]\n");
}

TEST_F(RulesCommandsTest, ARenameLeavesStringsStatementsAndNotes) {
  const Ended run =
      Host({"--rename", "ORDERS__.O_ID=ORDERS__.O_NUMBER", "CUSTOMER=PERSON__", "FILE"});
  EXPECT_EQ(run.status, 0) << run.errors;
  EXPECT_EQ(run.out,
            "Orders:5:11: left as it is: ORDERS__.O_ID [statement]\n"
            "Orders:5:28: left as it is: ORDERS__.O_ID [string]\n"
            "Orders:1:4: left as it is: ORDERS__.O_ID [note]\n"
            "2 rules changed at 3 places\n");
  const rules::RulesContent content = Read();
  EXPECT_EQ(Narrow(content.rules[0].text),
            "select ORDERS__.O_NUMBER,max(ORDERS__.O_NUMBER)\r\nfrom  ORDERS__\r\n"
            "where ORDERS__.O_C_ID = 1\r\nselectdo\r\n"
            "\t:var.a = ORDERS__.O_ID + \"ORDERS__.O_ID\"\r\nendselect");
  EXPECT_EQ(Narrow(content.rules[0].fields), "long*Q*V*R*N*NORDERS__.O_NUMBER*Q*V*R*N*numeric(8)");
  EXPECT_EQ(Narrow(content.rules[1].text), "if PERSON__.C_ID = 1 then \r\n\tx\r\nendif");
  ASSERT_EQ(content.extras[1].versions.Count(), 1U);
  EXPECT_EQ(Narrow(content.extras[1].versions.Read()[0].text),
            "if CUSTOMER.C_ID = 1 then \r\n\tx\r\nendif");
  EXPECT_EQ(Folder(), Texts{"orders.json"});
}

TEST_F(RulesCommandsTest, StringsStatementsAndNotesAreChangedWhenAskedFor) {
  const Ended run = Host({"--rename", "ORDERS__.O_ID=ORDERS__.NO", "FILE", "--in-strings",
                          "--in-statements", "--in-notes"});
  EXPECT_EQ(run.out, "1 rule changed at 5 places\n");
  const rules::RulesContent content = Read();
  EXPECT_NE(Narrow(content.rules[0].text).find(":var.a = ORDERS__.NO + \"ORDERS__.NO\""),
            std::string::npos);
  EXPECT_EQ(Narrow(content.extras[0].note), "of ORDERS__.NO");
}

TEST_F(RulesCommandsTest, RenamedAndBackAreTheSameBytesOfTheTexts) {
  const std::vector<Rule> before = Read().rules;
  EXPECT_EQ(
      Host({"--rename", "ORDERS__=BUYINGS_", "ORDERS__.O_ID=BUYINGS_.LINE NO", "FILE"}).status, 0);
  EXPECT_NE(Read().rules, before);
  EXPECT_EQ(
      Host({"--rename", "BUYINGS_=ORDERS__", "BUYINGS_.LINE NO=ORDERS__.O_ID", "FILE"}).status, 0);
  EXPECT_EQ(Read().rules, before);
}

TEST_F(RulesCommandsTest, NamesCanChangePlaces) {
  EXPECT_EQ(
      Host({"--rename", "ORDERS__.O_ID=ORDERS__.O_C_ID", "ORDERS__.O_C_ID=ORDERS__.O_ID", "FILE"})
          .status,
      0);
  EXPECT_TRUE(TextsOfRules()[0].starts_with(
      "select ORDERS__.O_C_ID,max(ORDERS__.O_C_ID)\r\nfrom  ORDERS__\r\nwhere ORDERS__.O_ID = 1"));
}

TEST_F(RulesCommandsTest, ADryRunWritesTheDifferenceAlone) {
  const std::string before = rules::ReadWhole(File());
  const Ended run =
      Host({"--rename", "--dry-run", "ORDERS__.O_C_ID=ORDERS__.BY", "CUSTOMER=PERSON__", "FILE"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out,
            "--- Orders\n+++ Orders\n@@ -3 +3 @@\n-where ORDERS__.O_C_ID = 1\n"
            "+where ORDERS__.BY = 1\n"
            "--- Plain\n+++ Plain\n@@ -1 +1 @@\n-if CUSTOMER.C_ID = 1 then \n"
            "+if PERSON__.C_ID = 1 then \n");
  EXPECT_EQ(rules::ReadWhole(File()), before);
  const Ended noted =
      Host({"--rename", "--dry-run", "ORDERS__.O_ID=ORDERS__.NO", "--in-notes", "FILE"});
  EXPECT_TRUE(
      noted.out.ends_with("--- Orders (note)\n+++ Orders (note)\n@@ -1 +1 @@\n"
                          "-of ORDERS__.O_ID\n+of ORDERS__.NO\n"))
      << noted.out;
}

TEST_F(RulesCommandsTest, WithNothingToChangeTheFileIsNotWritten) {
  std::ofstream(File(), std::ios::app) << " ";
  const std::string before = rules::ReadWhole(File());
  EXPECT_EQ(Host({"--rename", "STOCK___=STORED__", "FILE"}).out, "0 rules changed at 0 places\n");
  EXPECT_EQ(rules::ReadWhole(File()), before);
  EXPECT_EQ(Host({"--rename", "--dry-run", "STOCK___=STORED__", "FILE"}).status, 0);
}

TEST_F(RulesCommandsTest, TwoNamesBecomeOneOnlyWhenAskedFor) {
  const std::string merged =
      "two names would become ORDERS__.O_C_ID, and could not be told apart again; --merge does "
      "it\n";
  EXPECT_EQ(Refusal({"--rename", "ORDERS__.O_ID=ORDERS__.O_C_ID", "FILE"}), merged);
  EXPECT_EQ(Refusal({"--rename", "--dry-run", "ORDERS__.O_ID=ORDERS__.O_C_ID", "FILE"}), merged);
  EXPECT_EQ(Host({"--rename", "--merge", "ORDERS__.O_ID=ORDERS__.O_C_ID", "FILE"}).status, 0);
  EXPECT_TRUE(TextsOfRules()[0].starts_with("select ORDERS__.O_C_ID,max(ORDERS__.O_C_ID)"));
}

// A field with a blank in its name is one of the catalogue only.
TEST_F(RulesCommandsTest, ACatalogueKnowsNamesWithBlanks) {
  std::ofstream(folder_ / "odd.json")
      << R"({"name":"","functions":[],"tables":[{"code":"ORDERS__","name":"O","indexes":0,"fields":[
           {"name":"LINE","type":"long","flagged":false,"text":""},
           {"name":"LINE NO","type":"long","flagged":false,"text":""}]}]})";
  Write({{u"A", u"x = f(ORDERS__.LINE NO)\r\nif ORDERS__.LINE NO = ORDERS__.LINE then \r\nendif",
          u""}});
  const std::string catalogue = (folder_ / "odd.json").string();
  Host({"--rename", "--catalogue", catalogue, "ORDERS__.LINE=ORDERS__.ROW", "FILE"});
  EXPECT_EQ(TextsOfRules()[0],
            "x = f(ORDERS__.LINE NO)\r\nif ORDERS__.LINE NO = ORDERS__.ROW then \r\nendif");
}

TEST_F(RulesCommandsTest, RecordsOfFieldsFollowTheirText) {
  Write({{u"A", u"select CUSTOMER.*,CUSTOMER.B\r\nfrom  CUSTOMER\r\nendselect",
          u"long*Q*V*R*N*NCUSTOMER.A*Q*V*R*N*,long*Q*V*R*N*NCUSTOMER.B*Q*V*R*N*,x,,*Q*V*R*N*"}});
  Host({"--rename", "CUSTOMER=PERSON__", "CUSTOMER.B=PERSON__.C", "FILE"});
  EXPECT_EQ(Narrow(Read().rules[0].fields),
            "long*Q*V*R*N*NPERSON__.A*Q*V*R*N*,long*Q*V*R*N*NPERSON__.C*Q*V*R*N*,x,,*Q*V*R*N*");
}

TEST_F(RulesCommandsTest, VariablesThatTheControlNamesByFieldsFollow) {
  Write({{u"A",
          u"select sum ( CUSTOMER.B ) :var.sum.CUSTOMER.B\r\nfrom  CUSTOMER\r\nselectdo\r\n"
          u"\t:var.x = :var.sum.CUSTOMER.B + \":var.sum.CUSTOMER.B\"\r\nendselect",
          u"long*Q*V*R*N*sum ( CUSTOMER.B ) :var.sum.CUSTOMER.B"}});
  EXPECT_EQ(Host({"--rename", "CUSTOMER.B=CUSTOMER.C", "FILE"}).out,
            "A:4:43: left as it is: CUSTOMER.B [string]\n1 rule changed at 3 places\n");
  EXPECT_EQ(TextsOfRules()[0],
            "select sum ( CUSTOMER.C ) :var.sum.CUSTOMER.C\r\nfrom  CUSTOMER\r\nselectdo\r\n"
            "\t:var.x = :var.sum.CUSTOMER.C + \":var.sum.CUSTOMER.B\"\r\nendselect");
  EXPECT_EQ(Narrow(Read().rules[0].fields), "long*Q*V*R*N*sum ( CUSTOMER.C ) :var.sum.CUSTOMER.C");
}

TEST_F(RulesCommandsTest, WhatCannotBeTakenEndsWithTwo) {
  EXPECT_EQ(Refusal({"--uses"}), "--uses takes a file of rules and at most one name\n");
  EXPECT_EQ(Refusal({"--uses", "FILE", "a", "b"}),
            "--uses takes a file of rules and at most one name\n");
  EXPECT_EQ(Refusal({"--uses", "--dry-run", "FILE"}),
            "--dry-run, --merge and --in-... go with --rename\n");
  EXPECT_EQ(Refusal({"--uses", "--nothing", "FILE"}),
            "can't take --nothing; --help tells the options\n");
  EXPECT_EQ(Refusal({"--uses", "FILE", "\xFF"}), "a name is not in UTF-8\n");
  EXPECT_EQ(Refusal({"--uses", "/nowhere/at/all"}),
            "/nowhere/at/all can't be read: No such file or directory\n");
  EXPECT_EQ(Refusal({"--uses", folder_.string()}), folder_.string() + " is a folder\n");
  EXPECT_EQ(Refusal({"--uses", "--catalogue", File(), "FILE"}),
            File() + ": the catalogue has no \"name\"\n");
  EXPECT_EQ(Refusal({"--rename", "FILE"}),
            "--rename takes OLD=NEW, once or more often, and a file of rules\n");
  EXPECT_EQ(Refusal({"--rename", "--json", "A=B", "FILE"}), "--json goes with --uses\n");
  EXPECT_EQ(Refusal({"--rename", "CUSTOMER", "FILE"}), "CUSTOMER is no OLD=NEW\n");
  EXPECT_EQ(Refusal({"--rename", "A=CUSTOMER", "FILE"}),
            "\"A\" is neither a table of 8 characters nor a field such as CUSTOMER.C_ID\n");
  EXPECT_EQ(Refusal({"--rename", "CUSTOMER=ORDERS__.A", "FILE"}),
            "CUSTOMER=ORDERS__.A has a table and a field\n");
  EXPECT_EQ(Refusal({"--rename", "CUSTOMER=A,B_____", "FILE"}), "\"A,B_____\" holds a comma\n");
  EXPECT_EQ(Refusal({"--rename", "CUSTOMER.A=CUSTOMER.*Q*V*R*N", "FILE"}),
            "\"CUSTOMER.*Q*V*R*N\" holds the separator *Q*V*R*N* or runs into it\n");
  EXPECT_EQ(Refusal({"--rename", "CUSTOMER.A=CUSTOMER.\"", "FILE"}),
            "\"CUSTOMER.\"\" holds a character that no statement can have in a name\n");
  EXPECT_EQ(Refusal({"--rename", "CUSTOMER=A_______", "CUSTOMER=B_______", "FILE"}),
            "CUSTOMER is given two new names\n");
}

// --- The file

TEST_F(RulesCommandsTest, AFileThatIsOpenElsewhereIsLeft) {
  const Texts words{"--rename", "CUSTOMER=PERSON__", "FILE"};
  {
    const rules::RulesLock lock(File());
    EXPECT_EQ(Refusal(words), File() + " is open in a composer, or one left its lock " + File() +
                                  ".lock; when none has it open, remove the lock\n");
    EXPECT_EQ(Host({"--rename", "--dry-run", "CUSTOMER=PERSON__", "FILE"}).status, 1);
    EXPECT_EQ(Host({"--uses", "FILE"}).status, 0);
  }
  EXPECT_EQ(Host(words).status, 0);
}

TEST_F(RulesCommandsTest, TheLockOfAProgramThatIsGoneIsTakenOver) {
  const pid_t child = fork();
  if (child == 0) {
    const rules::RulesLock lock(File());
    _exit(0);
  }
  waitpid(child, nullptr, 0);
  EXPECT_TRUE(std::filesystem::exists(File() + ".lock"));
  EXPECT_EQ(Host({"--rename", "CUSTOMER=PERSON__", "FILE"}).status, 0);
  EXPECT_FALSE(std::filesystem::exists(File() + ".lock"));
}

TEST_F(RulesCommandsTest, PermissionsAndLinksStay) {
  ASSERT_EQ(chmod(File().c_str(), 0640), 0);
  const std::string link = (folder_ / "link.json").string();
  std::filesystem::create_symlink(File(), link);
  EXPECT_EQ(Host({"--rename", "CUSTOMER=PERSON__", link}).status, 0);
  struct stat status {};
  EXPECT_EQ(stat(File().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777U, 0640U);
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  EXPECT_NE(TextsOfRules()[1].find("PERSON__"), std::string::npos);
}

TEST_F(RulesCommandsTest, OnAFullDiskTheOldFileStays) {
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit now{300, before.rlim_max};
  auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
  EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &now), 0);
  EXPECT_EQ(Refusal({"--rename", "CUSTOMER=PERSON__", "FILE"}),
            File() + " can't be saved: File too large\n");
  EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
  static_cast<void>(std::signal(SIGXFSZ, handler));
  EXPECT_EQ(Folder(), Texts{"orders.json"});
}

// Wherever the program is killed, the file holds all of the old names or none.
TEST_F(RulesCommandsTest, AKilledRenameLeavesAllOrNothing) {
  std::vector<Rule> all;
  for (int i = 0; i < 3000; ++i)
    all.push_back({Wide(std::to_string(i)), u"if CUSTOMER.C_ID = 1 then \r\n\tx\r\nendif", u""});
  Write(all);
  const std::string old = rules::ReadWhole(File());
  std::size_t kept = 0;
  std::size_t done = 0;
  // Short waits, one behind the other; then longer ones, until the program had the time to finish.
  useconds_t step = 1'000;
  for (useconds_t wait = 0; wait < 20'000 || (done == 0 && wait < 60'000'000); wait += step) {
    if (wait >= 20'000) step = wait / 2;
    const pid_t child = fork();
    if (child == 0) {
      const int nothing = open("/dev/null", O_WRONLY);
      dup2(nothing, 1);
      execl(HostProgram().c_str(), "zolt20-host", "--rename", "CUSTOMER=PERSON__", File().c_str(),
            nullptr);
      _exit(1);
    }
    usleep(wait);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const std::string bytes = rules::ReadWhole(File());
    if (bytes == old) {
      ++kept;
      continue;
    }
    ++done;
    for (const Rule& rule : Read().rules)
      ASSERT_EQ(rule.text, u"if PERSON__.C_ID = 1 then \r\n\tx\r\nendif");
    rules::WriteWhole(File(), old);
  }
  EXPECT_GT(kept, 0U);
  EXPECT_GT(done, 0U);
}

// Each "$ zolt20-host ..." of the page with the lines behind it, in a folder with the examples.
TEST_F(RulesCommandsTest, TheSamplesOfThePageAreWhatComes) {
  for (const char* name : {"rules.json", "catalogue.json"})
    std::filesystem::copy_file(std::filesystem::path(Examples()) / name, folder_ / name);
  std::ifstream page(std::filesystem::path(Examples()) / "../docs/hosts.md");
  int samples = 0;
  for (std::string line; std::getline(page, line);) {
    if (!line.starts_with("$ zolt20-host ")) continue;
    ++samples;
    std::istringstream words(line.substr(14));
    Texts command;
    for (std::string word; words >> word;)
      command.push_back(word.ends_with(".json") ? (folder_ / word).string() : word);
    std::string shown;
    for (std::string next; std::getline(page, next) && next != "```";)
      shown += next + "\n";
    EXPECT_EQ(Host(command).out, shown) << line;
  }
  EXPECT_EQ(samples, 4);
}

TEST_F(RulesCommandsTest, TheProgramTakesThem) {
  FILE* pipe = popen((HostProgram() + " --uses " + File() + " max").c_str(), "r");
  std::string out(100, '\0');
  out.resize(std::fread(out.data(), 1, out.size(), pipe));
  EXPECT_EQ(WEXITSTATUS(pclose(pipe)), 0);
  EXPECT_EQ(out, "Orders:1:22: function max [select list]\n");
}

}  // namespace
}  // namespace zolt20::tests
