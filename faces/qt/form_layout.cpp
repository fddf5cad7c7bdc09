#include "faces/qt/form_layout.h"

#include <QApplication>
#include <QEvent>
#include <QGridLayout>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScrollArea>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "faces/qt/face_style.h"
#include "faces/qt/form_face.h"
#include "faces/qt/icons.h"
#include "faces/qt/rows_view.h"

namespace zolt20::qt {
namespace {

using faces::Gap;
using faces::Part;
using faces::PartKind;

constexpr int kGap = 6;
constexpr int kMargin = 8;
constexpr qreal kSmall = 0.85;
constexpr std::array kSplitHeights{430, 150};

int PixelsOf(Gap gap) {
  switch (gap) {
    case Gap::kNone:
      return 0;
    case Gap::kTight:
      return 3;
    case Gap::kUsual:
      return kGap;
    case Gap::kWide:
      return 10;
  }
  return 0;
}

template <typename Layout>
Layout* Tight(Layout* layout, Gap gap) {
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(PixelsOf(gap));
  return layout;
}

// A part of the form with a font smaller than the form's, and kept so when the form's font changes.
class SmallPrint final : public QWidget {
 public:
  explicit SmallPrint(QWidget& owner) : QWidget(&owner), owner_(owner) {
    owner_.installEventFilter(this);
    Fit();
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::FontChange) Fit();
    return QWidget::eventFilter(watched, event);
  }

 private:
  // Sets the font size alone, so that all else is inherited from the form.
  void Fit() {
    QFont font;
    if (const qreal points = owner_.font().pointSizeF(); points > 0) {
      font.setPointSizeF(points * kSmall);
    } else {
      font.setPixelSize(std::max(1, qRound(owner_.font().pixelSize() * kSmall)));
    }
    setFont(font);
  }

  QWidget& owner_;
};

// A scroll area for a form in a window too small for it. Scrolls so that the widget with the focus
// and the caret are visible.
class ScrolledForm final : public QScrollArea {
 public:
  explicit ScrolledForm(QWidget& owner) : QScrollArea(&owner) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget* /*before*/, QWidget* now) { Follow(now); });
  }

  // Disconnects first, since destroying the widgets in it moves the focus.
  ~ScrolledForm() override { disconnect(qApp, nullptr, this, nullptr); }
  ScrolledForm(const ScrolledForm&) = delete;
  ScrolledForm& operator=(const ScrolledForm&) = delete;

  void Take(QWidget* form) {
    setWidget(form);
    form->setAutoFillBackground(false);
  }

 protected:
  // Bypasses QScrollArea, which would scroll to the widget too; Follow does so already.
  // NOLINTNEXTLINE(bugprone-parent-virtual-call)
  bool focusNextPrevChild(bool next) override { return QWidget::focusNextPrevChild(next); }
  // A resize, by another page or font size, may have moved the widget with the focus out of view.
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool isDone = QScrollArea::eventFilter(watched, event);
    if (watched == widget() && event->type() == QEvent::Resize) RevealFocus();
    return isDone;
  }

 private:
  void Follow(QWidget* focus) {
    disconnect(caret_);
    focus_ =
        focus != nullptr && widget() != nullptr && widget()->isAncestorOf(focus) ? focus : nullptr;
    if (const auto* lines = qobject_cast<const QPlainTextEdit*>(focus_)) {
      caret_ =
          connect(lines, &QPlainTextEdit::cursorPositionChanged, this, [this] { RevealCaret(); });
    } else if (const auto* line = qobject_cast<const QLineEdit*>(focus_)) {
      caret_ = connect(line, &QLineEdit::cursorPositionChanged, this, [this] { RevealCaret(); });
    }
    RevealFocus();
  }
  void RevealFocus() {
    if (focus_ == nullptr) return;
    const auto* strip = qobject_cast<const QTabBar*>(focus_);
    Reveal(*focus_, strip == nullptr ? focus_->rect() : strip->tabRect(strip->currentIndex()));
    RevealCaret();
  }
  void RevealCaret() {
    if (const auto* lines = qobject_cast<const QPlainTextEdit*>(focus_)) {
      RevealCaret(*lines->viewport(), lines->cursorRect());
    } else if (const auto* line = qobject_cast<const QLineEdit*>(focus_)) {
      RevealCaret(*line, line->inputMethodQuery(Qt::ImCursorRectangle).toRect());
    }
  }
  // The caret is clamped to the box, which may not have scrolled to its caret yet.
  void RevealCaret(const QWidget& box, const QRect& caret) {
    const QPoint seen(std::clamp(caret.x(), 0, box.width()),
                      std::clamp(caret.y(), 0, box.height()));
    Reveal(box, {seen, caret.size()});
  }
  // Scrolls so that the place is visible, or the beginning of one that is too large.
  void Reveal(const QWidget& of, const QRect& place) {
    const QPoint first = widget()->mapFromGlobal(of.mapToGlobal(place.topLeft()));
    const QPoint last = first + QPoint(place.width() - 1, place.height() - 1);
    ensureVisible(last.x(), last.y(), kMargin, kMargin);
    ensureVisible(first.x(), first.y(), kMargin, kMargin);
  }

  QPointer<QWidget> focus_;  // within the form
  QMetaObject::Connection caret_;
};

}  // namespace

