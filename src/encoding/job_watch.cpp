#include "encoding/job_watch.h"

#include <algorithm>

#include "settings/text_replace.h"

namespace wavforge {

bool JobWatch::Tick(const FileList& file_list, JobStatusView& view) {
  std::vector<std::string> titles = windows_.WindowTitles();
  for (auto& title : titles) title = ToLowerAscii(title);
  bool running = false;
  for (const char* watched : kWatchedTitles) {
    running =
        std::find(titles.begin(), titles.end(), ToLowerAscii(watched)) != titles.end() || running;
  }
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
