#include "cmd/start_options.h"

#include <vector>

#include "cmd/builtin_tokens.h"
#include "cmd/variable_lookup.h"

namespace wavforge::cmd {
namespace {

struct PriorityClass {
  const char* name;
  int niceness;
};

// Windows priority classes mapped onto nice values.
constexpr PriorityClass kPriorityClasses[] = {
    {"/low", 19}, {"/belownormal", 10}, {"/normal", 0}, {"/abovenormal", -5}, {"/high", -10},
};

constexpr const char* kIgnoredSwitches[] = {"/b",        "/min",    "/max",     "/i",
                                            "/separate", "/shared", "/realtime"};

bool IsOneOf(std::string_view word, std::initializer_list<const char*> names) {
  for (const char* name : names) {
    if (EqualsIgnoringCase(word, name)) return true;
  }
  return false;
}

}  // namespace

StartOptions ParseStartOptions(std::string_view arguments) {
  StartOptions options;
  const std::vector<BuiltinToken> tokens = TokenizeBuiltinArguments(arguments);
  std::size_t index = 0;
  if (index < tokens.size() && tokens[index].quoted && arguments[tokens[index].begin] == '"') {
    options.title = tokens[index++].text;
  }
  for (; index < tokens.size(); ++index) {
    const BuiltinToken& token = tokens[index];
    const std::string& word = token.text;
    if (token.quoted || word.empty() || word[0] != '/') break;
    bool known = false;
    for (const PriorityClass& priority : kPriorityClasses) {
      if (EqualsIgnoringCase(word, priority.name)) {
        options.niceness = priority.niceness;
        known = true;
      }
    }
    for (const char* name : kIgnoredSwitches) known = known || EqualsIgnoringCase(word, name);
    if (known) continue;
    if (EqualsIgnoringCase(word, "/wait")) {
      options.wait = true;
    } else if (IsOneOf(word, {"/d", "/affinity", "/node"})) {
      if (++index >= tokens.size()) {
        options.error = "The syntax of the command is incorrect.";
        return options;
      }
      if (EqualsIgnoringCase(word, "/d")) options.folder = tokens[index].text;
    } else {
      break;  // an absolute path: the program
    }
  }
  if (index < tokens.size()) options.command_line = arguments.substr(tokens[index].begin);
  return options;
}

}  // namespace wavforge::cmd
