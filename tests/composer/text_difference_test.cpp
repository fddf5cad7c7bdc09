// What became of the lines of a text.
#include "hosts/composer/text_difference.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <string>

#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using composer::LineDifference;
using composer::LineMark;
using composer::MarkedLine;

// A line for each character.
String LinesOf(const std::string& characters) {
  String text;
  for (const char character : characters) {
    if (!text.empty()) text += kLineBreak;
    text += static_cast<char16_t>(character);
  }
  return text;
}

// "-a +b c" for lines of one character.
std::string Marked(const std::string& before, const std::string& after) {
  const String old = LinesOf(before);
  const String fresh = LinesOf(after);
  std::string told;
  for (const MarkedLine& line : LineDifference(old, fresh)) {
    if (!told.empty()) told += ' ';
    if (line.mark == LineMark::kRemoved) told += '-';
    if (line.mark == LineMark::kAdded) told += '+';
    told += Narrow(String(line.text));
  }
  return told;
}

int ChangesOf(const std::vector<MarkedLine>& lines) {
  int changes = 0;
  for (const MarkedLine& line : lines)
    changes += line.mark == LineMark::kSame ? 0 : 1;
  return changes;
}

// The two texts as the marks tell them.
std::pair<std::vector<StringView>, std::vector<StringView>> SidesOf(
    const std::vector<MarkedLine>& lines) {
  std::pair<std::vector<StringView>, std::vector<StringView>> sides;
  for (const MarkedLine& line : lines) {
    if (line.mark != LineMark::kAdded) sides.first.push_back(line.text);
    if (line.mark != LineMark::kRemoved) sides.second.push_back(line.text);
  }
  return sides;
}
std::vector<StringView> Split(const std::string& characters, const String& text) {
  std::vector<StringView> lines;
  for (std::size_t i = 0; i < characters.size(); ++i)
    lines.push_back(StringView(text).substr(3 * i, 1));
  return lines;
}

TEST(TextDifferenceTest, TellsWhatBecameOfLines) {
  EXPECT_EQ(Marked("", ""), "");
  EXPECT_EQ(Marked("abc", "abc"), "a b c");
  EXPECT_EQ(Marked("", "ab"), "+a +b");
  EXPECT_EQ(Marked("ab", ""), "-a -b");
  EXPECT_EQ(Marked("abc", "axc"), "a -b +x c");
  EXPECT_EQ(Marked("abc", "abxc"), "a b +x c");
  EXPECT_EQ(Marked("aab", "ab"), "a -a b");
  EXPECT_EQ(Marked("abcd", "xbdy"), "-a +x b -c d +y");
}

TEST(TextDifferenceTest, LinesThatStandOnceAreMatchedFirst) {
  EXPECT_EQ(Marked("{}a{}", "{}b{}a{}"), "{ } +b +{ +} a { }");
}

TEST(TextDifferenceTest, LinesThatStandOftenAreMatchedByTheFewestChanges) {
  const String before = LinesOf("abcabba");
  const String after = LinesOf("cbabac");
  EXPECT_EQ(ChangesOf(LineDifference(before, after)), 5);
}

TEST(TextDifferenceTest, AnEmptyLineIsALine) {
  const std::vector<MarkedLine> lines = LineDifference(u"a", u"a\r\n");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[1], (MarkedLine{LineMark::kAdded, u""}));
  EXPECT_EQ(LineDifference(u"\r\n", u"\r\n").size(), 2U);
}

TEST(TextDifferenceTest, BothTextsCanBeReadOffTheMarks) {
  std::mt19937 random(1);
  for (int round = 0; round < 3000; ++round) {
    const auto made = [&random](const char* letters) {
      std::string text(random() % 12, ' ');
      for (char& character : text)
        character = letters[random() % 4];
      return text;
    };
    const std::string before = made(round % 2 == 0 ? "abab" : "abcd");
    const std::string after = made("abcb");
    const String old = LinesOf(before);
    const String fresh = LinesOf(after);
    const std::vector<MarkedLine> lines = LineDifference(old, fresh);
    EXPECT_EQ(SidesOf(lines).first, Split(before, old)) << before << ' ' << after;
    EXPECT_EQ(SidesOf(lines).second, Split(after, fresh)) << before << ' ' << after;
  }
}

TEST(TextDifferenceTest, LongTextsTakeTimeInProportion) {
  constexpr int kLines = 32000;
  std::mt19937 random(2);
  for (const unsigned kinds : {2U, 50U, 1000000U}) {
    String before;
    String after;
    for (int i = 0; i < kLines; ++i) {
      before += Concat(FromAscii(std::to_string(random() % kinds)), kLineBreak);
      after += Concat(FromAscii(std::to_string(random() % kinds)), kLineBreak);
    }
    const auto start = std::chrono::steady_clock::now();
    const std::vector<MarkedLine> lines = LineDifference(before, after);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    EXPECT_GE(lines.size(), static_cast<std::size_t>(kLines));
    EXPECT_LT(taken.count(), 5) << kinds;
  }
}

}  // namespace
}  // namespace zolt20::tests
