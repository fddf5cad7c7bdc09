// The fixture of tests that use the composer's windows: a person at its menus, its list of rules,
// its control and its dialogs, by real mouse and key events.
//
// A dialog holds up whatever opened it. So a test says beforehand what happens in each dialog that
// will come, in their order; one that comes unannounced or does not come is a failure, and so is
// one that is still open when its steps are done. Within the steps of a dialog that holds a control
// the verbs of the fixture act on that control, elsewhere on the main window's.
#pragma once

#include <sys/resource.h>
#include <unistd.h>

#include <QAction>
#include <QDialog>
#include <QFile>
#include <QInputDialog>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <csignal>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "hosts/composer/main_window.h"
#include "hosts/composer/rules_file.h"
#include "tests/composer/files.h"
#include "tests/qt/widget_test.h"
#include "tests/support/places.h"

namespace zolt20::tests {

/// What a person does in one dialog; it must be gone behind the last step.
using Steps = std::function<void()>;

class ComposerTest : public PersonTest {
 protected:
  ComposerTest() {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    qputenv("XDG_DATA_HOME", QFile::encodeName(In("data")));
    Watch();
    OpenWindow();
  }
  ~ComposerTest() override { CloseWindow(); }
  void TearDown() override {
    QTest::qWait(1);
    EXPECT_TRUE(coming_.empty()) << coming_.size() << " dialogs did not come";
  }

  /// A new window on the example catalogue, as after a new start. Discards the one before.
  void OpenWindow() {
    CloseWindow();
    window_ = std::make_unique<composer::MainWindow>();
    EXPECT_TRUE(window().OpenCatalogue(Qs(Examples() + "/catalogue.json")));
    ShowWindow(window());
    Follow();
  }
  /// Whatever is composed is given up.
  void CloseWindow() {
    if (window_) window_->journal().Forget();
    window_.reset();
  }
  /// The composer ends as by a kill; what it kept is on the disk.
  void KillWindow() {
    EXPECT_TRUE(window_->journal().WaitUntilKept(std::chrono::seconds(10)));
    window_.reset();
  }
  /// Waits until the window has done what it does once the person rests, such as a check of a text.
  void Rest() {
    QTest::qWait(1);
    const auto isDone = [this] {
      const QList<QTimer*> timers = window().findChildren<QTimer*>();
      return std::none_of(timers.begin(), timers.end(), [](const QTimer* timer) {
        return timer->isSingleShot() && timer->isActive();
      });
    };
    EXPECT_TRUE(QTest::qWaitFor(isDone, 20000));
  }
  /// A file of these rules on the disk, opened in the window.
  void OpenRules(const std::vector<composer::Rule>& rules = {}) {
    WriteRules(rules);
    EXPECT_TRUE(window().OpenRules(RulesPath()));
    Follow();
  }
  /// A new window on the rules that are on the disk.
  void OpenAgain() {
    OpenWindow();
    EXPECT_TRUE(window().OpenRules(RulesPath()));
    Follow();
  }
  void WriteRules(const std::vector<composer::Rule>& rules) {
    composer::RulesFile file = composer::RulesFile::Create(RulesPath());
    for (const composer::Rule& rule : rules)
      file.Put(rule);
    file.Save();
  }

  composer::MainWindow& window() { return *window_; }
  QString In(const char* name) const { return folder_.filePath(QString::fromUtf8(name)); }
  QString RulesPath() const { return In("orders.rules"); }

  // A person.

