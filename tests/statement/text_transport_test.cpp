// Text that crosses the boundary: its encoding, the rule by which a box takes it, the way back, and
// what an insertion into the Result does to the statements behind it.
#include <functional>
#include <ostream>
#include <random>

#include "tests/support/control_test.h"
#include "tests/support/silent.h"

namespace zolt20::tests {
namespace {

/// A property that takes encoded text, with the box that it goes to and the page of the box.
struct Transport {
  const char* property;
  void (ZOLT20MapControl::*let)(String);
  const char* box;
  int page;

  friend std::ostream& operator<<(std::ostream& out, const Transport& transport) {
    return out << transport.property;
  }
};

constexpr Transport kOutput{
    "prpStroutput",
    static_cast<void (ZOLT20MapControl::*)(String)>(&ZOLT20MapControl::prpStroutput), "TxtOutput",
    0};
constexpr Transport kWhere{"prpSelectWherePart", &ZOLT20MapControl::prpSelectWherePart,
                           "txtwhereCondition", 1};
constexpr Transport kDo{"prpSelectDoPart", &ZOLT20MapControl::prpSelectDoPart, "txtSelectDo", 2};
constexpr Transport kEos{"prpSelectEOSPart", &ZOLT20MapControl::prpSelectEOSPart, "txtSelectEOS",
                         3};
constexpr Transport kEmpty{"prpSelectEmptyPart", &ZOLT20MapControl::prpSelectEmptyPart,
                           "txtselectempty", 4};
constexpr Transport kError{"prpSelectErrorPart", &ZOLT20MapControl::prpSelectErrorPart,
                           "txtSelectError", 5};

std::string NameOf(const ::testing::TestParamInfo<Transport>& info) {
  return info.param.property;
}

class TextTransportTest : public ControlTest {
 protected:
  /// The property's Let, with its report taken.
  void Send(const Transport& transport, std::string_view encoded) {
    (host().*transport.let)(Wide(encoded));
    Texts reports;
    if (transport.page > 0) reports.push_back(std::string("changed ") + transport.property);
    ASSERT_EQ(Log(), reports);
  }
  void Fill(const Transport& transport, std::string_view text) {
    Tab(transport.page);
    Type(transport.box, text);
  }
  /// What the box holds when it has taken the text.
  std::string Taken(const Transport& transport, std::string_view old, std::string_view encoded) {
    Fill(transport, old);
    Send(transport, encoded);
    return Text(transport.box);
  }
  std::string Stored(const char* key) {
    MemoryBag bag;
    host().UserControl_WriteProperties(bag);
    return bag.values.at(key);
  }
};

// The encoding, in every property.

class EveryTransportTest : public TextTransportTest,
                           public ::testing::WithParamInterface<Transport> {};

TEST_P(EveryTransportTest, DecodesLineBreaksTabsAndQuotes) {
  Send(GetParam(),
       "a~b\x01"
       "c`^`d`^`");
  EXPECT_EQ(Text(GetParam().box), "a\r\nb\tc\"d\"");
}

TEST_P(EveryTransportTest, DecodesAReplacedPieceNoSecondTime) {
  Send(GetParam(), "`^`^`");
  EXPECT_EQ(Text(GetParam().box), "\"^`");
}

TEST_P(EveryTransportTest, LeavesPiecesOfTheQuoteAsTheyAre) {
  Send(GetParam(), "`^ ^` `` ^^ `\x01^`");
  EXPECT_EQ(Text(GetParam().box), "`^ ^` `` ^^ `\t^`");
}

TEST_P(EveryTransportTest, HasNoWayToSendATilde) {
  Send(GetParam(), "a~~b");
  EXPECT_EQ(Text(GetParam().box), "a\r\n\r\nb");
}

TEST_P(EveryTransportTest, LeavesLoneLineFeedsAndOtherCharactersAsTheyAre) {
  Send(GetParam(),
       "a\n\tb\r\tc\x02"
       "d\"\xC3\xA9");
  EXPECT_EQ(Text(GetParam().box),
            "a\n\tb\r\tc\x02"
            "d\"\xC3\xA9");
}

TEST_P(EveryTransportTest, LeavesAnEmptyBoxEmptyForAnEmptyText) {
  Send(GetParam(), "");
  EXPECT_EQ(Text(GetParam().box), "");
}

TEST_P(EveryTransportTest, MovesNeitherTheFocusNorThePage) {
  Tab(0);
  Focus("cmdMoveOne");
  Send(GetParam(), "ab");
  EXPECT_EQ(Focused(), "cmdMoveOne");
  EXPECT_TRUE(Shown("lsttables"));
}

TEST_P(EveryTransportTest, TouchesNoOtherBox) {
  Send(GetParam(), "ab");
  for (const Transport& other : {kOutput, kWhere, kDo, kEos, kEmpty, kError}) {
    EXPECT_EQ(Text(other.box), other.page == GetParam().page ? "ab" : "") << other;
  }
}

INSTANTIATE_TEST_SUITE_P(Properties, EveryTransportTest,
                         ::testing::Values(kOutput, kWhere, kDo, kEos, kEmpty, kError), NameOf);

// The rule of insertion.

class InsertionTest : public TextTransportTest, public ::testing::WithParamInterface<Transport> {};

struct Insertion {
  const char* old;
  const char* encoded;
  const char* expected;
};

TEST_P(InsertionTest, FollowsTheFourRows) {
  const Insertion kRows[] = {
      {"", "a~b", "a\r\nb"},
      {"", "*zlt*a~b", "a\r\nb"},
      {"x", "*zlt*a~b", "x\r\na\r\nb"},
      {"x", "a~b", "x\r\n\ta\r\n\tb"},
  };
  for (const Insertion& row : kRows) {
    EXPECT_EQ(Taken(GetParam(), row.old, row.encoded), row.expected) << row.encoded;
  }
}

TEST_P(InsertionTest, KeepsBlanks) {
  const Insertion kRows[] = {
      {"", "  a  ", "  a  "},
      {"", "*zlt*  a  ", "  a  "},
      {"x ", "*zlt*  a  ", "x \r\n  a  "},
      {"x ", "  a  ~  b  ", "x \r\n\t  a  \r\n\t  b  "},
  };
  for (const Insertion& row : kRows) {
    EXPECT_EQ(Taken(GetParam(), row.old, row.encoded), row.expected) << row.encoded;
  }
}

TEST_P(InsertionTest, ABoxOfBlanksIsNotEmpty) {
  EXPECT_EQ(Taken(GetParam(), "  ", "a~b"), "  \r\n\ta\r\n\tb");
  EXPECT_EQ(Taken(GetParam(), "  ", "*zlt*a~b"), "  \r\na\r\nb");
}

TEST_P(InsertionTest, KeepsTabsInARow) {
  EXPECT_EQ(Taken(GetParam(), "",
                  "a\x01\x01\x01"
                  "b"),
            "a\t\t\tb");
}

INSTANTIATE_TEST_SUITE_P(Properties, InsertionTest,
                         ::testing::Values(kOutput, kEos, kEmpty, kError), NameOf);

class AppendingTest : public TextTransportTest, public ::testing::WithParamInterface<Transport> {};

TEST_P(AppendingTest, DropsFiveCharactersForAMarkerAnywhere) {
  const Insertion kRows[] = {
      {"", "xy*zlt*abc", "t*abc"},
      {"x", "xy*zlt*abc", "x\r\nt*abc"},
      {"", "abcdef*zlt*", "f*zlt*"},
      {"", "*zlt**zlt*a", "*zlt*a"},
      {"", "*zlt*", ""},
      {"x", "*zlt*", "x\r\n"},
  };
  for (const Insertion& row : kRows) {
    EXPECT_EQ(Taken(GetParam(), row.old, row.encoded), row.expected) << row.encoded;
  }
}

TEST_P(AppendingTest, CountsTheFiveCharactersInTheDecodedText) {
  EXPECT_EQ(Taken(GetParam(), "", "~*zlt*abc"), "t*abc");
  EXPECT_EQ(Taken(GetParam(), "", "`^`*zlt*abc"), "*abc");
}

TEST_P(AppendingTest, CountsCharactersOfSixteenBits) {
  EXPECT_EQ(Taken(GetParam(), "", "\xF0\x9D\x84\x9E*zlt*abc"), "t*abc");
}

TEST_P(AppendingTest, TakesOnlyTheExactMarker) {
  const Insertion kRows[] = {
      {"x", "*ZLT*ab", "x\r\n\t*ZLT*ab"},
      {"x", "*zlt ab", "x\r\n\t*zlt ab"},
      {"x", "*zl~t*ab", "x\r\n\t*zl\r\n\tt*ab"},
  };
  for (const Insertion& row : kRows) {
    EXPECT_EQ(Taken(GetParam(), row.old, row.encoded), row.expected) << row.encoded;
  }
}

TEST_P(AppendingTest, AppendsTheSameTextASecondTime) {
  Send(GetParam(), "a~b");
  Send(GetParam(), "a~b");
  EXPECT_EQ(Text(GetParam().box), "a\r\nb\r\n\ta\r\n\tb");
}

TEST_P(AppendingTest, AddsALineForAnEmptyText) {
  EXPECT_EQ(Taken(GetParam(), "x", ""), "x\r\n\t");
}

INSTANTIATE_TEST_SUITE_P(Properties, AppendingTest,
                         ::testing::Values(kOutput, kDo, kEos, kEmpty, kError), NameOf);

TEST_F(TextTransportTest, TheResultKeepsTheIndentationOfItsLines) {
  EXPECT_EQ(Taken(kOutput, "",
                  "a~\x01"
                  "b~\x01\x01"
                  "c"),
            "a\r\n\tb\r\n\t\tc");
  EXPECT_EQ(Taken(kOutput, "x",
                  "a~\x01"
                  "b"),
            "x\r\n\ta\r\n\t\tb");
  EXPECT_EQ(Taken(kOutput, "", "~\x01*zlt*abc"), "lt*abc");
}

TEST_F(TextTransportTest, ThePagesTakeOneTabOffEveryLineButTheFirst) {
  for (const Transport& part : {kWhere, kDo, kEos, kEmpty, kError}) {
    EXPECT_EQ(Taken(part, "",
                    "\x01"
                    "a~\x01"
                    "b~c~\x01 d"),
              "\ta\r\nb\r\nc\r\n d")
        << part;
  }
  for (const Transport& part : {kWhere, kEos, kEmpty, kError}) {
    EXPECT_EQ(Taken(part, "",
                    "a~\x01\x01\x01"
                    "b"),
              "a\r\n\t\tb")
        << part;
  }
}

TEST_F(TextTransportTest, ThePagesDropTheTabBeforeTheyLookForTheMarker) {
  for (const Transport& part : {kDo, kEos, kEmpty, kError}) {
    EXPECT_EQ(Taken(part, "", "~\x01*zlt*abc"), "t*abc") << part;
  }
}

TEST_F(TextTransportTest, ThePagesIndentWhatTheyTookOff) {
  for (const Transport& part : {kEos, kEmpty, kError}) {
    EXPECT_EQ(Taken(part, "x",
                    "a~\x01\x01"
                    "b"),
              "x\r\n\ta\r\n\t\tb")
        << part;
  }
}

// The where text.

TEST_F(TextTransportTest, TheWhereTextReplacesWhatStoodThere) {
  EXPECT_EQ(Taken(kWhere, "old text", "a~b"), "a\r\nb");
  EXPECT_EQ(Taken(kWhere, "old text", ""), "");
}

TEST_F(TextTransportTest, TheMarkerMeansNothingInTheWhereText) {
  EXPECT_EQ(Taken(kWhere, "", "*zlt*a~b"), "*zlt*a\r\nb");
  EXPECT_EQ(Taken(kWhere, "x", "xy*zlt*abc"), "xy*zlt*abc");
}

TEST_F(TextTransportTest, TheWhereTextKeepsBlanksAndTabs) {
  EXPECT_EQ(Taken(kWhere, "",
                  "  a\x01\x01"
                  "b  "),
            "  a\t\tb  ");
}

TEST_F(TextTransportTest, TheWhereTextIsReportedAlsoWhenItDoesNotDiffer) {
  Send(kWhere, "ab");
  Send(kWhere, "ab");
  EXPECT_EQ(Text("txtwhereCondition"), "ab");
}

// The text of SelectDo.

TEST_F(TextTransportTest, TheDoTextLosesBlanksInThreeRowsOfTheRule) {
  const Insertion kRows[] = {
      {"", "  a~b  ", "  a\r\nb  "},
      {"", "*zlt*  a~b  ", "a\r\nb"},
      {"x ", "  a ~ b  ", "x \r\n\ta \r\n\t b"},
      {"x ", "*zlt*  a ~ b  ", "x \r\na \r\n b"},
  };
  for (const Insertion& row : kRows) {
    EXPECT_EQ(Taken(kDo, row.old, row.encoded), row.expected) << row.encoded;
  }
}

TEST_F(TextTransportTest, TheDoTextWithAMarkerLosesBlanksThatTheEosTextKeeps) {
  EXPECT_EQ(Taken(kDo, "", "*zlt*  a  "), "a");
  EXPECT_EQ(Taken(kEos, "", "*zlt*  a  "), "  a  ");
}

TEST_F(TextTransportTest, TheDoTextLosesBlanksAloneAtItsEnds) {
  EXPECT_EQ(Taken(kDo, "",
                  "*zlt* \x01"
                  "a~ "),
            "\ta\r\n");
  EXPECT_EQ(Taken(kDo, "x",
                  " \x01"
                  "a~ "),
            "x\r\n\t\ta\r\n\t");
}

TEST_F(TextTransportTest, ADoBoxOfBlanksIsNotEmpty) {
  EXPECT_EQ(Taken(kDo, "  ", "a~b"), "  \r\n\ta\r\n\tb");
}

TEST_F(TextTransportTest, TheDoTextMakesOneTabOfTwo) {
  const std::vector<std::pair<const char*, const char*>> kCases = {
      {"a\x01"
       "b",
       "a\tb"},
      {"a\x01\x01"
       "b",
       "a\tb"},
      {"a\x01\x01\x01"
       "b",
       "a\t\tb"},
      {"a\x01\x01\x01\x01"
       "b",
       "a\t\tb"},
      {"a\x01\x01\x01\x01\x01"
       "b",
       "a\t\t\tb"},
  };
  for (const auto& [encoded, expected] : kCases)
    EXPECT_EQ(Taken(kDo, "", encoded), expected);
}

TEST_F(TextTransportTest, TheDoTextTakesTheTabOffALineBeforeItHalvesTheRest) {
  EXPECT_EQ(Taken(kDo, "",
                  "a~\x01\x01"
                  "b"),
            "a\r\n\tb");
  EXPECT_EQ(Taken(kDo, "",
                  "a~\x01\x01\x01"
                  "b"),
            "a\r\n\tb");
  EXPECT_EQ(Taken(kDo, "",
                  "a~\x01\x01\x01\x01"
                  "b"),
            "a\r\n\t\tb");
}

TEST_F(TextTransportTest, TheDoTextHalvesTabsBeforeItLooksForTheMarker) {
  EXPECT_EQ(Taken(kDo, "", "\x01\x01*zlt*abc"), "*abc");
  EXPECT_EQ(Taken(kEos, "", "\x01\x01*zlt*abc"), "t*abc");
}

// What is stored.

TEST_F(TextTransportTest, TheDoTextIsStoredAsItCame) {
  Send(kDo,
       "*zlt* a~\x01\x01"
       "b`^` ");
  EXPECT_EQ(Stored("prpSelectDoPart"),
            "*zlt* a~\x01\x01"
            "b`^` ");
}

TEST_F(TextTransportTest, TheOtherTextsAreStoredDecodedWithTheirMarker) {
  for (const Transport& part : {kWhere, kEos, kEmpty, kError}) {
    Send(part,
         "*zlt* a~\x01\x01"
         "b`^` ");
    EXPECT_EQ(Stored(part.property), "*zlt* a\r\n\tb\" ") << part;
  }
}

TEST_F(TextTransportTest, TheLastTextIsStoredAlone) {
  for (const Transport& part : {kWhere, kDo, kEos, kEmpty, kError}) {
    Send(part, "a~b");
    Send(part, "cd");
    EXPECT_EQ(Stored(part.property), "cd") << part;
    Send(part, "");
    EXPECT_EQ(Stored(part.property), "") << part;
  }
}

TEST_F(TextTransportTest, ATextTypedIntoABoxIsNotStored) {
  for (const Transport& part : {kWhere, kDo, kEos, kEmpty, kError}) {
    Send(part, "cd");
    Fill(part, "typed");
    EXPECT_EQ(Stored(part.property), "cd") << part;
  }
}

TEST_F(TextTransportTest, TheResultIsStoredNowhere) {
  MemoryBag before;
  host().UserControl_WriteProperties(before);
  Send(kOutput, "a~b");
  MemoryBag after;
  host().UserControl_WriteProperties(after);
  EXPECT_EQ(after.values, before.values);
}

TEST_F(TextTransportTest, AStoredTextFillsNoBox) {
  MemoryBag bag;
  for (const Transport& part : {kWhere, kDo, kEos, kEmpty, kError})
    bag.values[part.property] = "ab";
  MakeStored(bag);
  for (const Transport& part : {kWhere, kDo, kEos, kEmpty, kError}) {
    EXPECT_EQ(Text(part.box), "") << part;
    EXPECT_EQ(Stored(part.property), "ab") << part;
  }
}

// What is reported.

String TextOf(const Control& box) {
  return dynamic_cast<const TextControl&>(box).Text();
}

/// A host that looks at a box when a property is reported.
class LookingHost final : public SilentHost {
 public:
  void PropertyChanged(std::string_view property) override { look(property); }

