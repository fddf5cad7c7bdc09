// The Result, the texts of the host and the stored parts beside their plain walks.
#include "tests/support/side_by_side.h"

namespace zolt20::tests {
namespace {

class StatementWalks : public SideBySide {
 protected:
  void MarkedCatalogue(int tables, int fields) {
    Let("PrpStrTables", TableList(tables));
    Let("PrpStrFields", FieldList(fields));
    for (int i = 0; i < tables; ++i)
      ClickSomeRow("lsttables");
  }

  void PressSomeAdd() {
    Press(OneOf({"cmdAddSelect", "cmdAddSelect", "cmdAddWhereQuery", "cmdAddSelectDoQuer",
                 "cmdAddSEOStoquery", "cmdSelectmpty", "cmdAddtoSERROR"}));
  }

  void LetSomePart() {
    Let(OneOf({"prpSelectDoPart", "prpSelectEOSPart", "prpSelectEmptyPart", "prpSelectErrorPart",
               "prpSelectWherePart", "prpStroutput"}),
        EncodedText());
  }

  void TypeSomewhere() {
    Type(OneOf({"txtSelectDo", "txtSelectEOS", "txtselectempty", "txtSelectError", "TxtOutput",
                "txtwhereCondition", "txtAsSet"}),
         TypedText());
  }

  Steps Adding() {
    return {
        {12, [this] { PressSomeAdd(); }},
        {3, [this] { Let("prpSelectPart", SelectList(4)); }},
        {4, [this] { TypeSomewhere(); }},
        {2,
         [this] {
           Type("TxtOutput", OneOf({"", "", " ", "x"}));
         }},
        {4, [this] { LetSomePart(); }},
        {2, [this] { ClickSomeRow("lsttables"); }},
        {2, [this] { ClickSomeRow("lstGroupby"); }},
        {2, [this] { ClickSomeRow("lstorderbyasc"); }},
        {2, [this] { ClickSomeRow("lstorderbydesc"); }},
        {2, [this] { ClickSomeRow("lstSelectedFields"); }},
        {2, [this] { Press("cmdRemoveOne"); }},
        {1, [this] { Press("cmdMoveAll"); }},
        {4, [this] { ReadSelectedFields(); }},
        {2, [this] { ReadResult(); }},
        {1, [this] { LetDepth(Below(4) - 1); }},
        {1, [this] { BuildGroupBy(); }},
        {1, [this] { Press("cmdClear"); }},
        {1, [this] { ClearAll(Below(9) - 1); }},
        {1, [this] { LetPage(Below(8)); }},
        {1, [this] { Press("cmdDone"); }},
    };
  }

  Steps Reloading() {
    return {
        {3, [this] { Let("prpSelectPart", SelectList(6)); }},
        {3, [this] { Let("prpSelectFromPart", Tables()); }},
        {4, [this] { Let("prpSelectGroupbyPart", SelectList(4)); }},
        {6, [this] { Let("prpSelectOrderbyPart", SelectList(6)); }},
        {1,
         [this] {
           Let("prpSelectAsSetPart", OneOf({"", "5", " "}));
         }},
        {3, [this] { ClickSomeRow("lsttables"); }},
        {2, [this] { ClickSomeRow("lstorderbyasc"); }},
        {2, [this] { ClickSomeRow("lstorderbydesc"); }},
        {1, [this] { Press("cmdRemoveAll"); }},
        {1, [this] { Press("cmdMoveAll"); }},
        {1, [this] { Press("cmdClear"); }},
        {1, [this] { ClearAll(1); }},
        {1, [this] { Let("PrpStrTables", TableList(2)); }},
    };
  }

  std::string Tables() {
    return List({OneOf({"AAAAAAAA", " AAAAAAAA", "AAAAAAAB"}), OneOf({"BBBBBBBB", "", "aaaaaaaa"}),
                 OneOf({"countTBL", "AAAAAAA", "AAAAAAAA.A"})});
  }

