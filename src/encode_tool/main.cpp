// wavforge-encode: runs one encoder for one recording of a job so that no recording is lost.
// The job script's next line may delete the source, so this tool only returns success once a
// complete output is in place under a name nothing of the job removes, and on failure moves
// the source out of that line's reach. Tags are read here from the recording itself, so no
// tag text ever stands in the script.
//
//   wavforge-encode SOURCE_BASE TOOLS_LOG EXTENSION ENCODER [ARGUMENT...]
//   wavforge-encode --normalize SOURCE_BASE TOOLS_LOG ENCODER [ARGUMENT...]
//
// ARGUMENTs may hold {in}, {out}, {artist}, {title}, {album} and {genre}.

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <vector>

#include "encode_tool/argument_tokens.h"
#include "encode_tool/encoder_run.h"
#include "encode_tool/safe_output.h"
#include "encode_tool/tool_log.h"
#include "encoding/log_quoting.h"
#include "encoding/media_duration.h"
#include "encoding/output_path.h"
#include "encoding/read_wav_tags.h"
#include "encoding/source_names.h"
#include "platform/posix/posix_platform.h"
#include "settings/load_settings.h"
#include "settings/product.h"

namespace {

using namespace wavforge;
using namespace wavforge::encode_tool;

constexpr int kFailed = 1;
constexpr int kUsage = 2;

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
  const TrackTags tags = ReadTagsWithNameFallback(ports.binary_files, *source);
  std::optional<double> source_seconds;
  if (auto file = ports.binary_files.OpenForReading(*source)) {
    source_seconds = PlayingSeconds(*file, "wav", true);
  }

  // Nothing is run on a file whose audio we cannot measure: an encoder may take garbage for raw
  // samples and "succeed", and the source would then be deleted for noise.
  if (!source_seconds) {
    log.Line("could not encode " + QuoteForLog(*source) +
             ": it is not a WAV recording that can be read" +
             (request.normalize
                  ? ""
                  : "; the recording is kept as " + QuoteForLog(KeepSource(*source))));
    return kFailed;
  }

  std::string stem = BasePath(*source);
  if (!request.normalize) {
    Settings settings;
    SettingsLoader(ports).LoadSettings(settings);
    stem = OutputPath(settings, tags, ports.files);
  }

  std::string error;
  std::string temporary = CreateTemporaryOutput(SourceFolder(stem), request.extension, error);
  if (error.empty()) {
    error = RunEncoder(FillArguments(request.encoder, *source, temporary, tags), log.Descriptor());
  }
  if (error.empty())
    error = CheckOutput(temporary, request.extension, source_seconds, ports.binary_files);

  std::string placed;
  if (error.empty() && request.normalize) {
    if (std::rename(temporary.c_str(), source->c_str()) == 0)
      placed = *source;
    else
      error = "the normalised recording could not replace the original";
  } else if (error.empty()) {
    placed = PlaceOutput(temporary, stem, request.extension, *source, error);
  }
  if (!error.empty()) {
    if (!temporary.empty()) unlink(temporary.c_str());
    if (request.normalize) {
      log.Line("could not normalise " + QuoteForLog(*source) + ": " + error +
               "; the recording is unchanged");
    } else {
      log.Line("could not encode " + QuoteForLog(*source) + ": " + error +
               "; the recording is kept as " + QuoteForLog(KeepSource(*source)));
    }
    return kFailed;
  }
  log.Line(request.normalize ? "normalised " + QuoteForLog(*source)
                             : "encoded " + QuoteForLog(*source) + " as " + QuoteForLog(placed));
  return 0;
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
