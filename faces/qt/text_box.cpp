#include "faces/qt/text_box.h"

#include <QEvent>
#include <QVBoxLayout>

#include "faces/qt/qt_text.h"
#include "faces/qt/text_boxes.h"

namespace {

constexpr int kTwipsPerInch = 1440;
// Wider than any line that a person writes: from this margin on lines do not wrap.
constexpr int kNoMargin = 32'000;
constexpr int kUsualLines = 8;
constexpr int kUsualLetters = 60;

}  // namespace

ZOLT21SyntTextBox::ZOLT21SyntTextBox(QWidget* parent)
    : QWidget(parent), box_(new zolt20::qt::LinesBox(this)) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(box_);
  box_->setFocusPolicy(Qt::StrongFocus);
  setFocusProxy(box_);
  box_->installEventFilter(this);
  box_->WrapAt(0);
  connect(box_, &zolt20::qt::LinesBox::Typed, this, &ZOLT21SyntTextBox::textChanged);
}

ZOLT21SyntTextBox::~ZOLT21SyntTextBox() {
  box_->removeEventFilter(this);
}

QString ZOLT21SyntTextBox::text() const {
  return zolt20::qt::ToQt(box_->Text());
}

void ZOLT21SyntTextBox::setText(const QString& text) {
  const zolt20::String given = zolt20::qt::FromQt(text);
  if (given == box_->Text()) return;
  box_->Show(given);
  emit textChanged();
}

void ZOLT21SyntTextBox::setHighlight(bool highlight) {
  if (highlight == highlight_) return;
  highlight_ = highlight;
  box_->Highlight(highlight);
  emit highlightChanged(highlight);
}

void ZOLT21SyntTextBox::setRightMargin(int twips) {
  if (twips < 0 || twips == rightMargin_) return;
  rightMargin_ = twips;
  if (twips < kNoMargin) {
    box_->WrapAt(qRound(static_cast<double>(twips) * logicalDpiX() / kTwipsPerInch));
  } else {
    box_->WrapAt(zolt20::qt::LinesBox::kNowhere);
  }
  emit rightMarginChanged(twips);
}

QSize ZOLT21SyntTextBox::sizeHint() const {
  return {kUsualLetters * fontMetrics().averageCharWidth(), box_->HeightOf(kUsualLines)};
}

bool ZOLT21SyntTextBox::eventFilter(QObject* watched, QEvent* event) {
  if (watched == box_ && event->type() == QEvent::FocusIn) emit tabChain();
  return QWidget::eventFilter(watched, event);
}
