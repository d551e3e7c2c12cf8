#include "TavixAgent/Describe/DescribeFrame.h"

#include "TavixAgent/Describe/LayerCourse.h"
#include "TavixAgent/Describe/TextLines.h"
#include "TavixCore/Document/BeatGrid.h"
#include "TavixCore/Support/Codec.h"
#include "TavixCore/Support/Names.h"
#include "TavixRender/Judge/ContrastRules.h"
#include "TavixRender/Judge/Screening.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace tavix {
namespace {

constexpr double nearSoundSec = 0.5;
constexpr int samplesAcross = 24;            // of a box, for the share that is hidden
constexpr std::size_t mostLooks = 400'000;   // at layers, to find when they change

double rounded(double value, double steps) { return std::round(value * steps) / steps; }

PixelRect roundedBox(const PixelRect& box) {
    return {rounded(box.x, 10), rounded(box.y, 10), rounded(box.width, 10), rounded(box.height, 10)};
}

// How much of a layer lies under opaque parts of those in front of it, by points of it.
struct Hiding {
    double fraction = 0;
    std::optional<std::size_t> mostBy;   // the place in the frame of the one that hides most
};

Hiding hidingOf(const FrameGeometry& frame, std::size_t place, const imaging::Rect& canvas) {
    const LayerGeometry& layer = frame.layers[place];
    const PixelRect& box = layer.visibleBox;
    std::map<std::size_t, int> hiddenBy;
    int seen = 0, hidden = 0;
    for (int n = 0; n < samplesAcross * samplesAcross; ++n) {
        const imaging::Point point{box.x + box.width * (n % samplesAcross + 0.5) / samplesAcross,
            canvas.height - (box.y + box.height * (n / samplesAcross + 0.5) / samplesAcross)};
        if (!std::ranges::any_of(layer.parts, [&](const Outline& part) { return part.contains(point); }))
            continue;
        ++seen;
        bool isHidden = false;
        for (std::size_t above = place + 1; above < frame.layers.size(); ++above)
            if (frame.layers[above].solid.contains(point)) {
                isHidden = true;
                ++hiddenBy[above];
            }
        if (isHidden) ++hidden;
    }
    Hiding hiding{seen > 0 ? double(hidden) / seen : 0, {}};
    const auto most = std::ranges::max_element(hiddenBy, {}, [](const auto& entry) { return entry.second; });
    if (most != hiddenBy.end()) hiding.mostBy = most->first;
    return hiding;
}

class FrameTeller {
public:
    FrameTeller(const OpenFilm& film, std::size_t scene, double localSec)
        : film_(film), geometry_(film.geometry()), scene_(scene), localSec_(localSec),
          startSec_(geometry_.timeline().startSec[scene]), frame_(geometry_.frame(scene, localSec)) {
        const double frames = spec().durationSec * double(film.spec().output.fps);
        const double layers = double(std::max<std::size_t>(frame_.layers.size(), 1));
        stepSec_ = film.spec().output.fps.secAt(1) * std::max(1.0, frames * layers / double(mostLooks));
    }

    SceneDescription tell() const {
        SceneDescription scene{OpenFilm::pathOf(scene_), spec().displayName(scene_), rounded(localSec_, 1000),
            spec().durationSec, {}, {}};
        for (std::size_t place = 0; place < frame_.layers.size(); ++place)
            if (frame_.layers[place].isVisible()) scene.layers.push_back(layerAt(place));
        for (std::size_t l = 0; l < spec().layers.size(); ++l)
            if (std::ranges::none_of(frame_.layers,
                    [&](const LayerGeometry& shown) { return shown.layer == l && shown.isVisible(); }))
                scene.absent.push_back(film_.pathOf(scene_, l));
        return scene;
    }

private:
    const CompositionScene& spec() const { return film_.spec().scenes[scene_]; }

    LayerDescription layerAt(std::size_t place) const {
        const LayerGeometry& drawn = frame_.layers[place];
        const CompositionLayer& layer = spec().layers[drawn.layer];
        LayerDescription told;
        told.path = film_.pathOf(scene_, drawn.layer);
        told.id = layer.id;
        told.kind = kindName(layer.content);
        told.box = roundedBox(drawn.box);
        told.insideFraction = rounded(drawn.visibleFraction, 1000);
        told.opacity = rounded(drawn.opacity, 1000);
        const Hiding hiding = hidingOf(frame_, place, geometry_.canvas());
        told.hiddenFraction = rounded(hiding.fraction, 100);
        if (hiding.mostBy) told.hiddenBy = film_.pathOf(scene_, frame_.layers[*hiding.mostBy].layer);
        tellCourse(told, drawn.layer);
        tellText(told, drawn);
        return told;
    }

