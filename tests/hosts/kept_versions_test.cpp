// Versions kept as raw JSON: an invalid file gives the same message as if all of it was parsed, and
// a file with an unusual layout comes back whole.
#include "hosts/kit/kept_versions.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "hosts/kit/rules_cut.h"
#include "hosts/kit/rules_text.h"
#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using rules::KeptVersion;
using rules::KeptVersions;
using rules::Version;

// A string that looks like a placeholder: a file with it is parsed whole. The other one is as long.
constexpr std::string_view kPlaceholder = "versions kept as they are written ";
constexpr std::string_view kHarmless = "versions kept as they are written_";

Version VersionNumber(int number) {
  return {Wide("x = " + std::to_string(number)), u"f\xE4\x20AC\xD83D\xDE00", u"then"};
}

rules::RulesContent ContentOf(int versions, std::string_view unknown) {
  rules::RulesContent content;
  content.rules.push_back({u"A", u"x = 1\r\n", u""});
  content.extras.emplace_back();
  for (int number = 0; number < versions; ++number)
    content.extras[0].versions.Add(KeptVersion(VersionNumber(number)));
  content.bin.push_back({{{u"B", u"", u""}, u"then"}, content.extras[0]});
  content.unknown.push_back({"\"x\"", '"' + std::string(unknown) + '"'});
  return content;
}

std::string FileOf(int versions, std::string_view unknown) {
  return rules::WriteContent(ContentOf(versions, unknown));
}

// What a file becomes when it is written again, or what is complained of.
std::string Outcome(const std::string& bytes) {
  try {
    return rules::WriteContent(rules::ReadContent(bytes, "FILE"));
  } catch (const rules::RulesError& error) {
    return error.what();
  }
}

std::size_t CutOutOf(const std::string& bytes) {
  const auto cut = rules::CutVersions(bytes);
  return cut ? cut->spans.size() : 0;
}

std::string Replaced(std::string text, std::string_view part, std::string_view by) {
  const std::size_t at = text.find(part);
  EXPECT_NE(at, std::string::npos) << part;
  return at == std::string::npos ? text : text.replace(at, part.size(), by);
}

TEST(KeptVersionsTest, VersionsAsTheWriterWritesThemAreCutOut) {
  const std::string file = FileOf(3, kHarmless);
  const auto cut = rules::CutVersions(file);
  ASSERT_TRUE(cut.has_value());
  ASSERT_EQ(cut->spans.size(), 2U);
  EXPECT_EQ(cut->spans[0].count, 3U);
  EXPECT_EQ(cut->text.find("\"fields\": \"f"), std::string::npos) << cut->text;
  EXPECT_EQ(Outcome(file), file);
  EXPECT_EQ(rules::ReadContent(file, "FILE").extras[0].versions.Read(),
            (std::vector<Version>{VersionNumber(0), VersionNumber(1), VersionNumber(2)}));
}

TEST(KeptVersionsTest, AnyDamageIsToldAsIfTheWholeHadBeenRead) {
  const std::string quick = FileOf(2, kHarmless);
  const std::string slow = FileOf(2, kPlaceholder);
  ASSERT_EQ(CutOutOf(quick), 2U);
  ASSERT_EQ(CutOutOf(slow), 0U);
  ASSERT_EQ(quick.size(), slow.size());
  const auto compare = [](const std::string& one, const std::string& other, std::size_t at) {
    const std::string outcome = Outcome(one);
    const bool isWhole = outcome.find(kHarmless) != std::string::npos;
    ASSERT_EQ(isWhole ? Replaced(outcome, kHarmless, kPlaceholder) : outcome, Outcome(other))
        << at << ": " << one;
  };
  constexpr std::string_view kBytes = "\"\\\n\x01\x80\xC3}],";
  for (std::size_t at = quick.find("\"versions\""); at < quick.find("\"x\":"); ++at) {
    for (const char byte : kBytes) {
      std::string one = quick;
      std::string other = slow;
      one[at] = other[at] = byte;
      compare(one, other, at);
      compare(std::string(quick).insert(at, 1, byte), std::string(slow).insert(at, 1, byte), at);
    }
    compare(quick.substr(0, at) + quick.substr(at + 1), slow.substr(0, at) + slow.substr(at + 1),
            at);
  }
}

