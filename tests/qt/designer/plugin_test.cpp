// The plugin for Qt Designer as Designer loads it. Built where the plugin is.
#include <gtest/gtest.h>

#include <QFile>
#include <QMetaProperty>
#include <QPluginLoader>
#include <QWidget>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <memory>

#include "tests/support/places.h"

namespace zolt20::tests {
namespace {

class DesignerPluginTest : public ::testing::Test {
 protected:
  QPluginLoader loader{QString::fromStdString(DesignerPlugin())};
  QDesignerCustomWidgetInterface* plugin =
      qobject_cast<QDesignerCustomWidgetInterface*>(loader.instance());
};

TEST_F(DesignerPluginTest, MakesTheWidgetThatItsNameAndHeaderTell) {
  ASSERT_NE(plugin, nullptr) << loader.errorString().toStdString();
  const std::unique_ptr<QWidget> widget(plugin->createWidget(nullptr));
  EXPECT_EQ(plugin->name(), QString::fromLatin1(widget->metaObject()->className()));
  EXPECT_TRUE(QFile::exists(QString::fromStdString(Sources() + "/") + plugin->includeFile()));
  EXPECT_FALSE(plugin->isContainer());
}

TEST_F(DesignerPluginTest, PropertiesOfAFormAreWritten) {
  ASSERT_NE(plugin, nullptr) << loader.errorString().toStdString();
  const std::unique_ptr<QWidget> widget(plugin->createWidget(nullptr));
  EXPECT_FALSE(widget->property("Syntax_Highlight").toBool());
  EXPECT_TRUE(widget->setProperty("Syntax_Highlight", true));
  EXPECT_TRUE(widget->property("Syntax_Highlight").toBool());
}

// Designer would write what the person composed into the form's file.
TEST_F(DesignerPluginTest, WhatAPersonComposesIsNotStoredInAForm) {
  ASSERT_NE(plugin, nullptr) << loader.errorString().toStdString();
  const std::unique_ptr<QWidget> widget(plugin->createWidget(nullptr));
  const QMetaObject& meta = *widget->metaObject();
  for (const char* name : {"prpStroutput", "prpStrSQLPart", "prpstrSelectedFields"})
    EXPECT_FALSE(meta.property(meta.indexOfProperty(name)).isStored()) << name;
}

}  // namespace
}  // namespace zolt20::tests
