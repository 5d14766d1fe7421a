#include "platform/posix/sqlite_registry.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "support/isolated_home.h"

namespace platform::posix {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

constexpr auto kUser = RegistryRoot::kCurrentUser;
constexpr auto kMachine = RegistryRoot::kLocalMachine;
constexpr auto kClasses = RegistryRoot::kClassesRoot;
constexpr auto kUsers = RegistryRoot::kUsers;
constexpr auto kQuery = RegistryAccess::kQuery;
constexpr auto kWrite = RegistryAccess::kWrite;

const char kAgentKey[] =
    ".DEFAULT\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings";

RegistryValue Text(const std::string& text) {
  return {1, text + '\0'};
}

class SqliteRegistryTest : public testing_support::IsolatedHomeTest {
 protected:
  fs::path UserStore() const { return ConfigHome() / "Larkspur" / "registry.sqlite"; }
  fs::path MachineStore() const { return MachineData() / "Larkspur" / "registry.sqlite"; }
  SqliteRegistry Make(std::function<std::string()> agent = {}) const {
    return SqliteRegistry(UserStore(), MachineStore(), std::move(agent));
  }
};

// --- Values and names ------------------------------------------------------------------------

std::string AllBytes() {
  std::string bytes;
  for (int b = 255; b >= 0; --b) bytes += static_cast<char>(b);
  return bytes;
}

// "V3". Appended: "V" + a temporary draws GCC 12's false -Wrestrict at -O3.
std::string ValueName(char letter, std::size_t number) {
  return std::string(1, letter).append(std::to_string(number));
}

TEST_F(SqliteRegistryTest, ValuesReadBackByteForByteFromTheirOwnStore) {
  const std::string key = "Software\\Larkspur Audio\\Larkspur\\Flags";
  const RegistryValue values[] = {{1, "C:\\Music\\Larkspur\0"s},
                                  {3, AllBytes()},
                                  {3, ""s},
                                  {1, std::string(100000, 'w') + '\0'},
                                  {0xFFFFFFFFu, "\xff"s}};
  for (const RegistryRoot root : {kMachine, kUser}) {
    {
      SqliteRegistry registry = Make();
      ASSERT_TRUE(registry.SetDefaultText(root, key, ""));
      for (std::size_t i = 0; i < std::size(values); ++i) {
        ASSERT_TRUE(registry.SetValue(root, key, ValueName('V', i), values[i]));
      }
    }
    // A fresh object shares nothing with the writer but the file.
    SqliteRegistry reader = Make();
    for (std::size_t i = 0; i < std::size(values); ++i) {
      EXPECT_EQ(reader.QueryValue(root, key, ValueName('v', i)), values[i]) << i;
    }
    EXPECT_EQ(fs::exists(UserStore()), root == kUser);
  }
  EXPECT_TRUE(fs::is_regular_file(MachineStore()));
}

TEST_F(SqliteRegistryTest, NamesMatchIgnoringAsciiCaseOnly) {
  SqliteRegistry registry = Make();
  ASSERT_TRUE(registry.SetDefaultText(kUser, "Software\\Larkspur", ""));
  ASSERT_TRUE(registry.SetDefaultText(kUser, "Software\\\xC3\x84rger", ""));
  ASSERT_TRUE(registry.SetValue(kUser, "Software\\Larkspur", "Code", Text("first")));
  ASSERT_TRUE(registry.SetValue(kUser, "Software\\Larkspur", "\xC3\x84", Text("umlaut")));
  EXPECT_TRUE(registry.OpenKey(kUser, "SOFTWARE\\larkspur", kQuery));
  EXPECT_FALSE(registry.OpenKey(kUser, "Software\\Larkspurs", kQuery));
  EXPECT_FALSE(registry.OpenKey(kUser, "Software\\\xC3\xA4rger", kQuery));
  EXPECT_EQ(registry.QueryValue(kUser, "Software\\Larkspur", "\xC3\xA4"), std::nullopt);
  EXPECT_EQ(registry.QueryValue(kUser, "Software\\Larkspur", "Code "), std::nullopt);
  // Writing through another spelling replaces type and data instead of adding a value.
  const RegistryValue number{4, "\x07\0\0\0"s};
  ASSERT_TRUE(registry.SetValue(kUser, "software\\LARKSPUR", "CODE", number));
  EXPECT_EQ(registry.QueryValue(kUser, "Software\\Larkspur", "code"), number);
}

TEST_F(SqliteRegistryTest, KeysAreMadeWithTheirParentsOnlyByDefaultTexts) {
  SqliteRegistry registry = Make();
  ASSERT_TRUE(registry.SetDefaultText(kUser, "Software\\Larkspur Audio\\Larkspur", "x\0y"s));
  for (const char* parent : {"Software", "software\\larkspur audio"}) {
    EXPECT_TRUE(registry.OpenKey(kUser, parent, kWrite)) << parent;
    EXPECT_EQ(registry.QueryValue(kUser, parent, ""), std::nullopt) << parent;
  }
  // The default text ends at its first NUL.
  EXPECT_EQ(registry.QueryValue(kUser, "Software\\Larkspur Audio\\Larkspur", ""), Text("x"));
  EXPECT_FALSE(registry.SetValue(kUser, "Software\\Missing", "Name", Text("v")));
  EXPECT_FALSE(registry.OpenKey(kUser, "Software\\Missing", kWrite));
  EXPECT_FALSE(registry.OpenKey(kMachine, "Software", kQuery));
  // The root always exists; a path with an empty part names no key.
  EXPECT_TRUE(registry.SetValue(kUser, "", "AtRoot", Text("v")));
  EXPECT_EQ(registry.QueryValue(kUser, "", "atroot"), Text("v"));
  for (const char* path : {"\\A", "A\\", "Software\\\\A"}) {
    EXPECT_FALSE(registry.SetDefaultText(kUser, path, "w")) << path;
  }
  EXPECT_FALSE(registry.OpenKey(kUser, "A", kQuery));
}

// --- Store files -----------------------------------------------------------------------------

TEST_F(SqliteRegistryTest, ReadingCreatesNothingAndFirstWriteCreatesTheFolders) {
  SqliteRegistry registry = Make();
  EXPECT_TRUE(registry.OpenKey(kUser, "", kWrite));
  EXPECT_EQ(registry.QueryValue(kUser, "Software", "Name"), std::nullopt);
  EXPECT_FALSE(registry.SetValue(kUser, "Software", "Name", Text("v")));
  EXPECT_FALSE(registry.SetValue(kMachine, "Software", "Name", Text("v")));
  ASSERT_FALSE(fs::exists(ConfigHome()));
  ASSERT_FALSE(fs::exists(MachineData()));

  EXPECT_TRUE(registry.SetDefaultText(kUser, "Software", ""));
  EXPECT_TRUE(fs::is_regular_file(UserStore()));
  EXPECT_FALSE(fs::exists(MachineData()));
  // The rollback journal is gone once the write is done.
  EXPECT_FALSE(fs::exists(UserStore().string() + "-journal"));
}

TEST_F(SqliteRegistryTest, StoreBlockedByAFileOrAFolderRefusesWrites) {
  // A regular file where a folder on the way should be, and a folder in the store's place,
  // stop even root.
  testing_support::WriteFile(MachineData() / "blocked", "not a folder");
  fs::create_directories(UserStore());
  SqliteRegistry registry(UserStore(), MachineData() / "blocked" / "registry.sqlite", nullptr);
  for (const RegistryRoot root : {kUser, kMachine}) {
    EXPECT_TRUE(registry.OpenKey(root, "", kQuery));
    EXPECT_FALSE(registry.OpenKey(root, "", kWrite));
    EXPECT_FALSE(registry.SetDefaultText(root, "Software", "1"));
    EXPECT_FALSE(registry.SetValue(root, "", "Name", Text("v")));
  }
}

TEST_F(SqliteRegistryTest, EmptyStoreFileReadsAsEmptyHive) {
  // What another process leaves for a moment between creating the file and its first commit.
  testing_support::WriteFile(UserStore(), "");
  SqliteRegistry registry = Make();
  EXPECT_FALSE(registry.OpenKey(kUser, "Software", kQuery));
  EXPECT_EQ(registry.QueryValue(kUser, "", "Name"), std::nullopt);
  EXPECT_TRUE(registry.SetDefaultText(kUser, "Software", "ok"));
  EXPECT_EQ(registry.QueryValue(kUser, "Software", ""), Text("ok"));
}

// Runs a check in a child process that has no power to bypass permissions (as "nobody" when
// started as root) and returns its exit status; 77 when the powers cannot be dropped.
int RunUnprivileged(const std::function<int()>& check) {
  const pid_t child = fork();
  if (child == 0) {
    if (geteuid() == 0 && (setgroups(0, nullptr) != 0 || setgid(65534) != 0 || setuid(65534) != 0 ||
                           geteuid() == 0)) {
      _exit(77);
    }
    _exit(check());
  }
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) return -1;
  return WEXITSTATUS(status);
}

