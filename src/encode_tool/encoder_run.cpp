#include "encode_tool/encoder_run.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

extern char** environ;

namespace wavforge::encode_tool {

std::string RunEncoder(const std::vector<std::string>& argv, int log_fd) {
  if (argv.empty()) return "no encoder is named";
  std::vector<char*> raw;
  for (const auto& argument : argv) raw.push_back(const_cast<char*>(argument.c_str()));
  raw.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, log_fd, STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, log_fd, STDERR_FILENO);
  pid_t pid = 0;
  const int error = posix_spawnp(&pid, raw[0], &actions, nullptr, raw.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) {
    if (error == ENOENT) return argv[0] + " was not found (is it installed and on PATH?)";
    return argv[0] + " could not be started: " + std::strerror(error);
  }
  int status = 0;
  while (waitpid(pid, &status, 0) < 0) {
    if (errno != EINTR) return "waiting for " + argv[0] + " failed";
  }
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return {};
  if (WIFEXITED(status)) {
    return argv[0] + " ended with exit code " + std::to_string(WEXITSTATUS(status));
  }
  if (WIFSIGNALED(status)) {
    return argv[0] + " was ended by signal " + std::to_string(WTERMSIG(status)) + " (" +
           strsignal(WTERMSIG(status)) + ")";
  }
  return argv[0] + " ended abnormally";
}

}  // namespace wavforge::encode_tool
