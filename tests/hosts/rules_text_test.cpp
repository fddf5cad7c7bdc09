// Files of rules read and written: the same bytes as a plain writer makes of the whole JSON.
#include "hosts/kit/rules_text.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <random>

#include "hosts/kit/json_fault.h"
#include "hosts/kit/text_coding.h"
#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using Json = nlohmann::ordered_json;

std::string WrittenAgain(const std::string& bytes) {
  return rules::WriteContent(rules::ReadContent(bytes, "FILE"));
}

// The known keys first, in their order, and all others behind them.
Json InOrder(const Json& object, const Texts& known) {
  Json ordered = Json::object();
  for (const std::string& key : known) {
    const auto found = object.find(key);
    if (found == object.end()) continue;
    const bool isNothing = *found == "" || (found->is_array() && found->empty());
    const bool isNeeded = key == "name" || key == "text" || key == "fields" || key == "rules";
    if (isNeeded || !isNothing) ordered[key] = *found;
  }
  for (const auto& [key, value] : object.items()) {
    if (std::find(known.begin(), known.end(), key) == known.end()) ordered[key] = value;
  }
  return ordered;
}

Json RecordInOrder(const Json& record, bool isDeleted) {
  Json versions = Json::array();
  for (const Json& version : record.value("versions", Json::array()))
    versions.push_back(InOrder(version, {"stored", "text", "fields", "nodeNotes"}));
  Json changed = record;
  if (record.contains("versions")) changed["versions"] = versions;
  Texts known{"name", "text", "fields", "nodeNotes", "stored", "note", "versions"};
  if (isDeleted) known.emplace_back("deleted");
  return InOrder(changed, known);
}

// What the file has to become, by way of a tree of all of it.
std::string Expected(const std::string& bytes) {
  Json document = Json::parse(hosts::PutStandIns(bytes));
  document["version"] = 2;
  for (Json& record : document["rules"])
    record = RecordInOrder(record, false);
  if (document.contains("bin")) {
    for (Json& record : document["bin"])
      record = RecordInOrder(record, true);
  }
  document = InOrder(document, {"format", "version", "rules", "bin"});
  return hosts::TakeStandIns(document.dump(2)) + "\n";
}

// Files made up at random, of both versions of the format, written by hand or by a program.
class FileMaker {
 public:
  explicit FileMaker(unsigned seed) : random_(seed), isOld_(OneIn(3)) {}

  std::string Make() {
    Json document{{"format", "zolt20 rules"}, {"version", isOld_ ? 1 : 2}};
    document["rules"] = Json::array();
    for (std::size_t count = Below(4); count > 0; --count) {
      Json record = Record();
      record["name"] = std::to_string(count) + Text();
      document["rules"].push_back(Shuffled(record));
    }
    if (!isOld_ && OneIn(2)) {
      document["bin"] = Json::array();
      for (std::size_t count = Below(3); count > 0; --count) {
        Json record = Record();
        if (OneIn(2)) record["deleted"] = Text();
        document["bin"].push_back(Shuffled(record));
      }
    }
    AddUnknown(document);
    const std::string text = Shuffled(document).dump(OneIn(2) ? 2 : -1);
    return OneIn(4) ? text : hosts::TakeStandIns(text);
  }

 private:
  std::size_t Below(std::size_t bound) { return random_() % bound; }
  bool OneIn(std::size_t count) { return Below(count) == 0; }

  // With stand-ins.
  std::string Text() {
    String text;
    constexpr StringView kUnits =
        u"aZ .\r\n\t\"\\/\x01\x1F\x7F\u00E4\u20AC\xD83D\xDCD6\xDBFF\xDFFF";
    for (std::size_t length = Below(8); length > 0; --length)
      text += kUnits[Below(kUnits.size())];
    return hosts::ToJsonText(text);
  }
  Json Value(std::size_t depth) {
    switch (Below(depth == 0 ? 6 : 8)) {
      case 0:
        return nullptr;
      case 1:
        return OneIn(2);
      case 2:
        return static_cast<std::int64_t>(random_()) - 1'000'000'000;
      case 3:
        return static_cast<double>(Below(1000)) / 7.0 * (OneIn(2) ? 1e30 : 1.0);
      case 4:
        return 18'446'744'073'709'551'615U;
      case 5:
        return Text();
      case 6: {
        Json array = Json::array();
        for (std::size_t count = Below(3); count > 0; --count)
          array.push_back(Value(depth - 1));
        return array;
      }
      default: {
        Json object = Json::object();
        for (std::size_t count = Below(3); count > 0; --count)
          object[Text()] = Value(depth - 1);
        return object;
      }
    }
  }
  void AddUnknown(Json& object) {
    while (OneIn(2))
      object["x" + Text()] = Value(3);
  }
  void AddNotes(Json& object) {
    if (OneIn(2)) return;
    object["nodeNotes"] = Json::array();
    for (std::size_t count = Below(3); count > 0; --count) {
      Json note{{"at", Json::array()}, {"head", Text()}, {"note", Text()}};
      for (std::size_t depth = Below(3); depth > 0; --depth)
        note["at"].push_back(Below(5));
      object["nodeNotes"].push_back(note);
    }
  }
  Json Record() {
    Json record{{"name", "n" + Text()}, {"text", Text()}, {"fields", Text()}};
    AddUnknown(record);
    if (isOld_) return record;
    AddNotes(record);
    if (OneIn(2)) record["stored"] = Text();
    if (OneIn(2)) record["note"] = Text();
    if (OneIn(2)) {
      record["versions"] = Json::array();
      for (std::size_t count = Below(4); count > 0; --count) {
        Json version{{"fields", Text()}, {"text", Text()}};
        if (OneIn(2)) version["stored"] = Text();
        AddNotes(version);
        AddUnknown(version);
        record["versions"].push_back(Shuffled(version));
      }
    }
    return record;
  }
  Json Shuffled(const Json& object) {
    std::vector<std::pair<std::string, Json>> members;
    for (const auto& [key, value] : object.items())
      members.emplace_back(key, value);
    std::shuffle(members.begin(), members.end(), random_);
    Json shuffled = Json::object();
    for (const auto& [key, value] : members)
      shuffled[key] = value;
    return shuffled;
  }

