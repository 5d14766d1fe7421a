#include "platform/posix/sqlite_registry.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/posix/private_folder.h"
#include "platform/posix/sqlite_database.h"
#include "platform/registry_names.h"

namespace platform::posix {
namespace {

// Keys exist on their own, so a key without values is still found. Names are kept as first
// written and looked up in their folded form. Stored as blobs: any byte may occur.
constexpr const char* kSchema =
    "CREATE TABLE IF NOT EXISTS registry_keys("
    " folded_path BLOB NOT NULL PRIMARY KEY,"
    " path BLOB NOT NULL) WITHOUT ROWID;"
    "CREATE TABLE IF NOT EXISTS registry_values("
    " folded_path BLOB NOT NULL,"
    " folded_name BLOB NOT NULL,"
    " name BLOB NOT NULL,"
    " type INTEGER NOT NULL,"
    " data BLOB NOT NULL,"
    " PRIMARY KEY (folded_path, folded_name)) WITHOUT ROWID;";

constexpr std::string_view kEnvironmentKey = "environment";
constexpr std::string_view kInternetSettingsKey =
    ".default\\software\\microsoft\\windows\\currentversion\\internet settings";

// The user's temporary folder: $TMPDIR when set, else a private folder, not the shared /tmp:
// the scripts written there would be open to other users, and the main window deletes every
// script in it when it closes. Nothing when that folder is not safely ours.
std::optional<std::string> TempFolder() {
  const char* tmpdir = std::getenv("TMPDIR");
  if (tmpdir != nullptr && *tmpdir != '\0') return tmpdir;
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  const std::string folder = runtime != nullptr && *runtime == '/'
                                 ? std::string(runtime) + "/wavforge"
                                 : "/tmp/wavforge-" + std::to_string(geteuid());
  if (!EnsurePrivateFolder(folder)) return std::nullopt;
  return folder;
}

bool IsDirectoryWritable(const std::filesystem::path& folder) {
  struct stat info {};
  return stat(folder.c_str(), &info) == 0 && S_ISDIR(info.st_mode) &&
         access(folder.c_str(), W_OK | X_OK) == 0;
}

// Whether this process may change the store: the file and its folder writable, or, before the
// first write, the nearest existing folder on the way to it. Besides permission bits this
// catches what stops root as well: read-only file systems and a file blocking the way.
bool CanWriteStore(const std::string& path) {
  const std::filesystem::path file(path);
  std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : ".";
  struct stat info {};
  if (stat(file.c_str(), &info) == 0) {
    // The rollback journal is created beside the file, so the folder must be writable too.
    return S_ISREG(info.st_mode) && access(file.c_str(), R_OK | W_OK) == 0 &&
           IsDirectoryWritable(folder);
  }
  if (errno != ENOENT) return false;
  while (true) {
    if (stat(folder.c_str(), &info) == 0) return IsDirectoryWritable(folder);
    if (errno != ENOENT || !folder.has_parent_path() || folder.parent_path() == folder) {
      return false;
    }
    folder = folder.parent_path();
  }
}

bool StoredKeyExists(SqliteDatabase& db, const std::string& folded_path) {
  if (folded_path.empty()) return true;  // the root
  SqliteStatement query(db, "SELECT 1 FROM registry_keys WHERE folded_path = ?1");
  return query.Bind(1, folded_path).Next() == SqliteStatement::Step::kRow;
}

bool StoredKeyExists(const std::string& store, const std::string& folded_path) {
  if (folded_path.empty()) return true;
  auto db = SqliteDatabase::OpenForReading(store);
  return db && StoredKeyExists(*db, folded_path);
}

std::optional<RegistryValue> StoredValue(const std::string& store, const std::string& folded_path,
                                         const std::string& folded_name) {
  auto db = SqliteDatabase::OpenForReading(store);
  if (!db) return std::nullopt;
  // A file another process has just created may not hold the tables yet: that reads as empty.
  SqliteStatement query(*db,
                        "SELECT type, data FROM registry_values"
                        " WHERE folded_path = ?1 AND folded_name = ?2");
  if (query.Bind(1, folded_path).Bind(2, folded_name).Next() != SqliteStatement::Step::kRow) {
    return std::nullopt;
  }
  return RegistryValue{static_cast<std::uint32_t>(query.NumberAt(0)), query.BytesAt(1)};
}

bool CreateKey(SqliteDatabase& db, const std::vector<std::string>& parts) {
  std::string path;
  for (const std::string& part : parts) {
    if (!path.empty()) path += kKeySeparator;
    path += part;
    SqliteStatement insert(db,
                           "INSERT OR IGNORE INTO registry_keys(folded_path, path)"
                           " VALUES (?1, ?2)");
    if (insert.Bind(1, FoldRegistryName(path)).Bind(2, path).Next() !=
        SqliteStatement::Step::kDone) {
      return false;
    }
  }
  return true;
}

bool StoreValue(SqliteDatabase& db, const std::string& folded_path, const std::string& name,
                const RegistryValue& value) {
  SqliteStatement upsert(db,
                         "INSERT INTO registry_values(folded_path, folded_name, name, type, data)"
                         " VALUES (?1, ?2, ?3, ?4, ?5)"
                         " ON CONFLICT(folded_path, folded_name)"
                         " DO UPDATE SET type = excluded.type, data = excluded.data");
  return upsert.Bind(1, folded_path)
             .Bind(2, FoldRegistryName(name))
             .Bind(3, name)
             .Bind(4, static_cast<std::int64_t>(value.type))
             .Bind(5, value.data)
             .Next() == SqliteStatement::Step::kDone;
}

// Creates a store's folder and file when missing, with their modes set here rather than left
// to SQLite. The user's store is the user's alone (folder 0700, file 0600); every user reads
// the machine-wide one, so there only the file is made: nobody but its owner may change it.
bool PrepareStore(const std::filesystem::path& file, bool user_only) {
  if (file.has_parent_path()) {
    const std::filesystem::path folder = file.parent_path();
    std::error_code error;
    if (!user_only) {
      std::filesystem::create_directories(folder, error);
    } else if (folder.has_parent_path()) {
      std::filesystem::create_directories(folder.parent_path(), error);
    }
    if (error || (user_only && mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST)) return false;
  }
  const int fd = open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, user_only ? 0600 : 0644);
  if (fd < 0) return false;
  close(fd);
  return true;
}

// Runs one change in its own write transaction; the store and its folder come into being
// with the first write. The store keeps SQLite's rollback journal rather than WAL: a WAL
// database cannot be read by someone who may not write its folder (the shared-memory file
// must be writable), and every user reads the machine-wide store. Writes are rare and small,
// so WAL's speed is not needed. SQLite gives the journal the mode of the store's file.
template <typename Change>
bool WriteStore(const std::string& store, bool user_only, Change&& change) {
  if (!CanWriteStore(store) || !PrepareStore(store, user_only)) return false;
  auto db = SqliteDatabase::OpenForWriting(store);
  if (!db) return false;
  SqliteWriteTransaction transaction(*db);
  if (!transaction.active() || !db->Execute(kSchema)) return false;
  if (!std::forward<Change>(change)(*db)) return false;
  return transaction.Commit();
}

// Whether a folded path is the given one or one of its parents.
bool IsKeyOrParent(const std::string& folded_path, std::string_view key) {
  return folded_path.empty() ||
         (key.starts_with(folded_path) &&
          (key.size() == folded_path.size() || key[folded_path.size()] == kKeySeparator));
}

}  // namespace

