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
    EXPECT_EQ(reader_.ReadValue(path, "", "k"), std::nullopt) << path;
    EXPECT_EQ(reader_.SectionNames(path), Names{}) << path;
    EXPECT_EQ(reader_.KeyNames(path, "S"), Names{}) << path;
  }

  IniProfileReader reader_;
};

TEST_F(IniProfileReaderTest, ReadsAFileFromDisk) {
  const std::string path = PathOf("Larkspur.ini");
  WriteFile(path,
            "\xEF\xBB\xBF; seed\r\n[General]\r\nLanguage = \"de\"\r\n[Options]\r\nEncoder=1\r\n");
  EXPECT_EQ(reader_.ReadValue(path, "general", "LANGUAGE"), "de");
  EXPECT_EQ(reader_.ReadValue(path, "Options", "Encoder"), "1");
  EXPECT_EQ(reader_.SectionNames(path), (Names{"General", "Options"}));
  EXPECT_EQ(reader_.KeyNames(path, "OPTIONS"), Names{"Encoder"});
}

TEST_F(IniProfileReaderTest, MissingFileReadsAsEmpty) {
  ExpectEmpty(PathOf("absent.ini"));
  ExpectEmpty(PathOf("no-folder/absent.ini"));
  ExpectEmpty("");
}

TEST_F(IniProfileReaderTest, UnreadablePathsReadAsEmpty) {
  const std::filesystem::path folder = Home() / "folder.ini";
  std::filesystem::create_directories(folder);
  ExpectEmpty(folder.string());

  // A path that runs through a regular file as if it were a folder.
  WriteFile(PathOf("plain.ini"), "[S]\nk=v\n");
  ExpectEmpty(PathOf("plain.ini/inner.ini"));

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

TEST_F(IniProfileReaderTest, SeesChangesBetweenTwoReads) {
  const std::string path = PathOf("changing.ini");
  WriteFile(path, "[S]\nk=first\n");
  EXPECT_EQ(reader_.ReadValue(path, "S", "k"), "first");

  WriteFile(path, "[T]\nj=1\n[S]\nk=second\nm=2\n");
  EXPECT_EQ(reader_.ReadValue(path, "S", "k"), "second");
  EXPECT_EQ(reader_.SectionNames(path), (Names{"T", "S"}));
  EXPECT_EQ(reader_.KeyNames(path, "S"), (Names{"k", "m"}));

  std::filesystem::remove(path);
  ExpectEmpty(path);
}

}  // namespace
}  // namespace platform::posix
