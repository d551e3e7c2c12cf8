#include "TavixReel/Cards/TypographyAuthor.h"

#include "TavixCore/Support/Names.h"
#include "TavixCore/Typography/KineticPresetCatalog.h"
#include "TavixCore/Values/ColorMixing.h"
#include "TavixCore/Values/TextWords.h"
#include "TavixReel/Cards/TypographyStage.h"

#include <algorithm>

namespace tavix::TypographyAuthor {
namespace {

TypographyStage stageOf(const EffectsSpec& spec, const TypographyDirectives& directives, const FlowSpec* flow,
    const Timeline& timeline) {
    constexpr double leastSec = 1.5, afterLastSec = 2;
    TypographyStage stage{spec, directives, flow, {}, {}, 0};
    if (spec.brand) stage.accent = spec.brand->accent;
    for (const Timeline::Event& event : timeline.events) stage.eventSec.emplace(event.index, event.tSec);
    const double lastSec = timeline.events.empty() ? 0 : timeline.events.back().tSec;
    stage.mediaEndSec = std::max(leastSec, lastSec + afterLastSec);
    if (spec.narration)
        for (const Caption& caption : spec.narration->captions)
            stage.mediaEndSec = std::max(stage.mediaEndSec, caption.window.endSec);
    return stage;
}

EmphasisToken tokenOf(const EmphasisSpanSpec& asked) {
    return named<EmphasisToken>(asked.token).value_or(EmphasisToken::accent);
}

}   // namespace

RGBAColor toneOn(double luminance) {
    return luminance < 0.5 ? RGBAColor::white : RGBAColor{0.06, 0.06, 0.08, 1};
}

const BackgroundFill* TypographyStage::backdrop() const {
    const auto& scene = spec.deviceScene;
    return scene && scene->enabled && scene->backdrop ? &*scene->backdrop : nullptr;
}

double backgroundMidLuminance(const BackgroundFill& fill) {
    constexpr double unknown = 0.2;
    if (const auto* color = std::get_if<RGBAColor>(&fill)) return luminance(*color);
    const auto* gradient = std::get_if<LinearGradient>(&fill);
    if (!gradient || gradient->stops.empty()) return unknown;
    // Of stops in one place the order given decides, as in drawing.
    const auto [first, last] = std::ranges::minmax_element(gradient->stops, {}, &GradientStop::location);
    return (luminance(first->color) + luminance(last->color)) / 2;
}

std::vector<EmphasisSpan> resolveEmphasis(const std::vector<EmphasisSpanSpec>& asked,
    const EmphasisRequest& request, const BrandKit* brand, const std::string& whose, Report& report) {
    const auto count = static_cast<std::int64_t>(KineticMath::words(request.text).size());
    std::vector<EmphasisSpan> spans;
    for (const EmphasisSpanSpec& one : asked) {
        EmphasisSpan span;
        std::ranges::copy_if(one.wordIndices, std::back_inserter(span.wordIndices),
            [count](std::int64_t index) { return index >= 0 && index < count; });
        if (span.wordIndices.size() < one.wordIndices.size())
            report.notes.push_back(whose + " dropped out-of-range emphasis indices.");
        if (span.wordIndices.empty()) continue;
        span.token = tokenOf(one);
        span.style = EmphasisResolver::resolve(
            span.token, request.style, brand, request.intensity, request.backgroundLuminance);
        spans.push_back(std::move(span));
    }
    return spans;
}

Report apply(EffectsSpec& spec, const TypographyDirectives& directives, const FlowSpec* flow,
    const Timeline& timeline) {
    Report report;
    if (!spec.narration && (!directives.cards.empty() || directives.beatGrid)) spec.narration.emplace();
    const TypographyStage stage = stageOf(spec, directives, flow, timeline);
    if (spec.narration) {
        Narration narration = *spec.narration;
        narration.kineticDefaults = KineticPresetCatalog::resolve(
            {.preset = {directives.reelPreset, directives.speed, directives.weight, directives.intensity},
                .text = {},
                .seed = 0,
                .accent = {}}).style;
        narration.beatGrid = directives.beatGrid;
        authorCaptions(narration, stage, report);
        spec.narration = std::move(narration);
    }
    spec.titleCards = authorCards(stage, report);
    return report;
}

}   // namespace tavix::TypographyAuthor
