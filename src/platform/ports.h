#pragma once

#include "platform/clock.h"
#include "platform/environment.h"
#include "platform/file_system.h"
#include "platform/profile_reader.h"
#include "platform/registry.h"

namespace platform {

// The services a front end hands to the core. The front end owns the objects.
struct Ports {
  Environment& environment;
  FileSystem& files;
  ProfileReader& profiles;
  Registry& registry;
  Clock& clock;
};

}  // namespace platform
