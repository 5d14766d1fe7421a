// wavforge-encode: runs one encoder for one recording of a job so that no recording is lost.
// The job script's next line may delete the source, so before this tool returns the recording
// has a second name out of that line's reach (or, where none can be made, a complete output is
// in place). The encoder then runs in the background, at most as many at a time as the user
// allows (one per core by default), so the job uses the whole machine; its output is moved into
// place only when complete, never over a file, and on failure the recording is kept under a
// name no del line of the job reaches. Tags are read here from the recording itself, so no tag
// text ever stands in the script. Normalising runs in step with the script, and the normalised
// recording keeps the original's tags.
//
//   wavforge-encode SOURCE_BASE TOOLS_LOG EXTENSION ENCODER [ARGUMENT...]
//   wavforge-encode --normalize SOURCE_BASE TOOLS_LOG ENCODER [ARGUMENT...]
//
// ARGUMENTs may hold {in}, {out}, {artist}, {title}, {album} and {genre}.

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "encode_tool/argument_tokens.h"
#include "encode_tool/background_worker.h"
#include "encode_tool/encoder_run.h"
#include "encode_tool/encoder_slots.h"
#include "encode_tool/info_list_carry.h"
#include "encode_tool/safe_output.h"
#include "encode_tool/tool_log.h"
#include "encoding/job_watch.h"
#include "encoding/log_quoting.h"
#include "encoding/media_duration.h"
#include "encoding/output_path.h"
#include "encoding/read_wav_tags.h"
#include "encoding/source_names.h"
#include "platform/posix/posix_platform.h"
#include "settings/encoders_at_a_time.h"
#include "settings/load_settings.h"
#include "settings/product.h"

