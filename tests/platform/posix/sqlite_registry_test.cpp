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
constexpr auto kQuery = RegistryAccess::kQuery;
constexpr auto kWrite = RegistryAccess::kWrite;

RegistryValue Text(const std::string& text) {
  return {1, text + '\0'};
}

class SqliteRegistryTest : public testing_support::IsolatedHomeTest {
 protected:
  fs::path UserStore() const { return ConfigHome() / "Larkspur" / "registry.sqlite"; }
  fs::path MachineStore() const { return MachineData() / "Larkspur" / "registry.sqlite"; }
  SqliteRegistry Make() const { return SqliteRegistry(UserStore(), MachineStore(), nullptr); }
};

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

constexpr int kWriters = 6;
constexpr int kWritesEach = 15;

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
        ok = registry.SetValue(kUser, WriterKey(writer), std::string("V").append(std::to_string(i)),
                               value) &&
             ok;
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
          registry.QueryValue(kUser, WriterKey(writer),
                              std::string("v").append(std::to_string(i))) != RaceValue(writer, i);
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
