// Reading the selected fields back out of the statement.
#include <algorithm>
#include <map>
#include <optional>
#include <random>

#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

constexpr const char* kSeparator = "*Q*V*R*N*";

class ReadSelectedFieldsTest : public ControlTest {
 protected:
  void Fields(const Texts& records) {
    host().PrpStrFields(Wide(List(records)));
    ASSERT_EQ(Log(), (Texts{"changed PrpStrFields"}));
  }
  /// Makes the text the first statement of the Result; "~" is a line break.
  void Statement(std::string_view encoded) { host().prpStroutput(Wide(encoded)); }
  /// A statement with that select list, which ends with the line break before its from clause.
  void SelectList(const std::string& items) {
    Statement("select " + items + "~from  TABLE123~endselect");
  }
  std::string Read() { return Narrow(host().prpstrSelectedFields()); }

  /// Marks the table of TABLE123.QTY and selects that field.
  void ChooseField() {
    Catalogue("TABLE1230", List({Field("NTABLE123.QTY"), Field("NTABLE123.NO")}));
    Mark("lsttables", 0);
    Mark("lstFields", 1);
    Click("cmdMoveOne");
  }
};

// Which statement is read.

TEST_F(ReadSelectedFieldsTest, WithoutAStatementThereIsNothing) {
  ChooseField();
  EXPECT_EQ(Read(), "");
}

TEST_F(ReadSelectedFieldsTest, TheStatementOfTheFormGivesItsField) {
  ChooseField();
  Click("cmdAddSelect");
  EXPECT_EQ(Read(), "long*Q*V*R*N*NTABLE123.QTY*Q*V*R*N*X");
  EXPECT_EQ(Result(), "select TABLE123.QTY\r\nfrom  TABLE123\r\nendselect");
}

TEST_F(ReadSelectedFieldsTest, ARewrittenStatementIsReadAnew) {
  ChooseField();
  Click("cmdAddSelect");
  ASSERT_EQ(Read(), Field("NTABLE123.QTY"));
  Click("cmdRemoveAll");
  Mark("lstFields", 2);
  Click("cmdMoveOne");
  Tab(2);
  Click("cmdAddSelectDoQuer");
  EXPECT_EQ(Read(), Field("NTABLE123.NO"));
}

TEST_F(ReadSelectedFieldsTest, OnlyTheFirstStatementIsRead) {
  ChooseField();
  Click("cmdAddSelect");
  Click("cmdRemoveAll");
  Mark("lstFields", 2);
  Click("cmdMoveOne");
  Click("cmdAddSelect");
  EXPECT_EQ(Read(), Field("NTABLE123.QTY"));
}

TEST_F(ReadSelectedFieldsTest, AfterAClearTheFormerFieldsAreReturned) {
  ChooseField();
  Click("cmdAddSelect");
  ASSERT_EQ(Read(), Field("NTABLE123.QTY"));
  Click("cmdClear");
  EXPECT_EQ(Read(), Field("NTABLE123.QTY"));
}

TEST_F(ReadSelectedFieldsTest, AStatementThatDumpsIsPreferredAndFailsBehindTheFirst) {
  ChooseField();
  Click("cmdAddSelect");
  ASSERT_EQ(Read(), Field("NTABLE123.QTY"));
  Fields({Field("NTABLE123.QTY", "char")});
  Tab(2);
  Type("txtSelectDo", "Dump it");
  Tab(0);
  Click("cmdAddSelect");
  EXPECT_EQ(Read(), Field("NTABLE123.QTY"));
}

TEST_F(ReadSelectedFieldsTest, ASecondStatementThatDumpsLeavesNothingToReadAtFirst) {
  ChooseField();
  Click("cmdAddSelect");
  Tab(2);
  Type("txtSelectDo", "dump it");
  Tab(0);
  Click("cmdAddSelect");
  EXPECT_EQ(Read(), "");
}

TEST_F(ReadSelectedFieldsTest, DumpWithoutABlankBehindItIsNoDump) {
  ChooseField();
  Click("cmdAddSelect");
  Tab(2);
  Type("txtSelectDo", "dump\tdumps");
  Tab(0);
  Click("cmdAddSelect");
  EXPECT_EQ(Read(), Field("NTABLE123.QTY"));
}

