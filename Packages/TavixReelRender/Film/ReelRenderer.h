// Draws the frames of a reel: the recording on the screen of a device, flat or in space, with captions over
// it, and title cards.
#pragma once

#include "TavixCore/Device/DevicePlacementTrajectory.h"
#include "TavixReelRender/Canvas/CanvasBake.h"
#include "TavixReelRender/Canvas/CutDressingOverlay.h"
#include "TavixReelRender/Cards/TitleCardRenderer.h"
#include "TavixReelRender/Film/ReelCaptions.h"
#include "TavixRender/Composition2D/ReelScreen.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace tavix {

class DeviceSceneRenderer;

// Used by one thread at a time. Nothing in it fails: what cannot be drawn is told and left out.
class ReelRenderer {
public:
    struct Footage {
        imaging::Size size;                         // of the recording, as it is seen
        std::vector<TransitionInput> transitions;   // with their pictures of it
        std::vector<double> seamsSec;               // of cuts, on the finished reel's clock
        TimeRemap compositionSec;                   // of a pre-cut time
    };

    // The evaluator of the build must outlive the renderer.
    ReelRenderer(const EffectsSpec& spec, Footage footage, const LayerBuild& build);
    ~ReelRenderer();

    // A picture of the recording in its surroundings. What was authored against the recording goes by the
    // pre-cut clock: the camera, captions, and flat transitions; what is laid out in the finished reel by
    // that: the device's place and turn, and light on cuts. Without a picture the screen is empty, and only
    // captions that move are shown.
    imaging::Image footage(
        const std::optional<imaging::Image>& recording, double preCutSec, double compositionSec);

    // A card of the document; without one of that number, the surroundings alone.
    imaging::Image card(std::size_t index, double localSec);

    // To another rest; without a device in space nothing happens.
    void turnDevice(const Vector3& tiltDegrees);

private:
    imaging::Image flat(
        const std::optional<imaging::Image>& recording, double preCutSec, double compositionSec) const;
    imaging::Image inSpace(
        const std::optional<imaging::Image>& recording, double preCutSec, double compositionSec);
    void buildSpace(const EffectsSpec& spec, const TimeRemap& compositionSec, const LayerBuild& build);

    imaging::Rect bounds_;
    imaging::Evaluator& evaluator_;
    RenderLog log_;
    CanvasBake bake_;
    ReelScreen screen_;
    ReelCaptions captions_;
    std::vector<TitleCardRenderer> cards_;
    std::optional<CutDressingOverlay> cutDressing_;
    std::optional<DevicePlacementTrajectory> placement_;   // of a flat device that moves
    std::unique_ptr<DeviceSceneRenderer> space_;           // of a device in space
    double screenAspect_ = 1;                              // width by height
};

}   // namespace tavix
