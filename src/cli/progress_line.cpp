#include "cli/progress_line.h"

#include <cmath>
#include <cstdio>

namespace wavforge::cli {
namespace {

std::string Clock(std::chrono::seconds time) {
  const long long total = time.count();
  char text[32];
  if (total >= 3600) {
    std::snprintf(text, sizeof text, "%lld:%02lld:%02lld", total / 3600, total / 60 % 60,
                  total % 60);
  } else {
    std::snprintf(text, sizeof text, "%lld:%02lld", total / 60, total % 60);
  }
  return text;
}

}  // namespace

std::string ProgressLine(std::size_t done, std::size_t total,
                         const std::vector<std::string>& encoding, std::chrono::seconds elapsed,
                         std::optional<std::chrono::seconds> left, std::size_t width) {
  const std::string head = "[" + std::to_string(done) + "/" + std::to_string(total) + " done]";
  const std::string tail = "; " + Clock(elapsed) + " elapsed, " +
                           (left ? "about " + Clock(*left) + " left" : "time left not known yet");
  std::string names;
  for (std::size_t i = 0; i < encoding.size(); ++i) {
    const std::string next = (i == 0 ? " encoding " : ", ") + encoding[i];
    const bool last = i + 1 == encoding.size();
    if (width != 0 &&
        head.size() + names.size() + next.size() + (last ? 0 : 5) + tail.size() > width) {
      names += i == 0 ? " encoding ..." : ", ...";
      break;
    }
    names += next;
  }
  return head + names + tail;
}

std::optional<std::chrono::seconds> TimeLeft(std::chrono::duration<double> elapsed,
                                             double done_weight, double total_weight) {
  if (done_weight <= 0) return std::nullopt;
  const double left = elapsed.count() * (total_weight - done_weight) / done_weight;
  return std::chrono::seconds(static_cast<long long>(std::ceil(std::max(left, 0.0))));
}

}  // namespace wavforge::cli
