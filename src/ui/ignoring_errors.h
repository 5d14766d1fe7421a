#pragma once

#include <exception>

namespace wavforge {

// A step of an event handler that may fail without stopping the handler: what it managed
// stays, and the next step runs.
template <typename Step>
void IgnoringErrors(Step step) {
  try {
    step();
  } catch (const std::exception&) {
  }
}

}  // namespace wavforge
