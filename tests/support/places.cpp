#include "tests/support/places.h"

namespace zolt20::tests {

std::string Sources() {
  return ZOLT20_SOURCES;
}
std::string Examples() {
  return Sources() + "/examples";
}
std::string HostProgram() {
  return ZOLT20_HOST_PROGRAM;
}
std::string ComposerProgram() {
  return ZOLT20_COMPOSER_PROGRAM;
}
std::string DesignerPlugin() {
  return ZOLT20_DESIGNER_PLUGIN;
}

}  // namespace zolt20::tests
