// The split lists and the field records: every question answered as a plain walk over the split
// records would answer it.
#include "shell/field_records.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "hosts/kit/text_coding.h"
#include "shell/split_list.h"
#include "surface/error.h"

namespace zolt20::tests {
namespace {

constexpr unsigned kSeed = 20;
constexpr int kLists = 4000;

/// Whether the action fails with `subscript`; any other failure passes on.
bool FailsWithSubscript(const std::function<void()>& action) {
  try {
    action();
    return false;
  } catch (const RuntimeError& error) {
    if (error.kind() != ErrorKind::kSubscript) throw;
    return true;
  }
}

FieldRecords Records(const String& list) {
  return FieldRecords(Shared<String>(list));
}

/// Small numbers and texts that are the same in every run.
class Dice {
 public:
  std::size_t Below(std::size_t count) { return generator_() % count; }
  String OneOf(const std::vector<String>& texts) { return texts[Below(texts.size())]; }
  String Letters(std::size_t most) {
    String text;
    for (std::size_t length = Below(most + 1); length > 0; --length)
      text += OneOf({u"a", u"b"});
    return text;
  }

 private:
  std::mt19937 generator_{kSeed};
};

// The plain walk, character by character, in nothing but the words of the format.

std::vector<String> SplitPlainly(const String& text, const String& separator) {
  std::vector<String> pieces;
  if (text.empty()) return pieces;
  pieces.emplace_back();
  for (std::size_t place = 0; place < text.size();) {
    if (text.compare(place, separator.size(), separator) == 0) {
      pieces.emplace_back();
      place += separator.size();
    } else {
      pieces.back() += text[place++];
    }
  }
  return pieces;
}

bool HoldsPlainly(const String& text, const String& part) {
  for (std::size_t place = 0; place + part.size() <= text.size(); ++place) {
    if (text.compare(place, part.size(), part) == 0) return true;
  }
  return false;
}

struct PlainRecord {
  std::vector<String> parts;

  bool IsBroken() const { return parts.size() < 2; }
  String Name() const { return parts[1].empty() ? String() : parts[1].substr(1); }
};

class PlainRecords {
 public:
  explicit PlainRecords(const String& list) {
    for (const String& record : SplitPlainly(list, u","))
      records_.push_back({SplitPlainly(record, u"*Q*V*R*N*")});
  }

  std::size_t Count() const { return records_.size(); }
  const PlainRecord& At(std::size_t place) const { return records_[place]; }

  /// The records that a walk from the first one on reaches before it fails.
  std::size_t InReach() const {
    std::size_t place = 0;
    while (place < records_.size() && !records_[place].IsBroken())
      ++place;
    return place;
  }

  /// Whether the walk that stops at the first record whose name is in the text fails.
  bool WalkToNameInFails(const String& text) const {
    for (const PlainRecord& record : records_) {
      if (record.IsBroken()) return true;
      if (HoldsPlainly(text, record.Name())) return false;
    }
    return false;
  }

  /// The walk to the first record of just that name; it fails when it meets a broken one before.
  std::optional<bool> IsFlagged(const String& name) const {
    for (const PlainRecord& record : records_) {
      if (record.IsBroken()) return std::nullopt;
      if (record.Name() == name) return record.parts[1].starts_with(u'Y');
    }
    return false;
  }

  FieldRecords::Places Where(const std::function<bool(const String& name)>& holds) const {
    FieldRecords::Places places;
    for (std::size_t place = 0; place < InReach(); ++place) {
      if (holds(records_[place].Name())) places.push_back(static_cast<std::uint32_t>(place));
    }
    return places;
  }

