#include "faces/qt/form_layout.h"

#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "faces/qt/form_face.h"
#include "faces/qt/icons.h"
#include "faces/qt/rows_view.h"
#include "faces/shared/case_places.h"

namespace zolt20::qt {
namespace {

constexpr int kGap = 6;
constexpr int kWideGap = 10;
constexpr int kMargin = 8;
constexpr qreal kSmall = 0.85;

template <typename Layout>
Layout* Tight(Layout* layout) {
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(kGap);
  return layout;
}

// A part of the form with smaller letters than the form has, whatever size it gets.
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
  // The size alone, so that all else comes from the form.
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

}  // namespace

QWidget* FormLayout::Of(ControlName name, int index) const {
  for (const Control* control : face_.Form().Controls()) {
    if (control->design().name == name && control->design().index == index)
      return face_.WidgetOf(*control);
  }
  return nullptr;
}

void FormLayout::Build() {
  // Not by clicks: one beside the controls, or on a disabled one, leaves the focus where it is.
  owner_.setFocusPolicy(Qt::TabFocus);
  QFont font = owner_.font();
  const QString fallback = font.family();
  font.setFamilies({QStringLiteral("Verdana"), fallback});
  owner_.setFont(font);
  QFont arial;  // the family alone: the size is that of the form
  arial.setFamilies({QStringLiteral("Arial"), fallback});
  Of(ControlName::frawhile)->setFont(arial);

  auto* strip = static_cast<QTabBar*>(Of(ControlName::tabVrn));
  auto* pages = new QStackedWidget(&owner_);
  pages->addWidget(SelectListPage());
  pages->addWidget(WherePage());
  for (int page = 2; page <= 5; ++page)
    pages->addWidget(StatementPage(page));
  pages->addWidget(ConditionPage());
  QObject::connect(strip, &QTabBar::currentChanged, pages, &QStackedWidget::setCurrentIndex);

  auto* top = new QWidget(&owner_);
  auto* topLayout = Tight(new QVBoxLayout(top));
  topLayout->setSpacing(0);
  auto* stripRow = Tight(new QHBoxLayout);
  stripRow->addWidget(strip, 1);
  stripRow->addWidget(Toolbar());
  topLayout->addLayout(stripRow);
  topLayout->addWidget(pages, 1);

  auto* split = new QSplitter(Qt::Vertical, &owner_);
  split->setChildrenCollapsible(false);
  split->addWidget(top);
  split->addWidget(ResultPart());
  split->setStretchFactor(0, 3);
  split->setStretchFactor(1, 1);
  split->setSizes({430, 150});

  auto* layout = new QVBoxLayout(&owner_);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->setSpacing(kGap);
  layout->addWidget(split, 1);
  layout->addLayout(ButtonRow());
}

QVBoxLayout* FormLayout::NewPage() {
  auto* layout = new QVBoxLayout(new QWidget(&owner_));
  layout->setContentsMargins(0, kMargin, 0, 0);
  layout->setSpacing(kGap);
  return layout;
}

QLayout* FormLayout::Foot(const std::vector<ControlName>& instructions, ControlName button) {
  auto* foot = Tight(new QHBoxLayout);
  foot->addWidget(Instructions(instructions), 1);
  foot->addWidget(Of(button), 0, Qt::AlignBottom);
  return foot;
}

QWidget* FormLayout::SelectListPage() {
  auto* layout = NewPage();

  auto* columns = Tight(new QHBoxLayout);
  columns->setSpacing(kWideGap);
  auto* sources = Tight(new QVBoxLayout);
  sources->addLayout(Labelled(ControlName::Label1, ControlName::lsttables, true), 3);
  sources->addLayout(Labelled(ControlName::Label4, ControlName::lstFunctions), 2);
  columns->addLayout(sources, 3);
  columns->addLayout(Labelled(ControlName::Label3, ControlName::lstFields, true), 4);

  auto* moves = Tight(new QVBoxLayout);
  moves->addStretch(1);
  for (const ControlName name : {ControlName::cmdMoveOne, ControlName::cmdMoveAll,
                                 ControlName::cmdRemoveOne, ControlName::cmdRemoveAll}) {
    moves->addWidget(Of(name));
  }
  moves->addStretch(1);
  columns->addLayout(moves);

  auto* chosen = Tight(new QVBoxLayout);
  chosen->addLayout(Labelled(ControlName::Label2, ControlName::lstSelectedFields), 3);
  chosen->addLayout(Labelled(ControlName::Label5, ControlName::lstGroupby), 2);
  columns->addLayout(chosen, 4);
  layout->addLayout(columns, 1);

  layout->addLayout(Foot({ControlName::Label41, ControlName::Label9, ControlName::Label10,
                          ControlName::Label11, ControlName::Label42},
                         ControlName::cmdAddSelect));
  return layout->parentWidget();
}

QWidget* FormLayout::WherePage() {
  auto* layout = NewPage();

  auto* columns = Tight(new QHBoxLayout);
  columns->setSpacing(kWideGap);

  auto* condition = Tight(new QGridLayout);
  condition->addWidget(Of(ControlName::Label6), 0, 0);
  condition->addWidget(Of(ControlName::Label7), 0, 1);
  condition->addWidget(Of(ControlName::Label8), 0, 2);
  condition->addWidget(Of(ControlName::cboWhereFields), 1, 0);
  condition->addWidget(Of(ControlName::cboOper), 1, 1);
  condition->addWidget(Of(ControlName::cboWhereFields1), 1, 2);
  condition->setColumnStretch(0, 3);
  condition->setColumnStretch(1, 2);
  condition->setColumnStretch(2, 3);
  // The two views of the condition take turns in one place. At first both are visible: the where
  // text lies on top.
  auto* views = Tight(new QGridLayout);
  for (const auto& [frame, box] :
       {std::pair(ControlName::FraCondition, ControlName::txtCondition),
        std::pair(ControlName::FrawhereCondition, ControlName::txtwhereCondition)}) {
    Tight(new QVBoxLayout(Of(frame)))->addWidget(Of(box));
    views->addWidget(Of(frame), 0, 0);
  }
  Of(ControlName::FrawhereCondition)->raise();  // at first both are visible
  condition->addLayout(views, 2, 0, 1, 3);
  condition->setRowStretch(2, 1);
  auto* apply = Tight(new QHBoxLayout);
  apply->addWidget(Of(ControlName::cmdAnd));
  apply->addWidget(Of(ControlName::CmdOr));
  apply->addWidget(Of(ControlName::cmdCancelWhere));
  apply->addStretch(1);
  condition->addLayout(apply, 3, 0, 1, 3);
  columns->addLayout(condition, 3);

  QWidget* shape = Of(ControlName::Shape1);
  auto* order = new QGridLayout(shape);
  order->setContentsMargins(kMargin, kGap, kMargin, kMargin);
  order->setSpacing(kGap);
  order->addWidget(Of(ControlName::Label13), 0, 0, 1, 2);
  order->addWidget(Of(ControlName::lblorderbyasc), 1, 0);
  order->addWidget(Of(ControlName::lblOrderbyDesc), 1, 1);
  order->addWidget(Of(ControlName::lstorderbyasc), 2, 0);
  order->addWidget(Of(ControlName::lstorderbydesc), 2, 1);
  auto* side = Tight(new QVBoxLayout);
  side->addWidget(shape, 1);
  auto* asSet = Tight(new QHBoxLayout);
  asSet->addWidget(Of(ControlName::lblAsset));
  Of(ControlName::txtAsSet)->setMaximumWidth(90);
  asSet->addWidget(Of(ControlName::txtAsSet));
  asSet->addWidget(Of(ControlName::Label12));
  asSet->addStretch(1);
  side->addLayout(asSet);
  columns->addLayout(side, 2);
  layout->addLayout(columns, 1);

  layout->addLayout(Foot({ControlName::Label20, ControlName::Label21, ControlName::Label22,
                          ControlName::Label23, ControlName::Label24},
                         ControlName::cmdAddWhereQuery));
  return layout->parentWidget();
}

QWidget* FormLayout::StatementPage(int page) {
  struct Parts {
    ControlName box;
    ControlName add;
    std::vector<ControlName> labels;
  };
  const std::array<Parts, 4> parts{{
      {ControlName::txtSelectDo,
       ControlName::cmdAddSelectDoQuer,
       {ControlName::Label27, ControlName::Label26, ControlName::Label28, ControlName::Label25}},
      {ControlName::txtSelectEOS,
       ControlName::cmdAddSEOStoquery,
       {ControlName::Label31, ControlName::Label30, ControlName::Label32, ControlName::Label29}},
      {ControlName::txtselectempty,
       ControlName::cmdSelectmpty,
       {ControlName::Label35, ControlName::Label34, ControlName::Label36, ControlName::Label33}},
      {ControlName::txtSelectError,
       ControlName::cmdAddtoSERROR,
       {ControlName::Label39, ControlName::Label38, ControlName::Label40, ControlName::Label37}},
  }};
  const int index = page - 2;
  const Parts& part = parts[static_cast<std::size_t>(index)];

  auto* layout = NewPage();
  auto* columns = Tight(new QHBoxLayout);
  columns->addWidget(Of(part.box), 1);
  auto* requests = Tight(new QVBoxLayout);
  requests->addWidget(Of(ControlName::cmdFunction, index));
  requests->addWidget(Of(ControlName::cmdCondition, index));
  requests->addWidget(Of(ControlName::cmdSubQuery, index));
  requests->addStretch(1);
  columns->addLayout(requests);
  layout->addLayout(columns, 1);
  layout->addLayout(Foot(part.labels, part.add));
  return layout->parentWidget();
}

QWidget* FormLayout::ConditionPage() {
  auto* layout = NewPage();

  auto* kinds = new QVBoxLayout(Of(ControlName::fraSelect));
  for (const ControlName option :
       {ControlName::optIfThen, ControlName::optwhile, ControlName::optRepeat, ControlName::optFor,
        ControlName::optCase}) {
    kinds->addWidget(Of(option));
  }
  kinds->addStretch(1);

  const auto fill = [this](ControlName frame, std::vector<std::pair<ControlName, ControlName>> rows,
                           std::vector<ControlName> tall) {
    auto* grid = new QGridLayout(Of(frame));
    grid->setSpacing(kGap);
    grid->setColumnStretch(1, 1);
    int row = 0;
    bool hasTall = false;
    for (const auto& [label, box] : rows) {
      const bool isTall = std::find(tall.begin(), tall.end(), box) != tall.end();
      hasTall = hasTall || isTall;
      grid->addWidget(Of(label), row, 0, isTall ? Qt::AlignTop : Qt::AlignVCenter);
      grid->addWidget(Of(box), row, 1);
      grid->setRowStretch(row, isTall ? 1 : 0);
      ++row;
    }
    if (!hasTall) grid->setRowStretch(row, 1);
  };
  fill(ControlName::fraif,
       {{ControlName::lblCondtion, ControlName::txtCond},
        {ControlName::lblStmt1, ControlName::txtStmt1},
        {ControlName::lblstmt2, ControlName::txtStmt2}},
       {ControlName::txtStmt1, ControlName::txtStmt2});
  fill(ControlName::frawhile,
       {{ControlName::lblWhereCnd, ControlName::txtWhlCnd},
        {ControlName::lblwherestm, ControlName::txtWhlStm}},
       {ControlName::txtWhlStm});
  fill(ControlName::frarepeat,
       {{ControlName::lblRepcond, ControlName::txtRepCnd},
        {ControlName::lblrepstmt, ControlName::txtRepStm}},
       {ControlName::txtRepStm});
  fill(ControlName::fraFor,
       {{ControlName::lblVariable, ControlName::txtVariable},
        {ControlName::lnlintval, ControlName::txtinitval},
        {ControlName::lblfinValue, ControlName::txtFinVal},
        {ControlName::lblStep, ControlName::txtStep},
        {ControlName::lblforStatement, ControlName::txtForStmt}},
       {ControlName::txtForStmt});

  auto* onCase = new QGridLayout(Of(ControlName::fraOnCase));
  onCase->setSpacing(kGap);
  onCase->addWidget(Of(ControlName::lblexprcase), 0, 0, Qt::AlignTop);
  onCase->addWidget(Of(ControlName::txtcaseexp), 0, 1, Qt::AlignTop);
  onCase->addWidget(Of(ControlName::lblDefault), 0, 2, Qt::AlignTop);
  onCase->addWidget(Of(ControlName::TxtDef), 0, 3);
  onCase->setColumnStretch(1, 1);
  onCase->setColumnStretch(3, 2);
  onCase->addWidget(CaseRowsFrame(), 1, 0, 1, 4);
  onCase->setRowStretch(2, 1);

  auto* initial = new QVBoxLayout(Of(ControlName::Frainitial));
  for (const ControlName label :
       {ControlName::Label14, ControlName::Label15, ControlName::Label16, ControlName::Label17,
        ControlName::Label18, ControlName::Label19}) {
    initial->addWidget(Of(label));
  }
  initial->addStretch(1);

  // All of them in one and the same rectangle.
  auto* panels = Tight(new QGridLayout);
  for (const ControlName frame :
       {ControlName::Frainitial, ControlName::fraif, ControlName::frawhile, ControlName::frarepeat,
        ControlName::fraFor, ControlName::fraOnCase}) {
    panels->addWidget(Of(frame), 0, 0);
  }
  auto* columns = Tight(new QHBoxLayout);
  columns->setSpacing(kWideGap);
  columns->addWidget(Of(ControlName::fraSelect));
  columns->addLayout(panels, 1);
  layout->addLayout(columns, 1);

  auto* foot = Tight(new QHBoxLayout);
  foot->addWidget(Of(ControlName::cmdFunction, 4));
  foot->addWidget(Of(ControlName::cmdSubQuery, 4));
  foot->addStretch(1);
  foot->addWidget(Of(ControlName::cmdAdd));
  foot->addWidget(Of(ControlName::cmdBuild));
  layout->addLayout(foot);
  return layout->parentWidget();
}

// The case rows have their places from the form, under the two words at their heads.
QWidget* FormLayout::CaseRowsFrame() {
  auto* part = new QWidget(&owner_);
  auto* layout = Tight(new QVBoxLayout(part));
  layout->setSpacing(2);
  auto* heads = Tight(new QHBoxLayout);
  heads->setSpacing(0);
  heads->addStretch(120);
  heads->addWidget(Of(ControlName::lblexpr), 2640 - 120);
  heads->addWidget(Of(ControlName::lblstmt), faces::kCaseFrameTwips - 2640);
  layout->addLayout(heads);
  QWidget* frame = Of(ControlName::fracase);
  for (const auto& [name, index] :
       {std::pair(ControlName::TxtExpr, 0), std::pair(ControlName::txtStmt, 0),
        std::pair(ControlName::VscrCase, kNoIndex), std::pair(ControlName::cmdNext, kNoIndex)}) {
    Of(name, index)->setParent(frame);
  }
  layout->addWidget(frame);
  return part;
}

QWidget* FormLayout::ResultPart() {
  auto* part = new QWidget(&owner_);
  auto* layout = Tight(new QVBoxLayout(part));
  layout->setContentsMargins(0, kGap, 0, 0);
  layout->addWidget(Of(ControlName::lblResult));
  Of(ControlName::TxtOutput)->setMinimumHeight(80);
  layout->addWidget(Of(ControlName::TxtOutput), 1);
  return part;
}

QLayout* FormLayout::ButtonRow() {
  auto* row = Tight(new QHBoxLayout);
  row->addStretch(1);
  for (const ControlName name :
       {ControlName::cmdClear, ControlName::cmdCancel, ControlName::cmdDone}) {
    row->addWidget(Of(name));
  }
  return row;
}

QWidget* FormLayout::Toolbar() {
  auto* bar = new QWidget(&owner_);
  auto* layout = Tight(new QHBoxLayout(bar));
  layout->setSpacing(2);
  const auto add = [&](const QString& name, bool forward, const QKeySequence& keys,
                       void (FormFace::*act)()) {
    auto* button = new QToolButton(bar);
    button->setObjectName(name.toLower());
    button->setAccessibleName(name);
    button->setToolTip(name + QStringLiteral(" (%1)").arg(keys.toString(QKeySequence::NativeText)));
    button->setIcon(TurnIcon(forward, owner_.palette()));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setEnabled(false);
    QObject::connect(button, &QToolButton::clicked, &face_, act);
    layout->addWidget(button);
    auto* shortcut = new QShortcut(keys, &owner_);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(shortcut, &QShortcut::activated, &face_, act);
  };
  add(QStringLiteral("Undo"), false, QKeySequence::Undo, &FormFace::Undo);
  add(QStringLiteral("Redo"), true, QKeySequence::Redo, &FormFace::Redo);
  auto* find = new QShortcut(QKeySequence::Find, &owner_);
  find->setContext(Qt::WidgetWithChildrenShortcut);
  QObject::connect(find, &QShortcut::activated, &face_, &FormFace::FocusFilter);
  return bar;
}

QLayout* FormLayout::Labelled(ControlName label, ControlName list, bool hasFilter) {
  auto* layout = Tight(new QVBoxLayout);
  layout->setSpacing(3);
  layout->addWidget(Of(label));
  auto* view = static_cast<RowsView*>(Of(list));
  if (hasFilter) {
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
    layout->addWidget(filter);
  }
  layout->addWidget(view, 1);
  return layout;
}

QWidget* FormLayout::Instructions(const std::vector<ControlName>& labels) {
  auto* part = new SmallPrint(owner_);
  auto* layout = Tight(new QVBoxLayout(part));
  layout->setSpacing(1);
  layout->addStretch(1);
  for (const ControlName name : labels) {
    auto* label = static_cast<QLabel*>(Of(name));
    label->setForegroundRole(QPalette::PlaceholderText);
    layout->addWidget(label);
  }
  return part;
}

}  // namespace zolt20::qt
