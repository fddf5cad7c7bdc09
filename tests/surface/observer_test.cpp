#include "surface/observer.h"

#include <array>

#include "tests/support/silent.h"
#include "tests/surface/bare_form.h"

namespace zolt20::tests {
namespace {

// Keeps the notices, each with what the surface holds at that moment where that counts.
class RecordingObserver final : public SurfaceObserver {
 public:
  RecordingObserver(const Surface& surface, Texts& log) : surface_(surface), log_(log) {}

  void ControlChanged(const Control& control, Property property) noexcept override {
    constexpr std::array<const char*, 12> kNames{"Enabled",   "Visible",   "Text",      "SelStart",
                                                 "BackColor", "Caption",   "Value",     "Max",
                                                 "Tab",       "ListIndex", "Highlight", "Place"};
    Add(std::string(kNames.at(static_cast<std::size_t>(property))) + " of " + Name(&control));
  }
  void RowsAboutToChange(const Control& list, const RowChange& change) noexcept override {
    Add("about to " + Told(list, change));
  }
  void RowsChanged(const Control& list, const RowChange& change) noexcept override {
    Add("done " + Told(list, change));
  }
  void MarksChanged(const Control& list, int first, int count) noexcept override {
    Add("marks " + std::to_string(first) + "+" + std::to_string(count) + " of " + Name(&list));
  }
  void FocusChanged(const Control* control) noexcept override { Add("focus on " + Name(control)); }
  void TabOrderChanged(int first, int last) noexcept override {
    Add("tab order " + std::to_string(first) + " to " + std::to_string(last));
  }
  void ElementLoaded(const Control& element) noexcept override {
    Add("loaded " + Name(&element) +
        (surface_.Find(element.name()) == &element ? "" : " too early"));
  }
  void ElementUnloading(const Control& element) noexcept override {
    bool ordered = false;
    for (const Control* control : surface_.TabOrder())
      ordered = ordered || control == &element;
    Add("unloading " + Name(&element) +
        (ordered || surface_.Focused() == &element ? " too early" : ""));
  }
  void StateReplaced() noexcept override { Add("state replaced"); }

 private:
  static std::string Name(const Control* control) {
    return control == nullptr ? "nothing" : std::string(control->name());
  }
  // "insert 2+1 with 3 in lstFields" before, "insert 2+1 with 4 in lstFields" behind.
  static std::string Told(const Control& list, const RowChange& change) {
    constexpr std::array<const char*, 3> kVerbs{"insert ", "remove ", "replace "};
    return kVerbs.at(static_cast<std::size_t>(change.what)) + std::to_string(change.first) + "+" +
           std::to_string(change.count) + " with " +
           std::to_string(dynamic_cast<const RowsControl&>(list).ListCount()) + " in " +
           Name(&list);
  }
  void Add(const std::string& notice) { log_.push_back("- " + notice); }

  const Surface& surface_;
  Texts& log_;
};

// Events and notices, which begin with a dash, come in one log.
class ObserverTest : public BareFormTest {
 protected:
  ObserverTest() {
    for (RowsControl* list :
         std::initializer_list<RowsControl*>{&form.lstFields, &form.lsttables, &form.lstorderbyasc,
                                             &form.cboOper, &form.cboWhereFields1}) {
      Fill(*list, {"a", "b", "c"});
    }
    form.AddObserver(observer);
  }
  ~ObserverTest() override { form.RemoveObserver(observer); }

