#include "tests/surface/bare_form.h"

namespace zolt20::tests {
namespace {

class ComboBoxTest : public BareFormTest {
 protected:
  ComboBoxTest() {
    Fill(pickOnly, {"a", "b", "c"});
    Fill(editable, {"a", "b", "c"});
  }
  ComboBox& pickOnly = form.cboWhereFields;
  ComboBox& editable = form.cboWhereFields1;
};

TEST_F(ComboBoxTest, HasNoEntrySelectedAtFirst) {
  EXPECT_EQ(pickOnly.ListIndex(), -1);
  EXPECT_EQ(pickOnly.Text(), u"");
  EXPECT_EQ(pickOnly.ListCount(), 3);
  EXPECT_EQ(pickOnly.List(2), u"c");
  EXPECT_EQ(pickOnly.List(3), u"");
  EXPECT_EQ(pickOnly.List(-1), u"");
}

TEST_F(ComboBoxTest, AListIndexThatDiffersSetsTextAndClicksAtOnce) {
  String textInside;
  When("Click cboWhereFields", [&] { textInside = pickOnly.Text(); });
  pickOnly.ListIndex(1);
  EXPECT_EQ(textInside, u"b");
  EXPECT_EQ(Events(), Texts{"Click cboWhereFields"});
}

TEST_F(ComboBoxTest, AListIndexThatDoesNotDifferFiresNothing) {
  pickOnly.ListIndex(-1);
  EXPECT_EQ(Events(), Texts{});
  pickOnly.ListIndex(1);
  Events();
  pickOnly.ListIndex(1);
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(ComboBoxTest, MinusOneOverAnEntryEmptiesTextAndClicks) {
  for (ComboBox* combo : {&pickOnly, &editable}) {
    combo->ListIndex(0);
    combo->ListIndex(-1);
    EXPECT_EQ(combo->Text(), u"");
  }
  EXPECT_EQ(Events(), (Texts{"Click cboWhereFields", "Click cboWhereFields",
                             "Click cboWhereFields1", "Click cboWhereFields1"}));
}

TEST_F(ComboBoxTest, MinusOneOverMinusOneEmptiesWhatWasTypedAndFiresNothing) {
  editable.Text(u"42");
  editable.ListIndex(-1);
  EXPECT_EQ(editable.Text(), u"");
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(ComboBoxTest, WritingTextTakesTheSelectionAwayAndFiresNothing) {
  editable.ListIndex(1);
  Events();
  editable.Text(u"b");
  EXPECT_EQ(editable.ListIndex(), -1);
  EXPECT_EQ(editable.Text(), u"b");
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(ComboBoxTest, AnEntrySelectedOverATypedTextReplacesIt) {
  editable.Text(u"42");
  editable.ListIndex(2);
  EXPECT_EQ(editable.Text(), u"c");
  EXPECT_EQ(Events(), Texts{"Click cboWhereFields1"});
}

TEST_F(ComboBoxTest, AListIndexOutOfRangeIsAValueErrorThatChangesNothing) {
  pickOnly.ListIndex(1);
  EXPECT_EQ(ErrorOf([this] { pickOnly.ListIndex(3); }), "380 value");
  EXPECT_EQ(ErrorOf([this] { pickOnly.ListIndex(-2); }), "380 value");
  EXPECT_EQ(pickOnly.ListIndex(), 1);
  EXPECT_EQ(Events(), Texts{"Click cboWhereFields"});
}

TEST_F(ComboBoxTest, SortedKeepsTheSelectionOnItsEntry) {
  Fill(form.cboOper, {"=", "<>"});
  form.cboOper.ListIndex(1);
  Events();
  form.cboOper.AddItem(u"!=");
  form.cboOper.AddItem(u">");
  EXPECT_EQ(Rows(form.cboOper), (Texts{"!=", "<>", "=", ">"}));
  EXPECT_EQ(form.cboOper.ListIndex(), 2);
  EXPECT_EQ(form.cboOper.Text(), u"=");
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(ComboBoxTest, RemovingAnotherEntryKeepsTheSelection) {
  pickOnly.ListIndex(1);
  Events();
  pickOnly.RemoveItem(0);
  pickOnly.RemoveItem(1);
  EXPECT_EQ(pickOnly.ListIndex(), 0);
  EXPECT_EQ(pickOnly.Text(), u"b");
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(ComboBoxTest, RemovingTheSelectedEntryEmptiesTextAndFiresNothing) {
  for (ComboBox* combo : {&pickOnly, &editable}) {
    combo->ListIndex(1);
    Events();
    combo->RemoveItem(1);
    EXPECT_EQ(combo->ListIndex(), -1);
    EXPECT_EQ(combo->Text(), u"");
    EXPECT_EQ(Events(), Texts{});
  }
}

TEST_F(ComboBoxTest, ATypedTextStaysWhenEntriesComeAndGo) {
  editable.Text(u"42");
  editable.RemoveItem(0);
  editable.AddItem(u"42");
  EXPECT_EQ(editable.Text(), u"42");
  EXPECT_EQ(editable.ListIndex(), -1);
}

TEST_F(ComboBoxTest, ClearTakesTheSelectedEntryToo) {
  pickOnly.ListIndex(2);
  Events();
  pickOnly.Clear();
  EXPECT_EQ(pickOnly.ListCount(), 0);
  EXPECT_EQ(pickOnly.ListIndex(), -1);
  EXPECT_EQ(pickOnly.Text(), u"");
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(ComboBoxTest, RemovingAnEntryThatIsNotThereIsAnArgumentError) {
  EXPECT_EQ(ErrorOf([this] { pickOnly.RemoveItem(3); }), "5 argument");
  EXPECT_EQ(ErrorOf([this] { pickOnly.RemoveItem(-1); }), "5 argument");
}

TEST_F(ComboBoxTest, AScatteredRemovalKeepsOrEndsTheSelection) {
  pickOnly.Clear();
  RowNumbers everySecond;
  for (int row = 0; row < 100; ++row) {
    pickOnly.AddItem(FromAscii(std::to_string(row)));
    if (row % 2 == 0) everySecond.push_back(row);
  }
  pickOnly.ListIndex(51);
  pickOnly.RemoveItems(everySecond);
  EXPECT_EQ(pickOnly.ListIndex(), 25);
  EXPECT_EQ(pickOnly.Text(), u"51");
  everySecond.resize(25);  // to be rows 1, 3 to 49, the entry among them
  for (int& row : everySecond)
    row += 1;
  pickOnly.RemoveItems(everySecond);
  EXPECT_EQ(pickOnly.ListIndex(), -1);
  EXPECT_EQ(pickOnly.Text(), u"");
  EXPECT_EQ(Events(), Texts{"Click cboWhereFields"});
}

TEST_F(ComboBoxTest, BackColorIsAPlainNumberWhiteAtFirst) {
  EXPECT_EQ(editable.BackColor(), 0xFFFFFFU);
  editable.BackColor(0x80000003);
  EXPECT_EQ(editable.BackColor(), 0x80000003U);
  EXPECT_EQ(form.txtCondition.BackColor(), 0x8000000EU);
  EXPECT_EQ(form.txtwhereCondition.BackColor(), 0xFFFFFFU);
}

}  // namespace
}  // namespace zolt20::tests
