#include "faces/shared/form_places.h"

#include <algorithm>
#include <numeric>

namespace zolt20::faces {
namespace {

constexpr int kMargin = 120;
// The least heights of lines, and the padding that each kind of control adds to a line's height.
constexpr int kLine = 240;
constexpr int kSmallLine = 210;
constexpr int kTabEdges = 135;
constexpr int kFieldEdges = 90;
constexpr int kButtonEdges = 150;
constexpr int kCaptionEdge = 30;
constexpr int kLinesOfCase = 2;
// The padding that each kind of control adds to the width of its text.
constexpr int kLabelEnd = 30;
constexpr int kTabSides = 240;
constexpr int kButtonSides = 300;
constexpr int kOptionSides = 390;
// The least widths.
constexpr int kButtonWidth = 1'350;
constexpr int kSignWidth = 600;  // of a button with a symbol for a caption
constexpr int kFieldWidth = 900;
constexpr int kListWidth = 1'500;
constexpr int kLinesWidth = 2'000;
constexpr int kToolWidth = 900;

int TwipsOf(Gap gap) {
  switch (gap) {
    case Gap::kNone:
      return 0;
    case Gap::kTight:
      return 30;
    case Gap::kUsual:
      return 90;
    case Gap::kWide:
      return 180;
  }
  return 0;
}

bool IsAcross(const Part& part) {
  return part.kind == PartKind::kRow || part.kind == PartKind::kPair;
}

bool AreInOnePlace(const Part& part) {
  return part.kind == PartKind::kStack || part.kind == PartKind::kPages;
}

bool IsMultiLine(const Design& control) {
  return (control.style & kMultiLine) != 0;
}

// Whether a control has a fixed height of one line, however much room there is.
bool HasOneLine(const Design& control) {
  switch (control.kind) {
    case Kind::TextBox:
      return !IsMultiLine(control);
    case Kind::TabStrip:
    case Kind::ComboBox:
    case Kind::Button:
    case Kind::OptionButton:
    case Kind::Label:
      return true;
    default:
      return false;
  }
}

// Shares a length among parts: a part of weight 0 gets its least length; the others share the rest
// by their weights, none getting less than its least length.
std::vector<int> Shared(const std::vector<Part>& parts, const std::vector<int>& least, int length) {
  std::vector<int> shares = least;
  std::vector<bool> isSettled;
  isSettled.reserve(parts.size());
  for (const Part& part : parts)
    isSettled.push_back(part.weight == 0);
  for (bool isDone = false; !isDone;) {
    isDone = true;
    int left = length;
    int weights = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
      isSettled[i] ? left -= shares[i] : weights += parts[i].weight;
    }
    for (std::size_t i = 0; i < parts.size(); ++i) {
      if (isSettled[i]) continue;
      const int share = std::max(0, left) * parts[i].weight / weights;
      if (share < least[i]) {
        shares[i] = least[i];
        isSettled[i] = true;
        isDone = false;
        break;
      }
      left -= share;
      weights -= parts[i].weight;
      shares[i] = share;
    }
  }
  return shares;
}

}  // namespace

struct FormPlaces::Box : Geometry {
  int Right() const { return left + width; }
  int Bottom() const { return top + height; }
};

FormPlaces::FormPlaces(const Surface& form, int width, int height, const Letters& letters)
    : form_(form),
      letters_(letters),
      line_(std::max(kLine, letters.line)),
      smallLine_(std::max(kSmallLine, letters.smallLine)),
      field_(line_ + kFieldEdges),
      button_(line_ + kButtonEdges),
      lines_(kLinesOfCase * letters.line + letters.scrollBar + kFieldEdges),
      frameHead_(line_ + kCaptionEdge),
      rowGrowth_(std::max(0, lines_ - form.TxtExpr(0).Height())),
      nextGrowth_(std::max(0, letters.line + kButtonEdges - form.cmdNext.Height())) {
  const Part& layout = Layout();
  const Extent least = Measure(layout);
  width_ = std::max(width, least.width + 2 * kMargin);
  height_ = std::max(height, least.height + 2 * kMargin);
  Put(layout, {{kMargin, kMargin, width_ - 2 * kMargin, height_ - 2 * kMargin}});
}

// Sizes.

int FormPlaces::WidthOf(StringView text, bool isSmall) const {
  if (letters_.width) return letters_.width(text, isSmall);
  const int letter = (isSmall ? smallLine_ : line_) * 2 / 5;
  return letter * static_cast<int>(text.size());
}

