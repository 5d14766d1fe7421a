#include "platform/posix/posix_file_system.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/isolated_home.h"

namespace platform::posix {
namespace {

namespace fs = std::filesystem;
using testing_support::ReadFile;

class PosixFileSystemTest : public testing_support::IsolatedHomeTest {};

// A link put where the script goes must not make us write somebody else's file.
TEST_F(PosixFileSystemTest, WriteFileReplacesALinkWithANewPrivateFile) {
  const fs::path victim = Root() / "victim.txt";
  const fs::path script = TempFolder() / "Larkspur101500.bat";
  testing_support::WriteFile(victim, "precious");
  fs::create_symlink(victim, script);
  PosixFileSystem files;
  ASSERT_FALSE(files.WriteFile(script, "title Larkspur Encoder\r\n"));
  EXPECT_EQ(ReadFile(victim), "precious");
  EXPECT_FALSE(fs::is_symlink(script));
  EXPECT_EQ(ReadFile(script), "title Larkspur Encoder\r\n");
  EXPECT_EQ(fs::status(script).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(std::distance(fs::directory_iterator(TempFolder()), {}), 1);  // nothing left over
}

}  // namespace
}  // namespace platform::posix