TEST_F(ReadSelectedFieldsTest, AFirstStatementThatDumpsIsRead) {
  Fields({Field("NTABLE123.QTY")});
  SelectList("TABLE123.QTY~where DUMP ");
  EXPECT_EQ(Read(), Field("NTABLE123.QTY"));
}

TEST_F(ReadSelectedFieldsTest, TheFirstOfTwoStatementsThatDumpIsRead) {
  Fields({Field("NTABLE123.QTY"), Field("NTABLE123.NO"), Field("NTABLE123.DAY")});
  for (const char* text : {"select TABLE123.QTY~from  T", "select TABLE123.NO~from  T~dump it",
                           "select TABLE123.DAY~from  T~dump it"}) {
    Type("TxtOutput", "");
    Statement(text);
  }
  EXPECT_EQ(Read(), Field("NTABLE123.NO"));
}

TEST_F(ReadSelectedFieldsTest, AnInsertedTextThatDumpsIsReadWithTheResultBeforeIt) {
  Fields({Field("NTABLE123.QTY"), Field("NTABLE123.NO")});
  Statement("select TABLE123.QTY~from  T");
  Type("TxtOutput", "select TABLE123.NO\r\nfrom  T");
  Statement("dump it");
  EXPECT_EQ(Read(), Field("NTABLE123.NO"));
}

// What is no select list.

TEST_F(ReadSelectedFieldsTest, ATextThatIsNoSelectStatementKeepsTheFormerFields) {
  ChooseField();
  Click("cmdAddSelect");
  ASSERT_EQ(Read(), Field("NTABLE123.QTY"));
  for (const char* text : {"if select a from b dump ", "selec TABLE123.NO from b dump ",
                           "~select TABLE123.NO~from  b dump ", "\x01select A from b dump "}) {
    Click("cmdClear");
    Statement(text);
    EXPECT_EQ(Read(), Field("NTABLE123.QTY")) << text;
  }
}

TEST_F(ReadSelectedFieldsTest, LetterCaseOfSelectAndFromDoesNotCount) {
  Fields({Field("NTABLE123.QTY")});
  Statement("SELECT TABLE123.QTY~From  TABLE123");
  EXPECT_EQ(Read(), Field("NTABLE123.QTY"));
}

TEST_F(ReadSelectedFieldsTest, WithoutAFromClauseTheFormerFieldsStay) {
  ChooseField();
  Click("cmdAddSelect");
  ASSERT_EQ(Read(), Field("NTABLE123.QTY"));
  Click("cmdClear");
  Statement("select TABLE123.NO~from");
  EXPECT_EQ(Read(), Field("NTABLE123.QTY"));
}

TEST_F(ReadSelectedFieldsTest, WithFromBeforeSelectTheFormerFieldsStay) {
  ChooseField();
  Click("cmdAddSelect");
  ASSERT_EQ(Read(), Field("NTABLE123.QTY"));
  Click("cmdClear");
  Statement("selected from T~select TABLE123.NO");
  EXPECT_EQ(Read(), Field("NTABLE123.QTY"));
}

TEST_F(ReadSelectedFieldsTest, AWordThatOnlyBeginsWithSelectIsReadFromItsEighthCharacter) {
  Fields({Field("NTABLE123.QTY")});
  Statement("selected~TABLE123.QTY~from  T");
  EXPECT_EQ(Read(), Field("NTABLE123.QTY"));
}

TEST_F(ReadSelectedFieldsTest, AnEmptySelectListGivesNoFields) {
  ChooseField();
  Click("cmdAddSelect");
  ASSERT_EQ(Read(), Field("NTABLE123.QTY"));
  Click("cmdClear");
  Statement("select from TABLE123");
  EXPECT_EQ(Read(), "");
}

TEST_F(ReadSelectedFieldsTest, FromDirectlyBehindSelectIsAnError) {
  Fields({Field("NTABLE123.QTY")});
  Statement("selectfrom TABLE123");
  ExpectError(ErrorKind::kArgument, [&] { Read(); });
}

