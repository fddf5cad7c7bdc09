// Carries out requests of the automation host on the widget, as a host would.
#pragma once

#include <QMetaObject>
#include <QVariant>
#include <nlohmann/json.hpp>

#include "tests/qt/widget_test.h"

namespace zolt20::tests {

/// A value of a property in JSON; null for none.
inline nlohmann::ordered_json ToJson(const QVariant& value) {
  if (value.typeId() == QMetaType::QString) return Std(value.toString());
  if (value.typeId() == QMetaType::Bool) return value.toBool();
  if (value.typeId() == QMetaType::Int) return value.toInt();
  return nullptr;
}

/// Carries out a set, get or call by the widget's meta-object. Throws the widget's errors.
inline QVariant RunRequest(ZOLT20MapWidget& widget, const nlohmann::ordered_json& request) {
  if (request.contains("get")) {
    const std::string name = request["get"];
    const QVariant value = widget.property(name.c_str());
    EXPECT_TRUE(value.isValid()) << name;
    return value;
  }
  bool isDone = false;
  if (request.contains("call")) {
    const std::string name = request["call"];
    isDone = request.contains("args")
                 ? QMetaObject::invokeMethod(&widget, name.c_str(),
                                             Q_ARG(int, request["args"][0].get<int>()))
                 : QMetaObject::invokeMethod(&widget, name.c_str());
    EXPECT_TRUE(isDone) << name;
    return {};
  }
  const QByteArray setter = SetterOf(request["set"].get<std::string>());
  const nlohmann::ordered_json& value = request["value"];
  if (value.is_string()) {
    isDone = QMetaObject::invokeMethod(&widget, setter.constData(),
                                       Q_ARG(QString, Qs(value.get<std::string>())));
  } else if (value.is_boolean()) {
    isDone = QMetaObject::invokeMethod(&widget, setter.constData(), Q_ARG(bool, value.get<bool>()));
  } else {
    isDone = QMetaObject::invokeMethod(&widget, setter.constData(), Q_ARG(int, value.get<int>()));
  }
  EXPECT_TRUE(isDone) << setter.constData();
  return {};
}

}  // namespace zolt20::tests