  std::mt19937 random_;
  bool isOld_;
};

TEST(RulesTextTest, TheBytesAreThoseOfAPlainWriterOfTheWhole) {
  std::size_t bytes = 0;
  for (unsigned seed = 1; seed <= 2000; ++seed) {
    const std::string file = FileMaker(seed).Make();
    const std::string written = WrittenAgain(file);
    ASSERT_EQ(written, Expected(file)) << seed << ": " << file;
    ASSERT_EQ(WrittenAgain(written), written) << seed;
    bytes += written.size();
  }
  EXPECT_GT(bytes, 1'000'000U);
}

TEST(RulesTextTest, VersionsAreReadWhenTheyAreAskedFor) {
  for (const StringView text : {StringView(u""), StringView(u"a\r\n\t\"\\\x01"),
                                StringView(u"\xD83D|\xDBFF\xDFFF|\xDC00")}) {
    const rules::Version version{String(text), u"fields", u"2026-01-31T09:30:00Z"};
    EXPECT_EQ(rules::KeptVersion(version).Read(), version);
    rules::Version noted = version;
    noted.notes = {{{0, 2}, u"head", String(text)}, {{}, u"", u"gone"}};
    EXPECT_EQ(rules::KeptVersion(noted).Read(), noted);
    EXPECT_EQ(rules::KeptVersion(rules::KeptVersion(version).Written()).Read(), version);
  }
}

TEST(RulesTextTest, AnotherTextMakesAVersionAndOtherFieldsAloneNone) {
  rules::Rule rule{u"A", u"1", u"f"};
  rules::RuleExtras extras;
  extras.stored = u"then";
  rules::PutInPlace(rule, extras, {u"A", u"1", u"g"}, u"now");
  EXPECT_EQ(rule.fields, u"g");
  EXPECT_TRUE(extras.versions.IsEmpty());
  for (int text = 2; text < 40; ++text)
    rules::PutInPlace(rule, extras, {u"A", Wide(std::to_string(text)), u"g"}, u"now");
  ASSERT_EQ(extras.versions.Count(), rules::kVersions);
  EXPECT_EQ(extras.versions.Read().back(), (rules::Version{u"38", u"g", u"now"}));
  EXPECT_EQ(extras.versions.Read().front().text, u"19");
  EXPECT_EQ(rule.text, u"39");
  rules::PutInPlace(rule, extras, {u"A", u"39", u"g", {{{0}, u"39", u"n"}}}, u"later");
  EXPECT_EQ(extras.versions.Read().back().text, u"38") << "notes alone make none";
  rules::PutInPlace(rule, extras, {u"A", u"40", u"g"}, u"later");
  EXPECT_EQ(extras.versions.Read().back().notes.size(), 1U);
}

TEST(RulesTextTest, TimesAreOfTheClockOfTheWorld) {
  const std::string now = Narrow(rules::TimeNow());
  EXPECT_EQ(now.size(), 20U) << now;
  EXPECT_EQ(now[4], '-');
  EXPECT_EQ(now.substr(10, 1) + now.substr(13, 1) + now.back(), "T:Z") << now;
}

std::string ComplaintOf(const std::string& bytes) {
  try {
    rules::ReadContent(bytes, "FILE");
  } catch (const rules::RulesError& error) {
    return error.what();
  }
  return {};
}

std::string FileWith(const std::string& keys) {
  return R"({"format":"zolt20 rules","version":2,"rules":[{"name":"A","text":"","fields":"")" +
         keys + "}]}";
}

