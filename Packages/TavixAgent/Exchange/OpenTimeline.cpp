#include "TavixAgent/Exchange/OpenTimeline.h"

#include "TavixCore/Document/LayerWindow.h"
#include "TavixCore/Support/Names.h"
#include "TavixCore/Support/TavixVersion.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Encoding/FilmWriter.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <map>
#include <utility>

namespace tavix {
namespace {

using Frames = std::int64_t;

struct Span {
    Frames from = 0, to = 0;
    Frames length() const { return to - from; }
};

JsonObject record(const char* schema, std::string_view name) {
    return {{"OTIO_SCHEMA", schema}, {"name", name}, {"metadata", JsonObject{}}};
}

// As RFC 3986 has it: what is neither a letter, a digit nor one of a few marks stands as its bytes.
std::string fileUrl(const std::filesystem::path& file) {
    constexpr const char* digits = "0123456789ABCDEF";
    std::string url = "file://";
    for (const char c : std::filesystem::absolute(file).lexically_normal().string()) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80 &&
            (std::isalnum(byte) || std::string_view("/-._~").find(c) != std::string_view::npos))
            url += c;
        else
            url.append("%").append(1, digits[byte >> 4]).append(1, digits[byte & 15]);
    }
    return url;
}

// Clips that follow one another, with gaps where there is none.
struct Lane {
    std::string name, kind;
    JsonArray children = {};
    Frames end = 0;
};

class Writer {
public:
    Writer(const CompositionSpec& film, const std::filesystem::path& assetRoot)
        : film_(film), assetRoot_(assetRoot), timeline_(film),
          total_(FilmWriter::frameCount(timeline_.totalSec, film.output.fps)) {}

    OpenTimeline write(const std::string& name) {
        writeScenes();
        for (std::size_t s = 0; s < film_.scenes.size(); ++s) writeVideos(s);
        if (film_.audio && film_.audio->music) writeMusic(*film_.audio->music);
        JsonArray tracks;
        for (Lane& lane : lanes_) {
            JsonObject track = record("Track.1", lane.name);
            track.set("kind", lane.kind);
            track.set("children", std::move(lane.children));
            tracks.emplace_back(std::move(track));
        }
        JsonObject stack = record("Stack.1", "tracks");
        stack.set("children", std::move(tracks));
        stack.set("markers", cueMarkers());
        JsonObject all = record("Timeline.1", name);
        all.set("metadata", JsonObject{{"tavix", JsonObject{{"version", TavixVersion::current}}}});
        all.set("global_start_time", Json());
        all.set("tracks", std::move(stack));
        tellWhatIsLeft();
        return {std::move(all), std::move(notes_)};
    }

private:
    Frames frame(double sec) const { return film_.output.fps.frameNearest(sec); }

    Json time(Frames frames) const {
        return JsonObject{
            {"OTIO_SCHEMA", "RationalTime.1"}, {"rate", double(film_.output.fps)}, {"value", double(frames)}};
    }
    Json range(const Span& span) const {
        return JsonObject{{"OTIO_SCHEMA", "TimeRange.1"}, {"start_time", time(span.from)},
            {"duration", time(span.length())}};
    }

    JsonObject clip(std::string_view name, const Span& source, Json reference) const {
        JsonObject made = record("Clip.1", name);
        made.set("source_range", range(source));
        made.set("media_reference", std::move(reference));
        return made;
    }
    Json fileReference(const std::string& path) const {
        JsonObject made = record("ExternalReference.1", path);
        made.set("available_range", Json());
        made.set("target_url", fileUrl(assetRoot_ / path));
        return made;
    }
    Json sceneReference(std::string_view name, Frames length) const {
        JsonObject made = record("MissingReference.1", name);
        made.set("available_range", range({0, length}));
        return made;
    }
    Json marker(std::string_view name, const char* color, const Span& span) const {
        JsonObject made = record("Marker.2", name);
        made.set("color", color);
        made.set("marked_range", range(span));
        return made;
    }

    // Of the transition out of a scene: both are seen in it.
    Span overlap(std::size_t scene) const {
        if (scene + 1 >= film_.scenes.size()) return {total_, total_};
        const double begin = timeline_.startSec[scene + 1];
        return {frame(begin), frame(begin + timeline_.transitionDurations[scene])};
    }
    Frames cutAfter(std::size_t scene) const {
        const Span both = overlap(scene);
        return both.from + both.length() / 2;
    }

    void writeScenes() {
        Lane lane{"scenes", "Video"};
        Frames cut = 0;
        for (std::size_t s = 0; s < film_.scenes.size(); ++s) {
            const CompositionScene& scene = film_.scenes[s];
            const Frames start = frame(timeline_.startSec[s]), next = cutAfter(s);
            const Frames length = std::max(frame(timeline_.startSec[s] + scene.durationSec), next) - start;
            JsonObject made = clip(scene.displayName(s), {cut - start, next - start},
                sceneReference(scene.displayName(s), length));
            made.set("markers", textMarkers(scene));
            lane.children.emplace_back(std::move(made));
            if (const Span both = overlap(s); both.length() > 0)
                lane.children.emplace_back(transition(scene, both));
            cut = next;
        }
        lanes_.push_back(std::move(lane));
    }

