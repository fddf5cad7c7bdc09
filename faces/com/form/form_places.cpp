#include "faces/com/form/form_places.h"

#include <algorithm>

namespace zolt20::com {
namespace {

constexpr int kMargin = 120;
constexpr int kGap = 90;
constexpr int kWideGap = 180;
constexpr int kButtonWidth = 1'350;
// The least heights, and how much higher than its line a thing is.
constexpr int kTabs = 375;
constexpr int kLine = 240;
constexpr int kSmallLine = 210;
constexpr int kField = 330;
constexpr int kButton = 390;
constexpr int kFrameHead = 270;
constexpr int kTabEdges = 120;
constexpr int kFieldEdges = 90;
constexpr int kButtonEdges = 105;
constexpr int kCaptionEdge = 30;
constexpr int kLinesOfCase = 2;
constexpr int kToolWidth = 900;
constexpr int kTallDefault = 720;  // of the Default, where there is room

}  // namespace

bool IsInArial(const Surface& form, const Control& control) {
  return &control == &form.frawhile;
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
  // The inside of a frame of this size under its caption, by the frame's own measure.
  Box Inside(int caption) const {
    return Box{{0, caption, width, height - caption}}.Inner(kMargin);
  }
};

FormPlaces::FormPlaces(const Surface& form, int width, int height, LineHeights lines)
    : form_(form),
      tabs_(std::max(kTabs, lines.usual + kTabEdges)),
      line_(std::max(kLine, lines.usual)),
      smallLine_(std::max(kSmallLine, lines.small)),
      field_(std::max(kField, lines.usual + kFieldEdges)),
      button_(std::max(kButton, lines.usual + kButtonEdges)),
      frameHead_(std::max(kFrameHead, lines.usual + kCaptionEdge)),
      rowGrowth_(std::max(0, kLinesOfCase * lines.usual + lines.scrollBar + kFieldEdges -
                                 form.TxtExpr(0).Height())),
      default_(std::max(kTallDefault, kLinesOfCase * lines.usual + lines.scrollBar + kFieldEdges)),
      nextGrowth_(std::max(0, lines.usual + kButtonEdges - form.cmdNext.Height())) {
  PutAround({{0, 0, std::max(width, kLeastWidth), std::max(height, kLeastHeight)}});
}

Geometry FormPlaces::Of(const Control& control) const {
  const bool isCaseRow = control.frame() == &form_.fracase;
  const auto found = places_.find(&control);
  if (!isCaseRow) return found == places_.end() ? Geometry{} : found->second;
  // In a wider frame the boxes and what stands beside them are wider.
  const auto across = [this](int twips) { return twips * caseWidth_ / faces::kCaseFrameTwips; };
  const faces::CaseSpan span = faces::CaseSpanOf(form_, control);
  return {across(control.Left()), CaseLength(span.top), across(control.Width()),
          CaseLength(span.height)};
}

int FormPlaces::CaseLength(const faces::Stretch& length) const {
  return length.In([](int twips) { return twips; }, rowGrowth_, nextGrowth_);
}

void FormPlaces::Put(const Control& control, const Box& place) {
  places_[&control] = place;
}

void FormPlaces::PutAround(Box whole) {
  const Surface& f = form_;
  Put(f.tabVrn, whole.CutTop(tabs_, 0));
  Box below = whole.Inner(kMargin);
  Box buttons = below.CutBottom(button_, kMargin);
  for (const Control* button :
       {static_cast<const Control*>(&f.cmdDone), static_cast<const Control*>(&f.cmdCancel),
        static_cast<const Control*>(&f.cmdClear)}) {
    Put(*button, buttons.CutRight(kButtonWidth));
  }
  undo_ = buttons.CutLeft(kToolWidth);
  redo_ = buttons.CutLeft(kToolWidth);
  Box result = below.CutBottom(std::max(1'350, below.height / 4), kGap);
  Put(f.lblResult, result.CutTop(line_, 30));
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
  Box foot = page.CutBottom(smallLine_ * static_cast<int>(labels.size()), kGap);
  Box corner = foot.CutRight(kButtonWidth + 150);
  Put(button, corner.CutBottom(button_));
  for (const Control* label : labels)
    Put(*label, foot.CutTop(smallLine_, 0));
  return page;
}

void FormPlaces::PutSelectList(Box page) {
  const Surface& f = form_;
  page = PutInstructions(page, {&f.Label41, &f.Label9, &f.Label10, &f.Label11, &f.Label42},
                         f.cmdAddSelect);
  const auto labelled = [this](Box column, const Control& label, const Control& list) {
    Put(label, column.CutTop(line_, 30));
    Put(list, column);
  };
  const int moves = 600;
  const int shared = page.width - moves - 3 * kWideGap;
  Box sources = page.CutLeft(shared * 3 / 11, kWideGap);
  labelled(sources.CutTop(sources.height * 3 / 5, kGap), f.Label1, f.lsttables);
  labelled(sources, f.Label4, f.lstFunctions);
  labelled(page.CutLeft(shared * 4 / 11, kWideGap), f.Label3, f.lstFields);
  Box buttons = page.CutLeft(moves, kWideGap);
  buttons.CutTop(std::max(0, (buttons.height - 4 * button_ - 3 * kGap) / 2), 0);
  for (const Control* button :
       {static_cast<const Control*>(&f.cmdMoveOne), static_cast<const Control*>(&f.cmdMoveAll),
        static_cast<const Control*>(&f.cmdRemoveOne),
        static_cast<const Control*>(&f.cmdRemoveAll)}) {
    Put(*button, buttons.CutTop(button_));
  }
  labelled(page.CutTop(page.height * 3 / 5, kGap), f.Label2, f.lstSelectedFields);
  labelled(page, f.Label5, f.lstGroupby);
}

void FormPlaces::PutWhere(Box page) {
  const Surface& f = form_;
  page = PutInstructions(page, {&f.Label20, &f.Label21, &f.Label22, &f.Label23, &f.Label24},
                         f.cmdAddWhereQuery);

  Box order = page.CutRight(page.width * 2 / 5, kWideGap);
  Box asSet = order.CutBottom(field_, kGap);
  const auto middle = [this](Box line) {
    return Box{{line.left, line.top + (line.height - line_) / 2, line.width, line_}};
  };
  Put(f.lblAsset, middle(asSet.CutLeft(1'050)));
  Put(f.txtAsSet, asSet.CutLeft(900));
  Put(f.Label12, middle(asSet));
  Put(f.Shape1, order);
  order = order.Inner(kMargin);
  Put(f.Label13, order.CutTop(line_, 30));
  Box ascending = order.CutLeft((order.width - kGap) / 2);
  Put(f.lblorderbyasc, ascending.CutTop(line_, 30));
  Put(f.lstorderbyasc, ascending);
  Put(f.lblOrderbyDesc, order.CutTop(line_, 30));
  Put(f.lstorderbydesc, order);

  Box labels = page.CutTop(line_, 30);
  Box fields = page.CutTop(field_);
  const int shared = labels.width - 2 * kGap;
  Put(f.Label6, labels.CutLeft(shared * 3 / 8));
  Put(f.cboWhereFields, fields.CutLeft(shared * 3 / 8));
  Put(f.Label7, labels.CutLeft(shared * 2 / 8));
  Put(f.cboOper, fields.CutLeft(shared * 2 / 8));
  Put(f.Label8, labels);
  Put(f.cboWhereFields1, fields);
  Box apply = page.CutBottom(button_);
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
  Put(f.cmdFunction(index), requests.CutTop(button_));
  Put(f.cmdCondition(index), requests.CutTop(button_));
  Put(f.cmdSubQuery(index), requests.CutTop(button_));
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
    isTall(box) ? ++tall : fixed += field_ + kGap;
  const int share = tall == 0 ? 0 : (frame.height - fixed - (tall - 1) * kGap) / tall;
  for (const auto& [label, box] : rows) {
    Box row = frame.CutTop(isTall(box) ? share : field_);
    Box name = row.CutLeft(1'200);
    name.top += (field_ - line_) / 2;
    Put(*label, name.CutTop(line_));
    Put(*box, row);
  }
}

void FormPlaces::PutConditions(Box page) {
  const Surface& f = form_;
  Box foot = page.CutBottom(button_);
  Put(f.cmdFunction(4), foot.CutLeft(kButtonWidth));
  Put(f.cmdSubQuery(4), foot.CutLeft(2'100));
  Put(f.cmdBuild, foot.CutRight(1'650));
  Put(f.cmdAdd, foot.CutRight(1'650));

  Box select = page.CutLeft(2'100, kWideGap);
  Put(f.fraSelect, select);
  Box kinds = select.Inside(frameHead_);
  for (const Control* option :
       {static_cast<const Control*>(&f.optIfThen), static_cast<const Control*>(&f.optwhile),
        static_cast<const Control*>(&f.optRepeat), static_cast<const Control*>(&f.optFor),
        static_cast<const Control*>(&f.optCase)}) {
    Put(*option, kinds.CutTop(field_, 30));
  }

  // All of them in one and the same rectangle.
  for (const Control* frame :
       {static_cast<const Control*>(&f.Frainitial), static_cast<const Control*>(&f.fraif),
        static_cast<const Control*>(&f.frawhile), static_cast<const Control*>(&f.frarepeat),
        static_cast<const Control*>(&f.fraFor), static_cast<const Control*>(&f.fraOnCase)}) {
    Put(*frame, page);
  }
  const Box inside = page.Inside(frameHead_);
  Box lines = inside;
  for (const Control* label :
       {&f.Label14, &f.Label15, &f.Label16, &f.Label17, &f.Label18, &f.Label19})
    Put(*label, lines.CutTop(line_, 60));
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
  const int rows = CaseLength(faces::CaseSpanOf(f, f.fracase).height);
  Box top = frame.CutTop(std::clamp(frame.height - line_ - rows - 2 * kGap, field_, default_));
  const auto head = [this](Box& row, int width) {
    Box name = row.CutLeft(width);
    name.top += (field_ - line_) / 2;
    return name.CutTop(line_);
  };
  Put(f.lblexprcase, head(top, 1'050));
  Box expression = top.CutLeft((top.width - 900) * 2 / 5);
  Put(f.txtcaseexp, expression.CutTop(field_));
  Put(f.lblDefault, head(top, 750));
  Put(f.TxtDef, top);

  caseWidth_ = std::max(frame.width, faces::kCaseFrameTwips);
  const auto across = [this](int twips) { return twips * caseWidth_ / faces::kCaseFrameTwips; };
  const Box heads = frame.CutTop(line_, 30);
  Put(f.lblexpr, {{heads.left + across(120), heads.top, across(2'400), line_}});
  Put(f.lblstmt, {{heads.left + across(2'640), heads.top, across(4'000), line_}});
  Put(f.fracase, {{frame.left, frame.top, caseWidth_, rows}});
}

}  // namespace zolt20::com