TEST(RulesTextTest, WhatBelongsToARuleIsLookedAtToo) {
  EXPECT_EQ(ComplaintOf(FileWith("")), "");
  EXPECT_EQ(ComplaintOf(FileWith(R"(,"versions":{})")),
            "FILE: rule \"A\" has \"versions\" that are no array");
  EXPECT_EQ(ComplaintOf(FileWith(R"(,"versions":[1])")),
            "FILE: rule \"A\" has a version that is no object");
  EXPECT_EQ(ComplaintOf(FileWith(R"(,"versions":[{"text":""}])")),
            "FILE: rule \"A\" has no \"fields\"");
  EXPECT_EQ(ComplaintOf(FileWith(R"(,"versions":[{"text":"","fields":"","stored":1}])")),
            "FILE: rule \"A\" has a \"stored\" that is no string");
  EXPECT_EQ(ComplaintOf(FileWith(R"(,"note":[])")),
            "FILE: rule \"A\" has a \"note\" that is no string");
  EXPECT_EQ(ComplaintOf(FileWith(R"(,"nodeNotes":1)")),
            "FILE: rule \"A\" has \"nodeNotes\" that are no array");
  EXPECT_EQ(ComplaintOf(FileWith(R"(,"nodeNotes":[1])")),
            "FILE: rule \"A\" has a note of a node that is no object");
  EXPECT_EQ(ComplaintOf(FileWith(R"(,"nodeNotes":[{"at":1,"head":"","note":""}])")),
            "FILE: rule \"A\" has an \"at\" that is no array");
  EXPECT_EQ(ComplaintOf(FileWith(R"(,"nodeNotes":[{"at":[-1],"head":"","note":""}])")),
            "FILE: rule \"A\" has an \"at\" with what is no place");
  EXPECT_EQ(ComplaintOf(FileWith(R"(,"nodeNotes":[{"at":[1],"note":""}])")),
            "FILE: rule \"A\" has no \"head\"");
  EXPECT_EQ(ComplaintOf(FileWith(R"(,"x":{"\ud800":1,"\ud800":2})")),
            "FILE has the key \"?\" twice in one place");
  std::string many;
  for (int i = 0; i < 20; ++i)
    many += ",\"k" + std::to_string(i) + "\":0";
  EXPECT_EQ(ComplaintOf(FileWith(many)), "");
  EXPECT_EQ(ComplaintOf(FileWith(many + ",\"k7\":0")),
            "FILE has the key \"k7\" twice in one place");
}

// Old files may have such a key of another program's; in the bin it is the time.
TEST(RulesTextTest, ARuleThatHasTheKeyOfTheBinStaysReadableThere) {
  const std::string file = FileWith(R"(,"deleted":5,"x":6)");
  EXPECT_EQ(WrittenAgain(file), Expected(file));
  rules::RulesContent content = rules::ReadContent(file, "FILE");
  content.bin.push_back({{content.rules[0], u"now"}, content.extras[0]});
  const rules::RulesContent again = rules::ReadContent(rules::WriteContent(content), "FILE");
  EXPECT_EQ(again.bin.at(0).deleted.deleted, u"now");
  ASSERT_EQ(again.bin[0].extras.unknown.size(), 1U);
  EXPECT_EQ(again.bin[0].extras.unknown[0].key, "\"x\"");
}

TEST(RulesTextTest, TheNamesOfTheCatalogueAreKeptBehindTheRules) {
  const std::string file =
      R"({"format":"zolt20 rules","version":2,"x":1,
          "catalogue":{"y":[],"fields":"f","tables":"t"},"rules":[]})";
  const rules::RulesContent content = rules::ReadContent(file, "FILE");
  ASSERT_TRUE(content.catalogue.has_value());
  EXPECT_EQ(content.catalogue->lists, (rules::NameLists{u"t", u"f"}));
  EXPECT_EQ(rules::WriteContent(content), R"({
  "format": "zolt20 rules",
  "version": 2,
  "rules": [],
  "catalogue": {
    "tables": "t",
    "fields": "f",
    "y": []
  },
  "x": 1
}
)");
  const std::string head = R"({"format":"zolt20 rules","version":2,"rules":[],"catalogue":)";
  EXPECT_EQ(ComplaintOf(head + "1}"), "FILE has a \"catalogue\" that is no object");
  EXPECT_EQ(ComplaintOf(head + "{\"tables\":\"\"}}"), "FILE has no \"fields\"");
}

TEST(JsonFaultTest, BracketsInStringsAreNotDeep) {
  const std::string open(200, '[');
  EXPECT_TRUE(hosts::IsTooDeep(open));
  EXPECT_FALSE(hosts::IsTooDeep(std::string(100, '[')));
  EXPECT_FALSE(hosts::IsTooDeep("\"" + open));
  EXPECT_FALSE(hosts::IsTooDeep("\"\\\"" + open + "\"]"));
  EXPECT_FALSE(hosts::IsTooDeep("\"\\"));
  EXPECT_TRUE(hosts::IsTooDeep("]\"\\\\\"" + open));
  EXPECT_TRUE(hosts::FaultIn("[1]").IsEmpty());
  EXPECT_EQ(hosts::FaultIn("[1").English(), "is no JSON, or cut short: it ends within line 1");
}

}  // namespace
}  // namespace zolt20::tests
