#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wavforge::cmd {

// What a del (or erase) command asks for.
struct DeleteOptions {
  bool recurse = false;            // /s: the same name in every subfolder too
  bool show_help = false;          // /?
  std::vector<std::string> names;  // quotes removed, in the order given
};

// Reads del's arguments. A switch is an unquoted word made only of "/" plus one of P F S Q (any
// case) or "/A" with optional attributes, possibly several glued together ("/q/f"); on this
// platform any other word starting with "/" is an absolute path. /P (ask) is accepted but never
// asks, since the interpreter runs without a console to answer; /F, /Q and /A change nothing
// here.
DeleteOptions ParseDeleteOptions(std::string_view arguments);

}  // namespace wavforge::cmd