TEST_F(ReadSelectedFieldsTest, TheListEndsAtTheFirstFrom) {
  Fields({Field("NTABLE123.QTY"), Field("NTABLE123.from x")});
  SelectList("TABLE123.QTY,TABLE123.from x");
  EXPECT_EQ(Read(), Field("NTABLE123.QTY"));
}

// Whole tables.

TEST_F(ReadSelectedFieldsTest, AWholeTableGivesItsRecordsInTheirOrder) {
  Fields({Field("NTABLE123.QTY", "char", "1"), Field("NTABLE124.QTY"),
          Field("YTABLE123.NO", "date", "2")});
  SelectList("TABLE123.*");
  EXPECT_EQ(Read(), "char*Q*V*R*N*NTABLE123.QTY*Q*V*R*N*1,date*Q*V*R*N*YTABLE123.NO*Q*V*R*N*2");
}

TEST_F(ReadSelectedFieldsTest, AWholeTableMatchesItsNameAnywhereInAnother) {
  Fields({Field("NORDERITM.TABLE123"), Field("Ntable123.QTY")});
  SelectList("TABLE123.*");
  EXPECT_EQ(Read(), Field("NORDERITM.TABLE123"));
}

TEST_F(ReadSelectedFieldsTest, TheFlagIsNoPartOfTheName) {
  Fields({"long*Q*V*R*N*TABLE123.QTY*Q*V*R*N*X"});
  SelectList("TABLE123.*");
  EXPECT_EQ(Read(), "");
}

TEST_F(ReadSelectedFieldsTest, WholeTablesFollowTheSelectListAndNotTheRecords) {
  Fields({Field("NTABLE123.QTY"), Field("NORDERITM.NO")});
  SelectList("ORDERITM.*,TABLE123.*");
  EXPECT_EQ(Read(), List({Field("NORDERITM.NO"), Field("NTABLE123.QTY")}));
}

TEST_F(ReadSelectedFieldsTest, AnItemListedTwiceGivesItsRecordsTwice) {
  Fields({Field("NTABLE123.QTY")});
  SelectList("TABLE123.QTY,TABLE123.*");
  EXPECT_EQ(Read(), List({Field("NTABLE123.QTY"), Field("NTABLE123.QTY")}));
}

// Plain fields.

TEST_F(ReadSelectedFieldsTest, AFieldAlsoGivesTheOneWhoseNameItBeginsWith) {
  Fields({Field("NTABLE123.QTY2"), Field("NTABLE123.QTY")});
  SelectList("TABLE123.QTY2");
  EXPECT_EQ(Read(), List({Field("NTABLE123.QTY2"), Field("NTABLE123.QTY")}));
}

TEST_F(ReadSelectedFieldsTest, TheShorterNameDoesNotGiveTheLonger) {
  Fields({Field("NTABLE123.QTY2"), Field("NTABLE123.QTY")});
  SelectList("TABLE123.QTY");
  EXPECT_EQ(Read(), Field("NTABLE123.QTY"));
}

TEST_F(ReadSelectedFieldsTest, LetterCaseOfANameCounts) {
  Fields({Field("NTABLE123.qty"), Field("NTABLE123.QTY")});
  SelectList("TABLE123.qty");
  EXPECT_EQ(Read(), Field("NTABLE123.qty"));
}

TEST_F(ReadSelectedFieldsTest, ARecordIsFoundInTheTypeWordOfTheBinding) {
  Fields({Field("Nlong")});
  SelectList("TABLE123.QTY");
  EXPECT_EQ(Read(), Field("Nlong"));
}

TEST_F(ReadSelectedFieldsTest, ARecordIsFoundInTheTailOfTheBinding) {
  // The item is bound as TABLE123.QTY:var.TAB.123.Q when it is not the last one.
  Fields({Field("Nvar.TAB.123.Q"), Field("Nvar.TAB.123.QT")});
  SelectList("TABLE123.QTY,TABLE123.*");
  EXPECT_EQ(Read(), Field("Nvar.TAB.123.Q"));
}

