#include "platform/posix/ini_profile_reader.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/isolated_home.h"

namespace platform::posix {
namespace {

using testing_support::WriteFile;
using Names = std::vector<std::string>;

class IniProfileReaderTest : public testing_support::IsolatedHomeTest {
 protected:
  std::string PathOf(const std::string& name) const { return (Home() / name).string(); }

  void ExpectEmpty(const std::string& path) const {
    EXPECT_EQ(reader_.ReadValue(path, "S", "k"), std::nullopt) << path;
    EXPECT_EQ(reader_.SectionNames(path), Names{}) << path;
  }

  IniProfileReader reader_;
};

TEST_F(IniProfileReaderTest, ReadsAFileFromDiskAfreshEachTime) {
  const std::string path = PathOf("Larkspur.ini");
  WriteFile(path,
            "\xEF\xBB\xBF; seed\r\n[General]\r\nLanguage = \"de\"\r\n[Options]\r\nEncoder=1\r\n");
  EXPECT_EQ(reader_.ReadValue(path, "general", "LANGUAGE"), "de");
  EXPECT_EQ(reader_.SectionNames(path), (Names{"General", "Options"}));
  EXPECT_EQ(reader_.KeyNames(path, "OPTIONS"), Names{"Encoder"});

  WriteFile(path, "[T]\nj=1\n[General]\nLanguage=fr\n");
  EXPECT_EQ(reader_.ReadValue(path, "General", "Language"), "fr");
  std::filesystem::remove(path);
  ExpectEmpty(path);
}

TEST_F(IniProfileReaderTest, WhatIsNoReadableFileReadsAsEmpty) {
  ExpectEmpty(PathOf("no-folder/absent.ini"));
  std::filesystem::create_directories(Home() / "folder.ini");
  ExpectEmpty(PathOf("folder.ini"));
  // A pipe with no writer must not stall the reader.
  const std::string pipe = PathOf("pipe.ini");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  ExpectEmpty(pipe);
}

TEST_F(IniProfileReaderTest, FileWithoutReadPermissionReadsAsEmpty) {
  if (::geteuid() == 0) GTEST_SKIP() << "root reads files regardless of their permissions";
  const std::string path = PathOf("locked.ini");
  WriteFile(path, "[S]\nk=v\n");
  ASSERT_EQ(::chmod(path.c_str(), 0), 0);
  ExpectEmpty(path);
}

}  // namespace
}  // namespace platform::posix
