#pragma once

#include <string>
#include <vector>

#include "platform/window_search.h"
#include "platform/window_titles.h"

namespace fakes {

// Windows that a test opens and closes by title; records what each search asked for.
class FakeWindowSearch final : public platform::WindowSearch {
 public:
  std::vector<std::string> titles;
  std::vector<std::string> asked;
  int searches = 0;

  bool AnyWindowTitled(std::span<const char* const> wanted) override {
    ++searches;
    asked.assign(wanted.begin(), wanted.end());
    for (const auto& title : titles) {
      if (platform::IsOneOfTitles(title, wanted)) return true;
    }
    return false;
  }
};

}  // namespace fakes
