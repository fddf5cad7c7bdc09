// Plays the conversations of tests/conversations: requests of the automation host, each with its
// reply. docs/testing.md tells how one is written and approved.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "hosts/automation/dump.h"
#include "hosts/automation/session.h"
#include "hosts/kit/text_coding.h"
#include "tests/support/places.h"

namespace zolt20::tests {
namespace {

using automation::Session;
using Json = nlohmann::ordered_json;
namespace fs = std::filesystem;

constexpr const char* kOfAReply = "    ";

// A request that was no request, or that the form refused.
bool IsTurnedDown(const Json& reply) {
  return reply.contains("refused") ||
         (reply.contains("error") && reply["error"]["kind"] == "request");
}

class Conversation {
 public:
  // What comes back for a line. A line that begins with a slash is a JSON pointer to a piece of the
  // state.
  std::string Reply(const std::string& line) {
    if (line.starts_with('/')) return State().value(Json::json_pointer(line), Json()).dump();
    const Json before = State();
    std::string reply = session_->Reply(line);
    const bool isTurnedDown = IsTurnedDown(Json::parse(hosts::PutStandIns(reply)));
    EXPECT_TRUE(!isTurnedDown || State() == before) << line;
    return reply;
  }

 private:
  Json State() { return automation::Dump(session_->Control().Form()); }

  std::unique_ptr<Session> session_ = std::make_unique<Session>();
};

// The text of a file with the replies that come now.
std::string Played(const std::string& text) {
  std::istringstream lines(text);
  std::string played;
  auto conversation = std::make_unique<Conversation>();
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(kOfAReply)) continue;
    played += line + '\n';
    if (line.starts_with("== ")) {
      conversation = std::make_unique<Conversation>();
    } else if (!Session::IsSkipped(line)) {
      played += kOfAReply + conversation->Reply(line) + '\n';
    }
  }
  return played;
}

std::vector<fs::path> Files() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(Sources() + "/tests/conversations"))
    files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

class ConversationsTest : public ::testing::TestWithParam<fs::path> {};

TEST_P(ConversationsTest, EveryReplyIsTheOneThatWasApproved) {
  std::ifstream file(GetParam(), std::ios::binary);
  std::stringstream approved;
  approved << file.rdbuf();
  ASSERT_FALSE(approved.str().empty()) << GetParam();
  const std::string played = Played(approved.str());
  if (std::getenv("ZOLT20_APPROVE") != nullptr)
    std::ofstream(GetParam(), std::ios::binary) << played;
  EXPECT_EQ(played, approved.str());
}

INSTANTIATE_TEST_SUITE_P(Files, ConversationsTest, ::testing::ValuesIn(Files()),
                         [](const auto& file) { return file.param.stem().string(); });

}  // namespace
}  // namespace zolt20::tests
