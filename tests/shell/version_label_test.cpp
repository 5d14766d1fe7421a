#include "shell/version_label.h"

#include <gtest/gtest.h>

#include <utility>

namespace wavforge {
namespace {

TEST(VersionLabelTest, ShowsThreeNumbersWithoutLeadingZeros) {
  const std::pair<const char*, const char*> cases[] = {
      {"2.04.0069", "2.4.69"}, {"10.20.300.7", "10.20.300"}, {"3", "3.0.0"},
      {"1.2", "1.2.0"},        {"1.2.3-rc1", "1.2.3"},       {"", "0.0.0"},
  };
  for (const auto& [dotted, label] : cases) EXPECT_EQ(VersionLabel(dotted), label) << dotted;
}

}  // namespace
}  // namespace wavforge
