#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace wavforge::cli {

// What a following job shows while it runs: "[3/20 done] encoding take04, take05; 0:05
// elapsed, about 0:20 left". Names are left out from the end, with "...", so the line fits in
// width characters (0: any width).
std::string ProgressLine(std::size_t done, std::size_t total,
                         const std::vector<std::string>& encoding, std::chrono::seconds elapsed,
                         std::optional<std::chrono::seconds> left, std::size_t width);

// The time still needed at the pace so far, weighing each file by how long it plays (by its
// count where that is not known); nothing before the first file is done.
std::optional<std::chrono::seconds> TimeLeft(std::chrono::duration<double> elapsed,
                                             double done_weight, double total_weight);

}  // namespace wavforge::cli
