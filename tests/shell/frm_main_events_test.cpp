#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "shell/main_window_fixture.h"

namespace wavforge::testing_main {
namespace {

using namespace std::string_literals;

// --- file dialog ---

TEST_F(MainWindowTest, TheFileDialogsAnswerReplacesTheSelection) {
  const std::pair<std::string, std::vector<std::string>> cases[] = {
      {"/rec/a.wav\0\0"s, {"/rec/a.wav"}},
      {"/rec\0a.wav\0b c.wav\0z.WAV\0\0"s, {"/rec/a.wav", "/rec/b c.wav", "/rec/z.WAV"}},
      {"/\0a.wav\0b.wav\0\0"s, {"//a.wav", "//b.wav"}},    // the root folder doubles the separator
      {"/rec/a.wav\0\0/old\0x.wav\0\0"s, {"/rec/a.wav"}},  // nothing after the double NUL
      {"/rec/a.wav"s, {"/rec/a.wav"}},                     // without its closing NULs
      {"/rec\0a.wav\0"s, {"/rec/a.wav"}},                  // several with one closing NUL
  };
  Loaded();
  for (const auto& [answer, expected] : cases) {
    program.file_list.Replace({"/earlier.wav", "/more.wav"});
    ui.dialog_answer = answer;
    window->Click(Get("cmdSelectFile"));
    EXPECT_EQ(program.file_list.Items(), expected) << expected.front();
  }
}

TEST_F(MainWindowTest, TheDialogIsAskedForLocalisedFilterAndTitleInTheTemporaryFolder) {
  Loaded();
  ui.dialog_answer = "/rec/a.wav"s;
  window->Click(Get("cmdSelectFile"));
  ASSERT_EQ(ui.dialogs.size(), 1u);
  const platform::OpenFileRequest& request = ui.dialogs[0];
  EXPECT_EQ(request.filter, "Wave files\0*.wav\0All files\0*\0"s);
  EXPECT_EQ(request.filter_index, 1);
  EXPECT_EQ(request.title, "Choose recordings");
  EXPECT_EQ(request.initial_folder, "/tmp/t/Larkspur");
  EXPECT_EQ(request.flags, 36180484u);
  EXPECT_EQ(request.buffer_size, 32766u);
}

TEST_F(MainWindowTest, ACancelledDialogKeepsTheSelection) {
  Loaded();
  program.file_list.Replace({"/earlier.wav"});
  ui.dialog_answer.reset();
  window->Click(Get("cmdSelectFile"));
  EXPECT_EQ(program.file_list.Items(), std::vector<std::string>{"/earlier.wav"});
  EXPECT_EQ(ui.dialogs.size(), 1u);
}

// --- drops ---

TEST_F(MainWindowTest, DroppedNamesReplaceTheSelectionAndNoneBeep) {
  Loaded();
  // The target (nothing: the window itself), the names dropped.
  const std::pair<Control*, std::vector<std::string>> cases[] = {
      {nullptr, {"/r/b.wav", "/r/a.wav"}},
      {&Get("imgIcon", 0), {"/r/x.mp3"}},
      {&Get("imgIcon", 0), {}},
  };
  for (const auto& [target, dropped] : cases) {
    program.file_list.Replace({"/earlier.wav"});
    const int beeps = ui.beeps;
    window->DragDrop(target, dropped);
    EXPECT_EQ(program.file_list.Items(),
              dropped.empty() ? std::vector<std::string>{"/earlier.wav"} : dropped);
    EXPECT_EQ(ui.beeps - beeps, dropped.empty() ? 1 : 0);
  }
}

TEST_F(MainWindowTest, TheDropTargetsAreThoseThatAcceptFiles) {
  Window();
  std::vector<std::string> accepting;
  for (const auto& control : window->Controls()) {
    if (control->AcceptsDrops) {
      accepting.push_back(control->Name() + "(" + std::to_string(control->Index()) + ")");
    }
  }
  EXPECT_TRUE(window->AcceptsDrops);
  EXPECT_EQ(accepting,
            (std::vector<std::string>{"picOptions(-1)", "imgIcon(0)", "Label1(33)", "Label1(6)"}));
}

// --- Start ---

struct StartCase {
  const char* name;
  std::vector<std::string> selection;
  int beeps;
  std::size_t scripts;
  int upper_bound_after;
};

class StartTest : public MainWindowTest, public ::testing::WithParamInterface<StartCase> {};

TEST_P(StartTest, StartRunsTheJobOrBeeps) {
  Loaded();
  program.file_list.Replace(GetParam().selection);
  window->Click(Get("cmdStart"));
  EXPECT_EQ(ui.beeps, GetParam().beeps) << GetParam().name;
  EXPECT_EQ(processes.scripts.size(), GetParam().scripts) << GetParam().name;
  EXPECT_EQ(program.file_list.UpperBound(), GetParam().upper_bound_after) << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(
    Table, StartTest,
    ::testing::Values(StartCase{"nothing selected", {}, 1, 0, -1},
                      StartCase{"one recording", {"/rec/Band - Song.wav"}, 0, 1, -1},
                      // The job takes only WAV files but still starts its script.
                      StartCase{"no recording among the items", {"/rec/x.mp3"}, 0, 1, -1}));

TEST_F(MainWindowTest, ASecondPressBeforeTheNextTickOnlyBeeps) {
  Loaded();
  program.file_list.Replace({"/rec/Band - Song.wav"});
  Tick();
  ASSERT_TRUE(Get("cmdStart").Enabled);
  window->Click(Get("cmdStart"));
  window->Click(Get("cmdStart"));
  EXPECT_EQ(processes.scripts.size(), 1u);
  EXPECT_EQ(ui.beeps, 1);
  Tick();
  EXPECT_FALSE(Get("cmdStart").Enabled);
}

// --- the delete box ---

struct DelTempClickCase {
  const char* name;
  int value;
  bool del_temp;
  bool script_deletes_source;
};

class DelTempClickTest : public MainWindowTest,
                         public ::testing::WithParamInterface<DelTempClickCase> {};

TEST_P(DelTempClickTest, TheBoxDecidesForTheRunOnly) {
  SetSettings("English", std::string(GetParam().value == 1 ? "DelTemp=0\n" : "DelTemp=1\n") +
                             "Encoder=1\nMP3Quality=0\n");
  Loaded();
  Control& box = Get("chkDelTemp");
  box.Value = GetParam().value;
  window->Click(box);
  EXPECT_EQ(program.settings.DelTemp, GetParam().del_temp) << GetParam().name;

  // The job reloads the settings; the box's choice survives it.
  program.file_list.Replace({"/rec/Band - Song.wav"});
  window->Click(Get("cmdStart"));
  const auto script = files.Contents(processes.scripts.at(0).command_line).value_or("");
  EXPECT_EQ(script.find("del \"/rec/Band - Song.*\"") != std::string::npos,
            GetParam().script_deletes_source)
      << script;
  EXPECT_EQ(program.settings.DelTemp, GetParam().del_temp);
}

INSTANTIATE_TEST_SUITE_P(Table, DelTempClickTest,
                         ::testing::Values(DelTempClickCase{"checked", 1, true, true},
                                           DelTempClickCase{"unchecked", 0, false, false}));

// --- links and help ---

TEST_F(MainWindowTest, LinksOpenTheLocalisedAddress) {
  Loaded();
  const std::tuple<const char*, int, const char*> cases[] = {
      {"lblHomePage", -1, "https://home.test/"},
      {"imgIcon", 0, "https://home.test/"},
      {"lblMailTo", -1, "mailto:team@home.test"},
  };
  for (const auto& [control, index, address] : cases) {
    processes.shell.clear();
    window->Click(Get(control, index));
    ASSERT_EQ(processes.shell.size(), 1u) << control;
    EXPECT_EQ(processes.shell[0].file, address);
    EXPECT_EQ(processes.shell[0].parameters, "");
    EXPECT_EQ(processes.shell[0].directory, "");
    EXPECT_EQ(processes.shell[0].show_state, 1);
  }
  EXPECT_TRUE(assistant.pages.empty());
}

TEST_F(MainWindowTest, TheHelpLineAsksForTheOnlineHelpPageOfTheWindow) {
  Loaded();
  window->Click(Get("txtlblF1"));
  ASSERT_EQ(assistant.pages.size(), 1u);
  EXPECT_EQ(assistant.pages[0].page, "encode.htm");
  EXPECT_TRUE(assistant.pages[0].online);
  EXPECT_TRUE(processes.shell.empty());
}

TEST_F(MainWindowTest, HelpKeysAreTakenFromTheControls) {
  Loaded();
  // Key and shift state; the page asked for (none: the key passes on) and whether online.
  const std::tuple<int, int, const char*, bool> cases[] = {
      {kKeyF1, 0, "encode.htm", true},
      {kKeyF1, kAltMask, "encode.htm", false},
      {kKeyF2, 0, "wizard.htm", true},
      {kKeyF2, kAltMask, "wizard.htm", false},
      {kKeyF3, kAltMask, "search.htm", true},
      {kKeyF12, kAltMask, "encode.htm", true},
      {115, 0, nullptr, false},  // F4
  };
  for (const auto& [pressed, shift, page, online] : cases) {
    assistant.pages.clear();
    int key = pressed;
    window->KeyDown(key, shift);
    EXPECT_EQ(key, page ? 0 : pressed) << pressed << " " << shift;
    ASSERT_EQ(assistant.pages.size(), page ? 1u : 0u) << pressed << " " << shift;
    if (!page) continue;
    EXPECT_EQ(assistant.pages[0].page, page);
    EXPECT_EQ(assistant.pages[0].online, online) << pressed << " " << shift;
  }
}

TEST_F(MainWindowTest, HelpKeysAreConsumedEvenWithoutAnAssistantWindow) {
  Loaded();
  window->SetAssistant(nullptr);
  for (const int pressed : {kKeyF1, kKeyF2, kKeyF3, kKeyF12}) {
    int key = pressed;
    window->KeyDown(key, 0);
    EXPECT_EQ(key, 0) << pressed;
  }
  EXPECT_TRUE(processes.shell.empty());
}

TEST_F(MainWindowTest, AKeyArrivingWhileOneIsHandledPassesOnUnchanged) {
  Loaded();
  int nested_key = kKeyF3;
  assistant.while_opening = [&] {
    assistant.while_opening = nullptr;
    window->KeyDown(nested_key, 0);
  };
  int key = kKeyF1;
  window->KeyDown(key, 0);
  EXPECT_EQ(key, 0);
  EXPECT_EQ(nested_key, kKeyF3);
  ASSERT_EQ(assistant.pages.size(), 1u);
  EXPECT_EQ(assistant.pages[0].page, "encode.htm");
  // Afterwards keys are handled again.
  window->KeyDown(nested_key, 0);
  EXPECT_EQ(nested_key, 0);
}

// --- the timer ---

struct TickStep {
  std::vector<std::string> windows;
  std::string picture;
  bool start_enabled;
};

struct TimerCase {
  const char* name;
  std::vector<std::string> selection;
  std::vector<TickStep> steps;
};

class TimerTest : public MainWindowTest, public ::testing::WithParamInterface<TimerCase> {};

TEST_P(TimerTest, TheIconFollowsTheJobAndStartTheSelection) {
  Loaded();
  program.file_list.Replace(GetParam().selection);
  int step = 0;
  for (const TickStep& tick : GetParam().steps) {
    windows.titles = tick.windows;
    Tick();
    EXPECT_EQ(Get("imgIcon", 0).Picture, tick.picture) << GetParam().name << " step " << step;
    EXPECT_EQ(Get("cmdStart").Enabled, tick.start_enabled) << GetParam().name << " step " << step;
    ++step;
  }
  // The stored frames never change.
  for (int frame = 1; frame <= 4; ++frame) {
    EXPECT_EQ(Get("imgIcon", frame).Picture, "status" + std::to_string(frame));
    EXPECT_FALSE(Get("imgIcon", frame).Visible);
  }
}

const std::vector<std::string> kIdle = {"bash", "wavforge"};
const std::vector<std::string> kJob = {"bash", "Larkspur Encoder"};

INSTANTIATE_TEST_SUITE_P(
    Table, TimerTest,
    ::testing::Values(
        TimerCase{"idle without files", {}, {{kIdle, "status3", false}, {kIdle, "status3", false}}},
        TimerCase{"idle with files", {"/r/a.wav"}, {{kIdle, "status3", true}}},
        TimerCase{"a job animates from the second frame and starts over",
                  {"/r/a.wav"},
                  {{kIdle, "status3", true},
                   {kJob, "status2", false},
                   {{"LAME"}, "status3", false},
                   {{"ssrc", "oggenc"}, "status4", false},
                   {{"CScript"}, "status1", false},
                   {kJob, "status2", false},
                   {kIdle, "status3", true},
                   {{"larkspur encoder"}, "status2", false}}},
        TimerCase{"a tool name only in part is no job",
                  {"/r/a.wav"},
                  {{{"lame2", "xssrc", "Larkspur"}, "status3", true}}}));

// --- closing ---

TEST_F(MainWindowTest, StopDeletesEveryBatchFileOfTheTemporaryFolderOnce) {
  Loaded();
  files.AddFile("/tmp/t/Larkspur140510.bat", "title Larkspur Encoder");
  files.AddFile("/tmp/t/other.BAT", "x");
  files.AddFile("/tmp/t/notes.txt", "x");
  files.AddFile("/tmp/t/sub.bat.txt", "x");
  files.AddFile("/tmp/elsewhere.bat", "x");
  window->Click(Get("cmdStop"));
  EXPECT_TRUE(window->Unloaded());
  EXPECT_FALSE(window->Visible);
  EXPECT_EQ(files.ListFiles("/tmp/t"), (std::vector<std::string>{"notes.txt", "sub.bat.txt"}));
  EXPECT_TRUE(files.Contents("/tmp/elsewhere.bat"));
  EXPECT_EQ(assistant.unloads, 1);

  // The close that follows the button unloads nothing twice.
  files.AddFile("/tmp/t/later.bat", "x");
  window->Unload();
  EXPECT_EQ(assistant.unloads, 1);
  EXPECT_TRUE(files.Contents("/tmp/t/later.bat"));
  // Running tools are not stopped: nothing is started or opened on the way out.
  EXPECT_TRUE(processes.scripts.empty());
  EXPECT_TRUE(processes.shell.empty());
}

TEST_F(MainWindowTest, ClosingWithAMissingTemporaryFolderShowsNothing) {
  SetSettings("English", "TempPath=/nowhere\n");
  Loaded();
  window->Unload();
  EXPECT_TRUE(window->Unloaded());
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_EQ(ui.beeps, 0);
}

}  // namespace
}  // namespace wavforge::testing_main
