#pragma once

#include <functional>
#include <string>

namespace wavforge::encode_tool {

// Runs work in a process of its own, in a session of its own, so that this tool can return to
// the job script at once and the work still ends when the script, its terminal or the window
// that started it are gone. Until the work is done that process publishes title as its
// console title, the way the job's interpreter does, so the job still counts as running; the
// title is in place before this returns. That process runs wait_turn first and lets this
// return only after it, so a caller can be held until the work may begin; the work starts
// right after. False when no such process could be started: nothing has run then.
bool RunInBackground(const std::string& title, const std::function<void()>& wait_turn,
                     const std::function<void()>& work);

}  // namespace wavforge::encode_tool