TEST_F(ReadSelectedFieldsTest, TheLineBreakBehindTheLastItemBelongsToIt) {
  // And so it is bound as TABLE123.QTY, the line break, :var.TAB.123.QTY.
  Fields({Field("Nvar.TAB.123.QTY"), Field("NQTY:var")});
  SelectList("TABLE123.QTY");
  EXPECT_EQ(Read(), Field("Nvar.TAB.123.QTY"));
}

TEST_F(ReadSelectedFieldsTest, AnItemTooShortToBeBoundIsAnError) {
  Fields({Field("NTABLE123.QTY")});
  SelectList("NO,TABLE123.QTY");
  ExpectError(ErrorKind::kArgument, [&] { Read(); });
}

TEST_F(ReadSelectedFieldsTest, AnItemOfSevenCharactersCanBeBound) {
  Fields({Field("NT.FIELD")});
  SelectList("T.FIELD,T.FIELDS");
  EXPECT_EQ(Read(), List({Field("NT.FIELD"), Field("NT.FIELD")}));
}

TEST_F(ReadSelectedFieldsTest, AnItemTooShortIsNoErrorWithoutRecords) {
  Fields({});
  SelectList("NO");
  EXPECT_EQ(Read(), "");
}

// Functions.

TEST_F(ReadSelectedFieldsTest, AFunctionIsBoundASecondTime) {
  Fields({Field("NA.B")});
  SelectList("sum ( A.B ) :var.sum.A.B,count ( * ) :var.count");
  EXPECT_EQ(Read(), "long*Q*V*R*N*sum ( A.B ) :var.sum.A.B:var.sum.A.B ) :var.sum.A");
}

TEST_F(ReadSelectedFieldsTest, AFunctionAtTheEndKeepsTheLineBreak) {
  Fields({Field("NA.B")});
  SelectList("sum ( A.B ) :var.sum.A.B");
  EXPECT_EQ(Read(), "long*Q*V*R*N*sum ( A.B ) :var.sum.A.B\r\n:var.sum.A.B ) :var.sum.A.B");
}

TEST_F(ReadSelectedFieldsTest, ACountIsBoundASecondTime) {
  Fields({Field("NA.B", "char")});
  SelectList("count ( A.B ) :var.count.A.B,count ( * ) :var.count");
  EXPECT_EQ(Read(), "long*Q*V*R*N*count ( A.B ) :var.count.A.B:var.count.A.B ) :var.count.");
}

TEST_F(ReadSelectedFieldsTest, AFunctionOfTheFormIsReadBack) {
  ChooseField();
  Mark("lstFunctions", 2);
  Mark("lstFields", 1);
  Click("cmdMoveOne");
  Click("cmdAddSelect");
  EXPECT_EQ(Read(),
            "long*Q*V*R*N*sum ( TABLE123.QTY ) :var.sum.TABLE123.QTY\r\n"
            ":var.sum.TABLE123.QTY ) :var.sum.TABLE123.QTY");
}

TEST_F(ReadSelectedFieldsTest, AFunctionComesOnceForEveryRecordThatMatches) {
  Fields({Field("NA.B"), Field("NB"), Field("NC")});
  SelectList("sum ( A.B ) :var.sum.A.B,count ( * ) :var.count");
  const std::string bound = "long*Q*V*R*N*sum ( A.B ) :var.sum.A.B:var.sum.A.B ) :var.sum.A";
  EXPECT_EQ(Read(), List({bound, bound}));
}

TEST_F(ReadSelectedFieldsTest, TheCountOfRowsAddsNothing) {
  Fields({Field("NTABLE123.QTY")});
  SelectList("count ( * ) :var.count");
  EXPECT_EQ(Read(), "");
}

TEST_F(ReadSelectedFieldsTest, TheCountOfRowsMatchesARecordNamedLikeAPartOfIt) {
  Fields({Field("Nvar.count")});
  SelectList("count ( * ) :var.count");
  EXPECT_EQ(Read(), "long*Q*V*R*N*count ( * ) :var.count");
}

