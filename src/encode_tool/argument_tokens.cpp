#include "encode_tool/argument_tokens.h"

#include <array>
#include <utility>

namespace wavforge::encode_tool {

std::vector<std::string> FillArguments(const std::vector<std::string>& arguments,
                                       const std::string& input, const std::string& output,
                                       const TrackTags& tags) {
  const std::array<std::pair<std::string_view, const std::string*>, 6> tokens = {{
      {"{in}", &input},
      {"{out}", &output},
      {"{artist}", &tags.Artist},
      {"{title}", &tags.Title},
      {"{album}", &tags.Album},
      {"{genre}", &tags.Genre},
  }};
  std::vector<std::string> filled;
  for (const std::string& argument : arguments) {
    std::string text;
    std::size_t at = 0;
    while (at < argument.size()) {
      bool replaced = false;
      if (argument[at] == '{') {
        for (const auto& [token, value] : tokens) {
          if (argument.compare(at, token.size(), token) == 0) {
            text += *value;
            at += token.size();
            replaced = true;
            break;
          }
        }
      }
      if (!replaced) text += argument[at++];
    }
    filled.push_back(std::move(text));
  }
  return filled;
}

}  // namespace wavforge::encode_tool
