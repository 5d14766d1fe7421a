#include "cmd/builtin_commands.h"

#include <algorithm>
#include <charconv>
#include <string>

#include "cmd/builtin_tokens.h"
#include "cmd/command_word.h"
#include "cmd/delete_command.h"
#include "cmd/environment_variables.h"
#include "cmd/move_command.h"
#include "cmd/output.h"
#include "cmd/start_command.h"
#include "cmd/variable_lookup.h"

namespace wavforge::cmd {
namespace {

constexpr const char* kSyntaxError = "The syntax of the command is incorrect.\n";

std::string_view TrimBlanks(std::string_view text) {
  text = TrimLeadingBlanks(text);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

// The text after the character that ended the command's name; a quote belongs to the text.
std::string_view AfterDelimiter(std::string_view rest) {
  if (rest.empty() || rest.front() == '"') return rest;
  return rest.substr(1);
}

void Echo(std::string_view rest, InterpreterState& state) {
  const std::string_view text = AfterDelimiter(rest);
  if (rest.empty() || IsBlank(rest.front())) {
    const std::string_view word = TrimBlanks(text);
    if (word.empty()) {
      WriteOutput(state.echo_on ? "ECHO is on.\n" : "ECHO is off.\n");
      return;
    }
    if (EqualsIgnoringCase(word, "on") || EqualsIgnoringCase(word, "off")) {
      state.echo_on = EqualsIgnoringCase(word, "on");
      return;
    }
  }
  WriteOutput(std::string(text) + "\n");
}

void Remark(std::string_view, InterpreterState&) {}

void Title(std::string_view rest, InterpreterState& state) {
  const std::string title(TrimLeadingBlanks(AfterDelimiter(rest)));
  if (state.on_title) state.on_title(title);
}

void ListVariables(std::string_view prefix, InterpreterState& state) {
  VariableList variables = SnapshotEnvironment();
  std::erase_if(variables, [prefix](const auto& variable) {
    return !EqualsIgnoringCase(std::string_view(variable.first).substr(0, prefix.size()), prefix);
  });
  if (variables.empty()) {
    WriteError("Environment variable " + std::string(prefix) + " not defined\n");
    state.error_level = 1;
    return;
  }
  auto lower = [](std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) {
      return static_cast<char>((c >= 'A' && c <= 'Z') ? c - 'A' + 'a' : c);
    });
    return text;
  };
  std::stable_sort(variables.begin(), variables.end(),
                   [&](const auto& a, const auto& b) { return lower(a.first) < lower(b.first); });
  std::string listing;
  for (const auto& [name, value] : variables) listing += name + "=" + value + "\n";
  WriteOutput(listing);
}

void Set(std::string_view rest, InterpreterState& state) {
  std::string_view text = TrimLeadingBlanks(rest);
  if (!text.empty() && text.front() == '/') {
    WriteError("wavforge-cmd does not support set /a or set /p.\n");
    state.error_level = 1;
    return;
  }
  if (!text.empty() && text.front() == '"') {
    // set "NAME=VALUE": the quotes bound the assignment; text after the last one is dropped.
    const std::size_t last = text.rfind('"');
    text = last == 0 ? text.substr(1) : text.substr(1, last - 1);
  }
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos) {
    ListVariables(text, state);
    return;
  }
  if (equals == 0) {
    WriteError(kSyntaxError);
    state.error_level = 1;
    return;
  }
  SetEnvironmentVariable(std::string(text.substr(0, equals)), std::string(text.substr(equals + 1)));
}

void Exit(std::string_view rest, InterpreterState& state) {
  for (const BuiltinToken& token : TokenizeBuiltinArguments(rest)) {
    if (EqualsIgnoringCase(token.text, "/b")) continue;
    int code = 0;
    const char* first = token.text.data();
    const char* last = first + token.text.size();
    if (std::from_chars(first, last, code).ptr == last) state.error_level = code;
    break;
  }
  state.exit_requested = true;
}

struct NamedBuiltin {
  const char* name;
  BuiltinCommand command;
};

constexpr NamedBuiltin kBuiltins[] = {
    {"echo", Echo},
    {"rem", Remark},
    {"title", Title},
    {"set", Set},
    {"exit", Exit},
    {"del", RunDeleteCommand},
    {"erase", RunDeleteCommand},
    {"start", RunStartCommand},
    {"move", RunMoveCommand},
    {"ren", RunMoveCommand},
    {"rename", RunMoveCommand},
};

}  // namespace

BuiltinCommand FindBuiltin(std::string_view name) {
  for (const NamedBuiltin& builtin : kBuiltins) {
    if (EqualsIgnoringCase(name, builtin.name)) return builtin.command;
  }
  return nullptr;
}

}  // namespace wavforge::cmd
