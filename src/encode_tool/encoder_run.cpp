#include "encode_tool/encoder_run.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

extern char** environ;

namespace wavforge::encode_tool {

StartedEncoder StartEncoder(const std::vector<std::string>& argv, int log_fd) {
  if (argv.empty()) return {-1, {}, "no encoder is named"};
  std::vector<char*> raw;
  for (const auto& argument : argv) raw.push_back(const_cast<char*>(argument.c_str()));
  raw.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, log_fd, STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, log_fd, STDERR_FILENO);
  StartedEncoder started{-1, argv[0], {}};
  const int error = posix_spawnp(&started.pid, raw[0], &actions, nullptr, raw.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error == 0) return started;
  started.pid = -1;
  started.error = error == ENOENT ? argv[0] + " was not found (is it installed and on PATH?)"
                                  : argv[0] + " could not be started: " + std::strerror(error);
  return started;
}

std::string WaitForEncoder(const StartedEncoder& encoder) {
  if (encoder.pid < 0) return encoder.error;
  const std::string& name = encoder.name;
  int status = 0;
  while (waitpid(encoder.pid, &status, 0) < 0) {
    if (errno != EINTR) return "waiting for " + name + " failed";
  }
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return {};
  if (WIFEXITED(status)) {
    return name + " ended with exit code " + std::to_string(WEXITSTATUS(status));
  }
  if (WIFSIGNALED(status)) {
    return name + " was ended by signal " + std::to_string(WTERMSIG(status)) + " (" +
           strsignal(WTERMSIG(status)) + ")";
  }
  return name + " ended abnormally";
}

}  // namespace wavforge::encode_tool
