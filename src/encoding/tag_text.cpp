#include "encoding/tag_text.h"

#include <array>
#include <cstdint>

namespace wavforge {
namespace {

// Code points of the bytes 0x80..0x9F in Windows-1252. The five bytes the code page leaves
// undefined keep their own value, as the Windows conversion does.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80-87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88-8F
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90-97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98-9F
};

bool IsContinuation(unsigned char byte) {
  return (byte & 0xC0) == 0x80;
}

// Strict UTF-8: no overlong forms, no surrogates, nothing above U+10FFFF.
bool IsValidUtf8(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size()) {
    const auto lead = static_cast<unsigned char>(text[i]);
    std::size_t length = 0;
    unsigned char low = 0x80;
    unsigned char high = 0xBF;
    if (lead < 0x80) {
      ++i;
      continue;
    } else if (lead >= 0xC2 && lead <= 0xDF) {
      length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
      length = 3;
      if (lead == 0xE0) low = 0xA0;
      if (lead == 0xED) high = 0x9F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
      length = 4;
      if (lead == 0xF0) low = 0x90;
      if (lead == 0xF4) high = 0x8F;
    } else {
      return false;
    }
    if (text.size() - i < length) return false;
    const auto second = static_cast<unsigned char>(text[i + 1]);
    if (second < low || second > high) return false;
    for (std::size_t k = 2; k < length; ++k) {
      if (!IsContinuation(static_cast<unsigned char>(text[i + k]))) return false;
    }
    i += length;
  }
  return true;
}

void AppendUtf8(std::string& out, char32_t code) {
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0 | (code >> 6));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (code >> 12));
    out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  }
}

}  // namespace

std::string DecodeTagText(std::string_view raw) {
  const std::string_view text = raw.substr(0, raw.find('\0'));
  if (IsValidUtf8(text)) return std::string(text);
  std::string out;
  out.reserve(text.size() * 2);
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    AppendUtf8(out, byte >= 0x80 && byte < 0xA0 ? kHighControls[byte - 0x80] : char32_t{byte});
  }
  return out;
}

}  // namespace wavforge
