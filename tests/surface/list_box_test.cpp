#include <algorithm>
#include <random>

#include "tests/surface/bare_form.h"

namespace zolt20::tests {
namespace {

class ListBoxTest : public BareFormTest {
 protected:
  ListBoxTest() {
    for (ListBox* list : {&form.lstFields, &form.lsttables, &form.lstorderbyasc})
      Fill(*list, {"a", "b", "c"});
  }
  /// One list of each kind.
  ListBox& single = form.lstFields;
  ListBox& multi = form.lsttables;
  ListBox& checked = form.lstorderbyasc;
};

TEST_F(ListBoxTest, TheListsAreOfTheseKinds) {
  EXPECT_TRUE(form.lstFunctions.IsSingle() && form.lstFields.IsSingle());
  EXPECT_TRUE(form.lsttables.IsMultiSelect() && form.lstSelectedFields.IsMultiSelect() &&
              form.lstGroupby.IsMultiSelect());
  EXPECT_TRUE(form.lstorderbyasc.HasCheckBoxes() && form.lstorderbydesc.HasCheckBoxes());
}

TEST_F(ListBoxTest, RowsCountFromZeroAndAnyOtherReadsEmpty) {
  EXPECT_EQ(single.ListCount(), 3);
  EXPECT_EQ(single.List(0), u"a");
  EXPECT_EQ(single.List(2), u"c");
  EXPECT_EQ(single.List(3), u"");
  EXPECT_EQ(single.List(-1), u"");
}

TEST_F(ListBoxTest, AtTheStartNoRowIsMarkedOrCurrent) {
  for (const ListBox* list : {&single, &multi, &checked}) {
    EXPECT_EQ(list->ListIndex(), -1);
    EXPECT_EQ(list->SelCount(), 0);
  }
}

// Writing ListIndex.

TEST_F(ListBoxTest, InASingleSelectionListIndexBecomesTheOnlyMark) {
  single.ListIndex(0);
  single.ListIndex(2);
  EXPECT_EQ(Marks(single), RowNumbers{2});
  EXPECT_EQ(single.SelCount(), 1);
  EXPECT_EQ(Events(), (Texts{"Click lstFields", "Click lstFields"}));
}

TEST_F(ListBoxTest, InASingleSelectionMinusOneTakesTheMarkAway) {
  single.ListIndex(1);
  single.ListIndex(-1);
  EXPECT_EQ(Marks(single), RowNumbers{});
  EXPECT_EQ(single.ListIndex(), -1);
  EXPECT_EQ(Events(), (Texts{"Click lstFields", "Click lstFields"}));
}

TEST_F(ListBoxTest, ListIndexElsewhereChangesNoMarkAndClicks) {
  multi.Selected(1, true);
  checked.Selected(1, true);
  Events();
  multi.ListIndex(0);
  checked.ListIndex(2);
  EXPECT_EQ(Marks(multi), RowNumbers{1});
  EXPECT_EQ(Marks(checked), RowNumbers{1});
  EXPECT_EQ(multi.ListIndex(), 0);
  EXPECT_EQ(checked.ListIndex(), 2);
  EXPECT_EQ(Events(), (Texts{"Click lsttables", "Click lstorderbyasc"}));
}

TEST_F(ListBoxTest, EveryWriteOfListIndexClicksAlsoWhenItDoesNotDiffer) {
  for (ListBox* list : {&single, &multi}) {
    list->ListIndex(-1);
    list->ListIndex(1);
    list->ListIndex(1);
  }
  EXPECT_EQ(Events(), (Texts{"Click lstFields", "Click lstFields", "Click lstFields",
                             "Click lsttables", "Click lsttables", "Click lsttables"}));
}

TEST_F(ListBoxTest, AListIndexOutOfRangeIsAValueErrorThatChangesNothing) {
  for (ListBox* list : {&single, &multi, &checked}) {
    list->ListIndex(1);
    EXPECT_EQ(ErrorOf([list] { list->ListIndex(3); }), "380 value");
    EXPECT_EQ(ErrorOf([list] { list->ListIndex(-2); }), "380 value");
    EXPECT_EQ(list->ListIndex(), 1);
  }
  EXPECT_EQ(Events(), (Texts{"Click lstFields", "Click lsttables", "Click lstorderbyasc"}));
}

TEST_F(ListBoxTest, InAnEmptyListOnlyMinusOneIsInRange) {
  form.lstFunctions.ListIndex(-1);
  EXPECT_EQ(ErrorOf([this] { form.lstFunctions.ListIndex(0); }), "380 value");
  EXPECT_EQ(Events(), Texts{"Click lstFunctions"});
}

// Writing Selected.

TEST_F(ListBoxTest, InASingleSelectionSelectedTrueIsAsListIndex) {
  single.Selected(0, true);
  single.Selected(2, true);
  EXPECT_EQ(Marks(single), RowNumbers{2});
  EXPECT_EQ(single.ListIndex(), 2);
  EXPECT_EQ(Events(), (Texts{"Click lstFields", "Click lstFields"}));
}

TEST_F(ListBoxTest, InASingleSelectionSelectedFalseOnTheMarkedRowIsAsListIndexMinusOne) {
  single.ListIndex(1);
  Events();
  single.Selected(1, false);
  EXPECT_EQ(Marks(single), RowNumbers{});
  EXPECT_EQ(single.ListIndex(), -1);
  EXPECT_EQ(Events(), Texts{"Click lstFields"});
}

TEST_F(ListBoxTest, InASingleSelectionSelectedFalseOnAnotherRowOnlyClicks) {
  single.ListIndex(1);
  Events();
  single.Selected(0, false);
  EXPECT_EQ(Marks(single), RowNumbers{1});
  EXPECT_EQ(single.ListIndex(), 1);
  EXPECT_EQ(Events(), Texts{"Click lstFields"});
}

TEST_F(ListBoxTest, InAMultiSelectionSelectedSetsMarkAndListIndexAndClicks) {
  multi.Selected(0, true);
  multi.Selected(2, true);
  EXPECT_EQ(Marks(multi), (RowNumbers{0, 2}));
  EXPECT_EQ(multi.SelCount(), 2);
  EXPECT_EQ(multi.ListIndex(), 2);
  multi.Selected(0, false);
  EXPECT_EQ(Marks(multi), RowNumbers{2});
  EXPECT_EQ(multi.ListIndex(), 0);
  EXPECT_EQ(Events(), (Texts{"Click lsttables", "Click lsttables", "Click lsttables"}));
}

TEST_F(ListBoxTest, InAMultiSelectionAMarkThatDoesNotDifferMovesListIndexAndClicks) {
  multi.Selected(1, false);
  EXPECT_EQ(multi.ListIndex(), 1);
  EXPECT_EQ(multi.SelCount(), 0);
  EXPECT_EQ(Events(), Texts{"Click lsttables"});
}

TEST_F(ListBoxTest, ACheckBoxThatDiffersSetsMarkAndListIndexAndFiresItemCheckAlone) {
  bool markedInside = false;
  When("ItemCheck lstorderbyasc 1",
       [&] { markedInside = checked.Selected(1) && checked.ListIndex() == 1; });
  checked.Selected(1, true);
  EXPECT_TRUE(markedInside);
  EXPECT_EQ(Events(), Texts{"ItemCheck lstorderbyasc 1"});
}

TEST_F(ListBoxTest, ACheckBoxThatDoesNotDifferIsNothingAtAll) {
  checked.Selected(1, true);
  Events();
  checked.Selected(1, true);
  checked.Selected(0, false);
  EXPECT_EQ(checked.ListIndex(), 1);
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(ListBoxTest, ManyCheckBoxesCanBeMarked) {
  checked.Selected(0, true);
  checked.Selected(2, true);
  checked.Selected(0, false);
  EXPECT_EQ(Marks(checked), RowNumbers{2});
  EXPECT_EQ(checked.SelCount(), 1);
  EXPECT_EQ(Events(), (Texts{"ItemCheck lstorderbyasc 0", "ItemCheck lstorderbyasc 2",
                             "ItemCheck lstorderbyasc 0"}));
}

TEST_F(ListBoxTest, TheMarkOfARowThatIsNotThereIsAnIndexError) {
  for (ListBox* list : {&single, &multi, &checked}) {
    EXPECT_EQ(ErrorOf([list] { (void)list->Selected(3); }), "381 index");
    EXPECT_EQ(ErrorOf([list] { (void)list->Selected(-1); }), "381 index");
    EXPECT_EQ(ErrorOf([list] { list->Selected(3, true); }), "381 index");
    EXPECT_EQ(ErrorOf([list] { list->Selected(-1, false); }), "381 index");
  }
}

// Rows that come and go.

TEST_F(ListBoxTest, AddItemAppends) {
  single.AddItem(u"A");
  EXPECT_EQ(Rows(single), (Texts{"a", "b", "c", "A"}));
}

TEST_F(ListBoxTest, SortedInsertsBehindTheLastRowThatIsNotGreater) {
  Fill(form.lstSelectedFields, {"b", "a"});
  form.lstSelectedFields.Selected(1, true);  // the first "b"
  form.lstSelectedFields.AddItem(u"b");
  EXPECT_EQ(Rows(form.lstSelectedFields), (Texts{"a", "b", "b"}));
  EXPECT_EQ(Marks(form.lstSelectedFields), RowNumbers{1});
  EXPECT_EQ(Events(), Texts{"Click lstSelectedFields"});
}

TEST_F(ListBoxTest, SortedComparesByTheUnits) {
  // Capitals stand before small letters; both units of a pair before the last units of the plane.
  Fill(form.lstSelectedFields, {"\uFFFD", "\U0001F600", "\u00E4", "a", "Z", "", "aa", "!"});
  EXPECT_EQ(Rows(form.lstSelectedFields),
            (Texts{"", "!", "Z", "a", "aa", "\u00E4", "\U0001F600", "\uFFFD"}));
}

TEST_F(ListBoxTest, AddingMovesListIndexAndMarksAlongWithTheirRows) {
  Fill(form.lstSelectedFields, {"b", "d"});
  form.lstSelectedFields.Selected(1, true);
  form.lstSelectedFields.Selected(0, true);
  Events();
  form.lstSelectedFields.AddItem(u"c");
  EXPECT_EQ(form.lstSelectedFields.ListIndex(), 0);
  form.lstSelectedFields.AddItem(u"a");
  EXPECT_EQ(form.lstSelectedFields.ListIndex(), 1);
  EXPECT_EQ(Marks(form.lstSelectedFields), (RowNumbers{1, 3}));
}

TEST_F(ListBoxTest, RemoveItemTakesTheRowWithItsMark) {
  multi.Selected(0, true);
  multi.Selected(1, true);
  multi.RemoveItem(1);
  EXPECT_EQ(Rows(multi), (Texts{"a", "c"}));
  EXPECT_EQ(Marks(multi), RowNumbers{0});
  EXPECT_EQ(multi.SelCount(), 1);
  EXPECT_EQ(multi.ListIndex(), -1);
  EXPECT_EQ(Events(), (Texts{"Click lsttables", "Click lsttables"}));
}

TEST_F(ListBoxTest, RemoveItemMovesListIndexAlongWithItsRow) {
  multi.Selected(1, true);
  Events();
  multi.RemoveItem(2);
  EXPECT_EQ(multi.ListIndex(), 1);
  multi.RemoveItem(0);
  EXPECT_EQ(multi.ListIndex(), 0);
  EXPECT_EQ(Marks(multi), RowNumbers{0});
}

TEST_F(ListBoxTest, InASingleSelectionTheMarkFollowsItsRow) {
  single.ListIndex(2);
  single.RemoveItem(0);
  EXPECT_EQ(Marks(single), RowNumbers{1});
  single.RemoveItem(1);
  EXPECT_EQ(single.ListIndex(), -1);
  EXPECT_EQ(single.SelCount(), 0);
  EXPECT_EQ(Events(), Texts{"Click lstFields"});
}

TEST_F(ListBoxTest, RemovingARowThatIsNotThereIsAnArgumentError) {
  EXPECT_EQ(ErrorOf([this] { single.RemoveItem(3); }), "5 argument");
  EXPECT_EQ(ErrorOf([this] { single.RemoveItem(-1); }), "5 argument");
  EXPECT_EQ(ErrorOf([this] { form.lstFunctions.RemoveItem(0); }), "5 argument");
  EXPECT_EQ(single.ListCount(), 3);
}

TEST_F(ListBoxTest, ClearTakesAllRowsAndMarksAndFiresNothing) {
  for (ListBox* list : {&single, &multi, &checked}) {
    list->Selected(1, true);
    Events();
    list->Clear();
    EXPECT_EQ(list->ListCount(), 0);
    EXPECT_EQ(list->ListIndex(), -1);
    EXPECT_EQ(list->SelCount(), 0);
    EXPECT_EQ(Events(), Texts{});
  }
}

TEST_F(ListBoxTest, AddItemsAddsEachInTurn) {
  single.AddItems(std::vector<StringView>{u"x", u"d"});
  EXPECT_EQ(Rows(single), (Texts{"a", "b", "c", "x", "d"}));
  form.lstSelectedFields.AddItems(std::vector<StringView>{u"x", u"d"});
  EXPECT_EQ(Rows(form.lstSelectedFields), (Texts{"d", "x"}));
}

// Many rows at once: the same as one at a time.

class ManyRowsTest : public BareFormTest {
 protected:
  ManyRowsTest() {
    for (int row = 0; row < kRows; ++row)
      list.AddItem(FromAscii(std::to_string(row)));
    for (const int row : {0, 1, 40, 41, 99})
      list.Selected(row, true);
    Events();
  }
  static RowNumbers EverySecondRow() {
    RowNumbers rows;
    for (int row = 0; row < kRows; row += 2)
      rows.push_back(row);
    return rows;
  }
  static constexpr int kRows = 100;
  ListBox& list = form.lsttables;
};

TEST_F(ManyRowsTest, ScatteredRowsGoWithTheirMarks) {
  list.RemoveItems(EverySecondRow());
  EXPECT_EQ(list.ListCount(), 50);
  EXPECT_EQ(list.List(0), u"1");
  EXPECT_EQ(list.List(49), u"99");
  EXPECT_EQ(Marks(list), (RowNumbers{0, 20, 49}));  // 1, 41 and 99
  EXPECT_EQ(list.SelCount(), 3);
}

TEST_F(ManyRowsTest, ListIndexMovesAlongWithItsRowThroughAScatteredRemoval) {
  list.RemoveItems(EverySecondRow());
  EXPECT_EQ(list.List(list.ListIndex()), u"99");
}

TEST_F(ManyRowsTest, ListIndexGoesWithItsRowInAScatteredRemoval) {
  list.ListIndex(40);
  list.RemoveItems(EverySecondRow());
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(Events(), Texts{"Click lsttables"});
}

TEST_F(ManyRowsTest, NoListIndexStaysNoneThroughAScatteredRemoval) {
  list.ListIndex(-1);
  list.RemoveItems(EverySecondRow());
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(Events(), Texts{"Click lsttables"});
}

TEST_F(ManyRowsTest, AFewRunsGoWithTheirMarks) {
  list.RemoveItems(std::vector<int>{1, 2, 40, 98, 99});
  EXPECT_EQ(list.ListCount(), 95);
  EXPECT_EQ(Marks(list), (RowNumbers{0, 38}));  // 0 and 41
  EXPECT_EQ(list.ListIndex(), -1);
}

TEST_F(ManyRowsTest, ARowThatIsNotThereIsAnArgumentErrorBeforeAnyGoes) {
  EXPECT_EQ(ErrorOf([this] { list.RemoveItems(std::vector<int>{3, 100}); }), "5 argument");
  EXPECT_EQ(list.ListCount(), kRows);
}

TEST_F(ManyRowsTest, InASortedListTheAnswersAreThoseOfAWalk) {
  ListBox& sorted = form.lstSelectedFields;
  std::mt19937 random(21);
  const auto word = [&random] {
    String text;
    for (auto length = random() % 5; length > 0; --length)
      text += static_cast<char16_t>(u'a' + random() % 3);
    return text;
  };
  std::vector<String> expected;
  for (int step = 0; step < 5000; ++step) {
    const String text = word();
    if (random() % 3 != 0) {
      sorted.AddItem(text);
      expected.insert(std::upper_bound(expected.begin(), expected.end(), text), text);
    } else if (!expected.empty() && expected.size() > random() % 300) {
      const auto row = random() % expected.size();
      sorted.RemoveItem(static_cast<int>(row));
      expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(row));
    }
    const String other = word();
    int last = -1;
    RowNumbers starting;
    ASSERT_EQ(sorted.ListCount(), static_cast<int>(expected.size()));
    for (int row = 0; row < sorted.ListCount(); ++row) {
      ASSERT_EQ(sorted.List(row), expected[static_cast<std::size_t>(row)]) << "step " << step;
      if (sorted.List(row) == other) last = row;
      if (Left(sorted.List(row), 3) == Left(other, 3)) starting.push_back(row);
    }
    ASSERT_EQ(sorted.LastRowOf(other), last) << "step " << step;
    ASSERT_EQ(sorted.RowsStarting(Left(other, 3), 3), starting) << "step " << step;
  }
}

TEST_F(ManyRowsTest, RowsAreTakenByWhatTheirTextHolds) {
  list.RemoveWhere([](StringView text) { return text.size() < 2; });
  EXPECT_EQ(list.ListCount(), 90);
  EXPECT_EQ(list.List(0), u"10");
}

TEST_F(ManyRowsTest, TheLastRowOfATextIsFoundInBothKindsOfOrder) {
  list.AddItem(u"7");
  EXPECT_EQ(list.LastRowOf(u"7"), 100);
  EXPECT_EQ(list.LastRowOf(u"x"), -1);
  Fill(form.lstSelectedFields, {"b", "a", "b", "c"});
  EXPECT_EQ(form.lstSelectedFields.LastRowOf(u"b"), 2);
  EXPECT_EQ(form.lstSelectedFields.LastRowOf(u"bb"), -1);
}

TEST_F(ManyRowsTest, TheEmptyTextIsFoundInARowOfItsOwnAlone) {
  EXPECT_EQ(list.LastRowOf(u""), -1);
  list.AddItem(u"");
  EXPECT_EQ(list.LastRowOf(u""), 100);
}

// Rows by their start, and two lists at once.

TEST_F(ListBoxTest, OfASortedListTheRowsOfAStartAreFound) {
  ListBox& sorted = form.lstSelectedFields;
  Fill(sorted, {"AB", "ABC.1", "ABC.2", "ABD", "B"});
  EXPECT_EQ(sorted.RowsStarting(u"ABC", 3), (RowNumbers{1, 2}));
  EXPECT_EQ(sorted.RowsStarting(u"AB", 3), RowNumbers{0});
  EXPECT_EQ(sorted.RowsStarting(u"AB", 2), (RowNumbers{0, 1, 2, 3}));
  EXPECT_EQ(sorted.RowsStarting(u"B", 3), RowNumbers{4});
  EXPECT_EQ(sorted.RowsStarting(u"ABCD", 4), RowNumbers{});
  EXPECT_EQ(sorted.RowsStarting(u"C", 3), RowNumbers{});
  EXPECT_EQ(sorted.RowsStarting(u"", 3), RowNumbers{});
  EXPECT_EQ(sorted.RowsStarting(u"", 0), (RowNumbers{0, 1, 2, 3, 4}));
}

TEST_F(ListBoxTest, AnEmptySortedListHasNoRowOfAnyStart) {
  EXPECT_EQ(form.lstSelectedFields.RowsStarting(u"", 0), RowNumbers{});
}

TEST_F(ListBoxTest, TwoListsTakeTheSameTexts) {
  const std::vector<RowText> texts{RowText(u"x"), RowText(u"y")};
  RowsControl::AddTextsToBoth(single, checked, texts);
  for (const ListBox* list : {&single, &checked})
    EXPECT_EQ(Rows(*list), (Texts{"a", "b", "c", "x", "y"}));
}

TEST_F(ListBoxTest, TwoListsLoseTheSameRows) {
  RowsControl::RemoveItemsFromBoth(single, checked, RowNumbers{0, 2});
  for (const ListBox* list : {&single, &checked})
    EXPECT_EQ(Rows(*list), Texts{"b"});
  RowsControl::RemoveItemsFromBoth(single, checked, {});
  EXPECT_EQ(single.ListCount(), 1);
}

TEST_F(ListBoxTest, WhenTheSecondListLacksARowTheFirstHasLostIts) {
  checked.RemoveItem(2);
  EXPECT_EQ(ErrorOf([this] {
              RowsControl::RemoveItemsFromBoth(single, checked, RowNumbers{1, 2});
            }),
            "5 argument");
  EXPECT_EQ(Rows(single), Texts{"a"});
  EXPECT_EQ(Rows(checked), (Texts{"a", "b"}));
}

}  // namespace
}  // namespace zolt20::tests
