#pragma once

#include <string>
#include <vector>

namespace wavforge::cmd {

// How wavforge-cmd was called: "wavforge-cmd SCRIPT [ARGS...]" runs a script,
// "wavforge-cmd [/q] /c COMMAND LINE..." runs one command line.
struct Invocation {
  bool command_mode = false;  // /c (or /k: there is no interactive prompt to stay in)
  bool echo_off = false;      // /q
  std::string script;
  // The script's arguments as %1 and on show them: a value with blanks in it is quoted, as it
  // would have been typed to cmd.exe.
  std::vector<std::string> script_arguments;
  // The words after /c joined by single spaces and used as they stand; whoever needs grouping
  // puts the quotes into the words.
  std::string command_line;
  std::string error;  // set when there is nothing to run
};

// arguments: the process arguments after the program name. Switches are recognised only
// before the script or /c: /q, /c, /k, and cmd.exe's /d /a /u /s /e: /f: /v: /t: (ignored);
// any other word (an absolute path, say) is the script.
Invocation ParseInvocation(const std::vector<std::string>& arguments);

// One argument as cmd.exe would have been given it.
std::string ArgumentAsTyped(const std::string& argument);

}  // namespace wavforge::cmd
