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

  bool operator==(const RegistryValue&) const = default;
};

enum class RegistryAccess { kQuery, kWrite };

// A hierarchical store of typed values shaped like the Windows registry. Key paths use "\"
// between parts and match ignoring (ASCII) letter case, as do value names. The empty path is
// the root itself; a path with an empty part ("\a", "a\", "a\\b") names no key. The empty
// value name is the key's default value. No call keeps anything open.
class Registry {
 public:
  virtual ~Registry() = default;

  // Whether the key exists and may be used with that access; writing needs a hive that
  // accepts writes from this process.
  virtual bool OpenKey(RegistryRoot root, const std::string& subkey, RegistryAccess access) = 0;
  // A value of an existing key; nothing when the key or the value is missing (also for a key
  // whose default value was never set).
  virtual std::optional<RegistryValue> QueryValue(RegistryRoot root, const std::string& subkey,
                                                  const std::string& name) = 0;
  // Creates or replaces a value of an existing key; false when the key is missing or the hive
  // refuses writes.
  virtual bool SetValue(RegistryRoot root, const std::string& subkey, const std::string& name,
                        const RegistryValue& value) = 0;
  // Sets the default value of a key to a text (type 1; the text up to its first NUL, stored
  // with a terminating NUL), creating the key and its parents when missing.
  virtual bool SetDefaultText(RegistryRoot root, const std::string& subkey,
                              const std::string& text) = 0;
};

}  // namespace platform
