#include "settings/encoders_at_a_time.h"

#include <cstdlib>
#include <thread>

#include "settings/profile_values.h"

namespace wavforge {

int EncodersAtATime(const platform::ProfileReader& profiles, const std::string& settings_file) {
  const std::string configured =
      GetProfileText(profiles, settings_file, "Options", "Encoders", "", kSettingTextCapacity);
  char* end = nullptr;
  const long number = std::strtol(configured.c_str(), &end, 10);
  if (end != configured.c_str() && number > 0)
    return number > 1024 ? 1024 : static_cast<int>(number);
  const unsigned cores = std::thread::hardware_concurrency();
  return cores > 0 ? static_cast<int>(cores) : 1;
}

}  // namespace wavforge
