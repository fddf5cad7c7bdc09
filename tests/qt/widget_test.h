// The fixture of tests that use the widget: the verbs of a person, by real mouse and key events in
// a window, and readable reads.
//
// A verb presses where a person would, and fails when another widget covers the place. The signals
// and messages of the widget are logged in order, "eventDone", "changed prpTab", "message TITLE:
// TEXT" or "failed KIND NUMBER"; a test takes them with Log(). Difference() gives the first
// difference between what is drawn and the surface.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>
#include <functional>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "faces/qt/map_widget.h"
#include "faces/qt/qt_text.h"
#include "hosts/automation/dump.h"
#include "shell/contract.h"
#include "surface/surface.h"
#include "tests/support/control_test.h"

namespace zolt20::tests {

inline QString Qs(std::string_view text) {
  return qt::ToQt(Wide(text));
}
inline std::string Std(const QString& text) {
  return Narrow(qt::View(text));
}
/// The name that Qt's meta-object has for a name of the contract.
inline QByteArray Meta(std::string_view name) {
  return {name.data(), static_cast<qsizetype>(name.size())};
}
/// The slot that writes a property.
inline QByteArray SetterOf(std::string_view property) {
  QByteArray name = Meta(property);
  name[0] = static_cast<char>(std::toupper(name[0]));
  return "set" + name;
}
/// The text of a button without the "&" of its mnemonic.
inline QString WithoutMnemonic(QString text) {
  for (qsizetype at = 0; at < text.size(); ++at) {
    if (text[at] == u'&') text.remove(at, 1);  // of two, the second stays
  }
  return text;
}

/// A person at a widget, which the test makes, shows and discards.
class PersonTest : public ::testing::Test {
 protected:
  ZOLT20MapWidget& widget() { return *widget_; }
  const Surface& form() { return widget_->form(); }

  // A person.

