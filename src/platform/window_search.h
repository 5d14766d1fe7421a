#pragma once

#include <string>
#include <vector>

namespace platform {

// The titles of the user's top-level windows at this moment: on Linux, the names of the user's
// running programs and the console titles that running job scripts have set.
class WindowSearch {
 public:
  virtual ~WindowSearch() = default;
  virtual std::vector<std::string> WindowTitles() = 0;
};

}  // namespace platform
