// Devices under a hand: drags, the zoom of the stage, flat and in space.
#include "ManualEditor.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

class ModelDevices : public testing::ManualEditor {};

TEST_F(ModelDevices, ShowsADragWithoutTouchingTheDocumentUntilItEnds) {
    load(testing::smallFilmWithDevice());
    maker->drawSec = 0.02;
    model->refreshNow();
    time.advance(1);
    const EditState before = state().edited();
    DeviceScene3D turned = *std::get<DeviceContent>(before.spec.scenes[0].layers[0].content).scene3D;
    const std::size_t drawn = maker->last->draws.size();
    for (int i = 0; i < 100; ++i) {
        turned.tiltDegrees.y = i;
        model->liveUpdateScene3D(0, 0, turned);
        time.advance(0.01);
    }
    time.advance(0.04);   // what is being drawn, and the last one
    EXPECT_EQ(state().edited(), before);
    EXPECT_TRUE(state().showsLiveFrame());
    EXPECT_TRUE(maker->isLive);
    EXPECT_EQ(maker->applied.back().first.tiltDegrees.y, 99);
    EXPECT_NEAR(double(maker->last->draws.size() - drawn), 1 / 0.02, 3) << "as fast as it goes, none queued";
    model->commitLiveEdits();
    EXPECT_EQ(std::get<DeviceContent>(state().edited().spec.scenes[0].layers[0].content).scene3D, turned);
    EXPECT_EQ(model->history().stepCount(), 1u);
    time.advance(0.05);
    EXPECT_TRUE(state().showsLiveFrame()) << "until the document's own frame has come";
    time.advance(1);
    EXPECT_FALSE(state().showsLiveFrame());
    EXPECT_FALSE(maker->isLive);
    EXPECT_EQ(shown.back().number, int(maker->built.size()));
}

TEST_F(ModelDevices, MakesRoomAroundDevicesInThePreviewAlone) {
    load(testing::smallFilmWithDevice());
    const CompositionSpec before = state().edited().spec;
    model->setPreviewOverscan(0.5);
    time.advance(1);
    const auto placed = [](const CompositionSpec& spec) {
        return std::get<DeviceContent>(spec.scenes[0].layers[0].content).placement->track[0];
    };
    EXPECT_EQ(placed(maker->built.back().spec).offset.x, 0.1);
    EXPECT_EQ(placed(maker->built.back().spec).scale, 0.5);
    EXPECT_EQ(state().edited().spec, before);
    model->setPreviewOverscan(0.01);
    EXPECT_EQ(state().previewOverscan(), 0.1);
    maker->built.clear();
    time.advance(1);
    maker->built.clear();
    for (int i = 0; i < 5; ++i) {
        model->zoomPreview(1.2);
        time.advance(0.1);
    }
    EXPECT_TRUE(maker->built.empty()) << "while zooming only the drag's road is gone";
    EXPECT_TRUE(maker->isLive);
    time.advance(1);
    EXPECT_EQ(maker->built.size(), 1u);
    EXPECT_FALSE(maker->isLive);
}

TEST_F(ModelDevices, KeepsWhatADeviceWasInSpaceWhileTheDocumentIsOpen) {
    CompositionSpec spec = testing::smallFilmWithDevice();
    const auto in3D = [this] { return state().edited().spec.scenes[0].layers[0]; };
    std::get<DeviceContent>(spec.scenes[0].layers[0].content).scene3D->tiltDegrees.y = 42;
    load(spec);
    model->setDevice3D(0, 0, false);
    EXPECT_FALSE(std::get<DeviceContent>(in3D().content).scene3D);
    model->setDevice3D(0, 0, true);
    EXPECT_EQ(state().edited().spec, spec);
    EXPECT_EQ(model->history().stepCount(), 2u);
    model->setDevice3D(0, 0, false);
    load(testing::smallFilmWithDevice());
    model->setDevice3D(0, 0, false);
    model->setDevice3D(0, 0, true);
    EXPECT_EQ(state().edited().spec, testing::smallFilmWithDevice());
}

TEST_F(ModelDevices, GoesToAKeyframeThatIsAppended) {
    CompositionSpec spec = testing::smallFilmWithDevice();
    std::swap(spec.scenes[0], spec.scenes[1]);
    load(spec);
    model->appendKeyframe(1, 0, 1.5);
    time.advance(1);
    EXPECT_EQ(state().outputDuration(), 7.5);
    EXPECT_EQ(state().currentTime(), 7.5);
    EXPECT_EQ(std::get<DeviceContent>(state().edited().spec.scenes[1].layers[0].content)
                  .placement->track.back()
                  .tSec,
        4.5);
    model->appendKeyframe(0, 0, 1);   // no device
    time.advance(1);
    EXPECT_EQ(state().outputDuration(), 7.5);
}

}   // namespace
}   // namespace tavix