TEST_F(SqliteRegistryTest, ReadOnlyHiveRefusesWritesAndStillReads) {
  const std::string key = "Software\\Larkspur Audio\\Larkspur";
  ASSERT_TRUE(Make().SetValue(kMachine, "", "Code", Text("1")));
  ASSERT_TRUE(Make().SetDefaultText(kMachine, key, "installed"));
  // The folders on the way must let an unprivileged reader through.
  const fs::path folder = MachineStore().parent_path();
  for (fs::path up = folder; up.has_relative_path(); up = up.parent_path()) {
    fs::permissions(up, fs::perms::others_exec | fs::perms::others_read, fs::perm_options::add);
  }
  // Read-only file and folder; the file alone writable (its rollback journal cannot be made);
  // the folder alone writable.
  for (const auto& [file, dir] : {std::pair{0444, 0555}, {0666, 0555}, {0444, 0777}}) {
    fs::permissions(MachineStore(), fs::perms(file));
    fs::permissions(folder, fs::perms(dir));
    const int failures = RunUnprivileged([&] {
      SqliteRegistry registry = Make();
      return (registry.QueryValue(kMachine, "", "code") != Text("1") ? 1 : 0) |
             (registry.OpenKey(kMachine, key, kWrite) ? 2 : 0) |
             (registry.OpenKey(kMachine, "", kWrite) ? 4 : 0) |
             (registry.SetValue(kMachine, key, "Code", Text("2")) ? 8 : 0) |
             (registry.SetDefaultText(kMachine, "Software\\New", "") ? 16 : 0);
    });
    if (failures == 77) GTEST_SKIP() << "cannot drop root privileges here";
    EXPECT_EQ(failures, 0) << "bit mask of failed checks, modes " << std::oct << file << " " << dir;
  }
  fs::permissions(folder, fs::perms(0755));
  EXPECT_EQ(Make().QueryValue(kMachine, key, "Code"), std::nullopt);
}

