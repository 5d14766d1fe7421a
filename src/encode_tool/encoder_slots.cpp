#include "encode_tool/encoder_slots.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <thread>
#include <vector>

#include "platform/posix/private_folder.h"

namespace wavforge::encode_tool {
namespace {

// A free place is found within this time; short against any encoder run.
constexpr auto kPollInterval = std::chrono::milliseconds(3);

// Beside the console titles, in the user's runtime folder, so every job of the user shares it.
std::string SlotFolder() {
  return platform::posix::UserRuntimeFolder("wavforge-slots");
}

}  // namespace

int EncodersAtATime(const std::string& configured) {
  char* end = nullptr;
  const long number = std::strtol(configured.c_str(), &end, 10);
  if (end != configured.c_str() && number > 0)
    return number > 1024 ? 1024 : static_cast<int>(number);
  const unsigned cores = std::thread::hardware_concurrency();
  return cores > 0 ? static_cast<int>(cores) : 1;
}

EncoderSlot::EncoderSlot(int count) {
  const std::string folder = SlotFolder();
  if (!platform::posix::EnsurePrivateFolder(folder)) return;
  std::vector<int> slots;
  for (int i = 0; i < count; ++i) {
    const std::string path = folder + "/" + std::to_string(i);
    const int fd = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (fd >= 0) slots.push_back(fd);
  }
  // flock cannot wait for any one of several files, so the free ones are tried in turn.
  // A file that cannot be locked at all is left out rather than waited for forever.
  while (fd_ < 0 && !slots.empty()) {
    for (auto it = slots.begin(); it != slots.end();) {
      if (flock(*it, LOCK_EX | LOCK_NB) == 0) {
        fd_ = *it;
        slots.erase(it);
        break;
      }
      if (errno != EWOULDBLOCK) {
        close(*it);
        it = slots.erase(it);
      } else {
        ++it;
      }
    }
    if (fd_ < 0 && !slots.empty()) std::this_thread::sleep_for(kPollInterval);
  }
  for (const int fd : slots) close(fd);
}

EncoderSlot::~EncoderSlot() {
  Release();
}

void EncoderSlot::Release() {
  if (fd_ >= 0) close(fd_);
  fd_ = -1;
}

}  // namespace wavforge::encode_tool
