#include "platform/posix/ini_profile_reader.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "support/isolated_home.h"

namespace platform::posix {
namespace {

class IniProfileReaderTest : public testing_support::IsolatedHomeTest {};

// A pipe with no writer must not stall the reader: like a missing file or a folder, it reads
// as empty.
TEST_F(IniProfileReaderTest, WhatIsNoReadableFileReadsAsEmpty) {
  std::filesystem::create_directories(Home() / "folder.ini");
  ASSERT_EQ(::mkfifo((Home() / "pipe.ini").c_str(), 0600), 0);
  const IniProfileReader reader;
  for (const char* name : {"absent.ini", "folder.ini", "pipe.ini"}) {
    EXPECT_EQ(reader.ReadValue((Home() / name).string(), "S", "k"), std::nullopt) << name;
  }
}

}  // namespace
}  // namespace platform::posix
