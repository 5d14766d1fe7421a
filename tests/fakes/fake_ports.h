#pragma once

#include "fakes/fake_clock.h"
#include "fakes/fake_environment.h"
#include "fakes/fake_file_system.h"
#include "fakes/fake_processes.h"
#include "fakes/fake_registry.h"
#include "fakes/fake_window_search.h"
#include "fakes/memory_binary_files.h"
#include "fakes/memory_profile_reader.h"
#include "platform/ports.h"

namespace fakes {

// A fake of every port, wired into one Ports, for tests of whole features. Derive a fixture
// from it to reach each fake by its name.
struct FakePorts {
  FakeEnvironment environment;
  FakeFileSystem files;
  MemoryProfileReader profiles;
  FakeRegistry registry;
  FakeClock clock{{2026, 11, 19, 14, 5, 10}};
  MemoryBinaryFiles binary_files;
  FakeProcesses processes;
  FakeWindowSearch windows;
  platform::Ports ports{environment, files,        profiles,  registry,
                        clock,       binary_files, processes, windows};
};

}  // namespace fakes