  std::function<void(std::string_view)> look;
};

TEST_F(TextTransportTest, AChangeIsReportedWhenTheBoxHoldsTheText) {
  for (const Transport& part : {kWhere, kDo, kEos, kEmpty, kError}) {
    LookingHost looking;
    ZOLT20MapControl control(looking);
    Texts seen;
    looking.look = [&](std::string_view property) {
      seen.emplace_back(property);
      seen.push_back(Narrow(TextOf(*control.Form().Find(part.box))));
    };
    (control.*part.let)(u"a~b");
    EXPECT_EQ(seen, (Texts{part.property, "a\r\nb"}));
  }
}

TEST_F(TextTransportTest, AnInsertionIntoTheResultIsNotReported) {
  host().prpStroutput(u"a~b");
  host().prpStroutput(u"a~b");
  EXPECT_EQ(Log(), Texts{});
}

// The target of prpStroutput.

TEST_F(TextTransportTest, ABoxOfAPageDoesNotTakeTheResultsText) {
  for (const Transport& part : {kWhere, kDo, kEos, kEmpty, kError}) {
    Type("TxtOutput", "");
    Tab(part.page);
    Focus(part.box);
    Send(kOutput, "ab");
    EXPECT_EQ(Result(), "ab") << part;
    EXPECT_EQ(Text(part.box), "") << part;
  }
}

TEST_F(TextTransportTest, AStatementBoxThatCannotTakeTheFocusDoesNotTakeTheText) {
  Tab(6);
  for (const char* box :
       {"txtForStmt", "txtWhlStm", "txtStmt1", "txtStmt2", "TxtDef", "txtRepStm", "txtStmt(0)"}) {
    EXPECT_EQ(host().UserFocus(On(box)), Outcome::kNotShown) << box;
    Type("TxtOutput", "");
    Send(kOutput, "ab");
    EXPECT_EQ(Result(), "ab") << box;
    EXPECT_EQ(Text(box), "") << box;
  }
}

// The way back.

TEST_F(TextTransportTest, TheResultIsReadAsPlainText) {
  Send(kOutput,
       "a~\x01"
       "b`^`c");
  EXPECT_EQ(Narrow(host().prpStroutput()), "a\r\n\tb\"c");
  EXPECT_EQ(Narrow(host().prpStroutput()), "a\r\n\tb\"c");
}

TEST_F(TextTransportTest, TheResultIsReadAsTheUserTypedIt) {
  Type("TxtOutput", " ~`^`\x01*zlt* ");
  EXPECT_EQ(Narrow(host().prpStroutput()), " ~`^`\x01*zlt* ");
}

TEST_F(TextTransportTest, EachReadWithinANestingIndentsTheResultOnceMore) {
  Type("TxtOutput", "a\r\nb");
  host().prpintTabcount(1);
  EXPECT_EQ(Narrow(host().prpStroutput()), "a\r\n\tb");
  EXPECT_EQ(Result(), "a\r\n\tb");
  EXPECT_EQ(Narrow(host().prpStroutput()), "a\r\n\t\tb");
  EXPECT_EQ(Result(), "a\r\n\t\tb");
}

TEST_F(TextTransportTest, ADeeperNestingStillIndentsByOneTab) {
  Type("TxtOutput", "a\r\nb\r\n\r\nc");
  host().prpintTabcount(5);
  EXPECT_EQ(Narrow(host().prpStroutput()), "a\r\n\tb\r\n\t\r\n\tc");
}

TEST_F(TextTransportTest, WithoutNestingAReadChangesNothing) {
  Type("TxtOutput", "a\r\nb");
  for (const int depth : {0, -1}) {
    host().prpintTabcount(depth);
    EXPECT_EQ(Narrow(host().prpStroutput()), "a\r\nb");
  }
}

TEST_F(TextTransportTest, AReadWithinANestingIndentsLinesAlone) {
  host().prpintTabcount(1);
  EXPECT_EQ(Narrow(host().prpStroutput()), "");
  Type("TxtOutput", "a\nb\rc");
  EXPECT_EQ(Narrow(host().prpStroutput()), "a\nb\rc");
}

TEST_F(TextTransportTest, AnInsertionIsIndentedAlikeAtEveryDepth) {
  host().prpintTabcount(3);
  EXPECT_EQ(Taken(kOutput, "x", "a~b"), "x\r\n\ta\r\n\tb");
}

// The statements behind the Result.

std::string Statement() {
  return "select CUSTOMER.NO\r\nfrom  CUSTOMER\r\nendselect";
}

class InsertedStatementTest : public TextTransportTest {
 protected:
  void ChooseField() {
    Catalogue("CUSTOMER0", Field("NCUSTOMER.NO"));
    Mark("lsttables", 0);
    Mark("lstFields", 1);
    Click("cmdMoveOne");
  }
  void AddSelect() {
    Tab(0);
    Click("cmdAddSelect");
  }
  void Rewrite() {
    Tab(3);
    Click("cmdAddSEOStoquery");
  }
};

TEST_F(InsertedStatementTest, AnInsertedTextIsTheStatementThatIsRewritten) {
  ChooseField();
  Send(kOutput, "a~b");
  Rewrite();
  EXPECT_EQ(Result(), Statement());
}

TEST_F(InsertedStatementTest, AnInsertedTextStaysBeforeANewStatement) {
  ChooseField();
  Send(kOutput, "a~b");
  AddSelect();
  EXPECT_EQ(Result(), "a\r\nb\r\n" + Statement());
}

TEST_F(InsertedStatementTest, BlanksAtTheEndsOfTheResultAreNotKeptInTheStatement) {
  ChooseField();
  Send(kOutput, "  a~b  ");
  EXPECT_EQ(Result(), "  a\r\nb  ");
  AddSelect();
  EXPECT_EQ(Result(), "a\r\nb\r\n" + Statement());
}

TEST_F(InsertedStatementTest, TabsAndLineBreaksAtTheEndsAreKept) {
  ChooseField();
  Send(kOutput,
       " ~\x01"
       "a\x01~ ");
  AddSelect();
  EXPECT_EQ(Result(), "\r\n\ta\t\r\n\r\n" + Statement());
}

TEST_F(InsertedStatementTest, TheWholeResultBecomesTheNewEntry) {
  ChooseField();
  AddSelect();
  Send(kOutput, "a~b");
  EXPECT_EQ(Result(), Statement() + "\r\n\ta\r\n\tb");
  AddSelect();
  EXPECT_EQ(Result(), Statement() + Statement() + "\r\n\ta\r\n\tb" + "\r\n" + Statement());
}

TEST_F(InsertedStatementTest, ARewriteReplacesTheEntryOfTheWholeResult) {
  ChooseField();
  AddSelect();
  Send(kOutput, "a~b");
  Rewrite();
  EXPECT_EQ(Result(), Statement() + "\r\n" + Statement());
}

TEST_F(InsertedStatementTest, EachInsertionAddsAnEntryOfTheResultSoFar) {
  ChooseField();
  Send(kOutput, "a");
  Send(kOutput, "*zlt*b");
  AddSelect();
  EXPECT_EQ(Result(), "aa\r\nb\r\n" + Statement());
}

TEST_F(InsertedStatementTest, TextTypedByHandGoesIntoTheEntryWithTheInsertion) {
  ChooseField();
  Type("TxtOutput", "by hand");
  Send(kOutput, "a");
  AddSelect();
  EXPECT_EQ(Result(), "by hand\r\n\ta\r\n" + Statement());
}

TEST_F(InsertedStatementTest, ATextOfBlanksAloneIsNoStatement) {
  ChooseField();
  Send(kOutput, "   ");
  EXPECT_EQ(Result(), "   ");
  Rewrite();
  EXPECT_EQ(Log(), (Texts{ErrorMessage("Select Statement Not Present")}));
  EXPECT_EQ(Result(), "   ");
  AddSelect();
  EXPECT_EQ(Result(), Statement());
}

TEST_F(InsertedStatementTest, AnEmptyTextIsNoStatement) {
  ChooseField();
  Send(kOutput, "");
  Rewrite();
  EXPECT_EQ(Log(), (Texts{ErrorMessage("Select Statement Not Present")}));
  EXPECT_EQ(Narrow(host().prpstrSelectedFields()), "");
}

TEST_F(InsertedStatementTest, ATextOfALineBreakIsAStatement) {
  ChooseField();
  Send(kOutput, "~");
  AddSelect();
  EXPECT_EQ(Result(), "\r\n\r\n" + Statement());
}

TEST_F(InsertedStatementTest, AnEmptyTextBehindAnotherAddsAnEntry) {
  ChooseField();
  Send(kOutput, "a");
  Send(kOutput, "");
  AddSelect();
  EXPECT_EQ(Result(), "aa\r\n\t\r\n" + Statement());
}

TEST_F(InsertedStatementTest, AnInsertedSelectStatementGivesItsFields) {
  ChooseField();
  Send(kOutput, "  select CUSTOMER.NO~from  CUSTOMER");
  EXPECT_EQ(Narrow(host().prpstrSelectedFields()), Field("NCUSTOMER.NO"));
}

TEST_F(InsertedStatementTest, ATextForAPageIsNoStatement) {
  ChooseField();
  for (const Transport& part : {kWhere, kDo, kEos, kEmpty, kError})
    Send(part, "text of it");
  Rewrite();
  EXPECT_EQ(Log(), (Texts{ErrorMessage("Select Statement Not Present")}));
  EXPECT_EQ(Result(), "");
}

TEST_F(InsertedStatementTest, AReadThatIndentsLeavesTheStatementsAsTheyAre) {
  ChooseField();
  AddSelect();
  host().prpintTabcount(1);
  EXPECT_EQ(Narrow(host().prpStroutput()), "select CUSTOMER.NO\r\n\tfrom  CUSTOMER\r\n\tendselect");
  AddSelect();
  EXPECT_EQ(Result(), Statement() + "\r\n" + Statement());
}

TEST_F(InsertedStatementTest, AnInsertionAfterAClearIsTheFirstStatement) {
  ChooseField();
  AddSelect();
  AddSelect();
  Tab(2);
  Click("cmdClear");
  Send(kOutput, "a");
  AddSelect();
  EXPECT_EQ(Result(), "a\r\n" + Statement());
}

TEST_F(InsertedStatementTest, AnInsertionServesForAStatementAfterTheSelectListWasCleared) {
  ChooseField();
  AddSelect();
  host().ClearAll(0);
  Tab(0);
  Mark("lsttables", 0);
  Mark("lstFields", 1);
  Click("cmdMoveOne");
  Send(kOutput, "a");
  Rewrite();
  EXPECT_EQ(Result(), Statement() + "\r\n" + Statement());
}

// Against a plain decoder.

/// One pass over the text, character by character: where `from` stands, `to` goes in.
String Pass(const String& text, const String& from, const String& to) {
  String passed;
  for (std::size_t i = 0; i < text.size();) {
    bool stands = true;
    for (std::size_t k = 0; k < from.size(); ++k) {
      if (i + k >= text.size() || text[i + k] != from[k]) stands = false;
    }
    if (stands) {
      for (const char16_t c : to)
        passed += c;
      i += from.size();
    } else {
      passed += text[i++];
    }
  }
  return passed;
}

bool IsMarked(const String& text) {
  const String marker = u"*zlt*";
  for (std::size_t i = 0; i + marker.size() <= text.size(); ++i) {
    if (text.compare(i, marker.size(), marker) == 0) return true;
  }
  return false;
}

String WithoutFive(const String& text) {
  String tail;
  for (std::size_t i = 5; i < text.size(); ++i)
    tail += text[i];
  return tail;
}

String WithoutBlanks(String text) {
  while (!text.empty() && text.front() == u' ')
    text.erase(0, 1);
  while (!text.empty() && text.back() == u' ')
    text.pop_back();
  return text;
}

/// The decoded text, as the property works on it.
String Decoded(const Transport& transport, const String& encoded) {
  String text = Pass(encoded, u"~", u"\r\n");
  text = Pass(text, u"\x01", u"\t");
  text = Pass(text, u"`^`", u"\"");
  if (transport.page > 0) text = Pass(text, u"\r\n\t", u"\r\n");
  if (transport.page == kDo.page) text = Pass(text, u"\t\t", u"\t");
  return text;
}

/// What the property's box holds when it has taken the text.
String Expected(const Transport& transport, const String& old, const String& encoded) {
  const String text = Decoded(transport, encoded);
  if (transport.page == kWhere.page) return text;
  const auto trim = [&](const String& piece) {
    return transport.page == kDo.page ? WithoutBlanks(piece) : piece;
  };
  if (old.empty()) return IsMarked(text) ? trim(WithoutFive(text)) : text;
  if (IsMarked(text)) return old + u"\r\n" + trim(WithoutFive(text));
  return old + u"\r\n\t" + trim(Pass(text, u"\r\n", u"\r\n\t"));
}

String RandomText(std::mt19937& random, unsigned atMost) {
  const std::vector<String> kPieces = {
      u"~",  u"~\x01", u"\x01", u"\x01\x01", u"`^`",    u"`",      u"^",  u"*zlt*", u"*zl",
      u"t*", u" ",     u"  ",   u"\r\n",     u"\r\n\t", u"\r",     u"\n", u"\t",    u"\t\t",
      u"\"", u"a",     u"bc",   u"def",      u"\u00E9", u"\u2028", u"*",  u"z",     u"\U0001D11E"};
  String text;
  if (random() % 4 == 0) text = u"*zlt*";
  for (auto count = random() % atMost; count > 0; --count) {
    text += kPieces[random() % kPieces.size()];
  }
  return text;
}

TEST_P(EveryTransportTest, TakesEveryTextAsAPlainDecoderDoes) {
  std::mt19937 random(43);
  Tab(GetParam().page);
  ZOLT20MapControl& control = host();
  const Control& box = On(GetParam().box);
  for (int round = 0; round < 500; ++round) {
    // Every third text goes behind what the box holds already.
    if (round % 3 != 0) control.UserType(box, RandomText(random, 3));
    const String old = TextOf(box);
    const String encoded = RandomText(random, 12);
    (control.*GetParam().let)(encoded);
    ASSERT_EQ(Narrow(TextOf(box)), Narrow(Expected(GetParam(), old, encoded)))
        << "round " << round << ": " << Narrow(encoded);
    if (GetParam().page == 0) continue;
    MemoryBag bag;
    control.UserControl_WriteProperties(bag);
    ASSERT_EQ(bag.values.at(GetParam().property),
              Narrow(GetParam().page == kDo.page ? encoded : Decoded(GetParam(), encoded)));
  }
  EXPECT_EQ(Log().size(), GetParam().page == 0 ? 0U : 500U);
}

TEST_F(InsertedStatementTest, EveryInsertionKeepsTheTrimmedResultAsOneEntry) {
  std::mt19937 random(44);
  ChooseField();
  // On this page a clear keeps the choice of tables and fields.
  Tab(2);
  ZOLT20MapControl& control = host();
  const Control& clear = On("cmdClear");
  const Control& addSelect = On("cmdAddSelect");
  for (int round = 0; round < 100; ++round) {
    control.UserTab(2);
    control.UserClick(clear);
    String result;
    String expected;
    for (auto count = random() % 4; count > 0; --count) {
      const String encoded = RandomText(random, 6);
      result = Expected(kOutput, result, encoded);
      expected += WithoutBlanks(result);
      control.prpStroutput(encoded);
    }
    if (!expected.empty()) expected += u"\r\n";
    control.UserTab(0);
    control.UserClick(addSelect);
    ASSERT_EQ(Result(), Narrow(expected) + Statement());
  }
}

}  // namespace
}  // namespace zolt20::tests
