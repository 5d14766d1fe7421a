#pragma once

#include <string>
#include <string_view>

#include "cmd/expansion.h"
#include "cmd/interpreter_state.h"
#include "cmd/script_file.h"

namespace wavforge::cmd {

// Runs lines the way cmd.exe runs them: percent expansion, "@" and echo, labels, &, && and ||,
// redirections, then an internal command or a program.
class Interpreter {
 public:
  // context gives the mode, %0 and the arguments; its lookup is supplied here (the environment,
  // then ERRORLEVEL and CD as cmd.exe has them).
  Interpreter(ExpansionContext context, InterpreterState state);
  Interpreter(const Interpreter&) = delete;
  Interpreter& operator=(const Interpreter&) = delete;

  // Runs one line; false once an exit command has ended the run.
  bool RunLine(std::string_view line);

  const InterpreterState& State() const { return state_; }

  // The process exit code: the last error level, cut to what an exit status holds.
  int ExitCode() const;

 private:
  void RunCommand(std::string_view command);
  std::optional<std::string> Lookup(std::string_view name) const;

  ExpansionContext context_;
  InterpreterState state_;
};

// Runs a script to its end, to an exit command, or until its name no longer holds the file
// identity names.
int RunScript(const std::string& path, const FileIdentity& identity, Interpreter& interpreter);

}  // namespace wavforge::cmd
