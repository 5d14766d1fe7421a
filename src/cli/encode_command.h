#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "platform/ports.h"

namespace wavforge::cli {

struct EncodeOptions {
  bool dry_run = false;  // print the plan and the script instead of writing and starting it
  bool wait = false;     // follow the job until it ends and check its outputs
  bool force = false;    // run a job whose plan has problems
};

// `wavforge-cli encode FILE...`: the Start button's job on these files, after its plan was
// checked for anything that could cost a recording or an existing file.
int RunEncode(const platform::Ports& ports, const std::vector<std::string>& files,
              const EncodeOptions& options, std::ostream& out, std::ostream& err);

}  // namespace wavforge::cli
