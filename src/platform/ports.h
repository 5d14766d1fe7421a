#pragma once

#include "platform/binary_file.h"
#include "platform/clock.h"
#include "platform/environment.h"
#include "platform/file_system.h"
#include "platform/processes.h"
#include "platform/profile_reader.h"
#include "platform/registry.h"
#include "platform/window_search.h"

namespace platform {

// The services a front end hands to the core. The front end owns the objects.
struct Ports {
  Environment& environment;
  FileSystem& files;
  ProfileReader& profiles;
  Registry& registry;
  Clock& clock;
  BinaryFileOpener& binary_files;
  Processes& processes;
  WindowSearch& windows;
};

}  // namespace platform
