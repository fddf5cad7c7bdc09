// The Qt widget in a window, for a screen reader: its host carries out lines of the automation
// host, and everything that a person does comes by keys.
//
// A line on standard input is a request, and a line on standard output its reply. "dump" gives the
// form with the row on which the keys stand in the list that has the focus, and what the widget has
// told meanwhile.
#include <QAbstractItemView>
#include <QApplication>
#include <QSocketNotifier>
#include <QStyleFactory>
#include <QVBoxLayout>
#include <iostream>
#include <map>
#include <nlohmann/json.hpp>
#include <string>

#include "faces/qt/map_widget.h"
#include "faces/qt/qt_text.h"
#include "hosts/automation/dump.h"
#include "hosts/kit/text_coding.h"
#include "surface/error.h"
#include "surface/surface.h"

namespace zolt20::tests {
namespace {

using Json = nlohmann::ordered_json;

QString Qs(const std::string& text) {
  return qt::ToQt(hosts::FromJsonText(text));
}

QVariant ToVariant(const Json& value) {
  if (value.is_string()) return Qs(value.get<std::string>());
  if (value.is_boolean()) return value.get<bool>();
  return value.get<int>();
}

class HostWindow final : public QWidget {
 public:
  HostWindow() {
    setWindowTitle(QStringLiteral("Qt window"));
    setLayout(new QVBoxLayout);
    MakeWidget();
    resize(1200, 950);
  }

  Json Reply(const Json& request) {
    try {
      return Do(request);
    } catch (const RuntimeError& error) {
      return {{"ok", false}, {"error", std::string(error.kind_word())}};
    }
  }

 private:
  void MakeWidget() {
    delete widget_;
    widget_ = new ZOLT20MapWidget(this);
    layout()->addWidget(widget_);
    const auto answers = [this](const char* event) { return [this, event] { Answer(event); }; };
    connect(widget_, &ZOLT20MapWidget::eventCancel, this, answers("eventCancel"));
    connect(widget_, &ZOLT20MapWidget::eventDone, this, answers("eventDone"));
    connect(widget_, &ZOLT20MapWidget::eventSubQuery, this, answers("eventSubQuery"));
    connect(widget_, &ZOLT20MapWidget::eventCondition, this, answers("eventCondition"));
    connect(widget_, &ZOLT20MapWidget::eventFunction, this, answers("eventFunction"));
  }

  void Answer(const std::string& event) {
    for (const Json& request : answers_[event])
      Reply(request);
  }

  Json Do(const Json& request) {
    if (request.contains("dump")) return Dump();
    if (request.contains("answer")) {
      answers_[request["answer"]] = request["with"];
    } else if (request.contains("new")) {
      MakeWidget();
      QVariantMap bag;
      for (const auto& [key, value] : request["new"]["bag"].items())
        bag[Qs(key)] = ToVariant(value);
      widget_->UserControl_ReadProperties(bag);
    } else if (request.contains("set")) {
      std::string setter = request["set"];
      setter[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(setter[0])));
      Invoke("set" + setter, ToVariant(request["value"]));
    } else if (request.contains("get")) {
      const std::string name = request["get"];
      return {{"ok", true},
              {"value", hosts::ToJsonText(qt::View(widget_->property(name.c_str()).toString()))}};
    } else if (!request.contains("save")) {
      throw std::invalid_argument("unknown request " + request.dump());
    }
    return {{"ok", true}};
  }

  void Invoke(const std::string& slot, const QVariant& value) {
    const QByteArray name(slot.c_str());
    bool isDone = false;
    if (value.typeId() == QMetaType::QString) {
      isDone = QMetaObject::invokeMethod(widget_, name, Q_ARG(QString, value.toString()));
    } else if (value.typeId() == QMetaType::Bool) {
      isDone = QMetaObject::invokeMethod(widget_, name, Q_ARG(bool, value.toBool()));
    } else {
      isDone = QMetaObject::invokeMethod(widget_, name, Q_ARG(int, value.toInt()));
    }
    if (!isDone) throw std::invalid_argument("there is no slot " + slot);
  }

  Json Dump() const {
    Json state = automation::Dump(widget_->form());
    const auto* list = qobject_cast<const QAbstractItemView*>(QApplication::focusWidget());
    state["row"] = list == nullptr ? -1 : list->currentIndex().row();
    const QWidget* modal = QApplication::activeModalWidget();
    state["message"] = modal != nullptr;
    return {{"ok", true}, {"value", state}};
  }

  ZOLT20MapWidget* widget_ = nullptr;
  std::map<std::string, Json> answers_;
};

}  // namespace
}  // namespace zolt20::tests

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  zolt20::tests::HostWindow window;
  window.show();
  constexpr int kStandardInput = 0;
  QSocketNotifier lines(kStandardInput, QSocketNotifier::Read);
  QObject::connect(&lines, &QSocketNotifier::activated, &window, [&window] {
    do {
      std::string line;
      if (!std::getline(std::cin, line)) std::_Exit(0);  // also from behind a message
      std::cout << window.Reply(nlohmann::ordered_json::parse(line)).dump() << std::endl;
    } while (std::cin.rdbuf()->in_avail() > 0);
  });
  return QApplication::exec();
}
