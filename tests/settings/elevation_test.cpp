#include "settings/elevation.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "fakes/fake_ports.h"
#include "fakes/fake_user_interface.h"
#include "platform/posix/posix_processes.h"
#include "support/run_process.h"

namespace wavforge {
namespace {

struct ElevationCase {
  const char* name;
  bool can_elevate;
  bool has_rights;
  bool yes;
  bool result;
  bool asked;
  bool restarted;
};

class RunElevatedTest : public ::testing::TestWithParam<ElevationCase>, public fakes::FakePorts {};

TEST_P(RunElevatedTest, AsksOnlyWithoutRightsAndRestartsOnYes) {
  const ElevationCase& c = GetParam();
  processes.can_elevate = c.can_elevate;
  if (!c.has_rights) registry.RedirectMachineWrites();
  profiles.SetFile("/opt/wavforge/English.lang", "989VI=Restart?\n");
  fakes::FakeUserInterface ui;
  ui.yes_answer = c.yes;
  const clsLocalizeControls language("English", environment, profiles, ui);
  int closed = 0;

  EXPECT_EQ(RunElevated("-update", ports, ui, language, [&] { ++closed; }), c.result);

  ASSERT_EQ(ui.messages.size(), c.asked ? 1u : 0u);
  if (c.asked) {
    EXPECT_EQ(ui.messages[0].text, "Restart?");
    EXPECT_EQ(ui.messages[0].style, 20);
  }
  ASSERT_EQ(processes.shell.size(), c.restarted ? 1u : 0u);
  EXPECT_EQ(closed, c.restarted ? 1 : 0);
  if (c.restarted) {
    EXPECT_EQ(processes.shell[0].file, "/opt/wavforge/RunAsAdmin.lnk");
    EXPECT_EQ(processes.shell[0].parameters,
              R"(/q /c "start "" "/opt/wavforge/wavforge" -update")");
    EXPECT_EQ(processes.shell[0].directory, "/opt/wavforge");
    EXPECT_EQ(processes.shell[0].show_state, 0);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, RunElevatedTest,
    ::testing::Values(ElevationCase{"CannotElevate", false, false, true, false, false, false},
                      ElevationCase{"HasRights", true, true, true, false, false, false},
                      ElevationCase{"AnswerNo", true, false, false, true, true, false},
                      ElevationCase{"AnswerYes", true, false, true, true, true, true}),
    [](const auto& test) { return std::string(test.param.name); });

// With pkexec on the search path the program can elevate, and the helper beside it hands its
// parameters on to the interpreter beside it through that pkexec, with the display it needs.
TEST(RunAsAdminTest, RunsTheInterpreterBesideItThroughPkexec) {
  namespace fs = std::filesystem;
  const fs::path bin = fs::temp_directory_path() / "fake-bin";
  fs::create_directories(bin);
  const fs::path record = bin / "arguments";
  std::ofstream(bin / "pkexec") << "#!/bin/sh\nprintf '%s\\n' \"$@\" > " << record << "\n";
  fs::permissions(bin / "pkexec", fs::perms::owner_all);
  const std::string path = std::getenv("PATH");
  setenv("PATH", (bin.string() + ":" + path).c_str(), 1);
  const fs::path helper = WAVFORGE_RUN_AS_ADMIN_PATH;
  EXPECT_EQ(platform::posix::PosixProcesses("").CanElevate(), geteuid() != 0);

  const auto result = testing_support::RunProcess(
      {"/usr/bin/env", "DISPLAY=:7", "XAUTHORITY=/run/user/1000/xauth", "WAYLAND_DISPLAY=wayland-1",
       "XDG_RUNTIME_DIR=/run/user/1000", helper.string(), "/q", "/c",
       R"(start "" "/opt/wavforge/wavforge" -update)"});
  setenv("PATH", path.c_str(), 1);

  EXPECT_EQ(result.exit_code, 0) << result.err;
  std::ifstream recorded(record);
  const std::string text{std::istreambuf_iterator<char>(recorded), {}};
  EXPECT_EQ(text,
            "/usr/bin/env\nDISPLAY=:7\nXAUTHORITY=/run/user/1000/xauth\n"
            "WAYLAND_DISPLAY=/run/user/1000/wayland-1\n" +
                (helper.parent_path() / "wavforge-cmd").string() +
                "\n/q\n/c\nstart \"\" \"/opt/wavforge/wavforge\" -update\n");
}

}  // namespace
}  // namespace wavforge