TEST(KeptVersionsTest, CharactersThatAreNotSoundAreToldOf) {
  for (const std::string_view wrong :
       {"\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
        "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "\x80", "\xE2\x82", "\xC3"}) {
    const std::string file = Replaced(FileOf(1, kHarmless), "x = 0", wrong);
    EXPECT_TRUE(Outcome(file).starts_with("FILE is no JSON: reading stops at line 1")) << wrong;
  }
  for (const std::string_view right : {"\xC2\x80", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
                                       "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF", "\x7F"}) {
    const std::string file = Replaced(FileOf(1, kHarmless), "x = 0", right);
    EXPECT_EQ(CutOutOf(file), 2U);
    EXPECT_EQ(Outcome(file), file);
  }
}

TEST(KeptVersionsTest, AStringThatCouldStandForVersionsIsTheFilesOwn) {
  const std::string array = "[\n        {";
  const std::string file = FileOf(1, kHarmless);
  for (const std::string spelt : {"\"versions kept as they are written 0\"",
                                  R"("\u0076ersions kept as they are written 0")"}) {
    const std::size_t begin = file.find(array);
    const std::size_t end = file.find("\n      ]", begin) + 8;
    const std::string odd = file.substr(0, begin) + spelt + file.substr(end);
    EXPECT_EQ(Outcome(odd), "FILE: rule \"A\" has \"versions\" that are no array");
  }
}

TEST(KeptVersionsTest, VersionsAtAPlaceThatNobodyKnowsAreKept) {
  const std::string versions =
      "[\n        {\n          \"text\": \"\",\n          \"fields\": \"\"\n"
      "        }\n      ]";
  rules::RulesContent content = ContentOf(1, kHarmless);
  content.unknown.push_back(
      {"\"y\"", "{\n    \"z\": {\n      \"versions\": " + versions + "\n    }\n  }"});
  const std::string file = rules::WriteContent(content);
  EXPECT_EQ(CutOutOf(file), 3U);
  EXPECT_EQ(Outcome(file), file);
}

TEST(KeptVersionsTest, OtherLayoutsAndKeysAreReadAsTheyStand) {
  const std::string file = FileOf(1, kHarmless);
  const std::string key = "\n          \"text\": \"x = 0\"";
  EXPECT_EQ(Outcome(Replaced(file, key, "\n\"text\":\"x = 0\"")), file);
  EXPECT_EQ(Outcome(Replaced(file, key, "\n          \"text\": \"\\u0078 = 0\"")), file);
  EXPECT_EQ(
      Outcome(Replaced(file, "\"stored\": \"then\",\n          \"text\"",
                       "\"stored\": \"\",\n          \"text\"")),
      Replaced(file, "          \"stored\": \"then\",\n          \"text\"", "          \"text\""));
}

TEST(KeptVersionsTest, TheOldestGoesFirstWhereverItStands) {
  rules::RulesContent content = rules::ReadContent(FileOf(2, kHarmless), "FILE");
  KeptVersions& versions = content.extras[0].versions;
  versions.Add(KeptVersion(VersionNumber(2)));
  std::vector<Version> expected{VersionNumber(0), VersionNumber(1), VersionNumber(2)};
  while (!expected.empty()) {
    EXPECT_EQ(versions.Read(), expected);
    EXPECT_EQ(versions.Count(), expected.size());
    const std::string written = rules::WriteContent(content);
    EXPECT_EQ(rules::ReadContent(written, "FILE").extras[0].versions.Read(), expected);
    expected.erase(expected.begin());
    versions.DropOldest();
  }
  EXPECT_TRUE(versions.IsEmpty());
  versions.DropOldest();
  EXPECT_EQ(versions.Count(), 0U);
}

}  // namespace
}  // namespace zolt20::tests
