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

// --- RegRead -------------------------------------------------------------------------------

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

// --- RegWrite ------------------------------------------------------------------------------

TEST(RegWriteTest, MissingSubkeyIsCreatedWithEmptyDefault) {
  FakeRegistry registry;
  EXPECT_TRUE(RegWrite(registry, kUser, "Software\\Microsoft\\Internet Explorer",
                       "Download Directory", "/srv/larkspur"s));
  EXPECT_EQ(registry.Get(kUser, "Software\\Microsoft\\Internet Explorer", ""), Text(""));
  EXPECT_EQ(registry.Get(kUser, "Software\\Microsoft\\Internet Explorer", "Download Directory"),
            Text("/srv/larkspur"));
}

TEST(RegWriteTest, ExistingKeyKeepsItsDefault) {
  FakeRegistry registry;
  registry.Put(kUser, "Software\\Test", "", Text("keep"));
  EXPECT_TRUE(RegWrite(registry, kUser, "software\\test", "Name", "value"s));
  EXPECT_EQ(registry.Get(kUser, "Software\\Test", ""), Text("keep"));
}

TEST(RegWriteTest, NumbersAreFourLittleEndianBytes) {
  FakeRegistry registry;
  for (const auto& [number, bytes] :
       {std::pair{std::int32_t{-2}, "\xfe\xff\xff\xff"s}, {0x12345678, "\x78\x56\x34\x12"s}}) {
    EXPECT_TRUE(RegWrite(registry, kUser, "Software\\Test", "Code", number));
    EXPECT_EQ(registry.Get(kUser, "Software\\Test", "Code"), (RegistryValue{4, bytes}));
  }
}

TEST(RegWriteTest, OnlyExactNamesAddressTheDefault) {
  for (const auto& [name, sets_default] :
       {std::pair{"*", true}, {"(Standard)", true}, {"(standard)", false}}) {
    FakeRegistry registry;
    EXPECT_TRUE(RegWrite(registry, kUser, "Software\\Test", name, "text"s));
    EXPECT_EQ(registry.Get(kUser, "Software\\Test", ""), Text(sets_default ? "text" : "")) << name;
    EXPECT_EQ(registry.Get(kUser, "Software\\Test", name).has_value(), !sets_default) << name;
  }
}

TEST(RegWriteTest, NumberAsDefaultValueIsRefused) {
  FakeRegistry registry;
  EXPECT_FALSE(RegWrite(registry, kUser, "Software\\Test", "*", 5));
  EXPECT_FALSE(registry.OpenKey(kUser, "Software", platform::RegistryAccess::kQuery));
}

TEST(RegWriteTest, ReadOnlyHiveRefusesAndCreatesNothing) {
  FakeRegistry registry;
  registry.Put(kMachine, "Software\\Existing", "Name", Text("old"));
  registry.SetReadOnly(kMachine);
  EXPECT_FALSE(RegWrite(registry, kMachine, "Software\\New", "Name", "new"s));
  EXPECT_FALSE(RegWrite(registry, kMachine, "Software\\Existing", "Name", "new"s));
  EXPECT_FALSE(registry.OpenKey(kMachine, "Software\\New", platform::RegistryAccess::kQuery));
  EXPECT_EQ(registry.Get(kMachine, "Software\\Existing", "Name"), Text("old"));
}

TEST(SaveSettingTest, WritesUnderTheProgramKeyOfItsHive) {
  FakeRegistry registry;
  EXPECT_TRUE(SaveAppSetting(registry, "Flags", "Code", "200"s));
  EXPECT_TRUE(SaveMachineSetting(registry, "", "Count", 3));
  EXPECT_EQ(registry.Get(kUser, kProgramKey + "\\Flags", "Code"), Text("200"));
  EXPECT_EQ(registry.Get(kMachine, kProgramKey, "Count"), (RegistryValue{4, "\x03\0\0\0"s}));
  EXPECT_EQ(registry.Get(kMachine, kProgramKey + "\\Flags", "Code"), std::nullopt);
  EXPECT_EQ(registry.Get(kUser, kProgramKey, "Count"), std::nullopt);
}

// --- The administrator test ----------------------------------------------------------------

TEST(HasMachineWriteAccessTest, TellsWhereTheMarkerLandedAndClearsIt) {
  const fakes::FakeClock clock({2024, 5, 17, 12, 34, 56});
  FakeRegistry writable;
  EXPECT_TRUE(HasMachineWriteAccess(writable, clock));
  EXPECT_EQ(writable.Get(kMachine, kProgramKey, ""), Text(""));
  FakeRegistry redirected;
  redirected.RedirectMachineWrites();
  EXPECT_FALSE(HasMachineWriteAccess(redirected, clock));
  EXPECT_EQ(redirected.Get(kClasses, kVirtualProgramKey, ""), Text(""));
  FakeRegistry refused;
  refused.SetReadOnly(kMachine);
  EXPECT_FALSE(HasMachineWriteAccess(refused, clock));
}

TEST(HasMachineWriteAccessTest, StaleVirtualCopyDoesNotHideRealAccess) {
  // An earlier run without rights left an empty default in the virtual store.
  FakeRegistry registry;
  registry.Put(kClasses, kVirtualProgramKey, "", Text(""));
  EXPECT_TRUE(HasMachineWriteAccess(registry, fakes::FakeClock({2024, 5, 17, 0, 0, 0})));
}

}  // namespace
}  // namespace wavforge
