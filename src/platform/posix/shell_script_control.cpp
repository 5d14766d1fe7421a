#include "platform/posix/shell_script_control.h"

#include <spawn.h>
#include <sys/wait.h>

#include <cerrno>

extern char** environ;

namespace platform {

void ShellScriptControl::Run(const std::string& source, const std::string& statement) {
  const std::string script = source + "\n" + statement;
  char sh[] = "/bin/sh";
  char dash_c[] = "-c";
  std::string text = script;
  char* argv[] = {sh, dash_c, text.data(), nullptr};
  pid_t pid = 0;
  if (posix_spawn(&pid, sh, nullptr, nullptr, argv, environ) != 0) return;
  int status = 0;
  while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
}

}  // namespace platform
