#include "encode_tool/encoder_slots.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>
#include <vector>

#include "platform/posix/private_folder.h"

namespace wavforge::encode_tool {
namespace {

// A holder that frees its place says so through a pipe in the slot folder, which wakes the
// waiters at once. One that is killed cannot, so waiters look again after a while anyway;
// without the pipe they look often, as a short wait against any encoder run.
constexpr int kLookAgainMs = 50;
constexpr auto kLookAgainUnwatched = std::chrono::milliseconds(3);

// Beside the console titles, in the user's runtime folder, so every job of the user shares it.
std::string SlotFolder() {
  return platform::posix::UserRuntimeFolder("wavforge-slots");
}

std::string FreedPipe(const std::string& folder) {
  return folder + "/freed";
}

// The pipe, opened for reading and writing: as a reader, a write never fails for want of one;
// as a writer, a waiter never sees the end of the pipe once another writer is gone.
int OpenFreedPipe(const std::string& folder) {
  const std::string path = FreedPipe(folder);
  if (mkfifo(path.c_str(), 0600) != 0 && errno != EEXIST) return -1;
  const int fd = open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC | O_NOFOLLOW);
  struct stat info {};
  if (fd >= 0 && (fstat(fd, &info) != 0 || !S_ISFIFO(info.st_mode))) {
    close(fd);
    return -1;
  }
  return fd;
}

// Sleeps until a place is said to be freed, or for a while.
void WaitForFreedPlace(int pipe) {
  if (pipe < 0) {
    std::this_thread::sleep_for(kLookAgainUnwatched);
    return;
  }
  pollfd freed{pipe, POLLIN, 0};
  if (poll(&freed, 1, kLookAgainMs) <= 0) return;
  char bytes[64];
  while (read(pipe, bytes, sizeof bytes) > 0) {
  }
}

}  // namespace

EncoderSlot::EncoderSlot(int count) {
  const std::string folder = SlotFolder();
  if (!platform::posix::EnsurePrivateFolder(folder)) return;
  // Opened before the first try, so a place freed after it still wakes us.
  const int freed = OpenFreedPipe(folder);
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
    if (fd_ < 0 && !slots.empty()) WaitForFreedPlace(freed);
  }
  for (const int fd : slots) close(fd);
  if (freed >= 0) close(freed);
}

EncoderSlot::~EncoderSlot() {
  Release();
}

void EncoderSlot::Release() {
  if (fd_ < 0) return;
  flock(fd_, LOCK_UN);  // also for a copy an encoder being started may still hold
  close(fd_);
  fd_ = -1;
  // The place is free now, so a waiter woken by this finds it.
  const int freed = OpenFreedPipe(SlotFolder());
  if (freed >= 0) {
    [[maybe_unused]] const ssize_t n = write(freed, "1", 1);
    close(freed);
  }
}

}  // namespace wavforge::encode_tool
