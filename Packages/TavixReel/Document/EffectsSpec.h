// The root of `effects.json`: all that a reel does to a recording.
#pragma once

#include "TavixCore/Device/DeviceScene.h"
#include "TavixCore/Document/ScreenTransition.h"
#include "TavixCore/Document/SoundCue.h"
#include "TavixCore/Theme/BrandKit.h"
#include "TavixReel/Document/Background.h"
#include "TavixReel/Document/CameraKeyframe.h"
#include "TavixReel/Document/CutDressing.h"
#include "TavixReel/Document/EffectsOutput.h"
#include "TavixReel/Document/MotionModel.h"
#include "TavixReel/Document/Narration.h"
#include "TavixReel/Document/ReelTimes.h"
#include "TavixReel/Document/SideCaptionSettings.h"
#include "TavixReel/Document/TitleCard.h"

#include <cstdint>
#include <optional>
#include <type_traits>
#include <vector>

namespace tavix {

struct EffectsSpec {
    static constexpr std::int64_t authoredSchemaVersion = 4;

    std::int64_t schemaVersion = 3;   // of documents that do not say it
    EffectsOutput output;
    Background background;
    std::vector<CameraKeyframe> cameraTrack;
    MotionModel motion;
    std::vector<Cut> cuts;
    std::vector<RetimeSegment> retimeTrack;
    RetimeFrames retimeFrames = RetimeFrames::pick;
    std::optional<Narration> narration;
    std::optional<BrandKit> brand;
    std::optional<DeviceScene> deviceScene;
    std::vector<TitleCard> titleCards;
    std::vector<SoundCue> soundCues;
    std::optional<CutDressing> cutDressing;
    std::optional<SideCaptionSettings> sideCaptions;

    const std::vector<ScreenTransition>& transitions() const { return transitions_; }
    const std::optional<DevicePlacementSpec>& devicePlacement() const { return devicePlacement_; }

    // Sorts the transitions, gives each the time it needs (but never the next one's), and turns the device by
    // those that flip it. Flips in the device scene are how older documents said it, and follow along.
    void setTransitions(std::vector<ScreenTransition> transitions);
    // Sorts the track; an empty one is none. The device scene's own track follows along.
    void setDevicePlacement(std::optional<DevicePlacementSpec> placement);

    bool operator==(const EffectsSpec&) const = default;

private:
    friend const Fields<EffectsSpec>& fieldsOf(std::type_identity<EffectsSpec>);

    std::vector<ScreenTransition> transitions_;
    std::optional<DevicePlacementSpec> devicePlacement_;
};

// What the device scene of an older document says of transitions and of the device's place.
std::vector<ScreenTransition> flipMirror(const std::optional<DeviceScene>& scene);
std::optional<DevicePlacementSpec> placementMirror(const std::optional<DeviceScene>& scene);

const Fields<EffectsSpec>& fieldsOf(std::type_identity<EffectsSpec>);

}   // namespace tavix
