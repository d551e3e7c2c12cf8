// What the author of a flow, and the command line above it, want of a reel's text.
#pragma once

#include "TavixCore/Document/BeatGrid.h"
#include "TavixCore/Typography/KineticStyle.h"
#include "TavixReel/Flow/FlowTypography.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavix {

struct FlowSpec;

// The value of `--typography`.
struct TypographyOverride {
    enum class Mode { automatic, on, off };

    Mode mode = Mode::automatic;
    std::optional<std::string> preset;
    std::optional<KineticIntensity> intensity;

    // auto | on | off | <intensity> | <preset>[:<intensity>]. Throws a `Failure` for anything else.
    static TypographyOverride parse(std::string_view text);
    bool operator==(const TypographyOverride&) const = default;
};

struct TypographyDirectives {
    std::string reelPreset;
    KineticSpeed speed = KineticSpeed::smooth;
    std::optional<KineticWeight> weight;   // absent: the preset's own
    KineticIntensity intensity = KineticIntensity::medium;
    bool intensityForced = false;   // a step's own word does not count
    std::optional<BeatGrid> beatGrid;
    std::map<std::int64_t, StepTypography> perStep;
    std::vector<CardSpec> cards;
    std::string phoneChoreography;
};

namespace TypographyResolver {

// What is to be done, or nothing. Left to itself, text that was styled already is not styled again.
std::optional<TypographyDirectives> resolve(
    const FlowSpec* flow, const TypographyOverride& override, bool existingKinetic);
TypographyDirectives build(const FlowSpec* flow, const TypographyOverride& override);

}   // namespace TypographyResolver

}   // namespace tavix
