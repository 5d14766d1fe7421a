#include "settings/registry_access.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "fakes/fake_registry.h"

namespace wavforge {
namespace {

using namespace std::string_literals;
using fakes::FakeRegistry;
using platform::RegistryRoot;
using platform::RegistryValue;

constexpr auto kUser = RegistryRoot::kCurrentUser;
constexpr auto kMachine = RegistryRoot::kLocalMachine;
constexpr auto kClasses = RegistryRoot::kClassesRoot;

// Written out by hand rather than built by the code under test.
const std::string kProgramKey = "Software\\Larkspur Audio\\Larkspur";
const std::string kVirtualProgramKey = "VirtualStore\\MACHINE\\Software\\Larkspur Audio\\Larkspur";

RegistryValue Text(const std::string& text) {
  return {1, text + '\0'};
}

class FixedClock final : public platform::Clock {
 public:
  explicit FixedClock(platform::LocalTime now) : now_(now) {}
  platform::LocalTime Now() const override { return now_; }

 private:
  platform::LocalTime now_;
};

// --- RegRead of ordinary values -----------------------------------------------------------

enum class Stored { kNoKey, kKeyOnly, kValue };

struct ReadCase {
  const char* description;
  Stored stored;
  RegistryValue value;  // stored as "Temp" of HKEY_CURRENT_USER "Environment" when kValue
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
  if (c.stored == Stored::kKeyOnly) registry.Put(kUser, "Environment", "Tmp", Text("elsewhere"));
  if (c.stored == Stored::kValue) registry.Put(kUser, "Environment", "Temp", c.value);
  EXPECT_EQ(RegRead(registry, kUser, "Environment", "Temp", c.default_value), c.expected)
      << c.description;
}

INSTANTIATE_TEST_SUITE_P(
    Types, RegReadTest,
    ::testing::Values(
        ReadCase{"missing key", Stored::kNoKey, {}, "%Temp%"s, "%Temp%"s},
        ReadCase{"missing value", Stored::kKeyOnly, {}, "%Temp%"s, "%Temp%"s},
        ReadCase{"missing value keeps a number default", Stored::kKeyOnly, {}, 7, 7},
        ReadCase{"text", Stored::kValue, {1, "C:\\Temp\0"s}, "%Temp%"s, "C:\\Temp"s},
        ReadCase{"text without its NUL", Stored::kValue, {1, "abc"s}, ""s, "abc"s},
        ReadCase{"text cut at its first NUL", Stored::kValue, {1, "ab\0cd\0"s}, ""s, "ab"s},
        ReadCase{"empty text", Stored::kValue, {1, "\0"s}, "%Temp%"s, ""s},
        ReadCase{"expandable text stays unexpanded",
                 Stored::kValue,
                 {2, "%USERPROFILE%\\Temp\0"s},
                 ""s,
                 "%USERPROFILE%\\Temp"s},
        ReadCase{"multi-string gives its first string",
                 Stored::kValue,
                 {7, "first\0second\0\0"s},
                 ""s,
                 "first"s},
        ReadCase{"text type with a number default", Stored::kValue, {1, "12\0"s}, 0, "12"s},
        ReadCase{"number", Stored::kValue, {4, "\x2a\0\0\0"s}, "%Temp%"s, 42},
        ReadCase{"negative number", Stored::kValue, {4, "\xfe\xff\xff\xff"s}, ""s, -2},
        ReadCase{"little-endian bytes", Stored::kValue, {4, "\x01\x02\x03\x04"s}, ""s, 0x04030201},
        ReadCase{"lowest number",
                 Stored::kValue,
                 {4, "\0\0\0\x80"s},
                 ""s,
                 std::numeric_limits<std::int32_t>::min()},
        ReadCase{"two bytes of binary", Stored::kValue, {3, "\x01\x02"s}, ""s, 0x0201},
        ReadCase{"empty binary", Stored::kValue, {3, ""s}, "%Temp%"s, 0},
        ReadCase{"untyped four bytes", Stored::kValue, {0, "\x05\0\0\0"s}, ""s, 5},
        ReadCase{"big-endian type is read as stored",
                 Stored::kValue,
                 {5, "\0\0\0\x01"s},
                 ""s,
                 0x01000000},
        ReadCase{"64-bit number is too long",
                 Stored::kValue,
                 {11, "\x01\0\0\0\0\0\0\0"s},
                 "%Temp%"s,
                 "%Temp%"s},
        ReadCase{"five bytes of binary are too long",
                 Stored::kValue,
                 {3, "\x01\x02\x03\x04\x05"s},
                 9,
                 9}));

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
  EXPECT_EQ(RegRead(registry, kUser, "Software\\Test", c.name, "fallback"s), c.expected)
      << c.description;
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
        DefaultReadCase{
            "ordinary name that is missing", Text("unnamed"), {}, "(STANDARD)", "fallback"s},
        DefaultReadCase{"(Standard) beside a value named (standard)", Text("unnamed"),
                        Text("named"), "(Standard)", "unnamed"s},
        DefaultReadCase{"missing key", {}, {}, "*", "fallback"s},
        DefaultReadCase{"key without a default value reads empty", {}, Text("named"), "*", ""s},
        DefaultReadCase{"254 characters fit", Text(k254), {}, "*", k254},
        DefaultReadCase{"255 characters do not", Text(k255), {}, "(Standard)", "fallback"s},
        DefaultReadCase{"255 characters through the empty name", Text(k255), {}, "", k255},
        DefaultReadCase{"cut at the first NUL", RegistryValue{1, "ab\0cd\0"s}, {}, "*", "ab"s},
        DefaultReadCase{"expandable default", RegistryValue{2, "%Temp%\0"s}, {}, "*", "%Temp%"s}));

