// Edits of a reel's captions. Those that change which captions there are, or when, place the device anew
// where it steps aside for them. An index that is not there is passed over.
#pragma once

#include "TavixReelLive/Operations/TimelineEdits.h"

#include <cstddef>
#include <optional>
#include <string>

namespace tavix {

struct FlowSpec;
struct Timeline;

namespace CaptionEdits {

inline constexpr double leastDwellSec = 0.3;

// Two seconds of "New caption" at the playhead, moving as the narration's captions do.
void add(EffectsSpec& spec, const ReelClock& clock);
void remove(EffectsSpec& spec, std::size_t index);
// Words that stay keep their emphasis, and how the text moves is worked out for the new one.
void setText(EffectsSpec& spec, std::size_t index, const std::string& text);

void setTiming(
    EffectsSpec& spec, std::size_t index, double startSec, double dwellSec, const ReelClock& clock);
// With its length.
void move(EffectsSpec& spec, std::size_t index, double toStartSec, const ReelClock& clock);
void setEnd(EffectsSpec& spec, std::size_t index, double toSec, const ReelClock& clock);

// Of the name of an animation; absent: a plain bar.
void setKinetic(EffectsSpec& spec, std::size_t index, const std::optional<std::string>& preset);
// One that changes nothing is none.
void setOverride(EffectsSpec& spec, std::size_t index, const std::optional<CaptionStyleOverride>& style);
// Without a name the system's font, also where the narration has another one.
void setOverrideFont(EffectsSpec& spec, std::size_t index, const std::optional<std::string>& name,
    const std::optional<std::string>& path);
void setPosition(EffectsSpec& spec, std::size_t index, const std::optional<NormalizedPoint>& position);

// Captions of the flow's words for what the camera goes to, in place of those that are there. How many came
// out; with none everything stays.
std::size_t generate(EffectsSpec& spec, const FlowSpec* flow, const Timeline& timeline);

// Where the device stands aside for captions: planned anew on a landscape canvas, taken back on an upright
// one.
void placeDeviceAnew(EffectsSpec& spec);

}   // namespace CaptionEdits

}   // namespace tavix
