// What all controls of the form have in common: Enabled, Visible, their place in the tab order,
// focus.
//
// A control is a plain object that holds its state, tells the observers of its surface what
// changed, and fires its events at the right moment. Its surface owns it and determines its
// lifetime. The functions here and in the headers of the kinds are for handlers; what a person does
// comes in through the gestures of the surface.
#pragma once

#include <string_view>
#include <variant>
#include <vector>

#include "surface/form.h"
#include "surface/integer.h"
#include "surface/observer.h"
#include "surface/row_text.h"
#include "surface/shared.h"
#include "surface/string.h"

namespace zolt20 {

class Frame;
class Surface;

// The state of a control by its kind: plain values, which a snapshot copies.

struct TextState {
  Shared<String> text;
  int selStart = 0;        ///< of a plain text box only
  unsigned backColor = 0;  ///< of a plain text box only
  bool highlight = false;  ///< of a box with syntax colouring only
};

struct RowsState {
  Shared<RowTexts> rows;
  // For each row 1 if marked, else 0. Bytes, since rows are inserted and erased in the middle.
  Shared<std::vector<unsigned char>> marks;
  int listIndex = -1;
  int markCount = 0;
  String text;  ///< of a combo box only
  unsigned backColor = 0;
};

struct CaptionState {
  String caption;
  bool value = false;  ///< of an option button only
};

struct ScrollState {
  int value = 0;
  int max = 0;
};

struct TabStripState {
  int tab = 0;
};

using KindState =
    std::variant<std::monostate, TextState, RowsState, CaptionState, ScrollState, TabStripState>;

struct ControlState {
  bool enabled = true;
  bool visible = true;
  Geometry place;
  KindState kind;
};

class Control {
 public:
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const Design& design() const { return *design_; }
  Kind kind() const { return design_->kind; }
  /// The name as it is written, an element's with its index: "TxtExpr(3)".
  std::string_view name() const { return design_->text; }
  /// The index within its control array, which its events pass on; kNoIndex for any other control.
  int Index() const { return design_->index; }
  /// The frame that holds the control; nullptr when it lies on the form or a page itself.
  const Frame* frame() const { return frame_; }

  bool Enabled() const { return enabled_; }
  /// Fires nothing. Disabling takes the focus away.
  void Enabled(bool enabled);

  /// The control's own flag; see Shown for what a person sees.
  bool Visible() const { return visible_; }
  /// Fires nothing. Hiding takes the focus away, also from a control within a hidden frame.
  void Visible(bool visible);

  /// Visible, within visible frames, on the active page of a visible form.
  bool Shown() const;

  /// Whether the kind of control can have the focus: all but labels, frames and the rectangle.
  bool TakesFocus() const;
  /// Moves the focus here and runs GotFocus inside the call; nothing happens when the control has
  /// it already. Raises `argument` when the control is not shown, not enabled or of a kind that
  /// takes no focus.
  void SetFocus();

  /// The place in the tab order, from 0; -1 for Shape1, the one control of the kind Rectangle,
  /// which has none.
  Integer TabIndex() const;
  /// Moves the control to that place, or to the last one when it lies beyond; the controls between
  /// the two places move up or down by one. Raises `value` for a negative place.
  void TabIndex(Integer place);

  /// In twips, within the frame. Only the case rows, the parts of their frame and that frame have a
  /// place of their own.
  int Left() const { return place_.left; }
  int Top() const { return place_.top; }
  int Width() const { return place_.width; }
  int Height() const { return place_.height; }
  void Left(int left);
  void Top(int top);

 protected:
  Control(Surface& surface, const Design& design);
  virtual ~Control() = default;

  virtual KindState SaveKind() const { return {}; }
  /// Restores a state that SaveKind of the same kind of control returned. Sends no notice.
  virtual void RestoreKind(KindState&& /*state*/) noexcept {}

  void Changed(Property property) const;
  Surface& surface() const { return surface_; }

 private:
  friend class Surface;

  ControlState Save() const;
  void Restore(ControlState&& state) noexcept;
  void PlaceAt(const Geometry& place);

  Surface& surface_;
  const Design* design_;
  Frame* frame_ = nullptr;
  bool enabled_ = true;
  bool visible_;
  Geometry place_;
  mutable int tabIndex_ = -1;  // as it was last read; see Surface::PlaceInTabOrder
};

}  // namespace zolt20
