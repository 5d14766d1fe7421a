#include "cmd/invocation.h"

#include "cmd/variable_lookup.h"

namespace wavforge::cmd {
namespace {

bool IsIgnoredSwitch(const std::string& word) {
  for (const char* name : {"/d", "/a", "/u", "/s"}) {
    if (EqualsIgnoringCase(word, name)) return true;
  }
  if (word.size() >= 3 && word[2] == ':') {
    for (const char* prefix : {"/e", "/f", "/v", "/t"}) {
      if (EqualsIgnoringCase(word.substr(0, 2), prefix)) return true;
    }
  }
  return false;
}

}  // namespace

std::string ArgumentAsTyped(const std::string& argument) {
  if (argument.empty()) return "\"\"";
  if (argument.find('"') != std::string::npos) return argument;
  // cmd.exe cuts arguments at blanks and at , ; = too.
  if (argument.find_first_of(" \t,;=") != std::string::npos) return "\"" + argument + "\"";
  return argument;
}

Invocation ParseInvocation(const std::vector<std::string>& arguments) {
  Invocation invocation;
  std::size_t index = 0;
  for (; index < arguments.size(); ++index) {
    const std::string& word = arguments[index];
    if (EqualsIgnoringCase(word, "/q")) {
      invocation.echo_off = true;
    } else if (EqualsIgnoringCase(word, "/c") || EqualsIgnoringCase(word, "/k")) {
      invocation.command_mode = true;
      for (++index; index < arguments.size(); ++index) {
        if (!invocation.command_line.empty()) invocation.command_line += ' ';
        invocation.command_line += arguments[index];
      }
      return invocation;
    } else if (!IsIgnoredSwitch(word)) {
      break;
    }
  }
  if (index >= arguments.size()) {
    invocation.error =
        "Usage: wavforge-cmd SCRIPT [ARGUMENTS...]\n"
        "       wavforge-cmd [/q] /c COMMAND LINE...";
    return invocation;
  }
  invocation.script = arguments[index];
  for (++index; index < arguments.size(); ++index) {
    invocation.script_arguments.push_back(ArgumentAsTyped(arguments[index]));
  }
  return invocation;
}

}  // namespace wavforge::cmd
