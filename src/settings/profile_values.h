#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/profile_reader.h"

// Profile reads with the limits of the buffers the program hands the profile reader: a text
// comes back cut to the buffer, a number is the integer at the start of the value, and name
// lists are cut like a NUL-separated list in a buffer of that size.
namespace wavforge {

// Buffer of a single setting text: at most 254 characters of value.
inline constexpr std::size_t kSettingTextCapacity = 255;
// Buffer of the fix file's parameter lists: at most 1,023 characters.
inline constexpr std::size_t kParameterListCapacity = 1024;
// Buffer of the language and navigation files, for name lists and values alike.
inline constexpr std::size_t kLargeProfileBufferCapacity = 32767;

// The value of the key (or default_text when the file, section or key is missing), cut at its
// first NUL and then to capacity - 1 characters; a capacity of 0 gives the empty text.
std::string GetProfileText(const platform::ProfileReader& reader, const std::string& file,
                           const std::string& section, const std::string& key,
                           const std::string& default_text, std::size_t capacity);

// The decimal integer at the start of the value: optional blanks, an optional sign, digits.
// A missing key or an empty value gives default_number; a value that does not start with a
// number gives 0; a number beyond the 64-bit range saturates. "0x" is not read as hexadecimal.
std::int64_t GetProfileNumber(const platform::ProfileReader& reader, const std::string& file,
                              const std::string& section, const std::string& key,
                              std::int64_t default_number);

// Named sections of the file in file order, as they come out of a buffer of that capacity:
// when the NUL-separated list does not fit, the last name that starts in the buffer is cut
// and the ones after it are lost. Empty pieces are dropped.
std::vector<std::string> GetProfileSectionNames(const platform::ProfileReader& reader,
                                                const std::string& file, std::size_t capacity);

// Key names of the section in file order (duplicates included), cut the same way.
std::vector<std::string> GetProfileKeyNames(const platform::ProfileReader& reader,
                                            const std::string& file, const std::string& section,
                                            std::size_t capacity);

// Splits at every separator without trimming: "a;;b;" gives "a", "", "b", ""; the empty text
// gives no entries.
std::vector<std::string> SplitList(std::string_view text, char separator);

}  // namespace wavforge
