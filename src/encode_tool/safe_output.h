#pragma once

#include <optional>
#include <string>

namespace wavforge::encode_tool {

// The recording base_path + ".wav" whatever the letter case of its extension (an exact ".wav"
// wins); nothing when there is no such regular file.
std::optional<std::string> FindSource(const std::string& base_path);

// A new, empty file in folder for the encoder to write, under a hidden name no del line of the
// job reaches; the name keeps the extension, from which some encoders pick the format. Sets
// error and returns "" when the folder is missing or not writable.
std::string CreateTemporaryOutput(const std::string& folder, const std::string& extension,
                                  std::string& error);

// Moves a finished output into place as stem.extension without ever replacing a file: when
// that name is taken, is the source or would be removed by the source's del line, the first
// free "stem (2).extension", "stem (3).extension", ... is taken. Returns the final path, or ""
// with error set.
std::string PlaceOutput(const std::string& temporary, const std::string& stem,
                        const std::string& extension, const std::string& source,
                        std::string& error);

// A second name for a recording while its encoder runs after the tool has returned:
// "<name> (encoding).wav" beside it (a hard link), which the del line that follows cannot reach,
// so the recording outlives that line, a crash or a power cut where the user looks for it.
// "" when the file system allows no second name.
std::string HoldSource(const std::string& source);

// Renames a source that could not be encoded (or its hold, when held is given) to
// "<name> (not encoded).wav" beside it, out of reach of the del line that follows; a source
// name that still names the held file is then removed, so one name is left as without a hold.
// Returns the new path, or the old one when that fails.
std::string KeepSource(const std::string& source, const std::string& held = {});

}  // namespace wavforge::encode_tool
