#include "shell/event_log.h"

#include <cstdio>

#include "platform/path_rules.h"
#include "settings/text_replace.h"

namespace wavforge {

std::string LogFileFor(const Settings& settings, const platform::LocalTime& day) {
  char name[32];
  std::snprintf(name, sizeof name, "%04d%02d%02d.log", day.year, day.month, day.day);
  return settings.LogFilePath + platform::kPathSeparator + name;
}

void WriteLog(const Settings& settings, platform::FileSystem& files, const platform::Clock& clock,
              const std::vector<std::string>& arguments) {
  if (!settings.LogToFile) return;
  const platform::LocalTime now = clock.Now();
  char time[16];
  std::snprintf(time, sizeof time, "%02d:%02d:%02d", now.hour, now.minute, now.second);
  std::string line = time;
  line += '\t';
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (i > 0) line += '\t';
    line += arguments[i];
  }
  line = ReplaceAll(line, "\r", "");
  line = ReplaceAll(line, "\n\n", "\n");
  line = ReplaceAll(line, "\n", "\t");
  // A missing folder or a locked file loses the line; the caller carries on.
  files.AppendToFile(LogFileFor(settings, now), line + "\r\n");
}

}  // namespace wavforge
