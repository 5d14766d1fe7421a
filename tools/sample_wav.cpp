#include "tools/sample_wav.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <numbers>
#include <vector>

namespace wavforge::tools {
namespace {

constexpr std::uint16_t kBitsPerSample = 16;
constexpr std::uint16_t kPcm = 1;
constexpr std::uint32_t kFormatChunkSize = 16;
constexpr std::uint64_t kLargestRiffSize = 0xFFFFFFFFull;
// Half of full scale: loud enough to hear, far from clipping.
constexpr double kAmplitude = 0.5 * 32767.0;
constexpr std::size_t kFramesPerWrite = 4096;

void AppendLe(std::string& bytes, std::uint64_t value, int size) {
  for (int i = 0; i < size; ++i) bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
}

void AppendChunkHeader(std::string& bytes, const char* id, std::uint64_t size) {
  bytes.append(id, 4);
  AppendLe(bytes, size, 4);
}

std::uint32_t BlockAlign(const SampleWav& sample) {
  return sample.channels * (kBitsPerSample / 8u);
}

// The RIFF size field: the form type, the format chunk, the data chunk and the list.
std::uint64_t RiffSize(const SampleWav& sample) {
  return 4 + (8 + kFormatChunkSize) + (8 + DataSize(sample)) + InfoListBytes(sample.tags).size();
}

std::error_code LastError() {
  return {errno, std::generic_category()};
}

std::error_code WriteAll(int fd, const char* data, std::size_t size) {
  while (size > 0) {
    const ssize_t n = write(fd, data, size);
    if (n < 0) {
      if (errno == EINTR) continue;
      return LastError();
    }
    data += n;
    size -= static_cast<std::size_t>(n);
  }
  return {};
}

std::error_code WriteSine(int fd, const SampleWav& sample) {
  const std::uint64_t frames = DataSize(sample) / BlockAlign(sample);
  const double step = 2.0 * std::numbers::pi * sample.frequency / sample.rate;
  std::string block;
  for (std::uint64_t frame = 0; frame < frames;) {
    block.clear();
    const std::uint64_t end = std::min<std::uint64_t>(frames, frame + kFramesPerWrite);
    for (; frame < end; ++frame) {
      // The phase from the frame number, so long files do not drift.
      const auto value = static_cast<std::int16_t>(
          std::lround(kAmplitude * std::sin(step * static_cast<double>(frame))));
      for (std::uint16_t c = 0; c < sample.channels; ++c) {
        AppendLe(block, static_cast<std::uint16_t>(value), 2);
      }
    }
    if (const auto error = WriteAll(fd, block.data(), block.size())) return error;
  }
  return {};
}

std::optional<std::string> TagError(const std::optional<std::string>& text, const char* option) {
  if (text && text->find('\0') != std::string::npos) {
    return std::string(option) + " must not contain a NUL character";
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::string> ValidationError(const SampleWav& sample) {
  if (sample.channels < 1 || sample.channels > 8) return "--channels must be from 1 to 8";
  if (sample.rate < 8000 || sample.rate > 192000) return "--rate must be from 8000 to 192000";
  if (!std::isfinite(sample.frequency) || sample.frequency <= 0 ||
      sample.frequency > sample.rate / 2.0) {
    return "--frequency must be above 0 and at most half the rate";
  }
  if (sample.sparse_data_bytes) {
    if (*sample.sparse_data_bytes == 0 || *sample.sparse_data_bytes % BlockAlign(sample) != 0) {
      return "--sparse-data must be a positive multiple of " + std::to_string(BlockAlign(sample)) +
             " bytes (one frame)";
    }
  } else if (!std::isfinite(sample.seconds) || sample.seconds <= 0 ||
             sample.seconds * sample.rate * BlockAlign(sample) > double(kLargestRiffSize)) {
    return "--seconds must be above 0 and leave the file under 4 GiB";
  }
  for (const auto& [text, option] :
       {std::pair{&sample.tags.genre, "--genre"}, std::pair{&sample.tags.artist, "--artist"},
        std::pair{&sample.tags.album, "--album"}, std::pair{&sample.tags.title, "--title"}}) {
    if (auto error = TagError(*text, option)) return error;
  }
  if (RiffSize(sample) > kLargestRiffSize) return "the file would not fit the 4 GiB RIFF limit";
  return std::nullopt;
}

std::uint64_t DataSize(const SampleWav& sample) {
  if (sample.sparse_data_bytes) return *sample.sparse_data_bytes;
  const auto frames = static_cast<std::uint64_t>(std::llround(sample.seconds * sample.rate));
  return frames * BlockAlign(sample);
}

std::string HeaderBytes(const SampleWav& sample) {
  std::string bytes;
  AppendChunkHeader(bytes, "RIFF", RiffSize(sample));
  bytes += "WAVE";
  AppendChunkHeader(bytes, "fmt ", kFormatChunkSize);
  AppendLe(bytes, kPcm, 2);
  AppendLe(bytes, sample.channels, 2);
  AppendLe(bytes, sample.rate, 4);
  AppendLe(bytes, std::uint64_t{sample.rate} * BlockAlign(sample), 4);
  AppendLe(bytes, BlockAlign(sample), 2);
  AppendLe(bytes, kBitsPerSample, 2);
  AppendChunkHeader(bytes, "data", DataSize(sample));
  return bytes;
}

std::string InfoListBytes(const SampleTags& tags) {
  std::string body;
  for (const auto& [id, text] : {std::pair{"IGNR", &tags.genre}, std::pair{"IART", &tags.artist},
                                 std::pair{"IALB", &tags.album}, std::pair{"INAM", &tags.title}}) {
    if (!*text) continue;
    const std::string data = **text + '\0';
    AppendChunkHeader(body, id, data.size());
    body += data;
    if (data.size() % 2 != 0) body += '\0';
  }
  if (body.empty()) return {};
  std::string list;
  AppendChunkHeader(list, "LIST", 4 + body.size());
  list += "INFO";
  return list + body;
}

std::error_code WriteSampleWav(const std::string& path, const SampleWav& sample) {
  const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (fd < 0) return LastError();
  const std::string header = HeaderBytes(sample);
  const std::string list = InfoListBytes(sample.tags);
  std::error_code error = WriteAll(fd, header.data(), header.size());
  if (!error && sample.sparse_data_bytes) {
    // Growing the file leaves a hole: the audio is declared and reads as silence, yet takes
    // no disk space and no time to write.
    if (ftruncate(fd, static_cast<off_t>(header.size() + *sample.sparse_data_bytes)) != 0 ||
        lseek(fd, 0, SEEK_END) < 0) {
      error = LastError();
    }
  } else if (!error) {
    error = WriteSine(fd, sample);
  }
  if (!error) error = WriteAll(fd, list.data(), list.size());
  if (close(fd) != 0 && !error) error = LastError();
  return error;
}

}  // namespace wavforge::tools