  /// Presses a button, or an option at its circle.
  void Click(std::string_view control) {
    QWidget& target = On(control);
    constexpr int kInCircle = 8;
    const bool isOption = qobject_cast<QRadioButton*>(&target) != nullptr;
    PressAt(target, {isOption ? kInCircle : target.width() / 2, target.height() / 2});
  }
  /// Scrolls to a row of a list and presses it.
  void Click(std::string_view list, int row) { PressAt(*ViewOf(list).viewport(), Row(list, row)); }
  /// Double-clicks a row.
  void DoubleClick(std::string_view list, int row) {
    QWidget& viewport = *ViewOf(list).viewport();
    const QPoint at = Row(list, row);
    ExpectOnTop(viewport, at);
    QTest::mouseDClick(Window(), Qt::LeftButton, {}, viewport.mapTo(viewport.window(), at));
  }
  /// Opens the list of a combo box by the mouse and presses an entry.
  void Pick(std::string_view combo, int row) {
    auto& box = Be<QComboBox>(combo);
    constexpr int kInArrow = 8;
    // The list takes no release within that time, as it belongs to the press that opened it.
    const int interval = QApplication::doubleClickInterval();
    QApplication::setDoubleClickInterval(0);
    PressAt(box, {box.isEditable() ? box.width() - kInArrow : box.width() / 2, box.height() / 2});
    QAbstractItemView& view = *box.view();
    EXPECT_TRUE(view.isVisible()) << combo << " shows no list";
    EXPECT_LT(row, view.model()->rowCount());
    EXPECT_TRUE(QTest::qWaitForWindowExposed(view.window()));
    QTest::qWait(1);
    const QModelIndex index = view.model()->index(row, 0);
    view.scrollTo(index);
    QWidget& viewport = *view.viewport();
    const QPoint at = viewport.mapTo(viewport.window(), view.visualRect(index).center());
    QTest::mouseMove(viewport.window()->windowHandle(), at);
    QTest::mouseClick(viewport.window()->windowHandle(), Qt::LeftButton, {}, at);
    EXPECT_FALSE(view.isVisible()) << combo << " keeps its list open";
    QApplication::setDoubleClickInterval(interval);
  }
  /// Replaces the whole text at once: select all, paste.
  void Type(std::string_view box, std::string_view text) {
    Focus(box);
    QTest::keySequence(Window(), QKeySequence(QKeySequence::SelectAll));
    if (text.empty()) return Press(Qt::Key_Delete);
    QApplication::clipboard()->setText(Qs(text));
    QTest::keySequence(Window(), QKeySequence(QKeySequence::Paste));
  }
  /// Key by key, behind the text that is there.
  void TypeKeys(std::string_view box, std::string_view text) {
    if (QApplication::focusWidget() != &On(box)) Focus(box);
    QTest::keyClick(Window(), Qt::Key_End, Qt::ControlModifier);
    for (const char key : text)
      key == '\n' ? Press(Qt::Key_Return) : QTest::keyClick(Window(), key);
  }
  /// A key in a text box, by its character code, 8 for backspace or 13 for Enter.
  void Key(std::string_view box, int code) {
    if (QApplication::focusWidget() != &On(box)) Focus(box);
    constexpr int kBackspace = 8;
    constexpr int kEnter = 13;
    if (code == kBackspace) return Press(Qt::Key_Backspace);
    if (code == kEnter) return Press(Qt::Key_Return);
    QTest::keyClick(Window(), static_cast<char>(code));
  }
  /// Marks characters of a box of one line, or puts the caret there.
  void Mark(std::string_view box, int from, int to) {
    if (QApplication::focusWidget() != &On(box)) Focus(box);
    Press(Qt::Key_Home);
    for (int place = 0; place < to; ++place)
      Press(Qt::Key_Right, place < from ? Qt::NoModifier : Qt::ShiftModifier);
  }
  /// Presses a page of the tab strip.
  void Tab(int page) {
    auto& strip = Be<QTabBar>("tabVrn");
    PressAt(strip, strip.tabRect(page).center());
  }
  /// Presses into a text box or an editable combo; on a button, goes away from it before the
  /// release, so that it is not clicked.
  void Focus(std::string_view control) {
    QWidget& target = On(control);
    if (qobject_cast<QAbstractButton*>(&target) == nullptr) {
      return PressAt(target, target.rect().center());
    }
    ExpectOnTop(target, target.rect().center());
    const QPoint at = target.mapTo(target.window(), target.rect().center());
    QTest::mousePress(Window(), Qt::LeftButton, {}, at);
    QTest::mouseMove(Window(), {0, 0});
    QTest::mouseRelease(Window(), Qt::LeftButton, {}, {0, 0});
  }
  /// Presses the arrows of a scroll bar until it is there.
  void Scroll(std::string_view name, int value) {
    auto& bar = Be<QScrollBar>(name);
    constexpr int kInArrow = 5;
    for (int presses = 0; bar.value() != value && presses <= bar.maximum(); ++presses) {
      PressAt(bar, {bar.width() / 2, bar.value() < value ? bar.height() - kInArrow : kInArrow});
    }
    EXPECT_EQ(bar.value(), value);
  }
  /// A key in the window, wherever the focus is.
  void Press(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(Window(), static_cast<Qt::Key>(key), modifiers);
  }

  /// Carries out a gesture of the automation host, a line with "user". False when it is refused:
  /// a person can't reach the control, or the gesture has no effect.
  bool Make(const nlohmann::ordered_json& gesture) {
    const std::string verb = gesture["user"];
    if (verb == "tab") return Tab(gesture["page"]), true;
    const std::string name = gesture["control"];
    if (!On(name).isEnabled()) {
      if (IsInSight(name)) Click(name);
      return false;
    }
    if (!IsInSight(name)) return false;
    if (verb == "click" && gesture.contains("row")) {
      Click(name, gesture["row"]);
    } else if (verb == "click") {
      Click(name);
    } else if (verb == "dblclick") {
      DoubleClick(name, gesture["row"]);
    } else if (verb == "pick") {
      Pick(name, gesture["row"]);
    } else if (verb == "type") {
      Type(name, gesture["text"].get<std::string>());
    } else if (verb == "key") {
      if (gesture.contains("from")) {
        Mark(name, gesture["from"], gesture.value("to", gesture["from"].get<int>()));
      }
      Key(name, gesture["code"]);
    } else if (verb == "focus") {
      Focus(name);
    } else {
      EXPECT_EQ(verb, "scroll");
      Scroll(name, gesture["value"]);
    }
    return true;
  }