SqliteRegistry::SqliteRegistry(std::string user_store, std::string machine_store,
                               std::function<std::string()> user_agent)
    : user_store_(std::move(user_store)),
      machine_store_(std::move(machine_store)),
      user_agent_(std::move(user_agent)) {}

const std::string* SqliteRegistry::StoreOf(RegistryRoot root) const {
  switch (root) {
    case RegistryRoot::kCurrentUser:
      return &user_store_;
    case RegistryRoot::kLocalMachine:
      return &machine_store_;
    case RegistryRoot::kClassesRoot:
    case RegistryRoot::kUsers:
      break;
  }
  return nullptr;
}

bool SqliteRegistry::IsVirtualKey(RegistryRoot root, const std::string& folded_path) const {
  switch (root) {
    case RegistryRoot::kCurrentUser:
      return folded_path == kEnvironmentKey;
    case RegistryRoot::kUsers:
      return IsKeyOrParent(folded_path, kInternetSettingsKey);
    case RegistryRoot::kClassesRoot:
      return folded_path.empty();
    case RegistryRoot::kLocalMachine:
      break;
  }
  return false;
}

std::optional<RegistryValue> SqliteRegistry::VirtualValue(RegistryRoot root,
                                                          const std::string& folded_path,
                                                          const std::string& folded_name) const {
  if (root == RegistryRoot::kCurrentUser && folded_path == kEnvironmentKey &&
      (folded_name == "temp" || folded_name == "tmp")) {
    const std::optional<std::string> folder = TempFolder();
    if (!folder) return std::nullopt;
    return RegistryValue{static_cast<std::uint32_t>(RegistryType::kExpandableText), *folder + '\0'};
  }
  if (root == RegistryRoot::kUsers && folded_path == kInternetSettingsKey &&
      folded_name == "user agent" && user_agent_) {
    const std::string agent = user_agent_();
    if (agent.empty()) return std::nullopt;
    return RegistryValue{static_cast<std::uint32_t>(RegistryType::kText), agent + '\0'};
  }
  return std::nullopt;
}

