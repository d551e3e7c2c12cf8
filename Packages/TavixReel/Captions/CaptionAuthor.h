// Gives the steps on which the camera zooms a line each, and lays the lines out in time.
#pragma once

#include "TavixCore/Timeline/Timeline.h"
#include "TavixReel/Camera/HeroBeat.h"
#include "TavixReel/Captions/CaptionCopySource.h"
#include "TavixReel/Document/Narration.h"
#include "TavixReel/Flow/FlowSpec.h"

#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tavix::CaptionAuthor {

struct Options {
    CaptionTone tone = CaptionTone::marketing;
    std::int64_t maxWords = 9;      // of a line; at least one is kept
    std::int64_t maxCaptions = 8;   // of the reel; the earliest are kept
    double minDwellSec = 1.6;       // on screen
    double dwellPerWordSec = 0.35;
    CaptionStyle style;
};

// What a copy source is asked: the first steps on which the camera zooms, with what the flow or, without one,
// the sidecar knows of them. A step that neither knows is left out.
std::vector<CaptionBeatContext> contexts(
    const FlowSpec* flow, const Timeline& timeline, std::span<const HeroBeat> beats);

// The steps that captions may tell of, in time.
std::vector<HeroBeat> beats(const Timeline& timeline, const MotionSpec& motion, const Options& options);

// Nothing when no line comes out. What the copy source throws passes through.
std::optional<Narration> author(const FlowSpec* flow, const Timeline& timeline, const MotionSpec& motion,
    const Options& options, const CaptionCopySource& copy);

// Each line comes once the camera has arrived and stays as long as it takes to read. It waits for the one
// before it and a pause, so it may come later than its step, never earlier. A line that repeats the one
// before is left out.
std::optional<Narration> assemble(std::span<const HeroBeat> beats,
    const std::map<std::int64_t, std::string>& lines, const MotionSpec& motion, const Options& options);

// Without white space and one pair of quotes around it, and with its first words only.
std::string sanitize(std::string_view text, std::int64_t maxWords);

}   // namespace tavix::CaptionAuthor
