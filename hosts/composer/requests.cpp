#include "hosts/composer/requests.h"

#include <QMessageBox>
#include <QVBoxLayout>

#include "faces/qt/qt_text.h"
#include "hosts/composer/function_picker.h"
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

// Tells the person when a text can't be handed over.
bool IsSendable(QWidget& parent, const QString& text) {
  const std::size_t at = reopen::FindUnsendable(View(text));
  if (at == StringView::npos) return true;
  QMessageBox::warning(
      &parent, QStringLiteral("Text"),
      QStringLiteral("The text can't be handed over: it holds \"%1\", which has a meaning of its "
                     "own on the way.")
          .arg(
              text.mid(static_cast<qsizetype>(at), text[static_cast<qsizetype>(at)] == u'`' ? 3 : 1)
                  .replace(QChar(1), QStringLiteral("the character of code 1"))));
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
                         &map, QStringLiteral("Error"),
                         QStringLiteral("%1 (%2): %3").arg(kind).arg(number).arg(text));
                   });
}

// Its text is composed at the margin. Of a block the property takes one level off every line but
// the first, so it is read one level deep.
NestedComposer::NestedComposer(const catalogue::Catalogue& catalogue, const QString& pageCode,
                               bool onCondition, QWidget* parent)
    : QDialog(parent), pageCode_(pageCode), map_(new RecordedMap(catalogue)) {
  static const QStringList kPages{QStringLiteral("SelectDo"), QStringLiteral("SelectEOS"),
                                  QStringLiteral("SelectEmpty"), QStringLiteral("SelectError"),
                                  QStringLiteral("Condition")};
  const QString what = onCondition ? QStringLiteral("Condition") : QStringLiteral("Sub Query");
  setWindowTitle(
      QStringLiteral("%1 for %2")
          .arg(what, kPages.value(static_cast<int>(QStringLiteral("DEOFC").indexOf(pageCode)))));
  map_->Write("prpParentorChild", QStringLiteral("Child"));
  map_->Write("prpTab", onCondition ? kConditionPage : kSelectListPage);
  map_->Write("prpintTabcount", 0);
  map_->Settle();
  AnswerRequests(*map_, catalogue);
  connect(map_, &ZOLT20MapWidget::eventDone, this, &NestedComposer::TakeText);
  connect(map_, &ZOLT20MapWidget::eventCancel, this, &NestedComposer::reject);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(map_);
  resize(900, 650);
}

void NestedComposer::TakeText() {
  if (map_->form().TxtOutput.Text().empty()) return reject();  // what is in the pages may be missed
  if (!IsSendable(*this, ToQt(map_->form().TxtOutput.Text()))) return;
  if (IsBlock(pageCode_)) map_->Write("prpintTabcount", 1);
  encoded_ = EncodeFor(pageCode_, map_->ReadResult());
  accept();
}

void NestedComposer::reject() {
  if (map_->IsChanged() &&
      QMessageBox::question(this, windowTitle(), QStringLiteral("Leave without what was composed?"),
                            QMessageBox::Discard | QMessageBox::Cancel,
                            QMessageBox::Cancel) != QMessageBox::Discard) {
    return;
  }
  QDialog::reject();
}

}  // namespace zolt20::composer
