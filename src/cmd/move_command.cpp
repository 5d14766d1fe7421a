#include "cmd/move_command.h"

#include <filesystem>
#include <string>
#include <vector>

#include "cmd/builtin_tokens.h"
#include "cmd/file_name_lookup.h"
#include "cmd/output.h"

namespace wavforge::cmd {

namespace fs = std::filesystem;

void RunMoveCommand(std::string_view rest, InterpreterState& state) {
  std::vector<std::string> names;
  for (const BuiltinToken& token : TokenizeBuiltinArguments(rest)) {
    const bool confirm_switch = !token.quoted && (token.text == "/y" || token.text == "/Y" ||
                                                  token.text == "/-y" || token.text == "/-Y");
    if (!confirm_switch) names.push_back(token.text);
  }
  if (names.size() != 2) {
    WriteError("The syntax of the command is incorrect.\n");
    state.error_level = 1;
    return;
  }
  // The source's name as it is on disk, which a move into a folder keeps.
  const fs::path source = FindFileIgnoringCase(names[0]).value_or(names[0]);
  fs::path target = names[1];
  std::error_code error;
  if (fs::is_directory(target, error)) target /= source.filename();
  if (!fs::is_regular_file(source, error)) {
    WriteError("The system cannot find the file specified.\n");
    state.error_level = 1;
    return;
  }
  fs::rename(source, target, error);
  if (error == std::errc::cross_device_link) {
    // Another file system: copy, then remove the original.
    error.clear();
    if (fs::copy_file(source, target, fs::copy_options::overwrite_existing, error)) {
      fs::remove(source, error);
    }
  }
  if (error) {
    WriteError("Access is denied.\n");
    state.error_level = 1;
    return;
  }
  state.error_level = 0;
}

}  // namespace wavforge::cmd