FormPlaces::Extent FormPlaces::OfControl(const Design& control) const {
  const auto text = [&](int sides) { return WidthOf(control.caption, false) + sides; };
  switch (control.kind) {
    case Kind::TabStrip: {
      int width = 0;
      for (const StringView caption : kPageCaptions)
        width += WidthOf(caption, false) + kTabSides;
      return {width, line_ + kTabEdges};
    }
    case Kind::Button: {
      const bool isSign = control.caption.size() <= 2;
      return {std::max(isSign ? kSignWidth : kButtonWidth, text(kButtonSides)), button_};
    }
    case Kind::OptionButton:
      return {text(kOptionSides), field_};
    case Kind::Label: {
      const bool isSmall = IsNote(control);
      return {WidthOf(control.caption, isSmall) + kLabelEnd, isSmall ? smallLine_ : line_};
    }
    case Kind::ListBox:
      return {kListWidth, LeastLines(control) * line_ + kFieldEdges};
    case Kind::ComboBox:
      return {kListWidth, field_};
    case Kind::TextBox:
    case Kind::SyntaxTextBox:
      if (!IsMultiLine(control)) return {kFieldWidth, field_};
      return {kLinesWidth, std::max(lines_, LeastLines(control) * line_ + kFieldEdges)};
    default:
      return {};
  }
}

// The border and caption that a frame adds to the size of its contents.
FormPlaces::Extent FormPlaces::AroundOf(const Part& part) const {
  if (part.kind != PartKind::kFrame || (part.control->style & kNoBorder) != 0) return {};
  const bool hasCaption = part.control->kind == Kind::Frame;
  return {2 * kMargin, (hasCaption ? frameHead_ : 0) + 2 * kMargin};
}

int FormPlaces::LabelWidth(const Part& fields) const {
  int width = 0;
  for (const Part& pair : fields.parts) {
    if (pair.kind == PartKind::kPair) width = std::max(width, LeastOf(pair.parts.front()).width);
  }
  return width;
}

FormPlaces::Extent FormPlaces::Measure(const Part& part) {
  Extent needed;
  const int gaps = TwipsOf(part.gap) * std::max(0, static_cast<int>(part.parts.size()) - 1);
  for (const Part& inner : part.parts) {
    const Extent least = Measure(inner);
    const bool isAlong = !AreInOnePlace(part);
    const bool isAcross = IsAcross(part);
    needed.width =
        isAlong && isAcross ? needed.width + least.width : std::max(needed.width, least.width);
    needed.height =
        isAlong && !isAcross ? needed.height + least.height : std::max(needed.height, least.height);
  }
  switch (part.kind) {
    case PartKind::kControl:
      needed = OfControl(*part.control);
      break;
    case PartKind::kFilter:
      needed = {kListWidth, field_};
      break;
    case PartKind::kMarks:
      needed = {0, line_};
      break;
    case PartKind::kTools:
      needed = {2 * kToolWidth + TwipsOf(part.gap), button_};
      break;
    case PartKind::kOwn:
      needed = {kCaseFrameTwips, CaseLength(CaseSpanOf(form_, form_.fracase).height)};
      break;
    case PartKind::kFields: {
      int boxes = 0;
      for (const Part& pair : part.parts) {
        if (pair.kind == PartKind::kPair) boxes = std::max(boxes, LeastOf(pair.parts.back()).width);
      }
      needed.width = LabelWidth(part) + TwipsOf(part.gap) + boxes;
      needed.height += gaps;
      break;
    }
    case PartKind::kRow:
    case PartKind::kPair:
      needed.width += gaps;
      break;
    case PartKind::kStack:
    case PartKind::kPages:
    case PartKind::kSpace:
      break;
    default:
      needed.height += gaps;
      break;
  }
  const Extent around = AroundOf(part);
  needed.width += around.width;
  needed.height += around.height;
  return least_[&part] = needed;
}

// Places.

