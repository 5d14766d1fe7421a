#include <gmock/gmock.h>

#include <filesystem>

#include "support/process_isolation.h"

// Before any test runs, the whole process gets a private home and temporary folder.
int main(int argc, char** argv) {
  const std::filesystem::path root = testing_support::IsolateProcess();
  ::testing::InitGoogleMock(&argc, argv);
  const int result = RUN_ALL_TESTS();
  std::error_code ignored;
  std::filesystem::remove_all(root, ignored);
  return result;
}
