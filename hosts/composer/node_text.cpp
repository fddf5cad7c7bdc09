#include "hosts/composer/node_text.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QFontDatabase>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTextBlock>
#include <QTimer>
#include <QVBoxLayout>

#include "faces/qt/highlighter.h"
#include "faces/qt/qt_text.h"
#include "hosts/composer/cut_label.h"
#include "hosts/composer/problem_list.h"
#include "hosts/composer/settings.h"
#include "hosts/composer/waves.h"

namespace zolt20::composer {
namespace {

constexpr int kRestMilliseconds = 400;
constexpr QSize kSize{720, 460};

}  // namespace

NodeText::NodeText(const QString& statement, std::unique_ptr<language::Names> names,
                   const QString& path, QWidget* parent)
    : QDialog(parent),
      names_(std::move(names)),
      box_(new QPlainTextEdit),
      problems_(new ProblemList),
      rested_(new QTimer(this)) {
  setWindowTitle(tr("Edit Statement"));
  box_->setObjectName(QStringLiteral("nodeText"));
  box_->setAccessibleName(tr("Statement"));
  box_->setLineWrapMode(QPlainTextEdit::NoWrap);
  box_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  box_->setTabStopDistance(4 * box_->fontMetrics().horizontalAdvance(u' '));
  box_->setPlainText(statement);
  box_->document()->setModified(false);
  colors_ = new qt::Highlighter(box_->document(), palette());
  rested_->setSingleShot(true);
  rested_->setInterval(kRestMilliseconds);
  connect(rested_, &QTimer::timeout, this, &NodeText::Check);
  connect(box_, &QPlainTextEdit::textChanged, rested_, qOverload<>(&QTimer::start));
  connect(problems_, &ProblemList::Chosen, this, &NodeText::Show);

  auto* label = new CutLabel;
  label->setObjectName(QStringLiteral("path"));
  label->setText(path);
  auto* buttons = new QDialogButtonBox;
  QPushButton* done = buttons->addButton(tr("&Done"), QDialogButtonBox::AcceptRole);
  buttons->addButton(QDialogButtonBox::Cancel);
  done->setDefault(true);
  done->setToolTip(QKeySequence(Qt::CTRL | Qt::Key_Return).toString(QKeySequence::NativeText));
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &NodeText::reject);
  // Ctrl+Enter, because Enter alone is a line break in the text.
  auto* finish = new QShortcut(Qt::CTRL | Qt::Key_Return, this);
  connect(finish, &QShortcut::activated, this, &QDialog::accept);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(label);
  layout->addWidget(box_, 3);
  layout->addWidget(problems_, 1);
  layout->addWidget(buttons);
  ResizeWithinScreen(*this, kSize);
  Check();
}

NodeText::~NodeText() = default;

// The exact text: QTextDocument replaces no-break spaces in its plain text.
QString NodeText::Text() const {
  QStringList lines;
  for (QTextBlock line = box_->document()->begin(); line.isValid(); line = line.next())
    lines.append(line.text());
  return lines.join(QStringLiteral("\r\n"));
}

void NodeText::Check() {
  const QString text = Text();
  findings_ = language::Check(qt::View(text), names_.get());
  problems_->Show(findings_);
  Waves waves(*box_);
  for (const language::Finding& finding : findings_)
    waves.Add(finding, static_cast<int>(finding.line) - 1, static_cast<int>(finding.column) - 1);
  waves.Draw();
}

void NodeText::Show(std::size_t finding) {
  if (finding >= findings_.size()) return;
  const language::Finding& found = findings_[finding];
  const QTextBlock line = box_->document()->findBlockByNumber(static_cast<int>(found.line) - 1);
  QTextCursor cursor(line);
  cursor.setPosition(line.position() + static_cast<int>(found.column) - 1);
  cursor.movePosition(QTextCursor::Right, QTextCursor::KeepAnchor, static_cast<int>(found.length));
  box_->setTextCursor(cursor);
  box_->setFocus();
}

void NodeText::reject() {
  if (box_->document()->isModified() &&
      QMessageBox::question(this, windowTitle(), tr("Leave without what was typed?"),
                            QMessageBox::Discard | QMessageBox::Cancel,
                            QMessageBox::Cancel) != QMessageBox::Discard) {
    return;
  }
  QDialog::reject();
}

void NodeText::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    colors_->SetPalette(palette());
    Check();
  }
  QDialog::changeEvent(event);
}

}  // namespace zolt20::composer
