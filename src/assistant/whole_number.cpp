#include "assistant/whole_number.h"

#include <cfenv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

namespace wavforge {

std::optional<std::int32_t> WholeNumber(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return std::nullopt;
  const std::string trimmed(text.substr(first, text.find_last_not_of(" \t") - first + 1));
  // Only decimal numbers: no hexadecimal, infinity or not-a-number spellings.
  if (trimmed.find_first_not_of("0123456789+-.eE") != std::string::npos) return std::nullopt;
  char* end = nullptr;
  const double value = std::strtod(trimmed.c_str(), &end);
  if (end != trimmed.c_str() + trimmed.size() || !std::isfinite(value)) return std::nullopt;
  const double rounded = std::nearbyint(value);  // the default rounding: halves to even
  if (rounded < std::numeric_limits<std::int32_t>::min() ||
      rounded > std::numeric_limits<std::int32_t>::max()) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(rounded);
}

}  // namespace wavforge
