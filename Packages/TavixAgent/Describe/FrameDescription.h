// A frame of a film told without pixels: what is in it, where, how well it is seen, and what happens next.
#pragma once

#include "TavixCore/Support/Tables.h"
#include "TavixCore/Values/PixelRect.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavix {

struct LineDescription {
    std::string text;
    PixelRect box;   // as wide as the line is set and as tall as its font
    bool operator==(const LineDescription&) const = default;
};

struct LayerDescription {
    std::string path;   // JSON Pointer in the document as it is written
    std::optional<std::string> id;
    std::string kind;
    PixelRect box;                         // of all its ink after all motion, from the top left of the frame
    double insideFraction = 1;             // of its area, within the frame
    double hiddenFraction = 0;             // of what is within, under opaque layers
    std::optional<std::string> hiddenBy;   // the path of the one that hides most
    double opacity = 1;
    bool moves = false;   // from this frame to the next
    // Since when it moves or rests as it does now, and until when; on the clock of the film.
    double sinceSec = 0, untilSec = 0;
    std::vector<LineDescription> lines;   // of a text
    std::vector<std::string> fonts;       // that draw them
    std::optional<double> contrast;       // to 1, against what lies under a text
    bool operator==(const LayerDescription&) const = default;
};

struct SceneDescription {
    std::string path, name;
    double localSec = 0, durationSec = 0;
    std::vector<LayerDescription> layers;   // those that show, from back to front
    std::vector<std::string> absent;        // the paths of the others
    bool operator==(const SceneDescription&) const = default;
};

struct BeatDescription {
    double bpm = 0;
    double beat = 0;         // counted from 0, with a fraction
    double nearestSec = 0;   // the beat next to this time
    bool operator==(const BeatDescription&) const = default;
};

struct SoundDescription {
    std::string path, sound;
    double atSec = 0;
    bool operator==(const SoundDescription&) const = default;
};

struct FrameDescription {
    double atSec = 0, filmSec = 0;
    std::int64_t widthPx = 0, heightPx = 0;
    std::vector<SceneDescription> scenes;   // two while a transition runs, the one that goes first
    std::optional<std::string> transition;
    std::optional<double> transitionProgress;
    std::optional<std::string> music;
    std::optional<double> musicSec;   // where in its file the music is
    std::optional<BeatDescription> beat;
    std::vector<SoundDescription> sounds;   // cues within half a second
    bool operator==(const FrameDescription&) const = default;
};

// Over a range, what happens and when, in order.
struct HappeningDescription {
    double fromSec = 0, toSec = 0;
    std::string what;   // "cut", "transition", "enters", "moves", "rests", "leaves", "sound"
    std::string path, name;
    PixelRect box;   // at its end; of a layer
    bool operator==(const HappeningDescription&) const = default;
};

struct RangeDescription {
    double fromSec = 0, toSec = 0, filmSec = 0;
    double stepSec = 0;   // how closely it was looked
    std::vector<HappeningDescription> happenings;
    bool operator==(const RangeDescription&) const = default;
};

const Fields<LineDescription>& fieldsOf(std::type_identity<LineDescription>);
const Fields<LayerDescription>& fieldsOf(std::type_identity<LayerDescription>);
const Fields<SceneDescription>& fieldsOf(std::type_identity<SceneDescription>);
const Fields<BeatDescription>& fieldsOf(std::type_identity<BeatDescription>);
const Fields<SoundDescription>& fieldsOf(std::type_identity<SoundDescription>);
const Fields<FrameDescription>& fieldsOf(std::type_identity<FrameDescription>);
const Fields<HappeningDescription>& fieldsOf(std::type_identity<HappeningDescription>);
const Fields<RangeDescription>& fieldsOf(std::type_identity<RangeDescription>);

}   // namespace tavix
