// Edits of a reel's title cards. An index that is not there is passed over.
#pragma once

#include "TavixReelLive/Operations/TimelineEdits.h"

#include <cstddef>
#include <optional>
#include <string>

namespace tavix::CardEdits {

// At the playhead, with the headline "Headline".
void add(EffectsSpec& spec, const TitleCardAnchor& anchor, const ReelClock& clock);
void remove(EffectsSpec& spec, std::size_t index);
// It stands there then, whatever it was placed by before.
void move(EffectsSpec& spec, std::size_t index, double toInsertionSec, const ReelClock& clock);
// 1.2 to 8 seconds.
void setDuration(EffectsSpec& spec, std::size_t index, double sec);

// Words that stay keep their emphasis, and how a text moves is worked out for the new one.
void setHeadlineText(EffectsSpec& spec, std::size_t index, const std::string& text);
// Makes a subline where there is none; an empty text takes it away.
void setSublineText(EffectsSpec& spec, std::size_t index, const std::string& text);
// Of both texts.
void setPreset(EffectsSpec& spec, std::size_t index, const std::string& preset);
void setFont(EffectsSpec& spec, std::size_t index, const std::optional<std::string>& name,
    const std::optional<std::string>& path);
// Absent: the reel's.
void setBackground(EffectsSpec& spec, std::size_t index, const std::optional<BackgroundFill>& fill);

}   // namespace tavix::CardEdits
