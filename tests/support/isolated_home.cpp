#include "support/isolated_home.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "support/process_isolation.h"

namespace testing_support {
namespace {

// A fresh folder below TMPDIR, which the test main already isolates.
std::filesystem::path MakeTempFolder(const std::string& prefix) {
  const char* tmp = std::getenv("TMPDIR");
  std::string pattern = std::string(tmp ? tmp : "/tmp") + "/" + prefix + "XXXXXX";
  if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed for " + pattern);
  return pattern;
}

}  // namespace

void IsolatedHomeTest::SetUp() {
  root_ = MakeTempFolder("home-");
  for (const char* name : kIsolatedVariables) {
    const char* value = std::getenv(name);
    saved_[name] = value ? std::optional<std::string>(value) : std::nullopt;
  }
  PointEnvironmentAt(root_);
}

void IsolatedHomeTest::TearDown() {
  for (const auto& [name, value] : saved_) {
    if (value) {
      setenv(name.c_str(), value->c_str(), 1);
    } else {
      unsetenv(name.c_str());
    }
  }
  std::error_code ignored;
  std::filesystem::remove_all(root_, ignored);
}

void WriteFile(const std::filesystem::path& path, const std::string& bytes) {
  if (path.has_parent_path()) std::filesystem::create_directories(path.parent_path());
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << bytes;
  if (!out) throw std::runtime_error("cannot write " + path.string());
}

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

}  // namespace testing_support
