#include "cmd/delete_options.h"

#include "cmd/builtin_tokens.h"

namespace wavforge::cmd {
namespace {

char Lower(char c) {
  return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsAttributeLetter(char c) {
  c = Lower(c);
  return c == 'r' || c == 'h' || c == 's' || c == 'a' || c == 'i' || c == 'l' || c == '-';
}

// Applies the switches of word to options; false (and options untouched) when word is no
// run of switches.
bool ApplySwitches(std::string_view word, DeleteOptions& options) {
  if (word.size() < 2 || word[0] != '/') return false;
  DeleteOptions changed = options;
  std::size_t i = 0;
  while (i < word.size()) {
    if (word[i] != '/' || i + 1 >= word.size()) return false;
    const char letter = Lower(word[i + 1]);
    i += 2;
    if (letter == 's') {
      changed.recurse = true;
    } else if (letter == '?') {
      changed.show_help = true;
    } else if (letter == 'a') {
      if (i < word.size() && word[i] == ':') ++i;
      while (i < word.size() && IsAttributeLetter(word[i])) ++i;
    } else if (letter != 'p' && letter != 'f' && letter != 'q') {
      return false;
    }
  }
  options = changed;
  return true;
}

}  // namespace

DeleteOptions ParseDeleteOptions(std::string_view arguments) {
  DeleteOptions options;
  for (BuiltinToken& token : TokenizeBuiltinArguments(arguments)) {
    if (!token.quoted && ApplySwitches(token.text, options)) continue;
    if (!token.text.empty()) options.names.push_back(std::move(token.text));
  }
  return options;
}

}  // namespace wavforge::cmd
