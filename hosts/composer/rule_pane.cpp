#include "hosts/composer/rule_pane.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QFontDatabase>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QSyntaxHighlighter>
#include <QTextBlock>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "faces/qt/highlighter.h"
#include "faces/qt/later.h"
#include "faces/qt/qt_text.h"
#include "hosts/composer/find_bar.h"
#include "hosts/composer/text_difference.h"
#include "hosts/composer/text_leaving.h"
#include "hosts/composer/waves.h"

namespace zolt20::composer {
namespace {

using qt::ToQt;
using qt::View;

constexpr int kMarkLength = 2;  // "+ "
constexpr int kNoRow = -1;

QString MarkOf(LineMark mark) {
  if (mark == LineMark::kAdded) return QStringLiteral("+ ");
  return mark == LineMark::kRemoved ? QStringLiteral("- ") : QStringLiteral("  ");
}

}  // namespace

// Colours words as the control does, and lines that would be added or removed by a tinted
// background.
class RulePane::Colors final : public QSyntaxHighlighter {
 public:
  Colors(QTextDocument* document, const QWidget& owner)
      : QSyntaxHighlighter(document), owner_(owner) {}

  bool isMarked = false;

 protected:
  void highlightBlock(const QString& line) override {
    const int first = isMarked ? kMarkLength : 0;
    const QString text = line.mid(first);
    for (const faces::ColoredWord& word : faces::ColoredWordsOf(View(text))) {
      setFormat(first + static_cast<int>(word.first), static_cast<int>(word.count),
                qt::FormatOf(word.kind, owner_.palette()));
    }
    if (!isMarked || line.startsWith(u' ')) return;
    const bool isDark = owner_.palette().color(QPalette::Base).lightness() < 128;
    QColor tint = line.startsWith(u'+') ? QColor(0xD8, 0xF5, 0xDD) : QColor(0xFB, 0xDD, 0xDD);
    if (isDark) tint = line.startsWith(u'+') ? QColor(0x12, 0x3A, 0x1C) : QColor(0x4A, 0x1A, 0x1A);
    for (int at = 0; at < line.size(); ++at) {
      QTextCharFormat tinted = format(at);
      tinted.setBackground(tint);
      setFormat(at, 1, tinted);
    }
  }