QWidget* FormLayout::Of(const Design& design) const {
  return face_.WidgetOf(*face_.Form().Find(design.text));
}

void FormLayout::Build() {
  // Not by clicks: a click beside the controls, or on a disabled control, moves no focus.
  owner_.setFocusPolicy(Qt::TabFocus);
  SetLetters();
  auto* scrolled = new ScrolledForm(owner_);
  scrolled->Take(Whole(faces::Layout()));
  Tight(new QVBoxLayout(&owner_), Gap::kNone)->addWidget(scrolled);

  auto* find = new QShortcut(QKeySequence::Find, &owner_);
  find->setContext(Qt::WidgetWithChildrenShortcut);
  QObject::connect(find, &QShortcut::activated, &face_, &FormFace::FocusFilter);
}

void FormLayout::SetLetters() {
  QFont font = owner_.font();
  const QString fallback = font.family();
  font.setFamilies({QStringLiteral("Verdana"), fallback});
  owner_.setFont(font);
  for (const Design& design : kForm) {
    if ((design.style & kArial) == 0) continue;
    Of(design)->setProperty(kCaptionFamilies, QStringList{QStringLiteral("Arial"), fallback});
  }
}

// Parts in a row or a column.

void FormLayout::AddAll(QBoxLayout& into, const Part& part, bool isAcross) {
  for (const Part& inner : part.parts)
    Add(into, inner, isAcross);
}

void FormLayout::Add(QBoxLayout& into, const Part& part, bool isAcross) {
  switch (part.kind) {
    case PartKind::kSpace:
      into.addStretch(part.weight);
      break;
    case PartKind::kRow: {
      auto* row = Tight(new QHBoxLayout, part.gap);
      into.addLayout(row, part.weight);
      AddAll(*row, part, true);
      break;
    }
    case PartKind::kColumn: {
      auto* column = Tight(new QVBoxLayout, part.gap);
      into.addLayout(column, part.weight);
      AddAll(*column, part, false);
      break;
    }
    case PartKind::kFields: {
      auto* grid = Tight(new QGridLayout, part.gap);
      into.addLayout(grid, part.weight);
      AddPairs(*grid, part);
      break;
    }
    case PartKind::kControl: {
      const bool isAtFoot = isAcross && part.control->kind == Kind::Button;
      into.addWidget(Of(*part.control), part.weight, isAtFoot ? Qt::AlignBottom : Qt::Alignment());
      break;
    }
    default:
      into.addWidget(WidgetOf(part), part.weight);
      break;
  }
}

// Labels in one column, as wide as the widest of them, and their boxes in the other.
void FormLayout::AddPairs(QGridLayout& into, const Part& fields) {
  into.setColumnStretch(1, 1);
  int row = 0;
  for (const Part& pair : fields.parts) {
    if (pair.kind == PartKind::kPair) {
      const Part& box = pair.parts.back();
      into.addWidget(Of(*pair.parts.front().control), row, 0,
                     box.weight > 0 ? Qt::AlignTop : Qt::AlignVCenter);
      into.addWidget(Of(*box.control), row, 1);
    }
    into.setRowStretch(row, pair.weight);
    ++row;
  }
}

// Containers.

QWidget* FormLayout::WidgetOf(const Part& part) {
  switch (part.kind) {
    case PartKind::kFilter:
      return Filter(*part.control);
    case PartKind::kMarks:
      return HiddenMarks(*part.control);
    case PartKind::kTools:
      return Tools();
    case PartKind::kSplit:
      return Split(part);
    case PartKind::kNotes:
      return Notes(part);
    case PartKind::kPages:
      return Pages(part);
    case PartKind::kStack:
      return Stack(part);
    case PartKind::kFrame:
      return Framed(part);
    case PartKind::kOwn:
      return CaseRows(part);
    default:
      return Whole(part);
  }
}

QWidget* FormLayout::Whole(const Part& part) {
  auto* widget = new QWidget(&owner_);
  auto* column = new QVBoxLayout(widget);
  const bool isOutermost = &part == &faces::Layout();
  const int margin = isOutermost ? kMargin : 0;
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(PixelsOf(part.gap));
  AddAll(*column, part, false);
  return widget;
}

