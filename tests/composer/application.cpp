#include "tests/composer/application.h"

#include <QFile>
#include <QSettings>
#include <QStyleFactory>

#include "tests/support/init_tests.h"

namespace zolt20::tests {
namespace {

void UseScreenIn(const QTemporaryDir& folder) {
  QFile screens(folder.filePath(QStringLiteral("screens.json")));
  screens.open(QFile::WriteOnly);
  screens.write(R"({"screens": [{"name": "", "x": 0, "y": 0, "width": 1920, "height": 1080,
                                 "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1.0}]})");
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toUtf8());
}

// Returns `argc` when the environment is such as the application of the tests wants it.
int& Prepared(int* argc, char** argv, const QTemporaryDir& folder) {
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  if (platform.isEmpty() || platform == "offscreen") UseScreenIn(folder);
  InitTests(argc, argv);
  return *argc;
}

}  // namespace

TestApplication::TestApplication(int* argc, char** argv)
    : application_(Prepared(argc, argv, folder_), argv) {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
}

}  // namespace zolt20::tests
