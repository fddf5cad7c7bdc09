// The tests of the Windows control: they run where it is registered.
#include <gtest/gtest.h>
#include <ole2.h>

int main(int count, char** arguments) {
  testing::InitGoogleTest(&count, arguments);
  SetProcessDPIAware();
  OleInitialize(nullptr);
  const int result = RUN_ALL_TESTS();
  OleUninitialize();
  return result;
}
