// The words that faces add: English, or as a host gives them.
#include "faces/shared/words.h"

#include <set>
#include <string>

#include "faces/shared/drawn_rows.h"
#include "faces/shared/form_words.h"
#include "faces/shared/person.h"
#include "tests/support/control_test.h"

namespace zolt20::tests {
namespace {

using faces::Person;
using faces::Word;
using faces::Words;

class WordsTest : public ControlTest {
 protected:
  WordsTest() {
    Catalogue("CUSTOMER1,ORDERITM0", List({Field("NCUSTOMER.C_ID"), Field("NORDERITM.O_ID")}));
    Log();
    person.TakeChanges();
  }
  const Surface& Form() { return host().Form(); }
  std::string Told(UserGesture gesture) {
    person.Make(std::move(gesture));
    return Narrow(person.TakeWords());
  }

  Person person{host()};
};

TEST_F(WordsTest, HaveKeysOfTheirOwn) {
  std::set<std::string_view> keys;
  for (int word = 0; word < static_cast<int>(Word::kCount); ++word)
    keys.insert(faces::KeyOf(static_cast<Word>(word)));
  EXPECT_EQ(keys.size(), static_cast<std::size_t>(Word::kCount));
  EXPECT_EQ(faces::KeyOf(Word::undo), "undo");
  EXPECT_EQ(faces::KeyOf(Word::TxtOutput), "TxtOutput");
}

TEST_F(WordsTest, AreFilledInWhereverTheirKeysStand) {
  EXPECT_EQ(Narrow(faces::Filled(u"{a} of {b}, {a}", {{u"a", u"1"}, {u"b", u"2"}})), "1 of 2, 1");
  EXPECT_EQ(Narrow(faces::Filled(u"none {c}", {{u"a", u"1"}})), "none {c}");
}

TEST_F(WordsTest, OfAHostAreToldOfAGesture) {
  Words& words = person.words();
  words.Set(Word::rows, u"Zeilen: {count}");
  words.Set(Word::oneRow, u"eine");
  words.Set(Word::lstFields, u"Felder");
  words.Set(Word::change, u"{words} in {name}");
  EXPECT_EQ(Told({Gesture::kClickRow, &Form().lsttables, 0}),
            "Zeilen: 2 in Felder, eine in Group By");
  words.Set(Word::undone, u"Zurück");
  person.Undo();
  EXPECT_EQ(person.TakeWords(), u"Zurück");
  words.Clear();
  EXPECT_EQ(Told({Gesture::kClickRow, &Form().lsttables, 0}), "Fields 2 rows, Group By 1 row");
}

TEST_F(WordsTest, OfAHostNameControls) {
  Words words;
  words.Set(Word::TxtOutput, u"Ergebnis");
  words.Set(Word::TxtExpr, u"{row}. Wert");
  EXPECT_EQ(faces::AccessibleName(Form().TxtOutput, words), u"Ergebnis");
  EXPECT_EQ(faces::AccessibleName(Form().TxtExpr(0), words), u"1. Wert");
  EXPECT_EQ(faces::AccessibleName(Form().txtStmt(0), words), u"Case statements 1");
  EXPECT_EQ(faces::AccessibleName(Form().TxtOutput), u"Result");
  EXPECT_EQ(faces::AccessibleName(Form().cmdDone, words), u"Done");
}

TEST_F(WordsTest, OfAHostTellOfHiddenMarks) {
  person.Make({Gesture::kClickRow, &Form().lsttables, 0});
  Log();
  faces::DrawnRows rows(Form().lsttables);
  rows.SetFilter(u"order");
  Words words;
  words.Set(Word::hiddenMarks, u"{shown}/{marked}");
  EXPECT_EQ(rows.HiddenMarks(words), u"0/1");
  EXPECT_EQ(rows.HiddenMarks(), u"1 marked, 0 shown");
}

}  // namespace
}  // namespace zolt20::tests