TEST_F(ReadSelectedFieldsTest, AFunctionOfAWholeTableIsAFunctionAndNoTable) {
  Fields({Field("NTABLE123.QTY"), Field("NTABLE123")});
  SelectList("max ( TABLE123.* ) :var.max.TABLE123,count ( * ) :var.count");
  // Five characters go at the head and five at the tail.
  EXPECT_EQ(Read(),
            "long*Q*V*R*N*max ( TABLE123.* ) :var.max.TABLE123"
            ":var.max.TABLE123.* ) :var.max.TAB");
}

TEST_F(ReadSelectedFieldsTest, AFunctionMatchesARecordWithoutFurtherText) {
  Fields({"long*Q*V*R*N*NA.B"});
  SelectList("sum ( A.B ) :var.sum.A.B,count ( * ) :var.count");
  EXPECT_EQ(Read(), "long*Q*V*R*N*sum ( A.B ) :var.sum.A.B:var.sum.A.B ) :var.sum.A");
}

// The list that is returned.

TEST_F(ReadSelectedFieldsTest, BlanksAtTheEndsOfTheListGo) {
  Fields({Field("NTABLE123.QTY", "  long ", " 1 "), Field("NTABLE123.NO", " char ", " 2  ")});
  SelectList("TABLE123.*");
  EXPECT_EQ(Read(),
            "long *Q*V*R*N*NTABLE123.QTY*Q*V*R*N* 1 , char *Q*V*R*N*NTABLE123.NO*Q*V*R*N* 2");
}

TEST_F(ReadSelectedFieldsTest, FurtherTextEndsAtAThirdSeparator) {
  Fields({Field("NTABLE123.QTY", "long", "X*Q*V*R*N*Y")});
  SelectList("TABLE123.*");
  EXPECT_EQ(Read(), Field("NTABLE123.QTY"));
}

TEST_F(ReadSelectedFieldsTest, NothingThatMatchesGivesAnEmptyList) {
  ChooseField();
  Click("cmdAddSelect");
  ASSERT_EQ(Read(), Field("NTABLE123.QTY"));
  Fields({Field("NORDERITM.NO")});
  EXPECT_EQ(Read(), "");
}

TEST_F(ReadSelectedFieldsTest, AnEmptyCatalogueGivesAnEmptyList) {
  Fields({});
  SelectList("TABLE123.QTY,sum ( A.B ) :var.sum.A.B,TABLE123.*");
  EXPECT_EQ(Read(), "");
}

// Failures.

TEST_F(ReadSelectedFieldsTest, FieldsNeverWrittenAreAnError) {
  SelectList("TABLE123.*");
  ExpectError(ErrorKind::kSubscript, [&] { Read(); });
}

TEST_F(ReadSelectedFieldsTest, AMatchWithoutFurtherTextIsAnErrorAndKeepsTheFormerFields) {
  ChooseField();
  Click("cmdAddSelect");
  ASSERT_EQ(Read(), Field("NTABLE123.QTY"));
  for (const char* item : {"TABLE123.*", "TABLE123.NO,TABLE123.QTY"}) {
    Click("cmdClear");
    SelectList(item);
    Fields({Field("NTABLE123.NO"), "long*Q*V*R*N*NTABLE123.QTY"});
    ExpectError(ErrorKind::kSubscript, [&] { Read(); });
    Click("cmdClear");
    EXPECT_EQ(Read(), Field("NTABLE123.QTY")) << item;
  }
}

TEST_F(ReadSelectedFieldsTest, ARecordWithoutFurtherTextThatDoesNotMatchIsNoError) {
  Fields({"long*Q*V*R*N*NORDERITM.NO", Field("NTABLE123.QTY")});
  SelectList("TABLE123.QTY,TABLE123.*");
  EXPECT_EQ(Read(), List({Field("NTABLE123.QTY"), Field("NTABLE123.QTY")}));
}

TEST_F(ReadSelectedFieldsTest, ARecordWithoutASeparatorIsAnErrorAlsoBehindAMatch) {
  Fields({Field("NTABLE123.QTY"), Field("NA.B"), "broken"});
  for (const char* item :
       {"TABLE123.*", "TABLE123.QTY", "sum ( A.B ) :var.sum.A.B", "count ( * ) :var.count"}) {
    Click("cmdClear");
    SelectList(item);
    ExpectError(ErrorKind::kSubscript, [&] { Read(); });
  }
}

