#include "TavixReel/Authoring/TeaserAuthor.h"

#include "TavixBase/TextTrimming.h"
#include "TavixCore/Theme/FontCatalog.h"
#include "TavixCore/Typography/KineticPresetCatalog.h"
#include "TavixCore/Values/TextWords.h"

#include <algorithm>

namespace tavix::TeaserAuthor {
namespace {

constexpr std::int64_t headlineSeed = 1000, sublineSeed = 2000;

double sizeOf(const TeaserSpec::Beat& beat) {
    if (beat.sizeFraction) return *beat.sizeFraction;
    const std::size_t words = KineticMath::words(beat.text).size();
    return words < 3 ? 0.08 : words < 5 ? 0.065 : 0.05;
}

KineticStyle styleOf(std::string_view preset, const std::string& text, std::int64_t seed) {
    KineticPresetRef ref{std::string(preset), KineticSpeed::smooth, std::nullopt, KineticIntensity::medium};
    return KineticPresetCatalog::resolve({std::move(ref), std::string_view(text), seed, std::nullopt}).style;
}

std::optional<std::string> fontNameOf(const TeaserSpec::Beat& beat) {
    if (!beat.font) return std::nullopt;
    const auto option = FontCatalog::resolve(*beat.font, nullptr);
    return option && option->postScriptName ? option->postScriptName : beat.font;
}

CardText textOf(const TeaserSpec::Beat& beat, const std::string& text, KineticStyle style) {
    CardText card;
    card.text = text;
    card.fontName = fontNameOf(beat);
    card.fontPath = beat.fontPath;
    card.color = beat.color.value_or(RGBAColor::white);
    card.shadow = TextShadow::standard;
    card.kinetic = std::move(style);
    return card;
}

CardText headlineOf(const TeaserSpec::Beat& beat, std::int64_t index) {
    const std::string_view preset = beat.preset ? std::string_view(*beat.preset) : defaultPreset;
    CardText text = textOf(beat, beat.text, styleOf(preset, beat.text, headlineSeed + index));
    text.sizeFraction = sizeOf(beat);
    text.fontWeight = FontWeight::bold;
    text.maxWidthFraction = 0.92;
    text.delaySec = 0.08;
    return text;
}

std::optional<CardText> sublineOf(const TeaserSpec::Beat& beat, std::int64_t index) {
    if (!beat.subline || trimmed(*beat.subline).empty()) return std::nullopt;
    CardText text = textOf(beat, *beat.subline, styleOf(defaultPreset, *beat.subline, sublineSeed + index));
    text.sizeFraction = sizeOf(beat) * 0.5;
    text.fontWeight = FontWeight::medium;
    text.maxWidthFraction = 0.8;
    text.delaySec = 0.24;
    return text;
}

}   // namespace

EffectsSpec author(const TeaserSpec& spec) {
    EffectsSpec reel;
    reel.schemaVersion = EffectsSpec::authoredSchemaVersion;
    reel.output = spec.output;
    reel.background.fill = spec.background;
    reel.cuts = {{.dropRange = {0, sourceSeconds}}};
    for (std::size_t i = 0; i < spec.beats.size(); ++i) {
        const TeaserSpec::Beat& beat = spec.beats[i];
        const auto index = static_cast<std::int64_t>(i);
        TitleCard card;
        card.insertionSec = double(i) + 1;
        card.durationSec = beat.holdSec;
        card.background = spec.background;
        card.headline = headlineOf(beat, index);
        card.subline = sublineOf(beat, index);
        reel.titleCards.push_back(TitleCard::clamped(std::move(card)));
    }
    return reel;
}

}   // namespace tavix::TeaserAuthor
