#pragma once

#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/file_system.h"
#include "settings/settings.h"

namespace wavforge {

// Appends one line to the day's log file: the time, then each argument after a tab. Line
// breaks inside arguments become tabs, so one call is always one line. Never fails.
void WriteLog(const Settings& settings, platform::FileSystem& files, const platform::Clock& clock,
              const std::vector<std::string>& arguments);

// The log file of a day: LogFilePath, then yyyymmdd.log.
std::string LogFileFor(const Settings& settings, const platform::LocalTime& day);

}  // namespace wavforge