TEST_F(ReadSelectedFieldsTest, ATooShortItemFailsBeforeABrokenRecordBehindItsMatch) {
  // The binding stops looking at the record that stands in the item, and then cannot be built.
  Fields({Field("NNO"), "broken"});
  SelectList("NO,TABLE123.QTY");
  ExpectError(ErrorKind::kArgument, [&] { Read(); });
}

TEST_F(ReadSelectedFieldsTest, ABrokenRecordFailsBeforeATooShortItemIsBound) {
  Fields({Field("NTABLE123.QTY"), "broken"});
  SelectList("NO,TABLE123.QTY");
  ExpectError(ErrorKind::kSubscript, [&] { Read(); });
}

// Against a plain walk.
//
// The same question answered record by record, with nothing shared between the steps.

/// An error of the walk, by its kind.
struct WalkError {
  std::string kind;
};

bool Occurs(const std::string& part, const std::string& text) {
  return text.find(part) != std::string::npos;
}

std::string Lower(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

std::string TrimBlanks(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// `count` characters from position `from`, which counts from 1.
std::string Part(const std::string& text, int from, int count) {
  if (count < 0) throw WalkError{"argument"};
  const auto start = static_cast<std::size_t>(from) - 1;
  return start >= text.size() ? "" : text.substr(start, static_cast<std::size_t>(count));
}

std::string From(const std::string& text, int from) {
  return Part(text, from, static_cast<int>(text.size()));
}

Texts SplitAt(const std::string& text, const std::string& separator) {
  Texts pieces;
  if (text.empty()) return pieces;
  std::size_t start = 0;
  for (std::size_t at = text.find(separator); at != std::string::npos;
       at = text.find(separator, start)) {
    pieces.push_back(text.substr(start, at - start));
    start = at + separator.size();
  }
  pieces.push_back(text.substr(start));
  return pieces;
}

const std::string& Piece(const Texts& pieces, std::size_t place) {
  if (place >= pieces.size()) throw WalkError{"subscript"};
  return pieces[place];
}

std::string NameOf(const std::string& record) {
  return From(Piece(SplitAt(record, kSeparator), 1), 2);
}

std::string Bound(const Texts& records, const std::string& item) {
  const std::string head = std::string("long") + kSeparator;
  const auto length = static_cast<int>(item.size());
  if (Lower(item) == "count ( * ) ") return head + "count ( * ) :var.count";
  for (const std::string& record : records) {
    if (Occurs(NameOf(record), item)) break;
  }
  const bool star = Occurs("*", item);
  if (Lower(Part(item, 1, 8)) == "count ( ") {
    if (star) return head + "count ( * ) :var.count";
    return head + item + ":var.count." + Part(item, 9, length - 11);
  }
  return head + item + ":var." + TrimBlanks(Part(item, 1, 3)) + "." +
         TrimBlanks(Part(item, 6, length - (star ? 10 : 7)));
}

/// What a control knows that ReadSelectedFields needs.
struct Model {
  std::optional<std::string> catalogue;  // never written at first
  Texts statements;
  std::string fields;

  void Read() {
    if (statements.empty()) return;
    std::string chosen = statements[0];
    for (const std::string& statement : statements) {
      if (!Occurs("dump ", Lower(statement))) continue;
      chosen = statement;
      break;
    }
    if (Lower(TrimBlanks(Part(chosen, 1, 6))) != "select") return;
    const auto p = static_cast<int>(Lower(chosen).find("select ") + 1);  // 0 for nowhere
    const auto q = static_cast<int>(Lower(chosen).find("from ") + 1);
    if (q < p || q == 0) return;
    std::string records;
    for (const std::string& item : SplitAt(Part(chosen, 8, q - 8), ","))
      Walk(item, records);
    fields = TrimBlanks(From(records, 2));
  }

  void Walk(const std::string& item, std::string& records) const {
    if (!catalogue.has_value()) throw WalkError{"subscript"};
    const bool isFunction = Occurs(")", item);
    const bool isTable = Occurs("*", item) && !isFunction;
    const Texts all = SplitAt(*catalogue, ",");
    for (const std::string& record : all) {
      const Texts parts = SplitAt(record, kSeparator);
      const std::string name = NameOf(record);
      if (isTable ? !Occurs(Part(item, 1, 8), name) : !Occurs(name, Bound(all, item))) continue;
      if (isFunction) {
        records += "," + Bound(all, item);
      } else {
        records +=
            "," + Piece(parts, 0) + kSeparator + Piece(parts, 1) + kSeparator + Piece(parts, 2);
      }
    }
  }
};

/// Catalogues, statements and what goes wrong with them, from a fixed seed.
class Generator {
 public:
  explicit Generator(unsigned seed) : random_(seed) {}

  bool Once(int in) { return Below(in) == 0; }
  int Below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
  const std::string& OneOf(const Texts& texts) {
    return texts[static_cast<std::size_t>(Below(static_cast<int>(texts.size())))];
  }

  std::string Name() {
    if (Once(25)) return OneOf({"long", "var", "var.sum", "QTY", "B", "A.B"});
    return OneOf({"TABLE123", "TABLE124", "ORDERITM", "ACCOUNTS"}) + "." +
           OneOf({"QTY", "QTY2", "Q", "NO", "NO_OF_TABLE123", "qty", "AMOUNT", "max"});
  }
  std::string Record(int faultIn) {
    if (Once(faultIn)) return OneOf({"broken", "long", "long*Q*V*R*", ""});
    const std::string head =
        OneOf({"long", "char", " dec", ""}) + kSeparator + OneOf({"N", "Y"}) + Name();
    if (Once(faultIn)) return head;
    if (Once(faultIn)) return std::string("long") + kSeparator + kSeparator + "X";
    return head + kSeparator + OneOf({"X", "", "a b ", std::string("1") + kSeparator + "2"});
  }
  std::string Catalogue() {
    const int faultIn = Once(3) ? 12 : 1000000;
    Texts records;
    for (int count = Below(14); count > 0; --count)
      records.push_back(Record(faultIn));
    return List(records);
  }
  std::string Item() {
    const std::string name = Name();
    switch (Below(12)) {
      case 0:
      case 1:
        return name.substr(0, 8) + ".*";
      case 2: {
        const std::string function = OneOf({"sum", "avg", "max", "min"});
        return function + " ( " + name + " ) :var." + function + "." + name;
      }
      case 3:
        return OneOf({"count", "Count"}) + " ( " + name + " ) :var.count." + name;
      case 4:
        return OneOf({"count ( * ) :var.count", "count ( * ) ", "COUNT ( * ) ",
                      "max ( TABLE123.* ) :var.max.TABLE123", "count ( ORDERITM.* ) "});
      case 5:
        if (Once(8)) return OneOf({"", "a", "B )", "* )", "*", "count ( ", "QTY.*"});
        return name;
      default:
        return name;
    }
  }
  /// A statement, encoded, in which only the line breaks need to be.
  std::string Statement() {
    if (Once(12)) return OneOf({"dump all", "if a then~endif", "  ", "", "select", "selectfrom T"});
    Texts items;
    for (int count = Below(5) + 1; count > 0; --count)
      items.push_back(Item());
    std::string head = OneOf({"select ", "select ", "select ", "SELECT ", "Select "});
    if (Once(12)) head = OneOf({"selects ", " select ", "~select ", "selec ", "selected~"});
    std::string tail = OneOf({"~from  TABLE123", "~FROM T", " from T"});
    if (Once(12)) tail = OneOf({"", "~from", "~where dump from "});
    return head + List(items) + tail + OneOf({"~endselect", "~dump it~endselect", ""});
  }

 private:
  std::mt19937 random_;
};

class ReadSelectedFieldsWalkTest : public ReadSelectedFieldsTest {
 protected:
  /// What one read gives: the fields, or an error by its kind.
  static std::string ReadOrError(ZOLT20MapControl& control) {
    try {
      return Narrow(control.prpstrSelectedFields());
    } catch (const RuntimeError& error) {
      return "error " + std::string(error.kind_word());
    }
  }
  static std::string WalkOrError(Model& model) {
    try {
      model.Read();
      return model.fields;
    } catch (const WalkError& error) {
      return "error " + error.kind;
    }
  }
  /// What the Result holds when it has taken a text without marker, and the entry that it leaves.
  static void Insert(const std::string& encoded, std::string& result, Model& model) {
    std::string text;
    for (const char c : encoded) {
      text += c == '~' ? (result.empty() ? "\r\n" : "\r\n\t") : std::string(1, c);
    }
    result = result.empty() ? text : result + "\r\n\t" + text;
    if (!TrimBlanks(result).empty()) model.statements.push_back(TrimBlanks(result));
  }
};

TEST_F(ReadSelectedFieldsWalkTest, EveryStatementReadsAsAPlainWalkOverTheRecords) {
  Generator generate(20);
  std::map<std::string, int> met;
  for (int round = 0; round < 400; ++round) {
    MakeNew();
    ZOLT20MapControl& control = host();
    const Control& box = On("TxtOutput");
    Model model;
    std::string result;
    for (int step = 0; step < 3; ++step) {
      if (!generate.Once(30)) {
        model.catalogue = generate.Catalogue();
        control.PrpStrFields(Wide(*model.catalogue));
      }
      // A Result emptied by hand starts the next entry afresh.
      if (generate.Once(2)) control.UserType(box, Wide(result = ""));
      const std::string statement = generate.Statement();
      control.prpStroutput(Wide(statement));
      Insert(statement, result, model);
      const std::string expected = WalkOrError(model);
      ASSERT_EQ(ReadOrError(control), expected)
          << "round " << round << "\nresult " << result << "\ncatalogue "
          << model.catalogue.value_or("never written");
      ++met[expected.starts_with("error") ? expected : expected.empty() ? "nothing" : "fields"];
    }
    ASSERT_EQ(Result(), result);
    Log();
  }
  EXPECT_GT(met["fields"], 300);
  EXPECT_GT(met["nothing"], 100);
  EXPECT_GT(met["error subscript"], 50);
  EXPECT_GT(met["error argument"], 20);
}

TEST_F(ReadSelectedFieldsWalkTest, EveryFormReadsAsAPlainWalkOverTheRecords) {
  Generator generate(21);
  int withFields = 0;
  for (int round = 0; round < 150; ++round) {
    MakeNew();
    ZOLT20MapControl& control = host();
    const Control& tables = On("lsttables");
    const Control& fields = On("lstFields");
    Model model;
    Texts records = {Field("NTABLE123.QTY"), Field("NORDERITM.QTY")};
    for (int count = generate.Below(12); count > 0; --count) {
      records.push_back(Field("N" + generate.OneOf({"TABLE123", "ORDERITM"}) + "." +
                              generate.OneOf({"QTY", "QTY2", "NO", "TABLE123"}) +
                              std::to_string(count)));
    }
    model.catalogue = List(records);
    control.PrpStrTables(u"TABLE1231,ORDERITM0");
    control.PrpStrFields(Wide(*model.catalogue));
    control.UserClick(tables, 0);
    control.UserClick(tables, 1);
    const bool aggregates = generate.Once(2);
    for (int moves = generate.Below(4) + 1; moves > 0; --moves) {
      if (aggregates) control.UserClick(*control.Form().Find("lstFunctions"), generate.Below(6));
      // Two rows for the tables as wholes, and one for each record.
      control.UserClick(fields, generate.Below(static_cast<int>(records.size()) + 2));
      control.UserClick(*control.Form().Find("cmdMoveOne"));
    }
    control.UserClick(*control.Form().Find("cmdAddSelect"));
    model.statements = {Result()};
    ASSERT_NE(model.statements[0], "");
    const std::string expected = WalkOrError(model);
    ASSERT_EQ(ReadOrError(control), expected) << Result();
    if (!expected.empty()) ++withFields;
    Log();  // with the messages for what was selected already
  }
  EXPECT_GT(withFields, 100);
}

}  // namespace
}  // namespace zolt20::tests
