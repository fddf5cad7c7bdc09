// ZOLT20MapWidget in the widget box of Qt Designer.
#pragma once

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

class ZOLT20MapWidgetPlugin final : public QObject, public QDesignerCustomWidgetInterface {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetInterface")
  Q_INTERFACES(QDesignerCustomWidgetInterface)

 public:
  QString name() const override;
  QString group() const override;
  QString toolTip() const override;
  QString whatsThis() const override;
  QString includeFile() const override;
  QIcon icon() const override;
  bool isContainer() const override;
  QWidget* createWidget(QWidget* parent) override;
  QString domXml() const override;
};
