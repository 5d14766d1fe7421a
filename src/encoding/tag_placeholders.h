#pragma once

#include <string>
#include <string_view>

#include "encoding/track_tags.h"

namespace wavforge {

// Replaces the tag placeholders of a name template, ignoring letter case, one after the other
// in this order: "%Artist%", "%Title%", "%Album%", "%Station%" (the genre), "%Genre%". Each
// works on the result of the one before, so a tag holding a later placeholder has that
// replaced as well.
std::string ExpandTagPlaceholders(std::string_view template_text, const TrackTags& tags);

}  // namespace wavforge
