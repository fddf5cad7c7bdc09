#include "hosts/composer/note_strip.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QToolButton>

namespace zolt20::composer {
namespace {

// Lets long lists of names without blanks wrap behind their commas.
QString Breakable(const QString& text) {
  constexpr qsizetype kLongWord = 40;
  constexpr QChar kMayBreak(0x200B);
  QString broken;
  const QStringList words = text.split(u' ');
  for (const QString& word : words) {
    if (&word != &words.front()) broken += u' ';
    broken += word.size() <= kLongWord
                  ? word
                  : QString(word).replace(u',', QStringLiteral(",") + kMayBreak);
  }
  return broken;
}

}  // namespace

NoteStrip::NoteStrip(const QString& labelName, QWidget* parent)
    : QWidget(parent), label_(new QLabel), place_(new QScrollArea), more_(new QToolButton) {
  label_->setObjectName(labelName);
  label_->setTextFormat(Qt::PlainText);
  label_->setWordWrap(true);
  label_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  place_->setFrameShape(QFrame::NoFrame);
  place_->setWidgetResizable(true);
  place_->setFocusPolicy(Qt::NoFocus);
  place_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  place_->setWidget(label_);
  place_->viewport()->setAutoFillBackground(false);
  label_->setAutoFillBackground(false);
  place_->viewport()->installEventFilter(this);
  more_->setObjectName(QStringLiteral("allNotes"));
  more_->setCheckable(true);
  connect(more_, &QToolButton::toggled, this, &NoteStrip::Fit);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(8, 0, 8, 0);
  layout->addWidget(place_, 1);
  layout->addWidget(more_, 0, Qt::AlignTop);
  setText({});
}

void NoteStrip::setText(const QString& text) {
  text_ = text;
  label_->setText(Breakable(text));
  more_->setChecked(false);
  setVisible(!text.isEmpty());
  Fit();
}

void NoteStrip::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) Fit();
}

bool NoteStrip::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) Fit();
  return QWidget::eventFilter(watched, event);
}

// When open, the strip takes at most a third of the window.
void NoteStrip::Fit() {
  const int all = qMax(0, label_->heightForWidth(place_->viewport()->width()));
  const int closed = label_->fontMetrics().lineSpacing() * kLines;
  const int open = qMax(closed, window()->height() / 3);
  more_->setVisible(all > closed);
  more_->setText(more_->isChecked() ? tr("Show Less") : tr("Show All"));
  place_->setVerticalScrollBarPolicy(more_->isChecked() ? Qt::ScrollBarAsNeeded
                                                        : Qt::ScrollBarAlwaysOff);
  if (!more_->isChecked()) place_->ensureVisible(0, 0);
  // Without this the scroll area keeps its old height when it becomes narrower.
  label_->setMinimumHeight(all);
  place_->setFixedHeight(qMin(all, more_->isChecked() ? open : closed));
}

}  // namespace zolt20::composer
