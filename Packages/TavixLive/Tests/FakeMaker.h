// Documents that take as long to build as the test says, for models of editors in virtual time.
#pragma once

#include "ManualStudio.h"
#include "TavixLive/Stage/PreviewMaker.h"

#include <utility>
#include <vector>

namespace tavix::testing {

class FakeMaker final : public PreviewMaker {
public:
    explicit FakeMaker(system::ManualTime& time) : time_(time) {}

    FrameSourceRef source(const CompositionSpec& spec, const AssetRoot&, imaging::Size) override;
    void liveApply(const Composition3DRendererPool::Key&, const DeviceScene3D& scene3D,
        const std::optional<DevicePlacementSpec>& placement) override {
        applied.push_back({scene3D, placement});
    }
    void setLiveMode(bool isOn) override { isLive = isOn; }
    void forgetDevices() override { ++forgotten; }
    std::optional<media::AudioTimeline> sound(const CompositionSpec&, const AssetRoot&) const override {
        ++soundsMade;
        return std::nullopt;
    }

    struct Build {
        CompositionSpec spec;
        double startSec;
    };
    std::vector<Build> built;
    std::vector<std::pair<DeviceScene3D, std::optional<DevicePlacementSpec>>> applied;
    std::shared_ptr<FakeSource> last;
    double buildSec = 0.01, drawSec = 0.005;
    std::size_t room = 0;   // of the memory of frames
    bool fails = false, isLive = false;
    int forgotten = 0;
    mutable int soundsMade = 0;

private:
    system::ManualTime& time_;
};

// Two scenes of three seconds, each with a shape.
CompositionSpec smallFilm();
// Its first shape is a device in space.
CompositionSpec smallFilmWithDevice();

}   // namespace tavix::testing
