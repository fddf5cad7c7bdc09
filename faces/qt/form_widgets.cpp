// Making the widgets of the form.
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabBar>
#include <QToolButton>
#include <algorithm>

#include "faces/qt/announcer.h"
#include "faces/qt/combo_box.h"
#include "faces/qt/face_style.h"
#include "faces/qt/form_face.h"
#include "faces/qt/qt_text.h"
#include "faces/qt/rows_view.h"
#include "faces/qt/text_boxes.h"
#include "faces/shared/form_words.h"

namespace zolt20::qt {
namespace {

QString Name(const Control& control) {
  return QString::fromLatin1(control.name().data(), static_cast<qsizetype>(control.name().size()));
}

// A button whose width hint is that of its caption plus padding.
class CaptionButton final : public QPushButton {
 public:
  using QPushButton::QPushButton;

  QSize sizeHint() const override {
    constexpr int kRoom = 24;
    constexpr int kLeastLetters = 6;
    const QFontMetrics metrics = fontMetrics();
    const int caption = metrics.size(Qt::TextShowMnemonic, text()).width();
    const int least = text().size() > 2 ? kLeastLetters * metrics.averageCharWidth() : 0;
    return {std::max(caption, least) + kRoom, QPushButton::sizeHint().height()};
  }
  QSize minimumSizeHint() const override { return sizeHint(); }
};

// An option button that a click does not check: the control decides. It stays exclusive in its
// group, since screen readers tell that.
class OptionWidget final : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;

 protected:
  void nextCheckState() override {}
};

}  // namespace

QWidget* FormFace::MakeWidget(const Control& control) {
  QWidget* widget = nullptr;
  switch (control.kind()) {
    case Kind::TabStrip:
      widget = MakeTabStrip(static_cast<const TabStrip&>(control));
      break;
    case Kind::SyntaxTextBox:
      widget = MakeLinesBox(control);
      break;
    case Kind::TextBox:
      widget = MakeTextBox(static_cast<const TextBox&>(control));
      break;
    case Kind::ListBox:
      widget = MakeList(static_cast<const ListBox&>(control));
      break;
    case Kind::ComboBox:
      widget = MakeCombo(static_cast<const ComboBox&>(control));
      break;
    case Kind::Button:
      widget = MakeButton(control);
      break;
    case Kind::OptionButton:
      widget = MakeOption(static_cast<const OptionButton&>(control));
      break;
    case Kind::Frame: {
      auto* group = new QGroupBox(&owner_);
      group->setFlat((control.design().style & kNoBorder) != 0);
      widget = group;
      break;
    }
    case Kind::Label: {
      auto* label = new QLabel(&owner_);
      label->setTextFormat(Qt::PlainText);
      widget = label;
      break;
    }
    case Kind::Rectangle: {
      auto* frame = new QFrame(&owner_);
      frame->setFrameShape(QFrame::StyledPanel);
      TellAsGroup(*frame);
      widget = frame;
      break;
    }
    case Kind::ScrollBar:
      widget = MakeScrollBar(static_cast<const ScrollBar&>(control));
      break;
  }
  widget->setStyle(style_.get());
  widget->setObjectName(Name(control));
  widget->setAccessibleName(ToQt(faces::AccessibleName(control)));
  widgets_.emplace(&control, widget);
  controls_.insert(widget, &control);
  if (control.TakesFocus() || &control == &Form().fracase) widget->installEventFilter(this);
  return widget;
}

QWidget* FormFace::MakeTabStrip(const TabStrip& strip) {
  auto* bar = new QTabBar(&owner_);
  bar->setDrawBase(true);
  bar->setExpanding(false);
  bar->setUsesScrollButtons(true);
  bar->setFocusPolicy(Qt::ClickFocus);
  for (const StringView caption : kPageCaptions)
    bar->addTab(ToQt(caption));
  // The scroll arrows of the tab bar are no controls of the form.
  for (QToolButton* arrow : bar->findChildren<QToolButton*>())
    arrow->setFocusPolicy(Qt::NoFocus);
  connect(bar, &QTabBar::currentChanged, this, [this, &strip](int page) {
    Make({Gesture::kTab, &strip, page});
  });
  return bar;
}

QWidget* FormFace::MakeLinesBox(const Control& box) {
  auto* lines = new LinesBox(&owner_);
  connect(lines, &LinesBox::Typed, this, [this, &box, lines] {
    Make({Gesture::kType, &box, UserGesture::kNone, lines->Text()});
  });
  return lines;
}

QWidget* FormFace::MakeTextBox(const TextBox& box) {
  if ((box.design().style & kMultiLine) != 0) return MakeLinesBox(box);
  auto* line = new LineBox(box.design().name == ControlName::txtAsSet, &owner_);
  const auto* mark = new LineMark(*line);
  connect(line, &LineBox::Typed, this,
          [this, &box, line, mark] { TypedIn(box, *line, mark->mark()); });
  connect(line, &LineBox::KeyTyped, this, [this, &box](int from, int to, char16_t code) {
    if (!isShowing_) End(person_.Key(box, code, {from, to}));
  });
  return line;
}

QWidget* FormFace::MakeList(const ListBox& list) {
  auto* view = new RowsView(list, &owner_);
  models_.insert(&list, &view->rows());
  connect(view, &RowsView::RowClicked, this, [this, &list](int row) {
    Make({Gesture::kClickRow, &list, row});
  });
  connect(view, &RowsView::RowDoubleClicked, this, [this, &list](int row) {
    Make({Gesture::kDoubleClickRow, &list, row});
  });
  return view;
}

QWidget* FormFace::MakeCombo(const ComboBox& combo) {
  auto* box = new ComboWidget(combo, &owner_);
  auto* model = new RowsModel(combo, box);
  models_.insert(&combo, model);
  box->setModel(model);
  if (combo.IsEditable()) {
    const auto* mark = new LineMark(*box->lineEdit());
    connect(box, &ComboWidget::Typed, this,
            [this, &combo, box, mark] { TypedIn(combo, *box->lineEdit(), mark->mark()); });
  }
  connect(box, &QComboBox::activated, this, [this, &combo](int row) {
    Make({Gesture::kPick, &combo, row});
  });
  return box;
}

QWidget* FormFace::MakeButton(const Control& button) {
  auto* push = new CaptionButton(&owner_);
  push->setAutoDefault(false);
  push->setFocusPolicy(Qt::ClickFocus);
  connect(push, &QPushButton::clicked, this, [this, &button] { Make({Gesture::kClick, &button}); });
  return push;
}

QWidget* FormFace::MakeOption(const OptionButton& option) {
  auto* radio = new OptionWidget(&owner_);
  radio->setFocusPolicy(Qt::ClickFocus);
  connect(radio, &QRadioButton::clicked, this, [this, &option] {
    Make({Gesture::kClick, &option});
  });
  return radio;
}

QWidget* FormFace::MakeScrollBar(const ScrollBar& bar) {
  auto* scroll = new QScrollBar(Qt::Vertical, &owner_);
  scroll->setFocusPolicy(Qt::ClickFocus);
  scroll->setSingleStep(ScrollBar::SmallChange());
  scroll->setPageStep(ScrollBar::SmallChange());
  scroll->setTracking(false);  // a drag is one gesture, when the slider is let go
  connect(scroll, &QScrollBar::valueChanged, this, [this, &bar](int value) {
    Make({Gesture::kScroll, &bar, value});
  });
  return scroll;
}

}  // namespace zolt20::qt