    Json transition(const CompositionScene& scene, const Span& both) const {
        const std::string_view style = nameOf(scene.transition->style);
        JsonObject made = record("Transition.1", style);
        made.set("transition_type",
            scene.transition->style == TransitionStyle::fade ? "SMPTE_Dissolve" : "Custom_Transition");
        made.set("in_offset", time(both.length() / 2));
        made.set("out_offset", time(both.length() - both.length() / 2));
        return made;
    }

    Json textMarkers(const CompositionScene& scene) const {
        JsonArray markers;
        for (const CompositionLayer& layer : scene.layers)
            if (const auto* content = std::get_if<TextContent>(&layer.content)) {
                const LayerWindow window = shownWindow(layer, scene);
                const double end = std::max(std::min(window.endSec, scene.durationSec), window.startSec);
                markers.push_back(marker(content->text, "GREEN", {frame(window.startSec), frame(end)}));
            }
        return markers;
    }

    Json cueMarkers() const {
        JsonArray markers;
        if (film_.audio)
            for (const SoundCue& cue : film_.audio->cues)
                markers.push_back(marker(cue.sound, "RED", {frame(cue.atSec), frame(cue.atSec)}));
        return markers;
    }

    void put(const Span& where, JsonObject made, const char* kind, const char* name) {
        const auto isFree = [&](const Lane& lane) { return lane.name == name && lane.end <= where.from; };
        auto lane = std::ranges::find_if(lanes_, isFree);
        if (lane == lanes_.end()) lane = lanes_.insert(lanes_.end(), {name, kind});
        if (where.from > lane->end) {
            JsonObject gap = record("Gap.1", "");
            gap.set("source_range", range({0, where.from - lane->end}));
            lane->children.emplace_back(std::move(gap));
        }
        lane->children.emplace_back(std::move(made));
        lane->end = where.to;
    }

    void writeVideos(std::size_t s) {
        const CompositionScene& scene = film_.scenes[s];
        for (const CompositionLayer& layer : scene.layers) {
            const auto* video = std::get_if<VideoContent>(&layer.content);
            if (!video) continue;
            const LayerWindow window = shownWindow(layer, scene);
            double end = std::min(window.endSec, scene.durationSec);
            if (const auto trimEnd = video->clip.trimEndSec)
                end = std::min(end, window.startSec + std::max(*trimEnd - video->clip.trimStartSec, 0.0));
            const Span where{
                frame(timeline_.startSec[s] + window.startSec), frame(timeline_.startSec[s] + end)};
            if (where.length() <= 0) continue;
            const Frames in = frame(video->clip.trimStartSec);
            put(where,
                clip(layer.id.value_or(video->clip.path), {in, in + where.length()},
                    fileReference(video->clip.path)),
                "Video", "clips");
        }
    }

    void writeMusic(const MusicBed& music) {
        const Frames in = frame(music.startAtSec);
        put({0, total_}, clip("music", {in, in + total_}, fileReference(music.path)), "Audio", "music");
        if (music.gain != 1 || music.fadeInSec > 0 || music.fadeOutSec > 0)
            notes_.push_back(Finding::warning("timeline-not-carried",
                "The gain and the fades of the music are not carried; set them anew."));
    }

    void tellWhatIsLeft() {
        std::map<std::string, int> counts;
        int moved = 0, styled = 0;
        for (const CompositionScene& scene : film_.scenes) {
            if (scene.transition && scene.transition->style != TransitionStyle::fade) ++styled;
            for (const CompositionLayer& layer : scene.layers) {
                if (!std::holds_alternative<VideoContent>(layer.content) &&
                    !std::holds_alternative<TextContent>(layer.content))
                    ++counts[std::string(kindName(layer.content))];
                if (!layer.tracks.empty() || !layer.effects.empty()) ++moved;
            }
        }
        std::string list;
        for (const auto& [kind, count] : counts)
            list += (list.empty() ? "" : ", ") + std::to_string(count) + " " + kind;
        if (!list.empty())
            tell("Layers that an editing program does not know are not carried (" + list +
                 "); render the film and put it in the place of the scenes.");
        if (moved > 0) tell("Keyframes and effects of " + std::to_string(moved) + " layers are not carried.");
        if (styled > 0)
            tell("Of " + std::to_string(styled) +
                 " transitions only the place, the length and the name are carried: not how they look.");
    }

    void tell(std::string sentence) {
        notes_.push_back(Finding::warning("timeline-not-carried", std::move(sentence)));
    }

    const CompositionSpec& film_;
    const std::filesystem::path& assetRoot_;
    CompositionTimeline timeline_;
    Frames total_;
    std::vector<Lane> lanes_;
    std::vector<Finding> notes_;
};

}   // namespace

OpenTimeline openTimeline(
    const CompositionSpec& film, const std::string& name, const std::filesystem::path& assetRoot) {
    return Writer(film, assetRoot).write(name);
}

}   // namespace tavix
