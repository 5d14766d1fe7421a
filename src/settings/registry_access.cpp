#include "settings/registry_access.h"

#include <charconv>
#include <optional>
#include <system_error>
#include <utility>

#include "settings/path_tools.h"
#include "settings/product.h"

namespace wavforge {
namespace {

using platform::RegistryAccess;
using platform::RegistryRoot;
using platform::RegistryType;
using platform::RegistryValue;

// The size of the buffer the default value is read into, its terminating NUL included.
constexpr std::size_t kDefaultValueBufferSize = 255;

bool NamesDefaultValue(const std::string& name) {
  return name == "*" || name == "(Standard)";
}

// The default value's text as the old single-buffer call gives it: a key without a default
// value reads as the empty text; one that does not fit the buffer is a failure.
std::optional<std::string> QueryDefaultText(platform::Registry& registry, RegistryRoot root,
                                            const std::string& subkey) {
  if (!registry.OpenKey(root, subkey, RegistryAccess::kQuery)) return std::nullopt;
  const auto value = registry.QueryValue(root, subkey, "");
  if (!value) return std::string();
  if (value->data.size() > kDefaultValueBufferSize) return std::nullopt;
  return TrimAtNul(value->data);
}

bool IsTextType(std::uint32_t type) {
  return type == static_cast<std::uint32_t>(RegistryType::kText) ||
         type == static_cast<std::uint32_t>(RegistryType::kExpandableText) ||
         type == static_cast<std::uint32_t>(RegistryType::kMultiText);
}

// Up to four little-endian bytes into a zero-initialised signed 32-bit number.
std::optional<std::int32_t> NumberFromBytes(const std::string& bytes) {
  if (bytes.size() > 4) return std::nullopt;
  std::uint32_t bits = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    bits |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
  }
  return static_cast<std::int32_t>(bits);
}

std::string NumberBytes(std::int32_t number) {
  const auto bits = static_cast<std::uint32_t>(number);
  std::string bytes(4, '\0');
  for (std::size_t i = 0; i < 4; ++i) bytes[i] = static_cast<char>((bits >> (8 * i)) & 0xFF);
  return bytes;
}

// The seconds since midnight in the shortest text that reads back as the same
// single-precision number; whole seconds below 86,400 print as plain integers ("45296").
std::string SecondsSinceMidnightText(const platform::LocalTime& now) {
  const auto seconds = static_cast<float>(now.hour * 3600 + now.minute * 60 + now.second);
  char text[32];
  const auto result = std::to_chars(text, text + sizeof text, seconds);
  return result.ec == std::errc() ? std::string(text, result.ptr) : std::string();
}

}  // namespace

std::string ProgramKeyPath(const std::string& section) {
  std::string path = std::string("Software\\") + kCompanyName + "\\" + kProductName;
  if (!section.empty()) path += "\\" + section;
  return path;
}

RegistryData RegRead(platform::Registry& registry, RegistryRoot root, const std::string& subkey,
                     const std::string& name, const RegistryData& default_value) {
  if (NamesDefaultValue(name)) {
    auto text = QueryDefaultText(registry, root, subkey);
    return text ? RegistryData(std::move(*text)) : default_value;
  }
  if (!registry.OpenKey(root, subkey, RegistryAccess::kQuery)) return default_value;
  const auto value = registry.QueryValue(root, subkey, name);
  if (!value) return default_value;
  if (IsTextType(value->type)) return TrimAtNul(value->data);
  const auto number = NumberFromBytes(value->data);
  return number ? RegistryData(*number) : default_value;
}

bool RegWrite(platform::Registry& registry, RegistryRoot root, const std::string& subkey,
              const std::string& name, const RegistryData& value) {
  if (NamesDefaultValue(name)) {
    // The default value is read back as text only, so a number is not written there.
    const auto* text = std::get_if<std::string>(&value);
    return text != nullptr && registry.SetDefaultText(root, subkey, *text);
  }
  // Creating a missing key the old way also gives it the empty text as default value.
  if (!registry.OpenKey(root, subkey, RegistryAccess::kWrite)) {
    registry.SetDefaultText(root, subkey, "");
  }
  if (!registry.OpenKey(root, subkey, RegistryAccess::kWrite)) return false;
  RegistryValue data;
  if (const auto* text = std::get_if<std::string>(&value)) {
    data = {static_cast<std::uint32_t>(RegistryType::kText), *text + '\0'};
  } else {
    data = {static_cast<std::uint32_t>(RegistryType::kNumber),
            NumberBytes(std::get<std::int32_t>(value))};
  }
  return registry.SetValue(root, subkey, name, data);
}

bool SaveAppSetting(platform::Registry& registry, const std::string& section,
                    const std::string& name, const RegistryData& value) {
  return RegWrite(registry, RegistryRoot::kCurrentUser, ProgramKeyPath(section), name, value);
}

bool SaveMachineSetting(platform::Registry& registry, const std::string& section,
                        const std::string& name, const RegistryData& value) {
  return RegWrite(registry, RegistryRoot::kLocalMachine, ProgramKeyPath(section), name, value);
}

bool HasMachineWriteAccess(platform::Registry& registry, const platform::Clock& clock) {
  // Differs from run to run, so a marker left over from an earlier test is not mistaken for
  // this one.
  const std::string marker = SecondsSinceMidnightText(clock.Now());
  if (!SaveMachineSetting(registry, "", "*", marker)) return false;
  // A program without administrator rights under compatibility redirection finds its machine
  // writes in the user's virtual store instead.
  const RegistryData redirected =
      RegRead(registry, RegistryRoot::kClassesRoot, "VirtualStore\\MACHINE\\" + ProgramKeyPath(""),
              "*", std::int32_t{0});
  const bool landed_in_machine_hive = redirected != RegistryData(marker);
  SaveMachineSetting(registry, "", "*", std::string());
  return landed_in_machine_hive;
}

}  // namespace wavforge
