// The paths of the files that tests read and of the programs that they start. One source file has
// these paths, so that all others compile to the same objects in every checkout.
#pragma once

#include <string>

namespace zolt20::tests {

/// The root of the sources, without a slash at its end.
std::string Sources();
/// The folder examples/ of the sources, without a slash at its end.
std::string Examples();
/// The program zolt20-host.
std::string HostProgram();
/// The program zolt20-composer; "" in a build without Qt.
std::string ComposerProgram();
/// The plugin for Qt Designer; "" in a build without it.
std::string DesignerPlugin();

}  // namespace zolt20::tests
