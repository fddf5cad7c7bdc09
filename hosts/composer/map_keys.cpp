#include "hosts/composer/map_keys.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QShortcut>
#include <QTabBar>
#include <array>

#include "faces/qt/qt_text.h"
#include "faces/shared/form_words.h"
#include "surface/surface.h"

namespace zolt20::composer {
namespace {

using qt::ToQt;

// The button of each page that adds to the Result.
constexpr std::array<const char*, 7> kAddButtons{"cmdAddSelect",
                                                 "cmdAddWhereQuery",
                                                 "cmdAddSelectDoQuer",
                                                 "cmdAddSEOStoquery",
                                                 "cmdSelectmpty",
                                                 "cmdAddtoSERROR",
                                                 "cmdAdd"};

QString NameOfMove(const Surface& form, int hadSelected) {
  const int rows = form.lstSelectedFields.ListCount();
  if (rows == hadSelected + 1)
    return QCoreApplication::translate("composer", "Move %1")
        .arg(ToQt(form.lstSelectedFields.List(rows - 1)));
  return QCoreApplication::translate("composer", "Move %1 Fields").arg(rows - hadSelected);
}

QString RowOf(const RowsControl& rows, int row) {
  return row >= 0 && row < rows.ListCount() ? ToQt(rows.List(row)) : QString();
}

}  // namespace

void TurnPage(ZOLT20MapWidget& map, bool forward) {
  auto* strip = map.findChild<QTabBar*>(QStringLiteral("tabVrn"));
  if (strip == nullptr || !strip->isEnabled()) return;
  const int step = forward ? 1 : -1;
  int page = strip->currentIndex() + step;
  while (page >= 0 && page < strip->count() &&
         (!strip->isTabVisible(page) || !strip->isTabEnabled(page)))
    page += step;
  if (page >= 0 && page < strip->count()) strip->setCurrentIndex(page);
}

QShortcut* ShortcutOf(const ZOLT20MapWidget& map, QKeySequence::StandardKey key) {
  for (auto* shortcut : map.findChildren<QShortcut*>(QString(), Qt::FindDirectChildrenOnly)) {
    if (shortcut->key() == QKeySequence(key)) return shortcut;
  }
  return nullptr;
}

void PressButton(ZOLT20MapWidget& map, const char* name) {
  auto* button = map.findChild<QAbstractButton*>(QString::fromLatin1(name));
  if (button != nullptr && button->isEnabled()) button->click();
}

void PressAdd(ZOLT20MapWidget& map) {
  const auto page = static_cast<std::size_t>(map.form().tabVrn.Tab().value());
  if (page < kAddButtons.size()) PressButton(map, kAddButtons[page]);
}

QString NameOfGesture(const ZOLT20Gesture& gesture, const Surface& form, int hadSelected) {
  if (gesture.verb == u"tab") return QCoreApplication::translate("composer", "Turn the Page");
  const Control* control = form.Find(gesture.control.toStdString());
  if (control == nullptr) return {};
  if (gesture.control == u"cmdMoveOne" && form.lstSelectedFields.ListCount() > hadSelected)
    return NameOfMove(form, hadSelected);
  QString name = ToQt(faces::AccessibleName(*control));
  if (gesture.verb == u"type" || gesture.verb == u"key")
    return QCoreApplication::translate("composer", "Type in %1").arg(name);
  QString row;
  if (control->kind() == Kind::ListBox)
    row = RowOf(static_cast<const ListBox&>(*control), gesture.number);
  if (control->kind() == Kind::ComboBox)
    row = RowOf(static_cast<const ComboBox&>(*control), gesture.number);
  if (!row.isEmpty())
    return QCoreApplication::translate("composer", "%1 in %2").arg(row.trimmed(), name);
  return name;
}

}  // namespace zolt20::composer
