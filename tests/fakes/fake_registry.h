#pragma once

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/registry.h"
#include "platform/registry_names.h"

namespace fakes {

// A registry held in memory with the same name rules as the real one (letter case ignored,
// keys exist on their own, a path with an empty part names no key). A test can make a hive
// refuse writes, or redirect machine writes into the user's virtual store the way Windows
// does for programs without administrator rights. Successful writes are logged as called.
class FakeRegistry final : public platform::Registry {
 public:
  using Root = platform::RegistryRoot;
  using Value = platform::RegistryValue;

  struct Write {
    Root root;
    std::string subkey;
    std::string name;  // "" for the default value
    Value value;
  };

  // --- Test controls ---

  void SetReadOnly(Root root, bool read_only = true) {
    if (read_only) {
      read_only_.insert(root);
    } else {
      read_only_.erase(root);
    }
  }

  // HKEY_LOCAL_MACHINE writes then land in HKEY_CLASSES_ROOT "VirtualStore\MACHINE\...", and
  // machine reads see that copy first.
  void RedirectMachineWrites(bool redirect = true) { redirect_ = redirect; }

  // Stores a value (creating the key and its parents), whatever the hive allows.
  void Put(Root root, const std::string& subkey, const std::string& name, const Value& value) {
    if (!platform::SplitKeyPath(subkey)) return;
    AddKey(root, subkey);
    auto& key = hives_[root][platform::FoldRegistryName(subkey)];
    key.values[platform::FoldRegistryName(name)] = value;
  }

  void AddKey(Root root, const std::string& subkey) {
    const auto parts = platform::SplitKeyPath(subkey);
    if (!parts) return;
    std::string path;
    for (const std::string& part : *parts) {
      if (!path.empty()) path += platform::kKeySeparator;
      path += part;
      hives_[root][platform::FoldRegistryName(path)];
    }
  }

  bool HasKey(Root root, const std::string& subkey) const {
    if (!platform::SplitKeyPath(subkey)) return false;
    const std::string folded = platform::FoldRegistryName(subkey);
    if (folded.empty()) return true;
    const auto hive = hives_.find(root);
    return hive != hives_.end() && hive->second.contains(folded);
  }

  std::optional<Value> Get(Root root, const std::string& subkey, const std::string& name) const {
    const auto hive = hives_.find(root);
    if (hive == hives_.end()) return std::nullopt;
    const auto key = hive->second.find(platform::FoldRegistryName(subkey));
    if (key == hive->second.end()) return std::nullopt;
    const auto value = key->second.values.find(platform::FoldRegistryName(name));
    if (value == key->second.values.end()) return std::nullopt;
    return value->second;
  }

  // Number of keys stored in a hive (the root itself not counted).
  std::size_t KeyCount(Root root) const {
    const auto hive = hives_.find(root);
    if (hive == hives_.end()) return 0;
    return static_cast<std::size_t>(
        std::count_if(hive->second.begin(), hive->second.end(),
                      [](const auto& key) { return !key.first.empty(); }));
  }

  const std::vector<Write>& writes() const { return writes_; }

  // --- The port ---

  bool OpenKey(Root root, const std::string& subkey, platform::RegistryAccess access) override {
    if (access == platform::RegistryAccess::kWrite) {
      const auto [target_root, target_key] = WriteTarget(root, subkey);
      return !read_only_.contains(target_root) && HasKey(target_root, target_key);
    }
    if (ReadsVirtualStore(root) && HasKey(Root::kClassesRoot, VirtualPath(subkey))) return true;
    return HasKey(root, subkey);
  }

  std::optional<Value> QueryValue(Root root, const std::string& subkey,
                                  const std::string& name) override {
    if (!platform::SplitKeyPath(subkey)) return std::nullopt;
    if (ReadsVirtualStore(root)) {
      if (auto value = Get(Root::kClassesRoot, VirtualPath(subkey), name)) return value;
    }
    return Get(root, subkey, name);
  }

  bool SetValue(Root root, const std::string& subkey, const std::string& name,
                const Value& value) override {
    const auto [target_root, target_key] = WriteTarget(root, subkey);
    if (read_only_.contains(target_root) || !HasKey(target_root, target_key)) return false;
    Put(target_root, target_key, name, value);
    writes_.push_back({root, subkey, name, value});
    return true;
  }

  bool SetDefaultText(Root root, const std::string& subkey, const std::string& text) override {
    const auto [target_root, target_key] = WriteTarget(root, subkey);
    if (read_only_.contains(target_root) || !platform::SplitKeyPath(target_key)) return false;
    const Value value{static_cast<std::uint32_t>(platform::RegistryType::kText),
                      text.substr(0, text.find('\0')) + '\0'};
    Put(target_root, target_key, "", value);
    writes_.push_back({root, subkey, "", value});
    return true;
  }

 private:
  struct Key {
    std::map<std::string, Value> values;  // by folded name
  };

  static std::string VirtualPath(const std::string& subkey) {
    return subkey.empty() ? "VirtualStore\\MACHINE" : "VirtualStore\\MACHINE\\" + subkey;
  }

  bool ReadsVirtualStore(Root root) const { return redirect_ && root == Root::kLocalMachine; }

  std::pair<Root, std::string> WriteTarget(Root root, const std::string& subkey) const {
    if (ReadsVirtualStore(root)) return {Root::kClassesRoot, VirtualPath(subkey)};
    return {root, subkey};
  }

  std::map<Root, std::map<std::string, Key>> hives_;  // keys by folded path
  std::set<Root> read_only_;
  bool redirect_ = false;
  std::vector<Write> writes_;
};

}  // namespace fakes
