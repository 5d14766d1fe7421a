#pragma once

#include <string>
#include <vector>

namespace testing_support {

struct ProcessResult {
  int exit_code = -1;
  std::string out;
  std::string err;
};

// Runs a program with the current environment and waits for it, collecting its output.
ProcessResult RunProcess(const std::vector<std::string>& argv);

}  // namespace testing_support
