#pragma once

#include <string>
#include <vector>

#include "platform/window_search.h"
#include "platform/window_titles.h"

namespace fakes {

// Windows that a test opens and closes by title.
class FakeWindowSearch final : public platform::WindowSearch {
 public:
  std::vector<std::string> titles;

  bool AnyWindowTitled(std::span<const char* const> wanted) override {
    for (const auto& title : titles) {
      if (platform::IsOneOfTitles(title, wanted)) return true;
    }
    return false;
  }
};

}  // namespace fakes