 private:
  std::vector<PlainRecord> records_;
};

// Generated lists.

const std::vector<String>& Tables() {
  static const std::vector<String> kTables{u"aaaaaaaa", u"aaaaaaab", u"baaaaaaa", u"abababab"};
  return kTables;
}

String AnyName(Dice& dice) {
  switch (dice.Below(6)) {
    case 0:
      return {};
    case 1:
      return dice.Letters(3);
    case 2:
      return dice.Letters(10);
    case 3:
      return dice.OneOf(Tables());
    default:
      return dice.OneOf(Tables()) + u"." + dice.Letters(2);
  }
}

String AnyRecord(Dice& dice) {
  const String name = AnyName(dice);
  const String flag = dice.OneOf({u"N", u"Y"});
  switch (dice.Below(12)) {
    case 0:
      return dice.OneOf({u"", u"a", u"*Q*V*R*N", u"Q*V*R*N*", u"*q*v*r*n*"}) + name;
    case 1:
      return String(u"a*Q*V*R*N*") + dice.OneOf({u"", u"N"}) + u"*Q*V*R*N*b";
    case 2:
      return u"a*Q*V*R*N*" + flag + name;
    case 3:
      return u"a*Q*V*R*N*" + flag + name + u"*Q*V*R*N*b*Q*V*R*N*c";
    case 4:
      return u"a*Q*V*R*N*Q*V*R*N*" + flag + name + u"*Q*V*R*N*";
    default:
      return u"a*Q*V*R*N*" + flag + name + u"*Q*V*R*N*b";
  }
}

String AnyList(Dice& dice) {
  String list;
  const std::size_t count = dice.Below(7);
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) list += u',';
    list += AnyRecord(dice);
  }
  return list;
}

String AnyText(Dice& dice) {
  switch (dice.Below(4)) {
    case 0:
      return dice.Letters(20);
    case 1:
      return AnyName(dice);
    case 2:
      return u"sum ( " + AnyName(dice) + u" ) ";
    default:
      return dice.Letters(2) + AnyName(dice) + AnyName(dice) + dice.Letters(2);
  }
}

String AnyTable(Dice& dice) {
  return dice.Below(3) == 0 ? dice.Letters(8) : dice.OneOf(Tables());
}

// Split lists.

TEST(SplitList, OneThatWasNeverAssignedFailsAtEveryUse) {
  const SplitList list;
  EXPECT_FALSE(list.IsAssigned());
  EXPECT_TRUE(FailsWithSubscript([&] { static_cast<void>(list.Count()); }));
  EXPECT_TRUE(FailsWithSubscript([&] { static_cast<void>(list(0)); }));
}

TEST(SplitList, AnEmptyTextGivesAnAssignedListWithoutEntries) {
  const SplitList list{Shared<String>()};
  EXPECT_TRUE(list.IsAssigned());
  EXPECT_EQ(list.Count(), 0U);
  EXPECT_TRUE(FailsWithSubscript([&] { static_cast<void>(list(0)); }));
}

TEST(SplitList, CommasAtTheEndsAndSideBySideGiveEmptyEntries) {
  const SplitList list(Shared<String>(u",a,,b,"));
  ASSERT_EQ(list.Count(), 5U);
  EXPECT_EQ(list(0), u"");
  EXPECT_EQ(list(1), u"a");
  EXPECT_EQ(list(2), u"");
  EXPECT_EQ(list(3), u"b");
  EXPECT_EQ(list(4), u"");
  EXPECT_TRUE(FailsWithSubscript([&] { static_cast<void>(list(5)); }));
}

TEST(SplitList, ACopyOutlivesItsOriginalAndSharesTheText) {
  auto original = std::make_unique<SplitList>(Shared<String>(u"ab,c"));
  const SplitList copy = *original;
  EXPECT_TRUE(copy.Text().IsSameAs(original->Text()));
  original.reset();
  EXPECT_EQ(copy(0), u"ab");
  EXPECT_EQ(copy(1), u"c");
  EXPECT_FALSE(copy.Text().IsSameAs(Shared<String>(u"ab,c")));
}

TEST(SplitList, EqualsThePlainSplitOfGeneratedTexts) {
  Dice dice;
  for (int i = 0; i < kLists; ++i) {
    String text;
    for (std::size_t length = dice.Below(9); length > 0; --length)
      text += dice.OneOf({u",", u"a", u"b"});
    const std::vector<String> plain = SplitPlainly(text, u",");
    const SplitList list{Shared<String>(text)};
    ASSERT_EQ(list.Count(), plain.size()) << hosts::ToJsonText(text);
    for (std::size_t place = 0; place < plain.size(); ++place)
      ASSERT_EQ(list(place), plain[place]) << hosts::ToJsonText(text);
    ASSERT_TRUE(FailsWithSubscript([&] { static_cast<void>(list(plain.size())); }));
    ASSERT_EQ(*list.Text(), text);
  }
}

