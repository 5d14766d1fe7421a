#include "encode_tool/info_list_carry.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <optional>

#include "encoding/byte_reader.h"
#include "encoding/riff_reader.h"

namespace wavforge::encode_tool {
namespace {

constexpr const char* kCannotCarry =
    "the tags could not be carried over to the normalised recording";

bool WriteAllAt(int fd, const std::string& bytes, off_t offset) {
  std::size_t written = 0;
  while (written < bytes.size()) {
    const ssize_t n = pwrite(fd, bytes.data() + written, bytes.size() - written,
                             offset + static_cast<off_t>(written));
    if (n <= 0) return false;
    written += static_cast<std::size_t>(n);
  }
  return true;
}

}  // namespace

std::string CarryInfoList(platform::BinaryFileOpener& files, const std::string& original,
                          const std::string& normalised) {
  std::optional<std::string> list;
  if (auto file = files.OpenForReading(original)) {
    RiffReader reader(*file);
    if (!reader.FindInfoList()) return {};  // no tags to keep
    list = reader.InfoListBytes();
  }
  if (!list) return kCannotCarry;
  if (auto file = files.OpenForReading(normalised)) {
    RiffReader reader(*file);
    if (reader.FindInfoList()) return {};  // the normaliser kept the tags itself
  }

  const int fd = open(normalised.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW);
  if (fd < 0) return kCannotCarry;
  struct stat info {};
  char header[12] = {};
  bool done = fstat(fd, &info) == 0 && pread(fd, header, sizeof header, 0) == sizeof header &&
              std::string_view(header, 4) == "RIFF" && std::string_view(header + 8, 4) == "WAVE";
  // The list goes right after the RIFF chunk's last byte, which must be the file's: a chunk
  // after the form would be read by nobody.
  const auto size = static_cast<std::uint64_t>(info.st_size);
  const std::uint64_t riff_size = LittleEndian(std::string_view(header + 4, 4), 4);
  const std::string pad = size & 1 ? std::string(1, '\0') : std::string();
  const std::uint64_t new_size = size + pad.size() + list->size();
  done = done && (riff_size + 8 == size || riff_size + 9 == size) && new_size - 8 <= 0xFFFFFFFFu &&
         WriteAllAt(fd, pad + *list, static_cast<off_t>(size)) &&
         WriteAllAt(fd, LittleEndianBytes(new_size - 8, 4), 4) && fsync(fd) == 0;
  close(fd);
  return done ? std::string() : kCannotCarry;
}

}  // namespace wavforge::encode_tool
