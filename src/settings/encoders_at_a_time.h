#pragma once

#include <string>

#include "platform/profile_reader.h"

namespace wavforge {

// How many encoders may run at a time: the Encoders entry of the settings file's [Options]
// when it is a positive number (1024 at most), else one per core.
int EncodersAtATime(const platform::ProfileReader& profiles, const std::string& settings_file);

}  // namespace wavforge
