#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "platform/clock.h"
#include "platform/registry.h"

// Reading and writing single registry values the way the program has always done it, on top
// of the registry port.
namespace wavforge {

// A value as the program sees it: text, or a signed 32-bit number.
using RegistryData = std::variant<std::string, std::int32_t>;

// "Software\<company>\<product>", followed by "\<section>" when the section is not empty.
std::string ProgramKeyPath(const std::string& section);

// The value, or the default unchanged when anything fails. The names "*" and "(Standard)"
// (exactly so) read the key's default value, which must fit 254 characters. Types 1, 2 and 7
// read as text (unexpanded; the first string of a multi-string), any other type as a number
// of at most 4 bytes.
RegistryData RegRead(platform::Registry& registry, platform::RegistryRoot root,
                     const std::string& subkey, const std::string& name,
                     const RegistryData& default_value);

// Writes text as type 1 and numbers as type 4, creating the key when it is missing (a new key
// gets the empty text as its default value). "*" and "(Standard)" write the key's default
// value, which takes text only. True when the value was written.
bool RegWrite(platform::Registry& registry, platform::RegistryRoot root, const std::string& subkey,
              const std::string& name, const RegistryData& value);

// RegWrite under the program's own key of the user's and of the machine's hive.
bool SaveAppSetting(platform::Registry& registry, const std::string& section,
                    const std::string& name, const RegistryData& value);
bool SaveMachineSetting(platform::Registry& registry, const std::string& section,
                        const std::string& name, const RegistryData& value);

// Whether a value written under the program's machine-wide key really lands in the machine's
// hive: false when the write is refused or redirected into the user's virtual store. Leaves
// the empty text as the default value of the key it wrote to.
bool HasMachineWriteAccess(platform::Registry& registry, const platform::Clock& clock);

}  // namespace wavforge
