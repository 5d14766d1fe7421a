#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace platform {

enum class RegistryRoot { kClassesRoot, kCurrentUser, kLocalMachine, kUsers };

// The value types of the Windows registry that the program meets.
enum class RegistryType : std::uint32_t {
  kNone = 0,
  kText = 1,
  kExpandableText = 2,
  kBinary = 3,
  kNumber = 4,  // 32-bit little-endian
  kMultiText = 7,
};

struct RegistryValue {
  std::uint32_t type = 0;
  std::string data;  // raw bytes as stored, texts with their terminating NUL
};

enum class RegistryAccess { kQuery, kWrite };

// A hierarchical store of typed values shaped like the Windows registry. Key paths use "\"
// between parts and match ignoring letter case, as do value names; the empty value name is
// the key's default value. No call keeps anything open.
class Registry {
 public:
  virtual ~Registry() = default;

  // Whether the key exists and may be used with that access.
  virtual bool OpenKey(RegistryRoot root, const std::string& subkey, RegistryAccess access) = 0;
  // Reads a value of an existing key.
  virtual std::optional<RegistryValue> QueryValue(RegistryRoot root, const std::string& subkey,
                                                  const std::string& name) = 0;
  // Writes a value of an existing key.
  virtual bool SetValue(RegistryRoot root, const std::string& subkey, const std::string& name,
                        const RegistryValue& value) = 0;
  // Sets the default value of a key to a text, creating the key and its parents when missing.
  virtual bool SetDefaultText(RegistryRoot root, const std::string& subkey,
                              const std::string& text) = 0;
};

}  // namespace platform
