#include "settings/registry_access.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
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

// --- RegRead of ordinary values -----------------------------------------------------------

struct ReadCase {
  const char* description;
  std::optional<RegistryValue> value;  // "Temp" of HKEY_CURRENT_USER "Environment"
  RegistryData default_value;
  RegistryData expected;
};

void PrintTo(const ReadCase& c, std::ostream* out) {
  *out << c.description;
}

class RegReadTest : public ::testing::TestWithParam<ReadCase> {};

TEST_P(RegReadTest, ReadsByType) {
  const ReadCase& c = GetParam();
  FakeRegistry registry;
  registry.Put(kUser, "Environment", "Tmp", Text("elsewhere"));
  if (c.value) registry.Put(kUser, "Environment", "Temp", *c.value);
  EXPECT_EQ(RegRead(registry, kUser, "Environment", "Temp", c.default_value), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Types, RegReadTest,
    ::testing::Values(
        ReadCase{"missing value", {}, "%Temp%"s, "%Temp%"s},
        ReadCase{"text", RegistryValue{1, "C:\\Temp\0"s}, "%Temp%"s, "C:\\Temp"s},
        ReadCase{"text without its NUL", RegistryValue{1, "abc"s}, ""s, "abc"s},
        ReadCase{"text cut at its first NUL", RegistryValue{1, "ab\0cd\0"s}, ""s, "ab"s},
        ReadCase{"expandable text stays unexpanded", RegistryValue{2, "%USERPROFILE%\\T\0"s}, ""s,
                 "%USERPROFILE%\\T"s},
        ReadCase{"multi-string gives its first string", RegistryValue{7, "one\0two\0\0"s}, ""s,
                 "one"s},
        ReadCase{"text type with a number default", RegistryValue{1, "12\0"s}, 0, "12"s},
        ReadCase{"negative number", RegistryValue{4, "\xfe\xff\xff\xff"s}, ""s, -2},
        ReadCase{"little-endian bytes", RegistryValue{4, "\x01\x02\x03\x04"s}, ""s, 0x04030201},
        ReadCase{"two bytes of binary", RegistryValue{3, "\xff\x01"s}, ""s, 0x01FF},
        ReadCase{"five bytes are too long", RegistryValue{3, "\x01\x02\x03\x04\x05"s}, 9, 9}));

// --- RegRead of the default value ---------------------------------------------------------

struct DefaultReadCase {
  const char* description;
  std::optional<RegistryValue> default_value;  // of "Software\Test"; nothing: key missing
  std::optional<RegistryValue> named;          // a value named "(standard)" of the same key
  std::string name;
  RegistryData expected;  // the default passed is always "fallback"
};

void PrintTo(const DefaultReadCase& c, std::ostream* out) {
  *out << c.description;
}

class RegReadDefaultTest : public ::testing::TestWithParam<DefaultReadCase> {};

TEST_P(RegReadDefaultTest, ReadsTheUnnamedValue) {
  const DefaultReadCase& c = GetParam();
  FakeRegistry registry;
  if (c.default_value) registry.Put(kUser, "Software\\Test", "", *c.default_value);
  if (c.named) registry.Put(kUser, "Software\\Test", "(standard)", *c.named);
  EXPECT_EQ(RegRead(registry, kUser, "Software\\Test", c.name, "fallback"s), c.expected);
}

const std::string k254(254, 'x');
const std::string k255(255, 'y');

INSTANTIATE_TEST_SUITE_P(
    Names, RegReadDefaultTest,
    ::testing::Values(
        DefaultReadCase{"star", Text("unnamed"), {}, "*", "unnamed"s},
        DefaultReadCase{"(Standard)", Text("unnamed"), {}, "(Standard)", "unnamed"s},
        DefaultReadCase{"other letter case is an ordinary name", Text("unnamed"), Text("named"),
                        "(standard)", "named"s},
        DefaultReadCase{"missing key", {}, {}, "*", "fallback"s},
        DefaultReadCase{"key without a default value reads empty", {}, Text("named"), "*", ""s},
        DefaultReadCase{"254 characters fit", Text(k254), {}, "*", k254},
        DefaultReadCase{"255 characters do not", Text(k255), {}, "(Standard)", "fallback"s},
        DefaultReadCase{"255 characters through the empty name", Text(k255), {}, "", k255},
        DefaultReadCase{"cut at the first NUL", RegistryValue{1, "ab\0cd\0"s}, {}, "*", "ab"s}));

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

enum class MachineHive { kWritable, kRedirected, kRefused };

class HasMachineWriteAccessTest : public ::testing::TestWithParam<std::pair<MachineHive, bool>> {};

TEST_P(HasMachineWriteAccessTest, TellsWhereTheMarkerLandedAndClearsIt) {
  const auto [hive, expected] = GetParam();
  FakeRegistry registry;
  if (hive == MachineHive::kRedirected) registry.RedirectMachineWrites();
  if (hive == MachineHive::kRefused) registry.SetReadOnly(kMachine);
  EXPECT_EQ(HasMachineWriteAccess(registry, fakes::FakeClock({2024, 5, 17, 12, 34, 56})), expected);
  // The marker is cleared again where it landed.
  if (hive == MachineHive::kWritable) {
    EXPECT_EQ(registry.Get(kMachine, kProgramKey, ""), Text(""));
  } else if (hive == MachineHive::kRedirected) {
    EXPECT_EQ(registry.Get(kClasses, kVirtualProgramKey, ""), Text(""));
  }
}

INSTANTIATE_TEST_SUITE_P(Hives, HasMachineWriteAccessTest,
                         ::testing::Values(std::pair{MachineHive::kWritable, true},
                                           std::pair{MachineHive::kRedirected, false},
                                           std::pair{MachineHive::kRefused, false}));

TEST(HasMachineWriteAccessTest, StaleVirtualCopyDoesNotHideRealAccess) {
  // An earlier run without rights left an empty default in the virtual store.
  FakeRegistry registry;
  registry.Put(kClasses, kVirtualProgramKey, "", Text(""));
  EXPECT_TRUE(HasMachineWriteAccess(registry, fakes::FakeClock({2024, 5, 17, 0, 0, 0})));
}

}  // namespace
}  // namespace wavforge
