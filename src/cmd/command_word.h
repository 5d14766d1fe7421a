#pragma once

#include <string_view>

namespace wavforge::cmd {

// The first word of a command and what follows it. The word ends where cmd.exe ends an internal
// command's name: at a space or tab, or at one of , ; = ( / . : + [ ] \ " so that "echo.",
// "del/q" and "start/wait" work. rest starts at that character.
struct CommandWord {
  std::string_view word;
  std::string_view rest;
};

// text must not start with blanks.
CommandWord SplitCommandWord(std::string_view text);

bool IsBlank(char c);
std::string_view TrimLeadingBlanks(std::string_view text);

// Strips the blanks and "@" signs a command may start with.
std::string_view TrimCommandStart(std::string_view text);

// True when text, after its start is trimmed, is the rem command.
bool IsRemark(std::string_view text);

}  // namespace wavforge::cmd
