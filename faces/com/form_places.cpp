#include "faces/com/form_places.h"

#include <algorithm>

namespace zolt20::com {
namespace {

constexpr int kMargin = 120;
constexpr int kGap = 90;
constexpr int kWideGap = 180;
constexpr int kTabs = 375;
constexpr int kLine = 240;  // of text
constexpr int kSmallLine = 210;
constexpr int kField = 330;  // a box of one line
constexpr int kButton = 390;
constexpr int kButtonWidth = 1'350;
constexpr int kFrameHead = 270;  // a frame's caption
// What lies in the frame of the case rows, with a margin on the right like that on the left.
constexpr int kCaseFrame = 6'720 + 825 + 120;

}  // namespace

bool IsInArial(const Surface& form, const Control& control) {
  return &control == &form.frawhile || control.frame() == &form.frawhile;
}

// A rectangle of which pieces are cut off, each with a gap behind it.
struct FormPlaces::Box : Geometry {
  Box CutTop(int amount, int gap = kGap) {
    const Box piece{{left, top, width, std::min(amount, height)}};
    top += amount + gap;
    height = std::max(0, height - amount - gap);
    return piece;
  }
  Box CutBottom(int amount, int gap = kGap) {
    const Box piece{{left, top + height - amount, width, amount}};
    height = std::max(0, height - amount - gap);
    return piece;
  }
  Box CutLeft(int amount, int gap = kGap) {
    const Box piece{{left, top, std::min(amount, width), height}};
    left += amount + gap;
    width = std::max(0, width - amount - gap);
    return piece;
  }
  Box CutRight(int amount, int gap = kGap) {
    const Box piece{{left + width - amount, top, amount, height}};
    width = std::max(0, width - amount - gap);
    return piece;
  }
  Box Inner(int margin) const {
    return {{left + margin, top + margin, width - 2 * margin, height - 2 * margin}};
  }
  // The inside of a frame of this size, by the frame's own measure.
  Box Inside() const { return Box{{0, kFrameHead, width, height - kFrameHead}}.Inner(kMargin); }
};

FormPlaces::FormPlaces(const Surface& form, int width, int height) : form_(form) {
  PutAround({{0, 0, std::max(width, kLeastWidth), std::max(height, kLeastHeight)}});
}

Geometry FormPlaces::Of(const Control& control) const {
  const bool isCaseRow = control.frame() == &form_.fracase;
  const auto found = places_.find(&control);
  if (!isCaseRow) return found == places_.end() ? Geometry{} : found->second;
  // In a wider frame the boxes and what stands beside them are wider; tops and heights stay.
  const auto across = [this](int twips) { return twips * caseWidth_ / kCaseFrame; };
  return {across(control.Left()), control.Top(), across(control.Width()), control.Height()};
}

void FormPlaces::Put(const Control& control, const Box& place) {
  places_[&control] = place;
}

void FormPlaces::PutAround(Box whole) {
  const Surface& f = form_;
  Put(f.tabVrn, whole.CutTop(kTabs, 0));
  Box below = whole.Inner(kMargin);
  Box buttons = below.CutBottom(kButton, kMargin);
  for (const Control* button :
       {static_cast<const Control*>(&f.cmdDone), static_cast<const Control*>(&f.cmdCancel),
        static_cast<const Control*>(&f.cmdClear)}) {
    Put(*button, buttons.CutRight(kButtonWidth));
  }
  Box result = below.CutBottom(std::max(1'350, below.height / 4), kGap);
  Put(f.lblResult, result.CutTop(kLine, 30));
  Put(f.TxtOutput, result);

  PutSelectList(below);
  PutWhere(below);
  for (int index = 0; index < 4; ++index)
    PutStatements(below, index);
  PutConditions(below);
}

// The labels that tell how a page is used, at its foot, and the button beside them. Gives what is
// left of the page.
FormPlaces::Box FormPlaces::PutInstructions(Box page, std::initializer_list<const Control*> labels,
                                            const Control& button) {
  Box foot = page.CutBottom(kSmallLine * static_cast<int>(labels.size()), kGap);
  Box corner = foot.CutRight(kButtonWidth + 150);
  Put(button, corner.CutBottom(kButton));
  for (const Control* label : labels)
    Put(*label, foot.CutTop(kSmallLine, 0));
  return page;
}

void FormPlaces::PutSelectList(Box page) {
  const Surface& f = form_;
  page = PutInstructions(page, {&f.Label41, &f.Label9, &f.Label10, &f.Label11, &f.Label42},
                         f.cmdAddSelect);
  const auto labelled = [this](Box column, const Control& label, const Control& list) {
    Put(label, column.CutTop(kLine, 30));
    Put(list, column);
  };
  const int moves = 600;
  const int shared = page.width - moves - 3 * kWideGap;
  Box sources = page.CutLeft(shared * 3 / 11, kWideGap);
  labelled(sources.CutTop(sources.height * 3 / 5, kGap), f.Label1, f.lsttables);
  labelled(sources, f.Label4, f.lstFunctions);
  labelled(page.CutLeft(shared * 4 / 11, kWideGap), f.Label3, f.lstFields);
  Box buttons = page.CutLeft(moves, kWideGap);
  buttons.CutTop(std::max(0, (buttons.height - 4 * kButton - 3 * kGap) / 2), 0);
  for (const Control* button :
       {static_cast<const Control*>(&f.cmdMoveOne), static_cast<const Control*>(&f.cmdMoveAll),
        static_cast<const Control*>(&f.cmdRemoveOne),
        static_cast<const Control*>(&f.cmdRemoveAll)}) {
    Put(*button, buttons.CutTop(kButton));
  }
  labelled(page.CutTop(page.height * 3 / 5, kGap), f.Label2, f.lstSelectedFields);
  labelled(page, f.Label5, f.lstGroupby);
}

void FormPlaces::PutWhere(Box page) {
  const Surface& f = form_;
  page = PutInstructions(page, {&f.Label20, &f.Label21, &f.Label22, &f.Label23, &f.Label24},
                         f.cmdAddWhereQuery);

  Box order = page.CutRight(page.width * 2 / 5, kWideGap);
  Box asSet = order.CutBottom(kField, kGap);
  const auto middle = [](Box line) {
    return Box{{line.left, line.top + (line.height - kLine) / 2, line.width, kLine}};
  };
  Put(f.lblAsset, middle(asSet.CutLeft(1'050)));
  Put(f.txtAsSet, asSet.CutLeft(900));
  Put(f.Label12, middle(asSet));
  Put(f.Shape1, order);
  order = order.Inner(kMargin);
  Put(f.Label13, order.CutTop(kLine, 30));
  Box ascending = order.CutLeft((order.width - kGap) / 2);
  Put(f.lblorderbyasc, ascending.CutTop(kLine, 30));
  Put(f.lstorderbyasc, ascending);
  Put(f.lblOrderbyDesc, order.CutTop(kLine, 30));
  Put(f.lstorderbydesc, order);

  Box labels = page.CutTop(kLine, 30);
  Box fields = page.CutTop(kField);
  const int shared = labels.width - 2 * kGap;
  Put(f.Label6, labels.CutLeft(shared * 3 / 8));
  Put(f.cboWhereFields, fields.CutLeft(shared * 3 / 8));
  Put(f.Label7, labels.CutLeft(shared * 2 / 8));
  Put(f.cboOper, fields.CutLeft(shared * 2 / 8));
  Put(f.Label8, labels);
  Put(f.cboWhereFields1, fields);
  Box apply = page.CutBottom(kButton);
  Put(f.cmdAnd, apply.CutLeft(kButtonWidth + 150));
  Put(f.CmdOr, apply.CutLeft(kButtonWidth + 150));
  Put(f.cmdCancelWhere, apply.CutLeft(kButtonWidth));
  // The two views of the condition take turns in one place.
  for (const auto& [frame, box] :
       {std::pair<const Control*, const Control*>(&f.FrawhereCondition, &f.txtwhereCondition),
        std::pair<const Control*, const Control*>(&f.FraCondition, &f.txtCondition)}) {
    Put(*frame, page);
    Put(*box, {{0, 0, page.width, page.height}});
  }
}

void FormPlaces::PutStatements(Box page, int index) {
  const Surface& f = form_;
  switch (index) {
    case 0:
      page = PutInstructions(page, {&f.Label27, &f.Label26, &f.Label28, &f.Label25},
                             f.cmdAddSelectDoQuer);
      break;
    case 1:
      page = PutInstructions(page, {&f.Label31, &f.Label30, &f.Label32, &f.Label29},
                             f.cmdAddSEOStoquery);
      break;
    case 2:
      page =
          PutInstructions(page, {&f.Label35, &f.Label34, &f.Label36, &f.Label33}, f.cmdSelectmpty);
      break;
    default:
      page =
          PutInstructions(page, {&f.Label39, &f.Label38, &f.Label40, &f.Label37}, f.cmdAddtoSERROR);
      break;
  }
  Box requests = page.CutRight(kButtonWidth);
  Put(f.cmdFunction(index), requests.CutTop(kButton));
  Put(f.cmdCondition(index), requests.CutTop(kButton));
  Put(f.cmdSubQuery(index), requests.CutTop(kButton));
  const std::array<const Control*, 4> boxes{&f.txtSelectDo, &f.txtSelectEOS, &f.txtselectempty,
                                            &f.txtSelectError};
  Put(*boxes[static_cast<std::size_t>(index)], page);
}

// Rows of a label and a box; the boxes of several lines share the height that is left.
void FormPlaces::PutRows(Box frame,
                         std::initializer_list<std::pair<const Control*, const Control*>> rows) {
  const auto isTall = [](const Control* box) { return (box->design().style & kMultiLine) != 0; };
  int tall = 0;
  int fixed = 0;
  for (const auto& [label, box] : rows)
    isTall(box) ? ++tall : fixed += kField + kGap;
  const int share = tall == 0 ? 0 : (frame.height - fixed - (tall - 1) * kGap) / tall;
  for (const auto& [label, box] : rows) {
    Box row = frame.CutTop(isTall(box) ? share : kField);
    Box name = row.CutLeft(1'200);
    name.top += (kField - kLine) / 2;
    Put(*label, name.CutTop(kLine));
    Put(*box, row);
  }
}

void FormPlaces::PutConditions(Box page) {
  const Surface& f = form_;
  Box foot = page.CutBottom(kButton);
  Put(f.cmdFunction(4), foot.CutLeft(kButtonWidth));
  Put(f.cmdSubQuery(4), foot.CutLeft(2'100));
  Put(f.cmdBuild, foot.CutRight(1'650));
  Put(f.cmdAdd, foot.CutRight(1'650));

  Box select = page.CutLeft(2'100, kWideGap);
  Put(f.fraSelect, select);
  Box kinds = select.Inside();
  for (const Control* option :
       {static_cast<const Control*>(&f.optIfThen), static_cast<const Control*>(&f.optwhile),
        static_cast<const Control*>(&f.optRepeat), static_cast<const Control*>(&f.optFor),
        static_cast<const Control*>(&f.optCase)}) {
    Put(*option, kinds.CutTop(kField, 30));
  }

  // All of them in one and the same rectangle.
  for (const Control* frame :
       {static_cast<const Control*>(&f.Frainitial), static_cast<const Control*>(&f.fraif),
        static_cast<const Control*>(&f.frawhile), static_cast<const Control*>(&f.frarepeat),
        static_cast<const Control*>(&f.fraFor), static_cast<const Control*>(&f.fraOnCase)}) {
    Put(*frame, page);
  }
  const Box inside = page.Inside();
  Box lines = inside;
  for (const Control* label :
       {&f.Label14, &f.Label15, &f.Label16, &f.Label17, &f.Label18, &f.Label19})
    Put(*label, lines.CutTop(kLine, 60));
  PutRows(inside,
          {{&f.lblCondtion, &f.txtCond}, {&f.lblStmt1, &f.txtStmt1}, {&f.lblstmt2, &f.txtStmt2}});
  PutRows(inside, {{&f.lblWhereCnd, &f.txtWhlCnd}, {&f.lblwherestm, &f.txtWhlStm}});
  PutRows(inside, {{&f.lblRepcond, &f.txtRepCnd}, {&f.lblrepstmt, &f.txtRepStm}});
  PutRows(inside, {{&f.lblVariable, &f.txtVariable},
                   {&f.lnlintval, &f.txtinitval},
                   {&f.lblfinValue, &f.txtFinVal},
                   {&f.lblStep, &f.txtStep},
                   {&f.lblforStatement, &f.txtForStmt}});
  PutCase(inside);
}

// The case rows have their places from the form, under the two words at their heads.
void FormPlaces::PutCase(Box frame) {
  const Surface& f = form_;
  Box top =
      frame.CutTop(std::clamp(frame.height - 240 - f.fracase.Height() - 2 * kGap, kField, 720));
  const auto head = [](Box& row, int width) {
    Box name = row.CutLeft(width);
    name.top += (kField - kLine) / 2;
    return name.CutTop(kLine);
  };
  Put(f.lblexprcase, head(top, 1'050));
  Box expression = top.CutLeft((top.width - 900) * 2 / 5);
  Put(f.txtcaseexp, expression.CutTop(kField));
  Put(f.lblDefault, head(top, 750));
  Put(f.TxtDef, top);

  caseWidth_ = std::max(frame.width, kCaseFrame);
  const auto across = [this](int twips) { return twips * caseWidth_ / kCaseFrame; };
  const Box heads = frame.CutTop(kLine, 30);
  Put(f.lblexpr, {{heads.left + across(120), heads.top, across(2'400), kLine}});
  Put(f.lblstmt, {{heads.left + across(2'640), heads.top, across(4'000), kLine}});
  Put(f.fracase, {{frame.left, frame.top, caseWidth_, f.fracase.Height()}});
}

}  // namespace zolt20::com
