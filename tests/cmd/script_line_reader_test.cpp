#include "cmd/script_line_reader.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

#include "support/isolated_home.h"

namespace wavforge::cmd {
namespace {

std::vector<std::string> ReadAll(const std::string& path) {
  ScriptLineReader reader(path);
  std::vector<std::string> lines;
  while (auto line = reader.Next()) lines.push_back(*line);
  return lines;
}

TEST(ScriptLineReaderTest, SplitsLinesLikeCmd) {
  const std::pair<std::string, std::vector<std::string>> cases[] = {
      {"title A\r\ndel x\nend", {"title A", "del x", "end"}},  // either line end, last optional
      {"a\r\n\r\nb\n\n", {"a", "", "b", ""}},
      {"x\ry\r\r\n", {"xy"}},  // stray carriage returns go
      {std::string(10000, 'x') + "\nend", {std::string(10000, 'x'), "end"}},
  };
  const std::string path = testing_support::MakeTempFolder("lines-") / "job.bat";
  for (const auto& [content, lines] : cases) {
    testing_support::WriteFile(path, content);
    EXPECT_EQ(ReadAll(path), lines) << content.substr(0, 20);
  }
}

class ScriptLineReaderFileTest : public testing_support::IsolatedHomeTest {};

TEST_F(ScriptLineReaderFileTest, EndsWhenTheScriptIsDeleted) {
  const auto path = TempFolder() / "job.bat";
  testing_support::WriteFile(path, "one\r\ntwo\r\nthree\r\n");
  ScriptLineReader reader(path);
  EXPECT_EQ(reader.Next(), "one");
  std::filesystem::remove(path);
  EXPECT_EQ(reader.Next(), std::nullopt);
}

TEST_F(ScriptLineReaderFileTest, ReadsTheFileAsItIsNowButNotAnotherUnderItsName) {
  const auto path = TempFolder() / "job.bat";
  testing_support::WriteFile(path, "one\r\ntwo\r\nthree\r\n");
  ScriptLineReader reader(path);
  EXPECT_EQ(reader.Next(), "one");
  // Rewritten in place: an open handle would still read "two".
  testing_support::WriteFile(path, "one\r\nchanged\r\nthree\r\n");
  EXPECT_EQ(reader.Next(), "changed");
  // Another file renamed over it is another job's script.
  testing_support::WriteFile(TempFolder() / "next.bat", "one\r\nchanged\r\nother\r\n");
  std::filesystem::rename(TempFolder() / "next.bat", path);
  EXPECT_EQ(reader.Next(), std::nullopt);
}

TEST_F(ScriptLineReaderFileTest, MissingScriptHasNoLines) {
  EXPECT_TRUE(ReadAll(TempFolder() / "missing.bat").empty());
}

}  // namespace
}  // namespace wavforge::cmd
