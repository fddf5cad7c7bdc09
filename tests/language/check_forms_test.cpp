// A check finds nothing in what the control writes from forms that are filled in whole.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <random>
#include <set>

#include "hosts/kit/catalogue.h"
#include "tests/support/example_texts.h"
#include "tests/support/finding_lines.h"
#include "tests/support/places.h"
#include "tests/support/whole_forms.h"

namespace zolt20::tests {
namespace {

namespace fs = std::filesystem;
using language::Names;
using language::NodeKind;

// ZOLT20_CHECK_FORMS asks for more.
unsigned NumberOfForms() {
  const char* const asked = std::getenv("ZOLT20_CHECK_FORMS");
  return asked == nullptr ? 600 : static_cast<unsigned>(std::stoul(asked));
}

TEST(CheckFormsTest, NothingIsFoundInWholeForms) {
  std::map<NodeKind, int> kinds;
  for (unsigned seed = 1; seed <= NumberOfForms(); ++seed) {
    SCOPED_TRACE(seed);
    WholeForm form(seed);
    const String text = form.Compose();
    const Names names(form.Tables(), form.Fields());
    ASSERT_EQ(FindingLines(text, &names), Texts{}) << Narrow(text);
    for (const language::Node& node : language::ReadOutline(text))
      ++kinds[node.kind];
  }
  // All that the language has was there.
  for (int kind = static_cast<int>(NodeKind::kStatement);
       kind <= static_cast<int>(NodeKind::kDefault); ++kind)
    EXPECT_GT(kinds[static_cast<NodeKind>(kind)], 20) << kind;
}

TEST(CheckFormsTest, NothingIsFoundInTheExamples) {
  const fs::path examples = Examples();
  const catalogue::Catalogue catalogue = catalogue::ReadCatalogue(examples / "catalogue.json");
  const Names names(catalogue::TableList(catalogue), catalogue::FieldList(catalogue));
  int texts = 0;
  const auto expectNothing = [&](const String& text) {
    EXPECT_EQ(FindingLines(text, &names), Texts{}) << Narrow(text);
    ++texts;
  };
  for (const String& text : ExampleTexts())
    expectNothing(text);
  EXPECT_GT(texts, 8);
}

// What is damaged in a whole form is found.
class DamagedFormsTest : public ::testing::Test {
 protected:
  using Damage = std::function<bool(String& text, const std::vector<language::Node>& nodes,
                                    std::mt19937& random)>;

  /// Damages many forms in one place each, where they have such a place.
  static void ExpectFound(const Damage& damage, const std::set<std::string>& codes) {
    int damaged = 0;
    for (unsigned seed = 1; seed <= 400; ++seed) {
      WholeForm form(seed);
      String text = form.Compose();
      std::mt19937 random(seed);
      if (!damage(text, language::ReadOutline(text), random)) continue;
      ++damaged;
      const Names names(form.Tables(), form.Fields());
      const auto findings = language::Check(text, &names);
      ASSERT_TRUE(std::any_of(
          findings.begin(), findings.end(),
          [&](const auto& each) { return codes.count(language::CodeOf(each.mistake)) != 0; }))
          << "seed " << seed << "\n"
          << Narrow(text);
    }
    EXPECT_GT(damaged, 100);
  }

  /// One of the places that fit.
  static std::optional<std::size_t> OneOf(std::size_t count, std::mt19937& random,
                                          const std::function<bool(std::size_t)>& fits) {
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < count; ++i) {
      if (fits(i)) places.push_back(i);
    }
    if (places.empty()) return std::nullopt;
    return places[random() % places.size()];
  }

