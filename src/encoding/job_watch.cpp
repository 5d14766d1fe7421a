#include "encoding/job_watch.h"

namespace wavforge {

bool JobWatch::Tick(const FileList& file_list, JobStatusView& view) {
  const bool running = windows_.AnyWindowTitled(kWatchedTitles);
  if (running) {
    view.SetStartEnabled(false);
    counter_ = static_cast<std::int16_t>((counter_ + 1) % 4);
    view.ShowStatusPicture(counter_ + 1);
  } else {
    view.ShowStatusPicture(3);
    counter_ = 0;
    view.SetStartEnabled(file_list.UpperBound() >= 0);
  }
  return running;
}

}  // namespace wavforge
