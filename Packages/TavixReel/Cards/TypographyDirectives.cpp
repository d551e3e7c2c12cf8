#include "TavixReel/Cards/TypographyDirectives.h"

#include "TavixBase/Failure.h"
#include "TavixBase/TextTrimming.h"
#include "TavixCore/Support/Names.h"
#include "TavixCore/Typography/KineticVocabulary.h"
#include "TavixReel/Flow/FlowSpec.h"

#include <algorithm>

namespace tavix {
namespace {

std::string joined(auto&& words) {
    std::string text;
    for (const std::string_view word : words) text.append(text.empty() ? "" : ", ").append(word);
    return text;
}

template <class E> std::optional<E> wordOf(const std::optional<std::string>& word) {
    return word ? named<E>(*word) : std::nullopt;
}

// The beats of a tempo that text can follow.
std::optional<BeatGrid> gridOf(const FlowTypography& typography) {
    constexpr double slowestBpm = 40, fastestBpm = 200;
    if (!typography.bpm || !(*typography.bpm >= slowestBpm && *typography.bpm <= fastestBpm)) return {};
    return BeatGrid{*typography.bpm, typography.offsetSec.value_or(0)};
}

}   // namespace

TypographyOverride TypographyOverride::parse(std::string_view argument) {
    const std::string text(trimmed(argument));
    if (text.empty())
        throw Failure("--typography is empty. Use auto | on | off | <intensity> | <preset>[:<intensity>].");
    if (text == "auto") return {};
    if (text == "on") return {Mode::on, {}, {}};
    if (text == "off") return {Mode::off, {}, {}};
    if (const auto intensity = named<KineticIntensity>(text)) return {Mode::on, {}, intensity};

    if (std::ranges::count(text, ':') > 1)
        throw Failure("--typography \"" + text + "\" has too many parts. Use <preset>[:<intensity>].");
    const std::size_t colon = text.find(':');
    const std::string preset = text.substr(0, colon);
    if (std::ranges::find(KineticVocabulary::presetIDs, preset) == KineticVocabulary::presetIDs.end())
        throw Failure("--typography: unknown preset \"" + preset + "\" (use " +
                      joined(KineticVocabulary::presetIDs) + ", or on/off/auto/<intensity>).");
    if (colon == std::string::npos) return {Mode::on, preset, {}};
    const std::string word = text.substr(colon + 1);
    const auto intensity = named<KineticIntensity>(word);
    if (!intensity)
        throw Failure("--typography: unknown intensity \"" + word + "\" (use " +
                      joined(KineticVocabulary::intensities()) + ").");
    return {Mode::on, preset, intensity};
}

std::optional<TypographyDirectives> TypographyResolver::resolve(
    const FlowSpec* flow, const TypographyOverride& override, bool existingKinetic) {
    switch (override.mode) {
    case TypographyOverride::Mode::off: return std::nullopt;
    case TypographyOverride::Mode::on: return build(flow, override);
    case TypographyOverride::Mode::automatic: break;
    }
    if (!flow || !flow->hasTypography() || existingKinetic) return std::nullopt;
    return build(flow, override);
}

TypographyDirectives TypographyResolver::build(const FlowSpec* flow, const TypographyOverride& override) {
    const FlowTypography asked = flow && flow->typography ? *flow->typography : FlowTypography{};
    TypographyDirectives directives;
    directives.reelPreset =
        override.preset.value_or(asked.style.value_or(std::string(KineticVocabulary::defaultPreset)));
    directives.speed = wordOf<KineticSpeed>(asked.speed).value_or(KineticSpeed::smooth);
    directives.weight = wordOf<KineticWeight>(asked.weight);
    directives.intensity = override.intensity.value_or(
        wordOf<KineticIntensity>(asked.intensity).value_or(KineticIntensity::medium));
    directives.intensityForced = override.intensity.has_value();
    directives.beatGrid = gridOf(asked);
    if (flow)
        for (const Step& step : flow->steps)
            if (step.typography) directives.perStep[step.index] = *step.typography;
    directives.cards = asked.cards;
    directives.phoneChoreography = asked.phoneChoreography.value_or("auto");
    return directives;
}

}   // namespace tavix