  // Reads.

  /// The widget of a control.
  QWidget& On(std::string_view control) {
    auto* found = widget_->findChild<QWidget*>(Qs(control));
    if (found == nullptr) throw std::runtime_error("there is no widget " + std::string(control));
    return *found;
  }
  template <typename Kind>
  Kind& Be(std::string_view control) {
    auto* found = qobject_cast<Kind*>(&On(control));
    if (found == nullptr) throw std::runtime_error(std::string(control) + " is another kind");
    return *found;
  }
  const Control& ControlOf(std::string_view name) {
    const Control* control = form().Find(name);
    if (control == nullptr) throw std::runtime_error("there is no control " + std::string(name));
    return *control;
  }
  /// Whether the widget is visible, and no other one covers its middle.
  bool IsInSight(std::string_view control) {
    const auto* target = widget_->findChild<QWidget*>(Qs(control));
    return target != nullptr && target->isVisible() && IsOnTop(*target, target->rect().center());
  }
  /// The control with the focus on the surface, "" for none.
  std::string Focused() {
    return form().Focused() == nullptr ? "" : std::string(form().Focused()->name());
  }
  /// The widget with the focus of the keyboard, "" for the window of a widget without it.
  std::string KeyboardFocus() {
    const QWidget* focus = QApplication::focusWidget();
    return focus == nullptr ? "" : Std(focus->objectName());
  }
  nlohmann::ordered_json State() { return automation::Dump(form()); }

  /// The first difference between what is drawn and the surface; "" for none.
  std::string Difference() {
    for (const Control* control : form().Controls()) {
      const auto* drawn = widget_->findChild<QWidget*>(Qs(control->name()));
      const std::string name(control->name());
      if (drawn == nullptr) return name + " is not there";
      if (drawn->isVisible() != control->Shown()) return name + " is shown or hidden";
      if (drawn->isEnabledTo(drawn->parentWidget()) != control->Enabled()) return name + " Enabled";
      if (const std::string what = KindDifference(*control, *drawn); !what.empty())
        return name + " " + what;
    }
    if (KeyboardFocus() != Focused()) {
      return "the focus is on " + KeyboardFocus() + ", not on " + Focused();
    }
    return "";
  }

  QWindow* Window() { return widget_->window()->windowHandle(); }

