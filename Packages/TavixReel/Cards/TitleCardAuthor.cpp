// How title cards come about: what they say, how large, how long, where.
#include "TavixBase/TextTrimming.h"
#include "TavixCore/Typography/KineticPresetCatalog.h"
#include "TavixCore/Typography/KineticTiming.h"
#include "TavixCore/Typography/KineticVocabulary.h"
#include "TavixCore/Values/ColorMixing.h"
#include "TavixCore/Values/TextWords.h"
#include "TavixReel/Cards/TitleCardResolver.h"
#include "TavixReel/Cards/TypographyStage.h"
#include "TavixReel/Flow/FlowSpec.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavix::TypographyAuthor {
namespace {

constexpr std::size_t mostCards = 3;

double headlineSize(std::size_t wordCount, KineticIntensity intensity) {
    const double size = wordCount <= 2 ? 0.075 : wordCount <= 4 ? 0.066 : wordCount <= 6 ? 0.058 : 0.052;
    switch (intensity) {
    case KineticIntensity::low: return size * 0.92;
    case KineticIntensity::medium: return size;
    case KineticIntensity::high: return size * 1.12;
    }
    return size;
}

// What stands behind all cards.
BackgroundFill backgroundOf(const TypographyStage& stage) {
    constexpr double darkStart = 0.55, darkEnd = 0.82, angleDegrees = 30;
    const auto& scene = stage.spec.deviceScene;
    if (const BackgroundFill* backdrop = stage.backdrop()) return *backdrop;
    if (scene && scene->enabled) return stage.spec.background.fill;
    if (!stage.accent) return LinearGradient::standard();
    return LinearGradient{{{movedTowards(*stage.accent, RGBAColor::black, darkStart), 0},
                              {movedTowards(*stage.accent, RGBAColor::black, darkEnd), 1}},
        angleDegrees};
}

std::map<std::int64_t, TitleCardResolver::StepTime> stepTimesOf(const TypographyStage& stage) {
    std::map<std::int64_t, TitleCardResolver::StepTime> times;
    if (!stage.flow) return times;
    for (const Step& step : stage.flow->steps) {
        const auto event = stage.eventSec.find(step.index);
        times.emplace(
            step.index, TitleCardResolver::StepTime{event == stage.eventSec.end() ? 0 : event->second,
                            step.dwellBeforeMs, step.dwellAfterMs});
    }
    return times;
}

// How long a text takes to come in, be seen and go out.
double needSec(const CardText& text) {
    constexpr double seenSec = 0.2;
    return text.delaySec + KineticTiming::inCompletionSec(text.kinetic, text.text) + seenSec +
           text.kinetic.outPhase.durationSec;
}

class CardWriter {
public:
    CardWriter(const TypographyStage& stage, Report& report)
        : stage_(stage), report_(report), background_(backgroundOf(stage)),
          luminance_(backgroundMidLuminance(background_)), stepTimes_(stepTimesOf(stage)) {}

    TitleCard write(const CardSpec& asked, std::size_t index) {
        const std::string whose = "card " + std::to_string(index);
        TitleCard card;
        card.anchor = anchorOf(asked);
        if (trimmed(asked.headline).empty()) report_.errors.push_back(whose + " has an empty headline.");
        if (asked.showLogo)
            report_.notes.push_back(whose + ": showLogo requested but logo export is not available yet.");
        card.background = background_;
        card.headline = headline(asked, index, whose);
        if (!trimmed(asked.subline.value_or("")).empty())
            card.subline = subline(asked, card.headline, index, whose);
        card.durationSec = lengthSec(asked, card);
        const Narration narration = stage_.spec.narration.value_or(Narration{});
        card.insertionSec = TitleCardResolver::insertionSec(card.anchor, stepTimes_, stage_.spec.cuts,
            stage_.spec.retimeTrack, narration.windows(), stage_.mediaEndSec);
        return TitleCard::clamped(std::move(card));
    }

private:
    TitleCardAnchor anchorOf(const CardSpec& asked) {
        if (asked.at == "start") return AtStart{};
        if (asked.at != "afterStep") return AtEnd{};
        if (asked.afterStep) return AfterStep{*asked.afterStep};
        report_.errors.push_back("card afterStep missing an index.");
        return CustomAnchor{};
    }

