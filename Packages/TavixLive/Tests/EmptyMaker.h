// Pictures of one pixel and no sound, where only documents matter.
#pragma once

#include "TavixLive/Stage/PreviewMaker.h"

#include <memory>

namespace tavix::testing {

class EmptySource final : public FrameSource {
public:
    explicit EmptySource(double totalSec) : totalSec_(totalSec) {}
    Drawn draw(double, FrameQuality) override {
        return {std::make_shared<imaging::Bitmap>(imaging::Size{1, 1})};
    }
    bool isStored(double) const override { return false; }
    bool hasRoom() const override { return false; }
    double totalSec() const override { return totalSec_; }
    bool hasDevicesInSpace() const override { return false; }

private:
    double totalSec_;
};

// A second for every scene.
class EmptyMaker final : public PreviewMaker {
public:
    FrameSourceRef source(const CompositionSpec& spec, const AssetRoot&, imaging::Size) override {
        return std::make_shared<EmptySource>(double(spec.scenes.size()));
    }
    void liveApply(const Composition3DRendererPool::Key&, const DeviceScene3D&,
        const std::optional<DevicePlacementSpec>&) override {}
    void setLiveMode(bool) override {}
    void forgetDevices() override {}
    std::optional<media::AudioTimeline> sound(const CompositionSpec&, const AssetRoot&) const override {
        return std::nullopt;
    }
};

}   // namespace tavix::testing
