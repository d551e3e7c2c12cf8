// A phone in space: from a picture for its screen and a time to a picture of the lit, posed device.
#pragma once

#include "TavixCore/Device/DeviceKeyframes.h"
#include "TavixCore/Device/DeviceScene.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixRender/Assets/RenderLog.h"
#include "TavixRender/DeviceScene/DeviceDarkroom.h"
#include "TavixRender/DeviceScene/DevicePassPlan.h"
#include "TavixRender/DeviceScene/DeviceSceneMotion.h"
#include "TavixRender/DeviceScene/ScreenTransitionWindow.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace tavix {

class DeviceStage;
struct DeviceMotionBlur;
struct DeviceStance;

// Used by one thread at a time, whichever it is.
class DeviceSceneRenderer {
public:
    struct Settings {
        DeviceScene initialScene;
        imaging::Size output;   // of the pictures it gives, in pixels
        DeviceQuality quality = DeviceQuality::full;
        imaging::Rect deviceRect;   // the frame of the device, in output pixels
        double fps = 30;
        imaging::Image backdrop;   // what lies behind the device
        std::vector<TransitionInput> transitionInputs;
        DevicePlacementSpec placementSpec;
        bool parkPoseTurn = false;   // see `DeviceMotionRules`, as for the next but two
        double motionBlurGain = 0;   // at least 0
        double blurScale = 1;        // pixels of the output are counted as that many when motion is judged
        std::vector<DeviceScalarKeyframe> depthTrack;
        bool smoothPose = false;
        TimeRemap timeRemap;
        std::shared_ptr<DeviceDarkroom> darkroom = {};   // absent: one of its own
    };
    // What a frame is drawn with. Both belong to the caller.
    struct Context {
        imaging::Evaluator& evaluator;
        const RenderLog& log;
    };

    explicit DeviceSceneRenderer(Settings settings);
    ~DeviceSceneRenderer();

    // A picture of the size of the output. The first call builds the stage. Never fails: what cannot be drawn
    // is told to the log once, and the backdrop shows.
    imaging::Image render(const imaging::Image& deviceLayer, double outputSec, const Context& context);

    // Builds the stage before the first picture; false where it stands, or cannot.
    bool prepare(const Context& context);

    // Of the picture that `render` would give: equal hashes mean equal pictures, for as long as the renderer
    // lives.
    Digest frameHash(const imaging::Image& deviceLayer, double outputSec) const;

    // Changes all of a scene but its finish. Without a placement the scene's own counts; an absent blur or
    // depth stays as it was.
    void applyScene(const DeviceScene& scene, const std::optional<DevicePlacementSpec>& placement,
        std::optional<double> motionBlur = {},
        const std::optional<std::vector<DeviceScalarKeyframe>>& depthTrack = {});
    // Changes whenever the scene does.
    std::uint64_t sceneVersion() const { return sceneVersion_; }
    void liveUpdateTilt(const Vector3& tiltDegrees);
    // Gives up the stage and what is on its screen; the next frame sets them up again.
    void rest();
    void setLiveMode(bool isOn);
    // Pictures in time before fine ones: `DeviceQuality::rough`.
    void setRough(bool isOn) { isRough_ = isOn; }

private:
    enum class State { fresh, built, failed };
    struct BodyPicture;

    void build(const Context& context);
    void deriveMotion();
    void setUpStage();
    void updateScreen(const imaging::Image& screen, double outputSec, const Context& context);
    imaging::Image photographed(const DeviceStance& stance);
    imaging::Image thinned(const imaging::Image& screen, const DeviceStance& stance) const;
    DevicePassPlan passPlan() const;
    imaging::Image bodyPass(const DevicePassPlan& plan, const DeviceStance& stance);
    imaging::Image screenPass(const DevicePassPlan& plan);
    imaging::Image backdrop() const;
    DeviceMotionRules rules() const;
    DeviceStance stanceAt(double outputSec) const;
    std::optional<DeviceMotionBlur> blurAt(double outputSec) const;

    Settings settings_;
    DeviceScene scene_;
    DevicePlacementSpec placement_;
    DeviceSceneMotion motion_;
    std::vector<TransitionWindow> transitionWindows_;
    std::uint64_t sceneVersion_ = 0;   // counts what was applied
    State state_ = State::fresh;
    std::unique_ptr<DeviceStage> stage_;
    DeviceDarkroom::ScreenRef screen_;
    bool liveMode_ = false, isRough_ = false;
    bool hasToldOfScreen_ = false;            // its failure is told once
    std::optional<double> lastBlitSec_;       // when the screen was last brought up to date
    std::optional<Digest> lastBlit_;          // and with what
    std::unique_ptr<BodyPicture> lastBody_;   // a device that stands still keeps it while a film runs on it
};

}   // namespace tavix
