// Runs the real wavforge-cmd binary on scripts in a private folder.

#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <optional>
#include <thread>
#include <tuple>

#include "platform/posix/console_title.h"
#include "support/isolated_home.h"
#include "support/run_process.h"

namespace {

namespace fs = std::filesystem;
using testing_support::ChildProcess;
using testing_support::ProcessResult;

std::vector<std::string> CmdLine(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), WAVFORGE_CMD_PATH);
  return arguments;
}

ProcessResult RunInterpreter(const std::vector<std::string>& arguments, const fs::path& folder) {
  return testing_support::RunProcess(CmdLine(arguments), folder);
}

constexpr const char* kNotRecognized =
    "' is not recognized as an internal or external command,\noperable program or batch file.\n";
constexpr const char* kNotSafe =
    ": a script must be a regular file of yours that nobody else may change.\n";

std::string ReplaceAll(std::string text, const std::string& from, const std::string& to) {
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

using Files = std::vector<std::pair<std::string, std::string>>;

// What a run leaves: "output|errors|files", the files of its folder sorted, each with "=" and
// its content when it has any; the script is listed by name only.
std::string Observe(const ProcessResult& run, const fs::path& folder) {
  std::vector<std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    const std::string name = entry.path().lexically_relative(folder).string();
    const std::string content = testing_support::ReadFile(entry.path());
    files.push_back(name == "job.bat" || content.empty() ? name : name + "=" + content);
  }
  std::sort(files.begin(), files.end());
  std::string text = ReplaceAll(run.out, folder.string(), "{dir}") + "|" + run.err + "|";
  for (const std::string& file : files) text += (text.back() == '|' ? "" : ";") + file;
  return text;
}

struct ScriptCase {
  const char* name;
  std::string script;  // "{dir}" stands for the folder the script runs in
  Files before;
  std::string expected;  // as Observe gives it
  std::vector<std::string> arguments = {};
};

class WavforgeCmdScriptTest : public testing_support::IsolatedHomeTest,
                              public ::testing::WithParamInterface<ScriptCase> {};