    void tellCourse(LayerDescription& told, std::size_t layer) const {
        const LayerWindow& window = geometry_.layers(scene_)[layer].window;
        const double end = std::min(window.endSec, spec().durationSec);
        // Steps that meet this very moment, from one before the layer begins.
        const double from = localSec_ - std::ceil((localSec_ - window.startSec) / stepSec_) * stepSec_;
        for (const StateSpan& span : courseOf(geometry_, scene_, layer, {from, end, stepSec_})) {
            if (span.fromSec > localSec_ + stepSec_ / 2) break;
            told.moves = span.state == LayerState::moving;
            told.sinceSec = rounded(startSec_ + std::max(span.fromSec, window.startSec), 1000);
            told.untilSec = rounded(startSec_ + std::max(span.toSec, localSec_), 1000);
        }
    }

    void tellText(LayerDescription& told, const LayerGeometry& drawn) const {
        const CompositionGeometry::Layer& entry = geometry_.layers(scene_)[drawn.layer];
        const auto* content = std::get_if<TextContent>(&entry.layer->content);
        const auto* layout = content ? entry.content->layout() : nullptr;
        if (!layout) return;
        told.lines = linesOf(*content, *layout, drawn.motion, geometry_.canvas());
        for (LineDescription& line : told.lines) line.box = roundedBox(line.box);
        told.fonts = fontsOf(*layout);
        const FilmJudge::TextAtRest text{scene_, drawn.layer, localSec_, drawn};
        auto contrast =
            FilmJudge::contrastOf(geometry_, text, FilmJudge::paintedGround(geometry_, frame_, drawn.layer));
        if (!contrast) contrast = FilmJudge::contrastOf(geometry_, text, pictured());
        if (contrast) told.contrast = std::floor(contrast->ratio * 10) / 10;
    }

    // Of pictures, clips and phones only their pixels tell. One drawing serves all texts of the moment.
    const FilmJudge::GroundAt& pictured() const {
        if (!pictured_)
            pictured_ = PicturedGround(film_.spec(), film_.document().assetRoot, {}).at(scene_, localSec_);
        return pictured_;
    }

    const OpenFilm& film_;
    const CompositionGeometry& geometry_;
    std::size_t scene_;
    double localSec_, startSec_, stepSec_ = 0;
    FrameGeometry frame_;
    mutable FilmJudge::GroundAt pictured_;
};

void tellSound(const CompositionAudio& audio, double atSec, FrameDescription& told) {
    if (const auto& music = audio.music; music && !music->path.empty()) {
        told.music = music->path;
        told.musicSec = rounded(music->startAtSec + atSec, 1000);
        if (music->bpm && *music->bpm > 0) {
            const BeatGrid grid{*music->bpm, music->firstBeatSec - music->startAtSec};
            told.beat =
                BeatDescription{*music->bpm, rounded((atSec - grid.offsetSec) / grid.beatDuration(), 100),
                    rounded(grid.nearestBeat(atSec), 1000)};
        }
    }
    for (std::size_t i = 0; i < audio.cues.size(); ++i)
        if (const SoundCue& cue = audio.cues[i]; std::abs(cue.atSec - atSec) <= nearSoundSec)
            told.sounds.push_back({"/audio/cues/" + std::to_string(i), cue.sound, rounded(cue.atSec, 1000)});
}

}   // namespace

FrameDescription describeFrame(const OpenFilm& film, double atSec) {
    const CompositionTimeline& timeline = film.geometry().timeline();
    const CompositionOutput& output = film.spec().output;
    FrameDescription told{
        rounded(atSec, 1000), rounded(timeline.totalSec, 1000), output.widthPx, output.heightPx};
    const auto sample = timeline.sample(atSec);
    if (!sample) return told;
    told.scenes.push_back(FrameTeller(film, sample->outgoing.index, sample->outgoing.localSeconds).tell());
    if (sample->incoming) {
        told.scenes.push_back(
            FrameTeller(film, sample->incoming->index, sample->incoming->localSeconds).tell());
        const auto& transition = film.spec().scenes[sample->outgoing.index].transition;
        if (transition) told.transition = nameOf(transition->style);
        told.transitionProgress = rounded(sample->progress, 1000);
    }
    if (film.spec().audio) tellSound(*film.spec().audio, atSec, told);
    return told;
}

}   // namespace tavix
