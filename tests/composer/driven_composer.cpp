#include "tests/composer/driven_composer.h"

#include <poll.h>
#include <unistd.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCryptographicHash>
#include <QLabel>
#include <QMessageBox>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "hosts/automation/dump.h"
#include "hosts/composer/main_window.h"
#include "hosts/composer/recovery.h"
#include "hosts/composer/requests.h"

namespace zolt20::tests {
namespace {

using composer::MainWindow;
using composer::NestedComposer;
using composer::RecordedMap;
using composer::RecoveryOffer;
using Json = nlohmann::ordered_json;

class Driver final : public QObject {
 public:
  Driver(MainWindow& window, QString rules) : window_(window), rules_(std::move(rules)) {
    TakeNext();
  }
  /// Once the composers that come back within gestures are all there.
  void Begin() {
    QTimer::singleShot(10, this, [this] { hasBegun_ = true; });
  }

 private:
  // Again and again, also from within a dialog that a line opened.
  void TakeNext() {
    QTimer::singleShot(0, this, [this] {
      TakeNext();
      GoOn();
      std::string line;
      if (hasBegun_ && Maps().size() >= awaited_ && Maps().back()->isVisible()) {
        awaited_ = 0;
        if (NextLine(line)) Take(line);
      }
    });
  }
  void GoOn() {
    if (const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      std::fprintf(stderr, "an unexpected message: %s\n", box->text().toUtf8().constData());
      std::_Exit(3);
    }
    auto* offer = qobject_cast<RecoveryOffer*>(QApplication::activeModalWidget());
    if (offer == nullptr) return;
    const QString told = offer->findChild<QLabel*>()->text();
    awaited_ = 1 + static_cast<std::size_t>(told.count(QStringLiteral(" > ")));
    for (QAbstractButton* button : offer->findChildren<QAbstractButton*>()) {
      if (button->text() == QStringLiteral("&Go On")) return button->click();
    }
  }

  bool NextLine(std::string& line) {
    const std::size_t end = input_.find('\n');
    if (end != std::string::npos) {
      line = input_.substr(0, end);
      input_.erase(0, end + 1);
      return true;
    }
    pollfd ready{STDIN_FILENO, POLLIN, 0};
    if (poll(&ready, 1, 1) <= 0) return false;
    char bytes[4096];
    const ssize_t got = read(STDIN_FILENO, bytes, sizeof bytes);
    if (got <= 0) std::_Exit(0);
    input_.append(bytes, static_cast<std::size_t>(got));
    return false;
  }

  void Take(const std::string& line) {
    if (line == "kept") {
      if (window_.journal().WaitUntilKept(std::chrono::seconds(20))) Say("kept");
    } else if (line == "state") {
      Say("state " + State());
    } else {
      TakeStep(Json::parse(line));
    }
  }
  void TakeStep(const Json& step) {
    RecordedMap& map = *Maps().back();
    if (step.contains("undo")) {
      map.undo();
    } else if (step.contains("redo")) {
      map.redo();
    } else if (step.contains("reopen")) {
      window_.OpenRules(rules_);
    } else {
      map.MakeGesture(step);
    }
  }

  std::vector<RecordedMap*> Maps() const {
    std::vector<RecordedMap*> maps{&window_.map()};
    const auto nested = [&maps] {
      return maps.back()->findChild<NestedComposer*>(QString(), Qt::FindDirectChildrenOnly);
    };
    while (nested() != nullptr)
      maps.push_back(&nested()->map());
    return maps;
  }
  std::string State() const {
    QCryptographicHash sum(QCryptographicHash::Sha256);
    for (RecordedMap* map : Maps()) {
      const Json state = {{"form", automation::Dump(map->form())},
                          {"undo", map->canUndo()},
                          {"redo", map->canRedo()},
                          {"changed", map->IsChanged()},
                          {"window", map->window()->windowTitle().toStdString()}};
      sum.addData(QByteArray::fromStdString(state.dump()));
      sum.addData(map->Record());
      sum.addData(map->prpStrSQLPart().toUtf8());
    }
    return sum.result().toHex().left(16).toStdString();
  }
  static void Say(const std::string& text) {
    std::printf("%s\n", text.c_str());
    static_cast<void>(std::fflush(stdout));
  }

  MainWindow& window_;
  QString rules_;
  std::string input_;
  bool hasBegun_ = false;
  std::size_t awaited_ = 0;  // composers that come back
};

}  // namespace

int DriveComposer(const char* catalogue, const char* rules) {
  MainWindow window;
  window.show();
  Driver driver(window, QString::fromUtf8(rules));
  if (!window.OpenCatalogue(QString::fromUtf8(catalogue))) return 1;
  if (!window.OpenRules(QString::fromUtf8(rules))) return 1;
  driver.Begin();
  return QApplication::exec();
}

}  // namespace zolt20::tests