TEST(SplitList, ALongListIsSplitLikeAShortOne) {
  String text;
  std::vector<String> plain;
  for (int entry = 0; entry < 5000; ++entry) {
    // The later entries are shorter, so that there are more of them than the first ones promise.
    plain.push_back(ToText(entry) + (entry < 1024 ? String(20, u'x') : String()));
    if (entry > 0) text += u',';
    text += plain.back();
  }
  const SplitList list{Shared<String>(text)};
  ASSERT_EQ(list.Count(), plain.size());
  for (std::size_t place = 0; place < plain.size(); ++place)
    ASSERT_EQ(list(place), plain[place]);
}

// Field records.

TEST(FieldRecords, RecordsThatWereNeverAssignedFailAtEveryQuestion) {
  const FieldRecords none;
  EXPECT_EQ(*none.List(), u"");
  EXPECT_TRUE(FailsWithSubscript([&] { static_cast<void>(none.Count()); }));
  EXPECT_TRUE(FailsWithSubscript([&] { static_cast<void>(none.At(0)); }));
  EXPECT_TRUE(FailsWithSubscript([&] { none.RaiseIfBroken(); }));
  EXPECT_TRUE(FailsWithSubscript([&] { none.RaiseIfBrokenBeforeNameIn(u"a"); }));
  EXPECT_TRUE(FailsWithSubscript([&] { static_cast<void>(none.IsFlagged(u"aaaaaaaa.a")); }));
  EXPECT_TRUE(FailsWithSubscript([&] { static_cast<void>(none.OfTable(u"aaaaaaaa")); }));
  EXPECT_TRUE(FailsWithSubscript([&] { static_cast<void>(none.WithNameIn(u"a")); }));
  EXPECT_TRUE(FailsWithSubscript([&] { static_cast<void>(none.WithNameHolding(u"a")); }));
  EXPECT_TRUE(FailsWithSubscript([&] { static_cast<void>(none.Mentions(u"aaaaaaaa")); }));
}

TEST(FieldRecords, AnEmptyListHasNoRecordsAndFailsAtNoWalk) {
  const FieldRecords records = Records(u"");
  EXPECT_EQ(records.Count(), 0U);
  EXPECT_FALSE(FailsWithSubscript([&] { records.RaiseIfBroken(); }));
  EXPECT_FALSE(FailsWithSubscript([&] { records.RaiseIfBrokenBeforeNameIn(u"a"); }));
  EXPECT_EQ(records.OfTable(u"aaaaaaaa"), FieldRecords::Places{});
  EXPECT_TRUE(FailsWithSubscript([&] { static_cast<void>(records.At(0)); }));
}

TEST(FieldRecords, ARecordIsTakenApartAtItsSeparators) {
  const FieldRecords records = Records(u"long*Q*V*R*N*YCUSTOMER.NAME*Q*V*R*N*X Y");
  const FieldRecord record = records.At(0);
  EXPECT_EQ(record.type, u"long");
  EXPECT_EQ(record.flagAndName, u"YCUSTOMER.NAME");
  EXPECT_EQ(record.Name(), u"CUSTOMER.NAME");
  EXPECT_EQ(record.rest, u"X Y");
  EXPECT_TRUE(record.hasRest);
}

TEST(FieldRecords, ARecordMayEndBehindItsName) {
  const FieldRecord record = Records(u"long*Q*V*R*N*YCUSTOMER.NAME").At(0);
  EXPECT_EQ(record.type.size(), 4U);
  EXPECT_EQ(record.rest.size(), 0U);
  EXPECT_FALSE(record.hasRest);
}

TEST(FieldRecords, AnEmptyNameStandsInEveryText) {
  const FieldRecords records = Records(u"a*Q*V*R*N*,b*Q*V*R*N*N,broken");
  EXPECT_EQ(records.WithNameIn(u"x"), (FieldRecords::Places{0, 1}));
  EXPECT_FALSE(FailsWithSubscript([&] { records.RaiseIfBrokenBeforeNameIn(u"x"); }));
}

TEST(FieldRecords, ANameThatGoesOnIsAnotherName) {
  const FieldRecords records = Records(
      u"a*Q*V*R*N*YTTTTTTTT.AB*Q*V*R*N*b,a*Q*V*R*N*NTTTTTTTT.A*Q*V*R*N*b,a*Q*V*R*N*YTTTTTTTT.A");
  EXPECT_TRUE(records.IsFlagged(u"TTTTTTTT.AB"));
  EXPECT_FALSE(records.IsFlagged(u"TTTTTTTT.A"));
  EXPECT_FALSE(records.IsFlagged(u"TTTTTTTT."));
  EXPECT_FALSE(records.IsFlagged(u"TTTTTTTT.AB*Q*V*R*N*"));
}

