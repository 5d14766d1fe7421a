#include "encoding/tag_placeholders.h"

#include "settings/text_replace.h"

namespace wavforge {

std::string ExpandTagPlaceholders(std::string_view template_text, const TrackTags& tags) {
  std::string text = ReplaceAllIgnoreCase(template_text, "%Artist%", tags.Artist);
  text = ReplaceAllIgnoreCase(text, "%Title%", tags.Title);
  text = ReplaceAllIgnoreCase(text, "%Album%", tags.Album);
  text = ReplaceAllIgnoreCase(text, "%Station%", tags.Genre);
  return ReplaceAllIgnoreCase(text, "%Genre%", tags.Genre);
}

}  // namespace wavforge
