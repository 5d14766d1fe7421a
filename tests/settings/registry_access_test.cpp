#include "settings/registry_access.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <tuple>
#include <utility>

#include "fakes/fake_clock.h"
#include "fakes/fake_registry.h"

namespace wavforge {
namespace {

using namespace std::string_literals;
using fakes::FakeRegistry;
using platform::RegistryValue;

constexpr auto kUser = platform::RegistryRoot::kCurrentUser;
constexpr auto kMachine = platform::RegistryRoot::kLocalMachine;
constexpr auto kClasses = platform::RegistryRoot::kClassesRoot;

// Written out by hand rather than built by the code under test.
const std::string kProgramKey = "Software\\Larkspur Audio\\Larkspur";
const std::string kVirtualProgramKey = "VirtualStore\\MACHINE\\Software\\Larkspur Audio\\Larkspur";

RegistryValue Text(const std::string& text) {
  return {1, text + '\0'};
}

TEST(RegReadTest, ReadsByType) {
  // "Temp" of HKEY_CURRENT_USER "Environment", read with a default.
  const std::tuple<std::optional<RegistryValue>, RegistryData, RegistryData> cases[] = {
      {std::nullopt, "%Temp%"s, "%Temp%"s},
      {RegistryValue{1, "C:\\Temp\0"s}, "%Temp%"s, "C:\\Temp"s},
      {RegistryValue{1, "abc"s}, ""s, "abc"s},
      {RegistryValue{1, "ab\0cd\0"s}, ""s, "ab"s},
      {RegistryValue{2, "%USERPROFILE%\\T\0"s}, ""s, "%USERPROFILE%\\T"s},  // not expanded
      {RegistryValue{7, "one\0two\0\0"s}, ""s, "one"s},  // the first of a multi-string
      {RegistryValue{1, "12\0"s}, 0, "12"s},
      {RegistryValue{4, "\xfe\xff\xff\xff"s}, ""s, -2},
      {RegistryValue{4, "\x01\x02\x03\x04"s}, ""s, 0x04030201},
      {RegistryValue{3, "\xff\x01"s}, ""s, 0x01FF},
      {RegistryValue{3, "\x01\x02\x03\x04\x05"s}, 9, 9},  // too long for a number
  };
  for (const auto& [value, default_value, expected] : cases) {
    FakeRegistry registry;
    registry.Put(kUser, "Environment", "Tmp", Text("elsewhere"));
    if (value) registry.Put(kUser, "Environment", "Temp", *value);
    EXPECT_EQ(RegRead(registry, kUser, "Environment", "Temp", default_value), expected)
        << (value ? value->data : "(missing)");
  }
}

TEST(RegReadTest, ReadsTheDefaultValueByExactNamesOnly) {
  const std::string k254(254, 'x');
  const std::string k255(255, 'y');
  // The default value of "Software\Test" (nothing: key missing), and whether the key also
  // holds a value named "(standard)".
  const std::tuple<std::optional<RegistryValue>, bool, std::string, std::string> cases[] = {
      {Text("unnamed"), false, "*", "unnamed"},
      {Text("unnamed"), false, "(Standard)", "unnamed"},
      {Text("unnamed"), true, "(standard)", "named"},
      {std::nullopt, false, "*", "fallback"},
      {std::nullopt, true, "*", ""},  // a key without a default value reads empty
      {Text(k254), false, "*", k254},
      {Text(k255), false, "(Standard)", "fallback"},  // 255 characters do not fit
      {Text(k255), false, "", k255},                  // unless read by the empty name
      {RegistryValue{1, "ab\0cd\0"s}, false, "*", "ab"},
  };
  for (const auto& [default_value, named, name, expected] : cases) {
    FakeRegistry registry;
    if (default_value) registry.Put(kUser, "Software\\Test", "", *default_value);
    if (named) registry.Put(kUser, "Software\\Test", "(standard)", Text("named"));
    EXPECT_EQ(RegRead(registry, kUser, "Software\\Test", name, "fallback"s), RegistryData(expected))
        << name << " " << expected.size();
  }
}

TEST(HasMachineWriteAccessTest, TellsWhereTheMarkerLandedAndClearsIt) {
  const fakes::FakeClock clock({2024, 5, 17, 12, 34, 56});
  FakeRegistry writable;
  EXPECT_TRUE(HasMachineWriteAccess(writable, clock));
  EXPECT_EQ(writable.Get(kMachine, kProgramKey, ""), Text(""));
  FakeRegistry redirected;
  redirected.RedirectMachineWrites();
  EXPECT_FALSE(HasMachineWriteAccess(redirected, clock));
  EXPECT_EQ(redirected.Get(kClasses, kVirtualProgramKey, ""), Text(""));
}

}  // namespace
}  // namespace wavforge
