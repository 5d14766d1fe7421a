#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "cmd/script_file.h"

namespace wavforge::cmd {

// Reads a script one line at a time the way cmd.exe does: before each line the file is opened
// by its name, read from where the previous line ended, and closed again. A script that is
// deleted (or cut short) while it runs therefore ends after the command in progress, instead
// of running on from an open handle. So does one whose name now holds another file (another
// job's script, say), whose lines are not ours to run.
class ScriptLineReader {
 public:
  // identity: the file the run began with; without it, the file first read.
  explicit ScriptLineReader(std::string path, std::optional<FileIdentity> identity = std::nullopt)
      : path_(std::move(path)), identity_(identity) {}

  // The next line without its line end; nothing at the end or when the file is gone.
  std::optional<std::string> Next();

 private:
  std::string path_;
  std::optional<FileIdentity> identity_;
  std::uint64_t offset_ = 0;
};

// A line as the interpreter runs it: every carriage return removed, so CR LF and LF scripts
// read alike.
std::string WithoutCarriageReturns(std::string_view raw);

}  // namespace wavforge::cmd
