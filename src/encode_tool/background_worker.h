#pragma once

#include <functional>
#include <string>

namespace wavforge::encode_tool {

// Runs work in a process of its own, in a session of its own, so that this tool can return to
// the job script at once and the work still ends when the script, its terminal or the window
// that started it are gone. Until the work is done that process publishes title as its
// console title, the way the job's interpreter does, so the job still counts as running; the
// title is in place before this returns. False when no such process could be started: the
// work has not run then.
bool RunInBackground(const std::string& title, const std::function<void()>& work);

}  // namespace wavforge::encode_tool
