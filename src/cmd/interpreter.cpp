#include "cmd/interpreter.h"

#include <unistd.h>

#include <cerrno>

#include "cmd/applied_redirections.h"
#include "cmd/builtin_commands.h"
#include "cmd/command_chain.h"
#include "cmd/command_word.h"
#include "cmd/environment_variables.h"
#include "cmd/external_command.h"
#include "cmd/output.h"
#include "cmd/redirection.h"
#include "cmd/script_line_reader.h"
#include "cmd/variable_lookup.h"

namespace wavforge::cmd {
namespace {

std::string CurrentFolder() {
  std::string folder(4096, '\0');
  while (!getcwd(folder.data(), folder.size())) {
    if (errno != ERANGE) return std::string();
    folder.resize(folder.size() * 2);
  }
  folder.resize(folder.find('\0'));
  return folder;
}

bool ShouldRun(Connector connector, int error_level) {
  switch (connector) {
    case Connector::kOnSuccess:
      return error_level == 0;
    case Connector::kOnFailure:
      return error_level != 0;
    default:
      return true;
  }
}

}  // namespace

Interpreter::Interpreter(ExpansionContext context, InterpreterState state)
    : context_(std::move(context)), state_(std::move(state)) {
  context_.lookup = [this](std::string_view name) { return Lookup(name); };
}

std::optional<std::string> Interpreter::Lookup(std::string_view name) const {
  if (auto value = FindVariable(SnapshotEnvironment(), name)) return value;
  if (EqualsIgnoringCase(name, "ERRORLEVEL")) return std::to_string(state_.error_level);
  if (EqualsIgnoringCase(name, "CD")) return CurrentFolder();
  return std::nullopt;
}

int Interpreter::ExitCode() const {
  return static_cast<int>(state_.error_level & 0xFF);
}

bool Interpreter::RunLine(std::string_view line) {
  const std::string expanded = ExpandPercents(line, context_);
  std::string_view text = TrimLeadingBlanks(expanded);
  const bool quiet = !text.empty() && text.front() == '@';
  text = TrimCommandStart(text);
  if (text.empty() || text.front() == ':') return true;  // blank line or label
  if (context_.mode == ExpansionMode::kScript && state_.echo_on && !quiet) {
    // Appended rather than "\n" + temporary, which GCC 12 falsely flags (-Wrestrict) at -O3.
    std::string echo = "\n";
    echo.append(CurrentFolder()).append(">").append(text).append("\n");
    WriteOutput(echo);
  }
  const CommandChain chain = SplitCommandChain(text);
  if (!chain.error.empty()) {
    WriteError(chain.error + "\n");
    state_.error_level = 1;
    return true;
  }
  for (const ChainedCommand& command : chain.commands) {
    if (!ShouldRun(command.connector, state_.error_level)) continue;
    RunCommand(command.text);
    if (state_.exit_requested) return false;
  }
  return true;
}

void Interpreter::RunCommand(std::string_view command) {
  if (IsRemark(command)) return;  // rem takes no redirections either
  const ParsedCommand parsed = ParseRedirections(command);
  if (!parsed.error.empty()) {
    WriteError(parsed.error + "\n");
    state_.error_level = 1;
    return;
  }
  AppliedRedirections redirections;
  std::string error;
  if (!redirections.Apply(parsed.redirections, error)) {
    WriteError(error + "\n");
    state_.error_level = 1;
    return;
  }
  const std::string_view text = TrimCommandStart(parsed.text);
  if (text.empty()) return;  // only redirections: the files are made, nothing runs
  const CommandWord word = SplitCommandWord(text);
  if (const BuiltinCommand builtin = FindBuiltin(word.word)) {
    builtin(word.rest, state_);
  } else {
    RunExternalCommand(text, state_);
  }
}

int RunScript(const std::string& path, const FileIdentity& identity, Interpreter& interpreter) {
  ScriptLineReader reader(path, identity);
  while (const std::optional<std::string> line = reader.Next()) {
    if (!interpreter.RunLine(*line)) break;
  }
  return interpreter.ExitCode();
}

}  // namespace wavforge::cmd