  /// Does what opens dialogs, one behind the other or one within another, and what happens in them.
  void With(const std::function<void()>& opening, std::vector<Steps> dialogs) {
    const std::size_t before = coming_.size();
    coming_.insert(coming_.begin(), dialogs.begin(), dialogs.end());
    opening();
    // What waits for the end of the click comes now.
    EXPECT_TRUE(QTest::qWaitFor([&] { return coming_.size() <= before; }, 2000))
        << coming_.size() - before << " of " << dialogs.size() << " dialogs did not come";
    coming_.erase(coming_.begin(),
                  coming_.end() - static_cast<std::ptrdiff_t>(std::min(before, coming_.size())));
    Follow();
  }
  /// Opens a menu of the window and presses an action, named without "&".
  void Menu(const char* menu, const char* item) {
    QMenuBar& bar = *window().menuBar();
    QAction& title = ActionOf(bar, QString::fromUtf8(menu));
    PressOn(bar, bar.actionGeometry(&title).center());
    ASSERT_TRUE(title.menu()->isVisible()) << menu;
    QTest::mouseMove(title.menu()->windowHandle(), {1, 1});
    PressIn(*title.menu(), ActionOf(*title.menu(), QString::fromUtf8(item)));
    Follow();
  }
  void Menu(const char* menu, const char* item, std::vector<Steps> dialogs) {
    With([&] { Menu(menu, item); }, std::move(dialogs));
  }
  /// Presses a row in the list of rules.
  void ClickRule(int row, std::vector<Steps> dialogs = {}) {
    With(
        [&] {
          QListWidget& list = RuleList();
          ASSERT_LT(row, list.count());
          PressOn(*list.viewport(), list.visualItemRect(list.item(row)).center());
          QTest::qWait(1);
        },
        std::move(dialogs));
  }
  /// Presses an entry of the menu Take a Statement.
  void TakeStatement(int row, std::vector<Steps> dialogs = {}) {
    auto& button = *window().findChild<QPushButton*>(QStringLiteral("take"));
    ASSERT_LT(row, button.menu()->actions().size());
    inPopup_ = [this, row](QMenu& menu) { PressIn(menu, *menu.actions()[row]); };
    With([&] { PressOn(button, button.rect().center()); }, std::move(dialogs));
    EXPECT_FALSE(inPopup_) << "the menu did not open";
    inPopup_ = nullptr;
  }
  /// What the menu offers that a right click opens there; then the menu is closed.
  Texts OfferedAt(QWidget& widget, const QPoint& at) {
    Texts offered;
    inPopup_ = [&](QMenu& menu) {
      for (const QAction* action : menu.actions())
        offered.push_back(Std(WithoutMnemonic(action->text())));
      menu.close();
    };
    QTest::mouseClick(widget.window()->windowHandle(), Qt::RightButton, {},
                      widget.mapTo(widget.window(), at));
    EXPECT_FALSE(inPopup_) << "no menu opened";
    inPopup_ = nullptr;
    Follow();
    return offered;
  }
  /// What a menu offers that is opened so, "-" before what can't be chosen; then it is closed.
  Texts OfferedBy(const std::function<void()>& opening) {
    Texts offered;
    inPopup_ = [&](QMenu& menu) {
      for (const QAction* action : menu.actions()) {
        if (!action->isSeparator())
          offered.push_back((action->isEnabled() ? "" : "-") +
                            Std(WithoutMnemonic(action->text())));
      }
      menu.close();
    };
    opening();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !inPopup_; }, 2000)) << "no menu opened";
    inPopup_ = nullptr;
    QTest::qWait(20);  // the focus comes back
    return offered;
  }
  /// Presses an entry of a menu that is opened so.
  void Pick(const char* item, const std::function<void()>& opening,
            std::vector<Steps> dialogs = {}) {
    inPopup_ = [this, item](QMenu& menu) {
      PressIn(menu, ActionOf(menu, QString::fromUtf8(item)));
    };
    const auto pick = [&] {
      opening();
      EXPECT_TRUE(QTest::qWaitFor([this] { return !inPopup_; }, 2000)) << "no menu opened";
    };
    With(pick, std::move(dialogs));
    inPopup_ = nullptr;
  }
  /// Presses a button of the control that opens dialogs.
  void ClickWith(const char* control, std::vector<Steps> dialogs) {
    With([&] { Click(control); }, std::move(dialogs));
  }

  /// Marks a table, moves one of its fields, both by their rows, and adds the statement.
  void AddSelect(int table, int field) {
    Click("lsttables", table);
    Click("lstFields", field);
    Click("cmdMoveOne");
    Click("cmdAddSelect");
  }
  /// Done for a rule that has no name yet.
  void StoreAs(const char* name) { ClickWith("cmdDone", {Named(name)}); }

  // A person in a dialog.

  /// The dialog that the steps are for.
  template <typename Kind = QDialog>
  Kind& Dialog() {
    auto* dialog = qobject_cast<Kind*>(handled_.empty() ? nullptr : handled_.back());
    if (dialog == nullptr) throw std::runtime_error("the dialog is another: " + Told());
    return *dialog;
  }
  /// Presses a button of the dialog by its text without "&".
  void Choose(const char* text) {
    for (QAbstractButton* button : Dialog().findChildren<QAbstractButton*>()) {
      if (button->isVisible() && WithoutMnemonic(button->text()) == QString::fromUtf8(text))
        return PressOn(*button, button->rect().center());
    }
    ADD_FAILURE() << "no button " << text << " in " << Told();
  }
  /// Types a text key by key, in place of what a line of the dialog holds.
  void TypeLine(QLineEdit& line, const char* text) {
    PressOn(line, line.rect().center());
    QWindow* place = line.window()->windowHandle();
    QTest::keySequence(place, QKeySequence(QKeySequence::SelectAll));
    QTest::keyClick(place, Qt::Key_Delete);
    for (const char key : std::string(text))
      QTest::keyClick(place, key);
    EXPECT_EQ(Std(line.text()), text);
  }

  /// A line of the dialog by its accessible name.
  QLineEdit& LineOf(const char* name) {
    for (QLineEdit* line : Dialog().findChildren<QLineEdit*>()) {
      if (line->accessibleName() == QString::fromUtf8(name)) return *line;
    }
    throw std::runtime_error(std::string("there is no line ") + name);
  }

  // Dialogs in one step each.

  /// A message of this title and text, and the button that answers it.
  Steps Answer(std::string told, const char* button = "OK") {
    return [this, told = std::move(told), button] {
      EXPECT_EQ(Told(), told);
      Choose(button);
    };
  }
  /// A line to be filled in.
  Steps Named(const char* name, const char* button = "OK") {
    return [this, name, button] {
      TypeLine(*Dialog<QInputDialog>().findChild<QLineEdit*>(), name);
      Choose(button);
    };
  }
  /// A file dialog. The button is "Open" or "Save", or "Cancel".
  Steps File(const QString& path, const char* button) {
    return [this, path, button] {
      auto* line = Dialog().findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
      ASSERT_NE(line, nullptr) << Told();
      line->setText(path);
      Choose(button);
    };
  }

  // Reads.

  /// The title and the text of the dialog, "TITLE: TEXT".
  std::string Told() {
    if (handled_.empty() || !handled_.back()) return "no dialog";
    const auto* message = qobject_cast<QMessageBox*>(handled_.back());
    return Std(handled_.back()->windowTitle() +
               (message == nullptr ? QString() : QStringLiteral(": ") + message->text()));
  }
  /// The text of a box of the control.
  std::string Text(std::string_view box) {
    return Narrow(static_cast<const TextControl&>(ControlOf(box)).Text());
  }
  std::string Result() { return Text("TxtOutput"); }
  std::string Heading() { return LabelText("heading"); }
  std::string Note() { return LabelText("note"); }
  QListWidget& RuleList() { return *window().findChild<QListWidget*>(QStringLiteral("rules")); }
  /// The rules of the list, "*" behind the one that is marked.
  Texts Listed() {
    Texts names;
    for (int row = 0; row < RuleList().count(); ++row)
      names.push_back(Std(RuleList().item(row)->text()) +
                      (row == RuleList().currentRow() ? "*" : ""));
    return names;
  }
  /// The entries of the menu Take a Statement.
  Texts Takeable() {
    Texts texts;
    for (const QAction* action :
         window().findChild<QPushButton*>(QStringLiteral("take"))->menu()->actions())
      texts.push_back(Std(action->text()));
    return texts;
  }
  /// The rules on the disk, "NAME: TEXT"; the window must be closed or have another file.
  Texts StoredIn(const QString& path) {
    Texts texts;
    const composer::RulesFile file = composer::RulesFile::Open(path);
    for (const composer::Rule& rule : file.rules())
      texts.push_back(Narrow(rule.name) + ": " + Narrow(rule.text));
    return texts;
  }
  /// The same of the usual file, after the window is closed.
  Texts Stored() {
    window_.reset();
    return StoredIn(RulesPath());
  }

  static void PressOn(QWidget& target, const QPoint& at) {
    EXPECT_TRUE(target.isVisible() && target.isEnabled()) << Std(target.objectName());
    QTest::mouseClick(target.window()->windowHandle(), Qt::LeftButton, {},
                      target.mapTo(target.window(), at));
  }
  static QAction& ActionOf(const QWidget& menu, const QString& text) {
    for (QAction* action : menu.actions()) {
      if (WithoutMnemonic(action->text()) == text) return *action;
    }
    throw std::runtime_error("there is no menu entry " + text.toStdString());
  }

  QTemporaryDir folder_;
  std::unique_ptr<composer::MainWindow> window_;
  bool handlesDialogs_ = true;  // false: the test does it

 private:
  // The control of the main window is another one after each rule that was opened.
  void Follow() {
    if (!handled_.empty() || !window_) return;
    widget_ = &window_->map();
    QTest::qWait(1);  // for its layout
  }
  static void PressIn(QMenu& menu, QAction& item) {
    EXPECT_TRUE(item.isEnabled()) << item.text().toStdString();
    PressOn(menu, menu.actionGeometry(&item).center());
  }

  std::string LabelText(const char* name) {
    return Std(window().findChild<QLabel*>(QString::fromUtf8(name))->text());
  }

  // Looks for dialogs again and again, also from inside the steps of one.
  void Watch() {
    QTimer::singleShot(2, &watch_, [this] {
      Watch();
      Look();
    });
  }
  void Look() {
    if (!handlesDialogs_) return;
    if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()); menu && inPopup_) {
      return std::exchange(inPopup_, nullptr)(*menu);
    }
    const QPointer<QWidget> modal = QApplication::activeModalWidget();
    if (!modal || !modal->isVisible()) return;
    if (std::find(handled_.begin(), handled_.end(), modal) != handled_.end()) return;
    // One behind a dialog whose steps are not over waits until it is the top one again.
    for (QObject* each = handled_.empty() ? nullptr : handled_.back().data(); each != nullptr;
         each = each->parent()) {
      if (each == modal.data()) return;
    }
    const QPointer<ZOLT20MapWidget> before = widget_;
    handled_.push_back(modal);
    modal->activateWindow();
    if (auto* map = modal->findChild<ZOLT20MapWidget*>()) widget_ = map;
    EXPECT_TRUE(QTest::qWaitForWindowActive(modal)) << Told();
    QTest::qWait(1);  // for the layout
    ExpectItFits(*modal);
    TakeSteps();
    handled_.pop_back();
    widget_ = before;
    if (!modal || !modal->isVisible()) return;
    ADD_FAILURE() << "the dialog is still open: " << modal->windowTitle().toStdString();
    static_cast<QDialog*>(modal.data())->done(QDialog::Rejected);
  }
  /// That the dialog can be made small enough for a screen of 640 x 400, with a frame around it.
  static void ExpectItFits(const QWidget& dialog) {
    const QSize least = dialog.minimumSize().expandedTo(dialog.minimumSizeHint());
    EXPECT_LE(least.width(), 624) << Std(dialog.windowTitle());
    EXPECT_LE(least.height(), 352) << Std(dialog.windowTitle());
  }
  void TakeSteps() {
    if (coming_.empty()) {
      ADD_FAILURE() << "an unexpected dialog: " << Told();
      return Dialog().done(QDialog::Rejected);
    }
    const Steps steps = std::move(coming_.front());
    coming_.pop_front();
    try {
      steps();
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
    }
  }

  std::deque<Steps> coming_;
  std::vector<QPointer<QWidget>> handled_;  // the dialogs whose steps are under way
  std::function<void(QMenu&)> inPopup_;
  QObject watch_;
};

/// As long as it lives, root is an ordinary person to the file system.
class WithoutRootRights {
 public:
  WithoutRootRights() {
    constexpr uid_t kNobody = 65534;
    EXPECT_TRUE(!wasRoot_ || seteuid(kNobody) == 0);
  }
  ~WithoutRootRights() { EXPECT_TRUE(!wasRoot_ || seteuid(0) == 0); }
  WithoutRootRights(const WithoutRootRights&) = delete;
  WithoutRootRights& operator=(const WithoutRootRights&) = delete;

 private:
  bool wasRoot_ = geteuid() == 0;
};

}  // namespace zolt20::tests
