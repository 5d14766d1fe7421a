#include <gmock/gmock.h>

#include <QApplication>
#include <cstdlib>
#include <filesystem>

#include "qt/application.h"
#include "qt/screen_fonts.h"
#include "support/process_isolation.h"

// Real widgets without a screen: the offscreen platform, in a process with a private home.
int main(int argc, char** argv) {
  const std::filesystem::path root = testing_support::IsolateProcess();
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  const auto app = wavforge::qt::MakeApplication(argc, argv);
  wavforge::qt::AddFontSubstitutes();
  ::testing::InitGoogleMock(&argc, argv);
  const int result = RUN_ALL_TESTS();
  std::error_code ignored;
  std::filesystem::remove_all(root, ignored);
  return result;
}