void FormPlaces::Put(const Part& part, Box box) {
  switch (part.kind) {
    case PartKind::kSpace:
      return;
    case PartKind::kControl:
      places_[part.control] = box;
      return;
    case PartKind::kFilter:
      filters_[part.control] = box;
      return;
    case PartKind::kMarks:
      marks_[part.control] = box;
      return;
    case PartKind::kTools:
      tools_ = box;
      return;
    case PartKind::kOwn:
      PutCases(part, box);
      return;
    case PartKind::kPages:
      pages_ = box;
      [[fallthrough]];
    case PartKind::kStack:
      for (const Part& inner : part.parts)
        Put(inner, box);
      return;
    case PartKind::kFrame: {
      places_[part.control] = box;
      const Extent around = AroundOf(part);
      box.left += around.width / 2;
      box.width -= around.width;
      box.top = box.Bottom() - around.width / 2 - (box.height - around.height);
      box.height -= around.height;
      PutAlong(part, box, false);
      return;
    }
    default:
      PutAlong(part, box, IsAcross(part));
      return;
  }
}

void FormPlaces::PutAlong(const Part& part, Box box, bool isAcross) {
  const int gap = TwipsOf(part.gap);
  const int gaps = gap * std::max(0, static_cast<int>(part.parts.size()) - 1);
  std::vector<int> least;
  for (const Part& inner : part.parts)
    least.push_back(isAcross ? LeastOf(inner).width : LeastOf(inner).height);
  const std::vector<int> shares =
      Shared(part.parts, least, (isAcross ? box.width : box.height) - gaps);
  const int labels = part.kind == PartKind::kFields ? LabelWidth(part) : 0;
  for (std::size_t i = 0; i < part.parts.size(); ++i) {
    const Part& inner = part.parts[i];
    Box piece = box;
    (isAcross ? piece.width : piece.height) = shares[i];
    if (inner.kind == PartKind::kPair) {
      PutPair(inner, piece, labels);
    } else {
      Put(inner, isAcross ? Aligned(inner, piece) : piece);
    }
    (isAcross ? box.left : box.top) += shares[i] + gap;
  }
}

// The rectangle of a part of the layout within the room that its row gives it. Buttons and other
// controls of one line stand at the bottom of the room, labels level with the text of a box there.
// All else fills the room.
FormPlaces::Box FormPlaces::Aligned(const Part& part, Box box) const {
  const bool isOneLine = part.kind == PartKind::kTools ||
                         (part.kind == PartKind::kControl && HasOneLine(*part.control));
  if (!isOneLine) return box;
  const int height = LeastOf(part).height;
  const bool isLabel = part.kind == PartKind::kControl && part.control->kind == Kind::Label;
  const int below = isLabel && box.height >= field_ ? (field_ - line_) / 2 : 0;
  return {{box.left, box.Bottom() - height - below, box.width, height}};
}

// Places a label beside the first line of its box.
void FormPlaces::PutPair(const Part& pair, Box box, int labelWidth) {
  const Part& label = pair.parts.front();
  Put(label, {{box.left, box.top + (field_ - line_) / 2, labelWidth, line_}});
  const int before = labelWidth + TwipsOf(pair.gap);
  Put(pair.parts.back(), {{box.left + before, box.top, box.width - before, box.height}});
}

void FormPlaces::PutCases(const Part& part, Box box) {
  caseWidth_ = box.width;
  places_[part.control] = box;
}

int FormPlaces::CaseLength(const Stretch& length) const {
  return length.In([](int twips) { return twips; }, rowGrowth_, nextGrowth_);
}

Geometry FormPlaces::Of(const Control& control) const {
  if (control.frame() == &form_.fracase) {
    // Scales all widths and left edges with the width of the frame.
    const auto across = [this](int twips) { return twips * caseWidth_ / kCaseFrameTwips; };
    const CaseSpan span = CaseSpanOf(form_, control);
    return {across(control.Left()), CaseLength(span.top), across(control.Width()),
            CaseLength(span.height)};
  }
  const auto found = places_.find(&control.design());
  if (found == places_.end()) return {};
  Geometry place = found->second;
  if (const Control* frame = control.frame()) {
    const Geometry& around = places_.at(&frame->design());
    place.left -= around.left;
    place.top -= around.top;
  }
  return place;
}

Geometry FormPlaces::FilterOf(const Control& control) const {
  const auto found = filters_.find(&control.design());
  return found == filters_.end() ? Geometry{} : found->second;
}

Geometry FormPlaces::MarksOf(const Control& control) const {
  const auto found = marks_.find(&control.design());
  return found == marks_.end() ? Geometry{} : found->second;
}

Geometry FormPlaces::Undo() const {
  return {tools_.left, tools_.top, kToolWidth, tools_.height};
}

Geometry FormPlaces::Redo() const {
  return {tools_.left + tools_.width - kToolWidth, tools_.top, kToolWidth, tools_.height};
}

}  // namespace zolt20::faces
