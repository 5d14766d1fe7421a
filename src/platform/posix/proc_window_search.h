#pragma once

#include "platform/window_search.h"

namespace platform::posix {

// Lists the names of this user's running programs from /proc, and the console titles of the
// running job interpreters, which stand in for their console windows.
class ProcWindowSearch final : public WindowSearch {
 public:
  std::vector<std::string> WindowTitles() override;
};

}  // namespace platform::posix