// --- Values supplied by the system ----------------------------------------------------------

TEST_F(SqliteRegistryTest, TempValuesOfTheUsersEnvironmentComeFromTmpdirOrAPrivateFolder) {
  const fs::path own = Root() / "run" / "wavforge";
  const std::tuple<const char*, const char*, std::string> cases[] = {
      {"/var/tmp/anna", "Temp", "/var/tmp/anna"},
      {"/scratch dir", "TMP", "/scratch dir"},
      {"", "Temp", own},
      {nullptr, "tmp", own}};
  SqliteRegistry registry = Make();
  for (const auto& [tmpdir, name, expected] : cases) {
    tmpdir ? setenv("TMPDIR", tmpdir, 1) : unsetenv("TMPDIR");
    EXPECT_TRUE(registry.OpenKey(kUser, "ENVIRONMENT", kQuery));
    EXPECT_EQ(registry.QueryValue(kUser, "environment", name), (RegistryValue{2, expected + '\0'}))
        << (tmpdir ? tmpdir : "(unset)");
  }
  EXPECT_FALSE(fs::exists(UserStore()));
  // Made on use for the user alone; one that others may enter is closed again.
  EXPECT_EQ(fs::status(own).permissions(), fs::perms::owner_all);
  fs::permissions(own, fs::perms(0755));
  EXPECT_TRUE(registry.QueryValue(kUser, "Environment", "Temp"));
  EXPECT_EQ(fs::status(own).permissions(), fs::perms::owner_all);
  // A link in its place is not used.
  fs::remove(own);
  fs::create_directory_symlink(Root() / "tmp", own);
  EXPECT_EQ(registry.QueryValue(kUser, "Environment", "Temp"), std::nullopt);
}

