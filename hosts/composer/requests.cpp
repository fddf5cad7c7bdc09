#include "hosts/composer/requests.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

#include "faces/qt/later.h"
#include "faces/qt/qt_text.h"
#include "hosts/composer/function_picker.h"
#include "hosts/composer/map_keys.h"
#include "language/reopen.h"

namespace zolt20::composer {
namespace {

using qt::ToQt;
using qt::View;

constexpr int kSelectListPage = 0;
constexpr int kConditionPage = 6;

const char* PropertyOf(const QString& pageCode) {
  if (pageCode == u"D") return "prpSelectDoPart";
  if (pageCode == u"E") return "prpSelectEOSPart";
  if (pageCode == u"O") return "prpSelectEmptyPart";
  if (pageCode == u"F") return "prpSelectErrorPart";
  return "prpStroutput";
}

bool IsBlock(const QString& pageCode) {
  return pageCode != u"C";
}

QString EncodeFor(const QString& pageCode, const QString& text) {
  if (!IsBlock(pageCode)) return ToQt(reopen::Encode(View(text)));
  return ToQt(reopen::EncodeBlock(View(text), pageCode == u"D"));
}

// Whether the control can take the text; shows a message if it can't.
bool IsSendable(QWidget& parent, const QString& text) {
  const std::size_t at = reopen::FindUnsendable(View(text));
  if (at == StringView::npos) return true;
  QMessageBox::warning(
      &parent, QCoreApplication::translate("composer", "Text"),
      QCoreApplication::translate(
          "composer",
          "The text can't be handed over: it holds \"%1\", which has a meaning of its "
          "own on the way.")
          .arg(
              text.mid(static_cast<qsizetype>(at), text[static_cast<qsizetype>(at)] == u'`' ? 3 : 1)
                  .replace(QChar(1),
                           QCoreApplication::translate("composer", "the character of code 1"))));
  return false;
}

void Answer(RecordedMap& map, const QString& encoded) {
  if (!encoded.isEmpty()) map.Write(PropertyOf(map.prpStrSQLPart()), encoded);
}

void AnswerByComposer(RecordedMap& map, const catalogue::Catalogue& catalogue, bool onCondition) {
  NestedComposer nested(catalogue, map.prpStrSQLPart(), onCondition, &map);
  if (nested.exec() == QDialog::Accepted) Answer(map, nested.Encoded());
}

void AnswerByFunction(RecordedMap& map, const catalogue::Catalogue& catalogue) {
  FunctionPicker picker(catalogue.functions, &map);
  do {
    if (picker.exec() != QDialog::Accepted) return;
  } while (!IsSendable(map, picker.Call()));
  Answer(map, EncodeFor(map.prpStrSQLPart(), picker.Call()));
}

const char* NameOfPage(const QString& pageCode) {
  if (pageCode == u"D") return "SelectDo";
  if (pageCode == u"E") return "SelectEOS";
  if (pageCode == u"O") return "SelectEmpty";
  if (pageCode == u"F") return "SelectError";
  return "Condition";
}

// Joins the path of a nested composer without repeating the name of the page.
QString Joined(const QString& path, const QString& page, const QString& what) {
  const QString between = QStringLiteral(" > ");
  if (path.isEmpty()) return page + between + what;
  return path + (path.endsWith(between + page) ? QString() : between + page) + between + what;
}

QString WhatIsAsked(bool onCondition) {
  return onCondition ? NestedComposer::tr("Condition") : NestedComposer::tr("Sub Query");
}

QString TitleOf(const QString& pageCode, bool onCondition) {
  return NestedComposer::tr("%1 for %2")
      .arg(WhatIsAsked(onCondition), QString::fromLatin1(NameOfPage(pageCode)));
}

}  // namespace

void AnswerRequests(RecordedMap& map, const catalogue::Catalogue& catalogue) {
  QObject::connect(&map, &ZOLT20MapWidget::eventSubQuery, &map,
                   [&map, &catalogue] { AnswerByComposer(map, catalogue, false); });
  QObject::connect(&map, &ZOLT20MapWidget::eventCondition, &map,
                   [&map, &catalogue] { AnswerByComposer(map, catalogue, true); });
  QObject::connect(&map, &ZOLT20MapWidget::eventFunction, &map,
                   [&map, &catalogue] { AnswerByFunction(map, catalogue); });
  QObject::connect(&map, &ZOLT20MapWidget::Failed, &map,
                   [&map](const QString& kind, int number, const QString& text) {
                     QMessageBox::critical(
                         &map, QCoreApplication::translate("composer", "Error"),
                         QStringLiteral("%1 (%2): %3").arg(kind).arg(number).arg(text));
                   });
}

// The text is composed at depth 0. prpStroutput is read at depth 1 for a block, because the
// property that takes it removes one tab from each line but the first.
NestedComposer::NestedComposer(const catalogue::Catalogue& catalogue, const QString& pageCode,
                               bool onCondition, QWidget* parent)
    : FurtherComposer(catalogue, TitleOf(pageCode, onCondition), parent), pageCode_(pageCode) {
  map().Write("prpParentorChild", QStringLiteral("Child"));
  map().Write("prpTab", onCondition ? kConditionPage : kSelectListPage);
  map().Write("prpintTabcount", 0);
  map().Settle();
  Begin(catalogue, Joined(PathOf(parent), QString::fromLatin1(NameOfPage(pageCode)),
                          WhatIsAsked(onCondition)));
}

void NestedComposer::TakeText() {
  if (map().form().TxtOutput.Text().empty()) {
    // The pages may hold something that was not added to the Result.
    return map().IsChanged() ? TellWhatIsMissing() : reject();
  }
  if (!IsSendable(*this, ToQt(map().form().TxtOutput.Text()))) return;
  if (IsBlock(pageCode_)) map().Write("prpintTabcount", 1);
  encoded_ = EncodeFor(pageCode_, map().ReadResult());
  accept();
}

void NestedComposer::TellWhatIsMissing() {
  QMessageBox message(QMessageBox::Question, windowTitle(),
                      tr("Nothing was added to the Result, so there is nothing to hand over."),
                      QMessageBox::NoButton, this);
  message.setInformativeText(
      tr("What stands on the pages comes into the Result by the button that adds it."));
  const QAbstractButton* add = message.addButton(tr("Add To Result"), QMessageBox::AcceptRole);
  QPushButton* goOn = message.addButton(tr("Go On"), QMessageBox::RejectRole);
  const QAbstractButton* leave = message.addButton(tr("Leave"), QMessageBox::DestructiveRole);
  message.setDefaultButton(goOn);
  message.setEscapeButton(goOn);
  message.exec();
  // NOLINTNEXTLINE(bugprone-parent-virtual-call)
  if (message.clickedButton() == leave) QDialog::reject();
  // Deferred until the click on Done is over: the control refuses gestures within a gesture.
  if (message.clickedButton() == add) qt::DoLater(*this, [this] { AddAndTakeText(); });
}

// Presses the add buttons of the control, which may refuse, and takes the text if they do not.
void NestedComposer::AddAndTakeText() {
  PressAdd(map());
  if (!map().form().TxtOutput.Text().empty()) PressButton(map(), "cmdDone");
}

}  // namespace zolt20::composer
