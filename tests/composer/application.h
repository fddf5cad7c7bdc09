#pragma once

#include <QApplication>
#include <QTemporaryDir>

namespace zolt20::tests {

// GoogleTest in a program with a Qt application, without a display unless one is asked for by
// QT_QPA_PLATFORM. Without one there is a screen of 1920 x 1080. Settings are kept in a folder that
// goes away with this.
class TestApplication {
 public:
  // Takes the arguments of GoogleTest from `argc` and `argv`.
  TestApplication(int* argc, char** argv);

 private:
  QTemporaryDir folder_;
  // Made after what its environment is told by.
  QApplication application_;
};

}  // namespace zolt20::tests
