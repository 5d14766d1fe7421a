#include "platform/posix/shell_script_control.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>

namespace platform {
namespace {

TEST(ShellScriptControlTest, RunsMainOfTheSourceAndWaitsForIt) {
  const std::string file = std::string(std::getenv("TMPDIR")) + "/ran";
  ShellScriptControl().Run("Main() { sleep 0.2; echo done > '" + file + "'; }", "Main");
  std::ifstream in(file);
  std::string text;
  std::getline(in, text);
  EXPECT_EQ(text, "done");
}

}  // namespace
}  // namespace platform