TEST(FieldRecords, NamesThatDifferByANulAloneAreOfTwoTables) {
  using namespace std::string_literals;
  const FieldRecords records = Records(u"a*Q*V*R*N*NT,a*Q*V*R*N*NT\0,a*Q*V*R*N*NT"s);
  EXPECT_EQ(records.OfTable(u"T"), (FieldRecords::Places{0, 2}));
  EXPECT_EQ(records.OfTable(u"T\0"s), FieldRecords::Places{1});
}

TEST(FieldRecords, TheListIsTheOneThatWasGiven) {
  const Shared<String> list(u"a*Q*V*R*N*Nb");
  EXPECT_TRUE(FieldRecords(list).List().IsSameAs(list));
}

// Compares one list in every question; ends at the first answer that differs.
void CompareWithThePlainWalk(const String& list, Dice& dice) {
  SCOPED_TRACE(hosts::ToJsonText(list));
  const PlainRecords plain(list);
  const FieldRecords records = Records(list);
  const std::size_t inReach = plain.InReach();

  ASSERT_EQ(records.Count(), plain.Count());
  for (std::size_t place = 0; place < inReach; ++place) {
    const std::vector<String>& parts = plain.At(place).parts;
    const FieldRecord record = records.At(place);
    ASSERT_EQ(record.type, parts[0]);
    ASSERT_EQ(record.flagAndName, parts[1]);
    ASSERT_EQ(record.Name(), plain.At(place).Name());
    ASSERT_EQ(record.hasRest, parts.size() > 2);
    ASSERT_EQ(record.rest, parts.size() > 2 ? parts[2] : String());
  }
  for (std::size_t place = inReach; place <= plain.Count(); ++place)
    ASSERT_TRUE(FailsWithSubscript([&] { static_cast<void>(records.At(place)); }));
  ASSERT_EQ(FailsWithSubscript([&] { records.RaiseIfBroken(); }), inReach < plain.Count());

  for (int i = 0; i < 4; ++i) {
    const String name = AnyName(dice);
    SCOPED_TRACE("name " + hosts::ToJsonText(name));
    const std::optional<bool> flagged = plain.IsFlagged(name);
    ASSERT_EQ(FailsWithSubscript([&] { static_cast<void>(records.IsFlagged(name)); }), !flagged);
    if (flagged) {
      ASSERT_EQ(records.IsFlagged(name), *flagged);
    }
  }
  for (int i = 0; i < 4; ++i) {
    const String table = AnyTable(dice);
    ASSERT_EQ(records.OfTable(table), plain.Where([&](const String& name) {
      return name.substr(0, 8) == table;
    })) << "table "
        << hosts::ToJsonText(table);
  }
  for (int i = 0; i < 4; ++i) {
    const String text = AnyText(dice);
    ASSERT_EQ(FailsWithSubscript([&] { records.RaiseIfBrokenBeforeNameIn(text); }),
              plain.WalkToNameInFails(text))
        << "text " << hosts::ToJsonText(text);
    ASSERT_EQ(records.WithNameIn(text), plain.Where([&](const String& name) {
      return HoldsPlainly(text, name);
    })) << "text "
        << hosts::ToJsonText(text);
  }
  for (int i = 0; i < 3; ++i) {
    const String part = dice.Below(2) == 0 ? dice.OneOf(Tables()) : dice.Letters(4);
    ASSERT_EQ(records.WithNameHolding(part), plain.Where([&](const String& name) {
      return HoldsPlainly(name, part);
    })) << "part "
        << hosts::ToJsonText(part);
  }
  for (int i = 0; i < 4; ++i) {
    const String text = dice.OneOf({u"aaaaaaaa", u"aaaaaaab", u"bbbbbbbb", u"*Q*V*R*N", u"Naaaaaaa",
                                    u"aaaaaaa.", u"abababab", u"N*Q*V*R*"});
    ASSERT_EQ(records.Mentions(text), HoldsPlainly(list, text)) << hosts::ToJsonText(text);
    ASSERT_EQ(records.Mentions(text), HoldsPlainly(list, text)) << "asked again";
  }
}

