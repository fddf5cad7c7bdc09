#include "faces/qt/designer/plugin.h"

#include <QIcon>

#include "faces/qt/map_widget.h"

QString ZOLT20MapWidgetPlugin::name() const {
  return QStringLiteral("ZOLT20MapWidget");
}

QString ZOLT20MapWidgetPlugin::group() const {
  return QStringLiteral("Input Widgets");
}

QString ZOLT20MapWidgetPlugin::toolTip() const {
  return QStringLiteral("Composes select statements and control-flow statements");
}

QString ZOLT20MapWidgetPlugin::whatsThis() const {
  return toolTip();
}

QString ZOLT20MapWidgetPlugin::includeFile() const {
  return QStringLiteral("faces/qt/map_widget.h");
}

QIcon ZOLT20MapWidgetPlugin::icon() const {
  return {};
}

bool ZOLT20MapWidgetPlugin::isContainer() const {
  return false;
}

QWidget* ZOLT20MapWidgetPlugin::createWidget(QWidget* parent) {
  return new ZOLT20MapWidget(parent);
}

QString ZOLT20MapWidgetPlugin::domXml() const {
  return QStringLiteral(
      "<ui language=\"c++\"><widget class=\"ZOLT20MapWidget\" name=\"mapWidget\">"
      "<property name=\"geometry\"><rect><x>0</x><y>0</y><width>880</width><height>620</height>"
      "</rect></property></widget></ui>");
}
