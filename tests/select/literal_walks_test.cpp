// The catalogue and the selected fields beside their plain walks, on forms made up at random.
#include "tests/support/side_by_side.h"

namespace zolt20::tests {
namespace {

class SelectWalks : public SideBySide {
 protected:
  void Catalogue(int tables, int fields) {
    Let("PrpStrTables", TableList(tables));
    Let("PrpStrFields", FieldList(fields));
  }

  Steps Marking() {
    return {
        {12, [this] { ClickSomeRow("lsttables"); }},
        {1, [this] { Let("PrpStrTables", TableList(3)); }},
        {1, [this] { Let("PrpStrFields", FieldList(12)); }},
        {2, [this] { DoubleClickSomeRow("lstFields"); }},
        {1, [this] { DoubleClickSomeRow("lstFunctions"); }},
        {1, [this] { ClickSomeRow("lstFields"); }},
        {2, [this] { ClickSomeRow("lstGroupby"); }},
        {2, [this] { ClickSomeRow("lstorderbyasc"); }},
        {2, [this] { ClickSomeRow("lstorderbydesc"); }},
        {1, [this] { PickSome("cboWhereFields1"); }},
        {1, [this] { PickSome("cboWhereFields"); }},
    };
  }

  Steps Selecting() {
    return {
        {5, [this] { ClickSomeRow("lsttables"); }},
        {8, [this] { ClickSomeRow("lstFields"); }},
        {2, [this] { ClickSomeRow("lstFunctions"); }},
        {1, [this] { DoubleClickSomeRow("lstFunctions"); }},
        {10, [this] { Press("cmdMoveOne"); }},
        {1, [this] { Press("cmdMoveAll"); }},
        {3, [this] { Press("cmdRemoveOne"); }},
        {1, [this] { Press("cmdRemoveAll"); }},
        {4, [this] { ClickSomeRow("lstSelectedFields"); }},
        {2, [this] { ClickSomeRow("lstorderbyasc"); }},
        {2, [this] { ClickSomeRow("lstorderbydesc"); }},
        {2, [this] { Let("prpSelectPart", SelectList(4)); }},
        {1, [this] { ClearAll(Below(9) - 1); }},
        {1, [this] { PickSome("cboWhereFields1"); }},
    };
  }

  /// Tables of two letters in all mixtures, each with fields that other tables have too.
  void LargeCatalogue(int tables, int fieldsOfEach) {
    Texts entries;
    Texts records;
    for (int t = 0; t < tables; ++t) {
      std::string name = "T";
      for (int bit = 0; bit < 7; ++bit)
        name += (t >> bit) % 2 == 0 ? "A" : "B";
      names_.push_back(name);
      entries.push_back(name + std::to_string(t % 4));
      for (int f = 0; f < fieldsOfEach; ++f)
        records.push_back(Field((OneIn(5) ? "Y" : "N") + name + ".F" + std::to_string(Below(90))));
    }
    // Records of one table stand apart from each other too.
    for (int i = 0; i < 100; ++i)
      records.push_back(Field("N" + OneOf(names_) + "." + OneOf({"reindex", "_index1", "F1"})));
    Let("PrpStrTables", List(entries));
    Let("PrpStrFields", List(records));
  }

  Texts names_;
};

TEST_F(SelectWalks, MarkingAndUnmarkingTablesIsTheWalkOverAllRecordsAndRows) {
  for (unsigned seed = 0; seed < 60; ++seed) {
    Start(seed);
    Catalogue(8, 20);
    Walk(40, Marking());
  }
}

TEST_F(SelectWalks, EntriesEnterAndLeaveTheSelectListAsTheWalksSay) {
  for (unsigned seed = 100; seed < 180; ++seed) {
    Start(seed);
    Catalogue(10, 25);
    Walk(60, Selecting());
  }
}

TEST_F(SelectWalks, StoredSelectListsGoThroughTheSameWalks) {
  for (unsigned seed = 200; seed < 240; ++seed) {
    Start(seed);
    Catalogue(10, 25);
    Walk(25, {{6, [this] { Let("prpSelectPart", SelectList(8)); }},
              {2, [this] { Press("cmdRemoveOne"); }},
              {2, [this] { ClickSomeRow("lstSelectedFields"); }},
              {1, [this] { Press("cmdRemoveAll"); }},
              {1, [this] { ClearAll(0); }}});
  }
}

TEST_F(SelectWalks, ListsOfManyRowsAreWalkedLikeThoseOfFew) {
  for (unsigned seed = 300; seed < 302; ++seed) {
    Start(seed);
    LargeCatalogue(64, 30);
    for (int i = 0; i < 24; ++i)
      ClickRow("lsttables", Below(64));
    Walk(120, Selecting());
    ClearAll(0);
  }
}

TEST_F(SelectWalks, ManySelectedFieldsAreWalkedLikeFew) {
  Start(400);
  LargeCatalogue(32, 40);
  for (int part = 0; part < 3; ++part) {
    Texts elements;
    for (int i = 0; i < 300; ++i)
      elements.push_back(OneOf(names_) + OneOf({".F", ".G", ".F1", ".A"}) +
                         std::to_string(Below(90)) + OneOf({"", "", "", " ", "*"}));
    Let("prpSelectPart", List(elements));
    Walk(20, Selecting());
  }
  Press("cmdRemoveAll");
}

TEST_F(SelectWalks, ManyFunctionsAreWalkedLikeFew) {
  Start(500);
  LargeCatalogue(32, 40);
  for (int part = 0; part < 3; ++part) {
    Texts elements;
    for (int i = 0; i < 150; ++i)
      elements.push_back(OneOf({"sum ( ", "avg ( ", "count ( "}) + OneOf(names_) + ".F" +
                         std::to_string(Below(30)) + " ) ");
    Let("prpSelectPart", List(elements));
    Walk(25, Selecting());
  }
}

TEST_F(SelectWalks, RowsThatStandApartGoAndTheChosenRowsStay) {
  for (unsigned seed = 600; seed < 606; ++seed) {
    Start(seed);
    const Texts tables{"AAAAAAAA", "BBBBBBBB", "aaaaaaaa"};
    Texts records;
    for (int i = 0; i < 80; ++i)
      records.push_back(Field("N" + OneOf(tables) + ".F" + std::to_string(i)));
    Let("PrpStrTables", "AAAAAAAA2,BBBBBBBB2,aaaaaaaa1");
    Let("PrpStrFields", List(records));
    for (int round = 0; round < 6; ++round) {
      Texts elements;
      for (int i = 0; i < 90; ++i)
        elements.push_back(OneOf(tables) + ".F" + std::to_string(Below(80)));
      Let("prpSelectPart", List(elements));
      for (const char* list :
           {"lstorderbyasc", "lstorderbydesc", "lstGroupby", "lstSelectedFields"})
        ClickSomeRow(list);
      PickSome("cboWhereFields");
      PickSome("cboWhereFields1");
      if (OneIn(4)) Press("cmdRemoveAll");
      ClickRow("lsttables", Below(3));
      if (OneIn(4)) Let("prpSelectPart", "sum ( AAAAAAAA.F1 ) ");
    }
  }
}

}  // namespace
}  // namespace zolt20::tests
