#include "hosts/composer/cut_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace zolt20::composer {
namespace {

constexpr int kFewCharacters = 8;
constexpr qsizetype kLongName = 60;

}  // namespace

CutLabel::CutLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
}

QSize CutLabel::sizeHint() const {
  const QMargins around = contentsMargins();
  return {fontMetrics().horizontalAdvance(text()) + around.left() + around.right() + 2,
          QLabel::sizeHint().height()};
}

QSize CutLabel::minimumSizeHint() const {
  const int few = fontMetrics().averageCharWidth() * kFewCharacters;
  return {qMin(few, sizeHint().width()), QLabel::minimumSizeHint().height()};
}

QString CutLabel::Shown() const {
  return fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
}

bool CutLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || Shown() == text()) return QLabel::event(event);
  QToolTip::showText(static_cast<const QHelpEvent*>(event)->globalPos(), TipOf(text()), this);
  return true;
}

void CutLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(),
                        isEnabled(), Shown(), foregroundRole());
}

QString ShortName(const QString& name) {
  if (name.size() <= kLongName) return name;
  return name.left(kLongName / 2) + QChar(u'…') + name.right(kLongName / 2);
}

QString TipOf(const QString& text) {
  // A tip wraps at blanks only; zero-width spaces let a long name without blanks wrap, too.
  QString broken;
  for (qsizetype at = 0; at < text.size(); at += kLongName) {
    broken += text.mid(at, kLongName).toHtmlEscaped() + QChar(0x200B);
  }
  return QStringLiteral("<qt>%1</qt>").arg(broken.replace(u'\n', QStringLiteral("<br>")));
}

}  // namespace zolt20::composer
