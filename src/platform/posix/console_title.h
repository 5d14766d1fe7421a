#pragma once

#include <sys/types.h>

#include <optional>
#include <string>

// The console title of a running wavforge-cmd, kept where other processes of the same user can
// read it: a process has no window on Linux, so the window search asks here instead.
//
// Each interpreter (and each background encoder of wavforge-encode, which keeps the job's title
// until it ends) owns one file named after its process id in the title folder; it holds the
// title's bytes and nothing else. The folder is $XDG_RUNTIME_DIR/wavforge-titles, or
// ${TMPDIR:-/tmp}/wavforge-titles-<uid> when there is no runtime folder.
namespace platform::posix {

// The title folder for the current environment, without a trailing separator.
std::string ConsoleTitleFolder();

// The title file of one process, in the folder above.
std::string ConsoleTitlePath(pid_t pid);

// The temporary file a publication is written to before it is renamed into place.
std::string ConsoleTitleTemporaryPath(pid_t pid);

// Replaces the title of pid as one atomic step, creating the folder (owner only) when needed.
// False when it could not be written, or when the folder is not a private folder of this user.
bool PublishConsoleTitle(pid_t pid, const std::string& title);

// The title pid has published; nothing when it has none.
std::optional<std::string> ReadConsoleTitle(pid_t pid);

// Forgets the title of pid (and any half-written one).
void ClearConsoleTitle(pid_t pid);

// The same in a folder fixed beforehand: the interpreter takes ConsoleTitleFolder() once at
// start, so a script that sets TMPDIR or XDG_RUNTIME_DIR cannot move its title out of sight.
std::string ConsoleTitlePath(const std::string& folder, pid_t pid);
std::string ConsoleTitleTemporaryPath(const std::string& folder, pid_t pid);
bool PublishConsoleTitle(const std::string& folder, pid_t pid, const std::string& title);
std::optional<std::string> ReadConsoleTitle(const std::string& folder, pid_t pid);
void ClearConsoleTitle(const std::string& folder, pid_t pid);

}  // namespace platform::posix
