#include "TavixReelLive/Operations/CaptionEdits.h"

#include "TavixCore/Typography/EmphasisRemap.h"
#include "TavixReel/Captions/CaptionAuthor.h"
#include "TavixReel/Captions/CaptionCopySource.h"
#include "TavixReel/Choreography/SideCaptionChoreography.h"
#include "TavixReel/Flow/MotionSpec.h"
#include "TavixReelLive/Operations/KineticOfText.h"

#include <algorithm>

namespace tavix::CaptionEdits {

namespace {

constexpr const char* newText = "New caption";
constexpr double newDwellSec = 2, leastRoomSec = 0.1;

Caption* at(EffectsSpec& spec, std::size_t index) {
    const bool isThere = spec.narration && index < spec.narration->captions.size();
    return isThere ? &spec.narration->captions[index] : nullptr;
}

}   // namespace

void placeDeviceAnew(EffectsSpec& spec) {
    if (!spec.sideCaptions) return;
    const bool hasCaptions = spec.narration && !spec.narration->captions.empty();
    if (spec.output.isLandscape() && hasCaptions)
        SideCaptionChoreography::replanForLandscape(spec);
    else   // there is no room aside, or nothing to make room for
        SideCaptionChoreography::resetForPortrait(spec);
}

void add(EffectsSpec& spec, const ReelClock& clock) {
    if (!spec.narration) spec.narration.emplace();
    Caption caption;
    caption.text = newText;
    caption.window = {clock.playheadSec, std::min(clock.playheadSec + newDwellSec, clock.lengthSec)};
    caption.kinetic = spec.narration->kineticDefaults;
    spec.narration->captions.push_back(std::move(caption));
    placeDeviceAnew(spec);
}

void remove(EffectsSpec& spec, std::size_t index) {
    if (!at(spec, index)) return;
    auto& captions = spec.narration->captions;
    captions.erase(captions.begin() + static_cast<std::ptrdiff_t>(index));
    placeDeviceAnew(spec);
}

void setText(EffectsSpec& spec, std::size_t index, const std::string& text) {
    Caption* const caption = at(spec, index);
    if (!caption) return;
    caption->emphasis = EmphasisRemap::remap(caption->emphasis, caption->text, text);
    caption->text = text;
    if (caption->kinetic) caption->kinetic = kineticOfText(*caption->kinetic, text);
}

void setTiming(
    EffectsSpec& spec, std::size_t index, double startSec, double dwellSec, const ReelClock& clock) {
    Caption* const caption = at(spec, index);
    if (!caption) return;
    const double start = std::clamp(startSec, 0.0, clock.lengthSec - leastRoomSec);
    caption->window = {start, std::min(start + std::max(dwellSec, leastDwellSec), clock.lengthSec)};
    placeDeviceAnew(spec);
}

void move(EffectsSpec& spec, std::size_t index, double toStartSec, const ReelClock& clock) {
    Caption* const caption = at(spec, index);
    if (!caption) return;
    const double lengthSec = caption->window.endSec - caption->window.startSec;
    const double start = std::clamp(toStartSec, 0.0, std::max(clock.lengthSec - lengthSec, 0.0));
    caption->window = {start, start + lengthSec};
    placeDeviceAnew(spec);
}

void setEnd(EffectsSpec& spec, std::size_t index, double toSec, const ReelClock& clock) {
    Caption* const caption = at(spec, index);
    if (!caption) return;
    caption->window.endSec =
        std::min(std::max(toSec, caption->window.startSec + leastDwellSec), clock.lengthSec);
    placeDeviceAnew(spec);
}

void setKinetic(EffectsSpec& spec, std::size_t index, const std::optional<std::string>& preset) {
    Caption* const caption = at(spec, index);
    if (!caption) return;
    caption->kinetic.reset();
    if (preset) caption->kinetic = kineticOfText({.preset = *preset}, caption->text);
}

void setOverride(EffectsSpec& spec, std::size_t index, const std::optional<CaptionStyleOverride>& style) {
    if (Caption* const caption = at(spec, index))
        caption->style = style && !style->isEmpty() ? style : std::nullopt;
}

void setOverrideFont(EffectsSpec& spec, std::size_t index, const std::optional<std::string>& name,
    const std::optional<std::string>& path) {
    Caption* const caption = at(spec, index);
    if (!caption) return;
    CaptionStyleOverride style = caption->style.value_or(CaptionStyleOverride{});
    style.fontName = name.value_or(std::string(CaptionStyleOverride::systemFontSentinel));
    style.fontPath = name ? path : std::nullopt;
    caption->style = std::move(style);
}

void setPosition(EffectsSpec& spec, std::size_t index, const std::optional<NormalizedPoint>& position) {
    if (Caption* const caption = at(spec, index)) caption->position = position;
}

std::size_t generate(EffectsSpec& spec, const FlowSpec* flow, const Timeline& timeline) {
    CaptionAuthor::Options options;
    if (spec.narration) options.style = spec.narration->style;
    auto made = CaptionAuthor::author(flow, timeline, MotionSpec::smoothGlide, options, ProvidedCopySource());
    if (!made) return 0;
    spec.narration = std::move(made);
    placeDeviceAnew(spec);
    return spec.narration->captions.size();
}

}   // namespace tavix::CaptionEdits
