#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "platform/registry.h"
#include "platform/registry_names.h"

namespace fakes {

// A registry held in memory with the same name rules as the real one (letter case ignored,
// keys exist on their own, a path with an empty part names no key). A test can redirect
// machine writes into the user's virtual store the way Windows does for programs without
// administrator rights.
class FakeRegistry final : public platform::Registry {
 public:
  using Root = platform::RegistryRoot;
  using Value = platform::RegistryValue;

  // HKEY_LOCAL_MACHINE writes then land in HKEY_CLASSES_ROOT "VirtualStore\MACHINE\...", and
  // machine reads see that copy first.
  void RedirectMachineWrites() { redirect_ = true; }

  // Stores a value (creating the key and its parents), whatever the hive allows.
  void Put(Root root, const std::string& subkey, const std::string& name, const Value& value) {
    const auto parts = platform::SplitKeyPath(subkey);
    if (!parts) return;
    std::string path;
    for (const std::string& part : *parts) {
      if (!path.empty()) path += '\\';
      path += platform::FoldRegistryName(part);
      hives_[root][path];
    }
    hives_[root][path][platform::FoldRegistryName(name)] = value;
  }

  // A stored value, read past any redirection.
  std::optional<Value> Get(Root root, const std::string& subkey, const std::string& name) const {
    const auto hive = hives_.find(root);
    if (hive == hives_.end()) return std::nullopt;
    const auto key = hive->second.find(platform::FoldRegistryName(subkey));
    if (key == hive->second.end()) return std::nullopt;
    const auto value = key->second.find(platform::FoldRegistryName(name));
    if (value == key->second.end()) return std::nullopt;
    return value->second;
  }

  bool OpenKey(Root root, const std::string& subkey, platform::RegistryAccess access) override {
    if (access == platform::RegistryAccess::kWrite) {
      const auto [target_root, target_key] = WriteTarget(root, subkey);
      return HasKey(target_root, target_key);
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
    if (!HasKey(target_root, target_key)) return false;
    Put(target_root, target_key, name, value);
    return true;
  }

  bool SetDefaultText(Root root, const std::string& subkey, const std::string& text) override {
    const auto [target_root, target_key] = WriteTarget(root, subkey);
    if (!platform::SplitKeyPath(target_key)) return false;
    Put(target_root, target_key, "",
        {static_cast<std::uint32_t>(platform::RegistryType::kText),
         text.substr(0, text.find('\0')) + '\0'});
    return true;
  }

 private:
  bool HasKey(Root root, const std::string& subkey) const {
    if (!platform::SplitKeyPath(subkey)) return false;
    const std::string folded = platform::FoldRegistryName(subkey);
    const auto hive = hives_.find(root);
    return folded.empty() || (hive != hives_.end() && hive->second.contains(folded));
  }

  static std::string VirtualPath(const std::string& subkey) {
    return subkey.empty() ? "VirtualStore\\MACHINE" : "VirtualStore\\MACHINE\\" + subkey;
  }

  bool ReadsVirtualStore(Root root) const { return redirect_ && root == Root::kLocalMachine; }

  std::pair<Root, std::string> WriteTarget(Root root, const std::string& subkey) const {
    if (ReadsVirtualStore(root)) return {Root::kClassesRoot, VirtualPath(subkey)};
    return {root, subkey};
  }

  // Values by folded name, in keys by folded path, in hives.
  std::map<Root, std::map<std::string, std::map<std::string, Value>>> hives_;
  bool redirect_ = false;
};

}  // namespace fakes