TEST_F(SqliteRegistryTest, EnvironmentHasNoOtherValuesAndStoredOnesWin) {
  SqliteRegistry registry = Make();
  EXPECT_EQ(registry.QueryValue(kUser, "Environment", "TempDir"), std::nullopt);
  EXPECT_EQ(registry.QueryValue(kMachine, "Environment", "Temp"), std::nullopt);
  EXPECT_EQ(registry.QueryValue(kUser, "Software\\Environment", "Temp"), std::nullopt);
  // Writing needs the key stored first, as for any other key.
  EXPECT_FALSE(registry.OpenKey(kUser, "Environment", kWrite));
  ASSERT_TRUE(registry.SetDefaultText(kUser, "Environment", ""));
  ASSERT_TRUE(registry.SetValue(kUser, "Environment", "TEMP", Text("/stored")));
  EXPECT_EQ(registry.QueryValue(kUser, "Environment", "Temp"), Text("/stored"));
  EXPECT_EQ(fs::status(UserStore()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(fs::status(UserStore().parent_path()).permissions(), fs::perms::owner_all);
  EXPECT_EQ(registry.QueryValue(kUser, "Environment", "Tmp"),
            (RegistryValue{2, TempFolder().string() + '\0'}));
}

TEST_F(SqliteRegistryTest, ClassesRootAndUsersHoldOnlyWhatTheSystemSupplies) {
  int asked = 0;
  SqliteRegistry registry =
      Make([&asked] { return ++asked, "Mozilla/5.0 (X11; Linux x86_64) wavforge"; });
  EXPECT_TRUE(registry.OpenKey(kUsers, ".default\\software", kQuery));
  EXPECT_FALSE(registry.OpenKey(kUsers, ".DEFAULT\\Soft", kQuery));
  EXPECT_EQ(asked, 0);  // the browser engine starts only for a reader of the value
  EXPECT_EQ(registry.QueryValue(kUsers, kAgentKey, "user agent"),
            Text("Mozilla/5.0 (X11; Linux x86_64) wavforge"));
  EXPECT_EQ(registry.QueryValue(kUsers, kAgentKey, "Accept"), std::nullopt);
  EXPECT_EQ(Make().QueryValue(kUsers, kAgentKey, "User Agent"), std::nullopt);
  EXPECT_EQ(Make([] { return ""; }).QueryValue(kUsers, kAgentKey, "User Agent"), std::nullopt);
  for (const RegistryRoot root : {kClasses, kUsers}) {
    EXPECT_TRUE(registry.OpenKey(root, "", kQuery));
    EXPECT_FALSE(registry.OpenKey(root, "", kWrite));
    EXPECT_FALSE(registry.SetDefaultText(root, "Software\\Larkspur", "x"));
    EXPECT_FALSE(registry.SetValue(root, kAgentKey, "User Agent", Text("x")));
    EXPECT_FALSE(registry.OpenKey(root, "Software\\Larkspur", kQuery));
  }
  EXPECT_FALSE(fs::exists(UserStore()));
  EXPECT_FALSE(fs::exists(MachineStore()));
  // There is no virtual store: machine values do not show through HKEY_CLASSES_ROOT.
  ASSERT_TRUE(registry.SetDefaultText(kMachine, "Software\\Larkspur", "marker"));
  EXPECT_EQ(registry.QueryValue(kClasses, "VirtualStore\\MACHINE\\Software\\Larkspur", ""),
            std::nullopt);
}

// --- Several processes at once ----------------------------------------------------------------

constexpr int kWriters = 6;
constexpr int kWritesEach = 200;

// Distinct, self-describing values of varying length, several pages for some, so a torn or
// mixed-up write shows.
RegistryValue RaceValue(int writer, int index) {
  const std::size_t length = 200 + static_cast<std::size_t>((writer * 977 + index * 131) % 5000);
  std::string text(length, static_cast<char>('a' + (writer + index) % 26));
  return Text(text + "|" + std::to_string(writer) + ":" + std::to_string(index));
}

std::string WriterKey(int writer) {
  return "Software\\Race\\Writer" + std::to_string(writer);
}

TEST_F(SqliteRegistryTest, ConcurrentWritersLoseNothing) {
  int start[2];
  ASSERT_EQ(pipe(start), 0);
  std::vector<pid_t> children;
  for (int writer = 0; writer < kWriters; ++writer) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      close(start[1]);
      char byte = 0;
      while (read(start[0], &byte, 1) < 0 && errno == EINTR) {
      }
      // All writers race to create the very store file as well.
      SqliteRegistry registry = Make();
      bool ok = registry.SetDefaultText(kUser, WriterKey(writer), "");
      for (int i = 0; i < kWritesEach; ++i) {
        const RegistryValue value = RaceValue(writer, i);
        ok = registry.SetValue(kUser, WriterKey(writer), ValueName('V', i), value) && ok;
        ok = registry.SetValue(kUser, "Software\\Race", "Shared", value) && ok;
      }
      _exit(ok ? 0 : 1);
    }
    children.push_back(child);
  }
  close(start[0]);
  close(start[1]);  // go
  for (const pid_t child : children) {
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "a writer saw a failed write";
  }

  SqliteRegistry registry = Make();
  int wrong = 0;
  for (int writer = 0; writer < kWriters; ++writer) {
    for (int i = 0; i < kWritesEach; ++i) {
      wrong +=
          registry.QueryValue(kUser, WriterKey(writer), ValueName('v', i)) != RaceValue(writer, i);
    }
  }
  EXPECT_EQ(wrong, 0) << "values lost or damaged";
  // Each writer's writes are in order, so whichever committed last wrote its final value.
  const auto shared = registry.QueryValue(kUser, "Software\\Race", "Shared");
  bool is_a_final_value = false;
  for (int writer = 0; writer < kWriters; ++writer) {
    is_a_final_value = is_a_final_value || shared == RaceValue(writer, kWritesEach - 1);
  }
  EXPECT_TRUE(is_a_final_value);
}

}  // namespace
}  // namespace platform::posix