  RecordingObserver observer{form, form.events};
};

TEST_F(ObserverTest, ATextIsToldBeforeItsChange) {
  form.txtAsSet.Text(u"10");
  EXPECT_EQ(Events(), (Texts{"- Text of txtAsSet", "Change txtAsSet"}));
}

TEST_F(ObserverTest, ACaretThatGoesToTheStartIsToldBeforeChangeToo) {
  form.txtAsSet.Text(u"10");
  form.txtAsSet.SelStart(1);
  EXPECT_EQ(Events(), (Texts{"- Text of txtAsSet", "Change txtAsSet", "- SelStart of txtAsSet"}));
  form.txtAsSet.Text(u"20");
  EXPECT_EQ(Events(), (Texts{"- Text of txtAsSet", "- SelStart of txtAsSet", "Change txtAsSet"}));
}

TEST_F(ObserverTest, AWriteThatChangesNothingIsNotTold) {
  form.txtAsSet.Text(u"");
  form.txtAsSet.SelStart(0);
  form.TxtOutput.Text(u"");
  form.TxtOutput.Highlight(false);
  form.cboWhereFields1.Text(u"");
  form.cboWhereFields1.BackColor(0xFFFFFF);
  form.cmdDone.Caption(u"Done");
  form.cmdDone.Enabled(true);
  form.cmdDone.Visible(true);
  form.cmdDone.TabIndex(form.cmdDone.TabIndex());
  form.TxtExpr(0).Top(120);
  form.VscrCase.Max(0);
  form.tabVrn.Tab(0);
  form.optFor.Value(false);
  form.lstGroupby.Clear();
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(ObserverTest, PlainPropertiesAreTold) {
  form.TxtOutput.Text(u"x");
  form.TxtOutput.Highlight(true);
  form.cboWhereFields1.Text(u"x");
  form.cboWhereFields1.BackColor(0x80000003);
  form.cmdDone.Caption(u"x");
  form.cmdDone.Enabled(false);
  form.cmdDone.Visible(false);
  form.TxtExpr(0).Top(1);
  form.TxtExpr(0).Left(1);
  EXPECT_EQ(Events(),
            (Texts{"- Text of TxtOutput", "- Highlight of TxtOutput", "- Text of cboWhereFields1",
                   "- BackColor of cboWhereFields1", "- Caption of cmdDone", "- Enabled of cmdDone",
                   "- Visible of cmdDone", "- Place of TxtExpr(0)", "- Place of TxtExpr(0)"}));
}

TEST_F(ObserverTest, AnAddedRowIsToldBeforeAndBehind) {
  form.lstFields.AddItem(u"d");
  EXPECT_EQ(Events(), (Texts{"- about to insert 3+1 with 3 in lstFields",
                             "- done insert 3+1 with 4 in lstFields"}));
}

TEST_F(ObserverTest, ASortedRowIsToldAtItsPlaceAndListIndexBehindIt) {
  form.cboOper.ListIndex(1);
  Events();
  form.cboOper.AddItem(u"aa");
  EXPECT_EQ(Events(), (Texts{"- about to insert 1+1 with 3 in cboOper",
                             "- done insert 1+1 with 4 in cboOper", "- ListIndex of cboOper"}));
}

TEST_F(ObserverTest, ManyAddedRowsAreToldAtOnce) {
  form.lstFields.AddItems(std::vector<StringView>{u"x", u"y", u"z"});
  form.lstFields.AddItems({});
  EXPECT_EQ(Events(), (Texts{"- about to insert 3+3 with 3 in lstFields",
                             "- done insert 3+3 with 6 in lstFields"}));
}

TEST_F(ObserverTest, ARemovedRowIsToldBeforeAndBehind) {
  form.lsttables.RemoveItem(1);
  EXPECT_EQ(Events(), (Texts{"- about to remove 1+1 with 3 in lsttables",
                             "- done remove 1+1 with 2 in lsttables"}));
}

TEST_F(ObserverTest, ClearIsToldAsOneRemoval) {
  form.lstFields.ListIndex(1);
  Events();
  form.lstFields.Clear();
  EXPECT_EQ(Events(), (Texts{"- about to remove 0+3 with 3 in lstFields",
                             "- done remove 0+3 with 0 in lstFields", "- ListIndex of lstFields"}));
}

TEST_F(ObserverTest, AnEntryThatGoesTakesListIndexAndTextOfItsCombo) {
  form.cboOper.ListIndex(1);
  Events();
  form.cboOper.RemoveItem(1);
  EXPECT_EQ(Events(),
            (Texts{"- about to remove 1+1 with 3 in cboOper", "- done remove 1+1 with 2 in cboOper",
                   "- ListIndex of cboOper", "- Text of cboOper"}));
}

TEST_F(ObserverTest, RemovedRunsAreEachToldInAPair) {
  form.lsttables.RemoveItems(std::vector<int>{0, 2});
  EXPECT_EQ(Events(), (Texts{"- about to remove 2+1 with 3 in lsttables",
                             "- done remove 2+1 with 2 in lsttables",
                             "- about to remove 0+1 with 2 in lsttables",
                             "- done remove 0+1 with 1 in lsttables"}));
}

TEST_F(ObserverTest, NeighbouringRowsGoInOneRun) {
  form.lsttables.RemoveItems(std::vector<int>{1, 2});
  EXPECT_EQ(Events(), (Texts{"- about to remove 1+2 with 3 in lsttables",
                             "- done remove 1+2 with 1 in lsttables"}));
}

TEST_F(ObserverTest, WidelyScatteredRowsAreToldAsReplaced) {
  RowNumbers everySecond;
  for (int row = 3; row < 103; ++row) {
    form.lsttables.AddItem(u"x");
    if (row % 2 == 0) everySecond.push_back(row);
  }
  form.lsttables.Selected(101, true);
  Events();
  form.lsttables.RemoveItems(everySecond);
  EXPECT_EQ(Events(),
            (Texts{"- about to replace 0+103 with 103 in lsttables",
                   "- done replace 0+103 with 53 in lsttables", "- ListIndex of lsttables"}));
  EXPECT_EQ(form.lsttables.ListIndex(), 52);
}

TEST_F(ObserverTest, InASingleSelectionBothMarksAndListIndexAreToldBeforeTheClick) {
  form.lstFields.ListIndex(0);
  EXPECT_EQ(Events(),
            (Texts{"- marks 0+1 of lstFields", "- ListIndex of lstFields", "Click lstFields"}));
  form.lstFields.ListIndex(2);
  EXPECT_EQ(Events(), (Texts{"- marks 0+1 of lstFields", "- marks 2+1 of lstFields",
                             "- ListIndex of lstFields", "Click lstFields"}));
  form.lstFields.ListIndex(2);
  EXPECT_EQ(Events(), Texts{"Click lstFields"});
}

TEST_F(ObserverTest, AMarkIsToldBeforeClickAndItemCheck) {
  form.lsttables.Selected(1, true);
  EXPECT_EQ(Events(),
            (Texts{"- marks 1+1 of lsttables", "- ListIndex of lsttables", "Click lsttables"}));
  form.lstorderbyasc.Selected(1, true);
  EXPECT_EQ(Events(), (Texts{"- marks 1+1 of lstorderbyasc", "- ListIndex of lstorderbyasc",
                             "ItemCheck lstorderbyasc 1"}));
}

TEST_F(ObserverTest, AnEntryIsToldWithItsTextBeforeTheClick) {
  form.cboOper.ListIndex(2);
  EXPECT_EQ(Events(), (Texts{"- ListIndex of cboOper", "- Text of cboOper", "Click cboOper"}));
}

TEST_F(ObserverTest, TheFocusIsToldBeforeGotFocus) {
  form.lsttables.SetFocus();
  EXPECT_EQ(Events(), (Texts{"- focus on lsttables", "GotFocus lsttables"}));
}

TEST_F(ObserverTest, ALostFocusIsToldBehindItsCause) {
  form.lsttables.SetFocus();
  Events();
  form.lsttables.Enabled(false);
  EXPECT_EQ(Events(), (Texts{"- Enabled of lsttables", "- focus on nothing"}));
}

TEST_F(ObserverTest, APageAndTheFocusLostWithItAreToldBeforeTheClick) {
  form.lsttables.SetFocus();
  Events();
  form.tabVrn.Tab(1);
  EXPECT_EQ(Events(), (Texts{"- Tab of tabVrn", "- focus on nothing", "Click tabVrn 0"}));
}

TEST_F(ObserverTest, OptionsThatBecomeFalseAreToldBeforeTheClick) {
  form.optFor.Value(true);
  Events();
  form.optCase.Value(true);
  EXPECT_EQ(Events(), (Texts{"- Value of optFor", "- Value of optCase", "Click optCase"}));
}

TEST_F(ObserverTest, AMaxIsToldBeforeTheValueThatItLowers) {
  form.VscrCase.Max(3);
  form.VscrCase.Value(3);
  EXPECT_EQ(Events(), (Texts{"- Max of VscrCase", "- Value of VscrCase", "Change VscrCase"}));
  form.VscrCase.Max(1);
  EXPECT_EQ(Events(), (Texts{"- Max of VscrCase", "- Value of VscrCase", "Change VscrCase"}));
}

TEST_F(ObserverTest, TheTabOrderIsToldFromTheOldToTheNewPlace) {
  form.cmdDone.TabIndex(1);
  EXPECT_EQ(Events(), Texts{"- tab order 1 to 5"});
  form.cmdDone.TabIndex(5);
  EXPECT_EQ(Events(), Texts{"- tab order 1 to 5"});
  const int last = static_cast<int>(form.TabOrder().size()) - 1;
  form.cmdDone.TabIndex(32767);
  EXPECT_EQ(Events(), Texts{"- tab order 5 to " + std::to_string(last)});
}

// Looks, at each notice of the tab order, whether the controls know their places already.
class PlaceReader final : public SilentObserver {
 public:
  explicit PlaceReader(const Surface& surface) : surface_(surface) {}

  void TabOrderChanged(int first, int last) noexcept override {
    const auto order = surface_.TabOrder();
    for (int place = first; place <= last && place < static_cast<int>(order.size()); ++place)
      EXPECT_EQ(order[static_cast<std::size_t>(place)]->TabIndex(), place);
    ++notices;
  }

  int notices = 0;

 private:
  const Surface& surface_;
};

TEST_F(ObserverTest, TheControlsKnowTheirPlacesWhenTheTabOrderIsTold) {
  PlaceReader reader(form);
  form.AddObserver(reader);
  form.cmdDone.TabIndex(1);
  form.TxtExpr.Load(1);
  form.TxtExpr(1).TabIndex(4);
  form.TxtExpr.Unload(1);
  form.RemoveObserver(reader);
  EXPECT_EQ(reader.notices, 4);
  Events();
}

TEST_F(ObserverTest, ALoadedElementIsToldWhenItIsThereAndThenItsPlace) {
  const std::string place = std::to_string(form.TabOrder().size());
  form.TxtExpr.Load(1);
  EXPECT_EQ(Events(), (Texts{"- loaded TxtExpr(1)", "- tab order " + place + " to " + place}));
}

TEST_F(ObserverTest, AnUnloadedElementHasNoFocusAndNoPlaceAnyMoreWhenItIsTold) {
  form.tabVrn.Tab(6);
  form.fraOnCase.Visible(true);
  form.TxtExpr.Load(1);
  form.TxtExpr(1).Visible(true);
  form.TxtExpr(1).TabIndex(4);
  form.TxtExpr(1).SetFocus();
  Events();
  const std::string last = std::to_string(form.TabOrder().size() - 1);
  form.TxtExpr.Unload(1);
  EXPECT_EQ(Events(),
            (Texts{"- focus on nothing", "- tab order 4 to " + last, "- unloading TxtExpr(1)"}));
}

TEST_F(ObserverTest, ARefusedWriteIsNotTold) {
  EXPECT_EQ(ErrorOf([this] { form.lsttables.ListIndex(3); }), "380 value");
  EXPECT_EQ(ErrorOf([this] { form.lsttables.RemoveItem(3); }), "5 argument");
  EXPECT_EQ(ErrorOf([this] { form.lsttables.Selected(3, true); }), "381 index");
  EXPECT_EQ(ErrorOf([this] { form.cmdDone.TabIndex(-1); }), "380 value");
  EXPECT_EQ(ErrorOf([this] { form.TxtExpr.Load(0); }), "360 loaded");
  EXPECT_EQ(ErrorOf([this] { form.lblResult.SetFocus(); }), "5 argument");
  EXPECT_EQ(Events(), Texts{});
}

TEST_F(ObserverTest, AGestureIsToldLikeTheWritesThatItMakes) {
  form.UserClick(form.lsttables, 1);
  EXPECT_EQ(Events(),
            (Texts{"- focus on lsttables", "GotFocus lsttables", "- marks 1+1 of lsttables",
                   "- ListIndex of lsttables", "Click lsttables"}));
}

TEST_F(ObserverTest, EveryObserverIsToldUntilItLeaves) {
  Texts seen;
  RecordingObserver second(form, seen);
  form.AddObserver(second);
  form.cmdDone.Caption(u"x");
  form.RemoveObserver(second);
  form.cmdDone.Caption(u"y");
  EXPECT_EQ(seen, Texts{"- Caption of cmdDone"});
  EXPECT_EQ(Events(), (Texts{"- Caption of cmdDone", "- Caption of cmdDone"}));
}

TEST_F(ObserverTest, AStatePutBackIsToldOnceAndFiresNothing) {
  const SurfaceState before = form.Save();
  form.txtAsSet.Text(u"10");
  form.lsttables.Selected(1, true);
  Events();
  form.Restore(before);
  EXPECT_EQ(Events(), Texts{"- state replaced"});
}

}  // namespace
}  // namespace zolt20::tests