// --- RegWrite ------------------------------------------------------------------------------

TEST(RegWriteTest, MissingSubkeyIsCreatedWithEmptyDefault) {
  FakeRegistry registry;
  EXPECT_TRUE(RegWrite(registry, kUser, "Software\\Microsoft\\Internet Explorer",
                       "Download Directory", "/srv/larkspur/wavforge"s));
  EXPECT_TRUE(registry.HasKey(kUser, "Software\\Microsoft"));
  EXPECT_EQ(registry.Get(kUser, "Software\\Microsoft\\Internet Explorer", ""), Text(""));
  EXPECT_EQ(registry.Get(kUser, "Software\\Microsoft\\Internet Explorer", "Download Directory"),
            Text("/srv/larkspur/wavforge"));
}

TEST(RegWriteTest, ExistingKeyKeepsItsDefault) {
  FakeRegistry registry;
  registry.Put(kUser, "Software\\Test", "", Text("keep"));
  EXPECT_TRUE(RegWrite(registry, kUser, "software\\test", "Name", "value"s));
  EXPECT_EQ(registry.Get(kUser, "Software\\Test", ""), Text("keep"));
  ASSERT_EQ(registry.writes().size(), 1u);
  EXPECT_EQ(registry.writes()[0].name, "Name");
}

struct NumberCase {
  std::int32_t number;
  std::string bytes;
};

void PrintTo(const NumberCase& c, std::ostream* out) {
  *out << c.number;
}

class RegWriteNumberTest : public ::testing::TestWithParam<NumberCase> {};

TEST_P(RegWriteNumberTest, StoresFourLittleEndianBytes) {
  FakeRegistry registry;
  EXPECT_TRUE(RegWrite(registry, kUser, "Software\\Test", "Code", GetParam().number));
  EXPECT_EQ(registry.Get(kUser, "Software\\Test", "Code"), (RegistryValue{4, GetParam().bytes}));
  EXPECT_EQ(RegRead(registry, kUser, "Software\\Test", "Code", ""s),
            RegistryData(GetParam().number));
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, RegWriteNumberTest,
    ::testing::Values(NumberCase{0, "\0\0\0\0"s}, NumberCase{42, "\x2a\0\0\0"s},
                      NumberCase{-2, "\xfe\xff\xff\xff"s},
                      NumberCase{0x12345678, "\x78\x56\x34\x12"s},
                      NumberCase{std::numeric_limits<std::int32_t>::min(), "\0\0\0\x80"s}));

class RegWriteTextTest : public ::testing::TestWithParam<std::string> {};