  static void ShowWindow(QWidget& window) {
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  QPointer<ZOLT20MapWidget> widget_;

 private:
  QAbstractItemView& ViewOf(std::string_view list) { return Be<QAbstractItemView>(list); }

  // The middle of a row within the viewport, scrolled into sight; of a wide one the left end.
  QPoint Row(std::string_view list, int row) {
    QAbstractItemView& view = ViewOf(list);
    const QModelIndex index = view.model()->index(row, 0);
    EXPECT_TRUE(index.isValid()) << list << " has no row " << row;
    view.scrollTo(index);
    constexpr int kInText = 30;
    const QRect place = view.visualRect(index);
    return {place.left() + kInText, place.center().y()};
  }

  static bool IsOnTop(const QWidget& target, const QPoint& at) {
    const QWidget* hit = target.window()->childAt(target.mapTo(target.window(), at));
    return hit != nullptr && (hit == &target || target.isAncestorOf(hit));
  }
  static void ExpectOnTop(const QWidget& target, const QPoint& at) {
    EXPECT_TRUE(target.isVisible() && IsOnTop(target, at))
        << Std(target.objectName()) << " is not in sight";
  }
  void PressAt(QWidget& target, const QPoint& at) {
    ExpectOnTop(target, at);
    QTest::mouseClick(Window(), Qt::LeftButton, {}, target.mapTo(target.window(), at));
  }

  static std::string KindDifference(const Control& control, const QWidget& drawn) {
    const auto has = [](const QString& shown, StringView text) {
      QString lines = qt::ToQt(text);
      lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
      return shown == lines ? "" : "shows \"" + Std(shown) + "\"";
    };
    if (const auto* box = qobject_cast<const QPlainTextEdit*>(&drawn)) {
      return has(box->toPlainText(), static_cast<const TextControl&>(control).Text());
    }
    if (const auto* line = qobject_cast<const QLineEdit*>(&drawn))
      return has(line->text(), static_cast<const TextBox&>(control).Text());
    if (const auto* button = qobject_cast<const QAbstractButton*>(&drawn)) {
      if (control.kind() == Kind::OptionButton &&
          button->isChecked() != static_cast<const OptionButton&>(control).Value())
        return "shows another Value";
      return has(WithoutMnemonic(button->text()),
                 static_cast<const CaptionedControl&>(control).Caption());
    }
    if (const auto* label = qobject_cast<const QLabel*>(&drawn))
      return has(label->text(), static_cast<const Label&>(control).Caption());
    if (const auto* bar = qobject_cast<const QScrollBar*>(&drawn)) {
      const auto& scroll = static_cast<const ScrollBar&>(control);
      return bar->value() == scroll.Value() && bar->maximum() == scroll.Max() ? "" : "scrolled";
    }
    if (const auto* strip = qobject_cast<const QTabBar*>(&drawn)) {
      return strip->currentIndex() == static_cast<const TabStrip&>(control).Tab().value()
                 ? ""
                 : "shows another page";
    }
    if (const auto* box = qobject_cast<const QComboBox*>(&drawn)) {
      const auto& combo = static_cast<const ComboBox&>(control);
      // An entry of a text that was typed on is forgotten when the list is asked for.
      const bool isTyped = combo.IsEditable() && combo.ListIndex() < 0 && !combo.Text().empty();
      if (!isTyped && box->currentIndex() != combo.ListIndex()) return "has another entry";
      if (const std::string rows = RowsDifference(*box->model(), combo); !rows.empty()) return rows;
      // Without an entry Qt's own text is that of no entry: nothing.
      return has(box->currentText(), combo.Text());
    }
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&drawn)) {
      const auto& list = static_cast<const ListBox&>(control);
      if (const std::string rows = RowsDifference(*view->model(), list); !rows.empty()) return rows;
      for (int row = 0; row < list.ListCount(); ++row) {
        const QModelIndex index = view->model()->index(row, 0);
        const bool isMarked = list.HasCheckBoxes()
                                  ? index.data(Qt::CheckStateRole).toInt() == Qt::Checked
                                  : view->selectionModel()->isSelected(index);
        if (isMarked != list.Selected(row)) return "marks row " + std::to_string(row);
      }
    }
    return "";
  }
  static std::string RowsDifference(const QAbstractItemModel& model, const RowsControl& rows) {
    if (model.rowCount() != rows.ListCount()) return "has another number of rows";
    for (int row = 0; row < rows.ListCount(); ++row) {
      if (model.index(row, 0).data().toString() != qt::ToQt(rows.List(row)))
        return "has another row " + std::to_string(row);
    }
    return "";
  }
};

/// A widget that keeps its messages and answers them at once.
class LoggedWidget final : public ZOLT20MapWidget {
 public:
  explicit LoggedWidget(Texts& log, QWidget* parent = nullptr)
      : ZOLT20MapWidget(parent), log_(log) {}

 protected:
  void showMessage(const QString& text, const QString& title) override {
    log_.push_back("message " + Std(title) + ": " + Std(text));
  }

 private:
  Texts& log_;
};

/// A person and a host. A test begins with a new widget.
class WidgetTest : public PersonTest {
 protected:
  WidgetTest() { MakeNew(); }
  ~WidgetTest() override {
    delete widget_;
    window_.reset();
  }

  // Making widgets. Each discards the one before.

