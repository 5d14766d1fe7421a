#pragma once

#include <chrono>

#include "platform/window_search.h"

namespace platform::posix {

// The console windows of running job scripts: the titles that live wavforge-cmd processes of
// this user (and the background encoders of wavforge-encode) have published (see console_title.h).
// Reads the few files of the title folder, not the process list, so other programs cost nothing and
// a program named like a tool is no window.
class ConsoleTitleSearch final : public WindowSearch {
 public:
  bool AnyWindowTitled(std::span<const char* const> titles) override;
};

// Sleeps until one of the processes that have published a console title ends, or for longest
// at most: whoever waits for a job then sees its end as it happens, not at its next look.
void WaitForTitleHolderToEnd(std::chrono::milliseconds longest);

}  // namespace platform::posix
