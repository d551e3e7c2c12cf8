// How captions get to move: their size, their time, their place.
#include "TavixCore/Support/Names.h"
#include "TavixCore/Typography/KineticPresetCatalog.h"
#include "TavixCore/Typography/KineticTiming.h"
#include "TavixCore/Values/ColorMixing.h"
#include "TavixCore/Values/TextWords.h"
#include "TavixReel/Cards/TypographyStage.h"
#include "TavixReel/Choreography/SideCaptionChoreography.h"
#include "TavixReel/Document/ReelCanvas.h"

#include <algorithm>
#include <cmath>

namespace tavix::TypographyAuthor {
namespace {

using CanvasGeometry::CanvasSize;

template <class E> E wordOr(const std::optional<std::string>& word, E otherwise) {
    return word ? named<E>(*word).value_or(otherwise) : otherwise;
}

bool isBeside(std::string_view zone) { return zone == "left" || zone == "right"; }

// The size that a text of so many words is meant to have.
double targetSize(std::string_view zone, std::size_t wordCount, double baseSize) {
    if (zone == "lower") return wordCount <= 2 ? 0.055 : wordCount <= 4 ? 0.042 : baseSize;
    return wordCount <= 2 ? 0.08 : wordCount <= 4 ? 0.065 : 0.05;
}

// The largest size up to the target at which the text keeps to its part of the canvas.
double fittedSize(
    std::string_view text, double target, double baseSize, double budgetPx, double canvasHeightPx) {
    constexpr double leastSize = 0.03, step = 0.004, tolerance = 1e-9;
    constexpr double mostWidth = 0.78, mostHeight = 0.4;
    if (!(baseSize < target)) return baseSize;
    const double start = std::max(baseSize, leastSize);
    double fitted = start;
    for (int i = 1; start + step * i <= target + tolerance; ++i) {
        const double size = start + step * i;
        const auto block = CanvasGeometry::blockSize(text, size, budgetPx, canvasHeightPx);
        if (block.widthPx <= mostWidth * budgetPx && block.heightPx <= mostHeight * canvasHeightPx)
            fitted = size;
    }
    return fitted;
}

bool overlaps(const TimeRangeSec& a, const TimeRangeSec& b) {
    return a.startSec < b.endSec && b.startSec < a.endSec;
}

struct Place {
    std::string zone;
    std::optional<NormalizedPoint> position;   // absent: where captions go
};

class CaptionTypesetter {
public:
    CaptionTypesetter(Narration& narration, const TypographyStage& stage, Report& report)
        : narration_(narration), stage_(stage), report_(report),
          windows_(narration.windows()), canvas_{double(stage.spec.output.widthPx),
                                             double(stage.spec.output.heightPx)},
          frame_(CanvasGeometry::deviceFrameRect(stage.spec)),
          luminance_(
              backgroundMidLuminance(stage.backdrop() ? *stage.backdrop() : stage.spec.background.fill)),
          tone_(toneOn(luminance_)) {
        for (const Cut& cut : stage.spec.cuts) blocked_.push_back(cut.dropRange);
        for (const RetimeSegment& segment : stage.spec.retimeTrack)
            if (segment.isRamp()) blocked_.push_back(segment.range);
    }

    void set(std::size_t index) {
        Caption& caption = narration_.captions[index];
        const auto found = stage_.directives.perStep.find(caption.stepIndex);
        const StepTypography asked =
            found == stage_.directives.perStep.end() ? StepTypography{} : found->second;
        const CaptionStyle style = narration_.styleOf(caption);
        const std::string zone =
            asked.zone
                ? *asked.zone
                : std::string(SideCaptionChoreography::defaultKineticZone(index, windows_, stage_.spec));
        const double size = fittedSize(caption.text,
            targetSize(zone, KineticMath::words(caption.text).size(), style.fontSizeFraction),
            style.fontSizeFraction, (isBeside(zone) ? 0.46 : 0.8) * canvas_.widthPx, canvas_.heightPx);
        const KineticStyle kinetic = kineticOf(caption, asked);

        caption.emphasis = resolveEmphasis(asked.emphasis,
            {caption.text, style, kinetic.intensity, luminance_}, stage_.brand(), labelOf(caption), report_);
        const TimeRangeSec window = windowFor(caption, kinetic);
        if (std::ranges::any_of(
                blocked_, [&](const TimeRangeSec& range) { return overlaps(window, range); })) {
            report_.notes.push_back(labelOf(caption) + " intersects a cut/ramp → legacy bar.");
            return;
        }
        const Place place = placeFor(caption, zone, size, style);
        if (place.zone != zone)
            report_.notes.push_back(labelOf(caption) + " zone " + zone + "→" + place.zone + " (didn't fit).");
        caption.window = window;
        caption.position = place.position;
        caption.kinetic = kinetic;
        CaptionStyleOverride changes = caption.style.value_or(CaptionStyleOverride{});
        changes.fontSizeFraction = size;
        changes.textColor = tone_;
        changes.textShadow = style.textShadow.value_or(TextShadow::standard);
        caption.style = std::move(changes);
    }

private:
    static std::string labelOf(const Caption& caption) {
        return "caption[" + std::to_string(caption.stepIndex) + "]";
    }

