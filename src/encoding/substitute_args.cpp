#include "encoding/substitute_args.h"

#include "settings/text_replace.h"

namespace wavforge {

std::string SubstituteArgs(std::string_view command_template,
                           const std::vector<std::string>& arguments) {
  std::string text(command_template);
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    // Appended rather than "%" + temporary, which GCC 12 falsely flags (-Wrestrict) at -O3.
    std::string marker = "%";
    marker.append(std::to_string(i + 1));
    text = ReplaceAll(text, marker, arguments[i]);
  }
  return text;
}

}  // namespace wavforge
