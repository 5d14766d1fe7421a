#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wavforge::cmd {

enum class RedirectionKind {
  kRead,       // <
  kTruncate,   // >
  kAppend,     // >>
  kDuplicate,  // >&N or <&N
};

struct Redirection {
  int handle = 1;  // 0 standard input, 1 output, 2 errors, up to 9
  RedirectionKind kind = RedirectionKind::kTruncate;
  std::string target;      // file name, quotes removed
  int target_handle = -1;  // for kDuplicate
};

struct ParsedCommand {
  // The command without its redirections; carets outside quotes are removed, the character
  // after each kept.
  std::string text;
  std::vector<Redirection> redirections;  // in the order written, which is the order applied
  std::string error;                      // cmd.exe's message when the command cannot run
};

// Takes the redirections out of one command, as cmd.exe reads them: outside double quotes, a
// digit right before > or < names the handle; the file name may be quoted and ends at a blank
// or at one of < > & | outside quotes.
ParsedCommand ParseRedirections(std::string_view command);

}  // namespace wavforge::cmd