  /// A window of its own.
  void MakeNew() {
    delete widget_;
    window_.reset();
    log_.clear();
    widget_ = new LoggedWidget(log_);
    widget_->resize(900, 650);
    Hear();
    ShowWindow(*widget_);
  }
  /// A window with a line edit above the widget and one below it.
  void MakeEmbedded() {
    delete widget_;
    log_.clear();
    window_ = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(window_.get());
    layout->addWidget(above_ = new QLineEdit);
    layout->addWidget(widget_ = new LoggedWidget(log_));
    layout->addWidget(below_ = new QLineEdit);
    window_->resize(900, 720);
    Hear();
    ShowWindow(*window_);
  }

  /// Takes the log: signals and messages since the last call of Log(), in order.
  Texts Log() { return std::exchange(log_, {}); }
  /// Puts a line of the test's own into the log.
  void Told(std::string line) { log_.push_back(std::move(line)); }
  /// What the host does inside an event, by a slot that is connected directly.
  void Answer(const std::string& event, std::function<void()> action) {
    answers_[event] = std::move(action);
  }
  /// A small catalogue: two tables of two fields each, the first with two indexes. Takes its
  /// reports from the log.
  void Catalogue() {
    widget_->setPrpStrTables(QStringLiteral("TABLE__12,TABLE__20"));
    widget_->setPrpStrFields(Qs(List(
        {Field("NTABLE__1.A"), Field("NTABLE__1.B"), Field("NTABLE__2.C"), Field("NTABLE__2.D")})));
    EXPECT_EQ(Log(), (Texts{"changed PrpStrTables", "changed PrpStrFields"}));
  }

  // The neighbours of an embedded widget.
  QLineEdit* above_ = nullptr;
  QLineEdit* below_ = nullptr;

 private:
  void Hear() {
    using Widget = ZOLT20MapWidget;
    const auto event = [this](void (Widget::*signal)(), const char* name) {
      QObject::connect(widget_, signal, widget_, [this, name] {
        log_.emplace_back(name);
        const auto answer = answers_.find(name);
        if (answer != answers_.end() && answer->second) answer->second();
      });
    };
    event(&Widget::eventCancel, "eventCancel");
    event(&Widget::eventDone, "eventDone");
    event(&Widget::eventSubQuery, "eventSubQuery");
    event(&Widget::eventCondition, "eventCondition");
    event(&Widget::eventFunction, "eventFunction");
    const auto changed = [this](void (Widget::*signal)(), const char* name) {
      QObject::connect(widget_, signal, widget_,
                       [this, name] { log_.push_back(std::string("changed ") + name); });
    };
    changed(&Widget::PrpStrTablesChanged, "PrpStrTables");
    changed(&Widget::PrpStrFieldsChanged, "PrpStrFields");
    changed(&Widget::prpSelectPartChanged, "prpSelectPart");
    changed(&Widget::prpTabChanged, "prpTab");
    changed(&Widget::prpParentorChildChanged, "prpParentorChild");
    changed(&Widget::prpSelectFromPartChanged, "prpSelectFromPart");
    changed(&Widget::prpSelectWherePartChanged, "prpSelectWherePart");
    changed(&Widget::prpSelectGroupbyPartChanged, "prpSelectGroupbyPart");
    changed(&Widget::prpSelectOrderbyPartChanged, "prpSelectOrderbyPart");
    changed(&Widget::prpSelectAsSetPartChanged, "prpSelectAsSetPart");
    changed(&Widget::prpSelectDoPartChanged, "prpSelectDoPart");
    changed(&Widget::prpSelectEOSPartChanged, "prpSelectEOSPart");
    changed(&Widget::prpSelectEmptyPartChanged, "prpSelectEmptyPart");
    changed(&Widget::prpSelectErrorPartChanged, "prpSelectErrorPart");
    QObject::connect(widget_, &Widget::Failed, widget_, [this](const QString& kind, int number) {
      log_.push_back("failed " + Std(kind) + " " + std::to_string(number));
    });
  }

  Texts log_;
  std::map<std::string, std::function<void()>> answers_;
  std::unique_ptr<QWidget> window_;  // around an embedded widget
};

}  // namespace zolt20::tests