 private:
  const QWidget& owner_;
};

RulePane::RulePane(const QString& title, QWidget* parent)
    : QWidget(parent), told_(new QLabel), view_(new QPlainTextEdit) {
  view_->setReadOnly(true);
  view_->setUndoRedoEnabled(false);
  view_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  view_->setTabChangesFocus(true);
  view_->setLineWrapMode(QPlainTextEdit::NoWrap);
  view_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  view_->setTabStopDistance(4 * view_->fontMetrics().horizontalAdvance(u' '));
  view_->setAccessibleName(title);
  view_->setObjectName(QStringLiteral("ruleText"));
  view_->setMinimumSize(80, 40);
  colors_ = new Colors(view_->document(), *view_);
  told_->setObjectName(QStringLiteral("ruleTold"));
  told_->setTextFormat(Qt::PlainText);
  told_->setWordWrap(true);
  told_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
  told_->hide();
  view_->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(view_, &QWidget::customContextMenuRequested, this, &RulePane::ShowMenu);
  connect(view_, &QPlainTextEdit::cursorPositionChanged, this, [this] {
    if (view_->hasFocus()) emit CaretMoved();
  });
  auto* label = new QLabel(title);
  label->setBuddy(view_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 4, 0, 8);
  layout->addWidget(label);
  layout->addWidget(told_);
  layout->addWidget(view_, 1);
}

void RulePane::Show(const QString& text, const QString& coming) {
  if (text_ == text && coming_ == coming) return;
  text_ = text;
  coming_ = coming;
  const std::vector<MarkedLine> lines = LineDifference(View(text_), View(coming_));
  QStringList shown;
  const bool isMarked = HasMarks(lines);
  marks_.clear();
  for (const MarkedLine& line : lines)
    marks_.push_back(line.mark);
  for (const MarkedLine& line : lines)
    shown.append(isMarked ? MarkOf(line.mark) + ToQt(line.text) : ToQt(line.text));
  ShowRows(shown.join(u'\n'), isMarked);
  for (qsizetype row = 0; isMarked && row < shown.size(); ++row) {
    if (shown[row].startsWith(u' ')) continue;
    view_->setTextCursor(QTextCursor(view_->document()->findBlockByNumber(static_cast<int>(row))));
    view_->ensureCursorVisible();
    break;
  }
  rows_.clear();
  placedText_.clear();
  DrawWaves();
}

// Replaces only the part that differs, so that the rest of a long text keeps its layout and
// colours. If the text has no line ends but LF, its positions are those of the view.
void RulePane::ShowRows(const QString& shown, bool isMarked) {
  const QString before = std::exchange(shown_, shown);
  const bool isPlain = !before.contains(u'\r') && !shown.contains(u'\r') &&
                       view_->document()->characterCount() == before.size() + 1;
  if (std::exchange(colors_->isMarked, isMarked) != isMarked || !isPlain)
    return view_->setPlainText(shown);
  const auto [here, there] =
      std::mismatch(before.cbegin(), before.cend(), shown.cbegin(), shown.cend());
  const qsizetype first = here - before.cbegin();
  const qsizetype most = std::min(before.size(), shown.size()) - first;
  qsizetype same = 0;
  while (same < most && before[before.size() - 1 - same] == shown[shown.size() - 1 - same])
    ++same;
  QTextCursor cursor(view_->document());
  cursor.setPosition(static_cast<int>(first));
  cursor.setPosition(static_cast<int>(before.size() - same), QTextCursor::KeepAnchor);
  cursor.insertText(shown.mid(first, shown.size() - same - first));
}

void RulePane::Tell(const QString& told) {
  told_->setText(told);
  told_->setVisible(!told.isEmpty());
}

void RulePane::Point(qsizetype line, qsizetype column, qsizetype length) {
  const QTextBlock block = view_->document()->findBlockByNumber(static_cast<int>(line) - 1);
  QTextCursor cursor(block);
  cursor.setPosition(block.position() + static_cast<int>(column) - 1);
  cursor.movePosition(QTextCursor::Right, QTextCursor::KeepAnchor, static_cast<int>(length));
  view_->setTextCursor(cursor);
  view_->ensureCursorVisible();
}

// For each line of a text, its row in the view. Usually the text is one of the two that are shown.
const std::vector<int>& RulePane::RowsOf(const QString& text) const {
  if (text == placedText_) return rows_;
  placedText_ = text;
  rows_.clear();
  // A lone CR is a row of its own in the view, so the counts can differ.
  if (view_->document()->blockCount() != static_cast<int>(marks_.size())) return rows_;
  const bool isStored = text == text_ && text != coming_;
  const LineMark other = isStored ? LineMark::kAdded : LineMark::kRemoved;
  std::vector<int> rows;
  for (std::size_t row = 0; row < marks_.size(); ++row) {
    if (marks_[row] != other) rows.push_back(static_cast<int>(row));
  }
  if (isStored || text == coming_) return rows_ = std::move(rows);
  std::size_t next = 0;
  for (const MarkedLine& line : LineDifference(View(text), View(coming_))) {
    if (line.mark != LineMark::kAdded)
      rows_.push_back(line.mark == LineMark::kSame ? rows[next] : kNoRow);
    if (line.mark != LineMark::kRemoved) ++next;
  }
  return rows_;
}

void RulePane::Underline(const QString& text, const std::vector<language::Finding>& findings) {
  wavedText_ = text;
  waved_ = findings;
  DrawWaves();
}

void RulePane::DrawWaves() {
  Waves waves(*view_);
  if (waved_.empty()) return waves.Draw();
  const std::vector<int>& rows = RowsOf(wavedText_);
  for (const language::Finding& finding : waved_) {
    if (finding.line > rows.size() || rows[finding.line - 1] == kNoRow) continue;
    const int column = static_cast<int>(finding.column) - 1;
    waves.Add(finding, rows[finding.line - 1], column + (colors_->isMarked ? kMarkLength : 0));
  }
  waves.Draw();
}

void RulePane::PointAt(const QString& text, TextLines::Place from, TextLines::Place to) {
  const std::vector<int>& rows = RowsOf(text);
  const auto isShown = [&](const TextLines::Place& place) {
    const auto line = static_cast<std::size_t>(place.line);
    return line < rows.size() && rows[line] != kNoRow;
  };
  if (!isShown(from) || !isShown(to)) return;
  const auto positionOf = [&](const TextLines::Place& place) {
    const int row = rows[static_cast<std::size_t>(place.line)];
    const QTextBlock block = view_->document()->findBlockByNumber(row);
    return block.position() + place.column + (colors_->isMarked ? kMarkLength : 0);
  };
  QTextCursor cursor(view_->document());
  cursor.setPosition(positionOf(to));
  cursor.setPosition(positionOf(from), QTextCursor::KeepAnchor);
  view_->setTextCursor(cursor);
  view_->ensureCursorVisible();
}

std::optional<TextLines::Place> RulePane::CaretIn(const QString& text) const {
  const std::vector<int>& rows = RowsOf(text);
  const QTextCursor caret = view_->textCursor();
  const auto row = std::find(rows.begin(), rows.end(), caret.blockNumber());
  if (row == rows.end()) return std::nullopt;
  const int column = caret.positionInBlock() - (colors_->isMarked ? kMarkLength : 0);
  return TextLines::Place{static_cast<int>(row - rows.begin()), std::max(column, 0)};
}

void RulePane::AddFindBar() {
  find_ = new FindBar;
  layout()->addWidget(find_);
  const auto add = [this](const QKeySequence& keys, auto act) {
    connect(new QShortcut(keys, window()), &QShortcut::activated, this, act);
  };
  add(QKeySequence::Find, [this] { find_->FindIn(*view_); });
  add(Qt::Key_F3, [this] { find_->FindNext(); });
  add(Qt::SHIFT | Qt::Key_F3, [this] { find_->FindNext(false); });
}

// The menu of the keyboard opens at the caret, or at the nearest edge when the caret is scrolled
// out of view.
void RulePane::ShowMenu(const QPoint& at) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const auto add = [&](const QString& text, const QKeySequence& keys, bool isEnabled, auto act) {
    QAction* action = menu->addAction(text);
    action->setShortcut(keys);
    action->setEnabled(isEnabled);
    connect(action, &QAction::triggered, this, act);
  };
  const bool isThere = !coming_.isEmpty();
  add(tr("&Copy"), QKeySequence::Copy, view_->textCursor().hasSelection(),
      [this] { view_->copy(); });
  add(tr("Copy &All"), {}, isThere, [this] { QApplication::clipboard()->setText(coming_); });
  add(tr("&Select All"), QKeySequence::SelectAll, !view_->document()->isEmpty(),
      [this] { view_->selectAll(); });
  menu->addSeparator();
  add(tr("&Find..."), QKeySequence::Find, find_ != nullptr, [this] { find_->FindIn(*view_); });
  menu->addSeparator();
  add(tr("&Print..."), {}, isThere, [this] { AskAndPrint(*window(), name_, coming_); });
  add(tr("Save As &Text..."), {}, isThere,
      [this] { AskAndSaveText(*window(), tr("Save As Text"), coming_); });
  const QRect seen = view_->viewport()->rect();
  menu->popup(view_->viewport()->mapToGlobal(
      QPoint(std::clamp(at.x(), seen.left(), std::max(seen.left(), seen.right())),
             std::clamp(at.y(), seen.top(), std::max(seen.top(), seen.bottom())))));
}

void RulePane::DrawAnew() {
  colors_->rehighlight();
  DrawWaves();
}

// The document takes the new palette after this event, so colouring is deferred.
void RulePane::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) qt::DoLater(*this, [this] { DrawAnew(); });
  QWidget::changeEvent(event);
}

}  // namespace zolt20::composer