  static std::string Numbered(int number) {
    return (number % 2 == 0 ? "EVENTABL.F" : "ODDTABLE.F") + std::to_string(number);
  }
};

TEST_F(StatementWalks, TheResultIsTheEntriesOneBehindTheOtherAfterEveryStep) {
  for (unsigned seed = 0; seed < 70; ++seed) {
    Start(seed);
    MarkedCatalogue(6, 15);
    Walk(80, Adding());
  }
}

TEST_F(StatementWalks, TextsOfTheHostAreReplacedAsWholeTextsOneStepAfterTheOther) {
  for (unsigned seed = 100; seed < 130; ++seed) {
    Start(seed);
    Walk(60, {{8, [this] { LetSomePart(); }},
              {1, [this] { TypeSomewhere(); }},
              {1, [this] { ReadResult(); }},
              {1, [this] { LetDepth(Below(3)); }},
              {1, [this] { ClearAll(1 + Below(5)); }}});
  }
}

TEST_F(StatementWalks, LongTextsOfTheHostAreReplacedLikeShortOnes) {
  Start(150);
  for (int i = 0; i < 40; ++i) {
    std::string text;
    for (int piece = 0; piece < 60; ++piece)
      text += EncodedText();
    Let(OneOf({"prpSelectDoPart", "prpSelectEOSPart", "prpSelectEmptyPart", "prpSelectErrorPart",
               "prpSelectWherePart", "prpStroutput"}),
        text);
    if (OneIn(3)) ClearAll(Below(6));
  }
  ReadResult();
}

TEST_F(StatementWalks, StoredPartsMarkWhatTheirWalksMark) {
  for (unsigned seed = 200; seed < 260; ++seed) {
    Start(seed);
    Let("PrpStrTables", TableList(8));
    Let("PrpStrFields", FieldList(20));
    Walk(50, Reloading());
  }
}

TEST_F(StatementWalks, StoredPartsMarkTheSameRowsInLongLists) {
  for (unsigned seed = 300; seed < 302; ++seed) {
    Start(seed);
    Texts records;
    for (int i = 0; i < 1200; ++i)
      records.push_back(Field("N" + Numbered(Below(700))));
    Let("PrpStrTables", "EVENTABL3,ODDTABLE2");
    Let("PrpStrFields", List(records));
    Let("prpSelectFromPart", "ODDTABLE,EVENTABL");
    Press("cmdMoveAll");
    const auto some = [this](int count, const Texts& ends) {
      Texts elements;
      for (int i = 0; i < count; ++i)
        elements.push_back(Numbered(Below(750)) + OneOf(ends));
      return List(elements);
    };
    Walk(12, {{3,
               [&] {
                 Let("prpSelectOrderbyPart", some(150, {"", " desc", " ", " DESC"}));
               }},
              {3,
               [&] {
                 Let("prpSelectGroupbyPart", some(150, {"", " "}));
               }},
              {1, [&] { ClickSomeRow("lstorderbyasc"); }},
              {1, [&] { ClickSomeRow("lstorderbydesc"); }},
              {2, [&] { PressSomeAdd(); }},
              {1, [&] { ClearAll(1); }}});
    PressSomeAdd();
  }
}

TEST_F(StatementWalks, SelectedFieldsAreReadBackByAWalkOverManyRecords) {
  for (unsigned seed = 400; seed < 404; ++seed) {
    Start(seed);
    Texts records;
    for (int i = 0; i < 1500; ++i) {
      records.push_back(Field(
          "N" + OneOf({"AAAAAAAA.", "AAAAAAAB.", "BBBBBBBB.", "BBBB.", "AAAAAAAA.AAAAAAAA."}) +
              OneOf({"F", "G", "FG"}) + std::to_string(Below(300)),
          OneOf({"long", "char"}), std::to_string(i)));
    }
    if (seed == 403) records.insert(records.begin() + 1400, OneOf({"broken", "long*Q*V*R*N*NA"}));
    Let("PrpStrTables", "AAAAAAAA0,AAAAAAAB0,BBBBBBBB0");
    Let("PrpStrFields", List(records));
    for (int round = 0; round < 6; ++round) {
      Press("cmdClear");
      Texts items;
      for (int i = 0; i < 12; ++i) {
        const std::string name = OneOf({"AAAAAAAA.F", "BBBBBBBB.G", "AAAAAAAB.FG", "BBBB.F"}) +
                                 std::to_string(Below(400));
        items.push_back(OneOf({"", "", "sum ( ", "count ( ", " "}) + name +
                        OneOf({"", " ) ", "*"}));
      }
      items.push_back(OneOf({"BBBBBBBB.*", "A*", "AAAAAAAA.*", "*"}));
      Let("prpStroutput", "select " + List(items) + "~from  AAAAAAAA~endselect");
      ReadSelectedFields();
    }
  }
}

TEST_F(StatementWalks, SelectStatementsOfManyFunctionsAreBoundLikeThoseOfFew) {
  Start(500);
  Texts records;
  for (int i = 0; i < 600; ++i)
    records.push_back(Field("NAAAAAAAA.F" + std::to_string(i)));
  Let("PrpStrTables", "AAAAAAAA3");
  Let("PrpStrFields", List(records));
  ClickRow("lsttables", 0);
  for (int round = 0; round < 4; ++round) {
    Texts elements;
    for (int i = 0; i < 60; ++i) {
      elements.push_back(OneOf({"sum ( ", "count ( ", "COUNT ( ", "avg ( "}) + "AAAAAAAA.F" +
                         std::to_string(Below(700)) + OneOf({" ) ", ")", " ) :var", "* ) "}));
    }
    Let("prpSelectPart", List(elements));
    PressSomeAdd();
    ReadSelectedFields();
    if (round == 2) Let("PrpStrFields", List(records) + ",broken");
  }
}

}  // namespace
}  // namespace zolt20::tests
