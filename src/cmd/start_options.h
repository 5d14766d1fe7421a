#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wavforge::cmd {

// What a start command asks for.
struct StartOptions {
  std::string title;            // the first quoted word; no console shows it here
  bool wait = false;            // /wait
  std::optional<int> niceness;  // from /low, /belownormal, /normal, /abovenormal, /high
  std::string folder;           // /d
  std::string command_line;     // program and its arguments, as written
  std::string error;            // cmd.exe's message when the options are wrong
};

// Reads start's arguments: an optional quoted title first, then switches (any case), then the
// program. /b /min /max /i /separate /shared /realtime and /affinity, /node with their values
// are accepted and change nothing here (no windows, no processor groups). The folder must be
// given apart ("/d PATH"): glued on, "/dev/..." would read as a folder switch.
StartOptions ParseStartOptions(std::string_view arguments);

}  // namespace wavforge::cmd