TEST(FieldRecords, AnswerLikeThePlainWalkOverGeneratedLists) {
  Dice dice;
  for (int i = 0; i < kLists; ++i) {
    CompareWithThePlainWalk(AnyList(dice), dice);
    if (HasFatalFailure()) return;
  }
}

// What the generated lists are worth: each kind of them comes often.
TEST(FieldRecords, AreComparedOnListsOfEveryKind) {
  Dice dice;
  int broken = 0;
  int whole = 0;
  int emptyNames = 0;
  int shortNames = 0;
  int sameNames = 0;
  int withoutRest = 0;
  for (int i = 0; i < kLists; ++i) {
    const PlainRecords plain(AnyList(dice));
    ++(plain.InReach() < plain.Count() ? broken : whole);
    for (std::size_t place = 0; place < plain.InReach(); ++place) {
      const String name = plain.At(place).Name();
      if (name.empty()) ++emptyNames;
      if (!name.empty() && name.size() < 8) ++shortNames;
      if (plain.At(place).parts.size() == 2) ++withoutRest;
      if (place > 0 && name == plain.At(place - 1).Name()) ++sameNames;
    }
  }
  for (const int kind : {broken, whole, emptyNames, shortNames, sameNames, withoutRest})
    EXPECT_GT(kind, 100);
}

TEST(FieldRecords, PartsAreFoundAnywhereInLongNames) {
  Dice dice;
  String list;
  std::vector<String> names;
  for (int i = 0; i < 3000; ++i) {
    String name;
    for (std::size_t length = dice.Below(40); length > 0; --length)
      name += dice.OneOf({u"a", u"a", u"a", u"b", u"b", u"."});
    list += (i > 0 ? u",c*Q*V*R*N*N" : u"c*Q*V*R*N*N") + name + u"*Q*V*R*N*aaaaaaaabbbb";
    names.push_back(name);
  }
  const FieldRecords records = Records(list);
  int found = 0;
  for (int i = 0; i < 200; ++i) {
    String part;
    for (int length = 0; length < 8; ++length)
      part += dice.OneOf({u"a", u"a", u"a", u"b", u"b", i % 4 == 0 ? u"." : u"a"});
    FieldRecords::Places plain;
    for (std::size_t place = 0; place < names.size(); ++place) {
      if (HoldsPlainly(names[place], part)) plain.push_back(static_cast<std::uint32_t>(place));
    }
    ASSERT_EQ(records.WithNameHolding(part), plain) << hosts::ToJsonText(part);
    found += static_cast<int>(plain.size());
  }
  EXPECT_GT(found, 5000);
}

TEST(FieldRecords, PartsOfNamesAreFoundTogetherAsOneByOne) {
  const FieldRecords records =
      Records(u"a*Q*V*R*N*NTTTTTTTTT.A,a*Q*V*R*N*NUUUUUUUU.TTTTTTTT,a*Q*V*R*N*NU,a*Q*V*R*N*N");
  const std::vector<StringView> parts{u"TTTTTTTT", u"U",        u"",
                                      u"TTTTTTTT", u"TTTTTTT.", u"XXXXXXXX"};
  records.FindNamesHolding(parts);
  records.FindNamesHolding(parts);
  EXPECT_EQ(records.WithNameHolding(u"TTTTTTTT"), (FieldRecords::Places{0, 1}));
  EXPECT_EQ(records.WithNameHolding(u"U"), (FieldRecords::Places{1, 2}));
  EXPECT_EQ(records.WithNameHolding(u""), (FieldRecords::Places{0, 1, 2, 3}));
  EXPECT_EQ(records.WithNameHolding(u"TTTTTTT."), FieldRecords::Places{0});
  EXPECT_EQ(records.WithNameHolding(u"XXXXXXXX"), FieldRecords::Places{});
}

TEST(FieldRecords, AnswersAreRightHoweverManyWereAsked) {
  const FieldRecords records = Records(u"a*Q*V*R*N*NTTTTTTTT.77777777,a*Q*V*R*N*NTTTTTTTT.A");
  for (int part = 0; part < 30'000; ++part) {
    const String eight = String(8 - ToText(part).size(), u'T') + ToText(part);
    ASSERT_EQ(records.WithNameHolding(eight), FieldRecords::Places{}) << part;
    ASSERT_EQ(records.WithNameHolding(u"TTTTTTTT"), (FieldRecords::Places{0, 1})) << part;
  }
}

}  // namespace
}  // namespace zolt20::tests
