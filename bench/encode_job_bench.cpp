#include "bench/encode_job_bench.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <stdexcept>

#include "bench/bench_ports.h"
#include "bench/tagged_recordings.h"
#include "encoding/encode_job.h"
#include "settings/load_settings.h"
#include "settings/settings.h"
#include "ui/language_object.h"

namespace wavforge::bench {
namespace {

namespace fs = std::filesystem;

// The shipped defaults, with the log on: every file adds a line to it, as in real use.
constexpr const char* kSettingsFile =
    "[General]\r\nLogToFile=1\r\nLanguage=English\r\n"
    "[Options]\r\nTempPath=%Temp%\r\nMusicPath=%MyMusic%\r\nLogFilePath=%AppData%/Larkspur\r\n"
    "UseMusicSubfolder=1\r\nMusicFolderTemplate=%Genre%\r\n"
    "MusicFileTemplate2=%Artist% - %Title%\r\nNormalize=0\r\nDelTemp=1\r\nMP3Quality=5\r\n"
    "Encoder=1\r\n";

constexpr std::size_t kEdgeBytes = 4096;

// A message box would mean the job failed; the benchmark reports it instead of timing it.
class CountingUserInterface final : public platform::UserInterface {
 public:
  void MessageBox(const std::string& text, int, const std::string&) override { last_ = text; }
  void Beep() override {}
  bool AskYesNo(const std::string& text, int, const std::string&) override {
    last_ = text;
    return false;
  }
  // Nothing on a screen: no pointer to change, no dialog to answer.
  int MousePointer() const override { return pointer_; }
  void SetMousePointer(int code) override { pointer_ = code; }
  bool GetOpenFileName(const platform::OpenFileRequest&, std::string&) override { return false; }
  double TwipsPerPixelX() const override { return 15.0; }
  double TwipsPerPixelY() const override { return 15.0; }
  platform::ScreenRect WorkArea() const override { return {}; }
  std::string ForegroundWindowName() const override { return {}; }
  const std::string& last() const { return last_; }

 private:
  std::string last_;
  int pointer_ = platform::kDefaultPointer;
};

// What both benchmarks share, made once.
class Collection {
 public:
  Collection(const IsolatedBenchHome& home, const EncodeJobBenchOptions& options)
      : home_(home), options_(options) {}

  const std::vector<std::string>& Paths() {
    Prepare();
    return paths_;
  }
  const std::vector<TaggedRecording>& Recordings() {
    Prepare();
    return recordings_;
  }
  const EncodeJobBenchOptions& options() const { return options_; }
  // Why the recordings could not be made; empty when they were.
  const std::string& Error() {
    Prepare();
    return error_;
  }

 private:
  void Prepare() {
    if (prepared_) return;
    prepared_ = true;
    try {
      Make();
    } catch (const std::exception& error) {
      error_ = error.what();
      recordings_.clear();
      paths_.clear();
    }
  }

  void Make() {
    const fs::path settings = fs::path(home_.ConfigHome()) / "Larkspur" / "Larkspur.ini";
    fs::create_directories(settings.parent_path());
    std::ofstream(settings, std::ios::binary) << kSettingsFile;
    fs::create_directories(fs::path(home_.Home()) / "Music");
    const fs::path folder = fs::path(home_.Temp()) / "recordings";
    fs::create_directories(folder);
    recordings_ = MakeTaggedRecordings(folder.string(), options_.recordings, options_.data_bytes);
    for (const auto& recording : recordings_) paths_.push_back(recording.path);
  }

