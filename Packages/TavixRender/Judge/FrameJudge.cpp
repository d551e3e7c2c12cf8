#include "TavixRender/Judge/FrameJudge.h"

#include "TavixCore/Support/Decimals.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Export/CompositionRenderer.h"
#include "TavixRender/Judge/ContrastRules.h"
#include "TavixRender/Judge/FlashWatch.h"
#include "TavixRender/Judge/Screening.h"
#include "TavixRender/Judge/StillnessWatch.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace tavix::FrameJudge {
namespace {

using CompositionLint::Finding;
using CompositionLint::findingOf;
using CompositionLint::Rule;

constexpr std::size_t mostTexts = 200;

std::string stretch(double fromSec, double toSec) {
    return "from " + decimals(fromSec, 1) + " to " + decimals(toSec, 1) + " s";
}

// Where to look: the scene that runs in the middle of a stretch, and every scene that it touches by name.
struct Place {
    std::string path, scenes;
};

Place placeOf(
    const CompositionSpec& spec, const CompositionTimeline& timeline, double fromSec, double toSec) {
    const auto sceneAt = [&](double sec) {
        const auto sample = timeline.sample(sec);
        return sample ? sample->incoming && sample->progress > 0.5 ? sample->incoming->index
                                                                   : sample->outgoing.index
                      : 0;
    };
    const std::size_t first = sceneAt(fromSec),
                      last = std::max(sceneAt(std::max(toSec - 1e-3, fromSec)), first);
    std::string names = spec.scenes[first].displayName(first);
    if (last > first) names += (last > first + 1 ? " to " : " and ") + spec.scenes[last].displayName(last);
    return {"scenes[" + std::to_string(sceneAt((fromSec + toSec) / 2)) + "]", names};
}

void tellFlashes(const CompositionSpec& spec, const CompositionTimeline& timeline, Rule rule,
    const char* kind, const std::vector<FlashSpan>& spans, std::vector<Finding>& findings) {
    for (const FlashSpan& span : spans) {
        const Place place = placeOf(spec, timeline, span.fromSec, span.toSec);
        findings.push_back(findingOf(rule, place.path,
            std::string("More than three ") + kind + " within a second " + stretch(span.fromSec, span.toSec) +
                " (" + place.scenes + "), over " +
                decimals(std::min(std::round(span.areaFraction * 100), 100.0), 0) +
                " % of a field of 10 degrees, where a quarter is the most. They can cause seizures.",
            "Flash at most three times in any second, over a smaller area, or with less difference."));
    }
}

void tellStillness(const CompositionSpec& spec, const CompositionTimeline& timeline,
    const std::vector<StillSpan>& spans, std::vector<Finding>& findings) {
    for (const StillSpan& span : spans) {
        const Place place = placeOf(spec, timeline, span.fromSec, span.toSec);
        findings.push_back(findingOf(span.isBlack ? Rule::framesBlack : Rule::framesFrozen, place.path,
            (span.isBlack ? "The film is black " : "Nothing moves ") + stretch(span.fromSec, span.toSec) +
                " (" + place.scenes + ")."));
    }
}

void watch(const CompositionSpec& small, const Request& request, std::vector<Finding>& findings) {
    const CompositionTimeline timeline(small);
    const double fps = double(small.output.fps);
    const std::int64_t count = CompositionRenderer::frameCount(small);
    FlashWatch flashes(canvasSize(small), fps);
    StillnessWatch stillness(fps);
    Screening screening(small, request.assetRoot, request.log);
    for (std::int64_t i = 0; i < count; ++i) {
        if (request.stop.stop_requested()) throw RenderStopped();
        if (request.onProgress) request.onProgress(double(i) / double(count));
        const imaging::Bitmap frame = screening.frame(double(i) / fps);
        flashes.take(frame.view());
        stillness.take(frame.view());
    }
    tellFlashes(small, timeline, Rule::flashGeneral, "flashes", flashes.general(), findings);
    tellFlashes(small, timeline, Rule::flashRed, "flashes of red", flashes.red(), findings);
    tellStillness(small, timeline, stillness.spans(), findings);
}

// Of texts over pictures; those over plain paints are judged by geometry.
void judgeContrast(const Request& request, std::vector<Finding>& findings) {
    FilmAssets assets(request.assetRoot);
    const CompositionGeometry geometry(request.spec, assets);
    std::optional<PicturedGround> pictures;
    std::size_t judged = 0;
    for (std::size_t scene = 0; scene < request.spec.scenes.size(); ++scene)
        for (const FilmJudge::TextAtRest& text : FilmJudge::textsAtRest(geometry, scene)) {
            if (request.stop.stop_requested()) throw RenderStopped();
            const FrameGeometry frame = geometry.frame(scene, text.localSec);
            const bool isPainted =
                FilmJudge::contrastOf(geometry, text, FilmJudge::paintedGround(geometry, frame, text.layer))
                    .has_value();
            if (isPainted || judged++ >= mostTexts) continue;
            if (!pictures) pictures.emplace(request.spec, request.assetRoot, request.log);
            const auto contrast = FilmJudge::contrastOf(geometry, text, pictures->at(scene, text.localSec));
            if (auto finding = FilmJudge::lowContrast(geometry, text, contrast))
                findings.push_back(std::move(*finding));
        }
}

}   // namespace

std::vector<Finding> findings(const Request& request) {
    const CompositionSpec small = smallFilm(request.spec);
    std::vector<Finding> found;
    judgeContrast(request, found);
    watch(small, request, found);
    return found;
}

}   // namespace tavix::FrameJudge