    KineticStyle kinetic(std::string preset, const std::string& text, std::int64_t seed) const {
        return KineticPresetCatalog::resolve(
            {{std::move(preset), stage_.directives.speed, {}, stage_.directives.intensity},
                std::string_view(text), seed, stage_.accent})
            .style;
    }

    static std::int64_t seedOf(std::size_t index) { return 1000 + std::int64_t(index); }

    // What both texts of a card have in common.
    CardText text(std::string words, const std::vector<EmphasisSpanSpec>& emphasis, FontWeight weight,
        const std::string& whose) {
        CardText text;
        text.text = std::move(words);
        text.fontWeight = weight;
        text.color = toneOn(luminance_);
        text.shadow = TextShadow::standard;
        CaptionStyle style;
        if (stage_.spec.narration) {
            text.fontName = style.fontName = stage_.spec.narration->style.fontName;
            text.fontPath = style.fontPath = stage_.spec.narration->style.fontPath;
        }
        style.textColor = text.color;
        style.fontWeight = weight;
        text.emphasis =
            resolveEmphasis(emphasis, {text.text, std::move(style), stage_.directives.intensity, luminance_},
                stage_.brand(), whose, report_);
        return text;
    }

    CardText headline(const CardSpec& asked, std::size_t index, const std::string& whose) {
        CardText made = text(asked.headline, asked.emphasis, FontWeight::bold, whose);
        made.sizeFraction = headlineSize(KineticMath::words(made.text).size(), stage_.directives.intensity);
        made.maxWidthFraction = 0.82;
        made.delaySec = 0.12;
        made.kinetic = kinetic(asked.preset.value_or(std::string(KineticVocabulary::defaultCardPreset)),
            made.text, seedOf(index));
        return made;
    }

    CardText subline(
        const CardSpec& asked, const CardText& headline, std::size_t index, const std::string& whose) {
        constexpr double smallest = 0.026, largest = 0.038, afterHeadline = 0.6;
        CardText made = text(*asked.subline, asked.sublineEmphasis, FontWeight::medium, whose);
        made.sizeFraction = std::clamp(headline.sizeFraction * 0.5, smallest, largest);
        made.maxWidthFraction = 0.78;
        made.delaySec =
            afterHeadline * KineticTiming::inCompletionSec(headline.kinetic, headline.text) + 0.12;
        made.kinetic = kinetic("fade-up", made.text, seedOf(index));
        return made;
    }

    double lengthSec(const CardSpec& asked, const TitleCard& card) const {
        constexpr double leastSec = 1.2, roundingBeats = 1e-9;
        double sec =
            std::max({KineticVocabulary::cardLengthSeconds(asked.length), leastSec, needSec(card.headline)});
        if (card.subline) sec = std::max(sec, needSec(*card.subline));
        if (!stage_.directives.beatGrid) return sec;
        const double beatSec = stage_.directives.beatGrid->beatDuration();
        return std::ceil(sec / beatSec - roundingBeats) * beatSec;
    }

    const TypographyStage& stage_;
    Report& report_;
    BackgroundFill background_;
    double luminance_;
    std::map<std::int64_t, TitleCardResolver::StepTime> stepTimes_;
};

}   // namespace

std::vector<TitleCard> authorCards(const TypographyStage& stage, Report& report) {
    std::vector<CardSpec> asked = stage.directives.cards;
    std::ranges::stable_sort(asked, {}, [](const CardSpec& card) {
        const bool isAfterStep = card.at == "afterStep";
        return std::pair(card.at == "start" ? 0
                         : isAfterStep      ? 1
                                            : 2,
            isAfterStep ? card.afterStep.value_or(0) : 0);
    });
    if (asked.size() > mostCards) {
        report.notes.push_back("cards: dropped " + std::to_string(asked.size() - mostCards) + " beyond the " +
                               std::to_string(mostCards) + "-card cap.");
        asked.resize(mostCards);
    }
    CardWriter writer(stage, report);
    std::vector<TitleCard> cards;
    for (std::size_t i = 0; i < asked.size(); ++i) cards.push_back(writer.write(asked[i], i));
    return cards;
}

}   // namespace tavix::TypographyAuthor
