#include "settings/environment_strings.h"

namespace wavforge {

std::string ExpandEnvironmentStrings(std::string_view text,
                                     const platform::Environment& environment) {
  std::string result;
  result.reserve(text.size());
  std::size_t position = 0;
  while (position < text.size()) {
    const auto open = text.find('%', position);
    if (open == std::string_view::npos) break;
    const auto close = text.find('%', open + 1);
    if (close == std::string_view::npos) break;
    result.append(text, position, open - position);
    const std::string name(text.substr(open + 1, close - open - 1));
    const auto value = name.empty() ? std::nullopt : environment.GetVariable(name);
    // An unknown name is copied with both percent signs; scanning goes on after them.
    result.append(value ? std::string_view(*value) : text.substr(open, close - open + 1));
    position = close + 1;
  }
  result.append(text.substr(position));
  return result;
}

}  // namespace wavforge
