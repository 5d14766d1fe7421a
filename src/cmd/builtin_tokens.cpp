#include "cmd/builtin_tokens.h"

#include "cmd/command_word.h"

namespace wavforge::cmd {

std::vector<BuiltinToken> TokenizeBuiltinArguments(std::string_view arguments) {
  std::vector<BuiltinToken> tokens;
  std::size_t i = 0;
  while (true) {
    while (i < arguments.size() && IsBlank(arguments[i])) ++i;
    if (i >= arguments.size()) break;
    BuiltinToken token;
    token.begin = i;
    bool in_quotes = false;
    while (i < arguments.size() && (in_quotes || !IsBlank(arguments[i]))) {
      if (arguments[i] == '"') {
        in_quotes = !in_quotes;
        token.quoted = true;
      } else {
        token.text += arguments[i];
      }
      ++i;
    }
    token.end = i;
    tokens.push_back(std::move(token));
  }
  return tokens;
}

}  // namespace wavforge::cmd
