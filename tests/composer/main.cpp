// The tests of the composer: GoogleTest in a program with a Qt application, without a display
// unless one is asked for by QT_QPA_PLATFORM.
#include <gtest/gtest.h>

#include <QApplication>
#include <QStyleFactory>

#include "tests/support/init_tests.h"

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  zolt20::tests::InitTests(&argc, argv);
  const QApplication application(argc, argv);
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  return RUN_ALL_TESTS();
}
