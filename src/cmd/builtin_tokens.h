#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace wavforge::cmd {

// One word of an internal command's arguments (del, start): blanks separate words, double
// quotes group and are removed.
struct BuiltinToken {
  std::string text;       // quotes removed
  bool quoted = false;    // the word had a double quote in it, so it is never a switch
  std::size_t begin = 0;  // position in the arguments where the word starts
  std::size_t end = 0;    // and the position after it
};

std::vector<BuiltinToken> TokenizeBuiltinArguments(std::string_view arguments);

}  // namespace wavforge::cmd
