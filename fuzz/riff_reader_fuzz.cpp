// Feeds arbitrary bytes as a WAV file to the tag reader: it must neither crash nor hang, and
// every text it stores must be UTF-8 without NUL characters.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "encoding/read_wav_tags.h"
#include "fakes/memory_binary_files.h"

namespace {

bool IsUtf8WithoutNul(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size()) {
    const auto lead = static_cast<unsigned char>(text[i]);
    if (lead == 0) return false;
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (lead >= 0x80 && (lead < 0xC2 || lead > 0xF4)) return false;
    if (text.size() - i < length) return false;
    for (std::size_t k = 1; k < length; ++k) {
      if ((static_cast<unsigned char>(text[i + k]) & 0xC0) != 0x80) return false;
    }
    i += length;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fakes::MemoryBinaryFiles files;
  files.Add("/fuzz.wav", std::string(reinterpret_cast<const char*>(data), size));
  std::string genre, artist, album, title;
  wavforge::ReadWavTags(files, "/fuzz.wav", {"IGNR", "IART", "IALB", "INAM"},
                        {&genre, &artist, &album, &title});
  for (const std::string* text : {&genre, &artist, &album, &title}) {
    if (!IsUtf8WithoutNul(*text)) std::abort();
  }
  if (files.open_files() != 0) std::abort();
  return 0;
}
