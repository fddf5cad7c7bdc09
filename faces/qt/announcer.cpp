#include "faces/qt/announcer.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "faces/qt/later.h"

namespace zolt20::qt {
namespace {

class Notification final : public QAccessibleWidget {
 public:
  explicit Notification(QWidget* widget) : QAccessibleWidget(widget, QAccessible::Notification) {}

  // Reports the announcer as visible, although it has no place on the screen.
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.invisible = false;
    state.readOnly = true;
    return state;
  }
};

// A property: the accessible role of a widget to which Qt would give another role.
constexpr const char* kRole = "zolt20AccessibleRole";

// An accessible factory. Qt calls it for each class name of the object, the most derived one first.
QAccessibleInterface* InterfaceOf(const QString& /*name*/, QObject* object) {
  if (auto* announcer = qobject_cast<Announcer*>(object)) return new Notification(announcer);
  const QVariant role = object->property(kRole);
  if (!role.isValid()) return nullptr;
  return new QAccessibleWidget(static_cast<QWidget*>(object),
                               static_cast<QAccessible::Role>(role.toInt()));
}

void TellAs(QWidget& widget, QAccessible::Role role) {
  QAccessible::installFactory(&InterfaceOf);  // installed once, however often it is asked for
  widget.setProperty(kRole, static_cast<int>(role));
}

}  // namespace

void PassOver(QWidget& holder) {
  TellAs(holder, QAccessible::Client);
}

void TellAsGroup(QWidget& frame) {
  TellAs(frame, QAccessible::Grouping);
}

Announcer::Announcer(QWidget& owner) : QWidget(&owner) {
  QAccessible::installFactory(&InterfaceOf);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  hide();
}

void Announcer::Tell(const QString& words) {
  if (!QAccessible::isActive()) return;
  // After a message box closes, screen readers read the window first: the words come after that.
  constexpr int kUntilActive = 150;
  const auto tell = [this, words] {
    setAccessibleName(words);
    QAccessibleEvent shown(this, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
  };
  DoLater(*this, tell, isActiveWindow() ? 0 : kUntilActive);
}

}  // namespace zolt20::qt
