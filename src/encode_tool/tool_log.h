#pragma once

#include <string>

#include "platform/clock.h"

namespace wavforge::encode_tool {

// The tools' log of the job: one appended line per event, with the local time, so a person can
// read what happened to each recording. Creates the log's folder when it is missing; when the
// log cannot be opened at all, lines go to standard error.
class ToolLog {
 public:
  ToolLog(const std::string& path, platform::Clock& clock);
  ToolLog(const ToolLog&) = delete;
  ToolLog& operator=(const ToolLog&) = delete;
  ~ToolLog();

  // Where the encoder's own messages go.
  int Descriptor() const { return fd_; }
  void Line(const std::string& text);

 private:
  int fd_;
  platform::Clock& clock_;
};

}  // namespace wavforge::encode_tool
