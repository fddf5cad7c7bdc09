#include "hosts/composer/status_line.h"

#include <QApplication>
#include <QTextBlock>
#include <QTimer>
#include <algorithm>

#include "faces/qt/qt_text.h"
#include "language/outline.h"

namespace zolt20::composer {
namespace {

bool IsStatement(language::NodeKind kind) {
  using language::NodeKind;
  switch (kind) {
    case NodeKind::kStatement:
    case NodeKind::kSelect:
    case NodeKind::kIf:
    case NodeKind::kFor:
    case NodeKind::kWhile:
    case NodeKind::kRepeat:
    case NodeKind::kOnCase:
      return true;
    default:
      return false;
  }
}

struct Counts {
  int statements = 0;
  int depth = 0;  // of statements within statements
};

Counts CountsOf(StringView text) {
  const std::vector<language::Node> nodes = language::ReadOutline(text);
  std::vector<int> depths(nodes.size());
  Counts counts;
  for (std::size_t index = 0; index < nodes.size(); ++index) {
    const language::Node& node = nodes[index];
    const int around = node.parent == language::Node::kNone ? 0 : depths[node.parent];
    const bool isStatement = IsStatement(node.kind);
    depths[index] = around + (isStatement ? 1 : 0);
    counts.statements += isStatement ? 1 : 0;
    counts.depth = std::max(counts.depth, depths[index]);
  }
  return counts;
}

constexpr int kSoonMilliseconds = 50;

}  // namespace

StatusLine::StatusLine(QWidget& window) : later_(new QTimer(this)) {
  setObjectName(QStringLiteral("statusLine"));
  later_->setSingleShot(true);
  later_->setInterval(kSoonMilliseconds);
  connect(later_, &QTimer::timeout, this, &StatusLine::Show);
  connect(qApp, &QApplication::focusChanged, this, [this, &window](QWidget*, QWidget* now) {
    auto* text = qobject_cast<QPlainTextEdit*>(now);
    if (text != nullptr && text->window() == &window) Follow(*text);
  });
}

void StatusLine::Follow(QPlainTextEdit& text) {
  if (text_) disconnect(text_, nullptr, later_, nullptr);
  text_ = &text;
  const auto soon = qOverload<>(&QTimer::start);
  connect(&text, &QPlainTextEdit::textChanged, later_, soon);
  connect(&text, &QPlainTextEdit::cursorPositionChanged, later_, soon);
  Show();
}

void StatusLine::Show() {
  if (!text_) return clear();
  const QTextCursor caret = text_->textCursor();
  const Counts counts = CountsOf(qt::View(text_->toPlainText()));
  setText(tr("Line %1, column %2   Statements: %3   Depth: %4")
              .arg(caret.blockNumber() + 1)
              .arg(caret.positionInBlock() + 1)
              .arg(counts.statements)
              .arg(counts.depth));
}

}  // namespace zolt20::composer
