#include "surface/form.h"

#include <array>
#include <map>
#include <set>

#include "tests/surface/bare_form.h"

namespace zolt20::tests {
namespace {

enum State { kReady, kDisabledAtFirst, kHiddenAtFirst };

struct Row {
  std::string_view name;
  Kind kind;
  int page;
  std::string_view frame;  // "" for none
  std::string_view caption;
  unsigned style;
  State state;  // of a control that was just created
};

// Every control of the form, in the first tab order; the rectangle, which has no place in it,
// behind the box that it follows on its page.
// clang-format off
constexpr Row kRows[] = {
    {"tabVrn", Kind::TabStrip, kEveryPage, "", "", kPlain, kReady},
    {"lblResult", Kind::Label, kEveryPage, "", "Result ", kPlain, kReady},
    {"TxtOutput", Kind::SyntaxTextBox, kEveryPage, "", "", kMultiLine, kReady},
    {"cmdClear", Kind::Button, kEveryPage, "", "Clear", kPlain, kReady},
    {"cmdCancel", Kind::Button, kEveryPage, "", "Cancel", kPlain, kReady},
    {"cmdDone", Kind::Button, kEveryPage, "", "Done", kPlain, kReady},
    {"lsttables", Kind::ListBox, 0, "", "", kMultiSelect, kReady},
    {"lstFunctions", Kind::ListBox, 0, "", "", kPlain, kReady},
    {"lstFields", Kind::ListBox, 0, "", "", kPlain, kReady},
    {"cmdMoveOne", Kind::Button, 0, "", ">", kPlain, kReady},
    {"cmdMoveAll", Kind::Button, 0, "", ">>", kPlain, kReady},
    {"cmdRemoveOne", Kind::Button, 0, "", "<", kPlain, kReady},
    {"cmdRemoveAll", Kind::Button, 0, "", "<<", kPlain, kReady},
    {"lstSelectedFields", Kind::ListBox, 0, "", "", kMultiSelect | kSorted, kReady},
    {"lstGroupby", Kind::ListBox, 0, "", "", kMultiSelect, kReady},
    {"cmdAddSelect", Kind::Button, 0, "", "Add To Result", kPlain, kReady},
    {"Label1", Kind::Label, 0, "", "Tables", kPlain, kReady},
    {"Label4", Kind::Label, 0, "", "Functions", kPlain, kReady},
    {"Label3", Kind::Label, 0, "", "Fields", kPlain, kReady},
    {"Label2", Kind::Label, 0, "", "Selected fields", kPlain, kReady},
    {"Label5", Kind::Label, 0, "", "Group By", kPlain, kReady},
    {"Label41", Kind::Label, 0, "", "1.   Use this tab to build a Select statement", kPlain, kReady},
    {"Label9", Kind::Label, 0, "", "2.   Mark the Table(s) to see corresponding Fields.", kPlain, kReady},
    {"Label10", Kind::Label, 0, "", "3.   Click to Mark  a function or a field. Click \">\" to Copy Marked Fields to \"Selected Fields\"", kPlain, kReady},
    {"Label11", Kind::Label, 0, "", "4.   Double Click to deselect a function or a field.Click \"<\" to remove fields from \"Seleceted Fields\"", kPlain, kReady},
    {"Label42", Kind::Label, 0, "", "5.   Click \"Add to Result\" to create and add the select clause to \"Result\"", kPlain, kReady},
    {"lstorderbyasc", Kind::ListBox, 1, "", "", kCheckBoxes, kReady},
    {"lstorderbydesc", Kind::ListBox, 1, "", "", kCheckBoxes, kReady},
    {"cboWhereFields", Kind::ComboBox, 1, "", "", kPickOnly, kReady},
    {"cboOper", Kind::ComboBox, 1, "", "", kSorted | kPickOnly, kReady},
    {"cboWhereFields1", Kind::ComboBox, 1, "", "", kEditable, kReady},
    {"FrawhereCondition", Kind::Frame, 1, "", "", kNoBorder, kReady},
    {"txtwhereCondition", Kind::TextBox, 1, "FrawhereCondition", "", kMultiLine, kReady},
    {"FraCondition", Kind::Frame, 1, "", "", kNoBorder, kReady},
    {"txtCondition", Kind::TextBox, 1, "FraCondition", "", kMultiLine, kReady},
    {"cmdAnd", Kind::Button, 1, "", "Apply as AND", kPlain, kReady},
    {"CmdOr", Kind::Button, 1, "", "Apply as OR", kPlain, kReady},
    {"cmdCancelWhere", Kind::Button, 1, "", "Cancel", kPlain, kReady},
    {"cmdAddWhereQuery", Kind::Button, 1, "", "Add To Result", kPlain, kDisabledAtFirst},
    {"txtAsSet", Kind::TextBox, 1, "", "", kPlain, kReady},
    {"Shape1", Kind::Rectangle, 1, "", "", kPlain, kReady},
    {"Label13", Kind::Label, 1, "", "Order", kPlain, kReady},
    {"lblorderbyasc", Kind::Label, 1, "", "By Asc", kPlain, kReady},
    {"lblOrderbyDesc", Kind::Label, 1, "", "By Desc", kPlain, kReady},
    {"Label6", Kind::Label, 1, "", "Operand1", kPlain, kReady},
    {"Label7", Kind::Label, 1, "", "Operator", kPlain, kReady},
    {"Label8", Kind::Label, 1, "", "Value", kPlain, kReady},
    {"lblAsset", Kind::Label, 1, "", "As set with", kPlain, kReady},
    {"Label12", Kind::Label, 1, "", "rows", kPlain, kReady},
    {"Label20", Kind::Label, 1, "", "1.   Select Operand 1, Operator  .", kPlain, kReady},
    {"Label21", Kind::Label, 1, "", "2.   Assign Value.", kPlain, kReady},
    {"Label22", Kind::Label, 1, "", "3.   Click \"Apply as AND\" or \"Apply as OR\" to add the condition to where part.", kPlain, kReady},
    {"Label23", Kind::Label, 1, "", "4.   Click \"Clear\" or \"Cancel\" to clear the where condition.", kPlain, kReady},
    {"Label24", Kind::Label, 1, "", "5.   Click \"Add To Result\" to add where condition to Result.", kPlain, kReady},
    {"txtSelectDo", Kind::SyntaxTextBox, 2, "", "", kMultiLine, kReady},
    {"cmdFunction(0)", Kind::Button, 2, "", "Function", kPlain, kReady},
    {"cmdCondition(0)", Kind::Button, 2, "", "Condition", kPlain, kReady},
    {"cmdSubQuery(0)", Kind::Button, 2, "", "Sub Query", kPlain, kReady},
    {"cmdAddSelectDoQuer", Kind::Button, 2, "", "Add To Result", kPlain, kReady},
    {"txtSelectEOS", Kind::SyntaxTextBox, 3, "", "", kMultiLine, kReady},
    {"cmdFunction(1)", Kind::Button, 3, "", "Function", kPlain, kReady},
    {"cmdCondition(1)", Kind::Button, 3, "", "Condition", kPlain, kReady},
    {"cmdSubQuery(1)", Kind::Button, 3, "", "Sub Query", kPlain, kReady},
    {"cmdAddSEOStoquery", Kind::Button, 3, "", "Add To Result", kPlain, kReady},
    {"txtselectempty", Kind::SyntaxTextBox, 4, "", "", kMultiLine, kReady},
    {"cmdFunction(2)", Kind::Button, 4, "", "Function", kPlain, kReady},
    {"cmdCondition(2)", Kind::Button, 4, "", "Condition", kPlain, kReady},
    {"cmdSubQuery(2)", Kind::Button, 4, "", "Sub Query", kPlain, kReady},
    {"cmdSelectmpty", Kind::Button, 4, "", "Add To Result", kPlain, kReady},
    {"txtSelectError", Kind::SyntaxTextBox, 5, "", "", kMultiLine, kReady},
    {"cmdFunction(3)", Kind::Button, 5, "", "Function", kPlain, kReady},
    {"cmdCondition(3)", Kind::Button, 5, "", "Condition", kPlain, kReady},
    {"cmdSubQuery(3)", Kind::Button, 5, "", "Sub Query", kPlain, kReady},
    {"cmdAddtoSERROR", Kind::Button, 5, "", "Add To Result", kPlain, kReady},
    {"Label27", Kind::Label, 2, "", "1.   Use \"SelectDo\" tab to specify the operations on all selected records", kPlain, kReady},
    {"Label26", Kind::Label, 2, "", "2.   Click \"Sub Query\" to add a Query to \"Selectdo\"", kPlain, kReady},
    {"Label28", Kind::Label, 2, "", "3.   Click \"Condition\" to add a Condition to \"Selectdo\"", kPlain, kReady},
    {"Label25", Kind::Label, 2, "", "4.   Click \"Add To Result\" to add \"SelectDo\" to Result", kPlain, kReady},
    {"Label31", Kind::Label, 3, "", "1.   Use \"SelectEOS\" tab to specify the operation(s) after last selected record", kPlain, kReady},
    {"Label30", Kind::Label, 3, "", "2.   Click \"Sub Query\" to add a Query to \"SelectEOS\"", kPlain, kReady},
    {"Label32", Kind::Label, 3, "", "3.   Click \"Condition\" to add a Condition to \"SelectEOS\"", kPlain, kReady},
    {"Label29", Kind::Label, 3, "", "4.   Click \"Add To Result\" to add \"SelectEOS\"  to Result", kPlain, kReady},
    {"Label35", Kind::Label, 4, "", "1.   Use \"SelectEmpty\" tab to specify the operation(s) if nothing is selected", kPlain, kReady},
    {"Label34", Kind::Label, 4, "", "2.   Click \"Sub Query\" to add a Query to \"SelectEmpty\"", kPlain, kReady},
    {"Label36", Kind::Label, 4, "", "3.   Click \"Condition\" to add a Condition to \"SelectEmpty\"", kPlain, kReady},
    {"Label33", Kind::Label, 4, "", "4.   Click \"Add To Result\" to add \"SelectEmpty\" to Result", kPlain, kReady},
    {"Label39", Kind::Label, 5, "", "1.   Use \"SelectError\" tab to specify the operation(s) in case of error condition", kPlain, kReady},
    {"Label38", Kind::Label, 5, "", "2.   Click \"Sub Query\" to add a Query to \"SelectError\"", kPlain, kReady},
    {"Label40", Kind::Label, 5, "", "3.   Click \"Condition\" to add a Condition to \"SelectError\"", kPlain, kReady},
    {"Label37", Kind::Label, 5, "", "4.   Click \"Add To Result\" to add \"SelectError\" to Result", kPlain, kReady},
    {"fraSelect", Kind::Frame, 6, "", "Select Condition", kPlain, kReady},
    {"optIfThen", Kind::OptionButton, 6, "fraSelect", "If..Then", kPlain, kReady},
    {"optwhile", Kind::OptionButton, 6, "fraSelect", "While", kPlain, kReady},
    {"optRepeat", Kind::OptionButton, 6, "fraSelect", "Repeat...Until", kPlain, kReady},
    {"optFor", Kind::OptionButton, 6, "fraSelect", "For Statement", kPlain, kReady},
    {"optCase", Kind::OptionButton, 6, "fraSelect", "On...Case", kPlain, kReady},
    {"cmdFunction(4)", Kind::Button, 6, "", "Function", kPlain, kDisabledAtFirst},
    {"cmdSubQuery(4)", Kind::Button, 6, "", "Sub Query /Condition", kPlain, kDisabledAtFirst},
    {"cmdAdd", Kind::Button, 6, "", "Add Condition", kPlain, kReady},
    {"cmdBuild", Kind::Button, 6, "", "Build Condition", kPlain, kDisabledAtFirst},
    {"Frainitial", Kind::Frame, 6, "", "", kPlain, kReady},
    {"Label14", Kind::Label, 6, "Frainitial", "1.   Select a condition  .", kPlain, kReady},
    {"Label15", Kind::Label, 6, "Frainitial", "2.   Fill in the text boxes.", kPlain, kReady},
    {"Label16", Kind::Label, 6, "Frainitial", "3.   Click \"Add Condtion \" button to add condition to \"Result\" .", kPlain, kReady},
    {"Label17", Kind::Label, 6, "Frainitial", "4.   Click Sub Query to add a query to the \"Result\"", kPlain, kReady},
    {"Label18", Kind::Label, 6, "Frainitial", "5.   Repeat Steps 1 to 4 for nested conditions.", kPlain, kReady},
    {"Label19", Kind::Label, 6, "Frainitial", "6.   Click \"Build Condition\" to Finish condition.", kPlain, kReady},
    {"fraif", Kind::Frame, 6, "", "if...then", kPlain, kHiddenAtFirst},
    {"txtCond", Kind::TextBox, 6, "fraif", "", kPlain, kReady},
    {"txtStmt1", Kind::TextBox, 6, "fraif", "", kMultiLine, kReady},
    {"txtStmt2", Kind::TextBox, 6, "fraif", "", kMultiLine, kReady},
    {"lblCondtion", Kind::Label, 6, "fraif", "Condition", kPlain, kReady},
    {"lblStmt1", Kind::Label, 6, "fraif", "Statement1", kPlain, kReady},
    {"lblstmt2", Kind::Label, 6, "fraif", "Statement2", kPlain, kReady},
    {"frawhile", Kind::Frame, 6, "", "While", kArial, kHiddenAtFirst},
    {"txtWhlCnd", Kind::TextBox, 6, "frawhile", "", kPlain, kReady},
    {"txtWhlStm", Kind::TextBox, 6, "frawhile", "", kMultiLine, kReady},
    {"lblWhereCnd", Kind::Label, 6, "frawhile", "Expression", kPlain, kReady},
    {"lblwherestm", Kind::Label, 6, "frawhile", "Statement ", kPlain, kReady},
    {"frarepeat", Kind::Frame, 6, "", "Repeat...Until", kPlain, kHiddenAtFirst},
    {"txtRepCnd", Kind::TextBox, 6, "frarepeat", "", kPlain, kReady},
    {"txtRepStm", Kind::TextBox, 6, "frarepeat", "", kMultiLine, kReady},
    {"lblRepcond", Kind::Label, 6, "frarepeat", "Expression", kPlain, kReady},
    {"lblrepstmt", Kind::Label, 6, "frarepeat", "Statement ", kPlain, kReady},
    {"fraFor", Kind::Frame, 6, "", "For Statement", kPlain, kHiddenAtFirst},
    {"txtVariable", Kind::TextBox, 6, "fraFor", "", kPlain, kReady},
    {"txtinitval", Kind::TextBox, 6, "fraFor", "", kPlain, kReady},
    {"txtFinVal", Kind::TextBox, 6, "fraFor", "", kPlain, kReady},
    {"txtStep", Kind::TextBox, 6, "fraFor", "", kPlain, kReady},
    {"txtForStmt", Kind::TextBox, 6, "fraFor", "", kMultiLine, kReady},
    {"lblVariable", Kind::Label, 6, "fraFor", "Variable", kPlain, kReady},
    {"lnlintval", Kind::Label, 6, "fraFor", "Initial value", kPlain, kReady},
    {"lblfinValue", Kind::Label, 6, "fraFor", "Final Value", kPlain, kReady},
    {"lblStep", Kind::Label, 6, "fraFor", "Step", kPlain, kReady},
    {"lblforStatement", Kind::Label, 6, "fraFor", "Statement", kPlain, kReady},
    {"fraOnCase", Kind::Frame, 6, "", "On...Case", kPlain, kHiddenAtFirst},
    {"txtcaseexp", Kind::TextBox, 6, "fraOnCase", "", kPlain, kReady},
    {"TxtDef", Kind::TextBox, 6, "fraOnCase", "", kMultiLine, kReady},
    {"lblexprcase", Kind::Label, 6, "fraOnCase", "Expression ", kPlain, kReady},
    {"lblDefault", Kind::Label, 6, "fraOnCase", "Default", kPlain, kReady},
    {"lblexpr", Kind::Label, 6, "fraOnCase", "Value", kPlain, kReady},
    {"lblstmt", Kind::Label, 6, "fraOnCase", "Statements", kPlain, kReady},
    {"fracase", Kind::Frame, 6, "fraOnCase", "Frame1", kNoBorder, kReady},
    {"TxtExpr(0)", Kind::TextBox, 6, "fracase", "", kPlain, kReady},
    {"txtStmt(0)", Kind::TextBox, 6, "fracase", "", kMultiLine, kReady},
    {"VscrCase", Kind::ScrollBar, 6, "fracase", "", kPlain, kHiddenAtFirst},
    {"cmdNext", Kind::Button, 6, "fracase", "Next", kPlain, kReady},
};
// clang-format on

class FormTest : public ControlTest {
 protected:
  static unsigned Traits(const Control& control) { return control.design().style & ~kHidden; }
};

TEST_F(FormTest, HoldsJustTheseControls) {
  std::set<std::string> wanted;
  for (const Row& row : kRows)
    wanted.emplace(row.name);
  std::set<std::string> found;
  for (const Control* control : host().Form().Controls())
    found.emplace(control->name());
  EXPECT_EQ(found, wanted);
  EXPECT_EQ(host().Form().Controls().size(), std::size(kRows));
}

TEST_F(FormTest, EveryControlIsFoundByItsNameWithItsKind) {
  for (const Row& row : kRows) {
    EXPECT_EQ(On(row.name).name(), row.name);
    EXPECT_EQ(On(row.name).kind(), row.kind) << row.name;
  }
}

TEST_F(FormTest, NamesAreFoundWithTheirLetterCase) {
  for (const std::string_view name :
       {"LstTables", "cmdSelectEmpty", "lblintval", "Text2(0)", "cmdFunction", "cmdCondition(4)",
        "cmdFunction(5)", "TxtExpr(1)", ""}) {
    EXPECT_EQ(host().Form().Find(name), nullptr) << name;
  }
}

TEST_F(FormTest, EveryControlLiesOnItsPageAndInItsFrame) {
  for (const Row& row : kRows) {
    EXPECT_EQ(On(row.name).design().page, row.page) << row.name;
    const Frame* frame = On(row.name).frame();
    EXPECT_EQ(frame == nullptr ? std::string_view() : frame->name(), row.frame) << row.name;
  }
}

TEST_F(FormTest, EveryControlHasItsTraits) {
  for (const Row& row : kRows)
    EXPECT_EQ(Traits(On(row.name)), row.style) << row.name;
}

TEST_F(FormTest, EveryControlHasItsCaptionAtDesign) {
  for (const Row& row : kRows)
    EXPECT_EQ(Narrow(On(row.name).design().caption), row.caption) << row.name;
}

TEST_F(FormTest, AFreshControlShowsItsCaptionsButForOne) {
  for (const Row& row : kRows) {
    if (dynamic_cast<const CaptionedControl*>(&On(row.name)) == nullptr) continue;
    const std::string_view shown = row.name == "cmdCancelWhere" ? "Clear" : row.caption;
    EXPECT_EQ(Caption(row.name), shown) << row.name;
  }
}

TEST_F(FormTest, AFreshControlHasTheseEnabledAndVisible) {
  for (const Row& row : kRows) {
    EXPECT_EQ(Enabled(row.name), row.state != kDisabledAtFirst) << row.name;
    EXPECT_EQ(Visible(row.name), row.state != kHiddenAtFirst) << row.name;
  }
}

TEST_F(FormTest, AFreshControlHasNoTextInItsBoxesAndNoOptionChosen) {
  for (const Row& row : kRows) {
    const bool holdsText =
        row.kind == Kind::TextBox || row.kind == Kind::SyntaxTextBox || row.kind == Kind::ComboBox;
    EXPECT_EQ(holdsText ? Text(row.name) : "", "") << row.name;
    EXPECT_FALSE(row.kind == Kind::OptionButton && Option(row.name)) << row.name;
  }
}

TEST_F(FormTest, AFreshControlHasRowsInTwoListsOnly) {
  for (const Row& row : kRows) {
    if (row.kind != Kind::ListBox && row.kind != Kind::ComboBox) continue;
    EXPECT_EQ(ListIndex(row.name), -1) << row.name;
    const std::size_t rows = row.name == "lstFunctions" ? 6 : row.name == "cboOper" ? 10 : 0;
    EXPECT_EQ(Rows(row.name).size(), rows) << row.name;
  }
}

TEST_F(FormTest, TheBackgroundsAreWhiteButForTheTemplateBox) {
  for (const Row& row : kRows) {
    const Control& control = On(row.name);
    if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) {
      EXPECT_EQ(combo->BackColor(), 0xFFFFFFU) << row.name;
    }
    if (const auto* box = dynamic_cast<const TextBox*>(&control)) {
      EXPECT_EQ(box->BackColor(), row.name == "txtCondition" ? 0x8000000EU : 0xFFFFFFU) << row.name;
    }
  }
}

TEST_F(FormTest, ThePagesHaveTheirCaptionsInOrder) {
  EXPECT_EQ(Narrow(kPageCaptions.at(0)), " Select List ");
  EXPECT_EQ(Narrow(kPageCaptions.at(1)), "Where");
  EXPECT_EQ(Narrow(kPageCaptions.at(2)), "SelectDo");
  EXPECT_EQ(Narrow(kPageCaptions.at(3)), "SelectEOS");
  EXPECT_EQ(Narrow(kPageCaptions.at(4)), "SelectEmpty");
  EXPECT_EQ(Narrow(kPageCaptions.at(5)), "SelectError");
  EXPECT_EQ(Narrow(kPageCaptions.at(6)), "Condition");
}

TEST_F(FormTest, AControlIsShownOnItsPageOnly) {
  for (int page = 0; page <= 6; ++page) {
    Tab(page);
    for (const Row& row : kRows) {
      bool visible = row.state != kHiddenAtFirst;
      for (const Frame* frame = On(row.name).frame(); frame != nullptr; frame = frame->frame()) {
        visible = visible && frame->Visible();
      }
      const bool onPage = row.page == kEveryPage || row.page == page;
      EXPECT_EQ(Shown(row.name), visible && onPage) << row.name << " with page " << page;
    }
  }
}

TEST_F(FormTest, ExactlyOneOfTheFramesAtTheRightOfTheConditionPageIsVisible) {
  Texts visible;
  for (const std::string_view frame :
       {"Frainitial", "fraif", "frawhile", "frarepeat", "fraFor", "fraOnCase"}) {
    if (Visible(frame)) visible.emplace_back(frame);
  }
  EXPECT_EQ(visible, Texts{"Frainitial"});
}

TEST_F(FormTest, TheCaseRowsHaveTheirPlacesAtDesign) {
  const auto place = [this](std::string_view name) {
    const Control& control = On(name);
    return Geometry{control.Left(), control.Top(), control.Width(), control.Height()};
  };
  EXPECT_EQ(place("TxtExpr(0)"), (Geometry{120, 120, 1935, 680}));
  EXPECT_EQ(place("txtStmt(0)"), (Geometry{2640, 120, 3975, 680}));
  EXPECT_EQ(place("VscrCase"), (Geometry{6720, 120, 375, 2295}));
  EXPECT_EQ(place("cmdNext"), (Geometry{6720, 2520, 825, 350}));
  EXPECT_EQ(On("fracase").Height(), 2880);
}

TEST_F(FormTest, TheScrollBarStandsAtZeroOfZeroInStepsOfOne) {
  const auto& bar = dynamic_cast<const ScrollBar&>(On("VscrCase"));
  EXPECT_EQ(bar.Value(), 0);
  EXPECT_EQ(bar.Max(), 0);
  EXPECT_EQ(ScrollBar::SmallChange(), 1);
}

using FirstTabOrderTest = BareFormTest;

TEST_F(FirstTabOrderTest, IsThatOfTheTableWithoutTheRectangle) {
  Texts wanted;
  for (const Row& row : kRows) {
    if (row.kind != Kind::Rectangle) wanted.emplace_back(row.name);
  }
  Texts found;
  for (const Control* control : form.TabOrder())
    found.emplace_back(control->name());
  EXPECT_EQ(found, wanted);
  EXPECT_EQ(form.tabVrn.TabIndex(), 0);
  EXPECT_EQ(form.cmdNext.TabIndex(), static_cast<std::int64_t>(wanted.size()) - 1);
}

TEST_F(FirstTabOrderTest, TheArraysHaveTheirElements) {
  EXPECT_EQ(form.cmdFunction.UpperBound(), 4);
  EXPECT_EQ(form.cmdSubQuery.UpperBound(), 4);
  EXPECT_EQ(form.cmdCondition.UpperBound(), 3);
  EXPECT_EQ(form.TxtExpr.UpperBound(), 0);
  EXPECT_EQ(form.txtStmt.UpperBound(), 0);
  for (int index = 0; index <= 4; ++index)
    EXPECT_EQ(form.cmdFunction(index).Index(), index);
}

TEST_F(FirstTabOrderTest, ThereIsNoConditionButtonOnTheConditionPage) {
  EXPECT_EQ(ErrorOf([this] { (void)form.cmdCondition(4); }), "340 element");
  EXPECT_EQ(form.cmdSubQuery(4).design().page, 6);
}

TEST_F(FirstTabOrderTest, BothSortedControlsKeepAlphabeticalOrderWhateverTheOrderOfAdding) {
  Fill(form.lstSelectedFields, {"TABLE002.B", "TABLE001.Z", "TABLE002.A"});
  EXPECT_EQ(Rows(form.lstSelectedFields), (Texts{"TABLE001.Z", "TABLE002.A", "TABLE002.B"}));
  Fill(form.cboOper, {"=", "<>", "!="});
  EXPECT_EQ(Rows(form.cboOper), (Texts{"!=", "<>", "="}));
}

TEST_F(FormTest, ANameBehindAllOthersIsNotFound) {
  EXPECT_EQ(host().Form().Find("zzz"), nullptr);
  EXPECT_EQ(host().Form().Find(""), nullptr);
}

TEST(Geometry, IsEqualWhenPlaceAndSizeAre) {
  constexpr Geometry kGiven{1, 2, 3, 4};
  EXPECT_EQ(kGiven, (Geometry{1, 2, 3, 4}));
  for (const Geometry& other :
       {Geometry{0, 2, 3, 4}, Geometry{1, 0, 3, 4}, Geometry{1, 2, 0, 4}, Geometry{1, 2, 3, 0}}) {
    EXPECT_NE(kGiven, other);
  }
}

}  // namespace
}  // namespace zolt20::tests
