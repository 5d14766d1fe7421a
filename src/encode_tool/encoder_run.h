#pragma once

#include <string>
#include <vector>

namespace wavforge::encode_tool {

// Runs an encoder found on PATH and waits for it, its output and errors going to log_fd.
// Returns "" when it ran and exited with 0, otherwise why not, in words for the log.
std::string RunEncoder(const std::vector<std::string>& argv, int log_fd);

}  // namespace wavforge::encode_tool
