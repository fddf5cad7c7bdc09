// What the form consists of, as data: one row a control, made from surface/form.def.
//
// The surface builds its controls from these rows, the automation host dumps controls by them, and
// tests iterate over them. A face that lays the form out reads page, frame, caption and style here,
// and everything that changes from the control itself.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "surface/string.h"

namespace zolt20 {

enum class Kind {
  TabStrip,
  SyntaxTextBox,
  TextBox,
  ListBox,
  ComboBox,
  Button,
  OptionButton,
  Frame,
  Label,
  Rectangle,
  ScrollBar,
};

/// The name of a control, or of a control array: all elements of an array share it.
enum class ControlName {
#define ZOLT20_ARRAY(kind, name) name,
#define ZOLT20_CONTROL(kind, name, page, frame, caption, style) name,
#define ZOLT20_ELEMENT(kind, array, index, page, frame, caption, style)
#include "surface/form.def"
  kForm,  ///< no control: the form itself, around all frames
};

/// Traits of a control that never change. A set of bits.
enum Style : unsigned {
  kPlain = 0,
  kMultiLine = 1U << 0,    ///< a text box of several lines with both scroll bars
  kMultiSelect = 1U << 1,  ///< a list in which a click toggles a row
  kCheckBoxes = 1U << 2,   ///< a list with a check box in each row
  kSorted = 1U << 3,       ///< rows stand in the order of their 16-bit units
  kPickOnly = 1U << 4,     ///< a combo into which nothing can be typed
  kEditable = 1U << 5,     ///< a combo into which any text can be typed
  kNoBorder = 1U << 6,     ///< a frame drawn without a border
  kHidden = 1U << 7,       ///< `Visible` False at design
  kArial = 1U << 8,        ///< the font is Arial; it is Verdana everywhere else
};

/// A place and a size in twips, within the frame around the control.
struct Geometry {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  friend bool operator==(const Geometry&, const Geometry&) = default;
};

/// The page of controls that are shown whatever the page.
inline constexpr int kEveryPage = -1;

/// The index of a control that is no element of an array.
inline constexpr int kNoIndex = -1;

/// One control as it is at design.
struct Design {
  Kind kind;
  ControlName name;
  int index;  ///< within its array, or kNoIndex
  std::string_view
      text;           ///< the name as it is written, an element's with its index: "cmdFunction(2)"
  int page;           ///< 0 to 6, or kEveryPage
  ControlName frame;  ///< the frame it lies in, or kForm
  StringView caption;
  unsigned style;  ///< bits of Style
};

inline constexpr auto kForm = std::to_array<Design>({
#define ZOLT20_ARRAY(kind, name)
#define ZOLT20_CONTROL(kind, name, page, frame, caption, style) \
  {Kind::kind, ControlName::name, kNoIndex, #name, page, ControlName::frame, caption, style},
#define ZOLT20_ELEMENT(kind, array, index, page, frame, caption, style) \
  {Kind::kind, ControlName::array, index,   #array "(" #index ")",      \
   page,       ControlName::frame, caption, style},
#include "surface/form.def"
});

/// The place of a control at design, in twips: known for the frame, boxes, bar and button of the
/// case rows, which the logic moves; {} for all other controls. A face lays all controls out as it
/// likes.
constexpr Geometry PlaceAtDesign(ControlName name) {
  switch (name) {
    case ControlName::fracase:
      return {0, 0, 0, 2880};
    case ControlName::TxtExpr:
      return {120, 120, 1935, 680};
    case ControlName::txtStmt:
      return {2640, 120, 3975, 680};
    case ControlName::VscrCase:
      return {6720, 120, 375, 2295};
    case ControlName::cmdNext:
      return {6720, 2520, 825, 350};
    default:
      return {};
  }
}

/// The captions of the pages, in order.
inline constexpr std::array<StringView, 7> kPageCaptions{
    u" Select List ", u"Where",       u"SelectDo",  u"SelectEOS",
    u"SelectEmpty",   u"SelectError", u"Condition",
};

/// The row of kForm that a control is made from.
template <ControlName name, int index = kNoIndex>
inline constexpr std::size_t kRowOf = [] {
  std::size_t row = 0;
  while (kForm[row].name != name || kForm[row].index != index)
    ++row;
  return row;
}();

}  // namespace zolt20
