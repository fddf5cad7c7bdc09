// New names in rules made up at random: a check finds no more than before, and every rule that
// opens on the form so that the same bytes come does so again.
#include "hosts/kit/rules_changes.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>

#include "language/check.h"
#include "language/opening.h"
#include "tests/support/whole_forms.h"

namespace zolt20::tests {
namespace {

using language::Renames;
using rules::Change;
using rules::RulesContent;

unsigned NumberOfForms() {
  const char* const asked = std::getenv("ZOLT20_CHECK_FORMS");
  return asked == nullptr ? 300 : static_cast<unsigned>(std::stoul(asked));
}

// The two lists as they are after the catalogue has given new names to all that it has.
struct Moved {
  Moved(const language::Names& names, const String& tables, const String& fields) {
    int number = 10;
    for (const language::Names::Table& table : names.Tables()) {
      const String code = tables + Wide(std::to_string(number++));
      lists.tables +=
          (lists.tables.empty() ? u"" : u",") + code + Wide(std::to_string(table.indexes));
      there.emplace(table.name, code);
      back.emplace(code, table.name);
      for (const StringView field : table.fields) {
        // What ends with a blank is read without it; what has one within goes on having one.
        ++number;
        const bool isBlankAtEnd = field != Trim(field);
        const String name = isBlankAtEnd ? String(field)
                                         : fields + Wide(std::to_string(number)) +
                                               (field.find(u' ') == String::npos ? u"" : u" N");
        lists.fields += (lists.fields.empty() ? u"" : u",") + String(u"long*Q*V*R*N*N") + code +
                        u"." + name + u"*Q*V*R*N*text";
        if (isBlankAtEnd) continue;
        there.emplace(Concat(table.name, u".", field), Concat(code, u".", name));
        back.emplace(Concat(code, u".", name), Concat(table.name, u".", field));
      }
    }
  }

  rules::NameLists lists;
  Renames there;
  Renames back;
};

RulesContent ContentOf(const String& text) {
  RulesContent content;
  content.rules.push_back({u"A", text, u""});
  content.extras.emplace_back();
  return content;
}

String MovedText(const String& text, const Renames& renames, const language::Names& names) {
  RulesContent content = ContentOf(text);
  std::vector<Change> changes = rules::FindChanges(content, renames, names);
  for (Change& change : changes)
    change.isChosen = true;
  rules::MakeChanges(content, changes, names, u"now");
  return content.rules[0].text;
}

std::map<std::string, int> Findings(const String& text, const language::Names& names) {
  std::map<std::string, int> findings;
  for (const language::Finding& finding : language::Check(text, &names))
    ++findings[language::CodeOf(finding.mistake)];
  return findings;
}

TEST(RulesChangesTest, AfterNewNamesNothingIsWrongAndRulesComeBack) {
  unsigned equal = 0;
  for (unsigned seed = 1; seed <= NumberOfForms(); ++seed) {
    SCOPED_TRACE(seed);
    WholeForm form(seed);
    const String text = form.Compose();
    const language::Names names(form.Tables(), form.Fields());
    const Moved plain(names, u"OLD___", u"F");
    const language::Names plainNames(plain.lists.tables, plain.lists.fields);
    const String before = MovedText(text, plain.there, names);
    ASSERT_EQ(Findings(before, plainNames), Findings(text, names)) << Narrow(before);
    ASSERT_EQ(MovedText(before, plain.back, plainNames), text) << Narrow(before);

    // Odd names open in ways of their own, so those rules are looked at that have none by now.
    const Moved moved(plainNames, u"NEW___", u"FIELD_");
    const language::Names newNames(moved.lists.tables, moved.lists.fields);
    const String changed = MovedText(before, moved.there, plainNames);
    ASSERT_EQ(Findings(changed, newNames), Findings(before, plainNames)) << Narrow(changed);
    ASSERT_EQ(MovedText(changed, moved.back, newNames), before) << Narrow(changed);
    if (!reopen::Open(before, {plain.lists.tables, plain.lists.fields}).IsEqual()) continue;
    ++equal;
    ASSERT_TRUE(reopen::Open(changed, {moved.lists.tables, moved.lists.fields}).IsEqual())
        << Narrow(before) << "\n"
        << Narrow(changed);
  }
  EXPECT_GT(equal, NumberOfForms() / 10);
}

TEST(RulesChangesTest, EachPlaceCanBeLeftOut) {
  RulesContent content = ContentOf(u"select CUSTOMER.A,CUSTOMER.A\r\nfrom  CUSTOMER\r\nendselect");
  content.rules[0].fields = u"long*Q*V*R*N*NCUSTOMER.A*Q*V*R*N*";
  const Renames renames{{u"CUSTOMER.A", u"CUSTOMER.B"}};
  rules::NameLists lists;
  lists.Add(u"CUSTOMER.A");
  const language::Names names(lists.tables, lists.fields);
  std::vector<Change> changes = rules::FindChanges(content, renames, names);
  ASSERT_EQ(changes.size(), 2U);
  changes[0].isChosen = false;
  changes[1].isChosen = false;
  EXPECT_TRUE(rules::MakeChanges(content, changes, names, u"now").empty());
  changes[1].isChosen = true;
  EXPECT_EQ(rules::MakeChanges(content, changes, names, u"now"), std::vector<std::size_t>{0});
  EXPECT_EQ(content.rules[0].text, u"select CUSTOMER.A,CUSTOMER.B\r\nfrom  CUSTOMER\r\nendselect");
  EXPECT_EQ(content.rules[0].fields, u"long*Q*V*R*N*NCUSTOMER.B*Q*V*R*N*");
  EXPECT_EQ(content.extras[0].versions.Count(), 1U);
}

}  // namespace
}  // namespace zolt20::tests
