// zolt20-host as a program: its options, its exit status, its streams.
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

#include "tests/support/places.h"

namespace zolt20::tests {
namespace {

struct Outcome {
  int status;
  std::string output;
};

class ProgramTest : public ::testing::Test {
 protected:
  ProgramTest() {
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    folder_ = std::filesystem::temp_directory_path() / (std::string("zolt20-host-") + test->name());
    std::filesystem::create_directories(folder_);
  }
  ~ProgramTest() override { std::filesystem::remove_all(folder_); }

  std::string File(const std::string& text) {
    const std::string path = (folder_ / "session.jsonl").string();
    std::ofstream(path, std::ios::binary) << text;
    return path;
  }

  // Runs the program with these words of a command line.
  static Outcome Host(const std::string& words) {
    Outcome run{-1, {}};
    FILE* pipe = popen((HostProgram() + " " + words).c_str(), "r");
    std::array<char, 4096> chunk{};
    std::size_t count = 0;
    while ((count = std::fread(chunk.data(), 1, chunk.size(), pipe)) > 0) {
      run.output.append(chunk.data(), count);
    }
    run.status = WEXITSTATUS(pclose(pipe));
    return run;
  }

 private:
  std::filesystem::path folder_;
};

constexpr const char* kText =
    "# a comment\n\n{\"set\":\"prpStroutput\",\"value\":\"a~b\"}\r\nbad\n";

TEST_F(ProgramTest, OneReplyComesForEachRequestOfAFile) {
  const Outcome run = Host(File(std::string(kText) + "{\"get\":\"prpStrSQLPart\"}"));
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output.substr(0, 21), "{\"ok\":true,\"log\":[]}\n");
  EXPECT_NE(run.output.find("\"kind\":\"request\""), std::string::npos);
  EXPECT_TRUE(run.output.ends_with("}\n{\"ok\":true,\"value\":\"0\",\"log\":[]}\n"));
}

TEST_F(ProgramTest, StandardInputIsReadWhenNoFileIsNamed) {
  const Outcome run = Host("< " + File(kText));
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output.substr(0, 21), "{\"ok\":true,\"log\":[]}\n");
}

TEST_F(ProgramTest, TheResultAloneIsWrittenAsItStands) {
  const Outcome run = Host("--result " + File(kText) + " 2>/dev/null");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, "a\r\nb");
}

TEST_F(ProgramTest, APropertyAloneIsWritten) {
  const std::string file = File(
      "{\"set\":\"prpintTabcount\",\"value\":3}\n{\"set\":\"Syntax_Highlight\",\"value\":true}");
  EXPECT_EQ(Host("--get prpintTabcount " + file).output, "3");
  EXPECT_EQ(Host("--get Syntax_Highlight " + file).output, "true");
  EXPECT_EQ(Host("--get prpStrSQLPart " + file).output, "0");
}

TEST_F(ProgramTest, AFailedRequestIsToldWithItsLineBesideTheResult) {
  const Outcome run = Host("--result " + File(kText) + " 2>&1 >/dev/null");
  EXPECT_EQ(run.output.substr(0, 8), "line 4: ");
}

TEST_F(ProgramTest, TheTreeOfATextIsWrittenNodeByNode) {
  const Outcome run = Host("--outline " + File("if \"\u00E9\" then\r\n\tx\r\nendif"));
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(
      run.output,
      "{\"kind\":\"if\",\"first\":0,\"last\":22,\"depth\":0,\"head\":\"if \\\"\u00E9\\\" then\"}\n"
      "{\"kind\":\"head\",\"first\":0,\"last\":13,\"depth\":1,\"head\":\"if \\\"\u00E9\\\" "
      "then\"}\n"
      "{\"kind\":\"statement\",\"first\":13,\"last\":17,\"depth\":1,\"head\":\"x\"}\n"
      "{\"kind\":\"end\",\"first\":17,\"last\":22,\"depth\":1,\"head\":\"endif\"}\n");
}

TEST_F(ProgramTest, ATextWithAProblemEndsWithOne) {
  const Outcome run = Host("--outline < " + File("endif"));
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output,
            "{\"kind\":\"statement\",\"first\":0,\"last\":5,\"depth\":0,\"head\":\"endif\","
            "\"problem\":\"nothing to close\"}\n");
}

TEST_F(ProgramTest, ATextThatIsNoUtf8HasNoTree) {
  const Outcome run = Host("--outline " + File("a\xFF") + " 2>&1");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.output, "zolt20-host: the text is not in UTF-8\n");
}

TEST_F(ProgramTest, WhatIsWrongInATextIsWrittenForEditors) {
  const std::string file = File("if a then\r\nendif:var.x = \"\u00E9\r\n~");
  const Outcome run = Host("--check " + file);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output,
            file +
                ":2:6: error: A statement begins right behind 'endif' and not on a line "
                "of its own. [glued]\n" +
                file +
                ":2:15: error: The string that begins here does not end on its line. "
                "[open-string]\n" +
                file +
                ":3:1: warning: The control can't take this back: it reads it as a line "
                "break. [not-sendable]\n");
  EXPECT_EQ(Host("--check < " + File("endif")).output,
            "<stdin>:1:1: error: Nothing is open here that 'endif' could close. "
            "[nothing-to-close]\n");
}

