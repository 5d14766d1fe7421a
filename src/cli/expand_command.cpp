#include "cli/expand_command.h"

#include "settings/placeholders.h"

namespace wavforge::cli {

int RunExpand(const platform::Ports& ports, const std::vector<std::string>& texts,
              std::ostream& out) {
  for (const auto& text : texts) out << ExpandPlaceholders(text, ports) << '\n';
  return 0;
}

}  // namespace wavforge::cli
