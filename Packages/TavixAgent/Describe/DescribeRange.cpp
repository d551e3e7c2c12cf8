#include "TavixAgent/Describe/DescribeFrame.h"
#include "TavixAgent/Describe/LayerCourse.h"
#include "TavixAgent/Document/DocumentErrors.h"
#include "TavixCore/Support/Codec.h"
#include "TavixCore/Support/Decimals.h"
#include "TavixCore/Support/Names.h"
#include "TavixRender/Judge/FilmJudge.h"

#include <algorithm>
#include <cmath>

namespace tavix {
namespace {

constexpr double mostLooks = 400'000;

double thousandths(double sec) { return std::round(sec * 1000) / 1000; }

class RangeTeller {
public:
    RangeTeller(const OpenFilm& film, RangeDescription& told)
        : film_(film), timeline_(film.geometry().timeline()), told_(told) {}

    void tell() {
        std::size_t layers = 1;
        for (const CompositionScene& scene : film_.spec().scenes) layers += scene.layers.size();
        const double frameSec = film_.spec().output.fps.secAt(1);
        const double frames = (told_.toSec - told_.fromSec) / frameSec;
        told_.stepSec = frameSec * std::max(1.0, frames * double(layers) / mostLooks);
        for (std::size_t i = 0; i < film_.spec().scenes.size(); ++i) tellScene(i);
        if (const auto& audio = film_.spec().audio)
            for (std::size_t i = 0; i < audio->cues.size(); ++i)
                if (isWithin(audio->cues[i].atSec))
                    add({audio->cues[i].atSec, audio->cues[i].atSec, "sound",
                        "/audio/cues/" + std::to_string(i), audio->cues[i].sound, {}});
        std::ranges::stable_sort(told_.happenings, {}, &HappeningDescription::fromSec);
    }

private:
    bool isWithin(double sec) const { return sec >= told_.fromSec && sec <= told_.toSec; }

    void add(HappeningDescription happening) {
        happening.fromSec = thousandths(happening.fromSec);
        happening.toSec = thousandths(happening.toSec);
        told_.happenings.push_back(std::move(happening));
    }

    void tellScene(std::size_t scene) {
        const CompositionScene& spec = film_.spec().scenes[scene];
        const double start = timeline_.startSec[scene];
        const double from = std::max(told_.fromSec, start),
                     to = std::min(told_.toSec, start + spec.durationSec);
        if (from > to) return;
        if (scene > 0 && isWithin(start)) {
            const double overlapSec = timeline_.transitionDurations[scene - 1];
            const auto& transition = film_.spec().scenes[scene - 1].transition;
            const bool isCut = !transition || !(overlapSec > 0);
            add({start, start + overlapSec, isCut ? "cut" : "transition", OpenFilm::pathOf(scene),
                spec.displayName(scene) + (isCut ? "" : " by " + std::string(nameOf(transition->style))),
                {}});
        }
        for (std::size_t layer = 0; layer < spec.layers.size(); ++layer)
            tellLayer(scene, layer, from - start, to - start);
    }

    void tellLayer(std::size_t scene, std::size_t layer, double fromSec, double toSec) {
        const auto course = courseOf(film_.geometry(), scene, layer, {fromSec, toSec, told_.stepSec});
        const double start = timeline_.startSec[scene];
        for (std::size_t i = 0; i < course.size(); ++i) {
            const StateSpan& span = course[i];
            if (span.state == LayerState::absent) continue;
            const bool begins = i > 0 && course[i - 1].state == LayerState::absent;
            const bool ends = i + 1 < course.size() && course[i + 1].state == LayerState::absent;
            const bool moves = span.state == LayerState::moving;
            HappeningDescription told{start + span.fromSec, start + span.toSec, moves ? "moves" : "rests",
                film_.pathOf(scene, layer), FilmJudge::nameOf(film_.spec().scenes[scene].layers[layer]),
                boxAt(scene, layer, span.toSec)};
            if (begins && moves)
                told.what = "enters";
            else if (ends && moves)
                told.what = "leaves";
            else if (begins)
                add({told.fromSec, told.fromSec, "enters", told.path, told.name, told.box});
            add(told);
            if (ends && !moves) add({told.toSec, told.toSec, "leaves", told.path, told.name, told.box});
        }
    }

    PixelRect boxAt(std::size_t scene, std::size_t layer, double localSec) const {
        auto drawn = film_.geometry().layerAt(scene, layer, localSec);
        if (!drawn) drawn = film_.geometry().layerAt(scene, layer, localSec - told_.stepSec);
        if (!drawn) return {};
        const auto tenth = [](double value) { return std::round(value * 10) / 10; };
        return {tenth(drawn->box.x), tenth(drawn->box.y), tenth(drawn->box.width), tenth(drawn->box.height)};
    }

    const OpenFilm& film_;
    const CompositionTimeline& timeline_;
    RangeDescription& told_;
};

}   // namespace

RangeDescription describeRange(const OpenFilm& film, double fromSec, double toSec) {
    const double filmSec = film.geometry().timeline().totalSec;
    if (!(fromSec >= 0 && fromSec < toSec && fromSec < filmSec))
        throw UsageError("There is no stretch from " + twoDecimals(fromSec) + " to " + twoDecimals(toSec) +
                         " s; the film runs from 0 to " + twoDecimals(filmSec) + " s.");
    RangeDescription told{fromSec, std::min(toSec, filmSec), thousandths(filmSec), 0, {}};
    RangeTeller(film, told).tell();
    told.stepSec = thousandths(told.stepSec);
    return told;
}

}   // namespace tavix
