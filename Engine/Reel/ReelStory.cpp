#include "Engine/Reel/ReelStory.h"

#include "TavixCore/Support/Decimals.h"
#include "TavixCore/Support/Document.h"
#include "TavixReel/Camera/ReelCamera.h"

#include <algorithm>

namespace tavix::engine {

namespace {

using Segments = std::vector<ReelTimeline::ReelSegment>;

// What lasts longer than the recording ends with it, and not with a card that stands after it.
TimeRangeSec onFilm(const TimeRangeSec& preCut, const Segments& segments, double recordedSec) {
    return {ReelTimeline::compositionSec(preCut.startSec, segments),
        ReelTimeline::compositionSec(std::min(preCut.endSec, recordedSec), segments)};
}

// Cuts that a card hides are cuts all the same.
void addFootage(ReelStory& story, const Segments& segments) {
    double startSec = 0, shownUntilSec = 0;
    for (const auto& segment : segments) {
        const double endSec = startSec + ReelTimeline::durationSec(segment);
        if (const auto* footage = std::get_if<RetimedSegment>(&segment)) {
            const double droppedSec = footage->range.startSec - shownUntilSec;
            if (droppedSec > 0.000001) story.cuts.push_back({startSec, droppedSec});
            if (footage->speed != 1) story.paces.push_back({{startSec, endSec}, footage->speed});
            shownUntilSec = footage->range.endSec;
        }
        startSec = endSec;
    }
    if (story.recordedSec - shownUntilSec > 0.000001)
        story.cuts.push_back({startSec, story.recordedSec - shownUntilSec});
}

void addTexts(ReelStory& story, const EffectsSpec& spec, const Segments& segments) {
    if (spec.narration)
        for (const Caption& caption : spec.narration->captions)
            story.captions.push_back({onFilm(caption.window, segments, story.recordedSec), caption.text,
                caption.kinetic.has_value()});
    for (std::size_t i = 0; i < spec.titleCards.size(); ++i)
        if (const auto range = ReelTimeline::compositionRange(i, segments))
            story.cards.push_back({*range, spec.titleCards[i].headline.text});
}

std::string sec(double seconds) { return twoDecimals(seconds) + " s"; }
std::string span(const TimeRangeSec& range) {
    return twoDecimals(range.startSec) + " to " + sec(range.endSec);
}
std::string row(const std::string& time, const std::string& what) {
    constexpr std::size_t width = 20;
    return "  " + time + std::string(time.size() < width ? width - time.size() : 1, ' ') + what + "\n";
}

std::string named(const Timeline::Event& event) {
    return event.type + (event.label ? " \"" + *event.label + "\"" : "");
}

Json rangeJson(const TimeRangeSec& range, JsonObject rest) {
    rest.set("startSec", range.startSec);
    rest.set("endSec", range.endSec);
    return rest;
}

}   // namespace

ReelStory storyOf(const EffectsSpec& spec, const Timeline& timeline, double preCutDurationSec) {
    constexpr std::size_t pathSamples = 1200;
    const Segments segments = ReelTimeline::segmentsOf(spec, preCutDurationSec);
    ReelStory story;
    story.durationSec = ReelTimeline::outputDurationSec(segments);
    story.recordedSec = preCutDurationSec;
    story.output = spec.output;
    story.video = timeline.video;
    for (const Timeline::Event& event : timeline.events)
        story.steps.push_back(
            {ReelTimeline::compositionSec(event.actionSec.value_or(event.tSec), segments), event});
    for (const CameraKeyframe& keyframe : spec.cameraTrack)
        story.camera.push_back({ReelTimeline::compositionSec(keyframe.tSec, segments), keyframe});
    for (const ScreenTransition& transition : spec.transitions())
        story.transitions.push_back(
            {onFilm({transition.atSec, transition.revealSec}, segments, preCutDurationSec),
                transition.style});
    addFootage(story, segments);
    addTexts(story, spec, segments);
    const ReelCamera camera(spec);
    for (std::size_t i = 0; i < pathSamples; ++i) {
        const double atSec = story.durationSec * double(i) / double(pathSamples - 1);
        story.path.push_back(camera.sample(ReelTimeline::preCutSec(atSec, segments)));
    }
    return story;
}

std::string linesOf(const ReelStory& story) {
    std::string lines = sec(story.durationSec) + " from " + sec(story.recordedSec) + " of recording, " +
                        std::to_string(story.output.widthPx) + " × " + std::to_string(story.output.heightPx) +
                        " pixels at " + std::to_string(story.output.fps) + " frames a second\n";
    const auto chapter = [&lines](const char* title, bool isEmpty) {
        lines += std::string(title) + (isEmpty ? ": none\n" : "\n");
    };
    chapter("Steps", story.steps.empty());
    for (const auto& step : story.steps) lines += row(sec(step.atSec), named(step.event));
    chapter("Camera", story.camera.empty());
    for (const auto& move : story.camera)
        lines += row(sec(move.atSec), "× " + twoDecimals(move.keyframe.scale) + " at " +
                                          decimals(move.keyframe.centerPx.x, 0) + ", " +
                                          decimals(move.keyframe.centerPx.y, 0));
    chapter("Cuts", story.cuts.empty());
    for (const auto& cut : story.cuts) lines += row(sec(cut.atSec), sec(cut.droppedSec) + " dropped");
    chapter("Paces", story.paces.empty());
    for (const auto& pace : story.paces) lines += row(span(pace.range), "× " + twoDecimals(pace.speed));
    chapter("Transitions", story.transitions.empty());
    for (const auto& transition : story.transitions)
        lines += row(span(transition.range), std::string(nameOf(transition.style)));
    chapter("Captions", story.captions.empty());
    for (const auto& caption : story.captions)
        lines += row(span(caption.range), "\"" + caption.text + "\"" + (caption.moves ? ", moving" : ""));
    chapter("Cards", story.cards.empty());
    for (const auto& card : story.cards) lines += row(span(card.range), "\"" + card.headline + "\"");
    return lines;
}

JsonObject jsonOf(const ReelStory& story) {
    JsonArray steps, camera, cuts, paces, transitions, captions, cards;
    for (const auto& step : story.steps) {
        JsonObject one{{"atSec", step.atSec}, {"index", step.event.index}, {"type", step.event.type}};
        if (step.event.label) one.set("label", *step.event.label);
        steps.emplace_back(std::move(one));
    }
    for (const auto& move : story.camera)
        camera.emplace_back(JsonObject{{"atSec", move.atSec}, {"scale", move.keyframe.scale},
            {"centerPx", Codec<PixelPoint>::write(move.keyframe.centerPx)}});
    for (const auto& cut : story.cuts)
        cuts.emplace_back(JsonObject{{"atSec", cut.atSec}, {"droppedSec", cut.droppedSec}});
    for (const auto& pace : story.paces) paces.push_back(rangeJson(pace.range, {{"speed", pace.speed}}));
    for (const auto& transition : story.transitions)
        transitions.push_back(rangeJson(transition.range, {{"style", nameOf(transition.style)}}));
    for (const auto& caption : story.captions)
        captions.push_back(rangeJson(caption.range, {{"text", caption.text}, {"moves", caption.moves}}));
    for (const auto& card : story.cards)
        cards.push_back(rangeJson(card.range, {{"headline", card.headline}}));
    return JsonObject{{"durationSec", story.durationSec}, {"recordedSec", story.recordedSec},
        {"output", Codec<EffectsOutput>::write(story.output)}, {"steps", std::move(steps)},
        {"camera", std::move(camera)}, {"cuts", std::move(cuts)}, {"paces", std::move(paces)},
        {"transitions", std::move(transitions)}, {"captions", std::move(captions)},
        {"cards", std::move(cards)}};
}

}   // namespace tavix::engine
