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

struct LineCase {
  const char* name;
  std::string content;
  std::vector<std::string> lines;
};

class ScriptLineReaderTest : public testing_support::IsolatedHomeTest,
                             public ::testing::WithParamInterface<LineCase> {};

TEST_P(ScriptLineReaderTest, SplitsLinesLikeCmd) {
  const auto path = TempFolder() / "job.bat";
  testing_support::WriteFile(path, GetParam().content);
  EXPECT_EQ(ReadAll(path), GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(
    Endings, ScriptLineReaderTest,
    ::testing::Values(LineCase{"EitherLineEndLastOneOptional",
                               "title A\r\ndel x\nend",
                               {"title A", "del x", "end"}},
                      LineCase{"EmptyLinesKept", "a\r\n\r\nb\n\n", {"a", "", "b", ""}},
                      LineCase{"StrayCarriageReturnsRemoved", "x\ry\r\r\n", {"xy"}},
                      LineCase{"LineLongerThanOneRead",
                               std::string(10000, 'x') + "\nend",
                               {std::string(10000, 'x'), "end"}}),
    [](const auto& row) { return std::string(row.param.name); });

class ScriptLineReaderFileTest : public testing_support::IsolatedHomeTest {};

TEST_F(ScriptLineReaderFileTest, EndsWhenTheScriptIsDeleted) {
  const auto path = TempFolder() / "job.bat";
  testing_support::WriteFile(path, "one\r\ntwo\r\nthree\r\n");
  ScriptLineReader reader(path);
  EXPECT_EQ(reader.Next(), "one");
  std::filesystem::remove(path);
  EXPECT_EQ(reader.Next(), std::nullopt);
}

TEST_F(ScriptLineReaderFileTest, ReadsTheFileNowUnderTheNameNotTheOneOpenedFirst) {
  const auto path = TempFolder() / "job.bat";
  testing_support::WriteFile(path, "one\r\ntwo\r\n");
  ScriptLineReader reader(path);
  EXPECT_EQ(reader.Next(), "one");
  // A new file renamed over the old one: an open handle would still read "two".
  testing_support::WriteFile(TempFolder() / "next.bat", "one\r\nreplaced\r\n");
  std::filesystem::rename(TempFolder() / "next.bat", path);
  EXPECT_EQ(reader.Next(), "replaced");
  EXPECT_EQ(reader.Next(), std::nullopt);
}

TEST_F(ScriptLineReaderFileTest, MissingScriptHasNoLines) {
  EXPECT_TRUE(ReadAll(TempFolder() / "missing.bat").empty());
}

}  // namespace
}  // namespace wavforge::cmd
