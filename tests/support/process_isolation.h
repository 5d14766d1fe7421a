#pragma once

#include <filesystem>
#include <string>

namespace testing_support {

// The variables that lead the program to a user's folders, in the order they are set.
extern const char* const kIsolatedVariables[17];

// Points HOME, the XDG folders, the runtime folder and TMPDIR of this process into root
// (home/, tmp/, usr-share/, etc-xdg/, run/), making the folders, and unsets the variables
// that could still lead to the user's own folders.
void PointEnvironmentAt(const std::filesystem::path& root);

// A fresh folder "<prefix>XXXXXX" below the current temporary folder with the environment
// pointed at it, so even a test or benchmark that forgets the fixture cannot touch the real
// home. The caller removes the folder at the end.
std::filesystem::path IsolateProcess(const std::string& prefix = "wavforge-tests-");

}  // namespace testing_support
