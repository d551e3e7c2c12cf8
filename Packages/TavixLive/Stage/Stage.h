// Draws compositions in the size of a preview, one document after another: what an edit does not touch is
// neither built nor drawn again.
#pragma once

#include "TavixLive/Stage/PreviewMaker.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixRender/Assets/RenderLog.h"

#include <cstddef>
#include <memory>

namespace tavix {

// Its sources may outlive it.
class Stage final : public PreviewMaker {
public:
    struct Options {
        imaging::EvaluatorOptions evaluation = {};
        std::size_t storeBytes = 256u << 20;   // of finished frames; 0: none are kept
        bool showsClear = false;               // as a checkered pattern, and not as black
        bool takesOver = true;                 // what earlier documents were built into; off to measure
    };
    // The log is told what is left out of pictures.
    Stage(const Options& options, RenderLog log);
    ~Stage() override;

    FrameSourceRef source(
        const CompositionSpec& spec, const AssetRoot& assetRoot, imaging::Size room) override;
    void liveApply(const Composition3DRendererPool::Key& key, const DeviceScene3D& scene3D,
        const std::optional<DevicePlacementSpec>& placement) override;
    void setLiveMode(bool isOn) override;
    void forgetDevices() override;
    std::optional<media::AudioTimeline> sound(
        const CompositionSpec& spec, const AssetRoot& assetRoot) const override;

    std::size_t storedBytes() const;

private:
    struct Workroom;
    class Source;
    std::shared_ptr<Workroom> room_;
};

}   // namespace tavix
