#include "hosts/composer/node_composer.h"

#include <QMessageBox>
#include <QPushButton>
#include <QScopedValueRollback>

#include "faces/qt/later.h"
#include "faces/qt/qt_text.h"
#include "hosts/composer/map_keys.h"
#include "hosts/composer/opened_statement.h"

namespace zolt20::composer {

NodeComposer::NodeComposer(const catalogue::Catalogue& catalogue, const QString& statement,
                           const reopen::Opening& opening, int page, const QString& title,
                           RecordedMap& asking)
    : FurtherComposer(catalogue, tr("Edit Statement"), &asking) {
  TakeSteps(map(), opening.steps);
  if (page >= 0) map().Write("prpTab", page);
  map().Settle(statement);
  const QString path = PathOf(&asking);
  Begin(catalogue, path.isEmpty() ? title : path + QStringLiteral(" > ") + title);
}

void NodeComposer::TakeText() {
  // Nothing was changed, so there is nothing to ask.
  if (!map().IsChanged()) return QDialog::reject();  // NOLINT(bugprone-parent-virtual-call)
  const QString text = qt::ToQt(map().form().TxtOutput.Text());
  if (!isDecided_ && map().PendingOnPages().Any()) {
    // Deferred until the click on Done is over: the control refuses gestures within a gesture.
    qt::DoLater(*this, [this] { AddAndTakeText(); });
  } else if (!text.isEmpty()) {
    text_ = text;
    accept();
  }
}

// Presses the add buttons of the control, which may refuse, and takes the text if they do not.
void NodeComposer::AddAndTakeText() {
  const bool isAddable = !map().WhatAddDoes().buttons.empty();
  const bool hasResult = !map().form().TxtOutput.Text().empty();
  if (!isAddable && !hasResult) {
    QMessageBox::information(this, windowTitle(),
                             tr("What stands on the pages can't be added to the Result yet."));
    return;
  }
  const QScopedValueRollback decided(isDecided_, true);
  if (!hasResult) {
    map().AddPages();
  } else if (!AskWhatToAdd()) {
    return;
  }
  PressButton(map(), "cmdDone");
}

// Asks whether to add what stands on the pages or to take the Result as it is. Returns false to go
// on composing.
bool NodeComposer::AskWhatToAdd() {
  QMessageBox message(QMessageBox::Question, windowTitle(),
                      tr("The pages hold what is not in the Result."), QMessageBox::NoButton, this);
  const QPushButton* add = message.addButton(tr("Add and Put Back"), QMessageBox::AcceptRole);
  message.addButton(tr("Put Back Without"), QMessageBox::DestructiveRole);
  QPushButton* stay = message.addButton(tr("Go On"), QMessageBox::RejectRole);
  message.setEscapeButton(stay);
  message.setDefaultButton(stay);
  message.exec();
  if (message.clickedButton() == add) map().AddPages();
  return message.clickedButton() != stay;
}

}  // namespace zolt20::composer