QWidget* FormLayout::Pages(const Part& part) {
  auto* pages = new QStackedWidget(&owner_);
  for (const Part& page : part.parts)
    pages->addWidget(Whole(page));
  const QWidget& strip = *Of(kForm[kRowOf<ControlName::tabVrn>]);
  QObject::connect(static_cast<const QTabBar*>(&strip), &QTabBar::currentChanged, pages,
                   &QStackedWidget::setCurrentIndex);
  return pages;
}

QWidget* FormLayout::Stack(const Part& part) {
  auto* stack = new QWidget(&owner_);
  auto* grid = Tight(new QGridLayout(stack), part.gap);
  for (const Part& inner : part.parts) {
    QWidget* const widget = WidgetOf(inner);
    grid->addWidget(widget, 0, 0);
    widget->raise();
  }
  return stack;
}

QWidget* FormLayout::Split(const Part& part) {
  auto* split = new QSplitter(Qt::Vertical, &owner_);
  split->setChildrenCollapsible(false);
  for (const Part& inner : part.parts) {
    split->addWidget(Whole(inner));
    split->setStretchFactor(split->count() - 1, inner.weight);
  }
  split->setSizes({kSplitHeights.begin(), kSplitHeights.end()});
  return split;
}

QWidget* FormLayout::Framed(const Part& part) {
  QWidget* const frame = Of(*part.control);
  auto* column = new QVBoxLayout(frame);
  if ((part.control->style & kNoBorder) != 0) Tight(column, part.gap);
  column->setSpacing(PixelsOf(part.gap));
  AddAll(*column, part, false);
  return frame;
}

// The notes of a page: labels in a small font that tell how the page is used.
QWidget* FormLayout::Notes(const Part& part) {
  auto* notes = new SmallPrint(owner_);
  auto* column = Tight(new QVBoxLayout(notes), part.gap);
  column->setSpacing(1);
  column->addStretch(1);
  for (const Part& note : part.parts)
    Of(*note.control)->setForegroundRole(QPalette::PlaceholderText);
  AddAll(*column, part, false);
  return notes;
}

// The frame of the case rows, without a layout: the rows have their places from the form.
QWidget* FormLayout::CaseRows(const Part& part) {
  QWidget* const frame = Of(*part.control);
  for (const Part& inner : part.parts)
    Of(*inner.control)->setParent(frame);
  return frame;
}

QWidget* FormLayout::Tools() {
  auto* tools = new QWidget(&owner_);
  auto* row = Tight(new QHBoxLayout(tools), Gap::kTight);
  AddTool(*row, false);
  AddTool(*row, true);
  return tools;
}

void FormLayout::AddTool(QBoxLayout& into, bool forward) {
  const QString name = forward ? QStringLiteral("Redo") : QStringLiteral("Undo");
  const QKeySequence keys(forward ? QKeySequence::Redo : QKeySequence::Undo);
  const auto act = forward ? &FormFace::Redo : &FormFace::Undo;
  auto* button = new QToolButton(&owner_);
  button->setObjectName(name.toLower());
  button->setAccessibleName(name);
  button->setToolTip(name + QStringLiteral(" (%1)").arg(keys.toString(QKeySequence::NativeText)));
  button->setIcon(TurnIcon(forward, owner_.palette()));
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::NoFocus);
  button->setEnabled(false);
  QObject::connect(button, &QToolButton::clicked, &face_, act);
  into.addWidget(button);
  auto* shortcut = new QShortcut(forward ? QKeySequence::Redo : QKeySequence::Undo, &owner_);
  shortcut->setContext(Qt::WidgetWithChildrenShortcut);
  QObject::connect(shortcut, &QShortcut::activated, &face_, act);
}

QWidget* FormLayout::Filter(const Design& list) {
  auto* view = static_cast<RowsView*>(Of(list));
  auto* filter = new QLineEdit(&owner_);
  filter->setObjectName(view->objectName() + QStringLiteral(".filter"));
  filter->setAccessibleName(QStringLiteral("Filter ") + view->accessibleName());
  filter->setPlaceholderText(QStringLiteral("Filter (Ctrl+F)"));
  filter->setStyle(view->style());
  filter->setClearButtonEnabled(true);
  filter->setFocusPolicy(Qt::ClickFocus);
  QObject::connect(filter, &QLineEdit::textChanged, view, [view](const QString& text) {
    view->rows().SetFilter(text);
    view->ShowMarks();
  });
  face_.AddFilter(*view, *filter);
  return filter;
}

// A label for marks that the filter hides, in the room beside the name of the list.
QWidget* FormLayout::HiddenMarks(const Design& list) {
  auto* view = static_cast<RowsView*>(Of(list));
  auto* label = new QLabel(&owner_);
  label->setObjectName(view->objectName() + QStringLiteral(".marks"));
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  label->setForegroundRole(QPalette::PlaceholderText);
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  QObject::connect(view, &RowsView::MarksShown, label, [view, label] {
    label->setText(view->rows().HiddenMarks());
    label->setToolTip(label->text());
  });
  return label;
}

}  // namespace zolt20::qt
