#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace testing_support {

// Points HOME, the XDG folders and TMPDIR into a fresh temporary folder for one test, so no
// test ever reads or writes the real home. Everything is restored afterwards.
class IsolatedHomeTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  const std::filesystem::path& Root() const { return root_; }
  std::filesystem::path Home() const { return root_ / "home"; }
  std::filesystem::path ConfigHome() const { return Home() / ".config"; }
  std::filesystem::path TempFolder() const { return root_ / "tmp"; }
  std::filesystem::path MachineData() const { return root_ / "usr-share"; }

 private:
  std::filesystem::path root_;
  std::map<std::string, std::optional<std::string>> saved_;
};

// Writes bytes to a file, creating its parent folders.
void WriteFile(const std::filesystem::path& path, const std::string& bytes);
std::string ReadFile(const std::filesystem::path& path);

}  // namespace testing_support
