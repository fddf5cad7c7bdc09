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
  // As it was, so that there is nothing to ask about.
  if (!map().IsChanged()) return QDialog::reject();  // NOLINT(bugprone-parent-virtual-call)
  const QString text = qt::ToQt(map().form().TxtOutput.Text());
  if (!isDecided_ && map().PendingOnPages().Any()) {
    // Once the click on Done is over, since until then the control takes no other.
    qt::DoLater(*this, [this] { AddAndTakeText(); });
  } else if (!text.isEmpty()) {
    text_ = text;
    accept();
  }
}

// By the control's own buttons, which may refuse.
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

// The Result may be what the person wants already. False to go on composing.
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