namespace {

using namespace wavforge;
using namespace wavforge::encode_tool;

constexpr int kFailed = 1;
constexpr int kUsage = 2;
// The job's console title, which the job watch looks for.
constexpr const char* kJobTitle = kWatchedTitles.back();

struct Request {
  bool normalize = false;
  std::string base_path;
  std::string log_path;
  std::string extension;
  std::vector<std::string> encoder;
};

bool ParseRequest(const std::vector<std::string>& words, Request& request) {
  std::size_t at = 0;
  if (!words.empty() && words[0] == "--normalize") {
    request.normalize = true;
    request.extension = "wav";
    ++at;
  }
  const std::size_t fixed = request.normalize ? 2 : 3;
  if (words.size() < at + fixed + 1) return false;
  request.base_path = words[at];
  request.log_path = words[at + 1];
  if (!request.normalize) request.extension = words[at + 2];
  request.encoder.assign(words.begin() + static_cast<std::ptrdiff_t>(at + fixed), words.end());
  return !request.base_path.empty() && !request.extension.empty();
}

// Whether what the encoder wrote is all there, as far as the disk can tell us.
std::string CheckOutput(const std::string& path, const std::string& extension,
                        std::optional<double> source_seconds, platform::BinaryFileOpener& files) {
  const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const bool synced = fd >= 0 && fsync(fd) == 0;  // a full disk may only show here
  if (fd >= 0) close(fd);
  if (!synced) return "the output could not be written to the disk";
  const auto output = files.OpenForReading(path);
  if (!output || output->Size() == 0) return "the encoder wrote an empty output";
  if (!IsCompleteOutput(*output, extension, source_seconds)) {
    return "the output is incomplete (is the disk full?)";
  }
  return {};
}

// Where the encoding of one recording stands once its output name is known.
struct Work {
  std::string source;  // the recording as the job names it
  std::string input;   // what the encoder reads: the source, or its hold
  std::string stem;    // the output without extension
  TrackTags tags;
  std::optional<double> seconds;
};

// The encoder of one recording, started into a temporary output beside the final one.
struct Encoding {
  std::string temporary;
  StartedEncoder encoder;
};

Encoding StartEncoding(const Request& request, const Work& work, ToolLog& log) {
  Encoding encoding;
  encoding.temporary =
      CreateTemporaryOutput(SourceFolder(work.stem), request.extension, encoding.encoder.error);
  if (encoding.encoder.error.empty()) {
    encoding.encoder =
        StartEncoder(FillArguments(request.encoder, work.input, encoding.temporary, work.tags),
                     log.Descriptor());
  }
  return encoding;
}

// Waits for the encoder and puts its output in place; "" or why it failed.
std::string Encode(const Request& request, const Work& work, platform::BinaryFileOpener& files,
                   EncoderSlot& slot, const Encoding& encoding, std::string& placed) {
  const std::string& temporary = encoding.temporary;
  std::string error = WaitForEncoder(encoding.encoder);
  slot.Release();
  if (error.empty()) error = CheckOutput(temporary, request.extension, work.seconds, files);
  if (error.empty() && request.normalize) error = CarryInfoList(files, work.source, temporary);
  if (error.empty() && request.normalize) {
    if (std::rename(temporary.c_str(), work.source.c_str()) == 0)
      placed = work.source;
    else
      error = "the normalised recording could not replace the original";
  } else if (error.empty()) {
    placed = PlaceOutput(temporary, work.stem, request.extension, work.source, error);
  }
  if (!error.empty() && !temporary.empty()) unlink(temporary.c_str());
  return error;
}

int Finish(const Request& request, const Work& work, platform::BinaryFileOpener& files,
           ToolLog& log, EncoderSlot& slot, const Encoding& encoding) {
  std::string placed;
  const std::string error = Encode(request, work, files, slot, encoding, placed);
  const bool held = work.input != work.source;
  if (!error.empty()) {
    if (request.normalize) {
      log.Line("could not normalise " + QuoteForLog(work.source) + ": " + error +
               "; the recording is unchanged");
    } else {
      log.Line("could not encode " + QuoteForLog(work.source) + ": " + error +
               "; the recording is kept as " +
               QuoteForLog(KeepSource(work.source, held ? work.input : std::string())));
    }
    return kFailed;
  }
  if (held) unlink(work.input.c_str());
  log.Line(request.normalize
               ? "normalised " + QuoteForLog(work.source)
               : "encoded " + QuoteForLog(work.source) + " as " + QuoteForLog(placed));
  return 0;
}

int Run(const Request& request) {
  platform::posix::PosixPlatform system(kProductName);
  const platform::Ports& ports = system.ports();
  ToolLog log(request.log_path, ports.clock);

  const auto source = FindSource(request.base_path);
  if (!source) {
    log.Line("could not encode " + QuoteForLog(request.base_path + ".wav") +
             ": the recording does not exist");
    return kFailed;
  }
  Work work{*source, *source, BasePath(*source),
            ReadTagsWithNameFallback(ports.binary_files, *source), std::nullopt};
  if (auto file = ports.binary_files.OpenForReading(*source)) {
    work.seconds = PlayingSeconds(*file, "wav", true);
  }

  // Nothing is run on a file whose audio we cannot measure: an encoder may take garbage for raw
  // samples and "succeed", and the source would then be deleted for noise.
  if (!work.seconds) {
    log.Line("could not encode " + QuoteForLog(*source) +
             ": it is not a WAV recording that can be read" +
             (request.normalize
                  ? ""
                  : "; the recording is kept as " + QuoteForLog(KeepSource(*source))));
    return kFailed;
  }

  Settings settings;
  SettingsLoader(ports).LoadSettings(settings);
  if (!request.normalize) work.stem = OutputPath(settings, work.tags, ports.files);
  const int places = EncodersAtATime(ports.profiles, settings.SettingsFile);
  const auto in_step = [&] {
    EncoderSlot slot(places);
    return Finish(request, work, ports.binary_files, log, slot, StartEncoding(request, work, log));
  };

  // Normalising stays in step with the script: the encoder line after it reads its result.
  // While it runs it holds a place, so the cores stay as busy as with a worker of its own.
  if (request.normalize) return in_step();

  // The encoder runs after we return, on a second name of the recording that the del line
  // after us cannot reach. Where no second name can be made, it runs here as before.
  work.input = HoldSource(*source);
  if (work.input.empty()) {
    work.input = *source;
    return in_step();
  }
  // The worker waits for its place and starts the encoder itself, and we return only then: at
  // most one file of the job waits, and a freed place goes straight to an encoder, not to the
  // start of the script's next tool.
  std::optional<EncoderSlot> slot;
  Encoding encoding;
  const auto wait_turn = [&] {
    slot.emplace(places);
    encoding = StartEncoding(request, work, log);
  };
  const auto in_background = [&] {
    Finish(request, work, ports.binary_files, log, *slot, encoding);
  };
  if (RunInBackground(kJobTitle, wait_turn, in_background)) return 0;
  return in_step();
}

}  // namespace

int main(int argc, char** argv) {
  Request request;
  if (!ParseRequest(std::vector<std::string>(argv + 1, argv + argc), request)) {
    std::fputs(
        "usage: wavforge-encode SOURCE_BASE TOOLS_LOG EXTENSION ENCODER [ARGUMENT...]\n"
        "       wavforge-encode --normalize SOURCE_BASE TOOLS_LOG ENCODER [ARGUMENT...]\n",
        stderr);
    return kUsage;
  }
  return Run(request);
}
