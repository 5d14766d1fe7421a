#pragma once

#include <array>
#include <cstdint>

#include "platform/window_search.h"
#include "shell/file_list.h"

namespace wavforge {

// The titles whose windows mean a job is running: the tools' own, then the script's console.
inline constexpr std::array<const char*, 5> kWatchedTitles = {"ssrc", "lame", "oggenc", "cscript",
                                                              "Larkspur Encoder"};

// How a tick's outcome reaches the window that shows it.
class JobStatusView {
 public:
  virtual ~JobStatusView() = default;
  virtual void SetStartEnabled(bool enabled) = 0;
  // Shows the picture of imgIcon(index), index 1 to 4, in the status icon.
  virtual void ShowStatusPicture(int index) = 0;
};

// Follows a running job by its windows, four times a second; idle and busy are decided
// afresh on every tick from the windows that exist then.
class JobWatch {
 public:
  explicit JobWatch(platform::WindowSearch& windows) : windows_(windows) {}

  // One timer tick; returns whether a job is running.
  bool Tick(const FileList& file_list, JobStatusView& view);

 private:
  platform::WindowSearch& windows_;
  std::int16_t counter_ = 0;
};

}  // namespace wavforge