  static bool ClosesStatement(const std::vector<language::Node>& nodes, std::size_t i) {
    if (nodes[i].kind != NodeKind::kEnd) return false;
    const NodeKind kind = nodes[nodes[i].parent].kind;
    return kind != NodeKind::kCaseRow && kind != NodeKind::kDefault;
  }
};

TEST_F(DamagedFormsTest, AnEndThatIsLeftOut) {
  ExpectFound(
      [](String& text, const auto& nodes, std::mt19937& random) {
        const auto end =
            OneOf(nodes.size(), random, [&](std::size_t i) { return ClosesStatement(nodes, i); });
        if (end) text.erase(nodes[*end].first, nodes[*end].last - nodes[*end].first);
        return end.has_value();
      },
      {"not-closed"});
}

TEST_F(DamagedFormsTest, AnEndThatStandsTwice) {
  ExpectFound(
      [](String& text, const auto& nodes, std::mt19937& random) {
        const auto end =
            OneOf(nodes.size(), random, [&](std::size_t i) { return ClosesStatement(nodes, i); });
        if (!end) return false;
        const String line(language::HeadOf(text, nodes[*end]));
        text.insert(nodes[*end].first, line + u"\r\n");
        return true;
      },
      {"nothing-to-close"});
}

TEST_F(DamagedFormsTest, AStatementBehindAnEndWithoutALineBreak) {
  ExpectFound(
      [](String& text, const auto& nodes, std::mt19937& random) {
        const auto end = OneOf(nodes.size() - 1, random, [&](std::size_t i) {
          return ClosesStatement(nodes, i) && nodes[i + 1].kind == NodeKind::kStatement &&
                 text[nodes[i + 1].headFirst] == u':' &&
                 nodes[nodes[i].parent].kind != NodeKind::kRepeat;
        });
        if (!end) return false;
        const std::size_t behind = nodes[*end].headLast;
        text.erase(behind, nodes[*end + 1].headFirst - behind);
        return true;
      },
      {"glued"});
}

TEST_F(DamagedFormsTest, AClauseThatStandsTwice) {
  ExpectFound(
      [](String& text, const auto& nodes, std::mt19937& random) {
        const auto clause = OneOf(nodes.size(), random,
                                  [&](std::size_t i) { return nodes[i].kind == NodeKind::kFrom; });
        if (!clause) return false;
        const String line(language::TextOf(text, nodes[*clause]));
        text.insert(nodes[*clause].last, line);
        return true;
      },
      {"out-of-place"});
}

TEST_F(DamagedFormsTest, AQuoteThatIsLeftOut) {
  ExpectFound(
      [](String& text, const auto&, std::mt19937& random) {
        const auto quote =
            OneOf(text.size(), random, [&](std::size_t i) { return text[i] == u'"'; });
        if (quote) text.erase(*quote, 1);
        return quote.has_value();
      },
      {"open-string"});
}

TEST_F(DamagedFormsTest, ABracketThatIsLeftOut) {
  ExpectFound(
      [](String& text, const auto&, std::mt19937& random) {
        bool isInString = false;
        std::vector<bool> isBracket;
        for (const char16_t c : text) {
          if (c == u'"') isInString = !isInString;
          isBracket.push_back(!isInString && (c == u'(' || c == u')' || c == u'{' || c == u'}'));
        }
        const auto bracket =
            OneOf(text.size(), random, [&](std::size_t i) { return isBracket[i]; });
        if (bracket) text.erase(*bracket, 1);
        return bracket.has_value();
      },
      {"open-bracket", "stray-bracket"});
}

TEST_F(DamagedFormsTest, ALetterThatIsLeftOutOfAName) {
  ExpectFound(
      [](String& text, const auto& nodes, std::mt19937& random) {
        const auto list = OneOf(nodes.size(), random, [&](std::size_t i) {
          return nodes[i].kind == NodeKind::kFrom || nodes[i].kind == NodeKind::kGroupBy;
        });
        if (!list) return false;
        text.erase(nodes[*list].headFirst + (nodes[*list].kind == NodeKind::kFrom ? 8 : 12), 1);
        return true;
      },
      {"unknown-table"});
}

}  // namespace
}  // namespace zolt20::tests
