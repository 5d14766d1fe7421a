#pragma once

#include <string>
#include <vector>

#include "platform/window_search.h"

namespace fakes {

// Windows that a test opens and closes by title.
class FakeWindowSearch final : public platform::WindowSearch {
 public:
  std::vector<std::string> titles;
  int searches = 0;

  std::vector<std::string> WindowTitles() override {
    ++searches;
    return titles;
  }
};

}  // namespace fakes
