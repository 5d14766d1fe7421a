#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace wavforge::encode_tool {

// An encoder found on PATH, started with its output and errors going to log_fd. pid is -1 and
// error says why in words for the log when it could not be started.
struct StartedEncoder {
  pid_t pid = -1;
  std::string name;
  std::string error;
};
StartedEncoder StartEncoder(const std::vector<std::string>& argv, int log_fd);

// Waits for a started encoder; "" when it exited with 0, otherwise why not, for the log.
std::string WaitForEncoder(const StartedEncoder& encoder);

}  // namespace wavforge::encode_tool
