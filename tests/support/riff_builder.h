#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Builds RIFF bytes for tests, including deliberately broken ones.
namespace testing_support {

inline std::string Le32(std::uint32_t value) {
  std::string bytes(4, '\0');
  for (int i = 0; i < 4; ++i) bytes[i] = static_cast<char>((value >> (8 * i)) & 0xFF);
  return bytes;
}

// A chunk header with any size field, followed by nothing.
inline std::string ChunkHeader(std::string_view id, std::uint32_t declared_size) {
  return std::string(id) + Le32(declared_size);
}

// A well-formed chunk: header, data, and the pad byte after odd-sized data.
inline std::string Chunk(std::string_view id, std::string_view data) {
  std::string bytes = ChunkHeader(id, static_cast<std::uint32_t>(data.size()));
  bytes += data;
  if (data.size() % 2 != 0) bytes += '\0';
  return bytes;
}

inline std::string ListChunk(std::string_view type, std::string_view body) {
  return Chunk("LIST", std::string(type) + std::string(body));
}

inline std::string RiffChunk(std::string_view form, std::string_view body) {
  return Chunk("RIFF", std::string(form) + std::string(body));
}

// An INFO list of text chunks, each written with its terminating NUL.
inline std::string InfoList(const std::vector<std::pair<std::string, std::string>>& texts) {
  std::string body;
  for (const auto& [id, text] : texts) body += Chunk(id, text + '\0');
  return ListChunk("INFO", body);
}

// The format chunk of 16-bit stereo PCM at 44.1 kHz.
inline std::string FormatChunk() {
  const std::string data = std::string("\x01\x00\x02\x00", 4) + Le32(44100) + Le32(176400) +
                           std::string("\x04\x00\x10\x00", 4);
  return Chunk("fmt ", data);
}

}  // namespace testing_support