  const IsolatedBenchHome& home_;
  EncodeJobBenchOptions options_;
  bool prepared_ = false;
  std::vector<TaggedRecording> recordings_;
  std::vector<std::string> paths_;
  std::string error_;
};

// Whether every recording's title reached its line of the script, so the job really read
// the tags behind the audio.
std::optional<std::string> CheckOutcome(const JobOutcome& outcome,
                                        const std::vector<TaggedRecording>& recordings) {
  if (!outcome.started) return "the job failed: " + outcome.error_description;
  if (outcome.files.size() != recordings.size()) return "the job left out recordings";
  for (std::size_t i = 0; i < recordings.size(); ++i) {
    if (outcome.files[i].command.find("\"" + recordings[i].title + "\"") == std::string::npos) {
      return "no title in the line for " + recordings[i].path;
    }
  }
  return std::nullopt;
}

void EncodeJobBenchmark(benchmark::State& state, Collection& collection) {
  if (!collection.Error().empty()) {
    state.SkipWithError(collection.Error().c_str());
    return;
  }
  const auto& recordings = collection.Recordings();
  BenchPorts system(collection.options().program_folder);
  const platform::Ports& ports = system.ports();
  CountingUserInterface ui;
  Settings settings;
  SettingsLoader loader(ports);
  loader.LoadSettings(settings);
  LanguageObject language(settings, ports, ui);
  EncodingJob job(ports, ui, loader, settings, language);

  // One job before timing: checks what is measured and brings the files into the page cache,
  // as the plain reading loop finds them too.
  {
    FileList selection(collection.Paths());
    if (const auto problem = CheckOutcome(job.EncodeJob(selection), recordings)) {
      state.SkipWithError((*problem + " " + ui.last()).c_str());
      return;
    }
  }
  for (auto _ : state) {
    state.PauseTiming();
    FileList selection(collection.Paths());
    state.ResumeTiming();
    JobOutcome outcome = job.EncodeJob(selection);
    benchmark::DoNotOptimize(outcome.script.data());
    if (!outcome.started) state.SkipWithError(ui.last().c_str());
  }
  state.counters["files"] = static_cast<double>(recordings.size());
  state.counters["files/s"] = benchmark::Counter(static_cast<double>(recordings.size()),
                                                 benchmark::Counter::kIsIterationInvariantRate);
  state.counters["scripts_started"] = system.processes().scripts();
}

void ReadHeadAndTailBenchmark(benchmark::State& state, Collection& collection) {
  if (!collection.Error().empty()) {
    state.SkipWithError(collection.Error().c_str());
    return;
  }
  const auto& paths = collection.Paths();
  std::array<char, kEdgeBytes> buffer{};
  for (auto _ : state) {
    std::size_t bytes = 0;
    for (const auto& path : paths) {
      const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
      if (fd < 0) {
        state.SkipWithError(("cannot open " + path).c_str());
        break;
      }
      struct stat info {};
      fstat(fd, &info);
      const off_t tail = std::max<off_t>(0, info.st_size - static_cast<off_t>(kEdgeBytes));
      const ssize_t head_read = pread(fd, buffer.data(), buffer.size(), 0);
      const ssize_t tail_read = pread(fd, buffer.data(), buffer.size(), tail);
      bytes += static_cast<std::size_t>(std::max<ssize_t>(0, head_read) +
                                        std::max<ssize_t>(0, tail_read));
      close(fd);
    }
    benchmark::DoNotOptimize(bytes);
  }
  state.counters["files"] = static_cast<double>(paths.size());
}

}  // namespace

void RegisterEncodeJobBenchmarks(const IsolatedBenchHome& home,
                                 const EncodeJobBenchOptions& options) {
  auto collection = std::make_shared<Collection>(home, options);
  benchmark::RegisterBenchmark(
      kEncodeJobBenchmark,
      [collection](benchmark::State& state) { EncodeJobBenchmark(state, *collection); })
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime()
      ->MinTime(2.0);
  benchmark::RegisterBenchmark(
      kReadHeadAndTailBenchmark,
      [collection](benchmark::State& state) { ReadHeadAndTailBenchmark(state, *collection); })
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime()
      ->MinTime(2.0);
}

}  // namespace wavforge::bench
