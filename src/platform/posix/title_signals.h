#pragma once

#include <signal.h>
#include <sys/types.h>

#include <string>

// A process that publishes a console title must not leave it behind when it is ended, or the
// program would wait for a job that is gone.
namespace platform::posix {

// From now on SIGTERM, SIGINT and SIGHUP remove the title files of pid in folder and then end
// the process as the signal would.
void RemoveTitleOnEndingSignals(const std::string& folder, pid_t pid);

// Holds those signals back, so no half-written title stays behind; gives the mask before.
sigset_t HoldEndingSignals();
void RestoreSignalMask(const sigset_t& previous);

}  // namespace platform::posix
