// What every test program begins with.
#pragma once

namespace zolt20::tests {

/// Sets GoogleTest up so that cases that pass print nothing (`--gtest_brief=0` shows them) and each
/// that fails is followed by the command that runs it alone. A case that takes ten minutes ends
/// the program. Takes GoogleTest's own arguments out.
void InitTests(int* argc, char** argv);

}  // namespace zolt20::tests