TEST_P(RegWriteTextTest, ReadsBackTheSameText) {
  FakeRegistry registry;
  EXPECT_TRUE(RegWrite(registry, kUser, "Software\\Test", "Name", GetParam()));
  EXPECT_EQ(registry.Get(kUser, "Software\\Test", "Name"), Text(GetParam()));
  EXPECT_EQ(RegRead(registry, kUser, "Software\\Test", "Name", 0), RegistryData(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Texts, RegWriteTextTest,
                         ::testing::Values("", "20240131", "C:\\Program Files\\Larkspur", "%Temp%",
                                           std::string(300, 'z')));

struct DefaultWriteCase {
  std::string name;
  bool sets_default;
};

void PrintTo(const DefaultWriteCase& c, std::ostream* out) {
  *out << c.name;
}

class RegWriteDefaultTest : public ::testing::TestWithParam<DefaultWriteCase> {};

TEST_P(RegWriteDefaultTest, OnlyExactNamesAddressTheDefault) {
  FakeRegistry registry;
  EXPECT_TRUE(RegWrite(registry, kUser, "Software\\Test", GetParam().name, "text"s));
  EXPECT_TRUE(registry.HasKey(kUser, "Software\\Test"));
  if (GetParam().sets_default) {
    EXPECT_EQ(registry.Get(kUser, "Software\\Test", ""), Text("text"));
    EXPECT_EQ(registry.Get(kUser, "Software\\Test", GetParam().name), std::nullopt);
  } else {
    EXPECT_EQ(registry.Get(kUser, "Software\\Test", ""), Text(""));
    EXPECT_EQ(registry.Get(kUser, "Software\\Test", GetParam().name), Text("text"));
  }
}

INSTANTIATE_TEST_SUITE_P(Names, RegWriteDefaultTest,
                         ::testing::Values(DefaultWriteCase{"*", true},
                                           DefaultWriteCase{"(Standard)", true},
                                           DefaultWriteCase{"(standard)", false},
                                           DefaultWriteCase{"(STANDARD)", false},
                                           DefaultWriteCase{"**", false}));

TEST(RegWriteTest, NumberAsDefaultValueIsRefused) {
  FakeRegistry registry;
  EXPECT_FALSE(RegWrite(registry, kUser, "Software\\Test", "*", 5));
  EXPECT_FALSE(RegWrite(registry, kUser, "Software\\Test", "(Standard)", 5));
  EXPECT_EQ(registry.KeyCount(kUser), 0u);
}

TEST(RegWriteTest, ReadOnlyHiveRefusesAndCreatesNothing) {
  FakeRegistry registry;
  registry.Put(kMachine, "Software\\Existing", "Name", Text("old"));
  registry.SetReadOnly(kMachine);
  EXPECT_FALSE(RegWrite(registry, kMachine, "Software\\New", "Name", "new"s));
  EXPECT_FALSE(RegWrite(registry, kMachine, "Software\\Existing", "Name", "new"s));
  EXPECT_FALSE(RegWrite(registry, kMachine, "Software\\Existing", "*", "new"s));
  EXPECT_FALSE(registry.HasKey(kMachine, "Software\\New"));
  EXPECT_EQ(registry.Get(kMachine, "Software\\Existing", "Name"), Text("old"));
  EXPECT_TRUE(registry.writes().empty());
}

TEST(RegWriteTest, PathWithEmptyPartFails) {
  FakeRegistry registry;
  EXPECT_FALSE(RegWrite(registry, kUser, "Software\\Test\\", "Name", "value"s));
  EXPECT_FALSE(RegWrite(registry, kUser, "Software\\\\Test", "Name", 1));
  EXPECT_EQ(registry.KeyCount(kUser), 0u);
}

// --- The program's own key -----------------------------------------------------------------

using SaveFunction = bool (*)(platform::Registry&, const std::string&, const std::string&,
                              const RegistryData&);

struct SaveCase {
  SaveFunction save;
  RegistryRoot root;
  RegistryRoot other_root;
  std::string section;
  std::string key;
};

void PrintTo(const SaveCase& c, std::ostream* out) {
  *out << c.key;
}

class SaveSettingTest : public ::testing::TestWithParam<SaveCase> {};

TEST_P(SaveSettingTest, WritesUnderTheProgramKey) {
  const SaveCase& c = GetParam();
  FakeRegistry registry;
  EXPECT_TRUE(c.save(registry, c.section, "Code", "200"s));
  EXPECT_TRUE(c.save(registry, c.section, "Count", 3));
  EXPECT_EQ(registry.Get(c.root, c.key, "Code"), Text("200"));
  EXPECT_EQ(registry.Get(c.root, c.key, "Count"), (RegistryValue{4, "\x03\0\0\0"s}));
  EXPECT_EQ(registry.KeyCount(c.other_root), 0u);
  for (const auto& write : registry.writes()) EXPECT_EQ(write.subkey, c.key);
}

INSTANTIATE_TEST_SUITE_P(
    Sections, SaveSettingTest,
    ::testing::Values(SaveCase{SaveAppSetting, kUser, kMachine, "Flags", kProgramKey + "\\Flags"},
                      SaveCase{SaveAppSetting, kUser, kMachine, "", kProgramKey},
                      SaveCase{SaveMachineSetting, kMachine, kUser, "Flags",
                               kProgramKey + "\\Flags"},
                      SaveCase{SaveMachineSetting, kMachine, kUser, "", kProgramKey}));

// --- The administrator test ----------------------------------------------------------------

enum class MachineHive { kWritable, kRedirected, kRefused };

struct AccessCase {
  MachineHive hive;
  platform::LocalTime now;
  std::string marker;
  bool expected;
};

void PrintTo(const AccessCase& c, std::ostream* out) {
  *out << "marker " << c.marker;
}

class HasMachineWriteAccessTest : public ::testing::TestWithParam<AccessCase> {};

TEST_P(HasMachineWriteAccessTest, TellsWhereTheMarkerLanded) {
  const AccessCase& c = GetParam();
  FakeRegistry registry;
  if (c.hive == MachineHive::kRedirected) registry.RedirectMachineWrites();
  if (c.hive == MachineHive::kRefused) registry.SetReadOnly(kMachine);
  const FixedClock clock(c.now);

  EXPECT_EQ(HasMachineWriteAccess(registry, clock), c.expected);

  if (c.hive == MachineHive::kRefused) {
    EXPECT_TRUE(registry.writes().empty());
    EXPECT_EQ(registry.KeyCount(kMachine), 0u);
    return;
  }
  // The marker went to the default value of the machine-wide key, then was cleared.
  ASSERT_EQ(registry.writes().size(), 2u);
  for (const auto& write : registry.writes()) {
    EXPECT_EQ(write.root, kMachine);
    EXPECT_EQ(write.subkey, kProgramKey);
    EXPECT_EQ(write.name, "");
  }
  EXPECT_EQ(registry.writes()[0].value, Text(c.marker));
  EXPECT_EQ(registry.writes()[1].value, Text(""));
  if (c.hive == MachineHive::kWritable) {
    EXPECT_EQ(registry.Get(kMachine, kProgramKey, ""), Text(""));
    EXPECT_EQ(registry.KeyCount(kClasses), 0u);
  } else {
    EXPECT_EQ(registry.Get(kClasses, kVirtualProgramKey, ""), Text(""));
    EXPECT_EQ(registry.KeyCount(kMachine), 0u);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Hives, HasMachineWriteAccessTest,
    ::testing::Values(AccessCase{MachineHive::kWritable, {2024, 5, 17, 12, 34, 56}, "45296", true},
                      AccessCase{MachineHive::kWritable, {2024, 5, 17, 0, 0, 0}, "0", true},
                      AccessCase{MachineHive::kWritable, {2024, 5, 17, 1, 0, 0}, "3600", true},
                      AccessCase{
                          MachineHive::kRedirected, {2024, 5, 17, 23, 59, 59}, "86399", false},
                      AccessCase{MachineHive::kRedirected, {2024, 5, 17, 0, 0, 7}, "7", false},
                      AccessCase{MachineHive::kRefused, {2024, 5, 17, 12, 0, 0}, "43200", false}));

TEST(HasMachineWriteAccessTest, StaleVirtualCopyDoesNotHideRealAccess) {
  // An earlier run without rights left an empty default in the virtual store.
  FakeRegistry registry;
  registry.Put(kClasses, kVirtualProgramKey, "", Text(""));
  const FixedClock clock({2024, 5, 17, 8, 0, 0});
  EXPECT_TRUE(HasMachineWriteAccess(registry, clock));
  EXPECT_EQ(registry.Get(kMachine, kProgramKey, ""), Text(""));
}

}  // namespace
}  // namespace wavforge
