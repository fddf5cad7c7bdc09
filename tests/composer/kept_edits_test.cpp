// What was edited in a Result stays when the control writes it anew.
#include "hosts/composer/kept_edits.h"

#include <gtest/gtest.h>

namespace zolt20::tests {
namespace {

using composer::MergedResult;
using composer::MergeResult;

struct MergeCase {
  const char* what;
  StringView own;
  StringView edited;
  StringView written;
  StringView added;
  StringView merged;
  bool loses = false;
};

class MergeResultTest : public ::testing::TestWithParam<MergeCase> {};

TEST_P(MergeResultTest, TheEditsAndWhatIsWrittenAreInIt) {
  const MergeCase& each = GetParam();
  const MergedResult merged = MergeResult({each.own, each.edited, each.written, each.added});
  EXPECT_EQ(StringView(merged.text), each.merged) << each.what;
  EXPECT_EQ(merged.loses, each.loses) << each.what;
}

INSTANTIATE_TEST_SUITE_P(
    Each, MergeResultTest,
    ::testing::Values(
        MergeCase{"nothing was edited", u"s", u"s", u"t", u"", u"t"},
        MergeCase{"more behind", u"s", u"e", u"s\r\nt", u"s", u"e\r\nt"},
        MergeCase{"more behind an open line end", u"s", u"e\r\n", u"s\r\nt", u"", u"e\r\n\r\nt"},
        MergeCase{"more behind what was typed", u"", u"e", u"t", u"", u"e\r\nt"},
        MergeCase{"the same on the next line", u"", u"e\r\n", u"t", u"", u"e\r\nt"},
        MergeCase{"nothing new", u"s", u"e", u"s", u"s", u"e"},
        MergeCase{"all was deleted", u"s", u"", u"s\r\nt", u"s", u"t"},
        MergeCase{"all was deleted and comes again", u"s", u"", u"s", u"s", u"s"},
        MergeCase{"all was deleted and comes anew", u"s", u"", u"t", u"s", u"t"},
        MergeCase{"a word that goes on is not behind", u"s", u"e", u"st", u"", u"st", true},
        MergeCase{"the edits are there", u"s", u" e ", u"e\r\nt", u"", u"e\r\nt"},
        MergeCase{"a statement with edits around it", u"a\r\ns\r\nz", u"b\r\ns\r\ny\r\nz",
                  u"a\r\nt\r\nu\r\nz", u"s", u"b\r\nt\r\nu\r\ny\r\nz"},
        MergeCase{"the last of two alike", u"s\r\ns", u"s\r\ne\r\ns", u"s\r\nt", u"s",
                  u"s\r\ne\r\nt"},
        MergeCase{"an edited statement", u"a\r\ns1\r\ns2\r\nz", u"a\r\ns1\r\ne\r\nz",
                  u"a\r\nt\r\nz", u"s1\r\ns2", u"a\r\nt\r\nz", true},
        MergeCase{"a line within it", u"a\r\ns1\r\ns2", u"b\r\ns1\r\ne\r\ns2", u"a\r\nt",
                  u"s1\r\ns2", u"b\r\nt", true},
        MergeCase{"a statement that is gone", u"a\r\ns\r\nz", u"a\r\ne\r\nz", u"a\r\nt\r\nz", u"s",
                  u"a\r\nt\r\nz", true},
        MergeCase{"a rule of which nothing is known", u"a\r\nb", u"a\r\nc", u"t", u"", u"t", true},
        MergeCase{"and with more behind it", u"a\r\nb", u"a\r\nb\r\nc", u"t", u"", u"t\r\nc"},
        MergeCase{"a statement that is not there", u"a\r\nb", u"a\r\nb\r\nc", u"t", u"x",
                  u"t\r\nc"},
        MergeCase{"one that another took the place of", u"s\r\nb", u"s\r\nb\r\nc", u"t\r\nd", u"s",
                  u"t\r\nd\r\nc"}));

}  // namespace
}  // namespace zolt20::tests