TEST_F(ProgramTest, WarningsAloneAndNothingEndWithNought) {
  const Outcome warned = Host("--check --json " + File("x\r\n\"\u00E9\"  ~"));
  EXPECT_EQ(warned.status, 0);
  EXPECT_EQ(
      warned.output,
      "{\"line\":2,\"column\":6,\"first\":8,\"length\":1,\"code\":\"not-sendable\","
      "\"severity\":\"warning\",\"text\":\"The control can't take this back: it reads it as a "
      "line break.\"}\n");
  EXPECT_EQ(Host("--check " + File("x")).status, 0);
  EXPECT_EQ(Host("--check " + File("x")).output, "");
}

TEST_F(ProgramTest, NamesAreHeldAgainstACatalogue) {
  const std::string catalogue = " --catalogue " + Examples() + "/catalogue.json ";
  const std::string file = File("select CUSTOMER.C_LSAT\r\nfrom  CUSTOMER\r\nendselect");
  EXPECT_EQ(Host("--check " + file).output, "");
  const Outcome run = Host("--check" + catalogue + file);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output,
            file +
                ":1:17: error: The table CUSTOMER has no field C_LSAT. Is C_LAST meant? "
                "[unknown-field]\n");
  EXPECT_EQ(Host("--check --catalogue " + file + " " + file + " 2>/dev/null").status, 2);
  EXPECT_EQ(Host("--catalogue " + file + " " + file + " 2>&1").output,
            "zolt20-host: --json goes with --check, and --catalogue with that and --open\n");
}

TEST_F(ProgramTest, AStoredStatementIsOpenedAgain) {
  const std::string open = "--open --catalogue " + Examples() + "/catalogue.json ";
  const Outcome run = Host(
      open + File("select CUSTOMER.C_LAST\r\nfrom  CUSTOMER\r\nselectdo\r\n\tx = \"\u00E9\"\r\n"
                  "endselect"));
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output,
            "{\"equal\":true,\"steps\":[{\"set\":\"prpSelectFromPart\",\"value\":\"CUSTOMER\"},"
            "{\"set\":\"prpSelectPart\",\"value\":\"CUSTOMER.C_LAST\"},"
            "{\"set\":\"prpSelectDoPart\",\"value\":\"x = `^`\u00E9`^`\"}],"
            "\"finish\":[{\"user\":\"tab\",\"page\":0},{\"user\":\"click\",\"control\":"
            "\"cmdAddSelect\"}],"
            "\"result\":\"select CUSTOMER.C_LAST\\r\\nfrom  CUSTOMER\\r\\nselectdo\\r\\n"
            "\\tx = \\\"\u00E9\\\"\\r\\nendselect\",\"differences\":[],\"problems\":[]}\n");
}

TEST_F(ProgramTest, WhatDoesNotComeBackIsTold) {
  const std::string open = "--open --catalogue " + Examples() + "/catalogue.json ";
  const Outcome changed =
      Host(open + File("SELECT CUSTOMER.C_LAST\r\nfrom  CUSTOMER\r\nendselect"));
  EXPECT_EQ(changed.status, 1);
  EXPECT_NE(changed.output.find("\"equal\":false"), std::string::npos);
  EXPECT_NE(changed.output.find("\"problems\":[{\"line\":1,\"column\":1,\"message\":"),
            std::string::npos);
  const Outcome without = Host("--open " + File("x") + " 2>&1");
  EXPECT_EQ(without.status, 2);
  EXPECT_EQ(without.output, "zolt20-host: --open needs a --catalogue\n");
  const std::string none = File("x");
  EXPECT_EQ(Host("--open --catalogue " + none + " " + none + " 2>/dev/null").status, 2);
}

TEST_F(ProgramTest, TheRequestsOfAnOpeningBringTheTextBack) {
  const std::string catalogue = Examples() + "/catalogue.json";
  const std::string stored = "while a = 1\r\n\tx = 1\r\nendwhile";
  const Outcome run = Host("--open --catalogue " + catalogue + " " + File(stored));
  EXPECT_EQ(run.status, 0) << run.output;
  const auto opening = nlohmann::json::parse(run.output);
  std::string requests;
  for (const char* part : {"steps", "finish"}) {
    for (const auto& request : opening[part])
      requests += request.dump() + "\n";
  }
  EXPECT_NE(requests.find("\"user\":\"type\""), std::string::npos);
  EXPECT_EQ(Host("--result " + File(requests)).output, opening["result"].get<std::string>());
}

TEST_F(ProgramTest, WhatATextDoesIsWrittenInWords) {
  const Outcome run = Host("--explain " + File("select A.B\r\nwhere EXISTS (\r\nselect C.D\r\n"
                                               "endselect\r\n)\r\nselectdo\r\n\tx = 1\r\n"
                                               "endselect\r\ny"));
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output,
            "Reads A.B where EXISTS ( ... ).\n  Reads C.D.\n  For each row that was read:\n"
            "    Sets x to 1.\nRuns y.\n");
}

TEST_F(ProgramTest, WhatItCannotTakeIsToldAndEndsWithTwo) {
  EXPECT_EQ(Host("/nowhere/at/all 2>&1").output, "zolt20-host: can't read /nowhere/at/all\n");
  EXPECT_EQ(Host("/nowhere/at/all 2>/dev/null").status, 2);
  EXPECT_EQ(Host("--nothing 2>/dev/null").status, 2);
  EXPECT_EQ(Host("--get prpTab 2>/dev/null").status, 2);
  EXPECT_EQ(Host("--get 2>/dev/null").status, 2);
  EXPECT_EQ(Host("a b 2>/dev/null").status, 2);
}

TEST_F(ProgramTest, HelpTellsTheOptions) {
  const Outcome run = Host("--help");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output.substr(0, 18), "usage: zolt20-host");
}

}  // namespace
}  // namespace zolt20::tests
