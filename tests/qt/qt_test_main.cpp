#include <gmock/gmock.h>

#include <QApplication>
#include <cstdlib>
#include <filesystem>

#include "qt/application.h"
#include "qt/screen_fonts.h"
#include "support/process_isolation.h"

// Chromium inside Qt WebEngine deletes some of its own objects through a pointer of another
// size; the sanitizer's check for that would stop every test that closes a browser.
extern "C" const char* __asan_default_options() {
  return "new_delete_type_mismatch=0";
}
// What the engine and the libraries below it keep until the process ends is theirs.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libQt6WebEngineCore.so\nleak:libfontconfig.so\nleak:libudev.so\n";
}

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
