// Showing in the widgets of the form what the control changed.
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTabBar>
#include <algorithm>

#include "faces/qt/combo_box.h"
#include "faces/qt/form_face.h"
#include "faces/qt/qt_text.h"
#include "faces/qt/rows_view.h"
#include "faces/qt/text_boxes.h"
#include "faces/shared/back_colors.h"
#include "faces/shared/case_places.h"
#include "faces/shared/form_words.h"

namespace zolt20::qt {
namespace {

constexpr int kTwipsPerInch = 1440;

// The palette for the background colour of a control, provided the text can be read on it. Qt has
// no colour for inactive title bars; the window's colour around the box stands in for it.
QPalette PaletteOf(const Control& control) {
  QPalette palette;
  const auto asked = faces::SystemColorOf(faces::BackColorOf(control).value_or(0));
  if (!asked) return palette;
  const bool isOfText = *asked == faces::SystemColor::kHighlightedText;
  const QColor color = palette.color(isOfText ? QPalette::HighlightedText : QPalette::Window);
  const auto rgb = [](const QColor& of) { return faces::Rgb{of.red(), of.green(), of.blue()}; };
  if (faces::CanBeRead(rgb(palette.color(QPalette::Text)), rgb(color)))
    palette.setColor(QPalette::Base, color);
  return palette;
}

void ShowTextBox(const TextBox& box, QWidget& widget, const faces::Change& change) {
  const bool movesCaret = change.Has(Property::kSelStart);
  if (auto* lines = qobject_cast<LinesBox*>(&widget)) {
    lines->Show(box.Text());
    if (movesCaret) lines->ShowCaret(box.SelStart());
    lines->setBackgroundRole(QPalette::Base);
    if (faces::BackColorOf(box)) lines->setPalette(PaletteOf(box));
  } else {
    auto& line = static_cast<LineBox&>(widget);
    line.Show(box.Text());
    if (movesCaret) line.ShowCaret(box.SelStart());
  }
}

void ShowOption(const OptionButton& option, QRadioButton& radio) {
  radio.setText(ToQt(faces::CaptionWithMnemonic(option)));
  radio.setAutoExclusive(false);  // so that a checked button can be unchecked
  radio.setChecked(option.Value());
  radio.setAutoExclusive(true);
}

}  // namespace

void FormFace::ShowChanges() {
  if (isShowing_) return;
  const bool hadFocus = HasFocus();
  bool focusMoved = false;
  bool historyChanged = false;
  {
    const QScopedValueRollback showing(isShowing_, true);
    faces::Changes changes = person_.TakeChanges();
    while (true) {
      focusMoved |= changes.focusMoved;
      historyChanged |= changes.historyChanged;
      if (changes.changed.empty()) break;
      ShowControls(changes.changed);
      changes = person_.TakeChanges();
    }
    if (hadFocus) ShowFocus(focusMoved);
  }
  if (historyChanged) emit HistoryChanged();
}

void FormFace::ShowControls(const std::map<const Control*, faces::Change>& changed) {
  // Makes all missing widgets before any is updated: hiding one lets Qt move the focus to another.
  for (const auto& [control, change] : changed) {
    if (WidgetOf(*control) == nullptr) MakeWidget(*control)->setParent(WidgetOf(*control->frame()));
  }
  for (const auto& [control, change] : changed) {
    QWidget& widget = *WidgetOf(*control);
    ShowKind(*control, widget, change);
    ShowPlace(*control, widget);
    widget.setEnabled(control->Enabled());
    widget.setVisible(control->Visible());
    if (QWidget* filter = filters_.value(control)) filter->setEnabled(control->Enabled());
  }
}

void FormFace::ShowKind(const Control& control, QWidget& widget, const faces::Change& change) {
  switch (control.kind()) {
    case Kind::TabStrip:
      static_cast<QTabBar&>(widget).setCurrentIndex(
          static_cast<const TabStrip&>(control).Tab().value());
      break;
    case Kind::SyntaxTextBox: {
      const auto& box = static_cast<const SyntaxTextBox&>(control);
      auto& lines = static_cast<LinesBox&>(widget);
      lines.Highlight(box.Highlight());
      lines.Show(box.Text());
      break;
    }
    case Kind::TextBox:
      ShowTextBox(static_cast<const TextBox&>(control), widget, change);
      break;
    case Kind::ListBox:
      static_cast<RowsView&>(widget).ShowMarks();
      break;
    case Kind::ComboBox: {
      auto& box = static_cast<ComboWidget&>(widget);
      box.Show();
      box.setPalette(PaletteOf(control));
      break;
    }
    case Kind::Button:
      static_cast<QPushButton&>(widget).setText(ToQt(faces::CaptionWithMnemonic(control)));
      break;
    case Kind::OptionButton:
      ShowOption(static_cast<const OptionButton&>(control), static_cast<QRadioButton&>(widget));
      break;
    case Kind::Frame: {
      auto& group = static_cast<QGroupBox&>(widget);
      if (!group.isFlat()) group.setTitle(ToQt(static_cast<const Frame&>(control).Caption()));
      break;
    }
    case Kind::Label:
      static_cast<QLabel&>(widget).setText(ToQt(static_cast<const Label&>(control).Caption()));
      break;
    case Kind::Rectangle:
      break;
    case Kind::ScrollBar: {
      const auto& bar = static_cast<const ScrollBar&>(control);
      auto& scroll = static_cast<QScrollBar&>(widget);
      scroll.setRange(0, bar.Max());
      scroll.setValue(bar.Value());
      break;
    }
  }
  // Qt would report even an unchanged name as a change to screen readers.
  const QString name = ToQt(faces::AccessibleName(control));
  if (widget.accessibleName() != name) widget.setAccessibleName(name);
}

// Sets the height of the frame of the case rows, or the whole place of a control in it, whose width
// scales with that of the frame.
void FormFace::ShowPlace(const Control& control, QWidget& widget) {
  if (control.Height() == 0) return;
  const auto down = [this](int twips) { return Pixels(twips); };
  const auto length = [&](const faces::Stretch& stretch) {
    return stretch.In(down, rowGrowth_, nextGrowth_);
  };
  const faces::CaseSpan span = faces::CaseSpanOf(Form(), control);
  if (control.design().name == ControlName::fracase) {
    widget.setFixedHeight(length(span.height));
    return;
  }
  const int frame = std::max(widget.parentWidget()->width(), down(faces::kCaseFrameTwips));
  const auto across = [&](int twips) { return twips * frame / faces::kCaseFrameTwips; };
  widget.setGeometry(across(control.Left()), length(span.top), across(control.Width()),
                     length(span.height));
}

void FormFace::PlaceCaseRows() {
  for (const Control* control : Form().Controls()) {
    QWidget* widget = WidgetOf(*control);
    if (widget != nullptr && control->frame() == &Form().fracase) ShowPlace(*control, *widget);
  }
}

// Grows the controls that have their places from the form to what their font needs: case rows of
// two lines, the button below them, and the frame around them.
void FormFace::FitToLetters() {
  constexpr int kLines = 2;
  constexpr int kDefaultHeight = 48;
  constexpr int kButtonEdges = 12;
  const Surface& form = Form();
  const auto& statements = static_cast<const LinesBox&>(*WidgetOf(form.txtStmt(0)));
  const auto& next = static_cast<const QPushButton&>(*WidgetOf(form.cmdNext));
  const int row =
      std::max(WidgetOf(form.TxtExpr(0))->minimumSizeHint().height(), statements.HeightOf(kLines));
  rowGrowth_ = std::max(0, row - Pixels(form.TxtExpr(0).Height()));
  nextGrowth_ = std::max(0, next.minimumSizeHint().height() - Pixels(form.cmdNext.Height()));

  const int caption = next.fontMetrics().size(Qt::TextShowMnemonic, next.text()).width();
  QWidget& frame = *WidgetOf(form.fracase);
  frame.setMinimumWidth(
      std::max(Pixels(faces::kCaseFrameTwips),
               (caption + kButtonEdges) * faces::kCaseFrameTwips / form.cmdNext.Width() + 1));
  ShowPlace(form.fracase, frame);
  PlaceCaseRows();

  auto& otherwise = static_cast<LinesBox&>(*WidgetOf(form.TxtDef));
  otherwise.setMaximumHeight(std::max(kDefaultHeight, otherwise.HeightOf(kLines)));
}

int FormFace::Pixels(int twips) const {
  return twips * owner_.logicalDpiY() / kTwipsPerInch;
}

}  // namespace zolt20::qt
