#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wavforge {

// A path as wavforge-encode writes it into the tools' log: in double quotes, with backslash,
// double quote and control characters escaped (\\, \", \n, \r, \t, \xHH), so that every
// message stays on one line whatever a tag or file name holds.
std::string QuoteForLog(std::string_view text);

// The text of a quoted path that starts at text[at]; at is moved past the closing quote.
// Nothing when text[at] does not start a whole quoted path.
std::optional<std::string> UnquoteFromLog(std::string_view text, std::size_t& at);

}  // namespace wavforge