bool SqliteRegistry::OpenKey(RegistryRoot root, const std::string& subkey, RegistryAccess access) {
  if (!SplitKeyPath(subkey)) return false;
  const std::string folded_path = FoldRegistryName(subkey);
  const std::string* store = StoreOf(root);
  if (access == RegistryAccess::kWrite) {
    return store != nullptr && CanWriteStore(*store) && StoredKeyExists(*store, folded_path);
  }
  if (IsVirtualKey(root, folded_path)) return true;
  return store != nullptr && StoredKeyExists(*store, folded_path);
}

std::optional<RegistryValue> SqliteRegistry::QueryValue(RegistryRoot root,
                                                        const std::string& subkey,
                                                        const std::string& name) {
  if (!SplitKeyPath(subkey)) return std::nullopt;
  const std::string folded_path = FoldRegistryName(subkey);
  const std::string folded_name = FoldRegistryName(name);
  if (const std::string* store = StoreOf(root)) {
    if (auto stored = StoredValue(*store, folded_path, folded_name)) return stored;
  }
  return VirtualValue(root, folded_path, folded_name);
}

bool SqliteRegistry::SetValue(RegistryRoot root, const std::string& subkey, const std::string& name,
                              const RegistryValue& value) {
  const std::string* store = StoreOf(root);
  if (store == nullptr || !SplitKeyPath(subkey)) return false;
  const std::string folded_path = FoldRegistryName(subkey);
  // Without a store file only the root exists; no file is created for a write that fails.
  struct stat info {};
  if (!folded_path.empty() && stat(store->c_str(), &info) != 0) return false;
  return WriteStore(*store, root == RegistryRoot::kCurrentUser, [&](SqliteDatabase& db) {
    return StoredKeyExists(db, folded_path) && StoreValue(db, folded_path, name, value);
  });
}

bool SqliteRegistry::SetDefaultText(RegistryRoot root, const std::string& subkey,
                                    const std::string& text) {
  const std::string* store = StoreOf(root);
  const auto parts = SplitKeyPath(subkey);
  if (store == nullptr || !parts) return false;
  const RegistryValue value{static_cast<std::uint32_t>(RegistryType::kText),
                            text.substr(0, text.find('\0')) + '\0'};
  return WriteStore(*store, root == RegistryRoot::kCurrentUser, [&](SqliteDatabase& db) {
    return CreateKey(db, *parts) && StoreValue(db, FoldRegistryName(subkey), "", value);
  });
}

}  // namespace platform::posix