    KineticStyle kineticOf(const Caption& caption, const StepTypography& asked) {
        const TypographyDirectives& directives = stage_.directives;
        const auto weight = asked.weight ? named<KineticWeight>(*asked.weight) : std::nullopt;
        KineticPresetRef preset{asked.preset.value_or(directives.reelPreset),
            wordOr(asked.speed, directives.speed), weight ? weight : directives.weight,
            directives.intensityForced ? directives.intensity
                                       : wordOr(asked.intensity, directives.intensity)};
        auto resolution = KineticPresetCatalog::resolve(
            {std::move(preset), std::string_view(caption.text), caption.stepIndex, stage_.accent});
        for (const std::string& note : resolution.notes)
            report_.notes.push_back(labelOf(caption) + " " + note);
        tintEntrance(resolution.style);
        return resolution.style;
    }

    // An entrance with a colour of its own takes one that this background bears.
    void tintEntrance(KineticStyle& style) const {
        constexpr double dimAlpha = 0.42, towardsTone = 0.45;
        if (!style.inPhase.color) return;
        if (style.presetID == "karaoke-fill")
            style.inPhase.color = RGBAColor{tone_.r, tone_.g, tone_.b, dimAlpha};
        else if (style.intensity == KineticIntensity::high && stage_.accent)
            style.inPhase.color = movedTowards(*stage_.accent, tone_, towardsTone);
    }

    // Long enough to move in and out, not before its step, within the media, and on a beat where one is near.
    TimeRangeSec windowFor(const Caption& caption, const KineticStyle& kinetic) const {
        const auto event = stage_.eventSec.find(caption.stepIndex);
        const double stepSec = event == stage_.eventSec.end() ? caption.window.startSec : event->second;
        const double needSec = KineticTiming::minWindowSec(kinetic, caption.text);
        const double mediaEndSec = stage_.mediaEndSec;
        TimeRangeSec window{std::max(caption.window.startSec, stepSec), 0};
        window.endSec = std::max(caption.window.endSec, window.startSec + needSec);
        if (window.endSec > mediaEndSec) {
            window.endSec = mediaEndSec;
            if (window.startSec + needSec > mediaEndSec)
                window.startSec = std::max(mediaEndSec - needSec, stepSec);
        }
        if (stage_.directives.beatGrid) snapToBeat(window, stepSec, needSec);
        return window;
    }

    void snapToBeat(TimeRangeSec& window, double stepSec, double needSec) const {
        constexpr double furthestSec = 1.5;
        const BeatGrid& grid = *stage_.directives.beatGrid;
        double beatSec = grid.nearestBeat(window.startSec);
        if (beatSec < stepSec) beatSec += grid.beatDuration();
        if (beatSec < stepSec || beatSec - window.startSec > furthestSec ||
            beatSec + needSec > stage_.mediaEndSec)
            return;
        window.startSec = beatSec;
        window.endSec = std::max(window.endSec, beatSec + needSec);
    }

    // The first zone of the chain in which the text has room.
    Place placeFor(
        const Caption& caption, const std::string& zone, double size, const CaptionStyle& style) const {
        constexpr double airFraction = 0.01;
        const double wrapPx = std::max(canvas_.widthPx - 2 * style.safeInsetFraction * canvas_.heightPx, 1.0);
        const auto block = CanvasGeometry::blockSize(caption.text, size, wrapPx, canvas_.heightPx);
        const double needWidthPx = airFraction * canvas_.widthPx + block.widthPx;
        for (const std::string& candidate : CanvasGeometry::fallbackChain(zone)) {
            if (candidate == "lower") return {candidate, std::nullopt};
            const auto placed = CanvasGeometry::zonePlacement(candidate, block, frame_, canvas_);
            const bool fits = isBeside(candidate) ? needWidthPx <= besideRoomPx(candidate) : placed.fits;
            if (fits) return {candidate, placed.center};
        }
        return {"center", NormalizedPoint{0.5, 0.5}};
    }

    double besideRoomPx(std::string_view zone) const {
        constexpr double marginFraction = 0.04;   // of the canvas height, kept free at its edges
        const double marginPx = marginFraction * canvas_.heightPx;
        return zone == "left" ? frame_.x - marginPx : canvas_.widthPx - marginPx - frame_.maxX();
    }

    Narration& narration_;
    const TypographyStage& stage_;
    Report& report_;
    const std::vector<TimeRangeSec> windows_;   // as they were
    CanvasSize canvas_;
    PixelRect frame_;
    double luminance_;
    RGBAColor tone_;
    std::vector<TimeRangeSec> blocked_;
};

// At most two moving captions are drawn at once, so a third one waits for the first to end.
void cascade(std::vector<Caption>& captions) {
    std::vector<Caption*> sorted;
    for (Caption& caption : captions) sorted.push_back(&caption);
    std::ranges::stable_sort(sorted, {}, [](const Caption* caption) { return caption->window.startSec; });
    std::vector<double> endsSec;
    for (Caption* caption : sorted) {
        TimeRangeSec& window = caption->window;
        if (caption->kinetic && endsSec.size() >= 2) {
            const double freeSec = endsSec[endsSec.size() - 2];
            if (window.startSec < freeSec) window = {freeSec, freeSec + (window.endSec - window.startSec)};
        }
        endsSec.push_back(window.endSec);
    }
}

}   // namespace

void authorCaptions(Narration& narration, const TypographyStage& stage, Report& report) {
    CaptionTypesetter typesetter(narration, stage, report);
    for (std::size_t i = 0; i < narration.captions.size(); ++i) typesetter.set(i);
    cascade(narration.captions);
}

}   // namespace tavix::TypographyAuthor