TEST_P(WavforgeCmdScriptTest, RunsTheScript) {
  const ScriptCase& c = GetParam();
  // Apart from TMPDIR, which holds the captured output.
  const fs::path folder = fs::canonical(Root()) / "run";
  fs::create_directories(folder);
  for (const auto& [name, content] : c.before) testing_support::WriteFile(folder / name, content);
  const fs::path script = folder / "job.bat";
  testing_support::WriteFile(script, ReplaceAll(c.script, "{dir}", folder.string()));
  std::vector<std::string> arguments = {script.string()};
  arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
  EXPECT_EQ(Observe(RunInterpreter(arguments, folder), folder), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, WavforgeCmdScriptTest,
    ::testing::Values(
        ScriptCase{"CommandsEchoedWithThePrompt",
                   "echo hi\r\n@echo quiet\r\nrem note > not-made.txt\r\n:label\r\n\r\n",
                   {},
                   "\n{dir}>echo hi\nhi\nquiet\n\n{dir}>rem note > not-made.txt\n||job.bat"},
        ScriptCase{"EchoOffIsItselfEchoed",
                   "echo off\r\necho x\r\necho\r\necho.\r\n",
                   {},
                   "\n{dir}>echo off\nx\nECHO is off.\n\n||job.bat"},
        ScriptCase{"Arguments",
                   "@echo [%1] [%2] [%3] [%*] [%~2]\r\n",
                   {},
                   "[a] [\"b c\"] [] [a \"b c\"] [b c]\n||job.bat",
                   {"a", "b c"}},
        ScriptCase{"SetThenExpandIgnoringCase",
                   "@set WF_X=some value\r\n@echo %wf_x%-%WF_UNDEFINED%-%%\r\n",
                   {},
                   "some value--%\n||job.bat"},
        // A WAV format's line keeps "%1" for the quality, which the script has no value for.
        ScriptCase{"MissingQualityArgumentVanishes",
                   "@sh -c \"printf '[%%s]' \\\"$@\\\"\" sh -V %1 out>args.txt\r\n",
                   {},
                   "||args.txt=[-V][out];job.bat"},
        ScriptCase{"MissingProgramDoesNotStopTheScript",
                   "@nosuchprogram-wf 1 2\r\n@\"no such/tool\" x\r\n@echo after\r\n",
                   {},
                   std::string("after\n|'nosuchprogram-wf") + kNotRecognized + "'\"no such/tool\"" +
                       kNotRecognized + "|job.bat"},
        ScriptCase{"SuccessAndFailureChains",
                   "@sh -c \"exit 3\" && echo no || echo yes\r\n@echo %errorlevel%\r\n",
                   {},
                   "yes\n3\n||job.bat"},
        ScriptCase{
            "ExitEndsTheRun", "@echo one\r\n@exit /b 4\r\n@echo two\r\n", {}, "one\n||job.bat"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Files, WavforgeCmdScriptTest,
    ::testing::Values(
        // The source is found ignoring letter case; a folder gets its name as it is on disk.
        ScriptCase{"MoveReplacesTheTarget",
                   "@move /y \"NORM 1.wav\" \"take 1.wav\"\r\n",
                   {{"norm 1.WAV", "new"}, {"take 1.wav", "old"}},
                   "||job.bat;take 1.wav=new"},
        ScriptCase{"RenIntoAFolderKeepsTheName",
                   "@ren A.WAV sub\r\n",
                   {{"a.wav", "x"}, {"sub/keep", ""}},
                   "||job.bat;sub/a.wav=x;sub/keep"},
        ScriptCase{"MoveOfAMissingFileSaysSo",
                   "@move nothing.wav b.wav\r\n",
                   {},
                   "|The system cannot find the file specified.\n|job.bat"},
        // The first '>' replaces a longer old log; errors join the output.
        ScriptCase{"AppendsToTheLogWithErrors",
                   "@echo first>\"log dir/encode.log\"\r\n"
                   "@echo second>>\"log dir/encode.log\"\r\n"
                   "@sh -c \"echo to-err 1>&2\" >>\"log dir/encode.log\" 2>&1\r\n",
                   {{"log dir/encode.log", "an older and longer log\n"}},
                   "||job.bat;log dir/encode.log=first\nsecond\nto-err\n"},
        ScriptCase{"NulSwallowsOutput", "@echo gone>nul\r\n@echo kept\r\n", {}, "kept\n||job.bat"},
        ScriptCase{"DelSourceAndEveryExtension",
                   "@del \"{dir}/rec/Band - Song.*\"\r\n",
                   {{"rec/Band - Song.wav", ""},
                    {"rec/Band - Song.mp3", ""},
                    {"rec/Band - Song", ""},
                    {"rec/BAND - SONG.WAV", ""},
                    {"rec/Band - Songs.wav", "s"},
                    {"rec/other.txt", "o"}},
                   "||job.bat;rec/Band - Songs.wav=s;rec/other.txt=o"},
        // A plain name finds another letter case only when its exact name is not there.
        ScriptCase{"DelPlainNameIgnoringCase",
                   "@del \"rec/LOUD.wav\" rec/both.wav\r\n@del /s sub/Both.wav\r\n",
                   {{"rec/loud.WAV", ""},
                    {"rec/both.wav", ""},
                    {"rec/BOTH.wav", "b"},
                    {"sub/both.WAV", ""},
                    {"sub/Both.wav", ""}},
                   "||job.bat;rec/BOTH.wav=b;sub/both.WAV"},
        ScriptCase{"DelQuestionMarkInSubfolders",
                   "@del /q /s \"tree/?.tmp\"\r\n",
                   {{"tree/a.tmp", ""}, {"tree/sub/b.tmp", ""}, {"tree/sub/ab.tmp", "2"}},
                   "||job.bat;tree/sub/ab.tmp=2"},
        ScriptCase{"DelSeveralNamesMissingOnesSilent",
                   "@erase missing.txt one.txt \"two words.txt\" /f\r\n",
                   {{"one.txt", ""}, {"two words.txt", ""}, {"keep.txt", "k"}},
                   "||job.bat;keep.txt=k"},
        ScriptCase{"DelFolderMeansItsFiles",
                   "@del /q box\r\n",
                   {{"box/a", ""}, {"box/b", ""}, {"box/inner/c", "c"}},
                   "||box/inner/c=c;job.bat"},
        // Deleting another file goes on; deleting the script ends the run after that line.
        ScriptCase{"ScriptDeletingItselfStopsThere",
                   "@del \"%0.old\"\r\n@echo before>before.txt\r\n@del \"%0\"\r\n"
                   "@echo after>after.txt\r\n",
                   {},
                   "||before.txt=before\n"},
        // A second job's script renamed over this one's name: none of its lines run here.
        ScriptCase{"ScriptReplacedByAnotherStopsThere",
                   "@move /y next.bat job.bat\r\n@echo first>first.txt\r\n",
                   {{"next.bat",
                     "@echo second>second.txt\r\n@echo second>second.txt\r\n"
                     "@echo second>second.txt\r\n"}},
                   "||job.bat"}),
    [](const auto& row) { return std::string(row.param.name); });

class WavforgeCmdTest : public testing_support::IsolatedHomeTest {
 protected:
  fs::path Folder() const { return fs::canonical(TempFolder()); }

  fs::path WriteScript(const std::string& text) const {
    const fs::path script = Folder() / "job.bat";
    testing_support::WriteFile(script, text);
    return script;
  }
};

// Polls until the interpreter has published a title, for at most a few seconds.
std::optional<std::string> AwaitTitle(pid_t pid) {
  for (int i = 0; i < 250; ++i) {
    if (auto title = platform::posix::ReadConsoleTitle(pid)) return title;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return std::nullopt;
}

TEST_F(WavforgeCmdTest, TitleIsVisibleWhileALongCommandRunsAndGoneAfterwards) {
  const fs::path script = WriteScript("title Larkspur Encoder\r\n@sleep 1\r\n@echo done\r\n");
  ChildProcess process(CmdLine({script.string()}), Folder());
  const pid_t pid = process.Pid();
  EXPECT_EQ(AwaitTitle(pid), "Larkspur Encoder");
  const ProcessResult run = process.Wait();
  EXPECT_EQ(run.exit_code, 0);
  EXPECT_EQ(run.out,
            std::string("\n").append(Folder().string()) + ">title Larkspur Encoder\ndone\n");
  EXPECT_EQ(platform::posix::ReadConsoleTitle(pid), std::nullopt);
}

TEST_F(WavforgeCmdTest, TitleStaysWhereItWasWhenTheScriptMovesTheTemporaryFolders) {
  const fs::path script = WriteScript("@set XDG_RUNTIME_DIR=" + (Root() / "moved").string() +
                                      "\r\n@set TMPDIR=" + (Root() / "moved").string() +
                                      "\r\n@title Larkspur Encoder\r\n@sleep 1\r\n");
  ChildProcess process(CmdLine({script.string()}), Folder());
  const pid_t pid = process.Pid();
  EXPECT_EQ(AwaitTitle(pid), "Larkspur Encoder");
  process.Wait();
  EXPECT_EQ(platform::posix::ReadConsoleTitle(pid), std::nullopt);
  EXPECT_FALSE(fs::exists(Root() / "moved"));
}

TEST_F(WavforgeCmdTest, EndingSignalRemovesTheTitle) {
  const fs::path script =
      WriteScript("@title Larkspur Encoder\r\n@sleep 2\r\n@echo late>late.txt\r\n");
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    ChildProcess process(CmdLine({script.string()}), Folder());
    const pid_t pid = process.Pid();
    ASSERT_EQ(AwaitTitle(pid), "Larkspur Encoder") << signal;
    kill(pid, signal);
    EXPECT_EQ(process.Wait().signal, signal);
    EXPECT_EQ(platform::posix::ReadConsoleTitle(pid), std::nullopt) << signal;
    EXPECT_FALSE(fs::exists(platform::posix::ConsoleTitleTemporaryPath(pid))) << signal;
    EXPECT_FALSE(fs::exists(Folder() / "late.txt")) << signal;
  }
}

TEST_F(WavforgeCmdTest, StartWaitsOnlyWhenAsked) {
  const std::tuple<const char*, double, double> cases[] = {
      {R"(start "" /b /belownormal sleep 3)", 0.0, 2.0},
      {R"(start "Encoder" /wait /low sleep 1)", 0.9, 10.0},
  };
  for (const auto& [line, min_seconds, max_seconds] : cases) {
    const fs::path script = WriteScript(std::string("@") + line + "\r\n");
    const auto begin = std::chrono::steady_clock::now();
    const ProcessResult run = RunInterpreter({script.string()}, Folder());
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    EXPECT_EQ(run.exit_code, 0) << line;
    EXPECT_EQ(run.err, "") << line;
    EXPECT_GE(took.count(), min_seconds) << line;
    EXPECT_LT(took.count(), max_seconds) << line;
  }
}

TEST_F(WavforgeCmdTest, StartedProgramRunsInTheFolderGiven) {
  fs::create_directories(Folder() / "out");
  const fs::path script = WriteScript("@start /min /d out sh -c \"pwd > started.txt\"\r\n");
  const ProcessResult run = RunInterpreter({script.string()}, Folder());
  EXPECT_EQ(run.err, "");
  const fs::path marker = Folder() / "out" / "started.txt";
  for (int i = 0; i < 250 && testing_support::ReadFile(marker).empty(); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  EXPECT_EQ(testing_support::ReadFile(marker), (Folder() / "out").string() + "\n");
}

TEST_F(WavforgeCmdTest, RunsOneCommandLine) {
  // The arguments; "exit code|output|errors".
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"/c", "echo %wf_test_value% %WF_UNDEFINED% 100%% %1"}, "0|val %WF_UNDEFINED% 100%% %1\n|"},
      {{"/q", "/c", "echo"}, "0|ECHO is off.\n|"},
      {{"/c", "echo", "a", "&&", "echo", "b"}, "0|a \nb\n|"},
      {{"/c", "exit /b 7"}, "7||"},
      {{"/c", "sh -c \"exit 5\""}, "5||"},
      {{},
       "1||Usage: wavforge-cmd SCRIPT [ARGUMENTS...]\n"
       "       wavforge-cmd [/q] /c COMMAND LINE...\n"},
      {{"missing.bat"}, std::string("1||'missing.bat") + kNotRecognized},
      {{"link.bat"}, std::string("1||wavforge-cmd: not running 'link.bat'") + kNotSafe},
      {{"shared.bat"}, std::string("1||wavforge-cmd: not running 'shared.bat'") + kNotSafe},
  };
  // Whoever may change a script runs commands as us: a link or a group-writable one is refused.
  WriteScript("@echo ran>ran.txt\r\n");
  fs::create_symlink(Folder() / "job.bat", Folder() / "link.bat");
  testing_support::WriteFile(Folder() / "shared.bat", "@echo ran>ran.txt\r\n");
  fs::permissions(Folder() / "shared.bat", fs::perms::group_write, fs::perm_options::add);
  setenv("WF_TEST_VALUE", "val", 1);
  for (const auto& [arguments, expected] : cases) {
    const ProcessResult run = RunInterpreter(arguments, Folder());
    EXPECT_EQ(std::to_string(run.exit_code) + "|" + run.out + "|" + run.err, expected);
  }
  EXPECT_FALSE(fs::exists(Folder() / "ran.txt"));
}

}  // namespace
