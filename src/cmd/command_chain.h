#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wavforge::cmd {

// How a command of a line is joined to the one before it.
enum class Connector {
  kFirst,      // the line's first command
  kAlways,     // &
  kOnSuccess,  // &&: runs when the previous one left error level 0
  kOnFailure,  // ||: runs when the previous one did not
};

struct ChainedCommand {
  Connector connector = Connector::kFirst;
  // The command as written: redirections and carets still in it.
  std::string text;
};

struct CommandChain {
  std::vector<ChainedCommand> commands;
  // Set (and commands empty) when the line cannot run, with cmd.exe's message.
  std::string error;
};

// Cuts a line at &, && and || outside double quotes and not escaped with ^. A rem command takes
// the rest of its line. Pipes are not supported: a line with | is refused.
CommandChain SplitCommandChain(std::string_view line);

}  // namespace wavforge::cmd
