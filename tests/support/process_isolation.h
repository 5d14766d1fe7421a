#pragma once

#include <filesystem>

namespace testing_support {

// Gives the whole test process a private home, XDG folders, runtime folder and temporary
// folder below a fresh folder, so even a test that forgets the fixture cannot touch the real
// ones. Returns that folder; the caller removes it at the end.
std::filesystem::path IsolateProcess();

}  // namespace testing_support
